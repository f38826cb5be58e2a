#include "home.h"

#include <QDir>

Home::Home()
{
    if (!QDir().mkpath(padsFolder()))
        qFatal("cannot make %s", qPrintable(padsFolder()));

    const QByteArray home = m_folder.path().toLocal8Bit();
    qputenv("HOME", home);
    qputenv("XDG_RUNTIME_DIR", home);
    for (const char *name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"})
        qunsetenv(name);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_LOGGING_RULES", "*.debug=false\n*.warning=false");
}

QString Home::padsFolder() const
{
    return m_folder.filePath("Documents/VirtualDJ/Pads");
}

#include "home.h"

#include <QDir>

Home::Home()
{
    for (const QString &folder : {padsFolder(), mappersFolder()}) {
        if (!QDir().mkpath(folder))
            qFatal("cannot make %s", qPrintable(folder));
    }

    moveIn();
    for (const char *name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"})
        qunsetenv(name);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_LOGGING_RULES", "*.debug=false\n*.warning=false");
}

void Home::moveIn() const
{
    const QByteArray home = m_folder.path().toLocal8Bit();
    qputenv("HOME", home);
    qputenv("XDG_RUNTIME_DIR", home);
}

QString Home::padsFolder() const
{
    return m_folder.filePath("Documents/VirtualDJ/Pads");
}

QString Home::mappersFolder() const
{
    return m_folder.filePath("Documents/VirtualDJ/Mappers");
}

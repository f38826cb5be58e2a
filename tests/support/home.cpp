#include "support/home.h"

#include <QCoreApplication>
#include <QDir>
#include <QTemporaryDir>

#ifdef Q_OS_WIN
#include <windows.h>

namespace {

/** The user's settings as this process alone sees them: Windows keeps there where the documents lie. */
class OwnSettings final
{
public:
    OwnSettings()
    {
        HKEY key = nullptr;
        if (RegCreateKeyW(HKEY_CURRENT_USER, name(), &key) != ERROR_SUCCESS
            || RegOverridePredefKey(HKEY_CURRENT_USER, key) != ERROR_SUCCESS)
            qFatal("no settings for the tests");
        RegCloseKey(key);
    }
    ~OwnSettings()
    {
        RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
        RegDeleteTreeW(HKEY_CURRENT_USER, name());
    }
    Q_DISABLE_COPY(OwnSettings)

    static void setDocuments(const QString &folder)
    {
        const QString path = QDir::toNativeSeparators(folder);
        if (RegSetKeyValueW(HKEY_CURRENT_USER,
                            L"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\User Shell Folders",
                            L"Personal", REG_SZ, path.utf16(),
                            static_cast<DWORD>((path.size() + 1) * static_cast<int>(sizeof(ushort))))
            != ERROR_SUCCESS)
            qFatal("no documents folder for the tests");
    }

private:
    const wchar_t *name() const { return reinterpret_cast<const wchar_t *>(m_name.utf16()); }

    /** Tests run side by side. */
    const QString m_name = "Software\\Zarvex tests\\" + QString::number(QCoreApplication::applicationPid());
};

} // namespace

void takeHome(const QString &folder)
{
    static const OwnSettings settings;
    OwnSettings::setDocuments(folder + "/Documents");
}
#else
void takeHome(const QString &folder)
{
    // One for the whole process: the library asks for it once, and would bring back a home folder that is
    // gone by then.
    static const QTemporaryDir settings;
    qputenv("HOME", folder.toLocal8Bit());
    qputenv("XDG_CONFIG_HOME", settings.path().toLocal8Bit());
}
#endif

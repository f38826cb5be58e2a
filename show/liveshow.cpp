#include "show/liveshow.h"

#include <QSettings>
#include <QStringList>
#include <QVariant>

namespace {

QString textOf(const QVariant &value)
{
    // A value with commas comes as a list; a title like "Red, White" must not lose its text to that.
    if (value.type() == QVariant::StringList)
        return value.toStringList().join(", ");
    return value.toString();
}

QString colorOf(const QVariant &value)
{
    return colorText(QString::number(value.toInt(), 16).toUpper());
}

/** Reads a show group by group, keeping count of the groups that are missing from the file. */
class ShowReader final
{
public:
    explicit ShowReader(const QString &path) : m_settings(path, QSettings::IniFormat) {}

    LiveShow read()
    {
        LiveShow show;
        show.pages.append({{"pageid", "0"}, {"name", "All Pages"}});
        const int pages = m_settings.value("page/number", 0).toInt();
        for (int number = 1; number <= pages && readPage(number, show); ++number) {
        }
        for (int number = 1; number < show.pages.size(); ++number)
            readButtons(number, show);
        return show;
    }

private:
    bool readPage(int number, LiveShow &show)
    {
        const QString text = QString::number(number);
        Record page = {{"pageid", text}};
        const bool readOn = enter("page" + text);
        for (const QString &key : m_keys)
            page.insert(key, textOf(m_settings.value(key)));
        m_settings.endGroup();
        if (readOn)
            show.pages.append(page);
        return readOn;
    }

    void readButtons(int number, LiveShow &show)
    {
        const Record page = show.pages.at(number);
        const QString prefix = "page" + page.value("pageid") + "_button";
        const int buttons = page.value("nb_buttons").toInt();
        for (int button = 1; button <= buttons && readButton(number, prefix, button, show); ++button) {
        }
    }

    bool readButton(int page, const QString &prefix, int number, LiveShow &show)
    {
        Record button = {{"pageid", QString::number(page)}, {"check", "0"}};
        const bool readOn = enter(prefix + QString::number(number));
        for (const QString &key : m_keys) {
            const QVariant value = m_settings.value(key);
            button.insert(key, key == QLatin1String("color") ? colorOf(value) : textOf(value));
        }
        m_settings.endGroup();
        if (!readOn)
            return false;

        if (button.value("color").isEmpty())
            button.insert("color", "#ffffff");
        button.insert("buttonid", QString::number(show.buttons.size()));
        show.buttons.append(button);
        return true;
    }

    /** Enters a group; false when the file counts more missing groups than any show can have. */
    bool enter(const QString &group)
    {
        m_settings.beginGroup(group);
        m_keys = m_settings.childKeys();
        return !m_keys.isEmpty() || ++m_missing <= MostMissing;
    }

    static constexpr int MostMissing = 100000;

    QSettings m_settings;
    QStringList m_keys;
    int m_missing = 0;
};

} // namespace

LiveShow readLiveShow(const QString &path)
{
    return ShowReader(path).read();
}

QString colorText(const QString &digits)
{
    if (digits.isEmpty())
        return QStringLiteral("#ffffff");
    return "#" + digits.rightJustified(6, '0');
}

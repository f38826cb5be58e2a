#include "show/liveshow.h"

#include "files/inifile.h"
#include "files/readfile.h"

#include <QDir>
#include <QHash>
#include <QRegularExpression>
#include <QSet>
#include <QSettings>
#include <QStringList>
#include <QVariant>
#include <QVector>

#include <algorithm>

namespace {

// Sixty thousand Live Buttons with all that the DMX program notes of them take less.
constexpr qint64 LongestShow = 32 << 20;

// The window paints a name as a whole to see how much of it fits.
constexpr int LongestName = 10000;

bool hasLongText(const QList<Record> &records, const QString &key)
{
    return std::any_of(records.cbegin(), records.cend(),
                       [&key](const Record &record) { return record.value(key).size() > LongestName; });
}

QString colorOf(const QVariant &value)
{
    return colorText(QString::number(value.toInt(), 16).toUpper());
}

/** Reads a show group by group. */
class ShowReader final
{
public:
    ShowReader(const QString &path, const QByteArray &bytes)
        : m_settings(path, QSettings::IniFormat), m_textsWithCommas(iniTextsWithCommas(bytes))
    {
    }

    LiveShow read()
    {
        LiveShow show;
        show.pages.append({{"pageid", "0"}, {"name", "All Pages"}});
        const int pages = m_settings.value("page/number", 0).toInt();
        forEachNumber("page", pages, [&](const QString &number) { readPage(number, show); });
        for (int position = 1; position < show.pages.size(); ++position)
            readButtons(position, show);
        return show;
    }

private:
    void readPage(const QString &number, LiveShow &show)
    {
        Record page = {{"pageid", number}};
        enter("page" + number);
        for (const QString &key : qAsConst(m_keys))
            page.insert(key, textOf(key, m_settings.value(key)));
        m_settings.endGroup();
        show.pages.append(page);
    }

    void readButtons(int position, LiveShow &show)
    {
        const Record page = show.pages.at(position);
        const QString prefix = normalized("page" + page.value("pageid") + "_button");
        const QString pageNumber = QString::number(position);
        m_isReadAgain = m_prefixes.contains(prefix);
        m_prefixes.insert(prefix);
        forEachNumber(prefix, page.value("nb_buttons").toInt(),
                      [&](const QString &number) { readButton(prefix + number, pageNumber, show); });
    }

    void readButton(const QString &group, const QString &page, LiveShow &show)
    {
        Record button = {{"pageid", page}, {"check", "0"}};
        enter(group);
        for (const QString &key : qAsConst(m_keys)) {
            const QVariant value = m_settings.value(key);
            button.insert(key, key == QLatin1String("color") ? colorOf(value) : textOf(key, value));
        }
        m_settings.endGroup();
        if (button.value("color").isEmpty())
            button.insert("color", "#ffffff");
        button.insert("buttonid", QString::number(show.buttons.size()));
        show.buttons.append(button);
        if (m_isReadAgain)
            m_cost += costOf(button);
    }

    /** One spelling for all names of a group that QSettings takes for the same, such as with slashes doubled. */
    QString normalized(const QString &group)
    {
        m_settings.beginGroup(group);
        const QString name = iniKey(m_settings.group());
        m_settings.endGroup();
        return name;
    }

    void enter(const QString &group)
    {
        m_settings.beginGroup(group);
        m_keys = m_settings.childKeys();
        if (m_isReadAgain)
            m_cost += m_settings.allKeys().size() / KeysOfRecord; // groups within it were gone through, too
        if (m_keys.isEmpty() || m_isReadAgain)
            m_cost += 1 + group.size() / CharactersOfRecord;
    }

    static qint64 costOf(const Record &record)
    {
        qint64 characters = 0;
        for (auto entry = record.cbegin(); entry != record.cend(); ++entry)
            characters += entry.key().size() + entry.value().size();
        return characters / CharactersOfRecord;
    }

    /** Text of a value of the group that is entered. */
    QString textOf(const QString &key, const QVariant &value) const
    {
        // A value with commas comes as a list; a title like "Red, White" must not lose its text to that.
        if (value.type() == QVariant::StringList || value.type() == QVariant::List)
            return m_textsWithCommas.value(iniKey(m_settings.group() + "/" + key));
        return value.toString();
    }

    /**
     * Calls read for the numbers from 1 to count; once more was read than any show can have beyond what the file
     * holds, only for those whose group it holds behind the prefix and that were not read yet.
     */
    template<typename Read>
    void forEachNumber(const QString &prefix, int count, Read read)
    {
        for (qint64 number = 1; number <= count; ++number) {
            if (m_cost >= MostCost) {
                number = m_isReadAgain ? -1 : nextHeld(prefix, number);
                if (number < 0 || number > count)
                    return;
            }
            read(QString::number(number));
        }
    }

    /** The smallest number, from the given one on, that the file holds a group of; -1 if there is none. */
    qint64 nextHeld(const QString &prefix, qint64 from)
    {
        if (m_held.isEmpty())
            findHeldNumbers();
        const QVector<qint64> numbers = m_held.value(prefix);
        const auto next = std::lower_bound(numbers.cbegin(), numbers.cend(), from);
        return next == numbers.cend() ? -1 : *next;
    }

    void findHeldNumbers()
    {
        static const QRegularExpression numbered("^(.*?)([1-9][0-9]{0,9})$");
        for (const QString &group : m_settings.childGroups()) {
            const auto match = numbered.match(group);
            if (match.hasMatch())
                m_held[match.captured(1)].append(match.captured(2).toLongLong());
        }
        for (QVector<qint64> &numbers : m_held)
            std::sort(numbers.begin(), numbers.end());
    }

    // Records beyond the groups of the file; longer ones, and keys of groups that are read again, count as several.
    static constexpr qint64 MostCost = 50000;
    static constexpr int CharactersOfRecord = 256;
    static constexpr int KeysOfRecord = 4;

    QSettings m_settings;
    const QHash<QString, QString> m_textsWithCommas;
    QStringList m_keys;
    QSet<QString> m_prefixes;
    bool m_isReadAgain = false; ///< whether the groups belong to an earlier page, too
    qint64 m_cost = 0;
    QHash<QString, QVector<qint64>> m_held;
};

} // namespace

std::optional<LiveShow> readLiveShow(const QString &path)
{
    const auto bytes = readFile(path, LongestShow);
    if (!bytes || !isHarmlessIni(*bytes))
        return {};
    const LiveShow show = ShowReader(path, *bytes).read();
    if (hasLongText(show.pages, "name") || hasLongText(show.buttons, "title"))
        return {};
    return show;
}

QString colorText(const QString &digits)
{
    if (digits.isEmpty())
        return QStringLiteral("#ffffff");
    return "#" + digits.rightJustified(6, '0');
}

QString showNameOf(const QString &folder)
{
    const QString name = QDir(folder).dirName();
    return name.isEmpty() ? folder : name;
}

#include "show/liveshow.h"

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

/** Reads a show group by group. */
class ShowReader final
{
public:
    explicit ShowReader(const QString &path) : m_settings(path, QSettings::IniFormat) {}

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
            page.insert(key, textOf(m_settings.value(key)));
        m_settings.endGroup();
        show.pages.append(page);
    }

    void readButtons(int position, LiveShow &show)
    {
        const Record page = show.pages.at(position);
        const QString prefix = "page" + page.value("pageid") + "_button";
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
            button.insert(key, key == QLatin1String("color") ? colorOf(value) : textOf(value));
        }
        m_settings.endGroup();
        if (button.value("color").isEmpty())
            button.insert("color", "#ffffff");
        button.insert("buttonid", QString::number(show.buttons.size()));
        show.buttons.append(button);
    }

    void enter(const QString &group)
    {
        m_settings.beginGroup(group);
        m_keys = m_settings.childKeys();
        if (m_keys.isEmpty() || m_isReadAgain)
            ++m_additional;
    }

    /**
     * Calls read for the numbers from 1 to count; once more records were made than any show can have beyond the
     * groups that the file holds, only for those that it holds behind the prefix and that were not read yet.
     */
    template<typename Read>
    void forEachNumber(const QString &prefix, int count, Read read)
    {
        for (qint64 number = 1; number <= count; ++number) {
            if (m_additional >= MostAdditional) {
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

    static constexpr int MostAdditional = 100000;

    QSettings m_settings;
    QStringList m_keys;
    QSet<QString> m_prefixes;
    bool m_isReadAgain = false; ///< whether the groups belong to an earlier page, too
    int m_additional = 0;       ///< records without a group of their own in the file
    QHash<QString, QVector<qint64>> m_held;
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

QString showNameOf(const QString &folder)
{
    const QString name = QDir(folder).dirName();
    return name.isEmpty() ? folder : name;
}

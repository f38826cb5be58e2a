#include "files/inifile.h"

#include "files/digit.h"

#include <array>
#include <optional>

namespace {

constexpr qint64 FarthestLook = 64 << 20;

bool isLineEnd(char sign)
{
    return sign == '\n' || sign == '\r';
}

bool isBlank(char sign)
{
    return sign == ' ' || sign == '\t';
}

/** Position behind a line end; one of two signs, in either order, counts as one. */
int behindLineEnd(const QByteArray &ini, int at)
{
    const bool isPair = at + 1 < ini.size() && isLineEnd(ini.at(at + 1)) && ini.at(at + 1) != ini.at(at);
    return isPair ? at + 2 : at + 1;
}

int behindBlanks(const QByteArray &ini, int at)
{
    while (at < ini.size() && isBlank(ini.at(at)))
        ++at;
    return at;
}

bool isByteOrderMark(const QByteArray &ini, int at)
{
    return ini.at(at) == '\xEF' && ini.mid(at, 3) == "\xEF\xBB\xBF";
}

/** The code unit that digits stand for, of which the lowest sixteen bits count; at is set behind them. */
ushort unitOf(const QByteArray &ini, int &at, int base)
{
    uint unit = 0;
    for (int digit = 0; at < ini.size() && (digit = digitOf(QLatin1Char(ini.at(at)), base)) >= 0; ++at)
        unit = unit * uint(base) + uint(digit);
    return ushort(unit);
}

/**
 * Decodes what stands behind a backslash.
 *
 * @param at  position behind the backslash; set behind the escape
 * @return    the code unit; nothing for a line that goes on in the next, and for an escape that QSettings drops
 */
std::optional<ushort> readEscape(const QByteArray &ini, int &at)
{
    static const QByteArray signs = "abfnrtv\"?'\\";
    static const QByteArray units = "\a\b\f\n\r\t\v\"?'\\";
    if (at >= ini.size())
        return {};

    const char sign = ini.at(at);
    if (isLineEnd(sign)) {
        at = behindLineEnd(ini, at);
        return {};
    }
    if (digitOf(QLatin1Char(sign), 8) >= 0)
        return unitOf(ini, at, 8);
    ++at;
    if (sign == 'x' && at < ini.size() && digitOf(QLatin1Char(ini.at(at)), 16) >= 0)
        return unitOf(ini, at, 16);
    const int known = signs.indexOf(sign);
    return known < 0 ? std::nullopt : std::optional<ushort>(uchar(units.at(known)));
}

/** Waits for the beginning of a serialised object in texts that are handed over unit by unit. */
class ObjectMark final
{
public:
    /** Returns whether a mark ends with the unit. */
    bool endsWith(ushort unit)
    {
        bool ends = false;
        for (Mark &mark : m_marks) {
            const bool goesOn = unit == uchar(mark.text[mark.seen]);
            mark.seen = goesOn ? mark.seen + 1 : int(unit == '@'); // a mark has its first sign only there
            ends = ends || mark.text[mark.seen] == '\0';
        }
        return ends;
    }

private:
    struct Mark
    {
        const char *text;
        int seen;
    };
    std::array<Mark, 2> m_marks = {Mark{"@Variant(", 0}, Mark{"@DateTime(", 0}};
};

/**
 * Whether a mark of a serialised object stands anywhere, in whatever spelling.
 *
 * Looks through the file as if it were one value, so that where a value begins need not be told: quotes, the blanks
 * behind them and byte order marks are passed over, as QSettings does within a value.
 */
bool holdsObject(const QByteArray &ini)
{
    if (!ini.contains('@') && !ini.contains('\\'))
        return false;

    ObjectMark mark;
    int at = 0;
    while (at < ini.size()) {
        const char sign = ini.at(at);
        std::optional<ushort> unit;
        if (isByteOrderMark(ini, at)) {
            at += 3;
        } else if (sign == '"') {
            at = behindBlanks(ini, at + 1);
        } else if (sign == '\\') {
            unit = readEscape(ini, ++at);
        } else {
            unit = uchar(sign);
            ++at;
        }
        if (unit && mark.endsWith(*unit))
            return true;
    }
    return false;
}

/** Where a sign comes next, for positions that only grow. */
class NextSign final
{
public:
    NextSign(const QByteArray &ini, char sign) : m_ini(ini), m_sign(sign) {}

    /** Position of the sign from a position on; the size of the file where there is none. */
    int from(int at)
    {
        if (m_at < at)
            m_at = m_ini.indexOf(m_sign, at);
        if (m_at < 0)
            m_at = m_ini.size();
        return m_at;
    }

private:
    const QByteArray &m_ini;
    const char m_sign;
    int m_at = -1;
};

/** Whether so many brackets stay open in their lines that looking for their ends takes long. */
bool looksFar(const QByteArray &ini)
{
    NextSign bracket(ini, ']');
    NextSign feed(ini, '\n');
    NextSign carriageReturn(ini, '\r');
    qint64 looked = 0;
    for (int open = ini.indexOf('['); open >= 0 && looked <= FarthestLook;
         open = ini.indexOf('[', open + 1)) {
        const int end = bracket.from(open);
        if (qMin(feed.from(open), carriageReturn.from(open)) < end)
            looked += end - open;
    }
    return looked > FarthestLook;
}

/** A line as QSettings has it: it can go on behind a line end in quotes or behind a backslash. */
struct Line
{
    QByteArray text;
    int equals = -1; ///< position of the equals sign in it; -1 where there is none
};

class Lines final
{
public:
    Lines(const QByteArray &ini, int begin) : m_ini(ini), m_at(begin) {}

    /** The next line that is neither empty nor a comment; nothing behind the last. */
    std::optional<Line> next()
    {
        const int begin = findBegin();
        int equals = -1;
        m_at = begin;
        for (bool isQuoted = false; m_at < m_ini.size(); ++m_at) {
            const char sign = m_ini.at(m_at);
            if (sign > '=' && sign != '\\')
                continue; // letters, most of all
            if (sign == '\\')
                passEscape();
            else if (sign == '"')
                isQuoted = !isQuoted;
            else if (!isQuoted && (isLineEnd(sign) || sign == ';'))
                break;
            else if (!isQuoted && sign == '=' && equals < 0)
                equals = m_at - begin;
        }
        m_at = qMin(m_at, m_ini.size());
        if (begin == m_at)
            return {};
        return Line{QByteArray::fromRawData(m_ini.constData() + begin, m_at - begin), equals};
    }

private:
    int findBegin() const
    {
        int at = m_at;
        bool isComment = false;
        for (; at < m_ini.size(); ++at) {
            const char sign = m_ini.at(at);
            if (isLineEnd(sign))
                isComment = false;
            else if (sign == ';')
                isComment = true;
            else if (!isComment && !isBlank(sign))
                break;
        }
        return at;
    }

    void passEscape()
    {
        ++m_at;
        if (m_at < m_ini.size() && isLineEnd(m_ini.at(m_at)))
            m_at = behindLineEnd(m_ini, m_at) - 1;
    }

    const QByteArray &m_ini;
    int m_at;
};

/** The code unit that digits behind a percent sign stand for, as in "%41" and "%U0041"; at is set behind them. */
std::optional<ushort> readPercent(const QByteArray &name, int &at)
{
    const bool isLong = at < name.size() && name.at(at) == 'U';
    const int first = isLong ? at + 1 : at;
    const int count = isLong ? 4 : 2;
    if (first + count > name.size())
        return {};
    bool isNumber = false;
    const int unit = name.mid(first, count).toInt(&isNumber, 16);
    if (!isNumber)
        return {};
    at = first + count;
    return ushort(unit);
}

/** Decodes the name of a group or key; backslashes part levels. */
QString decodedName(const QByteArray &name)
{
    QString decoded;
    int at = 0;
    while (at < name.size()) {
        const char sign = name.at(at++);
        std::optional<ushort> unit;
        if (sign == '%')
            unit = readPercent(name, at);
        if (unit)
            decoded += QChar(*unit);
        else
            decoded += sign == '\\' ? QLatin1Char('/') : QLatin1Char(sign);
    }
    return decoded;
}

/** The group that a line begins, with a slash behind it; empty for the one of all keys without a group, or no line. */
QString groupOf(const QByteArray &line)
{
    if (line.isEmpty())
        return {};
    const int end = line.indexOf(']');
    const QByteArray name = line.mid(1, end < 0 ? -1 : end - 1).trimmed();
    if (name.compare("general", Qt::CaseInsensitive) == 0)
        return {};
    if (name.compare("%general", Qt::CaseInsensitive) == 0)
        return QString::fromLatin1(name.mid(1)) + "/";
    return decodedName(name) + "/";
}

QByteArray withoutBlanks(const QByteArray &text)
{
    const int begin = behindBlanks(text, 0);
    int end = text.size();
    while (begin < end && isBlank(text.at(end - 1)))
        --end;
    return text.mid(begin, end - begin);
}

QString decodedValue(const QByteArray &value, bool isUtf8)
{
    QString decoded;
    int at = 0;
    while (at < value.size()) {
        const int begin = at;
        while (at < value.size() && value.at(at) != '\\' && value.at(at) != '"')
            ++at;
        const QByteArray plain = value.mid(begin, at - begin);
        decoded += isUtf8 ? QString::fromUtf8(plain) : QString::fromLatin1(plain);
        if (at == value.size() || value.at(at++) == '"')
            continue;
        if (const auto unit = readEscape(value, at))
            decoded += QChar(*unit);
    }
    return decoded;
}

/** To QSettings a byte order mark is a part of the first key, but not of the first group's name. */
int firstLine(const QByteArray &ini, bool isUtf8)
{
    constexpr int BehindMark = 3;
    const auto line = Lines(ini, isUtf8 ? BehindMark : 0).next();
    return isUtf8 && line && line->text.startsWith('[') ? BehindMark : 0;
}

} // namespace

bool isHarmlessIni(const QByteArray &ini)
{
    return !holdsObject(ini) && !looksFar(ini);
}

QHash<QString, QString> iniTextsWithCommas(const QByteArray &ini)
{
    QHash<QString, QString> texts;
    if (!ini.contains(','))
        return texts;

    const bool isUtf8 = ini.startsWith("\xEF\xBB\xBF");
    Lines lines(ini, firstLine(ini, isUtf8));
    QByteArray group;
    while (const auto line = lines.next()) {
        if (line->text.startsWith('[')) {
            group = line->text;
        } else if (line->equals >= 0 && line->text.indexOf(',', line->equals) >= 0) {
            const QString key = groupOf(group) + decodedName(withoutBlanks(line->text.left(line->equals)));
            const QByteArray value = withoutBlanks(line->text.mid(line->equals + 1));
            texts.insert(iniKey(key), decodedValue(value, isUtf8));
        }
    }
    return texts;
}

QString iniKey(const QString &key)
{
#ifdef Q_OS_WIN
    return key.toLower();
#else
    return key;
#endif
}

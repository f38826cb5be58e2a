#include "files/xmlfile.h"

#include "files/digit.h"
#include "files/readfile.h"

#include <QRegularExpression>
#include <QStringView>
#include <QTextCodec>
#include <QXmlStreamReader>

namespace {

// A document is taken down by recursion, one call within the other for each level.
constexpr int DeepestElement = 100;

// The stream reader compares each attribute of an element with all others.
constexpr int MostAttributes = 32;

QTextCodec *codecOf(const QByteArray &bytes)
{
    if (QTextCodec *marked = QTextCodec::codecForUtfText(bytes, nullptr))
        return marked;
    if (bytes.startsWith(QByteArray("<\0", 2)))
        return QTextCodec::codecForName("UTF-16LE");
    if (bytes.startsWith(QByteArray("\0<", 2)))
        return QTextCodec::codecForName("UTF-16BE");
    QXmlStreamReader xml(bytes.left(256)); // a declaration is shorter
    xml.readNext();
    if (QTextCodec *declared = QTextCodec::codecForName(xml.documentEncoding().toLatin1()))
        return declared;
    return QTextCodec::codecForName("UTF-8");
}

bool isText(const QByteArray &bytes, const QTextCodec &codec)
{
    QTextCodec::ConverterState state;
    codec.toUnicode(bytes.constData(), bytes.size(), &state);
    return state.invalidChars == 0 && state.remainingChars == 0;
}

/**
 * Decoded here and not by the parser, so that it sees the same text that was looked over.
 *
 * The program writes its files in the locale's codec and declares UTF-8, so what is no UTF-8 is in that codec.
 */
QString decoded(const QByteArray &bytes)
{
    const QTextCodec *codec = codecOf(bytes);
    const bool isOurs = codec->name() == "UTF-8" && !isText(bytes, *codec);
    return (isOurs ? QTextCodec::codecForLocale() : codec)->toUnicode(bytes);
}

/** Position behind the next mark from a position on; the end of the text where there is none. */
qsizetype behind(QStringView text, QLatin1String mark, qsizetype from)
{
    const auto position = text.indexOf(mark, from);
    return position < 0 ? text.size() : position + mark.size();
}

/** Position of the bracket that closes a tag or declaration; the end of the text where there is none. */
qsizetype endOfMarkup(QStringView text, qsizetype from)
{
    QChar quote;
    for (qsizetype i = from; i < text.size(); ++i) {
        const QChar character = text.at(i);
        if (quote.isNull() && character == '>')
            return i;
        if (quote.isNull() && (character == '"' || character == '\''))
            quote = character;
        else if (character == quote)
            quote = {};
    }
    return text.size();
}

/** Whether a declaration opens a place for others, as a document type with entities of its own does. */
bool holdsDeclarations(QStringView declaration)
{
    return !declaration.startsWith(QLatin1String("<!DOCTYPE")) || declaration.contains('[');
}

/**
 * Whether U+0000 stands in a text or is spelled as a number.
 *
 * The parser takes the lowest sixteen bits of a number, and a text that holds U+0000 names other files than it seems
 * to.
 */
bool holdsNull(QStringView text)
{
    if (text.contains(QChar::Null))
        return true;
    for (auto at = text.indexOf('&'); at >= 0; at = text.indexOf('&', at)) {
        if (++at == text.size() || text.at(at) != '#')
            continue;
        const int base = text.mid(at + 1, 1) == QLatin1String("x") ? 16 : 10;
        at += base == 16 ? 2 : 1;
        ushort unit = 0;
        for (int digit = 0; at < text.size() && (digit = digitOf(text.at(at), base)) >= 0; ++at)
            unit = ushort(unit * base + digit);
        if (unit == 0)
            return true;
    }
    return false;
}

/** Whether a text can be parsed and its document taken down without harm, be it well-formed or not. */
bool isHarmless(QStringView text)
{
    if (holdsNull(text))
        return false;

    int depth = 0;
    for (qsizetype at = text.indexOf('<'); at >= 0; at = text.indexOf('<', at)) {
        const QStringView markup = text.mid(at);
        if (markup.startsWith(QLatin1String("<!--"))) {
            at = behind(text, QLatin1String("-->"), at + 4);
        } else if (markup.startsWith(QLatin1String("<![CDATA["))) {
            at = behind(text, QLatin1String("]]>"), at);
        } else if (markup.startsWith(QLatin1String("<?"))) {
            at = behind(text, QLatin1String("?>"), at);
        } else if (markup.startsWith(QLatin1String("<!"))) {
            const auto end = endOfMarkup(text, at);
            if (holdsDeclarations(text.mid(at, end - at)))
                return false;
            at = end;
        } else if (markup.startsWith(QLatin1String("</"))) {
            --depth;
            ++at;
        } else {
            at = endOfMarkup(text, at);
            if (text.at(at - 1) != '/' && ++depth > DeepestElement)
                return false;
        }
    }
    return true;
}

/** Whether no comment, declaration or marked text begins with a bracket; the first line of a document may. */
bool isStartOfElement(QStringView text, qsizetype bracket)
{
    const QStringView next = text.mid(bracket + 1, 1);
    return next != QLatin1String("!") && (next != QLatin1String("?") || bracket == 0);
}

bool isLetter(QChar sign)
{
    return (sign >= 'a' && sign <= 'z') || (sign >= 'A' && sign <= 'Z') || sign == '_';
}

/** Whether a sign of a tag, outside of quotes, is one between names, or in a name one that all readers take for such. */
bool isPlainInTag(QChar sign, QChar before)
{
    const bool isWithin = (sign >= '0' && sign <= '9') || sign == '-' || sign == '.';
    const bool isBetween = sign == ' ' || sign == '=' || sign == '/' || sign == '?' || sign == '\n'
                           || sign == '\r' || sign == '\t';
    return isLetter(sign) || isBetween
           || (isWithin && (isLetter(before) || (before >= '0' && before <= '9')));
}

/**
 * Whether the parser alone can tell what a document holds, or a stream reader would take long.
 *
 * The two differ in what a name may consist of, and in declarations.
 */
bool isForTheParser(QStringView text)
{
    for (qsizetype at = text.indexOf('<'); at >= 0; at = text.indexOf('<', at)) {
        if (!isStartOfElement(text, at))
            return true;
        int equalsSigns = 0;
        for (++at; at < text.size() && text.at(at) != '>'; ++at) {
            const QChar sign = text.at(at);
            if (sign == '"' || sign == '\'') {
                at = text.indexOf(sign, at + 1);
                if (at < 0)
                    return true;
            } else if (!isPlainInTag(sign, text.at(at - 1))
                       || (sign == '=' && ++equalsSigns > MostAttributes)) {
                return true;
            }
        }
    }
    return false;
}

/**
 * What all readers read alike: in ASCII, a root with empty elements of other names, few attributes in each, no signs
 * by number. Each piece is taken for good, so that a document of any kind is looked through but once.
 */
QRegularExpression plainDocument()
{
    const QString blank = R"([ \t\r\n])";
    const QString signs = "[ !#-%'-;=?-~]*+";
    const QString value = '"' + signs + "(?:&(?:amp|lt|gt|quot|apos);" + signs + ")*+\"";
    const QString again = "(?:" + blank + R"(++[a-z]++="[^"]*+")*?)" + blank + R"(++\g{-1}=)";
    const QString attribute = blank + "++([a-z]++)=" + value + "(?!" + again + ")";
    const QString attributes = "(?:" + attribute + "){0,8}+" + blank + "*+";
    const QString element = blank + "*+<(?!\\k<root>\\b)[a-z]++" + attributes + "/>";
    return QRegularExpression(R"(\A(?:<\?xml version="1\.0"(?: encoding="(?:UTF|utf)-8")?\?>)?)" + blank
                              + "*+<(?<root>[a-z]++)(?<attributes>" + attributes + ")>(?:" + element + ")*+"
                              + blank + "*+</\\k<root>>" + blank + R"(*+\z)");
}

/** What streamXmlAttributes() finds in a plain document; nothing where a document is not one, or has another root. */
std::optional<QStringList> plainXmlAttributes(const QByteArray &bytes, const QString &element,
                                              const QString &attribute)
{
    static const QRegularExpression plain = plainDocument();
    const QRegularExpressionMatch match = plain.match(QString::fromLatin1(bytes));
    if (!match.hasMatch() || match.captured("root") != element)
        return {};
    QXmlStreamReader root("<root" + match.captured("attributes") + "/>");
    root.readNextStartElement();
    return {{root.attributes().value(attribute).toString()}};
}

} // namespace

QDomDocument parseXml(const QByteArray &bytes)
{
    QDomDocument document;
    const QString text = decoded(bytes);
    if (isHarmless(text) && document.setContent(text))
        return document;
    return {}; // what was read up to an error would still stand in the other one
}

std::optional<QStringList> streamXmlAttributes(const QByteArray &bytes, const QString &element,
                                               const QString &attribute)
{
    if (const auto values = plainXmlAttributes(bytes, element, attribute))
        return values;

    const QString text = decoded(bytes);
    if (holdsNull(text) || isForTheParser(text))
        return {};

    QStringList values;
    int depth = 0;
    QXmlStreamReader xml(text);
    xml.setNamespaceProcessing(false);
    while (!xml.atEnd()) {
        const auto token = xml.readNext();
        if (depth > DeepestElement)
            return {};
        if (token == QXmlStreamReader::StartElement) {
            ++depth;
            if (xml.qualifiedName() == element)
                values.append(xml.attributes().value(attribute).toString());
        } else if (token == QXmlStreamReader::EndElement) {
            --depth;
        }
    }
    return xml.hasError() ? std::nullopt : std::optional<QStringList>(values);
}

QStringList xmlAttributes(const QDomDocument &document, const QString &element, const QString &attribute)
{
    QStringList values;
    const QDomNodeList elements = document.elementsByTagName(element);
    for (int i = 0; i < elements.size(); ++i)
        values.append(elements.at(i).toElement().attribute(attribute));
    return values;
}

QDomDocument readXmlFile(const QString &path, qint64 longest)
{
    return parseXml(readFile(path, longest).value_or(QByteArray()));
}

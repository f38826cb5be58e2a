#include "files/xmlfile.h"

#include <QFile>
#include <QFileInfo>
#include <QStringView>
#include <QTextCodec>
#include <QXmlStreamReader>

namespace {

// A document is taken down by recursion, one call within the other for each level.
constexpr int DeepestElement = 100;

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
    return QTextCodec::codecForName(xml.documentEncoding().toLatin1());
}

/** Decoded here and not by the parser, so that it sees the same text that was looked over. */
QString decoded(const QByteArray &bytes)
{
    QTextCodec *codec = codecOf(bytes);
    return codec ? codec->toUnicode(bytes) : QString::fromUtf8(bytes);
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

/** Whether a text can be parsed and its document taken down without harm, be it well-formed or not. */
bool isHarmless(QStringView text)
{
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

} // namespace

std::optional<QByteArray> readFile(const QString &path, qint64 longest)
{
    QFile file(path);
    // What is no file, such as a pipe, could keep the program waiting.
    if (!QFileInfo(path).isFile() || file.size() > longest || !file.open(QIODevice::ReadOnly))
        return {};
    return file.read(qMin(file.size(), longest));
}

QDomDocument parseXml(const QByteArray &bytes)
{
    QDomDocument document;
    const QString text = decoded(bytes);
    if (isHarmless(text) && document.setContent(text))
        return document;
    return {}; // what was read up to an error would still stand in the other one
}

QDomDocument readXmlFile(const QString &path, qint64 longest)
{
    return parseXml(readFile(path, longest).value_or(QByteArray()));
}

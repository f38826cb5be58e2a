#include "support/files.h"

#include <QBuffer>
#include <QFile>
#include <QTextStream>

namespace {

/** A device that notes what is written into it. */
class Notes final : public QIODevice
{
public:
    QByteArrayList all;

protected:
    qint64 readData(char * /*data*/, qint64 /*maxSize*/) override { return -1; }
    qint64 writeData(const char *bytes, qint64 size) override
    {
        all += QByteArray(bytes, static_cast<int>(size));
        return size;
    }
};

} // namespace

QByteArray bytesOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}

QByteArray textOf(const QByteArray &bytes)
{
#ifdef Q_OS_WIN
    QByteArray text = bytes;
    text.replace("\r\n", "\n");
    return asWritten(text) == bytes ? text : "line ends of another platform in: " + bytes;
#else
    return bytes;
#endif
}

QByteArray asWritten(QByteArray text)
{
#ifdef Q_OS_WIN
    text.replace("\n", "\r\n");
#endif
    return text;
}

bool writeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

QByteArray streamed(const std::function<void(QTextStream &)> &write, const char *codec)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!buffer.open(QIODevice::WriteOnly))
        return "no buffer";
    QTextStream out(&buffer);
    if (codec)
        out.setCodec(codec);
    write(out);
    out.flush();
    return bytes;
}

QByteArrayList pieces(const std::function<void(QTextStream &)> &write)
{
    Notes device;
    if (!device.open(QIODevice::WriteOnly))
        return {"no device"};
    QTextStream out(&device);
    out.setCodec("UTF-8");
    write(out);
    return device.all;
}

QString difference(const QByteArray &actual, const QByteArray &expected)
{
    if (actual == expected)
        return {};
    const QByteArrayList lines = actual.split('\n');
    const QByteArrayList wanted = expected.split('\n');
    int line = 0;
    while (line < lines.size() && line < wanted.size() && lines.at(line) == wanted.at(line))
        ++line;
    return QString("line %1\n  is [%2]\n  not [%3]")
        .arg(QString::number(line + 1), QString::fromUtf8(lines.value(line)),
             QString::fromUtf8(wanted.value(line)));
}

PlainTempFolder::PlainTempFolder()
{
    qputenv("TMPDIR", "/tmp");
}

PlainTempFolder::~PlainTempFolder()
{
    if (m_before.isNull())
        qunsetenv("TMPDIR");
    else
        qputenv("TMPDIR", m_before);
}

DefaultCodec::DefaultCodec(const QByteArray &name) : m_before(QTextCodec::codecForLocale())
{
    QTextCodec::setCodecForLocale(QTextCodec::codecForName(name));
}

DefaultCodec::~DefaultCodec()
{
    QTextCodec::setCodecForLocale(m_before);
}

#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QString>
#include <QTextCodec>

#include <functional>

class QTextStream;

/** Whether any sign may stand in a file's name; Windows forbids " < > and others. */
#ifdef Q_OS_WIN
constexpr bool AnySignNamesFiles = false;
#else
constexpr bool AnySignNamesFiles = true;
#endif

/** All of a file; "no file" where it cannot be read. */
QByteArray bytesOf(const QString &path);

/**
 * What the program wrote as text, its lines ended by line feeds alone.
 *
 * @param bytes  as they lie on the disk
 * @return       the fault in words where a line does not end as this platform's do: CR LF on Windows, LF elsewhere
 */
QByteArray textOf(const QByteArray &bytes);

/** The bytes that textOf() takes for a text: its lines ended as this platform ends them. */
QByteArray asWritten(QByteArray text);

/** Writes a file anew; false where that fails. */
bool writeFile(const QString &path, const QByteArray &content);

/**
 * What a function writes into a text stream.
 *
 * @param write  takes the stream
 * @param codec  of the stream; nullptr leaves it at the default
 */
QByteArray streamed(const std::function<void(QTextStream &)> &write, const char *codec = "UTF-8");

/** The same in UTF-8, cut into the pieces in which it reaches the device; without what is not flushed. */
QByteArrayList pieces(const std::function<void(QTextStream &)> &write);

/** Where two files first differ, for a person; empty where they do not. */
QString difference(const QByteArray &actual, const QByteArray &expected);

/** Keeps new temporary folders where names are ASCII: on Unix the default codec is that of file names, too. */
class PlainTempFolder final
{
public:
    PlainTempFolder();
    ~PlainTempFolder();
    Q_DISABLE_COPY(PlainTempFolder)

private:
    const QByteArray m_before = qgetenv("TMPDIR");
};

/** Holds a codec for all texts that name none. */
class DefaultCodec final
{
public:
    explicit DefaultCodec(const QByteArray &name);
    ~DefaultCodec();
    Q_DISABLE_COPY(DefaultCodec)

private:
    QTextCodec *m_before;
};

#pragma once

#include <QByteArray>
#include <QString>

/**
 * Hands an input to a part of the program and asks with expect() for what must hold whatever it is.
 *
 * Each target defines it; target.cpp has what libFuzzer calls.
 */
void tryInput(const QByteArray &input);

/** Ends the target with a sentence where something does not hold; libFuzzer then keeps the input. */
void expect(bool holds, const char *sentence);

/** A file alone in the folder for temporary files, with a name that no other had; gone with the object. */
class ScratchFile final
{
public:
    /** @param ending  what the name ends with, such as ".xml" */
    explicit ScratchFile(const QByteArray &content, const QString &ending = {});
    ~ScratchFile();
    Q_DISABLE_COPY(ScratchFile)

    QString path() const { return m_path; }

private:
    QString m_path;
};

#pragma once

#include <QString>
#include <QTemporaryDir>

/** Live Buttons on each page of a show made here; the last page may have fewer. */
constexpr int ButtonsPerPage = 60;

/**
 * Writes a show's settings file in the form of real ones: a byte order mark, "key = value", keys that the
 * program does not know. A button has from 4 to 20 keys.
 *
 * @param path     file to write
 * @param buttons  Live Buttons in it
 */
void writeShow(const QString &path, int buttons);

/**
 * Hands out copies of a show that QSettings has not seen.
 *
 * QSettings keeps what it has parsed, by path, so the first to read a file would pay for the second.
 */
class FreshCopies final
{
public:
    /** @param buttons  Live Buttons of the show that is copied */
    explicit FreshCopies(int buttons);

    /** Path of a new copy; the one before is gone, from the disk and from what QSettings keeps. */
    QString next();

private:
    QTemporaryDir m_folder;
    int m_copies = 0;
};

#pragma once

#include <QFile>

/**
 * Whether a text can be the path of a file. One that holds U+0000 cannot: the system would cut it off there, and open
 * or overwrite another file than the one that was asked about.
 */
inline bool isPath(const QString &text)
{
    return !text.isEmpty() && !text.contains(QChar::Null);
}

/** Whether something lies at a path; not where the text is no path, and not behind a link that leads to nothing. */
inline bool pathExists(const QString &path)
{
    return isPath(path) && QFile::exists(path);
}

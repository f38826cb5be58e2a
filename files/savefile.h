#pragma once

#include <functional>

class QString;
class QTextStream;

/**
 * Writes a text into a file, whole or not at all: whatever happens meanwhile, a full disk or the end of the process,
 * the path has either what it had before or the new text.
 *
 * The file gets the platform's line ends and keeps the permissions that it has. A link stays, and what it leads to is
 * written. A file that cannot be replaced, as in a folder that takes no new files, is written over in its place; then
 * the end of the process can leave a mixture.
 *
 * @param path   where to; nothing happens to what is no regular file, such as a folder or a pipe, nor where the text is
 *               no path
 * @param write  writes the text; the stream has the default codec
 * @return       whether the whole text is in the file
 */
bool saveText(const QString &path, const std::function<void(QTextStream &)> &write);

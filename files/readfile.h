#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/**
 * Reads a file that may be anything.
 *
 * @param path     full path of a file, or of a link to one
 * @param longest  size in bytes above which the file is not read
 * @return         its content; nothing where it is no file, is too long or cannot be opened
 */
std::optional<QByteArray> readFile(const QString &path, qint64 longest);

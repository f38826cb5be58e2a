#pragma once

#include <QDomDocument>
#include <QIODevice>

/** Size in bytes above which a layout or a mapper is not read; the largest of VirtualDJ's have a tenth. */
constexpr qint64 LongestMapper = 4 << 20;

/**
 * Reads an XML file that may come from anywhere and hold anything.
 *
 * @param path     full path of a file, or of a link to one
 * @param longest  size in bytes above which the file is not read
 * @param mode     how to open it; text mode drops every carriage return byte, in any encoding
 * @return         the document, read as UTF-8 unless its byte order mark or its declaration says otherwise.
 *                 Empty where the file is none, cannot be read or is not well-formed; and where taking it in
 *                 could take minutes or the stack, as with declared entities or elements a hundred deep.
 */
QDomDocument readXmlFile(const QString &path, qint64 longest, QIODevice::OpenMode mode = QIODevice::ReadOnly);

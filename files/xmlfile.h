#pragma once

#include <QDomDocument>

#include <optional>

/** Size in bytes above which a layout or a mapper is not read; our own largest has an eighth of a megabyte. */
constexpr qint64 LongestMapper = 4 << 20;

/**
 * Reads a file that may be anything.
 *
 * @param path     full path of a file, or of a link to one
 * @param longest  size in bytes above which the file is not read
 * @return         its content; nothing where it is no file, is too long or cannot be opened
 */
std::optional<QByteArray> readFile(const QString &path, qint64 longest);

/**
 * Parses an XML document that may hold anything.
 *
 * @param bytes  read as UTF-8 unless a byte order mark or, without one, the declaration says otherwise
 * @return       the document; empty where it is not well-formed, and where taking it in could take minutes or
 *               the stack, as with declared entities or elements more than a hundred deep
 */
QDomDocument parseXml(const QByteArray &bytes);

/** Reads and parses a file at once; the document is empty where that fails. */
QDomDocument readXmlFile(const QString &path, qint64 longest);

#pragma once

#include <QDomDocument>
#include <QStringList>

#include <optional>

/** Size in bytes above which a layout or a mapper is not read; our own largest has an eighth of it. */
constexpr qint64 LongestMapper = 1 << 20;

/**
 * Parses an XML document that may hold anything.
 *
 * @param bytes  read in the encoding of the byte order mark or, without one, of the declaration, else in UTF-8; what
 *               is no UTF-8 is read in the locale's codec, in which the program writes
 * @return       the document; empty where it is not well-formed or holds U+0000, be it spelled as a number, and where
 *               taking it in could take minutes or the stack, as with declared entities or elements more than a
 *               hundred deep
 */
QDomDocument parseXml(const QByteArray &bytes);

/** Reads and parses a file at once; the document is empty where that fails. */
QDomDocument readXmlFile(const QString &path, qint64 longest);

/**
 * Looks for an attribute in an XML document without parsing it as a whole, in a fraction of the time.
 *
 * @param bytes      read as parseXml() reads them
 * @param element    name of the elements
 * @param attribute  name of the attribute
 * @return           its value in each such element, empty where one lacks it; nothing where only parseXml() can
 *                   tell: it forgives some faults, and knows what could do harm
 */
std::optional<QStringList> streamXmlAttributes(const QByteArray &bytes, const QString &element,
                                               const QString &attribute);

/** The same of a document that is parsed. */
QStringList xmlAttributes(const QDomDocument &document, const QString &element, const QString &attribute);

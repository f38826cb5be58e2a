#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

/**
 * Whether QSettings can take in an INI file without harm.
 *
 * QSettings makes objects of values such as "@Variant(...)", however they are spelled, and these can take all
 * memory or end the program; and it looks for the end of a group's name in the whole rest of the file.
 *
 * @param ini  all bytes of the file, line ends as they stand
 * @return     false where a value could hold such an object, or where it would look through more than 64 MiB in
 *             vain; in doubt false
 */
bool isHarmlessIni(const QByteArray &ini);

/**
 * The values that QSettings hands over as lists, since they have commas outside of quotes.
 *
 * @param ini  all bytes of the file; in UTF-8 with a byte order mark, else Latin 1, as QSettings has it
 * @return     by key, with its group and a slash in front, the text as it stands in the file: without the blanks
 *             around it, quotes taken off and escapes decoded; of two values with one key the later
 */
QHash<QString, QString> iniTextsWithCommas(const QByteArray &ini);

/** How iniTextsWithCommas() spells a key: QSettings does not tell capitals on Windows. */
QString iniKey(const QString &key);

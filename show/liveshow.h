#pragma once

#include "tables/record.h"

#include <QList>

#include <optional>

/** The live pages and Live Buttons of a show. */
struct LiveShow
{
    /**
     * Page records; a page's position is its number. Entry 0 is "All Pages", which stands in no file.
     * "pageid" is the page's number unless the file has such a key, "name" its name; all other keys of the
     * file are kept.
     */
    QList<Record> pages;
    /**
     * Button records in running order. "buttonid" is the position in this list, from 0; "pageid" the
     * page's number, "check" is "0", "color" a colour text, "title" the label; all other keys of the
     * file are kept. A key of the file replaces "pageid" and "check".
     */
    QList<Record> buttons;
};

/**
 * Reads a show's settings file.
 *
 * A group that the file counts and does not hold still gives a record, and the groups of two pages with one
 * "pageid" give records for each, up to fifty thousand such records for one show, and fewer where they are long;
 * groups that the file holds are all read once.
 *
 * @param path  full path of live.ini, an INI file as QSettings reads it, but that a value with commas has its text as
 *              it stands in the file
 * @return      pages and buttons; what the file lacks is empty. Nothing where there is no file, where it cannot be
 *              opened or is larger than 32 MiB, where reading it could harm, as with a serialised object in a
 *              value, and where a page or Live Button has a name of more than 10,000 characters.
 */
std::optional<LiveShow> readLiveShow(const QString &path);

/**
 * Makes a colour text from hexadecimal digits.
 *
 * @param digits  digits of red, green and blue; not checked
 * @return        a hash and the digits, filled up with zeros on the left to six; "#ffffff" for an empty text
 */
QString colorText(const QString &digits);

/**
 * What a show is called.
 *
 * @param folder  full path of the show's folder
 * @return        the folder's name; the path where it has none, as the root of a drive
 */
QString showNameOf(const QString &folder);

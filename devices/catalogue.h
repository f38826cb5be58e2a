#pragma once

#include "tables/record.h"

#include <QList>

/** A pad controller of the catalogue and the mappers that come with it. */
struct CatalogueEntry
{
    /**
     * Device record: "device" is the identifier that VirtualDJ knows, "name" the label shown to the user,
     * "path" the layout file; "fullrgb", "colors", "off", "on", "top", "left", "right", "bottom" and
     * "faders" are attributes of the layout, empty where it has none.
     */
    Record device;
    /** Mapper records of "device", "name" and "path": the simple OS2L mapping, then the factory mapper. */
    QList<Record> mappers;
};

/**
 * Reads the layouts of all pad controllers in a folder, in file name order.
 *
 * @param folder  path of a folder of layout and mapper files, with no slash at the end; every "layout"
 *                element of an XML file in it gives one entry
 * @return        the entries; a file that cannot be read or is not well-formed has none. What the program
 *                brings along, in folders that begin with ":/", is trusted: of a file there the first layout
 *                counts, the rest is not read, and files named "... mapping.xml" are passed over.
 */
QList<CatalogueEntry> readCatalogue(const QString &folder);

/**
 * Finds the mappers in a folder, in file name order.
 *
 * @param folder  path of a folder, with no slash at the end; a missing one is empty
 * @return        a mapper record for every "mapper" element of an XML file in it: "device" is the identifier
 *                of the controller, "name" the file's name up to the first full stop, "path" the file. A file
 *                that cannot be read, is not well-formed or is larger than any mapper has none, nor has any behind
 *                some 16 MiB of mappers, for which the start of the program would wait too long.
 */
QList<Record> findMappers(const QString &folder);

// The reading of XML that may hold anything, the catalogue and the search for mappers; an input is an XML
// file.

#include "devices/catalogue.h"
#include "devices/device.h"
#include "devices/grid.h"
#include "files/xmlfile.h"
#include "fuzz/target.h"

#include <QFileInfo>

namespace {

const QStringList DeviceEntries = {"bottom", "colors", "device", "faders", "fullrgb", "left",
                                   "name",   "off",    "on",     "path",   "right",   "top"};
const QStringList MapperEntries = {"device", "name", "path"};

int depthOf(const QDomNode &node)
{
    int depth = 0;
    for (QDomNode child = node.firstChild(); !child.isNull(); child = child.nextSibling())
        depth = qMax(depth, depthOf(child));
    return depth + (node.isElement() ? 1 : 0);
}

/** Asks for a key in every cell, and in some beside the grid. */
void expectKeys(const Record &device)
{
    for (int row = -1; row <= Grid::Size; ++row) {
        for (int col = -1; col <= Grid::Size; ++col) {
            const bool isPad = row >= 2 && row <= 9 && col >= 2 && col <= 9;
            const bool hasKey = Grid::hasKey(device, row, col);
            expect(hasKey || !isPad, "every device has all pads");
            expect(!hasKey || !(Grid::isGap(row) || Grid::isGap(col)), "no key lies in a gap");
        }
    }
}

void expectEntry(const CatalogueEntry &entry, const QFileInfo &file)
{
    expect(entry.device.keys() == DeviceEntries, "a device has all its entries");
    expect(entry.device.value("path") == file.filePath() && entry.device.value("name") == file.baseName(),
           "a device is named for its file");
    expect(entry.mappers.size() == 2, "a device brings two mappers");
    for (const Record &mapper : entry.mappers)
        expect(mapper.keys() == MapperEntries && mapper.value("device") == entry.device.value("device"),
               "a mapper that comes with a device is for that device");
    expect(!Device::palette(entry.device).isEmpty(), "a palette has a colour at least, be it an empty one");
    expectKeys(entry.device);
}

} // namespace

void tryInput(const QByteArray &input)
{
    const ScratchFile scratch(input, ".xml");
    const QFileInfo file(scratch.path());

    const QDomDocument document = parseXml(input);
    expect(depthOf(document) <= 100, "no document is more than a hundred elements deep");
    expect(!document.toString().contains(QChar::Null), "no document holds U+0000");
    expect(document.doctype().entities().isEmpty(), "no document declares entities");

    const auto streamed = streamXmlAttributes(input, "mapper", "device");
    expect(!streamed || *streamed == xmlAttributes(document, "mapper", "device"),
           "a stream tells what the parser tells");

    for (const CatalogueEntry &entry : readCatalogue(file.path()))
        expectEntry(entry, file);

    const QList<Record> mappers = findMappers(file.path());
    expect(mappers.size() == document.elementsByTagName("mapper").size(), "each mapper element is found");
    for (const Record &mapper : mappers)
        expect(mapper.keys() == MapperEntries && mapper.value("path") == file.filePath()
                   && mapper.value("name") == file.baseName(),
               "a mapper is named for its file");
}

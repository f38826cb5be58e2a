#include "devices/catalogue.h"

#include "files/readfile.h"
#include "files/xmlfile.h"

#include <QDir>
#include <QXmlStreamReader>

namespace {

/** What the program brings along: well-formed, a layout being the root, a factory mapper known by its name. */
bool isBuiltIn(const QString &path)
{
    return path.startsWith(":/");
}

/** The attributes of all "layout" elements of a file; none if it cannot be read or is not well-formed. */
QList<QXmlStreamAttributes> readLayouts(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};

    QList<QXmlStreamAttributes> layouts;
    QXmlStreamReader xml(&file);
    xml.setNamespaceProcessing(false);
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement || xml.qualifiedName() != "layout")
            continue;
        layouts.append(xml.attributes());
        if (isBuiltIn(path)) // the rest has no part in it, and the start would wait for seven of them
            return layouts;
    }
    return xml.hasError() ? QList<QXmlStreamAttributes>() : layouts;
}

Record readDevice(const QXmlStreamAttributes &layout, const QString &path, const QString &baseName)
{
    const auto text = [&layout](const char *attribute) {
        return layout.value(QLatin1String(attribute)).toString();
    };
    Record device = {
        {"device", text("name")},  {"name", baseName},      {"path", path},
        {"off", text("coloroff")}, {"on", text("coloron")},
    };
    for (const char *attribute : {"fullrgb", "colors", "top", "left", "right", "bottom", "faders"})
        device.insert(attribute, text(attribute));
    return device;
}

CatalogueEntry readEntry(const QXmlStreamAttributes &layout, const QString &folder, const QString &baseName)
{
    const Record device = readDevice(layout, folder + "/" + baseName + ".xml", baseName);
    const QString identifier = device.value("device");
    const QString mapping = folder + "/" + baseName + " mapping.xml";
    // Both mappers point at the one factory file; the first of the two is known by its position.
    return {device,
            {{{"device", identifier}, {"name", "Simple OS2L mapping"}, {"path", mapping}},
             {{"device", identifier}, {"name", baseName + " mapping (factory)"}, {"path", mapping}}}};
}

// What a folder of mappers may cost, told in bytes that are streamed: the window waits for it.
constexpr qint64 MostToScan = 16 << 20;
constexpr qint64 CostOfFile = 4096;
constexpr qint64 CostOfMapper = 1000;
constexpr qint64 ParsingOverStreaming = 4;

/** The devices of all mappers in a document; what parsing costs beyond streaming is added to the cost. */
QStringList devicesOf(const QByteArray &mapper, qint64 &cost)
{
    if (const auto devices = streamXmlAttributes(mapper, "mapper", "device"))
        return *devices;
    cost += (ParsingOverStreaming - 1) * mapper.size();
    return xmlAttributes(parseXml(mapper), "mapper", "device");
}

} // namespace

QList<CatalogueEntry> readCatalogue(const QString &folder)
{
    QList<CatalogueEntry> entries;
    for (const QFileInfo &info : QDir(folder).entryInfoList({"*.xml"})) {
        if (isBuiltIn(folder) && info.fileName().endsWith(" mapping.xml"))
            continue;
        for (const QXmlStreamAttributes &layout : readLayouts(info.filePath()))
            entries.append(readEntry(layout, folder, info.baseName()));
    }
    return entries;
}

QList<Record> findMappers(const QString &folder)
{
    QList<Record> found;
    qint64 cost = 0;
    for (const QFileInfo &info : QDir(folder).entryInfoList({"*.xml"})) {
        const auto bytes = readFile(info.filePath(), LongestMapper);
        if (!bytes)
            continue;
        cost += CostOfFile + bytes->size();
        for (const QString &device : devicesOf(*bytes, cost)) {
            if (cost > MostToScan)
                return found;
            cost += CostOfMapper + device.size();
            found.append({{"device", device}, {"name", info.baseName()}, {"path", info.filePath()}});
        }
    }
    return found;
}

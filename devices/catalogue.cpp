#include "devices/catalogue.h"

#include <QDir>
#include <QDomDocument>

namespace {

Record readDevice(const QDomElement &layout, const QString &path, const QString &baseName)
{
    Record device = {
        {"device", layout.attribute("name")},
        {"name", baseName},
        {"path", path},
        {"off", layout.attribute("coloroff")},
        {"on", layout.attribute("coloron")},
    };
    for (const char *attribute : {"fullrgb", "colors", "top", "left", "right", "bottom", "faders"})
        device.insert(attribute, layout.attribute(attribute));
    return device;
}

CatalogueEntry readEntry(const QDomElement &layout, const QString &folder, const QString &baseName)
{
    const QString identifier = layout.attribute("name");
    const QString mapping = folder + "/" + baseName + " mapping.xml";
    // Both mappers point at the one factory file; the first of the two is known by its position.
    return {readDevice(layout, folder + "/" + baseName + ".xml", baseName),
            {{{"device", identifier}, {"name", "Simple OS2L mapping"}, {"path", mapping}},
             {{"device", identifier}, {"name", baseName + " mapping (factory)"}, {"path", mapping}}}};
}

} // namespace

QList<CatalogueEntry> readCatalogue(const QString &folder)
{
    QList<CatalogueEntry> entries;
    for (const QFileInfo &info : QDir(folder).entryInfoList({"*.xml"})) {
        QFile file(info.filePath());
        if (!file.open(QIODevice::ReadOnly))
            continue;
        QDomDocument document;
        // After a failed parse the document keeps what stood in front of the error.
        if (!document.setContent(&file))
            continue;
        const QDomNodeList layouts = document.elementsByTagName("layout");
        for (int i = 0; i < layouts.count(); ++i)
            entries.append(readEntry(layouts.at(i).toElement(), folder, info.baseName()));
    }
    return entries;
}

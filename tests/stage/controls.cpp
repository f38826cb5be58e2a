#include "stage/controls.h"

#include "support/files.h"

#include <QDomDocument>

namespace Stage {

namespace {

const QString Mappings = ":/icons/Mappings/";

/** The bands above and below the pads count as one. */
QString placeOf(const QString &kind, int row, int column, int padsBefore)
{
    if (kind == "slider")
        return QString("slider %1").arg(column + 1);
    if (kind != "pad" && kind != "button")
        return {};
    if (row == 0 || row == 11)
        return QString("across %1").arg(column - 1);
    if (column == 0 || column == 11)
        return QString(column == 0 ? "left %1" : "right %1").arg(row - 1);
    // By order, for three layouts have two pads in one cell.
    return QString("pad %1 %2").arg(padsBefore / 8 + 1).arg(padsBefore % 8 + 1);
}

QList<Control> readControls(const QString &device)
{
    QList<Control> controls;
    int pads = 0;
    QDomDocument layout;
    layout.setContent(bytesOf(Mappings + device + ".xml"));
    QDomElement element = layout.documentElement().firstChildElement();
    for (; !element.isNull(); element = element.nextSiblingElement()) {
        const QString kind = element.tagName();
        const QString name = element.attribute("name");
        const int row = element.attribute("row", "-1").toInt();
        const int column = element.attribute("col", "-1").toInt();
        const QString place = placeOf(kind, row, column, pads);
        pads += place.startsWith("pad ");
        const bool isPlain = !element.hasAttribute("colorled");
        const QString prefix = element.attribute("colorled", element.attribute("led"));
        const bool hasLed = kind == "pad" || kind == "button";
        controls += {kind, name, hasLed ? prefix + name : QString(), isPlain, row, column, place};
    }
    return controls;
}

} // namespace

QList<Control> controlsOf(const QString &device)
{
    static QHash<QString, QList<Control>> known;
    if (!known.contains(device))
        known.insert(device, readControls(device));
    return known.value(device);
}

MapperFile factoryMapperOf(const QString &device)
{
    static QHash<QString, MapperFile> known;
    if (!known.contains(device))
        known.insert(device, MapperFile::fromXml(bytesOf(Mappings + device + " mapping.xml")));
    return known.value(device);
}

} // namespace Stage

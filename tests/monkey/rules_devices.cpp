#include "rules.h"

#include <QFile>
#include <QXmlStreamReader>

#include <algorithm>

namespace Rules {

namespace {

const char Catalogue[] = ":/icons/Mappings/";

/** In the order of the combo box. */
const QStringList Names = {"AKAI APC Mini",           "Novation Launchpad Mini MK3",
                           "Novation Launchpad Mini", "Novation Launchpad MKII",
                           "Novation Launchpad PRO",  "Novation Launchpad S",
                           "Novation Launchpad"};

Control readControl(const QString &kind, const QXmlStreamAttributes &has)
{
    const QString name = has.value("name").toString();
    const QString colorLed = has.value("colorled").toString();
    const QString led = kind == "pad" || !colorLed.isEmpty() ? colorLed : has.value("led").toString();
    return {kind,
            name,
            led + name,
            !colorLed.isEmpty(),
            has.value("row").toString().toInt(),
            has.value("col").toString().toInt()};
}

Device readDevice(const QString &name)
{
    QFile file(Catalogue + name + ".xml");
    if (!file.open(QIODevice::ReadOnly))
        qFatal("no layout of %s", qPrintable(name));
    QXmlStreamReader xml(&file);
    xml.readNextStartElement();
    const QXmlStreamAttributes has = xml.attributes();
    const auto number = [&has](const char *key) { return has.value(key).toString().toInt(); };
    Device device{has.value("name").toString(),
                  name,
                  has.value("fullrgb").toString(),
                  has.value("colors").toString().split(','),
                  number("coloroff"),
                  number("coloron"),
                  number("top"),
                  number("left"),
                  number("bottom"),
                  number("right"),
                  {}};
    QMap<QString, QVector<Control>> byKind;
    while (xml.readNextStartElement()) {
        const QString kind = xml.name().toString();
        byKind[kind].append(readControl(kind, xml.attributes()));
        xml.skipCurrentElement();
    }
    for (const char *kind : {"pad", "button", "slider", "ignore", "empty"})
        device.controls += byKind.value(kind);
    return device;
}

bool isGap(int position)
{
    return position == 1 || position == 10;
}

bool isInBand(int position, int count)
{
    return position > 1 && position <= count + 1;
}

/** The device attributes of the mappers in a file; none where it is not well-formed. */
QStringList devicesIn(const QString &text)
{
    QStringList devices;
    QXmlStreamReader xml(text);
    while (!xml.atEnd()) {
        if (xml.readNext() == QXmlStreamReader::StartElement && xml.name() == "mapper")
            devices.append(xml.attributes().value("device").toString());
    }
    return xml.hasError() ? QStringList() : devices;
}

bool knows(const World &world, const QString &id)
{
    return std::any_of(world.devices.cbegin(), world.devices.cend(),
                       [&id](const Device &device) { return device.id == id; });
}

} // namespace

QVector<Device> readDevices()
{
    QVector<Device> devices;
    for (const QString &name : Names)
        devices.append(readDevice(name));
    return devices;
}

QString restingLabel(At at)
{
    const auto [row, col] = at;
    if (isGap(row) || isGap(col))
        return {};
    const bool isOutside = col == 0 || col == 11;
    if (row == 0)
        return isOutside ? QString() : "TOP " + QString::number(col - 1);
    if (row == 11)
        return isOutside ? QString() : "BOTTOM " + QString::number(col - 1);
    if (col == 0)
        return "LEFT " + QString::number(row - 1);
    if (col == 11)
        return "RIGHT " + QString::number(row - 1);
    return "PAD " + QString::number(row * 8 + col - 17);
}

bool hasKey(const Device &device, At at)
{
    const auto [row, col] = at;
    if (isGap(row) || isGap(col))
        return false;
    if (row == 0)
        return isInBand(col, device.top);
    if (row == 11)
        return isInBand(col, device.bottom);
    if (col == 0)
        return isInBand(row, device.left);
    if (col == 11)
        return isInBand(row, device.right);
    return true;
}

void readMappers(World &world)
{
    world.mappers.clear();
    for (const Device &device : qAsConst(world.devices)) {
        const QString path = Catalogue + device.name + " mapping.xml";
        world.mappers.append({device.id, "Simple OS2L mapping", path});
        world.mappers.append({device.id, device.name + " mapping (factory)", path});
    }
    QStringList paths;
    for (const QString &path : world.files.keys()) {
        if (path.startsWith(world.mapperFolder + "/"))
            paths.append(path);
    }
    paths.sort(Qt::CaseInsensitive);
    for (const QString &path : qAsConst(paths)) {
        const QString name = path.section('/', -1).section('.', 0, 0);
        for (const QString &device : devicesIn(world.files.value(path))) {
            if (knows(world, device))
                world.mappers.append({device, name, path});
        }
    }
}

void pickDevice(World &world, int index)
{
    const Device device = world.devices.value(index);
    world.device = index;
    world.mapperNames.clear();
    for (const Mapper &mapper : qAsConst(world.mappers)) {
        if (mapper.device == device.id)
            world.mapperNames.append(mapper.name);
    }
    world.mapper = world.mapperNames.isEmpty() ? -1 : 0;
    world.showsPalette = device.fullRgb != "true";
    if (world.showsPalette) {
        world.palette = device.colors;
        world.off = world.palette.isEmpty() ? -1 : device.off;
        world.on = world.palette.isEmpty() ? -1 : device.on;
    }
    for (const At at : world.keys.places())
        world.keys.at(at).avail = hasKey(device, at) ? "1" : "0";
}

namespace {

/** The keyboard goes from one to the next. */
Outcome chooseDevice(World &world, const Gesture &gesture)
{
    const int index = gesture.number("index");
    if (!world.isMidi || index < 0 || index >= world.devices.size())
        return Impossible;
    const Outcome outcome = index != world.device ? focusOn("tablecontroller") : Outcome();
    while (world.device != index)
        pickDevice(world, world.device + (world.device < index ? 1 : -1));
    return outcome;
}

Outcome chooseMapper(World &world, const Gesture &gesture)
{
    const int index = gesture.number("index");
    if (!world.isMidi || index < 0 || index >= world.mapperNames.size())
        return Impossible;
    world.mapper = index;
    return {};
}

Outcome chooseColor(World &world, const Gesture &gesture)
{
    const int index = gesture.number("index");
    if (!world.isMidi || !world.showsPalette || index < 0 || index >= world.palette.size())
        return Impossible;
    (gesture.verb == "off-color" ? world.off : world.on) = index;
    return {};
}

} // namespace

QMap<QString, Rule> rulesOfDevices()
{
    return {{"device", chooseDevice},
            {"mapper", chooseMapper},
            {"off-color", chooseColor},
            {"on-color", chooseColor}};
}

} // namespace Rules

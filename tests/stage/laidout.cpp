#include "stage/laidout.h"

#include "devices/catalogue.h"
#include "devices/keyrecords.h"
#include "export/mapping.h"
#include "support/files.h"
#include "tables/controller.h"
#include "tables/roles.h"

#include <QTextStream>

namespace Stage {

namespace {

bool isAkai(const LaidOut &laid)
{
    return laid.device.startsWith("AKAI");
}

bool takesAnyColour(const LaidOut &laid)
{
    return QStringList({"Novation Launchpad MKII", "Novation Launchpad Mini MK3", "Novation Launchpad PRO"})
        .contains(laid.device);
}

/** What the program offers as default colours: on, off. */
QString defaultOn(const LaidOut &laid)
{
    return takesAnyColour(laid) ? QString() : isAkai(laid) ? QString("green") : QString("#FF0000");
}

QString defaultOff(const LaidOut &laid)
{
    return takesAnyColour(laid) ? QString() : isAkai(laid) ? QString("yellow") : QString("#000000");
}

QString shown(const QString &color)
{
    const QString name = color.toLower();
    return name.endsWith("#000000") || name.endsWith("black") ? QString("dark") : name;
}

/** The keys beside the 8 by 8 of the AKAI and the MKII know no colours of their own. */
bool isBand(const Control &key)
{
    return key.kind == "button";
}

QString onColour(const LaidOut &laid, const Control &key)
{
    const Light light = laid.lights.value({key.row, key.column});
    if (key.isPlain)
        return "on";
    if (isBand(key))
        return shown(light.color);
    if (!light.on.isEmpty())
        return shown(light.on);
    return shown(takesAnyColour(laid) ? light.color : defaultOn(laid));
}

QVariant textOf(const QString &text)
{
    return text;
}

bool fill(Controller &grid, const LaidOut &laid)
{
    bool isFilled = grid.insertRows(0, 12);
    for (auto each = laid.lights.cbegin(); each != laid.lights.cend(); ++each) {
        const QModelIndex cell = grid.index(each.key().first, each.key().second);
        const Light &light = each.value();
        for (const auto &[role, text] :
             {qMakePair(int(ButtonRole), QString("7")), qMakePair(int(DisplayNameRole), light.button),
              qMakePair(int(Qt::DecorationRole), light.color), qMakePair(int(OnColorRole), light.on),
              qMakePair(int(OffColorRole), light.off),
              qMakePair(int(BlinkRole), QString(light.blinks ? "1" : ""))})
            isFilled = grid.setData(cell, textOf(text), role) && isFilled;
    }
    return isFilled;
}

} // namespace

QString lit(const LaidOut &laid, const Control &key)
{
    const QString on = onColour(laid, key);
    const QString off = resting(laid, key);
    const bool blinks = laid.lights.value({key.row, key.column}).blinks && !isBand(key);
    return blinks && on != off ? "blinks " + on + ", " + off : on;
}

QString resting(const LaidOut &laid, const Control &key)
{
    const Light light = laid.lights.value({key.row, key.column});
    if (key.isPlain)
        return "dark";
    if (isBand(key))
        return shown("30% " + light.color);
    if (!light.off.isEmpty())
        return shown(light.off);
    return shown(takesAnyColour(laid) ? "40% " + light.color : defaultOff(laid));
}

QString litSwitch(const LaidOut &laid, const Control &key)
{
    if (isBand(key))
        return "on";
    return takesAnyColour(laid) ? QString("dark") : shown(defaultOn(laid));
}

QString restingSwitch(const LaidOut &laid, const Control &key)
{
    return isBand(key) || takesAnyColour(laid) ? QString("dark") : shown(defaultOff(laid));
}

QByteArray exported(const LaidOut &laid, const QString &base)
{
    Controller grid;
    if (!fill(grid, laid))
        return "the grid cannot be filled";
    for (const CatalogueEntry &entry : readCatalogue(":/icons/Mappings")) {
        if (entry.device.value("name") != laid.device)
            continue;
        const QString mapper = base.isEmpty() ? entry.mappers.last().value("path") : base;
        ControllerMapping mapping = {entry.device, readKeyRecords(entry.device.value("path"), mapper), grid};
        mapping.switchKey = {laid.switchKey.first, laid.switchKey.second};
        mapping.defaultOn = defaultOn(laid);
        mapping.defaultOff = defaultOff(laid);
        mapping.isSimple = laid.isSimple;
        mapping.date = QDate(2026, 3, 5);
        return streamed([&mapping](QTextStream &out) { writeMapping(out, mapping); });
    }
    return "no such device";
}

} // namespace Stage

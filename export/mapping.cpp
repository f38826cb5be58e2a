#include "export/mapping.h"

#include "devices/device.h"
#include "devices/keyrecords.h"
#include "script/escape.h"
#include "script/script.h"
#include "tables/roles.h"

#include <QAbstractItemModel>
#include <QTextStream>

using namespace Script;

namespace {

/** A key or another control of the device, with its cell of the grid. */
struct Key
{
    QString name;
    QString led;
    QString script;    ///< its own, escaped
    QString ledScript; ///< its LED's own, escaped
    QString type;
    bool hasColorLed; ///< of a button; a pad has one in any case
    int column;       ///< of the layout; for a slider, its number from 0
    QModelIndex cell;
};

/** Scripts of a LED while its Live Button is on, and while it is off. */
struct LedScripts
{
    QString on;
    QString off;
};

Key readKey(const Record &record, const QAbstractItemModel &grid)
{
    const int column = record.value(KeyRecord::Column).toInt();
    return {
        record.value(KeyRecord::Name),
        record.value(KeyRecord::Led),
        escapeScript(record.value(KeyRecord::Script)),
        escapeScript(record.value(KeyRecord::LedScript)),
        record.value(KeyRecord::Type),
        record.value(KeyRecord::LedType) == KeyRecord::ColorLed,
        column,
        grid.index(record.value(KeyRecord::Row).toInt(), column),
    };
}

QString textOf(const QModelIndex &cell, int role)
{
    return cell.data(role).toString();
}

/** The second half of a condition. */
QString eitherOf(const LedScripts &led)
{
    return led.on + " : " + led.off;
}

bool isSwitch(const ControllerMapping &mapping, const Key &key)
{
    return !mapping.isSimple && mapping.switchKey == Grid::Cell{key.cell.row(), key.cell.column()};
}

/** What a control does: for the lights alone, or for them first and its own script, if any, otherwise. */
QString forLights(const ControllerMapping &mapping, const QString &lights, const QString &own)
{
    if (mapping.isSimple)
        return lights;
    return own.isEmpty() ? ifElse(lightsHaveKeys(), lights) : ifElse(lightsHaveKeys(), lights, own);
}

/** Colours of a pad of a palette device: its own, else the device's. */
LedScripts paletteColors(const ControllerMapping &mapping, const QModelIndex &cell)
{
    const QString on = textOf(cell, OnColorRole);
    const QString off = textOf(cell, OffColorRole);
    return {color(on.isEmpty() ? mapping.defaultOn : on), color(off.isEmpty() ? mapping.defaultOff : off)};
}

/** Colours of a key with any colour: its Live Button's, dimmed at rest. */
LedScripts dimmedColors(const QModelIndex &cell, const QString &brightness)
{
    const QString name = textOf(cell, Qt::DecorationRole);
    return {color(name), color(brightness, name)};
}

LedScripts padColors(const ControllerMapping &mapping, const QModelIndex &cell)
{
    if (!Device::isRgb(mapping.device))
        return paletteColors(mapping, cell);
    LedScripts colors = dimmedColors(cell, "40%");
    if (const QString on = textOf(cell, OnColorRole); !on.isEmpty())
        colors.on = color(on);
    if (const QString off = textOf(cell, OffColorRole); !off.isEmpty())
        colors.off = color(off);
    return colors;
}

LedScripts buttonColors(const ControllerMapping &mapping, const Key &key)
{
    if (!key.hasColorLed)
        return {"on", "off"};
    if (Device::isRgb(mapping.device))
        return dimmedColors(key.cell, "30%");
    return {color(mapping.defaultOn), color(mapping.defaultOff)};
}

/** What the LED of a Live Button shows while the button is on, and while it is off. */
QString litOrNot(const ControllerMapping &mapping, const Key &key)
{
    if (key.type == KeyRecord::Button) // obeys no colours and no blink of its cell
        return eitherOf(buttonColors(mapping, key));
    const LedScripts colors = padColors(mapping, key.cell);
    const QString either = eitherOf(colors);
    return textOf(key.cell, BlinkRole) == "1" ? ifElse("blink", either, colors.off) : either;
}

QString switchLed(const ControllerMapping &mapping, const Key &key)
{
    if (key.type == KeyRecord::Button)
        return lightsHaveKeys();
    return ifElse(lightsHaveKeys(),
                  eitherOf(Device::isRgb(mapping.device) ? dimmedColors(key.cell, "30%")
                                                         : paletteColors(mapping, key.cell)));
}

/** LED of a key that does nothing for the lights. That the key has a script decides, not that the LED has. */
QString darkLed(const ControllerMapping &mapping, const Key &key)
{
    QString dark = key.type == KeyRecord::Pad ? color("black") : QString("off");
    if (mapping.isSimple)
        return dark;
    return key.script.isEmpty() ? ifElse(lightsHaveKeys(), dark)
                                : ifElse(lightsHaveKeys(), dark, key.ledScript);
}

void writeRow(QTextStream &out, const QString &name, const QString &script)
{
    out << "\t<map value=\"" << name << "\" action=\"" << script << "\"/>" << Qt::endl;
}

/** Rows of a pad or button: the key's, then its LED's. */
void writeKeyAndLed(QTextStream &out, const ControllerMapping &mapping, const Key &key)
{
    if (key.cell.data(ButtonRole).toInt() >= 0) {
        const QString button = os2lButton(textOf(key.cell, DisplayNameRole));
        writeRow(out, key.name, forLights(mapping, button, key.script));
        writeRow(out, key.led, forLights(mapping, ifElse(button, litOrNot(mapping, key)), key.ledScript));
    } else if (isSwitch(mapping, key)) {
        writeRow(out, key.name, toggleLights());
        writeRow(out, key.led, switchLed(mapping, key));
    } else {
        writeRow(out, key.name, forLights(mapping, Nothing, key.script));
        writeRow(out, key.led, darkLed(mapping, key));
    }
}

void writeControl(QTextStream &out, const ControllerMapping &mapping, const Key &key)
{
    if (key.type == KeyRecord::Pad || key.type == KeyRecord::Button)
        writeKeyAndLed(out, mapping, key);
    else if (key.type == KeyRecord::Slider)
        writeRow(out, key.name,
                 forLights(mapping, "os2l_cmd " + QString::number(qint64(key.column) + 1), key.script));
    else if (key.type == KeyRecord::Ignore)
        writeRow(out, key.name, key.script);
    else if (key.type == KeyRecord::Empty)
        writeRow(out, key.name,
                 key.script.isEmpty() ? QString(Nothing) : forLights(mapping, Nothing, key.script));
}

} // namespace

void writeMapping(QTextStream &out, const ControllerMapping &mapping)
{
    out << R"(<?xml version="1.0" encoding="UTF-8"?>)" << Qt::endl;
    out << "<mapper device=\"" << mapping.device.value("device")
        << R"(" author="Zarvex" version="840" date=")" << mapping.date.toString("d-M-yyyy") << "\">"
        << Qt::endl;
    for (const Record &record : mapping.keys)
        writeControl(out, mapping, readKey(record, mapping.grid));
    out << "</mapper>" << Qt::endl;
}

#include "devices/keyrecords.h"

#include "files/xmlfile.h"
#include "script/escape.h"

#include <QFile>
#include <QHash>

namespace {

using Scripts = QHash<QString, QString>;

/** The scripts of a mapper by the name of the key or LED. */
Scripts scriptsOf(const QDomDocument &mapper)
{
    Scripts scripts;
    const QDomNodeList rows = mapper.elementsByTagName("map");
    for (int i = 0; i < rows.size(); ++i) {
        const QDomElement row = rows.at(i).toElement();
        scripts.insert(row.attribute("value"), row.attribute("action"));
    }
    return scripts;
}

/** What every control has: its name, the script of it, its cell and its kind. */
Record readControl(const QDomElement &control, const Scripts &scripts)
{
    const QString name = control.attribute("name");
    return {
        {KeyRecord::Name, name},
        {KeyRecord::Script, unwrapScript(scripts.value(name))},
        {KeyRecord::Row, control.attribute("row")},
        {KeyRecord::Column, control.attribute("col")},
        {KeyRecord::Type, control.tagName()},
    };
}

QList<Record> readControls(const QDomDocument &layout, const QString &type, const Scripts &scripts)
{
    QList<Record> records;
    const QDomNodeList controls = layout.elementsByTagName(type);
    for (int i = 0; i < controls.size(); ++i)
        records.append(readControl(controls.at(i).toElement(), scripts));
    return records;
}

QList<Record> readPads(const QDomDocument &layout, const Scripts &scripts)
{
    QList<Record> records;
    const QDomNodeList pads = layout.elementsByTagName(KeyRecord::Pad);
    for (int i = 0; i < pads.size(); ++i) {
        const QDomElement pad = pads.at(i).toElement();
        Record record = readControl(pad, scripts);
        const QString led = pad.attribute("colorled") + record.value(KeyRecord::Name);
        record.insert(KeyRecord::Led, led);
        record.insert(KeyRecord::LedScript, unwrapScript(scripts.value(led)));
        records.append(record);
    }
    return records;
}

QList<Record> readButtons(const QDomDocument &layout, const Scripts &scripts)
{
    QList<Record> records;
    bool anyLedMapped = false; // of the whole pass, and on purpose not of each button
    const QDomNodeList buttons = layout.elementsByTagName(KeyRecord::Button);
    for (int i = 0; i < buttons.size(); ++i) {
        const QDomElement button = buttons.at(i).toElement();
        Record record = readControl(button, scripts);
        const QString colorLed = button.attribute("colorled");
        const bool hasColorLed = !colorLed.isEmpty();
        const QString led =
            (hasColorLed ? colorLed : button.attribute("led")) + record.value(KeyRecord::Name);
        anyLedMapped = anyLedMapped || scripts.contains(led);
        record.insert(KeyRecord::Led, led);
        record.insert(KeyRecord::LedType, hasColorLed ? KeyRecord::ColorLed : KeyRecord::PlainLed);
        record.insert(KeyRecord::LedScript,
                      anyLedMapped ? unwrapScript(scripts.value(led)) : record.value(KeyRecord::Script));
        records.append(record);
    }
    return records;
}

} // namespace

QList<Record> readKeyRecords(const QString &layoutPath, const QString &mapperPath)
{
    if (!QFile::exists(layoutPath) || !QFile::exists(mapperPath))
        return {};

    const QDomDocument layout = readXmlFile(layoutPath, LongestMapper);
    const Scripts scripts = scriptsOf(readXmlFile(mapperPath, LongestMapper));
    QList<Record> records = readPads(layout, scripts) + readButtons(layout, scripts);
    for (const char *type : {KeyRecord::Slider, KeyRecord::Ignore, KeyRecord::Empty})
        records += readControls(layout, type, scripts);
    return records;
}

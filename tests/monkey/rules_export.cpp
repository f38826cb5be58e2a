#include "rules.h"

#include <QFile>
#include <QPair>
#include <QXmlStreamReader>

namespace Rules {

namespace {

const QString Head = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
const QString Lights = "var &apos;$os2l&apos;";

QString quoted(const QString &text)
{
    return "&apos;" + text + "&apos;";
}

QString color(const QString &name)
{
    return "color " + quoted(name);
}

QVector<int> usedBanks(const Table &pads)
{
    QVector<int> used;
    for (const At at : pads.places()) {
        if (pads.at(at).page.toInt() > 0 && !used.contains(at.row / 8))
            used.append(at.row / 8);
    }
    return used;
}

struct PadScripts
{
    QStringList texts;
    QStringList colors;
    QStringList actions;
};

PadScripts padScripts(const World &world, const QVector<int> &used, int slot)
{
    PadScripts scripts;
    for (int i = 0; i < used.size(); ++i) {
        const Cell &pad = world.pads.at({used.at(i) * 8 + slot % 8, slot / 8});
        const QString bank = "var &apos;dmxbank&apos; " + QString::number(i) + " ? ";
        if (pad.page.toInt() > 0) {
            scripts.texts.append(bank + "get_text " + quoted(pad.name));
            scripts.colors.append(bank + color(colorName(pad.color)));
            scripts.actions.append(bank + "os2l_button " + quoted(pad.dspname));
        } else if (pad.page.toInt() == 0) {
            scripts.texts.append(bank + "get_text " + quoted({}));
            scripts.colors.append(bank + color("transparent"));
            scripts.actions.append(bank + "nothing");
        }
    }
    return scripts;
}

QString pageText(const World &world)
{
    const QVector<int> used = usedBanks(world.pads);
    QString text = Head + "<page name=\"" + world.pageName + "\">\n";
    for (int slot = 0; slot < (world.has16Pads ? 16 : 8); ++slot) {
        const PadScripts scripts = padScripts(world, used, slot);
        const QString pad = "pad" + QString::number(slot + 1);
        text += "\t<" + pad + " name=\"`" + scripts.texts.join(" : ") + "`\" color=\""
                + scripts.colors.join(" : ") + "\">" + scripts.actions.join(" : ") + "</" + pad + ">\n";
    }
    QStringList names;
    for (int i = 0; i < used.size(); ++i)
        names.append("var &apos;dmxbank&apos; " + QString::number(i) + " ? get_text "
                     + quoted(world.banks.value(used.at(i))));
    const QString count = QString::number(used.size());
    return text + "\t<param1 name=\"`" + names.join(" : ") + "`\">param_bigger 0 ? cycle &apos;dmxbank&apos; "
           + count + " : cycle &apos;dmxbank&apos; -" + count + "</param1>\n</page>\n";
}

using MapperRows = QVector<QPair<QString, QString>>;

MapperRows rowsIn(QXmlStreamReader &xml)
{
    MapperRows rows;
    while (!xml.atEnd()) {
        if (xml.readNext() == QXmlStreamReader::StartElement && xml.name() == "map")
            rows.append(
                {xml.attributes().value("value").toString(), xml.attributes().value("action").toString()});
    }
    return xml.hasError() ? MapperRows() : rows;
}

/** Whether a script goes on, behind the first answer, with another question. */
bool asksOn(int answer, int question)
{
    return question > 0 && answer > question;
}

QString escaped(const QString &text)
{
    QString result = text;
    return result.replace("'", "&apos;").replace("\"", "&quot;").replace(" & ", " &amp; ");
}

/** A mapper's script without what an earlier export wrapped around it. */
QString withoutOs2l(const QString &script)
{
    if (escaped(script) == "toggle &apos;$os2l&apos;")
        return {};
    if (!escaped(script).startsWith("var &apos;$os2l&apos;"))
        return script;
    const auto withoutFirst = [](const QString &text, const char *mark) {
        return QStringList(text.split(mark).mid(1)).join(mark);
    };
    QString rest = withoutFirst(script, " ? ");
    int answer = rest.indexOf(" : ");
    int question = rest.indexOf(" ? ");
    if (asksOn(answer, question)) {
        do { // the test looks at the text before the cut
            answer = rest.indexOf(" : ");
            question = rest.indexOf(" ? ");
            rest = withoutFirst(rest, " : ");
        } while (asksOn(answer, question));
    }
    answer = rest.indexOf(" : ");
    question = rest.indexOf(" ? ");
    if (answer > 0 && (question < 0 || (question > 0 && answer < question)))
        return withoutFirst(rest, " : ");
    return answer > 0 ? rest : QString();
}

/** Names and actions in a mapper; none where it is not well-formed. */
MapperRows mapperRows(const World &world, const QString &path)
{
    static QMap<QString, MapperRows> factory;
    if (!path.startsWith(':')) {
        QXmlStreamReader xml(world.files.value(path));
        return rowsIn(xml);
    }
    if (!factory.contains(path)) {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            qFatal("no mapper %s", qPrintable(path));
        QXmlStreamReader xml(&file);
        factory.insert(path, rowsIn(xml));
    }
    return factory.value(path);
}

/** A control with what the picked mapper gives it. */
struct KeyRecord
{
    Control control;
    QString action;
    QString ledAction;
};

QVector<KeyRecord> keyRecords(const World &world, const Device &device, const QString &path)
{
    QMap<QString, QString> actions; // the last row of a name counts
    for (const auto &row : mapperRows(world, path))
        actions.insert(row.first, withoutOs2l(row.second));
    QVector<KeyRecord> records;
    bool hasLedRow = false;
    for (const Control &control : device.controls) {
        KeyRecord record{control, actions.value(control.name), {}};
        if (control.kind == "pad" || control.kind == "button")
            record.ledAction = actions.value(control.led);
        if (control.kind == "button") {
            hasLedRow = hasLedRow || actions.contains(control.led);
            if (!hasLedRow)
                record.ledAction = record.action;
        }
        records.append(record);
    }
    return records;
}

/** What all keys of an export share. */
struct Mapping
{
    const World &world;
    Device device;
    bool isWrapped;
    bool isRgb;
    QString defaultOff;
    QString defaultOn;

    QString on(const Cell &key) const
    {
        if (isRgb)
            return color(key.on.isEmpty() ? colorName(key.color) : key.on);
        return color(key.on.isEmpty() ? defaultOn : key.on);
    }
    QString off(const Cell &key) const
    {
        if (!isRgb)
            return color(key.off.isEmpty() ? defaultOff : key.off);
        return key.off.isEmpty() ? "color 40% " + quoted(colorName(key.color)) : color(key.off);
    }
    QString faded(const Cell &key) const
    {
        const QString name = quoted(colorName(key.color));
        return "color " + name + " : color 30% " + name;
    }
};

QString litScript(const Mapping &mapping, const Control &control, const Cell &key)
{
    if (control.kind == "pad" && key.blink == "1")
        return "blink ? " + mapping.on(key) + " : " + mapping.off(key) + " : " + mapping.off(key);
    if (control.kind == "pad")
        return mapping.on(key) + " : " + mapping.off(key);
    if (!control.hasColor)
        return "on : off";
    return mapping.isRgb ? mapping.faded(key) : color(mapping.defaultOn) + " : " + color(mapping.defaultOff);
}

using Scripts = QPair<QString, QString>; // the key's, its LED's

Scripts filledKey(const Mapping &mapping, const KeyRecord &record, const Cell &key)
{
    const QString verb = "os2l_button " + quoted(key.dspname);
    const QString led = verb + " ? " + litScript(mapping, record.control, key);
    if (!mapping.isWrapped)
        return {verb, led};
    const QString action = escaped(record.action);
    const QString ledAction = escaped(record.ledAction);
    return {Lights + " ? " + verb + (action.isEmpty() ? QString() : " : " + action),
            Lights + " ? " + led + (ledAction.isEmpty() ? QString() : " : " + ledAction)};
}

Scripts emptyKey(const Mapping &mapping, const KeyRecord &record, const Cell &key)
{
    const Control &control = record.control;
    const bool isPad = control.kind == "pad";
    const QString dark = isPad ? color("black") : QString("off");
    if (!mapping.isWrapped)
        return {"nothing", dark};
    if (control.row == mapping.world.switchRow && control.col == mapping.world.switchCol) {
        const QString lit = mapping.isRgb ? mapping.faded(key) : mapping.on(key) + " : " + mapping.off(key);
        return {"toggle &apos;$os2l&apos;", isPad ? Lights + " ? " + lit : Lights};
    }
    const QString action = escaped(record.action);
    if (action.isEmpty())
        return {Lights + " ? nothing", Lights + " ? " + dark};
    return {Lights + " ? nothing : " + action, Lights + " ? " + dark + " : " + escaped(record.ledAction)};
}

/** The script of a control that has no cell. */
QString otherScript(const Mapping &mapping, const KeyRecord &record)
{
    QString action = escaped(record.action);
    const QString rest = action.isEmpty() ? QString() : " : " + action;
    if (record.control.kind == "ignore")
        return action;
    if (record.control.kind == "empty")
        return mapping.isWrapped && !action.isEmpty() ? Lights + " ? nothing" + rest : "nothing";
    const QString verb = "os2l_cmd " + QString::number(record.control.col + 1);
    return mapping.isWrapped ? Lights + " ? " + verb + rest : verb;
}

QString mapLine(const QString &name, const QString &script)
{
    return "\t<map value=\"" + name + "\" action=\"" + script + "\"/>\n";
}

QString keyLines(const Mapping &mapping, const KeyRecord &record)
{
    const Control &control = record.control;
    if (control.kind != "pad" && control.kind != "button")
        return mapLine(control.name, otherScript(mapping, record));
    const Cell &key = mapping.world.keys.at({control.row, control.col});
    const Scripts scripts =
        key.id.toInt() >= 0 ? filledKey(mapping, record, key) : emptyKey(mapping, record, key);
    return mapLine(control.name, scripts.first) + mapLine(control.led, scripts.second);
}

QString pickedMapper(const World &world, const Device &device)
{
    QStringList paths;
    for (const Mapper &mapper : world.mappers) {
        if (mapper.device == device.id)
            paths.append(mapper.path);
    }
    return paths.value(world.mapper);
}

QString mappingText(const World &world, const Device &device)
{
    const bool isRgb = device.fullRgb == "true";
    const Mapping mapping{world,
                          device,
                          world.mapper > 0,
                          isRgb,
                          isRgb ? QString() : device.colors.value(world.off),
                          isRgb ? QString() : device.colors.value(world.on)};
    QString text = Head + "<mapper device=\"" + device.id + "\" author=\"Zarvex\" version=\"840\" date=\""
                   + world.today + "\">\n";
    for (const KeyRecord &record : keyRecords(world, device, pickedMapper(world, device)))
        text += keyLines(mapping, record);
    return text + "</mapper>\n";
}

} // namespace

void exportPage(World &world, const Gesture &gesture, Outcome &outcome)
{
    const QString path = world.padsFolder + "/" + world.pageName + ".xml";
    if (!mayWrite(world, path, "Pads Page " + world.pageName, gesture, outcome))
        return;
    world.files.insert(path, pageText(world));
    tell(outcome, "Pads Page " + world.pageName + " is created.", "Select it from VirtualDJ Pads dropdown");
}

void exportMapping(World &world, const Gesture &gesture, Outcome &outcome)
{
    const Device device = world.devices.value(world.device);
    const QString what = device.name + " - " + world.pageName + " mapping";
    const QString path = world.mapperFolder + "/" + what + ".xml";
    if (!mayWrite(world, path, what, gesture, outcome))
        return;
    world.files.insert(path, mappingText(world, device));
    tell(outcome, "Mapping " + world.pageName + " for " + device.name + " is created.",
         "Select it from Controllers tab of VirtualDJ Settings.");
}

} // namespace Rules

#include "rules.h"

#include <QRegularExpression>

#include <algorithm>

namespace Rules {

namespace {

using Attributes = QMap<QString, QString>;

/** What a project file holds; nothing where it is not well-formed. */
struct Document
{
    QVector<Attributes> projects;
    QVector<Attributes> keys;
};

QString attribute(const char *name, const QString &value)
{
    return QString(name) + "=\"" + value + "\" ";
}

QString attribute(const char *name, int value)
{
    return attribute(name, QString::number(value));
}

QString head(const World &world)
{
    const QString show = attribute("show", world.showFile) + attribute("showname", world.showName);
    const QString page = attribute("export", world.pageName);
    if (!world.isMidi)
        return attribute("type", "pads") + show + page + attribute("layout", world.has16Pads)
               + attribute("banks", world.banks.join(','));
    const QString place = QString::number(world.switchRow) + "," + QString::number(world.switchCol);
    return attribute("deviceid", world.devices.value(world.device).id) + attribute("type", "midi") + show
           + attribute("switch", place) + attribute("offcolor", world.off) + attribute("oncolor", world.on)
           + page;
}

QString keyLine(const World &world, At at)
{
    const Cell &cell = (world.isMidi ? world.keys : world.pads).at(at);
    QString line = attribute("row", at.row) + attribute("column", at.col) + attribute("name", cell.name)
                   + attribute("dspname", cell.dspname) + attribute("pagenr", cell.page)
                   + attribute("id", cell.id);
    if (world.isMidi)
        line += attribute("avail", cell.avail) + attribute("coloroff", cell.off)
                + attribute("coloron", cell.on) + attribute("blink", cell.blink);
    return "\t<key " + line + attribute("color", colorName(cell.color)) + "/>\n";
}

QString projectText(const World &world)
{
    QString text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<project " + head(world) + ">\n";
    const Table &table = world.isMidi ? world.keys : world.pads;
    for (const At at : table.places())
        text += keyLine(world, at);
    return text + "</project>\n";
}

Attributes attributesIn(const QString &line)
{
    static const QRegularExpression one("([a-z]+)=\"([^\"]*)\"");
    Attributes attributes;
    for (auto match = one.globalMatch(line); match.hasNext();) {
        const QRegularExpressionMatch each = match.next();
        attributes.insert(each.captured(1), each.captured(2));
    }
    return attributes;
}

/** Takes files with an element a line, as the program writes them. */
Document parsed(const QString &text)
{
    static const QRegularExpression element("^\\s*<(projects|project|key)( [a-z]+=\"[^\"<&]*\")* ?/?>$");
    static const QRegularExpression other("^(<\\?xml .*\\?>|\\s*</(projects|project)>|)$");
    Document document;
    for (const QString &line : text.split('\n')) {
        const QRegularExpressionMatch match = element.match(line);
        if (!match.hasMatch() && !other.match(line).hasMatch())
            return {};
        if (match.captured(1) == "project")
            document.projects.append(attributesIn(line));
        if (match.captured(1) == "key")
            document.keys.append(attributesIn(line));
    }
    return document;
}

void applySwitch(World &world, const QString &text)
{
    const QStringList parts = text.split(',');
    world.switchRow = parts.size() > 1 ? parts.at(0).toInt() : -1;
    world.switchCol = parts.size() > 1 ? parts.at(1).toInt() : -1;
}

/** As a combo box takes a position: one that it does not have is none. */
void applyColor(const World &world, const QString &text, int &index)
{
    if (text.isEmpty())
        return;
    const int position = text.toInt();
    index = position >= 0 && position < world.palette.size() ? position : -1;
}

void applyDevice(World &world, const QString &id)
{
    if (id.isEmpty())
        return;
    int index = world.devices.size() - 1;
    while (index >= 0 && world.devices.at(index).id != id)
        --index;
    if (index != world.device)
        pickDevice(world, index);
}

void applyProject(World &world, const Attributes &has)
{
    world.buttons.clear();
    emptyPads(world);
    emptyKeys(world);
    world.showName = has.value("showname");
    loadShow(world, has.value("show"));
    const QString banks = has.value("banks");
    world.banks = banks.isEmpty() ? freshBanks() : banks.split(',');
    applySwitch(world, has.value("switch"));
    world.pageName = has.value("export");
    applyDevice(world, has.value("deviceid"));
    applyColor(world, has.value("offcolor"), world.off);
    applyColor(world, has.value("oncolor"), world.on);
}

void layCell(Cell &cell, const Attributes &has, int row, bool isMidi)
{
    cell.name = has.value("name");
    if (!isMidi)
        renamePad(cell, row, has.value("name"));
    cell.dspname = has.value("dspname");
    cell.page = has.value("pagenr");
    cell.id = has.value("id");
    cell.color = has.value("color");
    if (!isMidi)
        return;
    cell.avail = has.value("avail");
    cell.off = has.value("coloroff");
    cell.on = has.value("coloron");
    cell.blink = has.value("blink");
}

} // namespace

void saveProject(World &world, const Gesture &gesture, Outcome &outcome)
{
    if (world.showName.isEmpty())
        return tell(outcome, "Nothing to Save. Load a Show");
    if (isEmpty(world.isMidi ? world.keys : world.pads))
        return tell(outcome, "Nothing to Save. Pads are empty");
    const QString name = gesture.text("file");
    const QString path = name.isEmpty() ? QString() : world.projectFolder + "/" + name;
    outcome.questions.append({Question::SaveFile, {}, {}, {}, path, false});
    if (path.isEmpty())
        return;
    const QString base = path.section('/', -1).section('.', 0, 0);
    if (!mayWrite(world, path, "Project " + base, gesture, outcome))
        return;
    if (name.contains('/')) // a folder that is not there
        return tell(outcome, "Project " + base + " was not saved.");
    world.files.insert(path, projectText(world));
    tell(outcome, "Project " + base + " is saved.");
}

bool loadProject(World &world, const QString &path)
{
    const Document document = parsed(world.files.value(path));
    QString type;
    QString layout;
    for (const Attributes &project : document.projects) {
        const QString file = project.value("show");
        const bool exists = std::any_of(world.shows.cbegin(), world.shows.cend(), [&file](const Show &show) {
            return show.file == file && show.exists;
        });
        if (!exists)
            return false;
        applyProject(world, project);
        type = project.value("type");
        layout = project.value("layout");
    }
    const bool isMidi = type == "midi";
    Table &table = isMidi ? world.keys : world.pads;
    for (const Attributes &key : document.keys) {
        const At at{key.value("row").toInt(), key.value("column").toInt()};
        tick(world, key.value("id").toInt());
        if (table.has(at))
            layCell(table.at(at), key, at.row, isMidi);
    }
    showOutput(world, isMidi, isMidi ? "MIDI Mapping" : "Pads Page");
    if (!isMidi) {
        world.bankField = world.banks.value(0);
        world.bank = 0;
        world.has16Pads = layout == "1";
    }
    return true;
}

} // namespace Rules

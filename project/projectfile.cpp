#include "project/projectfile.h"

#include "files/readfile.h"
#include "files/xmlfile.h"
#include "tables/roles.h"

#include <QAbstractItemModel>
#include <QTextStream>

namespace {

// A full one has some thirty thousand bytes. The document takes up to ninety times as much memory.
constexpr qint64 LongestProject = 1 << 20;

QString attribute(const QString &name, const QString &value)
{
    return name + "=\"" + value + "\" ";
}

QString attribute(const char *name, int value)
{
    return attribute(name, QString::number(value));
}

const CellFields::List &fieldsOf(const ProjectSettings &settings)
{
    return settings.isMidi ? CellFields::ofKeys() : CellFields::ofPads();
}

QString attributesOf(const ProjectSettings &settings)
{
    const QString type = attribute("type", settings.isMidi ? "midi" : "pads");
    const QString show = attribute("show", settings.show) + attribute("showname", settings.showName);
    const QString name = attribute("export", settings.exportName);
    if (!settings.isMidi)
        return type + show + name + attribute("layout", settings.has16Pads ? 1 : 0)
               + attribute("banks", settings.banks.join(","));

    const QString switchKey =
        QString::number(settings.switchKey.row) + "," + QString::number(settings.switchKey.column);
    return attribute("deviceid", settings.device) + type + show + attribute("switch", switchKey)
           + attribute("offcolor", settings.offColor.value_or(-1))
           + attribute("oncolor", settings.onColor.value_or(-1)) + name;
}

Grid::Cell switchOf(const QStringList &rowAndColumn)
{
    if (rowAndColumn.size() < 2)
        return Grid::NoCell;
    return {rowAndColumn.at(0).toInt(), rowAndColumn.at(1).toInt()};
}

std::optional<int> numberOf(const QString &text)
{
    return text.isEmpty() ? std::nullopt : std::optional<int>(text.toInt());
}

ProjectSettings settingsOf(const QDomElement &project)
{
    ProjectSettings settings;
    settings.isMidi = project.attribute("type") == "midi";
    settings.show = project.attribute("show");
    settings.showName = project.attribute("showname");
    settings.exportName = project.attribute("export");
    settings.has16Pads = project.attribute("layout") == "1";
    if (const QString banks = project.attribute("banks"); !banks.isEmpty())
        settings.banks = banks.split(",");
    settings.device = project.attribute("deviceid");
    settings.switchKey = switchOf(project.attribute("switch").split(","));
    settings.offColor = numberOf(project.attribute("offcolor"));
    settings.onColor = numberOf(project.attribute("oncolor"));
    return settings;
}

ProjectCell cellOf(const QDomElement &key, const CellFields::List &fields)
{
    ProjectCell cell = {key.attribute("row").toInt(), key.attribute("column").toInt(), {}};
    for (const CellField &field : fields) {
        if (key.hasAttribute(field.key))
            cell.texts.insert(field.key, key.attribute(field.key));
    }
    return cell;
}

void layOn(QAbstractItemModel &table, const CellFields::List &fields, const QVector<ProjectCell> &cells,
           const std::function<void(int)> &tick)
{
    const CellFields::List saved = CellFields::dragged(fields);
    for (const ProjectCell &cell : cells) {
        const QModelIndex index = table.index(cell.row, cell.column);
        for (const CellField &field : saved) {
            const QString text = cell.texts.value(field.key);
            if (field.role == ButtonRole)
                tick(text.toInt());
            table.setData(index, text, field.role);
        }
    }
}

} // namespace

QVector<ProjectCell> cellsOf(const QAbstractItemModel &table, const CellFields::List &fields)
{
    const CellFields::List saved = CellFields::dragged(fields);
    QVector<ProjectCell> cells;
    for (int row = 0; row < table.rowCount(); ++row) {
        for (int column = 0; column < table.columnCount(); ++column) {
            ProjectCell cell = {row, column, {}};
            for (const CellField &field : saved)
                cell.texts.insert(field.key, table.index(row, column).data(field.role).toString());
            cells.append(cell);
        }
    }
    return cells;
}

void writeProject(QTextStream &out, const ProjectSettings &settings, const QVector<ProjectCell> &cells)
{
    const CellFields::List saved = CellFields::dragged(fieldsOf(settings));
    out << R"(<?xml version="1.0" encoding="UTF-8"?>)" << Qt::endl;
    out << "<project " << attributesOf(settings) << ">" << Qt::endl;
    for (const ProjectCell &cell : cells) {
        out << "\t<key " << attribute("row", cell.row) << attribute("column", cell.column);
        for (const CellField &field : saved)
            out << attribute(field.key, cell.texts.value(field.key));
        out << "/>" << Qt::endl;
    }
    out << "</project>" << Qt::endl;
}

Project parseProject(const QByteArray &xml)
{
    const QDomDocument document = parseXml(xml);
    Project project;
    const QDomNodeList settings = document.elementsByTagName("project");
    for (int i = 0; i < settings.size(); ++i)
        project.settings.append(settingsOf(settings.at(i).toElement()));
    const QDomNodeList keys = document.elementsByTagName("key");
    const CellFields::List saved = CellFields::dragged(CellFields::ofKeys()); // a pad has no others
    for (int i = 0; i < keys.size(); ++i)
        project.cells.append(cellOf(keys.at(i).toElement(), saved));
    return project;
}

std::optional<Project> readProject(const QString &path)
{
    const auto bytes = readFile(path, LongestProject);
    return bytes ? std::optional<Project>(parseProject(*bytes)) : std::nullopt;
}

void layOnPads(const Project &project, QAbstractItemModel &pads, const std::function<void(int)> &tick)
{
    layOn(pads, CellFields::ofPads(), project.cells, tick);
}

void layOnGrid(const Project &project, QAbstractItemModel &grid, const std::function<void(int)> &tick)
{
    layOn(grid, CellFields::ofKeys(), project.cells, tick);
}

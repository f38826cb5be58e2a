#include "project/projectfile.h"

#include "files/readfile.h"
#include "files/xmlfile.h"
#include "tables/roles.h"

#include <QTextStream>
#include <QVector>

namespace {

// A full one has some thirty thousand bytes. The document takes up to ninety times as much memory.
constexpr qint64 LongestProject = 1 << 20;

/** A value of a cell by its name in the file. */
struct CellAttribute
{
    const char *name;
    int role;
};

const QVector<CellAttribute> &padAttributes()
{
    static const QVector<CellAttribute> attributes = {
        {"name", Qt::EditRole}, {"dspname", DisplayNameRole},  {"pagenr", PageRole},
        {"id", ButtonRole},     {"color", Qt::DecorationRole},
    };
    return attributes;
}

const QVector<CellAttribute> &keyAttributes()
{
    static const QVector<CellAttribute> attributes = {
        {"name", Qt::EditRole},   {"dspname", DisplayNameRole}, {"pagenr", PageRole},
        {"id", ButtonRole},       {"avail", AvailableRole},     {"coloroff", OffColorRole},
        {"coloron", OnColorRole}, {"blink", BlinkRole},         {"color", Qt::DecorationRole},
    };
    return attributes;
}

QString attribute(const char *name, const QString &value)
{
    return QString(name) + "=\"" + value + "\" ";
}

QString attribute(const char *name, int value)
{
    return attribute(name, QString::number(value));
}

void writeCells(QTextStream &out, const QAbstractItemModel &table, const QVector<CellAttribute> &attributes)
{
    for (int row = 0; row < table.rowCount(); ++row) {
        for (int column = 0; column < table.columnCount(); ++column) {
            const QModelIndex cell = table.index(row, column);
            out << "\t<key " << attribute("row", row) << attribute("column", column);
            for (const auto &[name, role] : attributes)
                out << attribute(name, cell.data(role).toString());
            out << "/>" << Qt::endl;
        }
    }
}

void writeProject(QTextStream &out, const QString &settings, const QAbstractItemModel &table,
                  const QVector<CellAttribute> &attributes)
{
    out << R"(<?xml version="1.0" encoding="UTF-8"?>)" << Qt::endl;
    out << "<project " << settings << ">" << Qt::endl;
    writeCells(out, table, attributes);
    out << "</project>" << Qt::endl;
}

QList<int> cellOf(const QStringList &rowAndColumn)
{
    if (rowAndColumn.size() < 2)
        return {-1, -1};
    return {rowAndColumn.at(0).toInt(), rowAndColumn.at(1).toInt()};
}

std::optional<int> numberOf(const QString &text)
{
    return text.isEmpty() ? std::nullopt : std::optional<int>(text.toInt());
}

ProjectSettings settingsOf(const QDomElement &project)
{
    const QString banks = project.attribute("banks");
    return {
        project.attribute("show"),
        project.attribute("showname"),
        banks.isEmpty() ? QStringList() : banks.split(","),
        cellOf(project.attribute("switch").split(",")),
        project.attribute("export"),
        project.attribute("deviceid"),
        project.attribute("type") == "midi",
        project.attribute("layout") == "1",
        numberOf(project.attribute("offcolor")),
        numberOf(project.attribute("oncolor")),
    };
}

void layOn(QAbstractItemModel &table, const QVector<CellAttribute> &attributes, const QDomDocument &project,
           const std::function<void(int)> &tick)
{
    const QDomNodeList keys = project.elementsByTagName("key");
    for (int i = 0; i < keys.size(); ++i) {
        const QDomElement key = keys.at(i).toElement();
        const QModelIndex cell = table.index(key.attribute("row").toInt(), key.attribute("column").toInt());
        tick(key.attribute("id").toInt());
        for (const auto &[name, role] : attributes)
            table.setData(cell, key.attribute(name), role);
    }
}

} // namespace

void writeProject(QTextStream &out, const PadsProject &project)
{
    const QString settings =
        attribute("type", "pads") + attribute("show", project.show) + attribute("showname", project.showName)
        + attribute("export", project.exportName) + attribute("layout", project.has16Pads ? 1 : 0)
        + attribute("banks", project.banks.join(","));
    writeProject(out, settings, project.pads, padAttributes());
}

void writeProject(QTextStream &out, const MidiProject &project)
{
    const QString switchKey = QString::number(project.switchKey.value(0, -1)) + ","
                              + QString::number(project.switchKey.value(1, -1));
    const QString settings = attribute("deviceid", project.device) + attribute("type", "midi")
                             + attribute("show", project.show) + attribute("showname", project.showName)
                             + attribute("switch", switchKey) + attribute("offcolor", project.offColor)
                             + attribute("oncolor", project.onColor)
                             + attribute("export", project.exportName);
    writeProject(out, settings, project.grid, keyAttributes());
}

std::optional<QDomDocument> readProject(const QString &path)
{
    const auto bytes = readFile(path, LongestProject);
    return bytes ? std::optional<QDomDocument>(parseXml(*bytes)) : std::nullopt;
}

QList<ProjectSettings> projectSettings(const QDomDocument &project)
{
    QList<ProjectSettings> settings;
    const QDomNodeList elements = project.elementsByTagName("project");
    for (int i = 0; i < elements.size(); ++i)
        settings.append(settingsOf(elements.at(i).toElement()));
    return settings;
}

void layOnPads(const QDomDocument &project, QAbstractItemModel &pads, const std::function<void(int)> &tick)
{
    layOn(pads, padAttributes(), project, tick);
}

void layOnGrid(const QDomDocument &project, QAbstractItemModel &grid, const std::function<void(int)> &tick)
{
    layOn(grid, keyAttributes(), project, tick);
}

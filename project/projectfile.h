#pragma once

#include "devices/grid.h"
#include "tables/cellfields.h"

#include <QList>
#include <QStringList>
#include <QVector>

#include <functional>
#include <optional>

class QAbstractItemModel;
class QTextStream;

/** The settings of a project; what a file lacks is empty. A project of one output has none of those of the other. */
struct ProjectSettings
{
    bool isMidi = false; ///< of the MIDI Mapping output, or of the Pads Page output
    QString show;        ///< full path of the show's live.ini
    QString showName;    ///< name of the show
    QString exportName;  ///< name of the Pads Page or mapping

    bool has16Pads = false; ///< 16 pads to a bank, or 8
    QStringList banks;      ///< names of the banks, as many as the file has

    QString device;              ///< identifier of the controller
    Grid::Cell switchKey;        ///< cell of the Switch key
    std::optional<int> offColor; ///< position of the default off colour in the palette
    std::optional<int> onColor;  ///< position of the default on colour in the palette
};

/** A cell of a project's table: its place, and its texts by the keys of CellFields. */
struct ProjectCell
{
    int row = 0;
    int column = 0;
    Record texts; ///< without those that a file lacks
};

/** What a file holds. */
struct Project
{
    QList<ProjectSettings> settings; ///< of all its "project" elements, in their order
    QVector<ProjectCell> cells;      ///< of all its "key" elements, wherever they stand, in their order
};

/** All cells of a table row by row, hidden and empty ones too, with those of the fields that are saved. */
QVector<ProjectCell> cellsOf(const QAbstractItemModel &table, const CellFields::List &fields);

/**
 * Writes a project: its settings, then its cells.
 *
 * @param out    stream to write to, in its own codec; all texts go out unescaped, so a project with a double quote, an
 *               ampersand or an angle bracket in a name cannot be read again
 * @param cells  those of the output that the settings tell
 */
void writeProject(QTextStream &out, const ProjectSettings &settings, const QVector<ProjectCell> &cells);

/**
 * Reads a project from the bytes of a file.
 *
 * @return empty where they are not well-formed
 */
Project parseProject(const QByteArray &xml);

/**
 * Reads a project file.
 *
 * @param path  full path of the file
 * @return      what parseProject() makes of it; nothing where the file cannot be opened or is larger than any project
 */
std::optional<Project> readProject(const QString &path);

/**
 * Lays all cells of a project onto the pads table, in their order.
 *
 * @param pads  the table; a cell outside of it changes nothing
 * @param tick  called with the button number of each cell, -1 for an empty one
 */
void layOnPads(const Project &project, QAbstractItemModel &pads, const std::function<void(int)> &tick);

/** The same for the key grid, whose cells have availability, LED colours and blink as well. */
void layOnGrid(const Project &project, QAbstractItemModel &grid, const std::function<void(int)> &tick);

#pragma once

#include <QAbstractItemModel>
#include <QList>
#include <QStringList>

#include <functional>
#include <optional>

class QDomDocument;
class QTextStream;

/** A project of the Pads Page output. */
struct PadsProject
{
    QString show;       ///< full path of the show's live.ini
    QString showName;   ///< name of the show
    QString exportName; ///< name of the Pads Page
    bool has16Pads;     ///< 16 pads to a bank, or 8
    QStringList banks;  ///< names of the banks
    const QAbstractItemModel &pads;
};

/** A project of the MIDI Mapping output. */
struct MidiProject
{
    QString device;       ///< identifier of the controller
    QString show;         ///< full path of the show's live.ini
    QString showName;     ///< name of the show
    QList<int> switchKey; ///< row and column of the Switch key, -1 and -1 where there is none
    int offColor;         ///< position of the default off colour in the palette
    int onColor;          ///< position of the default on colour in the palette
    QString exportName;   ///< name of the mapping
    const QAbstractItemModel &grid;
};

/**
 * Writes a project: its settings, then every cell of its table, hidden and empty ones too.
 *
 * @param out  stream to write to, in its own codec; all texts go out unescaped, so a project with a double
 *             quote, an ampersand or an angle bracket in a name cannot be read again
 */
void writeProject(QTextStream &out, const PadsProject &project);
void writeProject(QTextStream &out, const MidiProject &project);

/** The settings of one "project" element; what the file lacks is empty. */
struct ProjectSettings
{
    QString show;                ///< full path of the show's live.ini
    QString showName;            ///< name of the show
    QStringList banks;           ///< names of the banks, as many as the file has; empty where it tells none
    QList<int> switchKey;        ///< row and column of the Switch key, always two numbers
    QString exportName;          ///< name of the Pads Page or mapping
    QString device;              ///< identifier of the controller
    bool isMidi = false;         ///< of the MIDI Mapping output, or of the Pads Page output
    bool has16Pads = false;      ///< 16 pads to a bank, or 8
    std::optional<int> offColor; ///< position of the default off colour in the palette
    std::optional<int> onColor;  ///< position of the default on colour in the palette
};

/**
 * Reads a project file.
 *
 * @param path  full path of the file
 * @return      its document, empty where it is not well-formed; nothing where the file cannot be opened or is
 *              larger than any project
 */
std::optional<QDomDocument> readProject(const QString &path);

/** The settings of all "project" elements of a document, in their order. */
QList<ProjectSettings> projectSettings(const QDomDocument &project);

/**
 * Lays all cells of a document onto the pads table, in their order.
 *
 * @param pads  the table; a cell outside of it changes nothing
 * @param tick  called with the button number of each cell, -1 for an empty one
 */
void layOnPads(const QDomDocument &project, QAbstractItemModel &pads, const std::function<void(int)> &tick);

/** The same for the key grid, whose cells have availability, LED colours and blink as well. */
void layOnGrid(const QDomDocument &project, QAbstractItemModel &grid, const std::function<void(int)> &tick);

#pragma once

#include "gesture.h"

#include <QStringList>
#include <QVector>

/**
 * The program's rules told a second time, as plain tables of records, to compare the window with.
 *
 * Shares no code with the program and knows no widget. All values are texts, as the program keeps them.
 */
namespace Rules {

/** A Live Button; its number is its position. */
struct Button
{
    QString title;
    QString page;
    QString color;
    bool isTicked = false;
};

/** A show on the disk. */
struct Show
{
    QString name;
    QString file;           ///< its live.ini
    bool exists = true;     ///< whether something lies there
    bool isReadable = true; ///< whether it can be opened
    QStringList pages;      ///< as the filter shows them
    QVector<Button> buttons;
};

/** A pad or a key; the lower half matters to keys alone. */
struct Cell
{
    QString name;
    QString dspname;
    QString page = "0";
    QString id = "-1";
    QString color = "#000000";

    QString avail = "1";
    QString off;
    QString on;
    QString blink = "0";
    QString textColor = "#ffffff";
};

/** A place in a table. */
struct At
{
    int row;
    int col;
};

struct Table
{
    int rows;
    int cols;
    QVector<Cell> cells;

    bool has(At at) const { return at.row >= 0 && at.row < rows && at.col >= 0 && at.col < cols; }
    Cell &at(At at) { return cells[at.row * cols + at.col]; }
    const Cell &at(At at) const { return cells.at(at.row * cols + at.col); }
    /** All of them, row by row. */
    QVector<At> places() const;
};

/** What a layout tells of a control. */
struct Control
{
    QString kind;
    QString name;
    QString led;
    bool hasColor = false;
    int row = 0;
    int col = 0;
};

struct Device
{
    QString id;
    QString name;
    QString fullRgb;
    QStringList colors;
    int off = 0;
    int on = 0;
    int top = 0;
    int left = 0;
    int bottom = 0;
    int right = 0;
    QVector<Control> controls; ///< pads, buttons, sliders, ignored ones, empty ones
};

struct Mapper
{
    QString device;
    QString name;
    QString path;
};

/** The machine and the window. */
struct World
{
    QString projectFolder;
    QString padsFolder;
    QString mapperFolder;
    QString today; ///< as mappings tell it
    QVector<Show> shows;
    QVector<Device> devices;
    QMap<QString, QString> files; ///< by path: what lies in the three folders

    QString title = "Zarvex";
    QString showName;
    QString showFile;
    QStringList pages;
    int page = -1;
    QVector<Button> buttons;
    Table pads{64, 2, {}};
    Table keys{12, 12, {}};
    QStringList banks;
    QString bankField;
    int bank = 0;
    bool has16Pads = false;
    QString pageName;
    bool isMidi = false;
    QString nameLabel = "Pad Page";
    int width = 650;
    QVector<Mapper> mappers;
    int device = 0;
    QStringList mapperNames; ///< those of the device
    int mapper = 0;
    bool showsPalette = true;
    QStringList palette;
    int off = 0;
    int on = 0;
    int switchRow = -1;
    int switchCol = -1;
};

/** A dialog that comes, and the answer that the gesture has for it. */
struct Question
{
    enum Kind { Box, Folder, SaveFile, OpenFile, Color };

    Kind kind = Box;
    QString text; ///< of a box; the first colour of a colour dialog
    QString informative;
    QString buttons = "Ok"; ///< the last one is the default
    QString answer;         ///< a button or "Escape", a path, a colour; an empty one cancels
    bool isWarning = false;
};

struct Outcome
{
    bool isPossible = true; ///< where not, the gesture is passed over
    bool isTaken = true;    ///< whether the view takes the drop
    QVector<Question> questions;
    QStringList menu; ///< entries of the menu that pops up, in words; submenus' have theirs in front
    QStringList pick; ///< what is picked there: texts on the way
    QString focus;    ///< object name, where it is told
    bool hasLeft = false;
};

const Outcome Impossible{false, true, {}, {}, {}, {}, false};

/** What a kind of gesture does; see play(). */
using Rule = Outcome (*)(World &world, const Gesture &gesture);

/** What leaves the focus on a widget, and nothing else to be told. */
Outcome focusOn(const char *name);

/** A notice with an OK button comes. */
void tell(Outcome &outcome, const QString &text, const QString &informative = {});

/** Asks, where something lies there, about overwriting it; whether to write. */
bool mayWrite(const World &world, const QString &path, const QString &what, const Gesture &gesture,
              Outcome &outcome);

QStringList freshBanks();

/** All kinds of gestures. */
QStringList verbs();

/** What the gesture does; the world is changed where it is possible. */
Outcome play(World &world, const Gesture &gesture);

/** The window as it is at the start. */
void start(World &world);

// tables
QString colorName(const QString &kept);
QString padTip(const World &world, At at);
QString keyTip(const World &world, At at);
int padFlags(const Cell &pad);
int keyFlags(const Cell &key);
bool isRowHidden(const World &world, int button);
bool holdsWork(const World &world);
bool isEmpty(const Table &table);
void tick(World &world, int button);
void retick(World &world);
void untickAll(World &world);
void emptyPads(World &world);
void emptyKeys(World &world);
void renamePad(Cell &pad, int row, const QString &name);
QMap<QString, Rule> rulesOfTables();

// devices
QVector<Device> readDevices();
QString restingLabel(At at);
bool hasKey(const Device &device, At at);
void readMappers(World &world);
void pickDevice(World &world, int index);
QMap<QString, Rule> rulesOfDevices();

// files
void exportPage(World &world, const Gesture &gesture, Outcome &outcome);
void exportMapping(World &world, const Gesture &gesture, Outcome &outcome);
void saveProject(World &world, const Gesture &gesture, Outcome &outcome);
bool loadProject(World &world, const QString &path);
bool loadShow(World &world, const QString &file);
void showOutput(World &world, bool isMidi, const QString &label);

} // namespace Rules

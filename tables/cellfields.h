#pragma once

#include "tables/dragpayload.h"
#include "tables/record.h"

#include <QVariant>
#include <QVector>

/** A value that a table keeps for each of its cells, in the cell's record. */
struct CellField
{
    int role;             ///< by which data() and setData() know it
    QString key;          ///< its name in the record, and in a project
    QString inNewRow;     ///< its text in a new row
    QString emptied = {}; ///< its text once the cell has lost its Live Button; null for the cell's label
    int place = DragPayload::NotDragged; ///< its position in a drag; what is dragged swaps and is saved, too
};

/**
 * The values of the cells of each table. To add one to these lists is all that it takes: the models keep it, drag, drop,
 * swap and clear it, and a project holds it.
 */
namespace CellFields {

using List = QVector<CellField>;

/** Those of a Live Button in its table; a project holds none of them. */
const List &ofLiveButtons();
/** Those of a pad, in the order of a project. A key has all of them, too: they are what a Live Button brings. */
const List &ofPads();
/** Those of a key, in the order of a project. */
const List &ofKeys();

/** The fields that are dragged, swapped and saved, in the order of the list. */
List dragged(const List &fields);

/**
 * A cell's value, as data() of a model gives it: a colour for a role of colours, a tick for that of ticks, else a text.
 *
 * @return invalid for a role that the table lacks; the display text is the edit text
 */
QVariant value(const List &fields, const Record &cell, int role);

/**
 * Keeps the text of a value, as setData() of a model does; of a tick, whether it is anything but 0.
 *
 * @return false, and the cell as it was, for a role that the table lacks
 */
bool store(const List &fields, Record &cell, const QVariant &value, int role);

/** A cell of a new row. */
Record newCell(const List &fields);

/** How many texts the longest record of a drag has: that of a key. */
int longestRecord();

/**
 * The texts of a drag's record, behind row and column.
 *
 * @param origin  the mark of the table that the drag begins in
 */
QVector<DragField> dragTexts(const List &fields, const QString &origin);

} // namespace CellFields

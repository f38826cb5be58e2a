#pragma once

#include "tables/cellfields.h"

#include <QSet>
#include <QString>

class QAbstractItemModel;
class QModelIndex;

/** Which Live Buttons stand in a table of pads or keys, told by their numbers. */
namespace Assignments {

/** Whether no cell of the table holds a Live Button; a table without rows is empty. */
bool isEmpty(const QAbstractItemModel &table);

/**
 * The numbers of all Live Buttons in a table, as texts.
 *
 * @param columns  how many columns count, from the left
 */
QSet<QString> buttons(const QAbstractItemModel &table, int columns);

/**
 * Whether a Live Button stands in a table.
 *
 * @param button   button number; -1 asks for an empty cell
 * @param columns  how many columns count, from the left
 */
bool holds(const QAbstractItemModel &table, int button, int columns);

/** Label of an emptied pad: "PAD 1" to "PAD 8" by its row alone, in the second column as well. */
QString padLabel(int row);

/** Sets text and name of a cell to its label; all that a newly inserted cell lacks to be an empty one. */
void setLabel(QAbstractItemModel &table, const QModelIndex &cell, const QString &label);

/**
 * Takes the Live Button off a pad or key; LED colours, blink and availability stay.
 *
 * @param cell   a cell of the table; an invalid one changes nothing
 * @param label  text and name of the empty cell
 * @param color  colour text of the empty cell
 */
void clearCell(QAbstractItemModel &table, const QModelIndex &cell, const QString &label,
               const QString &color = QStringLiteral("#000000"));

/** What a pad or key held before a drop. */
struct Held
{
    bool isEmpty;
    int page;
    int button;
};

/**
 * Overwrites a cell with what is dropped on it. Where that comes from the same table, the dragged cell takes what the
 * target held, or loses all that is dragged if the target was empty.
 *
 * @param fields       the values of a cell of this table
 * @param target       where to; an invalid cell is not empty, and its texts are
 * @param sourceLabel  text and name of the dragged cell once it is empty
 * @return             what the target held
 */
Held drop(QAbstractItemModel &table, const CellFields::List &fields, const QModelIndex &target,
          const DragPayload &payload, const QString &sourceLabel);

} // namespace Assignments

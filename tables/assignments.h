#pragma once

#include <QMap>
#include <QSet>
#include <QString>
#include <QVector>

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

/** What a cell holds, one text for each of some roles. */
QMap<int, QString> textsOf(const QModelIndex &cell, const QVector<int> &roles);

/** Gives a cell of a table what textsOf() has told of another. */
void setTexts(QAbstractItemModel &table, const QModelIndex &cell, const QMap<int, QString> &texts);

} // namespace Assignments

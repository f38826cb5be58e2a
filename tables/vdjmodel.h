#pragma once

#include "tables/record.h"

#include <QAbstractTableModel>
#include <QVariant>
#include <QVector>

class DragPayload;

/**
 * The pads of a Pads Page: two columns, eight rows for each bank.
 *
 * Column 0 holds pads 1 to 8 of a bank, column 1 pads 9 to 16. Live Buttons are dropped in, filled pads
 * move and swap, and a filled pad's text is edited in place.
 */
class VDJModel final : public QAbstractTableModel
{
    Q_OBJECT

public:
    explicit VDJModel(QObject *parent = nullptr);
    /** A table of the given rows of two cells; a cell's keys are those that insertRows() sets. */
    explicit VDJModel(const QList<QList<QMap<QString, QString>>> &list, QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    /** Value of a pad for a role; invalid for a bad index and for a role that the table lacks. */
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    /**
     * Stores the value's text for a role.
     *
     * An empty text for display or edit becomes "PAD " and the row's number counted through all banks.
     *
     * @return false for a bad index, a tool tip, or a role that the table lacks; true for a background,
     *         which is taken and forgotten
     */
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    QStringList mimeTypes() const override;
    /** A DragPayload record of seven texts for each index, marked as coming from this table. */
    QMimeData *mimeData(const QModelIndexList &indexes) const override;
    /** Whether the data may be dropped here; never from another program. */
    bool canDropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                         const QModelIndex &parent) const override;
    /**
     * Overwrites a pad from the first record of a drag.
     *
     * A pad of this table then empties (target was empty) or takes the target's content (target was
     * filled). A drop beside the pads, with an invalid index, still ticks the Live Button, and still
     * blanks a pad of this table.
     *
     * @return false if the data is no DragPayload
     */
    bool dropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                      const QModelIndex &to) override;
    Qt::DropActions supportedDropActions() const override;
    /** Copy alone: after a move the view would blank the dragged pad. */
    Qt::DropActions supportedDragActions() const override;
    /** Adds rows of two empty pads. They are stored at the front, whatever the position; always true. */
    bool insertRows(int position, int count, const QModelIndex &parent = {}) override;
    /** Removes up to count rows from the position on; rows past the end are not missed. Always true. */
    bool removeRows(int position, int count, const QModelIndex &parent = {}) override;
    /** Every pad takes drops; a filled one can also be dragged and edited. */
    Qt::ItemFlags flags(const QModelIndex &index) const override;

    /** A copy of all rows. */
    QList<QList<QMap<QString, QString>>> getlist() const { return rows; }

signals:
    /** A Live Button, of row index in the Live Buttons table, was dropped on the pad row to (-1: beside). */
    void ItemDroped(int index, int to);
    /** A pad was moved to the empty pad in row to. */
    void ItemMoved(int to);
    /** A drop replaced the Live Button of number to; follows ItemDroped(). */
    void ItemToUncheck(int to);

private:
    QVariant toolTip(const QModelIndex &index) const;

    QVector<QVariant> sparevalues; // always empty
    QList<QList<QMap<QString, QString>>> rows;
};

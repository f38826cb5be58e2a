#pragma once

#include "tables/record.h"

#include <QAbstractTableModel>
#include <QVariant>
#include <QVector>

class DragPayload;

/**
 * The key grid of a pad controller: 12 by 12 cells, whatever the device.
 *
 * Which cells are keys of the device tells AvailableRole. Live Buttons are dropped in, filled keys move
 * and swap; a key also holds the colours and the blink mark of its LED.
 */
class Controller final : public QAbstractTableModel
{
    Q_OBJECT

public:
    explicit Controller(QObject *parent = nullptr);
    /** A table of the given rows of 12 cells; a cell's keys are those that insertRows() sets. */
    explicit Controller(const QList<QList<QMap<QString, QString>>> &list, QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    /** Value of a cell for a role; invalid for a bad index and for a role that the table lacks. */
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    /**
     * Stores the value's text for a role, an empty text as it is.
     *
     * @return false for a bad index, a tool tip, or a role that the table lacks; true for a background,
     *         which is taken and forgotten
     */
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    QStringList mimeTypes() const override;
    /** A DragPayload record of 11 texts for each index, marked as coming from this table. */
    QMimeData *mimeData(const QModelIndexList &indexes) const override;
    /** Whether the data may be dropped on a key; never on the lines between keys, nor from another program. */
    bool canDropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                         const QModelIndex &parent) const override;
    /**
     * Overwrites a key from the first record of a drag.
     *
     * A key of this table then empties (target was empty) or takes the target's content (target was
     * filled). A Live Button brings no LED colours, so the key falls back to the device's.
     *
     * @return false if the data is no DragPayload
     */
    bool dropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                      const QModelIndex &to) override;
    Qt::DropActions supportedDropActions() const override;
    /** Copy alone: after a move the view would blank the dragged key. */
    Qt::DropActions supportedDragActions() const override;
    /** Adds rows of 12 empty keys. They are stored at the front, whatever the position; always true. */
    bool insertRows(int position, int count, const QModelIndex &parent = {}) override;
    /**
     * Sweeps count times over 12 rows from the position on, removing every second row of what is left.
     *
     * Meant for emptying the whole table with removeRows(0, rowCount()). Always true.
     */
    bool removeRows(int position, int count, const QModelIndex &parent = {}) override;
    /** Keys of the device take drops; filled ones can be dragged. Other cells do nothing. */
    Qt::ItemFlags flags(const QModelIndex &index) const override;

    /** A copy of all rows. */
    QList<QList<QMap<QString, QString>>> getlist() const { return rows; }

signals:
    /** A Live Button, of row index in the Live Buttons table, was dropped on the key in row to, column col. */
    void ItemDroped(int index, int to, int col);
    /** A drop replaced the Live Button of number to; follows ItemDroped(). */
    void ItemToUncheck(int to);

private:
    QString celltext(int row, int col) const;
    QVariant toolTip(const QModelIndex &index) const;

    QVector<QVariant> sparevalues; // always empty
    QList<QList<QMap<QString, QString>>> rows;
};

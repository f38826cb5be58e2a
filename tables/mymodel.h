#pragma once

#include "tables/record.h"

#include <QAbstractTableModel>
#include <QVariant>
#include <QVector>

/**
 * The Live Buttons of the loaded show: one column, one row for each button.
 *
 * Rows are dragged out of it and never dropped back. A row's tick tells that the button is assigned;
 * the user cannot click it. As in all three tables, setData() emits no dataChanged().
 */
class MyModel final : public QAbstractTableModel
{
    Q_OBJECT

public:
    explicit MyModel(QObject *parent = nullptr);
    /** A table of the given rows; a record's keys are those that insertRows() sets. */
    explicit MyModel(const QList<QMap<QString, QString>> &list, QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    /** Value of a row for a role; invalid for a bad index and for a role that the table lacks. */
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    /**
     * Stores the value's text for a role.
     *
     * @return false for a bad index, a tool tip, or a role that the table lacks; true for a background,
     *         which is taken and forgotten
     */
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    QStringList mimeTypes() const override;
    /** A DragPayload record of 11 texts for each index, marked as coming from the Live Buttons. */
    QMimeData *mimeData(const QModelIndexList &indexes) const override;
    /**
     * Overwrites the parent's row from the first record of a drag.
     *
     * The texts go one position off from where mimeData() puts them. No view lets a drop get here.
     *
     * @return false if the data is no DragPayload
     */
    bool dropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                      const QModelIndex &parent) override;
    Qt::DropActions supportedDropActions() const override;
    /** Copy alone: after a move the view would blank the dragged row. */
    Qt::DropActions supportedDragActions() const override;
    /** Adds rows of default values. They are stored at the front, whatever the position; always true. */
    bool insertRows(int position, int count, const QModelIndex &parent = {}) override;
    /** Removes up to count rows from the position on; rows past the end are not missed. Always true. */
    bool removeRows(int position, int count, const QModelIndex &parent = {}) override;
    /** Selectable and draggable, neither editable nor checkable by the user. */
    Qt::ItemFlags flags(const QModelIndex &index) const override;

    /** A copy of all rows. */
    QList<QMap<QString, QString>> getlist() const { return rows; }

signals:
    /** A Live Button of row index was unticked by the user; as the rows are not checkable, it never comes. */
    void ItemUnchecked(int index);

private:
    QVector<QVariant> sparevalues; // always empty
    QList<QMap<QString, QString>> rows;
};

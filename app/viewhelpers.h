#pragma once

#include <QAbstractItemDelegate>
#include <QAbstractItemModel>
#include <QComboBox>
#include <QItemSelectionModel>
#include <QSize>
#include <QTableView>

/** Makes all rows of a combo box's popup 25 pixels high. */
inline void setTallRows(QComboBox &combo)
{
    for (int row = 0; row < combo.count(); ++row)
        combo.setItemData(row, QSize(25, 25), Qt::SizeHintRole);
}

/** Shows or hides a widget; one that is shown already is not styled anew, which costs at start-up. */
inline void setShown(QWidget &widget, bool isShown)
{
    if (widget.isHidden() == isShown)
        widget.setVisible(isShown);
}

/** Lets the Tab key stop at a widget or pass it over; a click and the program can give it the focus all the same. */
inline void letTabReach(QWidget &widget, bool isReached)
{
    const int policy = widget.focusPolicy() & ~Qt::TabFocus;
    widget.setFocusPolicy(static_cast<Qt::FocusPolicy>(isReached ? policy | Qt::TabFocus : policy));
}

/** Takes over the text of the cell that is being edited, and closes its editor. */
inline void commitEditor(QTableView &view)
{
    QWidget *editor = view.indexWidget(view.currentIndex());
    if (!editor)
        return;
    emit view.itemDelegate()->commitData(editor);
    emit view.itemDelegate()->closeEditor(editor);
}

/** Lets go of hidden cells: they are neither current nor selected; an editor there closes and keeps what was typed. */
inline void leaveHiddenCells(const QTableView &view)
{
    QItemSelectionModel *selection = view.selectionModel();
    const auto isHidden = [&view](const QModelIndex &cell) {
        return view.isRowHidden(cell.row()) || view.isColumnHidden(cell.column());
    };
    const QModelIndexList selected = selection->selectedIndexes();
    for (const QModelIndex &cell : selected) {
        if (isHidden(cell))
            selection->select(cell, QItemSelectionModel::Deselect);
    }
    if (selection->currentIndex().isValid() && isHidden(selection->currentIndex()))
        selection->clearCurrentIndex();
}

/**
 * Shows the rows of a table that match and hides the others, which are then neither current nor selected.
 *
 * The view's updates are off meanwhile: with them on, every row would be placed anew for every change.
 *
 * @param isShown  tells for a row number whether the row is to be seen
 */
template<typename Predicate>
void filterRows(QTableView &view, Predicate isShown)
{
    const bool updates = view.updatesEnabled();
    view.setUpdatesEnabled(false);
    for (int row = 0; row < view.model()->rowCount(); ++row)
        view.setRowHidden(row, !isShown(row));
    leaveHiddenCells(view);
    view.setUpdatesEnabled(updates);
}

#include "tables/tableview.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMouseEvent>

/** Neither hidden nor grey. */
bool TableView::isUsable(const QModelIndex &cell) const
{
    return (cell.flags() & Qt::ItemIsEnabled) && !isRowHidden(cell.row()) && !isColumnHidden(cell.column());
}

QModelIndex TableView::firstUsable() const
{
    for (int row = 0; row < model()->rowCount(); ++row) {
        for (int column = 0; column < model()->columnCount(); ++column) {
            if (const QModelIndex cell = model()->index(row, column); isUsable(cell))
                return cell;
        }
    }
    return {};
}

/** Unlike the view's own function it looks at no keys that are held: Ctrl+V and a drop select one cell alone. */
void TableView::goTo(const QModelIndex &cell)
{
    selectionModel()->setCurrentIndex(cell, QItemSelectionModel::ClearAndSelect);
}

bool TableView::isSearching() const
{
    return !m_typed.isEmpty() && m_sinceTyped.elapsed() <= QApplication::keyboardInputInterval();
}

void TableView::keyboardSearch(const QString &typed)
{
    m_typed = isSearching() ? m_typed + typed : typed;
    m_sinceTyped.start();
    const int columns = model()->columnCount();
    const int cells = model()->rowCount() * columns;
    if (typed.isEmpty() || cells == 0)
        return;

    const bool isOneLetter = m_typed.count(m_typed.at(0)) == m_typed.size();
    const QString beginning = isOneLetter ? m_typed.left(1) : m_typed;
    const QModelIndex current = currentIndex();
    const int start = current.isValid() ? current.row() * columns + current.column() : 0;
    const int first = start + (isOneLetter && current.isValid() ? 1 : 0);
    for (int i = 0; i < cells; ++i) {
        const int place = (first + i) % cells;
        const QModelIndex cell = model()->index(place / columns, place % columns);
        if (isUsable(cell) && cell.data().toString().startsWith(beginning, Qt::CaseInsensitive)) {
            goTo(cell);
            return;
        }
    }
}

bool TableView::edit(const QModelIndex &index, EditTrigger trigger, QEvent *event)
{
    // A letter that goes on with a search is none of what the letters before it have found.
    return !(trigger == AnyKeyPressed && isSearching()) && QTableView::edit(index, trigger, event);
}

QModelIndex TableView::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    // The library would begin in the corner, which is no key of any device.
    return currentIndex().isValid() ? QTableView::moveCursor(action, modifiers) : firstUsable();
}

void TableView::focusInEvent(QFocusEvent *event)
{
    QTableView::focusInEvent(event);
    const bool isByTab = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    if (!isByTab || selectionModel()->hasSelection())
        return;
    // Nothing but the selection shows where the keys lead to.
    if (const QModelIndex cell = currentIndex().isValid() ? currentIndex() : firstUsable(); isUsable(cell))
        goTo(cell);
}

bool TableView::event(QEvent *event)
{
    if (event->type() != QEvent::ContextMenu || contextMenuPolicy() != Qt::CustomContextMenu
        || static_cast<QContextMenuEvent *>(event)->reason() != QContextMenuEvent::Keyboard)
        return QTableView::event(event);
    askForMenu();
    return true;
}

/** As a right-click on the current cell does. Without one, the library would ask for the middle of the view. */
void TableView::askForMenu()
{
    const QModelIndex cell = currentIndex();
    if (!cell.isValid())
        return;
    scrollTo(cell);
    if (!selectionModel()->isSelected(cell))
        goTo(cell);
    emit customContextMenuRequested(visualRect(cell).center());
}

void TableView::mousePressEvent(QMouseEvent *event)
{
    m_pressed = indexAt(event->pos());
    // As on the bare view. Grey cells would do nothing.
    if (event->button() == Qt::LeftButton && m_pressed.isValid() && !isUsable(m_pressed))
        clearSelection();
    QTableView::mousePressEvent(event);
}

void TableView::mouseMoveEvent(QMouseEvent *event)
{
    // The library drags whatever is selected, wherever and with whatever button the mouse was pressed.
    const bool isPressedDraggable = QModelIndex(m_pressed).flags().testFlag(Qt::ItemIsDragEnabled)
                                    && selectionModel()->isSelected(m_pressed);
    const bool wasEnabled = dragEnabled();
    setDragEnabled(wasEnabled && (isPressedDraggable || event->buttons() == Qt::NoButton));
    QTableView::mouseMoveEvent(event);
    setDragEnabled(wasEnabled);
}

void TableView::dropEvent(QDropEvent *event)
{
    const QModelIndex target = indexAt(event->pos());
    QTableView::dropEvent(event);
    // With Ctrl or Shift held, other cells would stay selected, and commands would work on them too.
    if (event->isAccepted() && selectionMode() == ExtendedSelection && isUsable(target))
        goTo(target);
}

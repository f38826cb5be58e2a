#include "tables/disabledcells.h"

#include <QAbstractItemView>
#include <QMouseEvent>

DisabledCells::DisabledCells(QAbstractItemView *view) : QObject(view), m_view(view)
{
    view->viewport()->installEventFilter(this);
}

bool DisabledCells::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::MouseButtonPress) {
        const auto *press = static_cast<QMouseEvent *>(event);
        const QModelIndex cell = m_view->indexAt(press->pos());
        if (press->button() == Qt::LeftButton && cell.isValid() && !(cell.flags() & Qt::ItemIsEnabled))
            m_view->clearSelection();
    }
    return QObject::eventFilter(watched, event);
}

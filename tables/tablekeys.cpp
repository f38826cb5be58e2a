#include "tables/tablekeys.h"

#include <QAbstractItemView>
#include <QKeyEvent>

TableKeys::TableKeys(QAbstractItemView *view) : QObject(view)
{
    view->installEventFilter(this);
}

bool TableKeys::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return QObject::eventFilter(watched, event);

    const auto *press = static_cast<QKeyEvent *>(event);
    const bool isPlain = (press->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (press->matches(QKeySequence::Copy))
        emit copyPressed();
    else if (press->matches(QKeySequence::Paste))
        emit pastePressed();
    else if (press->key() == Qt::Key_Delete && isPlain)
        emit deletePressed();
    else
        return QObject::eventFilter(watched, event);
    return true;
}

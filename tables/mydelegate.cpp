#include "tables/mydelegate.h"

#include "devices/grid.h"
#include "devices/keytooltip.h"
#include "tables/roles.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

namespace {

/** Three corners are no keys of any device; the first one obeys its availability, as it always has. */
bool isPlain(const QModelIndex &index)
{
    constexpr int Last = Grid::Size - 1;
    const bool isCorner = (index.row() == 0 && index.column() == Last)
                          || (index.row() == Last && (index.column() == 0 || index.column() == Last));
    return isCorner || index.data(AvailableRole).toString() == QLatin1String("0");
}

QColor backgroundOf(QStyle::State state)
{
    if (state & QStyle::State_Selected)
        return QColor("#404040");
    return state & QStyle::State_MouseOver ? QColor("#202020") : QColor(Qt::black);
}

void paintSwatch(QPainter &painter, const QRect &cell, const QColor &color)
{
    constexpr int LastPixel = 14;
    const int top = cell.top() + (cell.bottom() - cell.top() - LastPixel) / 2;
    painter.fillRect(
        QRect(QPoint(cell.left() + 5, top), QPoint(cell.left() + 5 + LastPixel, top + LastPixel)), color);
}

void paintText(QPainter &painter, const QRect &cell, const QColor &color, const QString &text)
{
    QPen pen(color);
    pen.setWidth(2);
    painter.setPen(pen);
    painter.drawText(QRect(QPoint(cell.left() + 25, cell.top()), QPoint(cell.right() - 5, cell.bottom())),
                     Qt::AlignLeft | Qt::AlignVCenter, text);
}

} // namespace

Mydelegate::Mydelegate(QObject *parent) : QStyledItemDelegate(parent) {}

void Mydelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const QString name = index.data(Qt::EditRole).toString();
    painter->save();
    if (isPlain(index)) {
        painter->fillRect(option.rect, QColor("#303030"));
        paintText(*painter, option.rect, QColor("#909090"), name);
    } else {
        painter->fillRect(option.rect, backgroundOf(option.state));
        paintSwatch(*painter, option.rect, QColor(index.data(Qt::DecorationRole).toString()));
        paintText(*painter, option.rect, Qt::white, name);
    }
    painter->restore();
}

bool Mydelegate::helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                           const QModelIndex &index)
{
    if (event->type() != QEvent::ToolTip || !index.isValid())
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    const QString text = keyToolTip(index, index.data(Qt::EditRole).toString().toHtmlEscaped());
    const QRect cell = view->visualRect(index);
    QToolTip::showText(event->globalPos(), text, view, {view->mapToGlobal(cell.topLeft()), cell.size()});
    event->setAccepted(!text.isEmpty());
    return event->isAccepted();
}

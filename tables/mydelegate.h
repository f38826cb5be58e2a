#pragma once

#include <QStyledItemDelegate>

/**
 * Paints the cells of the device grid, and shows their tool tips.
 *
 * A key is black, with a swatch of its colour and white text; a cell without a key is flat grey with dim
 * text. So are three corners of the grid, whatever the model says of them; the upper left one is not.
 */
class Mydelegate final : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit Mydelegate(QObject *parent = nullptr);

    /** Paints one cell of a Controller; selection wins over hover, and nothing marks the focus. */
    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    /** Shows a key's tool tip, in which a name is but a name: the model's is rich text with the name as it is. */
    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                   const QModelIndex &index) override;
};

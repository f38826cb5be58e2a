#pragma once

#include <QObject>

class QAbstractItemView;

/**
 * Clears a view's selection where the left button is pressed on a disabled cell, as it is on the bare view. Left
 * selected, other cells would be dragged from there: the view drags whatever is selected.
 */
class DisabledCells final : public QObject
{
    Q_OBJECT

public:
    /** Watches a view, and lives as long as it. */
    explicit DisabledCells(QAbstractItemView *view);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QAbstractItemView *m_view;
};

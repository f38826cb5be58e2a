#pragma once

#include <QModelIndex>
#include <QString>

/**
 * The tool tip of a key, as rich text: its label, its Live Button and the colours of its LED.
 *
 * @param key   a cell of the grid
 * @param name  the Live Button's name as it shall stand in rich text; escaped it is read as a name, whatever is in it
 * @return      empty for an empty key and for one that the device lacks
 */
QString keyToolTip(const QModelIndex &key, const QString &name);

/** Label of a cell in its tool tip: that of the grid, but for four cells beside the bands, which the grid leaves empty. */
QString keyLabel(int row, int col);

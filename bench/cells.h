#pragma once

class QAbstractItemModel;

/** Puts a Live Button on every cell of the pads or of the key grid. */
void fill(QAbstractItemModel &table);

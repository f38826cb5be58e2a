#include "cells.h"

#include "showfile.h"
#include "tables/roles.h"

#include <QAbstractItemModel>

void fill(QAbstractItemModel &table)
{
    for (int row = 0; row < table.rowCount(); ++row) {
        for (int column = 0; column < table.columnCount(); ++column) {
            const QModelIndex cell = table.index(row, column);
            const int button = row * table.columnCount() + column;
            table.setData(cell, QString("Scene %1").arg(button), Qt::EditRole);
            table.setData(cell, QString::number(button / ButtonsPerPage + 1), PageRole);
            table.setData(cell, QString("Live Button %1").arg(button), DisplayNameRole);
            table.setData(cell, QString::number(button), ButtonRole);
            table.setData(cell, "#FF8000", Qt::DecorationRole);
        }
    }
}

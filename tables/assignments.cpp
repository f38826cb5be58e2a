#include "tables/assignments.h"

#include "tables/padbanks.h"
#include "tables/roles.h"

#include <QAbstractItemModel>

QSet<QString> Assignments::buttons(const QAbstractItemModel &table, int columns)
{
    QSet<QString> buttons;
    for (int row = 0; row < table.rowCount(); ++row) {
        for (int column = 0; column < columns; ++column) {
            const QVariant button = table.index(row, column).data(ButtonRole);
            if (button.toInt() >= 0)
                buttons.insert(button.toString());
        }
    }
    return buttons;
}

bool Assignments::isEmpty(const QAbstractItemModel &table)
{
    return buttons(table, table.columnCount()).isEmpty();
}

bool Assignments::holds(const QAbstractItemModel &table, int button, int columns)
{
    for (int row = 0; row < table.rowCount(); ++row) {
        for (int column = 0; column < columns; ++column) {
            if (table.index(row, column).data(ButtonRole).toInt() == button)
                return true;
        }
    }
    return false;
}

QString Assignments::padLabel(int row)
{
    return "PAD " + QString::number(row % PadBanks::RowsPerBank + 1);
}

void Assignments::setLabel(QAbstractItemModel &table, const QModelIndex &cell, const QString &label)
{
    table.setData(cell, label, Qt::EditRole);
    table.setData(cell, label, DisplayNameRole);
}

void Assignments::clearCell(QAbstractItemModel &table, const QModelIndex &cell, const QString &label,
                            const QString &color)
{
    setLabel(table, cell, label);
    table.setData(cell, "0", PageRole);
    table.setData(cell, "-1", ButtonRole);
    table.setData(cell, color, Qt::DecorationRole);
}

QMap<int, QString> Assignments::textsOf(const QModelIndex &cell, const QVector<int> &roles)
{
    QMap<int, QString> texts;
    for (const int role : roles)
        texts.insert(role, cell.data(role).toString());
    return texts;
}

void Assignments::setTexts(QAbstractItemModel &table, const QModelIndex &cell,
                           const QMap<int, QString> &texts)
{
    for (auto text = texts.cbegin(); text != texts.cend(); ++text)
        table.setData(cell, text.value(), text.key());
}

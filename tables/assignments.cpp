#include "tables/assignments.h"

#include "tables/padbanks.h"
#include "tables/roles.h"

#include <QAbstractItemModel>
#include <QMap>

namespace {

/** What a field has in a cell without a Live Button. */
QString emptied(const CellField &field, const QString &label)
{
    return field.emptied.isNull() ? label : field.emptied;
}

} // namespace

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
    for (const CellField &field : CellFields::ofPads()) {
        const bool isColor = field.role == Qt::DecorationRole;
        table.setData(cell, isColor ? color : emptied(field, label), field.role);
    }
}

Assignments::Held Assignments::drop(QAbstractItemModel &table, const CellFields::List &fields,
                                    const QModelIndex &target, const DragPayload &payload,
                                    const QString &sourceLabel)
{
    const CellFields::List dragged = CellFields::dragged(fields);
    QMap<int, QString> before; // by role
    for (const CellField &field : dragged) {
        before.insert(field.role, target.data(field.role).toString());
        table.setData(target, payload.text(field.place), field.role);
    }
    const QString button = before.value(ButtonRole);
    const Held held = {button == QLatin1String("-1"), before.value(PageRole).toInt(), button.toInt()};
    if (!payload.isMove())
        return held;

    const QModelIndex source = table.index(payload.sourceRow(), payload.sourceColumn());
    for (const CellField &field : dragged)
        table.setData(source, held.isEmpty ? emptied(field, sourceLabel) : before.value(field.role),
                      field.role);
    return held;
}

#include "tables/controller.h"

#include "devices/keytooltip.h"
#include "tables/assignments.h"
#include "tables/roles.h"

#include <QColor>
#include <QMimeData>

namespace {

constexpr int Columns = 12;
constexpr int RowsPerSweep = 12;

} // namespace

Controller::Controller(QObject *parent) : QAbstractTableModel(parent) {}

Controller::Controller(const QList<QList<QMap<QString, QString>>> &list, QObject *parent)
    : QAbstractTableModel(parent), rows(list)
{
}

int Controller::rowCount(const QModelIndex & /*parent*/) const
{
    return rows.size();
}

int Controller::columnCount(const QModelIndex & /*parent*/) const
{
    return Columns;
}

QVariant Controller::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= rows.size())
        return {};
    if (role == Qt::ToolTipRole)
        return toolTip(index);
    if (role == Qt::BackgroundRole)
        return QColor(Qt::white);
    return CellFields::value(CellFields::ofKeys(), rows.at(index.row()).value(index.column()), role);
}

QVariant Controller::toolTip(const QModelIndex &index) const
{
    const QString text = keyToolTip(index, index.data(Qt::EditRole).toString());
    return text.isEmpty() ? QVariant() : text;
}

bool Controller::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!index.isValid() || index.row() >= rows.size() || index.column() >= rows.at(index.row()).size())
        return false;
    if (role == Qt::BackgroundRole)
        return true;
    return CellFields::store(CellFields::ofKeys(), rows[index.row()][index.column()], value, role);
}

QVariant Controller::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole)
        return {};
    if (orientation == Qt::Vertical)
        return QString();
    return section == 0 ? QVariant(QStringLiteral("Color")) : QVariant();
}

QStringList Controller::mimeTypes() const
{
    return DragPayload::mimeTypes();
}

QMimeData *Controller::mimeData(const QModelIndexList &indexes) const
{
    static const QVector<DragField> texts = CellFields::dragTexts(CellFields::ofKeys(), QStringLiteral("0"));
    return createDragData(indexes, texts);
}

bool Controller::canDropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                                 const QModelIndex &parent) const
{
    return parent.isValid() && DragPayload::isOfThisProgram(data)
           && QAbstractTableModel::canDropMimeData(data, action, row, column, parent);
}

bool Controller::dropMimeData(const QMimeData *data, Qt::DropAction action, int /*row*/, int /*column*/,
                              const QModelIndex &to)
{
    if (action == Qt::IgnoreAction)
        return true;
    const auto payload = DragPayload::fromMime(data);
    if (!payload)
        return false;

    const Assignments::Held held =
        Assignments::drop(*this, CellFields::ofKeys(), index(to.row(), to.column()), *payload,
                          celltext(payload->sourceRow(), payload->sourceColumn()));
    if (payload->isMove())
        return true;

    emit ItemDroped(payload->sourceRow(), to.row(), to.column());
    if (payload->isLiveButton() && held.page >= 1)
        emit ItemToUncheck(held.button);
    return true;
}

Qt::DropActions Controller::supportedDropActions() const
{
    return Qt::CopyAction | Qt::MoveAction;
}

Qt::DropActions Controller::supportedDragActions() const
{
    return Qt::CopyAction;
}

bool Controller::insertRows(int position, int count, const QModelIndex & /*parent*/)
{
    static const Record blank = CellFields::newCell(CellFields::ofKeys());
    static const QList<Record> blankRow = QVector<Record>(Columns, blank).toList();

    beginInsertRows({}, position, position + count - 1);
    for (int i = 0; i < count; ++i)
        rows.prepend(blankRow);
    endInsertRows();
    return true;
}

bool Controller::removeRows(int position, int count, const QModelIndex & /*parent*/)
{
    beginRemoveRows({}, position, position + count - 1);
    bool removed = true;
    for (int sweep = 0; sweep < count && removed; ++sweep) {
        removed = false;
        for (int i = qMax(position, 0); i < position + RowsPerSweep && i < rows.size(); ++i) {
            rows.removeAt(i);
            removed = true;
        }
    }
    endRemoveRows();
    return true;
}

Qt::ItemFlags Controller::flags(const QModelIndex &index) const
{
    const bool empty = index.data(PageRole).toString() == QLatin1String("0");
    const bool available = index.data(AvailableRole).toString() == QLatin1String("1");
    const Qt::ItemFlags base = QAbstractTableModel::flags(index);
    const Qt::ItemFlags key = base | Qt::ItemIsSelectable | Qt::ItemIsDropEnabled | Qt::ItemIsEnabled;

    if (available)
        return empty ? key : key | Qt::ItemIsDragEnabled;
    if (empty)
        return base & ~(Qt::ItemIsSelectable | Qt::ItemIsEnabled);
    return base & ~Qt::ItemFlags(Qt::ItemIsEnabled);
}

QString Controller::celltext(int row, int col) const
{
    return keyLabel(row, col);
}

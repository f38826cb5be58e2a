#include "tables/vdjmodel.h"

#include "tables/assignments.h"
#include "tables/roles.h"

#include <QColor>
#include <QMimeData>

namespace {

constexpr int Columns = 2;

QString numberedThroughAllBanks(int row)
{
    return QStringLiteral("PAD ") + QString::number(row + 1);
}

} // namespace

VDJModel::VDJModel(QObject *parent) : QAbstractTableModel(parent) {}

VDJModel::VDJModel(const QList<QList<QMap<QString, QString>>> &list, QObject *parent)
    : QAbstractTableModel(parent), rows(list)
{
}

int VDJModel::rowCount(const QModelIndex & /*parent*/) const
{
    return rows.size();
}

int VDJModel::columnCount(const QModelIndex & /*parent*/) const
{
    return Columns;
}

QVariant VDJModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= rows.size())
        return {};
    if (role == Qt::ToolTipRole)
        return toolTip(index);
    if (role == Qt::BackgroundRole)
        return QColor(Qt::white);
    return CellFields::value(CellFields::ofPads(), rows.at(index.row()).value(index.column()), role);
}

QVariant VDJModel::toolTip(const QModelIndex &index) const
{
    if (index.data(ButtonRole).toString() == QLatin1String("-1"))
        return {};
    return QString(numberedThroughAllBanks(index.row())
                   + " \nLive Button: " + index.data(DisplayNameRole).toString()
                   + " \nDisplay Text: " + index.data(Qt::EditRole).toString()
                   + "\n\nDouble-click to edit Text\nRight-click to Remove");
}

bool VDJModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!index.isValid() || index.row() >= rows.size() || index.column() >= rows.at(index.row()).size())
        return false;
    if (role == Qt::BackgroundRole)
        return true;
    const bool isText = role == Qt::DisplayRole || role == Qt::EditRole;
    const QVariant kept = isText && value.toString().isEmpty() ? numberedThroughAllBanks(index.row()) : value;
    return CellFields::store(CellFields::ofPads(), rows[index.row()][index.column()], kept, role);
}

QVariant VDJModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal)
        return {};
    switch (section) {
    case 0:
        return QStringLiteral("Color");
    case 1:
        return QStringLiteral("Name");
    default:
        return {};
    }
}

QStringList VDJModel::mimeTypes() const
{
    return DragPayload::mimeTypes();
}

QMimeData *VDJModel::mimeData(const QModelIndexList &indexes) const
{
    static const QVector<DragField> texts = CellFields::dragTexts(CellFields::ofPads(), QStringLiteral("0"));
    return createDragData(indexes, texts);
}

bool VDJModel::canDropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                               const QModelIndex &parent) const
{
    return DragPayload::isOfThisProgram(data)
           && QAbstractTableModel::canDropMimeData(data, action, row, column, parent);
}

bool VDJModel::dropMimeData(const QMimeData *data, Qt::DropAction action, int /*row*/, int /*column*/,
                            const QModelIndex &to)
{
    if (action == Qt::IgnoreAction)
        return true;
    const auto payload = DragPayload::fromMime(data);
    if (!payload)
        return false;

    const Assignments::Held held =
        Assignments::drop(*this, CellFields::ofPads(), index(to.row(), to.column()), *payload,
                          Assignments::padLabel(payload->sourceRow()));
    if (payload->isMove()) {
        if (held.isEmpty)
            emit ItemMoved(to.row());
        return true;
    }

    emit ItemDroped(payload->sourceRow(), to.row());
    if (payload->isLiveButton() && held.page >= 1)
        emit ItemToUncheck(held.button);
    return true;
}

Qt::DropActions VDJModel::supportedDropActions() const
{
    return Qt::CopyAction | Qt::MoveAction;
}

Qt::DropActions VDJModel::supportedDragActions() const
{
    return Qt::CopyAction;
}

bool VDJModel::insertRows(int position, int count, const QModelIndex & /*parent*/)
{
    static const Record blank = CellFields::newCell(CellFields::ofPads());

    beginInsertRows({}, position, position + count - 1);
    for (int i = 0; i < count; ++i)
        rows.prepend({blank, blank});
    endInsertRows();
    return true;
}

bool VDJModel::removeRows(int position, int count, const QModelIndex & /*parent*/)
{
    beginRemoveRows({}, position, position + count - 1);
    for (int i = 0; i < count && position >= 0 && position < rows.size(); ++i)
        rows.removeAt(position);
    endRemoveRows();
    return true;
}

Qt::ItemFlags VDJModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags base =
        QAbstractTableModel::flags(index) | Qt::ItemIsSelectable | Qt::ItemIsDropEnabled;
    if (index.data(PageRole).toString() == QLatin1String("0"))
        return base;
    return base | Qt::ItemIsEditable | Qt::ItemIsDragEnabled;
}

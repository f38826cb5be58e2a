#include "tables/mymodel.h"

#include "tables/cellfields.h"

#include <QColor>
#include <QMimeData>

MyModel::MyModel(QObject *parent) : QAbstractTableModel(parent) {}

MyModel::MyModel(const QList<QMap<QString, QString>> &list, QObject *parent)
    : QAbstractTableModel(parent), rows(list)
{
}

int MyModel::rowCount(const QModelIndex & /*parent*/) const
{
    return rows.size();
}

int MyModel::columnCount(const QModelIndex & /*parent*/) const
{
    return 1;
}

QVariant MyModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= rows.size() || index.column() != 0)
        return {};
    if (role == Qt::ToolTipRole)
        return QStringLiteral("Drag a Live Button and Drop to a VirtualDJ  Pad");
    if (role == Qt::BackgroundRole)
        return QColor(Qt::white);
    return CellFields::value(CellFields::ofLiveButtons(), rows.at(index.row()), role);
}

bool MyModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!index.isValid() || index.column() != 0 || index.row() >= rows.size())
        return false;
    if (role == Qt::BackgroundRole)
        return true;
    return CellFields::store(CellFields::ofLiveButtons(), rows[index.row()], value, role);
}

QVariant MyModel::headerData(int section, Qt::Orientation orientation, int role) const
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

QStringList MyModel::mimeTypes() const
{
    return DragPayload::mimeTypes();
}

QMimeData *MyModel::mimeData(const QModelIndexList &indexes) const
{
    static const QVector<DragField> texts = [] {
        auto record = CellFields::dragTexts(CellFields::ofLiveButtons(), QStringLiteral("1"));
        // A key that takes it is there, and has nothing else: null texts, so that its blink is empty and not "0".
        record.append(DragField::literal(QStringLiteral("1")));
        record.resize(CellFields::longestRecord() - DragPayload::Text);
        return record;
    }();
    return createDragData(indexes, texts);
}

bool MyModel::dropMimeData(const QMimeData *data, Qt::DropAction action, int /*row*/, int /*column*/,
                           const QModelIndex &parent)
{
    if (action == Qt::IgnoreAction)
        return true;
    const auto payload = DragPayload::fromMime(data);
    if (!payload)
        return false;

    const QModelIndex target = index(parent.row(), 0);
    for (const CellField &field : CellFields::dragged(CellFields::ofLiveButtons())) {
        const int place = field.place == DragPayload::Color ? field.place : field.place - 1;
        setData(target, payload->text(place), field.role);
    }
    return true;
}

Qt::DropActions MyModel::supportedDropActions() const
{
    return Qt::CopyAction | Qt::MoveAction;
}

Qt::DropActions MyModel::supportedDragActions() const
{
    return Qt::CopyAction;
}

bool MyModel::insertRows(int position, int count, const QModelIndex & /*parent*/)
{
    static const Record blank = CellFields::newCell(CellFields::ofLiveButtons());

    beginInsertRows({}, position, position + count - 1);
    rows.reserve(rows.size() + qMax(count, 0));
    for (int i = 0; i < count; ++i)
        rows.prepend(blank);
    endInsertRows();
    return true;
}

bool MyModel::removeRows(int position, int count, const QModelIndex & /*parent*/)
{
    beginRemoveRows({}, position, position + count - 1);
    for (int i = 0; i < count && position >= 0 && position < rows.size(); ++i)
        rows.removeAt(position);
    endRemoveRows();
    return true;
}

Qt::ItemFlags MyModel::flags(const QModelIndex &index) const
{
    return QAbstractTableModel::flags(index) | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled
           | Qt::ItemIsAutoTristate;
}

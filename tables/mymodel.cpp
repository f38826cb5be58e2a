#include "tables/mymodel.h"

#include "tables/dragpayload.h"
#include "tables/roles.h"

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

QString MyModel::keyOf(int role)
{
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return QStringLiteral("title");
    case Qt::DecorationRole:
        return QStringLiteral("color");
    case Qt::ForegroundRole:
        return QStringLiteral("textcolor");
    case Qt::CheckStateRole:
        return QStringLiteral("check");
    case PageRole:
        return QStringLiteral("pageid");
    case DisplayNameRole:
        return QStringLiteral("dspname");
    case SourceRole:
        return QStringLiteral("source");
    case ButtonRole:
        return QStringLiteral("buttonid");
    default:
        return {};
    }
}

QVariant MyModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= rows.size() || index.column() != 0)
        return {};
    if (role == Qt::ToolTipRole)
        return QStringLiteral("Drag a Live Button and Drop to a VirtualDJ  Pad");
    if (role == Qt::BackgroundRole)
        return QColor(Qt::white);

    const QString key = keyOf(role);
    if (key.isEmpty())
        return {};
    const QString text = rows.at(index.row()).value(key);
    switch (role) {
    case Qt::DecorationRole:
    case Qt::ForegroundRole:
        return QColor(text);
    case Qt::CheckStateRole:
        return text == QLatin1String("1") ? Qt::Checked : Qt::Unchecked;
    default:
        return text;
    }
}

bool MyModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!index.isValid() || index.column() != 0 || index.row() >= rows.size())
        return false;
    if (role == Qt::BackgroundRole)
        return true;

    const QString key = keyOf(role);
    if (key.isEmpty())
        return false;
    if (role == Qt::CheckStateRole)
        rows[index.row()][key] = value == QVariant(0) ? QStringLiteral("0") : QStringLiteral("1");
    else
        rows[index.row()][key] = value.toString();
    return true;
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
    // The LED colours and the blink mark have no role here and travel as null texts, so a key filled
    // from the Live Buttons has an empty blink and not "0".
    static const QVector<DragField> fields = {
        DragField::role(Qt::EditRole),    DragField::role(PageRole),
        DragField::role(DisplayNameRole), DragField::literal(QStringLiteral("1")),
        DragField::role(ButtonRole),      DragField::literal(QStringLiteral("1")),
        DragField::role(OffColorRole),    DragField::role(OnColorRole),
        DragField::role(OnColorRole),
    };
    return createDragData(indexes, fields);
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
    int position = DragPayload::Column;
    for (const int role :
         {int(Qt::EditRole), int(PageRole), int(DisplayNameRole), int(SourceRole), int(ButtonRole)})
        setData(target, payload->text(position++), role);
    setData(target, payload->color(), Qt::DecorationRole);
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
    static const Record blank = {
        {QStringLiteral("title"), QStringLiteral("1")},
        {QStringLiteral("dspname"), QStringLiteral("1")},
        {QStringLiteral("color"), QStringLiteral("#FFFFFF")},
        {QStringLiteral("pageid"), QStringLiteral("0")},
        {QStringLiteral("buttonid"), QStringLiteral("0")},
        {QStringLiteral("check"), QStringLiteral("0")},
        {QStringLiteral("textcolor"), QStringLiteral("#ffffff")},
        {QStringLiteral("source"), QStringLiteral("1")},
    };

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

#include "tables/vdjmodel.h"

#include "tables/assignments.h"
#include "tables/dragpayload.h"
#include "tables/roles.h"

#include <QColor>
#include <QMimeData>

namespace {

constexpr int Columns = 2;

/** What trades places where a pad is dragged onto another. */
const QVector<int> DraggedRoles = {Qt::EditRole, PageRole, DisplayNameRole, ButtonRole, Qt::DecorationRole};

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

QString VDJModel::keyOf(int role)
{
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return QStringLiteral("name");
    case Qt::DecorationRole:
        return QStringLiteral("color");
    case PageRole:
        return QStringLiteral("pagenr");
    case DisplayNameRole:
        return QStringLiteral("dspname");
    case ButtonRole:
        return QStringLiteral("id");
    default:
        return {};
    }
}

QVariant VDJModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= rows.size())
        return {};
    if (role == Qt::ToolTipRole)
        return toolTip(index);
    if (role == Qt::BackgroundRole)
        return QColor(Qt::white);

    const QString key = keyOf(role);
    if (key.isEmpty())
        return {};
    const QString text = rows.at(index.row()).value(index.column()).value(key);
    if (role == Qt::DecorationRole)
        return QColor(text);
    return text;
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

    const QString key = keyOf(role);
    if (key.isEmpty())
        return false;
    QString text = value.toString();
    if (text.isEmpty() && (role == Qt::DisplayRole || role == Qt::EditRole))
        text = numberedThroughAllBanks(index.row());
    rows[index.row()][index.column()][key] = text;
    return true;
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
    static const QVector<DragField> fields = {
        DragField::role(Qt::EditRole),    DragField::role(PageRole),
        DragField::role(DisplayNameRole), DragField::literal(QStringLiteral("0")),
        DragField::role(ButtonRole),
    };
    return createDragData(indexes, fields);
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

    const QModelIndex target = index(to.row(), to.column());
    const QMap<int, QString> before = Assignments::textsOf(target, DraggedRoles);
    const bool wasEmpty = before.value(ButtonRole) == QLatin1String("-1");
    write(target, *payload);

    if (payload->isMove()) {
        const QModelIndex source = index(payload->sourceRow(), payload->sourceColumn());
        if (wasEmpty) {
            Assignments::clearCell(*this, source, Assignments::padLabel(source.row()));
            emit ItemMoved(to.row());
        } else {
            Assignments::setTexts(*this, source, before);
        }
        return true;
    }

    emit ItemDroped(payload->sourceRow(), to.row());
    if (payload->isLiveButton() && before.value(PageRole).toInt() >= 1)
        emit ItemToUncheck(before.value(ButtonRole).toInt());
    return true;
}

void VDJModel::write(const QModelIndex &target, const DragPayload &payload)
{
    setData(target, payload.text(DragPayload::Text), Qt::EditRole);
    setData(target, payload.text(DragPayload::Page), PageRole);
    setData(target, payload.text(DragPayload::DisplayName), DisplayNameRole);
    setData(target, payload.text(DragPayload::Button), ButtonRole);
    setData(target, payload.color(), Qt::DecorationRole);
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
    static const Record blank = {
        {QStringLiteral("name"), QStringLiteral("1")},   {QStringLiteral("dspname"), QStringLiteral("1")},
        {QStringLiteral("id"), QStringLiteral("-1")},    {QStringLiteral("color"), QStringLiteral("#000000")},
        {QStringLiteral("pagenr"), QStringLiteral("0")},
    };

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

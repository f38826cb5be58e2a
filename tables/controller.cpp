#include "tables/controller.h"

#include "devices/keytooltip.h"
#include "tables/assignments.h"
#include "tables/dragpayload.h"
#include "tables/roles.h"

#include <QColor>
#include <QMimeData>

namespace {

constexpr int Columns = 12;
constexpr int RowsPerSweep = 12;

/** What trades places where a key is dragged onto another. */
const QVector<int> DraggedRoles = {Qt::EditRole, PageRole,      DisplayNameRole,
                                   ButtonRole,   AvailableRole, OffColorRole,
                                   OnColorRole,  BlinkRole,     Qt::DecorationRole};

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

QString Controller::keyOf(int role)
{
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return QStringLiteral("name");
    case Qt::DecorationRole:
        return QStringLiteral("color");
    case Qt::ForegroundRole:
        return QStringLiteral("textcolor");
    case PageRole:
        return QStringLiteral("pagenr");
    case DisplayNameRole:
        return QStringLiteral("dspname");
    case ButtonRole:
        return QStringLiteral("id");
    case AvailableRole:
        return QStringLiteral("avail");
    case OffColorRole:
        return QStringLiteral("coloroff");
    case OnColorRole:
        return QStringLiteral("coloron");
    case BlinkRole:
        return QStringLiteral("blink");
    default:
        return {};
    }
}

QVariant Controller::data(const QModelIndex &index, int role) const
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
    if (role == Qt::DecorationRole || role == Qt::ForegroundRole)
        return QColor(text);
    return text;
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

    const QString key = keyOf(role);
    if (key.isEmpty())
        return false;
    rows[index.row()][index.column()][key] = value.toString();
    return true;
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
    static const QVector<DragField> fields = {
        DragField::role(Qt::EditRole),    DragField::role(PageRole),
        DragField::role(DisplayNameRole), DragField::literal(QStringLiteral("0")),
        DragField::role(ButtonRole),      DragField::role(AvailableRole),
        DragField::role(OffColorRole),    DragField::role(OnColorRole),
        DragField::role(BlinkRole),
    };
    return createDragData(indexes, fields);
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

    const QModelIndex target = index(to.row(), to.column());
    const QMap<int, QString> before = Assignments::textsOf(target, DraggedRoles);
    const bool wasEmpty = before.value(ButtonRole) == QLatin1String("-1");
    write(target, *payload);

    if (payload->isMove()) {
        const QModelIndex source = index(payload->sourceRow(), payload->sourceColumn());
        if (wasEmpty)
            clear(source, celltext(source.row(), source.column()));
        else
            Assignments::setTexts(*this, source, before);
        return true;
    }

    emit ItemDroped(payload->sourceRow(), to.row(), to.column());
    if (payload->isLiveButton() && before.value(PageRole).toInt() >= 1)
        emit ItemToUncheck(before.value(ButtonRole).toInt());
    return true;
}

void Controller::write(const QModelIndex &target, const DragPayload &payload)
{
    setData(target, payload.text(DragPayload::Text), Qt::EditRole);
    setData(target, payload.text(DragPayload::Page), PageRole);
    setData(target, payload.text(DragPayload::DisplayName), DisplayNameRole);
    setData(target, payload.text(DragPayload::Button), ButtonRole);
    setData(target, payload.text(DragPayload::Available), AvailableRole);
    setData(target, payload.text(DragPayload::OffColor), OffColorRole);
    setData(target, payload.text(DragPayload::OnColor), OnColorRole);
    setData(target, payload.text(DragPayload::Blink), BlinkRole);
    setData(target, payload.color(), Qt::DecorationRole);
}

void Controller::clear(const QModelIndex &key, const QString &label)
{
    Assignments::clearCell(*this, key, label);
    setData(key, "1", AvailableRole);
    setData(key, "", OffColorRole);
    setData(key, "", OnColorRole);
    setData(key, "", BlinkRole);
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
    static const Record blank = {
        {QStringLiteral("name"), QStringLiteral("")},
        {QStringLiteral("dspname"), QStringLiteral("")},
        {QStringLiteral("id"), QStringLiteral("-1")},
        {QStringLiteral("avail"), QStringLiteral("1")},
        {QStringLiteral("color"), QStringLiteral("#000000")},
        {QStringLiteral("coloroff"), QStringLiteral("")},
        {QStringLiteral("coloron"), QStringLiteral("")},
        {QStringLiteral("blink"), QStringLiteral("0")},
        {QStringLiteral("textcolor"), QStringLiteral("#ffffff")},
        {QStringLiteral("pagenr"), QStringLiteral("0")},
    };
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

// The drag payload, decoded and dropped onto each table. An input is the target's row and column, one byte
// each; a byte with the action; a byte with the size of the colour part; the colour part; and the texts.

#include "fuzz/target.h"
#include "tables/controller.h"
#include "tables/dragpayload.h"
#include "tables/mymodel.h"
#include "tables/roles.h"
#include "tables/vdjmodel.h"

#include <QMimeData>

#include <memory>
#include <type_traits>

namespace {

constexpr int HeadSize = 4;
const QVector<int> Roles = {Qt::DisplayRole,    Qt::DecorationRole, Qt::EditRole,       Qt::ToolTipRole,
                            Qt::BackgroundRole, Qt::ForegroundRole, Qt::CheckStateRole, PageRole,
                            DisplayNameRole,    SourceRole,         ButtonRole,         AvailableRole,
                            OffColorRole,       OnColorRole,        BlinkRole};

/** What is dropped, and where. */
struct Drop
{
    explicit Drop(const QByteArray &input)
        : row(static_cast<signed char>(input.at(0))),
          column(static_cast<signed char>(input.at(1))),
          action(input.at(2) == 'i' ? Qt::IgnoreAction : Qt::CopyAction)
    {
        const int colorSize = static_cast<unsigned char>(input.at(3));
        data.setData(DragPayload::ColorType, input.mid(HeadSize, colorSize));
        data.setData(DragPayload::TextListType, input.mid(HeadSize + colorSize));
        payload = DragPayload::fromMime(&data);
    }

    int row;
    int column;
    Qt::DropAction action;
    QMimeData data;
    std::optional<DragPayload> payload;
};

/** How often a table has sent each of its signals. */
struct Heard
{
    int dropped = 0;
    int moved = 0;
    int unchecked = 0;
};

void listen(MyModel & /*model*/, Heard & /*heard*/) {}

void listen(VDJModel &model, Heard &heard)
{
    QObject::connect(&model, &VDJModel::ItemDroped, [&heard] { ++heard.dropped; });
    QObject::connect(&model, &VDJModel::ItemMoved, [&heard] { ++heard.moved; });
    QObject::connect(&model, &VDJModel::ItemToUncheck, [&heard] { ++heard.unchecked; });
}

void listen(Controller &model, Heard &heard)
{
    QObject::connect(&model, &Controller::ItemDroped, [&heard] { ++heard.dropped; });
    QObject::connect(&model, &Controller::ItemToUncheck, [&heard] { ++heard.unchecked; });
}

/** All that a table tells of a cell. */
QStringList shown(const QModelIndex &cell)
{
    QStringList texts = {QString::number(int(cell.flags()))};
    for (const int role : Roles)
        texts += cell.data(role).toString();
    return texts;
}

using Cells = QList<QList<Record>>;

void restore(Cells &cells, const Cells &before, int row, int column)
{
    if (row >= 0 && row < cells.size() && column >= 0 && column < cells.at(row).size())
        cells[row][column] = before.at(row).at(column);
}

void restore(QList<Record> &rows, const QList<Record> &before, int row, int /*column*/)
{
    if (row >= 0 && row < rows.size())
        rows[row] = before.at(row);
}

/** Sixteen rows of pads, two of them filled. */
const Cells &pads()
{
    static const Cells cells = [] {
        VDJModel model;
        model.insertRows(0, 16);
        for (const QModelIndex &pad : {model.index(0, 0), model.index(9, 1)}) {
            model.setData(pad, "Strobe", Qt::EditRole);
            model.setData(pad, "2", PageRole);
            model.setData(pad, "7", ButtonRole);
            model.setData(pad, "#ff0000", Qt::DecorationRole);
        }
        return model.getlist();
    }();
    return cells;
}

/** All keys; two are filled, one of them where the device has none, and another is not there either. */
const Cells &keys()
{
    static const Cells cells = [] {
        Controller model;
        model.insertRows(0, 12);
        for (const QModelIndex &key : {model.index(2, 2), model.index(0, 9)}) {
            model.setData(key, "Fog", Qt::EditRole);
            model.setData(key, "1", PageRole);
            model.setData(key, "3", ButtonRole);
            model.setData(key, "#00ff00", OnColorRole);
            model.setData(key, "1", BlinkRole);
        }
        model.setData(model.index(0, 9), "0", AvailableRole);
        model.setData(model.index(11, 2), "0", AvailableRole);
        return model.getlist();
    }();
    return cells;
}

const QList<Record> &buttons()
{
    static const QList<Record> rows = [] {
        MyModel model;
        model.insertRows(0, 4);
        return model.getlist();
    }();
    return rows;
}

/** What a cell sends is what it holds; dropped on itself, it stays as it is. */
template<typename Model>
void expectTravel(Model &model, const QModelIndex &cell)
{
    const std::unique_ptr<QMimeData> data(model.mimeData({cell}));
    const auto payload = DragPayload::fromMime(data.get());
    expect(payload.has_value(), "what a table sends can be read");
    expect(payload->sourceRow() == cell.row() && payload->sourceColumn() == cell.column(),
           "a cell sends its row and column");
    expect(payload->text(DragPayload::Text) == cell.data(Qt::EditRole).toString()
               && payload->text(DragPayload::Page) == cell.data(PageRole).toString()
               && payload->text(DragPayload::DisplayName) == cell.data(DisplayNameRole).toString()
               && payload->text(DragPayload::Button) == cell.data(ButtonRole).toString(),
           "a cell sends its texts");
    expect(payload->color() == cell.data(Qt::DecorationRole).toString(), "a cell sends its colour");

    if (std::is_same_v<Model, MyModel> || cell.data(ButtonRole).toString() == QLatin1String("-1"))
        return;
    const QStringList before = shown(cell);
    model.dropMimeData(data.get(), Qt::CopyAction, -1, -1, cell);
    expect(shown(cell) == before, "a filled cell that is dropped on itself stays as it is");
}

void expectSignals(const MyModel & /*model*/, const Heard &heard, const DragPayload & /*payload*/,
                   const QString & /*oldPage*/, const QString & /*oldButton*/)
{
    expect(heard.dropped + heard.moved + heard.unchecked == 0, "the Live Buttons keep quiet");
}

template<typename Model>
void expectSignals(const Model & /*model*/, const Heard &heard, const DragPayload &payload,
                   const QString &oldPage, const QString &oldButton)
{
    const bool isMoveOnPads = std::is_same_v<Model, VDJModel> && payload.isMove() && oldButton == "-1";
    expect(heard.dropped == (payload.isMove() ? 0 : 1), "a drop from elsewhere is told, a move is not");
    expect(heard.moved == (isMoveOnPads ? 1 : 0), "a move onto an empty pad is told");
    expect(heard.unchecked == (payload.isLiveButton() && oldPage.toInt() >= 1 ? 1 : 0),
           "a Live Button that replaces another tells its number");
}

template<typename Model, typename List>
void dropOn(const List &before, const Drop &drop)
{
    Heard heard;
    Model model(before);
    listen(model, heard);
    const QModelIndex target = model.index(drop.row, drop.column);
    const QString oldPage = target.data(PageRole).toString();
    const QString oldButton = target.data(ButtonRole).toString();
    const bool isTaken = model.dropMimeData(&drop.data, drop.action, -1, -1, target);
    expect(isTaken == (drop.action == Qt::IgnoreAction || drop.payload.has_value()),
           "all is taken but what cannot be read");

    List after = model.getlist();
    if (drop.action == Qt::IgnoreAction || !drop.payload) {
        expect(after == before, "what is not dropped changes nothing");
        expect(heard.dropped + heard.moved + heard.unchecked == 0, "what is not dropped tells nothing");
        return;
    }
    restore(after, before, target.row(), target.column());
    if (drop.payload->isMove())
        restore(after, before, drop.payload->sourceRow(), drop.payload->sourceColumn());
    expect(after == before, "a drop changes its target and the cell that it came from, and no other");
    expectSignals(model, heard, *drop.payload, oldPage, oldButton);
    if (target.isValid())
        expectTravel(model, target);
}

void expectPayload(const DragPayload &payload)
{
    expect(!payload.text(DragPayload::Row).isNull() || payload.sourceRow() == 0, "a missing row is 0");
    expect(payload.text(-1).isEmpty() && payload.text(DragPayload::Blink + 1).isEmpty(),
           "there are no texts outside a record");
    expect(payload.color().isEmpty() || (payload.color().size() == 7 && payload.color().startsWith('#')),
           "a colour is a hash and six digits, or empty");
}

} // namespace

void tryInput(const QByteArray &input)
{
    if (input.size() < HeadSize)
        return;
    const Drop drop(input);
    if (drop.payload)
        expectPayload(*drop.payload);
    dropOn<MyModel>(buttons(), drop);
    dropOn<VDJModel>(pads(), drop);
    dropOn<Controller>(keys(), drop);
}

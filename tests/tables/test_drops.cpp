#include "support/models.h"
#include "support/payload.h"
#include "support/texts.h"
#include "tables/controller.h"
#include "tables/mymodel.h"
#include "tables/roles.h"
#include "tables/vdjmodel.h"

#include <QMimeData>
#include <QStandardItemModel>
#include <QTableView>
#include <QtTest>

#include <memory>

namespace {

const QMap<QString, int> roles = {{"name", Qt::EditRole},        {"pagenr", PageRole},
                                  {"dspname", DisplayNameRole},  {"id", ButtonRole},
                                  {"color", Qt::DecorationRole}, {"avail", AvailableRole},
                                  {"coloroff", OffColorRole},    {"coloron", OnColorRole},
                                  {"blink", BlinkRole},          {"textcolor", Qt::ForegroundRole}};

/** A cell as the grid has it; pads take of it what they have themselves. */
Record cell(const QStringList &texts, const QString &available = "1", const QStringList &led = {"", "", ""})
{
    return {{"name", texts.at(0)},   {"pagenr", texts.at(1)}, {"dspname", texts.at(2)},
            {"id", texts.at(3)},     {"color", texts.at(4)},  {"avail", available},
            {"coloroff", led.at(0)}, {"coloron", led.at(1)},  {"blink", led.at(2)}};
}

Record with(Record cell, const QString &key, const QString &text)
{
    cell[key] = text;
    return cell;
}

Record emptied(const QString &label)
{
    return cell({label, Texts::NoPage, label, Texts::NoButton, Texts::NoColor});
}

const Record atRest = {};
const Record strobe = cell({"My strobe", "3", "Strobe", "41", "#102030"}, "1", {"#ff0000", "lime", "1"});
const Record par = cell({"My par", "2", "Par", "17", "#F0E0D0"}, "1", {"", "#00ff00", "0"});
/** A colour comes out of a drag in lower case. */
const Record parTravelled = with(par, "color", "#f0e0d0");
/** What Payload::fog() becomes: the colours of the LED and the blink are empty. */
const Record foggy = cell({"Fog", "5", "Fog low", "8", "#abcdef"});

/** Pads or the grid, each cell at rest but for those that are filled; notes what the table tells. */
class Table final : public QObject
{
public:
    Table() : model(onTheGrid() ? static_cast<QAbstractItemModel &>(m_grid) : m_pads)
    {
        model.insertRows(0, 12);
        m_blank = cells().at(0).at(0);
        connect(&m_pads, &VDJModel::ItemDroped, this, [this](int from, int row) {
            hear("dropped %1 on %2", {from, row});
        });
        connect(&m_pads, &VDJModel::ItemMoved, this, [this](int row) { hear("moved to %1", {row}); });
        connect(&m_pads, &VDJModel::ItemToUncheck, this,
                [this](int button) { hear("unticked %1", {button}); });
        connect(&m_grid, &Controller::ItemDroped, this, [this](int from, int row, int column) {
            hear("dropped %1 on %2,%3", {from, row, column});
        });
        connect(&m_grid, &Controller::ItemToUncheck, this,
                [this](int button) { hear("unticked %1", {button}); });
    }

    static bool onTheGrid()
    {
        QFETCH_GLOBAL(bool, isGrid);
        return isGrid;
    }

    void fill(int row, int column, const Record &cell)
    {
        for (auto text = cell.cbegin(); text != cell.cend(); ++text)
            model.setData(model.index(row, column), text.value(), roles.value(text.key()));
    }

    std::unique_ptr<QMimeData> drag(int row, int column) const
    {
        return std::unique_ptr<QMimeData>(model.mimeData({model.index(row, column)}));
    }

    bool drop(const QMimeData &data, const QModelIndex &to, Qt::DropAction action = Qt::CopyAction)
    {
        return model.dropMimeData(&data, action, -1, -1, to);
    }

    /** Row and column of each cell that is not at rest, with its texts. */
    QStringList filled() const
    {
        QStringList found;
        for (int row = 0; row < model.rowCount(); ++row) {
            for (int column = 0; column < model.columnCount(); ++column) {
                const Record cell = cells().at(row).at(column);
                if (cell != m_blank)
                    found += told(row, column, cell);
            }
        }
        return found;
    }

    /** What filled() tells of a cell that holds these texts. */
    QString told(int row, int column, const Record &cell) const
    {
        QString line = QString("%1,%2:").arg(row).arg(column);
        for (auto text = m_blank.cbegin(); text != m_blank.cend(); ++text)
            line += ' ' + text.key() + '=' + cell.value(text.key(), text.value());
        return line;
    }

    /** What the table tells of a Live Button of row 4 that was dropped. */
    QString dropped(int row, int column) const
    {
        return onTheGrid() ? QString("dropped 4 on %1,%2").arg(row).arg(column)
                           : QString("dropped 4 on %1").arg(row);
    }

    /** What the pads alone tell of a move. */
    QStringList moved(int row) const
    {
        return onTheGrid() ? QStringList() : QStringList{QString("moved to %1").arg(row)};
    }

    QAbstractItemModel &model;
    QStringList heard;
    QPersistentModelIndex watched; // whose button is noted beside what the table tells

private:
    QList<QList<Record>> cells() const { return onTheGrid() ? m_grid.getlist() : m_pads.getlist(); }

    void hear(QString text, const QList<int> &numbers)
    {
        for (const int number : numbers)
            text = text.arg(number);
        heard += watched.isValid() ? text + ", which holds " + watched.data(ButtonRole).toString() : text;
    }

    VDJModel m_pads;
    Controller m_grid;
    Record m_blank;
};

/** A view as the program sets it up. */
class View final : public QTableView
{
public:
    explicit View(QAbstractItemModel &model)
    {
        setModel(&model);
        setDragEnabled(true);
        setAcceptDrops(true);
        setDropIndicatorShown(true);
        setDefaultDropAction(Qt::CopyAction);
        resize(1400, 600);
        show();
    }

    QRect rectOf(int row, int column) const { return visualRect(model()->index(row, column)); }
};

} // namespace

/** Drops on the pads and on the device grid, which do alike; each function is run for both. */
class TestDrops final : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase_data();
    void liveButton_data();
    void liveButton();
    void fromTheLiveButtons();
    void placeIsThatOfTheParent();
    void unknownOrigin_data();
    void unknownOrigin();
    void move_data();
    void move();
    void firstOfSeveralMoves();
    void swap_data();
    void swap();
    void onItself();
    void sourceOffTheTable_data();
    void sourceOffTheTable();
    void beside_data();
    void beside();
    void rowOfOneCell();
    void damaged_data();
    void damaged();
    void throughTheView_data();
    void throughTheView();
    void viewRefusesOtherData();
    void besideThroughTheView_data();
    void besideThroughTheView();
};

void TestDrops::initTestCase_data()
{
    QTest::addColumn<bool>("isGrid");
    QTest::newRow("pads") << false;
    QTest::newRow("grid") << true;
}

void TestDrops::liveButton_data()
{
    QTest::addColumn<Record>("before");
    QTest::addColumn<QStringList>("unticked");
    const QStringList none;
    QTest::newRow("at rest") << atRest << none;
    QTest::newRow("filled") << strobe << QStringList{"unticked 41"};
    QTest::newRow("with the same button") << foggy << QStringList{"unticked 8"};
    QTest::newRow("with button 0") << with(strobe, "id", "0") << QStringList{"unticked 0"};
    QTest::newRow("the page tells a filled cell, not the button") << with(strobe, "pagenr", "0") << none;
    QTest::newRow("a page below 1 is an empty cell") << with(strobe, "pagenr", "-2") << none;
    QTest::newRow("a page that is no number is an empty cell") << with(strobe, "pagenr", "two") << none;
    QTest::newRow("a button that is no number counts as 0")
        << with(strobe, "id", "first") << QStringList{"unticked 0"};
    QTest::newRow("blanked by a drop beside the cells")
        << Record{{"name", "x"}, {"pagenr", ""}, {"dspname", ""}, {"id", ""}, {"color", ""}} << none;
    QTest::newRow("at rest, with LED colours") << Record{{"coloroff", "red"}, {"blink", "1"}} << none;
    QTest::newRow("without a key") << Record{{"avail", "0"}} << none;
}

void TestDrops::liveButton()
{
    QFETCH(Record, before);
    QFETCH(QStringList, unticked);
    for (const Qt::DropAction action : {Qt::CopyAction, Qt::MoveAction, Qt::LinkAction}) {
        Table table;
        table.fill(2, 1, before);
        table.fill(4, 0, par); // where the Live Button's row and column would point in this table
        QVERIFY(table.drop(*Payload::fog(), table.model.index(2, 1), action));
        QCOMPARE(table.filled(), (QStringList{table.told(2, 1, foggy), table.told(4, 0, par)}));
        QCOMPARE(table.heard, QStringList{table.dropped(2, 1)} + unticked);
    }
}

/** The Live Buttons' own drag makes a key available and leaves its LED to the device. */
void TestDrops::fromTheLiveButtons()
{
    MyModel buttons;
    buttons.insertRows(0, 5);
    const QModelIndex fog = buttons.index(4, 0);
    buttons.setData(fog, "Fog");
    buttons.setData(fog, "Fog low", DisplayNameRole);
    buttons.setData(fog, "5", PageRole);
    buttons.setData(fog, "8", ButtonRole);
    buttons.setData(fog, "#ABCDEF", Qt::DecorationRole);
    const std::unique_ptr<QMimeData> data(buttons.mimeData({fog}));

    Table table;
    table.fill(9, 1, with(strobe, "avail", "0"));
    table.watched = table.model.index(9, 1); // holds the new button before anything is told
    QVERIFY(table.drop(*data, table.watched));
    QCOMPARE(table.filled(), QStringList{table.told(9, 1, foggy)});
    QCOMPARE(table.heard,
             (QStringList{table.dropped(9, 1) + ", which holds 8", "unticked 41, which holds 8"}));
}

/** Row and column of the parent count, whosever index it is; what it holds does not. */
void TestDrops::placeIsThatOfTheParent()
{
    Table table;
    QVERIFY(table.model.dropMimeData(Payload::fog().get(), Qt::CopyAction, 7, 0, table.model.index(0, 1)));
    QStandardItemModel other(12, 2);
    other.setData(other.index(11, 1), "3", PageRole);
    other.setData(other.index(11, 1), "77", ButtonRole);
    QVERIFY(table.model.dropMimeData(Payload::fog().get(), Qt::CopyAction, 7, 0, other.index(11, 1)));
    QCOMPARE(table.filled(), (QStringList{table.told(0, 1, foggy), table.told(11, 1, foggy)}));
    QCOMPARE(table.heard, (QStringList{table.dropped(0, 1), table.dropped(11, 1)}));
}

void TestDrops::unknownOrigin_data()
{
    QTest::addColumn<QString>("origin");
    QTest::newRow("2") << "2";
    QTest::newRow("01") << "01";
    QTest::newRow("00") << "00";
    QTest::newRow("empty") << "";
    QTest::newRow("null") << QString();
}

/** Not from this table, so the drop is told; not from the Live Buttons, so nothing is unticked. */
void TestDrops::unknownOrigin()
{
    QFETCH(QString, origin);
    Table table;
    table.fill(2, 1, strobe);
    table.fill(4, 0, par);
    QVERIFY(table.drop(*Payload::fog(origin), table.model.index(2, 1)));
    QCOMPARE(table.heard, QStringList{table.dropped(2, 1)});
    QCOMPARE(table.filled(), (QStringList{table.told(2, 1, foggy), table.told(4, 0, par)}));
}

void TestDrops::move_data()
{
    QTest::addColumn<Record>("dragged");
    QTest::addColumn<Record>("target");
    QTest::addColumn<Record>("after");
    QTest::newRow("all values go along") << strobe << atRest << strobe;
    QTest::newRow("a blink of 0 goes along") << par << atRest << parTravelled;
    QTest::newRow("an empty blink goes along") << foggy << atRest << foggy;
    QTest::newRow("the button alone tells an empty target") << strobe << with(par, "id", "-1") << strobe;
    QTest::newRow("an unreadable colour becomes black")
        << with(strobe, "color", "mud") << atRest << with(strobe, "color", "#000000");
    const Record lit = {{"coloroff", "red"}, {"coloron", "lime"}, {"blink", "1"}};
    QTest::newRow("the target's own LED colours are lost") << foggy << lit << foggy;
    QTest::newRow("the availability goes along")
        << with(strobe, "avail", "0") << atRest << with(strobe, "avail", "0");
}

void TestDrops::move()
{
    QFETCH(Record, dragged);
    QFETCH(Record, target);
    QFETCH(Record, after);
    for (const Qt::DropAction action : {Qt::CopyAction, Qt::MoveAction}) {
        Table table;
        table.fill(9, 0, dragged);
        table.fill(2, 1, target);
        QVERIFY(table.drop(*table.drag(9, 0), table.model.index(2, 1), action));
        const Record left = emptied(Table::onTheGrid() ? "LEFT 8" : "PAD 2");
        QCOMPARE(table.filled(), (QStringList{table.told(2, 1, after), table.told(9, 0, left)}));
        QCOMPARE(table.heard, table.moved(2));
    }
}

/** A view may let several cells be selected. */
void TestDrops::firstOfSeveralMoves()
{
    Table table;
    table.fill(2, 0, strobe);
    table.fill(3, 0, par);
    const std::unique_ptr<QMimeData> data(
        table.model.mimeData({table.model.index(3, 0), table.model.index(2, 0)}));
    QVERIFY(table.drop(*data, table.model.index(9, 1)));
    const Record left = emptied(Table::onTheGrid() ? "LEFT 2" : "PAD 4");
    QCOMPARE(table.filled(),
             (QStringList{table.told(2, 0, strobe), table.told(3, 0, left), table.told(9, 1, parTravelled)}));
    QCOMPARE(table.heard, table.moved(9));
}

void TestDrops::swap_data()
{
    QTest::addColumn<Record>("dragged");
    QTest::addColumn<Record>("target");
    QTest::addColumn<Record>("targetAfter");
    QTest::addColumn<Record>("sourceAfter");
    QTest::newRow("two filled cells") << strobe << par << strobe << parTravelled;
    QTest::newRow("the other way round") << par << strobe << parTravelled << strobe;
    QTest::newRow("the same button twice") << strobe << strobe << strobe << strobe;
    QTest::newRow("colour words become digits")
        << with(strobe, "color", "red") << with(par, "color", "Blue") << with(strobe, "color", "#ff0000")
        << with(par, "color", "#0000ff");
    QTest::newRow("unreadable colours become black")
        << with(strobe, "color", "mud") << with(par, "color", "") << with(strobe, "color", "#000000")
        << with(par, "color", "#000000");
    QTest::newRow("a blanked target counts as filled") << strobe << with(with(foggy, "id", ""), "pagenr", "")
                                                       << strobe << with(with(foggy, "id", ""), "pagenr", "");
    QTest::newRow("the button alone tells an empty target")
        << strobe << with(foggy, "pagenr", "0") << strobe << with(foggy, "pagenr", "0");
    QTest::newRow("text colours stay where they are")
        << with(strobe, "textcolor", "red") << with(foggy, "textcolor", "blue")
        << with(strobe, "textcolor", "blue") << with(foggy, "textcolor", "red");
    QTest::newRow("availability is swapped too")
        << strobe << with(foggy, "avail", "0") << strobe << with(foggy, "avail", "0");
}

void TestDrops::swap()
{
    QFETCH(Record, dragged);
    QFETCH(Record, target);
    QFETCH(Record, targetAfter);
    QFETCH(Record, sourceAfter);
    Table table;
    table.fill(9, 1, dragged);
    table.fill(2, 0, target);
    QVERIFY(table.drop(*table.drag(9, 1), table.model.index(2, 0)));
    QCOMPARE(table.filled(), (QStringList{table.told(2, 0, targetAfter), table.told(9, 1, sourceAfter)}));
    QCOMPARE(table.heard, QStringList());
}

void TestDrops::onItself()
{
    Table table;
    table.fill(9, 1, strobe);
    QVERIFY(table.drop(*table.drag(9, 1), table.model.index(9, 1)));
    QCOMPARE(table.filled(), QStringList{table.told(9, 1, strobe)});
    QCOMPARE(table.heard, QStringList());
}

void TestDrops::sourceOffTheTable_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::newRow("row behind the last") << 12 << 0;
    QTest::newRow("row before the first") << -1 << 0;
    QTest::newRow("column behind the last") << 0 << 12;
    QTest::newRow("column before the first") << 0 << -1;
    QTest::newRow("far away") << 2147483647 << -2147483647;
}

void TestDrops::sourceOffTheTable()
{
    QFETCH(int, row);
    QFETCH(int, column);
    const auto data = Payload::of(Payload::textBytes({QString::number(row), QString::number(column), "Fog",
                                                      "5", "Fog low", "0", "8", "1", "", "", ""}),
                                  Payload::colorBytes(0xab, 0xcd, 0xef));
    Table table;
    table.fill(7, 0, strobe);
    QVERIFY(table.drop(*data, table.model.index(6, 0)));
    QVERIFY(table.drop(*data, table.model.index(7, 0)));
    QCOMPARE(table.filled(), (QStringList{table.told(6, 0, foggy), table.told(7, 0, foggy)}));
    QCOMPARE(table.heard, table.moved(6));
}

void TestDrops::beside_data()
{
    QTest::addColumn<int>("row"); // of the parent
    QTest::newRow("no parent") << -1;
    QTest::newRow("a row that is gone") << 70;
}

/** A Live Button gets its tick although nothing took it, and a cell of the table is blanked. */
void TestDrops::beside()
{
    QFETCH(int, row);
    Table table;
    table.fill(9, 1, strobe);
    const QModelIndex lost = row < 0 ? QModelIndex() : Models::lostIndex(table.model, row, 0);
    QVERIFY(table.drop(*Payload::fog(), lost));
    QCOMPARE(table.filled(), QStringList{table.told(9, 1, strobe)});
    QCOMPARE(table.heard, QStringList{table.dropped(row, row < 0 ? -1 : 0)});

    QVERIFY(table.drop(*table.drag(9, 1), lost));
    Record blanked = strobe;
    for (QString &text : blanked)
        text.clear();
    blanked["name"] = Table::onTheGrid() ? "" : "PAD 10";
    QCOMPARE(table.filled(), QStringList{table.told(9, 1, blanked)});
    QCOMPARE(table.heard.size(), 1);
}

/** Rows of fewer cells than columns come from outside alone; what is not there stays so. */
void TestDrops::rowOfOneCell()
{
    VDJModel pads({{strobe}});
    Controller grid({{strobe}});
    for (QAbstractItemModel *model : QList<QAbstractItemModel *>{&pads, &grid}) {
        QCOMPARE(model->index(0, 1).data(ButtonRole).toString(), QString());
        QVERIFY(!model->setData(model->index(0, 1), "x"));
        QVERIFY(model->dropMimeData(Payload::fog().get(), Qt::CopyAction, -1, -1, model->index(0, 1)));
    }
    QCOMPARE(pads.getlist(), (QList<QList<Record>>{{strobe}}));
    QCOMPARE(grid.getlist(), (QList<QList<Record>>{{strobe}}));
}

void TestDrops::damaged_data()
{
    QTest::addColumn<QByteArray>("texts");
    QTest::addColumn<Record>("after");
    QTest::addColumn<bool>("isUnticked");
    const QStringList whole = {"4", "0", "Fog", "5", "Fog low", "1", "8", "1", "red", "blue", "1"};
    const auto first = [&whole](int count) { return Payload::textBytes(whole.mid(0, count)); };
    const Record noTexts = cell({"", "", "", "", ""}, "");
    const Record noButton = cell({"Fog", "5", "Fog low", "", ""}, "");
    const Record lit = with(foggy, "coloroff", "red");
    QTest::newRow("row alone") << first(1) << noTexts << false;
    QTest::newRow("null texts") << Payload::textBytes({"4", "0", {}, {}, {}, "1", {}}) << noTexts << true;
    QTest::newRow("no origin") << first(5) << noButton << false;
    QTest::newRow("no button") << first(6) << noButton << true;
    QTest::newRow("half a button") << first(7).chopped(1) << noButton << true;
    QTest::newRow("seven texts, as pads send them") << first(7) << with(foggy, "avail", "") << true;
    QTest::newRow("nine texts and a half") << first(10).chopped(1) << lit << true;
    QTest::newRow("eleven texts and a stump")
        << first(11) + QByteArray(3, '\0') << with(with(lit, "coloron", "blue"), "blink", "1") << true;
}

void TestDrops::damaged()
{
    QFETCH(QByteArray, texts);
    QFETCH(Record, after);
    QFETCH(bool, isUnticked);
    for (const QByteArray &color :
         {Payload::colorBytes(0xab, 0xcd, 0xef), Payload::colorBytes(1, 2, 3).left(6)}) {
        Table table;
        table.fill(2, 0, strobe);
        QVERIFY(table.drop(*Payload::of(texts, color), table.model.index(2, 0)));
        after["color"] = color.size() < 11 ? "" : "#abcdef";
        if (after.value("name").isEmpty() && !Table::onTheGrid())
            after["name"] = "PAD 3";
        QCOMPARE(table.filled(), QStringList{table.told(2, 0, after)});
        QCOMPARE(table.heard.mid(0, 1), QStringList{table.dropped(2, 0)});
        QCOMPARE(table.heard.contains("unticked 41"), isUnticked);
    }
}

void TestDrops::throughTheView_data()
{
    QTest::addColumn<bool>("isMove");   // of a par at 5,0
    QTest::addColumn<Record>("target"); // at 2,0
    QTest::newRow("Live Button on an empty cell") << false << atRest;
    QTest::newRow("Live Button on a filled cell") << false << strobe;
    QTest::newRow("to an empty cell") << true << atRest;
    QTest::newRow("to a filled cell") << true << strobe;
}

void TestDrops::throughTheView()
{
    QFETCH(bool, isMove);
    QFETCH(Record, target);
    for (const Qt::DropAction action : {Qt::CopyAction, Qt::MoveAction}) {
        Table table;
        table.fill(5, 0, par);
        table.fill(2, 0, target);
        View view(table.model);
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        const auto data = isMove ? table.drag(5, 0) : Payload::fog();
        QVERIFY(Models::drop(view, *data, view.rectOf(2, 0).center(), action));
        const Record source = target == strobe ? strobe : emptied(Table::onTheGrid() ? "LEFT 4" : "PAD 6");
        QCOMPARE(table.filled(), (QStringList{table.told(2, 0, isMove ? parTravelled : foggy),
                                              table.told(5, 0, isMove ? source : par)}));
    }
}

void TestDrops::viewRefusesOtherData()
{
    Table table;
    View view(table.model);
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    for (const char *format : {"application/vnd.text.list", "application/x-color", "text/plain"}) {
        QMimeData data;
        data.setData(format, Payload::fog()->data("application/vnd.text.list"));
        QVERIFY2(!Models::drop(view, data, view.rectOf(2, 0).center()), format);
    }
    QCOMPARE(table.filled() + table.heard, QStringList());
}

void TestDrops::besideThroughTheView_data()
{
    QTest::addColumn<QPoint>("point"); // from the lower right corner of the cell 2,1
    QTest::addColumn<Record>("cell");
    QTest::newRow("on the line below a filled cell") << QPoint(-20, 1) << strobe;
    QTest::newRow("on the line below an empty cell") << QPoint(-20, 1) << atRest;
    QTest::newRow("on the line beside a cell") << QPoint(1, -10) << atRest;
    QTest::newRow("below the last row") << QPoint(-20, 500) << atRest;
}

/** Pads take what falls beside them and blank a dragged pad; the grid takes nothing. */
void TestDrops::besideThroughTheView()
{
    QFETCH(QPoint, point);
    QFETCH(Record, cell);
    Table table;
    table.fill(2, 1, cell);
    table.fill(9, 1, par);
    View view(table.model);
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    const QStringList before = table.filled();
    point += view.rectOf(2, 1).bottomRight();
    QCOMPARE(Models::drop(view, *Payload::fog(), point), !Table::onTheGrid());
    QCOMPARE(table.filled(), before);
    QCOMPARE(Models::drop(view, *table.drag(9, 1), point), !Table::onTheGrid());
    const Record blanked = {{"name", "PAD 10"}, {"pagenr", ""}, {"dspname", ""}, {"id", ""}, {"color", ""}};
    QCOMPARE(table.filled().last(), table.told(9, 1, Table::onTheGrid() ? par : blanked));
    QCOMPARE(table.heard, Table::onTheGrid() ? QStringList() : QStringList{"dropped 4 on -1"});
}

QTEST_MAIN(TestDrops)
#include "test_drops.moc"

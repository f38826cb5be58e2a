#include "support/models.h"
#include "support/payload.h"
#include "tables/controller.h"
#include "tables/mymodel.h"
#include "tables/record.h"
#include "tables/roles.h"

#include <QAbstractItemModelTester>
#include <QBuffer>
#include <QColor>
#include <QDragMoveEvent>
#include <QImage>
#include <QMimeData>
#include <QRegularExpression>
#include <QStandardItemModel>
#include <QTableView>
#include <QtTest>

#include <memory>

namespace {

/** A key's texts, in the order of Field. */
using Key = QStringList;

enum Field { Name, Page, DisplayName, Button, Available, Off, On, Blink, Color };

const QStringList recordKeys = {"name",     "pagenr",  "dspname", "id",   "avail",
                                "coloroff", "coloron", "blink",   "color"};
const QVector<int> roles = {Qt::EditRole, PageRole,    DisplayNameRole, ButtonRole,        AvailableRole,
                            OffColorRole, OnColorRole, BlinkRole,       Qt::DecorationRole};

const Key blank = {"", "0", "", "-1", "1", "", "", "0", "#000000"};
const Key foggy = {"Fog", "5", "Fog low", "8", "1", "", "", "", "#abcdef"};
const Key strobe = {"My strobe", "3", "Strobe", "41", "1", "#ff0000", "lime", "1", "#102030"};
const Key par = {"My par", "2", "Par", "17", "1", "", "#00ff00", "0", "#F0E0D0"};
const Key parTravelled = {"My par", "2", "Par", "17", "1", "", "#00ff00", "0", "#f0e0d0"};

Key emptied(const QString &label)
{
    return {label, "0", label, "-1", "1", "", "", "", "#000000"};
}

Key with(Key key, Field field, const QString &text)
{
    key[field] = text;
    return key;
}

Key keyAt(const Controller &model, int row, int column)
{
    const Record record = model.getlist().at(row).at(column);
    Key key;
    for (const QString &name : recordKeys)
        key.append(record.value(name));
    return key;
}

/** The 12 rows of the program, each key at rest but for those that fill() puts in. */
class Grid final
{
public:
    Grid() { model.insertRows(0, 12); }

    void fill(int row, int column, const Key &key)
    {
        for (int i = 0; i < roles.size(); ++i)
            model.setData(model.index(row, column), key.at(i), roles.at(i));
    }

    /** What a drag of a key carries. */
    std::unique_ptr<QMimeData> drag(int row, int column) const
    {
        return std::unique_ptr<QMimeData>(model.mimeData({model.index(row, column)}));
    }

    /** Row and column of each key that is not at rest, with its texts. */
    QStringList filled() const
    {
        QStringList keys;
        for (int row = 0; row < model.rowCount(); ++row) {
            for (int column = 0; column < 12; ++column) {
                const Key key = keyAt(model, row, column);
                if (key != blank)
                    keys.append(told(row, column, key));
            }
        }
        return keys;
    }

    static QString told(int row, int column, const Key &key)
    {
        return QString("%1,%2: ").arg(row).arg(column) + key.join('|');
    }

    Controller model;
};

/** Notes the signals of a grid in their order, with the button number that a key holds by then. */
class Listener final : public QObject
{
public:
    explicit Listener(const Controller &model, const QPersistentModelIndex &key = {}) : m_key(key)
    {
        connect(&model, &Controller::ItemDroped, this, [this](int index, int to, int column) {
            hear(QString("ItemDroped(%1,%2,%3)").arg(index).arg(to).arg(column));
        });
        connect(&model, &Controller::ItemToUncheck, this,
                [this](int to) { hear(QString("ItemToUncheck(%1)").arg(to)); });
    }

    QStringList heard;

private:
    void hear(const QString &signal)
    {
        heard.append(m_key.isValid() ? signal + " while the key holds " + m_key.data(ButtonRole).toString()
                                     : signal);
    }

    QPersistentModelIndex m_key;
};

/** The view as the program sets it up: it drags and takes drops; there is room beside the grid. */
class GridView final
{
public:
    explicit GridView(Controller &model)
    {
        view.setModel(&model);
        view.setDragEnabled(true);
        view.setAcceptDrops(true);
        view.setDropIndicatorShown(true);
        view.setDefaultDropAction(Qt::CopyAction);
        view.resize(1400, 600);
        view.show();
    }

    QRect rectOf(int row, int column) { return view.visualRect(view.model()->index(row, column)); }

    /** Drops data at a point of the viewport; whether the view took it. */
    bool drop(const QMimeData &data, const QPoint &point, Qt::DropAction action = Qt::CopyAction)
    {
        return Models::drop(view, data, point, action);
    }

    QTableView view;
};

/** Fills a model with rows that are told apart by the names in their first column: "0", "1" and so on. */
void fillNumbered(Controller &model, int count)
{
    model.insertRows(0, count);
    for (int row = 0; row < count; ++row)
        model.setData(model.index(row, 0), QString::number(row));
}

QStringList numbers(int from, int to, int step = 1)
{
    QStringList numbers;
    for (int number = from; number <= to; number += step)
        numbers.append(QString::number(number));
    return numbers;
}

QByteArray png(const QString &color)
{
    QImage image(10, 10, QImage::Format_ARGB32);
    image.fill(QColor(color));
    QBuffer buffer;
    image.save(&buffer, "PNG", 100);
    return buffer.data();
}

/** The table ignores the parent when it counts rows. */
const QStringList MeantComplaints = {"hasChildren(topIndex)", "model->parent(childIndex)"};

} // namespace

/** The key grid of a pad controller. */
class TestController final : public QObject
{
    Q_OBJECT

private slots:
    void metaObjectOfTheClass();
    void emptyTable();
    void freshRows();
    void listGivenAtStart();
    void parentDoesNotMatter();

    void readRole_data();
    void readRole();
    void readColor_data();
    void readColor();
    void readOffTheTable_data();
    void readOffTheTable();
    void rowOfOneCell();

    void writeRole_data();
    void writeRole();
    void writeRefused_data();
    void writeRefused();
    void writeOffTheTable_data();
    void writeOffTheTable();

    void restingLabel_data();
    void restingLabel();
    void toolTip_data();
    void toolTip();
    void toolTipPicture_data();
    void toolTipPicture();
    void noToolTip_data();
    void noToolTip();
    void header_data();
    void header();
    void flags_data();
    void flags();
    void flagsOfFreshRow();
    void flagsOfNoKey();
    void actions();

    void insertRows_data();
    void insertRows();
    void removeRows_data();
    void removeRows();

    void mimeTypes();
    void mimeDataBytes();
    void mimeDataOfFreshKey();
    void mimeDataOfSeveral();
    void mimeDataOfNothing_data();
    void mimeDataOfNothing();
    void mimeDataOfRowThatIsGone();

    void dropLiveButton_data();
    void dropLiveButton();
    void dropLiveButtonThroughTheView_data();
    void dropLiveButtonThroughTheView();
    void dropFromTheLiveButtonsTable();
    void replacedButtonIsToldLast();
    void dropTakesItsPlaceFromTheParent();
    void dropOfUnknownOrigin_data();
    void dropOfUnknownOrigin();
    void dropOfSeveral();
    void dropColors_data();
    void dropColors();

    void moveKey_data();
    void moveKey();
    void moveKeyThroughTheView();
    void swapKeys_data();
    void swapKeys();
    void swapKeysThroughTheView();
    void dropKeyOnItself();
    void dropKeyOnItselfThroughTheView();
    void textColorStays();
    void moveKeyFromOutside_data();
    void moveKeyFromOutside();

    void dropBeside_data();
    void dropBeside();
    void viewRefusesDrop_data();
    void viewRefusesDrop();

    void dropRefused_data();
    void dropRefused();
    void dropRefusedThroughTheView();
    void dropIgnored();
    void dropDamaged_data();
    void dropDamaged();
    void dropCutAnywhere_data();
    void dropCutAnywhere();

    void neverTellsOfChanges();
    void modelContract();
    void modelContractFrontStorage();
    void modelContractSweep();
};

void TestController::metaObjectOfTheClass()
{
    const QMetaObject &meta = Controller::staticMetaObject;
    QCOMPARE(meta.className(), "Controller");
    QCOMPARE(meta.superClass()->className(), "QAbstractTableModel");
    QVERIFY(meta.indexOfSignal("ItemDroped(int,int,int)") >= 0);
    QVERIFY(meta.indexOfSignal("ItemToUncheck(int)") >= 0);
    QCOMPARE(meta.indexOfSignal("ItemMoved(int)"), -1);
}

void TestController::emptyTable()
{
    Controller model;
    QCOMPARE(model.rowCount(), 0);
    QCOMPARE(model.columnCount(), 12);
    QVERIFY(model.getlist().isEmpty());
    QCOMPARE(model.data({}, Qt::DisplayRole), QVariant());
    QCOMPARE(model.data(Models::lostIndex(model, 0, 0), Qt::BackgroundRole), QVariant());
}

void TestController::freshRows()
{
    Controller model;
    QVERIFY(model.insertRows(0, 2));
    const Record expected = {{"name", ""},         {"dspname", ""},         {"id", "-1"},    {"avail", "1"},
                             {"color", "#000000"}, {"coloroff", ""},        {"coloron", ""}, {"blink", "0"},
                             {"pagenr", "0"},      {"textcolor", "#ffffff"}};
    const QList<Record> row = QVector<Record>(12, expected).toList();
    QCOMPARE(model.getlist(), (QList<QList<Record>>{row, row}));
}

void TestController::listGivenAtStart()
{
    QObject parent;
    const QList<QList<Record>> rows = {{{{"name", "a"}}, {{"name", "b"}}}, {}};
    auto *model = new Controller(rows, &parent);
    QCOMPARE(model->parent(), &parent);
    QCOMPARE(model->rowCount(), 2);
    QCOMPARE(model->getlist(), rows);

    QList<QList<Record>> copy = model->getlist();
    copy[0][0]["name"] = "changed";
    QCOMPARE(model->getlist(), rows);
}

void TestController::parentDoesNotMatter()
{
    const Grid grid;
    QCOMPARE(grid.model.rowCount(grid.model.index(1, 1)), 12);
    QCOMPARE(grid.model.columnCount(grid.model.index(1, 1)), 12);
}

void TestController::readRole_data()
{
    QTest::addColumn<int>("role");
    QTest::addColumn<QVariant>("value");
    QTest::newRow("display") << int(Qt::DisplayRole) << QVariant("My strobe");
    QTest::newRow("edit") << int(Qt::EditRole) << QVariant("My strobe");
    QTest::newRow("decoration") << int(Qt::DecorationRole) << QVariant(QColor(0x10, 0x20, 0x30));
    QTest::newRow("background") << int(Qt::BackgroundRole) << QVariant(QColor(Qt::white));
    QTest::newRow("foreground") << int(Qt::ForegroundRole) << QVariant(QColor(0, 0x80, 0));
    QTest::newRow("page") << int(PageRole) << QVariant("3");
    QTest::newRow("display name") << int(DisplayNameRole) << QVariant("Strobe");
    QTest::newRow("button") << int(ButtonRole) << QVariant("41");
    QTest::newRow("available") << int(AvailableRole) << QVariant("1");
    QTest::newRow("off colour") << int(OffColorRole) << QVariant("#ff0000");
    QTest::newRow("on colour") << int(OnColorRole) << QVariant("lime");
    QTest::newRow("blink") << int(BlinkRole) << QVariant("1");

    QTest::newRow("no tick") << int(Qt::CheckStateRole) << QVariant();
    QTest::newRow("no font") << int(Qt::FontRole) << QVariant();
    QTest::newRow("no alignment") << int(Qt::TextAlignmentRole) << QVariant();
    QTest::newRow("no role before the custom ones") << 255 << QVariant();
    QTest::newRow("no source") << int(SourceRole) << QVariant();
    QTest::newRow("no role behind the custom ones") << 264 << QVariant();
}

void TestController::readRole()
{
    QFETCH(int, role);
    QFETCH(QVariant, value);
    Grid grid;
    grid.fill(11, 10, strobe);
    grid.model.setData(grid.model.index(11, 10), "green", Qt::ForegroundRole);
    const QVariant actual = grid.model.data(grid.model.index(11, 10), role);
    QCOMPARE(actual.userType(), value.userType());
    QCOMPARE(actual, value);
}

void TestController::readColor_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QColor>("color");
    QTest::newRow("colour word") << "red" << QColor(255, 0, 0);
    QTest::newRow("upper case") << "#0A0B0C" << QColor(10, 11, 12);
    QTest::newRow("no colour") << "chartreux" << QColor();
    QTest::newRow("empty") << "" << QColor();
}

void TestController::readColor()
{
    QFETCH(QString, text);
    QFETCH(QColor, color);
    Grid grid;
    for (const int role : {int(Qt::DecorationRole), int(Qt::ForegroundRole)}) {
        grid.model.setData(grid.model.index(2, 3), text, role);
        const QVariant actual = grid.model.data(grid.model.index(2, 3), role);
        QCOMPARE(actual.userType(), int(QMetaType::QColor));
        QCOMPARE(actual.value<QColor>(), color);
    }
}

void TestController::readOffTheTable_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::newRow("row behind the last") << 12 << 0;
    QTest::newRow("far row") << 60000 << 11;
    QTest::newRow("no index") << -1 << -1;
}

void TestController::readOffTheTable()
{
    QFETCH(int, row);
    QFETCH(int, column);
    const Grid grid;
    QVERIFY(!grid.model.index(row, column).isValid());
    for (const int role : {int(Qt::DisplayRole), int(Qt::DecorationRole), int(Qt::ToolTipRole),
                           int(Qt::BackgroundRole), int(PageRole), int(BlinkRole)})
        QCOMPARE(grid.model.data(Models::lostIndex(grid.model, row, column), role), QVariant());
}

void TestController::rowOfOneCell()
{
    const QList<QList<Record>> rows = {{{{"name", "a"}}}};
    Controller model(rows);
    QCOMPARE(model.data(model.index(0, 5), Qt::EditRole).toString(), QString());
    model.setData(model.index(0, 5), "x", Qt::EditRole);
    QVERIFY(model.dropMimeData(Payload::fog().get(), Qt::CopyAction, -1, -1, model.index(0, 5)));
    QCOMPARE(model.getlist().at(0).at(0), rows.at(0).at(0));
}

void TestController::writeRole_data()
{
    QTest::addColumn<int>("role");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("display") << int(Qt::DisplayRole) << "name" << QVariant("Fog") << "Fog";
    QTest::newRow("edit") << int(Qt::EditRole) << "name" << QVariant("Fog") << "Fog";
    QTest::newRow("edit to an empty text") << int(Qt::EditRole) << "name" << QVariant("") << "";
    QTest::newRow("edit to nothing") << int(Qt::EditRole) << "name" << QVariant() << "";
    QTest::newRow("edit to a number") << int(Qt::EditRole) << "name" << QVariant(12) << "12";
    QTest::newRow("decoration") << int(Qt::DecorationRole) << "color" << QVariant("#AbCdEf") << "#AbCdEf";
    QTest::newRow("decoration from a colour")
        << int(Qt::DecorationRole) << "color" << QVariant(QColor(0xab, 0xcd, 0xef)) << "#abcdef";
    QTest::newRow("decoration from nonsense")
        << int(Qt::DecorationRole) << "color" << QVariant("mud") << "mud";
    QTest::newRow("foreground") << int(Qt::ForegroundRole) << "textcolor" << QVariant("RED") << "RED";
    QTest::newRow("page") << int(PageRole) << "pagenr" << QVariant("7") << "7";
    QTest::newRow("page from a number") << int(PageRole) << "pagenr" << QVariant(7) << "7";
    QTest::newRow("display name") << int(DisplayNameRole) << "dspname" << QVariant("Fog") << "Fog";
    QTest::newRow("button") << int(ButtonRole) << "id" << QVariant("5") << "5";
    QTest::newRow("available") << int(AvailableRole) << "avail" << QVariant("0") << "0";
    QTest::newRow("off colour") << int(OffColorRole) << "coloroff" << QVariant("Blue") << "Blue";
    QTest::newRow("off colour from a colour")
        << int(OffColorRole) << "coloroff" << QVariant(QColor(1, 2, 3)) << "#010203";
    QTest::newRow("no off colour") << int(OffColorRole) << "coloroff" << QVariant("") << "";
    QTest::newRow("on colour") << int(OnColorRole) << "coloron" << QVariant("#00FF00") << "#00FF00";
    QTest::newRow("blink") << int(BlinkRole) << "blink" << QVariant("0") << "0";
    QTest::newRow("blink from a number") << int(BlinkRole) << "blink" << QVariant(1) << "1";
}

void TestController::writeRole()
{
    QFETCH(int, role);
    QFETCH(QString, key);
    QFETCH(QVariant, value);
    QFETCH(QString, text);
    Grid grid;
    grid.fill(5, 11, strobe);
    QList<QList<Record>> expected = grid.model.getlist();
    expected[5][11][key] = text;
    QVERIFY(grid.model.setData(grid.model.index(5, 11), value, role));
    QCOMPARE(grid.model.getlist(), expected);
}

void TestController::writeRefused_data()
{
    QTest::addColumn<int>("role");
    QTest::addColumn<bool>("result");
    QTest::newRow("background is taken and forgotten") << int(Qt::BackgroundRole) << true;
    QTest::newRow("tool tip") << int(Qt::ToolTipRole) << false;
    QTest::newRow("status tip") << int(Qt::StatusTipRole) << false;
    QTest::newRow("font") << int(Qt::FontRole) << false;
    QTest::newRow("alignment") << int(Qt::TextAlignmentRole) << false;
    QTest::newRow("tick") << int(Qt::CheckStateRole) << false;
    QTest::newRow("size") << int(Qt::SizeHintRole) << false;
    QTest::newRow("before the custom ones") << 255 << false;
    QTest::newRow("source") << int(SourceRole) << false;
    QTest::newRow("behind the custom ones") << 264 << false;
    QTest::newRow("negative") << -1 << false;
}

void TestController::writeRefused()
{
    QFETCH(int, role);
    Grid grid;
    const QList<QList<Record>> before = grid.model.getlist();
    for (const QVariant &value : {QVariant("x"), QVariant(0), QVariant(QColor(Qt::red))})
        QTEST(grid.model.setData(grid.model.index(5, 11), value, role), "result");
    QCOMPARE(grid.model.getlist(), before);
}

void TestController::writeOffTheTable_data()
{
    readOffTheTable_data();
    QTest::newRow("column behind the last") << 0 << 12;
    QTest::newRow("both") << 12 << 12;
}

void TestController::writeOffTheTable()
{
    QFETCH(int, row);
    QFETCH(int, column);
    Grid grid;
    const QModelIndex lost = Models::lostIndex(grid.model, row, column);
    for (const int role : roles)
        QVERIFY(!grid.model.setData(lost, "x", role));
    QCOMPARE(grid.filled(), QStringList());
    QCOMPARE(grid.model.rowCount(), 12);
}

void TestController::restingLabel_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QStringList>("labels");
    const QStringList none = QVector<QString>(12, "").toList();
    QTest::newRow("top band") << 0 << QStringList{"",      "TOP 0", "TOP 1", "TOP 2", "TOP 3", "TOP 4",
                                                  "TOP 5", "TOP 6", "TOP 7", "TOP 8", "",      "TOP 10"};
    QTest::newRow("gap below the top band") << 1 << none;
    QTest::newRow("pads 1 to 8") << 2 << QStringList{"LEFT 1", "",      "PAD 1", "PAD 2", "PAD 3", "PAD 4",
                                                     "PAD 5",  "PAD 6", "PAD 7", "PAD 8", "",      "RIGHT 1"};
    QTest::newRow("pads 9 to 16") << 3
                                  << QStringList{"LEFT 2", "",       "PAD 9",  "PAD 10", "PAD 11", "PAD 12",
                                                 "PAD 13", "PAD 14", "PAD 15", "PAD 16", "",       "RIGHT 2"};
    QTest::newRow("pads 17 to 24") << 4 << QStringList{"LEFT 3", "",       "PAD 17", "PAD 18",
                                                       "PAD 19", "PAD 20", "PAD 21", "PAD 22",
                                                       "PAD 23", "PAD 24", "",       "RIGHT 3"};
    QTest::newRow("pads 25 to 32") << 5 << QStringList{"LEFT 4", "",       "PAD 25", "PAD 26",
                                                       "PAD 27", "PAD 28", "PAD 29", "PAD 30",
                                                       "PAD 31", "PAD 32", "",       "RIGHT 4"};
    QTest::newRow("pads 33 to 40") << 6 << QStringList{"LEFT 5", "",       "PAD 33", "PAD 34",
                                                       "PAD 35", "PAD 36", "PAD 37", "PAD 38",
                                                       "PAD 39", "PAD 40", "",       "RIGHT 5"};
    QTest::newRow("pads 41 to 48") << 7 << QStringList{"LEFT 6", "",       "PAD 41", "PAD 42",
                                                       "PAD 43", "PAD 44", "PAD 45", "PAD 46",
                                                       "PAD 47", "PAD 48", "",       "RIGHT 6"};
    QTest::newRow("pads 49 to 56") << 8 << QStringList{"LEFT 7", "",       "PAD 49", "PAD 50",
                                                       "PAD 51", "PAD 52", "PAD 53", "PAD 54",
                                                       "PAD 55", "PAD 56", "",       "RIGHT 7"};
    QTest::newRow("pads 57 to 64") << 9 << QStringList{"LEFT 8", "",       "PAD 57", "PAD 58",
                                                       "PAD 59", "PAD 60", "PAD 61", "PAD 62",
                                                       "PAD 63", "PAD 64", "",       "RIGHT 8"};
    QTest::newRow("gap above the bottom band") << 10 << none;
    QTest::newRow("bottom band") << 11 << QStringList{"",         "BOTTOM 0", "BOTTOM 1", "BOTTOM 2",
                                                      "BOTTOM 3", "BOTTOM 4", "BOTTOM 5", "BOTTOM 6",
                                                      "BOTTOM 7", "BOTTOM 8", "",         "BOTTOM 10"};
}

/** A key that moves away leaves its label, and a filled one tells it in its tool tip. */
void TestController::restingLabel()
{
    QFETCH(int, row);
    QFETCH(QStringList, labels);
    QCOMPARE(labels.size(), 12);
    for (int column = 0; column < 12; ++column) {
        Grid grid;
        grid.fill(row, column, par);
        const QString label = labels.at(column);
        const QString tip = grid.model.index(row, column).data(Qt::ToolTipRole).toString();
        QVERIFY2(tip.startsWith(label + "<br>Live Button: My par<br>On Color : "), qPrintable(tip));

        const int toRow = (row + 5) % 12;
        QVERIFY(grid.model.dropMimeData(grid.drag(row, column).get(), Qt::CopyAction, -1, -1,
                                        grid.model.index(toRow, column)));
        QCOMPARE(keyAt(grid.model, row, column), emptied(label));
        QCOMPARE(grid.drag(row, column)->data("application/vnd.text.list"),
                 Payload::textBytes({QString::number(row), QString::number(column), label, "0", label, "0",
                                     "-1", "1", "", "", ""}));
        QCOMPARE(keyAt(grid.model, toRow, column), parTravelled);
    }
}

void TestController::toolTip_data()
{
    QTest::addColumn<Key>("key");
    QTest::addColumn<QString>("text"); // with the pictures' data left out
    QTest::addColumn<QStringList>("colors");
    const Key plain = {"My fog", "3", "Fog", "41", "1", "", "", "0", "#102030"};
    QTest::newRow("no colours, no blink")
        << plain << "PAD 9<br>Live Button: My fog<br><br>Right-click to Remove" << QStringList();
    QTest::newRow("off colour alone") << with(plain, Off, "#FF8000")
                                      << "PAD 9<br>Live Button: My fog"
                                         "<br>Off Color : <img src='data:image/png;base64, '>"
                                         "<br><br>Right-click to Remove"
                                      << QStringList{"#FF8000"};
    QTest::newRow("on colour alone") << with(plain, On, "blue")
                                     << "PAD 9<br>Live Button: My fog"
                                        "<br>On Color : <img src='data:image/png;base64, '>"
                                        "<br><br>Right-click to Remove"
                                     << QStringList{"blue"};
    QTest::newRow("blink alone") << with(plain, Blink, "1")
                                 << "PAD 9<br>Live Button: My fog<br>Blink : Yes<br><br>Right-click to Remove"
                                 << QStringList();
    QTest::newRow("both colours and blink")
        << with(with(with(plain, Off, "#010203"), On, "#ffffff"), Blink, "1")
        << "PAD 9<br>Live Button: My fog"
           "<br>Off Color : <img src='data:image/png;base64, '>"
           "<br>On Color : <img src='data:image/png;base64, '>"
           "<br>Blink : Yes<br><br>Right-click to Remove"
        << QStringList{"#010203", "#ffffff"};
    QTest::newRow("the same colour twice") << with(with(plain, Off, "red"), On, "red")
                                           << "PAD 9<br>Live Button: My fog"
                                              "<br>Off Color : <img src='data:image/png;base64, '>"
                                              "<br>On Color : <img src='data:image/png;base64, '>"
                                              "<br><br>Right-click to Remove"
                                           << QStringList{"red", "red"};
    QTest::newRow("empty blink") << with(plain, Blink, "")
                                 << "PAD 9<br>Live Button: My fog<br><br>Right-click to Remove"
                                 << QStringList();
    QTest::newRow("any other blink") << with(plain, Blink, "2")
                                     << "PAD 9<br>Live Button: My fog<br><br>Right-click to Remove"
                                     << QStringList();
    QTest::newRow("percent signs and markup in the name stay as they are")
        << with(with(plain, Name, "50%0 <b>%1"), Off, "red")
        << "PAD 9<br>Live Button: 50%0 <b>%1"
           "<br>Off Color : <img src='data:image/png;base64, '>"
           "<br><br>Right-click to Remove"
        << QStringList{"red"};
    QTest::newRow("the name shows, not the Live Button's own")
        << with(plain, DisplayName, "other") << "PAD 9<br>Live Button: My fog<br><br>Right-click to Remove"
        << QStringList();
    QTest::newRow("the page does not matter")
        << with(plain, Page, "0") << "PAD 9<br>Live Button: My fog<br><br>Right-click to Remove"
        << QStringList();
    QTest::newRow("an available that is neither 0 nor 1")
        << with(plain, Available, "") << "PAD 9<br>Live Button: My fog<br><br>Right-click to Remove"
        << QStringList();
}

void TestController::toolTip()
{
    QFETCH(Key, key);
    QFETCH(QStringList, colors);
    Grid grid;
    grid.fill(3, 2, key);
    const QVariant tip = grid.model.data(grid.model.index(3, 2), Qt::ToolTipRole);
    QCOMPARE(tip.userType(), int(QMetaType::QString));

    const QRegularExpression picture("(?<=base64, )[A-Za-z0-9+/=]+(?=')");
    QList<QByteArray> pictures;
    for (auto found = picture.globalMatch(tip.toString()); found.hasNext();)
        pictures.append(QByteArray::fromBase64(found.next().captured().toLatin1()));
    QList<QByteArray> expected;
    for (const QString &color : colors)
        expected.append(png(color));
    QCOMPARE(pictures, expected);
    QTEST(tip.toString().remove(picture), "text");
}

void TestController::toolTipPicture_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QColor>("color");
    QTest::newRow("digits") << "#102030" << QColor(0x10, 0x20, 0x30);
    QTest::newRow("upper case") << "#ABCDEF" << QColor(0xab, 0xcd, 0xef);
    QTest::newRow("colour word") << "red" << QColor(255, 0, 0);
    QTest::newRow("black") << "#000000" << QColor(0, 0, 0);
    QTest::newRow("no colour") << "mud" << QColor(0, 0, 0);
}

void TestController::toolTipPicture()
{
    QFETCH(QString, text);
    QFETCH(QColor, color);
    Grid grid;
    grid.fill(3, 2, with(foggy, Off, text));
    const QString tip = grid.model.index(3, 2).data(Qt::ToolTipRole).toString();
    const QString start = "PAD 9<br>Live Button: Fog<br>Off Color : <img src='data:image/png;base64, ";
    QVERIFY2(tip.startsWith(start), qPrintable(tip));

    const QString base64 = tip.mid(start.size()).section('\'', 0, 0);
    const QImage image = QImage::fromData(QByteArray::fromBase64(base64.toLatin1()), "PNG");
    QCOMPARE(image.size(), QSize(10, 10));
    QCOMPARE(image.format(), QImage::Format_ARGB32);
    for (int y = 0; y < 10; ++y) {
        for (int x = 0; x < 10; ++x)
            QCOMPARE(image.pixelColor(x, y), color);
    }
}

void TestController::noToolTip_data()
{
    QTest::addColumn<Key>("key");
    QTest::newRow("fresh key") << blank;
    QTest::newRow("no key here") << with(blank, Available, "0");
    QTest::newRow("an assignment that the device lacks a key for") << with(strobe, Available, "0");
    QTest::newRow("LED colours without a Live Button") << with(strobe, Button, "-1");
}

void TestController::noToolTip()
{
    QFETCH(Key, key);
    Grid grid;
    grid.fill(3, 2, key);
    QCOMPARE(grid.model.data(grid.model.index(3, 2), Qt::ToolTipRole), QVariant());
    QCOMPARE(keyAt(grid.model, 3, 2), key);
}

void TestController::header_data()
{
    QTest::addColumn<int>("section");
    QTest::addColumn<Qt::Orientation>("orientation");
    QTest::addColumn<int>("role");
    QTest::addColumn<QVariant>("value");
    const int text = Qt::DisplayRole;
    QTest::newRow("first column") << 0 << Qt::Horizontal << text << QVariant("Color");
    QTest::newRow("second column") << 1 << Qt::Horizontal << text << QVariant();
    QTest::newRow("last column") << 11 << Qt::Horizontal << text << QVariant();
    QTest::newRow("column before the first") << -1 << Qt::Horizontal << text << QVariant();
    QTest::newRow("first row") << 0 << Qt::Vertical << text << QVariant("");
    QTest::newRow("last row") << 11 << Qt::Vertical << text << QVariant("");
    QTest::newRow("row behind the last") << 12 << Qt::Vertical << text << QVariant("");
    QTest::newRow("edit role of a column") << 0 << Qt::Horizontal << int(Qt::EditRole) << QVariant();
    QTest::newRow("edit role of a row") << 0 << Qt::Vertical << int(Qt::EditRole) << QVariant();
    QTest::newRow("tool tip of a row") << 0 << Qt::Vertical << int(Qt::ToolTipRole) << QVariant();
}

void TestController::header()
{
    QFETCH(int, section);
    QFETCH(Qt::Orientation, orientation);
    QFETCH(int, role);
    QFETCH(QVariant, value);
    const Grid grid;
    const QVariant actual = grid.model.headerData(section, orientation, role);
    QCOMPARE(actual.userType(), value.userType());
    QCOMPARE(actual, value);
}

void TestController::flags_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("available");
    QTest::addColumn<int>("number");
    // 1 selectable, 4 draggable, 8 takes drops, 32 enabled, 128 without children
    const int emptyKey = 1 + 8 + 32 + 128;
    const int filledKey = emptyKey + 4;
    const int noKey = 128;
    const int leftOver = 1 + 128;
    const QString no = "0";
    QTest::newRow("empty key") << no << "1" << emptyKey;
    QTest::newRow("no key here") << no << no << noKey;
    QTest::newRow("filled key") << "3" << QString("1") << filledKey;
    QTest::newRow("an assignment left over") << "3" << no << leftOver;
    QTest::newRow("empty, neither available nor not") << no << QString() << noKey;
    QTest::newRow("filled, neither available nor not") << "3" << QString() << leftOver;
    QTest::newRow("blanked") << QString() << QString() << leftOver;
    QTest::newRow("available with an empty page") << QString() << QString("1") << filledKey;
    QTest::newRow("page 00 is not 0") << "00" << QString("1") << filledKey;
    QTest::newRow("available 01 is not 1") << no << "01" << noKey;
}

void TestController::flags()
{
    QFETCH(QString, page);
    QFETCH(QString, available);
    for (const char *button : {"-1", "41"}) { // the button does not matter
        Grid grid;
        grid.fill(3, 11, with(with(with(strobe, Page, page), Available, available), Button, button));
        const Qt::ItemFlags flags = grid.model.flags(grid.model.index(3, 11));
        QTEST(int(flags), "number");
        QVERIFY(!flags.testFlag(Qt::ItemIsEditable));
    }
}

void TestController::flagsOfFreshRow()
{
    const Grid grid;
    for (int row = 0; row < 12; ++row) {
        for (int column = 0; column < 12; ++column)
            QCOMPARE(int(grid.model.flags(grid.model.index(row, column))), 1 + 8 + 32 + 128);
    }
}

void TestController::flagsOfNoKey()
{
    QCOMPARE(int(Controller().flags({})), 0);
    QCOMPARE(int(Grid().model.flags({})), 0);
}

void TestController::actions()
{
    const Controller model;
    QCOMPARE(int(model.supportedDropActions()), 3);
    // A move with the Shift key would make the view blank the dragged key after the drop.
    QCOMPARE(model.supportedDragActions(), Qt::DropActions(Qt::CopyAction));
}

void TestController::insertRows_data()
{
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("position");
    QTest::addColumn<int>("count");
    QTest::addColumn<QStringList>("after");
    QTest::newRow("one into nothing") << 0 << 0 << 1 << QStringList{""};
    QTest::newRow("twelve into nothing") << 0 << 0 << 12 << QStringList(QVector<QString>(12, "").toList());
    QTest::newRow("one at the front") << 3 << 0 << 1 << QStringList{"", "0", "1", "2"};
    QTest::newRow("one in the middle lands in front") << 3 << 1 << 1 << QStringList{"", "0", "1", "2"};
    QTest::newRow("two at the end land in front") << 3 << 3 << 2 << QStringList{"", "", "0", "1", "2"};
    QTest::newRow("position 5 of 3 rows lands in front") << 3 << 5 << 1 << QStringList{"", "0", "1", "2"};
    QTest::newRow("position -1 lands in front") << 3 << -1 << 1 << QStringList{"", "0", "1", "2"};
    QTest::newRow("none") << 3 << 1 << 0 << numbers(0, 2);
    QTest::newRow("fewer than none") << 3 << 1 << -2 << numbers(0, 2);
}

void TestController::insertRows()
{
    QFETCH(int, before);
    QFETCH(int, position);
    QFETCH(int, count);
    QFETCH(QStringList, after);
    Controller model;
    fillNumbered(model, before);
    const Models::RowLog log(model);
    QVERIFY(model.insertRows(position, count, model.index(0, 0)));
    QCOMPARE(Models::firstColumn(model), after);
    QCOMPARE(log.lines, Models::RowLog::of("insert", position, count, numbers(0, before - 1), after));
}

void TestController::removeRows_data()
{
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("position");
    QTest::addColumn<int>("count");
    QTest::addColumn<QStringList>("after");
    QTest::newRow("a count of 1 takes every second row") << 12 << 0 << 1 << numbers(1, 11, 2);
    QTest::newRow("a count of 2 takes three more") << 12 << 0 << 2 << QStringList{"3", "7", "11"};
    QTest::newRow("a count of 3 leaves one") << 12 << 0 << 3 << QStringList{"7"};
    QTest::newRow("a count of 4 leaves none") << 12 << 0 << 4 << QStringList();
    QTest::newRow("all") << 12 << 0 << 12 << QStringList();
    QTest::newRow("more than all") << 12 << 0 << 60000 << QStringList();
    QTest::newRow("from the middle") << 12 << 6 << 1 << numbers(0, 5) + QStringList{"7", "9", "11"};
    QTest::newRow("last") << 12 << 11 << 1 << numbers(0, 10);
    QTest::newRow("behind the last") << 12 << 12 << 1 << numbers(0, 11);
    QTest::newRow("a sweep that begins before the first row ends early")
        << 12 << -8 << 1 << QStringList{"1", "3", "5"} + numbers(7, 11);
    QTest::newRow("a sweep that ends before the first row") << 12 << -12 << 1 << numbers(0, 11);
    QTest::newRow("a sweep goes no further than 12 rows")
        << 36 << 0 << 1 << numbers(1, 23, 2) + numbers(24, 35);
    QTest::newRow("three rows") << 3 << 0 << 1 << QStringList{"1"};
    QTest::newRow("none") << 12 << 0 << 0 << numbers(0, 11);
    QTest::newRow("fewer than none") << 12 << 1 << -2 << numbers(0, 11);
    QTest::newRow("nothing from nothing") << 0 << 0 << 0 << QStringList();
}

void TestController::removeRows()
{
    QFETCH(int, before);
    QFETCH(int, position);
    QFETCH(int, count);
    QFETCH(QStringList, after);
    Controller model;
    fillNumbered(model, before);
    const Models::RowLog log(model);
    QVERIFY(model.removeRows(position, count, model.index(0, 0)));
    QCOMPARE(Models::firstColumn(model), after);
    QCOMPARE(log.lines, Models::RowLog::of("remove", position, count, numbers(0, before - 1), after));
}

void TestController::mimeTypes()
{
    QCOMPARE(Controller().mimeTypes(), (QStringList{"application/vnd.text.list", "application/x-color"}));
}

void TestController::mimeDataBytes()
{
    Grid grid;
    grid.fill(10, 11, {QString::fromUtf8("\xc3\x84"), "3", "", "41", "1", "red", "#0F0", "1", "#12ABcd"});
    const auto data = grid.drag(10, 11);
    QVERIFY(data);
    QCOMPARE(data->formats(), (QStringList{"application/vnd.text.list", "application/x-color"}));

    const QByteArray texts = QByteArray::fromHex("00000004 0031 0030"           // row 10
                                                 "00000004 0031 0031"           // column 11
                                                 "00000002 00c4"                // name
                                                 "00000002 0033"                // page 3
                                                 "00000000"                     // display name, empty
                                                 "00000002 0030"                // from the grid
                                                 "00000004 0034 0031"           // button 41
                                                 "00000002 0031"                // available
                                                 "00000006 0072 0065 0064"      // off colour
                                                 "00000008 0023 0030 0046 0030" // on colour
                                                 "00000002 0031");              // blink
    QCOMPARE(data->data("application/vnd.text.list").toHex(), texts.toHex());
    QCOMPARE(data->data("application/x-color").toHex(), QByteArray("01ffff1212ababcdcd0000"));
}

/** The texts of a fresh key are empty and not null. */
void TestController::mimeDataOfFreshKey()
{
    const auto data = Grid().drag(2, 3);
    const QStringList texts = {"2", "3", "", "0", "", "0", "-1", "1", "", "", "0"};
    QCOMPARE(data->data("application/vnd.text.list").toHex(), Payload::textBytes(texts).toHex());
    QCOMPARE(data->data("application/x-color"), Payload::colorBytes(0, 0, 0));
}

void TestController::mimeDataOfSeveral()
{
    Grid grid;
    grid.fill(11, 1, strobe);
    grid.fill(0, 0, par);
    const std::unique_ptr<QMimeData> data(
        grid.model.mimeData({grid.model.index(11, 1), {}, grid.model.index(0, 0)}));
    QCOMPARE(
        data->data("application/vnd.text.list"),
        Payload::textBytes({"11", "1", "My strobe", "3", "Strobe", "0", "41", "1", "#ff0000", "lime", "1"})
            + Payload::textBytes({"0", "0", "My par", "2", "Par", "0", "17", "1", "", "#00ff00", "0"}));
    QCOMPARE(data->data("application/x-color"),
             Payload::colorBytes(0x10, 0x20, 0x30) + Payload::colorBytes(0xf0, 0xe0, 0xd0));
}

void TestController::mimeDataOfNothing_data()
{
    QTest::addColumn<QModelIndexList>("indexes");
    QTest::newRow("empty list") << QModelIndexList();
    QTest::newRow("invalid indexes") << QModelIndexList{{}, {}};
}

void TestController::mimeDataOfNothing()
{
    QFETCH(QModelIndexList, indexes);
    const std::unique_ptr<QMimeData> data(Grid().model.mimeData(indexes));
    QVERIFY(data);
    QCOMPARE(data->formats(), (QStringList{"application/vnd.text.list", "application/x-color"}));
    QCOMPARE(data->data("application/vnd.text.list"), QByteArray());
    QCOMPARE(data->data("application/x-color"), QByteArray());
}

void TestController::mimeDataOfRowThatIsGone()
{
    Grid grid;
    const QModelIndex stale = grid.model.index(11, 4);
    grid.model.removeRows(11, 1);
    const std::unique_ptr<QMimeData> data(grid.model.mimeData({stale}));
    QCOMPARE(data->data("application/vnd.text.list"),
             Payload::textBytes({"11", "4", {}, {}, {}, "0", {}, {}, {}, {}, {}}));
    QCOMPARE(data->data("application/x-color").toHex(), QByteArray("00ffff0000000000000000"));
}

void TestController::dropLiveButton_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::addColumn<Key>("before");
    QTest::addColumn<QStringList>("heard");
    const QStringList dropped = {"ItemDroped(4,2,3)"};
    QTest::newRow("on an empty key") << 2 << 3 << blank << dropped;
    QTest::newRow("on the first cell") << 0 << 0 << blank << QStringList{"ItemDroped(4,0,0)"};
    QTest::newRow("on the last cell") << 11 << 11 << blank << QStringList{"ItemDroped(4,11,11)"};
    QTest::newRow("on a filled key") << 2 << 3 << strobe << dropped + QStringList{"ItemToUncheck(41)"};
    QTest::newRow("on a key that holds the same button")
        << 2 << 3 << foggy << dropped + QStringList{"ItemToUncheck(8)"};
    QTest::newRow("on a key with button 0")
        << 2 << 3 << with(strobe, Button, "0") << dropped + QStringList{"ItemToUncheck(0)"};
    QTest::newRow("on an empty key with LED colours")
        << 2 << 3 << Key{"PAD 2", "0", "PAD 2", "-1", "1", "red", "lime", "1", "#000000"} << dropped;
    QTest::newRow("on a cell without a key") << 2 << 3 << with(blank, Available, "0") << dropped;
    QTest::newRow("the page tells a filled key, not the button")
        << 2 << 3 << with(strobe, Page, "0") << dropped;
    QTest::newRow("a page below 1 is an empty key") << 2 << 3 << with(strobe, Page, "-2") << dropped;
    QTest::newRow("a page that is no number is an empty key")
        << 2 << 3 << with(strobe, Page, "two") << dropped;
    QTest::newRow("a button that is no number counts as 0")
        << 2 << 3 << with(strobe, Button, "first") << dropped + QStringList{"ItemToUncheck(0)"};
}

void TestController::dropLiveButton()
{
    QFETCH(int, row);
    QFETCH(int, column);
    QFETCH(Key, before);
    for (const Qt::DropAction action : {Qt::CopyAction, Qt::MoveAction, Qt::LinkAction}) {
        Grid grid;
        grid.fill(row, column, before);
        grid.fill(4, 0, par); // where the Live Button's row and column would point in this table
        const Listener listener(grid.model);
        QVERIFY(grid.model.dropMimeData(Payload::fog().get(), action, -1, -1, grid.model.index(row, column)));

        QCOMPARE(keyAt(grid.model, row, column), foggy);
        QCOMPARE(keyAt(grid.model, 4, 0), par);
        QCOMPARE(grid.filled().size(), 2);
        QTEST(listener.heard, "heard");
    }
}

void TestController::dropLiveButtonThroughTheView_data()
{
    QTest::addColumn<Key>("before");
    QTest::addColumn<int>("action");
    QTest::addColumn<QStringList>("heard");
    QTest::newRow("on an empty key") << blank << int(Qt::CopyAction) << QStringList{"ItemDroped(4,2,3)"};
    QTest::newRow("on a filled key") << strobe << int(Qt::CopyAction)
                                     << QStringList{"ItemDroped(4,2,3)", "ItemToUncheck(41)"};
    QTest::newRow("proposed as a move")
        << strobe << int(Qt::MoveAction) << QStringList{"ItemDroped(4,2,3)", "ItemToUncheck(41)"};
}

void TestController::dropLiveButtonThroughTheView()
{
    QFETCH(Key, before);
    QFETCH(int, action);
    Grid grid;
    grid.fill(2, 3, before);
    GridView view(grid.model);
    QVERIFY(QTest::qWaitForWindowExposed(&view.view));
    const Listener listener(grid.model);
    QVERIFY(view.drop(*Payload::fog(), view.rectOf(2, 3).center(), Qt::DropAction(action)));
    QCOMPARE(grid.filled(), QStringList{Grid::told(2, 3, foggy)});
    QTEST(listener.heard, "heard");
}

/** The Live Buttons' own payload makes a key available and leaves its LED to the device. */
void TestController::dropFromTheLiveButtonsTable()
{
    MyModel buttons;
    buttons.insertRows(0, 3);
    buttons.setData(buttons.index(2, 0), "Fog");
    buttons.setData(buttons.index(2, 0), "Fog low", DisplayNameRole);
    buttons.setData(buttons.index(2, 0), "5", PageRole);
    buttons.setData(buttons.index(2, 0), "8", ButtonRole);
    buttons.setData(buttons.index(2, 0), "#ABCDEF", Qt::DecorationRole);
    const std::unique_ptr<QMimeData> data(buttons.mimeData({buttons.index(2, 0)}));

    Grid grid;
    grid.fill(9, 9, with(strobe, Available, "0"));
    const Listener listener(grid.model);
    QVERIFY(grid.model.dropMimeData(data.get(), Qt::CopyAction, -1, -1, grid.model.index(9, 9)));
    QCOMPARE(grid.filled(), QStringList{Grid::told(9, 9, foggy)});
    QCOMPARE(listener.heard, (QStringList{"ItemDroped(2,9,9)", "ItemToUncheck(41)"}));
}

void TestController::replacedButtonIsToldLast()
{
    Grid grid;
    grid.fill(2, 3, strobe);
    const Listener listener(grid.model, grid.model.index(2, 3));
    QVERIFY(grid.model.dropMimeData(Payload::fog().get(), Qt::CopyAction, -1, -1, grid.model.index(2, 3)));
    QCOMPARE(listener.heard, (QStringList{"ItemDroped(4,2,3) while the key holds 8",
                                          "ItemToUncheck(41) while the key holds 8"}));
}

void TestController::dropTakesItsPlaceFromTheParent()
{
    Grid grid;
    const Listener listener(grid.model);
    QVERIFY(grid.model.dropMimeData(Payload::fog().get(), Qt::CopyAction, 7, 7, grid.model.index(5, 1)));
    // Row and column of the parent count, whosever index it is; what it holds does not.
    QStandardItemModel other(12, 12);
    other.setData(other.index(6, 11), "3", PageRole);
    other.setData(other.index(6, 11), "77", ButtonRole);
    QVERIFY(grid.model.dropMimeData(Payload::fog().get(), Qt::CopyAction, 7, 7, other.index(6, 11)));
    QCOMPARE(grid.filled(), (QStringList{Grid::told(5, 1, foggy), Grid::told(6, 11, foggy)}));
    QCOMPARE(listener.heard, (QStringList{"ItemDroped(4,5,1)", "ItemDroped(4,6,11)"}));
}

void TestController::dropOfUnknownOrigin_data()
{
    QTest::addColumn<QString>("origin");
    QTest::newRow("2") << "2";
    QTest::newRow("01") << "01";
    QTest::newRow("00") << "00";
    QTest::newRow("empty") << "";
    QTest::newRow("null") << QString();
}

void TestController::dropOfUnknownOrigin()
{
    QFETCH(QString, origin);
    Grid grid;
    grid.fill(2, 3, strobe);
    grid.fill(4, 0, par);
    const Listener listener(grid.model);
    QVERIFY(
        grid.model.dropMimeData(Payload::fog(origin).get(), Qt::CopyAction, -1, -1, grid.model.index(2, 3)));
    // Not from this table, so the drop is told; not from the Live Buttons, so nothing is unchecked.
    QCOMPARE(listener.heard, QStringList{"ItemDroped(4,2,3)"});
    QCOMPARE(grid.filled(), (QStringList{Grid::told(2, 3, foggy), Grid::told(4, 0, par)}));
}

/** The view lets several keys be selected; the first one alone moves. */
void TestController::dropOfSeveral()
{
    Grid grid;
    grid.fill(2, 3, strobe);
    grid.fill(3, 3, par);
    const Listener listener(grid.model);
    const std::unique_ptr<QMimeData> data(
        grid.model.mimeData({grid.model.index(3, 3), grid.model.index(2, 3)}));
    QVERIFY(grid.model.dropMimeData(data.get(), Qt::CopyAction, -1, -1, grid.model.index(9, 9)));
    QCOMPARE(grid.filled(), (QStringList{Grid::told(2, 3, strobe), Grid::told(3, 3, emptied("PAD 10")),
                                         Grid::told(9, 9, parTravelled)}));
    QCOMPARE(listener.heard, QStringList());
}

void TestController::dropColors_data()
{
    QTest::addColumn<QByteArray>("colors");
    QTest::addColumn<QString>("color");
    QTest::newRow("one") << Payload::colorBytes(0xAB, 0xCD, 0xEF) << "#abcdef";
    QTest::newRow("two") << Payload::colorBytes(1, 2, 3) + Payload::colorBytes(4, 5, 6) << "#010203";
    QTest::newRow("see-through") << QByteArray::fromHex("018080ffff000000000000") << "#ff0000";
    QTest::newRow("invalid") << QByteArray::fromHex("00ffff0000000000000000") << "#000000";
    QTest::newRow("none") << QByteArray() << "";
    QTest::newRow("cut off") << Payload::colorBytes(1, 2, 3).left(10) << "";
}

void TestController::dropColors()
{
    QFETCH(QByteArray, colors);
    Grid grid;
    const auto data =
        Payload::of(Payload::textBytes({"4", "0", "Fog", "5", "Fog low", "1", "8", "1", {}, {}, {}}), colors);
    QVERIFY(grid.model.dropMimeData(data.get(), Qt::CopyAction, -1, -1, grid.model.index(2, 3)));
    Key key = keyAt(grid.model, 2, 3);
    QTEST(key.takeLast(), "color");
    QCOMPARE(key, foggy.mid(0, 8));
}

void TestController::moveKey_data()
{
    QTest::addColumn<Key>("key");
    QTest::addColumn<Key>("before");
    QTest::addColumn<Key>("after");
    QTest::newRow("all values go along") << strobe << blank << strobe;
    QTest::newRow("a blink of 0 goes along") << par << blank << parTravelled;
    QTest::newRow("an empty blink goes along") << foggy << blank << foggy;
    QTest::newRow("the target's own LED colours are lost")
        << foggy << Key{"PAD 2", "0", "PAD 2", "-1", "1", "red", "lime", "1", "#000000"} << foggy;
    QTest::newRow("the button alone tells an empty target") << strobe << with(par, Button, "-1") << strobe;
    QTest::newRow("the source's availability goes along")
        << with(strobe, Available, "0") << blank << with(strobe, Available, "0");
    QTest::newRow("an unreadable colour becomes black")
        << with(strobe, Color, "mud") << blank << with(strobe, Color, "#000000");
}

void TestController::moveKey()
{
    QFETCH(Key, key);
    QFETCH(Key, before);
    QFETCH(Key, after);
    for (const Qt::DropAction action : {Qt::CopyAction, Qt::MoveAction}) {
        Grid grid;
        grid.fill(9, 11, key);
        grid.fill(2, 3, before);
        const Listener listener(grid.model);
        QVERIFY(grid.model.dropMimeData(grid.drag(9, 11).get(), action, -1, -1, grid.model.index(2, 3)));
        QCOMPARE(grid.filled(),
                 (QStringList{Grid::told(2, 3, after), Grid::told(9, 11, emptied("RIGHT 8"))}));
        QCOMPARE(listener.heard, QStringList());
    }
}

void TestController::moveKeyThroughTheView()
{
    Grid grid;
    grid.fill(0, 2, strobe);
    GridView view(grid.model);
    QVERIFY(QTest::qWaitForWindowExposed(&view.view));
    const Listener listener(grid.model);
    QVERIFY(view.drop(*grid.drag(0, 2), view.rectOf(9, 9).center()));
    QCOMPARE(grid.filled(), (QStringList{Grid::told(0, 2, emptied("TOP 1")), Grid::told(9, 9, strobe)}));
    QCOMPARE(listener.heard, QStringList());
}

void TestController::swapKeys_data()
{
    QTest::addColumn<Key>("dragged");
    QTest::addColumn<Key>("target");
    QTest::addColumn<Key>("targetAfter");
    QTest::addColumn<Key>("sourceAfter");
    QTest::newRow("two filled keys") << strobe << par << strobe << parTravelled;
    QTest::newRow("the other way round") << par << strobe << parTravelled << strobe;
    QTest::newRow("the same button twice") << strobe << strobe << strobe << strobe;
    QTest::newRow("colour words become digits, LED colours stay as they are")
        << with(strobe, Color, "red") << with(strobe, Color, "Blue") << with(strobe, Color, "#ff0000")
        << with(strobe, Color, "#0000ff");
    QTest::newRow("unreadable colours become black")
        << with(strobe, Color, "mud") << with(foggy, Color, "") << with(strobe, Color, "#000000")
        << with(foggy, Color, "#000000");
    QTest::newRow("availability is swapped too")
        << strobe << with(foggy, Available, "0") << strobe << with(foggy, Available, "0");
    QTest::newRow("the button alone tells an empty target")
        << strobe << with(foggy, Page, "0") << strobe << with(foggy, Page, "0");
}

void TestController::swapKeys()
{
    QFETCH(Key, dragged);
    QFETCH(Key, target);
    QFETCH(Key, targetAfter);
    QFETCH(Key, sourceAfter);
    Grid grid;
    grid.fill(9, 11, dragged);
    grid.fill(2, 3, target);
    const Listener listener(grid.model);
    QVERIFY(grid.model.dropMimeData(grid.drag(9, 11).get(), Qt::CopyAction, -1, -1, grid.model.index(2, 3)));
    QCOMPARE(grid.filled(), (QStringList{Grid::told(2, 3, targetAfter), Grid::told(9, 11, sourceAfter)}));
    QCOMPARE(listener.heard, QStringList());
}

void TestController::swapKeysThroughTheView()
{
    Grid grid;
    grid.fill(2, 3, strobe);
    grid.fill(11, 4, par);
    GridView view(grid.model);
    QVERIFY(QTest::qWaitForWindowExposed(&view.view));
    const Listener listener(grid.model);
    QVERIFY(view.drop(*grid.drag(2, 3), view.rectOf(11, 4).center()));
    QCOMPARE(grid.filled(), (QStringList{Grid::told(2, 3, parTravelled), Grid::told(11, 4, strobe)}));
    QCOMPARE(listener.heard, QStringList());
}

void TestController::dropKeyOnItself()
{
    Grid grid;
    grid.fill(9, 11, strobe);
    const Listener listener(grid.model);
    QVERIFY(grid.model.dropMimeData(grid.drag(9, 11).get(), Qt::CopyAction, -1, -1, grid.model.index(9, 11)));
    QCOMPARE(grid.filled(), QStringList{Grid::told(9, 11, strobe)});
    QCOMPARE(listener.heard, QStringList());
}

void TestController::dropKeyOnItselfThroughTheView()
{
    Grid grid;
    grid.fill(2, 3, strobe);
    GridView view(grid.model);
    QVERIFY(QTest::qWaitForWindowExposed(&view.view));
    const Listener listener(grid.model);
    QVERIFY(view.drop(*grid.drag(2, 3), view.rectOf(2, 3).center()));
    QCOMPARE(grid.filled(), QStringList{Grid::told(2, 3, strobe)});
    QCOMPARE(listener.heard, QStringList());
}

void TestController::textColorStays()
{
    Grid grid;
    grid.fill(2, 3, strobe);
    grid.model.setData(grid.model.index(2, 3), "red", Qt::ForegroundRole);
    grid.fill(2, 4, par);
    grid.model.setData(grid.model.index(2, 4), "blue", Qt::ForegroundRole);
    for (const QModelIndex &to : {grid.model.index(2, 4), grid.model.index(5, 5)}) { // a swap, a move
        QVERIFY(grid.model.dropMimeData(grid.drag(2, 3).get(), Qt::CopyAction, -1, -1, to));
        QCOMPARE(grid.model.getlist().at(2).at(3).value("textcolor"), QString("red"));
        QCOMPARE(grid.model.getlist().at(2).at(4).value("textcolor"), QString("blue"));
        QCOMPARE(grid.model.getlist().at(5).at(5).value("textcolor"), QString("#ffffff"));
    }
}

void TestController::moveKeyFromOutside_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::newRow("row behind the last") << 12 << 3;
    QTest::newRow("row before the first") << -1 << 3;
    QTest::newRow("column behind the last") << 3 << 12;
    QTest::newRow("column before the first") << 3 << -1;
    QTest::newRow("far away") << 2147483647 << -2147483647;
}

void TestController::moveKeyFromOutside()
{
    QFETCH(int, row);
    QFETCH(int, column);
    const QStringList texts = {
        QString::number(row), QString::number(column), "Fog", "5", "Fog low", "0", "8", "1", "", "", ""};
    const auto data = Payload::of(Payload::textBytes(texts), Payload::colorBytes(0xab, 0xcd, 0xef));
    Grid grid;
    grid.fill(7, 3, strobe);
    const Listener listener(grid.model);
    QVERIFY(grid.model.dropMimeData(data.get(), Qt::CopyAction, -1, -1, grid.model.index(6, 3)));
    QVERIFY(grid.model.dropMimeData(data.get(), Qt::CopyAction, -1, -1, grid.model.index(7, 3)));
    QCOMPARE(grid.filled(), (QStringList{Grid::told(6, 3, foggy), Grid::told(7, 3, foggy)}));
    QCOMPARE(listener.heard, QStringList());
}

void TestController::dropBeside_data()
{
    QTest::addColumn<int>("row"); // of the parent
    QTest::addColumn<int>("column");
    QTest::newRow("no parent") << -1 << -1;
    QTest::newRow("a row that is gone") << 12 << 3;
}

void TestController::dropBeside()
{
    QFETCH(int, row);
    QFETCH(int, column);
    Grid grid;
    grid.fill(9, 11, strobe);
    const Listener listener(grid.model);
    const QModelIndex lost = row < 0 ? QModelIndex() : Models::lostIndex(grid.model, row, column);

    QVERIFY(grid.model.dropMimeData(Payload::fog().get(), Qt::CopyAction, 3, 3, lost));
    QCOMPARE(grid.filled(), QStringList{Grid::told(9, 11, strobe)});
    QCOMPARE(listener.heard, QStringList{QString("ItemDroped(4,%1,%2)").arg(row).arg(column)});

    QVERIFY(grid.model.dropMimeData(grid.drag(9, 11).get(), Qt::CopyAction, 3, 3, lost));
    QCOMPARE(grid.filled(), QStringList{Grid::told(9, 11, {"", "", "", "", "", "", "", "", ""})});
    QCOMPARE(listener.heard.size(), 1);
}

void TestController::viewRefusesDrop_data()
{
    QTest::addColumn<QString>("where");
    QTest::addColumn<Key>("key");
    QTest::newRow("on a cell without a key") << "middle" << with(blank, Available, "0");
    QTest::newRow("on an assignment that the device lacks a key for")
        << "middle" << with(par, Available, "0");
    QTest::newRow("on the line below an empty key") << "line below" << blank;
    QTest::newRow("on the line below a filled key") << "line below" << par;
    QTest::newRow("on the line beside a key") << "line beside" << blank;
    QTest::newRow("beside the grid") << "outside" << blank;
}

void TestController::viewRefusesDrop()
{
    QFETCH(QString, where);
    QFETCH(Key, key);
    Grid grid;
    grid.fill(2, 3, key);
    grid.fill(5, 5, strobe);
    GridView view(grid.model);
    QVERIFY(QTest::qWaitForWindowExposed(&view.view));
    const QStringList before = grid.filled();
    const Listener listener(grid.model);
    const QRect cell = view.rectOf(2, 3);
    const QMap<QString, QPoint> points = {{"middle", cell.center()},
                                          {"line below", QPoint(cell.center().x(), cell.bottom() + 1)},
                                          {"line beside", QPoint(cell.right() + 1, cell.center().y())},
                                          {"outside", QPoint(view.rectOf(0, 11).right() + 50, 100)}};

    QVERIFY(!view.drop(*Payload::fog(), points.value(where)));
    QCOMPARE(grid.filled(), before);
    QVERIFY(!view.drop(*grid.drag(5, 5), points.value(where)));
    QCOMPARE(grid.filled(), before);
    QCOMPARE(listener.heard, QStringList());
}

void TestController::dropRefused_data()
{
    QTest::addColumn<QStringList>("formats");
    QTest::newRow("no part") << QStringList();
    QTest::newRow("no texts") << QStringList{"application/x-color"};
    QTest::newRow("no colour") << QStringList{"application/vnd.text.list"};
    QTest::newRow("other parts") << QStringList{"text/plain", "application/x-qabstractitemmodeldatalist"};
}

void TestController::dropRefused()
{
    QFETCH(QStringList, formats);
    Grid grid;
    grid.fill(2, 3, strobe);
    const Listener listener(grid.model);
    QMimeData data;
    for (const QString &format : formats)
        data.setData(format,
                     Payload::textBytes({"4", "0", "Fog", "5", "Fog low", "1", "8", "1", {}, {}, {}}));
    for (const QModelIndex &to : {grid.model.index(2, 3), grid.model.index(0, 0), QModelIndex()})
        QVERIFY(!grid.model.dropMimeData(&data, Qt::CopyAction, -1, -1, to));
    QVERIFY(!grid.model.dropMimeData(nullptr, Qt::CopyAction, -1, -1, grid.model.index(2, 3)));
    QCOMPARE(grid.filled(), QStringList{Grid::told(2, 3, strobe)});
    QCOMPARE(listener.heard, QStringList());
}

void TestController::dropRefusedThroughTheView()
{
    Grid grid;
    GridView view(grid.model);
    QVERIFY(QTest::qWaitForWindowExposed(&view.view));
    const Listener listener(grid.model);
    for (const char *format : {"application/vnd.text.list", "application/x-color", "text/plain"}) {
        QMimeData data;
        data.setData(format,
                     Payload::textBytes({"4", "0", "Fog", "5", "Fog low", "1", "8", "1", {}, {}, {}}));
        QVERIFY2(!view.drop(data, view.rectOf(2, 3).center()), format);
    }
    QCOMPARE(grid.filled(), QStringList());
    QCOMPARE(listener.heard, QStringList());
}

void TestController::dropIgnored()
{
    Grid grid;
    grid.fill(2, 3, strobe);
    const Listener listener(grid.model);
    const QMimeData nothing;
    QVERIFY(grid.model.dropMimeData(Payload::fog().get(), Qt::IgnoreAction, -1, -1, grid.model.index(2, 3)));
    QVERIFY(grid.model.dropMimeData(grid.drag(2, 3).get(), Qt::IgnoreAction, -1, -1, grid.model.index(3, 3)));
    QVERIFY(grid.model.dropMimeData(&nothing, Qt::IgnoreAction, -1, -1, grid.model.index(2, 3)));
    QCOMPARE(grid.filled(), QStringList{Grid::told(2, 3, strobe)});
    QCOMPARE(listener.heard, QStringList());
}

void TestController::dropDamaged_data()
{
    QTest::addColumn<QByteArray>("texts");
    QTest::addColumn<bool>("result");
    QTest::addColumn<Key>("key");
    QTest::addColumn<QStringList>("heard");
    const QByteArray odd = QByteArray::fromHex("00000003003400");
    const QByteArray tooLong = QByteArray::fromHex("fffffffe00310032");
    const QStringList told = {"ItemDroped(4,2,3)"};
    const QStringList toldAndUnchecked = {"ItemDroped(4,2,3)", "ItemToUncheck(41)"};
    const QByteArray whole =
        Payload::textBytes({"4", "0", "Fog", "5", "Fog low", "1", "8", "1", "red", "blue", "1"});
    QTest::newRow("no text") << QByteArray() << false << strobe << QStringList();
    QTest::newRow("half a length") << whole.left(2) << false << strobe << QStringList();
    QTest::newRow("odd length") << odd << false << strobe << QStringList();
    QTest::newRow("length far past the end") << tooLong << false << strobe << QStringList();
    QTest::newRow("row alone") << Payload::textBytes({"4"}) << true
                               << Key{"", "", "", "", "", "", "", "", "#abcdef"} << told;
    QTest::newRow("no origin") << Payload::textBytes({"4", "0", "Fog", "5", "Fog low"}) << true
                               << Key{"Fog", "5", "Fog low", "", "", "", "", "", "#abcdef"} << told;
    QTest::newRow("seven texts") << Payload::textBytes({"4", "0", "Fog", "5", "Fog low", "1", "8"}) << true
                                 << Key{"Fog", "5", "Fog low", "8", "", "", "", "", "#abcdef"}
                                 << toldAndUnchecked;
    QTest::newRow("ten texts and a half")
        << whole.chopped(1) << true << Key{"Fog", "5", "Fog low", "8", "1", "red", "blue", "", "#abcdef"}
        << toldAndUnchecked;
    QTest::newRow("eleven texts") << whole << true
                                  << Key{"Fog", "5", "Fog low", "8", "1", "red", "blue", "1", "#abcdef"}
                                  << toldAndUnchecked;
    QTest::newRow("eleven texts and a stump")
        << whole + QByteArray(3, '\0') << true
        << Key{"Fog", "5", "Fog low", "8", "1", "red", "blue", "1", "#abcdef"} << toldAndUnchecked;
}

void TestController::dropDamaged()
{
    QFETCH(QByteArray, texts);
    QFETCH(Key, key);
    Grid grid;
    grid.fill(2, 3, strobe);
    grid.fill(4, 0, par);
    const Listener listener(grid.model);
    QTEST(grid.model.dropMimeData(Payload::of(texts, Payload::colorBytes(0xab, 0xcd, 0xef)).get(),
                                  Qt::CopyAction, -1, -1, grid.model.index(2, 3)),
          "result");
    QCOMPARE(grid.filled(), (QStringList{Grid::told(2, 3, key), Grid::told(4, 0, par)}));
    QTEST(listener.heard, "heard");
}

void TestController::dropCutAnywhere_data()
{
    QTest::addColumn<QString>("origin");
    QTest::newRow("Live Button") << "1";
    QTest::newRow("key") << "0";
}

void TestController::dropCutAnywhere()
{
    QFETCH(QString, origin);
    const QByteArray texts = Payload::fog(origin)->data("application/vnd.text.list");
    const QByteArray colors = Payload::fog(origin)->data("application/x-color");
    for (int size = 0; size <= texts.size(); ++size) {
        Grid grid;
        grid.fill(9, 9, strobe);
        const auto data = Payload::of(texts.left(size), colors.left(size % 12));
        const bool holdsFirstText = size >= 6;
        for (const QModelIndex &to : {grid.model.index(2, 3), grid.model.index(4, 0), QModelIndex()})
            QCOMPARE(grid.model.dropMimeData(data.get(), Qt::CopyAction, -1, -1, to), holdsFirstText);
        QCOMPARE(grid.model.rowCount(), 12);
        QCOMPARE(keyAt(grid.model, 9, 9), strobe);
        QVERIFY(holdsFirstText || grid.filled().size() == 1);
    }
}

void TestController::neverTellsOfChanges()
{
    Controller model;
    QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    QSignalSpy headers(&model, &QAbstractItemModel::headerDataChanged);
    QSignalSpy reset(&model, &QAbstractItemModel::modelReset);

    model.insertRows(0, 12);
    for (const int role : roles)
        QVERIFY(model.setData(model.index(1, 0), "2", role));
    for (const int role : {int(Qt::DisplayRole), int(Qt::BackgroundRole), int(Qt::ForegroundRole)})
        QVERIFY(model.setData(model.index(1, 0), "red", role));
    const std::unique_ptr<QMimeData> data(model.mimeData({model.index(1, 0)}));
    for (const QModelIndex &to : {model.index(2, 1), model.index(2, 1), QModelIndex()}) // move, swap, beside
        QVERIFY(model.dropMimeData(data.get(), Qt::CopyAction, -1, -1, to));
    for (const QModelIndex &to : {model.index(0, 1), model.index(0, 1), QModelIndex()})
        QVERIFY(model.dropMimeData(Payload::fog().get(), Qt::CopyAction, -1, -1, to));
    model.removeRows(0, 12);

    QCOMPARE(changed.count(), 0);
    QCOMPARE(headers.count(), 0);
    QCOMPARE(reset.count(), 0);
}

void TestController::modelContract()
{
    const Models::Complaints complaints(MeantComplaints);
    Controller model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Warning);
    fillNumbered(model, 10);
    model.insertRows(0, 2);
    model.dropMimeData(Payload::fog().get(), Qt::CopyAction, -1, -1, model.index(3, 1));
    model.removeRows(11, 1);
    model.insertRows(0, 1);
    model.removeRows(0, 12);
    QCOMPARE(Models::Complaints::found(), QStringList());
}

void TestController::modelContractFrontStorage()
{
    const Models::Complaints complaints(MeantComplaints);
    Controller model;
    fillNumbered(model, 3);
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Warning);
    // The view is told of row 1, and the new row is row 0: what stood before row 1 is not the same.
    model.insertRows(1, 1);
    QCOMPARE(Models::Complaints::found().size(), 1);
    QVERIFY2(Models::Complaints::found().at(0).contains("model->index(start - 1, 0, c.parent)"),
             qPrintable(Models::Complaints::found().at(0)));
}

void TestController::modelContractSweep()
{
    const Models::Complaints complaints(MeantComplaints);
    Controller model;
    fillNumbered(model, 12);
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Warning);
    // The view is told of one row, and six are gone.
    model.removeRows(0, 1);
    QVERIFY(!Models::Complaints::found().isEmpty());
    QVERIFY2(Models::Complaints::found().at(0).contains("model->rowCount(parent)"),
             qPrintable(Models::Complaints::found().at(0)));
}

QTEST_MAIN(TestController)
#include "test_controller.moc"

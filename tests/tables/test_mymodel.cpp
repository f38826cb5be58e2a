#include "support/models.h"
#include "support/payload.h"
#include "tables/dragpayload.h"
#include "tables/mymodel.h"
#include "tables/record.h"
#include "tables/roles.h"
#include "tables/vdjmodel.h"

#include <QAbstractItemModelTester>
#include <QColor>
#include <QDragMoveEvent>
#include <QMimeData>
#include <QTableView>
#include <QtTest>

#include <memory>

namespace {

/** A row whose eight values differ from each other and from the defaults. */
Record strobe()
{
    return {{"title", "Strobe"},    {"dspname", "Strobe slow"},
            {"color", "#12aBcD"},   {"pageid", "3"},
            {"buttonid", "41"},     {"check", "1"},
            {"textcolor", "green"}, {"source", "9"}};
}

/** Rows that differ by their titles. */
QList<QMap<QString, QString>> titled(const QStringList &titles)
{
    QList<QMap<QString, QString>> rows;
    for (const QString &title : titles) {
        rows.append(strobe());
        rows.last()["title"] = title;
    }
    return rows;
}

/** The table ignores the parent when it counts rows, and lets a drag start from a lost index. */
const QStringList MeantComplaints = {"hasChildren(topIndex)", "model->parent(childIndex)", "flags == 0"};

} // namespace

/** The list of Live Buttons, and the numbers and names that all three tables share. */
class TestMyModel final : public QObject
{
    Q_OBJECT

private slots:
    void sharedNumbers_data();
    void sharedNumbers();
    void sharedNames();
    void metaObjectOfTheClass();

    void emptyTable_data();
    void emptyTable();
    void freshRow();
    void listGivenAtStart();
    void parentDoesNotMatter();

    void readRole_data();
    void readRole();
    void readTick_data();
    void readTick();
    void readColor_data();
    void readColor();
    void readMissingKey();
    void readOffTheTable_data();
    void readOffTheTable();

    void writeRole_data();
    void writeRole();
    void writeRefused_data();
    void writeRefused();
    void writeTick_data();
    void writeTick();
    void writeOffTheTable_data();
    void writeOffTheTable();

    void header_data();
    void header();
    void flags_data();
    void flags();
    void actions();

    void insertRows_data();
    void insertRows();
    void removeRows_data();
    void removeRows();

    void mimeDataBytes();
    void mimeDataRecord_data();
    void mimeDataRecord();
    void mimeDataOfSeveral();
    void mimeDataOfNothing_data();
    void mimeDataOfNothing();
    void mimeDataOfRowThatIsGone();
    void colorArrivesInLowerCase();

    void drop_data();
    void drop();
    void dropRefused_data();
    void dropRefused();
    void dropWithoutData();
    void dropIgnored();
    void dropDamaged_data();
    void dropDamaged();
    void dropBeside();
    void viewTakesNoDrop_data();
    void viewTakesNoDrop();

    void neverTellsOfChanges();
    void modelContract();
    void modelContractFrontStorage();
};

void TestMyModel::sharedNumbers_data()
{
    QTest::addColumn<int>("role");
    QTest::addColumn<int>("number");
    QTest::newRow("page") << int(PageRole) << 256;
    QTest::newRow("display name") << int(DisplayNameRole) << 257;
    QTest::newRow("source") << int(SourceRole) << 258;
    QTest::newRow("button") << int(ButtonRole) << 259;
    QTest::newRow("available") << int(AvailableRole) << 260;
    QTest::newRow("off colour") << int(OffColorRole) << 261;
    QTest::newRow("on colour") << int(OnColorRole) << 262;
    QTest::newRow("blink") << int(BlinkRole) << 263;
}

void TestMyModel::sharedNumbers()
{
    QFETCH(int, role);
    QTEST(role, "number");
}

void TestMyModel::sharedNames()
{
    const QStringList names = {"application/vnd.text.list", "application/x-color"};
    QCOMPARE(DragPayload::mimeTypes(), names);
    QCOMPARE(MyModel().mimeTypes(), names);
}

void TestMyModel::metaObjectOfTheClass()
{
    const QMetaObject &meta = MyModel::staticMetaObject;
    QCOMPARE(meta.className(), "MyModel");
    QCOMPARE(meta.superClass()->className(), "QAbstractTableModel");
    QVERIFY(meta.indexOfSignal("ItemUnchecked(int)") >= 0);
}

void TestMyModel::emptyTable_data()
{
    QTest::addColumn<int>("role");
    QTest::newRow("text") << int(Qt::DisplayRole);
    QTest::newRow("colour") << int(Qt::DecorationRole);
    QTest::newRow("tool tip") << int(Qt::ToolTipRole);
    QTest::newRow("background") << int(Qt::BackgroundRole);
    QTest::newRow("tick") << int(Qt::CheckStateRole);
    QTest::newRow("button") << int(ButtonRole);
}

void TestMyModel::emptyTable()
{
    QFETCH(int, role);
    MyModel model;
    QCOMPARE(model.rowCount(), 0);
    QCOMPARE(model.columnCount(), 1);
    QVERIFY(model.getlist().isEmpty());
    QCOMPARE(model.data({}, role), QVariant());
    QCOMPARE(model.data(model.index(0, 0), role), QVariant());
    QCOMPARE(model.data(Models::lostIndex(model, 0, 0), role), QVariant());
}

void TestMyModel::freshRow()
{
    MyModel model;
    QVERIFY(model.insertRows(0, 1));
    const Record expected = {{"title", "1"},    {"dspname", "1"}, {"color", "#FFFFFF"},     {"pageid", "0"},
                             {"buttonid", "0"}, {"check", "0"},   {"textcolor", "#ffffff"}, {"source", "1"}};
    QCOMPARE(model.getlist(), QList<Record>{expected});
}

void TestMyModel::listGivenAtStart()
{
    QObject parent;
    auto *model = new MyModel({strobe(), {}}, &parent);
    QCOMPARE(model->parent(), &parent);
    QCOMPARE(model->rowCount(), 2);
    QCOMPARE(model->getlist(), (QList<Record>{strobe(), {}}));

    QList<Record> copy = model->getlist();
    copy[0]["title"] = "changed";
    QCOMPARE(model->getlist().at(0), strobe());
}

void TestMyModel::parentDoesNotMatter()
{
    const MyModel model(titled({"a", "b", "c"}));
    QCOMPARE(model.rowCount(model.index(1, 0)), 3);
    QCOMPARE(model.columnCount(model.index(1, 0)), 1);
}

void TestMyModel::readRole_data()
{
    QTest::addColumn<int>("role");
    QTest::addColumn<QVariant>("value");
    QTest::newRow("display") << int(Qt::DisplayRole) << QVariant("Strobe");
    QTest::newRow("edit") << int(Qt::EditRole) << QVariant("Strobe");
    QTest::newRow("decoration") << int(Qt::DecorationRole) << QVariant(QColor(0x12, 0xab, 0xcd));
    QTest::newRow("tool tip") << int(Qt::ToolTipRole)
                              << QVariant("Drag a Live Button and Drop to a VirtualDJ  Pad");
    QTest::newRow("background") << int(Qt::BackgroundRole) << QVariant(QColor(Qt::white));
    QTest::newRow("foreground") << int(Qt::ForegroundRole) << QVariant(QColor(0, 0x80, 0));
    QTest::newRow("tick") << int(Qt::CheckStateRole) << QVariant(2);
    QTest::newRow("page") << int(PageRole) << QVariant("3");
    QTest::newRow("display name") << int(DisplayNameRole) << QVariant("Strobe slow");
    QTest::newRow("source") << int(SourceRole) << QVariant("9");
    QTest::newRow("button") << int(ButtonRole) << QVariant("41");

    QTest::newRow("no status tip") << int(Qt::StatusTipRole) << QVariant();
    QTest::newRow("no help") << int(Qt::WhatsThisRole) << QVariant();
    QTest::newRow("no font") << int(Qt::FontRole) << QVariant();
    QTest::newRow("no alignment") << int(Qt::TextAlignmentRole) << QVariant();
    QTest::newRow("no size") << int(Qt::SizeHintRole) << QVariant();
    QTest::newRow("no role before the custom ones") << 255 << QVariant();
    QTest::newRow("no availability") << int(AvailableRole) << QVariant();
    QTest::newRow("no off colour") << int(OffColorRole) << QVariant();
    QTest::newRow("no on colour") << int(OnColorRole) << QVariant();
    QTest::newRow("no blink") << int(BlinkRole) << QVariant();
    QTest::newRow("no role behind the custom ones") << 264 << QVariant();
    QTest::newRow("no negative role") << -1 << QVariant();
}

void TestMyModel::readRole()
{
    QFETCH(int, role);
    QFETCH(QVariant, value);
    const MyModel model({strobe()});
    const QVariant actual = model.data(model.index(0, 0), role);
    QCOMPARE(actual.userType(), value.userType());
    QCOMPARE(actual, value);
}

void TestMyModel::readTick_data()
{
    QTest::addColumn<QString>("check");
    QTest::addColumn<int>("state");
    QTest::newRow("1") << "1" << 2;
    QTest::newRow("0") << "0" << 0;
    QTest::newRow("2 does not count") << "2" << 0;
    QTest::newRow("01 does not count") << "01" << 0;
    QTest::newRow("true does not count") << "true" << 0;
    QTest::newRow("empty") << "" << 0;
}

void TestMyModel::readTick()
{
    QFETCH(QString, check);
    const MyModel model({Record{{"check", check}}});
    const QVariant actual = model.data(model.index(0, 0), Qt::CheckStateRole);
    QCOMPARE(actual.userType(), int(QMetaType::Int));
    QTEST(actual.toInt(), "state");
}

void TestMyModel::readColor_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QColor>("color");
    QTest::newRow("colour word") << "red" << QColor(255, 0, 0);
    QTest::newRow("lower case") << "#0a0b0c" << QColor(10, 11, 12);
    QTest::newRow("upper case") << "#0A0B0C" << QColor(10, 11, 12);
    QTest::newRow("no colour") << "chartreux" << QColor();
    QTest::newRow("too few digits") << "#12345" << QColor();
    QTest::newRow("no hash") << "ffffff" << QColor();
    QTest::newRow("empty") << "" << QColor();
}

void TestMyModel::readColor()
{
    QFETCH(QString, text);
    QFETCH(QColor, color);
    const MyModel model({Record{{"color", text}, {"textcolor", text}}});
    for (const int role : {int(Qt::DecorationRole), int(Qt::ForegroundRole)}) {
        const QVariant actual = model.data(model.index(0, 0), role);
        QCOMPARE(actual.userType(), int(QMetaType::QColor));
        QCOMPARE(actual.value<QColor>(), color);
    }
}

void TestMyModel::readMissingKey()
{
    const MyModel model({Record{}});
    for (const int role : {int(Qt::DisplayRole), int(Qt::EditRole), int(PageRole), int(DisplayNameRole),
                           int(SourceRole), int(ButtonRole)})
        QCOMPARE(model.data(model.index(0, 0), role), QVariant(""));
    QCOMPARE(model.data(model.index(0, 0), Qt::CheckStateRole), QVariant(0));
}

void TestMyModel::readOffTheTable_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::newRow("second column") << 0 << 1;
    QTest::newRow("row behind the last") << 1 << 0;
    QTest::newRow("far row") << 60000 << 0;
    QTest::newRow("both") << 1 << 1;
    QTest::newRow("no index") << -1 << -1;
}

void TestMyModel::readOffTheTable()
{
    QFETCH(int, row);
    QFETCH(int, column);
    const MyModel model({strobe()});
    QVERIFY(!model.index(row, column).isValid());
    for (const int role : {int(Qt::DisplayRole), int(Qt::DecorationRole), int(Qt::ToolTipRole),
                           int(Qt::BackgroundRole), int(Qt::CheckStateRole), int(ButtonRole)})
        QCOMPARE(model.data(Models::lostIndex(model, row, column), role), QVariant());
}

void TestMyModel::writeRole_data()
{
    QTest::addColumn<int>("role");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("display") << int(Qt::DisplayRole) << "title" << QVariant("Fog") << "Fog";
    QTest::newRow("edit") << int(Qt::EditRole) << "title" << QVariant("Fog") << "Fog";
    QTest::newRow("edit to blanks") << int(Qt::EditRole) << "title" << QVariant("  ") << "  ";
    QTest::newRow("edit to a number") << int(Qt::EditRole) << "title" << QVariant(12) << "12";
    QTest::newRow("decoration") << int(Qt::DecorationRole) << "color" << QVariant("#AbCdEf") << "#AbCdEf";
    QTest::newRow("decoration from a colour")
        << int(Qt::DecorationRole) << "color" << QVariant(QColor(0xab, 0xcd, 0xef)) << "#abcdef";
    QTest::newRow("decoration from nonsense")
        << int(Qt::DecorationRole) << "color" << QVariant("mud") << "mud";
    QTest::newRow("empty decoration") << int(Qt::DecorationRole) << "color" << QVariant("") << "";
    QTest::newRow("page") << int(PageRole) << "pageid" << QVariant("7") << "7";
    QTest::newRow("page from a number") << int(PageRole) << "pageid" << QVariant(7) << "7";
    QTest::newRow("empty page") << int(PageRole) << "pageid" << QVariant("") << "";
    QTest::newRow("display name") << int(DisplayNameRole) << "dspname" << QVariant("Fog") << "Fog";
    QTest::newRow("empty display name") << int(DisplayNameRole) << "dspname" << QVariant("") << "";
    QTest::newRow("button") << int(ButtonRole) << "buttonid" << QVariant("5") << "5";
    QTest::newRow("button from a number") << int(ButtonRole) << "buttonid" << QVariant(-1) << "-1";
    QTest::newRow("edit to an empty text") << int(Qt::EditRole) << "title" << QVariant("") << "";
    QTest::newRow("foreground") << int(Qt::ForegroundRole) << "textcolor" << QVariant("RED") << "RED";
    QTest::newRow("foreground from a colour")
        << int(Qt::ForegroundRole) << "textcolor" << QVariant(QColor(1, 2, 3)) << "#010203";
    QTest::newRow("source") << int(SourceRole) << "source" << QVariant("0") << "0";
}

void TestMyModel::writeRole()
{
    QFETCH(int, role);
    QFETCH(QString, key);
    QFETCH(QVariant, value);
    QFETCH(QString, text);
    MyModel model({strobe(), strobe(), strobe()});
    QList<Record> expected = model.getlist();
    expected[1][key] = text;
    QVERIFY(model.setData(model.index(1, 0), value, role));
    QCOMPARE(model.getlist(), expected);
}

void TestMyModel::writeRefused_data()
{
    QTest::addColumn<int>("role");
    QTest::addColumn<bool>("result");
    QTest::newRow("background is taken and forgotten") << int(Qt::BackgroundRole) << true;
    QTest::newRow("tool tip") << int(Qt::ToolTipRole) << false;
    QTest::newRow("status tip") << int(Qt::StatusTipRole) << false;
    QTest::newRow("font") << int(Qt::FontRole) << false;
    QTest::newRow("alignment") << int(Qt::TextAlignmentRole) << false;
    QTest::newRow("size") << int(Qt::SizeHintRole) << false;
    QTest::newRow("before the custom ones") << 255 << false;
    QTest::newRow("availability") << int(AvailableRole) << false;
    QTest::newRow("off colour") << int(OffColorRole) << false;
    QTest::newRow("on colour") << int(OnColorRole) << false;
    QTest::newRow("blink") << int(BlinkRole) << false;
    QTest::newRow("behind the custom ones") << 264 << false;
    QTest::newRow("negative") << -1 << false;
}

void TestMyModel::writeRefused()
{
    QFETCH(int, role);
    MyModel model({strobe()});
    for (const QVariant &value : {QVariant("x"), QVariant(0), QVariant(QColor(Qt::red))})
        QTEST(model.setData(model.index(0, 0), value, role), "result");
    QCOMPARE(model.getlist(), QList<Record>{strobe()});
}

void TestMyModel::writeTick_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("check");
    QTest::newRow("0") << QVariant(0) << "0";
    QTest::newRow("2") << QVariant(2) << "1";
    QTest::newRow("1") << QVariant(1) << "1";
    QTest::newRow("-1") << QVariant(-1) << "1";
    QTest::newRow("false equals 0") << QVariant(false) << "0";
    QTest::newRow("true") << QVariant(true) << "1";
    QTest::newRow("text 0 equals 0") << QVariant("0") << "0";
    QTest::newRow("text 1") << QVariant("1") << "1";
    QTest::newRow("empty text") << QVariant("") << "1";
    QTest::newRow("nothing") << QVariant() << "1";
}

void TestMyModel::writeTick()
{
    QFETCH(QVariant, value);
    QFETCH(QString, check);
    for (const char *before : {"0", "1"}) {
        MyModel model({strobe(), Record{{"check", before}}});
        QVERIFY(model.setData(model.index(1, 0), value, Qt::CheckStateRole));
        QCOMPARE(model.getlist(), (QList<Record>{strobe(), {{"check", check}}}));
    }
}

void TestMyModel::writeOffTheTable_data()
{
    readOffTheTable_data();
}

void TestMyModel::writeOffTheTable()
{
    QFETCH(int, row);
    QFETCH(int, column);
    MyModel model({strobe()});
    const QModelIndex lost = Models::lostIndex(model, row, column);
    for (const int role : {int(Qt::DisplayRole), int(Qt::EditRole), int(Qt::DecorationRole),
                           int(Qt::BackgroundRole), int(Qt::CheckStateRole), int(ButtonRole)})
        QVERIFY(!model.setData(lost, "x", role));
    QCOMPARE(model.getlist(), QList<Record>{strobe()});
}

void TestMyModel::header_data()
{
    QTest::addColumn<int>("section");
    QTest::addColumn<Qt::Orientation>("orientation");
    QTest::addColumn<int>("role");
    QTest::addColumn<QVariant>("value");
    const int text = Qt::DisplayRole;
    QTest::newRow("first column") << 0 << Qt::Horizontal << text << QVariant("Color");
    QTest::newRow("second column, which does not exist") << 1 << Qt::Horizontal << text << QVariant("Name");
    QTest::newRow("third column") << 2 << Qt::Horizontal << text << QVariant();
    QTest::newRow("column before the first") << -1 << Qt::Horizontal << text << QVariant();
    QTest::newRow("first row") << 0 << Qt::Vertical << text << QVariant();
    QTest::newRow("second row") << 1 << Qt::Vertical << text << QVariant();
    QTest::newRow("edit role") << 0 << Qt::Horizontal << int(Qt::EditRole) << QVariant();
    QTest::newRow("tool tip") << 0 << Qt::Horizontal << int(Qt::ToolTipRole) << QVariant();
    QTest::newRow("alignment") << 0 << Qt::Horizontal << int(Qt::TextAlignmentRole) << QVariant();
}

void TestMyModel::header()
{
    QFETCH(int, section);
    QFETCH(Qt::Orientation, orientation);
    QFETCH(int, role);
    QFETCH(QVariant, value);
    const MyModel model({strobe()});
    const QVariant actual = model.headerData(section, orientation, role);
    QCOMPARE(actual.isValid(), value.isValid());
    QCOMPARE(actual, value);
}

void TestMyModel::flags_data()
{
    QTest::addColumn<bool>("onTheTable");
    QTest::addColumn<int>("number");
    // 1 selectable, 4 draggable, 32 enabled, 64 tristate, 128 without children
    QTest::newRow("row") << true << 1 + 4 + 32 + 64 + 128;
    QTest::newRow("no index") << false << 1 + 4 + 64;
}

void TestMyModel::flags()
{
    QFETCH(bool, onTheTable);
    const MyModel model({strobe()});
    const Qt::ItemFlags flags = model.flags(onTheTable ? model.index(0, 0) : QModelIndex());
    QTEST(int(flags), "number");
    QVERIFY(!flags.testFlag(Qt::ItemIsUserCheckable));
    QVERIFY(!flags.testFlag(Qt::ItemIsEditable));
    QVERIFY(!flags.testFlag(Qt::ItemIsDropEnabled));
}

void TestMyModel::actions()
{
    const MyModel model;
    QCOMPARE(int(model.supportedDropActions()), 3);
    QCOMPARE(model.supportedDragActions(), Qt::DropActions(Qt::CopyAction));
}

void TestMyModel::insertRows_data()
{
    Models::rowsToInsert();
}

void TestMyModel::insertRows()
{
    QFETCH(QStringList, before);
    QFETCH(int, position);
    QFETCH(int, count);
    QFETCH(QStringList, after);
    MyModel model(titled(before));
    const Models::RowLog log(model);
    QVERIFY(model.insertRows(position, count, model.index(0, 0)));
    QCOMPARE(Models::firstColumn(model), after);
    QCOMPARE(log.lines, Models::RowLog::of("insert", position, count, before, after));
}

void TestMyModel::removeRows_data()
{
    Models::rowsToRemove();
}

void TestMyModel::removeRows()
{
    QFETCH(QStringList, before);
    QFETCH(int, position);
    QFETCH(int, count);
    QFETCH(QStringList, after);
    MyModel model(titled(before));
    const Models::RowLog log(model);
    QVERIFY(model.removeRows(position, count, model.index(0, 0)));
    QCOMPARE(Models::firstColumn(model), after);
    QCOMPARE(log.lines, Models::RowLog::of("remove", position, count, before, after));
}

void TestMyModel::mimeDataBytes()
{
    MyModel model(titled({"x", "y"}));
    model.setData(model.index(1, 0), QString::fromUtf8("\xc3\x84\xf0\x9f\x92\xa1")); // A umlaut, a bulb
    model.setData(model.index(1, 0), "", DisplayNameRole);
    const std::unique_ptr<QMimeData> data(model.mimeData({model.index(1, 0)}));
    QVERIFY(data);
    QCOMPARE(data->formats(), (QStringList{"application/vnd.text.list", "application/x-color"}));

    QByteArray texts = QByteArray::fromHex("00000002 0031"           // row 1
                                           "00000002 0030"           // column 0
                                           "00000006 00c4 d83d dca1" // title
                                           "00000002 0033"           // page 3
                                           "00000000"                // display name, empty
                                           "00000002 0031"           // from the Live Buttons
                                           "00000004 0034 0031"      // button 41
                                           "00000002 0031"           // available
                                           "ffffffff"                // no off colour
                                           "ffffffff"                // no on colour
                                           "ffffffff");              // no blink
    QCOMPARE(data->data("application/vnd.text.list").toHex(), texts.toHex());
    QCOMPARE(data->data("application/x-color").toHex(), QByteArray("01ffff1212ababcdcd0000"));
}

void TestMyModel::mimeDataRecord_data()
{
    QTest::addColumn<QString>("color");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("upper case") << "#FFFFFF" << QByteArray("01ffffffffffffffff0000");
    QTest::newRow("lower case") << "#102030" << QByteArray("01ffff1010202030300000");
    QTest::newRow("colour word") << "red" << QByteArray("01ffffffff000000000000");
    // An unreadable colour turns into black on its way through the text.
    QTest::newRow("nonsense") << "mud" << QByteArray("01ffff0000000000000000");
    QTest::newRow("empty") << "" << QByteArray("01ffff0000000000000000");
}

void TestMyModel::mimeDataRecord()
{
    QFETCH(QString, color);
    MyModel model({strobe()});
    model.setData(model.index(0, 0), color, Qt::DecorationRole);
    const std::unique_ptr<QMimeData> data(model.mimeData({model.index(0, 0)}));
    QCOMPARE(data->data("application/vnd.text.list"),
             Payload::textBytes({"0", "0", "Strobe", "3", "Strobe slow", "1", "41", "1", {}, {}, {}}));
    QTEST(data->data("application/x-color").toHex(), "bytes");
    QCOMPARE(data->data("application/x-color").size(), 11);
}

void TestMyModel::mimeDataOfSeveral()
{
    MyModel model(titled({"a", "b", "c"}));
    model.setData(model.index(2, 0), "#000001", Qt::DecorationRole);
    const std::unique_ptr<QMimeData> data(model.mimeData({model.index(2, 0), {}, model.index(0, 0)}));
    QCOMPARE(data->data("application/vnd.text.list"),
             Payload::textBytes({"2", "0", "c", "3", "Strobe slow", "1", "41", "1", {}, {}, {}})
                 + Payload::textBytes({"0", "0", "a", "3", "Strobe slow", "1", "41", "1", {}, {}, {}}));
    QCOMPARE(data->data("application/x-color"),
             Payload::colorBytes(0, 0, 1) + Payload::colorBytes(0x12, 0xab, 0xcd));
}

void TestMyModel::mimeDataOfNothing_data()
{
    QTest::addColumn<QModelIndexList>("indexes");
    QTest::newRow("empty list") << QModelIndexList();
    QTest::newRow("invalid indexes") << QModelIndexList{{}, {}};
}

void TestMyModel::mimeDataOfNothing()
{
    QFETCH(QModelIndexList, indexes);
    const std::unique_ptr<QMimeData> data(MyModel({strobe()}).mimeData(indexes));
    QVERIFY(data);
    QCOMPARE(data->formats(), (QStringList{"application/vnd.text.list", "application/x-color"}));
    QCOMPARE(data->data("application/vnd.text.list"), QByteArray());
    QCOMPARE(data->data("application/x-color"), QByteArray());
}

void TestMyModel::mimeDataOfRowThatIsGone()
{
    MyModel model(titled({"a", "b"}));
    const QModelIndex stale = model.index(1, 0);
    model.removeRows(1, 1);
    const std::unique_ptr<QMimeData> data(model.mimeData({stale}));
    QCOMPARE(data->data("application/vnd.text.list"),
             Payload::textBytes({"1", "0", {}, {}, {}, "1", {}, "1", {}, {}, {}}));
    QCOMPARE(data->data("application/x-color").toHex(), QByteArray("00ffff0000000000000000"));
}

void TestMyModel::colorArrivesInLowerCase()
{
    MyModel model;
    model.insertRows(0, 1);
    VDJModel pads;
    pads.insertRows(0, 1);
    const std::unique_ptr<QMimeData> data(model.mimeData({model.index(0, 0)}));
    QVERIFY(pads.dropMimeData(data.get(), Qt::CopyAction, -1, -1, pads.index(0, 0)));
    QCOMPARE(pads.getlist().at(0).at(0).value("color"), QString("#ffffff"));
}

void TestMyModel::drop_data()
{
    QTest::addColumn<QStringList>("texts");
    QTest::addColumn<QByteArray>("colors");
    QTest::addColumn<QStringList>("stored"); // title, page, display name, source, button, colour
    const QByteArray color = Payload::colorBytes(0xab, 0xcd, 0xef);
    QTest::newRow("own record") << QStringList{"2", "0", "Fog", "5", "Fog low", "1", "8", "1", {}, {}, {}}
                                << color << QStringList{"0", "Fog", "5", "Fog low", "1", "#abcdef"};
    QTest::newRow("record of a pad") << QStringList{"2", "1", "Fog", "5", "Fog low", "0", "8"} << color
                                     << QStringList{"1", "Fog", "5", "Fog low", "0", "#abcdef"};
    QTest::newRow("two records, two colours")
        << QStringList{"2", "0", "Fog", "5", "Fog low", "0", "8", "3", "1", "Par", "6", "Par low", "0", "9"}
        << color + Payload::colorBytes(1, 2, 3) << QStringList{"0", "Fog", "5", "Fog low", "0", "#abcdef"};
    QTest::newRow("six texts") << QStringList{"2", "0", "Fog", "5", "Fog low", "1"} << color
                               << QStringList{"0", "Fog", "5", "Fog low", "1", "#abcdef"};
    QTest::newRow("three texts") << QStringList{"2", "0", "Fog"} << color
                                 << QStringList{"0", "Fog", "", "", "", "#abcdef"};
    QTest::newRow("one text") << QStringList{"2"} << color << QStringList{"", "", "", "", "", "#abcdef"};
    QTest::newRow("see-through colour")
        << QStringList{"2", "0", "Fog", "5", "Fog low", "1"} << QByteArray::fromHex("018080ffff000000000000")
        << QStringList{"0", "Fog", "5", "Fog low", "1", "#ff0000"};
    QTest::newRow("invalid colour") << QStringList{"2", "0", "Fog", "5", "Fog low", "1"}
                                    << QByteArray::fromHex("00ffff0000000000000000")
                                    << QStringList{"0", "Fog", "5", "Fog low", "1", "#000000"};
}

void TestMyModel::drop()
{
    QFETCH(QStringList, texts);
    QFETCH(QByteArray, colors);
    QFETCH(QStringList, stored);
    for (const Qt::DropAction action : {Qt::CopyAction, Qt::MoveAction}) {
        MyModel model({strobe(), strobe(), strobe()});
        QList<Record> expected = model.getlist();
        const QStringList keys = {"title", "pageid", "dspname", "source", "buttonid", "color"};
        for (int i = 0; i < keys.size(); ++i)
            expected[1][keys.at(i)] = stored.at(i);

        // Row and column of the drop do not count, its parent does.
        QVERIFY(model.dropMimeData(Payload::of(Payload::textBytes(texts), colors).get(), action, 2, 0,
                                   model.index(1, 0)));
        QCOMPARE(model.getlist(), expected);
    }
}

void TestMyModel::dropRefused_data()
{
    QTest::addColumn<QStringList>("formats");
    QTest::newRow("no part") << QStringList();
    QTest::newRow("no texts") << QStringList{"application/x-color"};
    QTest::newRow("no colour") << QStringList{"application/vnd.text.list"};
    QTest::newRow("other parts") << QStringList{"text/plain", "application/x-qabstractitemmodeldatalist"};
}

void TestMyModel::dropRefused()
{
    QFETCH(QStringList, formats);
    MyModel model({strobe()});
    QMimeData data;
    for (const QString &format : formats)
        data.setData(format, Payload::textBytes({"0", "0", "Fog", "5", "Fog low", "1", "8"}));
    QVERIFY(!model.dropMimeData(&data, Qt::CopyAction, -1, -1, model.index(0, 0)));
    QCOMPARE(model.getlist(), QList<Record>{strobe()});
}

void TestMyModel::dropWithoutData()
{
    MyModel model({strobe()});
    QVERIFY(!model.dropMimeData(nullptr, Qt::CopyAction, -1, -1, model.index(0, 0)));
    QCOMPARE(model.getlist(), QList<Record>{strobe()});
}

void TestMyModel::dropIgnored()
{
    MyModel model({strobe()});
    const auto whole = Payload::of(Payload::textBytes({"0", "0", "Fog", "5", "Fog low", "1", "8"}),
                                   Payload::colorBytes(1, 2, 3));
    const QMimeData nothing;
    QVERIFY(model.dropMimeData(whole.get(), Qt::IgnoreAction, -1, -1, model.index(0, 0)));
    QVERIFY(model.dropMimeData(&nothing, Qt::IgnoreAction, -1, -1, model.index(0, 0)));
    QCOMPARE(model.getlist(), QList<Record>{strobe()});
}

void TestMyModel::dropDamaged_data()
{
    QTest::addColumn<QByteArray>("texts");
    QTest::addColumn<QByteArray>("colors");
    QTest::addColumn<QString>("title"); // comes from the second text
    QTest::addColumn<bool>("result");
    QTest::addColumn<QString>("color");
    const QByteArray whole = Payload::textBytes({"2", "0", "Fog", "5", "Fog low", "1"});
    const QByteArray odd = QByteArray::fromHex("00000003003100");
    const QByteArray tooLong = QByteArray::fromHex("fffffffe00310032");
    const QByteArray color = Payload::colorBytes(1, 2, 3);
    QTest::newRow("no text") << QByteArray() << color << "Strobe" << false << "#12aBcD";
    QTest::newRow("half a length") << whole.left(2) << color << "Strobe" << false << "#12aBcD";
    QTest::newRow("first text cut off") << whole.left(5) << color << "Strobe" << false << "#12aBcD";
    QTest::newRow("second text cut off") << whole.left(11) << color << "" << true << "#010203";
    QTest::newRow("third text cut off") << whole.left(17) << color << "0" << true << "#010203";
    QTest::newRow("odd length") << odd << color << "Strobe" << false << "#12aBcD";
    QTest::newRow("length far past the end") << tooLong << color << "Strobe" << false << "#12aBcD";
    QTest::newRow("no colour") << whole << QByteArray() << "0" << true << "";
    QTest::newRow("half a colour") << whole << color.left(6) << "0" << true << "";
}

void TestMyModel::dropDamaged()
{
    QFETCH(QByteArray, texts);
    QFETCH(QByteArray, colors);
    MyModel model({strobe(), strobe()});
    QTEST(model.dropMimeData(Payload::of(texts, colors).get(), Qt::CopyAction, -1, -1, model.index(1, 0)),
          "result");
    QCOMPARE(model.rowCount(), 2);
    QCOMPARE(model.getlist().at(0), strobe());
    QTEST(model.getlist().at(1).value("title"), "title");
    QTEST(model.getlist().at(1).value("color"), "color");
}

void TestMyModel::dropBeside()
{
    MyModel model({strobe()});
    const auto data = Payload::of(Payload::textBytes({"0", "0", "Fog", "5", "Fog low", "1", "8"}),
                                  Payload::colorBytes(1, 2, 3));
    QVERIFY(model.dropMimeData(data.get(), Qt::CopyAction, 0, 0, {}));
    QVERIFY(model.dropMimeData(data.get(), Qt::CopyAction, 0, 0, Models::lostIndex(model, 7, 0)));
    QCOMPARE(model.getlist(), QList<Record>{strobe()});
}

void TestMyModel::viewTakesNoDrop_data()
{
    QTest::addColumn<bool>("acceptDrops");
    QTest::addColumn<int>("row"); // -1: below the last
    QTest::newRow("on a row") << false << 1;
    QTest::newRow("on a row, even if the view takes drops") << true << 1;
    QTest::newRow("below the rows, even if the view takes drops") << true << -1;
}

void TestMyModel::viewTakesNoDrop()
{
    QFETCH(bool, acceptDrops);
    QFETCH(int, row);
    MyModel model({strobe(), strobe(), strobe()});
    QTableView view;
    view.setModel(&model);
    view.setDragEnabled(true);
    view.setAcceptDrops(acceptDrops);
    view.setDropIndicatorShown(true);
    view.setDefaultDropAction(Qt::CopyAction);
    view.resize(300, 300);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));

    const QPoint point = row < 0 ? QPoint(20, 250) : view.visualRect(model.index(row, 0)).center();
    const std::unique_ptr<QMimeData> data(model.mimeData({model.index(0, 0)}));
    QDragEnterEvent enter(point, Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(view.viewport(), &enter);
    QCOMPARE(enter.isAccepted(), acceptDrops);
    QDragMoveEvent move(point, Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(view.viewport(), &move);
    QVERIFY(!move.isAccepted());
    QCOMPARE(model.getlist(), (QList<Record>{strobe(), strobe(), strobe()}));
}

void TestMyModel::neverTellsOfChanges()
{
    MyModel model;
    QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    QSignalSpy headers(&model, &QAbstractItemModel::headerDataChanged);
    QSignalSpy reset(&model, &QAbstractItemModel::modelReset);
    QSignalSpy unchecked(&model, &MyModel::ItemUnchecked);

    model.insertRows(0, 3);
    for (const int role :
         {int(Qt::DisplayRole), int(Qt::EditRole), int(Qt::DecorationRole), int(Qt::BackgroundRole),
          int(Qt::ForegroundRole), int(PageRole), int(DisplayNameRole), int(SourceRole), int(ButtonRole)})
        QVERIFY(model.setData(model.index(1, 0), "2", role));
    for (const int state : {2, 0})
        QVERIFY(model.setData(model.index(1, 0), state, Qt::CheckStateRole));
    const std::unique_ptr<QMimeData> data(model.mimeData({model.index(1, 0)}));
    QVERIFY(model.dropMimeData(data.get(), Qt::CopyAction, -1, -1, model.index(0, 0)));
    model.removeRows(0, 3);

    QCOMPARE(changed.count(), 0);
    QCOMPARE(headers.count(), 0);
    QCOMPARE(reset.count(), 0);
    QCOMPARE(unchecked.count(), 0);
}

void TestMyModel::modelContract()
{
    const Models::Complaints complaints(MeantComplaints);
    MyModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Warning);
    model.insertRows(0, 5);
    for (int row = 0; row < 5; ++row)
        model.setData(model.index(row, 0), QString::number(row));
    model.insertRows(0, 2);
    model.setData(model.index(2, 0), Qt::Checked, Qt::CheckStateRole);
    model.removeRows(3, 2);
    model.removeRows(0, 1);
    model.removeRows(0, model.rowCount());
    QCOMPARE(Models::Complaints::found(), QStringList());
}

void TestMyModel::modelContractFrontStorage()
{
    const Models::Complaints complaints(MeantComplaints);
    MyModel model(titled({"a", "b", "c"}));
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Warning);
    // The view is told of row 1, and the new row is row 0: what stood before row 1 is not the same.
    model.insertRows(1, 1);
    QCOMPARE(Models::Complaints::found().size(), 1);
    QVERIFY2(Models::Complaints::found().at(0).contains("model->index(start - 1, 0, c.parent)"),
             qPrintable(Models::Complaints::found().at(0)));
}

QTEST_MAIN(TestMyModel)
#include "test_mymodel.moc"

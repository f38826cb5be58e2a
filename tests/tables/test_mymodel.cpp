#include "support/models.h"
#include "support/payload.h"
#include "tables/mymodel.h"
#include "tables/record.h"

#include <QMimeData>
#include <QTableView>
#include <QtTest>

#include <memory>

namespace {

/** A row whose eight values differ from each other and from the defaults. */
const Record strobe = {{"title", "Strobe"},    {"dspname", "Strobe slow"},
                       {"color", "#12aBcD"},   {"pageid", "3"},
                       {"buttonid", "41"},     {"check", "1"},
                       {"textcolor", "green"}, {"source", "9"}};

} // namespace

/** What the Live Buttons alone have of all tables: ticks, and drops that go one position off. */
class TestMyModel final : public QObject
{
    Q_OBJECT

private slots:
    void readTick_data();
    void readTick();
    void writeTick_data();
    void writeTick();
    void toolTip();
    void flags();
    void dragColors_data();
    void dragColors();
    void drop_data();
    void drop();
    void viewTakesNoDrop_data();
    void viewTakesNoDrop();
};

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
    const QVariant state = model.data(model.index(0, 0), Qt::CheckStateRole);
    QCOMPARE(state.userType(), int(QMetaType::Int));
    QTEST(state.toInt(), "state");
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
        MyModel model({strobe, Record{{"check", before}}});
        QVERIFY(model.setData(model.index(1, 0), value, Qt::CheckStateRole));
        QCOMPARE(model.getlist(), (QList<Record>{strobe, {{"check", check}}}));
    }
}

void TestMyModel::toolTip()
{
    const MyModel model({strobe});
    QCOMPARE(model.data(model.index(0, 0), Qt::ToolTipRole),
             QVariant("Drag a Live Button and Drop to a VirtualDJ  Pad"));
}

void TestMyModel::flags()
{
    const MyModel model({strobe});
    // selectable, draggable, enabled, tristate, without children: neither checkable nor editable by the user
    QCOMPARE(int(model.flags(model.index(0, 0))), 1 + 4 + 32 + 64 + 128);
    QCOMPARE(int(model.flags({})), 1 + 4 + 64);
}

void TestMyModel::dragColors_data()
{
    QTest::addColumn<QString>("color");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("upper case") << "#FFFFFF" << QByteArray("01ffffffffffffffff0000");
    QTest::newRow("colour word") << "red" << QByteArray("01ffffffff000000000000");
    // An unreadable colour turns into black on its way through the text.
    QTest::newRow("nonsense") << "mud" << QByteArray("01ffff0000000000000000");
    QTest::newRow("empty") << "" << QByteArray("01ffff0000000000000000");
}

void TestMyModel::dragColors()
{
    QFETCH(QString, color);
    const MyModel model({Record{{"color", color}}});
    const std::unique_ptr<QMimeData> data(model.mimeData({model.index(0, 0)}));
    QTEST(data->data("application/x-color").toHex(), "bytes");
}

void TestMyModel::drop_data()
{
    QTest::addColumn<QByteArray>("texts");
    QTest::addColumn<QByteArray>("color");
    QTest::addColumn<QStringList>("stored"); // title, page, display name, source, button, colour
    const QByteArray color = Payload::colorBytes(0xab, 0xcd, 0xef);
    const QStringList own = {"2", "0", "Fog", "5", "Fog low", "1", "8", "1", {}, {}, {}};
    const QStringList pad = {"2", "1", "Fog", "5", "Fog low", "0", "8"};
    const QStringList stored = {"0", "Fog", "5", "Fog low", "1", "#abcdef"};
    const auto first = [&own](int count) { return Payload::textBytes(own.mid(0, count)); };
    QTest::newRow("own record") << first(11) << color << stored;
    QTest::newRow("record of a pad") << Payload::textBytes(pad) << color
                                     << QStringList{"1", "Fog", "5", "Fog low", "0", "#abcdef"};
    QTest::newRow("two records") << first(11) + Payload::textBytes(pad) << color + color << stored;
    QTest::newRow("six texts") << first(6) << color << stored;
    QTest::newRow("three texts") << first(3) << color << QStringList{"0", "Fog", "", "", "", "#abcdef"};
    QTest::newRow("third text cut off")
        << first(3).chopped(1) << color << QStringList{"0", "", "", "", "", "#abcdef"};
    QTest::newRow("one text") << first(1) << color << QStringList{"", "", "", "", "", "#abcdef"};
    QTest::newRow("half a colour") << first(6) << color.left(6)
                                   << QStringList{"0", "Fog", "5", "Fog low", "1", ""};
    QTest::newRow("no text") << QByteArray() << color << QStringList();
    QTest::newRow("first text cut off") << first(1).chopped(1) << color << QStringList();
}

/** Row and column of the drop do not count, its parent does; without one, nothing is written. */
void TestMyModel::drop()
{
    QFETCH(QByteArray, texts);
    QFETCH(QByteArray, color);
    QFETCH(QStringList, stored);
    const QStringList keys = {"title", "pageid", "dspname", "source", "buttonid", "color"};
    const auto data = Payload::of(texts, color);
    for (const Qt::DropAction action : {Qt::CopyAction, Qt::MoveAction}) {
        MyModel model({strobe, strobe, strobe});
        QList<Record> expected = model.getlist();
        for (const QModelIndex &lost : {QModelIndex(), Models::lostIndex(model, 7, 0)})
            QCOMPARE(model.dropMimeData(data.get(), action, 2, 0, lost), !stored.isEmpty());
        QCOMPARE(model.getlist(), expected);

        for (int i = 0; i < stored.size(); ++i)
            expected[1][keys.at(i)] = stored.at(i);
        QCOMPARE(model.dropMimeData(data.get(), action, 2, 0, model.index(1, 0)), !stored.isEmpty());
        QCOMPARE(model.getlist(), expected);
    }
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
    MyModel model({strobe, strobe, strobe});
    QTableView view;
    view.setModel(&model);
    view.setAcceptDrops(acceptDrops);
    view.setDropIndicatorShown(true);
    view.resize(300, 300);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    const QPoint point = row < 0 ? QPoint(20, 250) : view.visualRect(model.index(row, 0)).center();
    const std::unique_ptr<QMimeData> data(model.mimeData({model.index(0, 0)}));
    QVERIFY(!Models::drop(view, *data, point));
    QCOMPARE(model.getlist(), (QList<Record>{strobe, strobe, strobe}));
}

QTEST_MAIN(TestMyModel)
#include "test_mymodel.moc"

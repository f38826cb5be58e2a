#include "support/boxes.h"
#include "support/devices.h"
#include "support/files.h"
#include "support/focuslog.h"
#include "support/texts.h"

#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QPaintEvent>
#include <QRadioButton>

namespace {

/** A loaded show of 16 Live Buttons, 16 pads a bank, in the mode that the test asks for. */
bool start(Workspace &space, bool isMidiMode)
{
    return space.loadSomeShow() && space.click("radioButton_16pads")
           && (!isMidiMode
               || (space.click("radio_outputmidi") && space.choose("devicescombo", Devices::Pro)));
}

/** The Live Buttons of some cells, "row,column row,column". */
QString buttonsAt(const QTableView *view, const QString &cells)
{
    QStringList buttons;
    for (const QString &cell : cells.split(' '))
        buttons += Workspace::cellAt(view, cell).data(ButtonRole).toString();
    return buttons.join(' ');
}

/** Puts the focus where none of the tables has it. */
bool focusElsewhere(Workspace &space)
{
    space.activate();
    auto *elsewhere = space.find<QLineEdit>("padsname");
    elsewhere->setFocus();
    return QApplication::focusWidget() == elsewhere;
}

/** Notes whether tables are painted, each as a whole. */
class PaintLog final : public QObject
{
public:
    explicit PaintLog(const QList<QTableView *> &views)
    {
        for (QTableView *view : views)
            view->viewport()->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint
            && static_cast<QPaintEvent *>(event)->region().contains(
                static_cast<QWidget *>(watched)->rect().center()))
            painted.insert(watched->parent()->objectName());
        return false;
    }

    QSet<QString> painted;
};

} // namespace

/** Which Live Buttons are ticked, what an emptied cell holds, and where the focus goes: what no random player meets. */
class TestTicks final : public QObject
{
    Q_OBJECT

private slots:
    void userCannotToggle();
    void dropsAndRemovals_data();
    void dropsAndRemovals();
    void removingOutsideColumn0OfAFullTable();
    void padOfTheSecondColumnComesBackAsOneOfTheFirst();
    void secondColumnIsExportedWithoutATick();
    void padDroppedOnALine();

    void modeSwitchLooksForTheSameText();
    void modeSwitchGoesToTheFirstRow();
    void cleaningRebuildsFromTheTop();
    void emptiesTables();

    void slotsTick_data();
    void slotsTick();
    void uncheckingGoesThroughAllRows_data();
    void uncheckingGoesThroughAllRows();
    void uncheckedButtonLeavesItsCells();

    void focusAfterDrops();
    void whatSlotsPaintAndFocus_data();
    void whatSlotsPaintAndFocus();
};

void TestTicks::userCannotToggle()
{
    Workspace space;
    QVERIFY2(start(space, false) && space.put("3@0,0"), qPrintable(space.dialogs.faults()));
    for (const int row : {0, 3}) {
        const QRect rect = space.dmxView()->visualRect(space.dmx()->index(row, 0));
        for (int x = rect.left() + 2; x < rect.left() + 40; x += 4)
            QTest::mouseClick(space.dmxView()->viewport(), Qt::LeftButton, {}, {x, rect.center().y()});
        QTest::keyClick(space.dmxView(), Qt::Key_Space);
    }
    QCOMPARE(space.ticked(), QList<int>({3}));
}

void TestTicks::dropsAndRemovals_data()
{
    QTest::addColumn<bool>("onKeys");
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("act"); // a drop, or the cells that are removed
    QTest::addColumn<QList<int>>("ticked");
    const auto row = [](const char *name, bool onKeys, const char *before, const char *act,
                        const QList<int> &ticked) {
        QTest::newRow(name) << onKeys << before << act << ticked;
    };
    row("replaced: stands on the second column alone", false, "3@0,0 3@1,1", "5@0,0", {5});
    row("replaced by itself on the second column", false, "3@0,1", "3@0,1", {});
    row("removed: both pads", false, "3@0,0 3@1,0", "0,0 1,0", {});
    row("removed: the other one on the second column", false, "3@0,0 3@1,1", "0,0", {});
    row("removed from the second column: the other one there", false, "3@0,1 3@1,1", "1,1", {});
    row("removed: two buttons, an empty pad among them", false, "3@0,0 5@1,0 7@2,0", "0,0 2,0 4,0", {5});
    row("removed: button number 0", false, "0@0,0 1@1,0", "0,0", {1});
    row("removed: nothing selected", false, "3@0,0", "", {3});
    row("removed: both keys", true, "3@2,2 3@9,9 5@3,3", "2,2 9,9", {5});
}

void TestTicks::dropsAndRemovals()
{
    QFETCH(bool, onKeys);
    QFETCH(QString, before);
    QFETCH(QString, act);
    QFETCH(QList<int>, ticked);

    Workspace space;
    QVERIFY2(start(space, onKeys) && space.put(before), qPrintable(space.dialogs.faults()));
    if (act.contains('@')) {
        QVERIFY(space.put(act));
    } else {
        Workspace::select(onKeys ? space.gridView() : space.padsView(), act);
        QVERIFY(space.call(onKeys ? "ondeleteaction_triggered" : "ondeletevdjaction_triggered"));
    }
    QCOMPARE(space.ticked(), ticked);
}

/** No pad of the first column is empty, so the number -1 stands nowhere; no Live Button has it either. */
void TestTicks::removingOutsideColumn0OfAFullTable()
{
    Workspace space;
    QVERIFY2(start(space, false) && space.put("3@0,0"), qPrintable(space.dialogs.faults()));
    for (int row = 1; row < 64; ++row)
        QVERIFY(space.pads()->setData(space.pads()->index(row, 0), "5", ButtonRole));
    Workspace::select(space.padsView(), "0,1");
    QVERIFY(space.call("ondeletevdjaction_triggered"));
    QCOMPARE(space.ticked(), QList<int>({3}));
}

void TestTicks::padOfTheSecondColumnComesBackAsOneOfTheFirst()
{
    Workspace space;
    QVERIFY2(start(space, false) && space.put("5@63,1"), qPrintable(space.dialogs.faults()));
    Workspace::select(space.padsView(), "63,1");
    QVERIFY(space.call("ondeletevdjaction_triggered"));
    QCOMPARE(space.pads()->index(63, 1).data().toString(), Texts::padLabel(63, 0));
}

void TestTicks::secondColumnIsExportedWithoutATick()
{
    Workspace space;
    QVERIFY2(start(space, false) && space.put("3@0,0 3@0,1"), qPrintable(space.dialogs.faults()));
    Workspace::select(space.padsView(), "0,0");
    QVERIFY(space.call("ondeletevdjaction_triggered"));
    QCOMPARE(space.ticked(), QList<int>());
    QVERIFY(space.click("radio_outputmidi") && space.click("radio_outputpage"));
    QCOMPARE(space.ticked(), QList<int>());

    space.dialogs.expect(Boxes::pageCreated(Texts::PageName));
    space.trigger("actionExport");
    QCOMPARE(space.dialogs.faults(), QString());
    QVERIFY(bytesOf(space.padsFolder() + "/OS2L DMX.xml").contains("os2l_button &apos;1-4&apos;</pad9>"));
}

/** It keeps a text alone, and a menu: without a number it counts as the first Live Button's. */
void TestTicks::padDroppedOnALine()
{
    Workspace space;
    QVERIFY2(start(space, false) && space.put("4@1,1"), qPrintable(space.dialogs.faults()));
    const QModelIndex pad = space.pads()->index(1, 1);
    const std::unique_ptr<QMimeData> data(space.pads()->mimeData({pad}));
    const QRect other = space.padsView()->visualRect(space.pads()->index(5, 0));
    QVERIFY(Workspace::drop(data.get(), space.padsView(), {other.center().x(), other.bottom() + 1}));
    QCOMPARE(pad.data(Qt::EditRole), QVariant(Texts::padLabel(1, 0)));
    for (const int role : {int(DisplayNameRole), int(PageRole), int(ButtonRole)})
        QCOMPARE(pad.data(role).toString(), QString());
    QVERIFY(!pad.data(Qt::DecorationRole).value<QColor>().isValid());
    QCOMPARE(space.ticked(), QList<int>({4}));

    QVERIFY(Workspace::pick(space.rightClick(space.padsView(), pad), {"Remove"}));
    QCOMPARE(pad.data(ButtonRole), QVariant(Texts::NoButton));
    QCOMPARE(pad.data(), QVariant(Texts::padLabel(1, 0)));
}

/** Elsewhere the numbers count; here their texts do, which differ in a project written by hand. */
void TestTicks::modeSwitchLooksForTheSameText()
{
    Workspace space;
    QVERIFY2(start(space, false) && space.put("3@0,0 5@1,0"), qPrintable(space.dialogs.faults()));
    QVERIFY(space.pads()->setData(space.pads()->index(0, 0), "03", ButtonRole));
    QVERIFY(space.call("dmxtoremove", 3));
    QCOMPARE(space.ticked(), QList<int>({3, 5}));
    QVERIFY(space.call("resetdmxlist"));
    QCOMPARE(space.ticked(), QList<int>({5}));
}

void TestTicks::modeSwitchGoesToTheFirstRow()
{
    Workspace space;
    QVERIFY(space.call("resetdmxlist"));
    QVERIFY(!space.dmxView()->currentIndex().isValid());
    QVERIFY2(start(space, false), qPrintable(space.dialogs.faults()));
    space.dmxView()->setCurrentIndex(space.dmx()->index(7, 0));
    QVERIFY(focusElsewhere(space));
    QVERIFY(space.call("resetdmxlist"));
    QCOMPARE(space.dmxView()->currentIndex(), space.dmx()->index(0, 0));
    QCOMPARE(Workspace::focused(), QString("padsname"));
}

/** Which rows go in where is heard by the views: pads row by row, the grid at once. */
void TestTicks::cleaningRebuildsFromTheTop()
{
    Workspace space;
    QSignalSpy pads(space.pads(), &QAbstractItemModel::rowsInserted);
    QSignalSpy keys(space.grid(), &QAbstractItemModel::rowsInserted);
    QVERIFY(space.click("cleanpads_button"));
    QCOMPARE(pads.count(QVariantList({QModelIndex(), 0, 0})), 64);
    QCOMPARE(pads.size() + keys.size(), 64);
    QVERIFY(space.click("radio_outputmidi") && space.click("cleanmidi_button"));
    QCOMPARE(keys, QList<QVariantList>({{QModelIndex(), 0, 11}}));
    QCOMPARE(pads.size(), 64);
}

void TestTicks::emptiesTables()
{
    Workspace space;
    QVERIFY2(start(space, true), qPrintable(space.dialogs.faults()));
    int changes = 0;
    for (const char *slot : {"cleanDMX", "cleanVDJ", "cleanMIDI"}) {
        const QAbstractItemModel *table = ++changes == 1 ? space.dmx()
                                          : changes == 2 ? space.pads()
                                                         : space.grid();
        QSignalSpy removed(table, &QAbstractItemModel::rowsRemoved);
        QVERIFY(space.call(slot) && space.call(slot)); // with no rows, nothing is asked for
        QCOMPARE(removed.count(), 1);
        QCOMPARE(table->rowCount(), 0);
    }
}

void TestTicks::slotsTick_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("to");
    QTest::addColumn<QList<int>>("ticked");
    QTest::newRow("first row") << 0 << 3 << QList<int>{0};
    QTest::newRow("last row, no target") << 15 << -1 << QList<int>{15};
    QTest::newRow("target beyond the table") << 4 << 999 << QList<int>{4};
    QTest::newRow("row beyond the list") << 16 << 3 << QList<int>{};
    QTest::newRow("row below zero") << -1 << 3 << QList<int>{};
}

void TestTicks::slotsTick()
{
    QFETCH(int, index);
    QFETCH(int, to);
    QFETCH(QList<int>, ticked);

    for (const QList<int> &target : {QList<int>{to}, QList<int>{to, 3}}) {
        Workspace space;
        QVERIFY2(start(space, true), qPrintable(space.dialogs.faults()));
        QVERIFY(space.callWith(target.size() == 1 ? "CheckChanged" : "CheckChangedCon",
                               QList<int>{index} + target));
        QCOMPARE(space.ticked(), ticked);
        QCOMPARE(space.leftOnPads(), QString());
        QCOMPARE(space.leftOnGrid(), QString());
    }
}

void TestTicks::uncheckingGoesThroughAllRows_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QList<int>>("ticked"); // of 3 and 7, which have number 3, and 5, which stays assigned
    QTest::newRow("two rows of one number") << 3 << QList<int>{5};
    QTest::newRow("a number that is assigned") << 5 << QList<int>{3, 5, 7};
    QTest::newRow("the number of empty cells") << -1 << QList<int>{3, 5, 7};
    QTest::newRow("a number that nothing has") << 99 << QList<int>{3, 5, 7};
}

void TestTicks::uncheckingGoesThroughAllRows()
{
    QFETCH(int, number);
    QFETCH(QList<int>, ticked);

    for (const bool onKeys : {false, true}) {
        Workspace space;
        QVERIFY2(start(space, onKeys) && space.put("5@2,0"), qPrintable(space.dialogs.faults()));
        QVERIFY(space.dmx()->setData(space.dmx()->index(7, 0), "03", ButtonRole)); // numbers count, not texts
        QVERIFY(space.call("CheckChanged", 3, 0) && space.call("CheckChanged", 7, 0));
        QVERIFY(space.call(onKeys ? "dmxtoremove2" : "dmxtoremove", number));
        QCOMPARE(space.ticked(), ticked);
    }
}

void TestTicks::uncheckedButtonLeavesItsCells()
{
    Workspace space;
    QVERIFY2(start(space, false) && space.put("3@0,0 4@1,0 3@2,1 3@9,0"), qPrintable(space.dialogs.faults()));
    QVERIFY(space.click("radio_outputmidi") && space.put("3@2,2 3@2,11 3@5,5 4@9,9"));
    QVERIFY(space.pads()->setData(space.pads()->index(4, 0), "03", ButtonRole)); // numbers count, not texts
    QVERIFY(space.grid()->setData(space.grid()->index(4, 4), "03", ButtonRole));
    QVERIFY(focusElsewhere(space));
    QVERIFY(space.grid()->setData(space.grid()->index(2, 2), "0", AvailableRole));
    QVERIFY(space.grid()->setData(space.grid()->index(2, 2), "#123456", Qt::ForegroundRole));
    const FocusLog focus;
    QVERIFY(space.call("dmxcheckchange", 3));

    QCOMPARE(buttonsAt(space.padsView(), "0,0 4,0 9,0 1,0 2,1"),
             QString("-1 -1 -1 4 3")); // not in the second column
    QCOMPARE(buttonsAt(space.gridView(), "2,2 2,11 4,4 5,5 9,9"), QString("-1 -1 -1 -1 4"));
    const QModelIndex pad = space.pads()->index(9, 0);
    QCOMPARE(pad.data().toString(), Texts::padLabel(9, 0));
    QCOMPARE(pad.data(Qt::DecorationRole).value<QColor>(), QColor(Qt::white));
    const QModelIndex key = space.grid()->index(2, 2);
    QCOMPARE(key.data().toString(), Texts::keyLabel(2, 2));
    QCOMPARE(key.data(Qt::DecorationRole).value<QColor>(), QColor(Qt::black));
    QCOMPARE(key.data(AvailableRole).toString(), QString("0")); // of a key that is removed, it becomes "1"
    QCOMPARE(key.data(Qt::ForegroundRole).value<QColor>(), QColor("#123456"));

    QCOMPARE(space.padsView()->currentIndex(), pad);
    QCOMPARE(space.gridView()->currentIndex(), space.grid()->index(5, 5));
    QCOMPARE(space.dmxView()->currentIndex(), space.dmx()->index(3, 0));
    QCOMPARE(focus.names(), QStringList({"vdjlistview", "tablecontroller", "dmxlistview"}));
    QCOMPARE(space.ticked(), QList<int>({3, 4})); // the tick itself is another's affair
}

/** A drop on a pad leaves it, one on a key takes it there. */
void TestTicks::focusAfterDrops()
{
    Workspace space;
    QVERIFY2(start(space, false) && focusElsewhere(space), qPrintable(space.dialogs.faults()));
    const QModelIndex current = space.padsView()->currentIndex();
    QVERIFY(space.drag(space.dmx()->index(3, 0), space.padsView(), space.pads()->index(4, 0)));
    QCOMPARE(Workspace::focused(), QString("padsname"));
    QCOMPARE(space.padsView()->currentIndex(), current);

    QVERIFY(space.click("radio_outputmidi"));
    Workspace::select(space.gridView(), "9,9 8,8");
    QVERIFY(focusElsewhere(space) && space.put("5@4,6"));
    QCOMPARE(Workspace::focused(), QString("tablecontroller"));
    QCOMPARE(space.gridView()->currentIndex(), space.grid()->index(4, 6));
    QCOMPARE(space.gridView()->selectionModel()->selectedIndexes(),
             QModelIndexList({space.grid()->index(4, 6)}));
}

void TestTicks::whatSlotsPaintAndFocus_data()
{
    QTest::addColumn<bool>("onKeys");
    QTest::addColumn<QList<int>>("with");
    QTest::addColumn<QString>("painted");
    QTest::addColumn<QString>("focused"); // where the focus goes from elsewhere
    QTest::addColumn<int>("current");     // row of the Live Button that is current
    const auto row = [](bool onKeys, const char *slot, const QList<int> &with, const char *painted,
                        const QString &focused, int current = 7) {
        QTest::newRow(slot) << onKeys << with << painted << focused << current;
    };
    const char *const list = "dmxlistview";
    const char *const grid = "tablecontroller";
    const char *const both = "dmxlistview vdjlistview";
    const char *const bothKeys = "dmxlistview tablecontroller";
    const QString twice = "dmxlistview tablecontroller dmxlistview tablecontroller";
    row(false, "CheckChanged", {5, 0}, list, "");
    row(true, "CheckChangedCon", {5, 2, 2}, bothKeys, grid);
    row(false, "dmxtoremove", {3}, both, both);
    row(true, "dmxtoremove2", {3}, bothKeys, bothKeys);
    row(true, "dmxcheckchange", {3}, grid, "tablecontroller dmxlistview", 3);
    row(false, "resetdmxlist", {}, list, "", 0);
    row(false, "ondeletevdjaction_triggered", {}, both, both);
    row(true, "ondeleteaction_triggered", {}, bothKeys, bothKeys);
    row(true, "ondeletemidiaction_triggered", {2, 0}, bothKeys, bothKeys);
    row(false, "on_cleanpads_button_clicked", {}, both, list, 0);
    row(true, "on_cleanmidi_button_clicked", {}, bothKeys, list, 0);
    row(false, "on_actionNew_2_triggered", {}, both, list, 0);
    row(true, "colorpadchange", {1}, grid, "");
    row(true, "coloronpadchange", {1}, grid, "");
    row(true, "onblinkaction_triggered", {}, grid, "");
    row(true, "ontoggleaction_triggered", {}, grid, twice);
    row(true, "updatelayout", {}, grid, grid);
}

void TestTicks::whatSlotsPaintAndFocus()
{
    QFETCH(bool, onKeys);
    QFETCH(QList<int>, with);
    QFETCH(QString, painted);
    QFETCH(QString, focused);
    QFETCH(int, current);

    for (const bool startsElsewhere : {true, false}) { // what takes the focus is painted anyway
        Workspace space;
        QVERIFY2(start(space, onKeys) && space.put("3@2,0"), qPrintable(space.dialogs.faults()));
        QTableView *view = onKeys ? space.gridView() : space.padsView();
        Workspace::select(view, "2,0");
        space.dmxView()->setCurrentIndex(space.dmx()->index(7, 0));
        view->setFocus();
        QVERIFY(!startsElsewhere || focusElsewhere(space));
        QApplication::processEvents();
        space.window().repaint(); // and nothing is left to be painted
        const FocusLog focus;
        const PaintLog paint({space.dmxView(), space.padsView(), space.gridView()});
        QVERIFY(space.callWith(QTest::currentDataTag(), with));
        if (startsElsewhere) {
            QCOMPARE(focus.names().join(' '), focused);
            for (const auto &widget : focus.taken)
                QCOMPARE(widget.second, Qt::OtherFocusReason);
            QCOMPARE(space.dmxView()->currentIndex().row(), current);
        } else {
            for (const QString &table : painted.split(' '))
                QTRY_VERIFY2(paint.painted.contains(table), qPrintable(table));
        }
    }
}

QTEST_MAIN(TestTicks)
#include "test_ticks.moc"

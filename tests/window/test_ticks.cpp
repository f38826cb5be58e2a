#include "support/boxes.h"
#include "support/devices.h"
#include "support/files.h"
#include "support/focuslog.h"
#include "support/texts.h"

#include <QApplication>
#include <QLineEdit>
#include <QMenu>
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
    void emptiedCellsRest_data();
    void emptiedCellsRest();
    void secondColumnIsExportedWithoutATick();
    void padDroppedOnALine();

    void modeSwitchLooksForTheSameText();
    void modeSwitchGoesToTheFirstRow();
    void cleaningRebuildsFromTheTop();
    void emptiesTables_data();
    void emptiesTables();
    void buttonsAloneAreWork_data();
    void buttonsAloneAreWork();

    void slotsTick_data();
    void slotsTick();
    void uncheckingGoesThroughAllRows_data();
    void uncheckingGoesThroughAllRows();
    void uncheckedButtonLeavesItsCells();

    void focusAfterDrops();
    void wayOfTheFocus_data();
    void wayOfTheFocus();
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
    row("replaced on the second column: stands on the first", false, "3@0,1 3@7,0", "5@0,1", {3, 5});
    row("replaced by itself", false, "3@0,0", "3@0,0", {3});
    row("replaced by itself on the second column", false, "3@0,1", "3@0,1", {});
    row("replaced: the first button, number 0", false, "0@0,0", "5@0,0", {5});
    row("key replaced by itself", true, "3@5,11", "3@5,11", {3});
    row("key replaced: stands on a band", true, "3@2,2 3@5,0", "5@2,2", {3, 5});
    row("removed: both pads", false, "3@0,0 3@1,0", "0,0 1,0", {});
    row("removed: the other one in bank 8", false, "3@63,0 3@0,0", "0,0", {3});
    row("removed: the other one on the second column", false, "3@0,0 3@1,1", "0,0", {});
    row("removed from the second column: the other one there", false, "3@0,1 3@1,1", "1,1", {});
    row("removed: two buttons, an empty pad among them", false, "3@0,0 5@1,0 7@2,0", "0,0 2,0 4,0", {5});
    row("removed: button number 0", false, "0@0,0 1@1,0", "0,0", {1});
    row("removed: nothing selected", false, "3@0,0", "", {3});
    row("removed: both keys", true, "3@2,2 3@9,9 5@3,3", "2,2 9,9", {5});
    row("removed: no key selected", true, "3@2,2", "", {3});
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

void TestTicks::emptiedCellsRest_data()
{
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<QList<int>>("with");
    QTest::addColumn<bool>("onKeys");
    QTest::addColumn<QString>("place");
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("color");
    QTest::addColumn<QString>("available"); // of a key that was "0", where such a key can be emptied
    QTest::addColumn<QString>("textColor"); // of a key that was "#123456"
    const auto pad = [](const char *name, const char *slot, const QList<int> &with, const char *place,
                        const char *label, const QString &color) {
        QTest::newRow(name) << QByteArray(slot) << with << false << place << label << color << ""
                            << "";
    };
    const auto key = [](const char *name, const char *slot, const QList<int> &with, const char *place,
                        const char *label, const char *available, const char *textColor) {
        QTest::newRow(name) << QByteArray(slot) << with << true << place << label << Texts::NoColor
                            << available << textColor;
    };
    const char *const removePads = "ondeletevdjaction_triggered";
    const char *const removeKeys = "ondeleteaction_triggered";
    const char *const removeKey = "ondeletemidiaction_triggered";
    pad("pad 8 of bank 2", removePads, {}, "15,0", "PAD 8", Texts::NoColor);
    pad("pad 9 comes back as 1", removePads, {}, "0,1", "PAD 1", Texts::NoColor);
    pad("pad 16 of bank 8 comes back as 8", removePads, {}, "63,1", "PAD 8", Texts::NoColor);
    pad("unchecked: pad 2 of bank 3", "dmxcheckchange", {5}, "17,0", "PAD 2", "#ffffff");
    key("selected key", removeKeys, {}, "2,2", "PAD 1", "1", "#ffffff");
    key("selected key of a band", removeKeys, {}, "9,11", "RIGHT 8", "1", "#ffffff");
    key("one key", removeKey, {9, 9}, "9,9", "PAD 64", "1", "#ffffff");
    key("one key of a band", removeKey, {2, 0}, "2,0", "LEFT 1", "1", "#ffffff");
    key("unchecked: key", "dmxcheckchange", {5}, "2,2", "PAD 1", "0", "#123456");
    key("unchecked: key of a band", "dmxcheckchange", {5}, "3,11", "RIGHT 2", "0", "#123456");
}

void TestTicks::emptiedCellsRest()
{
    QFETCH(QByteArray, slot);
    QFETCH(QList<int>, with);
    QFETCH(bool, onKeys);
    QFETCH(QString, place);
    QFETCH(QString, label);
    QFETCH(QString, color);
    QFETCH(QString, available);
    QFETCH(QString, textColor);

    Workspace space;
    QVERIFY2(start(space, onKeys) && space.put("5@" + place), qPrintable(space.dialogs.faults()));
    QTableView *view = onKeys ? space.gridView() : space.padsView();
    const QModelIndex index = Workspace::cellAt(view, place);
    QList<QPair<int, QString>> values = {{Qt::EditRole, "typed"}};
    if (onKeys) {
        const bool isSelected = with.isEmpty(); // not if the device lacks the key
        values += {{AvailableRole, isSelected ? "1" : "0"},
                   {Qt::ForegroundRole, "#123456"},
                   {OffColorRole, "#ff0000"},
                   {OnColorRole, "#00ff00"},
                   {BlinkRole, "1"}};
    }
    for (const auto &[role, value] : qAsConst(values))
        QVERIFY(view->model()->setData(index, value, role));
    Workspace::select(view, place);
    QVERIFY(space.callWith(slot, with));

    QCOMPARE(index.data(Qt::EditRole), QVariant(label));
    QCOMPARE(index.data(DisplayNameRole), QVariant(label));
    QCOMPARE(index.data(PageRole), QVariant(Texts::NoPage));
    QCOMPARE(index.data(ButtonRole), QVariant(Texts::NoButton));
    QCOMPARE(index.data(Qt::DecorationRole).value<QColor>().name(), color);
    if (onKeys) {
        QCOMPARE(index.data(AvailableRole), QVariant(available));
        QCOMPARE(index.data(Qt::ForegroundRole).value<QColor>().name(), textColor);
        QCOMPARE(index.data(OffColorRole), QVariant("#ff0000"));
        QCOMPARE(index.data(OnColorRole), QVariant("#00ff00"));
        QCOMPARE(index.data(BlinkRole), QVariant("1"));
    }
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
    QCOMPARE(pad.data(Qt::EditRole), QVariant("PAD 2"));
    for (const int role : {int(DisplayNameRole), int(PageRole), int(ButtonRole)})
        QCOMPARE(pad.data(role).toString(), QString());
    QVERIFY(!pad.data(Qt::DecorationRole).value<QColor>().isValid());
    QCOMPARE(space.ticked(), QList<int>({4}));

    QVERIFY(Workspace::pick(space.rightClick(space.padsView(), pad), {"Remove"}));
    QCOMPARE(pad.data(ButtonRole), QVariant(Texts::NoButton));
    QCOMPARE(pad.data(), QVariant("PAD 2"));
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

void TestTicks::emptiesTables_data()
{
    QTest::addColumn<QList<int>>("rows"); // Live Buttons, pads and keys
    QTest::newRow("cleanDMX") << QList<int>{0, 64, 12};
    QTest::newRow("cleanVDJ") << QList<int>{16, 0, 12};
    QTest::newRow("cleanMIDI") << QList<int>{16, 64, 0};
}

void TestTicks::emptiesTables()
{
    QFETCH(QList<int>, rows);
    Workspace space;
    QVERIFY2(start(space, true), qPrintable(space.dialogs.faults()));
    int changes = 0;
    for (const QAbstractItemModel *table : {space.dmx(), space.pads(), space.grid()})
        connect(table, &QAbstractItemModel::rowsRemoved, this, [&changes] { ++changes; });

    // The second call finds no rows and asks for nothing.
    for (int turn = 0; turn < 2; ++turn) {
        QVERIFY(space.call(QTest::currentDataTag()));
        QCOMPARE((QList<int>{space.dmx()->rowCount(), space.pads()->rowCount(), space.grid()->rowCount()}),
                 rows);
        QCOMPARE(changes, 1);
    }
}

void TestTicks::buttonsAloneAreWork_data()
{
    QTest::addColumn<QPoint>("cell"); // row, column
    QTest::addColumn<int>("role");
    QTest::addColumn<QString>("value");
    QTest::addColumn<bool>("isWork");
    const auto row = [](const char *name, const QPoint &cell, int role, const char *value, bool isWork) {
        QTest::newRow(name) << cell << role << value << isWork;
    };
    row("a typed name", {0, 0}, Qt::EditRole, "Intro", false);
    row("a colour", {0, 0}, Qt::DecorationRole, "#ff0000", false);
    row("a page without a button", {0, 0}, PageRole, "2", false);
    row("first button on the first cell", {0, 0}, ButtonRole, "0", true);
    row("second column", {3, 1}, ButtonRole, "3", true);
    row("last row of keys", {11, 1}, ButtonRole, "15", true);
}

void TestTicks::buttonsAloneAreWork()
{
    QFETCH(QPoint, cell);
    QFETCH(int, role);
    QFETCH(QString, value);
    QFETCH(bool, isWork);

    Workspace space;
    for (QAbstractItemModel *table : {space.pads(), space.grid()}) {
        QVERIFY(table->setData(table->index(cell.x(), cell.y()), value, role));
        QCOMPARE(space.ask<bool>("isVDJempty"), !isWork || table == space.grid());
        QCOMPARE(space.ask<bool>("isMIDIempty"), !isWork || table == space.pads());
        QVERIFY(space.call("cleanVDJ"));
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
    QVERIFY(space.call("dmxcheckchange", 3));

    QCOMPARE(buttonsAt(space.padsView(), "0,0 4,0 9,0 1,0 2,1"),
             QString("-1 -1 -1 4 3")); // not in the second column
    QCOMPARE(buttonsAt(space.gridView(), "2,2 2,11 4,4 5,5 9,9"), QString("-1 -1 -1 -1 4"));
    QCOMPARE(space.padsView()->currentIndex(), space.pads()->index(9, 0));
    QCOMPARE(space.gridView()->currentIndex(), space.grid()->index(5, 5));
    QCOMPARE(space.dmxView()->currentIndex(), space.dmx()->index(3, 0));
    QCOMPARE(Workspace::focused(), QString("dmxlistview"));
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
    space.gridView()->setCurrentIndex(space.grid()->index(9, 9));
    QVERIFY(focusElsewhere(space) && space.put("5@4,6"));
    QCOMPARE(Workspace::focused(), QString("tablecontroller"));
    QCOMPARE(space.gridView()->currentIndex(), space.grid()->index(4, 6));
    QCOMPARE(space.gridView()->selectionModel()->selectedIndexes(),
             QModelIndexList({space.grid()->index(4, 6)}));
}

void TestTicks::wayOfTheFocus_data()
{
    QTest::addColumn<bool>("onKeys");
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<QList<int>>("with");
    QTest::addColumn<QString>("focus");
    QTest::addColumn<int>("current"); // row of the Live Button that is current
    const auto row = [](const char *name, bool onKeys, const char *slot, const QList<int> &with,
                        const char *focus, int current) {
        QTest::newRow(name) << onKeys << QByteArray(slot) << with << focus << current;
    };
    const char *const onPads = "dmxlistview vdjlistview";
    const char *const onGrid = "dmxlistview tablecontroller";
    row("replaced on a pad", false, "dmxtoremove", {3}, onPads, 7);
    row("remove from pads", false, "ondeletevdjaction_triggered", {}, onPads, 7);
    row("unchecked, pads", false, "dmxcheckchange", {3}, "vdjlistview dmxlistview", 3);
    row("clean pads", false, "on_cleanpads_button_clicked", {}, "dmxlistview", 0);
    row("new project", false, "on_actionNew_2_triggered", {}, "dmxlistview", 0);
    row("replaced on a key", true, "dmxtoremove2", {3}, onGrid, 7);
    row("remove from keys", true, "ondeleteaction_triggered", {}, onGrid, 7);
    row("remove one key", true, "ondeletemidiaction_triggered", {2, 0}, onGrid, 7);
    row("Switch", true, "ontoggleaction_triggered", {},
        "dmxlistview tablecontroller dmxlistview tablecontroller", 7);
    row("unchecked, keys", true, "dmxcheckchange", {3}, "tablecontroller dmxlistview", 3);
    row("clean keys", true, "on_cleanmidi_button_clicked", {}, "dmxlistview", 0);
    row("dropped on a key", true, "CheckChangedCon", {3, 2, 0}, "tablecontroller", 7);
}

void TestTicks::wayOfTheFocus()
{
    QFETCH(bool, onKeys);
    QFETCH(QByteArray, slot);
    QFETCH(QList<int>, with);
    QFETCH(QString, focus);
    QFETCH(int, current);

    Workspace space;
    QVERIFY2(start(space, onKeys) && space.put("3@2,0"), qPrintable(space.dialogs.faults()));
    Workspace::select(onKeys ? space.gridView() : space.padsView(), "2,0");
    space.dmxView()->setCurrentIndex(space.dmx()->index(7, 0));
    QVERIFY(focusElsewhere(space));
    const FocusLog log;
    QVERIFY(space.callWith(slot, with));
    QCOMPARE(log.names().join(' '), focus);
    for (const auto &widget : log.taken)
        QCOMPARE(widget.second, Qt::OtherFocusReason);
    QCOMPARE(space.dmxView()->currentIndex().row(), current);
}

QTEST_MAIN(TestTicks)
#include "test_ticks.moc"

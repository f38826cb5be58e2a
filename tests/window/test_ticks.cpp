#include "support/boxes.h"
#include "support/devices.h"
#include "support/files.h"
#include "support/focuslog.h"
#include "support/workspace.h"

#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QRadioButton>

namespace {

/** A Live Button and where it goes; as text "button@row,column". */
struct Assignment
{
    int button;
    int row;
    int col;
};

QVector<Assignment> assignments(const QString &text)
{
    QVector<Assignment> all;
    const QStringList parts = text.split(' ', Qt::SkipEmptyParts);
    for (const QString &part : parts) {
        const QStringList cell = part.section('@', 1).split(',');
        all.append({part.section('@', 0, 0).toInt(), cell.value(0).toInt(), cell.value(1).toInt()});
    }
    return all;
}

/** A loaded show of 16 Live Buttons, 16 pads a bank, in the mode that the test asks for. */
bool start(Workspace &space, bool isMidiMode)
{
    return space.loadSomeShow() && space.click("radioButton_16pads")
           && (!isMidiMode
               || (space.click("radio_outputmidi") && space.choose("devicescombo", Devices::Pro)));
}

/** Drags Live Buttons onto pads, or onto keys in MIDI Mapping mode. */
bool put(Workspace &space, const QString &text)
{
    const bool onKeys = space.find<QRadioButton>("radio_outputmidi")->isChecked();
    for (const Assignment &to : assignments(text)) {
        if (onKeys ? !space.putOnKey(to.button, to.row, to.col) : !space.putOnPad(to.button, to.row, to.col))
            return false;
    }
    return true;
}

QString colorOf(const QModelIndex &index, int role = Qt::DecorationRole)
{
    return index.data(role).value<QColor>().name();
}

/** Gives a key all that it can hold beside its Live Button, availability aside. */
bool colorKey(QAbstractItemModel &grid, const QModelIndex &key)
{
    return grid.setData(key, "#123456", Qt::ForegroundRole) && grid.setData(key, "#ff0000", OffColorRole)
           && grid.setData(key, "#00ff00", OnColorRole) && grid.setData(key, "1", BlinkRole);
}

/** Calls a slot that takes Live Button 5 off the cell where it stands, which is selected. */
bool removeBy(Workspace &space, const QByteArray &slot, int row, int col)
{
    if (slot == "ondeletemidiaction_triggered")
        return space.call(slot, row, col);
    return slot == "dmxcheckchange" ? space.call(slot, 5) : space.call(slot);
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

/** Which Live Buttons are ticked, what a removed or cleaned cell holds, and where the focus goes. */
class TestTicks final : public QObject
{
    Q_OBJECT

private slots:
    void dropTicks_data();
    void dropTicks();
    void dropThatReplaces_data();
    void dropThatReplaces();
    void loadClearsTicks();
    void movesKeepTicks_data();
    void movesKeepTicks();
    void userCannotToggle();

    void removing_data();
    void removing();
    void tickGoesWithTheLastCell_data();
    void tickGoesWithTheLastCell();
    void removingOneKey_data();
    void removingOneKey();
    void removingOutsideColumn0OfAFullTable();
    void removedCellsRest_data();
    void removedCellsRest();
    void sixteenPadAsymmetry();

    void modeShowsItsTable();
    void modeSwitchLooksAtColumn0Alone();
    void modeSwitchLooksAtKeysThatTheDeviceLacks();
    void modeSwitchTicksHiddenRows();
    void modeSwitchLooksForTheSameText();
    void modeSwitchGoesToTheFirstRow();
    void modeSwitchWithoutShow();

    void cleansPads();
    void cleansPadsFromBank5();
    void cleansKeys();
    void cleansSections();
    void cleaningRebuildsFromTheTop();
    void cleansTicksOfHiddenRows_data();
    void cleansTicksOfHiddenRows();
    void cleaningWithoutShow();
    void newProjectClearsTicks();
    void emptiesTables_data();
    void emptiesTables();

    void emptyPads_data();
    void emptyPads();
    void emptyKeys_data();
    void emptyKeys();

    void dropOnALineTicks();
    void padDroppedOnALine();
    void dropOnALineOfTheGridIsRefused();
    void dropOnNoKeyIsRefused_data();
    void dropOnNoKeyIsRefused();

    void slotsTick_data();
    void slotsTick();
    void uncheckingGoesThroughAllRows_data();
    void uncheckingGoesThroughAllRows();
    void uncheckedButtonLeavesItsCells_data();
    void uncheckedButtonLeavesItsCells();

    void plainDropOnAPadLeavesTheFocus();
    void focusAfterDrops_data();
    void focusAfterDrops();
    void focusAfterCommands_data();
    void focusAfterCommands();
    void wayOfTheFocus_data();
    void wayOfTheFocus();
};

void TestTicks::dropTicks_data()
{
    QTest::addColumn<bool>("onKeys");
    QTest::addColumn<QString>("drops");
    QTest::addColumn<QList<int>>("ticked");
    QTest::newRow("pad") << false << "3@0,0" << QList<int>{3};
    QTest::newRow("pad of the second column") << false << "3@0,1" << QList<int>{3};
    QTest::newRow("pad of another bank") << false << "3@63,0" << QList<int>{3};
    QTest::newRow("one button on two pads") << false << "3@0,0 3@9,1" << QList<int>{3};
    QTest::newRow("two buttons") << false << "15@0,0 0@1,0" << QList<int>{0, 15};
    QTest::newRow("key") << true << "3@2,2" << QList<int>{3};
    QTest::newRow("key of each band") << true << "3@0,2 4@11,9 5@2,0 6@9,11" << QList<int>{3, 4, 5, 6};
    QTest::newRow("one button on two keys") << true << "3@2,2 3@9,9" << QList<int>{3};
}

void TestTicks::dropTicks()
{
    QFETCH(bool, onKeys);
    QFETCH(QString, drops);
    QFETCH(QList<int>, ticked);

    Workspace space;
    QVERIFY2(start(space, onKeys), qPrintable(space.dialogs.faults()));
    QCOMPARE(space.ticked(), QList<int>());
    QVERIFY(put(space, drops));
    QCOMPARE(space.ticked(), ticked);
    for (const int row : ticked)
        QCOMPARE(space.dmx()->index(row, 0).data(Qt::CheckStateRole), QVariant(2));
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestTicks::dropThatReplaces_data()
{
    QTest::addColumn<bool>("onKeys");
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("drop");
    QTest::addColumn<QList<int>>("ticked");
    QTest::newRow("pad: stood nowhere else") << false << "3@0,0"
                                             << "5@0,0" << QList<int>{5};
    QTest::newRow("pad: stands on another pad") << false << "3@0,0 3@1,0"
                                                << "5@0,0" << QList<int>{3, 5};
    QTest::newRow("pad: stands in another bank") << false << "3@0,0 3@56,0"
                                                 << "5@0,0" << QList<int>{3, 5};
    QTest::newRow("pad: stands on the second column alone") << false << "3@0,0 3@1,1"
                                                            << "5@0,0" << QList<int>{5};
    QTest::newRow("pad of the second column: stood nowhere else") << false << "3@0,1"
                                                                  << "5@0,1" << QList<int>{5};
    QTest::newRow("pad of the second column: stands on the first") << false << "3@0,1 3@7,0"
                                                                   << "5@0,1" << QList<int>{3, 5};
    QTest::newRow("pad: the same button again") << false << "3@0,0"
                                                << "3@0,0" << QList<int>{3};
    QTest::newRow("pad of the second column: the same button again") << false << "3@0,1"
                                                                     << "3@0,1" << QList<int>{};
    QTest::newRow("pad: the first button, number 0") << false << "0@0,0"
                                                     << "5@0,0" << QList<int>{5};
    QTest::newRow("key: stood nowhere else") << true << "3@2,2"
                                             << "5@2,2" << QList<int>{5};
    QTest::newRow("key: stands on another key") << true << "3@2,2 3@9,9"
                                                << "5@2,2" << QList<int>{3, 5};
    QTest::newRow("key: stands on the left band") << true << "3@2,2 3@5,0"
                                                  << "5@2,2" << QList<int>{3, 5};
    QTest::newRow("key: stands on the right band") << true << "3@2,2 3@5,11"
                                                   << "5@2,2" << QList<int>{3, 5};
    QTest::newRow("key: the same button again") << true << "3@5,11"
                                                << "3@5,11" << QList<int>{3};
}

void TestTicks::dropThatReplaces()
{
    QFETCH(bool, onKeys);
    QFETCH(QString, before);
    QFETCH(QString, drop);
    QFETCH(QList<int>, ticked);

    Workspace space;
    QVERIFY2(start(space, onKeys), qPrintable(space.dialogs.faults()));
    QVERIFY(put(space, before));
    QVERIFY(put(space, drop));
    QCOMPARE(space.ticked(), ticked);

    const Assignment last = assignments(drop).first();
    const QAbstractItemModel *table = onKeys ? space.grid() : space.pads();
    QCOMPARE(table->index(last.row, last.col).data(ButtonRole).toInt(), last.button);
}

void TestTicks::loadClearsTicks()
{
    Workspace space;
    QVERIFY2(start(space, false), qPrintable(space.dialogs.faults()));
    QVERIFY(put(space, "3@0,0 5@1,0"));
    QVERIFY(space.ask<bool>("loadshowname", space.home() + "/Show/Live/live.ini"));
    QCOMPARE(space.dmx()->rowCount(), 16);
    QCOMPARE(space.ticked(), QList<int>());
}

void TestTicks::movesKeepTicks_data()
{
    QTest::addColumn<bool>("onKeys");
    QTest::addColumn<QString>("before");
    QTest::addColumn<QPoint>("from"); // row, column
    QTest::addColumn<QPoint>("to");
    QTest::addColumn<QList<int>>("ticked");
    QTest::newRow("pad to an empty pad") << false << "3@0,0" << QPoint(0, 0) << QPoint(4, 0) << QList<int>{3};
    QTest::newRow("pad to the second column")
        << false << "3@0,0" << QPoint(0, 0) << QPoint(4, 1) << QList<int>{3};
    QTest::newRow("pad swapped") << false << "3@0,0 5@1,0" << QPoint(0, 0) << QPoint(1, 0)
                                 << QList<int>{3, 5};
    QTest::newRow("pad on itself") << false << "3@0,0" << QPoint(0, 0) << QPoint(0, 0) << QList<int>{3};
    QTest::newRow("key to an empty key") << true << "3@2,2" << QPoint(2, 2) << QPoint(0, 3) << QList<int>{3};
    QTest::newRow("key swapped") << true << "3@2,2 5@3,3" << QPoint(2, 2) << QPoint(3, 3) << QList<int>{3, 5};
}

void TestTicks::movesKeepTicks()
{
    QFETCH(bool, onKeys);
    QFETCH(QString, before);
    QFETCH(QPoint, from);
    QFETCH(QPoint, to);
    QFETCH(QList<int>, ticked);

    Workspace space;
    QVERIFY2(start(space, onKeys), qPrintable(space.dialogs.faults()));
    QVERIFY(put(space, before));
    QTableView *view = onKeys ? space.gridView() : space.padsView();
    const QModelIndex target = view->model()->index(to.x(), to.y());
    QVERIFY(space.drag(view->model()->index(from.x(), from.y()), view, target));
    QCOMPARE(target.data(ButtonRole).toInt(), 3);
    QCOMPARE(space.ticked(), ticked);
}

void TestTicks::userCannotToggle()
{
    Workspace space;
    QVERIFY2(start(space, false), qPrintable(space.dialogs.faults()));
    QVERIFY(put(space, "3@0,0"));
    for (const int row : {0, 3}) {
        const QModelIndex index = space.dmx()->index(row, 0);
        QVERIFY(!index.flags().testFlag(Qt::ItemIsUserCheckable));
        const QRect rect = space.dmxView()->visualRect(index);
        for (int x = rect.left() + 2; x < rect.left() + 40; x += 4)
            QTest::mouseClick(space.dmxView()->viewport(), Qt::LeftButton, {}, {x, rect.center().y()});
        QTest::keyClick(space.dmxView(), Qt::Key_Space);
    }
    QCOMPARE(space.ticked(), QList<int>({3}));
}

void TestTicks::removing_data()
{
    QTest::addColumn<bool>("onKeys");
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("selected");
    QTest::addColumn<QList<int>>("ticked");
    QTest::newRow("pad: the only one") << false << "3@0,0 5@1,0"
                                       << "0,0" << QList<int>{5};
    QTest::newRow("pad: one of two") << false << "3@0,0 3@1,0"
                                     << "0,0" << QList<int>{3};
    QTest::newRow("pad: one of two, the other in bank 8") << false << "3@0,0 3@63,0"
                                                          << "0,0" << QList<int>{3};
    QTest::newRow("pad: both of two") << false << "3@0,0 3@1,0"
                                      << "0,0 1,0" << QList<int>{};
    QTest::newRow("pad: the other on the second column") << false << "3@0,0 3@1,1"
                                                         << "0,0" << QList<int>{};
    QTest::newRow("pad of the second column: the other on the first") << false << "3@0,0 3@1,1"
                                                                      << "1,1" << QList<int>{3};
    QTest::newRow("pad of the second column: the other there, too") << false << "3@0,1 3@1,1"
                                                                    << "1,1" << QList<int>{};
    QTest::newRow("pad: two buttons") << false << "3@0,0 5@1,0 7@2,0"
                                      << "0,0 2,0" << QList<int>{5};
    QTest::newRow("pad: an empty one") << false << "3@0,0 5@1,1"
                                       << "4,0" << QList<int>{3, 5};
    QTest::newRow("pad: nothing selected") << false << "3@0,0"
                                           << "" << QList<int>{3};
    QTest::newRow("pad: button number 0") << false << "0@0,0 1@1,0"
                                          << "0,0" << QList<int>{1};
    QTest::newRow("key: the only one") << true << "3@2,2 5@3,3"
                                       << "2,2" << QList<int>{5};
    QTest::newRow("key: one of two") << true << "3@2,2 3@9,9"
                                     << "2,2" << QList<int>{3};
    QTest::newRow("key: one of two, the other on a band") << true << "3@2,2 3@4,11"
                                                          << "2,2" << QList<int>{3};
    QTest::newRow("key: both of two") << true << "3@2,2 3@9,9"
                                      << "2,2 9,9" << QList<int>{};
    QTest::newRow("key: two buttons") << true << "3@2,2 5@3,3 7@4,4"
                                      << "2,2 4,4" << QList<int>{5};
    QTest::newRow("key: an empty one") << true << "3@2,2"
                                       << "5,5" << QList<int>{3};
    QTest::newRow("key: nothing selected") << true << "3@2,2"
                                           << "" << QList<int>{3};
}

void TestTicks::removing()
{
    QFETCH(bool, onKeys);
    QFETCH(QString, before);
    QFETCH(QString, selected);
    QFETCH(QList<int>, ticked);

    Workspace space;
    QVERIFY2(start(space, onKeys), qPrintable(space.dialogs.faults()));
    QVERIFY(put(space, before));
    QTableView *view = onKeys ? space.gridView() : space.padsView();
    Workspace::select(view, selected);
    QVERIFY(space.call(onKeys ? "ondeleteaction_triggered" : "ondeletevdjaction_triggered"));

    QCOMPARE(space.ticked(), ticked);
    for (const Assignment &cell : assignments(before)) {
        const bool isRemoved = selected.split(' ').contains(QString("%1,%2").arg(cell.row).arg(cell.col));
        QCOMPARE(view->model()->index(cell.row, cell.col).data(ButtonRole).toInt(),
                 isRemoved ? -1 : cell.button);
    }
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestTicks::tickGoesWithTheLastCell_data()
{
    QTest::addColumn<bool>("onKeys");
    QTest::addColumn<bool>("isFilteredOut"); // the Live Button, by the page filter
    QTest::newRow("pads") << false << false;
    QTest::newRow("pads, button out of sight") << false << true;
    QTest::newRow("keys") << true << false;
    QTest::newRow("keys, button out of sight") << true << true;
}

void TestTicks::tickGoesWithTheLastCell()
{
    QFETCH(bool, onKeys);
    QFETCH(bool, isFilteredOut);

    Workspace space;
    QVERIFY2(start(space, onKeys), qPrintable(space.dialogs.faults()));
    QVERIFY(space.choose("combobox", isFilteredOut ? 2 : 0));
    QVERIFY(put(space, "3@2,0 3@9,0 12@3,0"));
    QCOMPARE(space.dmxView()->isRowHidden(3), isFilteredOut);
    QCOMPARE(space.ticked(), QList<int>({3, 12}));

    QTableView *view = onKeys ? space.gridView() : space.padsView();
    const char *remove = onKeys ? "ondeleteaction_triggered" : "ondeletevdjaction_triggered";
    Workspace::select(view, "2,0");
    QVERIFY(space.call(remove));
    QCOMPARE(space.ticked(), QList<int>({3, 12}));
    Workspace::select(view, "9,0");
    QVERIFY(space.call(remove));
    QCOMPARE(space.ticked(), QList<int>({12}));
}

void TestTicks::removingOneKey_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("col");
    QTest::addColumn<QList<int>>("ticked");
    QTest::newRow("the only one") << "3@2,2 5@3,3" << 2 << 2 << QList<int>{5};
    QTest::newRow("one of two") << "3@2,2 3@11,9" << 2 << 2 << QList<int>{3};
    QTest::newRow("an empty one") << "3@2,2" << 5 << 5 << QList<int>{3};
}

void TestTicks::removingOneKey()
{
    QFETCH(QString, before);
    QFETCH(int, row);
    QFETCH(int, col);
    QFETCH(QList<int>, ticked);

    Workspace space;
    QVERIFY2(start(space, true), qPrintable(space.dialogs.faults()));
    QVERIFY(put(space, before));
    QVERIFY(put(space, "9@7,7"));
    Workspace::select(space.gridView(), "7,7"); // the selection does not matter
    ticked.append(9);

    QVERIFY(space.call("ondeletemidiaction_triggered", row, col));
    QCOMPARE(space.grid()->index(row, col).data(ButtonRole).toString(), QString("-1"));
    QCOMPARE(space.grid()->index(7, 7).data(ButtonRole).toString(), QString("9"));
    QCOMPARE(space.ticked(), ticked);
}

void TestTicks::removingOutsideColumn0OfAFullTable()
{
    Workspace space;
    QVERIFY2(start(space, false), qPrintable(space.dialogs.faults()));
    QVERIFY(put(space, "3@0,0"));
    for (int row = 1; row < 64; ++row)
        QVERIFY(space.pads()->setData(space.pads()->index(row, 0), "5", ButtonRole));

    // No pad of the first column is empty, so the number -1 stands nowhere; no Live Button has it either.
    Workspace::select(space.padsView(), "0,1");
    QVERIFY(space.call("ondeletevdjaction_triggered"));
    QCOMPARE(space.ticked(), QList<int>({3}));
}

void TestTicks::removedCellsRest_data()
{
    QTest::addColumn<QByteArray>("operation");
    QTest::addColumn<bool>("onKeys");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("col");
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("color");
    QTest::addColumn<QString>("available"); // of a key that was "0", where such a key can be removed
    QTest::addColumn<QString>("textColor"); // of a key that was "#123456"

    const QByteArray remove = "ondeletevdjaction_triggered";
    QTest::newRow("pad 1") << remove << false << 0 << 0 << "PAD 1"
                           << "#000000"
                           << ""
                           << "";
    QTest::newRow("pad 8 of bank 2") << remove << false << 15 << 0 << "PAD 8"
                                     << "#000000"
                                     << ""
                                     << "";
    QTest::newRow("pad 9 comes back as 1") << remove << false << 0 << 1 << "PAD 1"
                                           << "#000000"
                                           << ""
                                           << "";
    QTest::newRow("pad 16 of bank 8 comes back as 8") << remove << false << 63 << 1 << "PAD 8"
                                                      << "#000000"
                                                      << ""
                                                      << "";
    QTest::newRow("unchecked: pad 3") << QByteArray("dmxcheckchange") << false << 2 << 0 << "PAD 3"
                                      << "#ffffff"
                                      << ""
                                      << "";
    QTest::newRow("unchecked: pad 2 of bank 3") << QByteArray("dmxcheckchange") << false << 17 << 0 << "PAD 2"
                                                << "#ffffff"
                                                << ""
                                                << "";

    for (const QByteArray key : {"ondeleteaction_triggered", "ondeletemidiaction_triggered"}) {
        const char *way = key == "ondeleteaction_triggered" ? "selected" : "one";
        QTest::addRow("%s: key 1", way) << key << true << 2 << 2 << "PAD 1"
                                        << "#000000"
                                        << "1"
                                        << "#ffffff";
        QTest::addRow("%s: key 64", way) << key << true << 9 << 9 << "PAD 64"
                                         << "#000000"
                                         << "1"
                                         << "#ffffff";
        QTest::addRow("%s: top", way) << key << true << 0 << 2 << "TOP 1"
                                      << "#000000"
                                      << "1"
                                      << "#ffffff";
        QTest::addRow("%s: bottom", way) << key << true << 11 << 9 << "BOTTOM 8"
                                         << "#000000"
                                         << "1"
                                         << "#ffffff";
        QTest::addRow("%s: left", way) << key << true << 2 << 0 << "LEFT 1"
                                       << "#000000"
                                       << "1"
                                       << "#ffffff";
        QTest::addRow("%s: right", way) << key << true << 9 << 11 << "RIGHT 8"
                                        << "#000000"
                                        << "1"
                                        << "#ffffff";
    }
    QTest::newRow("unchecked: key 1") << QByteArray("dmxcheckchange") << true << 2 << 2 << "PAD 1"
                                      << "#000000"
                                      << "0"
                                      << "#123456";
    QTest::newRow("unchecked: right") << QByteArray("dmxcheckchange") << true << 3 << 11 << "RIGHT 2"
                                      << "#000000"
                                      << "0"
                                      << "#123456";
}

void TestTicks::removedCellsRest()
{
    QFETCH(QByteArray, operation);
    QFETCH(bool, onKeys);
    QFETCH(int, row);
    QFETCH(int, col);
    QFETCH(QString, label);
    QFETCH(QString, color);
    QFETCH(QString, available);
    QFETCH(QString, textColor);

    Workspace space;
    QVERIFY2(start(space, onKeys), qPrintable(space.dialogs.faults()));
    QVERIFY(put(space, QString("5@%1,%2").arg(row).arg(col)));
    QTableView *view = onKeys ? space.gridView() : space.padsView();
    QAbstractItemModel *table = view->model();
    const QModelIndex cell = table->index(row, col);
    QVERIFY(table->setData(cell, "typed", Qt::EditRole));
    if (onKeys) {
        const bool isSelected = operation == "ondeleteaction_triggered"; // not if the device lacks the key
        QVERIFY(colorKey(*table, cell) && table->setData(cell, isSelected ? "1" : "0", AvailableRole));
    }
    Workspace::select(view, QString("%1,%2").arg(row).arg(col));
    QVERIFY(removeBy(space, operation, row, col));

    QCOMPARE(cell.data(Qt::EditRole), QVariant(label));
    QCOMPARE(cell.data(DisplayNameRole), QVariant(label));
    QCOMPARE(cell.data(PageRole), QVariant("0"));
    QCOMPARE(cell.data(ButtonRole), QVariant("-1"));
    QCOMPARE(colorOf(cell), color);
    if (onKeys) {
        QCOMPARE(cell.data(AvailableRole), QVariant(available));
        QCOMPARE(colorOf(cell, Qt::ForegroundRole), textColor);
        QCOMPARE(cell.data(OffColorRole), QVariant("#ff0000"));
        QCOMPARE(cell.data(OnColorRole), QVariant("#00ff00"));
        QCOMPARE(cell.data(BlinkRole), QVariant("1"));
    }
}

void TestTicks::sixteenPadAsymmetry()
{
    Workspace space;
    QVERIFY2(start(space, false), qPrintable(space.dialogs.faults()));
    QVERIFY(put(space, "3@0,0 3@0,1"));
    QCOMPARE(space.ticked(), QList<int>({3}));
    Workspace::select(space.padsView(), "0,0");
    QVERIFY(space.call("ondeletevdjaction_triggered"));
    QCOMPARE(space.ticked(), QList<int>());

    // It still stands on pad 9, and a change of mode does not bring its tick back.
    QCOMPARE(space.pads()->index(0, 1).data(ButtonRole).toString(), QString("3"));
    QVERIFY(!space.ask<bool>("isVDJempty"));
    QVERIFY(space.click("radio_outputmidi"));
    QVERIFY(space.click("radio_outputpage"));
    QCOMPARE(space.ticked(), QList<int>());

    space.dialogs.expect(Boxes::pageCreated("OS2L DMX"));
    space.trigger("actionExport");
    QCOMPARE(space.dialogs.faults(), QString());
    QVERIFY(bytesOf(space.padsFolder() + "/OS2L DMX.xml").contains("os2l_button &apos;1-4&apos;</pad9>"));
}

void TestTicks::modeShowsItsTable()
{
    Workspace space;
    QVERIFY2(start(space, false), qPrintable(space.dialogs.faults()));
    QVERIFY(put(space, "3@0,0 5@40,0"));
    QCOMPARE(space.ticked(), QList<int>({3, 5}));

    QVERIFY(space.click("radio_outputmidi"));
    QCOMPARE(space.ticked(), QList<int>());
    QVERIFY(put(space, "5@2,2 8@9,11"));
    QCOMPARE(space.ticked(), QList<int>({5, 8}));

    for (int turn = 0; turn < 2; ++turn) {
        QVERIFY(space.click("radio_outputpage"));
        QCOMPARE(space.ticked(), QList<int>({3, 5}));
        QVERIFY(space.click("radio_outputmidi"));
        QCOMPARE(space.ticked(), QList<int>({5, 8}));
    }
}

void TestTicks::modeSwitchLooksAtColumn0Alone()
{
    Workspace space;
    QVERIFY2(start(space, false), qPrintable(space.dialogs.faults()));
    QVERIFY(put(space, "3@0,0 5@0,1"));
    QCOMPARE(space.ticked(), QList<int>({3, 5}));
    QVERIFY(space.click("radio_outputmidi"));
    QVERIFY(space.click("radio_outputpage"));
    QCOMPARE(space.ticked(), QList<int>({3}));
}

void TestTicks::modeSwitchLooksAtKeysThatTheDeviceLacks()
{
    Workspace space;
    QVERIFY2(start(space, true), qPrintable(space.dialogs.faults()));
    QVERIFY(put(space, "3@2,0 5@2,2"));
    QVERIFY(space.choose("devicescombo", Devices::Akai)); // no left band
    QCOMPARE(space.grid()->index(2, 0).data(AvailableRole).toString(), QString("0"));
    QVERIFY(space.click("radio_outputpage"));
    QCOMPARE(space.ticked(), QList<int>());
    QVERIFY(space.click("radio_outputmidi"));
    QCOMPARE(space.ticked(), QList<int>({3, 5}));
}

void TestTicks::modeSwitchTicksHiddenRows()
{
    Workspace space;
    QVERIFY2(start(space, false), qPrintable(space.dialogs.faults()));
    QVERIFY(put(space, "3@0,0 12@1,0"));
    QVERIFY(space.choose("combobox", 2));
    QVERIFY(space.dmxView()->isRowHidden(3));
    QVERIFY(space.click("radio_outputmidi"));
    QCOMPARE(space.ticked(), QList<int>());
    QVERIFY(space.click("radio_outputpage"));
    QCOMPARE(space.ticked(), QList<int>({3, 12}));
    QVERIFY(space.dmxView()->isRowHidden(3));
}

/** Elsewhere the numbers count; here their texts do, which differ in a project written by hand. */
void TestTicks::modeSwitchLooksForTheSameText()
{
    Workspace space;
    QVERIFY2(start(space, false), qPrintable(space.dialogs.faults()));
    QVERIFY(put(space, "3@0,0 5@1,0"));
    QVERIFY(space.pads()->setData(space.pads()->index(0, 0), "03", ButtonRole));
    QVERIFY(space.call("dmxtoremove", 3));
    QCOMPARE(space.ticked(), QList<int>({3, 5}));
    QVERIFY(space.call("resetdmxlist"));
    QCOMPARE(space.ticked(), QList<int>({5}));
}

void TestTicks::modeSwitchGoesToTheFirstRow()
{
    Workspace space;
    QVERIFY2(start(space, false), qPrintable(space.dialogs.faults()));
    space.dmxView()->setCurrentIndex(space.dmx()->index(7, 0));
    QVERIFY(focusElsewhere(space));
    QVERIFY(space.call("resetdmxlist"));
    QCOMPARE(space.dmxView()->currentIndex(), space.dmx()->index(0, 0));
    QCOMPARE(Workspace::focused(), QString("padsname"));
}

void TestTicks::modeSwitchWithoutShow()
{
    Workspace space;
    QVERIFY(space.call("resetdmxlist"));
    QVERIFY(!space.dmxView()->currentIndex().isValid());
    QVERIFY(space.click("radio_outputmidi"));
    QVERIFY(space.click("radio_outputpage"));
    QVERIFY(!space.dmxView()->currentIndex().isValid());
    QCOMPARE(space.dmx()->rowCount(), 0);
}

void TestTicks::cleansPads()
{
    Workspace space;
    QVERIFY2(start(space, true), qPrintable(space.dialogs.faults()));
    QVERIFY(put(space, "5@2,2"));
    QVERIFY(space.click("radio_outputpage"));
    QVERIFY(put(space, "3@0,0 4@0,1 12@63,1 13@31,0"));
    QVERIFY(space.pads()->setData(space.pads()->index(20, 1), "typed on an empty pad", Qt::EditRole));

    QVERIFY(space.click("cleanpads_button"));
    QCOMPARE(space.dialogs.faults(), QString());
    QCOMPARE(space.leftOnPads(), QString());
    QCOMPARE(space.ticked(), QList<int>());
    for (int row = 0; row < 64; ++row)
        QCOMPARE(space.padsView()->isRowHidden(row), row >= 8);

    // The grid lost nothing; its ticks come back with its mode.
    QCOMPARE(space.grid()->index(2, 2).data(ButtonRole).toString(), QString("5"));
    QVERIFY(space.click("radio_outputmidi"));
    QCOMPARE(space.ticked(), QList<int>({5}));
}

void TestTicks::cleansPadsFromBank5()
{
    Workspace space;
    QVERIFY2(start(space, false), qPrintable(space.dialogs.faults()));
    QVERIFY(space.type("bankname", "Opening"));
    QVERIFY(put(space, "3@33,0"));
    QVERIFY(space.type("bankname", "Closing"));
    QTest::keyClick(space.find<QLineEdit>("bankname"), Qt::Key_Return);
    QVERIFY(space.type("padsname", "My Page"));
    QCOMPARE(space.find<QComboBox>("bankcombo")->currentIndex(), 4);

    QVERIFY(space.click("cleanpads_button"));
    QCOMPARE(space.find<QComboBox>("bankcombo")->currentIndex(), 0);
    QCOMPARE(space.find<QLineEdit>("bankname")->text(), QString("Opening"));
    QCOMPARE(space.bankNames().join("|"),
             QString("Opening|BANK 2|BANK 3|BANK 4|Closing|BANK 6|BANK 7|BANK 8"));
    QCOMPARE(space.find<QLineEdit>("padsname")->text(), QString("My Page"));
    QVERIFY(space.find<QRadioButton>("radioButton_16pads")->isChecked());
    QVERIFY(!space.padsView()->isColumnHidden(1));
}

void TestTicks::cleansKeys()
{
    Workspace space;
    QVERIFY2(start(space, false), qPrintable(space.dialogs.faults()));
    QVERIFY(put(space, "3@0,0"));
    QVERIFY(space.click("radio_outputmidi"));
    QVERIFY(space.choose("devicescombo", Devices::MiniMk3));
    const QStringList keys = space.keys();
    QVERIFY(put(space, "5@2,2 6@0,5 7@9,11"));
    QVERIFY(space.grid()->setData(space.grid()->index(2, 2), "#ff0000", OnColorRole));
    QVERIFY(space.grid()->setData(space.grid()->index(4, 4), "#ff0000", OffColorRole));
    QVERIFY(space.grid()->setData(space.grid()->index(4, 5), "1", BlinkRole));
    QVERIFY(space.grid()->setData(space.grid()->index(4, 6), "0", AvailableRole));

    QVERIFY(space.click("cleanmidi_button"));
    QCOMPARE(space.dialogs.faults(), QString());
    QCOMPARE(space.leftOnGrid(), QString());
    QCOMPARE(space.keys(), keys);
    QCOMPARE(space.ticked(), QList<int>());

    QCOMPARE(space.pads()->index(0, 0).data(ButtonRole).toString(), QString("3"));
    QVERIFY(space.click("radio_outputpage"));
    QCOMPARE(space.ticked(), QList<int>({3}));
}

void TestTicks::cleansSections()
{
    Workspace space;
    QVERIFY2(start(space, true), qPrintable(space.dialogs.faults()));
    for (int i = 0; i < 12; ++i) {
        space.gridView()->setColumnWidth(i, 50);
        space.gridView()->setRowHeight(i, 20);
    }
    QVERIFY(space.click("cleanmidi_button"));
    for (int i = 0; i < 12; ++i) {
        const bool isGap = i == 1 || i == 10;
        QCOMPARE(space.gridView()->columnWidth(i), isGap ? 5 : 95);
        QCOMPARE(space.gridView()->rowHeight(i), isGap ? 5 : 30);
    }
}

/** Which rows go in where is heard by the views: pads row by row, the grid at once. */
void TestTicks::cleaningRebuildsFromTheTop()
{
    Workspace space;
    QVERIFY2(start(space, false), qPrintable(space.dialogs.faults()));
    QSignalSpy pads(space.pads(), &QAbstractItemModel::rowsInserted);
    QSignalSpy keys(space.grid(), &QAbstractItemModel::rowsInserted);
    QVERIFY(space.click("cleanpads_button"));
    QCOMPARE(pads.count(), 64);
    for (const QVariantList &told : qAsConst(pads))
        QCOMPARE(told, QVariantList({QModelIndex(), 0, 0}));
    QCOMPARE(keys.count(), 0);

    QVERIFY(space.click("radio_outputmidi"));
    QVERIFY(space.click("cleanmidi_button"));
    QCOMPARE(keys, QList<QVariantList>({{QModelIndex(), 0, 11}}));
    QCOMPARE(pads.count(), 64);
}

void TestTicks::cleansTicksOfHiddenRows_data()
{
    QTest::addColumn<bool>("onKeys");
    QTest::newRow("pads") << false;
    QTest::newRow("keys") << true;
}

void TestTicks::cleansTicksOfHiddenRows()
{
    QFETCH(bool, onKeys);

    Workspace space;
    QVERIFY2(start(space, onKeys), qPrintable(space.dialogs.faults()));
    QVERIFY(put(space, "3@2,0 12@3,0"));
    QVERIFY(space.choose("combobox", 2));
    QVERIFY(space.click(onKeys ? "cleanmidi_button" : "cleanpads_button"));
    QCOMPARE(space.ticked(), QList<int>());
    QVERIFY(space.dmxView()->isRowHidden(3));
    QCOMPARE(space.find<QComboBox>("combobox")->currentIndex(), 2);
}

void TestTicks::cleaningWithoutShow()
{
    Workspace space;
    QVERIFY(space.click("cleanpads_button"));
    QVERIFY(space.click("radio_outputmidi"));
    QVERIFY(space.click("cleanmidi_button"));
    QCOMPARE(space.leftOnPads(), QString());
    QCOMPARE(space.leftOnGrid(), QString());
    QVERIFY(!space.dmxView()->currentIndex().isValid());
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestTicks::newProjectClearsTicks()
{
    Workspace space;
    QVERIFY2(start(space, true), qPrintable(space.dialogs.faults()));
    QVERIFY(put(space, "5@2,2"));
    QVERIFY(space.click("radio_outputpage"));
    QVERIFY(put(space, "3@0,0 12@1,1"));
    QVERIFY(space.choose("combobox", 2));
    space.trigger("actionNew_2");
    QCOMPARE(space.dialogs.faults(), QString());
    QCOMPARE(space.ticked(), QList<int>());
    QCOMPARE(space.leftOnPads(), QString());
    QCOMPARE(space.leftOnGrid(), QString());
    QCOMPARE(space.dmx()->rowCount(), 16);
}

void TestTicks::emptiesTables_data()
{
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<int>("liveButtons");
    QTest::addColumn<int>("pads");
    QTest::addColumn<int>("keys");
    QTest::newRow("Live Buttons") << QByteArray("cleanDMX") << 0 << 64 << 12;
    QTest::newRow("pads") << QByteArray("cleanVDJ") << 16 << 0 << 12;
    QTest::newRow("keys") << QByteArray("cleanMIDI") << 16 << 64 << 0;
}

void TestTicks::emptiesTables()
{
    QFETCH(QByteArray, slot);
    QFETCH(int, liveButtons);
    QFETCH(int, pads);
    QFETCH(int, keys);

    Workspace space;
    QVERIFY2(start(space, true), qPrintable(space.dialogs.faults()));
    QSignalSpy removed(space.dmx(), &QAbstractItemModel::rowsRemoved);
    QSignalSpy removedPads(space.pads(), &QAbstractItemModel::rowsRemoved);
    QSignalSpy removedKeys(space.grid(), &QAbstractItemModel::rowsRemoved);

    // The second call finds no rows and asks for nothing.
    for (int turn = 0; turn < 2; ++turn) {
        QVERIFY(space.call(slot));
        QCOMPARE(space.dmx()->rowCount(), liveButtons);
        QCOMPARE(space.pads()->rowCount(), pads);
        QCOMPARE(space.grid()->rowCount(), keys);
        QCOMPARE(removed.count() + removedPads.count() + removedKeys.count(), 1);
    }
    QCOMPARE(space.find<QComboBox>("combobox")->count(), 3);
    QCOMPARE(space.find<QLineEdit>("bankname")->text(), QString("BANK 1"));
}

void TestTicks::emptyPads_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("col");
    QTest::addColumn<int>("role");
    QTest::addColumn<QString>("value");
    QTest::addColumn<bool>("isEmpty");
    QTest::newRow("untouched") << 0 << 0 << int(ButtonRole) << "-1" << true;
    QTest::newRow("a typed name") << 0 << 0 << int(Qt::EditRole) << "Intro" << true;
    QTest::newRow("a colour") << 0 << 0 << int(Qt::DecorationRole) << "#ff0000" << true;
    QTest::newRow("a page without a button") << 0 << 0 << int(PageRole) << "2" << true;
    QTest::newRow("first button on the first pad") << 0 << 0 << int(ButtonRole) << "0" << false;
    QTest::newRow("pad of another bank") << 63 << 0 << int(ButtonRole) << "3" << false;
    QTest::newRow("pad of the hidden column") << 3 << 1 << int(ButtonRole) << "3" << false;
    QTest::newRow("last pad of all") << 63 << 1 << int(ButtonRole) << "15" << false;
}

void TestTicks::emptyPads()
{
    QFETCH(int, row);
    QFETCH(int, col);
    QFETCH(int, role);
    QFETCH(QString, value);
    QFETCH(bool, isEmpty);

    Workspace space;
    QVERIFY2(space.loadSomeShow(), qPrintable(space.dialogs.faults()));
    QVERIFY(space.padsView()->isColumnHidden(1));
    QVERIFY(space.pads()->setData(space.pads()->index(row, col), value, role));
    QCOMPARE(space.ask<bool>("isVDJempty"), isEmpty);
    QVERIFY(space.ask<bool>("isMIDIempty"));
    QVERIFY(space.call("cleanVDJ"));
    QVERIFY(space.ask<bool>("isVDJempty"));
}

void TestTicks::emptyKeys_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("col");
    QTest::addColumn<int>("role");
    QTest::addColumn<QString>("value");
    QTest::addColumn<bool>("isEmpty");
    QTest::newRow("untouched") << 2 << 2 << int(ButtonRole) << "-1" << true;
    QTest::newRow("a name") << 2 << 2 << int(Qt::EditRole) << "Intro" << true;
    QTest::newRow("a colour") << 2 << 2 << int(Qt::DecorationRole) << "#ff0000" << true;
    QTest::newRow("an off colour") << 2 << 2 << int(OffColorRole) << "#ff0000" << true;
    QTest::newRow("an on colour") << 2 << 2 << int(OnColorRole) << "#ff0000" << true;
    QTest::newRow("blink") << 2 << 2 << int(BlinkRole) << "1" << true;
    QTest::newRow("first button on the first cell") << 0 << 0 << int(ButtonRole) << "0" << false;
    QTest::newRow("last column") << 2 << 11 << int(ButtonRole) << "3" << false;
    QTest::newRow("last row, a key that the device lacks") << 11 << 11 << int(ButtonRole) << "3" << false;
}

void TestTicks::emptyKeys()
{
    QFETCH(int, row);
    QFETCH(int, col);
    QFETCH(int, role);
    QFETCH(QString, value);
    QFETCH(bool, isEmpty);

    Workspace space;
    QVERIFY2(space.loadSomeShow(), qPrintable(space.dialogs.faults()));
    QVERIFY(space.grid()->setData(space.grid()->index(row, col), value, role));
    QCOMPARE(space.ask<bool>("isMIDIempty"), isEmpty);
    QVERIFY(space.ask<bool>("isVDJempty"));
    QVERIFY(space.call("cleanMIDI"));
    QVERIFY(space.ask<bool>("isMIDIempty"));
}

/** A point on the line below a cell: the view finds a cell there, and the cell's rectangle ends above. */
QPoint lineBelow(const QTableView *view, const QModelIndex &index)
{
    const QRect rect = view->visualRect(index);
    return {rect.center().x(), rect.bottom() + 1};
}

void TestTicks::dropOnALineTicks()
{
    Workspace space;
    QVERIFY2(start(space, false), qPrintable(space.dialogs.faults()));
    const QPoint line = lineBelow(space.padsView(), space.pads()->index(2, 0));
    QVERIFY(space.padsView()->indexAt(line).isValid());
    const std::unique_ptr<QMimeData> button(space.dmx()->mimeData({space.dmx()->index(4, 0)}));

    QVERIFY(Workspace::drop(button.get(), space.padsView(), line));
    QCOMPARE(space.ticked(), QList<int>({4}));
    QCOMPARE(space.leftOnPads(), QString());
    QVERIFY(space.ask<bool>("isVDJempty"));
}

void TestTicks::padDroppedOnALine()
{
    Workspace space;
    QVERIFY2(start(space, false), qPrintable(space.dialogs.faults()));
    QVERIFY(put(space, "4@1,1"));
    const QModelIndex pad = space.pads()->index(1, 1);
    const std::unique_ptr<QMimeData> data(space.pads()->mimeData({pad}));

    QVERIFY(Workspace::drop(data.get(), space.padsView(),
                            lineBelow(space.padsView(), space.pads()->index(5, 0))));
    QCOMPARE(pad.data(Qt::EditRole), QVariant("PAD 2"));
    for (const int role : {int(DisplayNameRole), int(PageRole), int(ButtonRole)})
        QCOMPARE(pad.data(role).toString(), QString());
    QVERIFY(!pad.data(Qt::DecorationRole).value<QColor>().isValid());
    QCOMPARE(space.ticked(), QList<int>({4}));
}

void TestTicks::dropOnALineOfTheGridIsRefused()
{
    Workspace space;
    QVERIFY2(start(space, true), qPrintable(space.dialogs.faults()));
    const std::unique_ptr<QMimeData> button(space.dmx()->mimeData({space.dmx()->index(4, 0)}));
    QVERIFY(!Workspace::drop(button.get(), space.gridView(),
                             lineBelow(space.gridView(), space.grid()->index(4, 4))));
    QCOMPARE(space.ticked(), QList<int>());
    QCOMPARE(space.leftOnGrid(), QString());
}

void TestTicks::dropOnNoKeyIsRefused_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("col");
    QTest::newRow("corner") << 0 << 0;
    QTest::newRow("gap") << 10 << 4;
    QTest::newRow("top band that the device lacks") << 0 << 4;
    QTest::newRow("left band that the device lacks") << 4 << 0;
}

void TestTicks::dropOnNoKeyIsRefused()
{
    QFETCH(int, row);
    QFETCH(int, col);

    Workspace space;
    QVERIFY2(start(space, true), qPrintable(space.dialogs.faults()));
    QVERIFY(space.choose("devicescombo", Devices::Akai));
    QVERIFY(!space.putOnKey(4, row, col));
    QCOMPARE(space.ticked(), QList<int>());
    QCOMPARE(space.leftOnGrid(), QString());
}

void TestTicks::slotsTick_data()
{
    QTest::addColumn<bool>("onKeys");
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("to");
    QTest::addColumn<QList<int>>("ticked");
    for (const bool onKeys : {false, true}) {
        const char *table = onKeys ? "key" : "pad";
        QTest::addRow("%s: first row", table) << onKeys << 0 << 3 << QList<int>{0};
        QTest::addRow("%s: last row, no target", table) << onKeys << 15 << -1 << QList<int>{15};
        QTest::addRow("%s: target beyond the table", table) << onKeys << 4 << 999 << QList<int>{4};
        QTest::addRow("%s: row beyond the list", table) << onKeys << 16 << 3 << QList<int>{};
        QTest::addRow("%s: row below zero", table) << onKeys << -1 << 3 << QList<int>{};
    }
}

void TestTicks::slotsTick()
{
    QFETCH(bool, onKeys);
    QFETCH(int, index);
    QFETCH(int, to);
    QFETCH(QList<int>, ticked);

    Workspace space;
    QVERIFY2(start(space, onKeys), qPrintable(space.dialogs.faults()));
    QVERIFY(onKeys ? space.call("CheckChangedCon", index, to, 3) : space.call("CheckChanged", index, to));
    QCOMPARE(space.ticked(), ticked);
    QCOMPARE(space.leftOnPads(), QString());
    QCOMPARE(space.leftOnGrid(), QString());
}

void TestTicks::uncheckingGoesThroughAllRows_data()
{
    QTest::addColumn<bool>("onKeys");
    QTest::addColumn<int>("number");
    QTest::addColumn<QList<int>>("ticked"); // of 3 and 7, which have number 3, and 5, which stays assigned
    QTest::newRow("pads: two rows of one number") << false << 3 << QList<int>{5};
    QTest::newRow("pads: a number that is assigned") << false << 5 << QList<int>{3, 5, 7};
    QTest::newRow("pads: the number of empty pads") << false << -1 << QList<int>{3, 5, 7};
    QTest::newRow("pads: a number that nothing has") << false << 99 << QList<int>{3, 5, 7};
    QTest::newRow("keys: two rows of one number") << true << 3 << QList<int>{5};
    QTest::newRow("keys: a number that is assigned") << true << 5 << QList<int>{3, 5, 7};
    QTest::newRow("keys: the number of empty keys") << true << -1 << QList<int>{3, 5, 7};
}

void TestTicks::uncheckingGoesThroughAllRows()
{
    QFETCH(bool, onKeys);
    QFETCH(int, number);
    QFETCH(QList<int>, ticked);

    Workspace space;
    QVERIFY2(start(space, onKeys), qPrintable(space.dialogs.faults()));
    QVERIFY(put(space, "5@2,0"));
    QVERIFY(space.dmx()->setData(space.dmx()->index(7, 0), "03", ButtonRole)); // numbers count, not texts
    QVERIFY(space.call("CheckChanged", 3, 0));
    QVERIFY(space.call("CheckChanged", 7, 0));
    QVERIFY(space.call(onKeys ? "dmxtoremove2" : "dmxtoremove", number));
    QCOMPARE(space.ticked(), ticked);
}

void TestTicks::uncheckedButtonLeavesItsCells_data()
{
    QTest::addColumn<bool>("bySignal");
    QTest::newRow("slot") << false;
    QTest::newRow("the model's signal") << true;
}

void TestTicks::uncheckedButtonLeavesItsCells()
{
    QFETCH(bool, bySignal);

    Workspace space;
    QVERIFY2(start(space, false), qPrintable(space.dialogs.faults()));
    QVERIFY(put(space, "3@0,0 4@1,0 3@2,1 3@9,0"));
    QVERIFY(space.click("radio_outputmidi"));
    QVERIFY(put(space, "3@2,2 3@2,11 3@5,5 4@9,9"));
    QVERIFY(space.pads()->setData(space.pads()->index(4, 0), "03", ButtonRole)); // numbers count, not texts
    QVERIFY(space.grid()->setData(space.grid()->index(4, 4), "03", ButtonRole));
    QVERIFY(focusElsewhere(space));

    if (bySignal)
        QVERIFY(QMetaObject::invokeMethod(space.dmx(), "ItemUnchecked", Q_ARG(int, 3)));
    else
        QVERIFY(space.call("dmxcheckchange", 3));

    const auto pad = [&space](int row, int col) {
        return space.pads()->index(row, col).data(ButtonRole).toInt();
    };
    const auto key = [&space](int row, int col) {
        return space.grid()->index(row, col).data(ButtonRole).toInt();
    };
    QCOMPARE(pad(0, 0), -1);
    QCOMPARE(pad(4, 0), -1);
    QCOMPARE(pad(9, 0), -1);
    QCOMPARE(pad(1, 0), 4);
    QCOMPARE(pad(2, 1), 3); // the second column is not looked at
    QCOMPARE(key(2, 2), -1);
    QCOMPARE(key(2, 11), -1);
    QCOMPARE(key(4, 4), -1);
    QCOMPARE(key(5, 5), -1);
    QCOMPARE(key(9, 9), 4);

    QCOMPARE(space.padsView()->currentIndex(), space.pads()->index(9, 0));
    QCOMPARE(space.gridView()->currentIndex(), space.grid()->index(5, 5));
    QCOMPARE(space.dmxView()->currentIndex(), space.dmx()->index(3, 0));
    QCOMPARE(Workspace::focused(), QString("dmxlistview"));
    QCOMPARE(space.ticked(), QList<int>({3, 4})); // the tick itself is another's affair
}

void TestTicks::plainDropOnAPadLeavesTheFocus()
{
    Workspace space;
    QVERIFY2(start(space, false), qPrintable(space.dialogs.faults()));
    QVERIFY(focusElsewhere(space));
    const QModelIndex current = space.padsView()->currentIndex();
    QVERIFY(space.drag(space.dmx()->index(3, 0), space.padsView(), space.pads()->index(4, 0)));
    QCOMPARE(Workspace::focused(), QString("padsname"));
    QCOMPARE(space.padsView()->currentIndex(), current);
}

void TestTicks::focusAfterDrops_data()
{
    QTest::addColumn<bool>("onKeys");
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("drop");
    QTest::addColumn<QString>("focus");
    QTest::newRow("pad, replaced") << false << "3@0,0"
                                   << "5@0,0"
                                   << "vdjlistview";
    QTest::newRow("pad, replaced one that stands elsewhere") << false << "3@0,0 3@1,0"
                                                             << "5@0,0"
                                                             << "vdjlistview";
    QTest::newRow("empty key") << true << ""
                               << "5@4,6"
                               << "tablecontroller";
    QTest::newRow("key, replaced") << true << "3@4,6"
                                   << "5@4,6"
                                   << "tablecontroller";
}

void TestTicks::focusAfterDrops()
{
    QFETCH(bool, onKeys);
    QFETCH(QString, before);
    QFETCH(QString, drop);
    QFETCH(QString, focus);

    Workspace space;
    QVERIFY2(start(space, onKeys), qPrintable(space.dialogs.faults()));
    QVERIFY(put(space, before));
    space.gridView()->setCurrentIndex(space.grid()->index(9, 9));
    QVERIFY(focusElsewhere(space));
    QVERIFY(put(space, drop));
    QCOMPARE(Workspace::focused(), focus);
    if (onKeys) {
        QCOMPARE(space.gridView()->currentIndex(), space.grid()->index(4, 6));
        QVERIFY(space.gridView()->selectionModel()->isSelected(space.grid()->index(4, 6)));
    }
}

void TestTicks::focusAfterCommands_data()
{
    QTest::addColumn<bool>("onKeys");
    QTest::addColumn<QByteArray>("command"); // a button, an action or a slot
    QTest::addColumn<QString>("focus");
    QTest::newRow("remove from pads") << false << QByteArray("ondeletevdjaction_triggered") << "vdjlistview";
    QTest::newRow("remove from keys") << true << QByteArray("ondeleteaction_triggered") << "tablecontroller";
    QTest::newRow("remove one key") << true << QByteArray("ondeletemidiaction_triggered")
                                    << "tablecontroller";
    QTest::newRow("clean pads") << false << QByteArray("cleanpads_button") << "dmxlistview";
    QTest::newRow("clean keys") << true << QByteArray("cleanmidi_button") << "dmxlistview";
    QTest::newRow("new project, pads") << false << QByteArray("actionNew_2") << "dmxlistview";
    QTest::newRow("new project, keys") << true << QByteArray("actionNew_2") << "dmxlistview";
}

void TestTicks::focusAfterCommands()
{
    QFETCH(bool, onKeys);
    QFETCH(QByteArray, command);
    QFETCH(QString, focus);

    Workspace space;
    QVERIFY2(start(space, onKeys), qPrintable(space.dialogs.faults()));
    QVERIFY(put(space, "3@2,0"));
    Workspace::select(onKeys ? space.gridView() : space.padsView(), "2,0");
    space.dmxView()->setCurrentIndex(space.dmx()->index(7, 0));
    QVERIFY(focusElsewhere(space));

    if (command.endsWith("_button"))
        QVERIFY(space.click(command));
    else if (command.startsWith("action"))
        space.trigger(command);
    else if (command == "ondeletemidiaction_triggered")
        QVERIFY(space.call(command, 2, 0));
    else
        QVERIFY(space.call(command));

    QCOMPARE(Workspace::focused(), focus);
    QCOMPARE(space.ticked(), QList<int>());
    const int current = focus == "dmxlistview" ? 0 : 7;
    QCOMPARE(space.dmxView()->currentIndex(), space.dmx()->index(current, 0));
}

void TestTicks::wayOfTheFocus_data()
{
    QTest::addColumn<bool>("onKeys");
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<QStringList>("focus");
    const QStringList endsOnPads = {"dmxlistview", "vdjlistview"};
    const QStringList endsOnKeys = {"dmxlistview", "tablecontroller"};
    QTest::newRow("replaced on a pad") << false << QByteArray("dmxtoremove") << endsOnPads;
    QTest::newRow("remove from pads") << false << QByteArray("ondeletevdjaction_triggered") << endsOnPads;
    QTest::newRow("unchecked, pads") << false << QByteArray("dmxcheckchange")
                                     << QStringList{"vdjlistview", "dmxlistview"};
    QTest::newRow("replaced on a key") << true << QByteArray("dmxtoremove2") << endsOnKeys;
    QTest::newRow("remove from keys") << true << QByteArray("ondeleteaction_triggered") << endsOnKeys;
    QTest::newRow("remove one key") << true << QByteArray("ondeletemidiaction_triggered") << endsOnKeys;
    QTest::newRow("unchecked, keys") << true << QByteArray("dmxcheckchange")
                                     << QStringList{"tablecontroller", "dmxlistview"};
    QTest::newRow("dropped on a key")
        << true << QByteArray("CheckChangedCon") << QStringList{"tablecontroller"};
}

void TestTicks::wayOfTheFocus()
{
    QFETCH(bool, onKeys);
    QFETCH(QByteArray, slot);
    QFETCH(QStringList, focus);

    Workspace space;
    QVERIFY2(start(space, onKeys), qPrintable(space.dialogs.faults()));
    QVERIFY(put(space, "3@2,0"));
    Workspace::select(onKeys ? space.gridView() : space.padsView(), "2,0");
    QVERIFY(focusElsewhere(space));

    const FocusLog log;
    if (slot == "CheckChangedCon")
        QVERIFY(space.call(slot, 3, 2, 0));
    else if (slot == "ondeletemidiaction_triggered")
        QVERIFY(space.call(slot, 2, 0));
    else if (slot.startsWith("ondelete"))
        QVERIFY(space.call(slot));
    else
        QVERIFY(space.call(slot, 3));
    QCOMPARE(log.names(), focus);
    for (const auto &widget : log.taken)
        QCOMPARE(widget.second, Qt::OtherFocusReason);
}

QTEST_MAIN(TestTicks)
#include "test_ticks.moc"

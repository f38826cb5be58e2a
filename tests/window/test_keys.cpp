#include "support/boxes.h"
#include "support/devices.h"
#include "support/files.h"
#include "support/workspace.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPaintEvent>

namespace {

QModelIndex cellAt(const QTableView *view, const QString &place)
{
    return view->model()->index(place.section(',', 0, 0).toInt(), place.section(',', 1).toInt());
}

QTableView *tableOf(Workspace &space, const QString &name)
{
    return space.find<QTableView>(qPrintable(name));
}

/** Goes to a cell of a table and leaves the focus there. */
void goTo(Workspace &space, QTableView *view, const QString &place)
{
    space.activate();
    view->setFocus(Qt::OtherFocusReason);
    view->selectionModel()->setCurrentIndex(cellAt(view, place), QItemSelectionModel::ClearAndSelect);
}

/** A loaded show, 16 pads a bank, and Live Buttons on pads or keys, as "row,column=button". */
bool lay(Workspace &space, bool onKeys, const QString &cells)
{
    if (!space.loadSomeShow() || !space.click("radioButton_16pads")
        || (onKeys && !space.click("radio_outputmidi")))
        return false;
    const QStringList parts = cells.split(' ', Qt::SkipEmptyParts);
    for (const QString &part : parts) {
        const int row = part.section(',', 0, 0).toInt();
        const int col = part.section(',', 1).section('=', 0, 0).toInt();
        const int button = part.section('=', 1).toInt();
        if (onKeys ? !space.putOnKey(button, row, col) : !space.putOnPad(button, row, col))
            return false;
    }
    return onKeys || space.choose("bankcombo", 0);
}

/** Types over a field or over the text of pad 1, and stays in there. */
bool typeInto(Workspace &space, const QByteArray &field, const QString &text)
{
    if (field != "pad")
        return space.type(field, text);
    goTo(space, space.padsView(), "0,0");
    QTest::keyClick(space.padsView(), Qt::Key_F2);
    auto *editor = space.padsView()->viewport()->findChild<QLineEdit *>();
    if (!editor)
        return false;
    editor->selectAll();
    QTest::keyClicks(editor, text);
    return editor->text() == text;
}

bool isEditing(Workspace &space)
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return space.padsView()->viewport()->findChild<QLineEdit *>();
}

/** What is hidden and yet current or selected, in words; empty where nothing is. */
QString hiddenYetInUse(const QTableView *view)
{
    const QModelIndex current = view->currentIndex();
    if (current.isValid() && (view->isRowHidden(current.row()) || view->isColumnHidden(current.column())))
        return QString("current row %1").arg(current.row());
    for (const QModelIndex &cell : view->selectionModel()->selectedIndexes()) {
        if (view->isRowHidden(cell.row()) || view->isColumnHidden(cell.column()))
            return QString("selected row %1").arg(cell.row());
    }
    return {};
}

QString placeOf(const QModelIndex &cell)
{
    return cell.isValid() ? QString("%1,%2").arg(cell.row()).arg(cell.column()) : "none";
}

QString selected(const QTableView *view)
{
    QStringList cells;
    for (const QModelIndex &cell : view->selectionModel()->selectedIndexes())
        cells += placeOf(cell);
    return cells.join(' ');
}

/** The menu that the Menu key opens, as a desktop asks for it; or nothing. */
QMenu *pressMenuKey(QTableView *view)
{
    const QPoint place = view->inputMethodQuery(Qt::ImCursorRectangle).toRect().center();
    QContextMenuEvent request(QContextMenuEvent::Keyboard, place, view->mapToGlobal(place));
    QApplication::sendEvent(view, &request);
    return qobject_cast<QMenu *>(QApplication::activePopupWidget());
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

/** The tables by the keyboard, and what nothing may work on: what is hidden, or still in an editor. */
class TestKeys final : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QApplication::setKeyboardInputInterval(60000); }

    void commandsTakeOverWhatIsBeingEdited_data();
    void commandsTakeOverWhatIsBeingEdited();
    void newProjectTakesOverTheNameOfABank();

    void whatIsHiddenIsNotInUse_data();
    void whatIsHiddenIsNotInUse();
    void whatStaysOnShowStaysInUse();
    void editorOfAHiddenPadCloses();
    void padsBeneathTheKeysLoseTheFocus();
    void lettersFindWhatIsOnShow_data();
    void lettersFindWhatIsOnShow();

    void changesArePainted_data();
    void changesArePainted();

    void pastesAsADrop_data();
    void pastesAsADrop();
    void pastesNothing_data();
    void pastesNothing();
    void fieldsKeepTheirKeys();
    void deleteRemoves_data();
    void deleteRemoves();
    void menuKeyIsForTheCurrentCell_data();
    void menuKeyIsForTheCurrentCell();
    void arrowsGoToKeysAlone_data();
    void arrowsGoToKeysAlone();
    void tabShowsWhereItHasLed();
    void copiesNothingWithoutACell();
    void descriptionsTellTheKeys();
};

void TestKeys::commandsTakeOverWhatIsBeingEdited_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<QByteArray>(
        "command"); // an action, or the slot of a button, which not everywhere takes the focus
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("written");
    const QByteArray none;
    QTest::newRow("pad, Export") << QByteArray("pad") << QByteArray("actionExport") << "typed"
                                 << QByteArray("get_text &apos;typed&apos;");
    QTest::newRow("pad, the button") << QByteArray("pad") << QByteArray("on_pushButton_2_clicked") << "typed"
                                     << QByteArray("get_text &apos;typed&apos;");
    QTest::newRow("pad, Save Project") << QByteArray("pad") << QByteArray("actionSave_2") << "typed"
                                       << QByteArray("name=\"typed\" dspname=\"1-4\"");
    QTest::newRow("bank, Export") << QByteArray("bankname") << QByteArray("actionExport") << "typed"
                                  << QByteArray("typed");
    QTest::newRow("bank, Save Project") << QByteArray("bankname") << QByteArray("actionSave_2") << "typed"
                                        << QByteArray("banks=\"typed,BANK 2,");
    QTest::newRow("emptied name of the page, Export") << QByteArray("padsname") << QByteArray("actionExport")
                                                      << "" << QByteArray("get_text &apos;1-4&apos;");
}

void TestKeys::commandsTakeOverWhatIsBeingEdited()
{
    QFETCH(QByteArray, field);
    QFETCH(QByteArray, command);
    QFETCH(QString, text);
    QFETCH(QByteArray, written);
    Workspace space;
    QVERIFY(lay(space, false, "0,0=3"));
    const QString project = space.home() + "/p.zarvex";
    const bool isSaved = command == "actionSave_2";
    if (isSaved) {
        space.dialogs.expect(Boxes::saveDialog(space, project));
        space.dialogs.expect(Boxes::projectSaved("p"));
    } else {
        space.dialogs.expect(Boxes::pageCreated("OS2L DMX"));
    }

    QVERIFY(typeInto(space, field, text));
    if (command.startsWith("action"))
        space.trigger(command);
    else
        QVERIFY(space.call(command));

    QCOMPARE(space.dialogs.faults(), QString());
    const QByteArray content = bytesOf(isSaved ? project : space.padsFolder() + "/OS2L DMX.xml");
    QVERIFY2(content.contains(written), content);
    QVERIFY(!isEditing(space));
}

void TestKeys::newProjectTakesOverTheNameOfABank()
{
    Workspace space;
    QVERIFY(lay(space, false, "0,0=3"));
    QVERIFY(typeInto(space, "bankname", "typed"));
    space.trigger("actionNew_2");
    QCOMPARE(space.bankNames().first(), QString("typed"));
}

void TestKeys::whatIsHiddenIsNotInUse_data()
{
    QTest::addColumn<QString>("table");
    QTest::addColumn<QString>("cell");
    QTest::addColumn<QString>("how");
    QTest::newRow("pads, another bank") << "vdjlistview"
                                        << "2,0"
                                        << "bankcombo 3";
    QTest::newRow("pads, 8 instead of 16") << "vdjlistview"
                                           << "2,1"
                                           << "radioButton_8pads";
    QTest::newRow("Live Buttons, another page") << "dmxlistview"
                                                << "3,0"
                                                << "combobox 2";
    QTest::newRow("Live Buttons of a page, another mode") << "dmxlistview"
                                                          << "3,0"
                                                          << "combobox 2 radio_outputmidi";
    QTest::newRow("Live Buttons of a page, pads cleaned") << "dmxlistview"
                                                          << "3,0"
                                                          << "combobox 2 cleanpads_button";
}

void TestKeys::whatIsHiddenIsNotInUse()
{
    QFETCH(QString, table);
    QFETCH(QString, cell);
    QFETCH(QString, how);
    Workspace space;
    QVERIFY(lay(space, false, "2,0=1 2,1=2"));
    QTableView *view = tableOf(space, table);
    goTo(space, view, cell);

    QStringList words = how.split(' ');
    while (!words.isEmpty()) {
        const QByteArray name = words.takeFirst().toUtf8();
        QVERIFY(name.contains("combo") ? space.choose(name, words.takeFirst().toInt()) : space.click(name));
    }
    QCOMPARE(hiddenYetInUse(view), QString());
}

void TestKeys::whatStaysOnShowStaysInUse()
{
    Workspace space;
    QVERIFY(lay(space, false, "2,0=1"));
    goTo(space, space.padsView(), "2,0");
    goTo(space, space.dmxView(), "3,0");
    QVERIFY(space.choose("combobox", 1));
    QVERIFY(space.click("radioButton_8pads"));
    QCOMPARE(selected(space.dmxView()), QString("3,0"));
    QCOMPARE(placeOf(space.dmxView()->currentIndex()), QString("3,0"));
    QCOMPARE(selected(space.padsView()), QString("2,0"));
    QCOMPARE(placeOf(space.padsView()->currentIndex()), QString("2,0"));
}

void TestKeys::editorOfAHiddenPadCloses()
{
    Workspace space;
    QVERIFY(lay(space, false, "0,0=1"));
    QVERIFY(typeInto(space, "pad", "typed"));
    QVERIFY(space.call("showbank", 1));
    QVERIFY(!isEditing(space));
    QCOMPARE(space.pads()->index(0, 0).data().toString(), QString("typed"));
}

void TestKeys::padsBeneathTheKeysLoseTheFocus()
{
    Workspace space;
    QVERIFY(lay(space, false, "0,0=1"));
    QVERIFY(typeInto(space, "pad", "typed"));
    space.find<QAbstractButton>("radio_outputmidi")->setChecked(true);
    QVERIFY(
        space.call("on_radio_outputmidi_clicked")); // without a click, which not everywhere takes the focus
    QCOMPARE(Workspace::focused(), QString("tablecontroller"));
}

void TestKeys::lettersFindWhatIsOnShow_data()
{
    QTest::addColumn<QString>("table");
    QTest::addColumn<QString>("from"); // none where the table is new
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("found");
    // Pad 3,0 holds "1-2", pad 4,1 "1-3", and pad 9,0 of the second bank "1-1".
    QTest::newRow("pad of this bank") << "vdjlistview"
                                      << "5,0"
                                      << "1"
                                      << "3,0";
    QTest::newRow("no pad of this bank") << "vdjlistview"
                                         << "5,0"
                                         << "1-1"
                                         << "3,0";
    QTest::newRow("more letters") << "vdjlistview"
                                  << "5,0"
                                  << "1-3"
                                  << "4,1";
    QTest::newRow("one letter again and again") << "vdjlistview"
                                                << "5,0"
                                                << "11"
                                                << "4,1";
    QTest::newRow("capitals do not matter") << "vdjlistview"
                                            << "5,0"
                                            << "pad 7"
                                            << "6,0";
    QTest::newRow("no cell before") << "vdjlistview"
                                    << ""
                                    << "p"
                                    << "0,0";
    // Page 2 is picked.
    QTest::newRow("Live Button of this page") << "dmxlistview"
                                              << "8,0"
                                              << "2-3"
                                              << "10,0";
    QTest::newRow("no Live Button of this page") << "dmxlistview"
                                                 << "8,0"
                                                 << "1"
                                                 << "8,0";
    QTest::newRow("key, the next one") << "tablecontroller"
                                       << "2,2"
                                       << "pad 1"
                                       << "3,3";
    QTest::newRow("key of a band") << "tablecontroller"
                                   << "2,2"
                                   << "b"
                                   << "11,2";
    QTest::newRow("no key") << "tablecontroller"
                            << "2,2"
                            << "top"
                            << "2,2";
}

void TestKeys::lettersFindWhatIsOnShow()
{
    QFETCH(QString, table);
    QFETCH(QString, from);
    QFETCH(QString, typed);
    QFETCH(QString, found);
    Workspace space;
    QVERIFY(lay(space, false, "3,0=1 4,1=2 9,0=0"));
    if (table == "tablecontroller")
        QVERIFY(space.click("radio_outputmidi"));
    QVERIFY(space.choose("combobox", 2));
    QTableView *view = tableOf(space, table);
    if (!from.isEmpty())
        goTo(space, view, from);
    const QStringList before = space.snapshot();

    QTest::keyClicks(view, typed);
    QTest::keyClick(view, Qt::Key_Return);

    QCOMPARE(placeOf(view->currentIndex()), found);
    QVERIFY(!isEditing(space));
    QCOMPARE(space.snapshot(), before);
}

void TestKeys::changesArePainted_data()
{
    QTest::addColumn<bool>("onKeys");
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<QList<int>>("arguments");
    QTest::addColumn<QStringList>("tables");
    const auto row = [](bool onKeys, const char *slot, const QList<int> &arguments,
                        const QStringList &tables) {
        QTest::newRow(slot) << onKeys << QByteArray(slot) << arguments << tables;
    };
    const QString list = "dmxlistview";
    const QString pads = "vdjlistview";
    const QString grid = "tablecontroller";
    row(false, "CheckChanged", {5, 0}, {list});
    row(true, "CheckChangedCon", {5, 2, 2}, {list, grid});
    row(false, "dmxtoremove", {7}, {list, pads});
    row(true, "dmxtoremove2", {7}, {list, grid});
    row(true, "dmxcheckchange", {4}, {grid});
    row(false, "resetdmxlist", {}, {list});
    row(false, "ondeletevdjaction_triggered", {}, {list, pads});
    row(true, "ondeleteaction_triggered", {}, {list, grid});
    row(true, "ondeletemidiaction_triggered", {2, 2}, {list, grid});
    row(false, "on_cleanpads_button_clicked", {}, {list, pads});
    row(true, "on_cleanmidi_button_clicked", {}, {list, grid});
    row(false, "on_actionNew_2_triggered", {}, {list, pads});
    row(true, "colorpadchange", {1}, {grid});
    row(true, "coloronpadchange", {1}, {grid});
    row(true, "onblinkaction_triggered", {}, {grid});
    row(true, "ontoggleaction_triggered", {}, {grid});
    row(true, "updatelayout", {}, {grid});
}

void TestKeys::changesArePainted()
{
    QFETCH(bool, onKeys);
    QFETCH(QByteArray, slot);
    QFETCH(QList<int>, arguments);
    QFETCH(QStringList, tables);
    Workspace space;
    QVERIFY(lay(space, onKeys, onKeys ? "2,2=4" : "0,0=4"));
    Workspace::select(onKeys ? space.gridView() : space.padsView(), onKeys ? "2,2" : "0,0");
    space.dmxView()->setCurrentIndex(space.dmx()->index(0, 0));
    (onKeys ? space.gridView() : space.padsView())->setFocus();
    QApplication::processEvents();
    space.window().repaint(); // and nothing is left to be painted
    PaintLog log({space.dmxView(), space.padsView(), space.gridView()});

    if (arguments.isEmpty())
        QVERIFY(space.call(slot));
    else if (arguments.size() == 1)
        QVERIFY(space.call(slot, arguments.first()));
    else if (arguments.size() == 2)
        QVERIFY(space.call(slot, arguments.first(), arguments.last()));
    else
        QVERIFY(space.call(slot, arguments.at(0), arguments.at(1), arguments.at(2)));

    for (const QString &table : tables)
        QTRY_VERIFY2(log.painted.contains(table), qPrintable(table));
}

void TestKeys::pastesAsADrop_data()
{
    QTest::addColumn<bool>("onKeys");
    QTest::addColumn<QString>("from"); // a cell, or "list"
    QTest::addColumn<QString>("to");
    QTest::newRow("list to an empty pad") << false << "list"
                                          << "4,0";
    QTest::newRow("list to a filled pad") << false << "list"
                                          << "0,0";
    QTest::newRow("list to a pad of the second column") << false << "list"
                                                        << "4,1";
    QTest::newRow("pad to an empty pad") << false << "1,0"
                                         << "5,0";
    QTest::newRow("pad to a filled pad") << false << "1,0"
                                         << "0,0";
    QTest::newRow("list to an empty key") << true << "list"
                                          << "4,4";
    QTest::newRow("list to a filled key") << true << "list"
                                          << "2,2";
    QTest::newRow("key to an empty key") << true << "3,2"
                                         << "5,5";
    QTest::newRow("key to a filled key") << true << "3,2"
                                         << "2,2";
}

void TestKeys::pastesAsADrop()
{
    QFETCH(bool, onKeys);
    QFETCH(QString, from);
    QFETCH(QString, to);
    QStringList outcomes[2];
    for (const bool byKeys : {false, true}) {
        Workspace space;
        QVERIFY(lay(space, onKeys, onKeys ? "2,2=0 3,2=5" : "0,0=0 1,0=5"));
        QTableView *view = onKeys ? space.gridView() : space.padsView();
        // What a pad or key has of its own does not come along.
        QVERIFY(view->model()->setData(cellAt(view, onKeys ? "3,2" : "1,0"), "own text", Qt::EditRole));
        if (onKeys)
            QVERIFY(view->model()->setData(cellAt(view, "3,2"), "red", OnColorRole));
        QTableView *source = from == "list" ? space.dmxView() : view;
        goTo(space, source, from == "list" ? "5,0" : from);
        QTest::keyClick(source, Qt::Key_C, Qt::ControlModifier);
        goTo(space, view, to);
        if (byKeys)
            QTest::keyClick(view, Qt::Key_V, Qt::ControlModifier);
        else
            QVERIFY(space.drag(space.dmx()->index(5, 0), view, cellAt(view, to)));
        outcomes[byKeys] = space.snapshot()
                           + QStringList{Workspace::focused(), placeOf(view->currentIndex()), selected(view)};
    }
    QCOMPARE(outcomes[1], outcomes[0]);
}

void TestKeys::pastesNothing_data()
{
    QTest::addColumn<QString>("way");
    QTest::addColumn<QString>("to");
    QTest::newRow("nothing was copied") << "none"
                                        << "4,4";
    QTest::newRow("a text was copied since") << "text"
                                             << "4,4";
    QTest::newRow("another program has copied the same bytes") << "bytes"
                                                               << "4,4";
    QTest::newRow("another show was loaded since") << "show"
                                                   << "4,4";
    QTest::newRow("an empty key was copied") << "empty"
                                             << "4,4";
    QTest::newRow("onto a gap") << "copy"
                                << "1,4";
    QTest::newRow("onto a key that the device lacks") << "copy"
                                                      << "0,4";
    QTest::newRow("nowhere") << "copy"
                             << "-1,-1";
}

void TestKeys::pastesNothing()
{
    QFETCH(QString, way);
    QFETCH(QString, to);
    Workspace space;
    QVERIFY(lay(space, true, "2,2=0"));
    QClipboard *clipboard = QApplication::clipboard();
    clipboard->clear();
    if (way != "none") {
        goTo(space, space.dmxView(), "3,0");
        QTest::keyClick(space.dmxView(), Qt::Key_C, Qt::ControlModifier);
    }
    if (way == "text")
        clipboard->setText("elsewhere");
    if (way == "bytes")
        clipboard->setMimeData(space.dmx()->mimeData({space.dmx()->index(3, 0)}));
    if (way == "empty") {
        clipboard->clear();
        goTo(space, space.gridView(), "3,3");
        QTest::keyClick(space.gridView(), Qt::Key_C, Qt::ControlModifier);
    }
    if (way == "show") {
        space.dialogs.expect(Boxes::showOverWork(QMessageBox::Yes));
        QVERIFY(space.loadSomeShow());
    }
    goTo(space, space.gridView(), to);
    const QStringList before = space.snapshot();
    QTest::keyClick(space.gridView(), Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(space.snapshot(), before);
}

void TestKeys::fieldsKeepTheirKeys()
{
    Workspace space;
    QVERIFY(lay(space, false, "0,0=3"));
    goTo(space, space.dmxView(), "3,0");
    QTest::keyClick(space.dmxView(), Qt::Key_C, Qt::ControlModifier);
    QVERIFY(typeInto(space, "pad", "ab"));
    auto *editor = space.padsView()->viewport()->findChild<QLineEdit *>();
    QTest::keyClick(editor, Qt::Key_V, Qt::ControlModifier); // the name of the Live Button
    QCOMPARE(editor->text(), QString("ab1-4"));
    QTest::keyClick(editor, Qt::Key_Home);
    QTest::keyClick(editor, Qt::Key_Delete);
    QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(editor, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), QString("b1-4"));
    QTest::keyClick(editor, Qt::Key_Return);
    QTRY_VERIFY(!isEditing(space));
    QCOMPARE(space.pads()->index(0, 0).data().toString(), QString("b1-4"));
    QCOMPARE(space.ticked(), QList<int>{3});
}

void TestKeys::deleteRemoves_data()
{
    QTest::addColumn<bool>("onKeys");
    QTest::addColumn<QString>("selection");
    QTest::addColumn<QString>("emptied");
    QTest::addColumn<QList<int>>("ticks");
    QTest::newRow("pad") << false << "0,0"
                         << "0,0" << QList<int>{5};
    QTest::newRow("empty pad of the second column keeps its label") << false << "3,1"
                                                                    << "" << QList<int>{0, 5};
    QTest::newRow("key") << true << "2,2"
                         << "2,2" << QList<int>{5};
    QTest::newRow("several keys, empty ones among them") << true << "3,2 3,3 2,2"
                                                         << "2,2 3,2" << QList<int>{};
    QTest::newRow("empty keys") << true << "3,3 4,4"
                                << "" << QList<int>{0, 5};
}

void TestKeys::deleteRemoves()
{
    QFETCH(bool, onKeys);
    QFETCH(QString, selection);
    QFETCH(QString, emptied);
    QFETCH(QList<int>, ticks);
    Workspace space;
    QVERIFY(lay(space, onKeys, onKeys ? "2,2=0 3,2=5" : "0,0=0 1,0=5"));
    QTableView *view = onKeys ? space.gridView() : space.padsView();
    const QStringList before = space.snapshot();
    space.activate();
    view->setFocus();
    Workspace::select(view, selection);

    QTest::keyClick(view, Qt::Key_Delete);
    QCOMPARE(space.ticked(), ticks);
    QCOMPARE(Workspace::focused(), view->objectName());
    for (const QString &cell : emptied.split(' ', Qt::SkipEmptyParts))
        QCOMPARE(cellAt(view, cell).data(ButtonRole).toString(), QString("-1"));
    if (emptied.isEmpty())
        QCOMPARE(space.snapshot(), before);
}

void TestKeys::menuKeyIsForTheCurrentCell_data()
{
    QTest::addColumn<bool>("onKeys");
    QTest::addColumn<QString>("current"); // "-1,-1" for none
    QTest::addColumn<int>("entries");     // 0 for no menu
    QTest::addColumn<QString>("selection");
    QTest::newRow("pad") << false << "1,0" << 1 << "1,0";
    QTest::newRow("empty pad") << false << "2,0" << 0 << "2,0";
    QTest::newRow("no pad") << false << "-1,-1" << 0 << "";
    QTest::newRow("key, while another is selected") << true << "3,2" << 7 << "3,2";
    QTest::newRow("empty key") << true << "5,3" << 2 << "5,3";
    QTest::newRow("no key") << true << "-1,-1" << 0 << "2,2";
}

void TestKeys::menuKeyIsForTheCurrentCell()
{
    QFETCH(bool, onKeys);
    QFETCH(QString, current);
    QFETCH(int, entries);
    QFETCH(QString, selection);
    Workspace space;
    QVERIFY(lay(space, onKeys, onKeys ? "2,2=0 3,2=5" : "0,0=0 1,0=5"));
    QTableView *view = onKeys ? space.gridView() : space.padsView();
    space.activate();
    view->setFocus();
    if (onKeys)
        Workspace::select(view, "2,2");
    view->selectionModel()->setCurrentIndex(cellAt(view, current), QItemSelectionModel::NoUpdate);

    QMenu *menu = pressMenuKey(view);
    QCOMPARE(menu ? menu->actions().size() : 0, entries);
    QCOMPARE(selected(view), selection);
    if (menu) {
        QVERIFY(view->visualRect(cellAt(view, current))
                    .contains(view->viewport()->mapFromGlobal(menu->geometry().topLeft())));
        menu->close();
    }
}

void TestKeys::arrowsGoToKeysAlone_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("to");
    QTest::newRow("from nowhere") << "-1,-1" << int(Qt::Key_Down) << "2,2";
    QTest::newRow("over the gap to the right band") << "4,9" << int(Qt::Key_Right) << "4,11";
    QTest::newRow("over the gap to the bottom band") << "9,4" << int(Qt::Key_Down) << "11,4";
    QTest::newRow("no left band") << "4,2" << int(Qt::Key_Left) << "4,2";
    QTest::newRow("no top band") << "2,4" << int(Qt::Key_Up) << "2,4";
    QTest::newRow("over a Switch") << "5,4" << int(Qt::Key_Right) << "5,6";
    QTest::newRow("to the end") << "4,4" << int(Qt::Key_End) << "4,11";
    QTest::newRow("a page down") << "4,4" << int(Qt::Key_PageDown) << "11,4";
}

void TestKeys::arrowsGoToKeysAlone()
{
    QFETCH(QString, from);
    QFETCH(int, key);
    QFETCH(QString, to);
    Workspace space;
    QVERIFY(lay(space, true, ""));
    QVERIFY(space.pickOnKey(5, 5, {"Set as Switch"}));
    QTableView *view = space.gridView();
    view->selectionModel()->clear();
    goTo(space, view, from);
    QTest::keyClick(view, Qt::Key(key));
    QCOMPARE(placeOf(view->currentIndex()), to);
    QCOMPARE(selected(view), to);
}

/** Nothing else would, and Ctrl+V needs no arrow before. */
void TestKeys::tabShowsWhereItHasLed()
{
    Workspace space;
    QVERIFY(lay(space, false, ""));
    goTo(space, space.padsView(), "3,0");
    QVERIFY(space.choose("bankcombo", 1));
    QCOMPARE(selected(space.padsView()), QString());
    space.padsView()->setFocus(Qt::TabFocusReason);
    QCOMPARE(selected(space.padsView()), QString("8,0"));
    QCOMPARE(placeOf(space.padsView()->currentIndex()), QString("8,0"));
}

void TestKeys::copiesNothingWithoutACell()
{
    Workspace space;
    QVERIFY(space.loadSomeShow());
    QApplication::clipboard()->setText("before");
    space.padsView()->selectionModel()->clearCurrentIndex();
    QTest::keyClick(space.padsView(), Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), QString("before"));
}

void TestKeys::descriptionsTellTheKeys()
{
    Workspace space;
    QCOMPARE(space.dmxView()->accessibleDescription(),
             QString("Ctrl+C takes the Live Button, for a pad or key."));
    QCOMPARE(space.padsView()->accessibleDescription(),
             QString("Ctrl+C takes the Live Button of the pad, Ctrl+V puts one onto it, F2 changes its text, "
                     "Delete empties it, the Menu key opens its menu."));
    QCOMPARE(space.gridView()->accessibleDescription(),
             QString("Ctrl+C takes the Live Button of the key, Ctrl+V puts one onto it, Delete empties all "
                     "selected keys, the Menu key opens the menu of the key."));
}

QTEST_MAIN(TestKeys)
#include "test_keys.moc"

#include "support/boxes.h"
#include "support/files.h"
#include "support/texts.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>

namespace {

/** Goes to a cell of a table and leaves the focus there. */
void goTo(Workspace &space, QTableView *view, const QString &place)
{
    space.activate();
    view->setFocus(Qt::OtherFocusReason);
    view->selectionModel()->setCurrentIndex(Workspace::cellAt(view, place),
                                            QItemSelectionModel::ClearAndSelect);
}

/** A loaded show, 16 pads a bank, and Live Buttons on pads or keys; see Workspace::put(). */
bool lay(Workspace &space, bool onKeys, const QString &buttons)
{
    return space.loadSomeShow() && space.click("radioButton_16pads")
           && (!onKeys || space.click("radio_outputmidi")) && space.put(buttons)
           && (onKeys || space.choose("bankcombo", 0));
}

/** Types over a field or over the text of pad 1, and stays in there. */
bool typeInto(Workspace &space, const QString &field, const QString &text)
{
    if (field != "pad")
        return space.type(qPrintable(field), text);
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

    void whatStaysOnShowStaysInUse();
    void editorOfAHiddenPadCloses();
    void padsBeneathTheKeysLoseTheFocus();
    void lettersFindWhatIsOnShow_data();
    void lettersFindWhatIsOnShow();

    void pastesNothing_data();
    void pastesNothing();
    void fieldsKeepTheirKeys();
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
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("slot"); // called, since a click might take the focus
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("written");
    const auto row = [](const char *name, const char *field, const char *slot, const char *text,
                        const char *written) { QTest::newRow(name) << field << slot << text << written; };
    const char *const save = "on_actionSave_2_triggered";
    const char *const menu = "on_actionExport_triggered";
    const char *const button = "on_pushButton_2_clicked";
    row("pad, Export", "pad", menu, "typed", "get_text &apos;typed&apos;");
    row("pad, the button", "pad", button, "typed", "get_text &apos;typed&apos;");
    row("pad, Save Project", "pad", save, "typed", "name=\"typed\" dspname=\"1-4\"");
    row("bank, Export", "bankname", menu, "typed", "typed");
    row("bank, Save Project", "bankname", save, "typed", "banks=\"typed,BANK 2,");
    row("emptied name of the page, Export", "padsname", menu, "", "get_text &apos;1-4&apos;");
}

void TestKeys::commandsTakeOverWhatIsBeingEdited()
{
    QFETCH(QString, field);
    QFETCH(QString, slot);
    QFETCH(QString, text);
    QFETCH(QString, written);
    Workspace space;
    QVERIFY(lay(space, false, "3@0,0"));
    const QString project = space.home() + "/p.zarvex";
    const bool isSaved = slot.contains("Save");
    if (isSaved)
        space.dialogs.expect(Boxes::saveDialog(space, project));
    space.dialogs.expect(isSaved ? Boxes::projectSaved("p") : Boxes::pageCreated(Texts::PageName));
    QVERIFY(typeInto(space, field, text));
    QVERIFY(space.call(qPrintable(slot)));
    QCOMPARE(space.dialogs.faults(), QString());
    const QByteArray content = bytesOf(isSaved ? project : space.padsFolder() + "/OS2L DMX.xml");
    QVERIFY2(content.contains(written.toUtf8()), content);
    QVERIFY(!isEditing(space));
}

void TestKeys::newProjectTakesOverTheNameOfABank()
{
    Workspace space;
    QVERIFY(lay(space, false, "3@0,0"));
    QVERIFY(typeInto(space, "bankname", "typed"));
    space.trigger("actionNew_2");
    QCOMPARE(space.bankNames().first(), QString("typed"));
}

void TestKeys::whatStaysOnShowStaysInUse()
{
    Workspace space;
    QVERIFY(lay(space, false, "1@2,0"));
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
    QVERIFY(lay(space, false, "1@0,0"));
    QVERIFY(typeInto(space, "pad", "typed"));
    QVERIFY(space.call("showbank", 1));
    QVERIFY(!isEditing(space));
    QCOMPARE(space.pads()->index(0, 0).data().toString(), QString("typed"));
}

void TestKeys::padsBeneathTheKeysLoseTheFocus()
{
    Workspace space;
    QVERIFY(lay(space, false, "1@0,0"));
    QVERIFY(typeInto(space, "pad", "typed"));
    space.find<QAbstractButton>("radio_outputmidi")->setChecked(true);
    QVERIFY(
        space.call("on_radio_outputmidi_clicked")); // without a click, which not everywhere takes the focus
    QCOMPARE(Workspace::focused(), QString("tablecontroller"));
}

void TestKeys::lettersFindWhatIsOnShow_data()
{
    QTest::addColumn<QByteArray>("table");
    QTest::addColumn<QString>("from"); // none where the table is new
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("found");
    const auto row = [](const char *name, const char *table, const char *from, const char *typed,
                        const char *found) {
        QTest::newRow(name) << QByteArray(table) << from << typed << found;
    };
    // Pad 3,0 holds "1-2", pad 4,1 "1-3", and pad 9,0 of the second bank "1-1".
    row("pad of this bank", "vdjlistview", "5,0", "1", "3,0");
    row("no pad of this bank", "vdjlistview", "5,0", "1-1", "3,0");
    row("more letters", "vdjlistview", "5,0", "1-3", "4,1");
    row("one letter again and again", "vdjlistview", "5,0", "11", "4,1");
    row("capitals do not matter", "vdjlistview", "5,0", "pad 7", "6,0");
    row("no cell before", "vdjlistview", "", "p", "0,0");
    // Page 2 is picked.
    row("Live Button of this page", "dmxlistview", "8,0", "2-3", "10,0");
    row("no Live Button of this page", "dmxlistview", "8,0", "1", "8,0");
    row("key, the next one", "tablecontroller", "2,2", "pad 1", "3,3");
    row("key of a band", "tablecontroller", "2,2", "b", "11,2");
    row("no key", "tablecontroller", "2,2", "top", "2,2");
}

void TestKeys::lettersFindWhatIsOnShow()
{
    QFETCH(QByteArray, table);
    QFETCH(QString, from);
    QFETCH(QString, typed);
    QFETCH(QString, found);
    Workspace space;
    QVERIFY(lay(space, false, "1@3,0 2@4,1 0@9,0"));
    if (table == "tablecontroller")
        QVERIFY(space.click("radio_outputmidi"));
    QVERIFY(space.choose("combobox", 2));
    QTableView *view = space.find<QTableView>(table);
    if (!from.isEmpty())
        goTo(space, view, from);
    const QStringList before = space.snapshot();

    QTest::keyClicks(view, typed);
    QTest::keyClick(view, Qt::Key_Return);

    QCOMPARE(placeOf(view->currentIndex()), found);
    QVERIFY(!isEditing(space));
    QCOMPARE(space.snapshot(), before);
}

void TestKeys::pastesNothing_data()
{
    QTest::addColumn<QString>("way");
    QTest::addColumn<QString>("to");
    const auto row = [](const char *name, const char *way, const char *to) {
        QTest::newRow(name) << way << to;
    };
    row("nothing was copied", "none", "4,4");
    row("a text was copied since", "text", "4,4");
    row("another program has copied the same bytes", "bytes", "4,4");
    row("another show was loaded since", "show", "4,4");
    row("nowhere", "copy", "-1,-1");
}

void TestKeys::pastesNothing()
{
    QFETCH(QString, way);
    QFETCH(QString, to);
    Workspace space;
    QVERIFY(lay(space, true, "0@2,2"));
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
    QVERIFY(lay(space, false, "3@0,0"));
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
    QVERIFY(lay(space, onKeys, onKeys ? "0@2,2 5@3,2" : "0@0,0 5@1,0"));
    QTableView *view = onKeys ? space.gridView() : space.padsView();
    space.activate();
    view->setFocus();
    if (onKeys)
        Workspace::select(view, "2,2");
    view->selectionModel()->setCurrentIndex(Workspace::cellAt(view, current), QItemSelectionModel::NoUpdate);

    QMenu *menu = pressMenuKey(view);
    QCOMPARE(menu ? menu->actions().size() : 0, entries);
    QCOMPARE(selected(view), selection);
    if (menu) {
        QVERIFY(view->visualRect(Workspace::cellAt(view, current))
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

#include "desktop/desk.h"
#include "support/boxes.h"
#include "support/files.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QMenuBar>
#include <QRadioButton>

/** Menus, message boxes, file dialogs and fields by a real keyboard. */
class TestKeyboard final : public DeskTest
{
    Q_OBJECT

private slots:
    void menuEntries_data();
    void menuEntries();
    void menuBarGivenUp_data();
    void menuBarGivenUp();
    void leaving_data();
    void leaving();
    void overwriting_data();
    void overwriting();
    void tabGoesThroughTheButtonsOfAQuestion();
    void showPath_data();
    void showPath();
    void showGivenUp_data();
    void showGivenUp();
    void loadGivenUpIsToldAsFailed();
    void nothingHasAShortcut_data();
    void nothingHasAShortcut();
    void fields_data();
    void fields();
    void radiosByArrows();
    void buttonsBySpace();
    void tabGoesOnAndBack_data();
    void tabGoesOnAndBack();
    void wholeEvening();

private:
    /** Lays a Live Button on the first pad of an empty Pads Page. */
    bool layOne();
    /** Presses Tab until a widget has the focus. */
    bool tabTo(const QString &name);
    /** Presses keys that lead to a notice, and closes it. */
    bool pressFor(const QString &keys, const QString &notice);
    /** Saves or loads a project by the menu, the last notice of it closed. */
    bool fileProject(bool isSaved, const QString &name);
};

namespace {

const QString ShowOverWork = Boxes::showOverWork({}).text;
const QString ProjectOverWork = Boxes::projectOverWork({}).text;

} // namespace

bool TestKeyboard::layOne()
{
    return m_desk->clearPads() && m_desk->lay(m_desk->pads(), "0,0=0");
}

void TestKeyboard::menuEntries_data()
{
    addColumns<QString>({"keys", "dialog"});

    addRow("Load DMX Show", "alt Down Return", ShowOverWork);
    addRow("Load Project", "alt Down Down Down Return", ProjectOverWork);
    addRow("Save Project", "alt Down Down Down Down Return", Boxes::NameProject);
    addRow("Export", "alt Down Down Down Down Down Return", Boxes::pageCreated("OS2L DMX").text);
    addRow("Exit, going up", "alt Down Up Return", Boxes::leaving({}).text);
    addRow("About", "alt Right Down Return", "Zarvex - About");
    addRow("About, out of the open menu File", "alt Down Right Return", "Zarvex - About");
}

void TestKeyboard::menuEntries()
{
    QFETCH(QString, keys);
    QFETCH(QString, dialog);
    Desk &desk = *m_desk;
    QVERIFY(layOne());
    const QStringList before = desk.space.snapshot();

    desk.input.keys(keys);
    desk.input.awaitDialog(dialog);
    desk.input.key("Escape");
    desk.awaitRest();
    QVERIFY(desk.input.play());
    QCOMPARE(desk.space.snapshot(), before);
}

void TestKeyboard::menuBarGivenUp_data()
{
    addColumns<QString>({"keys"});
    addRow("on the bar", "alt Escape");
    addRow("by Alt again", "alt alt");
    addRow("in the open menu", "alt Down Down Escape Escape");
    addRow("in the second menu", "alt Right Down Escape Escape");
}

void TestKeyboard::menuBarGivenUp()
{
    QFETCH(QString, keys);
    Desk &desk = *m_desk;
    QVERIFY(layOne());
    const QStringList before = desk.space.snapshot();
    const auto *bar = desk.space.find<QMenuBar>("menuBar");

    const QStringList all = keys.split(' ');
    desk.input.key(all.first());
    desk.input.await("the menu bar has the keyboard", [bar] { return bar->activeAction(); });
    desk.input.keys(all.mid(1).join(' '));
    desk.awaitRest();
    desk.input.await("the menu bar has let go", [bar] { return !bar->activeAction(); });
    QVERIFY(desk.input.play());
    QCOMPARE(desk.space.snapshot(), before);
}

void TestKeyboard::leaving_data()
{
    addColumns<QString>({"way", "answer"});
    addColumns<bool>({"leaves"});

    for (const QString way : {"alt+F4", "alt Down Up Return"}) {
        for (const QString answer : {"Return", "Escape", "space", "Tab Tab Return"})
            addRow(way + ", " + answer, way, answer, false);
        for (const QString answer : {"Tab Return", "alt+y"})
            addRow(way + ", " + answer, way, answer, true);
    }
}

void TestKeyboard::leaving()
{
    QFETCH(QString, way);
    QFETCH(QString, answer);
    QFETCH(bool, leaves);
    Desk &desk = *m_desk;
    QVERIFY(layOne());

    if (way == "alt+F4")
        desk.input.closeWindow();
    else
        desk.input.keys(way);
    desk.input.awaitDialog(Boxes::leaving({}).text);
    desk.input.keys(answer);
    desk.input.await("the answer is taken", [] { return !QApplication::activeModalWidget(); });
    if (!leaves)
        desk.awaitRest();
    QVERIFY(desk.input.play());
    QCOMPARE(desk.space.window().isVisible(), !leaves);
    QCOMPARE(Desk::filled(desk.pads()), QString("0,0=1-1"));
}

void TestKeyboard::overwriting_data()
{
    addColumns<QString>({"answer"});
    addColumns<bool>({"overwrites"});

    for (const QString answer : {"Return", "Escape", "alt+n"})
        addRow(answer, answer, false);
    for (const QString answer : {"Tab Return", "alt+y"})
        addRow(answer, answer, true);
}

void TestKeyboard::overwriting()
{
    QFETCH(QString, answer);
    QFETCH(bool, overwrites);
    Desk &desk = *m_desk;
    QVERIFY(layOne());
    const QString page = desk.space.padsFolder() + "/OS2L DMX.xml";
    QVERIFY(writeFile(page, "of old"));

    desk.input.click(desk.on("pushButton_2"));
    desk.input.awaitDialog(Boxes::overwrite("Pads Page OS2L DMX", {}).text);
    desk.input.keys(answer);
    if (overwrites) {
        desk.input.awaitDialog(Boxes::pageCreated("OS2L DMX").text);
        desk.input.key("Return");
    }
    desk.awaitRest();
    QVERIFY(desk.input.play());
    QCOMPARE(bytesOf(page) != "of old", overwrites);
    QCOMPARE(bytesOf(page).contains("get_text &apos;1-1&apos;"), overwrites);
}

void TestKeyboard::tabGoesThroughTheButtonsOfAQuestion()
{
    Desk &desk = *m_desk;
    QVERIFY(layOne());
    QStringList focused;
    const auto note = [&focused] {
        const auto *button = qobject_cast<QAbstractButton *>(QApplication::focusWidget());
        focused += button ? button->text().remove('&') : "none";
        return true;
    };
    desk.input.keys("alt Down Down Down Return");
    desk.input.awaitDialog(ProjectOverWork);
    desk.input.await("the default", note);
    for (int i = 0; i < 3; ++i) {
        desk.input.key("Tab");
        desk.input.await("the next", note);
    }
    desk.input.key("Escape");
    desk.awaitRest();
    QVERIFY(desk.input.play());

    QCOMPARE(focused.size(), 4);
    QCOMPARE(focused.first(), QString("Cancel"));
    QCOMPARE(focused.last(), QString("Cancel"));
    QCOMPARE(QSet<QString>(focused.begin(), focused.end()), QSet<QString>({"Cancel", "Save", "Yes"}));
    QCOMPARE(Desk::filled(desk.pads()), QString("0,0=1-1"));
}

void TestKeyboard::showPath_data()
{
    addColumns<QString>({"typed"});
    addRow("full path", "%1/Other Show");
    addRow("name in the folder of shows", "Friday");
}

void TestKeyboard::showPath()
{
    QFETCH(QString, typed);
    Desk &desk = *m_desk;
    QVERIFY(desk.clearPads());
    const QString folder =
        desk.space.writeShow(typed.startsWith('%') ? "Other Show" : "TheLightingController/LightShows/Friday",
                             Workspace::iniWith({3}));

    desk.input.click(desk.on("loadini"));
    desk.input.awaitDialog(Boxes::SelectShow);
    desk.input.type(typed.contains('%') ? typed.arg(desk.space.home()) : typed);
    desk.input.key("Return");
    desk.awaitRest();
    QVERIFY(desk.input.play());
    QCOMPARE(desk.space.window().windowTitle(), "Zarvex - " + QFileInfo(folder).fileName());
    QCOMPARE(desk.space.dmx()->rowCount(), 3);
    m_desk.reset(); // the other rows and tests play with another show
}

void TestKeyboard::showGivenUp_data()
{
    addColumns<QString>({"how"});
    addRow("Escape", "Escape");
    addRow("Cancel by the mouse", "Cancel");
}

void TestKeyboard::showGivenUp()
{
    QFETCH(QString, how);
    Desk &desk = *m_desk;
    QVERIFY(desk.clearPads());
    const QStringList before = desk.space.snapshot();

    desk.input.click(desk.on("loadini"));
    desk.input.awaitDialog(Boxes::SelectShow);
    desk.input.type("Friday");
    if (how == "Escape")
        desk.input.keys("Escape Escape"); // the first closes the list of names, if there is one
    else
        desk.input.click(Places::dialogButton(how));
    desk.awaitRest();
    QVERIFY(desk.input.play());
    QCOMPARE(desk.space.snapshot(), before);
}

void TestKeyboard::loadGivenUpIsToldAsFailed()
{
    Desk &desk = *m_desk;
    QVERIFY(desk.clearPads());
    desk.input.keys("alt Down Down Down Return");
    desk.input.awaitDialog(Boxes::SelectProject);
    desk.input.key("Escape");
    desk.input.awaitDialog(Boxes::loadFailed().text);
    desk.input.key("Escape");
    desk.awaitRest();
    QVERIFY(desk.input.play());
}

void TestKeyboard::nothingHasAShortcut_data()
{
    addColumns<QString>({"keys"});
    for (const char *keys : {"ctrl+n", "ctrl+o", "ctrl+l", "ctrl+s", "ctrl+shift+s", "ctrl+e", "ctrl+q",
                             "ctrl+w", "F1", "alt+f", "alt+h"})
        addRow(keys, keys);
}

void TestKeyboard::nothingHasAShortcut()
{
    QFETCH(QString, keys);
    Desk &desk = *m_desk;
    QVERIFY(layOne());
    desk.input.click(Places::cell(desk.pads(), 0));
    QVERIFY(desk.input.play());
    const QStringList before = desk.space.snapshot();

    desk.input.key(keys);
    desk.input.key("Up"); // which stays on the first pad
    QVERIFY(desk.input.play());
    QVERIFY(desk.isAtRest());
    QVERIFY(!desk.pads()->viewport()->findChild<QLineEdit *>());
    QCOMPARE(desk.space.snapshot(), before);
}

void TestKeyboard::fields_data()
{
    addColumns<QString>({"field", "typed", "end", "kept"});

    for (const QString end : {"Return", "Tab"}) {
        addRow("page name, " + end, "padsname", "My Page", end, "My Page");
        addRow("page name emptied, " + end, "padsname", "", end, "OS2L DMX");
        addRow("bank name, " + end, "bankname", "Intro", end, "Intro");
        addRow("bank name emptied, " + end, "bankname", "", end, "");
    }
}

void TestKeyboard::fields()
{
    QFETCH(QString, field);
    QFETCH(QString, typed);
    QFETCH(QString, end);
    QFETCH(QString, kept);
    Desk &desk = *m_desk;
    QVERIFY(desk.clearPads());
    const auto *edit = desk.space.find<QLineEdit>(qPrintable(field));

    desk.input.click(desk.on(qPrintable(field)));
    desk.input.keys("ctrl+a BackSpace");
    if (!typed.isEmpty())
        desk.input.type(typed);
    desk.input.key(end);
    QVERIFY(desk.input.play());
    QTRY_COMPARE_WITH_TIMEOUT(edit->text(), kept, Patience);
    QCOMPARE(edit->hasFocus(), end == "Return");
    QCOMPARE(desk.space.bankNames().first(), field == "bankname" ? kept : QString("BANK 1"));
    m_desk.reset(); // no command gives the bank its name back
}

void TestKeyboard::radiosByArrows()
{
    Desk &desk = *m_desk;
    QVERIFY(desk.clearPads());
    desk.input.click(desk.on("radio_outputpage"));
    desk.input.key("Right");
    QVERIFY(desk.input.play());
    QTRY_VERIFY_WITH_TIMEOUT(desk.grid()->isVisible(), Patience);
    QCOMPARE(desk.space.window().width(), 1366);

    desk.input.key("Left");
    QVERIFY(desk.input.play());
    QTRY_VERIFY_WITH_TIMEOUT(!desk.grid()->isVisible(), Patience);
    QCOMPARE(desk.space.window().width(), 650);

    desk.input.click(desk.on("radioButton_8pads"));
    desk.input.key("Right");
    QVERIFY(desk.input.play());
    QTRY_VERIFY_WITH_TIMEOUT(!desk.pads()->isColumnHidden(1), Patience);
}

void TestKeyboard::buttonsBySpace()
{
    Desk &desk = *m_desk;
    QVERIFY(layOne());
    desk.space.find<QAbstractButton>("cleanpads_button")->setFocus(Qt::TabFocusReason);
    desk.input.key("space");
    desk.input.await("the pads are empty", [&desk] { return Desk::filled(desk.pads()).isEmpty(); });
    QVERIFY(desk.input.play());
    QCOMPARE(desk.ticks(), QString());

    desk.space.find<QAbstractButton>("pushButton_2")->setFocus(Qt::TabFocusReason);
    desk.input.key("space");
    desk.input.awaitDialog(Boxes::ExportOfNothing.text);
    desk.input.key("space");
    desk.awaitRest();
    QVERIFY(desk.input.play());
}

void TestKeyboard::tabGoesOnAndBack_data()
{
    addColumns<QString>({"name"});
    for (const char *name : {"loadini", "combobox", "radio_outputpage", "radioButton_8pads",
                             "cleanpads_button", "bankcombo", "bankname", "padsname", "pushButton_2"})
        addRow(name, name);
}

void TestKeyboard::tabGoesOnAndBack()
{
    QFETCH(QString, name);
    Desk &desk = *m_desk;
    QVERIFY(desk.clearPads());
    desk.space.find<QWidget>(qPrintable(name))->setFocus(Qt::TabFocusReason);

    desk.input.key("Tab");
    QVERIFY(desk.input.play());
    QTRY_VERIFY_WITH_TIMEOUT(Workspace::focused() != name, Patience);
    const QWidget *next = QApplication::focusWidget();
    QVERIFY(next && next->isVisible() && next->isEnabled());
    if (qobject_cast<const QTableView *>(next)) // keeps Tab for its cells
        return;
    desk.input.key("shift+Tab");
    QVERIFY(desk.input.play());
    QTRY_COMPARE_WITH_TIMEOUT(Workspace::focused(), name, Patience);
}

bool TestKeyboard::tabTo(const QString &name)
{
    for (int i = 0; i < 20 && Workspace::focused() != name; ++i) {
        const QString before = Workspace::focused();
        m_desk->input.key("Tab");
        m_desk->input.await("the focus moves", [before] { return Workspace::focused() != before; });
        if (!m_desk->input.play())
            return false;
    }
    return Workspace::focused() == name;
}

bool TestKeyboard::pressFor(const QString &keys, const QString &notice)
{
    m_desk->input.keys(keys);
    m_desk->input.awaitDialog(notice);
    m_desk->input.key("Return");
    m_desk->awaitRest();
    return m_desk->input.play();
}

bool TestKeyboard::fileProject(bool isSaved, const QString &name)
{
    m_desk->input.keys(isSaved ? "alt Down Down Down Down Return" : "alt Down Down Down Return");
    m_desk->input.awaitDialog(isSaved ? Boxes::NameProject : Boxes::SelectProject);
    m_desk->input.type(name + ".zarvex");
    m_desk->input.key("Return");
    if (isSaved) {
        m_desk->input.awaitDialog(Boxes::projectSaved(name).text);
        m_desk->input.key("Return");
    }
    m_desk->awaitRest();
    return m_desk->input.play();
}

namespace {

/** A page, a mapping and both projects, the folder of before taken out. */
QStringList filesOf(const Workspace &space)
{
    QStringList contents;
    const QString projects = space.documents() + "/Zarvex/projects/";
    for (const QString &path :
         {space.padsFolder() + "/Night.xml", space.mappersFolder() + "/AKAI APC Mini - Night mapping.xml",
          projects + "pads.zarvex", projects + "keys.zarvex"})
        contents += QString::fromUtf8(bytesOf(path)).replace(space.home(), "HOME");
    return contents;
}

bool saveAs(Workspace &space, const QString &name)
{
    space.dialogs.expect(
        Boxes::saveDialog(space, space.documents() + "/Zarvex/projects/" + name + ".zarvex"));
    space.dialogs.expect(Boxes::projectSaved(name));
    space.trigger("actionSave_2");
    return space.dialogs.faults().isEmpty();
}

/** What wholeEvening() writes, by drops, clicks and slots. */
QStringList filesByMouse()
{
    Workspace space;
    if (!QTest::qWaitForWindowActive(&space.window()) || !space.loadSomeShow())
        return {};
    space.dialogs.expect(Boxes::pageCreated("Night"));
    const bool hasPads = space.click("radioButton_16pads") && space.putOnPad(0, 0)
                         && space.pads()->setData(space.pads()->index(0, 0), "Go") && space.putOnPad(2, 2)
                         && space.choose("bankcombo", 1) && space.type("bankname", "Chorus")
                         && space.putOnPad(2, 8) && space.putOnPad(2, 8, 1) && space.type("padsname", "Night")
                         && space.click("pushButton_2") && saveAs(space, "pads");
    space.dialogs.expect(Boxes::mappingCreated("Night", "AKAI APC Mini"));
    const bool hasKeys = space.click("radio_outputmidi") && space.choose("mididevices", 1)
                         && space.choose("combo_offcolor", 2) && space.putOnKey(0, 2, 2)
                         && space.putOnKey(1, 2, 3);
    Workspace::select(space.gridView(), "2,2 2,3");
    const bool isColored = space.call("colorpadchange", 3) && space.call("onblinkaction_triggered")
                           && space.pickOnKey(3, 2, {"Set as Switch"}) && space.click("pushButton_2")
                           && saveAs(space, "keys");
    return hasPads && hasKeys && isColored ? filesOf(space) : QStringList(space.dialogs.faults());
}

} // namespace

/** Show, pads, banks, names, keys, colours, Switch, exports and projects: no mouse from the start to the end. */
void TestKeyboard::wholeEvening()
{
    m_desk = std::make_unique<Desk>();
    Desk &desk = *m_desk;
    QVERIFY(desk.open());
    desk.input.keys("alt Down Return");
    desk.input.awaitDialog(Boxes::SelectShow);
    desk.input.type(desk.space.writeShow("Show", Workspace::iniWith({8, 8})));
    desk.input.key("Return");
    desk.awaitRest();
    QVERIFY(desk.input.play());

    QVERIFY(tabTo("dmxlistview"));
    desk.input.keys("Home ctrl+c");
    QVERIFY(tabTo("vdjlistview"));
    desk.input.keys("ctrl+v F2 ctrl+a");
    desk.input.type("Go");
    desk.input.key("Return");
    desk.input.await("the text", [&desk] { return desk.filled(desk.pads()) == "0,0=Go"; });
    QVERIFY(tabTo("dmxlistview"));
    desk.input.keys("Down Down ctrl+c");
    QVERIFY(tabTo("vdjlistview"));
    desk.input.keys("Down Down ctrl+v");
    QVERIFY(tabTo("radioButton_8pads"));
    desk.input.key("Right");
    QVERIFY(tabTo("bankcombo"));
    desk.input.key("Down");
    QVERIFY(tabTo("bankname"));
    desk.input.type("Chorus");
    QVERIFY(tabTo("vdjlistview"));
    desk.input.keys("ctrl+v Right Delete ctrl+v");
    QVERIFY(tabTo("padsname"));
    desk.input.type("Night");
    QVERIFY(desk.input.play());
    QTRY_COMPARE(desk.filled(desk.pads()), QString("0,0=Go 2,0=1-3 8,0=1-3 8,1=1-3"));
    QVERIFY(tabTo("pushButton_2"));
    QVERIFY(pressFor("space", Boxes::pageCreated("Night").text));
    QVERIFY(fileProject(true, "pads"));

    QVERIFY(tabTo("radio_outputpage"));
    desk.input.key("Right");
    QVERIFY(tabTo("mididevices"));
    desk.input.key("Down");
    QVERIFY(tabTo("combo_offcolor"));
    desk.input.key("Up");
    QVERIFY(tabTo("dmxlistview"));
    desk.input.keys("Home ctrl+c");
    QVERIFY(tabTo("tablecontroller"));
    desk.input.key("ctrl+v");
    QVERIFY(tabTo("dmxlistview"));
    desk.input.keys("Down ctrl+c");
    QVERIFY(tabTo("tablecontroller"));
    desk.input.keys("Right ctrl+v shift+Left");
    desk.input.keys("Menu Down Down Right Down Down Down Return");
    desk.input.awaitNoPopup();
    desk.input.keys("Menu Down Down Down Down Return");
    desk.input.awaitNoPopup();
    desk.input.key("Down");
    for (int i = 0; i < 3; ++i) { // the Switch, none, the Switch
        desk.input.keys("Menu Down Return");
        desk.input.awaitNoPopup();
    }
    QVERIFY(desk.input.play());
    QTRY_COMPARE(desk.filled(desk.grid()), QString("2,2=1-1 2,3=1-2"));
    QVERIFY(pressFor("alt Down Down Down Down Down Return",
                     Boxes::mappingCreated("Night", "AKAI APC Mini").text));
    QVERIFY(fileProject(true, "keys"));

    // What was saved comes back, and is saved as it was.
    const QStringList files = filesOf(desk.space);
    for (const QString name : {"pads", "keys"}) {
        desk.input.keys("alt Down Down Return"); // New Project
        QVERIFY(fileProject(false, name));
        QVERIFY(fileProject(true, name + " again"));
        const QString path = desk.space.documents() + "/Zarvex/projects/" + name;
        QCOMPARE(bytesOf(path + " again.zarvex"), bytesOf(path + ".zarvex"));
    }
    m_desk.reset();
    QCOMPARE(files, filesByMouse());
}

QTEST_MAIN(TestKeyboard)
#include "test_keyboard.moc"

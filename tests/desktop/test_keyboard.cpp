#include "desktop/desk.h"
#include "support/boxes.h"
#include "support/files.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QMenuBar>
#include <QRadioButton>

/** Menus, message boxes, file dialogs and fields by a real keyboard. */
class TestKeyboard final : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void menuEntries_data();
    void menuEntries();
    void menuBarGivenUp_data();
    void menuBarGivenUp();
    void newProject();
    void leaving_data();
    void leaving();
    void overwriting_data();
    void overwriting();
    void tabGoesThroughTheButtonsOfAQuestion();
    void showPath_data();
    void showPath();
    void showGivenUp_data();
    void showGivenUp();
    void folderWithoutShow();
    void projectThereAndBack_data();
    void projectThereAndBack();
    void loadGivenUpIsToldAsFailed();
    void nothingHasAShortcut_data();
    void nothingHasAShortcut();
    void fields_data();
    void fields();
    void radiosByArrows();
    void buttonsBySpace();
    void tabGoesOnAndBack_data();
    void tabGoesOnAndBack();
    void wholeRoad();

private:
    /** Lays a Live Button on the first pad of an empty Pads Page. */
    bool layOne();
    /** Presses Tab until a widget has the focus. */
    bool tabTo(const QString &name);
    /** Presses keys that lead to a notice, and closes it. */
    bool pressFor(const QString &keys, const QString &notice);
    /** Saves or loads a project by the menu, the last notice of it closed. */
    bool fileProject(bool isSaved, const QString &name);

    std::unique_ptr<Desk> m_desk;
};

namespace {

const char ShowOverWork[] = "Are you sure you want to open a new Show \nbefore saving current Project ?";
const char ProjectOverWork[] = "Are you sure you want to load a Project before saving current ?";

void awaitRest(Desk &desk)
{
    desk.hands.await("the window has the keyboard again", [&desk] { return desk.isAtRest(); });
}

} // namespace

void TestKeyboard::init()
{
    if (m_desk)
        return;
    auto desk = std::make_unique<Desk>();
    QVERIFY(desk->start());
    m_desk = std::move(desk);
}

void TestKeyboard::cleanup()
{
    if (QTest::currentTestFailed() || !m_desk || !m_desk->space.window().isVisible())
        m_desk.reset();
}

bool TestKeyboard::layOne()
{
    return m_desk->clearPads() && m_desk->lay(m_desk->pads(), "0,0=0");
}

void TestKeyboard::menuEntries_data()
{
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("dialog");

    QTest::newRow("Load DMX Show") << "alt Down Return" << ShowOverWork;
    QTest::newRow("Load Project") << "alt Down Down Down Return" << ProjectOverWork;
    QTest::newRow("Save Project") << "alt Down Down Down Down Return"
                                  << "Save your Zarvex Project";
    QTest::newRow("Export") << "alt Down Down Down Down Down Return"
                            << "Pads Page OS2L DMX is created.";
    QTest::newRow("Exit, going up") << "alt Down Up Return"
                                    << "Project is not empty.";
    QTest::newRow("About") << "alt Right Down Return"
                           << "Zarvex - About";
    QTest::newRow("About, out of the open menu File") << "alt Down Right Return"
                                                      << "Zarvex - About";
}

void TestKeyboard::menuEntries()
{
    QFETCH(QString, keys);
    QFETCH(QString, dialog);
    Desk &desk = *m_desk;
    QVERIFY(layOne());
    const QStringList before = desk.space.snapshot();

    desk.hands.keys(keys);
    desk.hands.awaitDialog(dialog);
    desk.hands.key("Escape");
    awaitRest(desk);
    QVERIFY(desk.hands.play());
    QCOMPARE(desk.space.snapshot(), before);
}

void TestKeyboard::menuBarGivenUp_data()
{
    QTest::addColumn<QString>("keys");

    QTest::newRow("on the bar") << "alt Escape";
    QTest::newRow("by Alt again") << "alt alt";
    QTest::newRow("in the open menu") << "alt Down Down Escape Escape";
    QTest::newRow("in the second menu") << "alt Right Down Escape Escape";
}

void TestKeyboard::menuBarGivenUp()
{
    QFETCH(QString, keys);
    Desk &desk = *m_desk;
    QVERIFY(layOne());
    const QStringList before = desk.space.snapshot();
    const auto *bar = desk.space.find<QMenuBar>("menuBar");

    const QStringList all = keys.split(' ');
    desk.hands.key(all.first());
    desk.hands.await("the menu bar has the keyboard", [bar] { return bar->activeAction(); });
    desk.hands.keys(all.mid(1).join(' '));
    awaitRest(desk);
    desk.hands.await("the menu bar has let go", [bar] { return !bar->activeAction(); });
    QVERIFY(desk.hands.play());
    QCOMPARE(desk.space.snapshot(), before);
}

void TestKeyboard::newProject()
{
    Desk &desk = *m_desk;
    QVERIFY(layOne());
    desk.hands.keys("alt Down Down Return");
    awaitRest(desk);
    desk.hands.await("the pads are empty", [&desk] { return desk.space.leftOnPads().isEmpty(); });
    QVERIFY(desk.hands.play());
    QCOMPARE(desk.ticks(), QString());
    QCOMPARE(Workspace::focused(), QString("dmxlistview"));
    QCOMPARE(desk.space.window().windowTitle(), QString("Zarvex - Show"));
}

void TestKeyboard::leaving_data()
{
    QTest::addColumn<QString>("way");
    QTest::addColumn<QString>("answer");
    QTest::addColumn<bool>("leaves");

    for (const QString way : {"alt+F4", "alt Down Up Return"}) {
        const QString words = way == "alt+F4" ? "closing: " : "Exit: ";
        QTest::newRow(qPrintable(words + "Enter")) << way << "Return" << false;
        QTest::newRow(qPrintable(words + "Escape")) << way << "Escape" << false;
        QTest::newRow(qPrintable(words + "Space")) << way << "space" << false;
        QTest::newRow(qPrintable(words + "Tab, Enter")) << way << "Tab Return" << true;
        QTest::newRow(qPrintable(words + "Tab, Tab, Enter")) << way << "Tab Tab Return" << false;
        QTest::newRow(qPrintable(words + "letter of Yes")) << way << "alt+y" << true;
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
        desk.hands.closeWindow();
    else
        desk.hands.keys(way);
    desk.hands.awaitDialog("Project is not empty.");
    desk.hands.keys(answer);
    desk.hands.await("the answer is taken", [] { return !QApplication::activeModalWidget(); });
    if (!leaves)
        awaitRest(desk);
    QVERIFY(desk.hands.play());
    QCOMPARE(desk.space.window().isVisible(), !leaves);
    QCOMPARE(Desk::filled(desk.pads()), QString("0,0=1-1"));
}

void TestKeyboard::overwriting_data()
{
    QTest::addColumn<QString>("answer");
    QTest::addColumn<bool>("overwrites");

    QTest::newRow("Enter") << "Return" << false;
    QTest::newRow("Escape") << "Escape" << false;
    QTest::newRow("Tab, Enter") << "Tab Return" << true;
    QTest::newRow("letter of Yes") << "alt+y" << true;
    QTest::newRow("letter of No") << "alt+n" << false;
}

void TestKeyboard::overwriting()
{
    QFETCH(QString, answer);
    QFETCH(bool, overwrites);
    Desk &desk = *m_desk;
    QVERIFY(layOne());
    const QString page = desk.space.padsFolder() + "/OS2L DMX.xml";
    QVERIFY(writeFile(page, "of old"));

    desk.hands.click(desk.on("pushButton_2"));
    desk.hands.awaitDialog("Pads Page OS2L DMX already exists.");
    desk.hands.keys(answer);
    if (overwrites) {
        desk.hands.awaitDialog("Pads Page OS2L DMX is created.");
        desk.hands.key("Return");
    }
    awaitRest(desk);
    QVERIFY(desk.hands.play());
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
    desk.hands.keys("alt Down Down Down Return");
    desk.hands.awaitDialog(ProjectOverWork);
    desk.hands.await("the default", note);
    for (int i = 0; i < 3; ++i) {
        desk.hands.key("Tab");
        desk.hands.await("the next", note);
    }
    desk.hands.key("Escape");
    awaitRest(desk);
    QVERIFY(desk.hands.play());

    QCOMPARE(focused.size(), 4);
    QCOMPARE(focused.first(), QString("Cancel"));
    QCOMPARE(focused.last(), QString("Cancel"));
    QCOMPARE(QSet<QString>(focused.begin(), focused.end()), QSet<QString>({"Cancel", "Save", "Yes"}));
    QCOMPARE(Desk::filled(desk.pads()), QString("0,0=1-1"));
}

void TestKeyboard::showPath_data()
{
    QTest::addColumn<QString>("typed");

    QTest::newRow("full path") << "%1/Other Show";
    QTest::newRow("name in the folder of shows") << "Friday";
}

void TestKeyboard::showPath()
{
    QFETCH(QString, typed);
    Desk &desk = *m_desk;
    QVERIFY(desk.clearPads());
    const QString folder =
        desk.space.writeShow(typed.startsWith('%') ? "Other Show" : "TheLightingController/LightShows/Friday",
                             Workspace::iniWith({3}));

    desk.hands.click(desk.on("loadini"));
    desk.hands.awaitDialog("Select a Show");
    desk.hands.type(typed.contains('%') ? typed.arg(desk.space.home()) : typed);
    desk.hands.key("Return");
    awaitRest(desk);
    QVERIFY(desk.hands.play());
    QCOMPARE(desk.space.window().windowTitle(), "Zarvex - " + QFileInfo(folder).fileName());
    QCOMPARE(desk.space.dmx()->rowCount(), 3);
    m_desk.reset(); // the other rows and tests play with another show
}

void TestKeyboard::showGivenUp_data()
{
    QTest::addColumn<QString>("how");

    QTest::newRow("Escape") << "Escape";
    QTest::newRow("Cancel by the mouse") << "Cancel";
}

void TestKeyboard::showGivenUp()
{
    QFETCH(QString, how);
    Desk &desk = *m_desk;
    QVERIFY(desk.clearPads());
    const QStringList before = desk.space.snapshot();

    desk.hands.click(desk.on("loadini"));
    desk.hands.awaitDialog("Select a Show");
    desk.hands.type("Friday");
    if (how == "Escape")
        desk.hands.keys("Escape Escape"); // the first closes the list of names, if there is one
    else
        desk.hands.click(Places::dialogButton(how));
    awaitRest(desk);
    QVERIFY(desk.hands.play());
    QCOMPARE(desk.space.snapshot(), before);
}

void TestKeyboard::folderWithoutShow()
{
    Desk &desk = *m_desk;
    QVERIFY(desk.clearPads());
    const QStringList before = desk.space.snapshot();

    desk.hands.click(desk.on("loadini"));
    desk.hands.awaitDialog("Select a Show");
    desk.hands.type(desk.space.documents());
    desk.hands.key("Return");
    desk.hands.awaitDialog("LightShow Settings file not found. Please select a different LightShow Folder");
    desk.hands.key("Return");
    awaitRest(desk);
    QVERIFY(desk.hands.play());
    QCOMPARE(desk.space.snapshot(), before);
}

void TestKeyboard::projectThereAndBack_data()
{
    QTest::addColumn<bool>("areKeys");
    QTest::addColumn<QString>("typed");

    QTest::newRow("pads, by the name alone") << false << "mine.zarvex";
    QTest::newRow("pads, by the full path") << false << "%1/at home.zarvex";
    QTest::newRow("keys, by the name alone") << true << "keys.zarvex";
}

void TestKeyboard::projectThereAndBack()
{
    QFETCH(bool, areKeys);
    QFETCH(QString, typed);
    Desk &desk = *m_desk;
    QVERIFY(areKeys ? desk.clearKeys() : desk.clearPads());
    QTableView *view = areKeys ? desk.grid() : desk.pads();
    QVERIFY(desk.lay(view, "2,0=3 9,1=5"));
    const QString laid = Desk::filled(view);
    const QString path = typed.contains('%') ? typed.arg(desk.space.home()) : typed;

    desk.hands.keys("alt Down Down Down Down Return");
    desk.hands.awaitDialog("Save your Zarvex Project");
    desk.hands.type(path);
    desk.hands.key("Return");
    desk.hands.awaitDialog("Project " + QFileInfo(path).baseName() + " is saved.");
    desk.hands.key("Return");
    awaitRest(desk);
    desk.hands.keys("alt Down Down Return"); // New Project
    desk.hands.await("all is empty", [view] { return Desk::filled(view).isEmpty(); });
    desk.hands.keys("alt Down Down Down Return");
    desk.hands.awaitDialog("Select a Zarvex Project");
    desk.hands.type(path);
    desk.hands.key("Return");
    awaitRest(desk);
    QVERIFY(desk.hands.play());

    QCOMPARE(Desk::filled(view), laid);
    QCOMPARE(desk.ticks(), QString("3 5"));
    QCOMPARE(desk.foreignCell(view), QString());
}

void TestKeyboard::loadGivenUpIsToldAsFailed()
{
    Desk &desk = *m_desk;
    QVERIFY(desk.clearPads());
    desk.hands.keys("alt Down Down Down Return");
    desk.hands.awaitDialog("Select a Zarvex Project");
    desk.hands.key("Escape");
    desk.hands.awaitDialog("Failed to load the Project's Show.");
    desk.hands.key("Escape");
    awaitRest(desk);
    QVERIFY(desk.hands.play());
}

void TestKeyboard::nothingHasAShortcut_data()
{
    QTest::addColumn<QString>("keys");

    for (const char *keys : {"ctrl+n", "ctrl+o", "ctrl+l", "ctrl+s", "ctrl+shift+s", "ctrl+e", "ctrl+q",
                             "ctrl+w", "F1", "alt+f", "alt+h"})
        QTest::newRow(keys) << keys;
}

void TestKeyboard::nothingHasAShortcut()
{
    QFETCH(QString, keys);
    Desk &desk = *m_desk;
    QVERIFY(layOne());
    desk.hands.click(Places::cell(desk.pads(), 0));
    QVERIFY(desk.hands.play());
    const QStringList before = desk.space.snapshot();

    desk.hands.key(keys);
    desk.hands.key("Up"); // which stays on the first pad
    QVERIFY(desk.hands.play());
    QVERIFY(desk.isAtRest());
    QVERIFY(!desk.pads()->viewport()->findChild<QLineEdit *>());
    QCOMPARE(desk.space.snapshot(), before);
}

void TestKeyboard::fields_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("end");
    QTest::addColumn<QString>("kept");

    for (const QString end : {"Return", "Tab"}) {
        QTest::newRow(qPrintable("page name, " + end)) << "padsname"
                                                       << "My Page" << end << "My Page";
        QTest::newRow(qPrintable("page name emptied, " + end)) << "padsname"
                                                               << "" << end << "OS2L DMX";
        QTest::newRow(qPrintable("bank name, " + end)) << "bankname"
                                                       << "Intro" << end << "Intro";
        QTest::newRow(qPrintable("bank name emptied, " + end)) << "bankname"
                                                               << "" << end << "";
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

    desk.hands.click(desk.on(qPrintable(field)));
    desk.hands.keys("ctrl+a BackSpace");
    if (!typed.isEmpty())
        desk.hands.type(typed);
    desk.hands.key(end);
    QVERIFY(desk.hands.play());
    QTRY_COMPARE_WITH_TIMEOUT(edit->text(), kept, Patience);
    QCOMPARE(edit->hasFocus(), end == "Return");
    QCOMPARE(desk.space.bankNames().first(), field == "bankname" ? kept : QString("BANK 1"));
    m_desk.reset(); // no command gives the bank its name back
}

void TestKeyboard::radiosByArrows()
{
    Desk &desk = *m_desk;
    QVERIFY(desk.clearPads());
    desk.hands.click(desk.on("radio_outputpage"));
    desk.hands.key("Right");
    QVERIFY(desk.hands.play());
    QTRY_VERIFY_WITH_TIMEOUT(desk.grid()->isVisible(), Patience);
    QCOMPARE(desk.space.window().width(), 1366);

    desk.hands.key("Left");
    QVERIFY(desk.hands.play());
    QTRY_VERIFY_WITH_TIMEOUT(!desk.grid()->isVisible(), Patience);
    QCOMPARE(desk.space.window().width(), 650);

    desk.hands.click(desk.on("radioButton_8pads"));
    desk.hands.key("Right");
    QVERIFY(desk.hands.play());
    QTRY_VERIFY_WITH_TIMEOUT(!desk.pads()->isColumnHidden(1), Patience);
}

void TestKeyboard::buttonsBySpace()
{
    Desk &desk = *m_desk;
    QVERIFY(layOne());
    desk.space.find<QAbstractButton>("cleanpads_button")->setFocus(Qt::TabFocusReason);
    desk.hands.key("space");
    desk.hands.await("the pads are empty", [&desk] { return Desk::filled(desk.pads()).isEmpty(); });
    QVERIFY(desk.hands.play());
    QCOMPARE(desk.ticks(), QString());

    desk.space.find<QAbstractButton>("pushButton_2")->setFocus(Qt::TabFocusReason);
    desk.hands.key("space");
    desk.hands.awaitDialog("Nothing to Export. Pads are empty");
    desk.hands.key("space");
    awaitRest(desk);
    QVERIFY(desk.hands.play());
}

void TestKeyboard::tabGoesOnAndBack_data()
{
    QTest::addColumn<QString>("name");

    for (const char *name : {"loadini", "combobox", "radio_outputpage", "radioButton_8pads",
                             "cleanpads_button", "bankcombo", "bankname", "padsname", "pushButton_2"})
        QTest::newRow(name) << name;
}

void TestKeyboard::tabGoesOnAndBack()
{
    QFETCH(QString, name);
    Desk &desk = *m_desk;
    QVERIFY(desk.clearPads());
    desk.space.find<QWidget>(qPrintable(name))->setFocus(Qt::TabFocusReason);

    desk.hands.key("Tab");
    QVERIFY(desk.hands.play());
    QTRY_VERIFY_WITH_TIMEOUT(Workspace::focused() != name, Patience);
    const QWidget *next = QApplication::focusWidget();
    QVERIFY(next && next->isVisible() && next->isEnabled());
    if (qobject_cast<const QTableView *>(next)) // keeps Tab for its cells
        return;
    desk.hands.key("shift+Tab");
    QVERIFY(desk.hands.play());
    QTRY_COMPARE_WITH_TIMEOUT(Workspace::focused(), name, Patience);
}

bool TestKeyboard::tabTo(const QString &name)
{
    for (int i = 0; i < 20 && Workspace::focused() != name; ++i) {
        const QString before = Workspace::focused();
        m_desk->hands.key("Tab");
        m_desk->hands.await("the focus moves", [before] { return Workspace::focused() != before; });
        if (!m_desk->hands.play())
            return false;
    }
    return Workspace::focused() == name;
}

bool TestKeyboard::pressFor(const QString &keys, const QString &notice)
{
    m_desk->hands.keys(keys);
    m_desk->hands.awaitDialog(notice);
    m_desk->hands.key("Return");
    awaitRest(*m_desk);
    return m_desk->hands.play();
}

bool TestKeyboard::fileProject(bool isSaved, const QString &name)
{
    m_desk->hands.keys(isSaved ? "alt Down Down Down Down Return" : "alt Down Down Down Return");
    m_desk->hands.awaitDialog(isSaved ? "Save your Zarvex Project" : "Select a Zarvex Project");
    m_desk->hands.type(name + ".zarvex");
    m_desk->hands.key("Return");
    if (isSaved) {
        m_desk->hands.awaitDialog("Project " + name + " is saved.");
        m_desk->hands.key("Return");
    }
    awaitRest(*m_desk);
    return m_desk->hands.play();
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

/** The road of wholeRoad() by drops, clicks and slots. */
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
void TestKeyboard::wholeRoad()
{
    m_desk = std::make_unique<Desk>();
    Desk &desk = *m_desk;
    QVERIFY(desk.open());
    desk.hands.keys("alt Down Return");
    desk.hands.awaitDialog("Select a Show");
    desk.hands.type(desk.space.writeShow("Show", Workspace::iniWith({8, 8})));
    desk.hands.key("Return");
    awaitRest(desk);
    QVERIFY(desk.hands.play());

    QVERIFY(tabTo("dmxlistview"));
    desk.hands.keys("Home ctrl+c");
    QVERIFY(tabTo("vdjlistview"));
    desk.hands.keys("ctrl+v F2 ctrl+a");
    desk.hands.type("Go");
    desk.hands.key("Return");
    desk.hands.await("the text", [&desk] { return desk.filled(desk.pads()) == "0,0=Go"; });
    QVERIFY(tabTo("dmxlistview"));
    desk.hands.keys("Down Down ctrl+c");
    QVERIFY(tabTo("vdjlistview"));
    desk.hands.keys("Down Down ctrl+v");
    QVERIFY(tabTo("radioButton_8pads"));
    desk.hands.key("Right");
    QVERIFY(tabTo("bankcombo"));
    desk.hands.key("Down");
    QVERIFY(tabTo("bankname"));
    desk.hands.type("Chorus");
    QVERIFY(tabTo("vdjlistview"));
    desk.hands.keys("ctrl+v Right Delete ctrl+v");
    QVERIFY(tabTo("padsname"));
    desk.hands.type("Night");
    QVERIFY(desk.hands.play());
    QTRY_COMPARE(desk.filled(desk.pads()), QString("0,0=Go 2,0=1-3 8,0=1-3 8,1=1-3"));
    QVERIFY(tabTo("pushButton_2"));
    QVERIFY(pressFor("space", "Pads Page Night is created."));
    QVERIFY(fileProject(true, "pads"));

    QVERIFY(tabTo("radio_outputpage"));
    desk.hands.key("Right");
    QVERIFY(tabTo("mididevices"));
    desk.hands.key("Down");
    QVERIFY(tabTo("combo_offcolor"));
    desk.hands.key("Up");
    QVERIFY(tabTo("dmxlistview"));
    desk.hands.keys("Home ctrl+c");
    QVERIFY(tabTo("tablecontroller"));
    desk.hands.key("ctrl+v");
    QVERIFY(tabTo("dmxlistview"));
    desk.hands.keys("Down ctrl+c");
    QVERIFY(tabTo("tablecontroller"));
    desk.hands.keys("Right ctrl+v shift+Left");
    desk.hands.keys("Menu Down Down Right Down Down Down Return");
    desk.hands.awaitNoPopup();
    desk.hands.keys("Menu Down Down Down Down Return");
    desk.hands.awaitNoPopup();
    desk.hands.key("Down");
    for (int i = 0; i < 3; ++i) { // the Switch, none, the Switch
        desk.hands.keys("Menu Down Return");
        desk.hands.awaitNoPopup();
    }
    QVERIFY(desk.hands.play());
    QTRY_COMPARE(desk.filled(desk.grid()), QString("2,2=1-1 2,3=1-2"));
    QVERIFY(pressFor("alt Down Down Down Down Down Return", "Mapping Night for AKAI APC Mini is created."));
    QVERIFY(fileProject(true, "keys"));

    // What was saved comes back, and is saved as it was.
    const QStringList files = filesOf(desk.space);
    for (const QString name : {"pads", "keys"}) {
        desk.hands.keys("alt Down Down Return"); // New Project
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

#include "desktop/desk.h"
#include "support/files.h"

#include <QComboBox>
#include <QFile>
#include <QLineEdit>

/**
 * A whole evening with the example show: the steps of the tour one after the other, told by what the tables and the
 * files hold. Each function goes on where the one before it has stopped.
 */
class TestRoad final : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void showIsLoaded();
    void buttonsLieOnPads();
    void padsAreSwappedAndRenamed();
    void secondBankHasItsOwn();
    void pageIsExported();
    void buttonsLieOnKeys();
    void keyIsLitRedAndBlinks();
    void keyIsTheSwitch();
    void mapperIsExported();
    void secondDeviceKeepsTheKeys();
    void anyColourIsTyped();
    void secondMapperIsExported();
    void keysAndPadsAreSaved();
    void newProjectIsEmpty();
    void keysAreBack();
    void padsAreBack();
    void programTellsAboutItself();
    void leavingIsAskedFor();

private:
    void drag(const QTableView *view, int row, int col, int button);
    /** Waits for the notice of an export, and closes it. */
    bool exportAs(const QString &notice);
    bool save(const QString &name);
    QComboBox *combo(const char *name) { return m_desk.space.find<QComboBox>(name); }

    Desk m_desk;
};

namespace {

// Rows of Live Buttons of the third page and of the first.
constexpr int Home = 28;
constexpr int Crowd = 30;
constexpr int Ceiling = 31;
constexpr int FanOut = 32;
constexpr int Red = 0;
constexpr int Green = 4;
constexpr int Blue = 6;
constexpr int Violet = 7;

const char PadsOfTheEvening[] =
    "0,0=Crowd 1,0=Home 2,0=Ceiling 3,0=big finale 8,0=Red 10,0=Green 12,0=Blue 14,0=Violet";
const char KeysOfTheEvening[] = "2,2=Red 2,3=Green 2,4=Blue 2,5=Violet";

} // namespace

void TestRoad::drag(const QTableView *view, int row, int col, int button)
{
    m_desk.hands.beginDrag(m_desk.list(), Places::cell(m_desk.list(), button));
    m_desk.hands.dragOver(Places::cell(view, row, col));
    m_desk.hands.release();
    m_desk.hands.moveTo(m_desk.on("label_4"));
}

bool TestRoad::exportAs(const QString &notice)
{
    m_desk.hands.click(m_desk.on("pushButton_2"));
    m_desk.hands.awaitDialog(notice);
    m_desk.hands.key("Return");
    m_desk.hands.await("the notice closes", [this] { return m_desk.isAtRest(); });
    return m_desk.hands.play();
}

bool TestRoad::save(const QString &name)
{
    m_desk.hands.click(Places::menuTitle(&m_desk.space.window(), "File"));
    m_desk.hands.pickEntry("Save Project");
    m_desk.hands.awaitDialog("Save your Zarvex Project");
    m_desk.hands.type(name + ".zarvex");
    m_desk.hands.key("Return");
    m_desk.hands.awaitDialog("Project " + name + " is saved.");
    m_desk.hands.key("Return");
    m_desk.hands.await("the notice closes", [this] { return m_desk.isAtRest(); });
    return m_desk.hands.play();
}

void TestRoad::initTestCase()
{
    QVERIFY(m_desk.start());
    const QString show = QFINDTESTDATA("../../examples/Club Night");
    QVERIFY(!show.isEmpty());
    QVERIFY(QFile::link(show, m_desk.space.home() + "/TheLightingController/LightShows/Club Night"));
}

void TestRoad::showIsLoaded()
{
    m_desk.hands.click(m_desk.on("loadini"));
    m_desk.hands.awaitDialog("Select a Show");
    m_desk.hands.type("Club Night");
    m_desk.hands.key("Return");
    m_desk.hands.await("the show", [this] { return m_desk.isAtRest(); });
    QVERIFY(m_desk.hands.play());
    QCOMPARE(m_desk.space.window().windowTitle(), QString("Zarvex - Club Night"));
    QCOMPARE(combo("combobox")->count(), 9);
}

void TestRoad::buttonsLieOnPads()
{
    m_desk.hands.pick(combo("combobox"), 3);
    const QList<int> buttons = {Home, Crowd, Ceiling, FanOut};
    for (int i = 0; i < buttons.size(); ++i)
        drag(m_desk.pads(), i, 0, buttons.at(i));
    QVERIFY(m_desk.hands.play());
    QCOMPARE(Desk::filled(m_desk.pads()), QString("0,0=Home 1,0=Crowd 2,0=Ceiling 3,0=Fan Out"));
    QCOMPARE(m_desk.foreignCell(m_desk.pads()), QString());
    QCOMPARE(m_desk.space.ticked(), buttons);
}

void TestRoad::padsAreSwappedAndRenamed()
{
    m_desk.hands.beginDrag(m_desk.pads(), Places::cell(m_desk.pads(), 0));
    m_desk.hands.dragOver(Places::cell(m_desk.pads(), 1));
    m_desk.hands.release();
    m_desk.hands.doubleClick(Places::cell(m_desk.pads(), 3));
    m_desk.hands.await("the editor", [this] { return m_desk.pads()->viewport()->findChild<QLineEdit *>(); });
    m_desk.hands.key("ctrl+a");
    m_desk.hands.type("big finale");
    m_desk.hands.key("Return");
    QVERIFY(m_desk.hands.play());
    QTRY_COMPARE_WITH_TIMEOUT(Desk::filled(m_desk.pads()),
                              QString("0,0=Crowd 1,0=Home 2,0=Ceiling 3,0=big finale"), Patience);
    QCOMPARE(m_desk.foreignCell(m_desk.pads()), QString());
}

void TestRoad::secondBankHasItsOwn()
{
    m_desk.hands.pick(combo("bankcombo"), 1);
    m_desk.hands.pick(combo("combobox"), 1);
    drag(m_desk.pads(), 8, 0, Red);
    drag(m_desk.pads(), 10, 0, Green);
    drag(m_desk.pads(), 12, 0, Blue);
    drag(m_desk.pads(), 14, 0, Violet);
    QVERIFY(m_desk.hands.play());
    QCOMPARE(Desk::filled(m_desk.pads()), QString(PadsOfTheEvening));
    QCOMPARE(m_desk.space.ticked(), QList<int>({Red, Green, Blue, Violet, Home, Crowd, Ceiling, FanOut}));
}

void TestRoad::pageIsExported()
{
    QVERIFY(exportAs("Pads Page OS2L DMX is created."));
    const QByteArray page = bytesOf(m_desk.space.padsFolder() + "/OS2L DMX.xml");
    for (const char *clause :
         {"dmxbank&apos; 0 ? get_text &apos;Crowd&apos;", "dmxbank&apos; 0 ? get_text &apos;big finale&apos;",
          "dmxbank&apos; 0 ? os2l_button &apos;Fan Out&apos;",
          "dmxbank&apos; 1 ? os2l_button &apos;Violet&apos;", "cycle &apos;dmxbank&apos; 2"})
        QVERIFY2(page.contains(clause), clause);
}

void TestRoad::buttonsLieOnKeys()
{
    m_desk.hands.click(m_desk.on("radio_outputmidi"));
    m_desk.hands.await("the keys", [this] { return m_desk.grid()->isVisible(); });
    const QList<int> buttons = {Red, Green, Blue, Violet};
    for (int i = 0; i < buttons.size(); ++i)
        drag(m_desk.grid(), 2, 2 + i, buttons.at(i));
    QVERIFY(m_desk.hands.play());
    QCOMPARE(m_desk.space.window().width(), 1366);
    QCOMPARE(Desk::filled(m_desk.grid()), QString(KeysOfTheEvening));
    QCOMPARE(m_desk.foreignCell(m_desk.grid()), QString());
    QCOMPARE(m_desk.space.ticked(), buttons);
}

void TestRoad::keyIsLitRedAndBlinks()
{
    m_desk.hands.click(Places::cell(m_desk.grid(), 2, 2), 3);
    m_desk.hands.openSubmenu("On Color");
    m_desk.hands.pickEntry(" red");
    m_desk.hands.awaitNoPopup();
    m_desk.hands.click(Places::cell(m_desk.grid(), 2, 2), 3);
    m_desk.hands.pickEntry("Blink");
    m_desk.hands.awaitNoPopup();
    m_desk.hands.click(Places::cell(m_desk.grid(), 2, 2), 3);
    m_desk.hands.openSubmenu("On Color");
    m_desk.hands.await("the menus with their ticks", [] {
        return openMenus()
               == QList<QStringList>{{"Remove", "-", "Off Color", "On Color", "Blink*", "-", "Set as Switch"},
                                     {" default", "-", " black", " green", "✔red", " yellow"}};
    });
    m_desk.hands.keys("Escape Escape");
    m_desk.hands.awaitNoPopup();
    QVERIFY(m_desk.hands.play());
}

void TestRoad::keyIsTheSwitch()
{
    m_desk.hands.click(Places::cell(m_desk.grid(), 3, 11), 3);
    m_desk.hands.pickEntry("Set as Switch");
    m_desk.hands.awaitNoPopup();
    QVERIFY(m_desk.hands.play());
    QCOMPARE(m_desk.space.grid()->index(3, 11).data().toString(), QString("SWITCH"));
}

void TestRoad::mapperIsExported()
{
    m_desk.hands.pick(combo("mididevices"), 1);
    QVERIFY(exportAs("Mapping OS2L DMX for AKAI APC Mini is created."));
    const QByteArray mapper = bytesOf(m_desk.space.mappersFolder() + "/AKAI APC Mini - OS2L DMX mapping.xml");
    for (
        const char *row :
        {"\"ROW1_PAD1\" action=\"var &apos;$os2l&apos; ? os2l_button &apos;Red&apos; : ",
         "\"LED_ROW1_PAD1\" action=\"var &apos;$os2l&apos; ? os2l_button &apos;Red&apos; ? blink ? color &apos;red&apos; : "
         "color &apos;yellow&apos; : color &apos;yellow&apos; : ",
         "\"ROW8_PAD8\" action=\"var &apos;$os2l&apos; ? nothing : ",
         "\"SOLO\" action=\"toggle &apos;$os2l&apos;\"",
         "\"SLIDER1\" action=\"var &apos;$os2l&apos; ? os2l_cmd 1 : "})
        QVERIFY2(mapper.contains(row), row);
}

void TestRoad::secondDeviceKeepsTheKeys()
{
    const QString keys = Desk::filled(m_desk.grid());
    m_desk.hands.pick(combo("devicescombo"), combo("devicescombo")->findText("Novation Launchpad MKII"));
    QVERIFY(m_desk.hands.play());
    QCOMPARE(Desk::filled(m_desk.grid()), keys);
    QCOMPARE(combo("mididevices")->currentText(), QString("Simple OS2L mapping"));
}

void TestRoad::anyColourIsTyped()
{
    m_desk.hands.click(Places::cell(m_desk.grid(), 2, 3), 3);
    m_desk.hands.openSubmenu("Off Color");
    m_desk.hands.pickEntry("Select ...");
    m_desk.hands.awaitDialog("Choose a Color");
    m_desk.hands.keys("alt+h ctrl+a");
    m_desk.hands.type("#3060C0");
    m_desk.hands.key("Return");
    m_desk.hands.await("the dialog closes", [this] { return m_desk.isAtRest(); });
    QVERIFY(m_desk.hands.play());
    QCOMPARE(m_desk.space.grid()->index(2, 3).data(OffColorRole).toString(), QString("#3060c0"));
}

void TestRoad::secondMapperIsExported()
{
    QVERIFY(exportAs("Mapping OS2L DMX for Novation Launchpad MKII is created."));
    const QByteArray mapper =
        bytesOf(m_desk.space.mappersFolder() + "/Novation Launchpad MKII - OS2L DMX mapping.xml");
    for (const char *row :
         {"\"PAD_1_1\" action=\"os2l_button &apos;Red&apos;\"",
          "\"LED_PAD_1_2\" action=\"os2l_button &apos;Green&apos; ? color &apos;#00d038&apos; : color "
          "&apos;#3060c0&apos;\"",
          "\"PAD_8_8\" action=\"nothing\""})
        QVERIFY2(mapper.contains(row), row);
}

void TestRoad::keysAndPadsAreSaved()
{
    QVERIFY(save("Club keys"));
    m_desk.hands.click(m_desk.on("radio_outputpage"));
    QVERIFY(m_desk.hands.play());
    QCOMPARE(m_desk.space.window().width(), 650);
    QVERIFY(save("Club pads"));
    const QString folder = m_desk.space.documents() + "/Zarvex/projects/";
    QCOMPARE(bytesOf(folder + "Club keys.zarvex").count("<key "), 144);
    QVERIFY(bytesOf(folder + "Club keys.zarvex").contains("switch=\"3,11\""));
    QCOMPARE(bytesOf(folder + "Club pads.zarvex").count("<key "), 128);
    QVERIFY(bytesOf(folder + "Club pads.zarvex").contains("name=\"big finale\" dspname=\"Fan Out\""));
}

void TestRoad::newProjectIsEmpty()
{
    m_desk.hands.click(Places::menuTitle(&m_desk.space.window(), "File"));
    m_desk.hands.pickEntry("New Project");
    m_desk.hands.await("the pads are empty", [this] { return Desk::filled(m_desk.pads()).isEmpty(); });
    QVERIFY(m_desk.hands.play());
    QCOMPARE(m_desk.space.leftOnPads(), QString());
    QCOMPARE(m_desk.space.leftOnGrid(), QString());
    QCOMPARE(m_desk.ticks(), QString());
}

void TestRoad::keysAreBack()
{
    m_desk.hands.click(Places::menuTitle(&m_desk.space.window(), "File"));
    m_desk.hands.pickEntry("Load Project");
    m_desk.hands.awaitDialog("Select a Zarvex Project");
    m_desk.hands.type("Club keys.zarvex");
    m_desk.hands.key("Return");
    m_desk.hands.await("the project", [this] { return m_desk.isAtRest() && m_desk.grid()->isVisible(); });
    QVERIFY(m_desk.hands.play());
    QCOMPARE(Desk::filled(m_desk.grid()), QString(KeysOfTheEvening));
    QCOMPARE(m_desk.space.grid()->index(3, 11).data().toString(), QString("SWITCH"));
    QCOMPARE(m_desk.space.grid()->index(2, 2).data(BlinkRole).toString(), QString("1"));
    QCOMPARE(m_desk.space.grid()->index(2, 3).data(OffColorRole).toString(), QString("#3060c0"));
    QCOMPARE(m_desk.space.ticked(), QList<int>({Red, Green, Blue, Violet}));
}

void TestRoad::padsAreBack()
{
    m_desk.hands.click(Places::menuTitle(&m_desk.space.window(), "File"));
    m_desk.hands.pickEntry("Load Project");
    m_desk.hands.awaitDialog("Are you sure you want to load a Project before saving current ?");
    m_desk.hands.click(Places::dialogButton("Yes"));
    m_desk.hands.awaitDialog("Select a Zarvex Project");
    m_desk.hands.type("Club pads.zarvex");
    m_desk.hands.key("Return");
    m_desk.hands.await("the project", [this] { return m_desk.isAtRest() && !m_desk.grid()->isVisible(); });
    QVERIFY(m_desk.hands.play());
    QCOMPARE(Desk::filled(m_desk.pads()), QString(PadsOfTheEvening));
    QCOMPARE(m_desk.foreignCell(m_desk.pads()), QString());
    QCOMPARE(m_desk.space.ticked(), QList<int>({Red, Green, Blue, Violet, Home, Crowd, Ceiling, FanOut}));
}

void TestRoad::programTellsAboutItself()
{
    m_desk.hands.click(Places::menuTitle(&m_desk.space.window(), "Help"));
    m_desk.hands.pickEntry("About");
    m_desk.hands.awaitDialog("Zarvex - About");
    m_desk.hands.key("Escape");
    m_desk.hands.await("the dialog closes", [this] { return m_desk.isAtRest(); });
    QVERIFY(m_desk.hands.play());
}

void TestRoad::leavingIsAskedFor()
{
    m_desk.hands.closeWindow();
    m_desk.hands.awaitDialog("Project is not empty.");
    m_desk.hands.click(Places::dialogButton("Cancel"));
    m_desk.hands.await("the window stays", [this] { return m_desk.isAtRest(); });
    m_desk.hands.closeWindow();
    m_desk.hands.awaitDialog("Project is not empty.");
    m_desk.hands.click(Places::dialogButton("Yes"));
    m_desk.hands.await("the window closes", [this] { return !m_desk.space.window().isVisible(); });
    QVERIFY(m_desk.hands.play());
}

QTEST_MAIN(TestRoad)
#include "test_road.moc"

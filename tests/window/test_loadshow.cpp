#include "support/boxes.h"
#include "support/devices.h"
#include "support/files.h"
#include "support/processortime.h"
#include "support/texts.h"
#include "support/workspace.h"

#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

namespace {

/** What the gate of the export answers; it knows whether a show is loaded. */
bool exportSays(Workspace &space, const Boxes::Box &box)
{
    space.dialogs.expect(box);
    space.trigger("actionExport");
    return space.dialogs.faults().isEmpty();
}

/** What a project keeps; it tells fields that no widget shows. */
QByteArray savedProject(Workspace &space)
{
    const QString path = space.home() + "/fields.zarvex";
    space.dialogs.expect(Boxes::projectSaved("fields"));
    return space.call("savemidiproject", path) ? bytesOf(path) : QByteArray();
}

/** The Live Buttons as "title|page|number|colour", the colour with its alpha in front. */
QStringList liveButtons(Workspace &space)
{
    QStringList buttons;
    for (int row = 0; row < space.dmx()->rowCount(); ++row) {
        const QModelIndex index = space.dmx()->index(row, 0);
        const auto color = index.data(Qt::DecorationRole).value<QColor>();
        buttons += QStringList{index.data().toString(), index.data(PageRole).toString(),
                               index.data(ButtonRole).toString(),
                               color.isValid() ? color.name(QColor::HexArgb) : "no colour"}
                       .join("|");
    }
    return buttons;
}

} // namespace

/** From "Load DMX Show" to the tables: the folder, live.ini, and what is thrown away. */
class TestLoadShow final : public QObject
{
    Q_OBJECT

private slots:
    void showIsNamedAfterItsFolder_data();
    void showIsNamedAfterItsFolder();
    void noShowChosen_data();
    void noShowChosen();
    void settingsThatCannotBeOpenedLeaveTheNewName();
    void settingsThatCannotBeOpenedCountAsLoaded();
    void loadsByName();
    void badPathLeavesEverything_data();
    void badPathLeavesEverything();
    void replacesWork();
    void readsSettings_data();
    void readsSettings();
    void readsSixtyThousandButtons();
};

void TestLoadShow::showIsNamedAfterItsFolder_data()
{
    QTest::addColumn<QString>("folder");
    QTest::newRow("full stops") << "Club v1.2.show";
    QTest::newRow("letters beyond ASCII") << QString::fromUtf8("Łódź – noc");
    QTest::newRow("signs that scripts and markup quote") << "Anna's Show & more";
    if (AnySignNamesFiles)
        QTest::newRow("tags") << "<b>Show <more>";
}

void TestLoadShow::showIsNamedAfterItsFolder()
{
    QFETCH(const QString, folder);
    Workspace space;
    QCOMPARE(space.window().windowTitle(), Texts::Program);
    space.dialogs.expect(Boxes::showDialog(space, space.writeShow(folder, Workspace::iniWith({3}))));
    QVERIFY(space.ask<bool>("loadshow"));
    QCOMPARE(space.dialogs.faults(), QString());
    QCOMPARE(space.window().windowTitle(), Texts::title(folder));
    QCOMPARE(space.dmx()->rowCount(), 3);
}

void TestLoadShow::noShowChosen_data()
{
    QTest::addColumn<QString>("show"); // below the home folder; empty cancels
    QTest::addColumn<QString>("file"); // that is there
    QTest::newRow("cancelled") << ""
                               << "/Show/Live/live.ini";
    QTest::newRow("empty folder") << "/Show"
                                  << "";
    QTest::newRow("settings beside the Live folder") << "/Show"
                                                     << "/Show/live.ini";
    QTest::newRow("other file in the Live folder") << "/Show"
                                                   << "/Show/Live/live.ini.bak";
}

void TestLoadShow::noShowChosen()
{
    QFETCH(const QString, show);
    QFETCH(const QString, file);
    Workspace space;
    const QStringList before = space.snapshot();
    QVERIFY(QDir().mkpath(space.home() + "/Show/Live"));
    QVERIFY(file.isEmpty() || writeFile(space.home() + file, Workspace::iniWith({2})));
    space.dialogs.expect(Boxes::showDialog(space, show.isEmpty() ? show : space.home() + show));
    if (!show.isEmpty())
        space.dialogs.expect(Boxes::NoShowThere);
    QVERIFY(!space.ask<bool>("loadshow"));
    QCOMPARE(space.dialogs.faults(), QString());
    QCOMPARE(space.snapshot(), before);
    QVERIFY2(exportSays(space, Boxes::ExportWithoutShow), qPrintable(space.dialogs.faults()));
}

/** A folder of the settings' name exists and cannot be opened, whoever the user is. */
void TestLoadShow::settingsThatCannotBeOpenedLeaveTheNewName()
{
    Workspace space;
    QVERIFY2(space.loadSomeShow(), qPrintable(space.dialogs.faults()));
    QVERIFY(space.putOnPad(3, 4));
    const QStringList before = space.snapshot();
    QVERIFY(QDir().mkpath(space.home() + "/Locked/Live/live.ini"));
    space.dialogs.expect(Boxes::showDialog(space, space.home() + "/Locked"));
    QVERIFY(space.ask<bool>("loadshow"));
    QCOMPARE(space.dialogs.faults(), QString());
    QCOMPARE(space.snapshot(), before);

    // The new name is there nevertheless, beside the old settings, and the next reading by path tells it.
    const QByteArray project = savedProject(space);
    QVERIFY(project.contains(" showname=\"Locked\""));
    QVERIFY(project.contains("/Show/Live/live.ini\""));
    const QString path = space.writeShow("Other", Workspace::iniWith({2})) + "/Live/live.ini";
    QVERIFY(space.ask<bool>("loadshowname", path));
    QCOMPARE(space.window().windowTitle(), Texts::title("Locked"));
}

void TestLoadShow::settingsThatCannotBeOpenedCountAsLoaded()
{
    Workspace space;
    QVERIFY(QDir().mkpath(space.home() + "/Locked/Live/live.ini"));
    QVERIFY2(space.load(space.home() + "/Locked"), qPrintable(space.dialogs.faults()));
    QCOMPARE(space.window().windowTitle(), Texts::Program);
    QCOMPARE(space.find<QComboBox>("combobox")->count(), 0);
    QVERIFY2(exportSays(space, Boxes::ExportOfNothing), qPrintable(space.dialogs.faults()));
}

/** The reader sets no name: the title has an empty one, and no gate sees a show. */
void TestLoadShow::loadsByName()
{
    Workspace space;
    const QString path = space.writeShow("By Name", Workspace::iniWith({1, 2})) + "/Live/live.ini";
    QVERIFY(space.ask<bool>("loadshowname", path));
    QCOMPARE(Workspace::itemsOf(space.find<QComboBox>("combobox")),
             QStringList({Texts::AllPages, "Page 1", "Page 2"}));
    QCOMPARE(space.dmx()->rowCount(), 3);
    QCOMPARE(space.window().windowTitle(), Texts::title(""));
    QVERIFY2(exportSays(space, Boxes::ExportWithoutShow), qPrintable(space.dialogs.faults()));
}

void TestLoadShow::badPathLeavesEverything_data()
{
    QTest::addColumn<QString>("path"); // below the home folder
    QTest::newRow("missing file") << "/Show/Live/other.ini";
    QTest::newRow("a folder") << "/Show/Live";
    QTest::newRow("a serialised object in a value") << "/Hostile.ini";
#ifdef Q_OS_UNIX
    QTest::newRow("a pipe that nobody writes to") << "/Pipe";
#endif
}

void TestLoadShow::badPathLeavesEverything()
{
    QFETCH(const QString, path);
    Workspace space;
    QVERIFY2(space.loadSomeShow(), qPrintable(space.dialogs.faults()));
    QVERIFY(space.putOnPad(3, 12));
    QVERIFY(space.type("bankname", "Mine"));
    QVERIFY(space.choose("combobox", 2));
    QVERIFY(space.click("radio_outputmidi"));
    QVERIFY(space.pickOnKey(2, 2, {"Set as Switch"}));
    QVERIFY(writeFile(space.home() + "/Hostile.ini", "x=@Variant(\\x0\\x0\\x0\\x9\\x7f\\xff\\xff\\xff)"));
#ifdef Q_OS_UNIX
    QCOMPARE(mkfifo(QFile::encodeName(space.home() + "/Pipe").constData(), 0600), 0);
#endif
    const QStringList before = space.snapshot();
    QVERIFY(!space.ask<bool>("loadshowname", space.home() + path));
    QCOMPARE(space.snapshot(), before);
    QVERIFY(savedProject(space).contains(" switch=\"2,2\" "));
    QCOMPARE(space.dialogs.faults(), QString());
}

/** Assignments, names and the Switch go; the output, the layout and the device stay. */
void TestLoadShow::replacesWork()
{
    Workspace space;
    QVERIFY2(space.loadSomeShow(), qPrintable(space.dialogs.faults()));
    QVERIFY(space.click("radioButton_16pads"));
    QVERIFY(space.putOnPad(9, 12, 1));
    QVERIFY(space.type("bankname", "Mine"));
    QVERIFY(space.type("padsname", "My Page"));
    QVERIFY(space.click("radio_outputmidi"));
    QVERIFY(space.choose("devicescombo", Devices::S));
    QVERIFY(space.choose("mididevices", 1));
    QVERIFY(space.choose("combo_offcolor", 7));
    const QStringList keys = space.keys();
    QVERIFY(space.putOnKey(1, 5, 5));
    QVERIFY(space.pickOnKey(4, 7, {"Set as Switch"}));
    QVERIFY(space.choose("combobox", 2));

    space.dialogs.expect(Boxes::showOverWork(QMessageBox::Yes));
    const QString next = space.writeShow("Next", Workspace::iniWith({3, 2}));
    QVERIFY2(space.load(next), qPrintable(space.dialogs.faults()));
    QCOMPARE(space.leftOnPads() + space.leftOnGrid(), QString());
    QCOMPARE(space.ticked(), QList<int>());
    QCOMPARE(space.find<QComboBox>("combobox")->currentIndex(), 0);
    QCOMPARE(space.find<QLineEdit>("padsname")->text(), Texts::PageName);
    QCOMPARE(space.bankNames().join("|"), QString("BANK 1|BANK 2|BANK 3|BANK 4|BANK 5|BANK 6|BANK 7|BANK 8"));
    QCOMPARE(space.find<QComboBox>("bankcombo")->currentIndex(), 0);
    QVERIFY(savedProject(space).contains(" switch=\"-1,-1\" "));

    QVERIFY(space.gridView()->isVisible());
    QVERIFY(space.find<QRadioButton>("radioButton_16pads")->isChecked());
    QVERIFY(!space.padsView()->isColumnHidden(1));
    QCOMPARE(space.find<QComboBox>("devicescombo")->currentIndex(), Devices::S);
    QCOMPARE(space.find<QComboBox>("mididevices")->currentIndex(), 1);
    QCOMPARE(space.find<QComboBox>("combo_offcolor")->currentIndex(), 7);
    QCOMPARE(space.keys(), keys);
    QVERIFY2(exportSays(space, Boxes::ExportOfNothing), qPrintable(space.dialogs.faults()));
}

void TestLoadShow::readsSettings_data()
{
    QTest::addColumn<QByteArray>("ini");
    QTest::addColumn<QStringList>("pages"); // behind "All Pages"
    QTest::addColumn<QStringList>("buttons");
    const QStringList none;
    const QByteArray page = "[page]\nnumber=1\n[page1]\nname=Red, White\nnb_buttons=1\n[page1_button1]\n";
    const auto row = [](const char *name, const QByteArray &ini, const QStringList &pages,
                        const QStringList &buttons) { QTest::newRow(name) << ini << pages << buttons; };
    row("empty file", "", none, none);
    row("no number", "[page]\nname=x\n[page1]\nname=One\n", none, none);
    row("a page that is not there", "[page]\nnumber=2\n[page1]\nname=One\n", {"One", ""}, none);
    row("buttons that are not there", "[page]\nnumber=1\n[page1]\nname=One\nnb_buttons=2\n", {"One"},
        {"|1|0|#ffffffff", "|1|1|#ffffffff"});
    row("numbers run on",
        "[page]\nnumber=2\n[page1]\nname=One\nnb_buttons=1\n[page2]\nname=Two\nnb_buttons=1\n"
        "[page1_button1]\ntitle=A\ncolor=0\n[page2_button1]\ntitle=B\ncolor=16711680\n",
        {"One", "Two"}, {"A|1|0|#ff000000", "B|2|1|#ffff0000"});
    row("a page of its own", page + "title=Anna, Iza\npageid=7\ncheck=1\n", {"Red, White"},
        {"Anna, Iza|7|0|#ffffffff"});
    row("colour of seven digits", page + "title=A\ncolor=16777216\n", {"Red, White"}, {"A|1|0|no colour"});
    row("colour of eight digits", page + "title=A\ncolor=285147136\n", {"Red, White"}, {"A|1|0|#10ff0000"});
}

void TestLoadShow::readsSettings()
{
    QFETCH(const QByteArray, ini);
    QFETCH(const QStringList, pages);
    QFETCH(const QStringList, buttons);
    Workspace space;
    QVERIFY2(space.load(space.writeShow("Show", ini)), qPrintable(space.dialogs.faults()));
    QCOMPARE(space.window().windowTitle(), Texts::title("Show"));
    QCOMPARE(Workspace::itemsOf(space.find<QComboBox>("combobox")), QStringList(Texts::AllPages) + pages);
    QCOMPARE(space.find<QComboBox>("combobox")->currentIndex(), 0);
    QCOMPARE(liveButtons(space), buttons);
    QCOMPARE(space.ticked(), QList<int>());
    QVERIFY2(exportSays(space, Boxes::ExportOfNothing), qPrintable(space.dialogs.faults()));
}

void TestLoadShow::readsSixtyThousandButtons()
{
    constexpr int Deadline = 60000; // milliseconds; a tenth of it is plenty
    Workspace space;
    const QString folder = space.writeShow("Large", Workspace::iniWith({20000, 20000, 20000}));
    const ProcessorTime clock;
    QVERIFY2(space.load(folder), qPrintable(space.dialogs.faults()));
    QCOMPARE(space.dmx()->rowCount(), 60000);
    QCOMPARE(space.dmx()->index(59999, 0).data().toString(), QString("3-20000"));
    QVERIFY(space.choose("combobox", 3));
    QVERIFY(space.dmxView()->isRowHidden(39999));
    QVERIFY(!space.dmxView()->isRowHidden(40000));
    QVERIFY2(clock.elapsed() < Deadline, qPrintable(QString("%1 ms").arg(clock.elapsed())));
}

QTEST_MAIN(TestLoadShow)
#include "test_loadshow.moc"

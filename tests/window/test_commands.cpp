#include "support/boxes.h"
#include "support/files.h"
#include "support/workspace.h"

#include <QComboBox>
#include <QDesktopServices>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QScreen>

#include <optional>

// The library's macros have no place in a namespace.
static void initManual()
{
    Q_INIT_RESOURCE(manual);
}

static void cleanupManual()
{
    Q_CLEANUP_RESOURCE(manual);
}

namespace {

using Box = ExpectedDialogs::Box;

/** What the workspace holds before a command. */
struct Holding
{
    bool hasShow = false;
    bool hasPad = false; ///< Live Button 3 on the first pad
    bool hasKey = false; ///< Live Button 4 on the key "PAD 1"
    bool isMidi = false;
};

/** Brings the workspace there as a user would; pads and keys without a show are written by role. */
bool prepare(Workspace &space, const Holding &holding)
{
    if (holding.hasShow && !space.loadSomeShow())
        return false;
    if (holding.hasShow) {
        if (holding.hasPad && !space.putOnPad(3, 0))
            return false;
        if (holding.hasKey && !(space.click("radio_outputmidi") && space.putOnKey(4, 2, 2)))
            return false;
    } else {
        space.window();
        if (holding.hasPad)
            space.pads()->setData(space.pads()->index(0, 0), "3", ButtonRole);
        if (holding.hasKey)
            space.grid()->setData(space.grid()->index(2, 2), "4", ButtonRole);
    }
    const char *radio = holding.isMidi ? "radio_outputmidi" : "radio_outputpage";
    return (space.find<QRadioButton>(radio)->isChecked() || space.click(radio))
           && space.ask<bool>("isVDJempty") == !holding.hasPad
           && space.ask<bool>("isMIDIempty") == !holding.hasKey;
}

/** Presses a button or triggers an action of the menus. */
bool give(Workspace &space, const QByteArray &command)
{
    if (!command.startsWith("action"))
        return space.click(command);
    space.trigger(command);
    return true;
}

Box leavingWithWork(QMessageBox::StandardButton answer)
{
    return {"Project is not empty.", "Are you sure you want to exit ?",
            QMessageBox::Yes | QMessageBox::Cancel, QMessageBox::Cancel, answer};
}

QStringList filesBelow(const QString &folder)
{
    QStringList files;
    QDirIterator it(folder, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext())
        files += it.next();
    return files;
}

/** A pads project, named "Saturday", of the show of loadSomeShow(): Live Button 5 on the first pad. */
bool writeProject(const Workspace &space, const QString &path)
{
    const QString content =
        R"(<project type="pads" show="%1/Show/Live/live.ini" showname="Show" export="Saturday" >)"
        R"(<key row="0" column="0" name="x" dspname="x" pagenr="1" id="5" color="#ffffff" />)"
        "</project>";
    return writeFile(path, content.arg(space.home()).toUtf8());
}

/** Gives the program a manual among its resources, which it has none of, and takes it away again. */
class ManualInProgram final
{
public:
    ManualInProgram() { initManual(); }
    ~ManualInProgram() { cleanupManual(); }
    Q_DISABLE_COPY(ManualInProgram)
};

/** Takes the files that the desktop would open. */
class Desktop final : public QObject
{
    Q_OBJECT

public:
    Desktop() { QDesktopServices::setUrlHandler("file", this, "take"); }
    ~Desktop() override { QDesktopServices::unsetUrlHandler("file"); }

    QList<QUrl> opened;

public slots:
    void take(const QUrl &url) { opened += url; }
};

} // namespace

Q_DECLARE_METATYPE(Holding)

/** What the user does to the workspace as a whole, and what the program asks before work is lost. */
class TestCommands final : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { cleanupManual(); } // it came with the start of this test

    void modeSlot_data();
    void modeSlot();
    void modeByClicks();
    void wideWindowMovesLeft();
    void firstClickRenamesLabel_data();
    void firstClickRenamesLabel();
    void modeKeepsOtherPanels();
    void gridLiesOverPads();
    void modeChangesTicksAlone();
    void modeTicksHiddenRows();
    void modeNeedsNoShow();
    void modeSelectsFirstLiveButton();

    void newProjectClearsBothTables_data();
    void newProjectClearsBothTables();
    void newProjectKeepsShow();
    void newProjectReturnsToFirstBank();
    void newProjectWithoutShow();
    void newProjectMovesFocus();

    void nothingToDo_data();
    void nothingToDo();
    void exportPadsPage_data();
    void exportPadsPage();
    void exportMapping();

    void saveCancelled_data();
    void saveCancelled();
    void saveToNewFile_data();
    void saveToNewFile();
    void startsAtHome_data();
    void startsAtHome();
    void saveOverFile_data();
    void saveOverFile();

    void loadProjectWithoutWork_data();
    void loadProjectWithoutWork();
    void loadProjectOverWork_data();
    void loadProjectOverWork();
    void loadProjectAfterRefusedOverwrite();
    void loadProjectReplacesWork_data();
    void loadProjectReplacesWork();
    void loadProjectOfMissingShow();
    void loadedProjectIsWork();

    void leaving_data();
    void leaving();
    void leavingAsksEveryTime();
    void exitAsksOnce();
    void exitForgetsTheShow_data();
    void exitForgetsTheShow();
    void typedNamesAreNoWork();
    void emptiedWorkIsNoWork();
    void savedWorkIsStillWork();

    void manualOpens_data();
    void manualOpens();
    void manualInFolderIsKept();
    void manualWithoutFolder();
};

void TestCommands::modeSlot_data()
{
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<QByteArray>("checked");
    QTest::addColumn<bool>("showsPads");
    QTest::addColumn<int>("groupBoxWidth");
    QTest::addColumn<int>("windowWidth");
    QTest::addColumn<QString>("label");
    QTest::addColumn<QList<int>>("ticked");

    const QByteArray page = "radio_outputpage";
    const QByteArray midi = "radio_outputmidi";
    QTest::newRow("Pad Page, checked") << QByteArray("on_radio_outputpage_clicked") << page << true << 341
                                       << 650 << "Pads Page" << QList<int>{3};
    QTest::newRow("Pad Page, not checked") << QByteArray("on_radio_outputpage_clicked") << midi << false
                                           << 1071 << 1365 << "MIDI Mapping" << QList<int>{4};
    QTest::newRow("MIDI Mapping, checked") << QByteArray("on_radio_outputmidi_clicked") << midi << false
                                           << 1071 << 1366 << "MIDI Mapping" << QList<int>{4};
    QTest::newRow("MIDI Mapping, not checked") << QByteArray("on_radio_outputmidi_clicked") << page << true
                                               << 341 << 650 << "Pads Page" << QList<int>{3};
}

void TestCommands::modeSlot()
{
    QFETCH(const QByteArray, slot);
    QFETCH(const QByteArray, checked);
    QFETCH(const bool, showsPads);
    QFETCH(const int, groupBoxWidth);
    QFETCH(const int, windowWidth);
    QFETCH(const QString, label);
    QFETCH(const QList<int>, ticked);
    Workspace space;
    QVERIFY(prepare(space, {true, true, true, showsPads})); // from the other mode
    space.find<QRadioButton>(checked)->setChecked(true);
    QVERIFY(space.call(slot));

    QCOMPARE(space.find<QWidget>("groupBox_pads")->isVisible(), showsPads);
    QCOMPARE(space.find<QWidget>("groupBox_midis")->isVisible(), !showsPads);
    QCOMPARE(space.find<QWidget>("groupBox_controller")->isVisible(), !showsPads);
    QCOMPARE(space.find<QWidget>("groupBox")->geometry(), QRect(290, 30, groupBoxWidth, 51));
    QCOMPARE(space.window().minimumWidth(), windowWidth);
    QCOMPARE(space.window().maximumWidth(), windowWidth);
    QTRY_COMPARE(space.window().size(), QSize(windowWidth, 606));
    QCOMPARE(space.find<QLabel>("label_padname")->text(), label);
    QCOMPARE(space.ticked(), ticked);
    QVERIFY(space.find<QRadioButton>(checked)->isChecked());
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestCommands::modeByClicks()
{
    Workspace space;
    const auto *label = space.find<QLabel>("label_padname");
    QCOMPARE(label->text(), QString("Pad Page"));
    QCOMPARE(space.window().width(), 650);
    for (int round = 0; round < 2; ++round) {
        QVERIFY(space.click("radio_outputmidi"));
        QTRY_COMPARE(space.window().width(), 1366);
        QCOMPARE(label->text(), QString("MIDI Mapping"));
        QVERIFY(space.click("radio_outputpage"));
        QTRY_COMPARE(space.window().width(), 650);
        QCOMPARE(label->text(), QString("Pads Page"));
    }
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestCommands::wideWindowMovesLeft()
{
    Workspace space;
    const QRect room = space.window().screen()->availableGeometry();
    QVERIFY(room.width() < 1366); // so that it goes as far as the left end, and no further
    space.window().move(room.left() + 90, 40);
    QVERIFY(space.click("radio_outputmidi"));
    QCOMPARE(space.window().pos(), QPoint(room.left(), 40));
    QVERIFY(space.click("radio_outputpage"));
    QCOMPARE(space.window().pos(), QPoint(room.left(), 40));
}

void TestCommands::firstClickRenamesLabel_data()
{
    QTest::addColumn<QString>("label");
    QTest::newRow("radio_outputpage") << "Pads Page";
    QTest::newRow("radio_outputmidi") << "MIDI Mapping";
}

void TestCommands::firstClickRenamesLabel()
{
    QFETCH(const QString, label);
    Workspace space;
    const auto *padName = space.find<QLabel>("label_padname");
    QCOMPARE(padName->text(), QString("Pad Page"));
    QVERIFY(space.click(QTest::currentDataTag()));
    QCOMPARE(padName->text(), label);

    // It never reads "Pad Page" again.
    QVERIFY(space.click("radio_outputpage"));
    QCOMPARE(padName->text(), QString("Pads Page"));
    space.trigger("actionNew_2");
    QVERIFY(space.loadSomeShow());
    QVERIFY(space.call("setstyles"));
    QCOMPARE(padName->text(), QString("Pads Page"));
}

void TestCommands::modeKeepsOtherPanels()
{
    Workspace space;
    for (const char *radio : {"radio_outputmidi", "radio_outputpage"}) {
        QVERIFY(space.click(radio));
        for (const char *name : {"groupBox_2", "groupBox_3", "vdjlistview", "dmxlistview", "padsname",
                                 "label_padname", "loadini", "pushButton_2"})
            QVERIFY2(space.find<QWidget>(name)->isVisible(), name);
    }
    QCOMPARE(space.find<QWidget>("groupBox_3")->geometry(), QRect(290, 175, 341, 296));
}

void TestCommands::gridLiesOverPads()
{
    Workspace space;
    QVERIFY(space.click("radio_outputmidi"));
    const auto *controller = space.find<QGroupBox>("groupBox_controller");
    const QPoint overPads = space.find<QWidget>("groupBox_3")->geometry().center();
    QVERIFY(controller->isAncestorOf(space.find<QWidget>("centralWidget")->childAt(overPads)));
}

void TestCommands::modeChangesTicksAlone()
{
    Workspace space;
    QVERIFY(prepare(space, {true, true, true, false}));
    QCOMPARE(space.ticked(), QList<int>{3});
    const QStringList before = space.snapshot();
    QVERIFY(space.click("radio_outputmidi"));
    QCOMPARE(space.ticked(), QList<int>{4});
    QVERIFY(!space.ask<bool>("isVDJempty"));
    QVERIFY(!space.ask<bool>("isMIDIempty"));
    QVERIFY(space.click("radio_outputpage"));
    QCOMPARE(space.ticked(), QList<int>{3});
    QCOMPARE(space.snapshot(), before);
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestCommands::modeTicksHiddenRows()
{
    Workspace space;
    QVERIFY(prepare(space, {true, true, true, false}));
    QVERIFY(space.choose("combobox", 2));
    QVERIFY(space.dmxView()->isRowHidden(3));
    QVERIFY(space.click("radio_outputmidi"));
    QCOMPARE(space.ticked(), QList<int>{4});
    QVERIFY(space.click("radio_outputpage"));
    QCOMPARE(space.ticked(), QList<int>{3});
}

void TestCommands::modeNeedsNoShow()
{
    Workspace space;
    const QStringList before = space.snapshot();
    QVERIFY(space.click("radio_outputmidi"));
    QVERIFY(space.click("radio_outputpage"));
    QCOMPARE(space.snapshot(), before);
    QVERIFY(!space.dmxView()->currentIndex().isValid());
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestCommands::modeSelectsFirstLiveButton()
{
    Workspace space;
    QVERIFY(space.loadSomeShow());
    space.dmxView()->setCurrentIndex(space.dmx()->index(5, 0));
    QVERIFY(space.click("radio_outputmidi"));
    QCOMPARE(space.dmxView()->currentIndex(), space.dmx()->index(0, 0));
}

void TestCommands::newProjectClearsBothTables_data()
{
    QTest::addColumn<Holding>("holding");
    QTest::newRow("pads in Pads Page mode") << Holding{true, true, false, false};
    QTest::newRow("keys in MIDI Mapping mode") << Holding{true, false, true, true};
    QTest::newRow("both, Pads Page mode") << Holding{true, true, true, false};
    QTest::newRow("both, MIDI Mapping mode") << Holding{true, true, true, true};
    QTest::newRow("nothing") << Holding{true, false, false, false};
    QTest::newRow("both without a show") << Holding{false, true, true, false};
}

void TestCommands::newProjectClearsBothTables()
{
    QFETCH(const Holding, holding);
    Workspace space;
    QVERIFY(prepare(space, holding));
    const QStringList keys = space.keys();
    space.trigger("actionNew_2");

    QCOMPARE(space.leftOnPads(), QString());
    QCOMPARE(space.leftOnGrid(), QString());
    QCOMPARE(space.keys(), keys);
    QCOMPARE(space.ticked(), QList<int>());
    QCOMPARE(space.find<QRadioButton>("radio_outputmidi")->isChecked(), holding.isMidi);
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestCommands::newProjectKeepsShow()
{
    Workspace space;
    QVERIFY(prepare(space, {true, true, true, false}));
    space.trigger("actionNew_2");
    QCOMPARE(space.dmx()->rowCount(), 16);
    QCOMPARE(space.find<QComboBox>("combobox")->count(), 3);
    QCOMPARE(space.window().windowTitle(), QString("Zarvex - Show"));
    space.dialogs.expect(Box{"Nothing to Export. Pads are empty", {}});
    QVERIFY(space.click("pushButton_2"));
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestCommands::newProjectReturnsToFirstBank()
{
    Workspace space;
    QVERIFY(space.loadSomeShow());
    QVERIFY(space.choose("bankcombo", 4));
    QVERIFY(space.type("bankname", "Verse"));
    QVERIFY(space.type("padsname", "Friday"));
    const QStringList names{"BANK 1", "BANK 2", "BANK 3", "BANK 4", "Verse", "BANK 6", "BANK 7", "BANK 8"};
    QCOMPARE(space.bankNames(), names);
    space.trigger("actionNew_2");

    QCOMPARE(space.find<QComboBox>("bankcombo")->currentIndex(), 0);
    QCOMPARE(space.find<QLineEdit>("bankname")->text(), QString("BANK 1"));
    for (int row = 0; row < 64; ++row)
        QCOMPARE(space.padsView()->isRowHidden(row), row >= 8);
    QCOMPARE(space.bankNames(), names);
    QCOMPARE(space.find<QLineEdit>("padsname")->text(), QString("Friday"));
}

void TestCommands::newProjectWithoutShow()
{
    Workspace space;
    const QStringList before = space.snapshot();
    QSignalSpy padsGone(space.pads(), &QAbstractItemModel::rowsRemoved);
    QSignalSpy gridGone(space.grid(), &QAbstractItemModel::rowsRemoved);
    space.trigger("actionNew_2");
    QVERIFY(!padsGone.isEmpty());
    QVERIFY(!gridGone.isEmpty());
    QCOMPARE(space.snapshot(), before);
    QCOMPARE(space.window().windowTitle(), QString("Zarvex"));
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestCommands::newProjectMovesFocus()
{
    Workspace space;
    QVERIFY(prepare(space, {true, true, false, false}));
    space.dmxView()->setCurrentIndex(space.dmx()->index(5, 0));
    space.padsView()->setFocus();
    space.trigger("actionNew_2");
    QCOMPARE(space.window().focusWidget(), space.dmxView());
    QCOMPARE(space.dmxView()->currentIndex(), space.dmx()->index(0, 0));
}

void TestCommands::nothingToDo_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<Holding>("holding");
    QTest::addColumn<QString>("text");

    for (const char *command : {"pushButton_2", "actionExport", "actionSave_2"}) {
        const QByteArray name(command);
        const QString verb = name == "actionSave_2" ? "Save" : "Export";
        const QString noShow = "Nothing to " + verb + ". Load a Show";
        const QString empty = "Nothing to " + verb + ". Pads are empty";
        QTest::newRow(name + ": no show") << name << Holding{false, false, false, false} << noShow;
        QTest::newRow(name + ": no show, MIDI Mapping")
            << name << Holding{false, false, false, true} << noShow;
        QTest::newRow(name + ": no show, filled pad") << name << Holding{false, true, false, false} << noShow;
        QTest::newRow(name + ": no show, filled key") << name << Holding{false, false, true, true} << noShow;
        QTest::newRow(name + ": empty pads") << name << Holding{true, false, false, false} << empty;
        QTest::newRow(name + ": empty grid, MIDI Mapping")
            << name << Holding{true, false, false, true} << empty;
        QTest::newRow(name + ": empty pads, filled key")
            << name << Holding{true, false, true, false} << empty;
        QTest::newRow(name + ": empty grid, filled pad, MIDI Mapping")
            << name << Holding{true, true, false, true} << empty;
    }
}

void TestCommands::nothingToDo()
{
    QFETCH(const QByteArray, command);
    QFETCH(const Holding, holding);
    QFETCH(const QString, text);
    Workspace space;
    QVERIFY(prepare(space, holding));
    const QStringList before = space.snapshot();
    space.dialogs.expect(Box{text, {}});
    QVERIFY(give(space, command));
    QCOMPARE(space.dialogs.faults(), QString());
    QCOMPARE(space.snapshot(), before);
    QCOMPARE(filesBelow(space.documents()), QStringList());
}

void TestCommands::exportPadsPage_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<Holding>("holding");
    QTest::newRow("button") << QByteArray("pushButton_2") << Holding{true, true, false, false};
    QTest::newRow("menu") << QByteArray("actionExport") << Holding{true, true, false, false};
    QTest::newRow("menu, a filled key too") << QByteArray("actionExport") << Holding{true, true, true, false};
}

void TestCommands::exportPadsPage()
{
    QFETCH(const QByteArray, command);
    QFETCH(const Holding, holding);
    Workspace space;
    QVERIFY(prepare(space, holding));
    space.dialogs.expect(Boxes::pageCreated("OS2L DMX"));
    QVERIFY(give(space, command));
    QCOMPARE(space.dialogs.faults(), QString());
    QCOMPARE(filesBelow(space.documents()), QStringList{space.padsFolder() + "/OS2L DMX.xml"});
}

void TestCommands::exportMapping()
{
    Workspace space;
    QVERIFY(prepare(space, {true, false, true, true}));
    const QString device = space.find<QComboBox>("devicescombo")->currentText();
    space.dialogs.expect(Boxes::mappingCreated("OS2L DMX", device));
    QVERIFY(give(space, "pushButton_2"));
    QCOMPARE(space.dialogs.faults(), QString());
    QCOMPARE(filesBelow(space.documents()),
             QStringList{space.mappersFolder() + "/" + device + " - OS2L DMX mapping.xml"});
}

void TestCommands::saveCancelled_data()
{
    QTest::addColumn<Holding>("holding");
    QTest::newRow("Pads Page") << Holding{true, true, false, false};
    QTest::newRow("MIDI Mapping") << Holding{true, false, true, true};
}

void TestCommands::saveCancelled()
{
    QFETCH(const Holding, holding);
    Workspace space;
    QVERIFY(prepare(space, holding));
    const QStringList before = space.snapshot();
    space.dialogs.expect(Boxes::saveDialog(space, {}));
    space.trigger("actionSave_2");
    QCOMPARE(space.dialogs.faults(), QString());
    QCOMPARE(space.snapshot(), before);
    QCOMPARE(filesBelow(space.documents()), QStringList());
}

void TestCommands::saveToNewFile_data()
{
    saveCancelled_data();
}

void TestCommands::saveToNewFile()
{
    QFETCH(const Holding, holding);
    Workspace space;
    QVERIFY(prepare(space, holding));
    const QStringList before = space.snapshot();
    const QString path = space.documents() + "/Zarvex/projects/Night.zarvex";
    space.dialogs.expect(Boxes::saveDialog(space, path));
    space.dialogs.expect(Boxes::projectSaved("Night"));
    space.trigger("actionSave_2");
    QCOMPARE(space.dialogs.faults(), QString());
    QCOMPARE(space.snapshot(), before);
    QCOMPARE(filesBelow(space.documents()), QStringList{path});
    QVERIFY(bytesOf(path).contains(holding.isMidi ? " type=\"midi\" " : " type=\"pads\" "));
}

void TestCommands::startsAtHome_data()
{
    QTest::addColumn<QByteArray>("action");
    QTest::addColumn<QString>("caption");
    QTest::newRow("save") << QByteArray("actionSave_2") << "Save your Zarvex Project";
    QTest::newRow("load") << QByteArray("actionLoad_Project") << "Select a Zarvex Project";
}

/** Where there are no documents. */
void TestCommands::startsAtHome()
{
    QFETCH(const QByteArray, action);
    QFETCH(const QString, caption);
    Workspace space;
    QVERIFY(QDir(space.documents()).removeRecursively());
    QVERIFY(prepare(space, {true, true, false, false}));
    if (action == "actionLoad_Project") {
        space.dialogs.expect(Boxes::projectOverWork(QMessageBox::Yes));
        space.dialogs.tolerate("Failed to load the Project's Show.");
    }
    space.dialogs.expect(ExpectedDialogs::File{caption, space.home(), {}});
    space.trigger(action);
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestCommands::saveOverFile_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("name");
    QTest::addColumn<Holding>("holding");
    QTest::addColumn<QMessageBox::StandardButton>("answer");

    const Holding pads{true, true, false, false};
    const Holding keys{true, false, true, true};
    QTest::newRow("No") << "Night.zarvex"
                        << "Night" << pads << QMessageBox::No;
    QTest::newRow("No, MIDI Mapping") << "Night.zarvex"
                                      << "Night" << keys << QMessageBox::No;
    QTest::newRow("Escape") << "Night.zarvex"
                            << "Night" << pads << QMessageBox::NoButton;
    QTest::newRow("Yes") << "Night.zarvex"
                         << "Night" << pads << QMessageBox::Yes;
    QTest::newRow("Yes, MIDI Mapping") << "Night.zarvex"
                                       << "Night" << keys << QMessageBox::Yes;
    QTest::newRow("base name ends at the first dot") << "my.show.zarvex"
                                                     << "my" << pads << QMessageBox::No;
    QTest::newRow("no extension") << "Night"
                                  << "Night" << pads << QMessageBox::No;
    QTest::newRow("blanks and signs") << "Me & you.zarvex"
                                      << "Me & you" << pads << QMessageBox::No;
}

void TestCommands::saveOverFile()
{
    QFETCH(const QString, file);
    QFETCH(const QString, name);
    QFETCH(const Holding, holding);
    QFETCH(const QMessageBox::StandardButton, answer);
    Workspace space;
    QVERIFY(prepare(space, holding));
    const QString path = space.documents() + "/Zarvex/projects/" + file;
    QVERIFY(writeFile(path, "somebody's work"));

    space.dialogs.expect(Boxes::saveDialog(space, path));
    space.dialogs.expect(Boxes::overwrite("Project " + name, answer));
    if (answer == QMessageBox::Yes)
        space.dialogs.expect(Boxes::projectSaved(name));
    space.trigger("actionSave_2");
    QCOMPARE(space.dialogs.faults(), QString());
    if (answer == QMessageBox::Yes)
        QVERIFY(bytesOf(path).contains(holding.isMidi ? " type=\"midi\" " : " type=\"pads\" "));
    else
        QCOMPARE(bytesOf(path), QByteArray("somebody's work"));
}

void TestCommands::loadProjectWithoutWork_data()
{
    QTest::addColumn<Holding>("holding");
    QTest::newRow("no show") << Holding{false, false, false, false};
    QTest::newRow("no show, filled pad") << Holding{false, true, false, false};
    QTest::newRow("empty pads") << Holding{true, false, false, false};
    QTest::newRow("empty grid") << Holding{true, false, false, true};
    QTest::newRow("pads behind an empty grid") << Holding{true, true, false, true};
    QTest::newRow("keys behind empty pads") << Holding{true, false, true, false};
}

void TestCommands::loadProjectWithoutWork()
{
    QFETCH(const Holding, holding);
    Workspace space;
    QVERIFY(prepare(space, holding));
    const QStringList before = space.snapshot();
    space.dialogs.expect(Boxes::loadDialog(space, {}));
    space.dialogs.expect(Boxes::loadFailed()); // a plain cancel counts as a failure
    space.trigger("actionLoad_Project");
    QCOMPARE(space.dialogs.faults(), QString());
    QCOMPARE(space.snapshot(), before);
}

void TestCommands::loadProjectOverWork_data()
{
    QTest::addColumn<Holding>("holding");
    QTest::addColumn<QMessageBox::StandardButton>("answer");

    for (const bool isMidi : {false, true}) {
        const QByteArray mode = isMidi ? "MIDI Mapping" : "Pads Page";
        const Holding holding{true, !isMidi, isMidi, isMidi};
        QTest::newRow(mode + ": Cancel") << holding << QMessageBox::Cancel;
        QTest::newRow(mode + ": Escape") << holding << QMessageBox::NoButton;
        QTest::newRow(mode + ": Yes") << holding << QMessageBox::Yes;
        QTest::newRow(mode + ": Save, then cancelled") << holding << QMessageBox::Save;
    }
}

void TestCommands::loadProjectOverWork()
{
    QFETCH(const Holding, holding);
    QFETCH(const QMessageBox::StandardButton, answer);
    Workspace space;
    QVERIFY(prepare(space, holding));
    const QStringList before = space.snapshot();

    space.dialogs.expect(Boxes::projectOverWork(answer));
    if (answer == QMessageBox::Save)
        space.dialogs.expect(Boxes::saveDialog(space, {}));
    if (answer == QMessageBox::Save || answer == QMessageBox::Yes) {
        space.dialogs.expect(Boxes::loadDialog(space, {}));
        space.dialogs.expect(Boxes::loadFailed());
    }
    space.trigger("actionLoad_Project");
    QCOMPARE(space.dialogs.faults(), QString());
    QCOMPARE(space.snapshot(), before);
    QCOMPARE(filesBelow(space.documents()), QStringList());
}

void TestCommands::loadProjectAfterRefusedOverwrite()
{
    Workspace space;
    QVERIFY(prepare(space, {true, true, false, false}));
    const QString path = space.documents() + "/Zarvex/projects/Night.zarvex";
    QVERIFY(writeFile(path, "somebody's work"));

    space.dialogs.expect(Boxes::projectOverWork(QMessageBox::Save));
    space.dialogs.expect(Boxes::saveDialog(space, path));
    space.dialogs.expect(Boxes::overwrite("Project Night", QMessageBox::No));
    space.dialogs.expect(Boxes::loadDialog(space, {}));
    space.dialogs.expect(Boxes::loadFailed());
    space.trigger("actionLoad_Project");
    QCOMPARE(space.dialogs.faults(), QString());
    QCOMPARE(bytesOf(path), QByteArray("somebody's work"));
}

void TestCommands::loadProjectReplacesWork_data()
{
    QTest::addColumn<Holding>("holding");
    QTest::addColumn<QMessageBox::StandardButton>("answer");
    QTest::addColumn<QString>("saveTo"); // below the projects folder; empty cancels
    QTest::addColumn<QString>("notice");

    const Holding pads{true, true, false, false};
    const Holding keys{true, false, true, true};
    const auto none = QMessageBox::NoButton;
    QTest::newRow("no show") << Holding{} << none << QString() << QString();
    QTest::newRow("empty pads") << Holding{true, false, false, false} << none << QString() << QString();
    QTest::newRow("keys behind empty pads")
        << Holding{true, false, true, false} << none << QString() << QString();
    for (const auto &[mode, holding] : {std::make_pair("pads", pads), std::make_pair("keys", keys)}) {
        const QByteArray name(mode);
        QTest::newRow(name + ": Yes") << holding << QMessageBox::Yes << QString() << QString();
        QTest::newRow(name + ": Save") << holding << QMessageBox::Save << "Mine.zarvex"
                                       << "Project Mine is saved.";
        QTest::newRow(name + ": Save, cancelled") << holding << QMessageBox::Save << QString() << QString();
        QTest::newRow(name + ": Save, which fails") << holding << QMessageBox::Save << "missing/Mine.zarvex"
                                                    << "Project Mine was not saved.";
    }
}

void TestCommands::loadProjectReplacesWork()
{
    QFETCH(const Holding, holding);
    QFETCH(const QMessageBox::StandardButton, answer);
    QFETCH(const QString, saveTo);
    QFETCH(const QString, notice);
    Workspace space;
    QVERIFY(prepare(space, holding));
    space.writeShow("Show", Workspace::iniWith({8, 8}));
    const QString projects = space.documents() + "/Zarvex/projects/";
    QVERIFY(writeProject(space, projects + "Saturday.zarvex"));

    if (answer != QMessageBox::NoButton)
        space.dialogs.expect(Boxes::projectOverWork(answer));
    if (answer == QMessageBox::Save)
        space.dialogs.expect(Boxes::saveDialog(space, saveTo.isEmpty() ? QString() : projects + saveTo));
    if (!notice.isEmpty())
        space.dialogs.expect(Box{notice, {}});
    space.dialogs.expect(Boxes::loadDialog(space, projects + "Saturday.zarvex"));
    space.trigger("actionLoad_Project");
    QCOMPARE(space.dialogs.faults(), QString());
    QCOMPARE(space.find<QLineEdit>("padsname")->text(), QString("Saturday"));
    QCOMPARE(space.ticked(), QList<int>{5});
    QVERIFY(space.ask<bool>("isMIDIempty"));
    QVERIFY(space.find<QRadioButton>("radio_outputpage")->isChecked());
    QCOMPARE(QFile::exists(projects + "Mine.zarvex"), notice.endsWith("is saved."));
    if (QFile::exists(projects + "Mine.zarvex")) // what was on show before the load
        QVERIFY(bytesOf(projects + "Mine.zarvex").contains(holding.isMidi ? "\"1-5\"" : "\"1-4\""));
}

void TestCommands::loadProjectOfMissingShow()
{
    Workspace space;
    QVERIFY(prepare(space, {true, true, false, false}));
    const QString path = space.documents() + "/Zarvex/projects/Away.zarvex";
    QVERIFY(
        writeFile(path, R"(<project type="midi" show="/away/Live/live.ini" showname="Away" ></project>)"));
    const QStringList before = space.snapshot();
    space.dialogs.expect(Boxes::projectOverWork(QMessageBox::Yes));
    space.dialogs.expect(Boxes::loadDialog(space, path));
    space.dialogs.expect(Boxes::loadFailed());
    space.trigger("actionLoad_Project");
    QCOMPARE(space.dialogs.faults(), QString());
    QCOMPARE(space.snapshot(), before);
}

void TestCommands::loadedProjectIsWork()
{
    Workspace space;
    space.writeShow("Show", Workspace::iniWith({8, 8}));
    space.window();
    const QString path = space.documents() + "/Zarvex/projects/Saturday.zarvex";
    QVERIFY(writeProject(space, path));
    space.dialogs.expect(Boxes::loadDialog(space, path));
    space.trigger("actionLoad_Project");
    space.dialogs.expect(Boxes::projectOverWork(QMessageBox::Cancel));
    space.trigger("actionLoad_Project");
    space.dialogs.expect(leavingWithWork(QMessageBox::Cancel));
    QVERIFY(!space.window().close());
    space.dialogs.expect(leavingWithWork(QMessageBox::Yes));
    space.trigger("actionExit");
    QVERIFY(space.window().isHidden());
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestCommands::leaving_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<Holding>("holding");
    QTest::addColumn<bool>("asks");
    QTest::addColumn<QMessageBox::StandardButton>("answer");
    QTest::addColumn<bool>("leaves");

    const Holding pads{true, true, false, false};
    const Holding keys{true, false, true, true};
    const auto none = QMessageBox::NoButton;
    for (const char *command : {"close", "actionExit"}) {
        const QByteArray name(command);
        QTest::newRow(name + ": no show") << name << Holding{} << false << none << true;
        QTest::newRow(name + ": no show, filled pad")
            << name << Holding{false, true, false, false} << false << none << true;
        QTest::newRow(name + ": empty pads")
            << name << Holding{true, false, false, false} << false << none << true;
        QTest::newRow(name + ": empty grid")
            << name << Holding{true, false, false, true} << false << none << true;
        QTest::newRow(name + ": pads behind an empty grid")
            << name << Holding{true, true, false, true} << false << none << true;
        QTest::newRow(name + ": keys behind empty pads")
            << name << Holding{true, false, true, false} << false << none << true;
        QTest::newRow(name + ": pads, Yes") << name << pads << true << QMessageBox::Yes << true;
        QTest::newRow(name + ": pads, Cancel") << name << pads << true << QMessageBox::Cancel << false;
        QTest::newRow(name + ": pads, Escape") << name << pads << true << none << false;
        QTest::newRow(name + ": keys, Yes") << name << keys << true << QMessageBox::Yes << true;
        QTest::newRow(name + ": keys, Cancel") << name << keys << true << QMessageBox::Cancel << false;
        QTest::newRow(name + ": pads and keys, Cancel")
            << name << Holding{true, true, true, false} << true << QMessageBox::Cancel << false;
    }
}

void TestCommands::leaving()
{
    QFETCH(const QByteArray, command);
    QFETCH(const Holding, holding);
    QFETCH(const bool, asks);
    QFETCH(const QMessageBox::StandardButton, answer);
    QFETCH(const bool, leaves);
    Workspace space;
    QVERIFY(prepare(space, holding));
    const QStringList before = space.snapshot();

    if (asks)
        space.dialogs.expect(leavingWithWork(answer));
    if (command == "close")
        QCOMPARE(space.window().close(), leaves);
    else
        space.trigger(command);
    QCOMPARE(space.dialogs.faults(), QString());
    QCOMPARE(space.window().isVisible(), !leaves);
    if (!leaves)
        QCOMPARE(space.snapshot(), before);
}

void TestCommands::leavingAsksEveryTime()
{
    Workspace space;
    QVERIFY(prepare(space, {true, true, false, false}));
    space.dialogs.expect(leavingWithWork(QMessageBox::Cancel));
    QVERIFY(!space.window().close());
    space.dialogs.expect(leavingWithWork(QMessageBox::Cancel));
    space.trigger("actionExit");
    space.dialogs.expect(leavingWithWork(QMessageBox::Cancel));
    space.trigger("actionExit");
    space.dialogs.expect(leavingWithWork(QMessageBox::Yes));
    QVERIFY(space.window().close());
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestCommands::exitAsksOnce()
{
    Workspace space;
    QVERIFY(prepare(space, {true, true, false, false}));
    space.dialogs.expect(leavingWithWork(QMessageBox::Yes));
    space.trigger("actionExit");
    QVERIFY(space.window().isHidden());
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestCommands::exitForgetsTheShow_data()
{
    QTest::addColumn<bool>("byExit");
    QTest::addColumn<bool>("hasWork");
    QTest::addColumn<QString>("text");
    QTest::newRow("Exit, no work") << true << false << "Nothing to Export. Load a Show";
    QTest::newRow("Exit, work") << true << true << "Nothing to Export. Load a Show";
    QTest::newRow("frame keeps it") << false << false << "Nothing to Export. Pads are empty";
}

void TestCommands::exitForgetsTheShow()
{
    QFETCH(const bool, byExit);
    QFETCH(const bool, hasWork);
    QFETCH(const QString, text);
    Workspace space;
    QVERIFY(prepare(space, {true, hasWork, false, false}));
    if (hasWork)
        space.dialogs.expect(leavingWithWork(QMessageBox::Yes));
    if (byExit)
        space.trigger("actionExit");
    else
        QVERIFY(space.window().close());
    QVERIFY(space.window().isHidden());
    QCOMPARE(space.window().windowTitle(), QString("Zarvex - Show"));

    space.dialogs.expect(Box{text, {}});
    space.trigger("actionExport");
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestCommands::typedNamesAreNoWork()
{
    Workspace space;
    QVERIFY(space.loadSomeShow());
    QVERIFY(space.type("padsname", "Friday"));
    QVERIFY(space.type("bankname", "Verse"));
    space.trigger("actionExit"); // names alone are no work
    QVERIFY(space.window().isHidden());
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestCommands::emptiedWorkIsNoWork()
{
    Workspace space;
    QVERIFY(prepare(space, {true, true, false, false}));
    space.trigger("actionNew_2");
    QVERIFY(space.window().close());
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestCommands::savedWorkIsStillWork()
{
    Workspace space;
    QVERIFY(prepare(space, {true, true, false, false}));
    space.dialogs.expect(Boxes::saveDialog(space, space.documents() + "/Zarvex/projects/Night.zarvex"));
    space.dialogs.expect(Boxes::projectSaved("Night"));
    space.trigger("actionSave_2");
    space.dialogs.expect(leavingWithWork(QMessageBox::Cancel));
    QVERIFY(!space.window().close());
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestCommands::manualOpens_data()
{
    QTest::addColumn<bool>("byAction");
    QTest::addColumn<bool>("isInProgram");
    QTest::newRow("action, a manual in the program") << true << true;
    QTest::newRow("action, none in the program") << true << false;
    QTest::newRow("slot, a manual in the program") << false << true;
    QTest::newRow("slot, none in the program") << false << false;
}

void TestCommands::manualOpens()
{
    QFETCH(const bool, byAction);
    QFETCH(const bool, isInProgram);
    Workspace space;
    space.window();
    const Desktop desktop;
    std::optional<ManualInProgram> inProgram;
    if (isInProgram)
        inProgram.emplace();
    if (byAction)
        space.trigger("actionManual");
    else
        QVERIFY(space.call("on_actionManual_triggered"));

    const QString manual = space.documents() + "/Zarvex/Manual.pdf";
    QCOMPARE(desktop.opened, QList<QUrl>{QUrl::fromLocalFile(manual)});
    QCOMPARE(bytesOf(manual), isInProgram ? QByteArray("How to play.\n") : QByteArray("no file"));
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestCommands::manualInFolderIsKept()
{
    Workspace space;
    space.window();
    const QString manual = space.documents() + "/Zarvex/Manual.pdf";
    QVERIFY(writeFile(manual, "a manual"));
    const ManualInProgram inProgram;
    const Desktop desktop;
    space.trigger("actionManual");
    QCOMPARE(desktop.opened, QList<QUrl>{QUrl::fromLocalFile(manual)});
    QCOMPARE(bytesOf(manual), QByteArray("a manual"));
}

void TestCommands::manualWithoutFolder()
{
    Workspace space;
    space.window();
    QVERIFY(QDir(space.documents()).removeRecursively());
    const ManualInProgram inProgram;
    const Desktop desktop;
    space.trigger("actionManual");
    QCOMPARE(desktop.opened.size(), 1);
    QVERIFY(!QFileInfo::exists(space.documents()));
    QCOMPARE(space.dialogs.faults(), QString());
}

QTEST_MAIN(TestCommands)
#include "test_commands.moc"

#include "support/boxes.h"
#include "support/files.h"
#include "support/texts.h"
#include "support/workspace.h"

#include <QDesktopServices>
#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>
#include <QScreen>

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

/**
 * Brings a workspace to where a command begins.
 *
 * @param holding  of "show", "pad" (Live Button 3 on the first pad), "key" (4 on the first key) and "midi"; without a
 *                 show, pad and key are written by role
 */
bool prepare(Workspace &space, const QString &holding)
{
    const bool hasPad = holding.contains("pad");
    const bool hasKey = holding.contains("key");
    bool isDone = true;
    if (holding.contains("show"))
        isDone = space.loadSomeShow() && (!hasPad || space.putOnPad(3, 0))
                 && (!hasKey || (space.click("radio_outputmidi") && space.putOnKey(4, 2, 2)));
    else
        isDone = (!hasPad || space.pads()->setData(space.pads()->index(0, 0), "3", ButtonRole))
                 && (!hasKey || space.grid()->setData(space.grid()->index(2, 2), "4", ButtonRole));
    return isDone && space.click(holding.contains("midi") ? "radio_outputmidi" : "radio_outputpage");
}

/** Presses a button, triggers an action of the menus, or closes the window. */
bool give(Workspace &space, const QByteArray &command)
{
    if (command == "close")
        space.window().close();
    else if (command.startsWith("action"))
        space.trigger(command);
    else
        return space.click(command);
    return true;
}

QString projectPath(const Workspace &space)
{
    return space.documents() + "/Zarvex/projects/my.show.zarvex";
}

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

/** What the user does to the workspace as a whole, and what the program asks before work is lost. */
class TestCommands final : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { cleanupManual(); } // it came with the start of this test

    void outputSlots_data();
    void outputSlots();
    void firstClickRenamesLabel();
    void wideWindowMovesLeft();
    void gridLiesOverPads();
    void firstLiveButtonBecomesCurrent_data();
    void firstLiveButtonBecomesCurrent();
    void newProjectWithoutShow();

    void nothingToDo_data();
    void nothingToDo();
    void startsAtHome_data();
    void startsAtHome();
    void saveOverFile_data();
    void saveOverFile();
    void loadOverWork_data();
    void loadOverWork();

    void leaving_data();
    void leaving();
    void exitForgetsTheShow_data();
    void exitForgetsTheShow();
    void typedNamesAreNoWork();
    void savedWorkIsStillWork();

    void manualOpens_data();
    void manualOpens();
};

void TestCommands::outputSlots_data()
{
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<QByteArray>("checked");
    QTest::addColumn<bool>("isMidi");
    QTest::addColumn<int>("width");
    const QByteArray page = "radio_outputpage";
    const QByteArray midi = "radio_outputmidi";
    QTest::newRow("Pad Page, checked") << page << page << false << 650;
    QTest::newRow("Pad Page, not checked") << page << midi << true << 1365; // a pixel less than by a click
    QTest::newRow("MIDI Mapping, checked") << midi << midi << true << 1366;
    QTest::newRow("MIDI Mapping, not checked") << midi << page << false << 650;
}

void TestCommands::outputSlots()
{
    QFETCH(const QByteArray, slot);
    QFETCH(const QByteArray, checked);
    QFETCH(const bool, isMidi);
    QFETCH(const int, width);
    Workspace space;
    QVERIFY(prepare(space, isMidi ? "show pad key" : "show pad key midi")); // from the other output
    space.find<QRadioButton>(checked)->setChecked(true);
    QVERIFY(space.call("on_" + slot + "_clicked"));
    QCOMPARE(space.find<QWidget>("groupBox_pads")->isVisible(), !isMidi);
    QCOMPARE(space.find<QWidget>("groupBox_midis")->isVisible(), isMidi);
    QCOMPARE(space.find<QWidget>("groupBox_controller")->isVisible(), isMidi);
    QCOMPARE(space.find<QWidget>("groupBox")->geometry(), QRect(290, 30, isMidi ? 1071 : 341, 51));
    QCOMPARE(space.window().minimumSize(), QSize(width, 606));
    QCOMPARE(space.window().maximumSize(), QSize(width, 606));
    QTRY_COMPARE(space.window().size(), QSize(width, 606));
    QCOMPARE(space.find<QLabel>("label_padname")->text(), isMidi ? Texts::MidiMapping : Texts::PadsPage);
    QCOMPARE(space.ticked(), QList<int>{isMidi ? 4 : 3});
}

void TestCommands::firstClickRenamesLabel()
{
    Workspace space;
    const auto *label = space.find<QLabel>("label_padname");
    QCOMPARE(label->text(), Texts::FirstOutput);
    QVERIFY(space.click("radio_outputpage"));
    QCOMPARE(label->text(), Texts::PadsPage);
    space.trigger("actionNew_2");
    QVERIFY(space.loadSomeShow());
    QVERIFY(space.call("setstyles"));
    QCOMPARE(label->text(), Texts::PadsPage);
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

void TestCommands::gridLiesOverPads()
{
    Workspace space;
    QVERIFY(space.click("radio_outputmidi"));
    const auto *pads = space.find<QGroupBox>("groupBox_3");
    QVERIFY(pads->isVisible());
    QVERIFY(space.find<QGroupBox>("groupBox_controller")
                ->isAncestorOf(space.find<QWidget>("centralWidget")->childAt(pads->geometry().center())));
}

void TestCommands::firstLiveButtonBecomesCurrent_data()
{
    QTest::addColumn<bool>("takesFocus");
    QTest::newRow("radio_outputmidi") << false;
    QTest::newRow("actionNew_2") << true;
}

void TestCommands::firstLiveButtonBecomesCurrent()
{
    QFETCH(const bool, takesFocus);
    Workspace space;
    QVERIFY(space.loadSomeShow());
    space.dmxView()->setCurrentIndex(space.dmx()->index(5, 0));
    space.padsView()->setFocus();
    QVERIFY(give(space, QTest::currentDataTag()));
    QCOMPARE(space.dmxView()->currentIndex(), space.dmx()->index(0, 0));
    QCOMPARE(space.window().focusWidget() == space.dmxView(), takesFocus);
}

void TestCommands::newProjectWithoutShow()
{
    Workspace space;
    const QStringList before = space.snapshot();
    QSignalSpy padsGone(space.pads(), &QAbstractItemModel::rowsRemoved);
    QSignalSpy gridGone(space.grid(), &QAbstractItemModel::rowsRemoved);
    space.trigger("actionNew_2");
    QVERIFY(!padsGone.isEmpty() && !gridGone.isEmpty()); // built anew all the same
    QCOMPARE(space.snapshot(), before);
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestCommands::nothingToDo_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<QString>("holding");
    for (const QByteArray command : {"pushButton_2", "actionExport", "actionSave_2"}) {
        for (const QByteArray holding :
             {"nothing", "a pad", "a key, midi", "a show", "a show, a key", "a show, a pad, midi"})
            QTest::newRow(command + ": " + holding) << command << QString(holding);
    }
}

void TestCommands::nothingToDo()
{
    QFETCH(const QByteArray, command);
    QFETCH(const QString, holding);
    Workspace space;
    QVERIFY(prepare(space, holding));
    const QStringList before = space.snapshot();
    const bool hasShow = holding.contains("show");
    if (command == "actionSave_2")
        space.dialogs.expect(hasShow ? Boxes::SaveOfNothing : Boxes::SaveWithoutShow);
    else
        space.dialogs.expect(hasShow ? Boxes::ExportOfNothing : Boxes::ExportWithoutShow);
    QVERIFY(give(space, command));
    QCOMPARE(space.dialogs.faults(), QString());
    QCOMPARE(space.snapshot(), before);
}

void TestCommands::startsAtHome_data()
{
    QTest::addColumn<QByteArray>("action");
    QTest::newRow("save") << QByteArray("actionSave_2");
    QTest::newRow("load") << QByteArray("actionLoad_Project");
}

/** Where there are no documents. */
void TestCommands::startsAtHome()
{
    QFETCH(const QByteArray, action);
    Workspace space;
    QVERIFY(QDir(space.documents()).removeRecursively());
    QVERIFY(prepare(space, "show pad"));
    Boxes::File dialog = Boxes::saveDialog(space, {});
    if (action == "actionLoad_Project") {
        space.dialogs.expect(Boxes::projectOverWork(QMessageBox::Yes));
        dialog = Boxes::loadDialog(space, {});
        space.dialogs.tolerate(Boxes::loadFailed().text);
    }
    dialog.folder = space.home();
    space.dialogs.expect(dialog);
    space.trigger(action);
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestCommands::saveOverFile_data()
{
    QTest::addColumn<Boxes::Answer>("answer");
    QTest::newRow("Yes") << QMessageBox::Yes;
    QTest::newRow("No") << QMessageBox::No;
    QTest::newRow("Escape") << QMessageBox::NoButton;
}

void TestCommands::saveOverFile()
{
    QFETCH(const Boxes::Answer, answer);
    Workspace space;
    QVERIFY(prepare(space, "show pad"));
    QVERIFY(writeFile(projectPath(space), "somebody's work"));
    space.dialogs.expect(Boxes::saveDialog(space, projectPath(space)));
    space.dialogs.expect(Boxes::overwrite("Project my", answer));
    if (answer == QMessageBox::Yes)
        space.dialogs.expect(Boxes::projectSaved("my"));
    space.trigger("actionSave_2");
    QCOMPARE(space.dialogs.faults(), QString());
    QCOMPARE(bytesOf(projectPath(space)) == "somebody's work", answer != QMessageBox::Yes);
}

void TestCommands::loadOverWork_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<QString>("holding");
    QTest::addColumn<Boxes::Answer>("answer"); // Ok where nothing is asked
    QTest::addColumn<bool>("savesOverFile");
    for (const QByteArray command : {"actionLoad_Project", "actionNew", "loadini"}) {
        const auto row = [&command](const char *name, const QString &holding, Boxes::Answer answer,
                                    bool savesOverFile = false) {
            QTest::newRow(command + ": " + name) << command << holding << answer << savesOverFile;
        };
        row("no show", "pad", QMessageBox::Ok);
        row("pads behind an empty grid", "show pad midi", QMessageBox::Ok);
        row("keys behind empty pads", "show key", QMessageBox::Ok);
        row("Cancel", "show pad", QMessageBox::Cancel);
        row("Escape", "show pad", QMessageBox::NoButton);
        row("Yes", "show pad", QMessageBox::Yes);
        row("Yes, keys", "show key midi", QMessageBox::Yes);
        row("Save, then cancelled", "show pad", QMessageBox::Save);
        row("Save, then not over the file", "show pad", QMessageBox::Save, true);
    }
}

/** Whatever becomes of the saving, the load goes on; for a project, to cancel it then counts as a failure. */
void TestCommands::loadOverWork()
{
    QFETCH(const QByteArray, command);
    QFETCH(const QString, holding);
    QFETCH(const Boxes::Answer, answer);
    QFETCH(const bool, savesOverFile);
    Workspace space;
    QVERIFY(prepare(space, holding));
    const QStringList before = space.snapshot();
    const bool isProject = command == "actionLoad_Project";
    if (answer != QMessageBox::Ok)
        space.dialogs.expect(isProject ? Boxes::projectOverWork(answer) : Boxes::showOverWork(answer));
    if (savesOverFile) {
        QVERIFY(writeFile(projectPath(space), "somebody's work"));
        space.dialogs.expect(Boxes::saveDialog(space, projectPath(space)));
        space.dialogs.expect(Boxes::overwrite("Project my", QMessageBox::No));
    } else if (answer == QMessageBox::Save) {
        space.dialogs.expect(Boxes::saveDialog(space, {}));
    }
    if (answer != QMessageBox::Cancel && answer != QMessageBox::NoButton) {
        space.dialogs.expect(isProject ? Boxes::loadDialog(space, {}) : Boxes::showDialog(space, {}));
        if (isProject)
            space.dialogs.expect(Boxes::loadFailed());
    }
    QVERIFY(give(space, command));
    QCOMPARE(space.dialogs.faults(), QString());
    QCOMPARE(space.snapshot(), before);
}

void TestCommands::leaving_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<QString>("holding");
    QTest::addColumn<Boxes::Answer>("answer"); // Ok where nothing is asked
    for (const QByteArray command : {"close", "actionExit"}) {
        const auto row = [&command](const QByteArray &holding, Boxes::Answer answer, const QByteArray &name) {
            QTest::newRow(command + ": " + holding + name) << command << QString(holding) << answer;
        };
        for (const char *holding : {"nothing", "pad", "show", "show pad midi", "show key"})
            row(holding, QMessageBox::Ok, "");
        for (const char *holding : {"show pad", "show key midi"}) {
            row(holding, QMessageBox::Yes, ", Yes");
            row(holding, QMessageBox::Cancel, ", Cancel");
            row(holding, QMessageBox::NoButton, ", Escape");
        }
    }
}

void TestCommands::leaving()
{
    QFETCH(const QByteArray, command);
    QFETCH(const QString, holding);
    QFETCH(const Boxes::Answer, answer);
    Workspace space;
    QVERIFY(prepare(space, holding));
    const QStringList before = space.snapshot();
    if (answer != QMessageBox::Ok)
        space.dialogs.expect(Boxes::leaving(answer)); // once
    QVERIFY(give(space, command));
    QCOMPARE(space.dialogs.faults(), QString());
    QCOMPARE(space.window().isHidden(), answer == QMessageBox::Ok || answer == QMessageBox::Yes);
    QCOMPARE(space.snapshot(), before);
}

void TestCommands::exitForgetsTheShow_data()
{
    QTest::addColumn<QString>("holding");
    QTest::addColumn<bool>("forgets");
    QTest::newRow("actionExit") << "show pad" << true;
    QTest::newRow("close") << "show" << false;
}

void TestCommands::exitForgetsTheShow()
{
    QFETCH(const QString, holding);
    QFETCH(const bool, forgets);
    Workspace space;
    QVERIFY(prepare(space, holding));
    if (forgets)
        space.dialogs.expect(Boxes::leaving(QMessageBox::Yes));
    QVERIFY(give(space, QTest::currentDataTag()));
    QCOMPARE(space.window().windowTitle(), Texts::title("Show"));
    space.dialogs.expect(forgets ? Boxes::ExportWithoutShow : Boxes::ExportOfNothing);
    space.trigger("actionExport");
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestCommands::typedNamesAreNoWork()
{
    Workspace space;
    QVERIFY(space.loadSomeShow());
    QVERIFY(space.type("padsname", "Friday"));
    QVERIFY(space.type("bankname", "Verse"));
    QVERIFY(space.window().close());
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestCommands::savedWorkIsStillWork()
{
    Workspace space;
    QVERIFY(prepare(space, "show pad"));
    space.dialogs.expect(Boxes::saveDialog(space, projectPath(space)));
    space.dialogs.expect(Boxes::projectSaved("my"));
    space.trigger("actionSave_2");
    space.dialogs.expect(Boxes::leaving(QMessageBox::Cancel));
    QVERIFY(!space.window().close());
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestCommands::manualOpens_data()
{
    QTest::addColumn<bool>("isInProgram");
    QTest::addColumn<QByteArray>(
        "inFolder"); // null where the file, and with an empty text the folder, is missing
    QTest::addColumn<QByteArray>("opened");
    QTest::newRow("in the program") << true << QByteArray() << QByteArray("How to play.\n");
    QTest::newRow("nowhere") << false << QByteArray() << QByteArray("no file");
    QTest::newRow("in the folder, which is kept") << true << QByteArray("old") << QByteArray("old");
    QTest::newRow("no folder") << true << QByteArray("") << QByteArray("no file");
}

void TestCommands::manualOpens()
{
    QFETCH(const bool, isInProgram);
    QFETCH(const QByteArray, inFolder);
    QFETCH(const QByteArray, opened);
    Workspace space;
    space.window();
    const QString manual = space.documents() + "/Zarvex/Manual.pdf";
    if (!inFolder.isNull())
        QVERIFY(inFolder.isEmpty() ? QDir(space.documents()).removeRecursively()
                                   : writeFile(manual, inFolder));
    const Desktop desktop;
    if (isInProgram)
        initManual();
    space.trigger("actionManual");
    if (isInProgram)
        cleanupManual();
    QCOMPARE(desktop.opened, QList<QUrl>{QUrl::fromLocalFile(manual)});
    QCOMPARE(bytesOf(manual), opened);
    QCOMPARE(space.dialogs.faults(), QString());
}

QTEST_MAIN(TestCommands)
#include "test_commands.moc"

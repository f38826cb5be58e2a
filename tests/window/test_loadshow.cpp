#include "support/boxes.h"
#include "support/devices.h"
#include "support/files.h"
#include "support/processortime.h"
#include "support/workspace.h"

#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>

#ifdef Q_OS_UNIX
#include <sys/resource.h>
#include <sys/stat.h>
#endif

namespace {

using Box = ExpectedDialogs::Box;
using File = ExpectedDialogs::File;

Box notFound()
{
    Box box{"LightShow Settings file not found. Please select a different LightShow Folder", {}};
    box.title = "Zarvex";
    box.icon = QMessageBox::Warning;
    box.isStyled = false;
    return box;
}

File folderDialog(const Workspace &space, const QString &answer)
{
    File dialog{"Select a Show", space.showsFolder(), answer};
    dialog.showsFoldersOnly = true;
    return dialog;
}

/** What the gate of the export answers; it knows whether a show is loaded. */
bool exportSays(Workspace &space, const QString &text)
{
    space.dialogs.expect(Box{text, {}});
    space.trigger("actionExport");
    return space.dialogs.faults().isEmpty();
}

constexpr int Deadline = 60000; // milliseconds; a tenth of it is plenty

const char NoShow[] = "Nothing to Export. Load a Show";
const char NothingAssigned[] = "Nothing to Export. Pads are empty";

/** While it lives, and where it is told to, no file can be opened by anybody; what is open stays so. */
class FileShortage final
{
public:
#ifdef Q_OS_UNIX
    explicit FileShortage(bool isShort)
    {
        getrlimit(RLIMIT_NOFILE, &m_limit);
        rlimit limit = m_limit;
        if (isShort)
            limit.rlim_cur = 0;
        setrlimit(RLIMIT_NOFILE, &limit);
    }
    ~FileShortage()
    {
        setrlimit(RLIMIT_NOFILE, &m_limit);
    }
    Q_DISABLE_COPY(FileShortage)

private:
    rlimit m_limit{};
#else
    explicit FileShortage(bool /*isShort*/) {}
#endif
};

/** A Live Button as "title|page|number|colour"; a colour that is not opaque has its alpha in front. */
QString liveButton(const QModelIndex &index)
{
    const auto color = index.data(Qt::DecorationRole).value<QColor>();
    const auto format = color.alpha() == 255 ? QColor::HexRgb : QColor::HexArgb;
    return QStringList{index.data().toString(), index.data(PageRole).toString(),
                       index.data(ButtonRole).toString(), color.isValid() ? color.name(format) : "no colour"}
        .join("|");
}

QStringList liveButtons(Workspace &space)
{
    QStringList buttons;
    for (int row = 0; row < space.dmx()->rowCount(); ++row)
        buttons.append(liveButton(space.dmx()->index(row, 0)));
    return buttons;
}

/** A show of one page whose first button has the given lines. */
QByteArray oneButton(const QByteArray &lines)
{
    return "[page]\nnumber=1\n[page1]\nname=One\nnb_buttons=1\n[page1_button1]\n" + lines;
}

bool fillKeys(Workspace &space)
{
    return space.click("radio_outputmidi") && space.putOnKey(1, 2, 2) && space.putOnKey(2, 11, 9)
           && space.grid()->setData(space.grid()->index(2, 2), "#ff0000", OnColorRole)
           && space.grid()->setData(space.grid()->index(2, 2), "1", BlinkRole);
}

bool nameBank(Workspace &space, const QString &name)
{
    const bool isTyped = space.type("bankname", name);
    QTest::keyClick(space.find<QLineEdit>("bankname"), Qt::Key_Return);
    return isTyped;
}

bool fillAndNameBanks(Workspace &space)
{
    return space.click("radio_outputpage") && space.click("radioButton_16pads") && space.putOnPad(9, 0, 1)
           && nameBank(space, "First") && space.putOnPad(10, 60, 0) && nameBank(space, "Last");
}

} // namespace

/** From "Load DMX Show" to the tables: the questions, the folder, live.ini, and what is thrown away. */
class TestLoadShow final : public QObject
{
    Q_OBJECT

private slots:
    void asksOnlyBeforeWorkIsLost_data();
    void asksOnlyBeforeWorkIsLost();
    void answers_data();
    void answers();
    void savingNeverStopsTheLoad_data();
    void savingNeverStopsTheLoad();

    void showIsNamedAfterItsFolder_data();
    void showIsNamedAfterItsFolder();
    void cancelledDialogChangesNothing_data();
    void cancelledDialogChangesNothing();
    void folderWithoutSettings_data();
    void folderWithoutSettings();
    void settingsThatCannotBeOpenedLeaveTheNewName();
    void settingsThatCannotBeOpenedCountAsLoaded();

    void loadsByName();
    void badPathLeavesEverything_data();
    void badPathLeavesEverything();
    void badPathLeavesTheSwitch();

    void throwsAwayAssignmentsAndNames();
    void keepsModeLayoutAndDevice();
    void secondShowInMidiModeEmptiesTheGrid();
    void forgetsTheSwitch();
    void showWithoutPagesCountsAsLoaded_data();
    void showWithoutPagesCountsAsLoaded();

    void readsSettings_data();
    void readsSettings();
    void survivesBadSettings_data();
    void survivesBadSettings();
    void hugeCountsEndSoon_data();
    void hugeCountsEndSoon();
    void readsSixtyThousandButtons();
};

void TestLoadShow::asksOnlyBeforeWorkIsLost_data()
{
    QTest::addColumn<bool>("byMenu");
    QTest::addColumn<bool>("isShowLoaded");
    QTest::addColumn<bool>("isPadFilled");
    QTest::addColumn<bool>("isKeyFilled");
    QTest::addColumn<bool>("isMidiMode");
    QTest::addColumn<bool>("isAsked");
    for (const bool byMenu : {false, true}) {
        const char *way = byMenu ? "menu" : "button";
        QTest::addRow("%s: no show", way) << byMenu << false << false << false << false << false;
        QTest::addRow("%s: no show, pad filled all the same", way)
            << byMenu << false << true << false << false << false;
        QTest::addRow("%s: show, nothing assigned", way)
            << byMenu << true << false << false << false << false;
        QTest::addRow("%s: pad filled", way) << byMenu << true << true << false << false << true;
        QTest::addRow("%s: pad filled, MIDI mode", way) << byMenu << true << true << false << true << false;
        QTest::addRow("%s: key filled, MIDI mode", way) << byMenu << true << false << true << true << true;
        QTest::addRow("%s: key filled, pads mode", way) << byMenu << true << false << true << false << false;
        QTest::addRow("%s: both filled, MIDI mode", way) << byMenu << true << true << true << true << true;
    }
}

void TestLoadShow::asksOnlyBeforeWorkIsLost()
{
    QFETCH(bool, byMenu);
    QFETCH(bool, isShowLoaded);
    QFETCH(bool, isPadFilled);
    QFETCH(bool, isKeyFilled);
    QFETCH(bool, isMidiMode);
    QFETCH(bool, isAsked);

    Workspace space;
    if (isShowLoaded)
        QVERIFY2(space.loadSomeShow(), qPrintable(space.dialogs.faults()));
    if (isPadFilled)
        QVERIFY(space.pads()->setData(space.pads()->index(40, 1), "0", ButtonRole));
    if (isKeyFilled)
        QVERIFY(space.grid()->setData(space.grid()->index(9, 9), "0", ButtonRole));
    if (isMidiMode)
        QVERIFY(space.click("radio_outputmidi"));

    if (isAsked)
        space.dialogs.expect(Boxes::showOverWork(QMessageBox::Cancel));
    else
        space.dialogs.expect(folderDialog(space, {}));
    if (byMenu)
        space.trigger("actionNew");
    else
        QVERIFY(space.click("loadini"));
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestLoadShow::answers_data()
{
    QTest::addColumn<bool>("isMidiMode");
    QTest::addColumn<QMessageBox::StandardButton>("answer");
    QTest::addColumn<bool>("loads");
    for (const bool isMidiMode : {false, true}) {
        const char *mode = isMidiMode ? "keys" : "pads";
        QTest::addRow("%s: Save", mode) << isMidiMode << QMessageBox::Save << true;
        QTest::addRow("%s: Yes", mode) << isMidiMode << QMessageBox::Yes << true;
        QTest::addRow("%s: Cancel", mode) << isMidiMode << QMessageBox::Cancel << false;
        QTest::addRow("%s: Escape", mode) << isMidiMode << QMessageBox::NoButton << false;
    }
}

void TestLoadShow::answers()
{
    QFETCH(bool, isMidiMode);
    QFETCH(QMessageBox::StandardButton, answer);
    QFETCH(bool, loads);

    Workspace space;
    QVERIFY2(space.loadSomeShow(), qPrintable(space.dialogs.faults()));
    if (isMidiMode)
        QVERIFY(space.click("radio_outputmidi"));
    QVERIFY(isMidiMode ? space.putOnKey(3, 4, 5) : space.putOnPad(3, 4));
    const QStringList before = space.snapshot();
    const QString next = space.writeShow("Next", Workspace::iniWith({2}));

    space.dialogs.expect(Boxes::showOverWork(answer));
    if (answer == QMessageBox::Save) {
        space.dialogs.expect(Boxes::saveDialog(space, space.home() + "/a.zarvex"));
        space.dialogs.expect(Boxes::projectSaved("a"));
    }
    if (loads)
        space.dialogs.expect(folderDialog(space, next));
    QVERIFY(space.click("loadini"));
    QCOMPARE(space.dialogs.faults(), QString());

    if (loads) {
        QCOMPARE(space.window().windowTitle(), QString("Zarvex - Next"));
        QCOMPARE(space.dmx()->rowCount(), 2);
        QCOMPARE(space.leftOnPads(), QString());
        QCOMPARE(space.leftOnGrid(), QString());
    } else {
        QCOMPARE(space.snapshot(), before);
    }
}

void TestLoadShow::savingNeverStopsTheLoad_data()
{
    QTest::addColumn<bool>("isFileThere");
    QTest::newRow("file dialog cancelled") << false;
    QTest::newRow("file not to be overwritten") << true;
}

void TestLoadShow::savingNeverStopsTheLoad()
{
    QFETCH(bool, isFileThere);

    Workspace space;
    QVERIFY2(space.loadSomeShow(), qPrintable(space.dialogs.faults()));
    QVERIFY(space.putOnPad(3, 4));
    const QString projects = space.documents() + "/Zarvex/projects";

    space.dialogs.expect(Boxes::showOverWork(QMessageBox::Save));
    if (isFileThere) {
        const QString path = projects + "/Mine.zarvex";
        QVERIFY(writeFile(path, {}));
        space.dialogs.expect(Boxes::saveDialog(space, path));
        space.dialogs.expect(Boxes::overwrite("Project Mine", QMessageBox::No));
    } else {
        space.dialogs.expect(Boxes::saveDialog(space, {}));
    }
    space.dialogs.expect(folderDialog(space, space.writeShow("Next", Workspace::iniWith({2}))));
    QVERIFY(space.click("loadini"));
    QCOMPARE(space.dialogs.faults(), QString());
    QCOMPARE(space.window().windowTitle(), QString("Zarvex - Next"));
}

void TestLoadShow::showIsNamedAfterItsFolder_data()
{
    QTest::addColumn<QString>("folder");
    QTest::newRow("one word") << "Club";
    QTest::newRow("words") << "Club Night";
    QTest::newRow("full stops") << "Club v1.2.show";
    QTest::newRow("letters beyond ASCII") << QString::fromUtf8("Łódź – noc");
    QTest::newRow("signs that scripts and markup quote") << "Anna's Show & more";
    if (AnySignNamesFiles)
        QTest::newRow("tags") << "<b>Show <more>";
}

void TestLoadShow::showIsNamedAfterItsFolder()
{
    QFETCH(QString, folder);

    Workspace space;
    QCOMPARE(space.window().windowTitle(), QString("Zarvex"));
    space.dialogs.expect(folderDialog(space, space.writeShow(folder, Workspace::iniWith({3}))));
    QVERIFY(space.ask<bool>("loadshow"));
    QCOMPARE(space.dialogs.faults(), QString());
    QCOMPARE(space.window().windowTitle(), "Zarvex - " + folder);
    QCOMPARE(space.dmx()->rowCount(), 3);
}

void TestLoadShow::cancelledDialogChangesNothing_data()
{
    QTest::addColumn<bool>("isShowLoaded");
    QTest::newRow("no show") << false;
    QTest::newRow("a show") << true;
}

void TestLoadShow::cancelledDialogChangesNothing()
{
    QFETCH(bool, isShowLoaded);

    Workspace space;
    if (isShowLoaded) {
        QVERIFY2(space.loadSomeShow(), qPrintable(space.dialogs.faults()));
        QVERIFY(space.putOnPad(3, 4));
    }
    const QStringList before = space.snapshot();

    space.dialogs.expect(folderDialog(space, {}));
    QVERIFY(!space.ask<bool>("loadshow"));
    QCOMPARE(space.dialogs.faults(), QString());
    QCOMPARE(space.snapshot(), before);
    if (!isShowLoaded)
        QVERIFY2(exportSays(space, NoShow), qPrintable(space.dialogs.faults()));
}

void TestLoadShow::folderWithoutSettings_data()
{
    QTest::addColumn<bool>("isShowLoaded");
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("file");
    for (const bool isShowLoaded : {false, true}) {
        const char *start = isShowLoaded ? "a show" : "no show";
        QTest::addRow("%s: empty folder", start) << isShowLoaded << ""
                                                 << "";
        QTest::addRow("%s: empty Live folder", start) << isShowLoaded << "/Live"
                                                      << "";
        QTest::addRow("%s: settings beside the Live folder", start) << isShowLoaded << "/Live"
                                                                    << "/live.ini";
        QTest::addRow("%s: other file in the Live folder", start) << isShowLoaded << "/Live"
                                                                  << "/Live/live.ini.bak";
    }
}

void TestLoadShow::folderWithoutSettings()
{
    QFETCH(bool, isShowLoaded);
    QFETCH(QString, folder);
    QFETCH(QString, file);

    Workspace space;
    if (isShowLoaded) {
        QVERIFY2(space.loadSomeShow(), qPrintable(space.dialogs.faults()));
        QVERIFY(space.putOnPad(3, 4));
    }
    const QStringList before = space.snapshot();
    const QString show = space.home() + "/No Show";
    QVERIFY(QDir().mkpath(show + folder));
    if (!file.isEmpty()) {
        QFile other(show + file);
        QVERIFY(other.open(QIODevice::WriteOnly) && other.write(Workspace::iniWith({2})) > 0);
    }

    space.dialogs.expect(folderDialog(space, show));
    space.dialogs.expect(notFound());
    QVERIFY(!space.ask<bool>("loadshow"));
    QCOMPARE(space.dialogs.faults(), QString());
    QCOMPARE(space.snapshot(), before);
    if (!isShowLoaded)
        QVERIFY2(exportSays(space, NoShow), qPrintable(space.dialogs.faults()));
}

void TestLoadShow::settingsThatCannotBeOpenedLeaveTheNewName()
{
    Workspace space;
    QVERIFY2(space.loadSomeShow(), qPrintable(space.dialogs.faults()));
    QVERIFY(space.putOnPad(3, 4));
    const QStringList before = space.snapshot();

    // A folder of the settings' name exists and cannot be opened, whoever the user is.
    QVERIFY(QDir().mkpath(space.home() + "/Locked/Live/live.ini"));
    space.dialogs.expect(folderDialog(space, space.home() + "/Locked"));
    QVERIFY(space.ask<bool>("loadshow"));
    QCOMPARE(space.dialogs.faults(), QString());
    QCOMPARE(space.snapshot(), before);
    QCOMPARE(space.window().windowTitle(), QString("Zarvex - Show"));

    // The new name is there nevertheless, beside the old settings: a project has both.
    const QString project = space.documents() + "/Zarvex/projects/Night.zarvex";
    space.dialogs.expect(Boxes::saveDialog(space, project));
    space.dialogs.expect(Boxes::projectSaved("Night"));
    space.trigger("actionSave_2");
    QCOMPARE(space.dialogs.faults(), QString());
    QVERIFY(bytesOf(project).contains(" showname=\"Locked\""));
    QVERIFY(bytesOf(project).contains(" show=\"" + (space.home() + "/Show/Live/live.ini").toUtf8() + '"'));

    // The next reading by path puts it in the title.
    const QString path = space.writeShow("Other", Workspace::iniWith({2})) + "/Live/live.ini";
    QVERIFY(space.ask<bool>("loadshowname", path));
    QCOMPARE(space.window().windowTitle(), QString("Zarvex - Locked"));
}

void TestLoadShow::settingsThatCannotBeOpenedCountAsLoaded()
{
    Workspace space;
    QVERIFY2(exportSays(space, NoShow), qPrintable(space.dialogs.faults()));

    QVERIFY(QDir().mkpath(space.home() + "/Locked/Live/live.ini"));
    QVERIFY2(space.load(space.home() + "/Locked"), qPrintable(space.dialogs.faults()));
    QCOMPARE(space.window().windowTitle(), QString("Zarvex"));
    QCOMPARE(space.find<QComboBox>("combobox")->count(), 0);
    QCOMPARE(space.dmx()->rowCount(), 0);
    QVERIFY2(exportSays(space, NothingAssigned), qPrintable(space.dialogs.faults()));
}

void TestLoadShow::loadsByName()
{
    Workspace space;
    const QString path = space.writeShow("By Name", Workspace::iniWith({1, 2})) + "/Live/live.ini";
    QVERIFY(space.ask<bool>("loadshowname", path));
    QCOMPARE(Workspace::itemsOf(space.find<QComboBox>("combobox")),
             QStringList({"All Pages", "Page 1", "Page 2"}));
    QCOMPARE(space.dmx()->rowCount(), 3);

    // The reader sets no name: the title has an empty one, and no gate sees a show.
    QCOMPARE(space.window().windowTitle(), QString("Zarvex - "));
    QVERIFY2(exportSays(space, NoShow), qPrintable(space.dialogs.faults()));
}

void TestLoadShow::badPathLeavesEverything_data()
{
    QTest::addColumn<QString>("path"); // below the home folder, or empty
    QTest::addColumn<bool>("areFilesShort");
    QTest::newRow("no path") << "" << false;
    QTest::newRow("missing file") << "/Show/Live/other.ini" << false;
    QTest::newRow("missing folder") << "/Nowhere/Live/live.ini" << false;
    QTest::newRow("a folder") << "/Show/Live" << false;
    QTest::newRow("a serialised object in a value") << "/Hostile.ini" << false;
    QTest::newRow("below a file") << "/Show/Live/live.ini/live.ini" << false;
#ifdef Q_OS_UNIX
    QTest::newRow("a pipe that nobody writes to") << "/Pipe" << false;
    QTest::newRow("a file that cannot be opened") << "/Show/Live/live.ini" << true;
#endif
}

void TestLoadShow::badPathLeavesEverything()
{
    QFETCH(QString, path);
    QFETCH(bool, areFilesShort);

    Workspace space;
    QVERIFY2(space.loadSomeShow(), qPrintable(space.dialogs.faults()));
    QVERIFY(space.putOnPad(3, 12));
    QVERIFY(space.type("bankname", "Mine"));
    QTest::keyClick(space.find<QLineEdit>("bankname"), Qt::Key_Return);
    QVERIFY(space.type("padsname", "My Page"));
    QVERIFY(space.choose("combobox", 2));
    QVERIFY(writeFile(space.home() + "/Hostile.ini", "x=@Variant(\\x0\\x0\\x0\\x9\\x7f\\xff\\xff\\xff)"));
    const QStringList before = space.snapshot();
    QVERIFY(before.contains("banks: BANK 1|Mine|BANK 3|BANK 4|BANK 5|BANK 6|BANK 7|BANK 8"));
#ifdef Q_OS_UNIX
    QCOMPARE(mkfifo(QFile::encodeName(space.home() + "/Pipe").constData(), 0600), 0);
#endif

    {
        const FileShortage shortage(areFilesShort);
        QVERIFY(!space.ask<bool>("loadshowname", path.isEmpty() ? path : space.home() + path));
    }
    QCOMPARE(space.snapshot(), before);
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestLoadShow::badPathLeavesTheSwitch()
{
    Workspace space;
    QVERIFY(space.click("radio_outputmidi"));
    QVERIFY(space.pickOnKey(2, 2, {"Set as Switch"}));
    QVERIFY(!space.ask<bool>("loadshowname", space.home() + "/live.ini"));
    QCOMPARE(space.grid()->index(2, 2).data().toString(), QString("SWITCH"));

    // The window knows it still: the next click takes the role away.
    QVERIFY(space.pickOnKey(2, 2, {"Set as Switch"}));
    QCOMPARE(space.grid()->index(2, 2).data().toString(), QString("PAD 1"));
}

void TestLoadShow::throwsAwayAssignmentsAndNames()
{
    Workspace space;
    QVERIFY2(space.loadSomeShow(), qPrintable(space.dialogs.faults()));
    QVERIFY(fillKeys(space) && fillAndNameBanks(space));
    QVERIFY(space.type("padsname", "My Page"));
    QVERIFY(space.choose("combobox", 2));
    QVERIFY(space.dmxView()->isRowHidden(0));

    space.dialogs.expect(Boxes::showOverWork(QMessageBox::Yes));
    const QString next = space.writeShow("Next", Workspace::iniWith({3, 2}));
    QVERIFY2(space.load(next), qPrintable(space.dialogs.faults()));

    QCOMPARE(space.leftOnPads(), QString());
    QCOMPARE(space.leftOnGrid(), QString());
    QCOMPARE(space.ticked(), QList<int>());
    QCOMPARE(Workspace::itemsOf(space.find<QComboBox>("combobox")),
             QStringList({"All Pages", "Page 1", "Page 2"}));
    QCOMPARE(space.find<QComboBox>("combobox")->currentIndex(), 0);
    QCOMPARE(space.dmx()->rowCount(), 5);
    for (int row = 0; row < 5; ++row)
        QVERIFY2(!space.dmxView()->isRowHidden(row), qPrintable(QString::number(row)));
    QCOMPARE(space.find<QLineEdit>("padsname")->text(), QString("OS2L DMX"));
    QCOMPARE(space.find<QLineEdit>("bankname")->text(), QString("BANK 1"));
    QCOMPARE(space.find<QComboBox>("bankcombo")->currentIndex(), 0);
    for (int row = 0; row < 64; ++row)
        QCOMPARE(space.padsView()->isRowHidden(row), row >= 8);
    QCOMPARE(space.bankNames().join("|"), QString("BANK 1|BANK 2|BANK 3|BANK 4|BANK 5|BANK 6|BANK 7|BANK 8"));
    QCOMPARE(space.window().windowTitle(), QString("Zarvex - Next"));
    QVERIFY2(exportSays(space, NothingAssigned), qPrintable(space.dialogs.faults()));
}

void TestLoadShow::keepsModeLayoutAndDevice()
{
    Workspace space;
    QVERIFY(space.click("radioButton_16pads"));
    QVERIFY(space.click("radio_outputmidi"));
    QVERIFY(space.choose("devicescombo", Devices::Pro));
    QVERIFY(space.choose("devicescombo", Devices::S));
    QVERIFY(space.choose("mididevices", 1));
    QVERIFY(space.choose("combo_offcolor", 7));
    QVERIFY(space.choose("combo_oncolor", 11));
    const QStringList keys = space.keys();

    QVERIFY2(space.loadSomeShow(), qPrintable(space.dialogs.faults()));
    QVERIFY(space.find<QRadioButton>("radio_outputmidi")->isChecked());
    QVERIFY(space.gridView()->isVisible());
    QVERIFY(space.find<QRadioButton>("radioButton_16pads")->isChecked());
    QVERIFY(!space.padsView()->isColumnHidden(1));
    QCOMPARE(space.find<QComboBox>("devicescombo")->currentText(), QString("Novation Launchpad S"));
    QCOMPARE(space.find<QComboBox>("mididevices")->currentIndex(), 1);
    QCOMPARE(space.find<QComboBox>("combo_offcolor")->currentIndex(), 7);
    QCOMPARE(space.find<QComboBox>("combo_oncolor")->currentIndex(), 11);
    QCOMPARE(space.keys(), keys);
}

void TestLoadShow::secondShowInMidiModeEmptiesTheGrid()
{
    Workspace space;
    QVERIFY2(space.loadSomeShow(), qPrintable(space.dialogs.faults()));
    QVERIFY(space.click("radio_outputmidi"));
    QVERIFY(space.putOnKey(1, 5, 5));

    space.dialogs.expect(Boxes::showOverWork(QMessageBox::Yes));
    QVERIFY2(space.load(space.writeShow("Next", Workspace::iniWith({3}))),
             qPrintable(space.dialogs.faults()));
    QVERIFY(space.find<QRadioButton>("radio_outputmidi")->isChecked());
    QVERIFY(space.gridView()->isVisible());
    QCOMPARE(space.leftOnGrid(), QString());
    QVERIFY(space.ask<bool>("isMIDIempty"));
    QVERIFY2(exportSays(space, NothingAssigned), qPrintable(space.dialogs.faults()));
}

void TestLoadShow::forgetsTheSwitch()
{
    Workspace space;
    QVERIFY2(space.loadSomeShow(), qPrintable(space.dialogs.faults()));
    QVERIFY(space.click("radio_outputmidi"));
    QVERIFY(space.pickOnKey(4, 7, {"Set as Switch"}));
    QVERIFY2(space.load(space.writeShow("Next", Workspace::iniWith({3}))),
             qPrintable(space.dialogs.faults()));
    QCOMPARE(space.leftOnGrid(), QString());

    // A project tells the row and column of the Switch.
    const QString path = space.home() + "/Switch.zarvex";
    space.dialogs.expect(Boxes::projectSaved("Switch"));
    QVERIFY(space.call("savemidiproject", path));
    QCOMPARE(space.dialogs.faults(), QString());
    const QByteArray project = bytesOf(path);
    QVERIFY2(project.contains(" switch=\"-1,-1\" "), project.left(300).constData());
}

void TestLoadShow::showWithoutPagesCountsAsLoaded_data()
{
    QTest::addColumn<QByteArray>("ini");
    QTest::newRow("empty file") << QByteArray();
    QTest::newRow("no page group") << QByteArray("[other]\nkey=1\n");
    QTest::newRow("no number") << QByteArray("[page]\nkey=1\n[page1]\nname=One\n");
}

void TestLoadShow::showWithoutPagesCountsAsLoaded()
{
    QFETCH(QByteArray, ini);

    Workspace space;
    QVERIFY2(space.load(space.writeShow("Bare", ini)), qPrintable(space.dialogs.faults()));
    QCOMPARE(space.window().windowTitle(), QString("Zarvex - Bare"));
    QCOMPARE(Workspace::itemsOf(space.find<QComboBox>("combobox")), QStringList("All Pages"));
    QCOMPARE(space.find<QComboBox>("combobox")->currentText(), QString("All Pages"));
    QCOMPARE(space.dmx()->rowCount(), 0);
    QVERIFY2(exportSays(space, NothingAssigned), qPrintable(space.dialogs.faults()));
}

void TestLoadShow::readsSettings_data()
{
    QTest::addColumn<QByteArray>("ini");
    QTest::addColumn<QStringList>("pages"); // behind "All Pages"
    QTest::addColumn<QStringList>("buttons");

    const QStringList none;
    const auto row = [](const char *name, const QByteArray &ini, const QStringList &pages,
                        const QStringList &buttons) { QTest::newRow(name) << ini << pages << buttons; };

    row("empty file", "", none, none);
    row("byte order mark alone", "\xEF\xBB\xBF", none, none);
    row("no page group", "[other]\nnumber=2\n[page1]\nname=One\n", none, none);
    row("no number", "[page]\nname=x\n[page1]\nname=One\n", none, none);
    row("number is empty", "[page]\nnumber=\n[page1]\nname=One\n", none, none);
    row("number is no number", "[page]\nnumber=two\n[page1]\nname=One\n", none, none);
    row("number below zero", "[page]\nnumber=-2\n[page1]\nname=One\n", none, none);
    row("number is zero", "[page]\nnumber=0\n[page1]\nname=One\n", none, none);
    row("fewer pages told than there", "[page]\nnumber=1\n[page1]\nname=One\n[page2]\nname=Two\n", {"One"},
        none);
    row("third page missing", "[page]\nnumber=3\n[page1]\nname=One\n[page2]\nname=Two\n", {"One", "Two", ""},
        none);
    row("second page missing",
        "[page]\nnumber=3\n[page1]\nname=One\n[page3]\nname=Three\nnb_buttons=1\n[page3_button1]\ntitle=A\n",
        {"One", "", "Three"}, {"A|3|0|#ffffff"});

    const QByteArray onePage = "[page]\nnumber=1\n[page1]\nname=One\n";
    const QByteArray button = "[page1_button1]\ntitle=A\ncolor=255\n";
    row("nb_buttons missing", onePage + button, {"One"}, none);
    row("nb_buttons is empty", onePage + "nb_buttons=\n" + button, {"One"}, none);
    row("nb_buttons is no number", onePage + "nb_buttons=one\n" + button, {"One"}, none);
    row("nb_buttons with a unit", onePage + "nb_buttons=1 button\n" + button, {"One"}, none);
    row("nb_buttons is hexadecimal", onePage + "nb_buttons=0x1\n" + button, {"One"}, none);
    row("nb_buttons below zero", onePage + "nb_buttons=-1\n" + button, {"One"}, none);
    row("nb_buttons too large for an integer", onePage + "nb_buttons=99999999999\n" + button, {"One"}, none);
    row("fewer buttons told than there", onePage + "nb_buttons=1\n" + button + "[page1_button2]\ntitle=B\n",
        {"One"}, {"A|1|0|#0000ff"});
    row("button group missing", onePage + "nb_buttons=2\n[page1_button2]\ntitle=B\ncolor=255\n", {"One"},
        {"|1|0|#ffffff", "B|1|1|#0000ff"});
    row("page name missing", "[page]\nnumber=1\n[page1]\nnb_buttons=1\n" + button, {""}, {"A|1|0|#0000ff"});

    row("colour missing", oneButton("title=A\n"), {"One"}, {"A|1|0|#ffffff"});
    row("colour 0 is black", oneButton("title=A\ncolor=0\n"), {"One"}, {"A|1|0|#000000"});
    row("colour empty is black", oneButton("title=A\ncolor=\n"), {"One"}, {"A|1|0|#000000"});
    row("colour that is no number is black", oneButton("title=A\ncolor=red\n"), {"One"}, {"A|1|0|#000000"});
    row("colour 255 is blue", oneButton("title=A\ncolor=255\n"), {"One"}, {"A|1|0|#0000ff"});
    row("colour 16711680 is red", oneButton("title=A\ncolor=16711680\n"), {"One"}, {"A|1|0|#ff0000"});
    row("colour filled up with zeros", oneButton("title=A\ncolor=2748\n"), {"One"}, {"A|1|0|#000abc"});
    row("colour of seven digits", oneButton("title=A\ncolor=16777216\n"), {"One"}, {"A|1|0|no colour"});
    row("colour of eight digits", oneButton("title=A\ncolor=285147136\n"), {"One"}, {"A|1|0|#10ff0000"});
    row("colour under another key", oneButton("title=A\nColor=255\n"), {"One"}, {"A|1|0|#ffffff"});

    row("numbers run on over pages",
        "[page]\nnumber=3\n[page1]\nname=One\nnb_buttons=4\n[page2]\nname=Two\n[page3]\nname=Three\n"
        "nb_buttons=2\n[page1_button1]\ntitle=A\n[page1_button2]\ntitle=B\n[page1_button3]\ntitle=C\n"
        "[page1_button4]\ntitle=D\n[page3_button1]\ntitle=E\n[page3_button2]\ntitle=F\n",
        {"One", "Two", "Three"},
        {"A|1|0|#ffffff", "B|1|1|#ffffff", "C|1|2|#ffffff", "D|1|3|#ffffff", "E|3|4|#ffffff",
         "F|3|5|#ffffff"});
    row("page with a number of its own",
        "[page]\nnumber=2\n[page1]\nname=One\nnb_buttons=1\n[page2]\nname=Two\npageid=1\nnb_buttons=1\n"
        "[page1_button1]\ntitle=A\n[page2_button1]\ntitle=B\n",
        {"One", "Two"}, {"A|1|0|#ffffff", "A|2|1|#ffffff"});
    row("button with a page of its own", oneButton("title=A\npageid=7\n"), {"One"}, {"A|7|0|#ffffff"});
    row("button with a number of its own", oneButton("title=A\nbuttonid=99\n"), {"One"}, {"A|1|0|#ffffff"});
    row("button with a tick of its own", oneButton("title=A\ncheck=1\n"), {"One"}, {"A|1|0|#ffffff"});
    row("keys that nobody knows", oneButton("fade=3\ntitle=A\nimage=x.png\n"), {"One"}, {"A|1|0|#ffffff"});

    row("title missing", oneButton("color=255\n"), {"One"}, {"|1|0|#0000ff"});
    row("title with commas", oneButton("title=Anna, Iza,Krystian\n"), {"One"},
        {"Anna, Iza,Krystian|1|0|#ffffff"});
    row("title of digits", oneButton("title=007\n"), {"One"}, {"007|1|0|#ffffff"});
    row("page name with a comma", "[page]\nnumber=1\n[page1]\nname=Red, White\n", {"Red, White"}, none);
    row("byte order mark and letters beyond ASCII",
        "\xEF\xBB\xBF[page]\nnumber = 1\n[page1]\nname = \xC5\x9Awiat\xC5\x82"
        "a\nnb_buttons = 1\n"
        "[page1_button1]\ntitle = S\xC5\x82o\xC5\x84"
        "ce\n",
        {QString::fromUtf8("Światła")}, {QString::fromUtf8("Słońce|1|0|#ffffff")});
    row("blanks around the signs", oneButton("title = A\ncolor = 255\n"), {"One"}, {"A|1|0|#0000ff"});
    row("line ends with carriage returns", oneButton("title=A\ncolor=255\n").replace("\n", "\r\n"), {"One"},
        {"A|1|0|#0000ff"});
    row("no line end at the end", oneButton("title=A"), {"One"}, {"A|1|0|#ffffff"});
    row("groups in another order",
        "[page1_button1]\ntitle=A\n[page1]\nnb_buttons=1\nname=One\n[page]\nnumber=1\n", {"One"},
        {"A|1|0|#ffffff"});
    row("groups twice",
        oneButton("title=A\ncolor=255\n") + "[page1]\nnote=x\n[page1_button1]\ntitle=B\n[page]\nnote=y\n",
        {"One"}, {"B|1|0|#0000ff"});
}

void TestLoadShow::readsSettings()
{
    QFETCH(QByteArray, ini);
    QFETCH(QStringList, pages);
    QFETCH(QStringList, buttons);

    Workspace space;
    QVERIFY2(space.load(space.writeShow("Show", ini)), qPrintable(space.dialogs.faults()));
    QCOMPARE(Workspace::itemsOf(space.find<QComboBox>("combobox")), QStringList("All Pages") + pages);
    QCOMPARE(liveButtons(space), buttons);
    QCOMPARE(space.ticked(), QList<int>());
    QCOMPARE(space.window().windowTitle(), QString("Zarvex - Show"));
}

void TestLoadShow::survivesBadSettings_data()
{
    QTest::addColumn<QByteArray>("ini");
    QTest::addColumn<int>("pages"); // without "All Pages"
    QTest::addColumn<int>("buttons");

    QByteArray everyByte;
    for (int i = 0; i < 64 * 256; ++i)
        everyByte += static_cast<char>(i * 7);
    const QByteArray good = Workspace::iniWith({4, 4});
    const auto upTo = [&good](const char *text) {
        return good.left(good.indexOf(text) + int(qstrlen(text)));
    };
    const QString utf16 = QString::fromLatin1(good);

    QTest::newRow("every byte") << everyByte << 0 << 0;
    QTest::newRow("zeros") << QByteArray(100000, '\0') << 0 << 0;
    QTest::newRow("a good start, then every byte") << good + everyByte << 2 << 8;
    QTest::newRow("two bytes a letter")
        << QByteArray(reinterpret_cast<const char *>(utf16.utf16()), utf16.size() * 2) << 0 << 0;
    QTest::newRow("brackets") << QByteArray("[[[[]]]]\n[\n]\n[]\n=\n==\n;\n%\n\\\n") << 0 << 0;
    QTest::newRow("one long line") << QByteArray(2000000, 'x') << 0 << 0;
    QTest::newRow("cut off in the number's key") << upTo("[page]\nnum") << 0 << 0;
    QTest::newRow("cut off in front of the number") << upTo("number = ") << 0 << 0;
    QTest::newRow("cut off in a page's name") << upTo("name = Page 2").chopped(3) << 2 << 4;
    QTest::newRow("cut off in a button's group") << upTo("[page2_but") << 2 << 8;
    QTest::newRow("cut off in a button's title") << upTo("title = 2-") << 2 << 8;
    QTest::newRow("3 pages and 5000 buttons on paper, two there")
        << QByteArray("[page]\nnumber=3\n[page1]\nname=One\nnb_buttons=5000\n[page1_button1]\ntitle=A\n"
                      "[page1_button5000]\ntitle=Z\n")
        << 3 << 5000;
}

void TestLoadShow::survivesBadSettings()
{
    QFETCH(QByteArray, ini);
    QFETCH(int, pages);
    QFETCH(int, buttons);

    Workspace space;
    QVERIFY2(space.loadSomeShow(), qPrintable(space.dialogs.faults()));
    QVERIFY2(space.load(space.writeShow("Bad", ini)), qPrintable(space.dialogs.faults()));
    QCOMPARE(space.window().windowTitle(), QString("Zarvex - Bad"));
    QCOMPARE(space.find<QComboBox>("combobox")->count(), 1 + pages);
    QCOMPARE(space.dmx()->rowCount(), buttons);
    for (int row = 0; row < buttons; ++row)
        QCOMPARE(space.dmx()->index(row, 0).data(ButtonRole).toString(), QString::number(row));
}

void TestLoadShow::hugeCountsEndSoon_data()
{
    QTest::addColumn<QByteArray>("ini");
    QTest::newRow("pages") << QByteArray("[page]\nnumber=2000000000\n[page1]\nname=One\n");
    QTest::newRow("buttons") << oneButton("title=A\n").replace("nb_buttons=1", "nb_buttons=2000000000");
}

void TestLoadShow::hugeCountsEndSoon()
{
    QFETCH(QByteArray, ini);

    Workspace space;
    const QString folder = space.writeShow("Large", ini);
    const ProcessorTime clock;
    QVERIFY2(space.load(folder), qPrintable(space.dialogs.faults()));
    QVERIFY2(clock.elapsed() < Deadline, qPrintable(QString("%1 ms").arg(clock.elapsed())));
    QCOMPARE(space.window().windowTitle(), QString("Zarvex - Large"));
    QCOMPARE(space.find<QComboBox>("combobox")->itemText(1), QString("One"));
}

void TestLoadShow::readsSixtyThousandButtons()
{
    Workspace space;
    const QString folder = space.writeShow("Large", Workspace::iniWith({20000, 20000, 20000}));
    const ProcessorTime clock;
    QVERIFY2(space.load(folder), qPrintable(space.dialogs.faults()));
    QVERIFY2(clock.elapsed() < Deadline, qPrintable(QString("%1 ms").arg(clock.elapsed())));
    QCOMPARE(space.dmx()->rowCount(), 60000);
    QCOMPARE(space.dmx()->index(59999, 0).data().toString(), QString("3-20000"));
    QCOMPARE(space.dmx()->index(59999, 0).data(ButtonRole).toString(), QString("59999"));

    const ProcessorTime choosing;
    QVERIFY(space.choose("combobox", 3));
    QVERIFY2(choosing.elapsed() < Deadline, qPrintable(QString("%1 ms").arg(choosing.elapsed())));
    QVERIFY(space.dmxView()->isRowHidden(39999));
    QVERIFY(!space.dmxView()->isRowHidden(40000));
}

QTEST_MAIN(TestLoadShow)
#include "test_loadshow.moc"

#include "support/boxes.h"
#include "support/devices.h"
#include "support/files.h"
#include "support/fulldisk.h"
#include "support/processortime.h"
#include "support/workspace.h"

#include <QComboBox>
#include <QDomDocument>
#include <QFileDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QRandomGenerator>

#include <optional>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

namespace {

using Box = ExpectedDialogs::Box;

const QStringList DefaultBanks = {"BANK 1", "BANK 2", "BANK 3", "BANK 4",
                                  "BANK 5", "BANK 6", "BANK 7", "BANK 8"};

// All that the two tables write into a project, in the order of the file.
const QList<QPair<QByteArray, int>> PadAttributes = {
    {"name", Qt::EditRole}, {"dspname", DisplayNameRole},  {"pagenr", PageRole},
    {"id", ButtonRole},     {"color", Qt::DecorationRole},
};
const QList<QPair<QByteArray, int>> KeyAttributes = {
    {"name", Qt::EditRole},   {"dspname", DisplayNameRole}, {"pagenr", PageRole},
    {"id", ButtonRole},       {"avail", AvailableRole},     {"coloroff", OffColorRole},
    {"coloron", OnColorRole}, {"blink", BlinkRole},         {"color", Qt::DecorationRole},
};

/** Notes what file dialogs are made of, beside what the queue of expected dialogs looks at. */
class FileDialogs final : public QObject
{
    Q_OBJECT

public:
    FileDialogs() { qApp->installEventFilter(this); }

    bool eventFilter(QObject *object, QEvent *event) override
    {
        auto *dialog = qobject_cast<QFileDialog *>(object);
        if (dialog && event->type() == QEvent::Show) {
            parent = dialog->parentWidget();
            isForSaving = dialog->acceptMode() == QFileDialog::AcceptSave;
            asksBeforeOverwriting = !dialog->testOption(QFileDialog::DontConfirmOverwrite);
            if (!toRemove.isEmpty())
                connect(dialog, &QDialog::accepted, this, [this] { QFile::remove(toRemove); });
        }
        return QObject::eventFilter(object, event);
    }

    QWidget *parent = nullptr;
    bool isForSaving = false;
    bool asksBeforeOverwriting = false;
    QString toRemove; ///< file that goes away when it has been chosen
};

QString projectsFolder(const Workspace &space)
{
    return space.documents() + "/Zarvex/projects";
}

QString projectPath(const Workspace &space, const QString &file = "Night.zarvex")
{
    return projectsFolder(space) + "/" + file;
}

/** Starts the window with a show of two pages of eight buttons each. */
bool start(Workspace &space)
{
    return space.loadSomeShow();
}

/** The settings file of the show that start() loads, or of another. */
QString settingsOf(const Workspace &space, const QString &show = "Show")
{
    return space.home() + "/" + show + "/Live/live.ini";
}

/** Saves by the menu into a new file. */
bool save(Workspace &space, const QString &path)
{
    space.dialogs.expect(Boxes::saveDialog(space, path));
    space.dialogs.expect(Boxes::projectSaved(QFileInfo(path).baseName()));
    space.trigger("actionSave_2");
    return space.dialogs.faults().isEmpty();
}

/** Loads by the slot, which asks nothing but for the file; nothing where a dialog was not as expected. */
std::optional<bool> loaded(Workspace &space, const QString &path)
{
    space.window();
    space.dialogs.expect(Boxes::loadDialog(space, path));
    const bool result = space.ask<bool>("loadproject");
    return space.dialogs.faults().isEmpty() ? std::optional<bool>(result) : std::nullopt;
}

/** Writes a project file and loads it. */
std::optional<bool> loadedFrom(Workspace &space, const QByteArray &content)
{
    space.window(); // makes the folder
    return writeFile(projectPath(space), content) ? loaded(space, projectPath(space)) : std::nullopt;
}

/** What saving would write into the "project" element: the fields of the window that no widget shows. */
QDomElement saved(Workspace &space, const char *slot)
{
    const QString path = space.home() + "/fields.zarvex";
    space.dialogs.expect(Boxes::projectSaved("fields"));
    QDomDocument document;
    if (!space.call(slot, path) || !document.setContent(bytesOf(path)))
        return {};
    return document.documentElement();
}

QString savedSwitch(Workspace &space)
{
    return saved(space, "savemidiproject").attribute("switch", "not saved");
}

QString savedBanks(Workspace &space)
{
    return saved(space, "savepadsproject").attribute("banks", "not saved");
}

QByteArray attribute(const QByteArray &name, const QString &value)
{
    return name + "=\"" + value.toUtf8() + "\" ";
}

/** A key element; the attributes are those of the pads. */
QByteArray padKey(int row, int column, const QString &name, int id, const QString &color = "#ff0000",
                  int page = 1)
{
    return "\t<key " + attribute("row", QString::number(row)) + attribute("column", QString::number(column))
           + attribute("name", name) + attribute("dspname", name) + attribute("pagenr", QString::number(page))
           + attribute("id", QString::number(id)) + attribute("color", color) + "/>\n";
}

/** A key element with all attributes of the grid. */
QByteArray gridKey(int row, int column, const QString &name, int id, const QString &avail = "1",
                   const QString &off = {}, const QString &on = {}, const QString &blink = "0")
{
    return "\t<key " + attribute("row", QString::number(row)) + attribute("column", QString::number(column))
           + attribute("name", name) + attribute("dspname", name) + attribute("pagenr", "1")
           + attribute("id", QString::number(id)) + attribute("avail", avail) + attribute("coloroff", off)
           + attribute("coloron", on) + attribute("blink", blink) + attribute("color", "#0000ff") + "/>\n";
}

QByteArray document(const QByteArray &attributes, const QByteArray &keys)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<project " + attributes + ">\n" + keys
           + "</project>\n";
}

/** A pads project of the show that start() loads; later attributes as given. */
QByteArray padsProject(const Workspace &space, const QByteArray &attributes, const QByteArray &keys = {})
{
    return document(attribute("type", "pads") + attribute("show", settingsOf(space))
                        + attribute("showname", "Show") + attributes,
                    keys);
}

QByteArray midiProject(const Workspace &space, const QByteArray &attributes, const QByteArray &keys = {})
{
    return document(attribute("type", "midi") + attribute("show", settingsOf(space))
                        + attribute("showname", "Show") + attributes,
                    keys);
}

/** The text of a whole project, from what the table shows now. */
QByteArray fileOf(const QByteArray &attributes, const QAbstractItemModel *table,
                  const QList<QPair<QByteArray, int>> &cellAttributes)
{
    QByteArray keys;
    for (int row = 0; row < table->rowCount(); ++row) {
        for (int column = 0; column < table->columnCount(); ++column) {
            keys += "\t<key row=\"" + QByteArray::number(row) + "\" column=\"" + QByteArray::number(column)
                    + "\" ";
            for (const auto &[name, role] : cellAttributes) {
                const QVariant value = table->index(row, column).data(role);
                keys += attribute(name, role == Qt::DecorationRole ? value.value<QColor>().name()
                                                                   : value.toString());
            }
            keys += "/>\n";
        }
    }
    return document(attributes, keys);
}

/** A cell as "name|dspname|pagenr|id|colour". */
QString pad(Workspace &space, int row, int column)
{
    const QModelIndex cell = space.pads()->index(row, column);
    QStringList values;
    for (const int role : {int(Qt::EditRole), int(DisplayNameRole), int(PageRole), int(ButtonRole)})
        values += cell.data(role).toString();
    values += cell.data(Qt::DecorationRole).value<QColor>().name();
    return values.join("|");
}

/** A cell as "name|dspname|pagenr|id|avail|coloroff|coloron|blink|colour". */
QString key(Workspace &space, int row, int column)
{
    const QModelIndex cell = space.grid()->index(row, column);
    QStringList values;
    for (const int role : {int(Qt::EditRole), int(DisplayNameRole), int(PageRole), int(ButtonRole),
                           int(AvailableRole), int(OffColorRole), int(OnColorRole), int(BlinkRole)})
        values += cell.data(role).toString();
    values += cell.data(Qt::DecorationRole).value<QColor>().name();
    return values.join("|");
}

int current(Workspace &space, const char *combo)
{
    return space.find<QComboBox>(combo)->currentIndex();
}

bool isChecked(Workspace &space, const char *radio)
{
    return space.find<QRadioButton>(radio)->isChecked();
}

/** Where the window differs from that of an output; empty if nowhere. */
QString notOfOutput(Workspace &space, bool isMidi)
{
    QStringList wrong;
    const auto check = [&wrong](bool isRight, const QString &what) {
        if (!isRight)
            wrong += what;
    };
    const int width = isMidi ? 1366 : 650;
    check(isChecked(space, "radio_outputmidi") == isMidi, "radio_outputmidi");
    check(isChecked(space, "radio_outputpage") != isMidi, "radio_outputpage");
    check(space.find<QGroupBox>("groupBox_pads")->isVisible() != isMidi, "groupBox_pads");
    check(space.find<QGroupBox>("groupBox_midis")->isVisible() == isMidi, "groupBox_midis");
    check(space.find<QGroupBox>("groupBox_controller")->isVisible() == isMidi, "groupBox_controller");
    check(space.find<QGroupBox>("groupBox")->geometry() == QRect(290, 30, isMidi ? 1071 : 341, 51),
          "groupBox");
    check(space.window().minimumWidth() == width && space.window().maximumWidth() == width, "window width");
    check(space.window().minimumHeight() == 606 && space.window().maximumHeight() == 606, "window height");
    check(space.find<QLabel>("label_padname")->text() == (isMidi ? "MIDI Mapping" : "Pads Page"),
          "label_padname");
    return wrong.join(", ");
}

/** Where the pads panel differs from bank 1 in a layout; empty if nowhere. */
QString notOfFirstBank(Workspace &space, bool has16Pads)
{
    QStringList wrong;
    const auto check = [&wrong](bool isRight, const QString &what) {
        if (!isRight)
            wrong += what;
    };
    check(current(space, "bankcombo") == 0, "bankcombo");
    check(isChecked(space, "radioButton_16pads") == has16Pads, "radioButton_16pads");
    check(isChecked(space, "radioButton_8pads") != has16Pads, "radioButton_8pads");
    check(space.padsView()->isColumnHidden(1) != has16Pads, "column 1");
    check(!space.padsView()->isColumnHidden(0), "column 0");
    for (int row = 0; row < 64; ++row)
        check(space.padsView()->isRowHidden(row) == (row >= 8), "row " + QString::number(row));
    return wrong.join(", ");
}

bool fill(QAbstractItemModel *table, int row, int column, const QList<QPair<QByteArray, int>> &attributes,
          const QStringList &values)
{
    for (int i = 0; i < attributes.size(); ++i) {
        if (!table->setData(table->index(row, column), values.value(i), attributes.at(i).second))
            return false;
    }
    return true;
}

/** A text of any characters that a project keeps. */
QString anyText(QRandomGenerator &random)
{
    static const QVector<uint> some = {'a', 'Z',   '0', ' ',    '\'',   '>',  '\t',    ';',    '%',   '\\',
                                       '/', '=',   '-', ']',    0xE9,   0xDF, 0x142,   0x416,  0x5D0, 0x3042,
                                       '!', 0x301, '`', 0x200D, 0x2028, '?',  0x1F600, 0x1F3B6};
    QString text;
    for (int left = random.bounded(1, 12); left > 0; --left) {
        const uint character = some.at(random.bounded(some.size()));
        text += QString::fromUcs4(&character, 1);
    }
    return text;
}

QString anyColor(QRandomGenerator &random)
{
    return QColor::fromRgb(random.bounded(0x1000000)).name();
}

/** Fills a third of the cells with Live Buttons under any names. */
bool fillAtRandom(Workspace &space, bool isMidi, QRandomGenerator &random)
{
    QAbstractItemModel *table = isMidi ? space.grid() : space.pads();
    bool isFilled = true;
    for (int row = 0; row < table->rowCount(); ++row) {
        for (int column = 0; column < table->columnCount(); ++column) {
            if (random.bounded(3) != 0 && row + column != 4)
                continue;
            QStringList values = {anyText(random), anyText(random), QString::number(random.bounded(1, 3)),
                                  QString::number(random.bounded(16))};
            if (isMidi)
                values +=
                    {QString::number(random.bounded(2)), random.bounded(2) ? anyColor(random) : "",
                     random.bounded(2) ? "yellow" : "", QStringList{"", "0", "1"}.at(random.bounded(3))};
            values += anyColor(random);
            isFilled = isFilled && fill(table, row, column, isMidi ? KeyAttributes : PadAttributes, values);
        }
    }
    return isFilled;
}

/** Names banks, picks the layout, the device, its colours and the Switch. */
bool chooseAtRandom(Workspace &space, bool isMidi, QRandomGenerator &random)
{
    space.find<QLineEdit>("padsname")->setText(anyText(random));
    if (!isMidi) {
        for (int bank = 0; bank < 8; ++bank) {
            space.find<QComboBox>("bankcombo")->setCurrentIndex(bank);
            space.find<QLineEdit>("bankname")->setText(anyText(random));
            if (!space.call("on_bankname_editingFinished"))
                return false;
        }
        return space.click(random.bounded(2) ? "radioButton_16pads" : "radioButton_8pads");
    }
    space.find<QComboBox>("devicescombo")->setCurrentIndex(random.bounded(Devices::Names.size()));
    for (const char *combo : {"combo_offcolor", "combo_oncolor"})
        space.find<QComboBox>(combo)->setCurrentIndex(random.bounded(space.find<QComboBox>(combo)->count()));
    return random.bounded(4) == 0
           || space.pickOnKey(random.bounded(2, 10), random.bounded(2, 10), {"Set as Switch"});
}

/** Rows for a test of both kinds of project. */
void bothKinds()
{
    QTest::addColumn<bool>("isMidi");
    QTest::newRow("pads") << false;
    QTest::newRow("midi") << true;
}

/** Picks all that the menu of a key offers on any device. */
bool useAllMenus(Workspace &space)
{
    for (const char *entry : {"Blink", "Set as Switch"}) {
        if (!space.pickOnKey(2, 2, {entry}) || !space.pickOnKey(4, 4, {"Set as Switch"}))
            return false;
    }
    if (!space.putOnKey(5, 6, 6))
        return false;
    space.gridView()->setCurrentIndex(space.grid()->index(6, 6));
    for (int choice = 0; choice < 5; ++choice) {
        if (!space.call("colorpadchange", choice) || !space.call("coloronpadchange", choice))
            return false;
    }
    space.dialogs.tolerate("Choose a Color");
    return space.call("rgbpadchange") && space.call("rgbonpadchange");
}

} // namespace

/** From a filled workspace to a project file and back, and what becomes of files that are none. */
class TestProjects final : public QObject
{
    Q_OBJECT

private slots:

    void savesPadsToTheByte();
    void savesGridToTheByte();
    void savesWhatIsOnShowOnly();
    void savesWhatTheWidgetsTell();
    void savingChangesNothing_data();
    void savingChangesNothing();
    void savingAsksForAFile();
    void savedNotice_data();
    void savedNotice();
    void notSaved_data();
    void notSaved();
    void notSavedByTheMenu();
#ifdef Q_OS_UNIX
    void fullDiskLosesNoProject_data();
    void fullDiskLosesNoProject();
#endif
    void longerFileIsCutOff();
    void savesInTheDefaultCodec();

    void loadingAsksForAFile();
    void loadsPads();
    void loadsGrid();
    void loadsWithoutAShowBefore_data();
    void loadsWithoutAShowBefore();
    void loadsOverAnotherShow_data();
    void loadsOverAnotherShow();
    void loadsFromAnyPanel_data();
    void loadsFromAnyPanel();
    void loadsShowAllPages();

    void settingsOfPads_data();
    void settingsOfPads();
    void settingsOfGrid_data();
    void settingsOfGrid();
    void bankNamesShow();
    void nameOfShow();
    void deviceThatIsOnShowStays();
    void deviceBeforeColors();
    void padsProjectKeepsDevice();
    void midiProjectResetsBanks();
    void switchSurvivesTheCleaning();
    void strangeSwitchIsHarmless_data();
    void strangeSwitchIsHarmless();

    void ticks_data();
    void ticks();
    void keyOutsideTicksToo();
    void keyWithoutNumberTicksTheFirst();
    void keyBeyondTheShow();
    void cellsKeepTheirOwnNames();
    void keysOfTheOtherKind_data();
    void keysOfTheOtherKind();
    void hiddenPadsComeBack();

    void unknownDeviceIsHarmless_data();
    void unknownDeviceIsHarmless();

    void loadCancelled();
    void fileCannotBeOpened_data();
    void fileCannotBeOpened();
    void showIsMissing_data();
    void showIsMissing();
    void showCannotBeRead();
    void noProject_data();
    void noProject();
    void keysWithoutAProject();
    void twoProjects_data();
    void twoProjects();
    void secondShowIsMissing();
    void secondShowCannotBeOpened();
    void readsAShowOnce_data();
    void readsAShowOnce();

    void roundTrips_data();
    void roundTrips();
    void allCellsComeBack();
    void unsafeNameKeepsTheShow_data();
    void unsafeNameKeepsTheShow();
    void bankWithCommaBecomesTwo();

private:
    const DefaultCodec m_codec{"UTF-8"}; ///< the locale of the machine is no part of what is tested
};

void TestProjects::savesPadsToTheByte()
{
    Workspace space;
    QVERIFY(start(space));
    QVERIFY(space.putOnPad(3, 0));
    QVERIFY(space.click("radioButton_16pads"));
    QVERIFY(space.putOnPad(9, 12, 1));
    QVERIFY(space.type("bankname", "Verse"));
    QVERIFY(space.type("padsname", "Friday"));
    QVERIFY(save(space, projectPath(space)));

    QByteArray keys;
    for (int row = 0; row < 64; ++row) {
        for (int column = 0; column < 2; ++column) {
            const QString label = "PAD " + QString::number(row % 8 + 1 + 8 * column);
            if (row == 0 && column == 0)
                keys += padKey(row, column, "1-4", 3, "#000bb8");
            else if (row == 12 && column == 1)
                keys += padKey(row, column, "2-2", 9, "#002328", 2);
            else
                keys += padKey(row, column, label, -1, "#000000", 0);
        }
    }
    const QByteArray root = attribute("type", "pads") + attribute("show", settingsOf(space))
                            + attribute("showname", "Show") + attribute("export", "Friday")
                            + attribute("layout", "1")
                            + attribute("banks", "BANK 1,Verse,BANK 3,BANK 4,BANK 5,BANK 6,BANK 7,BANK 8");
    QCOMPARE(textOf(bytesOf(projectPath(space))).split('\n'), document(root, keys).split('\n'));
}

void TestProjects::savesGridToTheByte()
{
    Workspace space;
    QVERIFY(start(space));
    QVERIFY(space.click("radio_outputmidi"));
    QVERIFY(space.putOnKey(4, 2, 2));
    QVERIFY(space.pickOnKey(2, 2, {"Blink"}));
    QVERIFY(space.call("colorpadchange", 3)); // the third of the palette
    QVERIFY(space.pickOnKey(5, 6, {"Set as Switch"}));
    QVERIFY(space.choose("combo_offcolor", 2));
    QVERIFY(space.choose("combo_oncolor", 0));
    const QByteArray root = attribute("deviceid", "APCMINI") + attribute("type", "midi")
                            + attribute("show", settingsOf(space)) + attribute("showname", "Show")
                            + attribute("switch", "5,6") + attribute("offcolor", "2")
                            + attribute("oncolor", "0") + attribute("export", "OS2L DMX");
    const QByteArray expected = fileOf(root, space.grid(), KeyAttributes);
    QVERIFY(save(space, projectPath(space)));

    QCOMPARE(textOf(bytesOf(projectPath(space))).split('\n'), expected.split('\n'));
    const QByteArrayList lines = expected.split('\n');
    QCOMPARE(lines.size(), 2 + 144 + 1 + 1);
    QCOMPARE(lines.at(2 + 2 * 12 + 2),
             QByteArray("\t"
                        R"(<key row="2" column="2" name="1-5" dspname="1-5" pagenr="1" id="4" avail="1" )"
                        R"(coloroff="red" coloron="" blink="1" color="#000fa0" />)"));
    QCOMPARE(
        lines.at(2 + 5 * 12 + 6),
        QByteArray("\t"
                   R"(<key row="5" column="6" name="SWITCH" dspname="SWITCH" pagenr="0" id="-1" avail="0" )"
                   R"(coloroff="" coloron="" blink="0" color="#000000" />)"));
}

void TestProjects::savesWhatIsOnShowOnly()
{
    Workspace space;
    QVERIFY(start(space));
    QVERIFY(space.putOnPad(3, 0));
    QVERIFY(space.click("radio_outputmidi"));
    QVERIFY(space.putOnKey(4, 2, 2));
    QVERIFY(save(space, projectPath(space, "Keys.zarvex")));
    QVERIFY(space.click("radio_outputpage"));
    QVERIFY(save(space, projectPath(space, "Pads.zarvex")));

    const QByteArray keys = textOf(bytesOf(projectPath(space, "Keys.zarvex")));
    QVERIFY(keys.contains(" type=\"midi\" "));
    QVERIFY(keys.contains("\"1-5\""));
    QVERIFY(!keys.contains("\"1-4\""));
    const QByteArray pads = textOf(bytesOf(projectPath(space, "Pads.zarvex")));
    QVERIFY(pads.contains(" type=\"pads\" "));
    QVERIFY(pads.contains("\"1-4\""));
    QVERIFY(!pads.contains("\"1-5\""));
}

/** Set by program, a widget can tell another layout than the table and another device than its page. */
void TestProjects::savesWhatTheWidgetsTell()
{
    Workspace space;
    QVERIFY(start(space));
    space.find<QRadioButton>("radioButton_16pads")->setChecked(true);
    QVERIFY(space.padsView()->isColumnHidden(1));
    QCOMPARE(saved(space, "savepadsproject").attribute("layout"), QString("1"));

    QVERIFY(space.call("updatemidicombo", 6));
    QCOMPARE(current(space, "devicescombo"), 0);
    QCOMPARE(saved(space, "savemidiproject").attribute("deviceid"), QString("APCMINI"));
}

void TestProjects::savingChangesNothing_data()
{
    bothKinds();
}

void TestProjects::savingChangesNothing()
{
    QFETCH(const bool, isMidi);
    Workspace space;
    QVERIFY(start(space));
    QVERIFY(space.click("radioButton_16pads"));
    QVERIFY(space.putOnPad(3, 25, 1));
    QVERIFY(space.type("bankname", "Verse"));
    QVERIFY(space.choose("combobox", 2));
    if (isMidi) {
        QVERIFY(space.click("radio_outputmidi"));
        QVERIFY(space.pickOnKey(5, 6, {"Set as Switch"}));
        QVERIFY(space.choose("mididevices", 1));
        QVERIFY(space.putOnKey(9, 2, 2));
    }
    const QStringList before = space.snapshot();
    QVERIFY(save(space, projectPath(space)));
    QCOMPARE(space.snapshot(), before);
    QCOMPARE(current(space, "bankcombo"), 3);
    QCOMPARE(notOfOutput(space, isMidi).remove("label_padname"), QString()); // renamed by clicks alone
    const QByteArray once = textOf(bytesOf(projectPath(space)));
    QVERIFY(save(space, projectPath(space, "Again.zarvex")));
    QCOMPARE(textOf(bytesOf(projectPath(space, "Again.zarvex"))), once);
}

void TestProjects::savingAsksForAFile()
{
    FileDialogs watch;
    Workspace space;
    QVERIFY(start(space));
    QVERIFY(space.putOnPad(3, 0));
    space.dialogs.expect(Boxes::saveDialog(space, {}));
    space.trigger("actionSave_2");
    QCOMPARE(space.dialogs.faults(), QString());
    QCOMPARE(watch.parent, static_cast<QWidget *>(&space.window()));
    QVERIFY(watch.isForSaving);
    QVERIFY(!watch.asksBeforeOverwriting); // the program asks itself
}

void TestProjects::savedNotice_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("name");
    QTest::newRow("extension") << "Night.zarvex"
                               << "Night";
    QTest::newRow("name ends at the first dot") << "my.show.zarvex"
                                                << "my";
    QTest::newRow("no extension") << "Night"
                                  << "Night";
    QTest::newRow("other extension") << "Night.txt"
                                     << "Night";
    QTest::newRow("nothing before the dot") << ".zarvex"
                                            << "";
    QTest::newRow("blanks") << " my  show .zarvex"
                            << " my  show ";
    QTest::newRow("an ampersand stays plain text") << "R&amp;B.zarvex"
                                                   << "R&amp;B";
    if (AnySignNamesFiles)
        QTest::newRow("tags stay plain text") << "<b>R&B<b>.zarvex"
                                              << "<b>R&B<b>";
    QTest::newRow("beyond ASCII") << QString::fromUtf8("Fête.zarvex") << QString::fromUtf8("Fête");
}

void TestProjects::savedNotice()
{
    QFETCH(const QString, file);
    QFETCH(const QString, name);
    Workspace space;
    QVERIFY(start(space));
    for (const char *slot : {"savepadsproject", "savemidiproject"}) {
        const QString path = projectPath(space, file);
        space.dialogs.expect(Boxes::projectSaved(name));
        QVERIFY(space.call(slot, path));
        QCOMPARE(space.dialogs.faults(), QString());
        QVERIFY(textOf(bytesOf(path)).endsWith("</project>\n"));
        QVERIFY(QFile::remove(path));
    }
}

void TestProjects::notSaved_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("name");
    QTest::newRow("a folder has the name") << "folder.zarvex"
                                           << "folder";
    QTest::newRow("missing folder") << "missing/my.show.zarvex"
                                    << "my";
    QTest::newRow("a file for a folder") << "file/Night.zarvex"
                                         << "Night";
    QTest::newRow("a name that the system would cut off")
        << QString("file") + QChar::Null + ".zarvex" << QString("file") + QChar::Null;
#ifdef Q_OS_UNIX
    QTest::newRow("a pipe that nobody reads from") << "pipe.zarvex"
                                                   << "pipe";
#endif
}

void TestProjects::notSaved()
{
    QFETCH(const QString, file);
    QFETCH(const QString, name);
    Workspace space;
    QVERIFY(start(space));
    QVERIFY(QDir().mkpath(projectPath(space, "folder.zarvex")));
    QVERIFY(writeFile(projectPath(space, "file"), "somebody's work"));
#ifdef Q_OS_UNIX
    QCOMPARE(mkfifo(QFile::encodeName(projectPath(space, "pipe.zarvex")).constData(), 0600), 0);
#endif
    const QStringList before = space.snapshot();
    for (const char *slot : {"savepadsproject", "savemidiproject"}) {
        space.dialogs.expect(Box{"Project " + name + " was not saved.", {}});
        QVERIFY(space.call(slot, projectPath(space, file)));
        QCOMPARE(space.dialogs.faults(), QString());
    }
    QVERIFY(!QFileInfo(projectPath(space, file)).isFile());
    QVERIFY(!QFileInfo::exists(projectPath(space, "missing")));
    QCOMPARE(bytesOf(projectPath(space, "file")), QByteArray("somebody's work"));
    QCOMPARE(space.snapshot(), before);
}

void TestProjects::notSavedByTheMenu()
{
    Workspace space;
    QVERIFY(start(space));
    QVERIFY(space.putOnPad(3, 0));
    space.dialogs.expect(Boxes::saveDialog(space, space.home() + "/missing/Night.zarvex"));
    space.dialogs.expect(Box{"Project Night was not saved.", {}});
    space.trigger("actionSave_2");
    QCOMPARE(space.dialogs.faults(), QString());
    QVERIFY(!QFile::exists(space.home() + "/missing"));
}

#ifdef Q_OS_UNIX
void TestProjects::fullDiskLosesNoProject_data()
{
    QTest::addColumn<rlim_t>("room"); // in bytes that a file may have
    QTest::newRow("no room") << rlim_t(0);
    QTest::newRow("too little room") << rlim_t(5000);
}

void TestProjects::fullDiskLosesNoProject()
{
    QFETCH(const rlim_t, room);
    Workspace space;
    QVERIFY(start(space));
    QVERIFY(writeFile(projectPath(space), "last night's work"));
    for (const char *slot : {"savepadsproject", "savemidiproject"}) {
        space.dialogs.expect(Box{"Project Night was not saved.", {}});
        const FullDisk disk(room);
        QVERIFY(space.call(slot, projectPath(space)));
    }
    QCOMPARE(space.dialogs.faults(), QString());
    QCOMPARE(bytesOf(projectPath(space)), QByteArray("last night's work"));
    QCOMPARE(QDir(projectsFolder(space)).entryList(QDir::Files | QDir::Hidden), QStringList{"Night.zarvex"});
}
#endif

void TestProjects::longerFileIsCutOff()
{
    Workspace space;
    QVERIFY(start(space));
    QVERIFY(space.putOnPad(3, 0));
    QVERIFY(save(space, projectPath(space)));
    QVERIFY(writeFile(projectPath(space, "Long.zarvex"), QByteArray(1000000, 'x')));
    space.dialogs.expect(Boxes::projectSaved("Long"));
    QVERIFY(space.call("savepadsproject", projectPath(space, "Long.zarvex")));
    QCOMPARE(bytesOf(projectPath(space, "Long.zarvex")), bytesOf(projectPath(space)));
}

void TestProjects::savesInTheDefaultCodec()
{
    const PlainTempFolder plain;
    Workspace space;
    QVERIFY(start(space));
    space.find<QLineEdit>("padsname")->setText(QString::fromUtf8("Café"));
    const DefaultCodec latin("ISO-8859-1");
    space.dialogs.expect(Boxes::projectSaved("Night"));
    QVERIFY(space.call("savepadsproject", projectPath(space)));
    QVERIFY(bytesOf(projectPath(space)).contains("export=\"Caf\xE9\" "));
    QVERIFY(textOf(bytesOf(projectPath(space))).startsWith("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"));
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestProjects::loadingAsksForAFile()
{
    FileDialogs watch;
    Workspace space;
    QVERIFY(loaded(space, {}) == false);
    QCOMPARE(watch.parent, static_cast<QWidget *>(&space.window()));
    QVERIFY(!watch.isForSaving);
}

void TestProjects::loadsPads()
{
    Workspace space;
    QVERIFY(start(space));
    const QByteArray typed =
        "\t"
        R"(<key row="63" column="0" name="Typed" dspname="2-8" pagenr="2" id="15" color="blue" />)";
    QVERIFY(loadedFrom(space,
                       padsProject(space, R"(export="Friday" layout="1" banks="A,B,C,D,E,F,G,H" )",
                                   padKey(0, 0, "Strobe", 3) + padKey(12, 1, "Fog", 9, "#00FF00", 2) + typed))
            == true);

    QCOMPARE(pad(space, 0, 0), QString("Strobe|Strobe|1|3|#ff0000"));
    QCOMPARE(pad(space, 12, 1), QString("Fog|Fog|2|9|#00ff00"));
    QCOMPARE(pad(space, 63, 0), QString("Typed|2-8|2|15|#0000ff"));
    QCOMPARE(pad(space, 0, 1), QString("PAD 9|PAD 9|0|-1|#000000"));
    QCOMPARE(pad(space, 12, 0), QString("PAD 5|PAD 5|0|-1|#000000"));
    QCOMPARE(space.pads()->rowCount(), 64);
    QCOMPARE(space.leftOnGrid(), QString());
    QCOMPARE(space.ticked(), QList<int>({3, 9, 15}));
    QCOMPARE(space.bankNames(), QStringList({"A", "B", "C", "D", "E", "F", "G", "H"}));
    QCOMPARE(space.find<QLineEdit>("bankname")->text(), QString("A"));
    QCOMPARE(space.find<QLineEdit>("padsname")->text(), QString("Friday"));
    QCOMPARE(space.window().windowTitle(), QString("Zarvex - Show"));
    QCOMPARE(notOfOutput(space, false), QString());
    QCOMPARE(notOfFirstBank(space, true), QString());
}

void TestProjects::loadsGrid()
{
    Workspace space;
    QVERIFY(start(space));
    QVERIFY(space.putOnPad(1, 0));
    QVERIFY(
        loadedFrom(space,
                   midiProject(space,
                               R"(deviceid="LAUNCHPAD" switch="3,4" offcolor="5" oncolor="7" export="Keys" )",
                               gridKey(2, 2, "Strobe", 3, "1", "#550000", "#AA5500", "1")
                                   + gridKey(11, 9, "Fog", 9, "0") + gridKey(3, 4, "SWITCH", -1, "0")))
        == true);

    QCOMPARE(key(space, 2, 2), QString("Strobe|Strobe|1|3|1|#550000|#AA5500|1|#0000ff"));
    QCOMPARE(key(space, 11, 9), QString("Fog|Fog|1|9|0|||0|#0000ff"));
    QCOMPARE(key(space, 3, 4), QString("SWITCH|SWITCH|1|-1|0|||0|#0000ff"));
    QCOMPARE(key(space, 2, 3), QString("PAD 2|PAD 2|0|-1|1|||0|#000000"));
    QCOMPARE(space.grid()->rowCount(), 12);
    QCOMPARE(space.leftOnPads(), QString());
    QCOMPARE(space.ticked(), QList<int>({3, 9}));
    QCOMPARE(current(space, "devicescombo"), Devices::Classic);
    QCOMPARE(current(space, "combo_offcolor"), 5);
    QCOMPARE(current(space, "combo_oncolor"), 7);
    QCOMPARE(savedSwitch(space), QString("3,4"));
    QCOMPARE(space.find<QLineEdit>("padsname")->text(), QString("Keys"));
    QCOMPARE(space.bankNames(), DefaultBanks);
    QCOMPARE(space.window().windowTitle(), QString("Zarvex - Show"));
    QCOMPARE(notOfOutput(space, true), QString());
}

void TestProjects::loadsWithoutAShowBefore_data()
{
    bothKinds();
}

void TestProjects::loadsWithoutAShowBefore()
{
    QFETCH(const bool, isMidi);
    Workspace space;
    space.writeShow("Show", Workspace::iniWith({8, 8}));
    const QByteArray content = isMidi ? midiProject(space, {}, gridKey(2, 2, "Strobe", 3))
                                      : padsProject(space, {}, padKey(2, 0, "Strobe", 3));
    QVERIFY(loadedFrom(space, content) == true);
    QCOMPARE(space.dmx()->rowCount(), 16);
    QCOMPARE(space.find<QComboBox>("combobox")->count(), 3);
    QCOMPARE(space.ticked(), QList<int>{3});
    QCOMPARE(space.window().windowTitle(), QString("Zarvex - Show"));
    QCOMPARE(notOfOutput(space, isMidi), QString());

    // The show counts as loaded, and its path is known.
    QVERIFY(save(space, projectPath(space, "Copy.zarvex")));
    QVERIFY(bytesOf(projectPath(space, "Copy.zarvex")).contains(attribute("show", settingsOf(space))));
    QVERIFY(bytesOf(projectPath(space, "Copy.zarvex")).contains(attribute("showname", "Show")));
}

void TestProjects::loadsOverAnotherShow_data()
{
    bothKinds();
}

void TestProjects::loadsOverAnotherShow()
{
    QFETCH(const bool, isMidi);
    QStringList fresh;
    QStringList used;
    for (QStringList *snapshot : {&fresh, &used}) {
        Workspace space;
        space.writeShow("Show", Workspace::iniWith({8, 8}));
        if (snapshot == &used) {
            QVERIFY(space.load(space.writeShow("Other", Workspace::iniWith({3, 20, 5}))));
            QVERIFY(isMidi || space.click("radioButton_16pads"));
            QVERIFY(space.putOnPad(1, 33));
            QVERIFY(space.type("bankname", "Verse"));
            QVERIFY(space.type("padsname", "Friday"));
            QVERIFY(space.choose("combobox", 2));
            QVERIFY(space.click("radio_outputmidi"));
            QVERIFY(space.putOnKey(4, 7, 7));
            QVERIFY(space.call("colorpadchange", 2));
            QVERIFY(space.pickOnKey(5, 6, {"Set as Switch"}));
            QVERIFY(!isMidi || space.click("radio_outputpage"));
        }
        const QByteArray content =
            isMidi ? midiProject(space, R"(deviceid="APCMINI" offcolor="2" oncolor="0" switch="2,3" )",
                                 gridKey(2, 2, "Strobe", 3))
                   : padsProject(space, R"(layout="0" )", padKey(2, 0, "Strobe", 3) + padKey(2, 1, "Fog", 4));
        QVERIFY(loadedFrom(space, content) == true);
        QCOMPARE(notOfOutput(space, isMidi), QString());
        *snapshot = space.snapshot();
        *snapshot += savedSwitch(space);
    }
    QCOMPARE(used, fresh);
}

void TestProjects::loadsFromAnyPanel_data()
{
    QTest::addColumn<bool>("fromMidi");
    QTest::addColumn<bool>("isMidi");
    QTest::newRow("pads in Pads Page mode") << false << false;
    QTest::newRow("pads in MIDI Mapping mode") << true << false;
    QTest::newRow("midi in Pads Page mode") << false << true;
    QTest::newRow("midi in MIDI Mapping mode") << true << true;
}

void TestProjects::loadsFromAnyPanel()
{
    QFETCH(const bool, fromMidi);
    QFETCH(const bool, isMidi);
    Workspace space;
    QVERIFY(start(space));
    QVERIFY(space.choose("bankcombo", 6));
    QVERIFY(!fromMidi || space.click("radio_outputmidi"));
    QVERIFY(loadedFrom(space, isMidi ? midiProject(space, {}) : padsProject(space, {})) == true);
    QCOMPARE(notOfOutput(space, isMidi), QString());
    QTRY_COMPARE(space.window().size(), QSize(isMidi ? 1366 : 650, 606));
    QCOMPARE(notOfFirstBank(space, false), QString());

    // The radios go on as ever.
    QVERIFY(space.click(isMidi ? "radio_outputpage" : "radio_outputmidi"));
    QCOMPARE(notOfOutput(space, !isMidi), QString());
}

void TestProjects::loadsShowAllPages()
{
    Workspace space;
    QVERIFY(start(space));
    QVERIFY(space.choose("combobox", 2));
    QVERIFY(space.dmxView()->isRowHidden(0));
    QVERIFY(loadedFrom(space, padsProject(space, {})) == true);
    QCOMPARE(current(space, "combobox"), 0);
    for (int row = 0; row < 16; ++row)
        QVERIFY(!space.dmxView()->isRowHidden(row));
}

void TestProjects::settingsOfPads_data()
{
    QTest::addColumn<QByteArray>("attributes");
    QTest::addColumn<QString>("page");
    QTest::addColumn<bool>("has16Pads");
    QTest::addColumn<QStringList>("banks"); // the first eight

    const QStringList &defaults = DefaultBanks;
    QTest::newRow("nothing told") << QByteArray() << "" << false << defaults;
    QTest::newRow("page") << QByteArray(R"(export="Friday" )") << "Friday" << false << defaults;
    QTest::newRow("page of blanks") << QByteArray(R"(export="  " )") << "  " << false << defaults;
    QTest::newRow("16 pads") << QByteArray(R"(layout="1" )") << "" << true << defaults;
    QTest::newRow("8 pads") << QByteArray(R"(layout="0" )") << "" << false << defaults;
    QTest::newRow("other layout") << QByteArray(R"(layout="16" )") << "" << false << defaults;
    QTest::newRow("eight banks") << QByteArray(R"(banks="A,B,C,D,E,F,G,H" )") << "" << false
                                 << QStringList{"A", "B", "C", "D", "E", "F", "G", "H"};
    QTest::newRow("nine banks") << QByteArray(R"(banks="A,B,C,D,E,F,G,H,I" )") << "" << false
                                << QStringList{"A", "B", "C", "D", "E", "F", "G", "H"};
    QTest::newRow("three banks") << QByteArray(R"(banks="A,B,C" )") << "" << false
                                 << QStringList{"A", "B", "C", "", "", "", "", ""};
    QTest::newRow("first bank has no name")
        << QByteArray(R"(banks=",B" )") << "" << false << QStringList{"", "B", "", "", "", "", "", ""};
    QTest::newRow("no banks") << QByteArray(R"(banks="" )") << "" << false << defaults;
}

void TestProjects::settingsOfPads()
{
    QFETCH(const QByteArray, attributes);
    QFETCH(const QString, page);
    QFETCH(const bool, has16Pads);
    QFETCH(const QStringList, banks);
    Workspace space;
    QVERIFY(start(space));
    QVERIFY(space.type("padsname", "Saturday"));
    QVERIFY(space.choose("bankcombo", 4));
    QVERIFY(space.type("bankname", "Verse"));
    QVERIFY(has16Pads || space.click("radioButton_16pads"));
    QVERIFY(loadedFrom(space, padsProject(space, attributes, padKey(9, 0, "Strobe", 3))) == true);

    QCOMPARE(space.find<QLineEdit>("padsname")->text(), page);
    QCOMPARE(space.find<QLineEdit>("bankname")->text(), banks.first());
    QCOMPARE(notOfFirstBank(space, has16Pads), QString());
    QCOMPARE(space.bankNames(), banks);
    QCOMPARE(pad(space, 9, 0), QString("Strobe|Strobe|1|3|#ff0000"));
    for (int bank = 7; bank >= 0; --bank)
        QVERIFY(space.choose("bankcombo", bank));
    space.dialogs.expect(Boxes::pageCreated(page));
    QVERIFY(space.click("pushButton_2"));
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestProjects::settingsOfGrid_data()
{
    QTest::addColumn<QByteArray>("attributes");
    QTest::addColumn<int>("device");
    QTest::addColumn<int>("offColor");
    QTest::addColumn<int>("onColor");
    QTest::addColumn<QString>("switchKey");

    const auto add = [](const char *name, const QByteArray &attributes, int device, int off, int on,
                        const QString &switchKey) {
        QTest::newRow(name) << attributes << device << off << on << switchKey;
    };
    // The AKAI's colours stand at 3 and 1 before, the classic Launchpad's at 0 and 3.
    const QString none = "-1,-1";
    add("nothing told", "", 0, 3, 1, none);
    add("all empty", R"(deviceid="" offcolor="" oncolor="" switch="" )", 0, 3, 1, none);
    add("device", R"(deviceid="LAUNCHPAD" )", Devices::Classic, 0, 3, none);
    add("device without a palette", R"(deviceid="LAUNCHPADPRO" )", Devices::Pro, 3, 1, none);
    add("device on show", R"(deviceid="APCMINI" )", 0, 3, 1, none);
    add("off colour", R"(offcolor="2" )", 0, 2, 1, none);
    add("on colour", R"(oncolor="2" )", 0, 3, 2, none);
    add("both colours", R"(oncolor="3" offcolor="0" )", 0, 0, 3, none);
    add("device and colours", R"(deviceid="LAUNCHPAD" offcolor="5" oncolor="15" )", Devices::Classic, 5, 15,
        none);
    add("colours of a device without a palette", R"(deviceid="LAUNCHPAD2" offcolor="0" oncolor="3" )",
        Devices::Mk2, 0, 3, none);
    add("colours beyond the palette", R"(offcolor="4" oncolor="1000" )", 0, -1, -1, none);
    add("colours of none", R"(offcolor="-1" oncolor="-7" )", 0, -1, -1, none);
    add("colours of words", R"(offcolor="red" oncolor="green" )", 0, 0, 0, none);
    add("Switch", R"(switch="3,4" )", 0, 3, 1, "3,4");
    add("no Switch", R"(switch="-1,-1" )", 0, 3, 1, none);
    add("Switch of one part", R"(switch="3" )", 0, 3, 1, none);
    add("Switch of a word", R"(switch="none" )", 0, 3, 1, none);
    add("Switch of words", R"(switch="a,b" )", 0, 3, 1, "0,0");
    add("Switch of three parts", R"(switch="3,4,5" )", 0, 3, 1, "3,4");
    add("attributes of the other kind", R"(layout="1" banks="A,B" )", 0, 3, 1, none);
}

void TestProjects::settingsOfGrid()
{
    QFETCH(const QByteArray, attributes);
    QFETCH(const int, device);
    QFETCH(const int, offColor);
    QFETCH(const int, onColor);
    QFETCH(const QString, switchKey);
    // The kind decides on the table and the panels alone.
    for (const bool isMidi : {true, false}) {
        Workspace space;
        QVERIFY(start(space));
        QVERIFY(space.click("radio_outputmidi"));
        QVERIFY(space.pickOnKey(9, 9, {"Set as Switch"}));
        QCOMPARE(savedSwitch(space), QString("9,9"));
        QVERIFY(loadedFrom(space, isMidi ? midiProject(space, attributes) : padsProject(space, attributes))
                == true);
        QCOMPARE(current(space, "devicescombo"), device);
        QCOMPARE(current(space, "combo_offcolor"), offColor);
        QCOMPARE(current(space, "combo_oncolor"), onColor);
        QCOMPARE(savedSwitch(space), switchKey);
        QCOMPARE(notOfOutput(space, isMidi), QString());
        QCOMPARE(isChecked(space, "radioButton_16pads"), !isMidi && attributes.contains("layout"));
        QCOMPARE(savedBanks(space), attributes.contains("banks") ? QString("A,B") : DefaultBanks.join(","));
    }
}

void TestProjects::bankNamesShow()
{
    Workspace space;
    QVERIFY(start(space));
    QVERIFY(loadedFrom(space, padsProject(space, R"(banks="1,2,3,4,5,6,7,8,9" )")) == true);
    QCOMPARE(savedBanks(space), QString("1,2,3,4,5,6,7,8,9")); // the ninth is kept, though it cannot show
    QVERIFY(loadedFrom(space, padsProject(space, R"(banks="A,B,C" )")) == true);
    QCOMPARE(savedBanks(space), QString("A,B,C"));
    QVERIFY(space.choose("bankcombo", 2));
    QCOMPARE(space.find<QLineEdit>("bankname")->text(), QString("C"));
    QVERIFY(space.choose("bankcombo", 7));
    QCOMPARE(space.find<QLineEdit>("bankname")->text(), QString());
    QVERIFY(space.type("bankname", "Last"));
    QVERIFY(space.choose("bankcombo", 0));
    QCOMPARE(space.bankNames().last(), QString("Last"));
}

void TestProjects::nameOfShow()
{
    Workspace space;
    QVERIFY(start(space));
    const QByteArray show = attribute("show", settingsOf(space));
    QVERIFY(loadedFrom(space, document(show + attribute("showname", "Club night"), padKey(0, 0, "Strobe", 3)))
            == true);
    QCOMPARE(space.window().windowTitle(), QString("Zarvex - Club night"));
    QCOMPARE(saved(space, "savepadsproject").attribute("showname"), QString("Club night"));

    QVERIFY(loadedFrom(space, document(show, padKey(0, 0, "Strobe", 3))) == true);
    QCOMPARE(space.window().windowTitle(), QString("Zarvex - "));
    QCOMPARE(space.dmx()->rowCount(), 16);
    space.dialogs.expect(Box{"Nothing to Save. Load a Show", {}}); // a show without a name is none
    space.trigger("actionSave_2");
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestProjects::deviceThatIsOnShowStays()
{
    Workspace space;
    QVERIFY(start(space));
    QVERIFY(space.click("radio_outputmidi"));
    QVERIFY(space.choose("mididevices", 1));
    QVERIFY(space.choose("combo_offcolor", 2));
    QVERIFY(space.choose("combo_oncolor", 0));
    QVERIFY(loadedFrom(space, midiProject(space, R"(deviceid="APCMINI" )")) == true);
    QCOMPARE(current(space, "mididevices"), 1);
    QCOMPARE(current(space, "combo_offcolor"), 2);
    QCOMPARE(current(space, "combo_oncolor"), 0);

    QVERIFY(loadedFrom(space, midiProject(space, R"(deviceid="LAUNCHPADS" )")) == true);
    QCOMPARE(current(space, "mididevices"), 0);
    QCOMPARE(space.find<QComboBox>("mididevices")->itemText(1),
             QString("Novation Launchpad S mapping (factory)"));
    QCOMPARE(current(space, "combo_offcolor"), 0);
    QCOMPARE(current(space, "combo_oncolor"), 3);
}

void TestProjects::deviceBeforeColors()
{
    Workspace space;
    QVERIFY(start(space));
    QVERIFY(loadedFrom(space, midiProject(space, R"(oncolor="12" offcolor="15" deviceid="LAUNCHPADMINI" )"))
            == true);
    QCOMPARE(space.find<QComboBox>("combo_offcolor")->count(), 16);
    QCOMPARE(space.find<QComboBox>("combo_offcolor")->currentText(), QString("#FFFF00"));
    QCOMPARE(space.find<QComboBox>("combo_oncolor")->currentText(), QString("#FFAA00"));
}

void TestProjects::padsProjectKeepsDevice()
{
    Workspace space;
    QVERIFY(start(space));
    QVERIFY(space.click("radio_outputmidi"));
    QVERIFY(space.choose("devicescombo", Devices::Classic));
    QVERIFY(space.choose("mididevices", 1));
    QVERIFY(space.choose("combo_offcolor", 5));
    QVERIFY(space.choose("combo_oncolor", 7));
    const QStringList keys = space.keys();
    QVERIFY(space.pickOnKey(3, 4, {"Set as Switch"}));
    QCOMPARE(savedSwitch(space), QString("3,4"));
    QVERIFY(loadedFrom(space, padsProject(space, {}, padKey(0, 0, "Strobe", 3))) == true);
    QCOMPARE(current(space, "devicescombo"), Devices::Classic);
    QCOMPARE(current(space, "mididevices"), 1);
    QCOMPARE(current(space, "combo_offcolor"), 5);
    QCOMPARE(current(space, "combo_oncolor"), 7);
    QCOMPARE(space.keys(), keys);
    QCOMPARE(space.leftOnGrid(), QString());
    QCOMPARE(savedSwitch(space), QString("-1,-1"));
}

void TestProjects::midiProjectResetsBanks()
{
    Workspace space;
    QVERIFY(start(space));
    QVERIFY(space.choose("bankcombo", 4));
    QVERIFY(space.type("bankname", "Verse"));
    QVERIFY(space.choose("bankcombo", 5));
    QCOMPARE(space.bankNames().at(4), QString("Verse"));
    QVERIFY(loadedFrom(space, midiProject(space, {}, gridKey(2, 2, "Strobe", 3))) == true);
    QCOMPARE(savedBanks(space), DefaultBanks.join(","));
    QVERIFY(space.click("radio_outputpage"));
    QCOMPARE(space.find<QLineEdit>("bankname")->text(), QString("BANK 1"));
    QCOMPARE(space.leftOnPads(), QString());
}

void TestProjects::switchSurvivesTheCleaning()
{
    Workspace space;
    QVERIFY(start(space));
    QVERIFY(loadedFrom(space, midiProject(space, R"(switch="3,4" )", gridKey(3, 4, "SWITCH", -1, "0")))
            == true);
    QCOMPARE(savedSwitch(space), QString("3,4"));
    // It is the same Switch to the menu: picked again, it is none.
    QVERIFY(space.pickOnKey(3, 4, {"Set as Switch"}));
    QCOMPARE(savedSwitch(space), QString("-1,-1"));
    QCOMPARE(space.grid()->index(3, 4).data().toString(), QString("PAD 11"));
}

void TestProjects::strangeSwitchIsHarmless_data()
{
    QTest::addColumn<QString>("switchKey");
    QTest::addColumn<QString>("kept");
    QTest::newRow("corner") << "0,0"
                            << "0,0";
    QTest::newRow("last cell") << "11,11"
                               << "11,11";
    QTest::newRow("beyond the grid") << "12,40"
                                     << "12,40";
    QTest::newRow("negative row") << "-5,3"
                                  << "-5,3";
    QTest::newRow("negative column") << "3,-5"
                                     << "3,-5";
    QTest::newRow("largest numbers") << "2147483647,2147483647"
                                     << "2147483647,2147483647";
    QTest::newRow("words") << "top,left"
                           << "0,0";
}

void TestProjects::strangeSwitchIsHarmless()
{
    QFETCH(const QString, switchKey);
    QFETCH(const QString, kept);
    Workspace space;
    QVERIFY(start(space));
    QVERIFY(loadedFrom(space, midiProject(space, attribute("switch", switchKey) + R"(export="Keys" )",
                                          gridKey(2, 2, "Strobe", 3)))
            == true);
    QCOMPARE(savedSwitch(space), kept);
    for (const int mapper : {0, 1}) {
        QVERIFY(space.choose("mididevices", mapper));
        if (mapper == 1)
            space.dialogs.expect(Boxes::overwrite("AKAI APC Mini - Keys mapping", QMessageBox::Yes));
        space.dialogs.expect(Boxes::mappingCreated("Keys", "AKAI APC Mini"));
        QVERIFY(space.click("pushButton_2"));
        QCOMPARE(space.dialogs.faults(), QString());
    }
    QVERIFY(space.pickOnKey(4, 4, {"Set as Switch"}));
    QCOMPARE(savedSwitch(space), QString("4,4"));
    QCOMPARE(key(space, 2, 2), QString("Strobe|Strobe|1|3|1|||0|#0000ff"));
}

void TestProjects::ticks_data()
{
    QTest::addColumn<QList<int>>("ids");
    QTest::addColumn<QList<int>>("ticked");
    QTest::newRow("no key") << QList<int>{} << QList<int>{};
    QTest::newRow("empty cells") << QList<int>{-1, -1} << QList<int>{};
    QTest::newRow("some") << QList<int>{3, 9} << QList<int>{3, 9};
    QTest::newRow("first and last") << QList<int>{15, 0} << QList<int>{0, 15};
    QTest::newRow("one on two cells") << QList<int>{5, 5} << QList<int>{5};
    QTest::newRow("beyond the show") << QList<int>{16, 999, 2147483647, 3} << QList<int>{3};
    QTest::newRow("below") << QList<int>{-2, -999, 3} << QList<int>{3};
}

void TestProjects::ticks()
{
    QFETCH(const QList<int>, ids);
    QFETCH(const QList<int>, ticked);
    Workspace space;
    QVERIFY(start(space));
    QVERIFY(space.putOnPad(1, 0)); // its tick goes
    QByteArray pads;
    QByteArray keys;
    for (int i = 0; i < ids.size(); ++i) {
        pads += padKey(i, 1, "Strobe", ids.at(i));
        keys += gridKey(2, 2 + i, "Strobe", ids.at(i));
    }
    QVERIFY(loadedFrom(space, padsProject(space, {}, pads)) == true);
    QCOMPARE(space.ticked(), ticked);
    QVERIFY(loadedFrom(space, midiProject(space, {}, keys)) == true);
    QCOMPARE(space.ticked(), ticked);
}

void TestProjects::keyOutsideTicksToo()
{
    Workspace space;
    QVERIFY(start(space));
    const QByteArray outside =
        padKey(64, 0, "Below", 7) + padKey(0, 2, "Right", 8) + padKey(-1, -1, "Above", 9);
    QVERIFY(loadedFrom(space, padsProject(space, {}, outside)) == true);
    QCOMPARE(space.ticked(), QList<int>({7, 8, 9}));
    QCOMPARE(space.leftOnPads(), QString());
    QVERIFY(loadedFrom(space, midiProject(space, {}, gridKey(12, 0, "Below", 3) + gridKey(0, 12, "Right", 4)))
            == true);
    QCOMPARE(space.ticked(), QList<int>({3, 4}));
    QCOMPARE(space.leftOnGrid(), QString());
}

/** Text that is no number converts to 0, the missing one too. */
void TestProjects::keyWithoutNumberTicksTheFirst()
{
    Workspace space;
    QVERIFY(start(space));
    QVERIFY(loadedFrom(space, padsProject(space, {}, R"(<key row="1" column="1" name="x" />)")) == true);
    QCOMPARE(pad(space, 1, 1), QString("x||||#000000"));
    QCOMPARE(space.ticked(), QList<int>{0});
    QVERIFY(loadedFrom(space, padsProject(space, {}, R"(<key row="1" column="1" id="Strobe" />)")) == true);
    QCOMPARE(pad(space, 1, 1), QString("PAD 2|||Strobe|#000000"));
    QCOMPARE(space.ticked(), QList<int>{0});
}

void TestProjects::keyBeyondTheShow()
{
    Workspace space;
    QVERIFY(start(space));
    QVERIFY(loadedFrom(space, padsProject(space, R"(export="Page" )", padKey(0, 0, "Gone", 999))) == true);
    QCOMPARE(pad(space, 0, 0), QString("Gone|Gone|1|999|#ff0000"));
    space.dialogs.expect(Boxes::pageCreated("Page"));
    QVERIFY(space.click("pushButton_2"));
    QVERIFY(space.drag(space.pads()->index(0, 0), space.padsView(), space.pads()->index(4, 0)));
    QCOMPARE(pad(space, 4, 0), QString("Gone|Gone|1|999|#ff0000"));
    QVERIFY(space.putOnPad(2, 4)); // replaces it
    QCOMPARE(space.ticked(), QList<int>{2});

    QVERIFY(loadedFrom(space, midiProject(space, R"(export="Keys" )", gridKey(2, 2, "Gone", 999))) == true);
    QCOMPARE(space.ticked(), QList<int>());
    space.dialogs.expect(Boxes::mappingCreated("Keys", "AKAI APC Mini"));
    QVERIFY(space.click("pushButton_2"));
    QVERIFY(space.pickOnKey(2, 2, {"Remove"}));
    QVERIFY(space.ask<bool>("isMIDIempty"));
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestProjects::cellsKeepTheirOwnNames()
{
    Workspace space;
    QVERIFY(start(space));
    QVERIFY(space.putOnPad(3, 0));
    QVERIFY(save(space, projectPath(space)));
    // The show has changed since.
    space.writeShow("Show", "[page]\nnumber=1\n[page1]\nname=One\nnb_buttons=5\n"
                            "[page1_button4]\ntitle=Another\ncolor=255\n");
    QVERIFY(loaded(space, projectPath(space)) == true);
    QCOMPARE(space.dmx()->rowCount(), 5);
    QCOMPARE(space.dmx()->index(3, 0).data().toString(), QString("Another"));
    QCOMPARE(space.ticked(), QList<int>{3});
    QCOMPARE(pad(space, 0, 0), QString("1-4|1-4|1|3|#000bb8"));
}

void TestProjects::keysOfTheOtherKind_data()
{
    QTest::addColumn<bool>("isMidi");
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<QString>("cell");
    // What a kind does not write is empty on the grid, and left out on the pads.
    QTest::newRow("of pads, on the grid")
        << true << padKey(2, 1, "Strobe", 3) << "Strobe|Strobe|1|3|||||#ff0000";
    QTest::newRow("of the grid, on the pads")
        << false << gridKey(2, 1, "Strobe", 3, "0", "red", "blue", "1") << "Strobe|Strobe|1|3|#0000ff";
}

void TestProjects::keysOfTheOtherKind()
{
    QFETCH(const bool, isMidi);
    QFETCH(const QByteArray, key);
    QFETCH(const QString, cell);
    Workspace space;
    QVERIFY(start(space));
    const QByteArray keys = key + (isMidi ? padKey(40, 0, "Outside", 5) : gridKey(2, 7, "Outside", 5));
    QVERIFY(loadedFrom(space, isMidi ? midiProject(space, {}, keys) : padsProject(space, {}, keys)) == true);
    QCOMPARE(isMidi ? ::key(space, 2, 1) : pad(space, 2, 1), cell);
    QCOMPARE(space.ticked(), QList<int>({3, 5}));
    QCOMPARE(isMidi ? space.leftOnPads() : space.leftOnGrid(), QString());
}

void TestProjects::hiddenPadsComeBack()
{
    Workspace space;
    QVERIFY(start(space));
    QVERIFY(space.click("radioButton_16pads"));
    QVERIFY(space.putOnPad(3, 0, 1));
    QVERIFY(space.click("radioButton_8pads"));
    QVERIFY(save(space, projectPath(space)));
    space.trigger("actionNew_2");
    QVERIFY(loaded(space, projectPath(space)) == true);
    QVERIFY(space.padsView()->isColumnHidden(1));
    QCOMPARE(pad(space, 0, 1), QString("1-4|1-4|1|3|#000bb8"));
    QCOMPARE(space.ticked(), QList<int>{3});
    QVERIFY(space.click("radioButton_16pads"));
    QVERIFY(!space.padsView()->isColumnHidden(1));
}

void TestProjects::unknownDeviceIsHarmless_data()
{
    QTest::addColumn<QString>("device");
    QTest::newRow("unknown") << "NOBODY";
    QTest::newRow("lower case") << "apcmini";
    QTest::newRow("display name") << "AKAI APC Mini";
    QTest::newRow("blank") << " ";
}

void TestProjects::unknownDeviceIsHarmless()
{
    QFETCH(const QString, device);
    Workspace space;
    QVERIFY(start(space));
    QVERIFY(loadedFrom(space, midiProject(space,
                                          attribute("deviceid", device)
                                              + R"(export="Keys" offcolor="2" oncolor="1" switch="5,5" )",
                                          gridKey(2, 2, "Strobe", 3) + gridKey(11, 9, "Fog", 4)))
            == true);
    QCOMPARE(current(space, "devicescombo"), -1);
    QCOMPARE(key(space, 2, 2), QString("Strobe|Strobe|1|3|1|||0|#0000ff"));
    QCOMPARE(notOfOutput(space, true), QString());

    QVERIFY(useAllMenus(space));
    space.dialogs.expect(Boxes::mappingCreated("Keys", {}));
    QVERIFY(space.click("pushButton_2"));
    QCOMPARE(space.dialogs.faults(), QString());
    QCOMPARE(saved(space, "savemidiproject").attribute("deviceid", "not saved"), QString());
    QVERIFY(save(space, projectPath(space, "Copy.zarvex")));
    QVERIFY(space.click("radio_outputpage"));
    QVERIFY(space.click("radio_outputmidi"));
    QVERIFY(space.click("cleanmidi_button"));
    space.trigger("actionNew_2");
    QCOMPARE(space.leftOnGrid(), QString());

    // A device from the list brings all back.
    QVERIFY(space.choose("devicescombo", 0));
    QCOMPARE(space.find<QComboBox>("combo_offcolor")->currentText(), QString("yellow"));
    QCOMPARE(current(space, "mididevices"), 0);
    QVERIFY(space.putOnKey(5, 11, 9));
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestProjects::loadCancelled()
{
    Workspace space;
    QVERIFY(start(space));
    QVERIFY(space.choose("combobox", 2));
    const QStringList before = space.snapshot();
    QVERIFY(loaded(space, {}) == false);
    QCOMPARE(space.snapshot(), before);
    space.dialogs.expect(Boxes::loadDialog(space, {}));
    space.dialogs.expect(Boxes::loadFailed()); // odd as it reads
    space.trigger("actionLoad_Project");
    QCOMPARE(space.dialogs.faults(), QString());
    QCOMPARE(space.snapshot(), before);
}

void TestProjects::fileCannotBeOpened_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::newRow("gone as soon as chosen") << QByteArray("gone");
    QTest::newRow("beyond 64 MiB") << QByteArray("huge");
#ifdef Q_OS_UNIX
    QTest::newRow("pipe") << QByteArray("pipe");
#endif
}

void TestProjects::fileCannotBeOpened()
{
    QFETCH(const QByteArray, file);
    FileDialogs watch;
    Workspace space;
    QVERIFY(start(space));
    QVERIFY(space.putOnPad(3, 0));
    const QString path = projectPath(space, file + ".zarvex");
    if (file == "pipe") {
#ifdef Q_OS_UNIX
        QCOMPARE(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
#endif
    } else {
        QVERIFY(writeFile(path, padsProject(space, {})));
        QVERIFY(file == "gone" || QFile::resize(path, (qint64(64) << 20) + 1));
    }
    const QStringList before = space.snapshot();
    if (file == "gone")
        watch.toRemove = path;
    space.dialogs.expect(Boxes::projectOverWork(QMessageBox::Yes));
    space.dialogs.expect(Boxes::loadDialog(space, path));
    space.dialogs.expect(Boxes::loadFailed());
    space.trigger("actionLoad_Project");
    QCOMPARE(space.dialogs.faults(), QString());
    QCOMPARE(space.snapshot(), before);
    QVERIFY(file != "gone" || !QFile::exists(path));
}

void TestProjects::showIsMissing_data()
{
    QTest::addColumn<QByteArray>("attributes");
    QTest::newRow("missing file") << QByteArray(
        R"(type="pads" show="/nowhere/Live/live.ini" showname="Other" )");
    QTest::newRow("of another system") << QByteArray(
        R"(type="midi" show="C:/Users/dj/Show/Live/live.ini" showname="Other" deviceid="LAUNCHPAD" )");
    QTest::newRow("empty") << QByteArray(R"(show="" showname="Other" switch="1,1" )");
    QTest::newRow("not told") << QByteArray(R"(showname="Other" export="Other" banks="A,B" )");
    QTest::newRow("nothing told") << QByteArray();
}

void TestProjects::showIsMissing()
{
    QFETCH(const QByteArray, attributes);
    Workspace space;
    QVERIFY(start(space));
    QVERIFY(space.click("radioButton_16pads"));
    QVERIFY(space.putOnPad(3, 20, 1));
    QVERIFY(space.type("bankname", "Verse"));
    QVERIFY(space.click("radio_outputmidi"));
    QVERIFY(space.choose("mididevices", 1));
    QVERIFY(space.putOnKey(9, 2, 2));
    QVERIFY(space.pickOnKey(5, 6, {"Set as Switch"}));
    QVERIFY(space.choose("combobox", 2));
    const QStringList before = space.snapshot();
    QVERIFY(loadedFrom(space, document(attributes, gridKey(2, 3, "Strobe", 3) + padKey(0, 0, "Strobe", 3)))
            == false);
    QCOMPARE(space.snapshot(), before);
    QCOMPARE(space.ticked(), QList<int>{9});
    QCOMPARE(notOfOutput(space, true), QString());
    const QDomElement fields = saved(space, "savemidiproject");
    QCOMPARE(fields.attribute("switch"), QString("5,6"));
    QCOMPARE(fields.attribute("show"), settingsOf(space));
    QCOMPARE(fields.attribute("showname"), QString("Show"));
    QCOMPARE(savedBanks(space), QString("BANK 1,BANK 2,Verse,BANK 4,BANK 5,BANK 6,BANK 7,BANK 8"));
}

/** A folder is there, but cannot be opened as a file. */
void TestProjects::showCannotBeRead()
{
    Workspace space;
    QVERIFY(start(space));
    QVERIFY(space.putOnPad(3, 0));
    QVERIFY(space.type("bankname", "Verse"));
    QVERIFY(space.click("radio_outputmidi"));
    QVERIFY(space.putOnKey(9, 7, 7));
    const QByteArray attributes = attribute("type", "midi") + attribute("show", space.home() + "/Show/Live")
                                  + attribute("showname", "Broken") + attribute("switch", "3,4")
                                  + attribute("export", "Keys");
    QVERIFY(loadedFrom(space, document(attributes, gridKey(2, 2, "Strobe", 3) + gridKey(2, 3, "Fog", -1)))
            == true);
    QCOMPARE(space.dmx()->rowCount(), 0);
    QCOMPARE(space.leftOnPads(), QString());
    QCOMPARE(key(space, 2, 2), QString("Strobe|Strobe|1|3|1|||0|#0000ff"));
    QCOMPARE(space.grid()->rowCount(), 12);
    QCOMPARE(key(space, 7, 7), QString("PAD 46|PAD 46|0|-1|1|||0|#000000"));
    QCOMPARE(notOfOutput(space, true), QString());
    QCOMPARE(space.window().windowTitle(), QString("Zarvex - Show"));
    const QDomElement fields = saved(space, "savemidiproject");
    QCOMPARE(fields.attribute("showname"), QString("Broken"));
    QCOMPARE(fields.attribute("show"), settingsOf(space)); // the last show that could be read
    QCOMPARE(fields.attribute("switch"), QString("3,4"));
    QCOMPARE(fields.attribute("export"), QString("Keys"));
    QCOMPARE(savedBanks(space), DefaultBanks.join(","));

    // All that can be pressed.
    QVERIFY(space.choose("combobox", 1));
    QVERIFY(space.pickOnKey(2, 2, {"Blink"}));
    space.dialogs.expect(Boxes::mappingCreated("Keys", "AKAI APC Mini"));
    QVERIFY(space.click("pushButton_2"));
    QVERIFY(space.click("radio_outputpage"));
    space.trigger("actionNew_2");
    QVERIFY(space.call("updatelist", 2));
    QCOMPARE(space.ticked(), QList<int>());
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestProjects::noProject_data()
{
    QTest::addColumn<QByteArray>("content");
    const QByteArray key = gridKey(2, 1, "Strobe", 3);
    const QByteArray open = R"(<project type="midi" show="/nowhere" showname="Other" banks="A" layout="1" >)";
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("no project element") << QByteArray("<show/>");
    QTest::newRow("binary") << QByteArray("\x7F"
                                          "ELF\x02\0\0\0\x01",
                                          9);
    QTest::newRow("words") << QByteArray("This is no project.");
    QTest::newRow("cut off") << open + key;
    QTest::newRow("cut off within a key") << open + key.left(40);
    QTest::newRow("double quote in a name")
        << open + QByteArray(key).replace("Strobe", "the \"Strobe\"") + "</project>";
    QTest::newRow("ampersand in a name") << open + QByteArray(key).replace("Strobe", "R & B") + "</project>";
    QTest::newRow("bracket in a name") << open + QByteArray(key).replace("Strobe", "<3") + "</project>";
    QTest::newRow("two roots") << open + "</project>" + open + "</project>";
}

void TestProjects::noProject()
{
    QFETCH(const QByteArray, content);
    Workspace space;
    QVERIFY(start(space));
    QVERIFY(space.click("radioButton_16pads"));
    QVERIFY(space.type("bankname", "Intro"));
    QVERIFY(space.putOnPad(3, 20, 1));
    QVERIFY(space.type("bankname", "Verse"));
    QVERIFY(space.type("padsname", "Friday"));
    QVERIFY(space.click("radio_outputmidi"));
    QVERIFY(space.putOnKey(9, 2, 2));
    QVERIFY(space.pickOnKey(5, 6, {"Set as Switch"}));
    QVERIFY(space.choose("combobox", 2));
    const QByteArray pads = fileOf({}, space.pads(), PadAttributes);
    const QByteArray keys = fileOf({}, space.grid(), KeyAttributes);
    const QStringList banks = space.bankNames();

    QVERIFY(loadedFrom(space, content) == true);
    QCOMPARE(fileOf({}, space.pads(), PadAttributes), pads);
    QCOMPARE(fileOf({}, space.grid(), KeyAttributes), keys);
    QCOMPARE(space.ticked(), QList<int>{9});
    QCOMPARE(space.bankNames(), banks);
    QCOMPARE(space.find<QLineEdit>("bankname")->text(), QString("Intro"));
    QCOMPARE(space.find<QLineEdit>("padsname")->text(), QString("Friday"));
    QCOMPARE(space.window().windowTitle(), QString("Zarvex - Show"));
    QCOMPARE(current(space, "combobox"), 2);
    QCOMPARE(notOfOutput(space, false), QString());
    QCOMPARE(notOfFirstBank(space, false), QString());
    QCOMPARE(savedSwitch(space), QString("5,6"));
    QCOMPARE(saved(space, "savepadsproject").attribute("show"), settingsOf(space));
}

void TestProjects::keysWithoutAProject()
{
    Workspace space;
    QVERIFY(start(space));
    QVERIFY(space.putOnPad(3, 0));
    QVERIFY(space.click("radio_outputmidi"));
    QVERIFY(space.putOnKey(9, 2, 2));
    QVERIFY(loadedFrom(space, "<keys>" + gridKey(2, 1, "Strobe", 5) + padKey(9, 0, "Fog", 7) + "</keys>")
            == true);
    QCOMPARE(pad(space, 0, 0), QString("1-4|1-4|1|3|#000bb8"));
    QCOMPARE(pad(space, 2, 1), QString("Strobe|Strobe|1|5|#0000ff"));
    QCOMPARE(pad(space, 9, 0), QString("Fog|Fog|1|7|#ff0000"));
    QCOMPARE(space.grid()->index(2, 2).data().toString(), QString("2-2"));
    QCOMPARE(space.ticked(), QList<int>({5, 7, 9}));
    QCOMPARE(notOfOutput(space, false), QString());
    QCOMPARE(notOfFirstBank(space, false), QString());
}

void TestProjects::twoProjects_data()
{
    QTest::addColumn<bool>("lastIsMidi");
    QTest::newRow("pads, then midi") << true;
    QTest::newRow("midi, then pads") << false;
}

void TestProjects::twoProjects()
{
    QFETCH(const bool, lastIsMidi);
    Workspace space;
    QVERIFY(start(space));
    const QString other = space.writeShow("Other", Workspace::iniWith({5})) + "/Live/live.ini";
    const QByteArray pads = "<project type=\"pads\" " + attribute("show", settingsOf(space))
                            + R"(showname="Show" export="Page" layout="1" banks="A,B" >)"
                            + padKey(2, 1, "Strobe", 2) + padKey(60, 0, "Late", 4) + "</project>";
    const QByteArray midi = "<project type=\"midi\" " + attribute("show", other)
                            + R"(showname="Other" export="Keys" deviceid="LAUNCHPAD" switch="3,4" >)"
                            + gridKey(2, 9, "Fog", 3) + "</project>";
    QVERIFY(loadedFrom(space, "<all>" + (lastIsMidi ? pads + midi : midi + pads) + "</all>") == true);

    QCOMPARE(notOfOutput(space, lastIsMidi), QString());
    QCOMPARE(space.window().windowTitle(), QString(lastIsMidi ? "Zarvex - Other" : "Zarvex - Show"));
    QCOMPARE(space.dmx()->rowCount(), lastIsMidi ? 5 : 16);
    QCOMPARE(space.find<QLineEdit>("padsname")->text(), QString(lastIsMidi ? "Keys" : "Page"));
    QCOMPARE(savedBanks(space), lastIsMidi ? DefaultBanks.join(",") : QString("A,B"));
    QCOMPARE(savedSwitch(space), QString(lastIsMidi ? "3,4" : "-1,-1"));
    QCOMPARE(current(space, "devicescombo"), Devices::Classic); // the pads name none
    QCOMPARE(isChecked(space, "radioButton_16pads"), !lastIsMidi);
    QCOMPARE(space.ticked(), QList<int>({2, 3, 4}));
    if (lastIsMidi) {
        QCOMPARE(key(space, 2, 1), QString("Strobe|Strobe|1|2|||||#ff0000"));
        QCOMPARE(key(space, 2, 9), QString("Fog|Fog|1|3|1|||0|#0000ff"));
        QCOMPARE(space.leftOnPads(), QString());
    } else {
        QCOMPARE(pad(space, 2, 1), QString("Strobe|Strobe|1|2|#ff0000"));
        QCOMPARE(pad(space, 60, 0), QString("Late|Late|1|4|#ff0000"));
        QCOMPARE(space.leftOnGrid(), QString());
    }
}

void TestProjects::secondShowIsMissing()
{
    Workspace space;
    QVERIFY(start(space));
    QVERIFY(space.putOnPad(3, 0));
    QVERIFY(space.click("radio_outputmidi"));
    const QString other = space.writeShow("Other", Workspace::iniWith({5})) + "/Live/live.ini";
    const QByteArray first = "<project type=\"pads\" " + attribute("show", other)
                             + R"(showname="Other" export="Page" layout="1" banks="A,B" >)"
                             + padKey(2, 1, "Strobe", 2) + "</project>";
    QVERIFY(loadedFrom(space,
                       "<all>" + first + R"(<project show="/nowhere" showname="Third" export="x" /></all>)")
            == false);
    QCOMPARE(space.window().windowTitle(), QString("Zarvex - Other"));
    QCOMPARE(space.dmx()->rowCount(), 5);
    QCOMPARE(space.ticked(), QList<int>());
    QCOMPARE(space.leftOnPads(), QString());
    QCOMPARE(space.leftOnGrid(), QString());
    QCOMPARE(space.find<QLineEdit>("padsname")->text(), QString("Page"));
    QCOMPARE(savedBanks(space), QString("A,B"));
    QCOMPARE(notOfOutput(space, true), QString()); // no panel has moved
    QVERIFY(isChecked(space, "radioButton_8pads"));
}

void TestProjects::secondShowCannotBeOpened()
{
    Workspace space;
    QVERIFY(start(space));
    const QString other = space.writeShow("Other", Workspace::iniWith({5})) + "/Live/live.ini";
    const QString hostile = space.writeShow("Hostile", "[page]\nnumber=@Variant(\\0)\n") + "/Live/live.ini";
    const QByteArray first = "<project " + attribute("show", other) + R"(showname="Other" banks="A" />)";
    const QByteArray second = "<project " + attribute("show", hostile) + R"(showname="Hostile" export="x" >)"
                              + padKey(2, 1, "Strobe", 2) + "</project>";
    QVERIFY(loadedFrom(space, "<all>" + first + second + "</all>") == true);
    QCOMPARE(space.window().windowTitle(), QString("Zarvex - Other"));
    QCOMPARE(space.find<QComboBox>("combobox")->count(), 2); // its pages stay, its Live Buttons go
    QCOMPARE(space.dmx()->rowCount(), 0);
    QCOMPARE(space.find<QLineEdit>("padsname")->text(), QString("x"));
    QCOMPARE(savedBanks(space), DefaultBanks.join(","));
    QCOMPARE(pad(space, 2, 1), QString("Strobe|Strobe|1|2|#ff0000"));
}

void TestProjects::readsAShowOnce_data()
{
    QTest::addColumn<QByteArray>("live");
    QTest::newRow("that can be opened") << Workspace::iniWith({600});
    QTest::newRow("that cannot")
        << QByteArray("[page]\nnumber=@Variant(\\0)\n").rightJustified(20 << 20, '\n');
}

void TestProjects::readsAShowOnce()
{
    QFETCH(const QByteArray, live);

    Workspace space;
    QVERIFY(start(space));
    const QString show = space.writeShow("Other", live) + "/Live/live.ini";
    const QByteArray one = "<project " + attribute("show", show) + R"(showname="Other" deviceid="%" />)";
    QByteArray all;
    while (all.size() < 900000)
        all += QByteArray(one).replace("%", all.size() % 2 == 0 ? "LAUNCHPAD" : "APCMINI ");
    const ProcessorTime time;
    QVERIFY(loadedFrom(space, "<all>" + all + "</all>") == true);
    QVERIFY2(time.elapsed() < 10000, qPrintable(QString("%1 ms").arg(time.elapsed())));
    QCOMPARE(space.find<QLineEdit>("padsname")->text(), QString());
}

void TestProjects::roundTrips_data()
{
    bothKinds();
}

void TestProjects::roundTrips()
{
    QFETCH(const bool, isMidi);
    constexpr uint Seed = 20;
    qInfo("seed %u", Seed);
    QRandomGenerator random(Seed);
    Workspace space;
    QVERIFY(start(space));
    QVERIFY(!isMidi || space.click("radio_outputmidi"));
    for (int round = 0; round < 40; ++round) {
        space.trigger("actionNew_2");
        QVERIFY(chooseAtRandom(space, isMidi, random));
        QVERIFY(fillAtRandom(space, isMidi, random));
        const QString first = projectPath(space, QString("first %1.zarvex").arg(round));
        const QString second = projectPath(space, QString("second %1.zarvex").arg(round));
        QVERIFY2(save(space, first), qPrintable(space.dialogs.faults()));
        space.trigger("actionNew_2");
        QVERIFY2(loaded(space, first) == true, qPrintable(space.dialogs.faults()));
        QVERIFY2(save(space, second), qPrintable(space.dialogs.faults()));
        QVERIFY2(bytesOf(first) == bytesOf(second), qPrintable("round " + QString::number(round)));
        QVERIFY(bytesOf(first).size() > 5000);
    }
}

void TestProjects::allCellsComeBack()
{
    Workspace space;
    QVERIFY(start(space));
    for (const bool isMidi : {false, true}) {
        QAbstractItemModel *table = isMidi ? space.grid() : space.pads();
        QVERIFY(!isMidi || space.click("radio_outputmidi"));
        for (int row = 0; row < table->rowCount(); ++row) {
            for (int column = 0; column < table->columnCount(); ++column) {
                const QString at = QString("%1-%2").arg(row).arg(column);
                QStringList values = {"name " + at, "button " + at, QString::number(row + 1),
                                      QString::number(row % 16)};
                if (isMidi)
                    values += {QString::number(column % 2), "off " + at, "on " + at, "blink " + at};
                values += QColor::fromRgb(row, column, 77).name();
                QVERIFY(fill(table, row, column, isMidi ? KeyAttributes : PadAttributes, values));
            }
        }
        const QByteArray before = fileOf({}, table, isMidi ? KeyAttributes : PadAttributes);
        const QString path = projectPath(space, isMidi ? "keys.zarvex" : "pads.zarvex");
        QVERIFY(save(space, path));
        space.trigger("actionNew_2");
        QVERIFY(fileOf({}, table, isMidi ? KeyAttributes : PadAttributes) != before);
        QVERIFY(loaded(space, path) == true);
        QCOMPARE(fileOf({}, table, isMidi ? KeyAttributes : PadAttributes).split('\n'), before.split('\n'));
    }
}

void TestProjects::unsafeNameKeepsTheShow_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("double quote") << "the \"loud\" one";
    QTest::newRow("ampersand") << "Drum & Bass";
    QTest::newRow("bracket") << "a < b";
}

void TestProjects::unsafeNameKeepsTheShow()
{
    QFETCH(const QString, name);
    for (const char *where : {"pad", "bankname", "padsname"}) {
        Workspace space;
        QVERIFY(start(space));
        QVERIFY(space.putOnPad(3, 0));
        if (where == QByteArray("pad"))
            QVERIFY(space.pads()->setData(space.pads()->index(0, 0), name, Qt::EditRole));
        else
            QVERIFY(space.type(where, name));
        QVERIFY(save(space, projectPath(space)));
        QVERIFY(bytesOf(projectPath(space)).contains("=\"" + name.toUtf8()));
        const QStringList before = space.snapshot();
        QVERIFY(loaded(space, projectPath(space)) == true);
        QCOMPARE(space.snapshot(), before);
        QCOMPARE(space.window().windowTitle(), QString("Zarvex - Show"));
    }
}

void TestProjects::bankWithCommaBecomesTwo()
{
    Workspace space;
    QVERIFY(start(space));
    QVERIFY(space.choose("bankcombo", 1));
    QVERIFY(space.type("bankname", "Verse, slow"));
    QVERIFY(space.putOnPad(3, 0));
    QVERIFY(save(space, projectPath(space)));
    QVERIFY(loaded(space, projectPath(space)) == true);
    QCOMPARE(space.bankNames(),
             QStringList({"BANK 1", "Verse", " slow", "BANK 3", "BANK 4", "BANK 5", "BANK 6", "BANK 7"}));
    QCOMPARE(savedBanks(space), QString("BANK 1,Verse, slow,BANK 3,BANK 4,BANK 5,BANK 6,BANK 7,BANK 8"));
}

QTEST_MAIN(TestProjects)
#include "test_projects.moc"

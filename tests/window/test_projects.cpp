#include "support/boxes.h"
#include "support/devices.h"
#include "support/files.h"
#include "support/fulldisk.h"
#include "support/processortime.h"
#include "support/texts.h"
#include "support/workspace.h"

#include <QComboBox>
#include <QDomDocument>
#include <QFileDialog>
#include <QLineEdit>
#include <QRadioButton>

namespace {

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
        return false;
    }

    QWidget *parent = nullptr;
    bool isForSaving = false;
    bool asksBeforeOverwriting = false;
    QString toRemove; ///< file that goes away when it has been chosen
};

QString projectPath(const Workspace &space, const QString &file = "Night.zarvex")
{
    return space.documents() + "/Zarvex/projects/" + file;
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

/** The cells that are not at rest: "row,column name|display name|page|button|...|colour", by semicolons. */
QString filled(const QAbstractItemModel *table, bool isGrid)
{
    QList<int> roles = {Qt::EditRole, DisplayNameRole, PageRole, ButtonRole};
    if (isGrid)
        roles += {AvailableRole, OffColorRole, OnColorRole, BlinkRole};
    QStringList cells;
    for (int row = 0; row < table->rowCount(); ++row) {
        for (int col = 0; col < table->columnCount(); ++col) {
            const QModelIndex cell = table->index(row, col);
            QStringList texts;
            for (const int role : qAsConst(roles))
                texts += cell.data(role).toString();
            texts += cell.data(Qt::DecorationRole).value<QColor>().name();
            const QString label = isGrid ? Texts::keyLabel(row, col) : Texts::padLabel(row, col);
            const QString rest = QStringList{label, label, Texts::NoPage, Texts::NoButton}.join("|") + "|"
                                 + (isGrid ? cell.data(AvailableRole).toString() + "|||0|" : "")
                                 + Texts::NoColor;
            if (texts.join("|") != rest)
                cells += QString("%1,%2 ").arg(row).arg(col) + texts.join("|");
        }
    }
    return cells.join("; ");
}

using Facts = QMap<QString, QString>;

/** What a project decides on. */
Facts factsOf(Workspace &space)
{
    const auto current = [&space](const char *combo) {
        return QString::number(space.find<QComboBox>(combo)->currentIndex());
    };
    const QDomElement pads = saved(space, "savepadsproject");
    const QDomElement midi = saved(space, "savemidiproject");
    QStringList ticked;
    for (const int row : space.ticked())
        ticked += QString::number(row);
    return {{"output", (space.find<QRadioButton>("radio_outputmidi")->isChecked() ? "midi " : "pads ")
                           + QString::number(space.window().maximumWidth())},
            {"title", space.window().windowTitle()},
            {"show", pads.attribute("show").remove(space.home() + "/")},
            {"show's name", pads.attribute("showname")},
            {"Live Buttons", QString::number(space.dmx()->rowCount())},
            {"filter", current("combobox")},
            {"page", space.find<QLineEdit>("padsname")->text()},
            {"bank", current("bankcombo")},
            {"bank's name", space.find<QLineEdit>("bankname")->text()},
            {"banks", pads.attribute("banks")},
            {"layout", pads.attribute("layout")},
            {"hidden", space.padsView()->isColumnHidden(1) ? "1" : ""},
            {"device", current("devicescombo")},
            {"mapper", current("mididevices")},
            {"colors", current("combo_offcolor") + " " + current("combo_oncolor")},
            {"switch", midi.attribute("switch")},
            {"ticked", ticked.join(" ")},
            {"pads", filled(space.pads(), false)},
            {"keys", filled(space.grid(), true)}};
}

/** Facts as lines, with some of them as told: "bank: 2". */
QStringList told(Facts facts, const QStringList &changes)
{
    for (const QString &change : changes) {
        const QString name = change.section(": ", 0, 0);
        if (!facts.contains(name))
            qFatal("no fact named %s", qPrintable(name));
        facts.insert(name, change.section(": ", 1));
    }
    QStringList lines;
    for (auto fact = facts.cbegin(); fact != facts.cend(); ++fact)
        lines += fact.key() + ": " + fact.value();
    return lines;
}

/** Fills both tables and changes what can be changed. */
bool work(Workspace &space)
{
    return space.loadSomeShow() && space.click("radioButton_16pads") && space.putOnPad(3, 20, 1)
           && space.type("bankname", "Verse") && space.type("padsname", "Friday")
           && space.click("radio_outputmidi") && space.choose("mididevices", 1)
           && space.choose("combo_offcolor", 2) && space.choose("combo_oncolor", 0) && space.putOnKey(9, 2, 2)
           && space.pickOnKey(5, 6, {"Set as Switch"}) && space.choose("combobox", 2);
}

const Facts Worked = {
    {"output", "midi 1366"},
    {"title", Texts::title("Show")},
    {"show", "Show/Live/live.ini"},
    {"show's name", "Show"},
    {"Live Buttons", "16"},
    {"filter", "2"},
    {"page", "Friday"},
    {"bank", "2"},
    {"bank's name", "Verse"},
    {"banks", "BANK 1,BANK 2,Verse,BANK 4,BANK 5,BANK 6,BANK 7,BANK 8"},
    {"layout", "1"},
    {"hidden", ""},
    {"device", "0"},
    {"mapper", "1"},
    {"colors", "2 0"},
    {"switch", "5,6"},
    {"ticked", "9"},
    {"pads", "20,1 1-4|1-4|1|3|#000bb8"},
    {"keys",
     "2,2 2-2|2-2|2|9|1||||#002328; 5,6 " + Texts::Switch + "|" + Texts::Switch + "|0|-1|0|||0|#000000"},
};

/** After a project over this work that names its show and nothing else. */
const Facts Loaded = {
    {"output", "pads 650"},
    {"title", Texts::title("Show")},
    {"show", "Show/Live/live.ini"},
    {"show's name", "Show"},
    {"Live Buttons", "16"},
    {"filter", "0"},
    {"page", ""},
    {"bank", "0"},
    {"bank's name", "BANK 1"},
    {"banks", "BANK 1,BANK 2,BANK 3,BANK 4,BANK 5,BANK 6,BANK 7,BANK 8"},
    {"layout", "0"},
    {"hidden", "1"},
    {"device", "0"},
    {"mapper", "1"},
    {"colors", "2 0"},
    {"switch", "-1,-1"},
    {"ticked", ""},
    {"pads", ""},
    {"keys", ""},
};

/** A "key" element with the attributes of a pad, for the Live Button of a number. */
QByteArray padKey(int row, int column, const QByteArray &id)
{
    const QString key =
        R"(<key row="%1" column="%2" name="Typed" dspname="Fog" pagenr="2" id="%3" color="Blue" />)";
    return key.arg(row).arg(column).arg(QString(id)).toLatin1();
}

/** The same with all attributes of a key. */
QByteArray gridKey(int row, int column, const QByteArray &id)
{
    return padKey(row, column, id)
        .replace(" color=", R"( avail="0" coloroff="red" coloron="lime" blink="1" color=)");
}

/** A "project" element; SHOW stands for the show that work() loads, OTHER for one of five Live Buttons. */
QByteArray project(const QByteArray &attributes, const QByteArray &keys = {})
{
    return R"(<project show="SHOW" showname="Show" )" + attributes + ">" + keys + "</project>";
}

/** Writes a project with its shows and loads it by the slot, which asks nothing but for the file. */
bool load(Workspace &space, QByteArray content)
{
    const QString other = space.writeShow("Other", Workspace::iniWith({5}));
    space.writeShow("Hostile", "[page]\nnumber=@Variant(\\0)\n");
    content.replace("SHOW", (space.home() + "/Show/Live/live.ini").toUtf8())
        .replace("OTHER", (other + "/Live/live.ini").toUtf8())
        .replace("HOSTILE", (space.home() + "/Hostile/Live/live.ini").toUtf8());
    if (!writeFile(projectPath(space), content))
        qFatal("cannot write a project");
    space.dialogs.expect(Boxes::loadDialog(space, projectPath(space)));
    return space.ask<bool>("loadproject");
}

/** Presses what can be pressed; nothing of it must be more than harmless. */
bool useEverything(Workspace &space, const QString &device)
{
    const auto exports = [&space](const Boxes::Box &box) {
        space.dialogs.expect(box);
        return space.click("pushButton_2");
    };
    bool isDone = space.click("radio_outputmidi") && space.putOnKey(4, 9, 9)
                  && space.pickOnKey(2, 2, {"Remove"}) && exports(Boxes::mappingCreated("Strange", device));
    for (const char *entry : {"Blink", "Set as Switch"})
        isDone = isDone && space.pickOnKey(9, 9, {entry}) && space.pickOnKey(4, 4, {"Set as Switch"});
    space.gridView()->setCurrentIndex(space.grid()->index(9, 9));
    space.dialogs.tolerate(Boxes::colorDialog({}, {}).title);
    for (int choice = 0; choice < 5; ++choice)
        isDone = isDone && space.call("colorpadchange", choice) && space.call("coloronpadchange", choice);
    isDone = isDone && space.call("rgbpadchange") && space.call("rgbonpadchange")
             && space.click("radio_outputpage") && space.putOnPad(4, 63)
             && exports(Boxes::pageCreated("Strange"));
    for (int bank = 7; bank >= 0; --bank)
        isDone = isDone && space.choose("bankcombo", bank);
    space.trigger("actionNew_2");
    return isDone && space.leftOnPads().isEmpty() && space.leftOnGrid().isEmpty()
           && space.click("radio_outputmidi") && space.click("cleanmidi_button")
           && space.choose("devicescombo", Devices::Classic) && space.choose("devicescombo", Devices::Akai)
           && space.find<QComboBox>("combo_offcolor")->currentText() == "yellow" && space.putOnKey(4, 11, 9);
}

} // namespace

/** From a filled workspace to a project file and back, and what becomes of files that are none. */
class TestProjects final : public QObject
{
    Q_OBJECT

private slots:
    void savesWhatTheWidgetsTell();
    void fileDialogs();
    void notices_data();
    void notices();
    void notSaved_data();
    void notSaved();
#ifdef Q_OS_UNIX
    void fullDiskLosesNoProject_data();
    void fullDiskLosesNoProject();
#endif

    void comesBack_data();
    void comesBack();
    void loads_data();
    void loads();
    void failsToLoad_data();
    void failsToLoad();
    void strangeProjectsAreHarmless_data();
    void strangeProjectsAreHarmless();
    void readsAShowOnce_data();
    void readsAShowOnce();

private:
    const DefaultCodec m_codec{"UTF-8"}; ///< the locale of the machine is no part of what is tested
};

/** Set by program, a widget can tell another layout than the table and another device than its page. */
void TestProjects::savesWhatTheWidgetsTell()
{
    Workspace space;
    QVERIFY(space.loadSomeShow());
    space.find<QRadioButton>("radioButton_16pads")->setChecked(true);
    QVERIFY(space.padsView()->isColumnHidden(1));
    QCOMPARE(saved(space, "savepadsproject").attribute("layout"), QString("1"));
    QVERIFY(space.call("updatemidicombo", Devices::Classic));
    QCOMPARE(saved(space, "savemidiproject").attribute("deviceid"), QString("APCMINI"));
}

void TestProjects::fileDialogs()
{
    const FileDialogs watch;
    Workspace space;
    QVERIFY(space.loadSomeShow());
    QVERIFY(space.putOnPad(3, 0));
    space.dialogs.expect(Boxes::saveDialog(space, {}));
    space.trigger("actionSave_2");
    QCOMPARE(watch.parent, static_cast<QWidget *>(&space.window()));
    QVERIFY(watch.isForSaving);
    QVERIFY(!watch.asksBeforeOverwriting); // the program asks itself
    space.dialogs.expect(Boxes::loadDialog(space, {}));
    QVERIFY(!space.ask<bool>("loadproject"));
    QCOMPARE(watch.parent, static_cast<QWidget *>(&space.window()));
    QVERIFY(!watch.isForSaving);
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestProjects::notices_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("name");
    const auto row = [](const char *what, const QString &file, const QString &name) {
        QTest::newRow(what) << file << name;
    };
    row("name ends at the first dot", "my.show.zarvex", "my");
    row("nothing before the dot", ".zarvex", "");
    row("blanks", " my  show .txt", " my  show ");
    row("an ampersand stays plain text", "R&amp;B", "R&amp;B");
    if (AnySignNamesFiles)
        row("tags stay plain text", "<b>R&B<b>.zarvex", "<b>R&B<b>");
    row("beyond ASCII", QString::fromUtf8("Fête.zarvex"), QString::fromUtf8("Fête"));
}

void TestProjects::notices()
{
    QFETCH(const QString, file);
    QFETCH(const QString, name);
    Workspace space;
    space.window();
    for (const char *slot : {"savepadsproject", "savemidiproject"}) {
        space.dialogs.expect(Boxes::projectSaved(name));
        QVERIFY(space.call(slot, projectPath(space, file)));
        QCOMPARE(space.dialogs.faults(), QString());
        QVERIFY(QFile::remove(projectPath(space, file)));
    }
}

void TestProjects::notSaved_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("name");
    const auto row = [](const char *what, const QString &file, const QString &name) {
        QTest::newRow(what) << file << name;
    };
    row("a folder has the name", "folder.zarvex", "folder");
    row("missing folder", "missing/my.show.zarvex", "my");
    row("a name that the system would cut off", QString("file") + QChar::Null, QString("file") + QChar::Null);
}

void TestProjects::notSaved()
{
    QFETCH(const QString, file);
    QFETCH(const QString, name);
    Workspace space;
    space.window();
    QVERIFY(QDir().mkpath(projectPath(space, "folder.zarvex")));
    QVERIFY(writeFile(projectPath(space, "file"), "somebody's work"));
    for (const char *slot : {"savepadsproject", "savemidiproject"}) {
        space.dialogs.expect(Boxes::projectNotSaved(name));
        QVERIFY(space.call(slot, projectPath(space, file)));
        QCOMPARE(space.dialogs.faults(), QString());
    }
    QVERIFY(!QFileInfo(projectPath(space, file)).isFile());
    QCOMPARE(bytesOf(projectPath(space, "file")), QByteArray("somebody's work"));
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
    space.window();
    QVERIFY(writeFile(projectPath(space), "last night's work"));
    for (const char *slot : {"savepadsproject", "savemidiproject"}) {
        space.dialogs.expect(Boxes::projectNotSaved("Night"));
        const FullDisk disk(room);
        QVERIFY(space.call(slot, projectPath(space)));
    }
    QCOMPARE(space.dialogs.faults(), QString());
    QCOMPARE(bytesOf(projectPath(space)), QByteArray("last night's work"));
    QCOMPARE(QFileInfo(projectPath(space)).dir().entryList(QDir::Files | QDir::Hidden),
             QStringList("Night.zarvex"));
}
#endif

void TestProjects::comesBack_data()
{
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<QStringList>("changes"); // what a project of this kind does not tell
    QTest::newRow("pads") << QByteArray("savepadsproject")
                          << QStringList{
                                 "output: pads 650", "filter: 0", "bank: 0",      "bank's name: BANK 1",
                                 "ticked: 3",        "keys: ",    "switch: -1,-1"};
    QTest::newRow("midi") << QByteArray("savemidiproject")
                          << QStringList{"filter: 0", "bank: 0", "bank's name: BANK 1",
                                         "banks: " + Loaded.value("banks"), "pads: "};
}

void TestProjects::comesBack()
{
    QFETCH(const QByteArray, slot);
    QFETCH(const QStringList, changes);
    Workspace space;
    QVERIFY2(work(space), qPrintable(space.dialogs.faults()));
    QCOMPARE(told(factsOf(space), {}), told(Worked, {}));
    space.dialogs.expect(Boxes::projectSaved("Night"));
    QVERIFY(space.call(slot, projectPath(space)));
    space.trigger("actionNew_2");
    space.dialogs.expect(Boxes::loadDialog(space, projectPath(space)));
    QVERIFY(space.ask<bool>("loadproject"));
    QCOMPARE(told(factsOf(space), {}), told(Worked, changes));
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestProjects::loads_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QStringList>("expected");
    const auto row = [](const char *name, const QByteArray &attributes, const QStringList &changes) {
        QTest::newRow(name) << project(attributes) << told(Loaded, changes);
    };
    row("nothing but the show", "", {});
    row("all empty", R"(type="" export="" layout="" banks="" switch="" deviceid="" offcolor="" oncolor="")",
        {});
    row("page's name", R"(export="Friday")", {"page: Friday"});
    row("page's name of blanks", R"(export="  ")", {"page:   "});
    row("16 pads", R"(layout="1")", {"layout: 1", "hidden: "});
    row("three banks", R"(banks="A,B,C")", {"banks: A,B,C", "bank's name: A"});
    row("nine banks", R"(banks="1,2,3,4,5,6,7,8,9")", {"banks: 1,2,3,4,5,6,7,8,9", "bank's name: 1"});
    row("first bank has no name", R"(banks=",B")", {"banks: ,B", "bank's name: "});
    row("Switch", R"(switch="3,4")", {"switch: 3,4"});
    row("device", R"(deviceid="LAUNCHPAD")", {"device: 6", "mapper: 0", "colors: 0 3"});
    row("device on show", R"(deviceid="APCMINI")", {});
    row("device without a palette", R"(deviceid="LAUNCHPADPRO")", {"device: 4", "mapper: 0"});
    row("device before its colours", R"(oncolor="12" offcolor="15" deviceid="LAUNCHPADMINI")",
        {"device: 2", "mapper: 0", "colors: 15 12"});
    row("colours of a device without a palette", R"(deviceid="LAUNCHPAD2" offcolor="0" oncolor="3")",
        {"device: 3", "mapper: 0", "colors: 0 3"});
    row("off colour", R"(offcolor="1")", {"colors: 1 0"});
    row("on colour", R"(oncolor="3")", {"colors: 2 3"});
    row("colours beyond the palette", R"(offcolor="4" oncolor="-7")", {"colors: -1 -1"});

    const QString pad = "12,1 Typed|Fog|2|3|#0000ff";
    const QString key = "2,2 Typed|Fog|2|3|0|red|lime|1|#0000ff";
    const auto filledBy = [](const char *name, bool isMidi, const QByteArray &keys,
                             const QStringList &changes) {
        QTest::newRow(name) << project(isMidi ? R"(type="midi" switch="5,6")" : R"(type="pads" banks="A")",
                                       keys)
                            << told(Loaded, changes
                                                + (isMidi ? QStringList{"output: midi 1366", "layout: 1",
                                                                        "hidden: ", "switch: 5,6"}
                                                          : QStringList{"banks: A", "bank's name: A"}));
    };
    filledBy("pads", false, padKey(12, 1, "3") + padKey(63, 0, "15"),
             {"pads: " + pad + "; 63,0 Typed|Fog|2|15|#0000ff", "ticked: 3 15"});
    filledBy("keys", true, gridKey(2, 2, "3"), {"keys: " + key, "ticked: 3"});
    filledBy("Switch's mark", true, R"(<key row="5" column="6" name="SWITCH" id="-1" avail="0"/>)",
             {"keys: 5,6 SWITCH|||-1|0||||#000000"});
    // What a kind does not write is empty on the grid, and left out on the pads.
    filledBy("pads' elements on the grid", true, padKey(2, 1, "3"),
             {"keys: 2,1 Typed|Fog|2|3|||||#0000ff", "ticked: 3"});
    filledBy("keys' elements on the pads", false, gridKey(12, 1, "3"), {"pads: " + pad, "ticked: 3"});
    filledBy("pads outside of the table", false, padKey(64, 0, "7") + padKey(0, 2, "8") + padKey(-1, -1, "9"),
             {"ticked: 7 8 9"});
    filledBy("keys outside of the table", true, gridKey(12, 0, "3") + gridKey(0, 12, "4"), {"ticked: 3 4"});
    filledBy("Live Button beyond the show", false, padKey(12, 1, "16"),
             {"pads: 12,1 Typed|Fog|2|16|#0000ff"});
    filledBy("Live Button below all", false, padKey(12, 1, "-2"), {"pads: 12,1 Typed|Fog|2|-2|#0000ff"});
    filledBy("no number is the first Live Button", false, R"(<key row="1" column="1" name="x" id="Fog"/>)",
             {"pads: 1,1 x|||Fog|#000000", "ticked: 0"});

    QTest::newRow("another name for the show")
        << QByteArray(R"(<project show="SHOW" showname="Club"/>)")
        << told(Loaded, {"title: " + Texts::title("Club"), "show's name: Club"});
    QTest::newRow("no name for the show") << QByteArray(R"(<project show="SHOW"/>)")
                                          << told(Loaded, {"title: " + Texts::title(""), "show's name: "});
    QTest::newRow("show that cannot be opened") // its name stays off the title
        << QByteArray(R"(<project show="HOSTILE" showname="Bad" type="midi" export="Keys">)")
               + gridKey(2, 2, "3") + "</project>"
        << told(Loaded, {"output: midi 1366", "layout: 1", "hidden: ", "show's name: Bad", "Live Buttons: 0",
                         "filter: 2", "page: Keys", "keys: " + key});

    const QByteArray pads =
        R"(<project show="OTHER" showname="Other" type="pads" export="Page" layout="1" banks="A"/>)"
        + padKey(12, 1, "3");
    const QByteArray midi =
        project(R"(type="midi" export="Keys" deviceid="LAUNCHPAD" switch="3,4")", gridKey(2, 2, "4"));
    const QString onGrid = "keys: 2,2 Typed|Fog|2|4|0|red|lime|1|#0000ff";
    QTest::newRow("two projects, pads first") // the key of the pads lies outside of the grid
        << "<all>" + pads + midi + "</all>"
        << told(Loaded, {"output: midi 1366", "layout: 1", "hidden: ", "page: Keys", "device: 6", "mapper: 0",
                         "colors: 0 3", "switch: 3,4", "ticked: 3 4", onGrid});
    QTest::newRow("two projects, keys first") // the column of the key lies outside of the pads
        << "<all>" + midi + pads + "</all>"
        << told(Loaded, {"title: " + Texts::title("Other"), "show: Other/Live/live.ini", "show's name: Other",
                         "Live Buttons: 5", "page: Page", "banks: A", "bank's name: A", "layout: 1",
                         "hidden: ", "device: 6", "mapper: 0", "colors: 0 3", "ticked: 3 4", "pads: " + pad});
    QTest::newRow("second show cannot be opened") // the first one's pages stay, its Live Buttons go
        << "<all>" + pads + R"(<project show="HOSTILE" showname="Bad"/></all>)"
        << told(Loaded, {"title: " + Texts::title("Other"), "show: Other/Live/live.ini", "show's name: Bad",
                         "Live Buttons: 0", "pads: " + pad});

    const QStringList passedOver = {"output: pads 650", "bank: 0", "bank's name: BANK 1", "layout: 0",
                                    "hidden: 1"};
    QTest::newRow("no project element") << QByteArray("<show/>") << told(Worked, passedOver);
    QTest::newRow("not well-formed") << project("", gridKey(2, 2, "3").replace("Fog", "R&B"))
                                     << told(Worked, passedOver);
    QTest::newRow("keys without a project")
        << "<keys>" + padKey(12, 1, "3") + "</keys>"
        << told(Worked,
                passedOver + QStringList{"pads: " + pad + "; 20,1 1-4|1-4|1|3|#000bb8", "ticked: 3 9"});
}

void TestProjects::loads()
{
    QFETCH(const QByteArray, content);
    QFETCH(const QStringList, expected);
    Workspace space;
    QVERIFY2(work(space), qPrintable(space.dialogs.faults()));
    space.padsView()->setCurrentIndex(space.pads()->index(0, 1));
    QVERIFY(load(space, content));
    QCOMPARE(told(factsOf(space), {}), expected);
    QVERIFY(!space.padsView()->isColumnHidden(1) || space.padsView()->currentIndex().column() != 1);
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestProjects::failsToLoad_data()
{
    QTest::addColumn<QByteArray>("content"); // empty where the dialog is cancelled
    QTest::addColumn<bool>("isGone");        // as soon as it is chosen
    QTest::addColumn<QStringList>("expected");
    const QByteArray rest =
        R"(showname="Away" type="pads" export="Away" banks="A" switch="1,1" deviceid="LAUNCHPAD">)"
        + padKey(0, 0, "3") + "</project>";
    const QByteArray first =
        R"(<project show="OTHER" showname="Other" type="pads" export="Page" layout="1" banks="A"/>)";
    const auto unchanged = told(Worked, {});
    QTest::newRow("cancelled") << QByteArray() << false << unchanged;
    QTest::newRow("gone as soon as chosen") << project("") << true << unchanged;
    QTest::newRow("show of another machine")
        << R"(<project show="C:/Users/dj/Show/Live/live.ini" )" + rest << false << unchanged;
    QTest::newRow("no show") << R"(<project show="" )" + rest << false << unchanged;
    QTest::newRow("second show is missing") // the panels stay, the first project's settings do too
        << "<all>" + first + R"(<project show="/nowhere" )" + rest + "</all>" << false
        << told(Worked, {"title: " + Texts::title("Other"), "show: Other/Live/live.ini", "show's name: Other",
                         "Live Buttons: 5", "filter: 0", "page: Page", "bank: 0", "bank's name: BANK 1",
                         "banks: A", "switch: -1,-1", "ticked: ", "pads: ", "keys: "});
}

void TestProjects::failsToLoad()
{
    QFETCH(const QByteArray, content);
    QFETCH(const bool, isGone);
    QFETCH(const QStringList, expected);
    FileDialogs watch;
    Workspace space;
    QVERIFY2(work(space), qPrintable(space.dialogs.faults()));
    if (isGone)
        watch.toRemove = projectPath(space);
    if (content.isEmpty()) {
        space.dialogs.expect(Boxes::loadDialog(space, {}));
        QVERIFY(!space.ask<bool>("loadproject"));
    } else {
        QVERIFY(!load(space, content));
    }
    QCOMPARE(space.dialogs.faults(), QString());
    QCOMPARE(told(factsOf(space), {}), expected);
}

void TestProjects::strangeProjectsAreHarmless_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("hasDevice");
    const QByteArray strange = R"(type="midi" export="Strange" )";
    const auto row = [&strange](const char *name, const QByteArray &attributes, bool hasDevice) {
        QTest::newRow(name) << project(strange + attributes, gridKey(2, 2, "999")) << hasDevice;
    };
    row("unknown device", R"(deviceid="NOBODY" offcolor="2" oncolor="1")", false);
    row("device by its display name", R"(deviceid="AKAI APC Mini")", false);
    row("no colours", R"(offcolor="99" oncolor="-1")", true);
    row("one bank", R"(banks="A")", true);
    row("Switch beyond the grid", R"(switch="12,40")", true);
    row("Switch at the largest numbers", R"(switch="2147483647,2147483647")", true);
    row("Switch below the grid", R"(switch="-5,3")", true);
}

void TestProjects::strangeProjectsAreHarmless()
{
    QFETCH(const QByteArray, content);
    QFETCH(const bool, hasDevice);
    Workspace space;
    QVERIFY2(work(space), qPrintable(space.dialogs.faults()));
    QVERIFY(load(space, content));
    QCOMPARE(space.find<QComboBox>("devicescombo")->currentIndex(), hasDevice ? 0 : -1);
    QVERIFY2(useEverything(space, hasDevice ? Devices::Names.first() : QString()),
             qPrintable(space.dialogs.faults()));
    QCOMPARE(space.dialogs.faults(), QString());
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
    space.window();
    const QString show = space.writeShow("Large", live) + "/Live/live.ini";
    const QByteArray one = "<project show=\"" + show.toUtf8() + R"(" showname="Large" deviceid="%" />)";
    QByteArray all;
    while (all.size() < 900000)
        all += QByteArray(one).replace("%", all.size() % 2 == 0 ? "LAUNCHPAD" : "APCMINI ");
    const ProcessorTime time;
    QVERIFY(load(space, "<all>" + all + "</all>"));
    QVERIFY2(time.elapsed() < 10000, qPrintable(QString("%1 ms").arg(time.elapsed())));
    QCOMPARE(space.dialogs.faults(), QString());
}

QTEST_MAIN(TestProjects)
#include "test_projects.moc"

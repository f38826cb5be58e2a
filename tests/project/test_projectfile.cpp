#include "project/projectfile.h"
#include "support/files.h"
#include "support/processortime.h"
#include "support/texts.h"
#include "tables/controller.h"
#include "tables/roles.h"
#include "tables/vdjmodel.h"

#include <QRegularExpression>
#include <QStandardItemModel>
#include <QTemporaryDir>
#include <QTextStream>
#include <QtTest>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

namespace {

const QString Club = "/home/dj/Shows/Club/Live/live.ini";

// All that the two tables keep for a cell.
const QList<int> PadRoles = {Qt::EditRole, DisplayNameRole, PageRole, ButtonRole, Qt::DecorationRole};
const QList<int> KeyRoles = {Qt::EditRole, DisplayNameRole, PageRole,  ButtonRole,        AvailableRole,
                             OffColorRole, OnColorRole,     BlinkRole, Qt::DecorationRole};

QStringList defaultBanks()
{
    QStringList banks;
    for (int bank = 1; bank <= 8; ++bank)
        banks += "BANK " + QString::number(bank);
    return banks;
}

/** Writes values into a cell, in the order of the roles. */
bool set(QAbstractItemModel &table, int row, int column, const QList<int> &roles, const QStringList &values)
{
    for (int i = 0; i < roles.size(); ++i) {
        if (!table.setData(table.index(row, column), values.value(i), roles.at(i)))
            return false;
    }
    return true;
}

/** Fills a pads table with the 64 rows of a program that has just started. */
bool fillWithEmptyPads(QAbstractItemModel &pads)
{
    bool isFilled = pads.insertRows(0, 64);
    for (int row = 0; row < 64; ++row) {
        for (int column = 0; column < 2; ++column) {
            const QString label = Texts::padLabel(row, column);
            isFilled = isFilled
                       && set(pads, row, column, PadRoles,
                              {label, label, Texts::NoPage, Texts::NoButton, Texts::NoColor});
        }
    }
    return isFilled;
}

/** Fills a grid with the empty keys of the AKAI: a band at the bottom, another at the right. */
bool fillWithEmptyKeys(QAbstractItemModel &grid)
{
    bool isFilled = grid.insertRows(0, 12);
    for (int row = 0; row < 12; ++row) {
        for (int column = 0; column < 12; ++column) {
            const bool inRows = row >= 2 && row <= 9;
            const bool inColumns = column >= 2 && column <= 9;
            const bool isKey = (inRows && (inColumns || column == 11)) || (row == 11 && inColumns);
            const QString label = Texts::keyLabel(row, column);
            isFilled = isFilled
                       && set(grid, row, column, KeyRoles,
                              {label, label, Texts::NoPage, Texts::NoButton, isKey ? "1" : "0", "", "", "0",
                               Texts::NoColor});
        }
    }
    return isFilled;
}

/** What a project of each kind is written from. */
struct PadsProject
{
    QString show;
    QString showName;
    QString exportName;
    bool has16Pads;
    QStringList banks;
    const QAbstractItemModel &pads;
};

struct MidiProject
{
    QString device;
    QString show;
    QString showName;
    Grid::Cell switchKey;
    int offColor;
    int onColor;
    QString exportName;
    const QAbstractItemModel &grid;
};

void writeProject(QTextStream &out, const PadsProject &project)
{
    ProjectSettings settings;
    settings.show = project.show;
    settings.showName = project.showName;
    settings.exportName = project.exportName;
    settings.has16Pads = project.has16Pads;
    settings.banks = project.banks;
    ::writeProject(out, settings, cellsOf(project.pads, CellFields::ofPads()));
}

void writeProject(QTextStream &out, const MidiProject &project)
{
    ProjectSettings settings;
    settings.isMidi = true;
    settings.device = project.device;
    settings.show = project.show;
    settings.showName = project.showName;
    settings.switchKey = project.switchKey;
    settings.offColor = project.offColor;
    settings.onColor = project.onColor;
    settings.exportName = project.exportName;
    ::writeProject(out, settings, cellsOf(project.grid, CellFields::ofKeys()));
}

template<typename Kind>
QByteArray written(const Kind &project, const char *codec = "UTF-8")
{
    return streamed([&project](QTextStream &out) { writeProject(out, project); }, codec);
}

QByteArray golden(const char *name)
{
    return bytesOf(QFINDTESTDATA(QString("../data/") + name));
}

Project parsed(const QByteArray &xml)
{
    return parseProject(xml);
}

/** A table that notes what is written into it; twelve rows and columns. */
class Notebook final : public QAbstractTableModel
{
    Q_OBJECT

public:
    int rowCount(const QModelIndex & /*parent*/ = {}) const override { return 12; }
    int columnCount(const QModelIndex & /*parent*/ = {}) const override { return 12; }
    QVariant data(const QModelIndex & /*index*/, int /*role*/) const override { return {}; }

    bool setData(const QModelIndex &index, const QVariant &value, int role) override
    {
        if (!index.isValid())
            return false;
        notes += QString("%1,%2 %3=%4 (%5)")
                     .arg(index.row())
                     .arg(index.column())
                     .arg(role)
                     .arg(value.toString(), value.typeName());
        return true;
    }

    QStringList notes;
};

using Lay = void (*)(const Project &, QAbstractItemModel &, const std::function<void(int)> &);

/** A key element with all attributes; "row" and "column" as given. */
QByteArray keyAt(const QByteArray &row, const QByteArray &column, const QByteArray &name)
{
    return "<key row=\"" + row + "\" column=\"" + column + "\" name=\"" + name + "\" dspname=\"" + name
           + "\" pagenr=\"1\" id=\"5\" avail=\"1\" coloroff=\"\" coloron=\"\" blink=\"0\" color=\"#ff0000\" />";
}

QByteArray projectOf(const QByteArray &content)
{
    return "<project type=\"pads\" show=\"s\" >" + content + "</project>";
}

/** The settings of a document's first project. */
ProjectSettings settingsOf(const QByteArray &xml)
{
    return parsed(xml).settings.value(0);
}

/** Lays a document's cells onto a table; the numbers of the buttons that were ticked. */
QList<int> laid(const QByteArray &xml, QAbstractItemModel &table, Lay lay = &layOnPads)
{
    QList<int> ticked;
    lay(parsed(xml), table, [&ticked](int button) { ticked += button; });
    return ticked;
}

/** Reads a project back and writes it anew. */
template<typename Table>
QByteArray rewritten(const QString &path, Lay lay, bool isMidi)
{
    const auto document = readProject(path);
    if (!document)
        return "not read";
    const QList<ProjectSettings> all = document->settings;
    if (all.size() != 1 || all.first().isMidi != isMidi)
        return "other settings";
    const ProjectSettings &settings = all.first();
    Table table;
    if (!table.insertRows(0, isMidi ? 12 : 64))
        return "no table";
    lay(*document, table, [](int) {});
    if (isMidi)
        return written(MidiProject{settings.device, settings.show, settings.showName, settings.switchKey,
                                   settings.offColor.value_or(-1), settings.onColor.value_or(-1),
                                   settings.exportName, table});
    return written(PadsProject{settings.show, settings.showName, settings.exportName, settings.has16Pads,
                               settings.banks, table});
}

} // namespace

Q_DECLARE_METATYPE(Lay)

/** The project file: what is written, what is read, and what becomes of files that are none. */
class TestProjectFile final : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void writesEmptyPads();
    void writesFilledPads();
    void writesFilledGrid();
    void writesRowByRow();
    void writesColumnOfHiddenPads();
    void writesColors_data();
    void writesColors();
    void writesSwitch_data();
    void writesSwitch();
    void writesBanks_data();
    void writesBanks();
    void writesInTheCodecOfTheStream_data();
    void writesInTheCodecOfTheStream();
    void flushesEveryLine();
    void readsSettings_data();
    void readsSettings();
    void readsSettingsOfAllProjects();
    void laysInOrder_data();
    void laysInOrder();
    void emptyNameOfAPadBecomesItsNumber();
    void laysOnTheRightCell_data();
    void laysOnTheRightCell();
    void ticks_data();
    void ticks();
    void laysAllKeysOfTheDocument();
    void readsWhatItWrites();
    void readsDocuments_data();
    void readsDocuments();
    void readsWhatAnotherLocaleWrote_data();
    void readsWhatAnotherLocaleWrote();
    void refusesDocuments_data();
    void refusesDocuments();
    void hostileDocumentsEndSoon_data();
    void hostileDocumentsEndSoon();
    void cannotBeOpened_data();
    void cannotBeOpened();
    void pipeIsNoFile();
    void readsThousandsOfKeys();
    void everyCharacterSurvives_data();
    void everyCharacterSurvives();
    void unsafeNamesBreakTheFile_data();
    void unsafeNamesBreakTheFile();
    void bankWithCommaBecomesTwo();

private:
    QString write(const QByteArray &content);

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestProjectFile::initTestCase()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

/** Path of a project with this content. */
QString TestProjectFile::write(const QByteArray &content)
{
    QString path = m_folder->filePath("project.zarvex");
    return writeFile(path, content) ? path : QString();
}

void TestProjectFile::writesEmptyPads()
{
    VDJModel pads;
    QVERIFY(fillWithEmptyPads(pads));
    const QByteArray bytes = written(PadsProject{"", "", "OS2L DMX", false, defaultBanks(), pads});
    QCOMPARE(difference(bytes, golden("project-pads-empty.zarvex")), QString());
    QCOMPARE(bytes.count("\t<key "), 128);
}

void TestProjectFile::writesFilledPads()
{
    VDJModel pads;
    QVERIFY(fillWithEmptyPads(pads));
    QVERIFY(set(pads, 0, 0, PadRoles, {"Strobe", "Strobe", "1", "3", "#FF0000"}));
    QVERIFY(set(pads, 0, 1, PadRoles, {"Nine's", "It's \"loud\" & <bright>", "2", "12", "yellow"}));
    QVERIFY(set(pads, 19, 0, PadRoles, {" blanks  around ", "Fog", "3", "40", "#FFF"}));
    QVERIFY(set(pads, 63, 0, PadRoles, {"a > b &amp; c", "back\\slash %1", "10", "7", "#00A0b1"}));
    QVERIFY(set(pads, 63, 1, PadRoles, {"0", "", "1", "0", "#000000"}));
    const QStringList banks = {"Intro",      "Verse, slow", "",       "BANK 4",
                               "It's \"5\"", "BANK 6",      "BANK 7", "BANK 8"};
    const QByteArray bytes = written(PadsProject{Club, "Club", "Fri & Sat", true, banks, pads});
    QCOMPARE(difference(bytes, golden("project-pads-filled.zarvex")), QString());
}

void TestProjectFile::writesFilledGrid()
{
    Controller grid;
    QVERIFY(fillWithEmptyKeys(grid));
    const QString loud = "It's \"loud\" & <bright>";
    QVERIFY(set(grid, 2, 2, KeyRoles, {"Strobe", "Strobe", "1", "3", "1", "red", "#00FF00", "1", "#FF0000"}));
    QVERIFY(set(grid, 11, 9, KeyRoles, {"Fog", "Fog", "2", "12", "1", "", "", "", "yellow"}));
    QVERIFY(set(grid, 0, 2, KeyRoles, {"Left over", "Left over", "1", "0", "0", "", "", "", "blue"}));
    QVERIFY(set(grid, 9, 11, KeyRoles, {loud, loud, "3", "40", "1", "", "green", "0", "#00A0B1"}));
    QVERIFY(set(grid, 5, 5, {OffColorRole, BlinkRole}, {"#AA5500", "1"}));
    QVERIFY(set(grid, 2, 2, {Qt::ForegroundRole}, {"#123456"})); // has no place in the file
    const QByteArray bytes = written(MidiProject{"APCMINI", Club, "Club", {3, 4}, 3, 1, "Grid \"A\"", grid});
    QCOMPARE(difference(bytes, golden("project-midi-filled.zarvex")), QString());
}

void TestProjectFile::writesRowByRow()
{
    const QStandardItemModel table(2, 3);
    QByteArrayList expected = {R"(<?xml version="1.0" encoding="UTF-8"?>)",
                               R"(<project type="pads" show="" showname="" export="" layout="0" banks="" >)"};
    for (const char *cell : {"0 0", "0 1", "0 2", "1 0", "1 1", "1 2"}) {
        const QByteArrayList at = QByteArray(cell).split(' ');
        expected += "\t<key row=\"" + at.at(0) + "\" column=\"" + at.at(1)
                    + R"(" name="" dspname="" pagenr="" id="" color="" />)";
    }
    expected += "</project>";
    expected += "";
    QCOMPARE(written(PadsProject{"", "", "", false, {}, table}).split('\n'), expected);
}

/** Nothing of hidden pads is lost, nor what was typed on an empty one. */
void TestProjectFile::writesColumnOfHiddenPads()
{
    VDJModel pads;
    QVERIFY(fillWithEmptyPads(pads));
    QVERIFY(set(pads, 3, 1, PadRoles, {"Twelve", "Fog", "1", "5", "#0000ff"}));
    QVERIFY(set(pads, 0, 1, {Qt::EditRole}, {"Mine"}));
    const QByteArray eight = written(PadsProject{Club, "Club", "Page", false, defaultBanks(), pads});
    const QByteArray sixteen = written(PadsProject{Club, "Club", "Page", true, defaultBanks(), pads});
    QVERIFY(eight.contains(R"(<key row="3" column="1" name="Twelve" dspname="Fog" pagenr="1" id="5" )"
                           R"(color="#0000ff" />)"));
    QVERIFY(eight.contains(R"(<key row="0" column="1" name="Mine" dspname="PAD 9" pagenr="0" id="-1" )"));
    QCOMPARE(QByteArray(eight).replace(R"( layout="0" )", R"( layout="1" )"), sixteen);
}

void TestProjectFile::writesColors_data()
{
    QTest::addColumn<QString>("color");
    QTest::addColumn<QByteArray>("inFile");
    QTest::newRow("lower case") << "#a0b1c2" << QByteArray("#a0b1c2");
    QTest::newRow("upper case") << "#A0B1C2" << QByteArray("#a0b1c2");
    QTest::newRow("both") << "#Ff00fF" << QByteArray("#ff00ff");
    QTest::newRow("word") << "Green" << QByteArray("#008000");
    QTest::newRow("three digits") << "#FaC" << QByteArray("#ffaacc");
    QTest::newRow("no colour") << "" << QByteArray("#000000");
    QTest::newRow("unknown word") << "loud" << QByteArray("#000000");
}

void TestProjectFile::writesColors()
{
    QFETCH(const QString, color);
    QFETCH(const QByteArray, inFile);
    VDJModel pads;
    QVERIFY(fillWithEmptyPads(pads));
    QVERIFY(set(pads, 0, 0, {Qt::DecorationRole}, {color}));
    QCOMPARE(written(PadsProject{"", "", "", false, {}, pads}).split('\n').value(2),
             "\t"
             R"(<key row="0" column="0" name="PAD 1" dspname="PAD 1" pagenr="0" id="-1" color=")"
                 + inFile + "\" />");

    Controller grid;
    QVERIFY(fillWithEmptyKeys(grid));
    QVERIFY(set(grid, 0, 0, {Qt::DecorationRole, OffColorRole, OnColorRole}, {color, color, color}));
    QVERIFY(written(MidiProject{"", "", "", {-1, -1}, 0, 0, "", grid})
                .split('\n')
                .value(2)
                .endsWith(" coloroff=\"" + color.toUtf8() + "\" coloron=\"" + color.toUtf8()
                          + "\" blink=\"0\" color=\"" + inFile + "\" />"));
}

void TestProjectFile::writesSwitch_data()
{
    QTest::addColumn<QList<int>>("switchKey");
    QTest::addColumn<QByteArray>("inFile");
    QTest::newRow("none") << QList<int>{-1, -1} << QByteArray("-1,-1");
    QTest::newRow("no numbers") << QList<int>{} << QByteArray("-1,-1");
    QTest::newRow("first key") << QList<int>{0, 0} << QByteArray("0,0");
    QTest::newRow("row before column") << QList<int>{3, 4} << QByteArray("3,4");
    QTest::newRow("last key") << QList<int>{11, 11} << QByteArray("11,11");
}

void TestProjectFile::writesSwitch()
{
    QFETCH(const QList<int>, switchKey);
    QFETCH(const QByteArray, inFile);
    const QStandardItemModel grid(1, 1);
    QCOMPARE(written(MidiProject{
                         "D", "s", "n", {switchKey.value(0, -1), switchKey.value(1, -1)}, 12, 0, "e", grid})
                 .split('\n')
                 .value(1),
             R"(<project deviceid="D" type="midi" show="s" showname="n" switch=")" + inFile
                 + R"(" offcolor="12" oncolor="0" export="e" >)");
}

void TestProjectFile::writesBanks_data()
{
    QTest::addColumn<QStringList>("banks");
    QTest::addColumn<QByteArray>("inFile");
    QTest::newRow("defaults, no blanks behind the commas")
        << defaultBanks() << QByteArray("BANK 1,BANK 2,BANK 3,BANK 4,BANK 5,BANK 6,BANK 7,BANK 8");
    QTest::newRow("none") << QStringList{} << QByteArray("");
    QTest::newRow("one") << QStringList{"A"} << QByteArray("A");
    QTest::newRow("empty names") << QStringList{"", "B", "", ""} << QByteArray(",B,,");
    QTest::newRow("nine") << QStringList{"1", "2", "3", "4", "5", "6", "7", "8", "9"}
                          << QByteArray("1,2,3,4,5,6,7,8,9");
    QTest::newRow("commas of their own") << QStringList{"a,b", ", "} << QByteArray("a,b,, ");
    QTest::newRow("signs go out raw") << QStringList{"\"", "&", "<"} << QByteArray("\",&,<");
}

void TestProjectFile::writesBanks()
{
    QFETCH(const QStringList, banks);
    QFETCH(const QByteArray, inFile);
    const QStandardItemModel pads(1, 1);
    QCOMPARE(written(PadsProject{"s", "n", "e", true, banks, pads}).split('\n').value(1),
             R"(<project type="pads" show="s" showname="n" export="e" layout="1" banks=")" + inFile + "\" >");
}

void TestProjectFile::writesInTheCodecOfTheStream_data()
{
    QTest::addColumn<QByteArray>("codec");
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("UTF-8") << QByteArray("UTF-8") << QByteArray("Caf\xC3\xA9");
    QTest::newRow("Latin 1") << QByteArray("ISO-8859-1") << QByteArray("Caf\xE9");
}

/** Both kinds of projects; without a codec of the stream, that of the locale counts. */
void TestProjectFile::writesInTheCodecOfTheStream()
{
    QFETCH(const QByteArray, codec);
    QFETCH(const QByteArray, name);
    const QStandardItemModel table(1, 1);
    const QString cafe = QString::fromUtf8("Caf\xC3\xA9");
    const QByteArray declaration = R"(<?xml version="1.0" encoding="UTF-8"?>)";
    const QByteArray pads = written(PadsProject{cafe, cafe, cafe, false, {cafe, cafe}, table}, codec);
    QCOMPARE(pads.split('\n').value(0), declaration);
    QCOMPARE(pads.split('\n').value(1),
             QByteArray(R"(<project type="pads" show="%" showname="%" export="%" layout="0" banks="%,%" >)")
                 .replace("%", name));
    const DefaultCodec inUse(codec);
    const QByteArray midi = written(MidiProject{"D", "s", cafe, {0, 0}, 0, 0, "e", table}, nullptr);
    QCOMPARE(midi.split('\n').value(0), declaration);
    QCOMPARE(
        midi.split('\n').value(1),
        QByteArray(
            R"(<project deviceid="D" type="midi" show="s" showname="%" switch="0,0" offcolor="0" oncolor="0" export="e" >)")
            .replace("%", name));
}

/** Each line has reached the device before the next one begins. */
void TestProjectFile::flushesEveryLine()
{
    const QStandardItemModel table(2, 3);
    const PadsProject pads = {"s", "n", "e", false, {}, table};
    const MidiProject midi = {"D", "s", "n", {0, 0}, 0, 0, "e", table};
    const QByteArrayList ofPads = pieces([&pads](QTextStream &out) { writeProject(out, pads); });
    const QByteArrayList ofMidi = pieces([&midi](QTextStream &out) { writeProject(out, midi); });
    for (const QByteArrayList &lines : {ofPads, ofMidi}) {
        QCOMPARE(lines.size(), 2 + 6 + 1);
        for (const QByteArray &line : lines)
            QCOMPARE(line.indexOf('\n'), line.size() - 1);
    }
    QCOMPARE(ofPads.join(), written(pads));
    QCOMPARE(ofMidi.join(), written(midi));
}

void TestProjectFile::readsSettings_data()
{
    QTest::addColumn<QByteArray>("attributes");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, const QByteArray &attributes, const QString &expected) {
        QTest::newRow(name) << attributes << expected;
    };
    row("no attribute", "", "");
    row("all empty",
        R"(deviceid="" type="" show="" showname="" switch="" offcolor="" oncolor="" export="" )"
        R"(layout="" banks="")",
        "");
    row("show", R"(show="/a b/Live/live.ini")", "show=/a b/Live/live.ini");
    row("device", R"(deviceid="APCMINI")", "device=APCMINI");

    row("type midi", R"(type="midi")", "midi");
    row("type pads", R"(type="pads")", "");
    row("type in upper case", R"(type="MIDI")", "");
    row("type with a blank", R"(type="midi ")", "");

    row("layout of 16 pads", R"(layout="1")", "16");
    row("layout of 8 pads", R"(layout="0")", "");
    row("unknown layout", R"(layout="2")", "");
    row("layout not told exactly", R"(layout="01")", "");

    row("banks", R"(banks="A,B,C,D,E,F,G,H")", "banks=A|B|C|D|E|F|G|H");
    row("three banks", R"(banks="A,B,C")", "banks=A|B|C");
    row("nine banks", R"(banks="1,2,3,4,5,6,7,8,9")", "banks=1|2|3|4|5|6|7|8|9");
    row("empty names are kept", R"(banks=",,B,")", "banks=||B|");
    row("one comma", R"(banks=",")", "banks=|");
    row("blanks are kept", R"(banks="A , B")", "banks=A | B");

    row("Switch", R"(switch="3,4")", "switch=3,4");
    row("Switch at the first cell", R"(switch="0,0")", "switch=0,0");
    row("no Switch", R"(switch="-1,-1")", "");
    row("Switch of one part", R"(switch="3")", "");
    row("Switch of a comma", R"(switch=",")", "switch=0,0");
    row("Switch of a number and nothing", R"(switch="3,")", "switch=3,0");
    row("Switch of three parts", R"(switch="3,4,5")", "switch=3,4");
    row("Switch beyond the grid", R"(switch="99,-7")", "switch=99,-7");
    row("Switch with a fraction", R"(switch="1.5,2")", "switch=0,2");
    row("Switch by a semicolon", R"(switch="3;4")", "");

    row("off colour", R"(offcolor="2")", "off=2");
    row("on colour", R"(oncolor="15")", "on=15");
    row("colours of position 0", R"(offcolor="0" oncolor="0")", "off=0 on=0");
    row("colours of none", R"(offcolor="-1" oncolor="-1")", "off=-1 on=-1");
    row("colours beyond", R"(offcolor="1000" oncolor="99999999999")", "off=1000 on=0");
    row("colours not in base 10", R"(offcolor="0x3" oncolor="010")", "off=0 on=10");
    row("all of a midi project",
        R"(deviceid="APCMINI" type="midi" show="/Live/live.ini" showname="Show" switch="-1,-1" offcolor="0" )"
        R"(oncolor="1" export="OS2L DMX")",
        "show=/Live/live.ini showname=Show export=OS2L DMX device=APCMINI midi off=0 on=1");
    row("attributes of neither kind", R"(version="2" color="red" name="x" row="1")", "");
}

void TestProjectFile::readsSettings()
{
    QFETCH(const QByteArray, attributes);
    QFETCH(const QString, expected);
    const ProjectSettings settings = settingsOf("<project " + attributes + "/>");
    QStringList read; // what is not empty
    const auto add = [&read](bool isThere, const QString &text) {
        if (isThere)
            read += text;
    };
    add(!settings.show.isEmpty(), "show=" + settings.show);
    add(!settings.showName.isEmpty(), "showname=" + settings.showName);
    add(!settings.exportName.isEmpty(), "export=" + settings.exportName);
    add(!settings.device.isEmpty(), "device=" + settings.device);
    add(settings.isMidi, "midi");
    add(settings.has16Pads, "16");
    add(!settings.banks.isEmpty(), "banks=" + settings.banks.join("|"));
    add(settings.switchKey != Grid::NoCell,
        QString("switch=%1,%2").arg(settings.switchKey.row).arg(settings.switchKey.column));
    add(settings.offColor.has_value(), "off=" + QString::number(settings.offColor.value_or(0)));
    add(settings.onColor.has_value(), "on=" + QString::number(settings.onColor.value_or(0)));
    QCOMPARE(read.join(" "), expected);
}

void TestProjectFile::readsSettingsOfAllProjects()
{
    const QList<ProjectSettings> all =
        parsed(R"(<all><project showname="A"><project showname="B"/></project><key><project showname="C"/>)"
               R"(</key><Project showname="D"/></all>)")
            .settings;
    QStringList names;
    for (const ProjectSettings &settings : all)
        names += settings.showName;
    QCOMPARE(names, QStringList({"A", "B", "C"}));
    QVERIFY(parsed("<show/>").settings.isEmpty());
    QVERIFY(parsed({}).settings.isEmpty());
}

void TestProjectFile::laysInOrder_data()
{
    QTest::addColumn<Lay>("lay");
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<QStringList>("expected");
    // Attributes stand in another order in the file, and those of the grid are there for both.
    const QByteArray whole =
        R"(<key color="#ff0000" blink="1" coloron="blue" coloroff="red" avail="1" id="8" pagenr="7" )"
        R"(dspname="d" name="n" column="4" row="3" other="x" textcolor="#123456" />)";
    QTest::newRow("pads") << &layOnPads << whole
                          << QStringList{"2=n", "257=d", "256=7", "tick 8", "259=8", "1=#ff0000"};
    QTest::newRow("grid") << &layOnGrid << whole
                          << QStringList{"2=n",   "257=d",   "256=7",    "tick 8", "259=8",
                                         "260=1", "261=red", "262=blue", "263=1",  "1=#ff0000"};
    const QByteArray bare = R"(<key column="4" row="3"/>)";
    QTest::newRow("pads, what is missing is empty")
        << &layOnPads << bare << QStringList{"2=", "257=", "256=", "tick 0", "259=", "1="};
    QTest::newRow("grid, what is missing is empty")
        << &layOnGrid << bare
        << QStringList{"2=", "257=", "256=", "tick 0", "259=", "260=", "261=", "262=", "263=", "1="};
}

/** The tick comes before the cell takes its number; where it stands among the other texts does not matter. */
void TestProjectFile::laysInOrder()
{
    QFETCH(const Lay, lay);
    QFETCH(const QByteArray, key);
    QFETCH(QStringList, expected);
    Notebook table;
    lay(parsed(projectOf(key)), table,
        [&table](int button) { table.notes += "tick " + QString::number(button); });
    QStringList notes = table.notes;
    notes.replaceInStrings("3,4 ", "").replaceInStrings(" (QString)", "");
    const auto tick = [](const QStringList &list) { return list.indexOf(QRegularExpression("tick .*")); };
    QVERIFY(tick(notes) >= 0 && tick(notes) < notes.indexOf(QRegularExpression("259=.*")));
    notes.move(tick(notes), tick(expected));
    QCOMPARE(notes, expected);
}

void TestProjectFile::emptyNameOfAPadBecomesItsNumber()
{
    VDJModel pads;
    QVERIFY(fillWithEmptyPads(pads));
    laid(projectOf(R"(<key row="9" column="1" dspname="Fog" pagenr="1" id="4" color="#00ff00"/>)"), pads);
    QCOMPARE(pads.index(9, 1).data(Qt::EditRole).toString(), QString("PAD 10"));
    QCOMPARE(pads.index(9, 1).data(DisplayNameRole).toString(), QString("Fog"));
}

void TestProjectFile::laysOnTheRightCell_data()
{
    QTest::addColumn<QByteArray>("row");
    QTest::addColumn<QByteArray>("column");
    QTest::addColumn<QString>("onPads"); // the cell that took it, empty for none
    QTest::addColumn<QString>("onGrid");
    const auto add = [](const char *name, const QByteArray &row, const QByteArray &column,
                        const QString &onPads,
                        const QString &onGrid) { QTest::newRow(name) << row << column << onPads << onGrid; };
    add("first cell", "0", "0", "0,0", "0,0");
    add("inside both", "5", "1", "5,1", "5,1");
    add("last pad", "63", "1", "63,1", "");
    add("last key", "11", "11", "", "11,11");
    add("row behind the pads", "64", "0", "", "");
    add("row behind the grid", "12", "0", "12,0", "");
    add("column behind the pads", "0", "2", "", "0,2");
    add("column behind the grid", "0", "12", "", "");
    add("negative row", "-1", "0", "", "");
    add("negative column", "0", "-1", "", "");
    add("both negative", "-1", "-1", "", "");
    add("huge", "2147483647", "2147483647", "", "");
    add("beyond all numbers counts as 0", "2147483648", "99999999999999999999", "0,0", "0,0");
    add("empty counts as 0", "", "", "0,0", "0,0");
    add("words count as 0", "first", "second", "0,0", "0,0");
    add("a word for the row", "x", "1", "0,1", "0,1");
    add("fractions count as 0", "1.0", "1e0", "0,0", "0,0");
    add("other bases count as 0", "0x5", "0b1", "0,0", "0,0");
    add("leading zeros", "007", "01", "7,1", "7,1");
}

void TestProjectFile::laysOnTheRightCell()
{
    QFETCH(const QByteArray, row);
    QFETCH(const QByteArray, column);
    QFETCH(const QString, onPads);
    QFETCH(const QString, onGrid);
    VDJModel pads;
    QVERIFY(fillWithEmptyPads(pads));
    Controller grid;
    QVERIFY(fillWithEmptyKeys(grid));
    for (QAbstractItemModel *table : QList<QAbstractItemModel *>{&pads, &grid}) {
        const bool isGrid = table == &grid;
        const QByteArray project = projectOf(keyAt(row, column, "Strobe"));
        QCOMPARE(laid(project, *table, isGrid ? &layOnGrid : &layOnPads), QList<int>{5}); // wherever it lies
        QStringList taken;
        for (int r = 0; r < table->rowCount(); ++r) {
            for (int c = 0; c < table->columnCount(); ++c) {
                if (table->index(r, c).data(Qt::EditRole) == QVariant("Strobe"))
                    taken += QString("%1,%2").arg(r).arg(c);
            }
        }
        QCOMPARE(taken.join(" "), isGrid ? onGrid : onPads);
    }
}

void TestProjectFile::ticks_data()
{
    QTest::addColumn<QByteArray>("id");
    QTest::addColumn<int>("button");
    QTest::newRow("first") << QByteArray(R"(id="0")") << 0;
    QTest::newRow("some") << QByteArray(R"(id="17")") << 17;
    QTest::newRow("empty cell") << QByteArray(R"(id="-1")") << -1;
    QTest::newRow("missing") << QByteArray() << 0;
    QTest::newRow("empty") << QByteArray(R"(id="")") << 0;
    QTest::newRow("word") << QByteArray(R"(id="strobe")") << 0;
    QTest::newRow("huge") << QByteArray(R"(id="2147483647")") << 2147483647;
    QTest::newRow("beyond all numbers") << QByteArray(R"(id="2147483648")") << 0;
    QTest::newRow("far below") << QByteArray(R"(id="-2147483648")") << std::numeric_limits<int>::min();
}

void TestProjectFile::ticks()
{
    QFETCH(const QByteArray, id);
    QFETCH(const int, button);
    const QByteArray project = projectOf(R"(<key id="3"/><key )" + id + R"(/><key id="3"/>)");
    for (const Lay lay : {&layOnPads, &layOnGrid}) {
        VDJModel none;
        QCOMPARE(laid(project, none, lay), QList<int>({3, button, 3}));
        QCOMPARE(none.rowCount(), 0);
    }
}

/** Of two for one cell, the later one counts. */
void TestProjectFile::laysAllKeysOfTheDocument()
{
    VDJModel pads;
    QVERIFY(fillWithEmptyPads(pads));
    laid("<all>" + keyAt("0", "0", "before") + "<project>" + keyAt("1", "0", "inside") + "<project>"
             + keyAt("2", "0", "deep") + "</project></project><pad>" + keyAt("3", "0", "elsewhere") + "</pad>"
             + keyAt("0", "0", "later") + "<Key row=\"4\" column=\"0\" name=\"other\"/></all>",
         pads);
    QStringList names;
    for (int row = 0; row < 5; ++row)
        names += pads.index(row, 0).data(Qt::EditRole).toString();
    QCOMPARE(names, QStringList({"later", "inside", "deep", "elsewhere", "PAD 5"}));
}

/** A file that a person wrote, and a grid with something in every field. */
void TestProjectFile::readsWhatItWrites()
{
    const QByteArray file = golden("project-pads-empty.zarvex");
    QCOMPARE(difference(rewritten<VDJModel>(write(file), &layOnPads, false), file), QString());

    Controller grid;
    QVERIFY(fillWithEmptyKeys(grid));
    QVERIFY(set(grid, 2, 2, KeyRoles, {"It's", "Fog, low", "1", "3", "1", "red", "#00FF00", "1", "#ff0000"}));
    QVERIFY(set(grid, 11, 9, KeyRoles, {" Left ", "Over", "2", "0", "0", "", "blue", "", "#00a0b1"}));
    const QByteArray midi = written(MidiProject{"APCMINI", Club, "Club", {3, 4}, 3, -1, "Grid > 'A'", grid});
    QCOMPARE(difference(rewritten<Controller>(write(midi), &layOnGrid, true), midi), QString());
}

void TestProjectFile::readsDocuments_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("name");
    const QByteArray declaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
    const QByteArray cafe = "<project showname=\"Caf\xC3\xA9\" />\n";
    const QString name = QString::fromUtf8("Caf\xC3\xA9");
    QTest::newRow("as written") << declaration + cafe << name;
    QTest::newRow("byte order mark and carriage returns")
        << "\xEF\xBB\xBF" + QByteArray(declaration + cafe).replace("\n", "\r\n") << name;
    QTest::newRow("Latin 1 as declared")
        << QByteArray("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\n<project showname=\"Caf\xE9\" />")
        << name;
    QTest::newRow("document type elsewhere")
        << "<!DOCTYPE project SYSTEM \"file:///etc/hostname\">" + cafe << name;
    QTest::newRow("square brackets behind a document type")
        << declaration + "<!DOCTYPE project>\n<project showname=\"[A]\"/>\n"
        << "[A]";
    QTest::newRow("escapes") << QByteArray("<project showname=\"&lt;&amp;&quot;&apos;&gt;&#233;\"/>")
                             << QString::fromUtf8("<&\"'>\xC3\xA9");
    QTest::newRow("some levels deep")
        << QByteArray("<a>").repeated(50) + cafe + QByteArray("</a>").repeated(50) << name;
}

void TestProjectFile::readsDocuments()
{
    QFETCH(const QByteArray, content);
    QFETCH(const QString, name);
    const auto document = readProject(write(content));
    QVERIFY(document.has_value());
    const QList<ProjectSettings> all = document->settings;
    QCOMPARE(all.size(), 1);
    QCOMPARE(all.first().showName, name);
}

void TestProjectFile::readsWhatAnotherLocaleWrote_data()
{
    QTest::addColumn<QByteArray>("codec");
    QTest::addColumn<QString>("name");
    QTest::newRow("western Europe") << QByteArray("ISO-8859-1") << QString::fromUtf8("Café Größe");
    QTest::newRow("Russia") << QByteArray("KOI8-R") << QString::fromUtf8("Свет");
    QTest::newRow("Japan") << QByteArray("EUC-JP") << QString::fromUtf8("照明");
    QTest::newRow("UTF-8") << QByteArray("UTF-8") << QString::fromUtf8("Café 照明");
}

void TestProjectFile::readsWhatAnotherLocaleWrote()
{
    QFETCH(const QByteArray, codec);
    QFETCH(const QString, name);
    VDJModel pads;
    QVERIFY(fillWithEmptyPads(pads));
    const PadsProject project = {"live.ini", name, name, false, {name}, pads};
    const QByteArray written =
        streamed([&project](QTextStream &out) { writeProject(out, project); }, codec.constData());
    const QString path = write(written);
    const DefaultCodec locale(codec);
    const auto document = readProject(path);
    QVERIFY(document.has_value());
    QCOMPARE(document->settings.value(0).showName, name);
}

void TestProjectFile::refusesDocuments_data()
{
    QTest::addColumn<QByteArray>("content");
    const QByteArray whole = golden("project-pads-empty.zarvex");
    QVERIFY(whole.size() > 1000);
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("declaration alone") << QByteArray("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n");
    QTest::newRow("zeros") << QByteArray(5000, '\0');
    QByteArray bytes;
    for (int i = 0; i < 2048; ++i)
        bytes += char(i * 37);
    QTest::newRow("binary") << bytes;
    QTest::newRow("half of it") << whole.left(whole.size() / 2);
    QTest::newRow("last sign missing") << whole.left(whole.size() - 2);
    QTest::newRow("end tag missing") << QByteArray(whole).replace("</project>", "");
    QTest::newRow("double quote in a name") << QByteArray(whole).replace("PAD 3\"", "PAD \"3\"\"");
    QTest::newRow("ampersand in a name") << QByteArray(whole).replace("PAD 3\"", "PAD & 3\"");
    QTest::newRow("bracket in a name") << QByteArray(whole).replace("PAD 3\"", "PAD < 3\"");
    QTest::newRow("U+0000 as a number") << QByteArray("<project export=\"../A&#0;\" />");
}

void TestProjectFile::refusesDocuments()
{
    QFETCH(const QByteArray, content);
    const QString path = write(content);
    const auto document = readProject(path);
    QVERIFY(document.has_value()); // could be opened
    QVERIFY(document->settings.isEmpty());
    Notebook table;
    QList<int> ticked;
    layOnPads(*document, table, [&ticked](int button) { ticked += button; });
    layOnGrid(*document, table, [&ticked](int button) { ticked += button; });
    QCOMPARE(table.notes, QStringList());
    QCOMPARE(ticked, QList<int>());
}

void TestProjectFile::hostileDocumentsEndSoon_data()
{
    QTest::addColumn<QByteArray>("content");
    QByteArray entities = "<!DOCTYPE project [<!ENTITY a0 \"lights\">";
    for (int i = 1; i < 40; ++i) {
        const QByteArray last = "&a" + QByteArray::number(i - 1) + ";";
        entities += "<!ENTITY a" + QByteArray::number(i) + " \"" + last.repeated(10) + "\">";
    }
    QTest::newRow("entities of entities") << entities + "]><project showname=\"&a39;\" >&a39;</project>";
    QTest::newRow("entity of itself")
        << QByteArray("<!DOCTYPE project [<!ENTITY a \"&a;&a;\">]><project showname=\"&a;\" >&a;</project>");
    QTest::newRow("many levels") << QByteArray("<key>").repeated(90000)
                                        + QByteArray("</key>").repeated(90000);
}

void TestProjectFile::hostileDocumentsEndSoon()
{
    QFETCH(const QByteArray, content);
    const QString path = write(content);
    const ProcessorTime timer;
    const auto document = readProject(path);
    QVERIFY(document.has_value());
    QVERIFY(document->settings.isEmpty());
    QVERIFY(document->cells.isEmpty());
    QVERIFY2(timer.elapsed() < 20000, qPrintable(QString::number(timer.elapsed())));
}

void TestProjectFile::cannotBeOpened_data()
{
    QTest::addColumn<QString>("path");
    const QString folder = m_folder->filePath("folder.zarvex");
    QVERIFY(QDir().mkpath(folder));
    const QString huge = m_folder->filePath("huge.zarvex");
    QFile file(huge);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(file.resize((1 << 20) + 1)); // takes no space on the disk
    QTest::newRow("no path") << QString();
    QTest::newRow("missing file") << m_folder->filePath("missing.zarvex");
    QTest::newRow("missing folder") << m_folder->filePath("missing/project.zarvex");
    QTest::newRow("folder") << folder;
    QTest::newRow("file beyond 1 MiB") << huge;
    QTest::newRow("path that goes on behind U+0000") << write("<project/>") + QChar(QChar::Null) + ".zarvex";
}

void TestProjectFile::cannotBeOpened()
{
    QFETCH(const QString, path);
    QVERIFY(!readProject(path).has_value());
}

void TestProjectFile::pipeIsNoFile()
{
#ifdef Q_OS_UNIX
    const QString path = m_folder->filePath("pipe.zarvex");
    QCOMPARE(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    QVERIFY(!readProject(path).has_value());
    QVERIFY(!readProject("/dev/zero").has_value());
#else
    QVERIFY(!readProject("NUL").has_value());
#endif
}

void TestProjectFile::readsThousandsOfKeys()
{
    QByteArray content = "<project type=\"pads\" show=\"s\" >\n";
    constexpr int Keys = 7040;
    for (int i = 0; i < Keys; ++i)
        content +=
            "\t"
            + keyAt(QByteArray::number(i % 64), QByteArray::number(i % 2), "Key " + QByteArray::number(i))
            + "\n";
    content += "</project>\n";
    QVERIFY(content.size() > 800000);
    const QString path = write(content);

    VDJModel pads;
    QVERIFY(fillWithEmptyPads(pads));
    int ticks = 0;
    const ProcessorTime timer;
    const auto document = readProject(path);
    QVERIFY(document.has_value());
    QCOMPARE(document->settings.size(), 1);
    layOnPads(*document, pads, [&ticks](int) { ++ticks; });
    QVERIFY2(timer.elapsed() < 20000, qPrintable(QString::number(timer.elapsed())));
    QCOMPARE(ticks, Keys);
    QCOMPARE(pads.index(63, 1).data(Qt::EditRole).toString(), "Key " + QString::number(Keys - 1));
}

void TestProjectFile::everyCharacterSurvives_data()
{
    QTest::addColumn<uint>("first");
    QTest::addColumn<uint>("last");
    QTest::newRow("control characters, tab and line ends") << 1U << 0x1FU;
    QTest::newRow("ASCII") << 0x20U << 0x7FU;
    QTest::newRow("below the surrogates") << 0x80U << 0xD7FFU;
    QTest::newRow("above the surrogates") << 0xE000U << 0xFFFDU;
    QTest::newRow("emoji") << 0x1F300U << 0x1FAFFU;
}

void TestProjectFile::everyCharacterSurvives()
{
    QFETCH(const uint, first);
    QFETCH(const uint, last);
    static const QList<uint> unsafe = {'"', '&', '<'};
    QString name;
    for (uint character = first; character <= last; ++character) {
        if (!unsafe.contains(character))
            name += QString::fromUcs4(&character, 1);
    }
    const QStandardItemModel table(1, 1);
    const auto document = readProject(write(written(PadsProject{"s", name, "e", false, {}, table})));
    QVERIFY(document.has_value());
    QCOMPARE(document->settings.value(0).showName, name);
}

void TestProjectFile::unsafeNamesBreakTheFile_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("double quote") << "the \"loud\" one";
    QTest::newRow("ampersand") << "Drum & Bass";
    QTest::newRow("opening bracket") << "a < b";
    QTest::newRow("comment") << "<!-- x -->";
}

void TestProjectFile::unsafeNamesBreakTheFile()
{
    QFETCH(const QString, name);
    VDJModel pads;
    QVERIFY(fillWithEmptyPads(pads));
    const QStringList plain = defaultBanks();
    const QList<QByteArray> files = {
        written(PadsProject{name, "n", "e", false, plain, pads}),
        written(PadsProject{"s", name, "e", false, plain, pads}),
        written(PadsProject{"s", "n", name, false, plain, pads}),
        written(PadsProject{"s", "n", "e", false, {name}, pads}),
        written(MidiProject{name, "s", "n", {-1, -1}, 0, 0, "e", pads}),
    };
    QVERIFY(set(pads, 5, 1, {Qt::EditRole}, {name}));
    for (const QByteArray &file :
         files + QList<QByteArray>{written(PadsProject{"s", "n", "e", false, plain, pads})}) {
        const auto document = readProject(write(file));
        QVERIFY(document.has_value());
        QVERIFY(document->settings.isEmpty());
        QVERIFY(document->cells.isEmpty());
    }
}

void TestProjectFile::bankWithCommaBecomesTwo()
{
    const QStandardItemModel table(1, 1);
    const QStringList banks = {"Intro", "Verse, slow", "C", "D", "E", "F", "G", "H"};
    const auto document = readProject(write(written(PadsProject{"s", "n", "e", false, banks, table})));
    QVERIFY(document.has_value());
    QCOMPARE(document->settings.value(0).banks,
             QStringList({"Intro", "Verse", " slow", "C", "D", "E", "F", "G", "H"}));
}

QTEST_MAIN(TestProjectFile)
#include "test_projectfile.moc"

#include "devices/keyrecords.h"
#include "script/escape.h"
#include "support/devices.h"
#include "support/files.h"

#include <QDomDocument>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

namespace {

const QString Mappings = ":/icons/Mappings/";

/** Record by record, every key that exists, in alphabetical order. */
QStringList shown(const QList<Record> &records)
{
    QStringList lines;
    for (const Record &record : records) {
        QStringList entries;
        for (auto entry = record.cbegin(); entry != record.cend(); ++entry)
            entries += entry.key() + "=" + entry.value();
        lines += entries.join(" | ");
    }
    return lines;
}

QString pad(const QString &value, const QString &led, const QString &action, const QString &ledAction,
            const QString &row = {}, const QString &col = {})
{
    return QString("action=%1 | col=%2 | led=%3 | ledaction=%4 | row=%5 | type=pad | value=%6")
        .arg(action, col, led, ledAction, row, value);
}

QString button(const QString &value, const QString &ledType, const QString &led, const QString &action,
               const QString &ledAction, const QString &row = {}, const QString &col = {})
{
    return QString("action=%1 | col=%2 | led=%3 | ledaction=%4 | ledtype=%5 | row=%6 | type=button | "
                   "value=%7")
        .arg(action, col, led, ledAction, ledType, row, value);
}

/** A slider, an ignored or an empty control. */
QString plain(const QString &type, const QString &value, const QString &action, const QString &row = {},
              const QString &col = {})
{
    return QString("action=%1 | col=%2 | row=%3 | type=%4 | value=%5").arg(action, col, row, type, value);
}

/** A layout and a mapper in a folder of their own. */
class Files final
{
public:
    QString layout() const { return m_folder.filePath("layout.xml"); }
    QString mapper() const { return m_folder.filePath("mapper.xml"); }
    bool write(const QByteArray &layoutContent, const QByteArray &mapperContent) const
    {
        return writeFile(layout(), layoutContent) && writeFile(mapper(), mapperContent);
    }
    QStringList records() const { return shown(readKeyRecords(layout(), mapper())); }

private:
    QTemporaryDir m_folder;
};

QByteArray inLayout(const QByteArray &body)
{
    return "<layout>" + body + "</layout>";
}

QByteArray inMapper(const QByteArray &body)
{
    return "<mapper device=\"BOX\">" + body + "</mapper>";
}

QByteArray map(const QByteArray &value, const QByteArray &action)
{
    return "<map value=\"" + value + "\" action=\"" + action + "\"/>";
}

/** What the layout alone tells of a control. */
Record recordWithoutScripts(const QDomElement &control)
{
    const QString type = control.tagName();
    const QString name = control.attribute("name");
    const QString color = control.attribute("colorled");
    const bool isSimple = type == "button" && color.isEmpty();
    Record record = {{"value", name}, {"action", ""}, {"type", type}};
    record["row"] = control.attribute("row");
    record["col"] = control.attribute("col");
    if (type == "pad" || type == "button") {
        record["led"] = (isSimple ? control.attribute("led") : color) + name;
        record["ledaction"] = "";
    }
    if (type == "button")
        record["ledtype"] = isSimple ? "led" : "color";
    return record;
}

/** Every element of the layout against every row of the mapper; something to compare with, but for the wrapping. */
QList<Record> recordsByHand(const QString &layoutPath, const QString &mapperPath)
{
    QFile layoutFile(layoutPath);
    QFile mapperFile(mapperPath);
    QDomDocument layout;
    QDomDocument mapper;
    if (!layoutFile.open(QIODevice::ReadOnly) || !layout.setContent(&layoutFile)
        || !mapperFile.open(QIODevice::ReadOnly) || !mapper.setContent(&mapperFile))
        return {};

    QList<Record> records;
    const QDomNodeList rows = mapper.elementsByTagName("map");
    for (const QString type : {"pad", "button", "slider", "ignore", "empty"}) {
        bool isFlagSet = false;
        const QDomNodeList elements = layout.elementsByTagName(type);
        for (int i = 0; i < elements.size(); ++i) {
            Record record = recordWithoutScripts(elements.at(i).toElement());
            for (int j = 0; j < rows.size(); ++j) {
                const QDomElement row = rows.at(j).toElement();
                const QString script = unwrapScript(row.attribute("action"));
                if (row.attribute("value") == record["value"])
                    record["action"] = script;
                if (record.contains("led") && row.attribute("value") == record["led"]) {
                    record["ledaction"] = script;
                    isFlagSet = true;
                }
            }
            if (type == "button" && !isFlagSet)
                record["ledaction"] = record["action"];
            records += record;
        }
    }
    return records;
}

QString oneOf(QRandomGenerator &random, const QStringList &choices)
{
    return choices.at(random.bounded(choices.size()));
}

/** An attribute, or at times nothing. */
QString maybe(QRandomGenerator &random, const QString &name, const QStringList &choices)
{
    if (random.bounded(5) == 0)
        return {};
    return QString(" %1=\"%2\"").arg(name, oneOf(random, choices).toHtmlEscaped());
}

QString randomLayout(QRandomGenerator &random, int depth = 0)
{
    const QStringList names = {"", "A", "B", "a", "AA", "BA", "LED_A", "LED_", "AB"};
    const QStringList prefixes = {"", "LED_", "A", "B"};
    QString body;
    for (int i = random.bounded(depth == 0 ? 12 : 3); i >= 0; --i) {
        const QString tag = oneOf(random, {"pad", "button", "button", "slider", "ignore", "empty", "other"});
        body += "<" + tag + maybe(random, "name", names) + maybe(random, "colorled", prefixes)
                + maybe(random, "led", prefixes) + maybe(random, "row", {"", "0", "11", "x"})
                + maybe(random, "col", {"", "2", "-1"}) + ">";
        if (depth < 3 && random.bounded(4) == 0)
            body += randomLayout(random, depth + 1);
        body += "</" + tag + ">";
    }
    return depth == 0 ? "<layout>" + body + "</layout>" : body;
}

QString randomMapper(QRandomGenerator &random)
{
    const QStringList names = {"", "A", "B", "a", "AA", "BA", "LED_A", "LED_B", "LED_", "ALED_A", "AB", "C"};
    QString body;
    for (int i = random.bounded(9); i > 0; --i) {
        QString script = oneOf(random, {"", "var '$os2l'", "var '$os2l' ? ", "toggle '$os2l'", "play"});
        for (int parts = random.bounded(5); parts > 0; --parts)
            script += oneOf(random, {" ? ", " : ", " & ", "x", "nothing", "set \"y\"", "os2l_button 'B'"});
        const QString attributes =
            maybe(random, "value", names) + maybe(random, "action", {script, script, "deck 1 " + script});
        body += random.bounded(4) == 0 ? "<info><map" + attributes + "/></info>" : "<map" + attributes + "/>";
    }
    return "<mapper>" + body + "</mapper>";
}

} // namespace

/** Key records: what a layout and a mapper tell of each control. */
class TestKeyRecords final : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { Q_INIT_RESOURCE(icons); }

    void merges_data();
    void merges();
    void lightsButtonsByTheirAction_data();
    void lightsButtonsByTheirAction();
    void freesScriptsOfTheirWrapping();
    void needsBothFiles();
    void takesBrokenFilesForEmptyOnes_data();
    void takesBrokenFilesForEmptyOnes();
    void mergesDevicesWithTheirFactoryMappers();
    void copiesActionsToLedsWithoutARow();
    void mergesRandomFilesLikeByHand();
};

void TestKeyRecords::merges_data()
{
    QTest::addColumn<QByteArray>("layout");
    QTest::addColumn<QByteArray>("mapper");
    QTest::addColumn<QStringList>("records");
    const auto row = [](const char *name, const QByteArray &layout, const QByteArray &mapper,
                        const QStringList &records) { QTest::newRow(name) << layout << mapper << records; };
    const QByteArray both = map("A", "play") + map("LED_A", "loaded");
    row("pad", "<pad name='A' row='2' col='9' colorled='LED_' group='top'/>", both,
        {pad("A", "LED_A", "play", "loaded", "2", "9")});
    row("button with a simple LED", "<button name='A' row='11' col='2' led='LED_' group='bottom'/>", both,
        {button("A", "led", "LED_A", "play", "loaded", "11", "2")});
    row("button with a colour LED", "<button name='A' row='0' col='2' colorled='LED_'/>", both,
        {button("A", "color", "LED_A", "play", "loaded", "0", "2")});
    row("slider has no LED", "<slider name='A' row='10' col='0' led='LED_' colorled='LED_'/>", both,
        {plain("slider", "A", "play", "10", "0")});
    row("ignored control has no LED", "<ignore name='A' led='LED_' colorled='LED_'/>", both,
        {plain("ignore", "A", "play")});
    row("ignored control with a cell", "<ignore name='A' row='3' col='4'/>", both,
        {plain("ignore", "A", "play", "3", "4")});
    row("empty control has no LED", "<empty name='A' led='LED_' colorled='LED_'/>", both,
        {plain("empty", "A", "play")});
    row("empty control with a cell", "<empty name='A' row='3' col='4'/>", both,
        {plain("empty", "A", "play", "3", "4")});
    row("all kinds without a row in the mapper",
        "<empty name='E'/><ignore name='I'/><slider name='S'/><button name='B'/><pad name='P'/>", both,
        {pad("P", "P", "", ""), button("B", "led", "B", "", ""), plain("slider", "S", ""),
         plain("ignore", "I", ""), plain("empty", "E", "")});
    row("all kinds without attributes", "<empty/><ignore/><slider/><button/><pad/>", both,
        {pad("", "", "", ""), button("", "led", "", "", ""), plain("slider", "", ""), plain("ignore", "", ""),
         plain("empty", "", "")});
    row("kind by kind, each in the order of the layout",
        "<empty name='1'/><pad name='2'/><ignore name='3'/><button name='4'/><slider name='5'/>"
        "<button name='6'/><pad name='7'/><slider name='8'/><empty name='9'/><ignore name='0'/>",
        "",
        {pad("2", "2", "", ""), pad("7", "7", "", ""), button("4", "led", "4", "", ""),
         button("6", "led", "6", "", ""), plain("slider", "5", ""), plain("slider", "8", ""),
         plain("ignore", "3", ""), plain("ignore", "0", ""), plain("empty", "1", ""),
         plain("empty", "9", "")});
    row("controls in controls and in foreign elements",
        "<pad name='1'><pad name='2'/><x><y><pad name='3'/></y></x></pad><pad name='4'/>", "",
        {pad("1", "1", "", ""), pad("2", "2", "", ""), pad("3", "3", "", ""), pad("4", "4", "", "")});
    row("rows in rows and in foreign elements of the mapper", "<slider name='A'/><slider name='B'/>",
        "<x><map value='A' action='play'><map value='B' action='cue'/></map></x>",
        {plain("slider", "A", "play"), plain("slider", "B", "cue")});
    row("last row of a name counts, even an empty one",
        "<pad name='A' colorled='LED_'/><slider name='B'/><button name='C' led='LED_'/>",
        map("A", "1") + map("LED_A", "2") + map("B", "3") + map("LED_C", "4") + map("A", "5")
            + map("LED_A", "6") + map("B", "") + map("LED_C", "7"),
        {pad("A", "LED_A", "5", "6"), button("C", "led", "LED_C", "", "7"), plain("slider", "B", "")});
    row("last row of a name counts, even without an action", "<slider name='A'/>",
        map("A", "1") + "<map value='A'/>", {plain("slider", "A", "")});
    row("last row of a name counts, even in a row before it", "<slider name='A'/>",
        "<map value='A' action='outer'><map value='A' action='inner'/></map>",
        {plain("slider", "A", "inner")});
    row("pad without a LED prefix: one row fills both", "<pad name='A'/>", both,
        {pad("A", "A", "play", "play")});
    row("pad with an empty LED prefix: one row fills both", "<pad name='A' colorled=''/>", both,
        {pad("A", "A", "play", "play")});
    row("pad with the prefix of a simple LED only", "<pad name='A' led='LED_'/>", both,
        {pad("A", "A", "play", "play")});
    row("button without a LED prefix: one row fills both", "<button name='A'/>", both,
        {button("A", "led", "A", "play", "play")});
    row("button with both prefixes", "<button name='A' led='L_' colorled='LED_'/>",
        both + map("L_A", "wrong"), {button("A", "color", "LED_A", "play", "loaded")});
    row("button with an empty colour prefix", "<button name='A' led='LED_' colorled=''/>", both,
        {button("A", "led", "LED_A", "play", "loaded")});
    row("row without a name belongs to the control without a name",
        "<slider/><slider name=''/><slider name='A'/>", "<map action='play'/>",
        {plain("slider", "", "play"), plain("slider", "", "play"), plain("slider", "A", "")});
    row("pad without a name has its prefix for a LED", "<pad colorled='LED_'/>",
        map("LED_", "loaded") + map("", "play"), {pad("", "LED_", "play", "loaded")});
    row("same name in several controls",
        "<pad name='A' row='1'/><pad name='A' row='2'/><ignore name='A'/><ignore name='A'/>", both,
        {pad("A", "A", "play", "play", "1"), pad("A", "A", "play", "play", "2"), plain("ignore", "A", "play"),
         plain("ignore", "A", "play")});
    row("LED name of one control is the name of another",
        "<pad name='A' colorled='LED_'/><pad name='LED_A'/>", both,
        {pad("A", "LED_A", "play", "loaded"), pad("LED_A", "LED_A", "loaded", "loaded")});
    row("names in another case", "<pad name='a' colorled='led_'/><slider name='A '/><slider name='A'/>", both,
        {pad("a", "led_a", "", ""), plain("slider", "A ", ""), plain("slider", "A", "play")});
    row("elements and attributes in another case", "<Pad name='A'/><PAD name='A'/><slider Name='A' ROW='1'/>",
        "<Map value='' action='x'/><map Value='A' action='y'/><map value='A' Action='z'/>",
        {plain("slider", "", "y")});
    row("elements with a prefix are others", "<x:pad xmlns:x='urn:x' name='A'/>", both, {});
    row("entities are decoded", "<slider name='A&amp;B' row='&lt;1&gt;' col='&#50;'/>",
        "<map value='A&#38;B' action='set &apos;x&apos; &amp; say &quot;&#xFC;&quot; &lt;'/>",
        {plain("slider", "A&B", QString::fromUtf8("set 'x' & say \"ü\" <"), "<1>", "2")});
    row("an entity is decoded once", "<slider name='A'/>", map("A", "set &amp;apos;x&amp;apos;"),
        {plain("slider", "A", "set &apos;x&apos;")});
    row("line breaks and tabs in attributes stay", "<slider name='A\tB' row='1\n2'/>",
        map("A\tB", "play\n\t&amp; sync"), {plain("slider", "A\tB", "play\n\t& sync", "1\n2")});
    row("numbers are texts", "<slider name='A' row=' 02 ' col='two'/>", both,
        {plain("slider", "A", "play", " 02 ", "two")});
    row("comments hold no controls and no rows", "<!--<pad name='B'/>--><slider name='A'/>",
        "<!--" + map("A", "no") + "-->", {plain("slider", "A", "")});
    row("marked text holds no controls and no rows", "<![CDATA[<pad name='B'/>]]><slider name='A'/>",
        "<![CDATA[" + map("A", "no") + "]]>", {plain("slider", "A", "")});
    row("letters beyond ASCII", "<slider name='\xC3\x9C'/>", map("\xC3\x9C", "\xE2\x82\xAC"),
        {plain("slider", QString::fromUtf8("Ü"), QString::fromUtf8("€"))});
    row("no controls", "<other name='A'/><led name='A'/>", both, {});
}

void TestKeyRecords::merges()
{
    QFETCH(const QByteArray, layout);
    QFETCH(const QByteArray, mapper);
    QFETCH(const QStringList, records);
    const Files files;
    QVERIFY(files.write(inLayout(layout), inMapper(mapper)));
    QCOMPARE(files.records(), records);
}

void TestKeyRecords::lightsButtonsByTheirAction_data()
{
    QTest::addColumn<QByteArray>("mapper");
    QTest::addColumn<QStringList>("ledActions");
    const auto row = [](const char *name, const QByteArray &mapper, const QStringList &ledActions) {
        QTest::newRow(name) << mapper << ledActions;
    };
    // Buttons A (simple LED), B (colour LED) and C (no LED prefix), behind a pad P and a button in it.
    const QByteArray keys = map("A", "a") + map("B", "b");

    row("no LED row: all light by their action", keys, {"a", "b", ""});
    row("first has one: none behind it does", keys + map("LED_A", "x"), {"x", "", ""});
    row("second has one: the first does, the third does not", keys + map("LED_B", "x"), {"a", "x", ""});
    row("third has one: the two before it do", keys + map("C", "c"), {"a", "b", "c"});
    row("first and third have one", keys + map("LED_A", "x") + map("C", "c"), {"x", "", "c"});
    row("all have one", keys + map("LED_A", "x") + map("LED_B", "y") + map("C", "c"), {"x", "y", "c"});
    row("the order of the mapper does not matter", map("C", "c") + map("LED_B", "x") + keys, {"a", "x", "c"});
    row("an empty LED row is one", keys + map("LED_A", ""), {"", "", ""});
    row("a LED row without an action is one", keys + "<map value='LED_B'/>", {"a", "", ""});
    row("a LED row with nothing in its wrapping is one", keys + map("LED_A", "toggle &apos;$os2l&apos;"),
        {"", "", ""});
    row("a pad's LED row is none", keys + map("LED_P", "x") + map("P", "p"), {"a", "b", ""});
    row("row of another LED does not count", keys + map("LED_D", "x"), {"a", "b", ""});
    row("a LED row in another case is none", keys + map("led_A", "x"), {"a", "b", ""});
    row("the simple prefix of a colour LED is none", keys + map("SIMPLE_B", "x"), {"a", "b", ""});
    row("the action copied is the last of its name", keys + map("A", "second"), {"second", "b", ""});
    row("the action copied is free of its wrapping",
        map("A", "var &apos;$os2l&apos; ? os2l_button &apos;X&apos; : a"), {"a", "", ""});
}

void TestKeyRecords::lightsButtonsByTheirAction()
{
    QFETCH(const QByteArray, mapper);
    QFETCH(const QStringList, ledActions);
    const Files files;
    QVERIFY(files.write(inLayout("<pad name='P' colorled='LED_'/><button name='A' led='LED_'/>"
                                 "<button name='B' led='SIMPLE_' colorled='LED_'/><button name='C'/>"),
                        inMapper(mapper)));
    QStringList found;
    for (const Record &record : readKeyRecords(files.layout(), files.mapper())) {
        if (record.value("type") == "button")
            found += record.value("ledaction");
    }
    QCOMPARE(found, ledActions);

    // Each reading starts afresh.
    QVERIFY(files.write(inLayout("<button name='A' led='LED_'/>"), inMapper(map("A", "a"))));
    QCOMPARE(files.records(), QStringList{button("A", "led", "LED_A", "a", "a")});
}

/** What is taken off is a matter of the scripts; here it counts that it is, from every kind of control. */
void TestKeyRecords::freesScriptsOfTheirWrapping()
{
    const Files files;
    const QByteArray wrapped = "var &apos;$os2l&apos; ? os2l_button &apos;A&apos; : x ? y : z";
    QVERIFY(files.write(inLayout("<pad name='K' colorled='L'/><button name='K' colorled='L'/>"
                                 "<slider name='K'/><ignore name='K'/><empty name='K'/>"),
                        inMapper(map("K", wrapped) + map("LK", wrapped))));
    const QString freed = "x ? y : z";
    QCOMPARE(
        files.records(),
        (QStringList{pad("K", "LK", freed, freed), button("K", "color", "LK", freed, freed),
                     plain("slider", "K", freed), plain("ignore", "K", freed), plain("empty", "K", freed)}));
}

/** A link to nothing is no file; neither is an empty path. */
void TestKeyRecords::needsBothFiles()
{
    const Files files;
    QCOMPARE(files.records(), QStringList());
    QVERIFY(writeFile(files.layout(), "<layout><pad name='A'/></layout>"));
    QCOMPARE(files.records(), QStringList());
    QCOMPARE(readKeyRecords(files.layout(), "").size(), 0);
#ifdef Q_OS_UNIX // on Windows, links are files of their own
    QVERIFY(QFile::link(files.mapper() + ".gone", files.mapper()));
    QCOMPARE(files.records(), QStringList());
    QVERIFY(QFile::remove(files.mapper()));
#endif
    QVERIFY(writeFile(files.mapper(), "<mapper/>"));
    QCOMPARE(files.records().size(), 1);
    QCOMPARE(readKeyRecords("", files.mapper()).size(), 0);
    QVERIFY(QFile::remove(files.layout()));
    QCOMPARE(files.records(), QStringList());
}

void TestKeyRecords::takesBrokenFilesForEmptyOnes_data()
{
    QTest::addColumn<QByteArray>("content");
    const QByteArray body = "<a><pad name='A' colorled='LED_'/><map value='A' action='play'/>";
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("declaration only") << QByteArray("<?xml version=\"1.0\" encoding=\"UTF-8\"?>");
    QTest::newRow("comment only") << "<!--" + body + "-->";
    QTest::newRow("cut off behind an element") << body;
    QTest::newRow("wrong end") << body + "</b>";
    QTest::newRow("two roots") << body + "</a><b/>";
    QTest::newRow("raw ampersand") << body + "<b c='d & e'/></a>";
    QTest::newRow("elements more than a hundred deep")
        << QByteArray("<x>").repeated(100) + body + "</a>" + QByteArray("</x>").repeated(100);
    QTest::newRow("longer than any") << body + QByteArray(5 << 20, ' ') + "</a>";
}

/** A folder is a broken file, too. */
void TestKeyRecords::takesBrokenFilesForEmptyOnes()
{
    QFETCH(const QByteArray, content);
    const Files files;
    const QTemporaryDir folder;
    QVERIFY(files.write(content, inMapper(map("A", "play"))));
    QCOMPARE(files.records(), QStringList());
    QCOMPARE(shown(readKeyRecords(folder.path(), files.mapper())), QStringList());

    const QStringList withoutActions = {pad("A", "LED_A", "", "")};
    QVERIFY(files.write(inLayout("<pad name='A' colorled='LED_'/>"), content));
    QCOMPARE(files.records(), withoutActions);
    QCOMPARE(shown(readKeyRecords(files.layout(), folder.path())), withoutActions);
}

void TestKeyRecords::mergesDevicesWithTheirFactoryMappers()
{
    for (const QString &device : Devices::Names) {
        const QString layout = Mappings + device + ".xml";
        const QString mapper = Mappings + device + " mapping.xml";
        const QStringList records = shown(readKeyRecords(layout, mapper));
        QVERIFY(records.size() >= 80);
        QCOMPARE(records, shown(recordsByHand(layout, mapper)));
    }
}

/** On the AKAI one button alone has a LED row, the last; on the MKII each has one. */
void TestKeyRecords::copiesActionsToLedsWithoutARow()
{
    for (const QString name : {"AKAI APC Mini", "Novation Launchpad MKII"}) {
        QStringList copied;
        for (const Record &record :
             readKeyRecords(Mappings + name + ".xml", Mappings + name + " mapping.xml")) {
            if (record.value("type") == "button" && record.value("ledaction") == record.value("action"))
                copied += record.value("value");
        }
        const QStringList akai = {"UP",      "DOWN", "LEFT",   "RIGHT",     "VOLUME",
                                  "PAN",     "SEND", "DEVICE", "CLIP_STOP", "SOLO",
                                  "REC_ARM", "MUTE", "SELECT", "BLANK1",    "BLANK2"};
        QCOMPARE(copied, name.startsWith("AKAI") ? akai : QStringList());
    }
}

void TestKeyRecords::mergesRandomFilesLikeByHand()
{
    constexpr quint32 seed = 20;
    QRandomGenerator random(seed);
    const Files files;
    int filled = 0;
    for (int round = 0; round < 500; ++round) {
        const QByteArray layout = randomLayout(random).toUtf8();
        const QByteArray mapper = randomMapper(random).toUtf8();
        QVERIFY(files.write(layout, mapper));
        const QList<Record> expected = recordsByHand(files.layout(), files.mapper());
        if (files.records() != shown(expected))
            QFAIL(qPrintable(QString("seed %1, round %2:\n%3\n%4\nfound:\n%5\nexpected:\n%6")
                                 .arg(seed)
                                 .arg(round)
                                 .arg(QString(layout), QString(mapper), files.records().join('\n'),
                                      shown(expected).join('\n'))));
        for (const Record &record : expected)
            filled += record.value("action").isEmpty() ? 0 : 1;
    }
    QVERIFY2(filled > 500, "The random files must have something in common.");
}

QTEST_GUILESS_MAIN(TestKeyRecords)
#include "test_keyrecords.moc"

#include "devices/catalogue.h"
#include "devices/keyrecords.h"
#include "export/mapping.h"
#include "support/files.h"
#include "tables/controller.h"
#include "tables/roles.h"

#include <QRegularExpression>
#include <QTextCodec>
#include <QTextStream>
#include <QtTest>

#include <algorithm>

namespace {

/** A cell of the key grid, by default one that has a Live Button. */
struct Cell
{
    int row;
    int col;
    QString button;
    QString color;
    QString on;
    QString off;
    QString blink = "0";
    QString id = "0";
};

using Cells = QList<Cell>;
using Keys = QList<Record>;

/** All that a mapper is made from, with the cells that differ from cells at rest. */
struct Scene
{
    Keys keys;
    Cells cells;
    bool isSimple = true;
    QString fullrgb = "true";
    int switchRow = -1;
    int switchColumn = -1;
    QString defaultOn = "red";
    QString defaultOff = "blue";
};

const bool Simple = true;
const bool Wrapped = false;

bool put(QAbstractItemModel &grid, const Cell &cell)
{
    const QModelIndex index = grid.index(cell.row, cell.col);
    return grid.setData(index, cell.button, DisplayNameRole) && grid.setData(index, cell.id, ButtonRole)
           && grid.setData(index, cell.color, Qt::DecorationRole) && grid.setData(index, cell.on, OnColorRole)
           && grid.setData(index, cell.off, OffColorRole) && grid.setData(index, cell.blink, BlinkRole);
}

/** Fills a grid of 12 rows; the given cells over cells at rest. */
bool fill(QAbstractItemModel &grid, const Cells &cells)
{
    if (!grid.insertRows(0, 12))
        return false;
    for (const Cell &cell : cells) {
        if (!put(grid, cell))
            return false;
    }
    return true;
}

const QDate Date(2026, 3, 5);

ControllerMapping mappingOf(const Scene &scene, const QAbstractItemModel &grid)
{
    return {{{"device", "PADBOX"}, {"name", "Pad Box"}, {"fullrgb", scene.fullrgb}},
            scene.keys,
            grid,
            scene.switchRow,
            scene.switchColumn,
            scene.defaultOff,
            scene.defaultOn,
            scene.isSimple,
            Date};
}

QByteArray written(const ControllerMapping &mapping, const char *codec = "UTF-8")
{
    return streamed([&mapping](QTextStream &out) { writeMapping(out, mapping); }, codec);
}

/** A file of the given lines between those that every mapper of the scenes has. */
QByteArray fileOf(const QStringList &lines)
{
    QString file = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                   "<mapper device=\"PADBOX\" author=\"Zarvex\" version=\"840\" date=\"5-3-2026\">\n";
    for (const QString &line : lines)
        file += line + "\n";
    return (file + "</mapper>\n").toUtf8();
}

QString line(const QString &name, const QString &script)
{
    return "\t<map value=\"" + name + "\" action=\"" + script + "\"/>";
}

/** The lines of one key. */
QStringList lines(const QString &script, const QString &ledScript)
{
    return {line("KEY", script), line("LED_KEY", ledScript)};
}

/** A pad of the cell in row 2, column 2, unless told otherwise. */
Record pad(const QString &action = {}, const QString &ledAction = {}, const QString &row = "2",
           const QString &col = "2")
{
    return {{"type", "pad"},          {"value", "KEY"}, {"led", "LED_KEY"}, {"action", action},
            {"ledaction", ledAction}, {"row", row},     {"col", col}};
}

Record button(const QString &ledtype, const QString &action = {}, const QString &ledAction = {})
{
    Record key = pad(action, ledAction);
    key["type"] = "button";
    key["ledtype"] = ledtype;
    return key;
}

/** A key without LED. */
Record control(const QString &type, const QString &action = {}, const QString &col = {})
{
    return {{"type", type}, {"value", "KEY"}, {"action", action}, {"row", ""}, {"col", col}};
}

Record with(Record key, const QString &name, const QString &value)
{
    key[name] = value;
    return key;
}

/** What stands for a word of a mapper line, and when; the first row whose conditions all hold counts. */
struct Rule
{
    const char *word;
    const char *conditions;
    const char *text;
};

/** A single quote is "&apos;" in the file; capitals and colour names are words of their own. */
constexpr Rule Rules[] = {
    // Keys with a Live Button.
    {"KEY LINE", "pad or button, assigned, simple", "os2l_button 'B'"},
    {"KEY LINE", "pad or button, assigned, wrapped, A not empty", "var '$os2l' ? os2l_button 'B' : A"},
    {"KEY LINE", "pad or button, assigned, wrapped, A empty", "var '$os2l' ? os2l_button 'B'"},

    {"LED LINE", "pad or button, assigned, simple", "os2l_button 'B' ? S"},
    {"LED LINE", "pad or button, assigned, wrapped, LA not empty", "var '$os2l' ? os2l_button 'B' ? S : LA"},
    {"LED LINE", "pad or button, assigned, wrapped, LA empty", "var '$os2l' ? os2l_button 'B' ? S"},

    {"S", "pad, blink", "blink ? ON : OFF : OFF"},
    {"S", "pad, no blink", "ON : OFF"},

    {"ON", "fullrgb, coloron not empty", "color 'coloron'"},
    {"ON", "fullrgb, coloron empty", "color 'C'"},
    {"ON", "no fullrgb", "color 'X'"},
    {"OFF", "fullrgb, coloroff not empty", "color 'coloroff'"},
    {"OFF", "fullrgb, coloroff empty", "color 40% 'C'"},
    {"OFF", "no fullrgb", "color 'Y'"},

    {"X", "coloron not empty", "coloron"},
    {"X", "coloron empty", "defon"},
    {"Y", "coloroff not empty", "coloroff"},
    {"Y", "coloroff empty", "defoff"},

    {"S", "button, simple LED", "on : off"},
    {"S", "button, colour LED, fullrgb", "color 'C' : color 30% 'C'"},
    {"S", "button, colour LED, no fullrgb", "color 'defon' : color 'defoff'"},

    // Keys without a Live Button.
    {"KEY LINE", "pad or button, free, simple", "nothing"},
    {"KEY LINE", "pad or button, free, wrapped, Switch", "toggle '$os2l'"},
    {"KEY LINE", "pad or button, free, wrapped, A not empty", "var '$os2l' ? nothing : A"},
    {"KEY LINE", "pad or button, free, wrapped, A empty", "var '$os2l' ? nothing"},

    {"LED LINE", "pad, free, simple", "color 'black'"},
    {"LED LINE", "pad, free, wrapped, Switch", "var '$os2l' ? T"},
    {"LED LINE", "pad, free, wrapped, A not empty", "var '$os2l' ? color 'black' : LA"},
    {"LED LINE", "pad, free, wrapped, A empty", "var '$os2l' ? color 'black'"},

    {"LED LINE", "button, free, simple", "off"},
    {"LED LINE", "button, free, wrapped, Switch", "var '$os2l'"},
    {"LED LINE", "button, free, wrapped, A not empty", "var '$os2l' ? off : LA"},
    {"LED LINE", "button, free, wrapped, A empty", "var '$os2l' ? off"},

    {"T", "fullrgb", "color 'C' : color 30% 'C'"},
    {"T", "no fullrgb", "color 'X' : color 'Y'"},

    // Controls without LED.
    {"KEY LINE", "slider, simple", "os2l_cmd N"},
    {"KEY LINE", "slider, wrapped, A not empty", "var '$os2l' ? os2l_cmd N : A"},
    {"KEY LINE", "slider, wrapped, A empty", "var '$os2l' ? os2l_cmd N"},

    {"KEY LINE", "ignore", "A"},

    {"KEY LINE", "empty, simple", "nothing"},
    {"KEY LINE", "empty, wrapped, A not empty", "var '$os2l' ? nothing : A"},
    {"KEY LINE", "empty, wrapped, A empty", "nothing"},
};

/** The rule of a word under these conditions, null where it stands for nothing. */
const Rule *ruleOf(const QString &word, const QStringList &conditions)
{
    for (const Rule &rule : Rules) {
        bool holds = rule.word == word;
        for (const QString &condition : QString(rule.conditions).split(", "))
            holds = holds && conditions.contains(condition);
        if (holds)
            return &rule;
    }
    return nullptr;
}

/** What a word stands for, its own words replaced in turn; the texts of values are final. */
QString textOf(const QString &word, const QStringList &conditions, const Record &values)
{
    if (values.contains(word))
        return values.value(word);
    const Rule *rule = ruleOf(word, conditions);
    if (!rule)
        return "no rule for " + word;
    static const QRegularExpression words(
        "'|\\b(A|LA|B|C|N|S|T|X|Y|ON|OFF|coloron|coloroff|defon|defoff)\\b");
    const QString text = rule->text;
    QString result;
    int end = 0;
    auto matches = words.globalMatch(text);
    while (matches.hasNext()) {
        const auto match = matches.next();
        result += text.mid(end, match.capturedStart() - end);
        result += match.captured() == "'" ? "&apos;" : textOf(match.captured(), conditions, values);
        end = match.capturedEnd();
    }
    return result + text.mid(end);
}

/** The combination of this number, as the conditions of the rules; empty behind the last one. */
QStringList combination(int number)
{
    const QList<QStringList> choices = {
        {"pad", "button", "slider", "ignore", "empty", "knob"},
        {"simple", "wrapped"},
        {"assigned", "free"},
        {"A empty", "A not empty"},
        {"LA empty", "LA not empty"},
        {"fullrgb", "no fullrgb"},
        {"colour LED", "simple LED"},
        {"coloron empty", "coloron not empty"},
        {"coloroff empty", "coloroff not empty"},
        {"blink", "no blink", "no blink, blank"},
        {"no Switch", "Switch"},
    };
    QStringList conditions;
    for (const QStringList &choice : choices) {
        conditions += choice.at(number % choice.size()).split(", ");
        number /= choice.size();
    }
    if (number > 0)
        return {};
    if (conditions.contains("pad") || conditions.contains("button"))
        conditions += "pad or button";
    return conditions;
}

/** The scene of a combination; its one cell is in row 3, column 4. */
Scene sceneOf(const QStringList &conditions)
{
    const auto has = [&conditions](const char *condition) { return conditions.contains(condition); };
    const Record key = {{"type", conditions.first()},
                        {"value", "KEY"},
                        {"led", "LED_KEY"},
                        {"ledtype", has("colour LED") ? "color" : "led"},
                        {"action", has("A not empty") ? "say \"it's\" & play" : ""},
                        {"ledaction", has("LA not empty") ? "'play' ? on : off" : ""},
                        {"row", "3"},
                        {"col", "4"}};
    const QString steady = has("blank") ? "" : "0";
    const Cell cell = {3,
                       4,
                       has("assigned") ? "Strobe S" : "PAD 11",
                       "#C86432",
                       has("coloron not empty") ? "#00FF7F" : "",
                       has("coloroff not empty") ? "navy" : "",
                       has("blink") ? "1" : steady,
                       has("assigned") ? "5" : "-1"};
    const int switchRow = has("Switch") ? 3 : -1;
    const int switchColumn = has("Switch") ? 4 : -1;
    return {{key},     {cell},       has("simple"), has("fullrgb") ? "true" : "false",
            switchRow, switchColumn, "red",         "blue"};
}

/** The lines of a combination, by the rules. */
QStringList linesOf(const QStringList &conditions)
{
    const auto has = [&conditions](const char *condition) { return conditions.contains(condition); };
    const Record values = {
        {"A", has("A not empty") ? "say &quot;it&apos;s&quot; &amp; play" : ""},
        {"LA", has("LA not empty") ? "&apos;play&apos; ? on : off" : ""},
        {"B", "Strobe S"},
        {"C", "#c86432"},
        {"N", "5"},
        {"coloron", "#00FF7F"},
        {"coloroff", "navy"},
        {"defon", "red"},
        {"defoff", "blue"},
    };
    QStringList all;
    for (const QString &word : {QString("KEY LINE"), QString("LED LINE")}) {
        if (ruleOf(word, conditions))
            all += line(word == "KEY LINE" ? "KEY" : "LED_KEY", textOf(word, conditions, values));
    }
    return all;
}

} // namespace

Q_DECLARE_METATYPE(Scene)
Q_DECLARE_METATYPE(Cell)
Q_DECLARE_METATYPE(Cells)

/** The bytes of a mapper. */
class TestMapping final : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void followsTheRules();
    void writesLiveButtons_data();
    void writesLiveButtons();
    void writesColors_data();
    void writesColors();
    void writesFreeKeys_data();
    void writesFreeKeys();
    void writesSwitch_data();
    void writesSwitch();
    void writesCellsOutsideTheGrid_data();
    void writesCellsOutsideTheGrid();
    void numbersSliders_data();
    void numbersSliders();
    void escapesActions();
    void leavesOutUnknownTypes();
    void keepsTheOrderOfKeys();
    void writesHeads_data();
    void writesHeads();
    void writesInTheCodecOfTheStream_data();
    void writesInTheCodecOfTheStream();
    void writesDevices_data();
    void writesDevices();

private:
    void compare();
};

void TestMapping::initTestCase()
{
    Q_INIT_RESOURCE(icons);
}

/** Compares the mapper of the row's scene with the row's lines. */
void TestMapping::compare()
{
    QFETCH(const Scene, scene);
    QFETCH(const QStringList, expected);
    Controller grid;
    QVERIFY(fill(grid, scene.cells));
    QCOMPARE(difference(written(mappingOf(scene, grid)), fileOf(expected)), QString());
}

void TestMapping::followsTheRules()
{
    Controller grid;
    QVERIFY(fill(grid, {}));
    int number = 0;
    int keyLines = 0;
    int ledLines = 0;
    for (QStringList conditions = combination(0); !conditions.isEmpty(); conditions = combination(++number)) {
        const Scene scene = sceneOf(conditions);
        QVERIFY(put(grid, scene.cells.first()));
        const QStringList expected = linesOf(conditions);
        keyLines += expected.isEmpty() ? 0 : 1;
        ledLines += expected.size() > 1 ? 1 : 0;
        QVERIFY2(!expected.join("").contains("no rule"), qPrintable(expected.join("\n")));
        const QString found = difference(written(mappingOf(scene, grid)), fileOf(expected));
        QVERIFY2(found.isEmpty(), qPrintable(conditions.join(", ") + ": " + found));
    }
    // Six types, nine choices of two, one of three; only the knob has no line, only pad and button have two.
    QCOMPARE(number, 6 * 512 * 3);
    QCOMPARE(keyLines, 5 * 512 * 3);
    QCOMPARE(ledLines, 2 * 512 * 3);
}

void TestMapping::writesLiveButtons_data()
{
    QTest::addColumn<Scene>("scene");
    QTest::addColumn<QStringList>("expected");
    const auto named = [](const QString &name) { return Cells{{2, 2, name, "#ff0000", "", ""}}; };
    const auto numbered = [](const QString &id) { return Cells{{2, 2, "Strobe", "red", "", "", "0", id}}; };
    const auto corner = [](int row, int col) { return Cells{{row, col, "Strobe", "red", "", ""}}; };
    const QStringList plain =
        lines("os2l_button &apos;Strobe&apos;",
              "os2l_button &apos;Strobe&apos; ? color &apos;#ff0000&apos; : color 40% &apos;#ff0000&apos;");
    const auto row = [](const char *name, const Scene &scene, const QStringList &expected) {
        QTest::newRow(name) << scene << expected;
    };
    const auto nameRow = [&row, &named, &plain](const char *title, const QString &name) {
        row(title, Scene{{pad()}, named(name)}, QStringList(plain).replaceInStrings("Strobe", name));
    };
    row("simple", Scene{{pad()}, named("Strobe")}, plain);
    row("wrapped", Scene{{pad("play_pause", "play_pause ? on : off")}, named("Strobe"), Wrapped},
        lines("var &apos;$os2l&apos; ? os2l_button &apos;Strobe&apos; : play_pause",
              "var &apos;$os2l&apos; ? os2l_button &apos;Strobe&apos; ? color &apos;#ff0000&apos; : "
              "color 40% &apos;#ff0000&apos; : play_pause ? on : off"));
    nameRow("a single quote in a name goes out raw", "It's on");
    nameRow("double quotes in a name go out raw", "The \"big\" one");
    nameRow("ampersands and angle brackets in a name go out raw", "R&B & <live> &amp;");
    nameRow("empty name", "");
    row("button number 0", Scene{{pad()}, numbered("0")}, plain);
    row("empty button number is 0", Scene{{pad()}, numbered("")}, plain);
    row("button number that is no number is 0", Scene{{pad()}, numbered("none")}, plain);
    row("two keys on one cell", Scene{{pad(), pad()}, named("Strobe")}, plain + plain);
    row("LED without name", Scene{{with(pad(), "led", "")}, named("Strobe")},
        QStringList(plain).replaceInStrings("LED_KEY", ""));
    row("empty row and column are 0", Scene{{pad("", "", "", "")}, corner(0, 0)}, plain);
    row("row and column that are no numbers are 0", Scene{{pad("", "", "abc", "0x2")}, corner(0, 0)}, plain);
    row("row and column with leading zeros", Scene{{pad("", "", "010", "09")}, corner(10, 9)}, plain);
}

void TestMapping::writesLiveButtons()
{
    compare();
}

void TestMapping::writesColors_data()
{
    QTest::addColumn<Record>("key");
    QTest::addColumn<QString>("fullrgb");
    QTest::addColumn<Cells>("cells");
    QTest::addColumn<QString>("defaultOn");
    QTest::addColumn<QString>("defaultOff");
    QTest::addColumn<QString>("colors");
    const auto cell = [](const QString &color, const QString &on = {}, const QString &off = {},
                         const QString &blink = "0") {
        return Cells{{2, 2, "Strobe", color, on, off, blink}};
    };
    const auto row = [](const char *name, const Record &key, const QString &fullrgb, const Cells &cells,
                        const QString &colors, const QString &on = "red", const QString &off = "blue") {
        QTest::newRow(name) << key << fullrgb << cells << on << off << colors;
    };
    const QString palette = "color 'red' : color 'blue'";
    const QString rgb = "color '#ff00aa' : color 40% '#ff00aa'";

    row("colour of the cell in lower case", pad(), "true", cell("#FF00AA"), rgb);
    row("colour word of the cell in digits", pad(), "true", cell("orange"),
        "color '#ffa500' : color 40% '#ffa500'");
    row("own colours as they stand", pad(), "true", cell("white", "#00FF7F", "Navy"),
        "color '#00FF7F' : color 'Navy'");
    row("own colours go out raw", pad(), "true", cell("white", "a&b", "\"<'"),
        "color 'a&b' : color '\"<RAW'");
    row("palette", pad(), "false", cell("#FF00AA"), palette);
    row("palette, no default colours", pad(), "false", cell("#FF00AA"), "color '' : color ''", "", "");
    row("palette, colours as the palette has them", pad(), "false", cell("#FF00AA"),
        "color ' #AA0000' : color 'Black'", " #AA0000", "Black");
    row("blink, palette", pad(), "false", cell("white", "", "", "1"),
        "blink ? color 'red' : color 'blue' : color 'blue'");
    for (const char *blink : {"", "0", "2", "01", "1 ", "true", "-1"})
        row(qPrintable(QString("blink is [%1]").arg(blink)), pad(), "false", cell("white", "", "", blink),
            palette);
    for (const char *fullrgb : {"", "True", "TRUE", "1", "yes", "true "})
        row(qPrintable(QString("fullrgb is [%1]").arg(fullrgb)), pad(), fullrgb, cell("white"), palette);
    row("a pad knows no kind of LED", with(pad(), "ledtype", "led"), "true", cell("#FF00AA"), rgb);
    row("button, own colours and blink do not count", button("color"), "true",
        cell("#FF00AA", "red", "green", "1"), "color '#ff00aa' : color 30% '#ff00aa'");
    for (const char *ledtype : {"led", "", "Color", "COLOR", "colour", "color "})
        row(qPrintable(QString("kind of LED is [%1]").arg(ledtype)), button(ledtype), "true",
            cell("#FF00AA", "red", "green", "1"), "on : off");
}

void TestMapping::writesColors()
{
    QFETCH(const Record, key);
    QFETCH(const QString, fullrgb);
    QFETCH(const Cells, cells);
    QFETCH(const QString, defaultOn);
    QFETCH(const QString, defaultOff);
    QFETCH(QString, colors);
    colors.replace("'", "&apos;").replace("RAW", "'");
    Controller grid;
    QVERIFY(fill(grid, cells));
    const Scene scene = {{key}, cells, Simple, fullrgb, -1, -1, defaultOn, defaultOff};
    QCOMPARE(difference(written(mappingOf(scene, grid)),
                        fileOf(lines("os2l_button &apos;Strobe&apos;",
                                     "os2l_button &apos;Strobe&apos; ? " + colors))),
             QString());
}

void TestMapping::writesFreeKeys_data()
{
    QTest::addColumn<Scene>("scene");
    QTest::addColumn<QStringList>("expected");
    const auto ghost = [](const QString &id) {
        return Cells{{2, 2, "Ghost", "#ff0000", "red", "green", "1", id}};
    };
    const QStringList dark = lines("nothing", "color &apos;black&apos;");
    QTest::newRow("at rest") << Scene{{pad()}, {}} << dark;
    QTest::newRow("colours without a Live Button do not count") << Scene{{pad()}, ghost("-1")} << dark;
    QTest::newRow("any number below 0 is no Live Button") << Scene{{pad()}, ghost("-2147483648")} << dark;
    QTest::newRow("name and LED go out raw")
        << Scene{{with(with(pad(), "value", "A'\"&<"), "led", "L'\" & >")}, {}}
        << QStringList{line("A'\"&<", "nothing"), line("L'\" & >", "color &apos;black&apos;")};
    QTest::newRow("an action without LED action leaves nothing behind the mark")
        << Scene{{pad("play")}, {}, Wrapped}
        << lines("var &apos;$os2l&apos; ? nothing : play",
                 "var &apos;$os2l&apos; ? color &apos;black&apos; : ");
    QTest::newRow("a blank is an action") << Scene{{pad(" ", " ")}, {}, Wrapped}
                                          << lines("var &apos;$os2l&apos; ? nothing :  ",
                                                   "var &apos;$os2l&apos; ? color &apos;black&apos; :  ");
}

void TestMapping::writesFreeKeys()
{
    compare();
}

void TestMapping::writesSwitch_data()
{
    QTest::addColumn<Scene>("scene");
    QTest::addColumn<QStringList>("expected");
    const Keys keys = {pad("play", "play ? on : off")};
    const QStringList other = lines("var &apos;$os2l&apos; ? nothing : play",
                                    "var &apos;$os2l&apos; ? color &apos;black&apos; : play ? on : off");
    const QStringList switched =
        lines("toggle &apos;$os2l&apos;",
              "var &apos;$os2l&apos; ? color &apos;#000000&apos; : color 30% &apos;#000000&apos;");
    const auto row = [](const char *name, const Scene &scene, const QStringList &expected) {
        QTest::newRow(name) << scene << expected;
    };
    row("two keys on its cell", Scene{{pad(), pad("play")}, {}, Wrapped, "true", 2, 2}, switched + switched);
    row("key in the corner", Scene{{pad("", "", "0", "0")}, {}, Wrapped, "true", 0, 0}, switched);
    row("simple mapper has none", Scene{keys, {}, Simple, "true", 2, 2},
        lines("nothing", "color &apos;black&apos;"));
    row("no effect on a slider",
        Scene{{with(control("slider", "level", "2"), "row", "2")}, {}, Wrapped, "true", 2, 2},
        {line("KEY", "var &apos;$os2l&apos; ? os2l_cmd 3 : level")});
    row("no effect on a control without cell",
        Scene{{control("empty", "shift"), control("ignore", "shift")}, {}, Wrapped, "true", 0, 0},
        {line("KEY", "var &apos;$os2l&apos; ? nothing : shift"), line("KEY", "shift")});
    row("in another column", Scene{keys, {}, Wrapped, "true", 2, 3}, other);
    row("in another row", Scene{keys, {}, Wrapped, "true", 3, 2}, other);
    row("row first, then column",
        Scene{{pad("play", "play ? on : off", "4", "7")}, {}, Wrapped, "true", 7, 4}, other);
    row("none", Scene{keys, {}, Wrapped, "true", -1, -1}, other);
    row("nowhere", Scene{keys, {}, Wrapped, "true", 99, 99}, other);
}

void TestMapping::writesSwitch()
{
    compare();
}

void TestMapping::writesCellsOutsideTheGrid_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("col");
    QTest::newRow("just below") << 12 << 2;
    QTest::newRow("just right") << 2 << 12;
    QTest::newRow("above") << -1 << 2;
    QTest::newRow("left") << 2 << -1;
    QTest::newRow("row and column -1, as without a Switch") << -1 << -1;
    QTest::newRow("far") << 2147483647 << -2147483647;
}

/** A key of a cell that is not there counts as one with a Live Button that has no name and no colour. */
void TestMapping::writesCellsOutsideTheGrid()
{
    QFETCH(const int, row);
    QFETCH(const int, col);
    Controller grid;
    QVERIFY(fill(grid, {}));
    const Record key = pad("play", "on", QString::number(row), QString::number(col));
    const QString empty = "os2l_button &apos;&apos;";
    QCOMPARE(difference(written(mappingOf({{key}, {}, Simple, "true"}, grid)),
                        fileOf(lines(empty, empty + " ? color &apos;&apos; : color 40% &apos;&apos;"))),
             QString());
    QCOMPARE(difference(written(mappingOf({{key}, {}, Simple, "false"}, grid)),
                        fileOf(lines(empty, empty + " ? color &apos;red&apos; : color &apos;blue&apos;"))),
             QString());
    const QString ask = "var &apos;$os2l&apos; ? ";
    QCOMPARE(difference(written(mappingOf({{key}, {}, Wrapped, "true", row, col}, grid)),
                        fileOf(lines(ask + empty + " : play",
                                     ask + empty + " ? color &apos;&apos; : color 40% &apos;&apos; : on"))),
             QString());
    const Controller nothing;
    QCOMPARE(difference(written(mappingOf({{button("led")}, {}, Wrapped}, nothing)),
                        fileOf(lines(ask + empty, ask + empty + " ? on : off"))),
             QString());
}

void TestMapping::numbersSliders_data()
{
    QTest::addColumn<QString>("col");
    QTest::addColumn<QString>("number");
    const auto row = [](const char *name, const QString &col, const QString &number) {
        QTest::newRow(name) << col << number;
    };
    row("first", "0", "1");
    row("outside the grid", "99", "100");
    row("negative", "-1", "0");
    row("leading zero", "08", "9");
    row("empty", "", "1");
    row("no number", "abc", "1");
    row("hexadecimal", "0x10", "1");
    row("the largest number", "2147483647", "2147483648");
    row("too large for a number", "2147483648", "1");
}

/** The cell of a slider does not count, nor how many faders a layout says that it has. */
void TestMapping::numbersSliders()
{
    QFETCH(const QString, col);
    QFETCH(const QString, number);
    Controller grid;
    QVERIFY(fill(grid, {{0, 0, "Strobe", "red", "", ""}}));
    ControllerMapping mapping = mappingOf({{control("slider", "", col)}, {}}, grid);
    for (const QString faders : {"", "0", "8", "many"}) {
        mapping.device["faders"] = faders;
        QCOMPARE(difference(written(mapping), fileOf({line("KEY", "os2l_cmd " + number)})), QString());
    }
}

void TestMapping::escapesActions()
{
    const QString action = "'a' & \"b\" ? <c> : d&e";
    const QString escaped = "&apos;a&apos; &amp; &quot;b&quot; ? <c> : d&e";
    Controller grid;
    QVERIFY(fill(grid, {{2, 2, "B", "#ff0000", "", ""}}));
    const Keys keys = {pad(action, action),           pad(action, action, "3", "3"),
                       button("led", action, action), control("slider", action, "0"),
                       control("ignore", action),     control("empty", action)};
    const QString ask = "var &apos;$os2l&apos; ? ";
    const QString button = "os2l_button &apos;B&apos;";
    const QString rest = " : " + escaped;
    const QStringList expected =
        lines(ask + button + rest, ask + button + " ? color &apos;red&apos; : color &apos;blue&apos;" + rest)
        + lines(ask + "nothing" + rest, ask + "color &apos;black&apos;" + rest)
        + lines(ask + button + rest, ask + button + " ? on : off" + rest)
        + QStringList{line("KEY", ask + "os2l_cmd 1" + rest), line("KEY", escaped),
                      line("KEY", ask + "nothing" + rest)};
    QCOMPARE(difference(written(mappingOf({keys, {}, Wrapped, "false"}, grid)), fileOf(expected)), QString());
}

void TestMapping::leavesOutUnknownTypes()
{
    Controller grid;
    QVERIFY(fill(grid, {{2, 2, "Strobe", "#ff0000", "", ""}}));
    Keys keys = {Record(), control("ignore", "level")};
    for (const char *type : {"", "Pad", "PAD", "pads", " pad", "Button", "Slider", "Ignore", "Empty", "led"})
        keys += with(pad("play", "on"), "type", type);
    for (const bool isSimple : {Simple, Wrapped})
        QCOMPARE(difference(written(mappingOf({keys, {}, isSimple}, grid)), fileOf({line("KEY", "level")})),
                 QString());
}

void TestMapping::keepsTheOrderOfKeys()
{
    Controller grid;
    QVERIFY(fill(grid, {}));
    QCOMPARE(difference(written(mappingOf({}, grid)), fileOf({})), QString());

    const Keys keys = {with(control("empty"), "value", "E"),  with(button("led"), "value", "B"),
                       with(control("slider"), "value", "S"), with(pad(), "value", "P"),
                       with(control("ignore"), "value", "I"), with(control("empty"), "value", "E")};
    QCOMPARE(
        difference(written(mappingOf({keys, {}}, grid)),
                   fileOf({line("E", "nothing"), line("B", "nothing"), line("LED_KEY", "off"),
                           line("S", "os2l_cmd 1"), line("P", "nothing"),
                           line("LED_KEY", "color &apos;black&apos;"), line("I", ""), line("E", "nothing")})),
        QString());
}

void TestMapping::writesHeads_data()
{
    QTest::addColumn<QDate>("date");
    QTest::addColumn<QString>("device");
    QTest::addColumn<QString>("head");
    const auto row = [](const char *name, const QDate &date, const char *device, const char *head) {
        QTest::newRow(name) << date << device << head;
    };
    row("no leading zeros", {2026, 3, 5}, "BOX",
        R"(device="BOX" author="Zarvex" version="840" date="5-3-2026")");
    row("day of two digits", {2028, 2, 29}, "BOX",
        R"(device="BOX" author="Zarvex" version="840" date="29-2-2028")");
    row("month of two digits", {2030, 10, 9}, "BOX",
        R"(device="BOX" author="Zarvex" version="840" date="9-10-2030")");
    row("identifier as it stands", {2026, 3, 5}, "R&B's <\"A\"> & B",
        R"(device="R&B's <"A"> & B" author="Zarvex" version="840" date="5-3-2026")");
    row("no identifier", {2026, 3, 5}, "", R"(device="" author="Zarvex" version="840" date="5-3-2026")");
}

void TestMapping::writesHeads()
{
    QFETCH(const QDate, date);
    QFETCH(const QString, device);
    QFETCH(const QString, head);
    const Controller grid;
    ControllerMapping mapping = mappingOf({}, grid);
    mapping.date = date;
    mapping.device["device"] = device;
    QCOMPARE(QString(written(mapping)),
             "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<mapper " + head + ">\n</mapper>\n");
}

void TestMapping::writesInTheCodecOfTheStream_data()
{
    QTest::addColumn<QByteArray>("codec");
    QTest::newRow("UTF-8") << QByteArray("UTF-8");
    QTest::newRow("Latin-1, whatever the first line says") << QByteArray("ISO-8859-1");
    QTest::newRow("the stream's own") << QByteArray();
}

/** And each line has reached the device before the next one begins. */
void TestMapping::writesInTheCodecOfTheStream()
{
    QFETCH(const QByteArray, codec);
    const QString name = QString::fromUtf8("Nebelstoß & Été");
    Controller grid;
    QVERIFY(fill(grid, {{2, 2, name, "#ff0000", "", ""}}));
    const ControllerMapping mapping = mappingOf({{button("led")}, {}}, grid);
    const QByteArray expected = fileOf(
        lines("os2l_button &apos;" + name + "&apos;", "os2l_button &apos;" + name + "&apos; ? on : off"));
    const QTextCodec *used = codec.isEmpty() ? QTextCodec::codecForLocale() : QTextCodec::codecForName(codec);
    QVERIFY(used);
    QCOMPARE(written(mapping, codec.isEmpty() ? nullptr : codec.constData()),
             used->fromUnicode(QString::fromUtf8(expected)));

    QByteArrayList ends;
    for (const QByteArray &line : pieces([&mapping](QTextStream &out) { writeMapping(out, mapping); }))
        ends += QByteArray::number(line.count('\n')) + line.right(1);
    QCOMPARE(ends, QVector<QByteArray>(5, "1\n").toList());
}

void TestMapping::writesDevices_data()
{
    QTest::addColumn<QString>("golden");
    QTest::addColumn<QString>("device");
    QTest::addColumn<bool>("isSimple");
    QTest::addColumn<QString>("defaultOn");
    QTest::addColumn<QString>("defaultOff");
    QTest::addColumn<Cells>("bands");
    QTest::addColumn<Cell>("switchKey");
    const auto row = [](const char *golden, const char *device, bool isSimple, const QString &on,
                        const QString &off, const Cells &bands, const Cell &switchKey) {
        QTest::newRow(golden) << golden << device << isSimple << on << off << bands << switchKey;
    };
    const QString free = "-1";
    const Cells akai = {{11, 2, "Bottom first", "#FF00FF", "red", "green", "1"},
                        {2, 11, "Right first", "#FFFF00", "", ""},
                        {9, 11, "Right last", "#008080", "", ""}};
    const Cell akaiSwitch = {3, 11, "RIGHT 2", "#000000", "", "", "0", free};
    row("mapping-apcmini-simple.xml", "AKAI APC Mini", Simple, "green", "yellow", akai, akaiSwitch);
    row("mapping-apcmini-wrapped.xml", "AKAI APC Mini", Wrapped, "green", "yellow", akai, akaiSwitch);
    row("mapping-launchpad-wrapped.xml", "Novation Launchpad", Wrapped, "#FF0000", "#000000",
        {{0, 2, "Top first", "#FF00FF", "", "", "1"},
         {2, 11, "Right first", "#FFFF00", "#AA5500", "#005500"}},
        {0, 9, "TOP 8", "#000000", "", "", "0", free});
    row("mapping-launchpad2-wrapped.xml", "Novation Launchpad MKII", Wrapped, "", "",
        {{0, 2, "Top first", "#FF00FF", "red", "green", "1"}, {9, 11, "Right last", "#FFFF00", "", ""}},
        {0, 9, "TOP 8", "#000000", "red", "blue", "0", free});
    row("mapping-nlminimk3-wrapped.xml", "Novation Launchpad Mini MK3", Wrapped, "", "",
        {{0, 5, "Top last", "#FF00FF", "", "", "1"}, {2, 11, "Right first", "#FFFF00", "red", "green"}},
        {3, 4, "PAD 11", "#000000", "red", "blue", "1", free});
    row("mapping-launchpadpro-wrapped.xml", "Novation Launchpad PRO", Wrapped, "", "",
        {{0, 2, "Top first", "#FF00FF", "", "", "1"},
         {11, 9, "Bottom last", "#FFFF00", "red", ""},
         {9, 0, "Left last", "#008080", "", "green"},
         {4, 11, "Right third", "#808080", "", "", "1"}},
        {2, 0, "LEFT 1", "#804020", "", "", "0", free});
}

/** Controllers of each kind with the same Live Buttons on their pads and some on their bands. */
void TestMapping::writesDevices()
{
    QFETCH(const QString, golden);
    QFETCH(const QString, device);
    QFETCH(const bool, isSimple);
    QFETCH(const QString, defaultOn);
    QFETCH(const QString, defaultOff);
    QFETCH(const Cells, bands);
    QFETCH(const Cell, switchKey);
    const Cells pads = {
        {2, 2, "Strobe", "#FF0000", "", ""},
        {2, 5, "Blackout", "#000000", "", "", "1"},
        {3, 2, "Slow", "#00FF7F", "", "", ""},
        {3, 3, QString::fromUtf8("Nebelstoß"), "#C0C0C0", "#00FF00", ""},
        {4, 4, "The \"big\" one", "orange", "red", "green", "1"},
        {9, 9, "It's R&B <live>", "#123456", "", "blue"},
    };
    Controller grid;
    QVERIFY(fill(grid, pads + bands + Cells{switchKey}));
    const QList<CatalogueEntry> catalogue = readCatalogue(":/icons/Mappings");
    const auto entry =
        std::find_if(catalogue.begin(), catalogue.end(),
                     [&device](const CatalogueEntry &each) { return each.device.value("name") == device; });
    QVERIFY(entry != catalogue.end());
    const Keys keys = readKeyRecords(entry->device.value("path"), entry->mappers.last().value("path"));
    const ControllerMapping mapping = {entry->device, keys,      grid,     switchKey.row, switchKey.col,
                                       defaultOff,    defaultOn, isSimple, Date};
    QCOMPARE(difference(written(mapping), bytesOf(QFINDTESTDATA("../data/" + golden))), QString());
}

QTEST_GUILESS_MAIN(TestMapping)
#include "test_mapping.moc"

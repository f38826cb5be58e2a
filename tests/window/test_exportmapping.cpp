#include "support/boxes.h"
#include "support/devices.h"
#include "support/files.h"
#include "support/home.h"
#include "support/workspace.h"

#include <QComboBox>
#include <QDomDocument>
#include <QLineEdit>
#include <QRandomGenerator>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

namespace {

using Box = ExpectedDialogs::Box;
using Scripts = QMap<QString, QString>; ///< of a mapper, unescaped, by the name of the key or LED
using Place = QPair<int, int>;          ///< row and column of the grid

// Midnight may strike while the tests run.
const QDate FirstDay = QDate::currentDate();

using namespace Devices;

// Rows of the mappers' list.
constexpr int Simple = 0;
constexpr int Factory = 1;
constexpr int Users = 2;

// Rows of the Live Buttons table.
constexpr int Strobe = 0;
constexpr int Blackout = 1;
constexpr int Quoted = 2;
constexpr int Colon = 3;
constexpr int Question = 4;
constexpr int Apostrophe = 5;
constexpr int Fog = 6;
constexpr int OfNoPage = 7;
constexpr int Accented = 8;
constexpr int None = -1;

const QByteArray Ini = "\xEF\xBB\xBF[page]\nnumber=2\n[page1]\nname=One\nnb_buttons=6\n[page2]\nname=Two\n"
                       "nb_buttons=3\n"
                       "[page1_button1]\ntitle=Strobe\ncolor=16711680\n"
                       "[page1_button2]\ntitle=Blackout\n"
                       "[page1_button3]\ntitle=\\\"loud\\\" & <bright>\ncolor=255\n"
                       "[page1_button4]\ntitle=Fast : Red\ncolor=16711680\n"
                       "[page1_button5]\ntitle=Fast ? Red\ncolor=16711680\n"
                       "[page1_button6]\ntitle=It's hot\ncolor=16711680\n"
                       "[page2_button1]\ntitle=Fog\ncolor=32768\n"
                       "[page2_button2]\ntitle=Lost\npageid=0\ncolor=255\n"
                       "[page2_button3]\ntitle=Caf\xC3\xA9\n";

struct LiveButton
{
    QString name;
    QString color;
};

/** The buttons whose names every codec can write, as the program reads them. */
const QList<LiveButton> LiveButtons = {
    {"Strobe", "#ff0000"},     {"Blackout", "#ffffff"},   {"\"loud\" & <bright>", "#0000ff"},
    {"Fast : Red", "#ff0000"}, {"Fast ? Red", "#ff0000"}, {"It's hot", "#ff0000"},
    {"Fog", "#008000"},        {"Lost", "#0000ff"},
};

// The devices and all they have on them.

struct Control
{
    QString type;
    QString name; ///< the LED of a pad or button is called the same with "LED_" in front
    bool hasColorLed;
    int row;
    int col;
};

struct Device
{
    QString name;
    QString identifier;
    QStringList palette; ///< empty for a device that takes any colour
    int off;             ///< default colours by their places in the palette
    int on;
    QList<Control> controls; ///< in the order of the file
};

QStringList numbered(const QString &word, int count)
{
    QStringList names;
    for (int number = 1; number <= count; ++number)
        names += word + QString::number(number);
    return names;
}

QList<Control> across(const QString &type, const QStringList &names, int row, bool hasColorLed = true)
{
    QList<Control> controls;
    for (int i = 0; i < names.size(); ++i)
        controls += {type, names.at(i), hasColorLed, row, i + 2};
    return controls;
}

QList<Control> down(const QString &type, const QStringList &names, int col, bool hasColorLed = true)
{
    QList<Control> controls;
    for (int i = 0; i < names.size(); ++i)
        controls += {type, names.at(i), hasColorLed, i + 2, col};
    return controls;
}

/** Controls without a place of their own. */
QList<Control> aside(const QString &type, const QStringList &names)
{
    QList<Control> controls;
    for (const QString &name : names)
        controls += {type, name, false, 0, 0};
    return controls;
}

/** The 64 pads, named by row and column. */
QList<Control> square(const QString &pattern)
{
    QList<Control> controls;
    for (int row = 1; row <= 8; ++row) {
        for (int col = 1; col <= 8; ++col)
            controls += {"pad", pattern.arg(row).arg(col), true, row + 1, col + 1};
    }
    return controls;
}

QList<Control> akaiControls()
{
    QList<Control> sliders;
    for (int col = 0; col < 8; ++col)
        sliders += {"slider", "SLIDER" + QString::number(col + 1), false, 10, col};
    return square("ROW%1_PAD%2")
           + across("button", {"UP", "DOWN", "LEFT", "RIGHT", "VOLUME", "PAN", "SEND", "DEVICE"}, 11, false)
           + down("button",
                  {"CLIP_STOP", "SOLO", "REC_ARM", "MUTE", "SELECT", "BLANK1", "BLANK2", "STOP_ALL_CLIPS"},
                  11, false)
           + sliders + aside("empty", {"SHIFT", "SLIDER9"});
}

QList<Control> classicControls()
{
    QList<Control> pads = square("%1.%2");
    pads[8].row = 2; // "2.1" lies in the cell of "1.1"
    return pads + down("pad", numbered("Y", 8), 11) + across("pad", numbered("X", 8), 0);
}

QList<Control> mk2Controls()
{
    return square("PAD_%1_%2") + across("button", numbered("BUT_HOR_", 8), 0)
           + down("button", numbered("BUT_VERT_", 8), 11);
}

QList<Control> miniMk3Controls()
{
    QStringList others = QStringList{"SESSION", "DRUMS", "KEYS", "USER"} + numbered("FADER_", 8);
    for (const QString &fader : numbered("FADER_", 8))
        others += {fader + "_TYPE", fader + "_COLOR"};
    return square("PAD_%1_%2") + across("pad", numbered("BUT_HOR_", 4), 0)
           + down("pad", numbered("BUT_VERT_", 8), 11) + aside("ignore", others + numbered("LED_FADER_", 8));
}

QList<Control> proControls()
{
    QStringList modes = {"ABLETON", "STANDALONE", "LED_ABLETON", "LED_STANDALONE",
                         "DRUM",    "USER",       "VISUAL",      "FADER"};
    modes += QStringList{"NOTUSED", "NOTUSED", "NOTUSED", "NOTUSED", "NOTUSED", "NOTUSED", "SAMFADER"};
    modes += QStringList{"SAM2FADER", "NOTUSED", "NOTUSED", "LED_DRUM", "LED_USER", "LED_VISUAL"};
    modes += QStringList{"LED_FADER", "LED_SAMFADER", "LED_SAM2FADER"};
    for (QString &mode : modes)
        mode = "DNC_" + mode + "_MODE";
    return square("PAD_%1_%2") + across("pad", {"TOP_UP", "TOP_DOWN", "TOP_LEFT", "TOP_RIGHT"}, 0)
           + across("pad",
                    {"BOTTOM_RECORD_ARM", "BOTTOM_TRACK_SELECT", "BOTTOM_MUTE", "BOTTOM_SOLO",
                     "BOTTOM_VOLUME", "BOTTOM_PAN", "BOTTOM_SENDS", "BOTTOM_STOP_CLIP"},
                    11)
           + down("pad",
                  {"LEFT_SHIFT", "LEFT_CLICK", "LEFT_UNDO", "LEFT_DELETE", "LEFT_QUANTIZE", "LEFT_DUPLICATE",
                   "LEFT_DOUBLE", "LEFT_CIRCLE"},
                  0)
           + down("pad", numbered("RIGHT_", 8), 11) + aside("ignore", modes);
}

/** The devices in the order of their list. */
const QList<Device> &devices()
{
    static const QList<Device> all = {
        {"AKAI APC Mini", "APCMINI", {"black", "green", "red", "yellow"}, 3, 1, akaiControls()},
        {"Novation Launchpad Mini MK3", "NLMINIMK3", {}, 0, 0, miniMk3Controls()},
        {"Novation Launchpad Mini", "LAUNCHPADMINI", ClassicPalette, 0, 3, classicControls()},
        {"Novation Launchpad MKII", "LAUNCHPAD2", {}, 0, 0, mk2Controls()},
        {"Novation Launchpad PRO", "LAUNCHPADPRO", {}, 0, 0, proControls()},
        {"Novation Launchpad S", "LAUNCHPADS", ClassicPalette, 0, 3, classicControls()},
        {"Novation Launchpad", "LAUNCHPAD", ClassicPalette, 0, 3, classicControls()},
    };
    return all;
}

// What must stand in a file.

/** A script as it stands in a file, where nothing but its single quotes needs escaping. */
QString script(const QString &text)
{
    return QString(text).replace("'", "&apos;");
}

/** What a wrapped script starts with. */
const QString Lights = script("var '$os2l' ? ");

/** A key of the grid, as the program should know it. */
struct Cell
{
    int button = None;
    QString off = {};
    QString on = {};
    bool blinks = false;
};

/** A workspace to export. */
struct Plan
{
    int device;
    bool isSimple;
    Scripts scripts = {};
    QMap<Place, Cell> cells = {};
    Place toggle = {-1, -1}; ///< the Switch
    QString off = {};        ///< default colours
    QString on = {};
};

QString escaped(const QString &text)
{
    return script(text).replace("\"", "&quot;").replace(" & ", " &amp; ");
}

/** For the lights first, then the control's own script if there is one. */
QString wrapped(const Plan &plan, const QString &lights, const QString &own)
{
    QStringList parts = {plan.isSimple ? lights : Lights + lights};
    if (!plan.isSimple && !own.isEmpty())
        parts += own;
    return parts.join(" : ");
}

/** What the LED of a Live Button shows, or of the Switch where the brightness is another. */
QString padLed(const Plan &plan, const Cell &cell, const QString &brightness)
{
    const bool isRgb = devices().at(plan.device).palette.isEmpty();
    const QString color = cell.button == None ? "#000000" : LiveButtons.at(cell.button).color;
    const bool ownColors = !isRgb || brightness == "40%"; // the Switch of an RGB device has none
    QString on = isRgb ? "color '" + color + "'" : "color '" + plan.on + "'";
    QString off = isRgb ? "color " + brightness + " '" + color + "'" : "color '" + plan.off + "'";
    if (ownColors && !cell.on.isEmpty())
        on = "color '" + cell.on + "'";
    if (ownColors && !cell.off.isEmpty())
        off = "color '" + cell.off + "'";
    const bool blinks = cell.blinks && cell.button != None;
    return script(blinks ? "blink ? " + on + " : " + off + " : " + off : on + " : " + off);
}

QString buttonLed(const Plan &plan, const Control &control, const Cell &cell)
{
    if (!control.hasColorLed)
        return "on : off";
    if (!devices().at(plan.device).palette.isEmpty())
        return script("color '" + plan.on + "' : color '" + plan.off + "'");
    const QString color = LiveButtons.at(cell.button).color;
    return script("color '" + color + "' : color 30% '" + color + "'");
}

/** Scripts of a pad or button and of its LED. */
QStringList keyScripts(const Plan &plan, const Control &control, const QString &own, const QString &ownLed)
{
    const bool isPad = control.type == "pad";
    const Place place = {control.row, control.col};
    const Cell cell = plan.cells.value(place);
    if (cell.button != None) {
        const QString press = "os2l_button &apos;" + LiveButtons.at(cell.button).name + "&apos;";
        const QString led = isPad ? padLed(plan, cell, "40%") : buttonLed(plan, control, cell);
        return {wrapped(plan, press, own), wrapped(plan, press + " ? " + led, ownLed)};
    }
    const QString dark = isPad ? script("color 'black'") : QString("off");
    if (plan.isSimple)
        return {"nothing", dark};
    if (place == plan.toggle)
        return {script("toggle '$os2l'"), isPad ? Lights + padLed(plan, cell, "30%") : script("var '$os2l'")};
    if (own.isEmpty())
        return {Lights + "nothing", Lights + dark};
    return {Lights + "nothing : " + own, Lights + dark + " : " + ownLed};
}

QString otherScript(const Plan &plan, const Control &control, const QString &own)
{
    if (control.type == "slider")
        return wrapped(plan, "os2l_cmd " + QString::number(control.col + 1), own);
    if (control.type == "ignore")
        return own;
    return plan.isSimple || own.isEmpty() ? QString("nothing") : wrapped(plan, "nothing", own);
}

QString row(const QString &name, const QString &action)
{
    return "\t<map value=\"" + name + "\" action=\"" + action + "\"/>";
}

QStringList file(const QString &identifier, const QStringList &rows)
{
    const QString head =
        "<mapper device=\"" + identifier + "\" author=\"Zarvex\" version=\"840\" date=\"TODAY\">";
    return QStringList{"<?xml version=\"1.0\" encoding=\"UTF-8\"?>", head} + rows
           + QStringList{"</mapper>", ""};
}

/** The lines of the file that a workspace gives. */
QStringList expected(const Plan &plan)
{
    const Device &device = devices().at(plan.device);
    QStringList rows;
    bool isLedMapped = false;
    for (const Control &control : device.controls) {
        const QString own = escaped(plan.scripts.value(control.name));
        if (control.type != "pad" && control.type != "button") {
            rows += row(control.name, otherScript(plan, control, own));
            continue;
        }
        const QString led = "LED_" + control.name;
        QString ownLed = escaped(plan.scripts.value(led));
        if (control.type == "button") { // lights as its key acts, up to the first one with a row for its LED
            isLedMapped = isLedMapped || plan.scripts.contains(led);
            ownLed = isLedMapped ? ownLed : own;
        }
        const QStringList scripts = keyScripts(plan, control, own, ownLed);
        rows += {row(control.name, scripts.at(0)), row(led, scripts.at(1))};
    }
    return file(device.identifier, rows);
}

// Files that stand there.

/** The lines of a text with TODAY in place of the date. */
QStringList linesIn(const QByteArray &bytes)
{
    QString text = QString::fromUtf8(bytes);
    for (const QDate &date : {FirstDay, QDate::currentDate()})
        text.replace(QString(" date=\"%1-%2-%3\"").arg(date.day()).arg(date.month()).arg(date.year()),
                     " date=\"TODAY\"");
    return text.split('\n');
}

QStringList linesOf(const QString &path)
{
    return linesIn(textOf(bytesOf(path)));
}

/** Where two files differ; empty if nowhere. */
QString difference(const QStringList &actual, const QStringList &wanted)
{
    for (int i = 0; i < qMax(actual.size(), wanted.size()); ++i) {
        if (actual.value(i, "no line") != wanted.value(i, "no line"))
            return QString("line %1 is\n%2\ninstead of\n%3")
                .arg(i + 1)
                .arg(actual.value(i, "no line"), wanted.value(i, "no line"));
    }
    return {};
}

QString fileName(int device, const QString &page = "OS2L DMX")
{
    return devices().at(device).name + " - " + page + " mapping.xml";
}

QStringList exported(const Workspace &space, int device, const QString &page = "OS2L DMX")
{
    return linesOf(space.mappersFolder() + "/" + fileName(device, page));
}

/** The script of a key or LED. */
QString in(const QStringList &lines, const QString &name)
{
    const QString start = "\t<map value=\"" + name + "\" action=\"";
    for (const QString &line : lines) {
        if (line.startsWith(start) && line.endsWith("\"/>"))
            return line.mid(start.size()).chopped(3);
    }
    return "no " + name;
}

/** A mapper as it might stand in the user's folder. */
QByteArray mapper(const QString &identifier, const Scripts &scripts)
{
    QString text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<mapper device=\"" + identifier + "\">\n";
    for (auto it = scripts.cbegin(); it != scripts.cend(); ++it)
        text += "<map value=\"" + it.key() + "\" action=\"" + it.value().toHtmlEscaped() + "\"/>\n";
    return (text + "</mapper>\n").toUtf8();
}

/** The scripts of a device's factory mapper. */
Scripts factoryScripts(int device)
{
    QDomDocument document;
    if (!document.setContent(bytesOf(":/icons/Mappings/" + devices().at(device).name + " mapping.xml")))
        qFatal("no factory mapper");
    Scripts scripts;
    const QDomNodeList rows = document.elementsByTagName("map");
    for (int i = 0; i < rows.size(); ++i) {
        const QDomElement element = rows.at(i).toElement();
        scripts.insert(element.attribute("value"), element.attribute("action"));
    }
    return scripts;
}

// What a user does.

/** Goes to MIDI Mapping with a show, a device and one of its mappers. */
bool start(Workspace &space, int device, int mapperRow = Simple)
{
    return space.load(space.writeShow("Show", Ini)) && space.click("radio_outputmidi")
           && space.choose("devicescombo", device) && space.choose("mididevices", mapperRow);
}

/** The same with a mapper of the user's. */
bool startWith(Workspace &space, int device, const Scripts &scripts)
{
    return writeFile(space.mappersFolder() + "/Mine.xml", mapper(devices().at(device).identifier, scripts))
           && start(space, device, Users);
}

Box created(int device, const QString &page = "OS2L DMX")
{
    return Boxes::mappingCreated(page, devices().at(device).name);
}

Box overwrite(int device, QMessageBox::StandardButton answer, const QString &page = "OS2L DMX")
{
    return Boxes::overwrite(devices().at(device).name + " - " + page + " mapping", answer);
}

/** Exports by the button; the mapper must be new. */
bool exports(Workspace &space, int device, const QString &page = "OS2L DMX")
{
    space.dialogs.expect(created(device, page));
    return space.click("pushButton_2") && space.dialogs.faults().isEmpty();
}

/** Picks a colour for a key that has none yet of a device that takes any. */
bool askForColor(Workspace &space, int row, int col, const QString &submenu, const QString &color)
{
    space.dialogs.expect(ExpectedDialogs::Color{"Choose a Color", Qt::black, QColor(color)});
    return space.pickOnKey(row, col, {submenu, "Select ..."}) && space.dialogs.faults().isEmpty();
}

/** Gives a key a colour, as another device may have left it. */
bool put(Workspace &space, int row, int col, int role, const QString &value)
{
    return space.grid()->setData(space.grid()->index(row, col), value, role);
}

/** A home folder for several starts of the program, one after the other. */
class Home final
{
public:
    Home()
    {
        if (!m_folder.isValid() || !QDir(m_folder.path()).mkpath("Documents/VirtualDJ/Mappers"))
            qFatal("cannot make a home folder");
    }
    QString mappersFolder() const { return m_folder.path() + "/Documents/VirtualDJ/Mappers"; }
    /** Lets the next window live here; to be called before it is built. */
    void takeIn() const { takeHome(m_folder.path()); }

private:
    QTemporaryDir m_folder;
};

QStringList offeredMappers(Workspace &space)
{
    return Workspace::itemsOf(space.find<QComboBox>("mididevices"));
}

/** Picks a mapper by name. */
bool pick(Workspace &space, const QString &name)
{
    const auto position = offeredMappers(space).indexOf(name);
    return position >= 0 && space.choose("mididevices", static_cast<int>(position));
}

} // namespace

/** From filled keys to the file in VirtualDJ's Mappers folder, its questions and its notices. */
class TestExportMapping final : public QObject
{
    Q_OBJECT

private slots:
    void goldenFileOfAUsersWork();
    void devicesToTheLine_data();
    void devicesToTheLine();
    void liveButtons_data();
    void liveButtons();
    void defaultColours_data();
    void defaultColours();
    void ownColours_data();
    void ownColours();
    void ownScripts_data();
    void ownScripts();
    void switches_data();
    void switches();
    void switchOutlivesACleanGrid();
    void switchUnderALiveButton();
    void namesGoOutRaw();
    void buttonOfNoPageIsExported();
    void twoKeysInOneCell();
    void noKeyNoLiveButton_data();
    void noKeyNoLiveButton();

    void gate_data();
    void gate();
    void slotHasNoGate();
    void overwriting_data();
    void overwriting();
    void longerFileIsCutOff();
    void cannotBeWritten_data();
    void cannotBeWritten();
    void pageNamesInFileNames_data();
    void pageNamesInFileNames();
    void emptyNameIsGuarded();
    void nameBeyondAscii();
    void usesTheDefaultCodec_data();
    void usesTheDefaultCodec();
    void noDevice();
    void noMapper();
    void mapperCalledSimple();
    void mapperChangesAfterTheStart_data();
    void mapperChangesAfterTheStart();
    void mapperGoneAfterAnExport();
    void comboBoxTellsTheDevice();
    void everyExportReadsAnew();
    void changesNothing_data();
    void changesNothing();
    void exportLeavesWorkUnsaved();

    void isOfferedAtTheNextStart_data();
    void isOfferedAtTheNextStart();
    void againGivesTheSame_data();
    void againGivesTheSame();
    void exportsOfExports_data();
    void exportsOfExports();
    void keyTakenBack_data();
    void keyTakenBack();

    void randomWorkspaces();
};

namespace {

bool hasKey(int device, const Place &place)
{
    const QList<Control> &controls = devices().at(device).controls;
    return std::any_of(controls.cbegin(), controls.cend(), [&](const Control &control) {
        return (control.type == "pad" || control.type == "button") && control.row == place.first
               && control.col == place.second;
    });
}

/** Puts a Live Button on a key, in the program and in the plan. */
bool assign(Workspace &space, Plan &plan, int button, const Place &place)
{
    plan.cells[place] = {button};
    return space.putOnKey(button, place.first, place.second);
}

/** Fills keys of all kinds, colours them, and marks a Switch, in the program and in the plan. */
bool layOut(Workspace &space, Plan &plan)
{
    const Device &device = devices().at(plan.device);
    const bool isRgb = device.palette.isEmpty();
    const QString off = isRgb ? "#abcdef" : device.palette.at(1);
    const QString on = isRgb ? "#123456" : device.palette.at(2);

    bool isDone = assign(space, plan, Strobe, {2, 2}) && assign(space, plan, Fog, {3, 3})
                  && assign(space, plan, Apostrophe, {5, 5}) && assign(space, plan, Blackout, {9, 9});
    for (const Place &band : {Place(0, 2), Place(11, 2), Place(2, 0), Place(2, 11)}) {
        if (hasKey(plan.device, band))
            isDone = isDone && assign(space, plan, Strobe, band);
    }
    if (isRgb)
        isDone = isDone && askForColor(space, 3, 3, "Off Color", off)
                 && askForColor(space, 3, 3, "On Color", on) && askForColor(space, 5, 5, "On Color", on);
    else
        isDone = isDone && space.pickOnKey(3, 3, {"Off Color", " " + off})
                 && space.pickOnKey(3, 3, {"On Color", " " + on})
                 && space.pickOnKey(5, 5, {"On Color", " " + on});
    plan.cells[{3, 3}] = {Fog, off, on, true};
    plan.cells[{5, 5}] = {Apostrophe, {}, on};
    plan.cells[{9, 9}] = {Blackout, {}, {}, true};
    plan.toggle = {8, 8};
    plan.off = device.palette.value(device.off);
    plan.on = device.palette.value(device.on);
    return isDone && space.pickOnKey(3, 3, {"Blink"}) && space.pickOnKey(9, 9, {"Blink"})
           && space.pickOnKey(8, 8, {"Set as Switch"});
}

bool layOutForAnEvening(Workspace &space)
{
    return space.putOnKey(Strobe, 2, 2) && space.putOnKey(Fog, 2, 3)
           && space.putOnKey(Quoted, 3, 2) // gives way to the Switch
           && space.putOnKey(Strobe, 9, 9) && space.putOnKey(Blackout, 11, 2)
           && space.pickOnKey(2, 2, {"Off Color", " green"}) && space.pickOnKey(2, 2, {"On Color", " red"})
           && space.pickOnKey(2, 3, {"Blink"}) && space.pickOnKey(11, 2, {"On Color", " red"})
           && space.pickOnKey(11, 2, {"Blink"}) && space.pickOnKey(3, 2, {"Set as Switch"});
}

} // namespace

void TestExportMapping::goldenFileOfAUsersWork()
{
    Workspace space;
    QVERIFY(writeFile(space.mappersFolder() + "/Evening.xml",
                      mapper("APCMINI", {{"ROW1_PAD1", "play_pause"},
                                         {"LED_ROW1_PAD1", "play_pause ? on : off"},
                                         {"ROW1_PAD2", "deck left hot_cue 2"},
                                         {"LED_ROW1_PAD3", "sampler_loaded ? on : off"},
                                         {"ROW2_PAD1", "play"},
                                         {"LED_ROW2_PAD1", "play ? on : off"},
                                         {"ROW2_PAD2", "set '$x' 1 & say \"hi\""},
                                         {"UP", "sampler_bank -1"},
                                         {"DOWN", "sampler_bank +1"},
                                         {"LEFT", "sampler_stop 1"},
                                         {"LED_LEFT", "sampler_used ? on : off"},
                                         {"PAN", "browser_scroll -1"},
                                         {"SLIDER1", "deck left level"},
                                         {"SHIFT", "shift"},
                                         {"UNKNOWN", "play"}})));
    QVERIFY2(space.load(space.writeShow("Show", Ini)), qPrintable(space.dialogs.faults()));
    QVERIFY(space.click("radio_outputmidi"));
    QVERIFY(space.choose("mididevices", Users));
    QCOMPARE(space.find<QComboBox>("mididevices")->currentText(), QString("Evening"));
    QVERIFY(space.choose("combo_offcolor", 0));
    QVERIFY(space.choose("combo_oncolor", 3));

    QVERIFY(layOutForAnEvening(space));
    QVERIFY(space.type("padsname", "Evening Set"));

    QVERIFY2(exports(space, Akai, "Evening Set"), qPrintable(space.dialogs.faults()));
    const QStringList golden = linesIn(bytesOf(QFINDTESTDATA("../data/exportmapping-road.xml")));
    QCOMPARE(golden.size(), 174); // a golden file that is missing has one line
    QCOMPARE(difference(exported(space, Akai, "Evening Set"), golden), QString());
}

void TestExportMapping::devicesToTheLine_data()
{
    QTest::addColumn<int>("device");
    QTest::addColumn<int>("mapperRow");
    for (int device = 0; device < devices().size(); ++device) {
        const QByteArray name = devices().at(device).name.toUtf8();
        QTest::newRow(name + ", simple") << device << Simple;
        QTest::newRow(name + ", factory") << device << Factory;
        QTest::newRow(name + ", the user's") << device << Users;
    }
}

void TestExportMapping::devicesToTheLine()
{
    QFETCH(int, device);
    QFETCH(int, mapperRow);

    Scripts scripts;
    const QList<Control> &controls = devices().at(device).controls;
    for (int i = 0; i < controls.size(); ++i) {
        if (i % 3 != 1)
            scripts.insert(controls.at(i).name, "do 'it' " + QString::number(i) + " & \"that\"");
        if (i % 2 == 1)
            scripts.insert("LED_" + controls.at(i).name, "is 'it' ? on : off");
    }
    Workspace space;
    QVERIFY(writeFile(space.mappersFolder() + "/Mine.xml", mapper(devices().at(device).identifier, scripts)));
    QVERIFY2(start(space, device, mapperRow), qPrintable(space.dialogs.faults()));
    Plan plan = {device, mapperRow == Simple, mapperRow == Users ? scripts : factoryScripts(device)};
    QVERIFY(layOut(space, plan));
    QVERIFY2(exports(space, device), qPrintable(space.dialogs.faults()));
    const QDir folder(space.mappersFolder());
    QCOMPARE(folder.entryList(QDir::Files | QDir::Hidden).size(), 2);
    QVERIFY(folder.exists("Mine.xml") && folder.exists(fileName(device)));
    QCOMPARE(difference(exported(space, device), expected(plan)), QString());
}

void TestExportMapping::liveButtons_data()
{
    QTest::addColumn<int>("device");
    QTest::addColumn<int>("mapperRow");
    QTest::addColumn<QString>("own");
    QTest::addColumn<QString>("ownLed");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("led");
    const QString none;
    const auto row = [](const char *what, int device, int mapperRow, const QString &own,
                        const QString &ownLed, const QString &key, const QString &script,
                        const QString &led) {
        QTest::newRow(what) << device << mapperRow << own << ownLed << key << script << led;
    };
    row("RGB pad, simple", Mk2, Simple, "play", "play ? on : off", "PAD_1_1", "os2l_button 'Strobe'",
        "os2l_button 'Strobe' ? color '#ff0000' : color 40% '#ff0000'");
    row("RGB pad", Mk2, Users, "play_pause", "play_pause ? on : off", "PAD_1_1",
        "var '$os2l' ? os2l_button 'Strobe' : play_pause",
        "var '$os2l' ? os2l_button 'Strobe' ? color '#ff0000' : color 40% '#ff0000' : play_pause ? on : off");
    row("pad without scripts of its own", Mk2, Users, none, none, "PAD_1_1",
        "var '$os2l' ? os2l_button 'Strobe'",
        "var '$os2l' ? os2l_button 'Strobe' ? color '#ff0000' : color 40% '#ff0000'");
    row("pad whose LED alone has a script", Mk2, Users, none, "play ? on : off", "PAD_1_1",
        "var '$os2l' ? os2l_button 'Strobe'",
        "var '$os2l' ? os2l_button 'Strobe' ? color '#ff0000' : color 40% '#ff0000' : play ? on : off");
    row("palette pad, simple", Akai, Simple, none, none, "ROW1_PAD1", "os2l_button 'Strobe'",
        "os2l_button 'Strobe' ? color 'green' : color 'yellow'");
    row("palette pad", Classic, Users, "play", none, "1.1", "var '$os2l' ? os2l_button 'Strobe' : play",
        "var '$os2l' ? os2l_button 'Strobe' ? color '#FF0000' : color '#000000'");
    row("button with a plain LED, simple", Akai, Simple, none, none, "UP", "os2l_button 'Strobe'",
        "os2l_button 'Strobe' ? on : off");
    row("button with a plain LED", Akai, Users, "play", "loop ? on : off", "UP",
        "var '$os2l' ? os2l_button 'Strobe' : play",
        "var '$os2l' ? os2l_button 'Strobe' ? on : off : loop ? on : off");
    row("button whose LED follows its key", Akai, Users, "play", none, "UP",
        "var '$os2l' ? os2l_button 'Strobe' : play", "var '$os2l' ? os2l_button 'Strobe' ? on : off : play");
    row("button with a colour LED, simple", Mk2, Simple, none, none, "BUT_HOR_1", "os2l_button 'Strobe'",
        "os2l_button 'Strobe' ? color '#ff0000' : color 30% '#ff0000'");
    row("button with a colour LED", Mk2, Users, "play", "loop ? on : off", "BUT_HOR_1",
        "var '$os2l' ? os2l_button 'Strobe' : play",
        "var '$os2l' ? os2l_button 'Strobe' ? color '#ff0000' : color 30% '#ff0000' : loop ? on : off");
}

void TestExportMapping::liveButtons()
{
    QFETCH(int, device);
    QFETCH(int, mapperRow);
    QFETCH(QString, own);
    QFETCH(QString, ownLed);
    QFETCH(QString, key);
    QFETCH(QString, script);
    QFETCH(QString, led);

    Scripts scripts;
    if (!own.isEmpty())
        scripts.insert(key, own);
    if (!ownLed.isEmpty())
        scripts.insert("LED_" + key, ownLed);
    Workspace space;
    QVERIFY2(startWith(space, device, scripts), qPrintable(space.dialogs.faults()));
    QVERIFY(space.choose("mididevices", mapperRow));
    QVERIFY(space.putOnKey(Strobe, key == "UP" ? 11 : key == "BUT_HOR_1" ? 0 : 2, 2));
    QVERIFY2(exports(space, device), qPrintable(space.dialogs.faults()));
    QCOMPARE(in(exported(space, device), key), ::script(script));
    QCOMPARE(in(exported(space, device), "LED_" + key), ::script(led));
}

void TestExportMapping::defaultColours_data()
{
    QTest::addColumn<int>("device");
    QTest::addColumn<int>("off");
    QTest::addColumn<int>("on");
    QTest::addColumn<int>("nextDevice");
    QTest::addColumn<QString>("led");
    QTest::addColumn<QString>("colors");
    QTest::newRow("as the device has them") << Akai << 3 << 1 << Akai << "LED_ROW8_PAD8"
                                            << "color 'green' : color 'yellow'";
    QTest::newRow("chosen") << Akai << 2 << 3 << Akai << "LED_ROW8_PAD8"
                            << "color 'yellow' : color 'red'";
    QTest::newRow("the last ones") << Classic << 15 << 15 << Classic << "LED_8.8"
                                   << "color '#FFFF00' : color '#FFFF00'";
    QTest::newRow("chosen for another device") << Akai << 2 << 3 << Classic << "LED_8.8"
                                               << "color '#FF0000' : color '#000000'";
    QTest::newRow("chosen, but the device takes any colour") << Akai << 2 << 3 << Mk2 << "LED_PAD_8_8"
                                                             << "color '#008000' : color 40% '#008000'";
}

void TestExportMapping::defaultColours()
{
    QFETCH(int, device);
    QFETCH(int, off);
    QFETCH(int, on);
    QFETCH(int, nextDevice);
    QFETCH(QString, led);
    QFETCH(QString, colors);

    Workspace space;
    QVERIFY2(start(space, device), qPrintable(space.dialogs.faults()));
    QVERIFY(space.choose("combo_offcolor", off));
    QVERIFY(space.choose("combo_oncolor", on));
    QVERIFY(space.choose("devicescombo", nextDevice));
    QVERIFY(space.putOnKey(Fog, 9, 9));
    QVERIFY2(exports(space, nextDevice), qPrintable(space.dialogs.faults()));
    QCOMPARE(in(exported(space, nextDevice), led), script("os2l_button 'Fog' ? " + colors));
}

void TestExportMapping::ownColours_data()
{
    QTest::addColumn<int>("device");
    QTest::addColumn<QString>("led");
    QTest::addColumn<QList<QStringList>>("clicks");
    QTest::addColumn<QString>("off");
    QTest::addColumn<QString>("on");
    QTest::addColumn<QString>("shows");
    using Clicks = QList<QStringList>;
    const QStringList blink = {"Blink"};
    const QStringList offRed = {"Off Color", " red"};
    const QStringList onBlack = {"On Color", " black"};
    const QString none;
    const auto row = [](const char *what, int device, const QString &led, const Clicks &clicks,
                        const QString &off, const QString &on, const QString &shows) {
        QTest::newRow(what) << device << led << clicks << off << on << shows;
    };
    row("palette pad, off", Akai, "LED_ROW1_PAD1", {offRed}, none, none, "color 'green' : color 'red'");
    row("palette pad, on", Akai, "LED_ROW1_PAD1", {onBlack}, none, none, "color 'black' : color 'yellow'");
    row("palette pad, both", Akai, "LED_ROW1_PAD1", {offRed, onBlack}, none, none,
        "color 'black' : color 'red'");
    row("palette pad, default again", Akai, "LED_ROW1_PAD1", {offRed, onBlack, {"Off Color", " default"}},
        none, none, "color 'black' : color 'yellow'");
    row("palette pad, blinking", Akai, "LED_ROW1_PAD1", {blink}, none, none,
        "blink ? color 'green' : color 'yellow' : color 'yellow'");
    row("palette pad, all three", Akai, "LED_ROW1_PAD1", {offRed, onBlack, blink}, none, none,
        "blink ? color 'black' : color 'red' : color 'red'");
    row("palette pad, no longer blinking", Akai, "LED_ROW1_PAD1", {blink, blink}, none, none,
        "color 'green' : color 'yellow'");
    row("palette pad, a colour of another device's", Akai, "LED_ROW1_PAD1", {}, "#55AA00", "#123456",
        "color '#123456' : color '#55AA00'");
    row("RGB pad, off", Mk2, "LED_PAD_1_1", {}, "#123456", none, "color '#008000' : color '#123456'");
    row("RGB pad, on", Mk2, "LED_PAD_1_1", {}, none, "#123456", "color '#123456' : color 40% '#008000'");
    row("RGB pad, both, blinking", Mk2, "LED_PAD_1_1", {blink}, "#123456", "#abcdef",
        "blink ? color '#abcdef' : color '#123456' : color '#123456'");
    row("RGB pad, blinking", Mk2, "LED_PAD_1_1", {blink}, none, none,
        "blink ? color '#008000' : color 40% '#008000' : color 40% '#008000'");
    row("button with a plain LED has none", Akai, "LED_UP", {offRed, onBlack, blink}, none, none, "on : off");
    row("button with a colour LED has none", Mk2, "LED_BUT_HOR_1", {blink}, "#123456", "#abcdef",
        "color '#008000' : color 30% '#008000'");
}

void TestExportMapping::ownColours()
{
    QFETCH(int, device);
    QFETCH(QString, led);
    QFETCH(QList<QStringList>, clicks);
    QFETCH(QString, off);
    QFETCH(QString, on);
    QFETCH(QString, shows);

    const int row = led == "LED_UP" ? 11 : led == "LED_BUT_HOR_1" ? 0 : 2;
    Workspace space;
    QVERIFY2(start(space, device), qPrintable(space.dialogs.faults()));
    QVERIFY(space.putOnKey(Fog, row, 2));
    for (const QStringList &click : clicks)
        QVERIFY(space.pickOnKey(row, 2, click));
    QVERIFY(off.isEmpty() || put(space, row, 2, OffColorRole, off));
    QVERIFY(on.isEmpty() || put(space, row, 2, OnColorRole, on));
    QVERIFY2(exports(space, device), qPrintable(space.dialogs.faults()));
    QCOMPARE(in(exported(space, device), led), script("os2l_button 'Fog' ? " + shows));
}

void TestExportMapping::ownScripts_data()
{
    QTest::addColumn<int>("device");
    QTest::addColumn<int>("mapperRow");
    QTest::addColumn<Scripts>("scripts");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("exported"); // as it stands in the file, but for the single quotes
    const Scripts none;
    const Scripts pad = {{"PAD_1_1", "play"}, {"LED_PAD_1_1", "play ? on : off"}};
    const Scripts bands = {{"UP", "play"}, {"LEFT", "stop"}, {"LED_LEFT", "stop ? on : off"}, {"PAN", "cue"}};
    const auto row = [](const char *what, int device, int mapperRow, const Scripts &scripts,
                        const QString &name, const QString &exported) {
        QTest::newRow(what) << device << mapperRow << scripts << name << exported;
    };
    row("pad", Mk2, Users, pad, "PAD_1_1", "var '$os2l' ? nothing : play");
    row("pad's LED", Mk2, Users, pad, "LED_PAD_1_1", "var '$os2l' ? color 'black' : play ? on : off");
    row("pad, simple", Mk2, Simple, pad, "PAD_1_1", "nothing");
    row("pad's LED, simple", Mk2, Simple, pad, "LED_PAD_1_1", "color 'black'");
    row("pad without a script", Mk2, Users, none, "PAD_1_1", "var '$os2l' ? nothing");
    row("LED of a pad without a script", Mk2, Users, {{"LED_PAD_1_1", "play"}}, "LED_PAD_1_1",
        "var '$os2l' ? color 'black'");
    row("LED without a script, of a pad with one", Mk2, Users, {{"PAD_1_1", "play"}}, "LED_PAD_1_1",
        "var '$os2l' ? color 'black' : ");
    row("button", Akai, Users, bands, "UP", "var '$os2l' ? nothing : play");
    row("button, simple", Akai, Simple, bands, "UP", "nothing");
    row("button's LED, simple", Akai, Simple, bands, "LED_UP", "off");
    row("button without a script", Akai, Users, bands, "SOLO", "var '$os2l' ? nothing");
    row("LED of a button without a script", Akai, Users, bands, "LED_SOLO", "var '$os2l' ? off");
    row("button's LED before the first that has a script", Akai, Users, bands, "LED_UP",
        "var '$os2l' ? off : play");
    row("first button's LED that has a script", Akai, Users, bands, "LED_LEFT",
        "var '$os2l' ? off : stop ? on : off");
    row("button's LED behind the first that has a script", Akai, Users, bands, "LED_PAN",
        "var '$os2l' ? off : ");
    row("button's LED of any colour", Mk2, Users, {{"BUT_HOR_1", "play"}}, "LED_BUT_HOR_1",
        "var '$os2l' ? off : play");

    row("fader", Akai, Users, {{"SLIDER3", "filter"}}, "SLIDER3", "var '$os2l' ? os2l_cmd 3 : filter");
    row("fader without a script", Akai, Users, none, "SLIDER8", "var '$os2l' ? os2l_cmd 8");
    row("fader, simple", Akai, Simple, {{"SLIDER1", "filter"}}, "SLIDER1", "os2l_cmd 1");
    row("control left alone", MiniMk3, Users, {{"SESSION", "play"}}, "SESSION", "play");
    row("control left alone, simple", Pro, Simple, none, "DNC_LED_ABLETON_MODE",
        factoryScripts(Pro).value("DNC_LED_ABLETON_MODE"));
    row("control left alone, without a script", MiniMk3, Users, none, "SESSION", "");
    row("silenced control", Akai, Users, {{"SHIFT", "shift"}}, "SHIFT", "var '$os2l' ? nothing : shift");
    row("silenced control without a script", Akai, Users, none, "SHIFT", "nothing");
    row("silenced control, simple", Akai, Simple, {{"SHIFT", "shift"}}, "SHIFT", "nothing");

    row("quotes, ampersands and brackets", Mk2, Users, {{"PAD_1_1", "say 'x' \"y\" & go && a<b>c&d"}},
        "PAD_1_1", "var '$os2l' ? nothing : say 'x' &quot;y&quot; &amp; go && a<b>c&d");
    row("wrapped by an earlier export", Mk2, Users, {{"PAD_1_1", "var '$os2l' ? os2l_button 'Old' : play"}},
        "PAD_1_1", "var '$os2l' ? nothing : play");
    row("Switch of an earlier export", Mk2, Users, {{"PAD_1_1", "toggle '$os2l'"}}, "PAD_1_1",
        "var '$os2l' ? nothing");
    row("control left alone that was wrapped", MiniMk3, Users, {{"SESSION", "var '$os2l' ? nothing : play"}},
        "SESSION", "play");
}

void TestExportMapping::ownScripts()
{
    QFETCH(int, device);
    QFETCH(int, mapperRow);
    QFETCH(Scripts, scripts);
    QFETCH(QString, name);
    QFETCH(QString, exported);

    Workspace space;
    QVERIFY2(startWith(space, device, scripts), qPrintable(space.dialogs.faults()));
    QVERIFY(space.choose("mididevices", mapperRow));
    QVERIFY(space.putOnKey(Strobe, 9, 9));
    QVERIFY2(exports(space, device), qPrintable(space.dialogs.faults()));
    QCOMPARE(in(::exported(space, device), name), script(exported));
}

void TestExportMapping::switches_data()
{
    QTest::addColumn<int>("device");
    QTest::addColumn<int>("mapperRow");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QStringList>("colors"); // off and on; as left by a Live Button that was there
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("led");
    const QStringList none;
    const QStringList own = {"red", "black"};
    const QString toggle = "toggle '$os2l'";
    const auto row = [](const char *what, int device, int mapperRow, const QString &key,
                        const QStringList &colors, const QString &script, const QString &led) {
        QTest::newRow(what) << device << mapperRow << key << colors << script << led;
    };
    row("RGB pad", Mk2, Users, "PAD_1_1", none, toggle,
        "var '$os2l' ? color '#000000' : color 30% '#000000'");
    row("RGB pad with colours of its own", Mk2, Users, "PAD_1_1", own, toggle,
        "var '$os2l' ? color '#000000' : color 30% '#000000'");
    row("palette pad", Akai, Users, "ROW1_PAD1", none, toggle,
        "var '$os2l' ? color 'green' : color 'yellow'");
    row("palette pad with colours of its own", Akai, Users, "ROW1_PAD1", own, toggle,
        "var '$os2l' ? color 'black' : color 'red'");
    row("button with a plain LED", Akai, Users, "UP", own, toggle, "var '$os2l'");
    row("button with a colour LED", Mk2, Users, "BUT_HOR_1", none, toggle, "var '$os2l'");
    row("pad around the factory mapper", Akai, Factory, "ROW1_PAD1", none, toggle,
        "var '$os2l' ? color 'green' : color 'yellow'");
    row("RGB pad, simple", Mk2, Simple, "PAD_1_1", none, "nothing", "color 'black'");
    row("palette pad, simple", Akai, Simple, "ROW1_PAD1", own, "nothing", "color 'black'");
    row("button, simple", Akai, Simple, "UP", none, "nothing", "off");
}

void TestExportMapping::switches()
{
    QFETCH(int, device);
    QFETCH(int, mapperRow);
    QFETCH(QString, key);
    QFETCH(QStringList, colors);
    QFETCH(QString, script);
    QFETCH(QString, led);

    const int row = key == "UP" ? 11 : key == "BUT_HOR_1" ? 0 : 2;
    Workspace space;
    QVERIFY2(startWith(space, device, {{key, "play"}, {"LED_" + key, "play ? on : off"}}),
             qPrintable(space.dialogs.faults()));
    QVERIFY(space.choose("mididevices", mapperRow));
    QVERIFY(space.putOnKey(Strobe, 9, 9));
    if (!colors.isEmpty()) {
        QVERIFY(space.putOnKey(Fog, row, 2));
        QVERIFY(put(space, row, 2, OffColorRole, colors.at(0))
                && put(space, row, 2, OnColorRole, colors.at(1)));
        QVERIFY(space.pickOnKey(row, 2, {"Blink"}));
    }
    QVERIFY(space.pickOnKey(row, 3, {"Set as Switch"})); // the mark moves
    QVERIFY(space.pickOnKey(row, 2, {"Set as Switch"}));
    QVERIFY2(exports(space, device), qPrintable(space.dialogs.faults()));

    const QStringList lines = exported(space, device);
    QCOMPARE(in(lines, key), ::script(script));
    QCOMPARE(in(lines, "LED_" + key), ::script(led));
    QCOMPARE(lines.filter("toggle &apos;$os2l&apos;").size(), mapperRow == Simple ? 0 : 1);
    QVERIFY(lines.filter("Fog").isEmpty());
}

void TestExportMapping::switchOutlivesACleanGrid()
{
    Workspace space;
    QVERIFY2(start(space, Akai, Factory), qPrintable(space.dialogs.faults()));
    QVERIFY(space.pickOnKey(2, 2, {"Set as Switch"}));
    QVERIFY(space.click("cleanmidi_button"));
    QVERIFY(space.putOnKey(Strobe, 9, 9));
    QVERIFY2(exports(space, Akai), qPrintable(space.dialogs.faults()));
    QCOMPARE(in(exported(space, Akai), "ROW1_PAD1"), script("toggle '$os2l'"));
    QCOMPARE(in(exported(space, Akai), "LED_ROW1_PAD1"),
             script("var '$os2l' ? color 'green' : color 'yellow'"));
}

void TestExportMapping::switchUnderALiveButton()
{
    Workspace space;
    QVERIFY2(startWith(space, Mk2, {{"PAD_1_1", "play"}}), qPrintable(space.dialogs.faults()));
    QVERIFY(space.pickOnKey(2, 2, {"Set as Switch"}));
    QVERIFY(!space.putOnKey(Strobe, 2, 2));
    QVERIFY(space.choose("devicescombo", Akai));
    QVERIFY(space.choose("devicescombo", Mk2)); // gives back the key
    QVERIFY(space.choose("mididevices", Users));
    QVERIFY(space.putOnKey(Strobe, 2, 2));
    QVERIFY2(exports(space, Mk2), qPrintable(space.dialogs.faults()));
    QCOMPARE(in(exported(space, Mk2), "PAD_1_1"), script("var '$os2l' ? os2l_button 'Strobe' : play"));
    QVERIFY(exported(space, Mk2).filter("toggle &apos;$os2l&apos;").isEmpty());
}

void TestExportMapping::namesGoOutRaw()
{
    Workspace space;
    QVERIFY2(start(space, Mk2), qPrintable(space.dialogs.faults()));
    QVERIFY(space.putOnKey(Quoted, 2, 2));
    QVERIFY(space.putOnKey(Apostrophe, 2, 3));
    QVERIFY2(exports(space, Mk2), qPrintable(space.dialogs.faults()));
    QCOMPARE(in(exported(space, Mk2), "PAD_1_1"), QString("os2l_button &apos;\"loud\" & <bright>&apos;"));
    QCOMPARE(in(exported(space, Mk2), "PAD_1_2"), QString("os2l_button &apos;It's hot&apos;"));
}

void TestExportMapping::buttonOfNoPageIsExported()
{
    Workspace space;
    QVERIFY2(start(space, Mk2), qPrintable(space.dialogs.faults()));
    QVERIFY(space.putOnKey(OfNoPage, 2, 2));
    QVERIFY2(exports(space, Mk2), qPrintable(space.dialogs.faults()));
    QCOMPARE(in(exported(space, Mk2), "PAD_1_1"), script("os2l_button 'Lost'"));
}

void TestExportMapping::twoKeysInOneCell()
{
    Workspace space;
    QVERIFY2(start(space, Classic), qPrintable(space.dialogs.faults()));
    QVERIFY(space.putOnKey(Strobe, 2, 2));
    QVERIFY(space.pickOnKey(2, 2, {"On Color", " #00FF00"}));
    QVERIFY2(exports(space, Classic), qPrintable(space.dialogs.faults()));
    for (const QString key : {"1.1", "2.1"}) {
        QCOMPARE(in(exported(space, Classic), key), script("os2l_button 'Strobe'"));
        QCOMPARE(in(exported(space, Classic), "LED_" + key),
                 script("os2l_button 'Strobe' ? color '#00FF00' : color '#000000'"));
    }
    QCOMPARE(exported(space, Classic).filter("Strobe").size(), 4);
}

void TestExportMapping::noKeyNoLiveButton_data()
{
    QTest::addColumn<int>("device");
    QTest::addColumn<int>("nextDevice");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("col");
    QTest::newRow("no key at the left of the second row") << Classic << Classic << 3 << 2;
    QTest::newRow("no bottom band") << Akai << Mk2 << 11 << 2;
    QTest::newRow("no left band") << Pro << Akai << 2 << 0;
    QTest::newRow("shorter top band") << Mk2 << MiniMk3 << 0 << 6;
}

void TestExportMapping::noKeyNoLiveButton()
{
    QFETCH(int, device);
    QFETCH(int, nextDevice);
    QFETCH(int, row);
    QFETCH(int, col);

    Workspace space;
    QVERIFY2(start(space, device), qPrintable(space.dialogs.faults()));
    QVERIFY(space.putOnKey(Fog, row, col));
    QVERIFY(space.choose("devicescombo", nextDevice));
    QVERIFY2(exports(space, nextDevice), qPrintable(space.dialogs.faults())); // is not empty all the same
    QCOMPARE(
        difference(exported(space, nextDevice), expected({nextDevice, true, factoryScripts(nextDevice)})),
        QString());
}

void TestExportMapping::gate_data()
{
    QTest::addColumn<bool>("withShow");
    QTest::addColumn<bool>("withPad");
    QTest::addColumn<bool>("byMenu");
    QTest::addColumn<QString>("text");
    for (const bool byMenu : {false, true}) {
        const QByteArray way = byMenu ? ", by the menu" : ", by the button";
        QTest::newRow("no show" + way) << false << false << byMenu << "Nothing to Export. Load a Show";
        QTest::newRow("no Live Button" + way)
            << true << false << byMenu << "Nothing to Export. Pads are empty";
        QTest::newRow("Live Buttons on pads alone" + way)
            << true << true << byMenu << "Nothing to Export. Pads are empty";
    }
}

void TestExportMapping::gate()
{
    QFETCH(bool, withShow);
    QFETCH(bool, withPad);
    QFETCH(bool, byMenu);
    QFETCH(QString, text);

    Workspace space;
    QVERIFY(!withShow || space.load(space.writeShow("Show", Ini)));
    QVERIFY(!withPad || space.putOnPad(Strobe, 0));
    QVERIFY(space.click("radio_outputmidi"));
    space.dialogs.expect(Box{text, {}});
    if (byMenu)
        space.trigger("actionExport");
    else
        QVERIFY(space.click("pushButton_2"));
    QCOMPARE(space.dialogs.faults(), QString());
    QVERIFY(QDir(space.mappersFolder()).isEmpty());
    QVERIFY(QDir(space.padsFolder()).isEmpty());
}

void TestExportMapping::slotHasNoGate()
{
    Workspace space;
    space.window();
    space.dialogs.expect(created(Akai));
    QVERIFY(space.ask<bool>("exportmapping"));
    QCOMPARE(space.dialogs.faults(), QString());
    QCOMPARE(difference(exported(space, Akai), expected({Akai, true, factoryScripts(Akai)})), QString());
}

void TestExportMapping::overwriting_data()
{
    QTest::addColumn<QMessageBox::StandardButton>("answer");
    QTest::addColumn<bool>("isWritten");
    QTest::newRow("Yes") << QMessageBox::Yes << true;
    QTest::newRow("No") << QMessageBox::No << false;
    QTest::newRow("Escape") << QMessageBox::NoButton << false;
}

void TestExportMapping::overwriting()
{
    QFETCH(QMessageBox::StandardButton, answer);
    QFETCH(bool, isWritten);

    Workspace space;
    QVERIFY2(start(space, Pro), qPrintable(space.dialogs.faults()));
    QVERIFY(space.putOnKey(Strobe, 2, 2));
    QVERIFY(space.type("padsname", "Mine"));
    const QString path = space.mappersFolder() + "/" + fileName(Pro, "Mine");
    const QByteArray old = "what stood there\r\n";
    QVERIFY(writeFile(path, old));

    space.dialogs.expect(overwrite(Pro, answer, "Mine"));
    if (isWritten)
        space.dialogs.expect(created(Pro, "Mine"));
    QCOMPARE(space.ask<bool>("exportmapping"), isWritten);
    QCOMPARE(space.dialogs.faults(), QString());
    if (isWritten)
        QCOMPARE(in(exported(space, Pro, "Mine"), "PAD_1_1"), script("os2l_button 'Strobe'"));
    else
        QCOMPARE(bytesOf(path), old);
}

void TestExportMapping::longerFileIsCutOff()
{
    Workspace space;
    QVERIFY2(start(space, Akai), qPrintable(space.dialogs.faults()));
    QVERIFY(space.putOnKey(Strobe, 2, 2));
    QVERIFY2(exports(space, Akai), qPrintable(space.dialogs.faults()));
    const QStringList first = exported(space, Akai);
    const QString path = space.mappersFolder() + "/" + fileName(Akai);
    QVERIFY(writeFile(path, bytesOf(path) + QByteArray(5000, 'x')));

    space.dialogs.expect(overwrite(Akai, QMessageBox::Yes));
    QVERIFY2(exports(space, Akai), qPrintable(space.dialogs.faults()));
    QCOMPARE(difference(exported(space, Akai), first), QString());
}

void TestExportMapping::cannotBeWritten_data()
{
    QTest::addColumn<QString>("obstacle");
    QTest::newRow("no Mappers folder") << "no Mappers";
    QTest::newRow("no VirtualDJ folder") << "no VirtualDJ";
    QTest::newRow("Mappers is a file") << "file";
    QTest::newRow("the mapper is a folder") << "folder";
    QTest::newRow("Mappers is read-only") << "read-only";
#ifdef Q_OS_UNIX
    QTest::newRow("the mapper is a pipe that nobody reads from") << "pipe";
#endif
}

void TestExportMapping::cannotBeWritten()
{
    QFETCH(QString, obstacle);

    Workspace space;
    QVERIFY2(start(space, Akai, Factory), qPrintable(space.dialogs.faults()));
    QVERIFY(space.putOnKey(Strobe, 2, 2));
    const QString path = space.mappersFolder() + "/" + fileName(Akai);
    bool canBeWritten = false;
    if (obstacle == "folder" || obstacle == "pipe") {
#ifdef Q_OS_UNIX
        QVERIFY(obstacle != "pipe" || mkfifo(QFile::encodeName(path).constData(), 0600) == 0);
#endif
        QVERIFY(obstacle != "folder" || QDir().mkpath(path));
        space.dialogs.expect(overwrite(Akai, QMessageBox::Yes));
    } else if (obstacle == "read-only") {
        QVERIFY(QFile::setPermissions(space.mappersFolder(), QFile::ReadOwner | QFile::ExeOwner));
        canBeWritten = writeFile(space.mappersFolder() + "/probe", "x"); // an administrator may all the same
    } else {
        QVERIFY(QDir(space.mappersFolder()).removeRecursively());
        if (obstacle == "no VirtualDJ")
            QVERIFY(QDir(space.documents() + "/VirtualDJ").removeRecursively());
        QVERIFY(obstacle != "file" || writeFile(space.mappersFolder(), "x"));
    }

    const QStringList before = space.snapshot();
    space.dialogs.expect(created(Akai));
    QVERIFY(space.ask<bool>("exportmapping"));
    QFile::setPermissions(space.mappersFolder(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    QCOMPARE(space.dialogs.faults(), QString());
    QCOMPARE(space.snapshot(), before);
    QCOMPARE(QFileInfo(path).isFile(), canBeWritten);
    QCOMPARE(QFileInfo(space.mappersFolder()).isDir(),
             QStringList({"folder", "read-only", "pipe"}).contains(obstacle));
    QCOMPARE(QFileInfo::exists(space.documents() + "/VirtualDJ"), obstacle != "no VirtualDJ");
}

void TestExportMapping::pageNamesInFileNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("folder"); // to be made
    QTest::addColumn<bool>("isWritten");
    const QString none;
    QTest::newRow("a word") << "Lights" << none << true;
    QTest::newRow("words") << "My Light Page" << none << true;
    QTest::newRow("blanks") << "   " << none << true;
    QTest::newRow("signs that markup quotes") << "It's \"loud\" & <bright>" << none << AnySignNamesFiles;
    QTest::newRow("a full stop") << "v1.2" << none << true;
    QTest::newRow("an ending of its own") << "Lights.xml" << none << true;
    QTest::newRow("a folder that is there") << "Sub/Lights"
                                            << "AKAI APC Mini - Sub" << true;
    QTest::newRow("a folder that is not there") << "Sub/Lights" << none << false;
    QTest::newRow("longer than a file name") << QString(300, 'x') << none << false;
}

void TestExportMapping::pageNamesInFileNames()
{
    QFETCH(QString, name);
    QFETCH(QString, folder);
    QFETCH(bool, isWritten);

    Workspace space;
    QVERIFY2(start(space, Akai), qPrintable(space.dialogs.faults()));
    QVERIFY(folder.isEmpty() || QDir(space.mappersFolder()).mkdir(folder));
    QVERIFY(space.putOnKey(Strobe, 2, 2));
    QVERIFY(space.type("padsname", name));
    QVERIFY2(exports(space, Akai, name), qPrintable(space.dialogs.faults()));
    const QString path = space.mappersFolder() + "/AKAI APC Mini - " + name + " mapping.xml";
    QCOMPARE(QFile::exists(path), isWritten);
    QVERIFY(!QFile::exists(space.mappersFolder() + "/" + fileName(Akai)));
    if (isWritten)
        QCOMPARE(linesOf(path).value(1),
                 QString("<mapper device=\"APCMINI\" author=\"Zarvex\" version=\"840\" date=\"TODAY\">"));
}

void TestExportMapping::emptyNameIsGuarded()
{
    Workspace space;
    QVERIFY2(start(space, Akai), qPrintable(space.dialogs.faults()));
    QVERIFY(space.putOnKey(Strobe, 2, 2));
    QVERIFY(space.type("padsname", ""));
    QVERIFY2(exports(space, Akai), qPrintable(space.dialogs.faults())); // the click leaves the field
    space.find<QLineEdit>("padsname")->setText("");                     // by the program, it stays
    QVERIFY2(exports(space, Akai, ""), qPrintable(space.dialogs.faults()));
    QCOMPARE(QDir(space.mappersFolder()).entryList(QDir::Files | QDir::Hidden, QDir::Name),
             QStringList({"AKAI APC Mini -  mapping.xml", "AKAI APC Mini - OS2L DMX mapping.xml"}));
}

void TestExportMapping::nameBeyondAscii()
{
    Workspace space;
    QVERIFY2(start(space, Akai), qPrintable(space.dialogs.faults()));
    QVERIFY(space.putOnKey(Strobe, 2, 2));
    const QString name = QString::fromUtf8("Nebelstoß Été");
    space.find<QLineEdit>("padsname")->setText(name);
    const DefaultCodec codec("UTF-8");
    QVERIFY2(exports(space, Akai, name), qPrintable(space.dialogs.faults()));
    QCOMPARE(QDir(space.mappersFolder()).entryList(QDir::Files),
             QStringList(QString::fromUtf8("AKAI APC Mini - Nebelstoß Été mapping.xml")));

    space.dialogs.expect(overwrite(Akai, QMessageBox::No, name));
    QVERIFY(space.click("pushButton_2"));
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestExportMapping::usesTheDefaultCodec_data()
{
    QTest::addColumn<QByteArray>("codec");
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("UTF-8") << QByteArray("UTF-8") << QByteArray("Caf\xC3\xA9");
    QTest::newRow("Latin 1") << QByteArray("ISO-8859-1") << QByteArray("Caf\xE9");
}

void TestExportMapping::usesTheDefaultCodec()
{
    QFETCH(QByteArray, codec);
    QFETCH(QByteArray, name);

    const PlainTempFolder plain;
    Workspace space;
    QVERIFY2(start(space, Akai), qPrintable(space.dialogs.faults()));
    QVERIFY(space.putOnKey(Accented, 2, 2));
    const DefaultCodec inUse(codec);
    QVERIFY2(exports(space, Akai), qPrintable(space.dialogs.faults()));
    const QByteArray bytes = textOf(bytesOf(space.mappersFolder() + "/" + fileName(Akai)));
    QVERIFY(bytes.startsWith("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"));
    QVERIFY(
        bytes.contains("\n\t<map value=\"ROW1_PAD1\" action=\"os2l_button &apos;" + name + "&apos;\"/>\n"));
}

void TestExportMapping::noDevice()
{
    Workspace space;
    QVERIFY2(start(space, Akai, Factory), qPrintable(space.dialogs.faults()));
    QVERIFY(space.putOnKey(Strobe, 2, 2));
    space.find<QComboBox>("devicescombo")->setCurrentIndex(-1);
    space.dialogs.expect(Boxes::mappingCreated("OS2L DMX", {}));
    QVERIFY(space.click("pushButton_2"));
    QCOMPARE(space.dialogs.faults(), QString());
    QCOMPARE(QDir(space.mappersFolder()).entryList(QDir::Files | QDir::Hidden),
             QStringList(" - OS2L DMX mapping.xml"));
    QCOMPARE(linesOf(space.mappersFolder() + "/ - OS2L DMX mapping.xml"), file("", {}));
}

void TestExportMapping::noMapper()
{
    Workspace space;
    QVERIFY2(start(space, Akai, Factory), qPrintable(space.dialogs.faults()));
    QVERIFY(space.putOnKey(Strobe, 2, 2));
    space.find<QComboBox>("mididevices")->setCurrentIndex(-1);
    QVERIFY2(exports(space, Akai), qPrintable(space.dialogs.faults()));
    QCOMPARE(exported(space, Akai), file("APCMINI", {}));
}

void TestExportMapping::mapperCalledSimple()
{
    Workspace space;
    const QString name = "Simple OS2L mapping"; // as the first mapper is called, which alone is simple
    QVERIFY(
        writeFile(space.mappersFolder() + "/" + name + ".xml", mapper("LAUNCHPAD2", {{"PAD_1_1", "play"}})));
    QVERIFY2(start(space, Mk2, Users), qPrintable(space.dialogs.faults()));
    QCOMPARE(space.find<QComboBox>("mididevices")->currentText(), name);
    QVERIFY(space.putOnKey(Strobe, 2, 2));
    QVERIFY2(exports(space, Mk2), qPrintable(space.dialogs.faults()));
    QCOMPARE(in(exported(space, Mk2), "PAD_1_1"), script("var '$os2l' ? os2l_button 'Strobe' : play"));
}

void TestExportMapping::mapperChangesAfterTheStart_data()
{
    QTest::addColumn<QByteArray>("content"); // null where the file is gone
    QTest::addColumn<bool>("hasKeys");
    QTest::addColumn<Scripts>("scripts");
    const Scripts none;
    const Scripts other = {{"PAD_1_1", "cue"}};
    const QByteArray whole = mapper("LAUNCHPAD2", {{"PAD_1_1", "cue"}, {"PAD_1_2", "cue"}});
    QTest::newRow("gone") << QByteArray() << false << none;
    QTest::newRow("empty") << QByteArray("") << true << none;
    QTest::newRow("broken off") << whole.left(whole.size() - 8) << true << none;
    QTest::newRow("no markup") << QByteArray("cue") << true << none;
    QTest::newRow("another mapper") << mapper("LAUNCHPAD2", other) << true << other;
    QTest::newRow("mapper of another device") << mapper("APCMINI", other) << true << other;
}

void TestExportMapping::mapperChangesAfterTheStart()
{
    QFETCH(QByteArray, content);
    QFETCH(bool, hasKeys);
    QFETCH(Scripts, scripts);

    Workspace space;
    QVERIFY2(startWith(space, Mk2, {{"PAD_1_1", "play"}, {"LED_PAD_1_1", "play ? on : off"}}),
             qPrintable(space.dialogs.faults()));
    Plan plan = {Mk2, false, scripts};
    QVERIFY(assign(space, plan, Strobe, {2, 2}));
    const QString path = space.mappersFolder() + "/Mine.xml";
    QVERIFY(content.isNull() ? QFile::remove(path) : writeFile(path, content));
    QVERIFY2(exports(space, Mk2), qPrintable(space.dialogs.faults()));
    QCOMPARE(difference(exported(space, Mk2), hasKeys ? expected(plan) : file("LAUNCHPAD2", {})), QString());
}

/** The keys of the export before are gone with the mapper. */
void TestExportMapping::mapperGoneAfterAnExport()
{
    Workspace space;
    QVERIFY2(startWith(space, Mk2, {{"PAD_1_1", "play"}}), qPrintable(space.dialogs.faults()));
    QVERIFY(space.putOnKey(Strobe, 2, 2));
    QVERIFY2(exports(space, Mk2), qPrintable(space.dialogs.faults()));
    QCOMPARE(exported(space, Mk2).filter("<map ").size(), 160);

    QVERIFY(QFile::remove(space.mappersFolder() + "/Mine.xml"));
    space.dialogs.expect(overwrite(Mk2, QMessageBox::Yes));
    QVERIFY2(exports(space, Mk2), qPrintable(space.dialogs.faults()));
    QCOMPARE(exported(space, Mk2), file("LAUNCHPAD2", {}));
}

/** Not what the page shows, which another device may have been brought to by program. */
void TestExportMapping::comboBoxTellsTheDevice()
{
    Workspace space;
    QVERIFY2(start(space, Akai), qPrintable(space.dialogs.faults()));
    Plan plan = {Akai, true, factoryScripts(Akai)};
    QVERIFY(assign(space, plan, Strobe, {2, 2}));
    plan.off = "yellow";
    plan.on = "green";
    QVERIFY(space.call("updatemidicombo", Mk2));
    QCOMPARE(space.find<QComboBox>("devicescombo")->currentIndex(), Akai);
    QVERIFY2(exports(space, Akai), qPrintable(space.dialogs.faults()));
    QCOMPARE(difference(exported(space, Akai), expected(plan)), QString());
}

void TestExportMapping::everyExportReadsAnew()
{
    Workspace space;
    QVERIFY2(startWith(space, Mk2, {{"PAD_1_1", "play"}}), qPrintable(space.dialogs.faults()));
    Plan plan = {Mk2, false, {{"PAD_1_1", "play"}}};
    QVERIFY(assign(space, plan, Fog, {2, 2}));
    QVERIFY2(exports(space, Mk2), qPrintable(space.dialogs.faults()));
    QCOMPARE(difference(exported(space, Mk2), expected(plan)), QString());

    plan.scripts = {{"PAD_1_1", "cue"}};
    QVERIFY(writeFile(space.mappersFolder() + "/Mine.xml", mapper("LAUNCHPAD2", plan.scripts)));
    QVERIFY(assign(space, plan, Strobe, {2, 3}));
    space.dialogs.expect(overwrite(Mk2, QMessageBox::Yes));
    QVERIFY2(exports(space, Mk2), qPrintable(space.dialogs.faults()));
    QCOMPARE(difference(exported(space, Mk2), expected(plan)), QString());

    QVERIFY(space.choose("devicescombo", Pro));
    plan.device = Pro;
    plan.isSimple = true;
    plan.scripts = factoryScripts(Pro);
    QVERIFY2(exports(space, Pro), qPrintable(space.dialogs.faults()));
    QCOMPARE(difference(exported(space, Pro), expected(plan)), QString());
}

void TestExportMapping::changesNothing_data()
{
    QTest::addColumn<int>("mapperRow");
    QTest::newRow("simple") << Simple;
    QTest::newRow("factory") << Factory;
    QTest::newRow("the user's") << Users;
}

void TestExportMapping::changesNothing()
{
    QFETCH(int, mapperRow);

    Workspace space;
    QVERIFY2(startWith(space, Akai, {{"UP", "play"}}), qPrintable(space.dialogs.faults()));
    Plan plan = {Akai, false};
    QVERIFY(layOut(space, plan));
    QVERIFY(space.choose("mididevices", mapperRow));
    QVERIFY(space.choose("combo_offcolor", 2));
    QVERIFY(space.choose("combo_oncolor", 3));
    QVERIFY(space.choose("combobox", 1));
    QVERIFY(space.type("padsname", "Mine"));
    const QStringList before = space.snapshot();
    const QList<int> ticked = space.ticked();
    const auto children = space.window().findChildren<QObject *>().size();
    QVERIFY2(exports(space, Akai, "Mine"), qPrintable(space.dialogs.faults()));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(space.snapshot(), before);
    QCOMPARE(space.ticked(), ticked);
    QCOMPARE(space.window().findChildren<QObject *>().size(), children);
}

void TestExportMapping::exportLeavesWorkUnsaved()
{
    Workspace space;
    QVERIFY2(start(space, Akai), qPrintable(space.dialogs.faults()));
    QVERIFY(space.putOnKey(Strobe, 2, 2));
    QVERIFY2(exports(space, Akai), qPrintable(space.dialogs.faults()));
    space.dialogs.expect(Boxes::showOverWork(QMessageBox::Cancel));
    QVERIFY(space.click("loadini"));
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestExportMapping::isOfferedAtTheNextStart_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<int>("button");
    QTest::addColumn<QStringList>("offered"); // beside the two that every device has
    QTest::newRow("an exported mapper")
        << "OS2L DMX" << Strobe << QStringList("AKAI APC Mini - OS2L DMX mapping");
    QTest::newRow("a full stop in its name") << "v1.2" << Strobe << QStringList("AKAI APC Mini - v1");
    QTest::newRow("a single quote in a Live Button's name")
        << "OS2L DMX" << Apostrophe << QStringList("AKAI APC Mini - OS2L DMX mapping");
    QTest::newRow("signs that markup quotes in a Live Button's name")
        << "OS2L DMX" << Quoted << QStringList();
}

void TestExportMapping::isOfferedAtTheNextStart()
{
    QFETCH(QString, page);
    QFETCH(int, button);
    QFETCH(QStringList, offered);

    const QStringList always = {"Simple OS2L mapping", "AKAI APC Mini mapping (factory)"};
    const Home home;
    {
        Workspace space;
        home.takeIn();
        QVERIFY2(start(space, Akai), qPrintable(space.dialogs.faults()));
        QVERIFY(space.putOnKey(button, 2, 2));
        QVERIFY(space.type("padsname", page));
        QVERIFY2(exports(space, Akai, page), qPrintable(space.dialogs.faults()));
        QVERIFY(QFile::exists(home.mappersFolder() + "/" + fileName(Akai, page)));
        QCOMPARE(offeredMappers(space), always);
        QVERIFY(space.choose("devicescombo", Classic) && space.choose("devicescombo", Akai));
        QCOMPARE(offeredMappers(space), always);
    }
    Workspace space;
    home.takeIn();
    QVERIFY(space.click("radio_outputmidi"));
    QCOMPARE(offeredMappers(space), always + offered);
    QVERIFY(space.choose("devicescombo", Classic));
    QCOMPARE(offeredMappers(space).size(), 2);
}

void TestExportMapping::againGivesTheSame_data()
{
    QTest::addColumn<int>("device");
    for (int device = 0; device < devices().size(); ++device)
        QTest::newRow(qPrintable(devices().at(device).name)) << device;
}

void TestExportMapping::againGivesTheSame()
{
    QFETCH(int, device);

    const Home home;
    QList<QStringList> generations;
    for (int generation = 1; generation <= 3; ++generation) {
        Workspace space;
        home.takeIn();
        QVERIFY2(start(space, device, Factory), qPrintable(space.dialogs.faults()));
        Plan plan = {device, false, factoryScripts(device)};
        QVERIFY(layOut(space, plan));
        if (generation > 1) {
            QVERIFY(pick(space, devices().at(device).name + " - OS2L DMX mapping"));
            space.dialogs.expect(overwrite(device, QMessageBox::Yes));
        }
        QVERIFY2(exports(space, device), qPrintable(space.dialogs.faults()));
        generations += linesOf(home.mappersFolder() + "/" + fileName(device));
        QCOMPARE(difference(generations.constFirst(), expected(plan)), QString());
    }
    QCOMPARE(difference(generations.at(1), generations.at(0)), QString());
    QCOMPARE(difference(generations.at(2), generations.at(1)), QString());
}

namespace {

/** What is laid out on the first pad, or on the key named PAN, and how. */
struct Layout
{
    int button = None;
    bool blinks = false;
    bool isSwitch = false;
};

/** Exports a layout around the user's mapper, then around what came out of it, and so on. */
class Generations final
{
public:
    Generations(int device, const Scripts &scripts) : m_device(device)
    {
        if (!writeFile(m_home.mappersFolder() + "/Mine.xml",
                       mapper(devices().at(device).identifier, scripts)))
            qFatal("cannot write a mapper");
    }

    /** One export more, by a new start; what went wrong, or nothing. */
    QString add(const Layout &layout)
    {
        Workspace space;
        m_home.takeIn();
        const Place place = m_device == Akai ? Place(11, 7) : Place(2, 2);
        bool isDone =
            start(space, m_device)
            && pick(space, m_count == 0 ? "Mine" : devices().at(m_device).name + " - OS2L DMX mapping")
            && space.putOnKey(Strobe, 9, 9);
        if (layout.button != None)
            isDone = isDone && space.putOnKey(layout.button, place.first, place.second);
        if (layout.blinks)
            isDone = isDone && space.pickOnKey(place.first, place.second, {"Blink"});
        if (layout.isSwitch)
            isDone = isDone && space.pickOnKey(place.first, place.second, {"Set as Switch"});
        if (m_count++ > 0)
            space.dialogs.expect(overwrite(m_device, QMessageBox::Yes));
        if (!isDone || !exports(space, m_device))
            return "no export: " + space.dialogs.faults();
        m_lines = linesOf(m_home.mappersFolder() + "/" + fileName(m_device));
        return {};
    }

    QString in(const QString &name) const { return ::in(m_lines, name); }

private:
    Home m_home;
    int m_device;
    int m_count = 0;
    QStringList m_lines;
};

} // namespace

void TestExportMapping::exportsOfExports_data()
{
    QTest::addColumn<int>("device");
    QTest::addColumn<Scripts>("scripts");
    QTest::addColumn<int>("button");
    QTest::addColumn<bool>("blinks");
    QTest::addColumn<bool>("isSwitch");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    QTest::addColumn<QString>("third");
    const Scripts key = {{"PAD_1_1", "play ? pause : cue"}, {"LED_PAD_1_1", "play ? on : off"}};
    const Scripts plain = {{"PAD_1_1", "play"}, {"LED_PAD_1_1", "blink"}};
    const Scripts half = {{"LED_PAD_1_1", "loop ? blink"}};
    const QString lights = "var '$os2l' ? ";
    const QString shown = " ? color '#ff0000' : color 40% '#ff0000'";
    const auto row = [&](const char *what, int device, const Scripts &scripts, const Layout &layout,
                         const QString &name, const QStringList &generations) {
        QTest::newRow(what) << device << scripts << layout.button << layout.blinks << layout.isSwitch << name
                            << lights + generations.at(0) << lights + generations.value(1, generations.at(0))
                            << lights + generations.constLast();
    };
    // What comes back as it was.
    row("key with a Live Button", Mk2, key, {Strobe}, "PAD_1_1",
        {"os2l_button 'Strobe' : play ? pause : cue"});
    row("LED of a Live Button", Mk2, key, {Strobe}, "LED_PAD_1_1",
        {"os2l_button 'Strobe'" + shown + " : play ? on : off"});
    row("key without a Live Button", Mk2, key, {}, "PAD_1_1", {"nothing : play ? pause : cue"});
    row("LED without a Live Button", Mk2, key, {}, "LED_PAD_1_1", {"color 'black' : play ? on : off"});
    row("LED without a Live Button, nothing to ask", Mk2, plain, {}, "LED_PAD_1_1",
        {"color 'black' : blink"});
    row("LED without a script, of a key with one", Mk2, {{"PAD_1_1", "play"}}, {}, "LED_PAD_1_1",
        {"color 'black' : "});
    row("blinking LED", Mk2, key, {Strobe, true}, "LED_PAD_1_1",
        {"os2l_button 'Strobe' ? blink ? color '#ff0000' : color 40% '#ff0000' : color 40% '#ff0000'"
         " : play ? on : off"});
    row("blinking LED, nothing to ask", Mk2, plain, {Strobe, true}, "LED_PAD_1_1",
        {"os2l_button 'Strobe' ? blink ? color '#ff0000' : color 40% '#ff0000' : color 40% '#ff0000' : blink"});
    row("LED that follows its key, without a Live Button", Akai, {{"PAN", "browser_scroll -1"}}, {},
        "LED_PAN", {"off : browser_scroll -1"});
    row("single quote in a Live Button's name", Mk2, key, {Apostrophe}, "PAD_1_1",
        {"os2l_button 'It's hot' : play ? pause : cue"});
    row("Switch's LED", Mk2, key, {None, false, true}, "LED_PAD_1_1",
        {"color '#000000' : color 30% '#000000'"});
    row("fader", Akai, {{"SLIDER1", "level"}}, {}, "SLIDER1", {"os2l_cmd 1 : level"});

    // What does not: the lights' part of a script cannot be told from the rest of it.
    row("LED of a Live Button, nothing to ask", Mk2, plain, {Strobe}, "LED_PAD_1_1",
        {"os2l_button 'Strobe'" + shown + " : blink", "os2l_button 'Strobe'" + shown});
    row("LED of a Live Button, question without an else", Mk2, half, {Strobe}, "LED_PAD_1_1",
        {"os2l_button 'Strobe'" + shown + " : loop ? blink", "os2l_button 'Strobe'" + shown});
    row("LED that follows its key, with a Live Button", Akai, {{"PAN", "browser_scroll -1"}}, {Strobe},
        "LED_PAN",
        {"os2l_button 'Strobe' ? on : off : browser_scroll -1", "os2l_button 'Strobe' ? on : off"});
    row("colon in the Live Button's name, key", Mk2, plain, {Colon}, "PAD_1_1",
        {"os2l_button 'Fast : Red' : play", "os2l_button 'Fast : Red' : Red' : play",
         "os2l_button 'Fast : Red' : Red' : Red' : play"});
    row("colon in the Live Button's name, LED", Mk2, key, {Colon}, "LED_PAD_1_1",
        {"os2l_button 'Fast : Red'" + shown + " : play ? on : off",
         "os2l_button 'Fast : Red'" + shown + " : Red'" + shown + " : play ? on : off",
         "os2l_button 'Fast : Red'" + shown + " : Red'" + shown + " : Red'" + shown + " : play ? on : off"});
    row("question mark in the Live Button's name, key", Mk2, key, {Question}, "PAD_1_1",
        {"os2l_button 'Fast ? Red' : play ? pause : cue", "os2l_button 'Fast ? Red'"});
    row("question mark in the Live Button's name, LED", Mk2, key, {Question}, "LED_PAD_1_1",
        {"os2l_button 'Fast ? Red'" + shown + " : play ? on : off"});
    QTest::newRow("silenced control without a script")
        << Akai << Scripts() << int(None) << false << false << "SHIFT" << QString("nothing")
        << lights + "nothing : nothing" << lights + "nothing : nothing";
}

void TestExportMapping::exportsOfExports()
{
    QFETCH(int, device);
    QFETCH(Scripts, scripts);
    QFETCH(int, button);
    QFETCH(bool, blinks);
    QFETCH(bool, isSwitch);
    QFETCH(QString, name);
    QFETCH(QString, first);
    QFETCH(QString, second);
    QFETCH(QString, third);

    Generations generations(device, scripts);
    for (QString wanted : {first, second, third}) {
        // The name of a Live Button goes out with its own quote.
        wanted = script(wanted).replace("It&apos;s", "It's");
        QCOMPARE(generations.add({button, blinks, isSwitch}), QString());
        QCOMPARE(generations.in(name), wanted);
    }
}

void TestExportMapping::keyTakenBack_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<bool>("isSwitch");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("led");
    QTest::newRow("from a Live Button") << Strobe << false << "var '$os2l' ? nothing : play"
                                        << "var '$os2l' ? color 'black' : play ? on : off";
    QTest::newRow("from the Switch, which keeps no script") << int(None) << true << "var '$os2l' ? nothing"
                                                            << "var '$os2l' ? color 'black'";
}

void TestExportMapping::keyTakenBack()
{
    QFETCH(int, button);
    QFETCH(bool, isSwitch);
    QFETCH(QString, key);
    QFETCH(QString, led);

    Generations generations(Mk2, {{"PAD_1_1", "play"}, {"LED_PAD_1_1", "play ? on : off"}});
    QCOMPARE(generations.add({button, false, isSwitch}), QString());
    QCOMPARE(generations.add({}), QString());
    QCOMPARE(generations.in("PAD_1_1"), script(key));
    QCOMPARE(generations.in("LED_PAD_1_1"), script(led));
}

namespace {

/** Makes up a workspace, in the program and as a plan. */
class RandomWorkspace final
{
public:
    explicit RandomWorkspace(quint32 seed) : m_dice(seed) {}

    /** Lays out everything and exports; what went wrong or differs, or nothing. */
    QString play()
    {
        m_plan.device = upTo(7);
        if (!startProgram())
            return "no start: " + m_space.dialogs.faults();
        for (int count = 1 + upTo(12); count > 0; --count) {
            if (!changeKey())
                return "no key";
        }
        if (isOneIn(2) && !markSwitch())
            return "no Switch";
        if (!chooseTheRest() || !exports(m_space, m_plan.device))
            return "no export: " + m_space.dialogs.faults();
        return difference(exported(m_space, m_plan.device), expected(m_plan));
    }

private:
    int upTo(int limit) { return static_cast<int>(m_dice.bounded(limit)); }
    bool isOneIn(int count) { return upTo(count) == 0; }
    QString oneOf(const QStringList &texts) { return texts.at(upTo(texts.size())); }

    Place somePlace()
    {
        for (;;) {
            const Place place = {upTo(12), upTo(12)};
            if (hasKey(m_keysOf, place))
                return place;
        }
    }

    Scripts someScripts()
    {
        const QStringList scripts = {"play",
                                     "play ? on : off",
                                     "",
                                     "set '$a' 1 & cue",
                                     "say \"it's\" ? on & off : a&b",
                                     "a<b>c",
                                     "var '$other' 1 ? x : y ? z : w"};
        Scripts chosen;
        const int gaps = 1 + upTo(4);
        for (const Control &control : devices().at(m_plan.device).controls) {
            if (isOneIn(gaps))
                chosen.insert(control.name, oneOf(scripts));
            if (isOneIn(gaps * (control.type == "button" ? 6 : 1))) // so that LEDs follow their keys
                chosen.insert("LED_" + control.name, oneOf(scripts));
        }
        return chosen;
    }

    /** The grid may have been filled for another device than the one that is exported. */
    bool startProgram()
    {
        m_keysOf = isOneIn(4) ? upTo(7) : m_plan.device;
        m_mapperRow = upTo(3);
        m_plan.isSimple = m_mapperRow == Simple;
        const Scripts users = someScripts();
        m_plan.scripts = m_mapperRow == Users ? users : factoryScripts(m_plan.device);
        return writeFile(m_space.mappersFolder() + "/Mine.xml",
                         mapper(devices().at(m_plan.device).identifier, users))
               && start(m_space, m_keysOf);
    }

    bool changeKey()
    {
        const Place place = somePlace();
        if (!assign(m_space, m_plan, upTo(LiveButtons.size()), place))
            return false;
        Cell &cell = m_plan.cells[place];
        const QStringList colors = {"#123456", "red", "#FFAA00", "#abcdef"};
        if (isOneIn(2))
            cell.off = oneOf(colors);
        if (isOneIn(2))
            cell.on = oneOf(colors);
        cell.blinks = isOneIn(3);
        return put(m_space, place.first, place.second, OffColorRole, cell.off)
               && put(m_space, place.first, place.second, OnColorRole, cell.on)
               && (!cell.blinks || m_space.pickOnKey(place.first, place.second, {"Blink"}));
    }

    /** On a key with a Live Button as likely as not. */
    bool markSwitch()
    {
        m_plan.toggle = isOneIn(2) && m_plan.cells.size() > 1 ? m_plan.cells.firstKey() : somePlace();
        if (m_plan.cells.contains(m_plan.toggle))
            m_plan.cells[m_plan.toggle].button = None;
        const Place other = m_plan.toggle == Place(9, 9) ? Place(9, 8) : Place(9, 9);
        const bool isAlone = m_plan.cells.size() == 1; // nothing would be left to export
        if (isAlone && !assign(m_space, m_plan, Strobe, other))
            return false;
        return m_space.pickOnKey(m_plan.toggle.first, m_plan.toggle.second, {"Set as Switch"});
    }

    bool chooseTheRest()
    {
        const QStringList palette = devices().at(m_plan.device).palette;
        bool isDone =
            m_space.choose("devicescombo", m_plan.device) && m_space.choose("mididevices", m_mapperRow);
        if (!palette.isEmpty()) {
            const int off = upTo(palette.size());
            const int on = upTo(palette.size());
            m_plan.off = palette.at(off);
            m_plan.on = palette.at(on);
            isDone = isDone && m_space.choose("combo_offcolor", off) && m_space.choose("combo_oncolor", on);
        }
        return isDone;
    }

    QRandomGenerator m_dice;
    Workspace m_space;
    Plan m_plan = {};
    int m_mapperRow = 0;
    int m_keysOf = 0; ///< device whose keys are filled
};

} // namespace

void TestExportMapping::randomWorkspaces()
{
    for (quint32 seed = 1; seed <= 200; ++seed) {
        const QString fault = RandomWorkspace(seed).play();
        QVERIFY2(fault.isEmpty(), qPrintable(QString("seed %1: %2").arg(seed).arg(fault)));
    }
}

QTEST_MAIN(TestExportMapping)
#include "test_exportmapping.moc"

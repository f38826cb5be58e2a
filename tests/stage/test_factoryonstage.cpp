#include "export/padspage.h"
#include "stage/controls.h"
#include "support/devices.h"
#include "support/files.h"
#include "tables/roles.h"
#include "tables/vdjmodel.h"

#include <QTextStream>
#include <QtTest>

using namespace Stage;

namespace {

int checks = 0;

const QString Classic = "Novation Launchpad";
const QString Akai = "AKAI APC Mini";
const QString MiniMk3 = "Novation Launchpad Mini MK3";
const QString Pro = "Novation Launchpad PRO";

enum Mode { Samples, Decks, Both };

/**
 * What a key of the plan does: the plan's table. "@" stands for the deck that the key is on; a pad of the left deck
 * stands for the one of the right deck, too.
 */
struct Row
{
    const char *place;
    Mode mode;
    const char *given;   ///< what VirtualDJ is up to: "@ loaded, $cuedelete=1, @ loop=4"
    const char *before;  ///< what the LED shows, in words of lookOf()
    const char *happens; ///< at a press and the release
    const char *after;   ///< what the LED shows then
};

constexpr Row Plan[] = {
    // Hot cues. While "delete a cue" is armed, those that are set blink.
    {"pad 1 1", Decks, "", "@ready", "@ deck: hot cue set: 1", "@cue 1"},
    {"pad 1 4", Decks, "@ cue 4", "@cue 4", "@ deck: plays from hot cue 4", "@cue 4"},
    {"pad 2 1", Decks, "", "@ready", "@ deck: hot cue set: 5", "@cue 5"},
    {"pad 2 2", Decks, "@ cue 5", "@ready", "@ deck: hot cue set: 6", "@cue 6"},
    {"pad 2 4", Decks, "@ cue 8", "@cue 8", "@ deck: plays from hot cue 8", "@cue 8"},
    {"pad 1 2", Decks, "@ cue 2, $cuedelete=1", "blinks @cue 2, dark",
     "@ deck: hot cue deleted: 2 | $cuedelete=0", "@ready"},
    {"pad 2 3", Decks, "@ cue 7, $cuedelete=1", "blinks @cue 7, dark",
     "@ deck: hot cue deleted: 7 | $cuedelete=0", "@ready"},
    {"pad 1 3", Decks, "$cuedelete=1", "@ready", "@ deck: hot cue deleted: 3 | $cuedelete=0", "@ready"},
    // Loops
    {"pad 3 1", Decks, "@ loaded", "@ready", "@ deck: loop of 1", "@active"},
    {"pad 3 2", Decks, "@ loaded", "@ready", "@ deck: loop of 2", "@active"},
    {"pad 3 3", Decks, "@ loaded, @ loop=4", "@active", "@ deck: loop ends", "@ready"},
    {"pad 3 4", Decks, "@ loaded, @ loop=4", "@ready", "@ deck: loop of 8", "@active"},
    {"pad 3 4", Decks, "@ loop=8, $flashled=1", "@flashing", "@ deck: loop ends", "dark"},
    {"pad 4 1", Decks, "@ loaded, @ loop=4", "@active", "@ deck: loop halved", "@active"},
    {"pad 4 2", Decks, "@ loaded", "@ready", "@ deck: loop doubled", "@ready"},
    {"pad 4 3", Decks, "@ loaded", "@ready", "@ deck: goto -4", "@ready"},
    {"pad 4 4", Decks, "", "dark", "@ deck: goto +4", "dark"},
    // Effects and censor
    {"pad 5 1", Decks, "", "@ready", "@ deck: effect 1 on", "@active"},
    {"pad 5 2", Decks, "@ effect 2", "@active", "@ deck: effect 2 off", "@ready"},
    {"pad 5 3", Decks, "@ effect 3, $flashled=1", "@flashing", "@ deck: effect 3 off", "@ready"},
    {"pad 5 4", Decks, "@ loaded", "@ready", "@ deck: censors | @ deck: ends censoring", "@ready"},
    {"pad 5 4", Decks, "@ loaded, @ dump", "@active", "@ deck: censors | @ deck: ends censoring", "@ready"},
    // The pads of the deck's page
    {"pad 6 1", Decks, "@ page=2", "@ pad 1 of page 2", "@ deck: pad 1 of page 2", "@ pad 1 of page 2"},
    {"pad 6 2", Decks, "@ page=1", "@ pad 2 of page 1", "@ deck: pad 2 of page 1", "@ pad 2 of page 1"},
    {"pad 6 3", Decks, "@ page=8", "@ pad 3 of page 8", "@ deck: pad 3 of page 8", "@ pad 3 of page 8"},
    {"pad 6 4", Decks, "@ page=2", "@ pad 4 of page 2", "@ deck: pad 4 of page 2", "@ pad 4 of page 2"},
    {"pad 7 1", Decks, "@ page=2", "@ pad 5 of page 2", "@ deck: pad 5 of page 2", "@ pad 5 of page 2"},
    {"pad 7 2", Decks, "@ page=2", "@ pad 6 of page 2", "@ deck: pad 6 of page 2", "@ pad 6 of page 2"},
    {"pad 7 3", Decks, "@ page=2", "@ pad 7 of page 2", "@ deck: pad 7 of page 2", "@ pad 7 of page 2"},
    {"pad 7 4", Decks, "@ page=2", "@ pad 8 of page 2", "@ deck: pad 8 of page 2", "@ pad 8 of page 2"},
    // The deck
    {"pad 8 1", Decks, "@ loaded", "@ready", "@ deck: cue_stop", "@ready"},
    {"pad 8 1", Decks, "@ loaded, @ at cue", "@active", "@ deck: cue_stop", "@active"},
    {"pad 8 2", Decks, "@ loaded", "@ready", "@ deck: plays", "@active"},
    {"pad 8 2", Decks, "@ loaded, @ playing, $flashled=1", "@flashing", "@ deck: stops", "@ready"},
    {"pad 8 3", Decks, "@ loaded", "@ready", "@ deck: syncs", "@active"},
    {"pad 8 4", Decks, "", "@active", "@ deck: loads", "@ready"},
    {"pad 8 4", Decks, "@ loaded, @ playing", "dark", "", "dark"},

    // The band above or below the pads
    {"across 1", Samples, "", "samples step", "sampler_volume_master +5%", "samples step"},
    {"across 2", Samples, "", "samples step", "sampler_volume_master -5%", "samples step"},
    {"across 3", Samples, "bank=3", "samples step", "sample bank 2", "samples step"},
    {"across 4", Samples, "bank=3", "samples step", "sample bank 4", "samples step"},
    {"across 1", Decks, "", "decks step", "left deck: slicer length -1 | right deck: slicer length -1",
     "decks step"},
    {"across 2", Decks, "", "decks step", "left deck: slicer length +1 | right deck: slicer length +1",
     "decks step"},
    {"across 3", Decks, "left page=1", "left ready", "left deck: page 2", "left ready"},
    {"across 3", Decks, "left page=4, right page=6", "left ready", "left deck: page 5", "left ready"},
    {"across 3", Decks, "left page=8", "left ready", "left deck: page 1", "left ready"},
    {"across 3", Decks, "", "left ready", "left deck: page 1", "left ready"},
    {"across 4", Decks, "left page=4, right page=6", "right ready", "right deck: page 7", "right ready"},
    {"across 4", Decks, "right page=7", "right ready", "right deck: page 8", "right ready"},
    {"across 5", Samples, "", "samples on", "$padmode=1", "decks on"},
    {"across 5", Decks, "$cuedelete=1", "decks on", "$padmode=0 | $cuedelete=0", "samples on"},
    {"across 6", Both, "", "decks on", "browser_scroll -1", "decks on"},
    {"across 6", Both, "left playing, right playing", "dim", "browser_scroll -1", "dim"},
    {"across 7", Both, "right playing", "decks on", "browser_scroll +1", "decks on"},
    {"across 8", Both, "", "dim", "$flashled=1", "blinks decks on, dim"},
    {"across 8", Both, "$flashled=1", "blinks decks on, dim", "$flashled=0", "dim"},

    // The right band
    {"right 1", Samples, "bank=2", "dim", "sample bank 1", "samples on"},
    {"right 2", Samples, "", "dim", "sample bank 2", "samples on"},
    {"right 3", Samples, "", "dim", "sample bank 3", "samples on"},
    {"right 4", Samples, "bank=4", "samples on", "sample bank 4", "samples on"},
    {"right 5", Samples, "", "dim", "sample bank 5", "samples on"},
    {"right 6", Samples, "", "dim", "sample bank 6", "samples on"},
    {"right 7", Samples, "", "dim", "sample bank 7", "samples on"},
    {"right 8", Both, "playing sample 9", "stop", "all samples stop", "stop dim"},
    {"right 8", Both, "", "stop dim", "all samples stop", "stop dim"},
    {"right 1", Decks, "", "dim", "quantize_all on", "decks on"},
    {"right 2", Decks, "", "dim", "$cuedelete=1", "blinks stop, stop dim"},
    {"right 2", Decks, "$cuedelete=1", "blinks stop, stop dim", "$cuedelete=0", "dim"},
    {"right 3", Decks, "right loop=4", "decks on", "left deck: leaves the loop | right deck: leaves the loop",
     "dim"},
    {"right 4", Decks, "", "decks on", "browser shows songs", "dim"},
    {"right 5", Decks, "left effect 1", "decks on",
     "left deck: all effects off | right deck: all effects off", "dim"},
    {"right 5", Decks, "master effect", "dim", "left deck: all effects off | right deck: all effects off",
     "dim"},
    {"right 6", Decks, "", "left ready", "left deck: in the headphones", "left active"},
    {"right 7", Decks, "right pfl", "right active", "right deck: not in the headphones", "right ready"},

    // The left band
    {"left 1", Both, "", "dim", "shift on", "decks on"},
    {"left 2", Both, "", "dim", "$cuedelete=1", "blinks stop, stop dim"},
    {"left 3", Both, "left loop=1", "decks on", "left deck: leaves the loop | right deck: leaves the loop",
     "dim"},
    {"left 4", Both, "", "decks on", "browser shows songs", "dim"},
    {"left 5", Both, "right effect 3", "decks on", "left deck: all effects off | right deck: all effects off",
     "dim"},
    {"left 6", Both, "", "left ready", "left deck: in the headphones", "left active"},
    {"left 7", Both, "", "right ready", "right deck: in the headphones", "right active"},
    {"left 8", Both, "playing sample 1", "stop", "all samples stop", "stop dim"},
};

/** Colours of a device for the words of the table. */
QString lookOf(const QString &device, QString words, const QString &side)
{
    static const QMap<QString, QString> launchpads = {
        {"left active", "#ff0000"}, {"left ready", "#550000"},   {"right active", "#00ff00"},
        {"right ready", "#005500"}, {"samples on", "#ff5500"},   {"decks on", "#ffff00"},
        {"stop dim", "#550000"},    {"samples step", "#aa5500"}, {"decks step", "#aaaa00"},
        {"stop", "#ff0000"},        {"dim", "#555500"}};
    static const QMap<QString, QString> akai = {{"left active", "red"},    {"left ready", "yellow"},
                                                {"right active", "green"}, {"right ready", "yellow"},
                                                {"stop dim", "dark"},      {"stop", "on"}};
    const bool isAkai = device == Akai;
    // Only a LED of any colour can show a cue's own.
    const bool hasAnyColour = device.contains("MK") || device == Pro;
    words.replace("@flashing", isAkai ? "@active" : "blinks @active, @ready");
    static const QRegularExpression cue("@cue (\\d)");
    words.replace(cue, hasAnyColour ? "@ cue \\1" : "@active");
    words.replace("@active", side + " active").replace("@ready", side + " ready").replace("@", side);
    const QMap<QString, QString> &colours = isAkai ? akai : launchpads;
    // The longer words first: "stop dim" before "stop" and "dim".
    QStringList known = colours.keys();
    std::sort(known.begin(), known.end(),
              [](const QString &a, const QString &b) { return a.size() > b.size(); });
    for (const QString &word : qAsConst(known))
        words.replace(word, colours.value(word));
    return words;
}

/** Facts have a blank in their name or none of the signs of a variable: "left loop=4", "$padmode=1", "bank=3". */
void prepare(VirtualDj &dj, const QString &given)
{
    for (const QString &each : given.split(", ", Qt::SkipEmptyParts)) {
        const QString name = each.section('=', 0, 0);
        const double value = each.contains('=') ? each.section('=', 1).toDouble() : 1;
        if (name.startsWith('$'))
            dj.setVariable(name, value);
        else
            dj.setFact(name, value);
    }
}

/** What happened, and the variables that changed. */
QString outcome(VirtualDj &dj, const QMap<QString, double> &before)
{
    QStringList all = dj.takeHappened();
    for (const QString name : {"$padmode", "$cuedelete", "$flashled", "$promode", "$prolive"}) {
        if (dj.variable(name) != before.value(name))
            all += name + "=" + QString::number(dj.variable(name));
    }
    return (all + dj.takeFaults()).join(" | ");
}

/** The device's key at a place of the plan; without a name where it has none. */
Control keyAt(const QString &device, const QString &place)
{
    // Without a place of their own on the Mini MK3.
    static const QMap<QString, QString> beside = {
        {"across 5", "SESSION"}, {"across 6", "DRUMS"}, {"across 7", "KEYS"}, {"across 8", "USER"}};
    for (const Control &control : controlsOf(device)) {
        const bool isBeside = device == MiniMk3 && control.name == beside.value(place);
        if (control.place == place || isBeside)
            return control;
    }
    return {};
}

/** Keys and LEDs that the plan does not reach: what is free, and what is given to the letter. */
bool isFree(const QString &device, const QString &place)
{
    return device == Akai && (place == "right 2" || place == "across 8");
}

bool isGivenLed(const QString &device, const QString &place)
{
    return device == Classic && place == "pad 1 1";
}

bool isGivenKey(const QString &device, const QString &place, Mode mode)
{
    return device == Classic && mode == Samples && (place == "across 1" || place == "across 2");
}

/** The AKAI's plain LEDs, but for one, have no row: they show what their key's own script answers. */
bool hasLed(const QString &device, const Control &key)
{
    return !key.led.isEmpty() && (device != Akai || !key.isPlain || key.name == "STOP_ALL_CLIPS");
}

/** Plays a row of the plan by the names of a key and its LED; what is not as told, or nothing. */
QString faultOf(const QString &device, const Row &row, Mode mode, const QString &side, const QString &key,
                const QString &led)
{
    DmxProgram lights(true);
    VirtualDj dj(lights);
    Hardware hardware(dj, factoryMapperOf(device));
    prepare(dj, (mode == Decks ? "$padmode=1, " : "") + QString(row.given).replace('@', side));
    const QMap<QString, double> before = dj.variables();

    QStringList found;
    QStringList expected;
    const auto look = [&](const char *words) {
        if (led.isEmpty())
            return;
        found += hardware.led(led);
        expected += lookOf(device, words, side);
    };
    look(row.before);
    hardware.tap(key);
    found += outcome(dj, before);
    expected += QString(row.happens).replace('@', side);
    look(row.after);
    checks += expected.size();
    return found == expected ? QString()
                             : QString("%1, %2 with %3: %4 instead of %5")
                                   .arg(device, key, row.given, found.join(" > "), expected.join(" > "));
}

/** A page with eight Live Buttons in its first bank, and none in the second but one. */
QByteArray exportedPage()
{
    VDJModel pads;
    pads.insertRows(0, 64);
    for (int pad = 1; pad <= 9; ++pad) {
        const QModelIndex cell = pads.index(pad <= 8 ? pad - 1 : 8, pad <= 8 ? 0 : 1);
        pads.setData(cell, "1", PageRole);
        pads.setData(cell, "Light " + QString::number(pad), DisplayNameRole);
        pads.setData(cell, "#00000" + QString::number(pad), Qt::DecorationRole);
    }
    const PadsPage page = {"Lights", {}, 8, pads};
    return streamed([&page](QTextStream &out) { writePadsPage(out, page); });
}

/** The place of the same key on the other deck. */
QString mirrored(const QString &place)
{
    const QStringList words = place.split(' ');
    return QString("pad %1 %2").arg(words.at(1)).arg(words.at(2).toInt() + 4);
}

void addDevices()
{
    QTest::addColumn<QString>("device");

    for (const QString &device : Devices::Names)
        QTest::newRow(qPrintable(device)) << device;
}

} // namespace

/** The factory mappers on stage: each key does what the plan tells, and its LED agrees. */
class TestFactoryOnStage final : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { Q_INIT_RESOURCE(icons); }
    void cleanupTestCase() { qInfo("%d checks", checks); }
    void samples_data() { addDevices(); }
    void samples();
    void plan_data() { addDevices(); }
    void plan();
    void planTellsEveryKey();
    void classicKeepsWhatIsGiven();
    void akaiArmsWhileShiftIsHeld();
    void faders_data();
    void faders();
    void proPages_data();
    void proPages();
    void proShift();
    void playsAnExportedPage_data() { addDevices(); }
    void playsAnExportedPage();
};

void TestFactoryOnStage::samples()
{
    QFETCH(const QString, device);
    for (int sample = 1; sample <= 64; ++sample) {
        const QString place = QString("pad %1 %2").arg((sample - 1) / 8 + 1).arg((sample - 1) % 8 + 1);
        const Control key = keyAt(device, place);
        const QByteArray name = "sample " + QByteArray::number(sample);
        const QByteArray there = device == Akai ? QByteArray("yellow") : name;
        const QByteArray playing = device == Akai ? QByteArray("green") : name;
        const QByteArray start = name + " starts";
        const QByteArray stop = name + " stops";
        const QByteArray isPlaying = name + ", playing " + name;
        const QString led = isGivenLed(device, place) ? QString() : key.led;
        for (const Row &row :
             {Row{"", Samples, name.constData(), there.constData(), start.constData(), playing.constData()},
              Row{"", Samples, isPlaying.constData(), playing.constData(), stop.constData(),
                  there.constData()}}) {
            const QString fault = faultOf(device, row, Samples, "left", key.name, led);
            QVERIFY2(fault.isEmpty(), qPrintable(fault));
        }
        const Row empty = {"", Samples, "", "dark", start.constData(), device == Akai ? "green" : "dark"};
        const QString fault = faultOf(device, empty, Samples, "left", key.name, led);
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
    }
}

void TestFactoryOnStage::plan()
{
    QFETCH(const QString, device);

    QStringList faults;
    for (const Row &row : Plan) {
        QStringList places = {row.place};
        if (places.first().startsWith("pad"))
            places += mirrored(row.place);
        for (const QString &place : qAsConst(places)) {
            const Control key = keyAt(device, place);
            if (key.name.isEmpty() || isFree(device, place))
                continue;
            const QString side = place == places.first() ? "left" : "right";
            const QString led = hasLed(device, key) && !isGivenLed(device, place) ? key.led : QString();
            for (const Mode mode : {Samples, Decks}) {
                if ((row.mode == mode || row.mode == Both) && !isGivenKey(device, place, mode))
                    faults += faultOf(device, row, mode, side, key.name, led);
            }
        }
    }
    faults.removeAll({});
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join("\n")));
}

/** No key with a place in the plan is left out of the table. */
void TestFactoryOnStage::planTellsEveryKey()
{
    QSet<QString> told;
    for (const Row &row : Plan) {
        for (const Mode mode : {Samples, Decks}) {
            if (row.mode != mode && row.mode != Both)
                continue;
            told += QString("%1 %2").arg(row.place).arg(mode);
            if (QString(row.place).startsWith("pad"))
                told += QString("%1 %2").arg(mirrored(row.place)).arg(mode);
        }
    }
    for (const QString &device : Devices::Names) {
        for (const Control &key : controlsOf(device)) {
            if (key.place.isEmpty() || key.place.startsWith("slider"))
                continue;
            QVERIFY2(told.contains(key.place + " 1"), qPrintable(key.place + " of the decks"));
            QVERIFY2(key.place.startsWith("pad") || told.contains(key.place + " 0"), qPrintable(key.place));
        }
    }
}

/** Rows that are given to the letter: the loudness of one sample and its group, and a LED that never blinks. */
void TestFactoryOnStage::classicKeepsWhatIsGiven()
{
    DmxProgram lights(true);
    VirtualDj dj(lights);
    Hardware hardware(dj, factoryMapperOf(Classic));
    hardware.tap("X1");
    hardware.tap("X2");
    QCOMPARE(dj.takeHappened(), QStringList({"sampler_volume +5%", "sampler_volume -5%"}));
    QCOMPARE(hardware.led("LED_1.1"), QString("sample 1"));
    dj.setVariable("$padmode", 1);
    QCOMPARE(hardware.led("LED_1.1"), QString("unknown: constant #550000"));
    dj.setFact("left cue 1", 1);
    QCOMPARE(hardware.led("LED_1.1"), QString("unknown: constant red"));
}

/** A stray SHIFT deletes nothing, and what it arms is seen. */
void TestFactoryOnStage::akaiArmsWhileShiftIsHeld()
{
    DmxProgram lights(true);
    VirtualDj dj(lights);
    Hardware hardware(dj, factoryMapperOf(Akai));
    prepare(dj, "$padmode=1, left cue 1, right cue 6");
    hardware.tap("SHIFT");
    hardware.tap("ROW1_PAD1");
    QCOMPARE(dj.takeHappened(), QStringList{"left deck: plays from hot cue 1"});
    QCOMPARE(hardware.led("LED_ROW1_PAD1"), QString("red"));

    hardware.press("SHIFT");
    QCOMPARE(hardware.led("LED_ROW1_PAD1"), QString("blinks red, dark"));
    QCOMPARE(hardware.led("LED_ROW2_PAD6"), QString("blinks green, dark"));
    QCOMPARE(hardware.led("LED_ROW1_PAD2"), QString("yellow"));
    hardware.tap("ROW1_PAD1");
    QCOMPARE(dj.takeHappened(), QStringList{"left deck: hot cue deleted: 1"});
    hardware.release("SHIFT");
    QCOMPARE(dj.variable("$cuedelete"), 0.0);
    QCOMPARE(hardware.led("LED_ROW2_PAD6"), QString("green"));
}

void TestFactoryOnStage::faders_data()
{
    QTest::addColumn<int>("fader");
    QTest::addColumn<QString>("happens");

    const QStringList moved = {"left level",   "left eq_low",  "left filter",  "left effect_slider 1 1",
                               "right level",  "right eq_low", "right filter", "right effect_slider 1 1",
                               "master_volume"};
    for (int fader = 1; fader <= moved.size(); ++fader)
        QTest::addRow("%d", fader) << fader << moved.at(fader - 1) + " 25%";
}

void TestFactoryOnStage::faders()
{
    QFETCH(const int, fader);
    for (const auto &[device, name] :
         {qMakePair(Akai, QString("SLIDER%1")), qMakePair(MiniMk3, QString("FADER_%1"))}) {
        if (device == MiniMk3 && fader == 9)
            continue;
        DmxProgram lights(true);
        VirtualDj dj(lights);
        Hardware hardware(dj, factoryMapperOf(device));
        hardware.move(name.arg(fader), 0.25);
        QTEST(dj.takeHappened().join(" | "), "happens");
    }
}

void TestFactoryOnStage::proPages_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("given");
    QTest::addColumn<QString>("happens");
    QTest::addColumn<QString>("led");

    const auto row = [](const char *key, const char *given, const char *happens, const char *led) {
        QTest::newRow(key) << key << given << happens << led;
    };
    row("USER1_PAD_1_1", "left cue 1, $cuedelete=1", "left deck: hot cue deleted: 1 | $cuedelete=0",
        "#550000");
    row("USER1_PAD_4_4", "left loaded", "left deck: goto +4", "#550000");
    row("USER1_PAD_7_8", "right page=3", "right deck: pad 8 of page 3", "right pad 8 of page 3");
    row("USER1_PAD_8_6", "right loaded", "right deck: plays", "#00ff00");
    row("USER2_PAD_1_1", "", "command 1", "unknown: os2l_cmd 1");
    row("USER2_PAD_8_8", "", "command 64", "unknown: os2l_cmd 64");
    row("DRUM_PAD_2_1", "sample 9", "sampler_play_stutter 9", "sample 9");
    row("VISUAL_PAD_1_1", "left loaded", "left deck: goto 0%", "#550000");
    row("VISUAL_PAD_8_8", "right loaded, right song_pos", "right deck: goto 97%", "#00ff00");
    row("VISUAL_PAD_5_5", "right loaded, right playing", "", "#005500");
    row("FADER_PAD_1_1", "", "left level 100%", "#ff0000");
    row("FADER_PAD_8_5", "", "right level 0%", "#005500");
    row("FADER_PAD_4_6", "", "right eq_low 50%", "#00ff00");
    row("FADER_PAD_2_4", "left effect 1", "left effect_slider 1 1 86%", "#ff0000");
    row("SAMFADER_PAD_1_1", "sample 1", "sampler_volume_nogroup 1 100%", "sample 1");
    row("SAM2FADER_PAD_8_8", "sample 16", "sampler_volume_nogroup 16 0%", "sample 16");
    row("PAD_VEL_1_2", "", "sampler_velocity 2 100%", "dark");
    row("PAD_VEL_1_3", "$padmode=1", "", "dark");
    row("DNC_VISUAL_MODE", "", "$promode=3", "dark");
    row("DNC_ABLETON_MODE", "", "$prolive=1", "dark");
    row("DNC_NOTUSED_MODE", "", "", "dark");
}

void TestFactoryOnStage::proPages()
{
    QFETCH(const QString, key);
    QFETCH(const QString, given);

    DmxProgram lights(true);
    VirtualDj dj(lights);
    Hardware hardware(dj, factoryMapperOf(Pro));
    prepare(dj, given);
    const QMap<QString, double> before = dj.variables();
    if (key.startsWith("PAD_VEL"))
        hardware.move(key, 1);
    else
        hardware.tap(key);
    const QStringList received = lights.takeReceived();
    QTEST(received.isEmpty() ? outcome(dj, before) : received.join(" | "), "happens");
    QTEST(hardware.led("LED_" + key), "led");
}

/** With Shift a key of a band does what it does in the other mode. */
void TestFactoryOnStage::proShift()
{
    int rows = 0;
    for (const Row &row : Plan) {
        const Control key = keyAt(Pro, row.place);
        if (row.mode == Both || key.place.startsWith("pad"))
            continue;
        ++rows;
        DmxProgram lights(true);
        VirtualDj dj(lights);
        Hardware hardware(dj, factoryMapperOf(Pro));
        prepare(dj, (row.mode == Samples ? "$padmode=1, " : "") + QString(row.given));
        const QMap<QString, double> before = dj.variables();
        hardware.tap("SHIFT_" + key.name);
        if (QString(row.place) != "across 5") // which is the same with Shift
            QCOMPARE(outcome(dj, before), QString(row.happens));
    }
    QVERIFY(rows > 20);
}

/** A Pads Page that Zarvex exported is played from the controller, once it is the deck's page. */
void TestFactoryOnStage::playsAnExportedPage()
{
    QFETCH(const QString, device);

    DmxProgram lights(false);
    VirtualDj dj(lights);
    Hardware hardware(dj, factoryMapperOf(device));
    dj.setPadsPage(3, PadsPageFile::fromXml(exportedPage()));
    prepare(dj, "$padmode=1, left page=1, right page=2");
    hardware.tap(keyAt(device, "across 3").name);
    hardware.tap(keyAt(device, "across 3").name);
    hardware.tap(keyAt(device, "across 4").name);
    dj.setVariable("dmxbank", 1, "right");
    dj.takeHappened();
    for (int pad = 1; pad <= 8; ++pad) {
        const QString place = QString("pad %1 %2").arg(pad <= 4 ? 6 : 7).arg((pad - 1) % 4 + 1);
        const Control left = keyAt(device, place);
        const Control right = keyAt(device, mirrored(place));
        const QString light = "Light " + QString::number(pad);
        QCOMPARE(hardware.led(left.led), "#00000" + QString::number(pad));
        hardware.press(left.name);
        QCOMPARE(lights.takeReceived(), QStringList{light + " on"});
        hardware.release(left.name);
        QCOMPARE(lights.takeReceived(), QStringList{light + " off"});
        hardware.tap(right.name); // its deck is at another bank, where the pad is empty
        QCOMPARE(lights.takeReceived() + dj.takeHappened(), QStringList());
        QCOMPARE(hardware.led(right.led), QString("transparent"));
    }
}

QTEST_GUILESS_MAIN(TestFactoryOnStage)
#include "test_factoryonstage.moc"

#include "stage/playing.h"
#include "support/devices.h"
#include "support/files.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace Stage;

namespace {

/** Colours and blink of the light with this number: each way to choose them comes up. */
Light lightOf(const QString &device, int number)
{
    const bool isAkai = device.startsWith("AKAI");
    const QStringList colors =
        isAkai ? QStringList{"red", "green", "yellow"} : QStringList{"#AA0000", "#55FF00", "#FFAA00"};
    const QString &on = colors.at(number % 3);
    const QString &off = colors.at((number + 1) % 3);
    const QStringList own = {"#FF0000", "#00FF7F", "#000000", "#C0C0C0"};
    return {QString("Light %1").arg(number), own.at(number / 16 % 4), number & 1 ? on : QString(),
            number & 2 ? off : QString(), (number & 4) != 0};
}

/**
 * Lights on the keys of a device.
 *
 * @param which  "all", "even", "odd" or "one"
 */
QMap<Cell, Light> lightsOn(const QString &device, const QString &which, const Cell &butNot)
{
    QMap<Cell, Light> lights;
    int number = 0;
    for (const Control &key : controlsOf(device)) {
        const Cell cell = {key.row, key.column};
        if (!isKey(key))
            continue;
        ++number;
        const bool isMeant = which == "all" || (which == "even" && number % 2 == 0)
                             || (which == "odd" && number % 2 == 1) || (which == "one" && number == 12);
        if (isMeant && cell != butNot && !lights.contains(cell))
            lights.insert(cell, lightOf(device, number));
    }
    return lights;
}

/** Keys that make a good Switch: one of the band and a pad. */
QMap<QString, QList<Cell>> switchKeys()
{
    return {{"AKAI APC Mini", {{3, 11}, {5, 5}}},          {"Novation Launchpad", {{0, 9}, {9, 2}}},
            {"Novation Launchpad S", {{0, 9}, {2, 9}}},    {"Novation Launchpad Mini", {{0, 9}, {9, 9}}},
            {"Novation Launchpad MKII", {{0, 9}, {4, 7}}}, {"Novation Launchpad Mini MK3", {{5, 11}, {2, 3}}},
            {"Novation Launchpad PRO", {{2, 0}, {3, 3}}}};
}

void addDevices()
{
    QTest::addColumn<QString>("device");

    for (const QString &device : Devices::Names)
        QTest::newRow(qPrintable(device)) << device;
}

} // namespace

/** Exported mappers on stage: what they do is what the DJ laid out. */
class TestMappingOnStage final : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { Q_INIT_RESOURCE(icons); }
    void cleanupTestCase() { qInfo("%d checks", Findings::checks()); }
    void simple_data() { addDevices(); }
    void simple();
    void wrapped_data() { addDevices(); }
    void wrapped();
    void musicIsAsBefore_data() { addDevices(); }
    void musicIsAsBefore();
    void exportedOverAnExport_data() { addDevices(); }
    void exportedOverAnExport();
    void tellsWhatTheManualTells_data();
    void tellsWhatTheManualTells();
    void switchPressedWhileAKeyIsHeld();
    void controllersShareTheSwitch();
    void userMapper_data();
    void userMapper();
};

void TestMappingOnStage::simple()
{
    QFETCH(const QString, device);
    for (const QString which : {"all", "even", "odd", "one"}) {
        LaidOut laid = {device, lightsOn(device, which, {-1, -1})};
        laid.isSimple = true;
        laid.switchKey = switchKeys().value(device).first(); // which a simple mapper does not know
        const MapperFile mapper = MapperFile::fromXml(exported(laid));
        QVERIFY(mapper.isReadable);
        for (const bool feedback : {true, false}) {
            DmxProgram lights(feedback);
            VirtualDj dj(lights);
            Hardware hardware(dj, mapper);
            Findings findings;
            playTheLights(laid, hardware, dj, lights, findings);
            QVERIFY2(findings.areNone(), findings.first());
        }
    }
}

void TestMappingOnStage::wrapped()
{
    QFETCH(const QString, device);
    for (const Cell &switchKey : switchKeys().value(device)) {
        for (const QString which : {"all", "even", "odd", "one"}) {
            const LaidOut laid = {device, lightsOn(device, which, switchKey), switchKey};
            const MapperFile mapper = MapperFile::fromXml(exported(laid));
            QVERIFY(mapper.isReadable);
            for (const bool feedback : {true, false}) {
                DmxProgram lights(feedback);
                VirtualDj dj(lights);
                Hardware hardware(dj, mapper);
                Findings findings;
                pressSwitch(laid, true, hardware, dj, findings);
                playTheLights(laid, hardware, dj, lights, findings);
                pressSwitch(laid, false, hardware, dj, findings);
                QVERIFY2(findings.areNone(), findings.first());
            }
        }
    }
}

void TestMappingOnStage::musicIsAsBefore()
{
    QFETCH(const QString, device);
    for (const Cell &switchKey : switchKeys().value(device)) {
        const Control key = keyAt(device, switchKey);
        for (const QString which : {"all", "even"}) {
            const LaidOut laid = {device, lightsOn(device, which, switchKey), switchKey};
            Findings findings;
            playTheMusic(laid, MapperFile::fromXml(exported(laid)), {key.name, key.led}, findings);
            QVERIFY2(findings.areNone(), findings.first());
        }
    }
}

/** What comes through another export: all but the old Switch's function, and LED scripts that have no else. */
void TestMappingOnStage::exportedOverAnExport()
{
    QFETCH(const QString, device);

    const QTemporaryDir folder;
    const QString path = folder.filePath("first.xml");
    const Cell oldSwitch = switchKeys().value(device).first();
    const Cell newSwitch = switchKeys().value(device).last();
    const LaidOut first = {device, lightsOn(device, "all", oldSwitch), oldSwitch};
    QVERIFY(writeFile(path, exported(first)));
    LaidOut second = {device, lightsOn(device, "odd", newSwitch), newSwitch};
    second.lights.remove(oldSwitch);
    const MapperFile mapper = MapperFile::fromXml(exported(second, path));
    QVERIFY(mapper.isReadable);

    DmxProgram lights(true);
    VirtualDj dj(lights);
    Hardware hardware(dj, mapper);
    Findings findings;
    pressSwitch(second, true, hardware, dj, findings);
    playTheLights(second, hardware, dj, lights, findings);
    pressSwitch(second, false, hardware, dj, findings);

    const Control lost = keyAt(device, oldSwitch);
    const Control changed = keyAt(device, newSwitch);
    QSet<QString> butNot = {lost.name, lost.led, changed.name, changed.led};
    if (device == "AKAI APC Mini") {
        for (const QString led :
             {"LED_VOLUME", "LED_PAN", "LED_SEND"}) // scripts of their keys, without an else
            butNot += led;
    }
    playTheMusic(second, mapper, butNot, findings);
    QVERIFY2(findings.areNone(), findings.first());

    dj.setVariable("$os2l", 0);
    hardware.tap(lost.name);
    QCOMPARE(dj.takeHappened(), QStringList());
}

void TestMappingOnStage::tellsWhatTheManualTells_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<bool>("isReadable");
    QTest::addColumn<bool>("fires");
    QTest::addColumn<bool>("keepsItsOwn");
    QTest::addColumn<bool>("keepsItOverAnExport");

    const auto row = [](const char *name, const char *button, bool isReadable, bool fires, bool keepsItsOwn,
                        bool keepsItOverAnExport) {
        QTest::newRow(name) << QString::fromUtf8(button) << isReadable << fires << keepsItsOwn
                            << keepsItOverAnExport;
    };
    row("plain", "Strobe", true, true, true, true);
    row("comma, semicolon, backslash", "A, B; C\\D", true, true, true, true);
    row("colon", "Fast : Red", true, true, true, false);
    row("question mark", "Fast ? Red", true, true, true, false);
    row("letters of all kinds", "Nebelstoß Été 霧", true, true, true, true);
    row("apostrophe", "It's hot", true, false, false, true);
    row("double quote", "The \"big\" one", false, false, false, false);
    row("ampersand", "Drum & Bass", false, false, false, false);
    row("bracket", "<3", false, false, false, false);
    row("backtick, hash, percent", "50% #1 `x`", true, true, true, true);
}

/** Names of Live Buttons that exports spoil. */
void TestMappingOnStage::tellsWhatTheManualTells()
{
    QFETCH(const QString, button);
    QFETCH(const bool, isReadable);

    LaidOut laid = {"Novation Launchpad MKII", {{{2, 2}, {button, "#FF0000", "", "", false}}}, {0, 9}};
    const MapperFile mapper = MapperFile::fromXml(exported(laid));
    QCOMPARE(mapper.isReadable, isReadable);
    DmxProgram lights(false);
    VirtualDj dj(lights);
    Hardware hardware(dj, mapper);
    hardware.tap("PAD_1_1");
    QTEST(dj.takeHappened() == QStringList{"sample 1 starts"}, "keepsItsOwn");
    dj.setFact("playing sample 1", 0);
    dj.setVariable("$os2l", 1);
    hardware.tap("PAD_1_1");
    QTEST(lights.takeReceived() == QStringList({button + " on", button + " off"}), "fires");

    const QTemporaryDir folder;
    QVERIFY(writeFile(folder.filePath("first.xml"), exported(laid)));
    laid.lights = {{{9, 9}, {"Fog", "#FF0000", "", "", false}}};
    Hardware next(dj, MapperFile::fromXml(exported(laid, folder.filePath("first.xml"))));
    dj.setVariable("$os2l", 0);
    next.tap("PAD_1_1");
    QTEST(dj.takeHappened() == QStringList{"sample 1 starts"}, "keepsItOverAnExport");
}

/** Without feedback the light then stays on: its "off" never goes out. */
void TestMappingOnStage::switchPressedWhileAKeyIsHeld()
{
    const LaidOut laid = {
        "Novation Launchpad MKII", {{{2, 2}, {"Strobe", "#FF0000", "", "", false}}}, {0, 9}};
    DmxProgram lights(false);
    VirtualDj dj(lights);
    Hardware hardware(dj, MapperFile::fromXml(exported(laid)));
    hardware.tap("BUT_HOR_8");
    hardware.press("PAD_1_1");
    hardware.tap("BUT_HOR_8");
    hardware.release("PAD_1_1");
    QCOMPARE(lights.takeReceived(), QStringList{"Strobe on"});
    QVERIFY(lights.isOn("Strobe"));
}

void TestMappingOnStage::controllersShareTheSwitch()
{
    const LaidOut akai = {"AKAI APC Mini", {{{2, 2}, {"Strobe", "#FF0000", "", "", false}}}, {3, 11}};
    const LaidOut mk2 = {"Novation Launchpad MKII", {{{2, 2}, {"Fog", "#FF0000", "", "", false}}}, {0, 9}};
    DmxProgram lights(true);
    VirtualDj dj(lights);
    Hardware first(dj, MapperFile::fromXml(exported(akai)));
    Hardware second(dj, MapperFile::fromXml(exported(mk2)));
    first.tap("SOLO");
    second.tap("PAD_1_1");
    QCOMPARE(lights.takeReceived(), QStringList{"Fog on"});
    second.tap("BUT_HOR_8");
    first.tap("ROW1_PAD1");
    QCOMPARE(lights.takeReceived(), QStringList());
}

void TestMappingOnStage::userMapper_data()
{
    QTest::addColumn<QByteArray>("rows");
    QTest::addColumn<bool>("isReadable");
    QTest::addColumn<QString>("happened");
    QTest::addColumn<QString>("led");

    const auto row = [](const char *name, const char *rows, bool isReadable, const char *happened,
                        const char *led) {
        QTest::newRow(name) << QByteArray(rows) << isReadable << happened << led;
    };
    row("key and LED",
        "<map value='PAD_1_1' action='hot_cue 1'/><map value='LED_PAD_1_1' action='has_cue 1 ? on : off'/>",
        true, "left deck: hot cue set: 1", "on");
    row("pad without a LED row", "<map value='PAD_1_1' action='hot_cue 1'/>", true,
        "left deck: hot cue set: 1", "error: empty branch");
    row("LED row without a key", "<map value='LED_PAD_1_1' action='has_cue 1 ? on : off'/>", true, "",
        "dark");
    row("chain", "<map value='PAD_1_1' action='hot_cue 1 &amp; sync'/>", true,
        "left deck: hot cue set: 1 | left deck: syncs", "error: empty branch");
    row("ampersand without blanks", "<map value='PAD_1_1' action='hot_cue 1&amp;sync'/>", false, "", "dark");
    row("two ampersands", "<map value='PAD_1_1' action='loaded &amp;&amp; sync'/>", false, "", "dark");
    row("bracket", "<map value='PAD_1_1' action='get_text \"a&lt;b\"'/>", false, "", "dark");
    row("rows of other names",
        "<map value='SHIFT_PAD_1_1' action='sync'/><map value='ONINIT' action='sync'/>", true, "", "dark");
}

/** A mapper of the user's own, under an export. */
void TestMappingOnStage::userMapper()
{
    QFETCH(const QByteArray, rows);
    QFETCH(const bool, isReadable);

    const QTemporaryDir folder;
    QVERIFY(writeFile(folder.filePath("mine.xml"), "<mapper device='LAUNCHPAD2'>" + rows + "</mapper>"));
    const LaidOut laid = {
        "Novation Launchpad MKII", {{{9, 9}, {"Strobe", "#FF0000", "", "", false}}}, {0, 9}};
    const MapperFile mapper = MapperFile::fromXml(exported(laid, folder.filePath("mine.xml")));
    QCOMPARE(mapper.isReadable, isReadable);
    QVERIFY(!mapper.scripts.contains("SHIFT_PAD_1_1") && !mapper.scripts.contains("ONINIT"));
    DmxProgram lights(true);
    VirtualDj dj(lights);
    Hardware hardware(dj, mapper);
    hardware.tap("PAD_1_1");
    QTEST(dj.takeHappened().join(" | "), "happened");
    QTEST(hardware.led("LED_PAD_1_1"), "led");
}

QTEST_GUILESS_MAIN(TestMappingOnStage)
#include "test_mappingonstage.moc"

#include "stage/playing.h"
#include "support/boxes.h"
#include "support/devices.h"
#include "support/files.h"
#include "support/workspace.h"

#include <QComboBox>

using namespace Stage;

namespace {

const QByteArray Ini = "[page]\nnumber=1\n[page1]\nname=One\nnb_buttons=4\n"
                       "[page1_button1]\ntitle=Strobe\ncolor=16711680\n"
                       "[page1_button2]\ntitle=Fog\ncolor=32768\n"
                       "[page1_button3]\ntitle=Fast : Red\ncolor=255\n"
                       "[page1_button4]\ntitle=Blackout\ncolor=0\n";

const QStringList Names = {"Strobe", "Fog", "Fast : Red", "Blackout"};
const QStringList Colors = {"#ff0000", "#008000", "#0000ff", "#000000"};

constexpr int Simple = 0;
constexpr int Factory = 1;
constexpr int Users = 2;

/** A window in MIDI Mapping mode with a show and a device. */
bool open(Workspace &space, int device, int mapper)
{
    return space.load(space.writeShow("Show", Ini)) && space.click("radio_outputmidi")
           && space.choose("devicescombo", device) && space.choose("mididevices", mapper);
}

/** Drags a Live Button, by its row, onto a key; and what is expected of the key by that. */
bool put(Workspace &space, LaidOut &laid, int button, const Cell &cell)
{
    laid.lights.insert(cell, {Names.at(button), Colors.at(button), {}, {}, false});
    return space.putOnKey(button, cell.first, cell.second);
}

bool setSwitch(Workspace &space, LaidOut &laid, const Cell &cell)
{
    laid.switchKey = cell;
    return space.pickOnKey(cell.first, cell.second, {"Set as Switch"});
}

/** Presses "Export", and reads what lies in VirtualDJ's folder then. */
MapperFile exported(Workspace &space, const QString &device, const QString &name)
{
    space.dialogs.expect(Boxes::mappingCreated(name, device));
    if (!space.type("padsname", name) || !space.click("pushButton_2") || !space.dialogs.faults().isEmpty())
        return {};
    return MapperFile::fromXml(bytesOf(space.mappersFolder() + "/" + device + " - " + name + " mapping.xml"));
}

/** Plays all keys for the lights, between two presses of the Switch where there is one. */
QByteArray faultOf(const LaidOut &laid, const MapperFile &mapper)
{
    Findings findings;
    for (const bool feedback : {true, false}) {
        DmxProgram lights(feedback);
        VirtualDj dj(lights);
        Hardware hardware(dj, mapper);
        if (!laid.isSimple)
            pressSwitch(laid, true, hardware, dj, findings);
        playTheLights(laid, hardware, dj, lights, findings);
        if (!laid.isSimple)
            pressSwitch(laid, false, hardware, dj, findings);
    }
    if (!laid.isSimple) {
        const Control key = keyAt(laid.device, laid.switchKey);
        playTheMusic(laid, mapper, {key.name, key.led}, findings);
    }
    return findings.first();
}

} // namespace

/** The window's own exports on stage: from the drag to the light. */
class TestWindowOnStage final : public QObject
{
    Q_OBJECT

private slots:
    void paletteWithSwitch();
    void anyColourSimple();
    void overAnExport();
    void padsPage();
};

void TestWindowOnStage::paletteWithSwitch()
{
    Workspace space;
    LaidOut laid = {Devices::Names.at(Devices::Akai), {}};
    QVERIFY(open(space, Devices::Akai, Factory));
    QVERIFY(put(space, laid, 0, {2, 2}) && put(space, laid, 1, {2, 3}) && put(space, laid, 2, {11, 2}));
    QVERIFY(space.pickOnKey(2, 2, {"On Color", " red"}) && space.pickOnKey(2, 2, {"Off Color", " black"}));
    QVERIFY(space.pickOnKey(2, 3, {"Blink"}));
    laid.lights[{2, 2}].on = "red";
    laid.lights[{2, 2}].off = "black";
    laid.lights[{2, 3}].blinks = true;
    QVERIFY(setSwitch(space, laid, {3, 11}));

    const MapperFile mapper = exported(space, laid.device, "Evening");
    QVERIFY2(mapper.isReadable, qPrintable(space.dialogs.faults()));
    QCOMPARE(faultOf(laid, mapper), QByteArray());
}

void TestWindowOnStage::anyColourSimple()
{
    Workspace space;
    LaidOut laid = {Devices::Names.at(Devices::Mk2), {}};
    laid.isSimple = true;
    QVERIFY(open(space, Devices::Mk2, Simple));
    QVERIFY(put(space, laid, 0, {5, 5}) && put(space, laid, 3, {9, 9}) && put(space, laid, 1, {0, 2}));
    QVERIFY(space.pickOnKey(5, 5, {"Blink"}));
    laid.lights[{5, 5}].blinks = true;

    const MapperFile mapper = exported(space, laid.device, "Evening");
    QVERIFY2(mapper.isReadable, qPrintable(space.dialogs.faults()));
    QCOMPARE(faultOf(laid, mapper), QByteArray());
    // A black Live Button is dark on and off.
    QCOMPARE(lit(laid, keyAt(laid.device, {9, 9})), QString("dark"));
}

/** The window offers its own export from the next start on; with the same Switch nothing is lost. */
void TestWindowOnStage::overAnExport()
{
    Workspace space;
    LaidOut laid = {Devices::Names.at(Devices::Mk2), {}};
    QVERIFY(open(space, Devices::Mk2, Factory));
    QVERIFY(put(space, laid, 0, {5, 5}) && setSwitch(space, laid, {0, 9}));
    QVERIFY(exported(space, laid.device, "First").isReadable);

    space.restart();
    laid.lights.clear();
    QVERIFY(open(space, Devices::Mk2, Users));
    QVERIFY(space.find<QComboBox>("mididevices")->currentText().endsWith("First mapping"));
    QVERIFY(put(space, laid, 1, {5, 6}) && put(space, laid, 2, {9, 11}));
    QVERIFY(setSwitch(space, laid, {0, 9}));
    const MapperFile mapper = exported(space, laid.device, "Second");
    QVERIFY2(mapper.isReadable, qPrintable(space.dialogs.faults()));
    QCOMPARE(faultOf(laid, mapper), QByteArray());
}

void TestWindowOnStage::padsPage()
{
    Workspace space;
    QVERIFY(space.load(space.writeShow("Show", Ini)));
    QVERIFY(space.putOnPad(0, 0) && space.putOnPad(2, 7) && space.putOnPad(1, 3 * 8 + 1));
    space.dialogs.expect(Boxes::pageCreated("OS2L DMX"));
    QVERIFY(space.click("pushButton_2"));
    const PadsPageFile page = PadsPageFile::fromXml(bytesOf(space.padsFolder() + "/OS2L DMX.xml"));
    QVERIFY(page.isReadable);

    DmxProgram lights(true);
    VirtualDj dj(lights);
    const auto played = [&] {
        QStringList all = {dj.attribute(page.parameter.name)};
        for (const int pad : {1, 2, 8}) {
            all +=
                dj.attribute(page.pads.value(pad).name) + " " + dj.ask(page.pads.value(pad).color).inWords();
            dj.perform(page.pads.value(pad).action, {Gesture::Press});
        }
        return all + lights.takeReceived();
    };
    QCOMPARE(played(), QStringList({"BANK 1", "Strobe #ff0000", " transparent", "Fast : Red #0000ff",
                                    "Strobe on", "Fast : Red on"}));
    dj.perform(page.parameter.action, {Gesture::Turn, 1});
    QCOMPARE(played(), QStringList({"BANK 4", " transparent", "Fog #008000", " transparent", "Fog on"}));
    QCOMPARE(dj.takeFaults(), QStringList());
}

QTEST_MAIN(TestWindowOnStage)
#include "test_windowonstage.moc"

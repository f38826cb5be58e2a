#include "stage/playing.h"

namespace Stage {

namespace {

/** What the music may be up to: "mode" and "facts" of VirtualDj. */
void setTheMusic(VirtualDj &dj, int scene)
{
    dj.setVariable("$padmode", scene > 0 ? 1 : 0);
    const QStringList facts = scene == 0 ? QStringList{"sample 3", "playing sample 3", "sample 20", "bank"}
                              : scene == 1
                                  ? QStringList{"left loaded", "left playing", "left cue 2", "right effect 2"}
                                  : QStringList{"left loaded", "right loaded", "right cue 5", "right loop",
                                                "left synced", "right pfl",    "quantize_all"};
    for (const QString &fact : facts)
        dj.setFact(fact, 1);
}

constexpr int MusicScenes = 3;

QStringList told(const QMap<QString, double> &values)
{
    QStringList all;
    for (auto each = values.cbegin(); each != values.cend(); ++each)
        all += each.key() + "=" + QString::number(each.value());
    return all;
}

/** All that a gesture led to in the music. */
QStringList takeMusic(VirtualDj &dj)
{
    return dj.takeHappened() + dj.takeFaults() + told(dj.facts());
}

/** What the mapper that the program brings shows on a key's LED: by its row, else by what the key itself answers. */
QString factoryLed(const MapperFile &factory, const Control &key, VirtualDj &dj)
{
    return dj.ledOf(factory.scripts.contains(key.led) ? factory.scripts.value(key.led)
                                                      : factory.scripts.value(key.name));
}

/** Plays one key that has a Live Button: it fires that and nothing else, and its LED shows it. */
void playLight(const LaidOut &laid, const Control &key, Hardware &hardware, DmxProgram &lights,
               Findings &findings)
{
    const QString button = laid.lights.value({key.row, key.column}).button;
    const bool isTold = lights.givesFeedback();
    findings.compare(key.name + ", resting", hardware.led(key.led), resting(laid, key));
    hardware.press(key.name);
    findings.compare(key.name + ", pressed", lights.takeReceived(), {button + " on"});
    if (isTold)
        findings.compare(key.name + ", on", hardware.led(key.led), lit(laid, key));
    hardware.release(key.name);
    findings.compare(key.name + ", let go", lights.takeReceived(),
                     isTold ? QStringList() : QStringList{button + " off"});
    findings.compare(key.name + ", after", hardware.led(key.led),
                     isTold ? lit(laid, key) : resting(laid, key));
    if (!isTold)
        return;
    hardware.tap(key.name);
    findings.compare(key.name + ", pressed again", lights.takeReceived(), {button + " off"});
    findings.compare(key.name + ", off", hardware.led(key.led), resting(laid, key));
}

} // namespace

int Findings::s_checks = 0;

void Findings::compare(const QString &what, const QString &actual, const QString &expected)
{
    ++s_checks;
    if (actual != expected)
        m_faults += what + ": " + actual + " instead of " + expected;
}

void Findings::compare(const QString &what, const QStringList &actual, const QStringList &expected)
{
    compare(what, actual.join(" | "), expected.join(" | "));
}

bool isKey(const Control &control)
{
    return !control.led.isEmpty();
}

void playTheMusic(const LaidOut &laid, const MapperFile &mapper, const QSet<QString> &butNot,
                  Findings &findings)
{
    const MapperFile factory = factoryMapperOf(laid.device);
    for (int scene = 0; scene < MusicScenes; ++scene) {
        for (const Control &control : controlsOf(laid.device)) {
            if (butNot.contains(control.name))
                continue;
            DmxProgram lights(true);
            VirtualDj dj(lights);
            VirtualDj alone(lights);
            for (VirtualDj *each : {&dj, &alone})
                setTheMusic(*each, scene);
            Hardware hardware(dj, mapper);
            Hardware without(alone, factory);
            const QString label = QString("%1, scene %2").arg(control.name).arg(scene);
            if (isKey(control) && !butNot.contains(control.led))
                findings.compare(label + ", LED", hardware.led(control.led),
                                 factoryLed(factory, control, alone));
            for (Hardware *each : {&hardware, &without}) {
                each->move(control.name, 0.25);
                each->tap(control.name);
            }
            findings.compare(label, takeMusic(dj), takeMusic(alone));
            findings.compare(label + ", variables", told(dj.variables()), told(alone.variables()));
            findings.compare(label + ", lights", lights.takeReceived(), {});
        }
    }
}

void playTheLights(const LaidOut &laid, Hardware &hardware, VirtualDj &dj, DmxProgram &lights,
                   Findings &findings)
{
    const MapperFile factory = factoryMapperOf(laid.device);
    for (const Control &control : controlsOf(laid.device)) {
        const Cell cell = {control.row, control.column};
        if (isKey(control) && laid.lights.contains(cell)) {
            playLight(laid, control, hardware, lights, findings);
        } else if (isKey(control) && (laid.isSimple || cell != laid.switchKey)) {
            hardware.tap(control.name);
            findings.compare(control.name + ", LED", hardware.led(control.led), "dark");
        } else if (control.kind == "slider") {
            hardware.move(control.name, 0.75);
            findings.compare(control.name, lights.takeReceived(),
                             {QString("command %1 at 75%").arg(control.column + 1)});
        } else if (control.kind == "empty") {
            hardware.tap(control.name);
            hardware.move(control.name, 0.75);
        } else if (control.kind == "ignore") {
            findings.compare(control.name, hardware.scriptOf(control.name),
                             factory.scripts.value(control.name));
        }
        findings.compare(control.name + ", else", lights.takeReceived() + dj.takeHappened() + dj.takeFaults(),
                         {});
    }
}

Control keyAt(const QString &device, const Cell &cell)
{
    for (const Control &control : controlsOf(device)) {
        if (isKey(control) && Cell(control.row, control.column) == cell)
            return control;
    }
    return {};
}

void pressSwitch(const LaidOut &laid, bool toLights, Hardware &hardware, VirtualDj &dj, Findings &findings)
{
    const Control key = keyAt(laid.device, laid.switchKey);
    hardware.tap(key.name);
    findings.compare("Switch", QString::number(dj.variable("$os2l")), toLights ? "1" : "0");
    findings.compare("LED of the Switch", hardware.led(key.led),
                     toLights ? litSwitch(laid, key) : restingSwitch(laid, key));
}

} // namespace Stage

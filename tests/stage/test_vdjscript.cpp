#include "stage/virtualdj.h"

#include <QtTest>

using namespace Stage;

namespace {

/** Sets variables of the left deck, or of all decks, and facts: "$page=2, bank=1, left loaded". */
void prepare(VirtualDj &dj, const QString &given)
{
    for (const QString &each : given.split(", ", Qt::SkipEmptyParts)) {
        if (each.contains('='))
            dj.setVariable(each.section('=', 0, 0), each.section('=', 1).toDouble());
        else
            dj.setFact(each, 1);
    }
}

/** What came of gestures: of the music, of the lights, faults, and variables that are not 0. */
QStringList outcome(VirtualDj &dj, DmxProgram &lights)
{
    QStringList all = dj.takeHappened() + lights.takeReceived() + dj.takeFaults();
    const QMap<QString, double> variables = dj.variables();
    for (auto each = variables.cbegin(); each != variables.cend(); ++each)
        all += each.key() + "=" + QString::number(each.value());
    return all;
}

} // namespace

/** The rules of VirtualDJ's script language, as far as exports and factory mappers use it. */
class TestVdjScript final : public QObject
{
    Q_OBJECT

private slots:
    void answers_data();
    void answers();
    void acts_data();
    void acts();
    void drivesTheLights_data();
    void drivesTheLights();
    void showsOnLeds_data();
    void showsOnLeds();
    void fillsAttributes_data();
    void fillsAttributes();
};

void TestVdjScript::answers_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("given");
    QTest::addColumn<QString>("answer");

    const auto row = [](const char *name, const char *script, const char *given, const char *answer) {
        QTest::newRow(name) << script << given << answer;
    };
    row("yes", "var 'a' ? on : off", "a=1", "on");
    row("no", "var 'a' ? on : off", "", "off");
    row("no else", "var 'a' ? on", "", "none");
    row("inner question, both", "var 'a' ? var 'b' ? color c : color d : color e", "a=1, b=1", "c");
    row("inner question, first", "var 'a' ? var 'b' ? color c : color d : color e", "a=1", "d");
    row("inner question, none", "var 'a' ? var 'b' ? color c : color d : color e", "b=1", "e");
    row("the inner question has the else", "var 'a' ? var 'b' ? color c : color d", "", "none");
    row("ladder, first", "var 'a' ? color b : var 'c' ? color d : color e", "a=1, c=1", "b");
    row("ladder, second", "var 'a' ? color b : var 'c' ? color d : color e", "c=1", "d");
    row("ladder, last", "var 'a' ? color b : var 'c' ? color d : color e", "", "e");
    row("empty branch", "var 'a' ? on : ", "", "error: empty branch");
    row("empty branch that is not reached", "var 'a' ? on : ", "a=1", "on");
    row("empty branch within", "var 'a' ? var 'b' ?  : off : on", "a=1, b=1", "error: empty branch");
    row("first of a chain", "color red & color blue", "", "red");
    row("first of a chain with a question", "off & var 'a' ? on : off", "a=1", "off");
    row("quotes around one word", "color 'red'", "", "red");
    row("double quotes", "color \"red\"", "", "red");
    row("no quotes", "color red", "", "red");
    row("marks in quotes", "get_text 'a ? b : c & d'", "", "a ? b : c & d");
    row("open quote takes in the rest", "var 'a' ? get_text 'b : color red", "a=1", "b : color red");
    row("apostrophe in a text", "var 'a' ? get_text 'It's' : color red", "", "none");
    row("remark", "on // : off", "", "on");
    row("number", "color '#FF8000'", "", "#ff8000");
    row("part of the brightness", "color 40% '#FF8000'", "", "40% #ff8000");
    row("variable is a number", "var 'a' 2 ? on : off", "a=2", "on");
    row("variable is another number", "var 'a' 2 ? on : off", "a=1", "off");
    row("variable of all decks", "deck right var '$a' ? on : off", "$a=1", "on");
    row("variable of the other deck", "deck right var 'a' ? on : off", "a=1", "off");
    row("deck holds for the branches", "deck right loaded ? has_cue 1 ? on : off : off",
        "right loaded, right cue 1", "on");
    row("deck within a branch", "deck right loaded ? deck left has_cue 1 ? on : off : off",
        "right loaded, right cue 1", "off");
    row("a setting is not true", "level ? on : off", "left level", "off");
    row("a setting above a bound", "param_bigger 20% level ? on : off", "left level", "on");
    row("a setting below a bound", "param_bigger 20% level ? on : off", "", "off");
    row("nothing", "nothing", "", "none");
    row("nothing as a condition", "nothing ? on : off", "", "off");
    row("constant", "constant 75%", "", "level 0.75");
    row("constant of a colour", "get_constant 'red'", "", "unknown: constant red");
    row("what is not known stays so", "beat_tap ? on : off", "", "unknown: beat_tap");
    row("any effect", "effects_used ? on : off", "master effect", "on");
    row("effect of the deck", "deck left effects_used 'deck' ? on : off", "master effect, right effect 1",
        "off");
}

void TestVdjScript::answers()
{
    QFETCH(const QString, script);
    QFETCH(const QString, given);

    DmxProgram lights(true);
    VirtualDj dj(lights);
    prepare(dj, given);
    QTEST(dj.ask(script).inWords(), "answer");
    // A question changes nothing.
    QCOMPARE(lights.takeReceived() + dj.takeHappened(), QStringList());
}

void TestVdjScript::acts_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("given");
    QTest::addColumn<QString>("gestures");
    QTest::addColumn<QString>("outcome");

    const auto row = [](const char *name, const char *script, const char *given, const char *gestures,
                        const char *outcome) {
        QTest::newRow(name) << script << given << gestures << outcome;
    };
    row("at the press", "hot_cue 1", "", "press release", "left deck: hot cue set: 1");
    row("deck", "deck right hot_cue 1", "", "press", "right deck: hot cue set: 1");
    row("chain", "set 'a' 1 & set '$b' 2", "", "press release", "$b=2 | left a=1");
    row("two ampersands guard nothing", "var 'b' && set 'a' 1", "", "press", "left deck: var b | left a=1");
    row("branch keeps its chain, yes", "var 'a' ? hot_cue 1 : hot_cue 2 & hot_cue 3", "a=1", "press",
        "left deck: hot cue set: 1 | left a=1");
    row("branch keeps its chain, no", "var 'a' ? hot_cue 1 : hot_cue 2 & hot_cue 3", "", "press",
        "left deck: hot cue set: 2 | left deck: hot cue set: 3");
    row("common work first", "hot_cue 3 & var 'a' ? hot_cue 1 : hot_cue 2", "", "press",
        "left deck: hot cue set: 3 | left deck: hot cue set: 2");
    row("no else", "var 'a' ? hot_cue 1", "", "press", "");
    row("empty branch", "var 'a' ? hot_cue 1 : ", "", "press", "error: empty branch");
    row("nothing", "nothing", "", "press release", "");
    row("no script", "", "", "press release", "");
    row("toggle", "toggle '$a'", "", "press release", "$a=1");
    row("toggle back", "toggle '$a'", "$a=1", "press", "");
    row("cycle", "cycle 'a' 3", "a=1", "press", "left a=2");
    row("cycle round", "cycle 'a' 3", "a=2", "press", "");
    row("cycle back", "cycle 'a' -3", "a=2", "press", "left a=1");
    row("cycle back and round", "cycle 'a' -3", "", "press", "left a=2");
    row("cycle of one", "cycle 'a' 1", "", "press", "");
    row("encoder on", "param_bigger 0 ? set 'a' 1 : set 'a' 2", "", "forward", "left a=1");
    row("encoder back", "param_bigger 0 ? set 'a' 1 : set 'a' 2", "", "back", "left a=2");
    row("while pressed", "dump while_pressed", "", "press release",
        "left deck: censors | left deck: ends censoring");
    row("down and up", "down ? set 'a' 1 : set 'b' 1", "", "press", "left a=1");
    row("down and up, let go", "down ? set 'a' 1 : set 'b' 1", "a=1", "release", "left a=1 | left b=1");
    row("a branch of down that says nothing", "var 'c' ? nothing : down ? set 'a' 1 : set 'b' 1", "c=1",
        "press release", "left c=1");
    row("fader", "deck right level", "", "move", "right level 25%");
    row("not known as a condition", "beat_tap ? hot_cue 1 : hot_cue 2", "", "press",
        "left deck: hot cue set: 2 | unknown: beat_tap");
}

void TestVdjScript::acts()
{
    QFETCH(const QString, script);
    QFETCH(const QString, given);
    QFETCH(const QString, gestures);

    const QMap<QString, Gesture> known = {{"press", {Gesture::Press, 1}},
                                          {"release", {Gesture::Release, 0}},
                                          {"forward", {Gesture::Turn, 1}},
                                          {"back", {Gesture::Turn, -1}},
                                          {"move", {Gesture::Move, 0.25}}};
    DmxProgram lights(true);
    VirtualDj dj(lights);
    prepare(dj, given);
    for (const QString &gesture : gestures.split(' '))
        dj.perform(script, known.value(gesture));
    QTEST(outcome(dj, lights).join(" | "), "outcome");
}

void TestVdjScript::drivesTheLights_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<bool>("feedback");
    QTest::addColumn<QString>("received");

    const auto row = [](const char *name, const char *script, bool feedback, const char *received) {
        QTest::newRow(name) << script << feedback << received;
    };
    // Two presses and releases each.
    row("flash", "os2l_button 'Fog'", false, "Fog on | Fog off | Fog on | Fog off");
    row("flash that stays", "os2l_button 'Fog' on", false, "Fog on | Fog on");
    row("toggle", "os2l_button 'Fog'", true, "Fog on | Fog off");
    row("toggle while held", "os2l_button 'Fog' while_pressed", true, "Fog on | Fog off | Fog on | Fog off");
    row("page and button", "os2l_button 'Show' 'Fog'", true, "Fog on | Fog off");
    row("in a branch", "var '$a' ? nothing : os2l_button 'Fog'", false,
        "Fog on | Fog off | Fog on | Fog off");
    row("in the other branch", "var '$a' ? os2l_button 'Fog' : nothing", false, "");
    row("command", "os2l_cmd 3", true, "command 3 | command 3");
    row("command with a value", "os2l_cmd 3 50%", true, "command 3 at 50% | command 3 at 50%");
    row("more words than are known", "os2l_button 'Rock' n 'Roll'", true, "");
}

void TestVdjScript::drivesTheLights()
{
    QFETCH(const QString, script);
    QFETCH(const bool, feedback);

    DmxProgram lights(feedback);
    VirtualDj dj(lights);
    for (const Gesture::Kind kind : {Gesture::Press, Gesture::Release, Gesture::Press, Gesture::Release})
        dj.perform(script, {kind});
    QTEST(lights.takeReceived().join(" | "), "received");
    QCOMPARE(dj.takeFaults().isEmpty(), !script.contains("Rock"));
}

void TestVdjScript::showsOnLeds_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<bool>("feedback");
    QTest::addColumn<QString>("atRest");
    QTest::addColumn<QString>("pressed");

    const QString steady = "os2l_button 'Fog' ? color 'red' : color 'blue'";
    const QString blinking = "os2l_button 'Fog' ? blink ? color 'red' : color 'blue' : color 'blue'";
    const auto row = [](const char *name, const QString &script, bool feedback, const char *rest,
                        const char *lit) { QTest::newRow(name) << script << feedback << rest << lit; };
    row("with feedback", steady, true, "blue", "red");
    row("without feedback", steady, false, "blue", "blue");
    row("blinks", blinking, true, "blue", "blinks red, blue");
    row("plain", "os2l_button 'Fog' ? on : off", true, "dark", "on");
    row("black", "os2l_button 'Fog' ? color 'black' : off", true, "dark", "dark");
    row("command", "os2l_cmd 1 ? on : off", true, "unknown: os2l_cmd 1", "unknown: os2l_cmd 1");
}

void TestVdjScript::showsOnLeds()
{
    QFETCH(const QString, script);
    QFETCH(const bool, feedback);

    DmxProgram lights(feedback);
    VirtualDj dj(lights);
    QTEST(dj.ledOf(script), "atRest");
    dj.perform("os2l_button 'Fog'", {Gesture::Press});
    QTEST(dj.ledOf(script), "pressed");
}

void TestVdjScript::fillsAttributes_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("filled");

    const auto row = [](const char *name, const char *text, const char *filled) {
        QTest::newRow(name) << text << filled;
    };
    row("text", "Strobe", "Strobe");
    row("question", "`get_text 'Fog'`", "Fog");
    row("text around a question", "Bank `var 'a' ? get_text 'yes' : get_text 'no'` !", "Bank no !");
    row("no value", "`var 'a' ? get_text 'yes'`", "");
    row("backtick within", "`get_text 'a`b'`", "ab'");
}

void TestVdjScript::fillsAttributes()
{
    QFETCH(const QString, text);

    DmxProgram lights(true);
    const VirtualDj dj(lights);
    QTEST(dj.attribute(text), "filled");
}

QTEST_GUILESS_MAIN(TestVdjScript)
#include "test_vdjscript.moc"

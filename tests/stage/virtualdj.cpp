#include "stage/virtualdj.h"

#include <QDomDocument>

#include <utility>

namespace Stage {

namespace {

Answer truth(bool on)
{
    return {Answer::Truth, {}, on ? 1.0 : 0.0};
}

Answer colour(const QString &name)
{
    return {Answer::Colour, name.toLower()};
}

/** A number, a percentage, or one of the words for on and off, which are all one (help texts of the verbs). */
double numberOf(const QString &text)
{
    if (text == "on" || text == "yes" || text == "true")
        return 1;
    if (text.endsWith('%'))
        return text.left(text.size() - 1).toDouble() / 100;
    return text.toDouble();
}

/** A plus or minus makes a change relative (VirtualDJ's wiki on VDJScript). */
bool isRelative(const QString &text)
{
    return text.startsWith('+') || text.startsWith('-');
}

QString percent(double value)
{
    return QString::number(qRound(value * 100)) + "%";
}

/**
 * A prefix to a variable's name is part of it; "$" makes one for all decks, without it each deck has its own (tests
 * of others on VirtualDJ 2026).
 */
QString variableKey(const QString &name, const QString &deck)
{
    return name.contains('$') ? name : deck + " " + name;
}

/** Verbs of which a setting between 0 and 1 is the value. They are false as conditions (tests of others). */
const QStringList Sliders = {"level",
                             "eq_low",
                             "filter",
                             "effect_slider",
                             "song_pos",
                             "master_volume",
                             "sampler_volume",
                             "sampler_volume_nogroup",
                             "sampler_volume_master",
                             "sampler_velocity"};

/** Verbs that belong to the whole of VirtualDJ and not to a deck. */
bool isOfNoDeck(const QString &verb)
{
    return verb.startsWith("sampler_") || verb.startsWith("browser_") || verb == "master_volume"
           || verb == "quantize_all" || verb == "shift";
}

QString sliderFact(const Statement &statement, const QString &deck)
{
    QStringList words = isOfNoDeck(statement.verb) ? QStringList() : QStringList{deck};
    words += statement.verb;
    for (const QString &parameter : statement.parameters) {
        if (!parameter.endsWith('%'))
            words += parameter;
    }
    return words.join(' ');
}

/** A script, read once. */
const Script &parsed(const QString &text)
{
    static QHash<QString, std::shared_ptr<const Script>> known;
    std::shared_ptr<const Script> &script = known[text];
    if (!script)
        script = parseScript(text);
    return *script;
}

} // namespace

QString Answer::inWords() const
{
    switch (kind) {
    case None:
        return "none";
    case Truth:
        return level > 0 ? "on" : "off";
    case Level:
        return "level " + QString::number(level);
    case Colour:
    case Text:
        return text;
    case Unknown:
        return "unknown: " + text;
    case Error:
        return "error: " + text;
    }
    return {};
}

void DmxProgram::receiveButton(const QString &button, bool on)
{
    if (on)
        m_on.insert(button);
    else
        m_on.remove(button);
    m_received += button + (on ? " on" : " off");
}

QStringList DmxProgram::takeReceived()
{
    return std::exchange(m_received, {});
}

PadsPageFile PadsPageFile::fromXml(const QByteArray &xml)
{
    PadsPageFile page;
    QDomDocument document;
    page.isReadable = document.setContent(xml);
    QDomElement element = document.documentElement().firstChildElement();
    for (; !element.isNull(); element = element.nextSiblingElement()) {
        const Pad pad = {element.attribute("name"), element.attribute("color"), element.text()};
        if (element.tagName() == "param1")
            page.parameter = pad;
        else
            page.pads.insert(element.tagName().midRef(3).toInt(), pad);
    }
    return page;
}

MapperFile MapperFile::fromXml(const QByteArray &xml)
{
    MapperFile mapper;
    QDomDocument document;
    mapper.isReadable = document.setContent(xml);
    mapper.device = document.documentElement().attribute("device");
    QDomElement row = document.documentElement().firstChildElement("map");
    for (; !row.isNull(); row = row.nextSiblingElement("map"))
        mapper.scripts.insert(row.attribute("value"), row.attribute("action"));
    return mapper;
}

/** A script that is being run. */
struct VirtualDj::Turn
{
    Gesture gesture;
    /** "down ? a : b" does a at the press and b at the release (help text; nobody has told of a trial). */
    bool isSplit = false;
};

void VirtualDj::perform(const QString &script, const Gesture &gesture, const QString &deck)
{
    if (script.isEmpty())
        return;
    Turn turn = {gesture};
    run(parsed(script), turn, deck);
}

void VirtualDj::run(const Script &script, Turn &turn, const QString &deck)
{
    if (script.isEmpty()) {
        // A colon with nothing behind it is an error where it is reached (tests of others on VirtualDJ 2026).
        m_faults += "error: empty branch";
        return;
    }
    // All of a chain runs, in order (VirtualDJ's wiki); two "&" guard nothing (tests of others).
    for (int i = 0; i < script.chain.size() - (script.then ? 1 : 0); ++i)
        act(script.chain.at(i), turn, deck);
    if (!script.then)
        return;

    const Statement &question = script.chain.last();
    turn.isSplit = turn.isSplit || question.verb == "down";
    // A deck before a question holds for its branches, too (tests of others on VirtualDJ 2026).
    const QString deckOfAll = question.deck.isEmpty() ? deck : question.deck;
    if (isTrue(answerOf(question, &turn.gesture, deckOfAll)))
        run(*script.then, turn, deckOfAll);
    else if (script.otherwise)
        run(*script.otherwise, turn, deckOfAll);
}

void VirtualDj::act(const Statement &statement, const Turn &turn, const QString &deck)
{
    if (statement.verb.isEmpty() || statement.verb == "nothing")
        return;
    const QString own = statement.deck.isEmpty() ? deck : statement.deck;
    if (actOnLights(statement, turn))
        return;
    // What is not split runs at the press (VirtualDJ's wiki); "while_pressed" ends with it. A pad of the deck is
    // pressed and let go like the key: assumed.
    if (turn.gesture.kind == Gesture::Release && !turn.isSplit && !statement.whilePressed
        && statement.verb != "pad")
        return;
    if (!actOnVariable(statement, own))
        actOnMusic(statement, turn, own);
}

bool VirtualDj::actOnVariable(const Statement &statement, const QString &deck)
{
    const QString name = statement.parameters.value(0);
    const double value = variable(name, deck);
    const double number = numberOf(statement.parameters.value(1));
    if (statement.verb == "set") {
        setVariable(name, number, deck);
    } else if (statement.verb == "toggle") {
        setVariable(name, value != 0 ? 0 : 1, deck);
    } else if (statement.verb == "cycle") {
        // 0, 1, ... and round again; a number below 0 goes back (help text of the verb).
        const int count = qMax(1, qAbs(int(number)));
        setVariable(name, (int(value) + (number < 0 ? count - 1 : 1)) % count, deck);
    } else {
        return false;
    }
    return true;
}

bool VirtualDj::actOnLights(const Statement &statement, const Turn &turn)
{
    if (statement.verb == "os2l_button")
        pressButton(statement, turn.gesture);
    else if (statement.verb == "os2l_cmd")
        sendCommand(statement, turn.gesture);
    else
        return false;
    return true;
}

/**
 * The help text of "os2l_button": without feedback it flashes, on at the press and off at the release, and "on" keeps
 * it on. With feedback it sends the opposite of what was told last, and at the release nothing, unless "while_pressed"
 * is there. A page may be named before the button.
 */
void VirtualDj::pressButton(const Statement &statement, const Gesture &gesture)
{
    QStringList names = statement.parameters;
    const bool staysOn = names.size() > 1 && names.last() == "on";
    if (staysOn)
        names.removeLast();
    if (names.isEmpty() || names.size() > 2) {
        m_faults += "unknown: os2l_button with these words: " + names.join(", ");
        return;
    }
    const QString name = names.last();
    const bool isToggle = m_lights.givesFeedback();
    if (gesture.kind == Gesture::Press)
        m_lights.receiveButton(name, isToggle ? !m_lights.isOn(name) : true);
    else if (gesture.kind == Gesture::Release && (isToggle ? statement.whilePressed : !staysOn))
        m_lights.receiveButton(name, isToggle ? !m_lights.isOn(name) : false);
}

/**
 * A number and a value (help text of "os2l_cmd"). That a fader's place is the value is assumed, as with other verbs for
 * faders; what a key without a value sends is told nowhere.
 */
void VirtualDj::sendCommand(const Statement &statement, const Gesture &gesture)
{
    if (gesture.kind == Gesture::Release)
        return;
    const QString value =
        gesture.kind == Gesture::Move ? percent(gesture.value) : statement.parameters.value(1);
    m_lights.receiveCommand("command " + statement.parameters.value(0)
                            + (value.isEmpty() ? QString() : " at " + value));
}

/** What the verbs do by their help texts. A verb that no other one asks for is only noted. */
void VirtualDj::actOnMusic(const Statement &statement, const Turn &turn, const QString &deck)
{
    const bool isDone = actOnCues(statement, deck) || actOnLoops(statement, deck)
                        || actOnEffects(statement, turn, deck) || actOnTransport(statement, deck)
                        || actOnPages(statement, turn, deck) || actOnSampler(statement)
                        || actOnSettings(statement, turn, deck);
    if (!isDone)
        note(isOfNoDeck(statement.verb) ? QString() : deck,
             (QStringList{statement.verb} + statement.parameters).join(' '));
}

bool VirtualDj::actOnCues(const Statement &statement, const QString &deck)
{
    const QString number = statement.parameters.value(0);
    const QString cue = deck + " cue " + number;
    if (statement.verb == "hot_cue") {
        note(deck, (fact(cue) > 0 ? "plays from hot cue " : "hot cue set: ") + number);
        setFact(cue, 1);
    } else if (statement.verb == "delete_cue") {
        note(deck, "hot cue deleted: " + number);
        setFact(cue, 0);
    } else {
        return false;
    }
    return true;
}

bool VirtualDj::actOnLoops(const Statement &statement, const QString &deck)
{
    const QString loop = deck + " loop";
    if (statement.verb == "loop") {
        const QString beats = statement.parameters.value(0);
        const bool isOn = fact(loop) == beats.toDouble();
        note(deck, isOn ? QString("loop ends") : "loop of " + beats);
        setFact(loop, isOn ? 0 : beats.toDouble());
    } else if (statement.verb == "loop_half") {
        note(deck, "loop halved");
        setFact(loop, fact(loop) / 2);
    } else if (statement.verb == "loop_double") {
        note(deck, "loop doubled");
        setFact(loop, fact(loop) * 2);
    } else if (statement.verb == "loop_exit") {
        note(deck, "leaves the loop");
        setFact(loop, 0);
    } else {
        return false;
    }
    return true;
}

bool VirtualDj::actOnEffects(const Statement &statement, const Turn &turn, const QString &deck)
{
    const QString number = statement.parameters.value(0);
    if (statement.verb == "effect_active") {
        toggleFact(deck + " effect " + number);
        note(deck, "effect " + number + (fact(deck + " effect " + number) > 0 ? " on" : " off"));
    } else if (statement.verb == "effect_disable_all") {
        for (const char *slot : {"1", "2", "3"})
            setFact(deck + " effect " + slot, 0);
        note(deck, "all effects off");
    } else if (statement.verb == "dump") {
        const bool isOn = turn.gesture.kind != Gesture::Release;
        setFact(deck + " dump", isOn);
        note(deck, isOn ? "censors" : "ends censoring");
    } else {
        return false;
    }
    return true;
}

bool VirtualDj::actOnTransport(const Statement &statement, const QString &deck)
{
    if (statement.verb == "play_pause") {
        toggleFact(deck + " playing");
        note(deck, fact(deck + " playing") > 0 ? "plays" : "stops");
    } else if (statement.verb == "sync") {
        toggleFact(deck + " synced");
        note(deck, "syncs");
    } else if (statement.verb == "pfl") {
        toggleFact(deck + " pfl");
        note(deck, fact(deck + " pfl") > 0 ? "in the headphones" : "not in the headphones");
    } else if (statement.verb == "load") {
        setFact(deck + " loaded", 1);
        note(deck, "loads");
    } else {
        return false;
    }
    return true;
}

bool VirtualDj::actOnPages(const Statement &statement, const Turn &turn, const QString &deck)
{
    const QString number = statement.parameters.value(0);
    if (statement.verb == "pad") {
        const int page = int(fact(deck + " page"));
        if (m_pages.contains(page))
            perform(m_pages.value(page).pads.value(number.toInt()).action, turn.gesture, deck);
        else if (turn.gesture.kind != Gesture::Release)
            note(deck, QString("pad %1 of page %2").arg(number).arg(page));
    } else if (statement.verb == "pad_page") {
        setFact(deck + " page", number.toInt());
        note(deck, "page " + number);
    } else {
        return false;
    }
    return true;
}

bool VirtualDj::actOnSampler(const Statement &statement)
{
    const QString number = statement.parameters.value(0);
    const QString playing = "playing sample " + number;
    if (statement.verb == "sampler_play_stop") {
        toggleFact(playing);
        note({}, "sample " + number + (fact(playing) > 0 ? " starts" : " stops"));
    } else if (statement.verb == "sampler_stop") {
        for (int sample = 1; sample <= 64; ++sample)
            setFact("playing sample " + QString::number(sample), 0);
        note({}, "all samples stop");
    } else if (statement.verb == "sampler_bank") {
        setFact("bank", isRelative(number) ? fact("bank") + number.toDouble() : number.toDouble());
        note({}, "sample bank " + QString::number(fact("bank")));
    } else {
        return false;
    }
    return true;
}

bool VirtualDj::actOnSettings(const Statement &statement, const Turn &turn, const QString &deck)
{
    if (statement.verb == "browser_window") {
        const QStringList windows = statement.parameters.value(0).split(',');
        const int next = (int(fact("window")) + 1) % int(windows.size());
        setFact("window", next);
        note({}, "browser shows " + windows.at(next));
    } else if (statement.verb == "quantize_all" || statement.verb == "shift") {
        toggleFact(statement.verb);
        note({}, statement.verb + (fact(statement.verb) > 0 ? " on" : " off"));
    } else if (Sliders.contains(statement.verb)) {
        // A fader brings its place along (a factory mapper of VirtualDJ's).
        const QString last = statement.parameters.isEmpty() ? QString() : statement.parameters.last();
        const QString name = sliderFact(statement, deck);
        const double value = turn.gesture.kind == Gesture::Move ? turn.gesture.value : numberOf(last);
        setFact(name, isRelative(last) ? fact(name) + value : value);
        note({}, name + " " + (isRelative(last) ? last : percent(value)));
    } else {
        return false;
    }
    return true;
}

Answer VirtualDj::ask(const QString &script, const QString &deck) const
{
    return script.isEmpty() ? Answer() : answerOf(parsed(script), nullptr, deck);
}

Answer VirtualDj::answerOf(const Script &script, const Gesture *gesture, const QString &deck) const
{
    if (script.isEmpty())
        return {Answer::Error, "empty branch"};
    // Of a chain the first command is the answer (tests of others on VirtualDJ 2026).
    const Statement &first = script.chain.first();
    const QString deckOfAll = first.deck.isEmpty() ? deck : first.deck;
    Answer answer = answerOf(first, gesture, deckOfAll);
    if (!script.then || script.chain.size() > 1 || answer.kind == Answer::Unknown
        || answer.kind == Answer::Error)
        return answer;
    const bool isYes = answer.kind == Answer::Truth && answer.level > 0;
    if (isYes)
        return answerOf(*script.then, gesture, deckOfAll);
    // The else may be left out (mappers of VirtualDJ's makers); there is no value then.
    return script.otherwise ? answerOf(*script.otherwise, gesture, deckOfAll) : Answer();
}

Answer VirtualDj::answerOf(const Statement &statement, const Gesture *gesture, const QString &deck) const
{
    const QString verb = statement.verb;
    const QStringList &words = statement.parameters;
    const QString own = statement.deck.isEmpty() ? deck : statement.deck;
    if (verb == "nothing") // no value as a question (tests of others)
        return {};
    if (verb == "on" || verb == "off")
        return truth(verb == "on");
    if (verb == "var") // not 0, or equal to the number behind (help text of the verb)
        return truth(words.size() < 2 ? variable(words.value(0), own) != 0
                                      : variable(words.value(0), own) == numberOf(words.at(1)));
    if (verb == "blink") // on and off by turns (help text of the verb)
        return truth(isBlinkLit);
    if (verb == "color") // a part of its brightness stands before the name (VirtualDJ's wiki on RGB LEDs)
        return colour(words.join(' '));
    if (verb == "constant" || verb == "get_constant") {
        if (words.value(0).contains(QRegExp("^[0-9.]+%?$")))
            return {Answer::Level, {}, numberOf(words.value(0))};
        return {Answer::Unknown, "constant " + words.value(0)}; // that of a colour is told nowhere
    }
    if (verb == "get_text")
        return {Answer::Text, words.value(0)};
    if (verb == "down")
        return truth(gesture && gesture->kind == Gesture::Press);
    if (verb == "param_bigger") {
        // The bound comes first and the value behind it (a mapper of VirtualDJ's makers); alone it looks at what the
        // control brings, such as the step of an encoder (help text of the verb).
        if (words.size() < 2)
            return truth(gesture && gesture->value > numberOf(words.value(0)));
        const Answer value = answerOf({own, words.at(1), words.mid(2)}, gesture, own);
        return value.kind == Answer::Level ? truth(value.level > numberOf(words.at(0))) : value;
    }
    if (verb.startsWith("os2l_"))
        return answerOfLights(statement);
    return answerOfMusic(statement, own);
}

Answer VirtualDj::answerOfLights(const Statement &statement) const
{
    // That these verbs answer at all is told by VirtualDJ's own list of its verbs. That "os2l_button" is true while the
    // DMX program last told "on" follows from what it does at a press; that it is false without feedback is expected,
    // and whether it is true while the key is held without feedback is not known.
    if (statement.verb == "os2l_button" && statement.parameters.size() == 1)
        return truth(m_lights.givesFeedback() && m_lights.isOn(statement.parameters.first()));
    return {Answer::Unknown, (QStringList{statement.verb} + statement.parameters).join(' ')};
}

/** The same verb is an action on a key and a question on a LED (VirtualDJ's wiki on VDJScript). */
Answer VirtualDj::answerOfMusic(const Statement &statement, const QString &deck) const
{
    // What is so or not; "pioneer_cue" is a LED's ready state (help text), taken here for standing at the cue.
    static const QHash<QString, QString> ofDeck = {{"loaded", "loaded"}, {"play", "playing"},
                                                   {"dump", "dump"},     {"is_sync", "synced"},
                                                   {"pfl", "pfl"},       {"pioneer_cue", "at cue"}};
    static const QHash<QString, QString> numberedOfDeck = {
        {"has_cue", "cue"}, {"hot_cue", "cue"}, {"effect_active", "effect"}};
    static const QHash<QString, QString> ofSampler = {{"sampler_loaded", "sample "},
                                                      {"sampler_play_stop", "playing sample "}};
    const QString verb = statement.verb;
    const QString first = statement.parameters.value(0);
    if (ofDeck.contains(verb))
        return truth(fact(deck + " " + ofDeck.value(verb)) > 0);
    if (numberedOfDeck.contains(verb))
        return truth(fact(deck + " " + numberedOfDeck.value(verb) + " " + first) > 0);
    if (ofSampler.contains(verb))
        return truth(fact(ofSampler.value(verb) + first) > 0);
    if (verb == "quantize_all" || verb == "shift")
        return truth(fact(verb) > 0);
    if (verb == "loop")
        return truth(first.isEmpty() ? fact(deck + " loop") > 0 : fact(deck + " loop") == first.toDouble());
    if (verb == "effects_used")
        return truth(areEffectsUsed(first == "deck" ? deck : QString()));
    if (verb == "pad_page")
        return truth(fact(deck + " page") == first.toDouble());
    if (verb == "sampler_used")
        return truth(isAnySamplePlaying());
    if (verb == "sampler_bank" && !isRelative(first))
        return truth(fact("bank") == first.toDouble());
    if (verb == "browser_window" && !first.contains(','))
        return truth(first == (fact("window") > 0 ? "songs" : "folders"));
    if (verb == "cue_color")
        return colour(deck + " cue " + first);
    if (verb == "get_sample_color")
        return colour("sample " + first);
    if (verb == "pad_button_color")
        return padColour(first, deck);
    if (Sliders.contains(verb)
        && (statement.parameters.isEmpty() || !isRelative(statement.parameters.last())))
        return {Answer::Level, {}, fact(sliderFact(statement, deck))};
    return {Answer::Unknown, (QStringList{verb} + statement.parameters).join(' ')};
}

/** Without a deck all effects count, the master's too; with one, its own (help text of "effects_used"). */
bool VirtualDj::areEffectsUsed(const QString &deck) const
{
    bool isUsed = deck.isEmpty() && fact("master effect") > 0;
    for (const QString &side : deck.isEmpty() ? QStringList{"left", "right"} : QStringList{deck}) {
        for (const char *slot : {"1", "2", "3"})
            isUsed = isUsed || fact(side + " effect " + slot) > 0;
    }
    return isUsed;
}

bool VirtualDj::isAnySamplePlaying() const
{
    const auto first = m_facts.lowerBound("playing sample ");
    return first != m_facts.cend() && first.key().startsWith("playing sample ");
}

/** The ready colour of a pad of the deck's page (help text); how a page's own colour is dimmed is not known. */
Answer VirtualDj::padColour(const QString &pad, const QString &deck) const
{
    const int page = int(fact(deck + " page"));
    if (m_pages.contains(page))
        return ask(m_pages.value(page).pads.value(pad.toInt()).color, deck);
    return colour(QString("%1 pad %2 of page %3").arg(deck, pad).arg(page));
}

QString VirtualDj::ledOf(const QString &script)
{
    QStringList shown;
    for (const bool isLit : {true, false}) {
        isBlinkLit = isLit;
        const QString answer = ask(script).inWords();
        const bool isBlack = answer.endsWith("black") || answer.endsWith("#000000");
        shown += answer == "off" || answer == "none" || isBlack ? "dark" : answer;
    }
    isBlinkLit = true;
    return shown.first() == shown.last() ? shown.first() : "blinks " + shown.join(", ");
}

QString VirtualDj::attribute(const QString &text, const QString &deck) const
{
    // Backticks hold a question in names and colours of pads (help texts of the verbs, pages of VirtualDJ's makers).
    const QStringList parts = text.split('`');
    QString result;
    for (int i = 0; i < parts.size(); ++i) {
        if (i % 2 == 0)
            result += parts.at(i);
        else if (const Answer answer = ask(parts.at(i), deck); answer.kind != Answer::None)
            result += answer.inWords();
    }
    return result;
}

double VirtualDj::variable(const QString &name, const QString &deck) const
{
    return m_variables.value(variableKey(name, deck));
}

void VirtualDj::setVariable(const QString &name, double value, const QString &deck)
{
    m_variables.insert(variableKey(name, deck), value);
}

QMap<QString, double> VirtualDj::variables() const
{
    QMap<QString, double> all = m_variables;
    for (auto each = all.begin(); each != all.end();)
        each = each.value() == 0 ? all.erase(each) : each + 1;
    return all;
}

void VirtualDj::setFact(const QString &name, double value)
{
    if (value == 0)
        m_facts.remove(name);
    else
        m_facts.insert(name, value);
}

QStringList VirtualDj::takeHappened()
{
    return std::exchange(m_happened, {});
}

QStringList VirtualDj::takeFaults()
{
    return std::exchange(m_faults, {});
}

bool VirtualDj::isTrue(const Answer &answer)
{
    if (answer.kind == Answer::Unknown || answer.kind == Answer::Error)
        m_faults += answer.inWords();
    return answer.kind == Answer::Truth && answer.level > 0;
}

void VirtualDj::note(const QString &deck, const QString &what)
{
    m_happened += deck.isEmpty() ? what : deck + " deck: " + what;
}

void VirtualDj::toggleFact(const QString &name)
{
    setFact(name, fact(name) > 0 ? 0 : 1);
}

} // namespace Stage

#pragma once

#include "stage/vdjscript.h"

#include <QHash>
#include <QMap>
#include <QSet>

namespace Stage {

/** What a script answers on a LED, in a condition, or in an attribute of a page. */
struct Answer
{
    enum Kind {
        None,    ///< no value, as of "nothing" or a question without its else
        Truth,   ///< level is 0 or 1
        Level,   ///< 0 to 1; not true in a condition, whatever it is
        Colour,  ///< text is its name or "#rrggbb", with its part of the brightness before it
        Text,    ///< text
        Unknown, ///< what VirtualDJ answers is told nowhere; text tells of what
        Error    ///< text tells the fault
    };
    Kind kind = None;
    QString text = {};
    double level = 0;

    /** In words: "on", "off", "40% #ff0000", "level 0.5", "unknown: ...". */
    QString inWords() const;
};

/** What a DJ does to a control. */
struct Gesture
{
    enum Kind { Press, Release, Move, Turn } kind;
    double value = 0; ///< of a fader, 0 to 1; of an encoder, its step
};

/** The DMX program at the other end of OS2L. */
class DmxProgram final
{
public:
    /** @param givesFeedback  whether it tells VirtualDJ which of its buttons are on */
    explicit DmxProgram(bool givesFeedback) : m_givesFeedback(givesFeedback) {}

    bool givesFeedback() const { return m_givesFeedback; }
    bool isOn(const QString &button) const { return m_on.contains(button); }
    void receiveButton(const QString &button, bool on);
    void receiveCommand(const QString &command) { m_received += command; }
    /** What has come in since the last call: "Strobe on", "command 3 at 50%". */
    QStringList takeReceived();

private:
    bool m_givesFeedback;
    QSet<QString> m_on;
    QStringList m_received;
};

/** A Pads Page as its file holds it, decoded. */
struct PadsPageFile
{
    struct Pad
    {
        QString name;
        QString color;
        QString action;
    };
    QMap<int, Pad> pads; ///< by their numbers from 1
    Pad parameter;       ///< of an encoder; it has no colour
    bool isReadable = false;

    /** @param xml  bytes of the file; what is no XML is not readable, as it is not for VirtualDJ */
    static PadsPageFile fromXml(const QByteArray &xml);
};

/** The rows of a mapper by the names of their keys and LEDs, decoded. */
struct MapperFile
{
    QString device;
    QHash<QString, QString> scripts;
    bool isReadable = false;

    static MapperFile fromXml(const QByteArray &xml);
};

/**
 * VirtualDJ with two decks, its sampler and its OS2L link, as far as exports and factory mappers ask for it.
 *
 * Each rule names its source: VirtualDJ's wiki, the help texts of its verbs, mappers that its makers and others
 * publish, or the tests of others. What none of them tells is answered with Answer::Unknown, or is named as assumed.
 */
class VirtualDj final
{
public:
    explicit VirtualDj(DmxProgram &lights) : m_lights(lights) {}

    /**
     * Runs a script as an action.
     *
     * @param script  empty text: nothing happens
     * @param deck    that the control belongs to, or else the one that is selected
     */
    void perform(const QString &script, const Gesture &gesture, const QString &deck = "left");
    /** Asks a script for its value. Nothing happens by that. */
    Answer ask(const QString &script, const QString &deck = "left") const;
    /** What a LED shows: "dark", a colour, "on", or "blinks A, B" for what takes turns. */
    QString ledOf(const QString &script);
    /** An attribute of a page: what stands in backticks is asked, the rest is text. */
    QString attribute(const QString &text, const QString &deck = "left") const;

    double variable(const QString &name, const QString &deck = "left") const;
    void setVariable(const QString &name, double value, const QString &deck = "left");
    /** All variables that are not 0, for comparing. */
    QMap<QString, double> variables() const;

    /** A fact about decks or sampler: "left loaded", "right cue 3", "sample 12". 0 where it is not so. */
    double fact(const QString &name) const { return m_facts.value(name); }
    void setFact(const QString &name, double value);
    QMap<QString, double> facts() const { return m_facts; }

    /** Puts a page in a place of the dropdown, from 1. */
    void setPadsPage(int place, const PadsPageFile &page) { m_pages.insert(place, page); }

    /** What happened to the music since the last call, such as "left deck: hot cue 1 set". */
    QStringList takeHappened();
    /** What went wrong, or is told nowhere, since the last call. */
    QStringList takeFaults();
    /** Turns of a blinking LED: whether it is at its first half. */
    bool isBlinkLit = true;

private:
    struct Turn; // of a script that is being run

    void run(const Script &script, Turn &turn, const QString &deck);
    void act(const Statement &statement, const Turn &turn, const QString &deck);
    bool actOnVariable(const Statement &statement, const QString &deck);
    bool actOnLights(const Statement &statement, const Turn &turn);
    void pressButton(const Statement &statement, const Gesture &gesture);
    void sendCommand(const Statement &statement, const Gesture &gesture);
    void actOnMusic(const Statement &statement, const Turn &turn, const QString &deck);
    bool actOnCues(const Statement &statement, const QString &deck);
    bool actOnLoops(const Statement &statement, const QString &deck);
    bool actOnEffects(const Statement &statement, const Turn &turn, const QString &deck);
    bool actOnTransport(const Statement &statement, const QString &deck);
    bool actOnPages(const Statement &statement, const Turn &turn, const QString &deck);
    bool actOnSampler(const Statement &statement);
    bool actOnSettings(const Statement &statement, const Turn &turn, const QString &deck);
    Answer answerOf(const Script &script, const Gesture *gesture, const QString &deck) const;
    Answer answerOf(const Statement &statement, const Gesture *gesture, const QString &deck) const;
    Answer answerOfMusic(const Statement &statement, const QString &deck) const;
    Answer answerOfLights(const Statement &statement) const;
    bool areEffectsUsed(const QString &deck) const;
    bool isAnySamplePlaying() const;
    Answer padColour(const QString &pad, const QString &deck) const;
    bool isTrue(const Answer &answer);
    void note(const QString &deck, const QString &what);
    void toggleFact(const QString &name);

    DmxProgram &m_lights;
    QMap<QString, double> m_variables;
    QMap<QString, double> m_facts;
    QMap<int, PadsPageFile> m_pages;
    QStringList m_happened;
    QStringList m_faults;
};

} // namespace Stage

#pragma once

#include <QString>
#include <QStringList>

#include <memory>

/** VirtualDJ and its surroundings as a play: what it would make of the files that the program writes. */
namespace Stage {

/** One command: `deck left hot_cue 1`, `dump while_pressed`. */
struct Statement
{
    QString deck; ///< "left", "right", ...; empty where the script names none
    QString verb; ///< empty where nothing stands between two marks
    QStringList parameters;
    bool whilePressed = false;
};

/** A script: commands of which the last may be a question with one or two branches. */
struct Script
{
    QList<Statement> chain;
    std::shared_ptr<const Script> then;      ///< only of a question
    std::shared_ptr<const Script> otherwise; ///< null where a question has no else
    /** Whether nothing stands there, as behind a bare colon. */
    bool isEmpty() const { return chain.size() == 1 && chain.first().verb.isEmpty() && !then; }
};

/**
 * Reads a script.
 *
 * VirtualDJ never reports a fault of syntax, so this does not either (tests of others on VirtualDJ 2026): a quote
 * that is not closed takes in the rest, and so do "//", "#" and ";" outside of quotes; a colon too many ends the
 * script. That an open quote takes in the rest, of all that it could do, is assumed.
 *
 * @param text  as it stands in the file once XML is decoded
 */
std::shared_ptr<const Script> parseScript(const QString &text);

} // namespace Stage

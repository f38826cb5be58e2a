#include "stage/vdjscript.h"

namespace Stage {

namespace {

struct Token
{
    enum Kind { Word, Question, Else, And, End } kind;
    QString text;
};

QList<Token> tokensOf(const QString &text)
{
    QList<Token> tokens;
    int at = 0;
    while (at < text.size()) {
        const QChar sign = text.at(at);
        // "//", "#" and ";" take in the rest (tests of others on VirtualDJ 2026).
        if (sign == '#' || sign == ';' || text.midRef(at, 2) == QLatin1String("//"))
            break;
        if (sign == '?' || sign == ':' || sign == '&') {
            tokens += {sign == '?' ? Token::Question : sign == ':' ? Token::Else : Token::And, {}};
            ++at;
        } else if (sign == '\'' || sign == '"') {
            // Single quotes are as good as double ones; a word needs none (VirtualDJ's wiki on VDJScript).
            const int end = text.indexOf(sign, at + 1);
            tokens += {Token::Word, text.mid(at + 1, end < 0 ? -1 : end - at - 1)};
            at = end < 0 ? text.size() : end + 1;
        } else if (sign.isSpace()) {
            ++at;
        } else {
            int end = at;
            while (end < text.size() && !text.at(end).isSpace()
                   && !QString("?:&'\"#;").contains(text.at(end)))
                ++end;
            tokens += {Token::Word, text.mid(at, end - at)};
            at = end;
        }
    }
    return tokens += {Token::End, {}};
}

/** [deck NAME] VERB PARAMETER... [while_pressed], as VirtualDJ's wiki on VDJScript has it. */
Statement statementOf(QStringList words)
{
    Statement statement;
    if (words.size() > 1 && words.first() == "deck") {
        statement.deck = words.at(1);
        words = words.mid(2);
    }
    if (words.size() > 1 && words.last() == "while_pressed") {
        statement.whilePressed = true;
        words.removeLast();
    }
    if (!words.isEmpty())
        statement.verb = words.takeFirst();
    statement.parameters = words;
    return statement;
}

/**
 * A question binds the nearest else: "a ? b ? c : d : e" is "a ? (b ? c : d) : e", and "a ? b : c ? d : e" a
 * ladder. A branch keeps all of its chain, so "c ? a : b & x" does x in the second case only. (Both: tests of
 * others on VirtualDJ 2026.)
 */
std::shared_ptr<const Script> scriptOf(const QList<Token> &tokens, int &at)
{
    auto script = std::make_shared<Script>();
    QStringList words;
    for (;; ++at) {
        const Token &token = tokens.at(at);
        if (token.kind == Token::Word) {
            words += token.text;
            continue;
        }
        script->chain += statementOf(words);
        words.clear();
        if (token.kind == Token::And)
            continue;
        if (token.kind == Token::Question) {
            script->then = scriptOf(tokens, ++at);
            if (tokens.at(at).kind == Token::Else)
                script->otherwise = scriptOf(tokens, ++at);
        }
        return script;
    }
}

} // namespace

std::shared_ptr<const Script> parseScript(const QString &text)
{
    int at = 0;
    return scriptOf(tokensOf(text), at);
}

} // namespace Stage

#include "script/escape.h"

#include "script/script.h"

#include <QStringView>

namespace {

const QLatin1String Question(" ? ");
const QLatin1String Else(" : ");

/** What follows the first separator; empty where there is none. */
QStringView behindFirst(QStringView text, QLatin1String separator)
{
    const auto position = text.indexOf(separator);
    return position < 0 ? QStringView() : text.mid(position + separator.size());
}

bool asksBeforeItAnswers(QStringView script)
{
    const auto question = script.indexOf(Question);
    return question > 0 && script.indexOf(Else) > question;
}

} // namespace

QString escapeScript(QString text)
{
    return text.replace("'", "&apos;").replace("\"", "&quot;").replace(" & ", " &amp; ");
}

QString unwrapScript(const QString &script)
{
    static const QString toggle = Script::toggleLights();
    static const QString condition = Script::lightsHaveKeys();
    // Escaping makes a text longer, never shorter, so a beginning as long as these tells.
    if (script.size() <= toggle.size() && escapeScript(script) == toggle)
        return {};
    if (!escapeScript(script.left(condition.size())).startsWith(condition))
        return script;

    QStringView rest = behindFirst(script, Question);
    // Each round looks at the script as it was before its own cut, so there is always one cut too many.
    for (bool again = asksBeforeItAnswers(rest); again;) {
        again = asksBeforeItAnswers(rest);
        rest = behindFirst(rest, Else);
    }

    const auto answer = rest.indexOf(Else);
    const auto question = rest.indexOf(Question);
    if (answer > 0 && (question < 0 || (question > 0 && answer < question)))
        return behindFirst(rest, Else).toString();
    return answer > 0 ? rest.toString() : QString();
}

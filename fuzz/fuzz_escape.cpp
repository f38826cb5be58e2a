// The escaping of scripts and the unwrapping of exported ones; an input is a script in UTF-8.

#include "fuzz/target.h"
#include "script/escape.h"

#include <QStringList>

namespace {

/** Drops what stands in front of the first separator, and the separator. */
QString cut(const QString &text, const QString &separator)
{
    return QStringList(text.split(separator).mid(1)).join(separator);
}

/** The wrapping taken off step by step; slow, and something to compare with. */
QString unwrappedByHand(const QString &text)
{
    if (escapeScript(text) == QLatin1String("toggle &apos;$os2l&apos;"))
        return {};
    if (!escapeScript(text).startsWith("var &apos;$os2l&apos;"))
        return text;

    QString rest = cut(text, " ? ");
    int answer = rest.indexOf(" : ");
    int question = rest.indexOf(" ? ");
    while (question > 0 && answer > question) {
        answer = rest.indexOf(" : ");
        question = rest.indexOf(" ? ");
        rest = cut(rest, " : ");
    }
    answer = rest.indexOf(" : ");
    question = rest.indexOf(" ? ");
    if (answer > 0 && (question < 0 || (question > 0 && answer < question)))
        return cut(rest, " : ");
    return answer > 0 ? rest : QString();
}

} // namespace

void tryInput(const QByteArray &input)
{
    const QString script = QString::fromUtf8(input);

    const QString escaped = escapeScript(script);
    expect(!escaped.contains('\'') && !escaped.contains('"'), "an escaped script holds no quote");
    const int longer = 5 * (script.count('\'') + script.count('"')) + 4 * (script.split(" & ").size() - 1);
    expect(escaped.size() == script.size() + longer, "escaping changes quotes and ampersands alone");

    const QString unwrapped = unwrapScript(script);
    expect(unwrapped.isEmpty() || script.endsWith(unwrapped), "what is left is the end of the script");
    expect(unwrapped == unwrappedByHand(script), "unwrapping gives what its steps give");
    for (const QString wrapping : {"var '$os2l' ? os2l_button 'Strobe' : ", "var '$os2l' ? nothing : "})
        expect(unwrapScript(wrapping + script) == script, "unwrapping undoes wrapping");
}

#include "script/escape.h"

#include <QRandomGenerator>
#include <QtTest>

#include <ctime>

namespace {

/** Everything behind the first separator: the text taken apart, its first part left out, and put together. */
QString withoutFirst(const QString &text, const QString &separator)
{
    QStringList parts = text.split(separator, Qt::KeepEmptyParts);
    parts.removeFirst();
    return parts.join(separator);
}

/** Takes the wrapping off step by step, slow and plain; something to compare with. */
QString unwrappedByHand(const QString &script)
{
    QString escaped = script;
    escaped.replace("'", "&apos;");
    escaped.replace("\"", "&quot;");
    escaped.replace(" & ", " &amp; ");
    if (escaped == "toggle &apos;$os2l&apos;")
        return "";
    if (!escaped.startsWith("var &apos;$os2l&apos;"))
        return script;

    QString rest = withoutFirst(script, " ? ");
    int answer = rest.indexOf(" : ");
    int question = rest.indexOf(" ? ");
    while (question > 0 && answer > question) {
        answer = rest.indexOf(" : ");
        question = rest.indexOf(" ? ");
        rest = withoutFirst(rest, " : ");
    }
    answer = rest.indexOf(" : ");
    question = rest.indexOf(" ? ");
    if (answer > 0 && (question < 0 || (question > 0 && answer < question)))
        return withoutFirst(rest, " : ");
    if (answer > 0)
        return rest;
    return "";
}

} // namespace

/** Escaping scripts for an attribute, and taking the OS2L wrapping off them. */
class TestEscape final : public QObject
{
    Q_OBJECT

private slots:
    void escapes_data();
    void escapes();
    void escapesTwice();
    void unwraps_data();
    void unwraps();
    void unwrapsLikeByHand();
    void unwrapsLongScriptsFast_data();
    void unwrapsLongScriptsFast();
};

void TestEscape::escapes_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("escaped");
    const auto row = [](const char *name, const QString &script, const QString &expected) {
        QTest::newRow(name) << script << expected;
    };
    row("empty", "", "");
    row("plain", "pad_action", "pad_action");
    row("apostrophe", "It's", "It&apos;s");
    row("single quotes", "os2l_button 'Strobe'", "os2l_button &apos;Strobe&apos;");
    row("double quotes", "set \"x\" 1", "set &quot;x&quot; 1");
    row("ampersand between blanks", "Rock & Roll", "Rock &amp; Roll");
    row("ampersand without blanks", "R&B", "R&B");
    row("ampersand with a blank before it", "R &B", "R &B");
    row("ampersand with a blank behind it", "R& B", "R& B");
    row("ampersand at the start", "& B", "& B");
    row("ampersand at the end", "R &", "R &");
    row("ampersand between tabs", "R\t&\tB", "R\t&\tB");
    row("two ampersands between blanks", "a & b & c", "a &amp; b &amp; c");
    row("two ampersands that share a blank", "a & & b", "a &amp; & b");
    row("two ampersands side by side", "a && b", "a && b");
    row("ampersand between quotes", "' & '", "&apos; &amp; &apos;");
    row("angle brackets", "a < b > c", "a < b > c");
    row("entity already there", "&apos;a&quot;", "&apos;a&quot;");
    row("letters beyond ASCII", QString::fromUtf8("'Été' & 'Nebelstoß'"),
        QString::fromUtf8("&apos;Été&apos; &amp; &apos;Nebelstoß&apos;"));
    row("a whole script", "var '$a' ? set \"b\" & c : d&e",
        "var &apos;$a&apos; ? set &quot;b&quot; &amp; c : d&e");
}

void TestEscape::escapes()
{
    QFETCH(const QString, text);
    QFETCH(const QString, escaped);
    QCOMPARE(escapeScript(text), escaped);
}

void TestEscape::escapesTwice()
{
    for (const QString text : {"It's", "set \"x\" 1", "Rock & Roll", " & "})
        QCOMPARE(escapeScript(escapeScript(text)), escapeScript(text));
}

void TestEscape::unwraps_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("unwrapped");
    const auto row = [](const char *name, const QString &script, const QString &expected) {
        QTest::newRow(name) << script << expected;
    };
    row("wrapped around an action", "var '$os2l' ? os2l_button 'A' : pad_action", "pad_action");
    row("wrapped around nothing", "var '$os2l' ? nothing", "");
    row("Switch key", "toggle '$os2l'", "");
    row("not wrapped", "pad_action", "pad_action");
    row("one branch more is cut off behind a condition",
        "var '$os2l' ? os2l_button 'A' ? on : off : pad_action", "");
    row("empty", "", "");
    row("Switch key, escaped already", "toggle &apos;$os2l&apos;", "");
    row("Switch key in double quotes", "toggle \"$os2l\"", "toggle \"$os2l\"");
    row("Switch key with a blank behind it", "toggle '$os2l' ", "toggle '$os2l' ");
    row("Switch key with more behind it", "toggle '$os2l' & play", "toggle '$os2l' & play");
    row("Switch key in capitals", "TOGGLE '$os2l'", "TOGGLE '$os2l'");
    row("toggles another variable", "toggle '$os2'", "toggle '$os2'");
    row("wrapping, escaped already", "var &apos;$os2l&apos; ? os2l_button &apos;A&apos; : play", "play");
    row("wrapping in double quotes", "var \"$os2l\" ? a : b", "var \"$os2l\" ? a : b");
    row("wrapping with a blank before it", " var '$os2l' ? a : b", " var '$os2l' ? a : b");
    row("wrapping in capitals", "VAR '$os2l' ? a : b", "VAR '$os2l' ? a : b");
    row("wrapping not at the start", "play & var '$os2l' ? a : b", "play & var '$os2l' ? a : b");
    row("another variable that begins alike", "var '$os2lx' ? a : b", "var '$os2lx' ? a : b");
    row("unwrapped condition", "var '$padmode' 0 ? a : b", "var '$padmode' 0 ? a : b");
    row("wrapping with a value", "var '$os2l' 1 ? a : b", "b");
    row("wrapping that goes straight on", "var '$os2l'x ? a : b", "b");
    row("no question", "var '$os2l'", "");
    row("an answer and no question", "var '$os2l' : b", "");
    row("an answer before the question", "var '$os2l' : x ? on : off", "off");
    row("question mark without blanks", "var '$os2l'?a : b", "");
    row("colon without blanks", "var '$os2l' ? a:b", "");
    row("one answer", "var '$os2l' ? os2l_button 'A'", "");
    row("two answers", "var '$os2l' ? on : off", "off");
    row("three answers", "var '$os2l' ? on : a : b", "a : b");
    row("a condition behind the wrapping", "var '$os2l' ? on : a ? b : c", "a ? b : c");
    row("two conditions behind the wrapping", "var '$os2l' ? on : a ? b : c ? d : e", "a ? b : c ? d : e");
    row("a condition without second answer behind the wrapping", "var '$os2l' ? on : a ? b", "a ? b");
    row("wrapped twice", "var '$os2l' ? on : var '$os2l' ? on : off", "var '$os2l' ? on : off");
    row("blinking LED", "var '$os2l' ? os2l_button 'A' ? blink 500ms ? color 'red' : off : get_pad_color",
        "");
    row("nested condition and nothing behind it", "var '$os2l' ? c ? x : y", "");
    row("nested condition without second answer", "var '$os2l' ? c ? x", "");
    row("nested condition and two branches behind it", "var '$os2l' ? c ? x : y : p : q", "q");
    row("nested condition and three branches behind it", "var '$os2l' ? c ? x : y : p : q : r", "q : r");
    row("nested condition and a condition behind it", "var '$os2l' ? c ? x : y : p ? q : s", "p ? q : s");
    row("nested condition and a condition without second answer behind it", "var '$os2l' ? c ? x : y : p ? q",
        "");
    row("two conditions, one in the first answer of the other", "var '$os2l' ? c ? d ? x : y : z : p", "p");
    row("two conditions, one in the second answer of the other", "var '$os2l' ? c ? x : d ? y : z : p : q",
        "q");
    row("three conditions, each in the second answer of the one before",
        "var '$os2l' ? c ? x : d ? y : e ? z : u : p : q", "q");
    row("answer at the very start", "var '$os2l' ?  : b", "");
    row("question at the very start", "var '$os2l' ?  ? a : b", " ? a : b");
    row("questions that share a blank", "var '$os2l' ? ? a : b", "b");
    row("answers that share a blank", "var '$os2l' ? on : : b", ": b");
    row("question at the very end", "var '$os2l' ? ", "");
    row("answer at the very end", "var '$os2l' ? on : ", "");
    row("an empty second answer in a nested condition", "var '$os2l' ? c ? x :  : p", "");
    row("answer at the start of what is left", "var '$os2l' ? c ? x : y :  : p", "");
    row("question at the start of what is left", "var '$os2l' ? c ? x : y :  ? p : q", " ? p : q");
    row("letters beyond ASCII", QString::fromUtf8("var '$os2l' ? os2l_button 'Été' : set 'ß' 1"),
        QString::fromUtf8("set 'ß' 1"));
}

void TestEscape::unwraps()
{
    QFETCH(const QString, script);
    QFETCH(const QString, unwrapped);
    QCOMPARE(unwrapScript(script), unwrapped);
    QCOMPARE(unwrappedByHand(script), unwrapped);
}

void TestEscape::unwrapsLikeByHand()
{
    const QStringList beginnings = {"var '$os2l'",         "var '$os2l' ? ", "var &apos;$os2l&apos; ? c ? ",
                                    "var '$os2l' ? on : ", "toggle '$os2l'", ""};
    const QStringList tokens = {" ? ", " : ", " ? ", " : ", "a", "os2l_button 'A'", "'",
                                "\"",  " & ", " ",   "?",   ":", "var '$os2l'",     "nothing"};
    QRandomGenerator random(20);
    int kept = 0;
    int emptied = 0;
    int shortened = 0;
    for (int i = 0; i < 20000; ++i) {
        QString script = beginnings.at(random.bounded(beginnings.size()));
        for (int more = random.bounded(16); more > 0; --more)
            script += tokens.at(random.bounded(tokens.size()));

        const QString expected = unwrappedByHand(script);
        const QString unwrapped = unwrapScript(script);
        QVERIFY2(unwrapped == expected,
                 qPrintable(QString("[%1] gave [%2] and not [%3]").arg(script, unwrapped, expected)));
        ++(expected == script ? kept : expected.isEmpty() ? emptied : shortened);
    }
    // A comparison that only ever sees one way out is none.
    QVERIFY(kept > 1000);
    QVERIFY(emptied > 1000);
    QVERIFY(shortened > 1000);
}

void TestEscape::unwrapsLongScriptsFast_data()
{
    QTest::addColumn<QString>("unit");
    QTest::addColumn<int>("letters");
    constexpr int Some = 1000000;
    constexpr int Many = 4000000;
    QTest::newRow("questions") << " ? " << Many;
    QTest::newRow("answers") << " : " << Many;
    QTest::newRow("questions with text") << "a ? " << Many;
    QTest::newRow("answers with text") << "a : " << Many;
    QTest::newRow("a question, an answer") << "a ? b : " << Many;
    QTest::newRow("an answer, a question") << "a : b ? " << Many;
    QTest::newRow("two questions, an answer") << "a ? b ? c : " << Many;
    QTest::newRow("a question, two answers") << "a ? b : c : " << Many;
    QTest::newRow("question and answer without text") << " ?  : " << Many;
    QTest::newRow("answer and question without text") << " :  ? " << Many;
    QTest::newRow("question and answer that share a blank") << " ? : " << Many;
    QTest::newRow("quotes and ampersands") << "' & \"" << Some;
    QTest::newRow("wrappings") << "var '$os2l' ? a : " << Many;
    QTest::newRow("letters") << "abc" << Many;
}

void TestEscape::unwrapsLongScriptsFast()
{
    QFETCH(const QString, unit);
    QFETCH(const int, letters);
    // By hand only what is short: that way is quadratic, and this one must not be.
    const QString wrapping = "var '$os2l' ? on ? ";
    for (const QString &tail : {QString(), QString("z"), QString(" : z"), QString(" ? y : z")}) {
        const QString script = wrapping + unit.repeated(40) + tail;
        QCOMPARE(unwrapScript(script), unwrappedByHand(script));
    }

    const QString script = wrapping + unit.repeated(letters / unit.size());
    const std::clock_t begin = std::clock(); // processor time: other programs do not count
    const QString unwrapped = unwrapScript(script);
    const double seconds = double(std::clock() - begin) / CLOCKS_PER_SEC;
    QVERIFY2(seconds < 3, qPrintable(QString("%1 s").arg(seconds)));
    QVERIFY(unwrapped.size() < script.size());
}

QTEST_APPLESS_MAIN(TestEscape)
#include "test_escape.moc"

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
    void escapesTwice_data();
    void escapesTwice();
    void unwraps_data();
    void unwraps();
    void unwrapsLikeByHand_data();
    void unwrapsLikeByHand();
    void unwrapsLongScriptsFast_data();
    void unwrapsLongScriptsFast();
};

void TestEscape::escapes_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("escaped");

    QTest::newRow("empty") << ""
                           << "";
    QTest::newRow("plain") << "pad_action"
                           << "pad_action";
    QTest::newRow("apostrophe") << "It's"
                                << "It&apos;s";
    QTest::newRow("single quotes") << "os2l_button 'Strobe'"
                                   << "os2l_button &apos;Strobe&apos;";
    QTest::newRow("double quotes") << "set \"x\" 1"
                                   << "set &quot;x&quot; 1";
    QTest::newRow("ampersand between blanks") << "Rock & Roll"
                                              << "Rock &amp; Roll";
    QTest::newRow("ampersand without blanks") << "R&B"
                                              << "R&B";
    QTest::newRow("ampersand with a blank before it") << "R &B"
                                                      << "R &B";
    QTest::newRow("ampersand with a blank behind it") << "R& B"
                                                      << "R& B";
    QTest::newRow("ampersand at the start") << "& B"
                                            << "& B";
    QTest::newRow("ampersand at the end") << "R &"
                                          << "R &";
    QTest::newRow("ampersand between tabs") << "R\t&\tB"
                                            << "R\t&\tB";
    QTest::newRow("two ampersands between blanks") << "a & b & c"
                                                   << "a &amp; b &amp; c";
    QTest::newRow("two ampersands that share a blank") << "a & & b"
                                                       << "a &amp; & b";
    QTest::newRow("two ampersands side by side") << "a && b"
                                                 << "a && b";
    QTest::newRow("ampersand between quotes") << "' & '"
                                              << "&apos; &amp; &apos;";
    QTest::newRow("angle brackets") << "a < b > c"
                                    << "a < b > c";
    QTest::newRow("entity already there") << "&apos;a&quot;"
                                          << "&apos;a&quot;";
    QTest::newRow("letters beyond ASCII") << QString::fromUtf8("'Été' & 'Nebelstoß'")
                                          << QString::fromUtf8("&apos;Été&apos; &amp; &apos;Nebelstoß&apos;");
    QTest::newRow("a whole script") << "var '$a' ? set \"b\" & c : d&e"
                                    << "var &apos;$a&apos; ? set &quot;b&quot; &amp; c : d&e";
}

void TestEscape::escapes()
{
    QFETCH(const QString, text);
    QFETCH(const QString, escaped);
    QCOMPARE(escapeScript(text), escaped);
}

void TestEscape::escapesTwice_data()
{
    QTest::addColumn<QString>("text");

    QTest::newRow("single quotes") << "It's";
    QTest::newRow("double quotes") << "set \"x\" 1";
    QTest::newRow("ampersand between blanks") << "Rock & Roll";
    QTest::newRow("ampersand alone") << " & ";
}

void TestEscape::escapesTwice()
{
    QFETCH(const QString, text);
    QCOMPARE(escapeScript(escapeScript(text)), escapeScript(text));
}

void TestEscape::unwraps_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("unwrapped");

    QTest::newRow("wrapped around an action") << "var '$os2l' ? os2l_button 'A' : pad_action"
                                              << "pad_action";
    QTest::newRow("wrapped around nothing") << "var '$os2l' ? nothing"
                                            << "";
    QTest::newRow("Switch key") << "toggle '$os2l'"
                                << "";
    QTest::newRow("not wrapped") << "pad_action"
                                 << "pad_action";
    QTest::newRow("one branch more is cut off behind a condition")
        << "var '$os2l' ? os2l_button 'A' ? on : off : pad_action"
        << "";
    QTest::newRow("empty") << ""
                           << "";

    QTest::newRow("Switch key, escaped already") << "toggle &apos;$os2l&apos;"
                                                 << "";
    QTest::newRow("Switch key in double quotes") << "toggle \"$os2l\""
                                                 << "toggle \"$os2l\"";
    QTest::newRow("Switch key with a blank behind it") << "toggle '$os2l' "
                                                       << "toggle '$os2l' ";
    QTest::newRow("Switch key with more behind it") << "toggle '$os2l' & play"
                                                    << "toggle '$os2l' & play";
    QTest::newRow("Switch key in capitals") << "TOGGLE '$os2l'"
                                            << "TOGGLE '$os2l'";
    QTest::newRow("toggles another variable") << "toggle '$os2'"
                                              << "toggle '$os2'";

    QTest::newRow("wrapping, escaped already") << "var &apos;$os2l&apos; ? os2l_button &apos;A&apos; : play"
                                               << "play";
    QTest::newRow("wrapping in double quotes") << "var \"$os2l\" ? a : b"
                                               << "var \"$os2l\" ? a : b";
    QTest::newRow("wrapping with a blank before it") << " var '$os2l' ? a : b"
                                                     << " var '$os2l' ? a : b";
    QTest::newRow("wrapping in capitals") << "VAR '$os2l' ? a : b"
                                          << "VAR '$os2l' ? a : b";
    QTest::newRow("wrapping not at the start") << "play & var '$os2l' ? a : b"
                                               << "play & var '$os2l' ? a : b";
    QTest::newRow("another variable that begins alike") << "var '$os2lx' ? a : b"
                                                        << "var '$os2lx' ? a : b";
    QTest::newRow("unwrapped condition") << "var '$padmode' 0 ? a : b"
                                         << "var '$padmode' 0 ? a : b";
    QTest::newRow("wrapping with a value") << "var '$os2l' 1 ? a : b"
                                           << "b";
    QTest::newRow("wrapping that goes straight on") << "var '$os2l'x ? a : b"
                                                    << "b";

    QTest::newRow("no question") << "var '$os2l'"
                                 << "";
    QTest::newRow("an answer and no question") << "var '$os2l' : b"
                                               << "";
    QTest::newRow("an answer before the question") << "var '$os2l' : x ? on : off"
                                                   << "off";
    QTest::newRow("question mark without blanks") << "var '$os2l'?a : b"
                                                  << "";
    QTest::newRow("colon without blanks") << "var '$os2l' ? a:b"
                                          << "";
    QTest::newRow("one answer") << "var '$os2l' ? os2l_button 'A'"
                                << "";
    QTest::newRow("two answers") << "var '$os2l' ? on : off"
                                 << "off";
    QTest::newRow("three answers") << "var '$os2l' ? on : a : b"
                                   << "a : b";
    QTest::newRow("a condition behind the wrapping") << "var '$os2l' ? on : a ? b : c"
                                                     << "a ? b : c";
    QTest::newRow("two conditions behind the wrapping") << "var '$os2l' ? on : a ? b : c ? d : e"
                                                        << "a ? b : c ? d : e";
    QTest::newRow("a condition without second answer behind the wrapping") << "var '$os2l' ? on : a ? b"
                                                                           << "a ? b";
    QTest::newRow("wrapped twice") << "var '$os2l' ? on : var '$os2l' ? on : off"
                                   << "var '$os2l' ? on : off";
    QTest::newRow("blinking LED")
        << "var '$os2l' ? os2l_button 'A' ? blink 500ms ? color 'red' : off : get_pad_color"
        << "";

    QTest::newRow("nested condition and nothing behind it") << "var '$os2l' ? c ? x : y"
                                                            << "";
    QTest::newRow("nested condition without second answer") << "var '$os2l' ? c ? x"
                                                            << "";
    QTest::newRow("nested condition and two branches behind it") << "var '$os2l' ? c ? x : y : p : q"
                                                                 << "q";
    QTest::newRow("nested condition and three branches behind it") << "var '$os2l' ? c ? x : y : p : q : r"
                                                                   << "q : r";
    QTest::newRow("nested condition and a condition behind it") << "var '$os2l' ? c ? x : y : p ? q : s"
                                                                << "p ? q : s";
    QTest::newRow("nested condition and a condition without second answer behind it")
        << "var '$os2l' ? c ? x : y : p ? q"
        << "";
    QTest::newRow("two conditions, one in the first answer of the other")
        << "var '$os2l' ? c ? d ? x : y : z : p"
        << "p";
    QTest::newRow("two conditions, one in the second answer of the other")
        << "var '$os2l' ? c ? x : d ? y : z : p : q"
        << "q";
    QTest::newRow("three conditions, each in the second answer of the one before")
        << "var '$os2l' ? c ? x : d ? y : e ? z : u : p : q"
        << "q";

    QTest::newRow("answer at the very start") << "var '$os2l' ?  : b"
                                              << "";
    QTest::newRow("question at the very start") << "var '$os2l' ?  ? a : b"
                                                << " ? a : b";
    QTest::newRow("questions that share a blank") << "var '$os2l' ? ? a : b"
                                                  << "b";
    QTest::newRow("answers that share a blank") << "var '$os2l' ? on : : b"
                                                << ": b";
    QTest::newRow("question at the very end") << "var '$os2l' ? "
                                              << "";
    QTest::newRow("answer at the very end") << "var '$os2l' ? on : "
                                            << "";
    QTest::newRow("an empty second answer in a nested condition") << "var '$os2l' ? c ? x :  : p"
                                                                  << "";
    QTest::newRow("answer at the start of what is left") << "var '$os2l' ? c ? x : y :  : p"
                                                         << "";
    QTest::newRow("question at the start of what is left") << "var '$os2l' ? c ? x : y :  ? p : q"
                                                           << " ? p : q";
    QTest::newRow("letters beyond ASCII")
        << QString::fromUtf8("var '$os2l' ? os2l_button 'Été' : set 'ß' 1") << QString::fromUtf8("set 'ß' 1");
}

void TestEscape::unwraps()
{
    QFETCH(const QString, script);
    QFETCH(const QString, unwrapped);
    QCOMPARE(unwrapScript(script), unwrapped);
    QCOMPARE(unwrappedByHand(script), unwrapped);
}

void TestEscape::unwrapsLikeByHand_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 20; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

void TestEscape::unwrapsLikeByHand()
{
    QFETCH(const quint32, seed);

    const QStringList beginnings = {"var '$os2l'",         "var '$os2l' ? ", "var &apos;$os2l&apos; ? c ? ",
                                    "var '$os2l' ? on : ", "toggle '$os2l'", ""};
    const QStringList tokens = {" ? ", " : ", " ? ", " : ", "a", "os2l_button 'A'", "'",
                                "\"",  " & ", " ",   "?",   ":", "var '$os2l'",     "nothing"};
    QRandomGenerator random(seed);
    int kept = 0;
    int emptied = 0;
    int shortened = 0;
    for (int i = 0; i < 1000; ++i) {
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
    QVERIFY(kept > 50);
    QVERIFY(emptied > 50);
    QVERIFY(shortened > 50);
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

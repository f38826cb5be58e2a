#include "files/inifile.h"
#include "show/liveshow.h"
#include "support/files.h"
#include "support/processortime.h"

#include <QRandomGenerator>
#include <QSettings>
#include <QTemporaryDir>
#include <QtTest>

namespace {

const QByteArray Mark = "\xEF\xBB\xBF";

/** A number as QSettings stores an object; both ways of marking one can be followed by it. */
const QByteArray Seven = "\\0\\0\\0\\x2\\0\\0\\0\\0\\a)";

/** Whether QSettings makes an object of a value, alone or in a list. */
bool isObject(const QVariant &value)
{
    if (value.type() == QVariant::List) {
        const QVariantList values = value.toList();
        return std::any_of(values.cbegin(), values.cend(), isObject);
    }
    const QList<QVariant::Type> harmless = {QVariant::Invalid,   QVariant::String, QVariant::StringList,
                                            QVariant::ByteArray, QVariant::Rect,   QVariant::Size,
                                            QVariant::Point};
    return !harmless.contains(value.type());
}

/** All values of a file as QSettings alone reads them, by key. */
QVariantMap plainValues(const QString &path)
{
    const QSettings settings(path, QSettings::IniFormat);
    QVariantMap values;
    for (const QString &key : settings.allKeys())
        values.insert(key, settings.value(key));
    return values;
}

/** Texts without what parts the entries of a list. */
QString lettersOf(const QStringList &texts)
{
    return texts.join(QString()).remove(',').remove(' ').remove('\t');
}

/** Makes files that a DMX program or a user could have written. */
class OrdinaryFile final
{
public:
    explicit OrdinaryFile(quint32 seed) : m_random(seed) {}

    QByteArray text()
    {
        QByteArray ini = oneOf({"", Mark});
        ini += "[page]\nnumber = 1\n";
        for (const char *group : {"[page1]", "[page1_button1]", "[ other group ]", "[%General]"}) {
            ini += group + lineEnd();
            for (int lines = m_random.bounded(5); lines > 0; --lines)
                ini += line() + lineEnd();
        }
        return ini;
    }

private:
    QByteArray line()
    {
        const QByteArray key =
            oneOf({"title", "name", "pageid", "color", "Key%20two", "a\\b", "%U00e4", "%zz", "\xC3\xA4"});
        const QByteArray line = key + oneOf({"=", " = ", "= ", "\t="}) + value();
        return oneOf({line, line, line, line, "; " + line, "no sign", "[open", ""});
    }

    QByteArray value()
    {
        static const QByteArrayList some = {"Red",
                                            "Blue",
                                            ",",
                                            ", ",
                                            " ,",
                                            " ",
                                            "@home",
                                            "@",
                                            "50% @ 5",
                                            "a@b",
                                            "It's",
                                            "\"quoted\"",
                                            "\" in, quotes \"",
                                            "\\x263a",
                                            "\\101",
                                            "\\n",
                                            "\\\\",
                                            "\\q",
                                            "=",
                                            "[on]",
                                            "Nebelsto\xC3\x9F",
                                            "\xF0\x9F\x94\xA5",
                                            "; rest",
                                            "(1)",
                                            "@@",
                                            "@Invalid()",
                                            "@Size(1 2)",
                                            "\\\n goes on",
                                            "\\\r\n goes on"};
        QByteArray value;
        for (int words = m_random.bounded(5); words > 0; --words)
            value += oneOf(some);
        return value;
    }

    QByteArray lineEnd() { return oneOf({"\n", "\r\n", "\r", "\n\n"}); }

    QByteArray oneOf(const QByteArrayList &choices) { return choices.at(m_random.bounded(choices.size())); }

    QRandomGenerator m_random;
};

} // namespace

/** The look over an INI file before QSettings takes it in, and the texts that QSettings splits. */
class TestIniFile final : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void refusesObjects_data();
    void refusesObjects();
    void acceptsTitles_data();
    void acceptsTitles();
    void endsSoon_data();
    void endsSoon();
    void readsOrdinaryFilesLikeQSettings();
    void keepsTextsWithCommas_data();
    void keepsTextsWithCommas();

private:
    QScopedPointer<QTemporaryDir> m_folder;
};

void TestIniFile::init()
{
    m_folder.reset(new QTemporaryDir);
    QVERIFY(m_folder->isValid());
}

void TestIniFile::refusesObjects_data()
{
    QTest::addColumn<QByteArray>("ini");
    const auto row = [](const QByteArray &name, const QByteArray &value) {
        QTest::newRow(name.constData()) << "[page]\nnumber = " + value + "\n";
    };
    for (const QByteArray word : {"@Variant(", "@DateTime("}) {
        row(word, word + Seven);
        row(word + " without a blank", "\r[page1]\rtitle=" + word + Seven);
        row(word + " quoted", "\"" + word + Seven + "\"");
        row(word + " first in a list", word + Seven + ", Red");
        row(word + " last in a list", "Red , " + word + Seven);
        row(word + " in a list, quoted", "Red,\" \",\"" + word + Seven + "\"");
        row(word + " behind a comment", "1\n; it's \\\ntitle = " + word + Seven);
        row(word + " behind a quote in a comment", "1\n; \"\ntitle = " + word + Seven);
        row(word + " behind quotes", "\"\"" + word + Seven);
        row(word + " over a line end in quotes", "\"\\\n" + word + Seven + "\"");
        for (int i = 0; i < word.size(); ++i) {
            const QByteArray front = word.left(i);
            const QByteArray back = word.mid(i + 1);
            const auto spelled = [&](const QByteArray &name, const QByteArray &sign) {
                row(word + " with " + name + " at " + QByteArray::number(i), front + sign + back + Seven);
            };
            const QByteArray sign = word.mid(i, 1);
            // A letter that is a hexadecimal digit would go on behind one.
            const QByteArray apart = QByteArray("\"\"") + back.left(0);
            spelled("a hexadecimal number", "\\x" + sign.toHex() + apart);
            spelled("a number beyond sixteen bits", "\\x3" + sign.toHex().rightJustified(4, '0') + apart);
            spelled("an octal number", "\\" + QByteArray::number(uchar(sign.at(0)), 8));
            spelled("quotes", "\"\"" + sign);
            spelled("quotes around it and blanks", "\"" + sign + "\" \t ");
            spelled("a line that goes on", sign + "\\\n");
            spelled("a line that goes on, with a carriage return", sign + "\\\r\n");
            spelled("an escape that is dropped", sign + "\\q");
        }
    }
    QTest::newRow("byte order mark in a value")
        << Mark + "[page]\nnumber = " + Mark + "@Variant(" + Seven + "\n";
    QTest::newRow("byte order mark behind quotes")
        << Mark + "[page]\nnumber = @Var\"\"" + Mark + "iant(" + Seven + "\n";
}

void TestIniFile::refusesObjects()
{
    QFETCH(const QByteArray, ini);
    const QString path = m_folder->filePath("live.ini");
    QVERIFY(writeFile(path, ini));
    const QVariantMap values = plainValues(path);
    QVERIFY2(std::any_of(values.cbegin(), values.cend(), isObject), "QSettings makes no object of this.");
    QVERIFY(!isHarmlessIni(ini));
    QVERIFY(!readLiveShow(path));
}

void TestIniFile::acceptsTitles_data()
{
    QTest::addColumn<QByteArray>("title");
    for (const char *title : {"a@b",           "@home",         "50% @ 5",   "@",          "@@",
                              "@home, garden", "a, @b",         "@Variant",  "Variant(1)", "@ Variant(1)",
                              "@variant(1)",   "@VVariant(1)",  "@Vari@nt(", "@Date(1)",   "\\x40Variants",
                              "@Invalid()",    "@ByteArray(a)", "[",         "]",          "\\",
                              "\\x",           "\\400Variant"})
        QTest::newRow(title) << QByteArray(title);
}

void TestIniFile::acceptsTitles()
{
    QFETCH(const QByteArray, title);
    QVERIFY(isHarmlessIni("[page1_button1]\ntitle = " + title + "\n"));
}

void TestIniFile::endsSoon_data()
{
    QTest::addColumn<QByteArray>("piece");
    QTest::addColumn<bool>("isHarmless");
    QTest::newRow("groups without end") << QByteArray("[\n") << false;
    QTest::newRow("groups without end, carriage returns") << QByteArray("[\r") << false;
    QTest::newRow("brackets in one line") << QByteArray("[") << true;
    QTest::newRow("brackets that close") << QByteArray("[a]\n") << true;
    QTest::newRow("numbers") << QByteArray("\\x40") << true;
    QTest::newRow("quotes and blanks") << QByteArray("\" ") << true;
    QTest::newRow("at signs") << QByteArray("@") << true;
    QTest::newRow("commas") << QByteArray("a=,\n") << true;
    QTest::newRow("percent signs") << QByteArray("%=,\n") << true;
    QTest::newRow("comments") << QByteArray(";\n") << true;
}

void TestIniFile::endsSoon()
{
    QFETCH(const QByteArray, piece);
    QFETCH(const bool, isHarmless);
    const QByteArray ini = piece.repeated((2 << 20) / piece.size());
    const ProcessorTime time;
    QCOMPARE(isHarmlessIni(ini), isHarmless);
    iniTextsWithCommas(ini);
    QVERIFY2(time.elapsed() < 5000, qPrintable(QString::number(time.elapsed())));
}

void TestIniFile::readsOrdinaryFilesLikeQSettings()
{
    int lists = 0;
    for (quint32 seed = 0; seed < 3000; ++seed) {
        const QByteArray ini = OrdinaryFile(seed).text();
        const QString path =
            m_folder->filePath(QString::number(seed)); // QSettings remembers files by their names
        QVERIFY(writeFile(path, ini));
        QVERIFY2(isHarmlessIni(ini), ini.constData());
        const QHash<QString, QString> texts = iniTextsWithCommas(ini);
        const QVariantMap values = plainValues(path);
        for (auto value = values.cbegin(); value != values.cend(); ++value) {
            if (value->type() != QVariant::StringList && value->type() != QVariant::List)
                continue;
            ++lists;
            const QString text = texts.value(iniKey(value.key()), "none");
            if (value->type() == QVariant::StringList && !text.contains('@'))
                QVERIFY2(lettersOf({text}) == lettersOf(value->toStringList()),
                         qPrintable(value.key() + ": " + text + "\n" + QString::fromUtf8(ini)));
            QVERIFY2(text != "none", qPrintable(value.key() + "\n" + QString::fromUtf8(ini)));
        }
    }
    QVERIFY2(lists > 1500, "Too few lists were made.");
}

void TestIniFile::keepsTextsWithCommas_data()
{
    QTest::addColumn<QByteArray>("ini");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *name, const QByteArray &ini, const QString &key, const QString &text) {
        QTest::newRow(name) << ini << key << text;
    };
    row("no group", "a = 1,2", "a", "1,2");
    row("the group General", "[general]\na = 1,2", "a", "1,2");
    row("a group named General", "[%general]\na = 1,2", "general/a", "1,2");
    row("a group", "[ p ]\na = 1,2", "p/a", "1,2");
    row("a group without end", "[p\na = 1,2", "p/a", "1,2");
    row("a group in a group", "[p\\q]\na\\b = 1,2", "p/q/a/b", "1,2");
    row("a number in a key", "a%20%U00e4 = 1,2", "a " + QString(QChar(0xE4)), "1,2");
    row("a percent sign in a key", "%%2 = 1,2", "%%2", "1,2");
    row("the later of two", "a = 1,2\na = 3,4", "a", "3,4");
    row("blanks within", "a =  1 ,2,  3  ", "a", "1 ,2,  3");
    row("a comma at the end", "a = Finale,", "a", "Finale,");
    row("quotes", "a = \" 1\",2", "a", " 1,2");
    row("escapes", "a = \\x263a,\\101,\\n\\q\\\r\n!", "a", QString(QChar(0x263A)) + ",A,\n!");
    row("a comment behind it", "a = 1,2; 3", "a", "1,2");
    row("in a comment", "; a = 1,2", "a", {});
    row("a line end in quotes", "a = \"1\n\",2", "a", "1\n,2");
    row("Latin 1 without a mark", "a = \xE4,\xC3\xA4", "a", QString::fromLatin1("\xE4,\xC3\xA4"));
    row("UTF-8 with a mark", Mark + "[p]\na = \xC3\xA4,1", "p/a", QString(QChar(0xE4)) + ",1");
    row("a mark in front of the first key", Mark + "a = 1,2", QString::fromLatin1(Mark) + "a", "1,2");
    row("at signs", "a = @home,@@b", "a", "@home,@@b");
}

void TestIniFile::keepsTextsWithCommas()
{
    QFETCH(const QByteArray, ini);
    QFETCH(const QString, key);
    QFETCH(const QString, text);
    QCOMPARE(iniTextsWithCommas(ini).value(iniKey(key)), text);
}

QTEST_APPLESS_MAIN(TestIniFile)

#include "test_inifile.moc"

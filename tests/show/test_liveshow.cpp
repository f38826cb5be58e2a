#include "show/liveshow.h"
#include "support/files.h"
#include "support/processortime.h"

#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>
#include <ctime>
#include <functional>

namespace {

const QByteArray Mark = "\xEF\xBB\xBF";

/** Writes a settings file and reads it; false where it could not be written. */
bool read(const QByteArray &ini, LiveShow &show)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("live.ini");
    if (!folder.isValid() || !writeFile(path, ini))
        return false;
    const auto read = readLiveShow(path);
    if (!read)
        return false;
    show = *read;
    return true;
}

/** A record as one text a reader can compare: its entries by key. */
QString shown(const Record &record)
{
    QStringList entries;
    for (auto entry = record.cbegin(); entry != record.cend(); ++entry)
        entries += entry.key() + "=" + entry.value();
    return entries.join(" | ");
}

QStringList shown(const QList<Record> &records)
{
    QStringList lines;
    for (const Record &record : records)
        lines += shown(record);
    return lines;
}

/** Values of one key, down the list. */
QStringList valuesOf(const QList<Record> &records, const QString &key)
{
    QStringList values;
    for (const Record &record : records)
        values += record.value(key);
    return values;
}

/** What is wrong with a show that came from any file at all; empty where nothing is. */
QString faultsOf(const LiveShow &show)
{
    if (shown(show.pages.value(0)) != QLatin1String("name=All Pages | pageid=0"))
        return "The first page is " + shown(show.pages.value(0));
    for (int number = 1; number < show.pages.size(); ++number) {
        if (!show.pages.at(number).contains("pageid"))
            return "A page without number: " + shown(show.pages.at(number));
    }
    for (int number = 0; number < show.buttons.size(); ++number) {
        const Record &button = show.buttons.at(number);
        if (button.value("buttonid") != QString::number(number) || !button.contains("pageid")
            || !button.contains("check") || !button.value("color").startsWith('#'))
            return "Button " + QString::number(number) + " is " + shown(button);
    }
    return {};
}

QByteArray smallShow()
{
    return "[live]\n"
           "dmx_on = yes\n"
           "[page]\n"
           "number = 2\n"
           "[page1]\n"
           "name = Wash\n"
           "nb_buttons = 2\n"
           "[page1_button1]\n"
           "title = Red\n"
           "color = 16711680\n"
           "[page1_button2]\n"
           "title = Blue, slow\n"
           "color = 255\n"
           "[page2]\n"
           "name = Nebelsto\xC3\x9F\n"
           "nb_buttons = 1\n"
           "[page2_button1]\n"
           "title = Haze\n";
}

/** A show whose pages all have the button groups of the first. */
QByteArray pagesOfOneNumber(int pages, int buttons)
{
    QByteArray ini = "[page]\nnumber = " + QByteArray::number(pages) + "\n";
    for (int page = 1; page <= pages; ++page)
        ini += "[page" + QByteArray::number(page)
               + "]\npageid = 1\nnb_buttons = " + QByteArray::number(buttons) + "\n";
    for (int button = 1; button <= buttons; ++button)
        ini += "[page1_button" + QByteArray::number(button) + "]\ntitle = A\n";
    return ini;
}

} // namespace

/** Reading live.ini, good and bad. */
class TestLiveShow final : public QObject
{
    Q_OBJECT

private slots:
    void namesShows_data();
    void namesShows();
    void readsPagesAndButtons_data();
    void readsPagesAndButtons();
    void convertsColors_data();
    void convertsColors();
    void readsTitles_data();
    void readsTitles();
    void readsFilesCutOffAnywhere();
    void survivesBadFiles_data();
    void survivesBadFiles();
    void findsNothingWithoutAFile_data();
    void findsNothingWithoutAFile();
    void readsAllThatIsThereBehindAHugeCount_data();
    void readsAllThatIsThereBehindAHugeCount();
    void countsFiftyThousandMissingGroups_data();
    void countsFiftyThousandMissingGroups();
    void countsWhatIsReadAgain_data();
    void countsWhatIsReadAgain();
    void refusesLongFiles();
    void refusesLongNames_data();
    void refusesLongNames();
    void readsSixtyThousandButtons();
    void readsTheFileAfreshEachTime();
    void leavesTheFileAlone();
    void readsTheExampleShow();
    void colorTexts_data();
    void colorTexts();
};

void TestLiveShow::namesShows_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("name");
    QTest::newRow("folder") << "/shows/Club v1.2"
                            << "Club v1.2";
    QTest::newRow("slash at the end") << "/shows/Club Night/"
                                      << "Club Night";
    QTest::newRow("root") << "/"
                          << "/";
#ifdef Q_OS_WIN
    QTest::newRow("drive") << "E:/"
                           << "E:/";
#endif
}

void TestLiveShow::namesShows()
{
    QFETCH(const QString, folder);
    QTEST(showNameOf(folder), "name");
}

/** The record of a Live Button of which the file tells title and colour, or neither. */
QString button(int number, int page, const QString &title, const QString &color = "#ffffff")
{
    const QString end = title.isNull() ? QString() : " | title=" + title;
    return QString("buttonid=%1 | check=0 | color=%2 | pageid=%3").arg(number).arg(color).arg(page) + end;
}

void TestLiveShow::readsPagesAndButtons_data()
{
    QTest::addColumn<QByteArray>("ini");
    QTest::addColumn<QStringList>("pages"); // behind the first, which is All Pages
    QTest::addColumn<QStringList>("buttons");
    const auto row = [](const char *name, const QByteArray &ini, const QStringList &pages = {},
                        const QStringList &buttons = {}) { QTest::newRow(name) << ini << pages << buttons; };
    const QByteArray wash = "[page1]\nname = Wash\n";
    row("empty file", "");
    row("byte order mark alone", Mark);
    row("no page group", "[live]\ndmx_on = yes\n" + wash + "nb_buttons = 1\n[page1_button1]\ntitle = Red\n");
    row("page group without number", "[page]\ncount = 2\n" + wash);
    row("number outside any group", "number = 1\n" + wash);
    row("number is zero", "[page]\nnumber = 0\n" + wash);
    row("number is negative", "[page]\nnumber = -2\n" + wash);
    row("number is a word", "[page]\nnumber = two\n" + wash);
    row("number is empty", "[page]\nnumber =\n" + wash);
    row("number with digits and letters", "[page]\nnumber = 2x\n" + wash);
    row("other keys of the page group do not matter", "[page]\nactive = 7\nnumber = 1\nnumbers = 3\n" + wash,
        {"name=Wash | pageid=1"});
    row("more pages counted than in the file", "[page]\nnumber = 3\n" + wash + "[page2]\nname = Movers\n",
        {"name=Wash | pageid=1", "name=Movers | pageid=2", "pageid=3"});
    row("a page missing in the middle",
        "[page]\nnumber = 3\n" + wash
            + "[page3]\nname = Movers\nnb_buttons = 1\n[page3_button1]\ntitle = Home\n",
        {"name=Wash | pageid=1", "pageid=2", "name=Movers | nb_buttons=1 | pageid=3"},
        {button(0, 3, "Home")});
    row("fewer pages counted than in the file",
        "[page]\nnumber = 1\n" + wash
            + "[page2]\nname = Movers\nnb_buttons = 1\n[page2_button1]\ntitle = Home\n",
        {"name=Wash | pageid=1"});

    row("buttons of page 2 carry on the count",
        "[page]\nnumber = 2\n[page1]\nnb_buttons = 4\n"
        "[page1_button1]\ntitle = A\n[page1_button2]\ntitle = B\n"
        "[page1_button3]\ntitle = C\n[page1_button4]\ntitle = D\n"
        "[page2]\nnb_buttons = 1\n[page2_button1]\ntitle = E\n",
        {"nb_buttons=4 | pageid=1", "nb_buttons=1 | pageid=2"},
        {button(0, 1, "A"), button(1, 1, "B"), button(2, 1, "C"), button(3, 1, "D"), button(4, 2, "E")});
    row("a page of no buttons does not disturb the count",
        "[page]\nnumber = 3\n[page1]\nnb_buttons = 1\n[page1_button1]\ntitle = A\n"
        "[page2]\nnb_buttons = 0\n[page3]\nnb_buttons = 1\n[page3_button1]\ntitle = B\n",
        {"nb_buttons=1 | pageid=1", "nb_buttons=0 | pageid=2", "nb_buttons=1 | pageid=3"},
        {button(0, 1, "A"), button(1, 3, "B")});
    row("groups in any order",
        "[page1_button2]\ntitle = B\n[page1]\nnb_buttons = 2\n[page1_button1]\ntitle = A\n[page]\nnumber = 1\n",
        {"nb_buttons=2 | pageid=1"}, {button(0, 1, "A"), button(1, 1, "B")});
    row("nb_buttons missing", "[page]\nnumber = 1\n" + wash + "[page1_button1]\ntitle = Red\n",
        {"name=Wash | pageid=1"});
    for (const char *count : {"", "0", "-1", "many", "0x1", "1.5", "1,5"})
        row("nb_buttons is [" + QByteArray(count) + "]",
            "[page]\nnumber = 1\n[page1]\nnb_buttons = " + QByteArray(count)
                + "\n[page1_button1]\ntitle = Red\n",
            {QString("nb_buttons=%1 | pageid=1").arg(count)});

    const QByteArray one = "[page]\nnumber = 1\n[page1]\nnb_buttons = 1\n";
    const QByteArray three = "[page]\nnumber = 1\n[page1]\nnb_buttons = 3\n";
    const QStringList onePage = {"nb_buttons=1 | pageid=1"};
    row("a button group is absent",
        three + "[page1_button1]\ntitle = A\n[page1_button3]\ntitle = C\ncolor = 255\n",
        {"nb_buttons=3 | pageid=1"}, {button(0, 1, "A"), button(1, 1, {}), button(2, 1, "C", "#0000FF")});
    row("more buttons counted than in the file", three + "[page1_button1]\ntitle = A\n",
        {"nb_buttons=3 | pageid=1"}, {button(0, 1, "A"), button(1, 1, {}), button(2, 1, {})});
    row("fewer buttons counted than in the file",
        one + "[page1_button1]\ntitle = A\n[page1_button2]\ntitle = B\n", onePage, {button(0, 1, "A")});
    row("buttons of a page that is not there", "[page]\nnumber = 1\n[page1_button1]\ntitle = A\n",
        {"pageid=1"});
    row("a button without title", one + "[page1_button1]\ncolor = 255\n", onePage,
        {button(0, 1, {}, "#0000FF")});
    row("button 10 is not button 1", one + "[page1_button10]\ntitle = J\n", onePage, {button(0, 1, {})});
    row("keys that the program does not know",
        "[page]\nnumber = 1\n[page1]\nname = Wash\nswap = yes\nnb_buttons = 1\n"
        "[page1_button1]\nline = 2\ncolumn = 3\nname = Red.mac\ntitle = Red\nbeats = 4\n",
        {"name=Wash | nb_buttons=1 | pageid=1 | swap=yes"},
        {"beats=4 | buttonid=0 | check=0 | color=#ffffff | column=3 | line=2 | name=Red.mac | pageid=1 | title=Red"});
    row("the page's number comes from the file",
        "[page]\nnumber = 1\n[page1]\npageid = 7\nnb_buttons = 1\n"
        "[page1_button1]\ntitle = By position\n[page7_button1]\ntitle = By number\n",
        {"nb_buttons=1 | pageid=7"}, {button(0, 1, "By number")});
    row("the page's number in the file is empty",
        "[page]\nnumber = 1\n[page1]\npageid =\nnb_buttons = 1\n"
        "[page1_button1]\ntitle = By position\n[page_button1]\ntitle = By number\n",
        {"nb_buttons=1 | pageid="}, {button(0, 1, "By number")});
    row("two pages share the buttons of one number",
        "[page]\nnumber = 2\n[page1]\nnb_buttons = 1\n[page1_button1]\ntitle = A\n"
        "[page2]\npageid = 1\nnb_buttons = 1\n",
        {"nb_buttons=1 | pageid=1", "nb_buttons=1 | pageid=1"}, {button(0, 1, "A"), button(1, 2, "A")});
    row("a button's page and tick come from the file, its number does not",
        one + "[page1_button1]\npageid = 5\ncheck = 1\nbuttonid = 99\ntitle = A\n", onePage,
        {"buttonid=0 | check=1 | color=#ffffff | pageid=5 | title=A"});
    row("groups twice",
        "[page]\nnumber = 1\n[page1]\nname = Old\nnb_buttons = 1\n[page1_button1]\ntitle = Old\ncolor = 255\n"
        "[page1_button1]\ntitle = New\n[page1]\nname = New\n",
        {"name=New | nb_buttons=1 | pageid=1"}, {button(0, 1, "New", "#0000FF")});
    row("the page count twice", "[page]\nnumber = 5\n" + wash + "[page]\nnumber = 1\n",
        {"name=Wash | pageid=1"});
    row("keys twice", "[page]\nnumber = 1\n[page1]\nname = Old\nname = New\n", {"name=New | pageid=1"});

    const auto same = [&row](const char *name, const QByteArray &ini) {
        row(name, ini,
            {"name=Wash | nb_buttons=2 | pageid=1",
             QString::fromUtf8("name=Nebelstoß | nb_buttons=1 | pageid=2")},
            {button(0, 1, "Red", "#FF0000"), button(1, 1, "Blue, slow", "#0000FF"), button(2, 2, "Haze")});
    };
    same("byte order mark before the first group", Mark + smallShow());
    same("byte order mark on a line of its own", Mark + "\n" + smallShow());
    same("no blanks around the equals sign", Mark + smallShow().replace(" = ", "="));
    same("lines end with carriage return and line feed", Mark + smallShow().replace("\n", "\r\n"));
    same("the last line has no end", Mark + smallShow().trimmed());
    same("blank lines and comments", Mark + smallShow().replace("\n", "\n\n; a comment\n\n"));

    row("cut off in a button's group", one + "[page1_but", onePage, {button(0, 1, {})});
    row("cut off in a key", one + "[page1_button1]\ncolor = 255\ntit", onePage,
        {button(0, 1, {}, "#0000FF")});
    row("cut off in a value", one + "[page1_button1]\ntitle = Stro", onePage, {button(0, 1, "Stro")});
}

void TestLiveShow::readsPagesAndButtons()
{
    QFETCH(const QByteArray, ini);
    QFETCH(const QStringList, pages);
    QFETCH(const QStringList, buttons);
    LiveShow show;
    QVERIFY(read(ini, show));
    QCOMPARE(shown(show.pages), QStringList("name=All Pages | pageid=0") + pages);
    QCOMPARE(shown(show.buttons), buttons);
}

void TestLiveShow::convertsColors_data()
{
    QTest::addColumn<QByteArray>("line"); // of the button's group
    QTest::addColumn<QString>("color");
    const auto row = [](const char *name, const QByteArray &line, const QString &color) {
        QTest::newRow(name) << line << color;
    };
    row("black is a colour", "color = 0", "#000000");
    row("one", "color = 1", "#000001");
    row("lowest byte", "color = 255", "#0000FF");
    row("upper-case digits", "color = 11259375", "#ABCDEF");
    row("seven digits", "color = 16777216", "#1000000");
    row("eight digits", "color = 2147483647", "#7FFFFFFF");
    row("leading zeros", "color = 000255", "#0000FF");
    row("in double quotes", "color = \"255\"", "#0000FF");
    row("not a number", "color = red", "#000000");
    row("hexadecimal", "color = 0xFF", "#000000");
    row("with a comma", "color = 255, 0", "#000000");
    row("empty", "color = ", "#000000");
    row("no key", "", "#ffffff");
    row("another spelling of the key", "Color = 255", "#ffffff");
    row("a longer key", "colors = 255", "#ffffff");
}

void TestLiveShow::convertsColors()
{
    QFETCH(const QByteArray, line);
    QFETCH(const QString, color);
    LiveShow show;
    QVERIFY(read("[page]\nnumber = 1\n[page1]\nnb_buttons = 1\n[page1_button1]\ntitle = A\n" + line + "\n",
                 show));
    QCOMPARE(show.buttons.size(), 1);
    QCOMPARE(show.buttons.first().value("color"), color);
}

void TestLiveShow::readsTitles_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QString>("title");
    QTest::newRow("a comma and a blank") << QByteArray("Red, White") << "Red, White";
    QTest::newRow("a comma without blank") << QByteArray("Red,White") << "Red,White";
    QTest::newRow("a comma at the end") << QByteArray("Red,") << "Red,";
    QTest::newRow("commas and blanks as they stand") << QByteArray(" a ,b,,c ") << "a ,b,,c";
    QTest::newRow("an at sign in front of a comma") << QByteArray("@home, garden") << "@home, garden";
    QTest::newRow("an at sign behind a comma") << QByteArray("a, @b") << "a, @b";
    QTest::newRow("a comma within double quotes") << QByteArray("\"Red,White\"") << "Red,White";
    QTest::newRow("blanks at both ends") << QByteArray("   Red   ") << "Red";
    QTest::newRow("single quote") << QByteArray("It's on") << "It's on";
    QTest::newRow("ampersand and angle brackets") << QByteArray("Kick & <Snare>") << "Kick & <Snare>";
    QTest::newRow("percent sign") << QByteArray("50% dim") << "50% dim";
    QTest::newRow("German") << QByteArray("Nebelsto\xC3\x9F") << QString::fromUtf8("Nebelstoß");
    QTest::newRow("Polish, with a comma")
        << QByteArray("\xC5\x81\xC3\xB3\xC5\xBC, \xC5\x9Bwiat\xC5\x82o") << QString::fromUtf8("Łóż, światło");
    QTest::newRow("Japanese") << QByteArray("\xE7\x85\xA7\xE6\x98\x8E") << QString::fromUtf8("照明");
    QTest::newRow("beyond sixteen bits") << QByteArray("\xF0\x9F\x94\xA5") << QString::fromUtf8("🔥");
}

void TestLiveShow::readsTitles()
{
    QFETCH(const QByteArray, value);
    QFETCH(const QString, title);
    LiveShow show;
    QVERIFY(read(Mark + "[page]\nnumber = 1\n[page1]\nname = " + value
                     + "\nnb_buttons = 1\n[page1_button1]\ntitle = " + value + "\n",
                 show));
    QCOMPARE(valuesOf(show.pages, "name"), (QStringList{"All Pages", title}));
    QCOMPARE(valuesOf(show.buttons, "title"), QStringList{title});
}

void TestLiveShow::readsFilesCutOffAnywhere()
{
    const QByteArray whole = Mark + smallShow();
    for (int length = 0; length <= whole.size(); ++length) {
        LiveShow show;
        QVERIFY(read(whole.left(length), show));
        QVERIFY2(faultsOf(show).isEmpty(),
                 qPrintable(QString("%1 bytes: %2").arg(length).arg(faultsOf(show))));
        QVERIFY(show.pages.size() <= 3);
        QVERIFY(show.buttons.size() <= 3);
    }
}

void TestLiveShow::survivesBadFiles_data()
{
    QTest::addColumn<QByteArray>("file");
    QRandomGenerator random(2024);
    QByteArray noise(1 << 13, '\0');
    for (char &byte : noise)
        byte = static_cast<char>(random.bounded(256));
    QByteArray holed = smallShow();
    for (int i = 0; i < holed.size(); i += 11)
        holed[i] = static_cast<char>(random.bounded(256));

    QByteArray wide = "\xFF\xFE";
    for (const char letter : smallShow())
        wide.append(letter).append('\0');

    QTest::newRow("random bytes") << noise;
    QTest::newRow("random bytes behind a byte order mark") << Mark + noise;
    QTest::newRow("random bytes as a title")
        << "[page]\nnumber = 1\n[page1]\nnb_buttons = 1\n[page1_button1]\ntitle = " + noise;
    QTest::newRow("a show with holes") << holed;
    QTest::newRow("bytes of zero") << QByteArray(5000, '\0');
    QTest::newRow("bytes of 255") << QByteArray(5000, '\xFF');
    QTest::newRow("one line of a million letters") << QByteArray(1000000, 'a');
    QTest::newRow("brackets only") << QByteArray(5000, '[');
    QTest::newRow("equals signs only") << QByteArray(5000, '=');
    QTest::newRow("backslashes in a title")
        << "[page]\nnumber = 1\n[page1]\nnb_buttons = 1\n[page1_button1]\ntitle = " + QByteArray(999, '\\');
    QTest::newRow("a quote that never ends")
        << QByteArray("[page]\nnumber = 1\n[page1]\nnb_buttons = 1\n[page1_button1]\ntitle = \"Red\n");
    QTest::newRow("wide characters") << wide;
    QTest::newRow("number just past the largest integer")
        << QByteArray("[page]\nnumber = 2147483648\n[page1]\nname = Wash\n");
    QTest::newRow("nb_buttons just past the largest integer")
        << QByteArray("[page]\nnumber = 1\n[page1]\nnb_buttons = 2147483648\n");
    QTest::newRow("number of forty digits")
        << "[page]\nnumber = " + QByteArray(40, '9') + "\n[page1]\nname = Wash\n";
    QTest::newRow("colour past the largest integer")
        << QByteArray("[page]\nnumber = 1\n[page1]\nnb_buttons = 1\n[page1_button1]\ncolor = 99999999999\n");
    QTest::newRow("colour is negative")
        << QByteArray("[page]\nnumber = 1\n[page1]\nnb_buttons = 1\n[page1_button1]\ncolor = -1\n");
}

void TestLiveShow::survivesBadFiles()
{
    QFETCH(const QByteArray, file);
    LiveShow show;
    QVERIFY(read(file, show));
    QCOMPARE(faultsOf(show), QString());
    QVERIFY(show.buttons.size() <= 3);
}

void TestLiveShow::findsNothingWithoutAFile_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("missing file") << "live.ini";
    QTest::newRow("missing folder") << "Live/live.ini";
    QTest::newRow("a folder") << ".";
    QTest::newRow("a path that goes on behind U+0000") << "other.ini" + QString(QChar::Null) + "live.ini";
}

void TestLiveShow::findsNothingWithoutAFile()
{
    QFETCH(const QString, path);
    const QTemporaryDir folder;
    QVERIFY(writeFile(folder.filePath("other.ini"), smallShow()));
    QVERIFY(!readLiveShow(folder.filePath(path)));
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList{"other.ini"});
}

void TestLiveShow::readsAllThatIsThereBehindAHugeCount_data()
{
    QTest::addColumn<QByteArray>("ini");
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QStringList>("titles");
    const QByteArray huge = "2000000000";
    const QByteArray largest = "2147483647";
    const QByteArray gap = "[page1]\nname = Wash\nnb_buttons = 3\n"
                           "[page1_button1]\ntitle = A\n[page1_button3]\ntitle = C\n";
    const auto twoPages = [](const char *name, const QByteArray &pages, const QByteArray &first,
                             const QByteArray &second) {
        QTest::newRow(name) << "[page]\nnumber = " + pages + "\n[page1]\nname = Wash\nnb_buttons = " + first
                                   + "\n[page1_button1]\ntitle = A\n[page1_button2]\ntitle = B\n"
                                     "[page2]\nname = Movers\nnb_buttons = "
                                   + second + "\n[page2_button1]\ntitle = C\n"
                            << QStringList{"Wash", "Movers"} << QStringList{"A", "B", "C"};
    };
    twoPages("300 pages and 300 buttons", "300", "300", "1");
    twoPages("two thousand million pages", huge, "2", "1");
    twoPages("two thousand million buttons on the last page", "2", "2", huge);
    twoPages("two thousand million buttons on the first page", "2", huge, "1");
    twoPages("the largest integer of all", largest, largest, largest);
    QTest::newRow("pages 60,000 and 100,000 of two thousand million")
        << "[page]\nnumber = " + huge + "\n[page60000]\nname = Wash\n[page100000]\nname = Movers\n"
        << QStringList{"Wash", "Movers"} << QStringList();
    QTest::newRow("a gap in the buttons of two thousand million pages")
        << "[page]\nnumber = " + huge + "\n" + gap << QStringList{"Wash"} << QStringList{"A", "C"};
    QTest::newRow("a gap in the buttons behind two thousand million buttons")
        << "[page]\nnumber = 2\n[page1]\nname = Strobes\nnb_buttons = " + huge + "\n"
               + QByteArray(gap).replace("page1", "page2")
        << QStringList{"Strobes", "Wash"} << QStringList{"A", "C"};
}

/** Whatever the count of empty records, what the file holds comes complete and in its order. */
void TestLiveShow::readsAllThatIsThereBehindAHugeCount()
{
    QFETCH(const QByteArray, ini);
    QFETCH(const QStringList, names);
    QFETCH(const QStringList, titles);
    LiveShow show;
    QVERIFY(read(ini, show));
    QCOMPARE(faultsOf(show), QString());

    QStringList foundNames = valuesOf(show.pages.mid(1), "name");
    foundNames.removeAll(QString());
    QCOMPARE(foundNames, names);
    QStringList foundTitles = valuesOf(show.buttons, "title");
    foundTitles.removeAll(QString());
    QCOMPARE(foundTitles, titles);
}

void TestLiveShow::countsFiftyThousandMissingGroups_data()
{
    QTest::addColumn<QByteArray>("ini");
    QTest::addColumn<int>("pages");
    QTest::addColumn<int>("buttons");
    QTest::newRow("pages, one below the limit") << QByteArray("[page]\nnumber = 49999\n") << 49999 << 0;
    QTest::newRow("pages up to the limit") << QByteArray("[page]\nnumber = 50000\n") << 50000 << 0;
    QTest::newRow("pages beyond it") << QByteArray("[page]\nnumber = 50001\n") << 50000 << 0;
    QTest::newRow("buttons beyond it")
        << QByteArray("[page]\nnumber = 1\n[page1]\nnb_buttons = 50001\n") << 1 << 50000;
    QTest::newRow("a button that is there beside them")
        << QByteArray("[page]\nnumber = 1\n[page1]\nnb_buttons = 200000\n[page1_button7]\ntitle = A\n") << 1
        << 50001;
    QTest::newRow("pages and buttons share it")
        << QByteArray("[page]\nnumber = 30001\n[page1]\nnb_buttons = 30000\n") << 30001 << 20000;
    QTest::newRow("pages with the groups of one") << pagesOfOneNumber(50, 900) << 50 << 45000;
    QTest::newRow("pages with the groups of one, beyond it") << pagesOfOneNumber(400, 1000) << 400 << 51000;
}

/** Entry 0, "All Pages", stands beside the counted ones. */
void TestLiveShow::countsFiftyThousandMissingGroups()
{
    QFETCH(const QByteArray, ini);
    LiveShow show;
    QVERIFY(read(ini, show));
    QTEST(show.pages.size() - 1, "pages");
    QTEST(show.buttons.size(), "buttons");
}

void TestLiveShow::countsWhatIsReadAgain_data()
{
    QTest::addColumn<QByteArray>("ini");
    const auto pages = [](int count, const std::function<QByteArray(int)> &pageid, int buttons) {
        QByteArray ini = "[page]\nnumber = " + QByteArray::number(count) + "\n";
        for (int page = 1; page <= count; ++page)
            ini += "[page" + QByteArray::number(page) + "]\npageid = " + pageid(page)
                   + "\nnb_buttons = " + QByteArray::number(buttons) + "\n";
        return ini;
    };
    const auto one = [](int) { return QByteArray("1"); };
    QByteArray keys = "[page1_button1]\n";
    QByteArray keysWithin = keys;
    for (int key = 0; key < 20000; ++key) {
        keys += QByteArray::number(key) + "=a\n";
        keysWithin += "a\\" + QByteArray::number(key) + "=a\n";
    }

    QTest::newRow("many keys") << pages(2000, one, 1) + keys;
    QTest::newRow("many keys in a group within") << pages(2000, one, 1) + keysWithin;
    QTest::newRow("a group by many names")
        << pages(
               2000, [](int page) { return QByteArray("/").repeated(page) + "1"; }, 1)
               + keys.replace("page1_", "page\\1_");
    QTest::newRow("a long text") << pages(20000, one, 1)
                                        + "[page1_button1]\ntext = " + QByteArray(100000, 'a');
    QTest::newRow("a long number of a page") << pages(
        1, [](int) { return QByteArray(100000, '1'); }, 100000);
}

void TestLiveShow::countsWhatIsReadAgain()
{
    QFETCH(const QByteArray, ini);
    LiveShow show;
    const ProcessorTime time;
    QVERIFY(read(ini, show));
    QVERIFY2(time.elapsed() < 8000, qPrintable(QString("%1 ms").arg(time.elapsed())));
    qint64 entries = 0;
    for (const Record &button : qAsConst(show.buttons))
        entries += button.size();
    QVERIFY2(entries < 1500000, qPrintable(QString::number(entries)));
}

void TestLiveShow::refusesLongFiles()
{
    const QTemporaryDir folder;
    QFile file(folder.filePath("live.ini"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(file.resize(32 << 20)); // takes no space on the disk
    QVERIFY(readLiveShow(file.fileName()));
    QVERIFY(file.resize((32 << 20) + 1));
    QVERIFY(!readLiveShow(file.fileName()));
}

void TestLiveShow::refusesLongNames_data()
{
    QTest::addColumn<QByteArray>("front");
    QTest::newRow("a page") << QByteArray("[page]\nnumber = 1\n[page1]\nname = ");
    QTest::newRow("a Live Button") << QByteArray(
        "[page]\nnumber = 1\n[page1]\nnb_buttons = 1\n[page1_button1]\ntitle = ");
}

void TestLiveShow::refusesLongNames()
{
    QFETCH(const QByteArray, front);
    LiveShow show;
    QVERIFY(read(front + QByteArray(10000, 'a'), show));
    QVERIFY(!read(front + QByteArray(10001, 'a'), show));
}

void TestLiveShow::readsSixtyThousandButtons()
{
    constexpr int Pages = 60;
    constexpr int Buttons = 1000;
    QByteArray ini = Mark + "[page]\nnumber = " + QByteArray::number(Pages) + "\n";
    for (int page = 1; page <= Pages; ++page) {
        const QByteArray group = "page" + QByteArray::number(page);
        ini += "[" + group + "]\nname = Page\nnb_buttons = " + QByteArray::number(Buttons) + "\n";
        for (int button = 1; button <= Buttons; ++button) {
            const QByteArray number = QByteArray::number(button);
            ini += "[" + group + "_button" + number + "]\nline = 1\ntitle = " + QByteArray::number(page) + "-"
                   + number + "\ncolor = " + QByteArray::number(page * Buttons + button) + "\n";
        }
    }

    const std::clock_t begin = std::clock(); // processor time: other programs do not count
    LiveShow show;
    QVERIFY(read(ini, show));
    const double seconds = double(std::clock() - begin) / CLOCKS_PER_SEC;
    QVERIFY2(seconds < 20, qPrintable(QString("%1 s").arg(seconds)));

    QCOMPARE(show.pages.size(), Pages + 1);
    QCOMPARE(show.buttons.size(), Pages * Buttons);
    for (int i = 0; i < show.buttons.size(); ++i) {
        const int page = i / Buttons + 1;
        const int button = i % Buttons + 1;
        QCOMPARE(shown(show.buttons.at(i)),
                 QString("buttonid=%1 | check=0 | color=%2 | line=1 | pageid=%3 | title=%3-%4")
                     .arg(QString::number(i),
                          QString::asprintf("#%06X", static_cast<unsigned>(page * Buttons + button)),
                          QString::number(page), QString::number(button)));
    }
}

void TestLiveShow::readsTheFileAfreshEachTime()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("live.ini");
    for (const QByteArray &name : {QByteArray("Wash"), QByteArray("Movers and more")}) {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        const QByteArray ini = "[page]\nnumber = 1\n[page1]\nname = " + name + "\n";
        QCOMPARE(file.write(ini), qint64(ini.size()));
        file.close();
        QCOMPARE(valuesOf(readLiveShow(path)->pages, "name"), (QStringList{"All Pages", name}));
    }
}

void TestLiveShow::leavesTheFileAlone()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("live.ini");
    const QByteArray ini = "; kept\r\n\r\n" + smallShow() + "[page2_button1]\nbuttonid = 7\n";
    QVERIFY(writeFile(path, ini));
    QCOMPARE(readLiveShow(path)->buttons.size(), 3);
    QCOMPARE(bytesOf(path), ini);
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList{"live.ini"});
}

void TestLiveShow::readsTheExampleShow()
{
    const QString path = QFINDTESTDATA("../../examples/Club Night/Live/live.ini");
    QVERIFY2(!path.isEmpty(), "The example show is missing.");
    const LiveShow show = readLiveShow(path).value_or(LiveShow());
    QCOMPARE(faultsOf(show), QString());
    QCOMPARE(valuesOf(show.pages, "name"),
             (QStringList{"All Pages", "Colors", "Strobes", "Movers", "Blinders", "Smoke & Haze", "Ambient",
                          "Specials", "House"}));

    QList<int> counts;
    int counted = 0;
    for (int number = 1; number < show.pages.size(); ++number) {
        const QString page = QString::number(number);
        const auto isOnPage = [&page](const Record &button) { return button.value("pageid") == page; };
        counts += static_cast<int>(std::count_if(show.buttons.cbegin(), show.buttons.cend(), isOnPage));
        counted += show.pages.at(number).value("nb_buttons").toInt();
    }
    QCOMPARE(counts, (QList<int>{16, 12, 18, 8, 10, 12, 12, 6}));
    QCOMPARE(show.buttons.size(), counted);

    // Every group of the file is counted, and every counted group is in the file.
    const QByteArray ini = bytesOf(path);
    QVERIFY(ini.startsWith(Mark));
    int groups = 0;
    for (const QByteArray &line : ini.split('\n'))
        groups += line.startsWith("[page") && line.contains("_button") ? 1 : 0;
    QCOMPARE(groups, show.buttons.size());

    const QStringList titles = valuesOf(show.buttons, "title");
    QVERIFY(!titles.contains(QString()));
    QVERIFY(titles.contains("Red, White, Blue"));
    QVERIFY(titles.contains(QString::fromUtf8("Nebelstoß")));
    QVERIFY(valuesOf(show.buttons, "color").contains("#ffffff"));
}

void TestLiveShow::colorTexts_data()
{
    QTest::addColumn<QString>("digits");
    QTest::addColumn<QString>("color");
    const auto row = [](const char *name, const QString &digits, const QString &color) {
        QTest::newRow(name) << digits << color;
    };
    row("empty", "", "#ffffff");
    row("null", {}, "#ffffff");
    row("one digit", "0", "#000000");
    row("five digits", "12345", "#012345");
    row("six lower-case digits", "ff88aa", "#ff88aa");
    row("seven digits", "1FF8800", "#1FF8800");
    row("sixteen digits", "FFFFFFFFFFFFFFFF", "#FFFFFFFFFFFFFFFF");
    row("a word", "red", "#000red");
}

void TestLiveShow::colorTexts()
{
    QFETCH(const QString, digits);
    QFETCH(const QString, color);
    QCOMPARE(colorText(digits), color);
}

QTEST_GUILESS_MAIN(TestLiveShow)
#include "test_liveshow.moc"

#include "show/liveshow.h"
#include "support/files.h"
#include "support/processortime.h"

#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>
#include <ctime>
#include <functional>
#include <optional>

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
    void defaultsColorsThatAreMissing_data();
    void defaultsColorsThatAreMissing();
    void readsTitles_data();
    void readsTitles();
    void readsRandomShows_data();
    void readsRandomShows();
    void readsFilesCutOffAnywhere();
    void survivesBadFiles_data();
    void survivesBadFiles();
    void findsNothingWithoutAFile_data();
    void findsNothingWithoutAFile();
    void countsMoreThanThereIs_data();
    void countsMoreThanThereIs();
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

void TestLiveShow::readsPagesAndButtons_data()
{
    QTest::addColumn<QByteArray>("ini");
    QTest::addColumn<QStringList>("pages"); // behind the first, which is All Pages
    QTest::addColumn<QStringList>("buttons");

    const QStringList none;

    QTest::newRow("empty file") << QByteArray() << none << none;
    QTest::newRow("byte order mark alone") << Mark << none << none;
    QTest::newRow("no page group") << QByteArray(
        "[live]\ndmx_on = yes\n[page1]\nname = Wash\nnb_buttons = 1\n"
        "[page1_button1]\ntitle = Red\n")
                                   << none << none;
    QTest::newRow("page group without number")
        << QByteArray("[page]\ncount = 2\n[page1]\nname = Wash\n") << none << none;
    QTest::newRow("number outside any group")
        << QByteArray("number = 1\n[page1]\nname = Wash\n") << none << none;
    QTest::newRow("number is zero") << QByteArray("[page]\nnumber = 0\n[page1]\nname = Wash\n") << none
                                    << none;
    QTest::newRow("number is negative")
        << QByteArray("[page]\nnumber = -2\n[page1]\nname = Wash\n") << none << none;
    QTest::newRow("number is a word")
        << QByteArray("[page]\nnumber = two\n[page1]\nname = Wash\n") << none << none;
    QTest::newRow("number is empty") << QByteArray("[page]\nnumber =\n[page1]\nname = Wash\n") << none
                                     << none;
    QTest::newRow("number with digits and letters")
        << QByteArray("[page]\nnumber = 2x\n[page1]\nname = Wash\n") << none << none;
    QTest::newRow("other keys of the page group do not matter")
        << QByteArray("[page]\nactive = 7\nnumber = 1\nnumbers = 3\n[page1]\nname = Wash\n")
        << QStringList{"name=Wash | pageid=1"} << none;
    QTest::newRow("more pages counted than in the file")
        << QByteArray("[page]\nnumber = 3\n[page1]\nname = Wash\n[page2]\nname = Movers\n")
        << QStringList{"name=Wash | pageid=1", "name=Movers | pageid=2", "pageid=3"} << none;
    QTest::newRow("a page missing in the middle")
        << QByteArray("[page]\nnumber = 3\n[page1]\nname = Wash\n[page3]\nname = Movers\nnb_buttons = 1\n"
                      "[page3_button1]\ntitle = Home\n")
        << QStringList{"name=Wash | pageid=1", "pageid=2", "name=Movers | nb_buttons=1 | pageid=3"}
        << QStringList{"buttonid=0 | check=0 | color=#ffffff | pageid=3 | title=Home"};
    QTest::newRow("a page group without keys")
        << QByteArray("[page]\nnumber = 2\n[page1]\n[page2]\nname = Movers\n")
        << QStringList{"pageid=1", "name=Movers | pageid=2"} << none;
    QTest::newRow("fewer pages counted than in the file")
        << QByteArray("[page]\nnumber = 1\n[page1]\nname = Wash\n[page2]\nname = Movers\nnb_buttons = 1\n"
                      "[page2_button1]\ntitle = Home\n")
        << QStringList{"name=Wash | pageid=1"} << none;

    QTest::newRow("buttons of page 2 carry on the count")
        << QByteArray("[page]\nnumber = 2\n[page1]\nname = Wash\nnb_buttons = 4\n"
                      "[page1_button1]\ntitle = A\n[page1_button2]\ntitle = B\n"
                      "[page1_button3]\ntitle = C\n[page1_button4]\ntitle = D\n"
                      "[page2]\nname = Movers\nnb_buttons = 2\n"
                      "[page2_button1]\ntitle = E\n[page2_button2]\ntitle = F\n")
        << QStringList{"name=Wash | nb_buttons=4 | pageid=1", "name=Movers | nb_buttons=2 | pageid=2"}
        << QStringList{"buttonid=0 | check=0 | color=#ffffff | pageid=1 | title=A",
                       "buttonid=1 | check=0 | color=#ffffff | pageid=1 | title=B",
                       "buttonid=2 | check=0 | color=#ffffff | pageid=1 | title=C",
                       "buttonid=3 | check=0 | color=#ffffff | pageid=1 | title=D",
                       "buttonid=4 | check=0 | color=#ffffff | pageid=2 | title=E",
                       "buttonid=5 | check=0 | color=#ffffff | pageid=2 | title=F"};
    QTest::newRow("a page of no buttons does not disturb the count")
        << QByteArray("[page]\nnumber = 3\n[page1]\nnb_buttons = 1\n[page1_button1]\ntitle = A\n"
                      "[page2]\nnb_buttons = 0\n[page3]\nnb_buttons = 1\n[page3_button1]\ntitle = B\n")
        << QStringList{"nb_buttons=1 | pageid=1", "nb_buttons=0 | pageid=2", "nb_buttons=1 | pageid=3"}
        << QStringList{"buttonid=0 | check=0 | color=#ffffff | pageid=1 | title=A",
                       "buttonid=1 | check=0 | color=#ffffff | pageid=3 | title=B"};
    QTest::newRow("groups in any order")
        << QByteArray("[page1_button2]\ntitle = B\n[page1]\nnb_buttons = 2\n[page1_button1]\ntitle = A\n"
                      "[page]\nnumber = 1\n")
        << QStringList{"nb_buttons=2 | pageid=1"}
        << QStringList{"buttonid=0 | check=0 | color=#ffffff | pageid=1 | title=A",
                       "buttonid=1 | check=0 | color=#ffffff | pageid=1 | title=B"};

    const struct
    {
        const char *name;
        QByteArray line;
        QString kept;
    } counts[] = {
        {"nb_buttons missing", "", "name=Wash | pageid=1"},
        {"nb_buttons is empty", "nb_buttons =\n", "name=Wash | nb_buttons= | pageid=1"},
        {"nb_buttons is zero", "nb_buttons = 0\n", "name=Wash | nb_buttons=0 | pageid=1"},
        {"nb_buttons is negative", "nb_buttons = -1\n", "name=Wash | nb_buttons=-1 | pageid=1"},
        {"nb_buttons is a word", "nb_buttons = many\n", "name=Wash | nb_buttons=many | pageid=1"},
        {"nb_buttons is hexadecimal", "nb_buttons = 0x1\n", "name=Wash | nb_buttons=0x1 | pageid=1"},
        {"nb_buttons has a fraction", "nb_buttons = 1.5\n", "name=Wash | nb_buttons=1.5 | pageid=1"},
        {"nb_buttons has a comma", "nb_buttons = 1,5\n", "name=Wash | nb_buttons=1,5 | pageid=1"},
    };
    for (const auto &count : counts)
        QTest::newRow(count.name) << "[page]\nnumber = 1\n[page1]\nname = Wash\n" + count.line
                                         + "[page1_button1]\ntitle = Red\n"
                                  << QStringList{count.kept} << none;

    QTest::newRow("a button group is absent")
        << QByteArray("[page]\nnumber = 1\n[page1]\nnb_buttons = 3\n[page1_button1]\ntitle = A\n"
                      "[page1_button3]\ntitle = C\ncolor = 255\n")
        << QStringList{"nb_buttons=3 | pageid=1"}
        << QStringList{"buttonid=0 | check=0 | color=#ffffff | pageid=1 | title=A",
                       "buttonid=1 | check=0 | color=#ffffff | pageid=1",
                       "buttonid=2 | check=0 | color=#0000FF | pageid=1 | title=C"};
    QTest::newRow("more buttons counted than in the file")
        << QByteArray("[page]\nnumber = 1\n[page1]\nnb_buttons = 3\n[page1_button1]\ntitle = A\n")
        << QStringList{"nb_buttons=3 | pageid=1"}
        << QStringList{"buttonid=0 | check=0 | color=#ffffff | pageid=1 | title=A",
                       "buttonid=1 | check=0 | color=#ffffff | pageid=1",
                       "buttonid=2 | check=0 | color=#ffffff | pageid=1"};
    QTest::newRow("fewer buttons counted than in the file")
        << QByteArray("[page]\nnumber = 1\n[page1]\nnb_buttons = 1\n[page1_button1]\ntitle = A\n"
                      "[page1_button2]\ntitle = B\n")
        << QStringList{"nb_buttons=1 | pageid=1"}
        << QStringList{"buttonid=0 | check=0 | color=#ffffff | pageid=1 | title=A"};
    QTest::newRow("buttons of a page that is not there")
        << QByteArray("[page]\nnumber = 1\n[page1_button1]\ntitle = A\n") << QStringList{"pageid=1"} << none;
    QTest::newRow("a button without title")
        << QByteArray("[page]\nnumber = 1\n[page1]\nnb_buttons = 1\n[page1_button1]\ncolor = 255\n")
        << QStringList{"nb_buttons=1 | pageid=1"}
        << QStringList{"buttonid=0 | check=0 | color=#0000FF | pageid=1"};
    QTest::newRow("button 10 is not button 1")
        << QByteArray("[page]\nnumber = 1\n[page1]\nnb_buttons = 1\n[page1_button10]\ntitle = J\n")
        << QStringList{"nb_buttons=1 | pageid=1"}
        << QStringList{"buttonid=0 | check=0 | color=#ffffff | pageid=1"};

    QTest::newRow("keys that the program does not know")
        << QByteArray("[page]\nnumber = 1\n[page1]\nname = Wash\nswap = yes\nnb_buttons = 1\n"
                      "[page1_button1]\nline = 2\ncolumn = 3\nname = Red.mac\ntitle = Red\nbeats = 4\n")
        << QStringList{"name=Wash | nb_buttons=1 | pageid=1 | swap=yes"}
        << QStringList{"beats=4 | buttonid=0 | check=0 | color=#ffffff | column=3 | line=2 | name=Red.mac | "
                       "pageid=1 | title=Red"};
    QTest::newRow("the page's number comes from the file")
        << QByteArray("[page]\nnumber = 1\n[page1]\npageid = 7\nnb_buttons = 1\n"
                      "[page1_button1]\ntitle = By position\n[page7_button1]\ntitle = By number\n")
        << QStringList{"nb_buttons=1 | pageid=7"}
        << QStringList{"buttonid=0 | check=0 | color=#ffffff | pageid=1 | title=By number"};
    QTest::newRow("the page's number in the file is empty")
        << QByteArray("[page]\nnumber = 1\n[page1]\npageid =\nnb_buttons = 1\n"
                      "[page1_button1]\ntitle = By position\n[page_button1]\ntitle = By number\n")
        << QStringList{"nb_buttons=1 | pageid="}
        << QStringList{"buttonid=0 | check=0 | color=#ffffff | pageid=1 | title=By number"};
    QTest::newRow("two pages share the buttons of one number")
        << QByteArray("[page]\nnumber = 2\n[page1]\nnb_buttons = 1\n[page1_button1]\ntitle = A\n"
                      "[page2]\npageid = 1\nnb_buttons = 1\n")
        << QStringList{"nb_buttons=1 | pageid=1", "nb_buttons=1 | pageid=1"}
        << QStringList{"buttonid=0 | check=0 | color=#ffffff | pageid=1 | title=A",
                       "buttonid=1 | check=0 | color=#ffffff | pageid=2 | title=A"};
    QTest::newRow("a button's page and tick come from the file, its number does not")
        << QByteArray("[page]\nnumber = 1\n[page1]\nnb_buttons = 1\n"
                      "[page1_button1]\npageid = 5\ncheck = 1\nbuttonid = 99\ntitle = A\n")
        << QStringList{"nb_buttons=1 | pageid=1"}
        << QStringList{"buttonid=0 | check=1 | color=#ffffff | pageid=5 | title=A"};

    QTest::newRow("groups twice") << QByteArray("[page]\nnumber = 1\n[page1]\nname = Old\nnb_buttons = 1\n"
                                                "[page1_button1]\ntitle = Old\ncolor = 255\n"
                                                "[page1_button1]\ntitle = New\nline = 3\n"
                                                "[page1]\nname = New\n")
                                  << QStringList{"name=New | nb_buttons=1 | pageid=1"}
                                  << QStringList{"buttonid=0 | check=0 | color=#0000FF | line=3 | pageid=1 | "
                                                 "title=New"};
    QTest::newRow("the page count twice")
        << QByteArray("[page]\nnumber = 5\n[page1]\nname = Wash\n[page]\nnumber = 1\n")
        << QStringList{"name=Wash | pageid=1"} << none;
    QTest::newRow("keys twice") << QByteArray("[page]\nnumber = 1\n[page1]\nname = Old\nname = New\n")
                                << QStringList{"name=New | pageid=1"} << none;

    const QStringList smallPages = {"name=Wash | nb_buttons=2 | pageid=1",
                                    QString::fromUtf8("name=Nebelstoß | nb_buttons=1 | pageid=2")};
    const QStringList smallButtons = {"buttonid=0 | check=0 | color=#FF0000 | pageid=1 | title=Red",
                                      "buttonid=1 | check=0 | color=#0000FF | pageid=1 | title=Blue, slow",
                                      "buttonid=2 | check=0 | color=#ffffff | pageid=2 | title=Haze"};
    QTest::newRow("byte order mark before the first group")
        << Mark + smallShow() << smallPages << smallButtons;
    QTest::newRow("byte order mark on a line of its own")
        << Mark + "\n" + smallShow() << smallPages << smallButtons;
    QTest::newRow("no blanks around the equals sign")
        << Mark + smallShow().replace(" = ", "=") << smallPages << smallButtons;
    QTest::newRow("lines end with carriage return and line feed")
        << Mark + smallShow().replace("\n", "\r\n") << smallPages << smallButtons;
    QTest::newRow("the last line has no end") << Mark + smallShow().trimmed() << smallPages << smallButtons;
    QTest::newRow("blank lines and comments")
        << Mark + smallShow().replace("\n", "\n\n; a comment\n\n") << smallPages << smallButtons;

    QTest::newRow("cut off behind a button's group")
        << QByteArray("[page]\nnumber = 1\n[page1]\nnb_buttons = 2\n[page1_button1]\ntitle = A\n"
                      "[page1_button2]")
        << QStringList{"nb_buttons=2 | pageid=1"}
        << QStringList{"buttonid=0 | check=0 | color=#ffffff | pageid=1 | title=A",
                       "buttonid=1 | check=0 | color=#ffffff | pageid=1"};
    QTest::newRow("cut off in a button's group")
        << QByteArray("[page]\nnumber = 1\n[page1]\nnb_buttons = 2\n[page1_button1]\ntitle = A\n[page1_but")
        << QStringList{"nb_buttons=2 | pageid=1"}
        << QStringList{"buttonid=0 | check=0 | color=#ffffff | pageid=1 | title=A",
                       "buttonid=1 | check=0 | color=#ffffff | pageid=1"};
    QTest::newRow("cut off in a key")
        << QByteArray("[page]\nnumber = 1\n[page1]\nnb_buttons = 1\n[page1_button1]\ncolor = 255\ntit")
        << QStringList{"nb_buttons=1 | pageid=1"}
        << QStringList{"buttonid=0 | check=0 | color=#0000FF | pageid=1"};
    QTest::newRow("cut off in a value")
        << QByteArray("[page]\nnumber = 1\n[page1]\nnb_buttons = 1\n[page1_button1]\ntitle = Stro")
        << QStringList{"nb_buttons=1 | pageid=1"}
        << QStringList{"buttonid=0 | check=0 | color=#ffffff | pageid=1 | title=Stro"};
    QTest::newRow("cut off in the middle of the pages")
        << QByteArray("[page]\nnumber = 3\n[page1]\nname = Wash\nnb_buttons = 1\n"
                      "[page1_button1]\ntitle = Red\n[page2]\nname = Mov")
        << QStringList{"name=Wash | nb_buttons=1 | pageid=1", "name=Mov | pageid=2", "pageid=3"}
        << QStringList{"buttonid=0 | check=0 | color=#ffffff | pageid=1 | title=Red"};
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
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QString>("color");

    QTest::newRow("black is a colour") << QByteArray("0") << "#000000";
    QTest::newRow("one") << QByteArray("1") << "#000001";
    QTest::newRow("lowest byte") << QByteArray("255") << "#0000FF";
    QTest::newRow("middle byte") << QByteArray("65280") << "#00FF00";
    QTest::newRow("highest byte") << QByteArray("16711680") << "#FF0000";
    QTest::newRow("upper-case digits") << QByteArray("11259375") << "#ABCDEF";
    QTest::newRow("white") << QByteArray("16777215") << "#FFFFFF";
    QTest::newRow("seven digits") << QByteArray("16777216") << "#1000000";
    QTest::newRow("seven digits, all F") << QByteArray("268435455") << "#FFFFFFF";
    QTest::newRow("eight digits") << QByteArray("2147483647") << "#7FFFFFFF";
    QTest::newRow("leading zeros") << QByteArray("000255") << "#0000FF";
    QTest::newRow("in double quotes") << QByteArray("\"255\"") << "#0000FF";
    QTest::newRow("not a number") << QByteArray("red") << "#000000";
    QTest::newRow("hash and digits") << QByteArray("#ff0000") << "#000000";
    QTest::newRow("hexadecimal") << QByteArray("0xFF") << "#000000";
    QTest::newRow("with a comma") << QByteArray("255, 0") << "#000000";
    QTest::newRow("empty") << QByteArray("") << "#000000";
}

void TestLiveShow::convertsColors()
{
    QFETCH(const QByteArray, value);
    QFETCH(const QString, color);

    LiveShow show;
    QVERIFY(read("[page]\nnumber = 1\n[page1]\nnb_buttons = 1\n[page1_button1]\ntitle = A\ncolor = " + value
                     + "\n",
                 show));
    QCOMPARE(show.buttons.size(), 1);
    QCOMPARE(show.buttons.first().value("color"), color);
}

void TestLiveShow::defaultsColorsThatAreMissing_data()
{
    QTest::addColumn<QByteArray>("group");

    QTest::newRow("no group") << QByteArray();
    QTest::newRow("no key") << QByteArray("[page1_button1]\ntitle = A\n");
    QTest::newRow("another spelling of the key") << QByteArray("[page1_button1]\nColor = 255\n");
    QTest::newRow("a longer key") << QByteArray("[page1_button1]\ncolors = 255\n");
}

void TestLiveShow::defaultsColorsThatAreMissing()
{
    QFETCH(const QByteArray, group);

    LiveShow show;
    QVERIFY(read("[page]\nnumber = 1\n[page1]\nnb_buttons = 1\n" + group, show));
    QCOMPARE(show.buttons.size(), 1);
    QCOMPARE(show.buttons.first().value("color"), QString("#ffffff"));
}

void TestLiveShow::readsTitles_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QString>("title");

    QTest::newRow("a comma and a blank") << QByteArray("Red, White") << "Red, White";
    QTest::newRow("two commas") << QByteArray("Anna, Iza, Krystian") << "Anna, Iza, Krystian";
    QTest::newRow("a comma without blank") << QByteArray("Red,White") << "Red,White";
    QTest::newRow("a comma at the end") << QByteArray("Red,") << "Red,";
    QTest::newRow("commas and blanks as they stand") << QByteArray(" a ,b,,c ") << "a ,b,,c";
    QTest::newRow("an at sign in front of a comma") << QByteArray("@home, garden") << "@home, garden";
    QTest::newRow("an at sign behind a comma") << QByteArray("a, @b") << "a, @b";
    QTest::newRow("a comma within double quotes") << QByteArray("\"Red,White\"") << "Red,White";
    QTest::newRow("blanks at both ends") << QByteArray("   Red   ") << "Red";
    QTest::newRow("single quote") << QByteArray("It's on") << "It's on";
    QTest::newRow("ampersand and angle brackets") << QByteArray("Kick & <Snare>") << "Kick & <Snare>";
    QTest::newRow("equals sign") << QByteArray("a = b") << "a = b";
    QTest::newRow("square brackets") << QByteArray("[on]") << "[on]";
    QTest::newRow("number") << QByteArray("007") << "007";
    QTest::newRow("percent sign") << QByteArray("50% dim") << "50% dim";
    QTest::newRow("German") << QByteArray("Nebelsto\xC3\x9F") << QString::fromUtf8("Nebelstoß");
    QTest::newRow("Polish, with a comma")
        << QByteArray("\xC5\x81\xC3\xB3\xC5\xBC, \xC5\x9Bwiat\xC5\x82o") << QString::fromUtf8("Łóż, światło");
    QTest::newRow("Russian") << QByteArray("\xD0\xA1\xD0\xB2\xD0\xB5\xD1\x82") << QString::fromUtf8("Свет");
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

/** A show as somebody thinks it up: what stands in the file, and what a reader should find there. */
class ImaginedShow final
{
public:
    explicit ImaginedShow(quint32 seed) : m_random(seed)
    {
        const int counted = m_random.bounded(7);
        m_groups += "[page]\nnumber = " + QByteArray::number(counted) + "\n";
        for (int page = 1; page <= counted; ++page)
            imaginePage(page);
        std::shuffle(m_groups.begin(), m_groups.end(), m_random);
    }

    QByteArray file() const { return Mark + m_groups.join(); }
    QStringList pages() const { return m_pages; }
    QStringList buttons() const { return m_buttons; }

private:
    bool happens(int percent) { return m_random.bounded(100) < percent; }

    void imaginePage(int page)
    {
        Record expected = {{"pageid", QString::number(page)}};
        int inFile = 0;
        if (happens(85)) {
            QByteArray group = "[page" + QByteArray::number(page) + "]\n";
            if (happens(90)) {
                expected.insert("name", "Page of " + QString::number(m_random.bounded(1000)));
                group += "name = " + expected.value("name").toUtf8() + "\n";
            }
            if (happens(85)) {
                inFile = m_random.bounded(9);
                expected.insert("nb_buttons", QString::number(inFile));
                group += "nb_buttons = " + QByteArray::number(inFile) + "\n";
            }
            m_groups += group;
        }
        m_pages += shown(expected);
        // Now and then the file holds more groups than it counts.
        for (int button = 1; button <= inFile + 2; ++button)
            imagineButton(page, button, button <= inFile);
    }

    void imagineButton(int page, int button, bool isCounted)
    {
        Record expected = {{"pageid", QString::number(page)}, {"check", "0"}, {"color", "#ffffff"}};
        if (happens(80)) {
            QByteArray group =
                "[page" + QByteArray::number(page) + "_button" + QByteArray::number(button) + "]\n";
            if (happens(90)) {
                expected.insert("title",
                                QString::fromUtf8("Größe, ") + QString::number(m_random.bounded(99)));
                group += "title = " + expected.value("title").toUtf8() + "\n";
            }
            if (happens(75)) {
                const int color = m_random.bounded(0x1000000);
                expected.insert("color", QString::asprintf("#%06X", static_cast<unsigned>(color)));
                group += "color = " + QByteArray::number(color) + "\n";
            }
            if (happens(50)) {
                expected.insert("macro", "Wash L|Wash R");
                group += "macro = Wash L|Wash R\n";
            }
            m_groups += group;
        }
        if (!isCounted)
            return;
        expected.insert("buttonid", QString::number(m_buttons.size()));
        m_buttons += shown(expected);
    }

    QRandomGenerator m_random;
    QByteArrayList m_groups;
    QStringList m_pages = {"name=All Pages | pageid=0"};
    QStringList m_buttons;
};

void TestLiveShow::readsRandomShows_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 100; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

void TestLiveShow::readsRandomShows()
{
    QFETCH(const quint32, seed);

    const ImaginedShow imagined(seed);
    LiveShow show;
    QVERIFY(read(imagined.file(), show));
    QCOMPARE(shown(show.pages), imagined.pages());
    QCOMPARE(shown(show.buttons), imagined.buttons());
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

void TestLiveShow::countsMoreThanThereIs_data()
{
    QTest::addColumn<int>("pages");
    QTest::addColumn<int>("buttons");

    QTest::newRow("3 pages and 5,000 buttons") << 3 << 5000;
    QTest::newRow("300 pages and 300 buttons") << 300 << 300;
    QTest::newRow("5,000 pages and no button") << 5000 << 0;
}

/** Two pages and two buttons stand in the file, and a record is made for all that are counted. */
void TestLiveShow::countsMoreThanThereIs()
{
    QFETCH(const int, pages);
    QFETCH(const int, buttons);

    LiveShow show;
    QVERIFY(read("[page]\nnumber = " + QByteArray::number(pages)
                     + "\n[page1]\nname = Wash\nnb_buttons = " + QByteArray::number(buttons)
                     + "\n[page1_button1]\ntitle = A\n[page1_button2]\ntitle = B\n[page2]\nname = Movers\n",
                 show));

    QCOMPARE(show.pages.size(), pages + 1);
    QCOMPARE(show.buttons.size(), buttons);
    QCOMPARE(faultsOf(show), QString());
    for (int number = 1; number <= pages; ++number)
        QCOMPARE(show.pages.at(number).value("pageid"), QString::number(number));
    QCOMPARE(shown(show.pages.last()), "pageid=" + QString::number(pages));
    QStringList titles = {"A", "B"};
    while (titles.size() < buttons)
        titles += QString();
    QCOMPARE(valuesOf(show.buttons, "title"), titles.mid(0, buttons));
}

void TestLiveShow::readsAllThatIsThereBehindAHugeCount_data()
{
    QTest::addColumn<QByteArray>("ini");
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QStringList>("titles");

    const QByteArray huge = "2000000000";
    const QByteArray largest = "2147483647";
    const QByteArray twoPages = "[page1]\nname = Wash\nnb_buttons = 2\n"
                                "[page1_button1]\ntitle = A\n[page1_button2]\ntitle = B\n"
                                "[page2]\nname = Movers\nnb_buttons = 1\n[page2_button1]\ntitle = C\n";
    const QByteArray gap = "[page1]\nname = Wash\nnb_buttons = 3\n"
                           "[page1_button1]\ntitle = A\n[page1_button3]\ntitle = C\n";

    QTest::newRow("two thousand million pages")
        << "[page]\nnumber = " + huge + "\n" + twoPages << QStringList{"Wash", "Movers"}
        << QStringList{"A", "B", "C"};
    QTest::newRow("the largest integer of pages")
        << "[page]\nnumber = " + largest + "\n" + twoPages << QStringList{"Wash", "Movers"}
        << QStringList{"A", "B", "C"};
    QTest::newRow("two thousand million buttons on the last page")
        << "[page]\nnumber = 2\n"
               + QByteArray(twoPages).replace("[page2]\nname = Movers\nnb_buttons = 1",
                                              "[page2]\nname = Movers\nnb_buttons = " + huge)
        << QStringList{"Wash", "Movers"} << QStringList{"A", "B", "C"};
    QTest::newRow("two thousand million buttons on the first page")
        << "[page]\nnumber = 2\n" + QByteArray(twoPages).replace("nb_buttons = 2", "nb_buttons = " + huge)
        << QStringList{"Wash", "Movers"} << QStringList{"A", "B", "C"};
    QTest::newRow("the largest integer of buttons on both pages")
        << "[page]\nnumber = 2\n"
               + QByteArray(twoPages)
                     .replace("nb_buttons = 2", "nb_buttons = " + largest)
                     .replace("nb_buttons = 1", "nb_buttons = " + largest)
        << QStringList{"Wash", "Movers"} << QStringList{"A", "B", "C"};
    QTest::newRow("two thousand million pages of two thousand million buttons")
        << "[page]\nnumber = " + huge + "\n"
               + QByteArray(twoPages)
                     .replace("nb_buttons = 2", "nb_buttons = " + huge)
                     .replace("nb_buttons = 1", "nb_buttons = " + huge)
        << QStringList{"Wash", "Movers"} << QStringList{"A", "B", "C"};
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
    QVERIFY(file.resize(32 << 20)); // takes no room on the disk
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
    QVERIFY(folder.isValid());
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
    QVERIFY(folder.isValid());
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

    QTest::newRow("empty") << ""
                           << "#ffffff";
    QTest::newRow("null") << QString() << "#ffffff";
    QTest::newRow("one digit") << "0"
                               << "#000000";
    QTest::newRow("three digits") << "ABC"
                                  << "#000ABC";
    QTest::newRow("five digits") << "12345"
                                 << "#012345";
    QTest::newRow("six digits") << "FF8800"
                                << "#FF8800";
    QTest::newRow("six lower-case digits") << "ff88aa"
                                           << "#ff88aa";
    QTest::newRow("seven digits") << "1FF8800"
                                  << "#1FF8800";
    QTest::newRow("sixteen digits") << "FFFFFFFFFFFFFFFF"
                                    << "#FFFFFFFFFFFFFFFF";
    QTest::newRow("a word") << "red"
                            << "#000red";
}

void TestLiveShow::colorTexts()
{
    QFETCH(const QString, digits);
    QFETCH(const QString, color);
    QCOMPARE(colorText(digits), color);
}

QTEST_GUILESS_MAIN(TestLiveShow)
#include "test_liveshow.moc"

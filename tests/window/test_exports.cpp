#include "support/boxes.h"
#include "support/devices.h"
#include "support/files.h"
#include "support/fulldisk.h"
#include "support/texts.h"
#include "support/workspace.h"

#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>

namespace {

using namespace Devices;

// Rows of the mappers' list.
constexpr int Simple = 0;
constexpr int Factory = 1;
constexpr int Users = 2;

// Rows of the Live Buttons table.
constexpr int Strobe = 0;
constexpr int OfNoPage = 1;
constexpr int Accented = 2;
constexpr int Colon = 3;
constexpr int Question = 4;
constexpr int Apostrophe = 5;

const QByteArray Ini = "\xEF\xBB\xBF[page]\nnumber=1\n[page1]\nname=One\nnb_buttons=6\n"
                       "[page1_button1]\ntitle=Strobe\ncolor=16711680\n"
                       "[page1_button2]\ntitle=Lost\npageid=0\n"
                       "[page1_button3]\ntitle=Caf\xC3\xA9\n"
                       "[page1_button4]\ntitle=Fast : Red\ncolor=16711680\n"
                       "[page1_button5]\ntitle=Fast ? Red\ncolor=16711680\n"
                       "[page1_button6]\ntitle=It's hot\ncolor=16711680\n";

/** Of the mapping, as it is offered, and of its file. */
QString nameOf(const QString &device, const QString &page = Texts::PageName)
{
    return device + " - " + page + " mapping";
}

/** A workspace whose output is a Pads Page, or a simple mapping of the first device. */
class Output final
{
public:
    explicit Output(bool isMidi) : m_isMidi(isMidi) {}

    /** Loads the show and puts a Live Button on the first pad or key. */
    bool start(int button = Strobe)
    {
        if (!space.load(space.writeShow("Show", Ini)))
            return false;
        return m_isMidi ? space.click("radio_outputmidi") && space.putOnKey(button, 2, 2)
                        : space.putOnPad(button, 0);
    }

    QString folder() const { return m_isMidi ? space.mappersFolder() : space.padsFolder(); }
    QString fileName(const QString &page = Texts::PageName) const
    {
        return (m_isMidi ? nameOf(Names.first(), page) : page) + ".xml";
    }
    QString path(const QString &page = Texts::PageName) const { return folder() + "/" + fileName(page); }
    QStringList files() const { return QDir(folder()).entryList(QDir::Files | QDir::Hidden); }
    const char *slot() const { return m_isMidi ? "exportmapping" : "exportpage"; }

    void expectCreated(const QString &page = Texts::PageName)
    {
        space.dialogs.expect(m_isMidi ? Boxes::mappingCreated(page, Names.first())
                                      : Boxes::pageCreated(page));
    }
    void expectOverwrite(const QString &page, Boxes::Answer answer)
    {
        space.dialogs.expect(
            Boxes::overwrite((m_isMidi ? "" : "Pads Page ") + fileName(page).chopped(4), answer));
    }

    /** Exports by the button into a new file. */
    bool exports(const QString &page = Texts::PageName)
    {
        expectCreated(page);
        return space.click("pushButton_2") && space.dialogs.faults().isEmpty();
    }

    /** Whether the whole file is there, and is for the first Live Button. */
    bool isWritten(const QString &page = Texts::PageName) const
    {
        const QByteArray file = textOf(bytesOf(path(page)));
        return file.startsWith("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n")
               && file.contains("os2l_button &apos;Strobe&apos;")
               && file.endsWith(m_isMidi ? "</mapper>\n" : "</page>\n");
    }

    Workspace space;

private:
    const bool m_isMidi;
};

/** Adds a row for each output. */
void eachOutput(const QByteArray &name, const std::function<void(QTestData &)> &fill)
{
    fill(QTest::newRow("page: " + name) << false);
    fill(QTest::newRow("mapping: " + name) << true);
}

using Scripts = QMap<QString, QString>; ///< of a mapper, by the name of the key or LED

QByteArray mapper(int device, const Scripts &scripts)
{
    QString text = "<mapper device=\"" + Identifiers.at(device) + "\">\n";
    for (auto it = scripts.cbegin(); it != scripts.cend(); ++it)
        text += "<map value=\"" + it.key() + "\" action=\"" + it.value().toHtmlEscaped() + "\"/>\n";
    return (text + "</mapper>\n").toUtf8();
}

/** Goes to MIDI Mapping with a show, a device and a mapper of the user's, which is written anew. */
bool startMapping(Workspace &space, int device, const Scripts &scripts, int mapperRow = Users)
{
    return writeFile(space.mappersFolder() + "/Mine.xml", mapper(device, scripts))
           && space.load(space.writeShow("Show", Ini)) && space.click("radio_outputmidi")
           && space.choose("devicescombo", device) && space.choose("mididevices", mapperRow);
}

/** Exports by the button over whatever is there. */
bool exportMapping(Workspace &space, const QString &device)
{
    const QString file = nameOf(device);
    if (QFile::exists(space.mappersFolder() + "/" + file + ".xml"))
        space.dialogs.expect(Boxes::overwrite(file, QMessageBox::Yes));
    space.dialogs.expect(Boxes::mappingCreated(Texts::PageName, device));
    return space.click("pushButton_2") && space.dialogs.faults().isEmpty();
}

/** The scripts of a mapping as they stand in the file, but for the single quotes; in their order. */
QStringList exported(const Workspace &space, const QString &device)
{
    QStringList lines =
        QString::fromUtf8(textOf(bytesOf(space.mappersFolder() + "/" + nameOf(device) + ".xml")))
            .replace("&apos;", "'")
            .split('\n')
            .filter("\t<map ");
    return lines.replaceInStrings(QRegularExpression("\t<map value=\"([^\"]*)\" action=\"(.*)\"/>"),
                                  "\\1 = \\2");
}

/** What an export around a mapper gives for a key, and for its LED. */
QStringList exportedKey(const Workspace &space, int device, const QString &key)
{
    return exported(space, Names.at(device)).filter(QRegularExpression("^(LED_)?" + key + " = "));
}

} // namespace

/** Both exports: the file, the questions and notices, and which of the window's settings go into it. */
class TestExports final : public QObject
{
    Q_OBJECT

private slots:
    void everyWay_data();
    void everyWay();
    void overwriting_data();
    void overwriting();
    void cannotBeWritten_data();
    void cannotBeWritten();
#ifdef Q_OS_UNIX
    void keepsTheOldFile_data();
    void keepsTheOldFile();
#endif
    void pageNames_data();
    void pageNames();
    void emptyPageNameSetByProgram_data();
    void emptyPageNameSetByProgram();
    void usesTheDefaultCodec_data();
    void usesTheDefaultCodec();

    void radioTellsTheNumberOfPads();
    void buttonOfNoPageIsOnNoPad();

    void noDeviceOrMapper_data();
    void noDeviceOrMapper();
    void comboBoxTellsTheDevice();
    void mapperCalledSimple();
    void readsTheMapperAnew_data();
    void readsTheMapperAnew();
    void switchOutlivesACleanGrid();
    void exportsOfExports_data();
    void exportsOfExports();
};

void TestExports::everyWay_data()
{
    QTest::addColumn<bool>("isMidi");
    QTest::addColumn<QByteArray>("way");
    for (const QByteArray way : {"button", "menu", "slot"})
        eachOutput(way, [way](QTestData &row) { row << way; });
}

void TestExports::everyWay()
{
    QFETCH(const bool, isMidi);
    QFETCH(const QByteArray, way);
    Output output(isMidi);
    QVERIFY2(output.start(), qPrintable(output.space.dialogs.faults()));
    output.expectCreated();
    if (way == "button")
        QVERIFY(output.space.click("pushButton_2"));
    else if (way == "menu")
        output.space.trigger("actionExport");
    else
        QVERIFY(output.space.ask<bool>(output.slot()));
    QCOMPARE(output.space.dialogs.faults(), QString());
    QVERIFY(output.isWritten());
    QCOMPARE(output.files(), QStringList(output.fileName()));
}

void TestExports::overwriting_data()
{
    QTest::addColumn<bool>("isMidi");
    QTest::addColumn<Boxes::Answer>("answer");
    eachOutput("Yes", [](QTestData &row) { row << QMessageBox::Yes; });
    eachOutput("No", [](QTestData &row) { row << QMessageBox::No; });
    eachOutput("Escape", [](QTestData &row) { row << QMessageBox::NoButton; });
}

void TestExports::overwriting()
{
    QFETCH(const bool, isMidi);
    QFETCH(const Boxes::Answer, answer);
    Output output(isMidi);
    QVERIFY2(output.start(), qPrintable(output.space.dialogs.faults()));
    QVERIFY(output.space.type("padsname", "Mine"));
    const QByteArray old(100000, 'x');
    QVERIFY(writeFile(output.path("Mine"), old));

    output.expectOverwrite("Mine", answer);
    if (answer == QMessageBox::Yes)
        output.expectCreated("Mine");
    QCOMPARE(output.space.ask<bool>(output.slot()), answer == QMessageBox::Yes);
    QCOMPARE(output.space.dialogs.faults(), QString());
    QVERIFY(answer == QMessageBox::Yes ? output.isWritten("Mine") : bytesOf(output.path("Mine")) == old);
}

void TestExports::cannotBeWritten_data()
{
    QTest::addColumn<bool>("isMidi");
    QTest::addColumn<QByteArray>("obstacle");
    for (const QByteArray obstacle :
         {"no folder", "no VirtualDJ folder", "a file in place of the folder", "a folder of that name"})
        eachOutput(obstacle, [obstacle](QTestData &row) { row << obstacle; });
}

/** The user is told that the file is created all the same. */
void TestExports::cannotBeWritten()
{
    QFETCH(const bool, isMidi);
    QFETCH(const QByteArray, obstacle);
    Output output(isMidi);
    QVERIFY2(output.start(), qPrintable(output.space.dialogs.faults()));
    if (obstacle == "a folder of that name") {
        QVERIFY(QDir().mkpath(output.path()));
        output.expectOverwrite(Texts::PageName, QMessageBox::Yes);
    } else {
        QVERIFY(QDir(obstacle == "no VirtualDJ folder" ? output.space.documents() + "/VirtualDJ"
                                                       : output.folder())
                    .removeRecursively());
        QVERIFY(obstacle != "a file in place of the folder" || writeFile(output.folder(), "x"));
    }
    const QStringList before = output.space.snapshot();
    output.expectCreated();
    QVERIFY(output.space.ask<bool>(output.slot()));
    QCOMPARE(output.space.dialogs.faults(), QString());
    QCOMPARE(output.space.snapshot(), before);
    QVERIFY(!QFileInfo(output.path()).isFile());
    QCOMPARE(QFileInfo(output.folder()).isDir(), obstacle == "a folder of that name");
}

#ifdef Q_OS_UNIX
void TestExports::keepsTheOldFile_data()
{
    QTest::addColumn<bool>("isMidi");
    QTest::addColumn<QString>("page");
    eachOutput("the disk is full", [](QTestData &row) { row << "Mine"; });
    eachOutput("the system would cut the name off",
               [](QTestData &row) { row << QString("Mine") + QChar::Null; });
}

void TestExports::keepsTheOldFile()
{
    QFETCH(const bool, isMidi);
    QFETCH(const QString, page);
    Output output(isMidi);
    QVERIFY2(output.start(), qPrintable(output.space.dialogs.faults()));
    const QStringList old = {output.fileName("Mine")};
    QVERIFY(writeFile(output.path("Mine"), "what stood there"));
    output.space.find<QLineEdit>("padsname")->setText(page);
    if (page == "Mine")
        output.expectOverwrite(page, QMessageBox::Yes);
    output.expectCreated(page);
    {
        const FullDisk disk(1000);
        QVERIFY(output.space.ask<bool>(output.slot()));
    }
    QCOMPARE(output.space.dialogs.faults(), QString());
    QCOMPARE(bytesOf(output.path("Mine")), QByteArray("what stood there"));
    QCOMPARE(output.files(), old);
}
#endif

void TestExports::pageNames_data()
{
    QTest::addColumn<bool>("isMidi");
    QTest::addColumn<QString>("page");
    QTest::addColumn<bool>("isWritten");
    const auto add = [](const QByteArray &name, const QString &page, bool isWritten) {
        eachOutput(name, [&](QTestData &row) { row << page << isWritten; });
    };
    add("blanks", "   ", true);
    add("signs that markup quotes", "It's \"loud\" & <bright>", AnySignNamesFiles);
    add("an ending of its own", "v1.2.xml", true);
    add("letters beyond ASCII", QString::fromUtf8("Nebelstoß Été"), true);
    add("a folder that is there", "Sub/Lights", true);
    add("a folder that is not there", "Nowhere/Lights", false);
    add("longer than a file name", QString(300, 'x'), false);
}

void TestExports::pageNames()
{
    QFETCH(const bool, isMidi);
    QFETCH(const QString, page);
    QFETCH(const bool, isWritten);
    const DefaultCodec codec("UTF-8");
    Output output(isMidi);
    QVERIFY2(output.start(), qPrintable(output.space.dialogs.faults()));
    QVERIFY(QDir(output.folder()).mkdir(isMidi ? Names.first() + " - Sub" : "Sub"));
    output.space.find<QLineEdit>("padsname")->setText(page);
    QVERIFY2(output.exports(page), qPrintable(output.space.dialogs.faults()));
    QCOMPARE(output.isWritten(page), isWritten);
    QCOMPARE(bytesOf(output.path(page)).contains("\n<page name=\"" + page.toUtf8() + "\">"),
             isWritten && !isMidi);
    if (isWritten) { // asks about the same file
        output.expectOverwrite(page, QMessageBox::No);
        QVERIFY(output.space.click("pushButton_2"));
        QCOMPARE(output.space.dialogs.faults(), QString());
    }
}

void TestExports::emptyPageNameSetByProgram_data()
{
    QTest::addColumn<bool>("isMidi");
    QTest::addColumn<QString>("file");
    QTest::newRow("page") << false << ".xml";
    QTest::newRow("mapping") << true << "AKAI APC Mini -  mapping.xml";
}

/** Where the user empties the field, it takes its name again. */
void TestExports::emptyPageNameSetByProgram()
{
    QFETCH(const bool, isMidi);
    QFETCH(const QString, file);
    Output output(isMidi);
    QVERIFY2(output.start(), qPrintable(output.space.dialogs.faults()));
    output.space.find<QLineEdit>("padsname")->setText("");
    QVERIFY2(output.exports(""), qPrintable(output.space.dialogs.faults()));
    QCOMPARE(output.files(), QStringList(file));
    QCOMPARE(bytesOf(output.path("")).contains("\n<page name=\"\">"), !isMidi);
}

void TestExports::usesTheDefaultCodec_data()
{
    QTest::addColumn<bool>("isMidi");
    QTest::addColumn<QByteArray>("codec");
    QTest::addColumn<QByteArray>("name");
    eachOutput("UTF-8", [](QTestData &row) { row << QByteArray("UTF-8") << QByteArray("Caf\xC3\xA9"); });
    eachOutput("Latin 1", [](QTestData &row) { row << QByteArray("ISO-8859-1") << QByteArray("Caf\xE9"); });
}

void TestExports::usesTheDefaultCodec()
{
    QFETCH(const bool, isMidi);
    QFETCH(const QByteArray, codec);
    QFETCH(const QByteArray, name);
    const PlainTempFolder plain;
    Output output(isMidi);
    QVERIFY2(output.start(Accented), qPrintable(output.space.dialogs.faults()));
    const DefaultCodec inUse(codec);
    QVERIFY2(output.exports(), qPrintable(output.space.dialogs.faults()));
    QVERIFY(bytesOf(output.path()).contains("os2l_button &apos;" + name + "&apos;"));
}

/** Not what the table shows: a radio that is set by program leaves it as it is. */
void TestExports::radioTellsTheNumberOfPads()
{
    Output output(false);
    QVERIFY2(output.start(), qPrintable(output.space.dialogs.faults()));
    output.space.find<QRadioButton>("radioButton_16pads")->setChecked(true);
    QVERIFY(output.space.padsView()->isColumnHidden(1));
    QVERIFY2(output.exports(), qPrintable(output.space.dialogs.faults()));
    QVERIFY(bytesOf(output.path()).contains("\t<pad16 "));
}

/** The page passes over it, though there is something to export. */
void TestExports::buttonOfNoPageIsOnNoPad()
{
    Output output(false);
    QVERIFY2(output.start(OfNoPage), qPrintable(output.space.dialogs.faults()));
    QVERIFY2(output.exports(), qPrintable(output.space.dialogs.faults()));
    QVERIFY(bytesOf(output.path()).contains("\t<pad1 name=\"``\" color=\"\"></pad1>"));
}

void TestExports::noDeviceOrMapper_data()
{
    QTest::addColumn<QByteArray>("combo");
    QTest::addColumn<QString>("device");
    QTest::newRow("no device") << QByteArray("devicescombo") << "";
    QTest::newRow("no mapper") << QByteArray("mididevices") << "AKAI APC Mini";
}

void TestExports::noDeviceOrMapper()
{
    QFETCH(const QByteArray, combo);
    QFETCH(const QString, device);
    Workspace space;
    QVERIFY2(startMapping(space, Akai, {}, Factory), qPrintable(space.dialogs.faults()));
    QVERIFY(space.putOnKey(Strobe, 2, 2));
    space.find<QComboBox>(combo)->setCurrentIndex(-1);
    QVERIFY2(exportMapping(space, device), qPrintable(space.dialogs.faults()));
    const QByteArray file = textOf(bytesOf(space.mappersFolder() + "/" + nameOf(device) + ".xml"));
    QVERIFY(file.contains(device.isEmpty() ? "<mapper device=\"\" " : "<mapper device=\"APCMINI\" "));
    QCOMPARE(file.count('\n'), 3); // head and end alone
}

/** Not what the page shows, which another device may have been brought to by program. */
void TestExports::comboBoxTellsTheDevice()
{
    Workspace space;
    QVERIFY2(startMapping(space, Akai, {}, Simple), qPrintable(space.dialogs.faults()));
    QVERIFY(space.putOnKey(Strobe, 2, 2));
    QVERIFY(space.call("updatemidicombo", Mk2));
    QCOMPARE(space.find<QComboBox>("devicescombo")->currentIndex(), Akai);
    QVERIFY2(exportMapping(space, Names.at(Akai)), qPrintable(space.dialogs.faults()));
    QCOMPARE(exportedKey(space, Akai, "ROW1_PAD1"),
             QStringList({"ROW1_PAD1 = os2l_button 'Strobe'",
                          "LED_ROW1_PAD1 = os2l_button 'Strobe' ? color 'green' : color 'yellow'"}));
}

/** The first mapper of the list alone is simple, not another one of its name. */
void TestExports::mapperCalledSimple()
{
    Workspace space;
    QVERIFY(writeFile(space.mappersFolder() + "/" + Texts::SimpleMapper + ".xml",
                      mapper(Mk2, {{"PAD_1_1", "cue"}})));
    QVERIFY2(startMapping(space, Mk2, {{"PAD_1_1", "play"}}, Users + 1), qPrintable(space.dialogs.faults()));
    QCOMPARE(space.find<QComboBox>("mididevices")->currentText(), Texts::SimpleMapper);
    QVERIFY(space.putOnKey(Strobe, 2, 2));
    QVERIFY2(exportMapping(space, Names.at(Mk2)), qPrintable(space.dialogs.faults()));
    QCOMPARE(exported(space, Names.at(Mk2)).first(),
             QString("PAD_1_1 = var '$os2l' ? os2l_button 'Strobe' : cue"));
}

void TestExports::readsTheMapperAnew_data()
{
    QTest::addColumn<QByteArray>("content"); // null where the file is gone
    QTest::addColumn<int>("rows");
    QTest::addColumn<QString>("script");
    const QString bare = "PAD_1_1 = var '$os2l' ? os2l_button 'Strobe'";
    const Scripts other = {{"PAD_1_1", "cue"}};
    QTest::newRow("gone") << QByteArray() << 0 << QString();
    QTest::newRow("no markup") << QByteArray("cue") << 160 << bare;
    QTest::newRow("another mapper") << mapper(Mk2, other) << 160 << bare + " : cue";
    QTest::newRow("mapper of another device") << mapper(Akai, other) << 160 << bare + " : cue";
}

void TestExports::readsTheMapperAnew()
{
    QFETCH(const QByteArray, content);
    QFETCH(const int, rows);
    QFETCH(const QString, script);
    Workspace space;
    QVERIFY2(startMapping(space, Mk2, {{"PAD_1_1", "play"}}), qPrintable(space.dialogs.faults()));
    QVERIFY(space.putOnKey(Strobe, 2, 2));
    QVERIFY2(exportMapping(space, Names.at(Mk2)), qPrintable(space.dialogs.faults()));
    QCOMPARE(exported(space, Names.at(Mk2)).first(),
             QString("PAD_1_1 = var '$os2l' ? os2l_button 'Strobe' : play"));

    const QString path = space.mappersFolder() + "/Mine.xml";
    QVERIFY(content.isNull() ? QFile::remove(path) : writeFile(path, content));
    QVERIFY2(exportMapping(space, Names.at(Mk2)), qPrintable(space.dialogs.faults()));
    QCOMPARE(exported(space, Names.at(Mk2)).size(), rows);
    QCOMPARE(exported(space, Names.at(Mk2)).value(0), script);
}

void TestExports::switchOutlivesACleanGrid()
{
    Workspace space;
    QVERIFY2(startMapping(space, Akai, {}, Factory), qPrintable(space.dialogs.faults()));
    QVERIFY(space.pickOnKey(2, 2, {"Set as Switch"}));
    QVERIFY(space.click("cleanmidi_button"));
    QVERIFY(space.putOnKey(Strobe, 9, 9));
    QVERIFY2(exportMapping(space, Names.at(Akai)), qPrintable(space.dialogs.faults()));
    QCOMPARE(exportedKey(space, Akai, "ROW1_PAD1"),
             QStringList({"ROW1_PAD1 = toggle '$os2l'",
                          "LED_ROW1_PAD1 = var '$os2l' ? color 'green' : color 'yellow'"}));
}

void TestExports::exportsOfExports_data()
{
    QTest::addColumn<int>("device");
    QTest::addColumn<int>("button");
    QTest::addColumn<QStringList>("own");  // scripts of the key and its LED
    QTest::addColumn<QStringList>("keys"); // of each export around the one before; the last one stays
    QTest::addColumn<QStringList>("leds");
    const QString shown = " ? color '#ff0000' : color 40% '#ff0000'";
    const auto row = [](const char *name, int device, int button, const QStringList &own,
                        const QStringList &keys, const QStringList &leds) {
        QTest::newRow(name) << device << button << own << keys << leds;
    };
    const QStringList asks = {"play ? pause : cue", "play ? on : off"};
    const QStringList asksNothing = {"play", "blink"};
    row("comes back", Mk2, Strobe, asks, {"os2l_button 'Strobe' : play ? pause : cue"},
        {"os2l_button 'Strobe'" + shown + " : play ? on : off"});
    row("single quote in the Live Button's name", Mk2, Apostrophe, asks,
        {"os2l_button 'It's hot' : play ? pause : cue"},
        {"os2l_button 'It's hot'" + shown + " : play ? on : off"});
    // The lights' part of a script cannot be told from the rest of it.
    row("a LED that asks nothing is lost", Mk2, Strobe, asksNothing, {"os2l_button 'Strobe' : play"},
        {"os2l_button 'Strobe'" + shown + " : blink", "os2l_button 'Strobe'" + shown});
    row("a LED that follows its key is lost", Akai, Strobe, {"browser_scroll -1"},
        {"os2l_button 'Strobe' : browser_scroll -1"},
        {"os2l_button 'Strobe' ? on : off : browser_scroll -1", "os2l_button 'Strobe' ? on : off"});
    row("a colon in the Live Button's name grows", Mk2, Colon, {"play", asks.at(1)},
        {"os2l_button 'Fast : Red' : play", "os2l_button 'Fast : Red' : Red' : play",
         "os2l_button 'Fast : Red' : Red' : Red' : play"},
        {"os2l_button 'Fast : Red'" + shown + " : play ? on : off",
         "os2l_button 'Fast : Red'" + shown + " : Red'" + shown + " : play ? on : off",
         "os2l_button 'Fast : Red'" + shown + " : Red'" + shown + " : Red'" + shown + " : play ? on : off"});
    row("a question mark in the Live Button's name cuts off", Mk2, Question, asks,
        {"os2l_button 'Fast ? Red' : play ? pause : cue", "os2l_button 'Fast ? Red'"},
        {"os2l_button 'Fast ? Red'" + shown + " : play ? on : off"});
}

void TestExports::exportsOfExports()
{
    QFETCH(const int, device);
    QFETCH(const int, button);
    QFETCH(const QStringList, own);
    QFETCH(const QStringList, keys);
    QFETCH(const QStringList, leds);
    const QString key = device == Akai ? "PAN" : "PAD_1_1";
    Scripts scripts = {{key, own.first()}};
    if (own.size() > 1)
        scripts.insert("LED_" + key, own.last());
    Workspace space;
    for (int generation = 0; generation < 3; ++generation) {
        space.restart(); // mappers are looked for at the start
        QVERIFY2(startMapping(space, device, scripts), qPrintable(space.dialogs.faults()));
        if (generation > 0) {
            const int position = space.find<QComboBox>("mididevices")->findText(nameOf(Names.at(device)));
            QVERIFY(position >= Users && space.choose("mididevices", position));
        }
        QVERIFY(device == Akai ? space.putOnKey(button, 11, 7) : space.putOnKey(button, 2, 2));
        QVERIFY2(exportMapping(space, Names.at(device)), qPrintable(space.dialogs.faults()));
        const QString lights = " = var '$os2l' ? ";
        QCOMPARE(exportedKey(space, device, key),
                 QStringList({key + lights + keys.value(generation, keys.last()),
                              "LED_" + key + lights + leds.value(generation, leds.last())}));
    }
}

QTEST_MAIN(TestExports)
#include "test_exports.moc"

#include "support/boxes.h"
#include "support/devices.h"
#include "support/files.h"
#include "support/texts.h"
#include "support/workspace.h"

#include <QDirIterator>
#include <QLineEdit>

namespace {

const QByteArray Ini = "[page]\nnumber=2\n[page1]\nname=One\nnb_buttons=2\n[page2]\nname=Two\nnb_buttons=3\n"
                       "[page1_button1]\ntitle=Strobe\ncolor=16711680\n"
                       "[page1_button2]\ntitle=Strobe Slow\ncolor=65407\n"
                       "[page2_button1]\ntitle=Blackout\n"
                       "[page2_button2]\ntitle=Quoted\ncolor=255\n"
                       "[page2_button3]\ntitle=Fog\ncolor=32768\n";

// Rows of the Live Buttons table.
constexpr int Strobe = 0;
constexpr int Slow = 1;
constexpr int Blackout = 2;
constexpr int Quoted = 3;
constexpr int Fog = 4;

const QByteArray Mapper = R"(<mapper device="APCMINI">
<map value="ROW1_PAD1" action="play_pause"/>
<map value="LED_ROW1_PAD1" action="play_pause ? on : off"/>
<map value="ROW1_PAD2" action="deck left hot_cue 2"/>
<map value="LED_ROW1_PAD3" action="sampler_loaded ? on : off"/>
<map value="ROW2_PAD1" action="play"/>
<map value="LED_ROW2_PAD1" action="play ? on : off"/>
<map value="ROW2_PAD2" action="set '$x' 1 &amp; say &quot;hi&quot;"/>
<map value="UP" action="sampler_bank -1"/>
<map value="LEFT" action="sampler_stop 1"/>
<map value="LED_LEFT" action="sampler_used ? on : off"/>
<map value="PAN" action="browser_scroll -1"/>
<map value="SLIDER1" action="deck left level"/>
<map value="SHIFT" action="shift"/>
<map value="UNKNOWN" action="play"/>
</mapper>
)";

/** All that the mapping has beside keys at rest; a single quote is "&apos;" in the file. */
const QStringList Mapped = {
    R"(ROW1_PAD1 = var '$os2l' ? os2l_button 'Strobe' : play_pause)",
    R"(LED_ROW1_PAD1 = var '$os2l' ? os2l_button 'Strobe' ? color 'red' : color 'green' : play_pause ? on : off)",
    R"(ROW1_PAD2 = var '$os2l' ? os2l_button 'Fog' : deck left hot_cue 2)",
    R"(LED_ROW1_PAD2 = var '$os2l' ? os2l_button 'Fog' ? blink ? color 'yellow' : color 'black' : color 'black')",
    R"(ROW2_PAD1 = toggle '$os2l')",
    R"(LED_ROW2_PAD1 = var '$os2l' ? color 'yellow' : color 'black')",
    R"(ROW2_PAD2 = var '$os2l' ? nothing : set '$x' 1 &amp; say &quot;hi&quot;)",
    R"(LED_ROW2_PAD2 = var '$os2l' ? color 'black' : )",
    R"(ROW8_PAD8 = var '$os2l' ? os2l_button 'Strobe')",
    R"(LED_ROW8_PAD8 = var '$os2l' ? os2l_button 'Strobe' ? color 'yellow' : color 'black')",
    R"(UP = var '$os2l' ? os2l_button 'Blackout' : sampler_bank -1)",
    R"(LED_UP = var '$os2l' ? os2l_button 'Blackout' ? on : off : sampler_bank -1)",
    R"(LEFT = var '$os2l' ? nothing : sampler_stop 1)",
    R"(LED_LEFT = var '$os2l' ? off : sampler_used ? on : off)",
    R"(PAN = var '$os2l' ? nothing : browser_scroll -1)",
    R"(LED_PAN = var '$os2l' ? off : )",
    R"(SLIDER1 = var '$os2l' ? os2l_cmd 1 : deck left level)",
    R"(SLIDER2 = var '$os2l' ? os2l_cmd 2)",
    R"(SLIDER3 = var '$os2l' ? os2l_cmd 3)",
    R"(SLIDER4 = var '$os2l' ? os2l_cmd 4)",
    R"(SLIDER5 = var '$os2l' ? os2l_cmd 5)",
    R"(SLIDER6 = var '$os2l' ? os2l_cmd 6)",
    R"(SLIDER7 = var '$os2l' ? os2l_cmd 7)",
    R"(SLIDER8 = var '$os2l' ? os2l_cmd 8)",
    R"(SHIFT = var '$os2l' ? nothing : shift)",
};

/** The lines of a mapping as "<name> = <script>", without keys and LEDs at rest. */
QStringList mappedIn(const QByteArray &file)
{
    const QRegularExpression map("\t<map value=\"([^\"]*)\" action=\"([^\"]*)\"/>\n");
    const QRegularExpression rest("^(nothing|var '\\$os2l' \\? (nothing|color 'black'|off))$");
    QStringList lines;
    for (auto matches = map.globalMatch(QString::fromUtf8(file)); matches.hasNext();) {
        const QRegularExpressionMatch line = matches.next();
        const QString script = line.captured(2).replace("&apos;", "'");
        if (!rest.match(script).hasMatch())
            lines += line.captured(1) + " = " + script;
    }
    return lines;
}

/** All files below a folder but those in the library's cache. */
QStringList filesBelow(const QString &folder)
{
    QStringList files;
    QDirIterator all(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (all.hasNext())
        files += QDir(folder).relativeFilePath(all.next());
    files = files.filter(QRegularExpression("^(?!\\.cache/)"));
    files.sort();
    return files;
}

/** Types over a pad's text with the table's own editor. */
bool typeOnPad(Workspace &space, int row, const QString &text)
{
    QTableView *view = space.padsView();
    const QPoint pad = view->visualRect(space.pads()->index(row, 0)).center();
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, pad);
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, pad);
    auto *editor = view->viewport()->findChild<QLineEdit *>();
    if (!editor)
        return false;
    editor->selectAll();
    QTest::keyClicks(editor, text);
    QTest::keyClick(editor, Qt::Key_Return);
    return true;
}

} // namespace

/** From a show to VirtualDJ, as a user works. */
class TestWorkflow final : public QObject
{
    Q_OBJECT

private slots:
    void padsPage();
    void mapping();
};

void TestWorkflow::padsPage()
{
    Workspace space;
    QVERIFY2(space.load(space.writeShow("Show", Ini)), qPrintable(space.dialogs.faults()));
    QVERIFY(space.putOnPad(Strobe, 0));
    QVERIFY(space.putOnPad(Slow, 2));
    QVERIFY(typeOnPad(space, 2, "Slow"));
    space.dialogs.expect(Boxes::pageCreated(Texts::PageName));
    QVERIFY(space.click("pushButton_2"));
    space.dialogs.expect(Boxes::leaving(QMessageBox::Yes));
    QVERIFY(space.window().close());
    QCOMPARE(space.dialogs.faults(), QString());

    QCOMPARE(difference(textOf(bytesOf(space.padsFolder() + "/" + Texts::PageName + ".xml")),
                        bytesOf(QFINDTESTDATA("../data/padspage-one-bank.xml"))),
             QString());
    // Nothing else is kept for the next time.
    QCOMPARE(filesBelow(space.home()),
             QStringList({"Documents/VirtualDJ/Pads/" + Texts::PageName + ".xml", "Show/Live/live.ini"}));
    QStringList settings = QDir(qEnvironmentVariable("XDG_CONFIG_HOME", space.home() + "/.config"))
                               .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    settings.removeAll("QtProject.conf"); // of the library's file dialogs
    QCOMPARE(settings, QStringList());
}

void TestWorkflow::mapping()
{
    Workspace space;
    QVERIFY(writeFile(space.mappersFolder() + "/Evening.xml", Mapper));
    QVERIFY2(space.load(space.writeShow("Show", Ini)), qPrintable(space.dialogs.faults()));
    QVERIFY(space.click("radio_outputmidi"));
    QVERIFY(space.choose("mididevices", 2));
    QVERIFY(space.choose("combo_offcolor", 0));
    QVERIFY(space.choose("combo_oncolor", 3));
    QVERIFY(space.putOnKey(Strobe, 2, 2) && space.putOnKey(Fog, 2, 3) && space.putOnKey(Strobe, 9, 9));
    QVERIFY(space.putOnKey(Quoted, 3, 2)); // gives way to the Switch
    QVERIFY(space.putOnKey(Blackout, 11, 2));
    QVERIFY(space.pickOnKey(2, 2, {"Off Color", " green"}) && space.pickOnKey(2, 2, {"On Color", " red"}));
    QVERIFY(space.pickOnKey(2, 3, {"Blink"}));
    QVERIFY(space.pickOnKey(11, 2, {"On Color", " red"})
            && space.pickOnKey(11, 2, {"Blink"})); // to no effect
    QVERIFY(space.pickOnKey(3, 2, {"Set as Switch"}));
    QVERIFY(space.type("padsname", "Evening Set"));
    const QDate day = QDate::currentDate();
    space.dialogs.expect(Boxes::mappingCreated("Evening Set", Devices::Names.first()));
    QVERIFY(space.click("pushButton_2"));
    QCOMPARE(space.dialogs.faults(), QString());

    const QByteArray file =
        textOf(bytesOf(space.mappersFolder() + "/AKAI APC Mini - Evening Set mapping.xml"));
    QCOMPARE(mappedIn(file), Mapped);
    QCOMPARE(file.count("<map "), 170);
    const QByteArray head = "<mapper device=\"APCMINI\" author=\"Zarvex\" version=\"840\" date=\"";
    QVERIFY(
        file.contains(head + day.toString("d-M-yyyy").toUtf8())
        || file.contains(head + QDate::currentDate().toString("d-M-yyyy").toUtf8())); // midnight may strike
}

QTEST_MAIN(TestWorkflow)
#include "test_workflow.moc"

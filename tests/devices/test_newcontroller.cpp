#include "support/boxes.h"
#include "support/devices.h"
#include "support/files.h"
#include "support/texts.h"
#include "support/workspace.h"

#include <QComboBox>
#include <QRegularExpression>

namespace {

// Rows of the mappers' list.
constexpr int Simple = 0;
constexpr int Factory = 1;

// Rows of the Live Buttons table.
constexpr int Strobe = 0;
constexpr int Fog = 1;

const QByteArray Ini = "[page]\nnumber=1\n[page1]\nname=One\nnb_buttons=2\n"
                       "[page1_button1]\ntitle=Strobe\ncolor=16711680\n"
                       "[page1_button2]\ntitle=Fog\ncolor=32768\n";

/** Goes to the page of the new controller. */
bool goToDevice(Workspace &space)
{
    const int row = space.find<QComboBox>("devicescombo")->findText("Beat Board");
    return row >= 0 && space.click("radio_outputmidi") && space.choose("devicescombo", row);
}

/** Lays two Live Buttons on pads and keys of the bands, colours one, and marks a Switch. */
bool layOut(Workspace &space)
{
    return space.load(space.writeShow("Show", Ini)) && goToDevice(space) && space.putOnKey(Strobe, 2, 2)
           && space.putOnKey(Fog, 2, 3) && space.putOnKey(Strobe, 0, 2) && space.putOnKey(Fog, 0, 3)
           && space.pickOnKey(2, 3, {"On Color", " white"}) && space.pickOnKey(2, 3, {"Blink"})
           && space.pickOnKey(3, 2, {"Set as Switch"});
}

QString mapperPath(const Workspace &space)
{
    return space.mappersFolder() + "/Beat Board - OS2L DMX mapping.xml";
}

bool exportMapping(Workspace &space)
{
    space.dialogs.expect(Boxes::mappingCreated(Texts::PageName, "Beat Board"));
    return space.click("pushButton_2") && space.dialogs.faults().isEmpty();
}

/** The exported mapper without its date. */
QByteArray exported(const Workspace &space)
{
    static const QRegularExpression date(R"( date="[1-9]\d?-[1-9]\d?-\d{4}")");
    const QString text = QString::fromUtf8(textOf(bytesOf(mapperPath(space))));
    return QString(text).replace(date, R"( date="TODAY")").toUtf8();
}

} // namespace

/**
 * A controller that the program has never heard of, brought along as two resource files and nothing else:
 * "Beat Board.xml" and "Beat Board mapping.xml" beside the golden files.
 */
class TestNewController final : public QObject
{
    Q_OBJECT

private slots:
    void pageShowsIt();
    void takesLiveButtons();
    void exportMatchesGoldenFile_data();
    void exportMatchesGoldenFile();
    void projectComesBack();
};

void TestNewController::pageShowsIt()
{
    Workspace space;
    QVERIFY(writeFile(space.mappersFolder() + "/Evening.xml", "<mapper device=\"BEATBOARD\"/>"));
    QVERIFY(goToDevice(space));
    QStringList names = Devices::Names;
    names.insert(Devices::Akai + 1, "Beat Board");
    QCOMPARE(Workspace::itemsOf(space.find<QComboBox>("devicescombo")), names);

    const QString pads = "..XXXXXXXX..";
    QCOMPARE(space.keys(), (QStringList{"..XX........", "............", "X.XXXXXXXX.X", pads, pads, pads,
                                        pads, pads, pads, pads, "............", "............"}));
    for (const char *name : {"combo_offcolor", "combo_oncolor"}) {
        const auto *combo = space.find<QComboBox>(name);
        QVERIFY(combo->isVisible());
        QCOMPARE(Workspace::itemsOf(combo), (QStringList{"black", "blue", "orange", "white"}));
        QCOMPARE(combo->currentText(), QString(combo->objectName() == "combo_offcolor" ? "blue" : "orange"));
    }
    QCOMPARE(Workspace::itemsOf(space.find<QComboBox>("mididevices")),
             (QStringList{Texts::SimpleMapper, Texts::factoryMapper("Beat Board"), "Evening"}));
}

void TestNewController::takesLiveButtons()
{
    Workspace space;
    QVERIFY2(layOut(space), qPrintable(space.dialogs.faults()));
    QCOMPARE(space.ticked(), (QList<int>{Strobe, Fog}));
    QCOMPARE(space.grid()->index(2, 2).data().toString(), QString("Strobe"));
    QCOMPARE(space.grid()->index(0, 3).data().toString(), QString("Fog"));
    QVERIFY(!space.putOnKey(Strobe, 11, 2)); // it has no key there
}

void TestNewController::exportMatchesGoldenFile_data()
{
    QTest::addColumn<int>("mapper");
    QTest::addColumn<QString>("golden");
    QTest::newRow("simple") << Simple << "../data/newcontroller-simple.xml";
    QTest::newRow("factory") << Factory << "../data/newcontroller-wrapped.xml";
}

void TestNewController::exportMatchesGoldenFile()
{
    QFETCH(const int, mapper);
    QFETCH(const QString, golden);
    Workspace space;
    QVERIFY2(layOut(space), qPrintable(space.dialogs.faults()));
    QVERIFY(space.choose("mididevices", mapper));
    QVERIFY2(exportMapping(space), qPrintable(space.dialogs.faults()));
    const QByteArray expected = bytesOf(QFINDTESTDATA(golden));
    QVERIFY(expected.endsWith("</mapper>\n"));
    QCOMPARE(difference(exported(space), expected), QString());
}

void TestNewController::projectComesBack()
{
    Workspace space;
    QVERIFY2(layOut(space), qPrintable(space.dialogs.faults()));
    QVERIFY(space.choose("combo_offcolor", 3));
    QVERIFY(space.choose("mididevices", Factory));
    const QStringList saved = space.snapshot();
    const QString project = space.home() + "/Board.zarvex";
    space.dialogs.expect(Boxes::saveDialog(space, project));
    space.dialogs.expect(Boxes::projectSaved("Board"));
    space.trigger("actionSave_2");
    QCOMPARE(textOf(bytesOf(project)).split('\n').value(1),
             QString("<project deviceid=\"BEATBOARD\" type=\"midi\" show=\"%1/Show/Live/live.ini\""
                     " showname=\"Show\" switch=\"3,2\" offcolor=\"3\" oncolor=\"2\" export=\"OS2L DMX\" >")
                 .arg(space.home())
                 .toUtf8());

    space.trigger("actionNew_2");
    QVERIFY(space.choose("devicescombo", Devices::Akai));
    QVERIFY(space.snapshot() != saved);
    space.dialogs.expect(Boxes::loadDialog(space, project));
    space.trigger("actionLoad_Project");
    QVERIFY(space.choose("mididevices", Factory)); // which no project keeps
    QCOMPARE(space.snapshot(), saved);
    QCOMPARE(space.dialogs.faults(), QString());
}

QTEST_MAIN(TestNewController)
#include "test_newcontroller.moc"

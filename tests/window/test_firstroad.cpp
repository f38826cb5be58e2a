#include "support/boxes.h"
#include "support/files.h"
#include "support/workspace.h"

#include <QLineEdit>

/** The shortest way from a show to a Pads Page, as a user goes it. */
class TestFirstRoad final : public QObject
{
    Q_OBJECT

private slots:
    void fromShowToPadsPage();
};

void TestFirstRoad::fromShowToPadsPage()
{
    Workspace space;
    QVERIFY2(space.loadSomeShow(), qPrintable(space.dialogs.faults()));
    QCOMPARE(space.window().windowTitle(), QString("Zarvex - Show"));
    QCOMPARE(space.dmx()->rowCount(), 16);

    QVERIFY(space.drag(space.dmx()->index(9, 0), space.padsView(), space.pads()->index(2, 0)));
    QCOMPARE(space.ticked(), QList<int>{9});

    space.dialogs.expect(Boxes::pageCreated("OS2L DMX"));
    QVERIFY(space.click("pushButton_2"));
    QCOMPARE(space.dialogs.faults(), QString());

    QVERIFY(bytesOf(space.padsFolder() + "/OS2L DMX.xml")
                .contains("\t<pad3 name=\"`var &apos;dmxbank&apos; 0 ? get_text &apos;2-2&apos;`\""));
}

QTEST_MAIN(TestFirstRoad)
#include "test_firstroad.moc"

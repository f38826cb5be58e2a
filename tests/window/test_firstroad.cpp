#include "support/boxes.h"
#include "support/files.h"
#include "support/workspace.h"

#include <QDirIterator>
#include <QLineEdit>

/** The shortest way from a show to a Pads Page, as a user goes it. */
class TestFirstRoad final : public QObject
{
    Q_OBJECT

private slots:
    void fromShowToPadsPage();
    void leavesNoSettings();
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

/** What the program has learnt stays in projects and exports; nothing else is kept for the next time. */
void TestFirstRoad::leavesNoSettings()
{
    Workspace space;
    QVERIFY2(space.loadSomeShow(), qPrintable(space.dialogs.faults()));
    QVERIFY(space.drag(space.dmx()->index(9, 0), space.padsView(), space.pads()->index(2, 0)));
    space.dialogs.expect(Boxes::pageCreated("OS2L DMX"));
    QVERIFY(space.click("pushButton_2"));
    space.dialogs.expect(ExpectedDialogs::Box{"Project is not empty.", "Are you sure you want to exit ?",
                                              QMessageBox::Yes | QMessageBox::Cancel, QMessageBox::Cancel,
                                              QMessageBox::Yes});
    QVERIFY(space.window().close());
    QCOMPARE(space.dialogs.faults(), QString());

    QStringList files;
    const QDir home(space.home());
    for (QDirIterator file(home.path(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
         file.hasNext();) {
        const QString path = home.relativeFilePath(file.next());
        if (!path.startsWith(".cache/")) // the library's
            files.append(path);
    }
    files.sort();
    QCOMPARE(files, QStringList({"Documents/VirtualDJ/Pads/OS2L DMX.xml", "Show/Live/live.ini"}));

    QStringList settings = QDir(qEnvironmentVariable("XDG_CONFIG_HOME", home.path() + "/.config"))
                               .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    settings.removeAll("QtProject.conf"); // of the library's file dialogs
    QCOMPARE(settings, QStringList());
}

QTEST_MAIN(TestFirstRoad)
#include "test_firstroad.moc"

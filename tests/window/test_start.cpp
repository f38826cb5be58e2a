#include "support/texts.h"
#include "support/workspace.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QRadioButton>
#include <QSizeGrip>
#include <QStatusBar>

Q_DECLARE_METATYPE(QAbstractItemView::SelectionMode)

/** The window as the user first sees it, and what stands on the disk then. */
class TestStart final : public QObject
{
    Q_OBJECT

private slots:
    void windowStandsNarrow();
    void widgets_data();
    void widgets();
    void fields();
    void tables_data();
    void tables();
    void columnsAndRows();
    void windowOwnsModelsAndDelegate();

    void folders_data();
    void folders();
    void startIsSilent();
    void closingEndsTheLoop();
#ifndef Q_OS_WIN
    void argumentsAreIgnored_data();
    void argumentsAreIgnored();
#endif
};

void TestStart::windowStandsNarrow()
{
    Workspace space;
    const MainWindow &window = space.window();
    QCOMPARE(window.windowTitle(), Texts::Program); // never the form's
    QCOMPARE(window.objectName(), QString("MainWindow"));
    QCOMPARE(window.size(), QSize(650, 606));
    QCOMPARE(window.minimumSize(), QSize(650, 606));
    QCOMPARE(window.maximumSize(), QSize(650, 606));
    QVERIFY(window.windowIcon().isNull());
    QVERIFY(!space.find<QStatusBar>("statusBar")->isSizeGripEnabled());
    for (const QSizeGrip *grip : window.findChildren<QSizeGrip *>())
        QVERIFY(!grip->isVisible());
    const auto *central = space.find<QWidget>("centralWidget");
    for (const QWidget *widget : central->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly))
        QVERIFY2(!widget->isVisible() || widget->geometry().right() < 631, qPrintable(widget->objectName()));
}

void TestStart::widgets_data()
{
    QTest::addColumn<bool>("isVisible");
    QTest::addColumn<QRect>("rect");
    QTest::newRow("groupBox") << true << QRect(290, 30, 341, 51);
    QTest::newRow("groupBox_2") << true << QRect(10, 30, 271, 441);
    QTest::newRow("groupBox_3") << true << QRect(290, 175, 341, 296);
    QTest::newRow("groupBox_pads") << true << QRect(290, 80, 341, 98);
    QTest::newRow("groupBox_midis") << false << QRect(290, 76, 1071, 41);
    QTest::newRow("groupBox_controller") << false << QRect(290, 110, 1071, 361);
    QTest::newRow("vdjlistview") << true << QRect(10, 5, 301, 240);
    QTest::newRow("dmxlistview") << true << QRect(10, 150, 241, 240);
    QTest::newRow("padsname") << true << QRect(410, 490, 191, 31);
    QTest::newRow("pushButton_2") << true << QRect(120, 490, 131, 31);
    // Laid out by the window itself.
    QTest::newRow("menuBar") << true << QRect();
    QTest::newRow("mainToolBar") << false << QRect();
    QTest::newRow("statusBar") << false << QRect();
}

void TestStart::widgets()
{
    QFETCH(const bool, isVisible);
    QFETCH(const QRect, rect);
    Workspace space;
    const auto *widget = space.find<QWidget>(QTest::currentDataTag());
    QCOMPARE(widget->isVisible(), isVisible);
    QVERIFY(rect.isNull() || widget->geometry() == rect);
}

void TestStart::fields()
{
    Workspace space;
    QVERIFY(space.find<QRadioButton>("radio_outputpage")->isChecked());
    QVERIFY(space.find<QRadioButton>("radioButton_8pads")->isChecked());
    QCOMPARE(space.find<QLabel>("label_padname")->text(), Texts::FirstOutput);
    QCOMPARE(space.find<QLineEdit>("padsname")->text(), Texts::PageName);
    QCOMPARE(space.find<QLineEdit>("bankname")->text(), QString("BANK 1"));
    QCOMPARE(space.bankNames(),
             (QStringList{"BANK 1", "BANK 2", "BANK 3", "BANK 4", "BANK 5", "BANK 6", "BANK 7", "BANK 8"}));
    QCOMPARE(Workspace::itemsOf(space.find<QComboBox>("bankcombo")),
             (QStringList{"1", "2", "3", "4", "5", "6", "7", "8"}));
    QCOMPARE(space.find<QComboBox>("bankcombo")->currentIndex(), 0);
    QCOMPARE(space.find<QComboBox>("combobox")->count(), 0);
    QCOMPARE(space.find<QComboBox>("devicescombo")->currentIndex(), 0);
    QCOMPARE(space.find<QComboBox>("mididevices")->currentText(), Texts::SimpleMapper);
}

void TestStart::tables_data()
{
    QTest::addColumn<QSize>("size"); // columns and rows
    QTest::addColumn<bool>("takesDrops");
    QTest::addColumn<QAbstractItemView::SelectionMode>("selection");
    QTest::addColumn<bool>("stretches");
    QTest::addColumn<bool>("hasMenu");
    QTest::addColumn<QString>("delegate");
    QTest::newRow("vdjlistview") << QSize(2, 64) << true << QAbstractItemView::SingleSelection << true << true
                                 << "QStyledItemDelegate";
    QTest::newRow("dmxlistview") << QSize(1, 0) << false << QAbstractItemView::SingleSelection << true
                                 << false << "QStyledItemDelegate";
    QTest::newRow("tablecontroller") << QSize(12, 12) << true << QAbstractItemView::ExtendedSelection << false
                                     << true << "Mydelegate";
}

void TestStart::tables()
{
    QFETCH(const QSize, size);
    QFETCH(const bool, takesDrops);
    QFETCH(const QAbstractItemView::SelectionMode, selection);
    QFETCH(const bool, stretches);
    QFETCH(const bool, hasMenu);
    QFETCH(const QString, delegate);
    Workspace space;
    const auto *view = space.find<QTableView>(QTest::currentDataTag());
    QCOMPARE(QSize(view->model()->columnCount(), view->model()->rowCount()), size);
    QVERIFY(view->horizontalHeader()->isHidden() && view->verticalHeader()->isHidden());
    QCOMPARE(view->horizontalHeader()->stretchLastSection(), stretches);
    QVERIFY(view->dragEnabled() && view->showDropIndicator());
    QCOMPARE(view->acceptDrops(), takesDrops);
    QCOMPARE(view->viewport()->acceptDrops(), takesDrops);
    QCOMPARE(view->defaultDropAction(), Qt::CopyAction);
    QCOMPARE(view->hasMouseTracking(), takesDrops);
    QCOMPARE(view->selectionMode(), selection);
    QCOMPARE(view->contextMenuPolicy() == Qt::CustomContextMenu, hasMenu);
    QCOMPARE(QString(view->itemDelegate()->metaObject()->className()), delegate);
}

void TestStart::columnsAndRows()
{
    Workspace space;
    QVERIFY(space.padsView()->columnWidth(0) > 150); // alone it is the last, which stretches
    QVERIFY(space.click("radioButton_16pads"));
    QCOMPARE(space.padsView()->columnWidth(0), 150);
    QCOMPARE(space.gridView()->verticalHeader()->minimumSectionSize(), 5);
    QCOMPARE(space.gridView()->rowHeight(1), 5);
}

void TestStart::windowOwnsModelsAndDelegate()
{
    Workspace space;
    QStringList owned;
    for (const QObject *child : space.window().children()) {
        const QString name = child->metaObject()->className();
        if (name == "Mydelegate" || child->inherits("QAbstractTableModel"))
            owned += name;
    }
    QCOMPARE(owned, (QStringList{"Mydelegate", "VDJModel", "Controller", "MyModel"}));
}

void TestStart::folders_data()
{
    QTest::addColumn<QStringList>("before"); // below the documents; "." where there are none
    QTest::addColumn<QStringList>("after");
    const QStringList made = {"Zarvex", "projects"};
    QTest::newRow("first start") << QStringList{"VirtualDJ"}
                                 << QStringList{"VirtualDJ", "Zarvex", "projects"};
    QTest::newRow("VirtualDJ's are not made") << QStringList{} << made;
    QTest::newRow("projects missing") << QStringList{"Zarvex"} << made;
    QTest::newRow("all there") << QStringList{"Zarvex", "Zarvex/projects"} << made;
    QTest::newRow("no documents") << QStringList{"."} << QStringList{};
}

void TestStart::folders()
{
    QFETCH(const QStringList, before);
    QFETCH(const QStringList, after);
    Workspace space;
    const QDir documents(space.documents());
    QVERIFY(QDir(space.documents()).removeRecursively());
    QVERIFY(before == QStringList(".") || QDir().mkpath(space.documents()));
    for (const QString &folder : before)
        QVERIFY(folder == "." || documents.mkpath(folder));
    QVERIFY(space.window().isVisible());
    QCOMPARE(documents.entryList(QDir::Dirs | QDir::NoDotAndDotDot)
                 + QDir(space.documents() + "/Zarvex").entryList(QDir::Dirs | QDir::NoDotAndDotDot),
             after);
    QCOMPARE(documents.exists(), before != QStringList("."));
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestStart::startIsSilent()
{
    Workspace space;
    space.window();
    QTRY_COMPARE(QApplication::activeModalWidget(), nullptr);
    QCOMPARE(space.dialogs.faults(), QString());
    int windows = 0;
    for (const QWidget *widget : QApplication::topLevelWidgets())
        windows += widget->isVisible();
    QCOMPARE(windows, 1);
}

void TestStart::closingEndsTheLoop()
{
    Workspace space;
    MainWindow &window = space.window();
    QTimer::singleShot(0, &window, &QWidget::close);
    QTimer::singleShot(10000, &window, [] { QApplication::exit(1); });
    QCOMPARE(QApplication::exec(), 0);
}

#ifndef Q_OS_WIN // no test can tell another program there where the documents are
void TestStart::argumentsAreIgnored_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("none") << QStringList();
    QTest::newRow("an option and a project that is not there") << QStringList{"--help", "Night.zarvex"};
    QTest::newRow("a folder and more") << QStringList{"/", "-x", "", "--"};
}

void TestStart::argumentsAreIgnored()
{
    QFETCH(const QStringList, arguments);
    const Workspace space;
    QProcess program;
    program.start(ZARVEX_PROGRAM, arguments);
    QVERIFY(program.waitForStarted());
    QTRY_VERIFY(QFileInfo(space.documents() + "/Zarvex/projects").isDir());
    QCOMPARE(program.state(), QProcess::Running);
    program.kill();
    QVERIFY(program.waitForFinished());
    QCOMPARE(program.readAllStandardOutput(), QByteArray());
}
#endif

QTEST_MAIN(TestStart)
#include "test_start.moc"

#include "support/workspace.h"

#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QProcess>
#include <QRadioButton>
#include <QSizeGrip>
#include <QStatusBar>

namespace {

/** The program's own data folder, and the one for projects in it. */
QStringList ownFolders(const Workspace &space)
{
    return {space.documents() + "/Zarvex", space.documents() + "/Zarvex/projects"};
}

} // namespace

Q_DECLARE_METATYPE(QAbstractItemView::SelectionMode)

/** The window as the user first sees it, and what stands on the disk then. */
class TestStart final : public QObject
{
    Q_OBJECT

private slots:
    void windowStandsNarrow();
    void titleIsNeverTheForms();
    void rectangle_data();
    void rectangle();
    void visibility_data();
    void visibility();
    void radio_data();
    void radio();
    void text_data();
    void text();
    void comboItems_data();
    void comboItems();
    void banksHaveDefaultNames();
    void nothingReachesBeyond631();
    void noSizeGrip();
    void noShowIsLoaded();

    void headersAreHidden_data();
    void headersAreHidden();
    void viewProperties_data();
    void viewProperties();
    void lastColumnStretches_data();
    void lastColumnStretches();
    void firstColumnOfPadsIs150();
    void gridSectionsCanBeNarrow();
    void delegateClass_data();
    void delegateClass();
    void contextMenuPolicy_data();
    void contextMenuPolicy();
    void rowsAndColumns_data();
    void rowsAndColumns();
    void onlyFirstBankIsShown();
    void onlyFirstPadColumnIsShown();
    void gridShowsFirstDevice();
    void windowOwnsModelsAndDelegate();

    void foldersAreMade_data();
    void foldersAreMade();
    void missingDocumentsFolderIsPassedOver();
    void vdjFoldersAreNotMade();
    void startIsSilent();
    void closingEndsTheLoop();
#ifndef Q_OS_WIN
    void argumentsAreIgnored_data();
    void argumentsAreIgnored();
#endif

    void modeKeepsHeight_data();
    void modeKeepsHeight();
    void oneModeIsAlwaysChosen();
    void showWithoutPagesIsLoaded();
};

void TestStart::windowStandsNarrow()
{
    Workspace space;
    const MainWindow &window = space.window();
    QCOMPARE(window.windowTitle(), QString("Zarvex"));
    QCOMPARE(window.size(), QSize(650, 606));
    QCOMPARE(window.minimumSize(), QSize(650, 606));
    QCOMPARE(window.maximumSize(), QSize(650, 606));
    QVERIFY(window.windowIcon().isNull());
    QVERIFY(!window.parent());
}

void TestStart::titleIsNeverTheForms()
{
    const Workspace space;
    MainWindow window(nullptr);
    QCOMPARE(window.windowTitle(), QString("Zarvex"));
    QCOMPARE(window.objectName(), QString("MainWindow"));
    QVERIFY(window.isHidden());
}

void TestStart::rectangle_data()
{
    QTest::addColumn<QRect>("rect");
    QTest::newRow("groupBox") << QRect(290, 30, 341, 51);
    QTest::newRow("groupBox_2") << QRect(10, 30, 271, 441);
    QTest::newRow("groupBox_3") << QRect(290, 175, 341, 296);
    QTest::newRow("groupBox_pads") << QRect(290, 80, 341, 98);
    QTest::newRow("groupBox_midis") << QRect(290, 76, 1071, 41);
    QTest::newRow("groupBox_controller") << QRect(290, 110, 1071, 361);
    QTest::newRow("vdjlistview") << QRect(10, 5, 301, 240);
    QTest::newRow("dmxlistview") << QRect(10, 150, 241, 240);
    QTest::newRow("padsname") << QRect(410, 490, 191, 31);
    QTest::newRow("pushButton_2") << QRect(120, 490, 131, 31);
}

void TestStart::rectangle()
{
    QFETCH(const QRect, rect);
    Workspace space;
    QCOMPARE(space.find<QWidget>(QTest::currentDataTag())->geometry(), rect);
}

void TestStart::visibility_data()
{
    QTest::addColumn<bool>("isVisible");
    QTest::newRow("groupBox") << true;
    QTest::newRow("radio_outputpage") << true;
    QTest::newRow("radio_outputmidi") << true;
    QTest::newRow("groupBox_pads") << true;
    QTest::newRow("groupBox_midis") << false;
    QTest::newRow("groupBox_controller") << false;
    QTest::newRow("groupBox_2") << true;
    QTest::newRow("groupBox_3") << true;
    QTest::newRow("dmxlistview") << true;
    QTest::newRow("vdjlistview") << true;
    QTest::newRow("tablecontroller") << false;
    QTest::newRow("padsname") << true;
    QTest::newRow("label_padname") << true;
    QTest::newRow("pushButton_2") << true;
    QTest::newRow("menuBar") << true;
    QTest::newRow("mainToolBar") << false;
    QTest::newRow("statusBar") << false;
}

void TestStart::visibility()
{
    QFETCH(const bool, isVisible);
    Workspace space;
    QCOMPARE(space.find<QWidget>(QTest::currentDataTag())->isVisible(), isVisible);
}

void TestStart::radio_data()
{
    QTest::addColumn<bool>("isChecked");
    QTest::newRow("radio_outputpage") << true;
    QTest::newRow("radio_outputmidi") << false;
    QTest::newRow("radioButton_8pads") << true;
    QTest::newRow("radioButton_16pads") << false;
}

void TestStart::radio()
{
    QFETCH(const bool, isChecked);
    Workspace space;
    QCOMPARE(space.find<QRadioButton>(QTest::currentDataTag())->isChecked(), isChecked);
}

void TestStart::text_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("bankname") << "BANK 1";
    QTest::newRow("padsname") << "OS2L DMX";
    QTest::newRow("label_padname") << "Pad Page";
    QTest::newRow("radioButton_8pads") << "8 Pads ";
}

void TestStart::text()
{
    QFETCH(const QString, text);
    Workspace space;
    QCOMPARE(space.find<QWidget>(QTest::currentDataTag())->property("text").toString(), text);
}

void TestStart::comboItems_data()
{
    QTest::addColumn<QStringList>("items");
    QTest::addColumn<int>("current");
    QTest::newRow("combobox") << QStringList() << -1;
    QTest::newRow("bankcombo") << QStringList{"1", "2", "3", "4", "5", "6", "7", "8"} << 0;
}

void TestStart::comboItems()
{
    QFETCH(const QStringList, items);
    QFETCH(const int, current);
    Workspace space;
    const auto *combo = space.find<QComboBox>(QTest::currentDataTag());
    QStringList found;
    for (int i = 0; i < combo->count(); ++i)
        found += combo->itemText(i);
    QCOMPARE(found, items);
    QCOMPARE(combo->currentIndex(), current);
}

void TestStart::banksHaveDefaultNames()
{
    Workspace space;
    QCOMPARE(space.bankNames(),
             (QStringList{"BANK 1", "BANK 2", "BANK 3", "BANK 4", "BANK 5", "BANK 6", "BANK 7", "BANK 8"}));
}

void TestStart::nothingReachesBeyond631()
{
    Workspace space;
    const auto *central = space.find<QWidget>("centralWidget");
    for (const QWidget *widget : central->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly)) {
        if (widget->isVisible())
            QVERIFY2(widget->x() + widget->width() <= 631, qPrintable(widget->objectName()));
    }
}

void TestStart::noSizeGrip()
{
    Workspace space;
    QVERIFY(!space.find<QStatusBar>("statusBar")->isSizeGripEnabled());
    for (const QSizeGrip *grip : space.window().findChildren<QSizeGrip *>())
        QVERIFY(!grip->isVisible());
}

void TestStart::noShowIsLoaded()
{
    Workspace space;
    space.window();
    space.dialogs.expect(ExpectedDialogs::Box{"Nothing to Export. Load a Show", {}});
    QVERIFY(space.click("pushButton_2"));
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestStart::headersAreHidden_data()
{
    QTest::addColumn<int>("sections");
    QTest::newRow("vdjlistview") << 2;
    QTest::newRow("dmxlistview") << 1;
    QTest::newRow("tablecontroller") << 12;
}

void TestStart::headersAreHidden()
{
    QFETCH(const int, sections);
    Workspace space;
    const auto *view = space.find<QTableView>(QTest::currentDataTag());
    QCOMPARE(view->horizontalHeader()->count(), sections);
    QVERIFY(view->horizontalHeader()->isHidden());
    QVERIFY(view->verticalHeader()->isHidden());
}

void TestStart::viewProperties_data()
{
    QTest::addColumn<bool>("takesDrops");
    QTest::addColumn<bool>("tracksMouse");
    QTest::addColumn<QAbstractItemView::SelectionMode>("selection");
    QTest::newRow("vdjlistview") << true << true << QAbstractItemView::SingleSelection;
    QTest::newRow("tablecontroller") << true << true << QAbstractItemView::ExtendedSelection;
    QTest::newRow("dmxlistview") << false << false << QAbstractItemView::SingleSelection;
}

void TestStart::viewProperties()
{
    QFETCH(const bool, takesDrops);
    QFETCH(const bool, tracksMouse);
    QFETCH(const QAbstractItemView::SelectionMode, selection);
    Workspace space;
    const auto *view = space.find<QTableView>(QTest::currentDataTag());

    QVERIFY(view->dragEnabled());
    QCOMPARE(view->acceptDrops(), takesDrops);
    QCOMPARE(view->viewport()->acceptDrops(), takesDrops);
    QVERIFY(view->showDropIndicator());
    QCOMPARE(view->defaultDropAction(), Qt::CopyAction);
    QCOMPARE(view->selectionMode(), selection);
    QCOMPARE(view->hasMouseTracking(), tracksMouse);
}

void TestStart::lastColumnStretches_data()
{
    QTest::addColumn<bool>("stretches");
    QTest::newRow("vdjlistview") << true;
    QTest::newRow("dmxlistview") << true;
    QTest::newRow("tablecontroller") << false;
}

void TestStart::lastColumnStretches()
{
    QFETCH(const bool, stretches);
    Workspace space;
    const auto *view = space.find<QTableView>(QTest::currentDataTag());
    QCOMPARE(view->horizontalHeader()->stretchLastSection(), stretches);
}

void TestStart::firstColumnOfPadsIs150()
{
    Workspace space;
    QVERIFY(space.padsView()->columnWidth(0) > 150); // alone it is the last, which stretches
    QVERIFY(space.click("radioButton_16pads"));
    QCOMPARE(space.padsView()->columnWidth(0), 150);
}

void TestStart::gridSectionsCanBeNarrow()
{
    Workspace space;
    QCOMPARE(space.gridView()->verticalHeader()->minimumSectionSize(), 5);
    QCOMPARE(space.gridView()->rowHeight(1), 5);
}

void TestStart::delegateClass_data()
{
    QTest::addColumn<QString>("className");
    QTest::newRow("vdjlistview") << "QStyledItemDelegate";
    QTest::newRow("dmxlistview") << "QStyledItemDelegate";
    QTest::newRow("tablecontroller") << "Mydelegate";
}

void TestStart::delegateClass()
{
    QFETCH(const QString, className);
    Workspace space;
    const auto *view = space.find<QTableView>(QTest::currentDataTag());
    QCOMPARE(QString(view->itemDelegate()->metaObject()->className()), className);
}

void TestStart::contextMenuPolicy_data()
{
    QTest::addColumn<bool>("isCustom");
    QTest::newRow("vdjlistview") << true;
    QTest::newRow("tablecontroller") << true;
    QTest::newRow("dmxlistview") << false;
}

void TestStart::contextMenuPolicy()
{
    QFETCH(const bool, isCustom);
    Workspace space;
    const auto *view = space.find<QTableView>(QTest::currentDataTag());
    QCOMPARE(view->contextMenuPolicy() == Qt::CustomContextMenu, isCustom);
}

void TestStart::rowsAndColumns_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("columns");
    QTest::newRow("vdjlistview") << 64 << 2;
    QTest::newRow("dmxlistview") << 0 << 1;
    QTest::newRow("tablecontroller") << 12 << 12;
}

void TestStart::rowsAndColumns()
{
    QFETCH(const int, rows);
    QFETCH(const int, columns);
    Workspace space;
    const QAbstractItemModel *model = space.find<QTableView>(QTest::currentDataTag())->model();
    QCOMPARE(model->rowCount(), rows);
    QCOMPARE(model->columnCount(), columns);
}

void TestStart::onlyFirstBankIsShown()
{
    Workspace space;
    for (int row = 0; row < 64; ++row)
        QCOMPARE(space.padsView()->isRowHidden(row), row >= 8);
}

void TestStart::onlyFirstPadColumnIsShown()
{
    Workspace space;
    QVERIFY(!space.padsView()->isColumnHidden(0));
    QVERIFY(space.padsView()->isColumnHidden(1));
}

void TestStart::gridShowsFirstDevice()
{
    Workspace space;
    const auto *devices = space.find<QComboBox>("devicescombo");
    QCOMPARE(devices->count(), 7);
    QCOMPARE(devices->currentIndex(), 0);
    const auto *mappers = space.find<QComboBox>("mididevices");
    QVERIFY(mappers->count() > 0);
    QCOMPARE(mappers->itemText(0), QString("Simple OS2L mapping"));
    for (int row = 0; row < 12; ++row) {
        for (int col = 0; col < 12; ++col) {
            QCOMPARE(space.grid()->index(row, col).data(AvailableRole).toString(),
                     space.ask<QString>("getpadavail", row, col));
        }
    }
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

void TestStart::foldersAreMade_data()
{
    QTest::addColumn<int>("existing");
    QTest::newRow("at the first start") << 0;
    QTest::newRow("projects missing") << 1;
    QTest::newRow("both there") << 2;
}

void TestStart::foldersAreMade()
{
    QFETCH(const int, existing);
    Workspace space;
    for (const QString &folder : ownFolders(space).mid(0, existing))
        QVERIFY(QDir().mkdir(folder));
    space.window();
    for (const QString &folder : ownFolders(space))
        QVERIFY2(QFileInfo(folder).isDir(), qPrintable(folder));
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestStart::missingDocumentsFolderIsPassedOver()
{
    Workspace space;
    QVERIFY(QDir(space.documents()).removeRecursively());
    QVERIFY(space.window().isVisible());
    QVERIFY(!QFileInfo::exists(space.documents()));
    QCOMPARE(space.dialogs.faults(), QString());
}

void TestStart::vdjFoldersAreNotMade()
{
    Workspace space;
    const QString folder = space.documents() + "/VirtualDJ";
    QVERIFY(QDir(folder).removeRecursively());
    space.window();
    QVERIFY(!QFileInfo::exists(folder));
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
    QTest::newRow("a project that is not there") << QStringList{"Night.zarvex"};
    QTest::newRow("an option") << QStringList{"--help"};
    QTest::newRow("a folder and more") << QStringList{"/", "-x", "", "--"};
}

void TestStart::argumentsAreIgnored()
{
    QFETCH(const QStringList, arguments);
    const Workspace space;
    QProcess program;
    program.start(ZARVEX_PROGRAM, arguments);
    QVERIFY(program.waitForStarted());
    QTRY_VERIFY(QFileInfo(ownFolders(space).last()).isDir());
    QCOMPARE(program.state(), QProcess::Running);
    program.kill();
    QVERIFY(program.waitForFinished());
    QCOMPARE(program.readAllStandardOutput(), QByteArray());
}
#endif

void TestStart::modeKeepsHeight_data()
{
    QTest::addColumn<bool>("isMidi");
    QTest::addColumn<QByteArray>("slot");
    QTest::newRow("to MIDI Mapping") << true << QByteArray("on_radio_outputmidi_clicked");
    QTest::newRow("to Pads Page") << false << QByteArray("on_radio_outputpage_clicked");
    QTest::newRow("to MIDI Mapping, other slot") << true << QByteArray("on_radio_outputpage_clicked");
    QTest::newRow("to Pads Page, other slot") << false << QByteArray("on_radio_outputmidi_clicked");
}

void TestStart::modeKeepsHeight()
{
    QFETCH(const bool, isMidi);
    QFETCH(const QByteArray, slot);
    Workspace space;
    space.find<QRadioButton>(isMidi ? "radio_outputmidi" : "radio_outputpage")->setChecked(true);
    QVERIFY(space.call(slot));
    QCoreApplication::processEvents();
    QCOMPARE(space.window().height(), 606);
    QCOMPARE(space.window().minimumHeight(), 606);
    QCOMPARE(space.window().maximumHeight(), 606);
}

void TestStart::oneModeIsAlwaysChosen()
{
    Workspace space;
    const auto *page = space.find<QRadioButton>("radio_outputpage");
    const auto *midi = space.find<QRadioButton>("radio_outputmidi");
    for (const char *radio :
         {"radio_outputpage", "radio_outputmidi", "radio_outputmidi", "radio_outputpage"}) {
        QVERIFY(space.click(radio));
        QCOMPARE(page->isChecked(), qstrcmp(radio, "radio_outputpage") == 0);
        QCOMPARE(midi->isChecked(), !page->isChecked());
    }
}

void TestStart::showWithoutPagesIsLoaded()
{
    Workspace space;
    QVERIFY2(space.load(space.writeShow("Bare", "[page]\nnumber = 0\n")), qPrintable(space.dialogs.faults()));
    QCOMPARE(space.window().windowTitle(), QString("Zarvex - Bare"));
    QCOMPARE(space.dmx()->rowCount(), 0);
    space.dialogs.expect(ExpectedDialogs::Box{"Nothing to Export. Pads are empty", {}});
    QVERIFY(space.click("pushButton_2"));
    QCOMPARE(space.dialogs.faults(), QString());
}

QTEST_MAIN(TestStart)
#include "test_start.moc"

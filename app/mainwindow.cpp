#include "app/mainwindow.h"

#include "app/combostyle.h"
#include "app/stylesheets.h"
#include "app/ui_mainwindow.h"
#include "tables/controller.h"
#include "tables/mydelegate.h"
#include "tables/mymodel.h"
#include "tables/padbanks.h"
#include "tables/vdjmodel.h"

#include <QDir>
#include <QStandardPaths>

MainWindow::MainWindow(QWidget *parent) : QMainWindow(parent), ui(new Ui_MainWindow)
{
    Q_INIT_RESOURCE(icons);

    // Each step rests on the ones before it.
    findFolders();
    ui->setupUi(this);
    setWindowTitle("Zarvex");
    delegate = new Mydelegate(this);
    hideHeaders(); // before a model makes them measure their sections, with a bold font of their own
    setUpPadsView();
    setUpGridView();
    setUpLiveButtonsView();
    ui->mainToolBar->hide();
    ui->statusBar->hide();
    ui->radio_outputpage->setChecked(true);
    showPadsPanels();
    setUpCombos();
    setstyles();
    uncoverColorsLabel();
    connectSignals();
    setUpKeys();
    resetNames();

    updatebankcombo();
    readdefaultmappers();
    readmappers();
    initpadlist();
    deviceindex = 0;
    updatemidicombo(0);
    makeFolders();

    ui->statusBar->setSizeGripEnabled(false);
    ui->radioButton_8pads->setChecked(true);
    ui->vdjlistview->hideColumn(1);
    ui->dmxlistview->setFocus(); // the first device has given it to the grid, which is hidden
    msgstyle = StyleSheet::messageBox;
}

MainWindow::~MainWindow()
{
    delete ui;
}

void MainWindow::findFolders()
{
    homepath = QStandardPaths::writableLocation(QStandardPaths::HomeLocation);
    docpath = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    apppath = docpath + "/Zarvex";
    projectpath = apppath + "/projects";
    padspath = docpath + "/VirtualDJ/Pads";
    mapperpath = docpath + "/VirtualDJ/Mappers";
}

void MainWindow::setUpPadsView()
{
    vdjmodel = new VDJModel(this);
    ui->vdjlistview->setModel(vdjmodel);
    ui->vdjlistview->setDragEnabled(true);
    ui->vdjlistview->setAcceptDrops(true);
    ui->vdjlistview->setDropIndicatorShown(true);
    ui->vdjlistview->setDefaultDropAction(Qt::CopyAction);
    ui->vdjlistview->horizontalHeader()->setStretchLastSection(true);
    ui->vdjlistview->setSelectionMode(QAbstractItemView::SingleSelection);
    ui->vdjlistview->setColumnWidth(0, 150);
    ui->vdjlistview->setMouseTracking(true);
}

void MainWindow::setUpGridView()
{
    controllermodel = new Controller(this);
    ui->tablecontroller->setModel(controllermodel);
    ui->tablecontroller->setDragEnabled(true);
    ui->tablecontroller->setAcceptDrops(true);
    ui->tablecontroller->setDropIndicatorShown(true);
    ui->tablecontroller->setDefaultDropAction(Qt::CopyAction);
    ui->tablecontroller->verticalHeader()->setMinimumSectionSize(5);
    ui->tablecontroller->horizontalHeader()->setMinimumSectionSize(5); // else styles widen the gaps
    ui->tablecontroller->setItemDelegate(delegate);
    ui->tablecontroller->setMouseTracking(true);
}

void MainWindow::setUpLiveButtonsView()
{
    dmxmodel = new MyModel(this);
    ui->dmxlistview->setModel(dmxmodel);
    ui->dmxlistview->setDragEnabled(true);
    ui->dmxlistview->setAcceptDrops(false);
    ui->dmxlistview->setDefaultDropAction(Qt::CopyAction);
    ui->dmxlistview->horizontalHeader()->setStretchLastSection(true);
    ui->dmxlistview->setSelectionMode(QAbstractItemView::SingleSelection);
}

void MainWindow::setUpCombos()
{
    auto *style = new ComboStyle;
    style->setParent(this);
    for (QComboBox *combo : findChildren<QComboBox *>())
        style->applyTo(*combo);
}

/** The frame of the default colours lies over the end of the label beside it, where it is empty itself. */
void MainWindow::uncoverColorsLabel()
{
    ui->groupBox_colors->setMask(ui->groupBox_colors->childrenRegion());
}

void MainWindow::connectSignals()
{
    ui->tablecontroller->setContextMenuPolicy(Qt::CustomContextMenu);
    ui->vdjlistview->setContextMenuPolicy(Qt::CustomContextMenu);

    connect(ui->tablecontroller, &QWidget::customContextMenuRequested, this,
            &MainWindow::customMenuRequested);
    connect(ui->vdjlistview, &QWidget::customContextMenuRequested, this, &MainWindow::customMenuRequestedvdj);
    connect(vdjmodel, &VDJModel::ItemDroped, this, &MainWindow::CheckChanged);
    connect(dmxmodel, &MyModel::ItemUnchecked, this, &MainWindow::dmxcheckchange);
    connect(vdjmodel, &VDJModel::ItemToUncheck, this, &MainWindow::dmxtoremove);
    connect(controllermodel, &Controller::ItemDroped, this, &MainWindow::CheckChangedCon);
    connect(controllermodel, &Controller::ItemToUncheck, this, &MainWindow::dmxtoremove2);
}

void MainWindow::resetNames()
{
    resetBankNames();
    ui->bankname->setText(banklist.first());
    resetPageName();
}

void MainWindow::resetPageName()
{
    ui->padsname->setText("OS2L DMX");
}

void MainWindow::resetBankNames()
{
    banklist.clear();
    for (int bank = 1; bank <= PadBanks::Count; ++bank)
        banklist.append("BANK " + QString::number(bank));
}

void MainWindow::makeFolders()
{
    for (const QString &folder : {apppath, projectpath}) {
        if (!QDir(folder).exists())
            QDir().mkdir(folder);
    }
}

void MainWindow::hideHeaders()
{
    for (QTableView *view : {ui->vdjlistview, ui->dmxlistview, ui->tablecontroller}) {
        view->horizontalHeader()->hide();
        view->verticalHeader()->hide();
    }
}

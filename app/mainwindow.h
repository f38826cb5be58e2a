#pragma once

#include "devices/grid.h"
#include "tables/record.h"

#include <QList>
#include <QMainWindow>
#include <QModelIndex>
#include <QPoint>
#include <QPointer>
#include <QStringList>

#include <functional>

class Controller;
class Mydelegate;
class MyModel;
class QAbstractItemModel;
class QMenu;
class QMimeData;
class QTableView;
class QTextStream;
class Ui_MainWindow;
class VDJModel;
struct ProjectSettings;

/**
 * The program's one window and its workspace: the loaded show, pads, grid, devices and mappers.
 *
 * Everything that the user can do is a slot, reached from the form by its name. A slot asks the user,
 * calls a function that knows no window, and sets widgets; its body stands in the folder of its subject.
 */
class MainWindow final : public QMainWindow
{
    Q_OBJECT

public:
    /** Builds the window as the user first sees it; makes the program's folders where they are missing. */
    explicit MainWindow(QWidget *parent);
    ~MainWindow() override;

protected slots:
    // Choosing and loading a show
    bool loadshowname(const QString &path);
    bool loadshow();
    void on_loadini_clicked();
    void on_actionNew_triggered();

    // Live pages
    void updatecombo();
    void updatelist(int index);
    void initlist();
    int buttonsperpage(int page);
    void on_combobox_currentIndexChanged(int index);
    QString getcolor(const QString &color);
    QString xmlparse(const QString &text);

    // Ticks, removals, cleaning; of the two dmxtoremove, index is a button number
    void cleanDMX();
    void cleanVDJ();
    void cleanMIDI();
    void CheckChanged(int index, int to);
    void dmxcheckchange(int index);
    void CheckChangedCon(int index, int to, int col);
    void dmxtoremove(int index);
    void dmxtoremove2(int index);
    bool isVDJempty();
    bool isMIDIempty();
    void ondeletevdjaction_triggered();
    void ondeletemidiaction_triggered(int row, int col);
    void ondeleteaction_triggered();
    void resetdmxlist();
    void on_cleanmidi_button_clicked();
    void on_cleanpads_button_clicked();

    void setstyles();

private slots:
    // Commands on the workspace as a whole
    void closeEvent(QCloseEvent *event) override;
    void on_pushButton_2_clicked();
    void on_actionAbout_triggered();
    void on_actionExport_triggered();
    void on_radio_outputpage_clicked();
    void on_radio_outputmidi_clicked();
    void on_actionNew_2_triggered();
    void on_actionSave_2_triggered();
    void on_actionLoad_Project_triggered();
    void on_actionExit_triggered();
    void on_actionManual_triggered();

    // Pad banks
    void updatebankcombo();
    void showbank(int index);
    void on_bankcombo_currentIndexChanged(int index);
    void on_bankname_editingFinished();
    void on_padsname_editingFinished();
    void on_radioButton_8pads_clicked(bool checked);
    void on_radioButton_16pads_clicked(bool checked);

    // Context menus and key colours
    void rgbpadchange();
    void rgbonpadchange();
    void colorpadchange(int dat);
    void coloronpadchange(int dat);
    QString getdeviceoffcolor(int devid);
    QString getdeviceoncolor(int devid);
    void onblinkaction_triggered();
    void ontoggleaction_triggered();
    void customMenuRequestedvdj(QPoint pos);
    void customMenuRequested(QPoint pos);

    // Devices and mappers
    void readdefaultmappers();
    void readmappers();
    void getkeynames(const QString &file, const QString &mapping);
    int getmapperid(const QString &device, int mapid);
    int getdeviceindex(const QString &device);
    bool deviceinlist(const QString &device);

    // Controller page
    QString getpadavail(int row, int col);
    QString getpadtext(int row, int col);
    void updatemidicombo(int index);
    void initpadlist();
    void updatelayout();
    void on_devicescombo_currentIndexChanged(int index);

    // Exports
    bool exportpage();
    QString removeos2l(const QString &text);
    bool exportmapping();

    // Projects
    void savemidiproject(const QString &proj);
    void savepadsproject(const QString &proj);
    bool loadproject();

private:
    void findFolders();
    void setUpPadsView();
    void setUpGridView();
    void setUpLiveButtonsView();
    void setUpCombos();
    void uncoverColorsLabel();
    void connectSignals();
    void setUpKeys();
    void resetNames();
    void resetBankNames();
    void resetPageName();
    void makeFolders();
    void hideHeaders();

    bool isShowLoaded() const;
    bool isCurrentTableEmpty();
    bool holdsWork();
    bool mayReplaceWork(const QString &question);
    void changeWidth(int width);
    void showPadsPanels();
    void switchToPadsPage();
    void switchToMidiMapping(int windowWidth);
    void finishEditing();
    void showChanges();

    void untick(int row);
    void untickAll();
    void untickIfGone(int button, const QAbstractItemModel &table, int columns);
    void noteCheck(int button, const QString &check);
    void clearKey(const QModelIndex &key);
    void rebuildTables();
    void repaintAndFocus(QTableView &table);
    void goToFirstLiveButton();
    void focusOnFirstLiveButton();
    void copyLiveButton(const QModelIndex &cell);
    void pasteLiveButton(QTableView &table);
    void removeSelected(const QTableView &table);
    void addLiveButtonEntries(QMenu &menu);
    void addColorEntries(QMenu &menu, int role, void (MainWindow::*choose)(int), void (MainWindow::*ask)());
    void setOnSelectedKeys(const QVariant &value, int role);
    void setPaletteColor(int choice, int role);
    void askForColor(int role);
    void markAsSwitch(const QModelIndex &key);
    void buildPads();
    void showFirstBank();
    void showBankRows(int bank);

    bool exportTo(const QString &path, const QString &existsText,
                  const std::function<void(QTextStream &)> &write);
    void applySettings(const QList<ProjectSettings> &projects);
    void loadLastShow(const QList<ProjectSettings> &projects);
    void pickDevice(const ProjectSettings &project);
    void showPads(bool has16Pads);
    QString projectsFolder() const;

    void buildGrid();
    void setAvailability();
    void sizeGrid();

    QString msgstyle;
    Ui_MainWindow *ui;
    QString showname;
    QString showfile;
    Mydelegate *delegate;
    QString devicename;
    int deviceindex = 0;
    Grid::Cell switchkey;
    QModelIndex menuindex;
    VDJModel *vdjmodel;
    MyModel *dmxmodel;
    Controller *controllermodel;
    QList<QMap<QString, QString>> pagelist;
    QList<QMap<QString, QString>> buttonlist;
    QStringList banklist;
    QList<QMap<QString, QString>> keylist;
    QList<QMap<QString, QString>> devicelist;
    QList<QMap<QString, QString>> mapperlist;
    QString homepath;
    QString docpath;
    QString apppath;
    QString projectpath;
    QString padspath;
    QString mapperpath;
    QPointer<QMimeData> copied; ///< the Live Button that was copied, while it lies on the clipboard
};

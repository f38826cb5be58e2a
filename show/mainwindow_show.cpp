#include "app/mainwindow.h"

#include "app/ui_mainwindow.h"
#include "show/liveshow.h"

#include <QFile>
#include <QFileDialog>
#include <QMessageBox>

void MainWindow::on_loadini_clicked()
{
    finishEditing();
    if (mayReplaceWork("Are you sure you want to open a new Show \nbefore saving current Project ?"))
        loadshow();
}

void MainWindow::on_actionNew_triggered()
{
    on_loadini_clicked();
}

bool MainWindow::loadshow()
{
    const QString folder = QFileDialog::getExistingDirectory(
        this, "Select a Show", homepath + "/TheLightingController/LightShows", QFileDialog::ShowDirsOnly);
    if (folder.isEmpty())
        return false;

    const QString settings = folder + "/Live/live.ini";
    if (!QFile::exists(settings)) {
        // The one box without the style of the others.
        QMessageBox box(QMessageBox::Warning, "Zarvex",
                        "LightShow Settings file not found. Please select a different LightShow Folder");
        box.setStandardButtons(QMessageBox::Ok);
        box.setDefaultButton(QMessageBox::Ok);
        box.exec();
        return false;
    }
    showname = showNameOf(folder);
    loadshowname(settings);
    return true;
}

bool MainWindow::loadshowname(const QString &path)
{
    const std::optional<LiveShow> show = readLiveShow(path);
    if (!show)
        return false;

    switchkey = Grid::NoCell;
    rebuildTables();
    resetNames();
    ui->combobox->clear();

    pagelist = show->pages;
    buttonlist = show->buttons;
    initlist();
    updatecombo();

    showfile = path;
    setWindowTitle("Zarvex - " + showname);
    return true;
}

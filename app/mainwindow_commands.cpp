#include "app/mainwindow.h"

#include "app/dialog.h"
#include "app/messagebox.h"
#include "app/scaling.h"
#include "app/ui_mainwindow.h"
#include "app/viewhelpers.h"
#include "files/path.h"

#include <QCloseEvent>
#include <QDesktopServices>
#include <QDrag>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QScreen>
#include <QUrl>

namespace {

bool confirmLeaving(const QString &styleSheet)
{
    return MessageBox::ask(styleSheet, "Project is not empty.", "Are you sure you want to exit ?",
                           QMessageBox::Yes | QMessageBox::Cancel, QMessageBox::Cancel)
           != QMessageBox::Cancel;
}

} // namespace

bool MainWindow::isShowLoaded() const
{
    return !showname.isEmpty();
}

bool MainWindow::isCurrentTableEmpty()
{
    return ui->radio_outputpage->isChecked() ? isVDJempty() : isMIDIempty();
}

bool MainWindow::holdsWork()
{
    return isShowLoaded() && !isCurrentTableEmpty();
}

/** Asks where there is work, and saves it if told to; a save that fails or is cancelled stops nothing. */
bool MainWindow::mayReplaceWork(const QString &question)
{
    if (!holdsWork())
        return true;
    const auto answer =
        MessageBox::ask(msgstyle, question, {}, QMessageBox::Save | QMessageBox::Yes | QMessageBox::Cancel,
                        QMessageBox::Cancel);
    if (answer == QMessageBox::Save)
        on_actionSave_2_triggered();
    return answer != QMessageBox::Cancel;
}

void MainWindow::changeWidth(int width)
{
    setFixedWidth(width);
    if (!isVisible())
        return; // the desktop is still to place it
    const QRect room = screen()->availableGeometry().adjusted(0, 0, -1, 0); // scaling rounds both
    const QPoint place = Scaling::placeOn(room, frameGeometry());
    if (place != pos())
        move(place);
}

/** Takes over what is being edited. Not every command takes the focus, and with it the text, from a field or an editor. */
void MainWindow::finishEditing()
{
    commitEditor(*ui->vdjlistview);
    if (ui->bankname->isModified())
        on_bankname_editingFinished();
    if (ui->padsname->isModified())
        on_padsname_editingFinished();
}

/** The models tell no view of a change. */
void MainWindow::showChanges()
{
    for (const QTableView *table : {ui->dmxlistview, ui->vdjlistview, ui->tablecontroller})
        table->viewport()->update();
}

void MainWindow::showPadsPanels()
{
    setShown(*ui->groupBox_pads, true);
    ui->groupBox_midis->hide();
    ui->groupBox_controller->hide();
    ui->groupBox->setGeometry(290, 30, 341, 51);
    letTabReach(*ui->vdjlistview, true);
    changeWidth(650);
}

void MainWindow::switchToPadsPage()
{
    showPadsPanels();
    ui->label_padname->setText("Pads Page");
}

void MainWindow::switchToMidiMapping(int windowWidth)
{
    ui->groupBox_pads->hide();
    ui->groupBox_midis->show();
    ui->groupBox_controller->show();
    ui->groupBox->setGeometry(290, 30, 1071, 51);
    letTabReach(*ui->vdjlistview, false); // the grid lies over it
    if (focusWidget() == ui->vdjlistview)
        ui->tablecontroller->setFocus(Qt::OtherFocusReason);
    changeWidth(windowWidth);
    ui->label_padname->setText("MIDI Mapping");
}

void MainWindow::on_radio_outputpage_clicked()
{
    finishEditing();
    resetdmxlist();
    if (ui->radio_outputpage->isChecked())
        switchToPadsPage();
    else
        switchToMidiMapping(1365); // the form's own width; no click leads here, as a click checks its button
}

void MainWindow::on_radio_outputmidi_clicked()
{
    finishEditing();
    resetdmxlist();
    if (ui->radio_outputmidi->isChecked())
        switchToMidiMapping(1366);
    else
        switchToPadsPage();
}

void MainWindow::on_actionNew_2_triggered()
{
    finishEditing();
    cleanMIDI();
    cleanVDJ();
    initpadlist();
    untickAll();
    focusOnFirstLiveButton();
}

void MainWindow::on_actionLoad_Project_triggered()
{
    finishEditing();
    if (mayReplaceWork("Are you sure you want to load a Project before saving current ?") && !loadproject())
        MessageBox::notice(msgstyle, "Failed to load the Project's Show.");
}

void MainWindow::on_actionSave_2_triggered()
{
    finishEditing();
    if (!isShowLoaded()) {
        MessageBox::notice(msgstyle, "Nothing to Save. Load a Show");
        return;
    }
    if (isCurrentTableEmpty()) {
        MessageBox::notice(msgstyle, "Nothing to Save. Pads are empty");
        return;
    }

    const QString path = QFileDialog::getSaveFileName(this, "Save your Zarvex Project", projectsFolder(),
                                                      "Zarvex Projects (*.zarvex)", nullptr,
                                                      QFileDialog::DontConfirmOverwrite);
    if (path.isEmpty())
        return;
    if (pathExists(path)
        && !MessageBox::confirmOverwrite(msgstyle,
                                         "Project " + QFileInfo(path).baseName() + " already exists."))
        return;

    if (ui->radio_outputpage->isChecked())
        savepadsproject(path);
    else
        savemidiproject(path);
}

void MainWindow::on_actionAbout_triggered()
{
    Dialog dialog(nullptr);
    dialog.setModal(true);
    dialog.exec();
}

void MainWindow::on_actionExport_triggered()
{
    finishEditing();
    if (!isShowLoaded())
        MessageBox::notice(msgstyle, "Nothing to Export. Load a Show");
    else if (isCurrentTableEmpty())
        MessageBox::notice(msgstyle, "Nothing to Export. Pads are empty");
    else if (ui->radio_outputpage->isChecked())
        exportpage();
    else
        exportmapping();
}

void MainWindow::on_pushButton_2_clicked()
{
    on_actionExport_triggered();
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    QDrag::cancel(); // its picture would count as a window that is still open
    event->setAccepted(!holdsWork() || confirmLeaving(msgstyle));
}

void MainWindow::on_actionExit_triggered()
{
    if (holdsWork() && !confirmLeaving(msgstyle))
        return;
    showname.clear(); // so that closing asks no second time
    close();
}

void MainWindow::on_actionManual_triggered()
{
    const QString manual = apppath + "/Manual.pdf";
    if (!QFile::exists(manual))
        QFile::copy(":/icons/Images/Manual.pdf", manual);
    QDesktopServices::openUrl(QUrl::fromLocalFile(manual));
}

#include "app/mainwindow.h"

#include "app/messagebox.h"
#include "app/ui_mainwindow.h"
#include "app/viewhelpers.h"
#include "project/projectfile.h"
#include "tables/controller.h"
#include "tables/vdjmodel.h"

#include <QDomDocument>
#include <QFile>
#include <QFileDialog>
#include <QTextStream>

namespace {

/** Writes a project into a file and tells the user how that went. */
template<typename Project>
void save(const Project &project, const QString &path, const QString &messageStyle)
{
    const QString name = QFileInfo(path).baseName();
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text)) {
        MessageBox::notice(messageStyle, "Project " + name + " was not saved.");
        return;
    }
    QTextStream out(&file);
    writeProject(out, project);
    file.close();
    MessageBox::notice(messageStyle, "Project " + name + " is saved.");
}

} // namespace

void MainWindow::savemidiproject(const QString &proj)
{
    const Record device = devicelist.value(ui->devicescombo->currentIndex());
    save(MidiProject{device.value("device"), showfile, showname, switchkey,
                     ui->combo_offcolor->currentIndex(), ui->combo_oncolor->currentIndex(),
                     ui->padsname->text(), *controllermodel},
         proj, msgstyle);
}

void MainWindow::savepadsproject(const QString &proj)
{
    save(PadsProject{showfile, showname, ui->padsname->text(), ui->radioButton_16pads->isChecked(), banklist,
                     *vdjmodel},
         proj, msgstyle);
}

bool MainWindow::loadproject()
{
    const QString path = QFileDialog::getOpenFileName(this, "Select a Zarvex Project", projectpath,
                                                      "Zarvex Projects (*.zarvex)");
    const auto project = readProject(path); // none where the user chose none
    if (!project)
        return false;

    ProjectSettings last;
    for (const ProjectSettings &settings : projectSettings(*project)) {
        if (!QFile::exists(settings.show))
            return false;
        applySettings(settings);
        last = settings;
    }

    const auto tick = [this](int button) { CheckChanged(button, 0); };
    if (last.isMidi) {
        layOnGrid(*project, *controllermodel, tick);
        ui->radio_outputmidi->setChecked(true);
        switchToMidiMapping(1366);
    } else {
        layOnPads(*project, *vdjmodel, tick);
        showPads(last.has16Pads);
    }
    showChanges();
    return true;
}

void MainWindow::applySettings(const ProjectSettings &settings)
{
    emptyTables();
    showname = settings.showName;
    loadshowname(settings.show); // does nothing where the show cannot be read

    nameBanks();
    if (!settings.banks.isEmpty())
        banklist = settings.banks;
    switchkey = settings.switchKey;
    ui->padsname->setText(settings.exportName);
    if (!settings.device.isEmpty())
        ui->devicescombo->setCurrentIndex(getdeviceindex(settings.device));
    // A change of device has filled these anew.
    if (settings.offColor)
        ui->combo_offcolor->setCurrentIndex(*settings.offColor);
    if (settings.onColor)
        ui->combo_oncolor->setCurrentIndex(*settings.onColor);
}

void MainWindow::showPads(bool has16Pads)
{
    ui->radio_outputpage->setChecked(true);
    switchToPadsPage();
    showFirstBank();
    QRadioButton *layout = has16Pads ? ui->radioButton_16pads : ui->radioButton_8pads;
    layout->setChecked(true);
    ui->vdjlistview->setColumnHidden(1, !has16Pads);
    leaveHiddenCells(*ui->vdjlistview);
}

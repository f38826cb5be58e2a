#include "app/mainwindow.h"

#include "app/messagebox.h"
#include "app/ui_mainwindow.h"
#include "app/viewhelpers.h"
#include "files/path.h"
#include "files/savefile.h"
#include "project/projectfile.h"
#include "tables/controller.h"
#include "tables/vdjmodel.h"

#include <QDir>
#include <QFileDialog>
#include <QSet>

#include <algorithm>

namespace {

/** Writes a project into a file and tells the user how that went. */
void save(const ProjectSettings &settings, const QVector<ProjectCell> &cells, const QString &path,
          const QString &messageStyle)
{
    const QString name = QFileInfo(path).baseName();
    const bool isSaved =
        saveText(path, [&settings, &cells](QTextStream &out) { writeProject(out, settings, cells); });
    MessageBox::notice(messageStyle, "Project " + name + (isSaved ? " is saved." : " was not saved."));
}

/** The projects in front of the first whose show is not there. */
QList<ProjectSettings> withShows(const QList<ProjectSettings> &projects)
{
    const auto missing =
        std::find_if_not(projects.cbegin(), projects.cend(),
                         [](const ProjectSettings &project) { return pathExists(project.show); });
    return projects.mid(0, static_cast<int>(missing - projects.cbegin()));
}

} // namespace

void MainWindow::savemidiproject(const QString &proj)
{
    ProjectSettings settings;
    settings.isMidi = true;
    settings.show = showfile;
    settings.showName = showname;
    settings.exportName = ui->padsname->text();
    settings.device = devicelist.value(ui->devicescombo->currentIndex()).value("device");
    settings.switchKey = switchkey;
    settings.offColor = ui->combo_offcolor->currentIndex();
    settings.onColor = ui->combo_oncolor->currentIndex();
    save(settings, cellsOf(*controllermodel, CellFields::ofKeys()), proj, msgstyle);
}

void MainWindow::savepadsproject(const QString &proj)
{
    ProjectSettings settings;
    settings.show = showfile;
    settings.showName = showname;
    settings.exportName = ui->padsname->text();
    settings.has16Pads = ui->radioButton_16pads->isChecked();
    settings.banks = banklist;
    save(settings, cellsOf(*vdjmodel, CellFields::ofPads()), proj, msgstyle);
}

/** Where dialogs for projects start; one that is missing would be taken for a file's name. */
QString MainWindow::projectsFolder() const
{
    return QDir(projectpath).exists() ? projectpath : homepath;
}

bool MainWindow::loadproject()
{
    const QString path = QFileDialog::getOpenFileName(this, "Select a Zarvex Project", projectsFolder(),
                                                      "Zarvex Projects (*.zarvex)");
    const auto project = readProject(path); // none where the user chose none
    if (!project)
        return false;

    const QList<ProjectSettings> leading = withShows(project->settings);
    applySettings(leading);
    if (leading.size() < project->settings.size())
        return false;

    const ProjectSettings last = leading.isEmpty() ? ProjectSettings() : leading.last();
    // A button's number passes for its row: after the load above they are the same.
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

/** Leaves the workspace as if each had been applied in turn; of what a later one replaces nothing is loaded. */
void MainWindow::applySettings(const QList<ProjectSettings> &projects)
{
    if (projects.isEmpty())
        return;
    loadLastShow(projects);
    for (const ProjectSettings &project : projects)
        pickDevice(project);

    const ProjectSettings &last = projects.last();
    showname = last.showName;
    resetBankNames();
    if (!last.banks.isEmpty())
        banklist = last.banks;
    switchkey = last.switchKey;
    ui->padsname->setText(last.exportName);
}

/** Loads the last show that can be opened; where that is of an earlier project, the tables are rebuilt once more. */
void MainWindow::loadLastShow(const QList<ProjectSettings> &projects)
{
    QSet<QString> refused;
    for (int i = projects.size() - 1; i >= 0; --i) {
        const QString file = QFileInfo(projects.at(i).show).canonicalFilePath();
        if (refused.contains(file))
            continue;
        showname = projects.at(i).showName; // it goes to the title
        if (loadshowname(projects.at(i).show))
            break;
        refused.insert(file);
    }
    if (!refused.isEmpty())
        rebuildTables();
}

void MainWindow::pickDevice(const ProjectSettings &project)
{
    if (!project.device.isEmpty())
        ui->devicescombo->setCurrentIndex(getdeviceindex(project.device));
    // A change of device has filled these anew.
    if (project.offColor)
        ui->combo_offcolor->setCurrentIndex(*project.offColor);
    if (project.onColor)
        ui->combo_oncolor->setCurrentIndex(*project.onColor);
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

#include "app/mainwindow.h"

#include "app/ui_mainwindow.h"
#include "devices/grid.h"
#include "tables/assignments.h"
#include "tables/controller.h"
#include "tables/mymodel.h"
#include "tables/roles.h"
#include "tables/vdjmodel.h"

namespace {

// A Live Button that stands on pads 9 to 16 alone counts as gone: its tick is of the first column.
constexpr int TickedPadColumns = 1;

void removeAllRows(QAbstractItemModel &table)
{
    if (const int count = table.rowCount(); count > 0)
        table.removeRows(0, count);
}

} // namespace

void MainWindow::cleanDMX()
{
    removeAllRows(*dmxmodel);
    copied.clear(); // its number is one of these rows
}

void MainWindow::cleanVDJ()
{
    removeAllRows(*vdjmodel);
}

void MainWindow::cleanMIDI()
{
    removeAllRows(*controllermodel);
}

void MainWindow::rebuildTables()
{
    cleanDMX();
    cleanVDJ();
    cleanMIDI();
    initpadlist();
}

bool MainWindow::isVDJempty()
{
    return Assignments::isEmpty(*vdjmodel);
}

bool MainWindow::isMIDIempty()
{
    return Assignments::isEmpty(*controllermodel);
}

void MainWindow::CheckChanged(int index, int /*to*/)
{
    const QModelIndex button = dmxmodel->index(index, 0);
    dmxmodel->setData(button, 2, Qt::CheckStateRole);
    showChanges();
    // Not "1", though the tick is set: nothing reads the note, and only a change of the output makes it true.
    noteCheck(button.data(ButtonRole).toInt(), "0");
}

void MainWindow::CheckChangedCon(int index, int to, int col)
{
    CheckChanged(index, to);
    ui->tablecontroller->setFocus(Qt::OtherFocusReason);
    // Whatever keys are held, as in a drop with Ctrl or Shift, that key alone is selected.
    ui->tablecontroller->selectionModel()->setCurrentIndex(controllermodel->index(to, col),
                                                           QItemSelectionModel::ClearAndSelect);
}

void MainWindow::noteCheck(int button, const QString &check)
{
    if (button >= 0 && button < buttonlist.size())
        buttonlist[button].insert("check", check);
}

void MainWindow::untick(int row)
{
    dmxmodel->setData(dmxmodel->index(row, 0), 0, Qt::CheckStateRole);
}

void MainWindow::untickIfGone(int button, const QAbstractItemModel &table, int columns)
{
    if (Assignments::holds(table, button, columns))
        return;
    for (int row = 0; row < dmxmodel->rowCount(); ++row) {
        if (dmxmodel->index(row, 0).data(ButtonRole).toInt() == button) {
            untick(row);
            noteCheck(row, "0"); // by the row: after a load it is the button's number
        }
    }
    showChanges();
}

void MainWindow::untickAll()
{
    for (int row = 0; row < dmxmodel->rowCount(); ++row)
        untick(row);
    showChanges();
}

void MainWindow::dmxtoremove(int index)
{
    untickIfGone(index, *vdjmodel, TickedPadColumns);
    repaintAndFocus(*ui->vdjlistview);
}

void MainWindow::dmxtoremove2(int index)
{
    untickIfGone(index, *controllermodel, Grid::Size);
    repaintAndFocus(*ui->tablecontroller);
}

void MainWindow::dmxcheckchange(int index)
{
    const int button = dmxmodel->index(index, 0).data(ButtonRole).toInt();
    for (int row = 0; row < vdjmodel->rowCount(); ++row) {
        const QModelIndex pad = vdjmodel->index(row, 0);
        if (pad.data(ButtonRole).toInt() != button)
            continue;
        Assignments::clearCell(*vdjmodel, pad, Assignments::padLabel(row), "#FFFFFF");
        ui->vdjlistview->setFocus();
        ui->vdjlistview->setCurrentIndex(pad);
    }
    for (int row = 0; row < controllermodel->rowCount(); ++row) {
        for (int col = 0; col < controllermodel->columnCount(); ++col) {
            const QModelIndex key = controllermodel->index(row, col);
            if (key.data(ButtonRole).toInt() != button)
                continue;
            Assignments::clearCell(*controllermodel, key, getpadtext(row, col));
            ui->tablecontroller->setFocus();
            ui->tablecontroller->setCurrentIndex(key);
        }
    }
    showChanges();
    ui->dmxlistview->setFocus();
    ui->dmxlistview->setCurrentIndex(dmxmodel->index(index, 0));
}

void MainWindow::ondeletevdjaction_triggered()
{
    for (const QModelIndex &pad : ui->vdjlistview->selectionModel()->selectedIndexes()) {
        const int button = pad.data(ButtonRole).toInt();
        Assignments::clearCell(*vdjmodel, pad, Assignments::padLabel(pad.row()));
        untickIfGone(button, *vdjmodel, TickedPadColumns);
    }
    showChanges();
    repaintAndFocus(*ui->vdjlistview);
}

void MainWindow::ondeleteaction_triggered()
{
    for (const QModelIndex &key : ui->tablecontroller->selectionModel()->selectedIndexes())
        clearKey(key);
    repaintAndFocus(*ui->tablecontroller);
}

void MainWindow::ondeletemidiaction_triggered(int row, int col)
{
    clearKey(controllermodel->index(row, col));
    repaintAndFocus(*ui->tablecontroller);
}

void MainWindow::clearKey(const QModelIndex &key)
{
    const int button = key.data(ButtonRole).toInt();
    Assignments::clearCell(*controllermodel, key, getpadtext(key.row(), key.column()));
    controllermodel->setData(key, "1", AvailableRole);
    controllermodel->setData(key, "#ffffff", Qt::ForegroundRole);
    untickIfGone(button, *controllermodel, Grid::Size);
    showChanges();
}

void MainWindow::resetdmxlist()
{
    const QSet<QString> assigned = ui->radio_outputpage->isChecked()
                                       ? Assignments::buttons(*vdjmodel, TickedPadColumns)
                                       : Assignments::buttons(*controllermodel, Grid::Size);
    for (int row = 0; row < dmxmodel->rowCount(); ++row) {
        const QModelIndex index = dmxmodel->index(row, 0);
        const QVariant button = index.data(ButtonRole);
        const bool isAssigned = assigned.contains(button.toString());
        dmxmodel->setData(index, isAssigned ? 2 : 0, Qt::CheckStateRole);
        noteCheck(button.toInt(), isAssigned ? "1" : "0");
    }
    showChanges();
    goToFirstLiveButton();
}

/** The other list has the focus in between, so that the table is painted even if it had the focus already. */
void MainWindow::repaintAndFocus(QTableView &table)
{
    ui->dmxlistview->setFocus(Qt::OtherFocusReason);
    table.setFocus(Qt::OtherFocusReason);
}

/** The first one of the page that is on show; without one, none is current. */
void MainWindow::goToFirstLiveButton()
{
    int row = 0;
    while (row < dmxmodel->rowCount() && ui->dmxlistview->isRowHidden(row))
        ++row;
    ui->dmxlistview->setCurrentIndex(dmxmodel->index(row, 0));
}

void MainWindow::focusOnFirstLiveButton()
{
    goToFirstLiveButton();
    ui->dmxlistview->setFocus();
}

void MainWindow::on_cleanpads_button_clicked()
{
    finishEditing();
    cleanVDJ();
    buildPads();
    untickAll();
    showFirstBank();
    focusOnFirstLiveButton();
}

void MainWindow::on_cleanmidi_button_clicked()
{
    finishEditing();
    cleanMIDI();
    buildGrid();
    untickAll();
    focusOnFirstLiveButton();
}

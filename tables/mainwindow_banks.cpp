#include "app/mainwindow.h"

#include "app/ui_mainwindow.h"
#include "app/viewhelpers.h"
#include "tables/assignments.h"
#include "tables/padbanks.h"
#include "tables/vdjmodel.h"

void MainWindow::initpadlist()
{
    buildPads();
    for (int col = 0; col < vdjmodel->columnCount(); ++col)
        ui->vdjlistview->setColumnWidth(col, 150);
    showFirstBank();
    buildGrid();
}

void MainWindow::buildPads()
{
    for (int bank = 0; bank < PadBanks::Count; ++bank) {
        for (int row = PadBanks::RowsPerBank; row > 0; --row) { // each new row goes in at the top
            vdjmodel->insertRows(0, 1);
            for (int col = 0; col < vdjmodel->columnCount(); ++col) {
                const QString label = "PAD " + QString::number(row + col * PadBanks::RowsPerBank);
                Assignments::setLabel(*vdjmodel, vdjmodel->index(0, col), label);
            }
        }
    }
    showBankRows(0);
}

void MainWindow::updatebankcombo()
{
    ui->bankcombo->clear();
    for (int bank = 1; bank <= PadBanks::Count; ++bank)
        ui->bankcombo->addItem(QString::number(bank));
    setTallRows(*ui->bankcombo);
}

void MainWindow::showbank(int index)
{
    showBankRows(index);
    ui->bankname->setText(banklist.value(index));
}

void MainWindow::showFirstBank()
{
    ui->bankcombo->setCurrentIndex(0);
    ui->bankname->setText(banklist.value(0));
}

void MainWindow::showBankRows(int bank)
{
    filterRows(*ui->vdjlistview, [bank](int row) { return row / PadBanks::RowsPerBank == bank; });
}

void MainWindow::on_bankcombo_currentIndexChanged(int index)
{
    showbank(index);
}

void MainWindow::on_bankname_editingFinished()
{
    const int bank = ui->bankcombo->currentIndex();
    if (bank < 0)
        return;
    while (banklist.size() <= bank) // a project may have brought fewer names
        banklist.append(QString());
    banklist[bank] = ui->bankname->text();
}

void MainWindow::on_padsname_editingFinished()
{
    if (ui->padsname->text().isEmpty())
        resetPageName();
}

void MainWindow::on_radioButton_8pads_clicked(bool checked)
{
    if (!checked)
        return;
    ui->vdjlistview->hideColumn(1);
    leaveHiddenCells(*ui->vdjlistview);
}

void MainWindow::on_radioButton_16pads_clicked(bool checked)
{
    if (checked)
        ui->vdjlistview->showColumn(1);
}

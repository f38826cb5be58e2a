#include "app/mainwindow.h"

#include "app/ui_mainwindow.h"
#include "tables/assignments.h"
#include "tables/mymodel.h"
#include "tables/roles.h"
#include "tables/tablekeys.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include <algorithm>

/** Keys of the tables, and what a screen reader tells of them. */
void MainWindow::setUpKeys()
{
    for (QTableView *table : {ui->dmxlistview, ui->vdjlistview, ui->tablecontroller}) {
        const auto *keys = new TableKeys(table);
        connect(keys, &TableKeys::copyPressed, this,
                [this, table] { copyLiveButton(table->currentIndex()); });
        connect(keys, &TableKeys::pastePressed, this, [this, table] { pasteLiveButton(*table); });
        connect(keys, &TableKeys::deletePressed, this, [this, table] { removeSelected(*table); });
    }
    ui->dmxlistview->setAccessibleDescription("Ctrl+C takes the Live Button, for a pad or key.");
    ui->vdjlistview->setAccessibleDescription(
        "Ctrl+C takes the Live Button of the pad, Ctrl+V puts one onto it, F2 changes its text, Delete empties it, "
        "the Menu key opens its menu.");
    ui->tablecontroller->setAccessibleDescription(
        "Ctrl+C takes the Live Button of the key, Ctrl+V puts one onto it, Delete empties all selected keys, "
        "the Menu key opens the menu of the key.");
}

/** Takes what a drag of the Live Button would carry; a text or colours that a pad or key has of its own stay there. */
void MainWindow::copyLiveButton(const QModelIndex &cell)
{
    const QString number = cell.data(ButtonRole).toString();
    for (int row = 0; row < dmxmodel->rowCount(); ++row) {
        const QModelIndex button = dmxmodel->index(row, 0);
        if (button.data(ButtonRole).toString() != number)
            continue;
        copied = dmxmodel->mimeData({button});
        copied->setText(button.data().toString()); // what a field takes
        QGuiApplication::clipboard()->setMimeData(copied);
        return;
    }
}

void MainWindow::pasteLiveButton(QTableView &table)
{
    // What others have put on the clipboard is not even asked for: they might not answer.
    if (!copied || QGuiApplication::clipboard()->mimeData() != copied)
        return;
    const QModelIndex target = table.currentIndex();
    if (!target.flags().testFlag(Qt::ItemIsDropEnabled)
        || !table.model()->canDropMimeData(copied, Qt::CopyAction, -1, -1, target))
        return;
    table.model()->dropMimeData(copied, Qt::CopyAction, -1, -1, target);
    showChanges();
}

void MainWindow::removeSelected(const QTableView &table)
{
    const QModelIndexList cells = table.selectionModel()->selectedIndexes();
    const bool isFilled = std::any_of(cells.cbegin(), cells.cend(), [](const QModelIndex &cell) {
        return cell.data(ButtonRole).toInt() >= 0; // as the menus offer it
    });
    if (!isFilled)
        return;
    if (&table == ui->vdjlistview)
        ondeletevdjaction_triggered();
    else if (&table == ui->tablecontroller)
        ondeleteaction_triggered();
}

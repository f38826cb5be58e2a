#include "app/mainwindow.h"

#include "app/ui_mainwindow.h"
#include "app/viewhelpers.h"
#include "show/liveshow.h"
#include "tables/mymodel.h"
#include "tables/roles.h"

#include <algorithm>

void MainWindow::initlist()
{
    dmxmodel->insertRows(0, buttonlist.size());
    for (int row = 0; row < buttonlist.size(); ++row) {
        const Record &button = buttonlist.at(row);
        const QModelIndex index = dmxmodel->index(row, 0);
        dmxmodel->setData(index, button.value("title"), Qt::EditRole);
        dmxmodel->setData(index, button.value("pageid"), PageRole);
        dmxmodel->setData(index, button.value("title"), DisplayNameRole);
        dmxmodel->setData(index, "1", SourceRole);
        dmxmodel->setData(index, button.value("buttonid"), ButtonRole);
        dmxmodel->setData(index, "#FFFFFF", Qt::ForegroundRole);
        dmxmodel->setData(index, button.value("color"), Qt::DecorationRole);
        dmxmodel->setData(index, 0, Qt::CheckStateRole);
    }
}

void MainWindow::updatecombo()
{
    ui->combobox->clear();
    for (const Record &page : qAsConst(pagelist))
        ui->combobox->addItem(page.value("name"));
    setTallRows(*ui->combobox);
}

void MainWindow::updatelist(int index)
{
    if (index < 0)
        return;
    filterRows(*ui->dmxlistview, [this, index](int row) {
        return index == 0 || dmxmodel->index(row, 0).data(PageRole).toInt() == index;
    });
}

void MainWindow::on_combobox_currentIndexChanged(int index)
{
    updatelist(index);
}

int MainWindow::buttonsperpage(int page)
{
    const QString number = QString::number(page);
    return static_cast<int>(
        std::count_if(buttonlist.cbegin(), buttonlist.cend(),
                      [&number](const Record &button) { return button.value("pageid") == number; }));
}

QString MainWindow::getcolor(const QString &color)
{
    return colorText(color);
}

#include "app/mainwindow.h"

#include "app/ui_mainwindow.h"
#include "app/viewhelpers.h"
#include "devices/catalogue.h"
#include "devices/device.h"
#include "devices/grid.h"
#include "devices/keyrecords.h"
#include "tables/assignments.h"
#include "tables/controller.h"
#include "tables/roles.h"

#include <QPixmap>
#include <QStyle>

#include <algorithm>

namespace {

void fillWithColors(QComboBox &combo, const QStringList &colors)
{
    combo.clear();
    combo.addItems(colors);
    const int side = combo.style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, &combo);
    QPixmap pixmap(side, side);
    for (int i = 0; i < colors.size(); ++i) {
        pixmap.fill(QColor(colors.at(i)));
        combo.setItemData(i, pixmap, Qt::DecorationRole);
    }
    setTallRows(combo);
    combo.setIconSize(QSize(20, 20));
}

} // namespace

void MainWindow::readdefaultmappers()
{
    for (const CatalogueEntry &entry : readCatalogue(":/icons/Mappings")) {
        devicelist.append(entry.device);
        ui->devicescombo->addItem(entry.device.value("name"));
        mapperlist += entry.mappers;
    }
    setTallRows(*ui->devicescombo);
}

int MainWindow::getmapperid(const QString &device, int mapid)
{
    QList<int> positions;
    for (int i = 0; i < mapperlist.size(); ++i) {
        if (mapperlist.at(i).value("device") == device)
            positions.append(i);
    }
    return positions.value(mapid, -1);
}

int MainWindow::getdeviceindex(const QString &device)
{
    const auto match = std::find_if(devicelist.cbegin(), devicelist.cend(), [&device](const Record &record) {
        return record.value("device") == device;
    });
    return match == devicelist.cend() ? -1 : static_cast<int>(match - devicelist.cbegin());
}

bool MainWindow::deviceinlist(const QString &device)
{
    return getdeviceindex(device) >= 0;
}

void MainWindow::readmappers()
{
    for (const Record &mapper : findMappers(mapperpath)) {
        if (deviceinlist(mapper.value("device")))
            mapperlist.append(mapper);
    }
}

void MainWindow::getkeynames(const QString &file, const QString &mapping)
{
    keylist = readKeyRecords(file, mapping);
}

QString MainWindow::getpadavail(int row, int col)
{
    return Grid::hasKey(devicelist.value(deviceindex), row, col) ? "1" : "0";
}

QString MainWindow::getpadtext(int row, int col)
{
    return Grid::label(row, col);
}

void MainWindow::updatemidicombo(int index)
{
    const Record device = devicelist.value(index);
    devicename = device.value("device");
    deviceindex = index;

    ui->mididevices->clear();
    for (const Record &mapper : qAsConst(mapperlist)) {
        if (mapper.value("device") == devicename)
            ui->mididevices->addItem(mapper.value("name"));
    }
    setTallRows(*ui->mididevices);

    const bool isRgb = Device::isRgb(device);
    setShown(*ui->groupBox_colors, !isRgb);
    ui->label_10->setText(isRgb ? "Colors : Device has RGB Leds." : "Default Colors");
    if (isRgb)
        return;

    const QStringList colors = Device::palette(device);
    fillWithColors(*ui->combo_offcolor, colors);
    fillWithColors(*ui->combo_oncolor, colors);
    ui->combo_offcolor->setCurrentIndex(device.value("off").toInt());
    ui->combo_oncolor->setCurrentIndex(device.value("on").toInt());
}

void MainWindow::on_devicescombo_currentIndexChanged(int index)
{
    deviceindex = index;
    updatemidicombo(index);
    updatelayout();
}

void MainWindow::updatelayout()
{
    setAvailability();
    sizeGrid();
    ui->tablecontroller->setFocus(Qt::OtherFocusReason);
}

void MainWindow::setAvailability()
{
    for (int row = 0; row < Grid::Size; ++row) {
        for (int col = 0; col < Grid::Size; ++col)
            controllermodel->setData(controllermodel->index(row, col), getpadavail(row, col), AvailableRole);
    }
    showChanges();
}

void MainWindow::sizeGrid()
{
    for (int col = 0; col < Grid::Size; ++col)
        ui->tablecontroller->setColumnWidth(col, Grid::columnWidth(col));
    for (int row = 0; row < Grid::Size; ++row)
        ui->tablecontroller->setRowHeight(row, Grid::rowHeight(row));
}

void MainWindow::buildGrid()
{
    controllermodel->insertRows(0, Grid::Size);
    for (int row = 0; row < Grid::Size; ++row) {
        for (int col = 0; col < Grid::Size; ++col)
            Assignments::setLabel(*controllermodel, controllermodel->index(row, col), getpadtext(row, col));
    }
    setAvailability();
    sizeGrid();
}

#include "app/mainwindow.h"

void MainWindow::rgbpadchange() {}
void MainWindow::rgbonpadchange() {}
void MainWindow::colorpadchange(int /*dat*/) {}
void MainWindow::coloronpadchange(int /*dat*/) {}
QString MainWindow::getdeviceoffcolor(int devid)
{
    const Record device = devicelist.value(devid);
    return device.value("colors").split(",").value(device.value("off").toInt());
}
QString MainWindow::getdeviceoncolor(int devid)
{
    const Record device = devicelist.value(devid);
    return device.value("colors").split(",").value(device.value("on").toInt());
}
void MainWindow::onblinkaction_triggered() {}
void MainWindow::ontoggleaction_triggered() {}
void MainWindow::customMenuRequestedvdj(QPoint /*pos*/) {}
void MainWindow::customMenuRequested(QPoint /*pos*/) {}

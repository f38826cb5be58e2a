#include "app/mainwindow.h"

void MainWindow::savemidiproject(const QString & /*proj*/) {}

void MainWindow::savepadsproject(const QString & /*proj*/) {}

bool MainWindow::loadproject()
{
    return true;
}

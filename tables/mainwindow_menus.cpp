#include "app/mainwindow.h"

#include "app/stylesheets.h"
#include "app/ui_mainwindow.h"
#include "devices/device.h"
#include "tables/assignments.h"
#include "tables/controller.h"
#include "tables/roles.h"

#include <QColorDialog>
#include <QIcon>
#include <QItemSelectionModel>
#include <QMenu>
#include <QPixmap>

namespace {

QIcon swatch(const QString &color)
{
    QPixmap pixmap(10, 10);
    pixmap.fill(QColor(color));
    return QIcon(pixmap);
}

/** A styled menu of the window, which is gone after it has closed. */
QMenu *createMenu(QWidget *window)
{
    auto *menu = new QMenu(window);
    menu->setStyleSheet(StyleSheet::menu);
    QObject::connect(menu, &QMenu::aboutToHide, menu, &QObject::deleteLater);
    return menu;
}

QMenu *addSubmenu(QMenu &menu, const QString &title)
{
    QMenu *submenu = menu.addMenu(title);
    submenu->setStyleSheet(StyleSheet::menu);
    return submenu;
}

/** Text of a menu entry; the current one has a tick in place of the blank. */
QString entryText(const QString &text, bool isCurrent)
{
    return (isCurrent ? QStringLiteral("✔") : QStringLiteral(" ")) + text;
}

QString defaultColor(const Record &device, const QString &position)
{
    return Device::palette(device).value(device.value(position).toInt());
}

} // namespace

void MainWindow::customMenuRequestedvdj(QPoint pos)
{
    if (ui->vdjlistview->indexAt(pos).data(ButtonRole).toInt() < 0)
        return;
    QMenu *menu = createMenu(this);
    connect(menu->addAction("Remove"), &QAction::triggered, this, &MainWindow::ondeletevdjaction_triggered);
    menu->popup(ui->vdjlistview->viewport()->mapToGlobal(pos));
}

void MainWindow::customMenuRequested(QPoint pos)
{
    menuindex = ui->tablecontroller->indexAt(pos);
    QMenu *menu = createMenu(this);
    if (menuindex.data(ButtonRole).toInt() >= 0) {
        // A key that the device lacks cannot be selected; its entries are not for the keys that are.
        if (menuindex.isValid() && !menuindex.flags().testFlag(Qt::ItemIsEnabled))
            ui->tablecontroller->clearSelection();
        addLiveButtonEntries(*menu);
    }
    menu->addSeparator();
    QAction *toggle = menu->addAction("Set as Switch");
    toggle->setCheckable(true);
    toggle->setChecked(switchkey != Grid::NoCell
                       && switchkey == Grid::Cell{menuindex.row(), menuindex.column()});
    connect(toggle, &QAction::triggered, this, &MainWindow::ontoggleaction_triggered);
    menu->popup(ui->tablecontroller->viewport()->mapToGlobal(pos));
}

void MainWindow::addLiveButtonEntries(QMenu &menu)
{
    QAction *remove = menu.addAction("Remove");
    menu.addSeparator();
    addColorEntries(*addSubmenu(menu, "Off Color"), OffColorRole, &MainWindow::colorpadchange,
                    &MainWindow::rgbpadchange);
    addColorEntries(*addSubmenu(menu, "On Color"), OnColorRole, &MainWindow::coloronpadchange,
                    &MainWindow::rgbonpadchange);
    QAction *blink = menu.addAction("Blink");
    blink->setCheckable(true);
    blink->setChecked(menuindex.data(BlinkRole).toString() == "1");

    connect(blink, &QAction::triggered, this, &MainWindow::onblinkaction_triggered);
    connect(remove, &QAction::triggered, this, &MainWindow::ondeleteaction_triggered);
}

void MainWindow::addColorEntries(QMenu &menu, int role, void (MainWindow::*choose)(int),
                                 void (MainWindow::*ask)())
{
    const QString current = menuindex.data(role).toString();
    const auto addChoice = [&](const QString &text, bool isCurrent, int choice) {
        QAction *entry = menu.addAction(entryText(text, isCurrent));
        connect(entry, &QAction::triggered, this, [this, choose, choice] { (this->*choose)(choice); });
        return entry;
    };
    addChoice("default", current.isEmpty(), 0);
    menu.addSeparator();

    const Record device = devicelist.value(deviceindex);
    if (device.value("fullrgb") != "false") { // the page and the export ask for "true"
        connect(menu.addAction(swatch(current), "Select ..."), &QAction::triggered, this, ask);
        return;
    }
    const QStringList palette = Device::palette(device);
    for (int i = 0; i < palette.size(); ++i) {
        const QString &color = palette.at(i);
        addChoice(color, color == current, i + 1)->setIcon(swatch(color));
    }
}

void MainWindow::setOnSelectedKeys(const QVariant &value, int role)
{
    for (const QModelIndex &key : ui->tablecontroller->selectionModel()->selectedIndexes())
        controllermodel->setData(key, value, role);
    showChanges();
}

void MainWindow::setPaletteColor(int choice, int role)
{
    const QStringList palette = Device::palette(devicelist.value(deviceindex));
    setOnSelectedKeys(choice > 0 ? palette.value(choice - 1) : QString(), role);
}

void MainWindow::askForColor(int role)
{
    QColor current;
    current.setNamedColor(menuindex.data(role).toString());
    const QColor color = QColorDialog::getColor(current, this, "Choose a Color");
    if (color.isValid())
        setOnSelectedKeys(color, role);
}

void MainWindow::colorpadchange(int dat)
{
    setPaletteColor(dat, OffColorRole);
}

void MainWindow::coloronpadchange(int dat)
{
    setPaletteColor(dat, OnColorRole);
}

void MainWindow::rgbpadchange()
{
    askForColor(OffColorRole);
}

void MainWindow::rgbonpadchange()
{
    askForColor(OnColorRole);
}

QString MainWindow::getdeviceoffcolor(int devid)
{
    return defaultColor(devicelist.value(devid), "off");
}

QString MainWindow::getdeviceoncolor(int devid)
{
    return defaultColor(devicelist.value(devid), "on");
}

void MainWindow::onblinkaction_triggered()
{
    const bool blinks = menuindex.data(BlinkRole).toString() == "1";
    setOnSelectedKeys(blinks ? QString() : QString("1"), BlinkRole);
}

void MainWindow::ontoggleaction_triggered()
{
    const Grid::Cell clicked = {menuindex.row(), menuindex.column()};
    const Grid::Cell old = switchkey;
    switchkey = old == clicked ? Grid::NoCell : clicked;

    if (old.row >= 0 && old != clicked)
        ondeletemidiaction_triggered(old.row, old.column);
    ondeletemidiaction_triggered(clicked.row, clicked.column);
    if (old != clicked)
        markAsSwitch(menuindex);
    repaintAndFocus(*ui->tablecontroller);
}

void MainWindow::markAsSwitch(const QModelIndex &key)
{
    Assignments::setLabel(*controllermodel, key, "SWITCH");
    controllermodel->setData(key, "0", AvailableRole);
    controllermodel->setData(key, "green", Qt::ForegroundRole);
    showChanges();
}

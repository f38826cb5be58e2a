#include "app/mainwindow.h"

#include "app/messagebox.h"
#include "app/ui_mainwindow.h"
#include "devices/device.h"
#include "export/mapping.h"
#include "export/padspage.h"
#include "files/path.h"
#include "files/savefile.h"
#include "script/escape.h"
#include "tables/controller.h"
#include "tables/vdjmodel.h"

#include <QDate>

bool MainWindow::exportpage()
{
    const QString name = ui->padsname->text();
    const PadsPage page = {name, banklist, ui->radioButton_16pads->isChecked() ? 16 : 8, *vdjmodel};
    if (!exportTo(padspath + "/" + name + ".xml", "Pads Page " + name + " already exists.",
                  [&page](QTextStream &out) { writePadsPage(out, page); }))
        return false;
    MessageBox::notice(msgstyle, "Pads Page " + name + " is created.",
                       "Select it from VirtualDJ Pads dropdown");
    return true;
}

bool MainWindow::exportTo(const QString &path, const QString &existsText,
                          const std::function<void(QTextStream &)> &write)
{
    if (pathExists(path) && !MessageBox::confirmOverwrite(msgstyle, existsText))
        return false;
    saveText(path, write); // the user is told that the file is created even where it cannot be written
    return true;
}

QString MainWindow::xmlparse(const QString &text)
{
    return escapeScript(text);
}

QString MainWindow::removeos2l(const QString &text)
{
    return unwrapScript(text);
}

bool MainWindow::exportmapping()
{
    const Record device = devicelist.value(ui->devicescombo->currentIndex());
    const int mapperRow = ui->mididevices->currentIndex();
    const Record mapper = mapperlist.value(getmapperid(device.value("device"), mapperRow));
    getkeynames(device.value("path"), mapper.value("path"));

    const QStringList palette = Device::palette(device);
    ControllerMapping mapping = {device, keylist, *controllermodel};
    mapping.switchKey = switchkey;
    mapping.defaultOff = palette.value(ui->combo_offcolor->currentIndex());
    mapping.defaultOn = palette.value(ui->combo_oncolor->currentIndex());
    mapping.isSimple = mapperRow <= 0;
    mapping.date = QDate::currentDate();

    const QString deviceName = device.value("name");
    const QString name = ui->padsname->text();
    const QString fileName = deviceName + " - " + name + " mapping";
    if (!exportTo(mapperpath + "/" + fileName + ".xml", fileName + " already exists.",
                  [&mapping](QTextStream &out) { writeMapping(out, mapping); }))
        return false;
    MessageBox::notice(msgstyle, "Mapping " + name + " for " + deviceName + " is created.",
                       "Select it from Controllers tab of VirtualDJ Settings.");
    return true;
}

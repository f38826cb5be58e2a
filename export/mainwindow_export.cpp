#include "app/mainwindow.h"

#include "app/messagebox.h"
#include "app/ui_mainwindow.h"
#include "export/escape.h"
#include "export/mapping.h"
#include "export/padspage.h"
#include "tables/controller.h"
#include "tables/vdjmodel.h"

#include <QFile>
#include <QTextStream>

bool MainWindow::exportpage()
{
    const QString name = ui->padsname->text();
    QFile file(padspath + "/" + name + ".xml");
    if (file.exists() && !MessageBox::confirmOverwrite(msgstyle, "Pads Page " + name + " already exists."))
        return false;

    // The notice comes even where nothing could be written.
    if (file.open(QIODevice::WriteOnly | QIODevice::Text)) {
        QTextStream out(&file);
        writePadsPage(out, {name, banklist, ui->radioButton_16pads->isChecked() ? 16 : 8, *vdjmodel});
    }
    MessageBox::notice(msgstyle, "Pads Page " + name + " is created.",
                       "Select it from VirtualDJ Pads dropdown");
    return true;
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
    const QString deviceName = device.value("name");
    const QString name = ui->padsname->text();
    const QString fileName = deviceName + " - " + name + " mapping";
    getkeynames(device.value("path"), mapper.value("path"));

    QFile file(mapperpath + "/" + fileName + ".xml");
    if (file.exists() && !MessageBox::confirmOverwrite(msgstyle, fileName + " already exists."))
        return false;

    // The notice comes even where nothing could be written.
    if (file.open(QIODevice::WriteOnly | QIODevice::Text)) {
        const QStringList palette = device.value("colors").split(",");
        QTextStream out(&file);
        writeMapping(out, {device, keylist, *controllermodel, switchkey.value(0, -1), switchkey.value(1, -1),
                           palette.value(ui->combo_offcolor->currentIndex()),
                           palette.value(ui->combo_oncolor->currentIndex()), mapperRow <= 0,
                           QDate::currentDate()});
    }
    MessageBox::notice(msgstyle, "Mapping " + name + " for " + deviceName + " is created.",
                       "Select it from Controllers tab of VirtualDJ Settings.");
    return true;
}

#include "app/mainwindow.h"

#include "app/messagebox.h"
#include "app/ui_mainwindow.h"
#include "export/escape.h"
#include "export/padspage.h"
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
    return false;
}

// Writing a full Pads Page of 8 banks with 16 pads, against one write of the same bytes.

#include "app/mainwindow.h"
#include "cells.h"
#include "export/padspage.h"
#include "files.h"
#include "files/savefile.h"
#include "home.h"
#include "measure.h"
#include "window.h"

#include <QApplication>
#include <QFile>
#include <QRadioButton>
#include <QTableView>

namespace {

double writePage(const QString &path, const PadsPage &page)
{
    QFile::remove(path);
    const double start = Measure::processorSeconds();
    if (!saveText(path, [&page](QTextStream &out) { writePadsPage(out, page); }))
        qFatal("cannot write %s", qPrintable(path));
    return Measure::processorSeconds() - start;
}

} // namespace

int main(int argc, char *argv[])
{
    const Home home;
    const QApplication application(argc, argv);
    MainWindow window(nullptr);
    window.show();
    QAbstractItemModel &pads = *Window::find<QTableView>(window, "vdjlistview")->model();
    fill(pads);
    Window::find<QRadioButton>(window, "radioButton_16pads")->click();
    QCoreApplication::processEvents();

    const Window::Answers answers;
    const QString exported = home.padsFolder() + "/OS2L DMX.xml";
    const auto exportPage = [&] {
        QFile::remove(exported);
        const double start = Measure::processorSeconds();
        Window::call(window, "exportpage");
        return Measure::processorSeconds() - start;
    };
    exportPage();
    const QByteArray bytes = contentOf(exported);

    QStringList banks;
    for (int bank = 1; bank <= 8; ++bank)
        banks += QString("BANK %1").arg(bank);
    const PadsPage page = {"OS2L DMX", banks, 16, pads};
    const QString written = home.padsFolder() + "/written.xml";
    writePage(written, page);
    if (bytes.isEmpty() || contentOf(written) != bytes)
        qFatal("the slot and the function write different pages");

    const auto reference = [&] { return writeAtOnce(home.padsFolder() + "/reference.xml", bytes); };
    Measure::Report report;
    report.line("write a full Pads Page to a file",
                Measure::inTurns(51, reference, [&] { return writePage(written, page); }), 10, 5e-3);
    report.line("export it from the window, its notice included", Measure::inTurns(51, reference, exportPage),
                10, 5e-3);
    return report.exitStatus();
}

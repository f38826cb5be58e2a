// Exporting a wrapped mapping of the largest controller, against parsing the files that it is made from.

#include "app/mainwindow.h"
#include "cells.h"
#include "devices/catalogue.h"
#include "devices/keyrecords.h"
#include "export/mapping.h"
#include "files.h"
#include "files/savefile.h"
#include "home.h"
#include "measure.h"
#include "window.h"

#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QLineEdit>
#include <QTableView>

namespace {

const QString ControllerName = "Novation Launchpad PRO";
const QString Layout = ":/icons/Mappings/Novation Launchpad PRO.xml";
const QString Mapper = ":/icons/Mappings/Novation Launchpad PRO mapping.xml";

double parseBoth()
{
    const double start = Measure::processorSeconds();
    parse(Layout);
    parse(Mapper);
    return Measure::processorSeconds() - start;
}

double readKeys()
{
    const double start = Measure::processorSeconds();
    const bool areThere = !readKeyRecords(Layout, Mapper).isEmpty();
    const double seconds = Measure::processorSeconds() - start;

    if (!areThere)
        qFatal("there are no keys in %s", qPrintable(Layout));
    return seconds;
}

/** What the window's slot does, without the window. */
double writeMapper(const QString &path, const Record &device, const QAbstractItemModel &grid)
{
    QFile::remove(path);
    const double start = Measure::processorSeconds();
    ControllerMapping mapping = {device, readKeyRecords(Layout, Mapper), grid};
    mapping.date = QDate::currentDate();
    if (!saveText(path, [&mapping](QTextStream &out) { writeMapping(out, mapping); }))
        qFatal("cannot write %s", qPrintable(path));
    return Measure::processorSeconds() - start;
}

Record deviceNamed(const QString &name)
{
    for (const CatalogueEntry &entry : readCatalogue(":/icons/Mappings")) {
        if (entry.device.value("name") == name)
            return entry.device;
    }
    qFatal("no controller %s", qPrintable(name));
}

/** Picks the controller and its factory mapper in the window, and fills its grid. */
QAbstractItemModel &fillController(MainWindow &window)
{
    auto *const devices = Window::find<QComboBox>(window, "devicescombo");
    devices->setCurrentIndex(devices->findText(ControllerName));
    auto *const mappers = Window::find<QComboBox>(window, "mididevices");
    mappers->setCurrentIndex(mappers->findText(ControllerName + " mapping (factory)"));
    QAbstractItemModel &grid = *Window::find<QTableView>(window, "tablecontroller")->model();
    fill(grid);
    return grid;
}

} // namespace

int main(int argc, char *argv[])
{
    const Home home;
    const QApplication application(argc, argv);
    MainWindow window(nullptr);
    window.show();
    QAbstractItemModel &grid = fillController(window);
    QCoreApplication::processEvents();

    const Window::Answers answers;
    const QString page = Window::find<QLineEdit>(window, "padsname")->text();
    const QString exported = home.mappersFolder() + "/" + ControllerName + " - " + page + " mapping.xml";
    const auto exportMapping = [&] {
        QFile::remove(exported);
        const double start = Measure::processorSeconds();
        Window::call(window, "exportmapping");
        return Measure::processorSeconds() - start;
    };
    const auto exportUpToNotice = [&] {
        QFile::remove(exported);
        const double start = Measure::processorSeconds();
        Window::call(window, "exportmapping");
        return answers.boxBegan() - start;
    };
    exportMapping();
    const QByteArray bytes = contentOf(exported);

    const Record device = deviceNamed(ControllerName);
    const QString written = home.padsFolder() + "/written.xml";
    writeMapper(written, device, grid);
    if (!bytes.contains("$os2l") || contentOf(written) != bytes)
        qFatal("the slot and the functions write different mappers");

    const auto parseAndWrite = [&] {
        return parseBoth() + writeAtOnce(home.padsFolder() + "/reference.xml", bytes);
    };
    const auto write = [&] { return writeMapper(written, device, grid); };
    Measure::Report report;
    report.line("read the keys of a controller", Measure::inTurns(51, parseBoth, readKeys), 1.5);
    report.line("write its wrapped mapping to a file", Measure::inTurns(51, parseAndWrite, write), 2);
    report.line("export it from the window, up to its notice",
                Measure::inTurns(51, parseAndWrite, exportUpToNotice), 2);
    report.line("export it from the window, its notice included",
                Measure::inTurns(51, parseAndWrite, exportMapping), Measure::NoLimit);
    return report.exitStatus();
}

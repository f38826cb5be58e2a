// Loading a show, against reading every key of the same file.

#include "app/mainwindow.h"
#include "home.h"
#include "measure.h"
#include "showfile.h"
#include "window.h"

#include <QApplication>
#include <QSettings>
#include <QTableView>

namespace {

double readEveryKey(const QString &path)
{
    const double start = Measure::processorSeconds();
    const QSettings settings(path, QSettings::IniFormat);
    int characters = 0;
    for (const QString &key : settings.allKeys())
        characters += settings.value(key).toString().size();
    const double seconds = Measure::processorSeconds() - start;

    if (characters == 0)
        qFatal("there is nothing in %s", qPrintable(path));
    return seconds;
}

double loadShow(MainWindow &window, const QString &path, int buttons)
{
    const double start = Measure::processorSeconds();
    Window::load(window, path);
    const double seconds = Measure::processorSeconds() - start;

    if (Window::find<QTableView>(window, "dmxlistview")->model()->rowCount() != buttons)
        qFatal("not all of %d Live Buttons are loaded", buttons);
    QCoreApplication::processEvents();
    return seconds;
}

} // namespace

int main(int argc, char *argv[])
{
    const Home home;
    const QApplication application(argc, argv);
    MainWindow window(nullptr);
    window.show();

    Measure::Report report;
    FreshCopies emptyShows(0);
    for (const int buttons : {600, 6000, 60000}) {
        FreshCopies shows(buttons);
        const auto reference = [&] { return readEveryKey(shows.next()); };
        const auto ours = [&] {
            loadShow(window, emptyShows.next(), 0); // the rows before go away untimed
            return loadShow(window, shows.next(), buttons);
        };
        report.line(QString("load a show of %1 buttons").arg(buttons),
                    Measure::inTurns(buttons > 6000 ? 7 : 15, reference, ours), 2);
    }
    return report.exitStatus();
}

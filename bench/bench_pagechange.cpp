// A change of the live page: what a row costs in a long list, against what it costs in a short one.

#include "app/mainwindow.h"
#include "home.h"
#include "measure.h"
#include "showfile.h"
#include "window.h"

#include <QApplication>
#include <QComboBox>
#include <QTableView>

namespace {

/** A window with a show, to go through its pages. */
class Pages final
{
public:
    explicit Pages(int buttons) : m_rows(buttons), m_window(nullptr)
    {
        m_window.show();
        Window::load(m_window, FreshCopies(buttons).next());
        QCoreApplication::processEvents();
    }

    /** Seconds that a row takes in a change of page; every change begins in a window that has been painted. */
    double secondsForARow()
    {
        auto *const pages = Window::find<QComboBox>(m_window, "combobox");
        const int rounds = qMax(1, 6000 / m_rows);
        double seconds = 0;
        int changes = 0;
        for (int round = 0; round < rounds; ++round) {
            for (const int page : {1, 2, pages->count() - 1, 0}) {
                const double start = Measure::processorSeconds();
                pages->setCurrentIndex(page);
                seconds += Measure::processorSeconds() - start;
                ++changes;
                QCoreApplication::processEvents();
                checkRows(page);
            }
        }
        return seconds / changes / m_rows;
    }

private:
    void checkRows(int page) const
    {
        const auto *const view = Window::find<QTableView>(m_window, "dmxlistview");
        for (int row = 0; row < m_rows; ++row) {
            const bool isOfPage = page == 0 || row / ButtonsPerPage + 1 == page;
            if (view->isRowHidden(row) == isOfPage)
                qFatal("row %d is wrong on page %d", row, page);
        }
    }

    int m_rows;
    MainWindow m_window;
};

} // namespace

int main(int argc, char *argv[])
{
    const Home home;
    const QApplication application(argc, argv);
    Pages few(600);

    Measure::Report report;
    for (const int buttons : {6000, 60000}) {
        Pages many(buttons);
        report.line(QString("change the page, a row of %1 against one of 600").arg(buttons),
                    Measure::inTurns(
                        9, [&] { return few.secondsForARow(); }, [&] { return many.secondsForARow(); }),
                    3);
    }
    return report.exitStatus();
}

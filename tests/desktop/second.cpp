// A second Zarvex with a home and a show of its own, for what happens between two programs or at a program's end. With
// an argument its first pad has the fourth Live Button. Whenever something changes, it says in a line what is to be seen.

#include "support/workspace.h"

#include <QDrag>
#include <QMessageBox>

#include <cstdio>

namespace {

QString placeOf(const QTableView *view)
{
    const QPoint point = view->viewport()->mapToGlobal(view->visualRect(view->model()->index(0, 0)).center());
    return QString("%1,%2").arg(point.x()).arg(point.y());
}

/** The middle of the first Live Button and of the first pad, a drag, the open message box, and the keyboard. */
QString seen(Workspace &space)
{
    const auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
    return QString("%1|%2|%3|%4|%5")
        .arg(placeOf(space.dmxView()), placeOf(space.padsView()),
             space.window().findChild<QDrag *>() ? "drag" : "no drag", box ? box->text() : QString(),
             space.window().isActiveWindow() ? "active" : "not active");
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    Workspace space;
    space.window().move(800, 60);
    if (!space.loadSomeShow() || (argc > 1 && !space.putOnPad(3, 0)))
        return 1;
    space.dialogs.standAside();

    QString said;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] {
        const QString now = seen(space);
        if (now == said || !QTest::qWaitForWindowExposed(&space.window(), 0))
            return;
        said = now;
        std::puts(qPrintable(said));
        std::fflush(stdout);
    });
    timer.start(5);
    return QApplication::exec();
}

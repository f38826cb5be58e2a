#include "support/workspace.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDir>
#include <QDropEvent>
#include <QFile>
#include <QMimeData>

Workspace::Workspace()
{
    qputenv("HOME", m_home.path().toLocal8Bit());
    qputenv("XDG_CONFIG_HOME", (m_home.path() + "/.config").toLocal8Bit());
    QDir(m_home.path()).mkpath("Documents/VirtualDJ/Pads");
    QDir(m_home.path()).mkpath("Documents/VirtualDJ/Mappers");
    QDir(m_home.path()).mkpath("TheLightingController/LightShows");
}

Workspace::~Workspace() = default;

MainWindow &Workspace::window()
{
    if (!m_window) {
        m_window = std::make_unique<MainWindow>(nullptr);
        m_window->show();
        QApplication::setActiveWindow(m_window.get());
        QApplication::processEvents();
    }
    return *m_window;
}

QString Workspace::writeShow(const QString &name, const QByteArray &ini)
{
    const QString folder = home() + "/" + name;
    QDir().mkpath(folder + "/Live");
    QFile file(folder + "/Live/live.ini");
    if (!file.open(QIODevice::WriteOnly) || file.write(ini) != ini.size())
        qFatal("cannot write a show");
    return folder;
}

QByteArray Workspace::iniWith(const QList<int> &buttonsOnPages)
{
    QByteArray ini = "[page]\nnumber = " + QByteArray::number(buttonsOnPages.size()) + "\n";
    int running = 0;
    for (int page = 1; page <= buttonsOnPages.size(); ++page) {
        const QByteArray number = QByteArray::number(page);
        const int buttons = buttonsOnPages.at(page - 1);
        ini += "[page" + number + "]\nname = Page " + number + "\nnb_buttons = " + QByteArray::number(buttons)
               + "\n";
        for (int button = 1; button <= buttons; ++button, ++running) {
            const QByteArray at = QByteArray::number(button);
            ini += "[page" + number + "_button" + at + "]\ntitle = " + number + "-" + at
                   + "\ncolor = " + QByteArray::number(running * 1000) + "\n";
        }
    }
    return ini;
}

bool Workspace::load(const QString &folder)
{
    window();
    dialogs.expect(ExpectedDialogs::File{"Select a Show", {}, folder});
    return click("loadini") && dialogs.faults().isEmpty();
}

bool Workspace::loadSomeShow()
{
    return load(writeShow("Show", iniWith({8, 8})));
}

bool Workspace::click(const char *name)
{
    auto *button = find<QAbstractButton>(name);
    if (!button->isEnabled() || !button->isVisible())
        return false;
    QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, button->height() / 2));
    return true;
}

void Workspace::trigger(const char *action)
{
    find<QAction>(action)->trigger();
}

bool Workspace::drop(const QMimeData *data, QTableView *onto, const QPoint &point)
{
    QDragEnterEvent enter(point, Qt::CopyAction, data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(onto->viewport(), &enter);
    QDragMoveEvent move(point, Qt::CopyAction, data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(onto->viewport(), &move);
    if (!move.isAccepted())
        return false;
    QDropEvent drop(point, Qt::CopyAction, data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(onto->viewport(), &drop);
    return drop.isAccepted();
}

bool Workspace::drag(const QModelIndex &from, QTableView *onto, const QModelIndex &target)
{
    if (!from.flags().testFlag(Qt::ItemIsDragEnabled))
        return false;
    const std::unique_ptr<QMimeData> data(from.model()->mimeData({from}));
    return drop(data.get(), onto, onto->visualRect(target).center());
}

bool Workspace::isTicked(int row)
{
    return dmx()->index(row, 0).data(Qt::CheckStateRole).toInt() == Qt::Checked;
}

QList<int> Workspace::ticked()
{
    QList<int> rows;
    for (int row = 0; row < dmx()->rowCount(); ++row) {
        if (isTicked(row))
            rows.append(row);
    }
    return rows;
}

#include "desktop/desk.h"

#include "support/boxes.h"

#include <QComboBox>
#include <QMimeData>
#include <QRegularExpression>

bool Desk::open()
{
    space.dialogs.standAside();
    QGuiApplication::setQuitOnLastWindowClosed(false);
    space.window().move(60, 60);
    space.window().activateWindow();
    awaitRest();
    return input.play();
}

bool Desk::start()
{
    MainWindow &window = space.window();
    space.dialogs.standAside();
    QGuiApplication::setQuitOnLastWindowClosed(false);
    input.click(on("label_4")); // a window manager that has just begun may give the keyboard to nobody
    awaitRest();
    input.await("the window can become wider", [&window] {
        window.move(60, 60);
        return true;
    });
    input.click(on("loadini"));
    input.awaitDialog(Boxes::SelectShow);
    input.type(space.writeShow("Show", Workspace::iniWith({8, 8})));
    input.key("Return");
    input.await("the show is loaded", [&window] { return window.windowTitle() == "Zarvex - Show"; });
    awaitRest();
    return input.play();
}

bool Desk::isAtRest()
{
    return QGuiApplication::focusWindow() && QGuiApplication::focusWindow() == space.window().windowHandle()
           && !QApplication::activeModalWidget() && !QApplication::activePopupWidget();
}

void Desk::awaitRest()
{
    input.await("the window has the keyboard again", [this] { return isAtRest(); });
}

bool Desk::clearPads(int padsPerBank)
{
    input.click(on("radio_outputpage"));
    input.click(on(padsPerBank == 8 ? "radioButton_8pads" : "radioButton_16pads"));
    return clear();
}

bool Desk::clearKeys(int device)
{
    input.click(on("radio_outputmidi"));
    input.await("the keys are there", [this] { return grid()->isVisible(); });
    space.find<QComboBox>("devicescombo")->setCurrentIndex(device);
    return clear();
}

bool Desk::clear()
{
    input.moveTo(on("label_padname"));
    return input.play() && space.call("on_actionNew_2_triggered") && ticks().isEmpty() && isAtRest();
}

bool Desk::lay(QTableView *onto, const QString &cells)
{
    static const QRegularExpression cell("(\\d+),(\\d+)=(\\d+)");
    for (auto found = cell.globalMatch(cells); found.hasNext();) {
        const QRegularExpressionMatch match = found.next();
        const QModelIndex target = onto->model()->index(match.captured(1).toInt(), match.captured(2).toInt());
        const std::unique_ptr<QMimeData> data(
            space.dmx()->mimeData({space.dmx()->index(match.captured(3).toInt(), 0)}));
        if (!onto->model()->dropMimeData(data.get(), Qt::CopyAction, -1, -1, target))
            return false;
    }
    onto->viewport()->update();
    return true;
}

QString Desk::filled(const QTableView *view)
{
    QStringList cells;
    const QAbstractItemModel *model = view->model();
    for (int row = 0; row < model->rowCount(); ++row) {
        for (int col = 0; col < model->columnCount(); ++col) {
            const QModelIndex cell = model->index(row, col);
            if (cell.data(ButtonRole) != QVariant("-1"))
                cells += QString("%1,%2=%3").arg(row).arg(col).arg(cell.data(Qt::DisplayRole).toString());
        }
    }
    return cells.join(' ');
}

QString Desk::ticks()
{
    QStringList rows;
    const QList<int> ticked = space.ticked();
    for (const int row : ticked)
        rows += QString::number(row);
    return rows.join(' ');
}

QString Desk::foreignCell(const QTableView *view)
{
    const QAbstractItemModel *model = view->model();
    for (int row = 0; row < model->rowCount(); ++row) {
        for (int col = 0; col < model->columnCount(); ++col) {
            const QModelIndex cell = model->index(row, col);
            const int button = cell.data(ButtonRole).toInt();
            const QModelIndex own = space.dmx()->index(button, 0);
            if (button < 0 || !own.isValid())
                continue;
            for (const int role : {int(Qt::DecorationRole), int(PageRole), int(DisplayNameRole)}) {
                if (cell.data(role) != own.data(role))
                    return QString("row %1, column %2, role %3").arg(row).arg(col).arg(role);
            }
        }
    }
    return {};
}

void DeskTest::init()
{
    if (m_desk)
        return;
    auto desk = std::make_unique<Desk>();
    QVERIFY(desk->start());
    m_desk = std::move(desk);
}

void DeskTest::cleanup()
{
    if (QTest::currentTestFailed() || !m_desk || !m_desk->space.window().isVisible())
        m_desk.reset();
}

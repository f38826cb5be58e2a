#include "support/workspace.h"

#include "support/files.h"
#include "support/home.h"
#include "support/models.h"
#include "support/texts.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QColor>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDir>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>

#include <algorithm>

namespace {

/** What differs from an empty cell; nothing if the cell is as it should be. */
QString leftIn(const QModelIndex &cell, const QString &label)
{
    const QList<QPair<int, QVariant>> expected = {
        {Qt::DisplayRole, label},
        {Qt::EditRole, label},
        {DisplayNameRole, label},
        {PageRole, Texts::NoPage},
        {Qt::DecorationRole, QColor(Texts::NoColor)},
        {ButtonRole, Texts::NoButton},
    };
    for (const auto &[role, value] : expected) {
        if (cell.data(role) != value)
            return QString("row %1, column %2, role %3: \"%4\"")
                .arg(cell.row())
                .arg(cell.column())
                .arg(role)
                .arg(cell.data(role).toString());
    }
    return {};
}

} // namespace

Workspace::Workspace()
{
    takeHome(m_home.path());
    QDir(m_home.path()).mkpath("Documents/VirtualDJ/Pads");
    QDir(m_home.path()).mkpath("Documents/VirtualDJ/Mappers");
    QDir(m_home.path()).mkpath("TheLightingController/LightShows");
}

Workspace::~Workspace() = default;

QString Workspace::showsFolder() const
{
#ifdef Q_OS_WIN
    return {};
#else
    return home() + "/TheLightingController/LightShows";
#endif
}

MainWindow &Workspace::window()
{
    if (!m_window) {
        m_window = std::make_unique<MainWindow>(nullptr);
        m_window->show();
        activate();
        QApplication::processEvents();
    }
    return *m_window;
}

void Workspace::activate()
{
    QApplication::setActiveWindow(&window());
}

QString Workspace::writeShow(const QString &name, const QByteArray &ini)
{
    QString folder = home() + "/" + name;
    QDir().mkpath(folder + "/Live");
    if (!writeFile(folder + "/Live/live.ini", ini))
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
    activate();
    QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, button->height() / 2));
    return true;
}

bool Workspace::choose(const char *name, int index)
{
    auto *combo = find<QComboBox>(name);
    if (!combo->isEnabled() || !combo->isVisible())
        return false;
    activate();
    while (combo->currentIndex() != index) {
        const int before = combo->currentIndex();
        combo->setFocus(Qt::TabFocusReason);
        QTest::keyClick(combo, before < index ? Qt::Key_Down : Qt::Key_Up);
        if (combo->currentIndex() == before)
            return false;
    }
    return true;
}

bool Workspace::type(const char *name, const QString &text)
{
    auto *edit = find<QLineEdit>(name);
    if (!edit->isEnabled() || !edit->isVisible())
        return false;
    activate();
    QTest::mouseClick(edit, Qt::LeftButton);
    edit->selectAll();
    QTest::keyClick(edit, Qt::Key_Backspace);
    QTest::keyClicks(edit, text);
    return edit->hasFocus() && edit->text() == text;
}

void Workspace::trigger(const char *action)
{
    find<QAction>(action)->trigger();
}

bool Workspace::drop(const QMimeData *data, QTableView *onto, const QPoint &point)
{
    return Models::drop(*onto, *data, point);
}

bool Workspace::drag(const QModelIndex &from, QTableView *onto, const QModelIndex &target)
{
    if (!from.flags().testFlag(Qt::ItemIsDragEnabled))
        return false;
    activate();
    const std::unique_ptr<QMimeData> data(from.model()->mimeData({from}));
    return drop(data.get(), onto, onto->visualRect(target).center());
}

bool Workspace::putOnPad(int button, int row, int col)
{
    return choose("bankcombo", row / 8) && !padsView()->isColumnHidden(col)
           && drag(dmx()->index(button, 0), padsView(), pads()->index(row, col));
}

bool Workspace::putOnKey(int button, int row, int col)
{
    return gridView()->isVisible() && drag(dmx()->index(button, 0), gridView(), grid()->index(row, col));
}

QMenu *Workspace::rightClick(QTableView *view, const QPoint &point)
{
    activate();
    const QWidget *before = QApplication::activePopupWidget();
    QTest::mousePress(view->viewport(), Qt::RightButton, {}, point);
    QContextMenuEvent request(QContextMenuEvent::Mouse, point, view->viewport()->mapToGlobal(point));
    QApplication::sendEvent(view->viewport(), &request);
    QTest::mouseRelease(view->viewport(), Qt::RightButton, {}, point);
    QWidget *popup = QApplication::activePopupWidget();
    return popup == before ? nullptr : qobject_cast<QMenu *>(popup);
}

QMenu *Workspace::rightClick(QTableView *view, const QModelIndex &cell)
{
    return rightClick(view, view->visualRect(cell).center());
}

bool Workspace::pick(QMenu *menu, const QStringList &path)
{
    for (const QString &text : path) {
        if (!menu || !QTest::qWaitFor([menu] { return menu->isVisible(); }))
            return false;
        const QList<QAction *> actions = menu->actions();
        const auto found = std::find_if(actions.cbegin(), actions.cend(),
                                        [&text](const QAction *action) { return action->text() == text; });
        if (found == actions.cend() || !(*found)->isEnabled() || menu->actionGeometry(*found).isEmpty())
            return false;
        QMenu *submenu = (*found)->menu();
        QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(*found).center());
        menu = submenu;
    }
    return !menu;
}

bool Workspace::pickOnKey(int row, int col, const QStringList &path)
{
    const bool isPicked = pick(rightClick(gridView(), grid()->index(row, col)), path);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // the menu goes
    return isPicked && !QApplication::activePopupWidget();
}

void Workspace::select(QTableView *view, const QString &cells)
{
    view->selectionModel()->clear();
    const QStringList parts = cells.split(' ', Qt::SkipEmptyParts);
    for (const QString &cell : parts) {
        view->selectionModel()->select(
            view->model()->index(cell.section(',', 0, 0).toInt(), cell.section(',', 1).toInt()),
            QItemSelectionModel::Select);
    }
}

QStringList Workspace::itemsOf(const QComboBox *combo)
{
    QStringList items;
    for (int i = 0; i < combo->count(); ++i)
        items.append(combo->itemText(i));
    return items;
}

QString Workspace::focused()
{
    const QWidget *widget = QApplication::focusWidget();
    return widget ? widget->objectName() : "nothing";
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

QString Workspace::leftOnPads()
{
    if (pads()->rowCount() != 64 || pads()->columnCount() != 2)
        return QString("%1 rows, %2 columns").arg(pads()->rowCount()).arg(pads()->columnCount());
    for (int row = 0; row < 64; ++row) {
        for (int col = 0; col < 2; ++col) {
            if (QString left = leftIn(pads()->index(row, col), Texts::padLabel(row, col)); !left.isEmpty())
                return left;
        }
    }
    return {};
}

QString Workspace::leftOnGrid()
{
    if (grid()->rowCount() != 12 || grid()->columnCount() != 12)
        return QString("%1 rows, %2 columns").arg(grid()->rowCount()).arg(grid()->columnCount());
    for (int row = 0; row < 12; ++row) {
        for (int col = 0; col < 12; ++col) {
            const QModelIndex key = grid()->index(row, col);
            if (QString left = leftIn(key, Texts::keyLabel(row, col)); !left.isEmpty())
                return left;
            if (!key.data(OffColorRole).toString().isEmpty() || !key.data(OnColorRole).toString().isEmpty()
                || key.data(BlinkRole) != QVariant("0"))
                return QString("LED colours or blink in row %1, column %2").arg(row).arg(col);
        }
    }
    return {};
}

QStringList Workspace::keys()
{
    QStringList picture;
    for (int row = 0; row < grid()->rowCount(); ++row) {
        QString line;
        for (int col = 0; col < grid()->columnCount(); ++col)
            line += grid()->index(row, col).data(AvailableRole) == QVariant("1") ? 'X' : '.';
        picture.append(line);
    }
    return picture;
}

QStringList Workspace::bankNames()
{
    QStringList names;
    for (int bank = 0; bank < 8; ++bank) {
        call("showbank", bank);
        names.append(find<QLineEdit>("bankname")->text());
    }
    call("showbank", find<QComboBox>("bankcombo")->currentIndex());
    return names;
}

QStringList Workspace::snapshot()
{
    QStringList all = {"title: " + window().windowTitle(), "banks: " + bankNames().join("|")};
    for (const QComboBox *combo : window().findChildren<QComboBox *>()) {
        all += combo->objectName() + ": " + QString::number(combo->currentIndex());
        for (int i = 0; i < combo->count(); ++i)
            all += combo->objectName() + " item: " + combo->itemText(i);
    }
    for (const QLineEdit *edit : window().findChildren<QLineEdit *>())
        all += edit->objectName() + ": " + edit->text();
    for (const QAbstractButton *button : window().findChildren<QAbstractButton *>())
        all += button->objectName() + (button->isChecked() ? " checked" : "");
    for (const QTableView *view : {dmxView(), padsView(), gridView()}) {
        const QAbstractItemModel *model = view->model();
        for (int row = 0; row < model->rowCount(); ++row) {
            for (int col = 0; col < model->columnCount(); ++col) {
                QString cell = QString("%1 %2,%3").arg(view->objectName()).arg(row).arg(col);
                if (view->isRowHidden(row) || view->isColumnHidden(col))
                    cell += " hidden";
                for (const int role :
                     {int(Qt::EditRole), int(Qt::DecorationRole), int(Qt::CheckStateRole), int(PageRole),
                      int(DisplayNameRole), int(ButtonRole), int(AvailableRole), int(OffColorRole),
                      int(OnColorRole), int(BlinkRole)})
                    cell += "|" + model->index(row, col).data(role).toString();
                all += cell;
            }
        }
    }
    return all;
}

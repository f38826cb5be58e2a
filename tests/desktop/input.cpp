#include "desktop/input.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDeadlineTimer>
#include <QDialog>
#include <QDrag>
#include <QDragMoveEvent>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMouseEvent>
#include <QTableView>
#include <QtTest>
#include <QWindow>

namespace {

const QPoint Nowhere(-1, -1);
constexpr int Pause = 50; // before a gesture that was not seen is made again

bool isOnScreen(const QWidget *widget)
{
    const QWindow *window = widget ? widget->window()->windowHandle() : nullptr;
    return window && window->isExposed() && widget->isVisible();
}

std::optional<QPoint> pointOf(const QWidget *widget, const QPoint &point)
{
    if (!isOnScreen(widget) || !widget->rect().contains(point))
        return std::nullopt;
    return widget->mapToGlobal(point);
}

/** The middle of a cell, as far as it is seen. */
std::optional<QPoint> middleOfCell(const QAbstractItemView *view, const QModelIndex &cell)
{
    return pointOf(view->viewport(), (view->visualRect(cell) & view->viewport()->rect()).center());
}

/** The menu with this entry that is open, the innermost one if there are several. */
std::pair<QMenu *, QAction *> findEntry(const QString &text)
{
    std::pair<QMenu *, QAction *> found = {nullptr, nullptr};
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        auto *menu = qobject_cast<QMenu *>(window);
        if (!menu || !isOnScreen(menu))
            continue;
        const QList<QAction *> actions = menu->actions();
        for (QAction *action : actions) {
            if (action->text() == text && action->isEnabled() && !menu->actionGeometry(action).isEmpty())
                found = {menu, action};
        }
    }
    return found;
}

bool hasKeyboard(const QWidget *widget)
{
    return isOnScreen(widget) && QGuiApplication::focusWindow() == widget->window()->windowHandle();
}

bool hasSomeKeyboard()
{
    if (QApplication::activePopupWidget())
        return isOnScreen(QApplication::activePopupWidget()) && QGuiApplication::focusWindow();
    if (const QWidget *dialog = QApplication::activeModalWidget())
        return hasKeyboard(dialog);
    return QGuiApplication::focusWindow() && QApplication::activeWindow();
}

QStringList toPoint(const QPoint &point)
{
    // From the side: a mouse that stands there already would move nobody.
    return {"mousemove", QString::number(point.x() + 2), QString::number(point.y()),
            "mousemove", QString::number(point.x()),     QString::number(point.y())};
}

/** A command that does not depend on anything. */
std::function<std::optional<QStringList>()> plainly(const QString &command)
{
    return [command] { return command.split(' '); };
}

QString withoutMark(QString text)
{
    return text.remove('&');
}

} // namespace

Place Places::middleOf(const QWidget *widget)
{
    return [widget] { return pointOf(widget, widget->rect().center()); };
}

Place Places::cell(const QTableView *view, int row, int col)
{
    return
        [=] { return pointOf(view->viewport(), view->visualRect(view->model()->index(row, col)).center()); };
}

Place Places::lineAbove(const QTableView *view, int row, int col)
{
    return [=] {
        const QRect cell = view->visualRect(view->model()->index(row, col));
        return pointOf(view->viewport(), {cell.center().x(), cell.top() - 1});
    };
}

Place Places::emptyCorner(const QTableView *view)
{
    return
        [view] { return pointOf(view->viewport(), view->viewport()->rect().bottomRight() - QPoint(4, 4)); };
}

Place Places::bareScreen(const QWidget *window)
{
    return [window]() -> std::optional<QPoint> {
        return QPoint(window->frameGeometry().left() - 20, window->geometry().center().y());
    };
}

Place Places::item(const QComboBox *combo, int index)
{
    return [=] { return middleOfCell(combo->view(), combo->model()->index(index, 0)); };
}

Place Places::entry(const QString &text)
{
    return [text]() -> std::optional<QPoint> {
        const auto [menu, action] = findEntry(text);
        return menu ? pointOf(menu, menu->actionGeometry(action).center()) : std::nullopt;
    };
}

Place Places::menuTitle(const QWidget *window, const QString &title)
{
    return [=]() -> std::optional<QPoint> {
        const auto *bar = window->findChild<QMenuBar *>();
        const QList<QAction *> actions = bar->actions();
        for (QAction *action : actions) {
            if (action->text() == title)
                return pointOf(bar, bar->actionGeometry(action).center());
        }
        return std::nullopt;
    };
}

Place Places::dialogButton(const QString &text)
{
    return [text]() -> std::optional<QPoint> {
        const QWidget *dialog = QApplication::activeModalWidget();
        if (!dialog)
            return std::nullopt;
        const auto buttons = dialog->findChildren<QAbstractButton *>();
        for (const QAbstractButton *button : buttons) {
            if (withoutMark(button->text()) == text && button->isEnabled())
                return pointOf(button, button->rect().center());
        }
        return std::nullopt;
    };
}

QList<QStringList> openMenus()
{
    QList<QStringList> all;
    QWidget *popup = QApplication::activePopupWidget();
    for (auto *menu = qobject_cast<QMenu *>(popup); menu;
         menu = qobject_cast<QMenu *>(menu->parentWidget())) {
        if (!menu->isVisible())
            break;
        QStringList entries;
        const QList<QAction *> actions = menu->actions();
        for (const QAction *action : actions)
            entries += action->isSeparator() ? "-" : action->text() + (action->isChecked() ? "*" : "");
        all.prepend(entries);
    }
    return all;
}

QString openDialog()
{
    const QWidget *dialog = QApplication::activeModalWidget();
    if (!dialog || QApplication::activePopupWidget() || !hasKeyboard(dialog))
        return {};
    if (const auto *box = qobject_cast<const QMessageBox *>(dialog))
        return box->text();
    return dialog->windowTitle();
}

Input::Input()
{
    // Two clicks are two clicks, unless they shall be one double click.
    QApplication::setDoubleClickInterval(1);
    qApp->installEventFilter(this);
    connect(&m_timer, &QTimer::timeout, this, &Input::look);
    connect(&m_tool, &QProcess::readyReadStandardOutput, this, [this] {
        m_isBusy = false;
        m_isDone = true;
        m_doneAt = QDeadlineTimer::current().deadline();
        if (m_tool.readAllStandardOutput().trimmed() != "0")
            giveUp(m_tool.readAllStandardError());
    });
    // One shell for all commands: to start each from here would take long in a build with sanitizers.
    m_tool.start(
        "bash", {"-c", "while read -r line; do eval \"xdotool $line\" </dev/null && echo 0 || echo 1; done"});
    m_timer.setSingleShot(true);
}

Input::~Input()
{
    m_tool.closeWriteChannel();
    m_tool.waitForFinished();
}

void Input::takeForDoubleClicks(bool isSlow)
{
    await("another double click", [isSlow] {
        QApplication::setDoubleClickInterval(isSlow ? Patience : 1);
        return true;
    });
}

void Input::add(const Step &step)
{
    m_steps.enqueue(step);
}

void Input::moveTo(const Place &place)
{
    pointAt("the mouse moves", place, [] { return true; });
}

void Input::pointAt(const QString &what, const Place &place, const std::function<bool()> &seen)
{
    add({what,
         [place]() -> std::optional<QStringList> {
             const auto point = place();
             return point ? std::make_optional(toPoint(*point)) : std::nullopt;
         },
         [=] { return place() == m_pointer && seen(); }, true});
}

void Input::click(const Place &place, int button)
{
    moveTo(place);
    clickHere(button);
}

void Input::clickHere(int button)
{
    auto target = std::make_shared<int>(0);
    add({"a click",
         [=] {
             *target = m_releases + 1;
             m_pointer = Nowhere;
             return QString("click %1 mousemove_relative 1 0 mousemove_relative -- -1 0")
                 .arg(button)
                 .split(' ');
         },
         // Where the press closes a popup, the release can get lost. The move after it tells as much.
         [=] { return m_releases >= *target || m_pointer != Nowhere; }});
}

void Input::doubleClick(const Place &place)
{
    moveTo(place);
    takeForDoubleClicks(true);
    clickHere();
    clickHere();
    takeForDoubleClicks(false);
}

void Input::openList(QComboBox *combo)
{
    // The list takes a release that comes later than that for the choice of an entry.
    takeForDoubleClicks(true);
    click(Places::middleOf(combo));
    await("the list is open", [combo] { return isOnScreen(combo->view()); });
    takeForDoubleClicks(false);
}

void Input::pick(QComboBox *combo, int index)
{
    openList(combo);
    pointAt("the list follows the mouse", Places::item(combo, index),
            [=] { return combo->view()->currentIndex().row() == index; });
    click(Places::item(combo, index));
    awaitNoPopup();
}

void Input::pickEntry(const QString &text)
{
    pointAt("the menu follows the mouse to " + text, Places::entry(text), [text] {
        const auto [menu, action] = findEntry(text);
        return menu && menu->activeAction() == action;
    });
    click(Places::entry(text));
}

void Input::openSubmenu(const QString &text)
{
    pointAt("the submenu of " + text, Places::entry(text), [text] {
        const auto [menu, action] = findEntry(text);
        return menu && isOnScreen(action->menu());
    });
}

void Input::press(int button)
{
    add({"the button goes down", plainly("mousedown " + QString::number(button)),
         [] { return QGuiApplication::mouseButtons() != Qt::NoButton; }});
}

void Input::release(int button)
{
    add({"the button goes up", plainly("mouseup " + QString::number(button)),
         [] { return QGuiApplication::mouseButtons() == Qt::NoButton; }});
}

void Input::beginDrag(QTableView *from, const Place &place)
{
    moveTo(place);
    press();
    add({"a drag begins", plainly("mousemove_relative 6 2"),
         [from] { return from->findChild<QDrag *>() != nullptr; }, true});
}

void Input::beginDragElsewhere(const Place &place, const std::function<bool()> &begun)
{
    add({"the button goes down elsewhere",
         [place]() -> std::optional<QStringList> {
             const auto point = place();
             return point ? std::make_optional(toPoint(*point) + QStringList{"mousedown", "1"})
                          : std::nullopt;
         },
         [] { return true; }});
    add({"a drag begins elsewhere", plainly("mousemove_relative 6 2"), begun, true});
}

void Input::dragOver(const Place &place)
{
    add({"the drag gets to its target",
         [place]() -> std::optional<QStringList> {
             const auto point = place();
             return point ? std::make_optional(toPoint(*point)) : std::nullopt;
         },
         [=] { return m_dragged && m_dragged == place(); }, true});
}

void Input::dragOut(const Place &place)
{
    add({"the drag leaves the window",
         [place]() -> std::optional<QStringList> {
             const auto point = place();
             return point ? std::make_optional(toPoint(*point)) : std::nullopt;
         },
         [this] { return !m_dragged; }, true});
}

void Input::key(const QString &keys)
{
    const int presses = keys.count('+') + 1;
    auto target = std::make_shared<int>(0);
    add({"the key " + keys,
         [=]() -> std::optional<QStringList> {
             if (!hasSomeKeyboard())
                 return std::nullopt;
             *target = m_keyPresses + presses;
             return QStringList{"key", keys};
         },
         [=] { return m_keyPresses >= *target; }});
}

void Input::keys(const QString &row)
{
    const QStringList all = row.split(' ');
    for (const QString &one : all)
        key(one);
}

void Input::keyInDrag(const QString &keys)
{
    add({"the key " + keys, plainly("key " + keys), [] { return true; }});
}

void Input::closeWindow()
{
    add({"the window is closed",
         []() -> std::optional<QStringList> {
             return hasSomeKeyboard() ? std::make_optional(QStringList{"key", "alt+F4"}) : std::nullopt;
         },
         [] { return true; }});
}

void Input::hold(const QString &modifier)
{
    add({modifier + " goes down", plainly("keydown " + modifier), [] { return true; }});
}

void Input::letGo(const QString &modifier)
{
    add({modifier + " goes up", plainly("keyup " + modifier), [] { return true; }});
}

void Input::type(const QString &text)
{
    auto target = std::make_shared<int>(0);
    add({"typing " + text,
         [=]() -> std::optional<QStringList> {
             if (!hasSomeKeyboard())
                 return std::nullopt;
             *target = m_keyPresses + text.size();
             return QStringList{"type", "--delay", "1", text};
         },
         [=] { return m_keyPresses >= *target; }});
}

void Input::await(const QString &what, const std::function<bool()> &seen)
{
    add({what, [] { return QStringList(); }, seen});
}

void Input::awaitDialog(const QString &text)
{
    await("the dialog \"" + text + "\"", [text] { return openDialog() == text; });
}

void Input::awaitNoPopup()
{
    await("no popup", [] { return !QApplication::activePopupWidget(); });
}

bool Input::play()
{
    m_hasFailed = false;
    m_isDone = false;
    m_since = QDeadlineTimer::current().deadline();
    m_timer.start(0);
    while (!m_steps.isEmpty())
        QTest::qWait(1);
    m_timer.stop();
    return !m_hasFailed;
}

void Input::look()
{
    m_timer.start(3); // again and again, whatever the step opens below this
    if (m_hasFailed) {
        rescue();
        return;
    }
    if (m_steps.isEmpty() || m_isBusy)
        return;
    const Step step = m_steps.head();
    const qint64 now = QDeadlineTimer::current().deadline();
    if (now - m_since > Patience) {
        giveUp("it does not show");
        return;
    }
    if (!m_isDone) {
        if (const auto command = step.command())
            run(*command);
        return;
    }
    if (step.seen())
        next();
    else if (step.isRepeated && now - m_doneAt > Pause)
        m_isDone = false;
}

void Input::run(const QStringList &command)
{
    if (command.isEmpty()) {
        m_isDone = true;
        return;
    }
    m_isBusy = true;
    QByteArray line;
    for (const QString &word : command)
        line += "'" + word.toUtf8() + "' ";
    m_tool.write(line + "\n");
}

void Input::next()
{
    m_steps.dequeue();
    m_isDone = false;
    m_since = QDeadlineTimer::current().deadline();
}

void Input::giveUp(const QString &why)
{
    if (m_hasFailed)
        return;
    qWarning().noquote() << "The input gave up:" << m_steps.head().what + ":" << why;
    m_hasFailed = true;
}

void Input::rescue()
{
    if (!m_isBusy)
        run({"mouseup", "1", "mouseup", "2", "mouseup", "3", "keyup", "shift", "keyup", "ctrl", "key",
             "Escape"});
    if (QWidget *popup = QApplication::activePopupWidget())
        popup->close();
    if (auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget()))
        dialog->reject();
    m_steps.clear();
}

bool Input::eventFilter(QObject *watched, QEvent *event)
{
    const auto *window = qobject_cast<QWindow *>(watched);
    if (!window)
        return false;
    switch (event->type()) {
    case QEvent::MouseMove: {
        // A window that has just been moved about may not know yet where it is.
        const auto *mouse = static_cast<QMouseEvent *>(event);
        if (window->mapToGlobal(mouse->pos()) == mouse->globalPos())
            m_pointer = mouse->globalPos();
        break;
    }
    case QEvent::DragEnter:
    case QEvent::DragMove:
        m_dragged = window->mapToGlobal(static_cast<QDragMoveEvent *>(event)->pos());
        break;
    case QEvent::DragLeave:
    case QEvent::Drop:
        m_dragged.reset();
        break;
    case QEvent::MouseButtonRelease:
        ++m_releases;
        break;
    case QEvent::ShortcutOverride: // comes before each press of a key, whatever becomes of it
        ++m_keyPresses;
        break;
    default:
        break;
    }
    return false;
}

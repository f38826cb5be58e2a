#pragma once

#include <QObject>
#include <QPoint>
#include <QProcess>
#include <QQueue>
#include <QStringList>
#include <QTimer>

#include <functional>
#include <optional>

class QComboBox;
class QTableView;
class QWidget;

/** Milliseconds that a step may take, on a machine that does much else. */
constexpr int Patience = 120000;

/** A point on the screen, or nothing while it is not there to be pointed at. */
using Place = std::function<std::optional<QPoint>()>;

/** Places, found anew whenever they are asked for. What is hidden has none. */
namespace Places {

Place middleOf(const QWidget *widget);
Place cell(const QTableView *view, int row, int col = 0);
/** The line between a cell and the one above it. */
Place lineAbove(const QTableView *view, int row, int col = 0);
/** A little inside a table's lower right corner, beyond its last row and column if these leave room. */
Place emptyCorner(const QTableView *view);
/** A window's title bar is above it, the bare screen is left of it. */
Place bareScreen(const QWidget *window);
/** An entry of a combo box's open list. */
Place item(const QComboBox *combo, int index);
/** An entry of an open menu. */
Place entry(const QString &text);
/** A menu of the menu bar, by its title. */
Place menuTitle(const QWidget *window, const QString &title);
/** A button of the open dialog, by its text without the mark of its letter. */
Place dialogButton(const QString &text);

} // namespace Places

/** Texts of the menus that are open, the innermost last; each as its entries, separators as "-", ticked ones with "*". */
QList<QStringList> openMenus();
/** Caption of the open dialog, or the text of the open message box; empty where there is none with the keyboard. */
QString openDialog();

/**
 * The real mouse and the real keyboard: xdotool moves them in the X server.
 *
 * Gestures are written down first and then played. The steps go on while the program runs an event loop of its
 * own, as it does during a drag or below a dialog. Each step waits until the program has seen it; nothing
 * waits longer than some seconds.
 */
class Input final : public QObject
{
    Q_OBJECT

public:
    Input();
    ~Input() override;

    void moveTo(const Place &place);
    void click(const Place &place, int button = 1);
    void doubleClick(const Place &place);
    /** Opens the list of a combo box. */
    void openList(QComboBox *combo);
    /** Opens a combo box, and picks an entry once the list follows the mouse. */
    void pick(QComboBox *combo, int index);
    /** Picks an entry of an open menu with the mouse, once the menu follows it. */
    void pickEntry(const QString &text);
    /** Points at an entry of an open menu until its submenu is there. */
    void openSubmenu(const QString &text);

    /** Presses the mouse on a cell, and moves it until the view has begun a drag. */
    void beginDrag(QTableView *from, const Place &place);
    /** The same in another program's window; it tells when a drag has begun. */
    void beginDragElsewhere(const Place &place, const std::function<bool()> &begun);
    /** Carries a drag to a place of a window. */
    void dragOver(const Place &place);
    /** Carries a drag out of all windows. */
    void dragOut(const Place &place);
    void press(int button = 1);
    void release(int button = 1);

    /** Presses keys, as "Escape" or "ctrl+a", once a window of ours has the keyboard. */
    void key(const QString &keys);
    /** Presses one after the other, as "Down Down Return". */
    void keys(const QString &row);
    /** The same amid a drag, which keeps the keys to itself. */
    void keyInDrag(const QString &keys);
    /** By the window manager's keys, Alt and F4, which the window itself does not see. */
    void closeWindow();
    void hold(const QString &modifier);
    void letGo(const QString &modifier);
    /** Types Latin letters, digits and signs without a single quote. */
    void type(const QString &text);

    void await(const QString &what, const std::function<bool()> &seen);
    /** Until a dialog with this caption, or a message box with this text, has the keyboard. */
    void awaitDialog(const QString &text);
    void awaitNoPopup();

    /**
     * Plays what was written down.
     *
     * @return false where a step did not show; dialogs, menus and drags are closed then, and warnings tell the step
     */
    bool play();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Step
    {
        QString what;
        /** What xdotool is told; nothing while it is too early. */
        std::function<std::optional<QStringList>()> command;
        std::function<bool()> seen;
        bool isRepeated = false; ///< until it is seen; else it is done once
    };

    void add(const Step &step);
    /** Moves the mouse to a place, again and again until something is seen. */
    void pointAt(const QString &what, const Place &place, const std::function<bool()> &seen);
    void clickHere(int button = 1);
    /** Whether two clicks in one place are a double click however slow they are, or however fast they are not. */
    void takeForDoubleClicks(bool isSlow);
    void look();
    void run(const QStringList &command);
    void next();
    void giveUp(const QString &why);
    /** Closes what would keep an event loop of the program running. */
    void rescue();

    QQueue<Step> m_steps;
    QTimer m_timer;
    QProcess m_tool;
    bool m_isBusy = false;
    bool m_isDone = false; ///< what the current step tells xdotool to do
    bool m_hasFailed = false;
    qint64 m_since = 0;
    qint64 m_doneAt = 0;
    QPoint m_pointer; ///< where a window of ours has last seen the mouse
    std::optional<QPoint> m_dragged;
    int m_releases = 0;
    int m_keyPresses = 0;
};

#pragma once

#include "app/mainwindow.h"
#include "support/dialogs.h"
#include "tables/roles.h"

#include <QTableView>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

class QAction;
class QComboBox;
class QMenu;

/**
 * A fresh home folder with a program in it, reached as its users and the meta-object reach it: by object
 * names, slot names and roles.
 *
 * The home folder is a temporary one with Documents/VirtualDJ/Pads and Mappers in it.
 * Declare one for each test function.
 */
class Workspace final
{
public:
    Workspace();
    ~Workspace();

    /** The window; built at the first call and shown. */
    MainWindow &window();
    /** Leaves the window behind; the next call of window() builds another one. */
    void restart() { m_window.reset(); }
    /** Home folder, with no slash at its end. */
    QString home() const { return m_home.path(); }
    QString documents() const { return home() + "/Documents"; }
    QString padsFolder() const { return documents() + "/VirtualDJ/Pads"; }
    QString mappersFolder() const { return documents() + "/VirtualDJ/Mappers"; }
    /** Where the dialog for shows starts; empty on Windows, where the account alone says which home folder is asked. */
    QString showsFolder() const;

    /** A child of the window by object name; ends the test program where it is missing. */
    template<typename T>
    T *find(const char *name)
    {
        T *child = window().findChild<T *>(name);
        if (!child)
            qFatal("no %s named %s", T::staticMetaObject.className(), name);
        return child;
    }

    QTableView *dmxView() { return find<QTableView>("dmxlistview"); }
    QTableView *padsView() { return find<QTableView>("vdjlistview"); }
    QTableView *gridView() { return find<QTableView>("tablecontroller"); }
    QAbstractItemModel *dmx() { return dmxView()->model(); }
    QAbstractItemModel *pads() { return padsView()->model(); }
    QAbstractItemModel *grid() { return gridView()->model(); }

    /** Calls a slot without result by name, in any access. False where there is no such slot. */
    template<typename... Args>
    bool call(const char *slot, Args... args)
    {
        return QMetaObject::invokeMethod(&window(), slot, Qt::DirectConnection, argument(args)...);
    }

    /** The same for a slot that takes up to three numbers. */
    bool callWith(const char *slot, const QList<int> &numbers);

    /** Calls a slot with a result by name, in any access; aborts the test where there is no such slot. */
    template<typename Result, typename... Args>
    Result ask(const char *slot, Args... args)
    {
        Result result{};
        if (!QMetaObject::invokeMethod(&window(), slot, Qt::DirectConnection,
                                       QReturnArgument<Result>(typeName(result), result), argument(args)...))
            qFatal("no slot %s", slot);
        return result;
    }

    /**
     * Writes a show folder "<home>/<name>/Live/live.ini".
     *
     * @param ini  content of live.ini
     * @return     path of the show folder
     */
    QString writeShow(const QString &name, const QByteArray &ini);

    /**
     * A show's live.ini with the given number of buttons on each page; button M of page N has the title
     * "N-M", and its colour is the running button number times 1000.
     */
    static QByteArray iniWith(const QList<int> &buttonsOnPages);

    /** Loads a show through "Load DMX Show" and the folder dialog; false where something went wrong. */
    bool load(const QString &folder);

    /** Writes a show of two pages with eight buttons each, named "Show", and loads it. */
    bool loadSomeShow();

    /** Makes the window the active one, so that focus counts; a dialog that closed leaves none behind. */
    void activate();

    /** Clicks a push button or radio button; false where it is disabled or hidden. */
    bool click(const char *name);

    /** Goes to a combo box and picks an item with the keyboard; false where the box is disabled or hidden. */
    bool choose(const char *name, int index);

    /**
     * Clicks into a line edit and types over what it holds, without leaving it.
     *
     * @param text  Latin letters, digits and signs; empty clears the field
     * @return      whether the field holds the text now
     */
    bool type(const char *name, const QString &text);

    /** Triggers an action by name. */
    void trigger(const char *action);

    /**
     * Drags one cell and drops it in the middle of another, through the views' own events (drag enter,
     * move, drop on the viewport), so that flags count.
     *
     * @return whether the view took the drop
     */
    bool drag(const QModelIndex &from, QTableView *onto, const QModelIndex &target);

    /** Drops data at a point of a view's viewport through its own events; whether the view took it. */
    static bool drop(const QMimeData *data, QTableView *onto, const QPoint &point);

    /**
     * Drags a Live Button onto a pad, whose bank is brought on show.
     *
     * @param button  its row in the Live Buttons table
     * @return        whether the view took the drop; false for a pad of a hidden column
     */
    bool putOnPad(int button, int row, int col = 0);

    /** Drags a Live Button, by its row, onto a key; whether the view took the drop. Needs MIDI Mapping mode. */
    bool putOnKey(int button, int row, int col);

    /** Drags Live Buttons onto pads, or onto keys in MIDI Mapping mode; each as "button@row,column". */
    bool put(const QString &buttons);

    /** A cell by its place, "row,column"; none for a place outside of the table. */
    static QModelIndex cellAt(const QTableView *view, const QString &place);

    /**
     * Presses the right mouse button on a table and asks for the context menu there, through events of its
     * viewport. As for every user, a cell that was not selected becomes the selection.
     *
     * @return the menu that popped up, or nothing
     */
    QMenu *rightClick(QTableView *view, const QPoint &point);
    QMenu *rightClick(QTableView *view, const QModelIndex &cell);

    /**
     * Picks an entry of an open menu with the mouse.
     *
     * @param path  texts of the submenus on the way, then the entry's
     * @return      false where one of them is missing, disabled or out of sight
     */
    static bool pick(QMenu *menu, const QStringList &path);

    /** Right-clicks a key and picks an entry of its menu, as pick() does; no menu stays open. */
    bool pickOnKey(int row, int col, const QStringList &path);

    /** Selects nothing but some cells of a table, as "row,column row,column". */
    static void select(QTableView *view, const QString &cells);

    /** The texts that a combo box offers. */
    static QStringList itemsOf(const QComboBox *combo);
    /** Object name of the widget that has the focus; "nothing" where none has it. */
    static QString focused();

    /** Whether the Live Button in a row has its tick. */
    bool isTicked(int row);
    /** The rows that are ticked, rising. */
    QList<int> ticked();

    /** The eight bank names, asked for bank by bank; the bank that was on show is on show again. */
    QStringList bankNames();
    /** Window title, rows in sight, fields and what the tables keep, one text a widget or cell; to compare with another. */
    QStringList snapshot();
    /** Where the pads table differs from 64 rows of empty pads under their first labels; empty if nowhere. */
    QString leftOnPads();
    /** Where the grid differs from 12 rows of empty keys under their labels, AvailableRole aside. */
    QString leftOnGrid();
    /** The grid's cells as twelve texts of twelve signs: 'X' where the device has a key, '.' elsewhere. */
    QStringList keys();

    ExpectedDialogs dialogs;

private:
    static QGenericArgument argument(const int &value) { return Q_ARG(int, value); }
    static QGenericArgument argument(const bool &value) { return Q_ARG(bool, value); }
    static QGenericArgument argument(const QString &value) { return Q_ARG(QString, value); }
    static QGenericArgument argument(const QPoint &value) { return Q_ARG(QPoint, value); }
    static const char *typeName(const int &) { return "int"; }
    static const char *typeName(const bool &) { return "bool"; }
    static const char *typeName(const QString &) { return "QString"; }

    QTemporaryDir m_home;
    std::unique_ptr<MainWindow> m_window;
};

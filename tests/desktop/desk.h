#pragma once

#include "desktop/input.h"
#include "support/workspace.h"

/** Adds a row to a test's table: its name and its values. */
template<typename... Values>
void addRow(const QString &name, const Values &...values)
{
    (QTest::newRow(qPrintable(name)) << ... << values);
}

template<typename Value>
void addColumns(std::initializer_list<const char *> names)
{
    for (const char *name : names)
        QTest::addColumn<Value>(name);
}

/** The program on a real desktop, with a show of two pages with eight Live Buttons each, named "1-1" to "2-8". */
class Desk final
{
public:
    /** Shows the window, which gets the keyboard without the mouse; false where it does not. */
    bool open();
    /** Shows the window and loads the show, by mouse and keyboard; false where that fails. */
    bool start();

    /** Whether the window has the keyboard, and no dialog or popup is open. */
    bool isAtRest();

    /** Empties pads and keys, and goes to the Pads Page with eight or sixteen pads a bank. */
    bool clearPads(int padsPerBank = 8);
    /** Empties pads and keys, and goes to MIDI Mapping with a device. */
    bool clearKeys(int device = 0);

    QTableView *list() { return space.dmxView(); }
    QTableView *pads() { return space.padsView(); }
    QTableView *grid() { return space.gridView(); }
    /** A widget's middle, by its object name. */
    Place on(const char *name) { return Places::middleOf(space.find<QWidget>(name)); }

    /** Lays Live Buttons on pads or keys with no gesture, as "row,column=button row,column=button". */
    bool lay(QTableView *onto, const QString &cells);
    void awaitRest();
    /** What lies on pads or keys, in that form with the texts that are seen in place of the buttons' numbers. */
    static QString filled(const QTableView *view);
    /** The rows with a tick, as "0 1". */
    QString ticks();
    /** A filled cell whose page, colour or name are not those of its Live Button, in words; else empty. */
    QString foreignCell(const QTableView *view);

    Workspace space;
    Input input;

private:
    bool clear();
};

/** Tests that play one after the other on one desk; one that fails leaves a new desk to the next. */
class DeskTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

protected:
    std::unique_ptr<Desk> m_desk;
};

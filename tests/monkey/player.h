#pragma once

#include "rules.h"

class QMenu;
class QTableView;
class Workspace;

/** Plays gestures on the window as a user does. */
class Player final
{
public:
    explicit Player(Workspace &space) : m_space(space) {}

    /**
     * Plays a gesture that is possible.
     *
     * @param told  what must come of it
     * @return      what came otherwise, in words; empty if nothing
     */
    QString play(const Gesture &gesture, const Rules::Outcome &told);

private:
    void expect(const Rules::Question &question);
    bool dropOn(const Gesture &gesture, bool isLine);
    bool rename(const Gesture &gesture);
    bool pressKeys(const Gesture &gesture);
    bool typeName(const char *edit, const QString &name);
    QString useMenu(const Gesture &gesture, const Rules::Outcome &told);
    QString useMenu(QMenu *menu, const Rules::Outcome &told);
    bool setPanel(const Gesture &gesture);
    bool command(const Gesture &gesture);

    Workspace &m_space;
};

#pragma once

#include "stage/laidout.h"

#include <QSet>

namespace Stage {

/** Collects what is not as expected; the first of it tells enough. */
class Findings final
{
public:
    void compare(const QString &what, const QString &actual, const QString &expected);
    void compare(const QString &what, const QStringList &actual, const QStringList &expected);
    QByteArray first() const { return m_faults.value(0).toUtf8(); }
    bool areNone() const { return m_faults.isEmpty(); }
    /** How many comparisons there have been so far, of all findings. */
    static int checks() { return s_checks; }

private:
    static int s_checks;
    QStringList m_faults;
};

/** Whether a control is a key with a LED. */
bool isKey(const Control &control);

/** The key in a cell of the grid; without a name where there is none. */
Control keyAt(const QString &device, const Cell &cell);

/**
 * Plays all keys while they belong to the music: each does what it does without the program.
 *
 * @param butNot  names of keys and LEDs that are passed over
 */
void playTheMusic(const LaidOut &laid, const MapperFile &mapper, const QSet<QString> &butNot,
                  Findings &findings);

/** Plays all controls while they belong to the lights: keys with a Live Button fire it, others do nothing. */
void playTheLights(const LaidOut &laid, Hardware &hardware, VirtualDj &dj, DmxProgram &lights,
                   Findings &findings);

/** Changes over, and looks at the Switch's own LED. */
void pressSwitch(const LaidOut &laid, bool toLights, Hardware &hardware, VirtualDj &dj, Findings &findings);

} // namespace Stage

#pragma once

#include "stage/controls.h"
#include "tables/record.h"

#include <QMap>
#include <QPair>

namespace Stage {

using Cell = QPair<int, int>; ///< row and column of the program's grid

/** A Live Button on a key, with what the DJ chose for the key; colours are empty where he chose none. */
struct Light
{
    QString button;
    QString color; ///< the Live Button's own
    QString on;
    QString off;
    bool blinks;
};

/** What a DJ has laid out for a controller. */
struct LaidOut
{
    QString device; ///< base name of its files
    QMap<Cell, Light> lights;
    Cell switchKey = {-1, -1};
    bool isSimple = false;
};

/** What the DJ expects of a LED while its light is on, and while it is off; as VirtualDj::ledOf() tells it. */
QString lit(const LaidOut &laid, const Control &key);
QString resting(const LaidOut &laid, const Control &key);
/** The Switch's own LED while the lights have the keys, and while they do not. */
QString litSwitch(const LaidOut &laid, const Control &key);
QString restingSwitch(const LaidOut &laid, const Control &key);

/**
 * What the program writes for it.
 *
 * @param base  mapper that the keys keep, by its path; empty for the one that the program brings
 */
QByteArray exported(const LaidOut &laid, const QString &base = {});

} // namespace Stage

#pragma once

#include "devices/grid.h"
#include "tables/record.h"

#include <QDate>
#include <QList>

class QAbstractItemModel;
class QTextStream;

/** What a mapper file is made from. */
struct ControllerMapping
{
    Record device;                  ///< device record of the controller
    QList<Record> keys;             ///< its key records, in the order of the file
    const QAbstractItemModel &grid; ///< the key grid; a key whose cell is outside of it counts as assigned
    Grid::Cell switchKey = {};      ///< cell of the Switch key
    QString defaultOff = {};        ///< colour of a resting LED on a device with a palette
    QString defaultOn = {};         ///< colour of a lit LED on a device with a palette
    bool isSimple = false; ///< for the lights alone, or wrapped around the scripts of the key records
    QDate date = {};       ///< day of the export
};

/**
 * Writes a mapper for VirtualDJ's Mappers folder.
 *
 * Keys with a Live Button press it, and their LEDs show it. A simple mapping silences all other keys. A
 * wrapped one asks the variable "$os2l" first: while it is clear, every key keeps its script of the key
 * records; the Switch key, which has no Live Button, toggles it.
 *
 * @param out      stream to write to, in its own codec; names go out unescaped, scripts of the key records as
 *                 escapeScript() leaves them
 * @param mapping  what to write
 */
void writeMapping(QTextStream &out, const ControllerMapping &mapping);

#pragma once

#include "tables/record.h"

#include <QList>

/**
 * Merges a controller's layout and a mapper into key records, one for each control of the layout.
 *
 * A record has "value" (name of the control), "action" (its script in the mapper), "row" and "col" (its cell
 * on the grid) and "type" ("pad", "button", "slider", "ignore" or "empty"). Pads and buttons have "led" (name
 * of their LED) and "ledaction" as well, buttons "ledtype" ("color" or "led"). Scripts are decoded, and freed
 * of the OS2L wrapping of an exported mapper. Where a mapper has several rows of one name, the last counts.
 *
 * A button whose LED has no row lights by the button's action, but only as long as no button before it in
 * the layout has a LED row of its own.
 *
 * @param layoutPath  full path of the layout
 * @param mapperPath  full path of the mapper
 * @return            all pads in the layout's order, then all buttons, sliders, ignored and empty controls;
 *                    none where one of the files does not exist. A file that cannot be read or is not
 *                    well-formed counts as empty: without a mapper all scripts are empty.
 */
QList<Record> readKeyRecords(const QString &layoutPath, const QString &mapperPath);

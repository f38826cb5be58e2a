#pragma once

#include "tables/record.h"

#include <QList>

/** The entries of a key record by their names, and what they tell. */
namespace KeyRecord {

inline constexpr char Name[] = "value";          ///< name of the control
inline constexpr char Script[] = "action";       ///< its script in the mapper
inline constexpr char Row[] = "row";             ///< its cell of the grid
inline constexpr char Column[] = "col";          ///< of a slider, its number from 0
inline constexpr char Type[] = "type";           ///< one of those below
inline constexpr char Led[] = "led";             ///< name of its LED; of pads and buttons
inline constexpr char LedScript[] = "ledaction"; ///< script of the LED; of pads and buttons
inline constexpr char LedType[] = "ledtype";     ///< whether the LED has colours; of buttons

// Types of controls, which are the names of their elements in a layout.
inline constexpr char Pad[] = "pad";
inline constexpr char Button[] = "button";
inline constexpr char Slider[] = "slider";
inline constexpr char Ignore[] = "ignore";
inline constexpr char Empty[] = "empty";

// Types of LEDs.
inline constexpr char ColorLed[] = "color";
inline constexpr char PlainLed[] = "led";

} // namespace KeyRecord

/**
 * Merges a controller's layout and a mapper into key records, one for each control of the layout.
 *
 * Scripts are decoded, and freed of the OS2L wrapping of an exported mapper. Where a mapper has several rows of one
 * name, the last counts.
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

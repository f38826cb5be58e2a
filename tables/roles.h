#pragma once

#include <qnamespace.h>

/** What the tables keep for a cell beside its text; the numbers are shared by all three models. */
enum ItemRole {
    PageRole = Qt::UserRole, ///< 256: number of the live page, "0" where the cell is empty
    DisplayNameRole,         ///< 257: the Live Button's own name, whatever the user typed over it
    SourceRole,              ///< 258: "1" in the Live Buttons table; the other two have no such value
    ButtonRole,              ///< 259: button number, "-1" where the cell is empty
    AvailableRole,           ///< 260: "1" where the device has a key
    OffColorRole,            ///< 261: colour of the key's LED at rest, empty for the device's default
    OnColorRole,             ///< 262: colour of the lit LED, empty for the device's default
    BlinkRole,               ///< 263: "1" where the lit LED blinks
};

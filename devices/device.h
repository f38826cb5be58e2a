#pragma once

#include "tables/record.h"

#include <QStringList>

/** What a device record tells of the controller's LEDs. */
namespace Device {

/** The colour texts of the palette, in its order; one empty text where the device has none. */
inline QStringList palette(const Record &device)
{
    return device.isEmpty() ? QStringList() : device.value("colors").split(",");
}

/** Whether the LEDs take any colour; where the record does not say so, they have a palette. */
inline bool isRgb(const Record &device)
{
    return device.value("fullrgb") == "true";
}

} // namespace Device

#pragma once

#include <QString>

/** What the user reads, beside the dialogs of boxes.h, and what a cell without a Live Button holds. */
namespace Texts {

inline const QString Program = "Zarvex";
inline const QString AllPages = "All Pages";   ///< first entry of the page filter
inline const QString PageName = "OS2L DMX";    ///< name of a page or mapping that nobody has named
inline const QString FirstOutput = "Pad Page"; ///< beside the page's name until an output is chosen
inline const QString PadsPage = "Pads Page";
inline const QString MidiMapping = "MIDI Mapping";
inline const QString DefaultColors = "Default Colors";
inline const QString AnyColor = "Colors : Device has RGB Leds.";
inline const QString SimpleMapper = "Simple OS2L mapping";
inline const QString Switch = "SWITCH";

/** The window's title with a show. */
inline QString title(const QString &show)
{
    return Program + " - " + show;
}

inline QString factoryMapper(const QString &device)
{
    return device + " mapping (factory)";
}

// A cell without a Live Button.
inline const QString NoPage = "0";
inline const QString NoButton = "-1";
inline const QString NoColor = "#000000";

/** @param row  of all 64; eight of them make a bank */
inline QString padLabel(int row, int col)
{
    return "PAD " + QString::number(row % 8 + 1 + col * 8);
}

/** Empty for the corners and the gaps around the pads. */
inline QString keyLabel(int row, int col)
{
    const bool isPadRow = row >= 2 && row <= 9;
    const bool isPadColumn = col >= 2 && col <= 9;
    if (isPadRow && isPadColumn)
        return "PAD " + QString::number((row - 2) * 8 + col - 1);
    if (isPadColumn && (row == 0 || row == 11))
        return (row == 0 ? "TOP " : "BOTTOM ") + QString::number(col - 1);
    if (isPadRow && (col == 0 || col == 11))
        return (col == 0 ? "LEFT " : "RIGHT ") + QString::number(row - 1);
    return {};
}

} // namespace Texts

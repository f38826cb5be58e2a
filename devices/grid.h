#pragma once

#include "tables/record.h"

/**
 * The 12 by 12 scheme that pictures every pad controller.
 *
 * Rows and columns 2 to 9 are the 8 by 8 pads. Row 0 and row 11 are the top and bottom bands, column 0
 * and column 11 the left and right bands; rows and columns 1 and 10 are narrow gaps.
 */
namespace Grid {

/** Rows of the grid, and columns as well. */
constexpr int Size = 12;

/** A cell of the grid by row and column from 0, or none. */
struct Cell
{
    int row = -1;
    int column = -1;

    bool operator==(const Cell &other) const { return row == other.row && column == other.column; }
    bool operator!=(const Cell &other) const { return !(*this == other); }
};

/** No cell, such as that of the Switch where no key is it. */
constexpr Cell NoCell;

/** Whether the row or column of this number is a gap. */
constexpr bool isGap(int rowOrColumn)
{
    return rowOrColumn == 1 || rowOrColumn == 10;
}

/** Width of a column in pixels. */
constexpr int columnWidth(int col)
{
    return isGap(col) ? 5 : 95;
}

/** Height of a row in pixels. */
constexpr int rowHeight(int row)
{
    return isGap(row) ? 5 : 30;
}

/** Label of a cell at rest, such as "PAD 1", "TOP 8" or "LEFT 3"; empty in gaps and corners. */
QString label(int row, int col);

/**
 * Whether a device has a key in a cell, by its number of keys in each band.
 *
 * @param device  device record; a band that is missing or not a number has no keys
 */
bool hasKey(const Record &device, int row, int col);

} // namespace Grid

#pragma once

/** How the pads table counts: the rows of a bank follow each other, column 1 holds pads 9 to 16. */
namespace PadBanks {

constexpr int Count = 8;
constexpr int RowsPerBank = 8;

} // namespace PadBanks

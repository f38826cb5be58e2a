#include "devices/grid.h"

namespace {

constexpr int FirstKey = 2; // of a band and of the pads
constexpr int LastLine = Grid::Size - 1;

bool isInBand(int position, const QString &keys)
{
    return position >= FirstKey && position - FirstKey < keys.toInt();
}

QString numbered(const char *band, qint64 number)
{
    return QString(band) + QString::number(number);
}

} // namespace

QString Grid::label(int row, int col)
{
    if (isGap(row) || isGap(col))
        return QString("");
    const bool isCorner = col == 0 || col == LastLine;
    if (row == 0)
        return isCorner ? QString("") : numbered("TOP ", qint64(col) - 1);
    if (row == LastLine)
        return isCorner ? QString("") : numbered("BOTTOM ", qint64(col) - 1);
    if (col == 0)
        return numbered("LEFT ", qint64(row) - 1);
    if (col == LastLine)
        return numbered("RIGHT ", qint64(row) - 1);
    return numbered("PAD ", qint64(row) * 8 + col - 17);
}

bool Grid::hasKey(const Record &device, int row, int col)
{
    if (isGap(row) || isGap(col))
        return false;
    if (row == 0)
        return isInBand(col, device.value("top"));
    if (row == LastLine)
        return isInBand(col, device.value("bottom"));
    if (col == 0)
        return isInBand(row, device.value("left"));
    if (col == LastLine)
        return isInBand(row, device.value("right"));
    return true;
}

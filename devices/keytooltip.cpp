#include "devices/keytooltip.h"

#include "devices/grid.h"
#include "tables/roles.h"

#include <QBuffer>
#include <QColor>
#include <QImage>

namespace {

struct Labelled
{
    Grid::Cell cell;
    const char *label;
};

/** Where a tool tip counts a band on beyond its keys; the grid itself leaves these four cells empty. */
constexpr Labelled BesideBands[] = {
    {{0, 1}, "TOP 0"},
    {{0, 11}, "TOP 10"},
    {{11, 1}, "BOTTOM 0"},
    {{11, 11}, "BOTTOM 10"},
};

/** A small square of the colour as a base64 PNG. */
QString swatch(const QString &color)
{
    QImage image(10, 10, QImage::Format_ARGB32);
    image.fill(QColor(color));
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG", 100);
    return QString::fromLatin1(bytes.toBase64());
}

} // namespace

QString keyToolTip(const QModelIndex &key, const QString &name)
{
    if (key.data(ButtonRole).toString() == QLatin1String("-1")
        || key.data(AvailableRole).toString() == QLatin1String("0"))
        return {};

    const QString coloroff = key.data(OffColorRole).toString();
    const QString coloron = key.data(OnColorRole).toString();
    QString led;
    if (!coloroff.isEmpty())
        led += QStringLiteral("<br>Off Color : <img src='data:image/png;base64, %0'>").arg(swatch(coloroff));
    if (!coloron.isEmpty())
        led += QStringLiteral("<br>On Color : <img src='data:image/png;base64, %0'>").arg(swatch(coloron));
    if (key.data(BlinkRole).toString() == QLatin1String("1"))
        led += QStringLiteral("<br>Blink : Yes");
    return keyLabel(key.row(), key.column()) + "<br>Live Button: " + name + led
           + "<br><br>Right-click to Remove";
}

QString keyLabel(int row, int col)
{
    for (const auto &[cell, label] : BesideBands) {
        if (cell == Grid::Cell{row, col})
            return label;
    }
    return Grid::label(row, col);
}

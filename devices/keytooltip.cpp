#include "devices/keytooltip.h"

#include "tables/roles.h"

#include <QBuffer>
#include <QColor>
#include <QImage>

namespace {

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
    const auto numbered = [](const char *band, qint64 number) {
        return QString(band) + QString::number(number);
    };

    if (row == 0)
        return col == 0 || col == 10 ? QStringLiteral("") : numbered("TOP ", qint64(col) - 1);
    if (row == 11)
        return col == 0 || col == 10 ? QStringLiteral("") : numbered("BOTTOM ", qint64(col) - 1);
    if (row == 1 || row == 10 || col == 1 || col == 10)
        return QStringLiteral("");
    if (col == 0)
        return numbered("LEFT ", qint64(row) - 1);
    if (col == 11)
        return numbered("RIGHT ", qint64(row) - 1);
    return numbered("PAD ", qint64(row) * 8 + col - 17);
}

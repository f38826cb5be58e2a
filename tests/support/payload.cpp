#include "support/payload.h"

namespace {

void appendNumber(QByteArray &bytes, uint number, int size)
{
    for (int shift = 8 * (size - 1); shift >= 0; shift -= 8)
        bytes.append(char(number >> shift));
}

} // namespace

QByteArray Payload::textBytes(const QStringList &texts)
{
    QByteArray bytes;
    for (const QString &text : texts) {
        appendNumber(bytes, text.isNull() ? 0xffffffffU : uint(text.size()) * 2, 4);
        for (const QChar unit : text)
            appendNumber(bytes, unit.unicode(), 2);
    }
    return bytes;
}

QByteArray Payload::colorBytes(uint red, uint green, uint blue)
{
    QByteArray bytes = QByteArray::fromHex("01ffff");
    for (const uint channel : {red, green, blue})
        appendNumber(bytes, channel * 257, 2);
    return bytes + QByteArray::fromHex("0000");
}

std::unique_ptr<QMimeData> Payload::of(const QByteArray &texts, const QByteArray &colors)
{
    auto data = std::make_unique<QMimeData>();
    data->setData("application/vnd.text.list", texts);
    data->setData("application/x-color", colors);
    return data;
}

std::unique_ptr<QMimeData> Payload::fog(const QString &origin)
{
    return of(textBytes({"4", "0", "Fog", "5", "Fog low", origin, "8", "1", {}, {}, {}}),
              colorBytes(0xab, 0xcd, 0xef));
}

#pragma once

#include <QByteArray>
#include <QMimeData>
#include <QStringList>

#include <memory>

/** What the tables hand to each other in a drag, built by hand. */
namespace Payload {

/** Texts as they travel: length in bytes and UTF-16, big-endian; a null text has the length 0xFFFFFFFF. */
QByteArray textBytes(const QStringList &texts);

/** A colour as it travels: RGB, full alpha, each channel times 257, padding. */
QByteArray colorBytes(uint red, uint green, uint blue);

/** A drag of both parts. */
std::unique_ptr<QMimeData> of(const QByteArray &texts, const QByteArray &colors);

/** What the Live Buttons send: button 8 in row 4, "Fog" of page 5, in the colour #abcdef. */
std::unique_ptr<QMimeData> fog(const QString &origin = "1");

} // namespace Payload

#pragma once

#include <QString>

/** Words of VirtualDJ's script language, as they stand in an attribute of an exported file. */
namespace Script {

/** What does nothing. */
inline constexpr char Nothing[] = "nothing";

/** A text in single quotes, which are entities; the text itself goes out as it is. */
QString quoted(const QString &text);

/** Asks a variable. */
QString var(const QString &name);

/** Asks a condition; a script for the other case may be missing. */
QString ifElse(const QString &condition, const QString &then);
QString ifElse(const QString &condition, const QString &then, const QString &otherwise);

/** Shows a colour, which is a colour text or word; or a part of its brightness, such as "40%". */
QString color(const QString &name);
QString color(const QString &brightness, const QString &name);

/** Presses a Live Button of the light show; on a LED, asks whether it is on. */
QString os2lButton(const QString &name);

/** Asks whether the lights have the keys of a controller; and what gives the keys to them and back. */
QString lightsHaveKeys();
QString toggleLights();

} // namespace Script

#pragma once

#include <QString>

/**
 * Escapes a script for an XML attribute, as far as the exported files do.
 *
 * @return the text with "'" as "&apos;", '"' as "&quot;" and an ampersand between blanks as "&amp;". Angle
 *         brackets and other ampersands stay as they are.
 */
QString escapeScript(QString text);

/**
 * Takes the OS2L wrapping of an exported mapper off a script.
 *
 * @param script  action of a mapper, decoded
 * @return        the script behind the wrapping; empty for the Switch key and for a wrapping around
 *                nothing; a script without wrapping unchanged. Behind a wrapped condition of more than one
 *                answer one branch more is cut off, so a script of a single branch is lost there.
 */
QString unwrapScript(const QString &script);

#pragma once

#include <QString>

/**
 * Writes a mapper as users keep them, its scripts wrapped as an export leaves them.
 *
 * @param path    file to write
 * @param device  identifier of the controller
 * @param rows    keys in it
 */
void writeMapper(const QString &path, const QString &device, int rows);

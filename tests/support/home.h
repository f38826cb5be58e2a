#pragma once

#include <QString>

/**
 * Lets this process look for the user's documents in "<folder>/Documents", and for what Qt remembers of its
 * dialogs in a place of its own. To be called before the window is built; the user's own are left alone.
 */
void takeHome(const QString &folder);

#pragma once

#include "rules.h"

class Workspace;

/** Compares what the program shows and writes with the rules. */
namespace Eyes {

/** Where window and tables first differ from the rules; empty if nowhere. */
QString differenceInWindow(Workspace &space, const Rules::World &world);

/** Where the files in the user's folders first differ from the rules; empty if nowhere. */
QString differenceInFiles(const Rules::World &world);

} // namespace Eyes

#pragma once

#include "rules.h"

class Workspace;

/** Compares what the program shows and writes with the rules. */
namespace Compare {

/** Where window and tables first differ from the rules; empty if nowhere. */
QString window(Workspace &space, const Rules::World &world);

/** Where the files in the user's folders first differ from the rules; empty if nowhere. */
QString files(const Rules::World &world);

} // namespace Compare

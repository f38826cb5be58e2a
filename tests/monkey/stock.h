#pragma once

#include "rules.h"

class Workspace;

/** Writes the shows, projects and mappers that the monkey finds on the disk, and tells the rules of them. */
namespace Stock {

void lay(Workspace &space, Rules::World &world);

} // namespace Stock

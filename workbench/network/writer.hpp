// A network as a file again.

#pragma once

#include <string>

#include "workbench/network/network.hpp"

namespace tpn {

// The file's text; readNetwork gives the same network again. Asserts what a file cannot say: that a
// title is a line that is not empty, that transitions have moves, in the order of their processes,
// and that each process has the location 0, the ends of its moves and no other, with propositions
// where it has labels.
std::string networkFile(const Network& net);

}  // namespace tpn

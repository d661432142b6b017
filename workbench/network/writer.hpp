// A network as a file again.

#pragma once

#include <string>

#include "workbench/network/network.hpp"

namespace tpn {

// The file's text; readNetwork gives the same network again. Asserts what a file cannot say: that a
// title is a line that is not empty, that transitions have moves, in the order of their processes,
// that each process has the location 0, the ends of its moves and no other, with propositions where
// it has labels, and that names are no line ends and not empty. Names stand behind the last "end";
// what they name has to be there, and two of a kind differ, or the file will be refused.
// Throws std::runtime_error with the reason where a move does not count or does not reset.
std::string networkFile(const Network& net);

}  // namespace tpn

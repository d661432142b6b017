// Which processes of a network look the same: as automaton.hpp says.

#pragma once

#include <cstddef>
#include <vector>

#include "workbench/network/network.hpp"

namespace tpn {

// The kind of each process, from 0 in the order of their first ones.
std::vector<std::size_t> kindsOfProcesses(const Network& net);

}  // namespace tpn

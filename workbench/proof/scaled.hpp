// What the checker makes of a network before it asks anything: all constants in units, and how far
// each clock has to be told apart. Its own, so that a mistake of the prover's is none of its own.

#pragma once

#include <cstdint>
#include <map>
#include <vector>

#include "workbench/network/network.hpp"

namespace tpn {

// The network with all its constants divided by the unit of time.
Network inUnits(const Network& net);

// [process][location]: the largest earliest or finite latest time of any transition that takes the
// process from there, by a move that counts; 0 where there is none.
std::vector<std::map<int, std::int64_t>> clockCaps(const Network& net);

}  // namespace tpn

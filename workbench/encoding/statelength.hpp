// What zervan's clause files need for a network: the variables of a state, and the bounds that fit.

#pragma once

#include <cstdint>
#include <optional>

#include "boolform/node.hpp"
#include "translation/pathlimit.hpp"
#include "workbench/network/network.hpp"

namespace tpn {

struct StateLength {
  int locationBits = 0;        // of all processes together
  int integerBits = 0;         // of each clock and of the delay
  int fractionBits = 0;        // of each clock, of the delay, and of the split value
  std::int64_t variables = 0;  // of one state
};

StateLength stateLength(const Network& net);

constexpr std::int64_t mostVariables = mostPathVariables;  // zervan refuses longer paths
constexpr std::int64_t mostUnfolded = varNrLimit / 2;  // beyond, the clause file's numbers collide

// The largest k whose k + 1 states have at most `limit` variables; none where not even k = 1 fits.
std::optional<std::int64_t> largestBound(const StateLength& length, std::int64_t limit);

}  // namespace tpn

// Firing times from a firing order.

#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "workbench/network/network.hpp"
#include "workbench/runs/run.hpp"

namespace tpn {

// The earliest times, whole numbers, at which these transitions can fire one after the other; none
// where there are no such times at all. (All bounds are closed whole numbers: what can be done over
// exact time can be done at whole times.)
std::optional<Run> schedule(const Network& net, const std::vector<std::size_t>& transitions,
                            std::size_t goal);

}  // namespace tpn

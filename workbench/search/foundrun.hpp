// What an engine found, as a run that has been seen to do it.

#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "workbench/network/goal.hpp"
#include "workbench/network/network.hpp"
#include "workbench/runs/run.hpp"

namespace tpn {

// Of these transitions, at the earliest times; or with `delays` (in time units, one before each)
// where there are some. Throws std::runtime_error with one line where that is no run to the goal.
Run foundRun(const Network& net, const Goal& goal, const std::vector<std::size_t>& transitions,
             const std::vector<std::int64_t>& delays = {});

}  // namespace tpn

// Which processes a picture of a run is about.

#pragma once

#include <cstddef>
#include <set>
#include <vector>

#include "workbench/network/network.hpp"
#include "workbench/network/property.hpp"
#include "workbench/runs/run.hpp"

namespace tpn {

// Those that the property asks for: for the location that they are in, or a proposition of it.
std::set<std::size_t> askedProcesses(const Network& net, const Property& property,
                                     const Locations& goal);

// Those that take part in a step and those that are asked for, ascending; all where that is nobody.
std::vector<std::size_t> movingProcesses(const Network& net, const Run& run,
                                         std::set<std::size_t> asked);

}  // namespace tpn

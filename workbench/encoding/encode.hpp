// A network as the core's model, and a property as the core's formula, built in memory.
//
// Two things are better in the workbench's own layout than in what the core makes of a file.
// Locations are told apart by their rank in the process, so no numbering aliases; the initial one,
// 0, has rank 0. And the clock range covers the largest finite constant of either kind, earliest
// times included. The core's layout is needed to read the answers to its files.

#pragma once

#include <cstdint>
#include <string>

#include "model/tpnmodel.hpp"
#include "workbench/network/network.hpp"
#include "workbench/network/property.hpp"

namespace tpn {

enum class Layout { workbench, core };

// Fills a fresh model, widths and property included. Throws std::runtime_error where a constant is
// too large for the clock range.
void encode(const Network& net, const Property& property, Layout layout, NetTimedModel& model);

// What stands for a location: its rank, or its number.
std::int64_t codeOf(const Process& process, int location, Layout layout);

// The property in the core's notation.
std::string propertyText(const Property& property);

}  // namespace tpn

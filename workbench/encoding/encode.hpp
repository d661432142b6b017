// A network as the core's model, and a property as the core's formula, built in memory.
//
// Two things are better in the workbench's own coding than in what the core makes of a file.
// Locations are told apart by their rank in the process, so no numbering aliases; the initial one,
// 0, has rank 0. And the clock range covers the largest finite constant of either kind, earliest
// times included. The core's coding is needed to read the answers to its files.

#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "model/tpnmodel.hpp"
#include "workbench/base/checkpoint.hpp"
#include "workbench/network/network.hpp"
#include "workbench/network/property.hpp"

namespace tpn {

enum class LocationCoding { workbench, core };

// Fills a fresh model, widths and property included. Throws std::runtime_error where a constant is
// too large for the clock range, or a move does not count or does not reset.
void encode(const Network& net, const Property& property, LocationCoding coding,
            NetTimedModel& model, const Checkpoint& checkpoint = {});

// What stands for a location: its rank, or its number. Found in logarithmic time; counting ranks
// in the set itself took 20 s for a process of 50000 locations.
class LocationCodes {
 public:
  LocationCodes(const Network& net, LocationCoding coding);

  std::int64_t of(std::size_t process, int location) const;

 private:
  LocationCoding coding_;
  std::vector<std::vector<int>> locations_;  // [process]: ascending; none in the core's coding
};

// The property as the core's formula.
EctlForm formulaOf(const Property& property);

}  // namespace tpn

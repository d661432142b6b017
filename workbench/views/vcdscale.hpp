// Exact times as the ticks of a value change dump.
//
// A dump has whole ticks, and a viewer shows one value a tick. So a unit of time is divided twice:
// into parts, a multiple of the least common multiple of the denominators of all times, and every
// part into slots, a power of ten. What happens at one instant has the instant's part to itself:
//
//   slot 0   time has passed: clocks
//   slot 1   the first step at this instant: locations, propositions, resets
//   slot 2   the second one, after no delay
//   ...
//
// Hence  exact time = floor(tick / slots) / parts,  and steps at one instant stay apart. Where a
// power of ten, not too large, will do for the parts, it is taken, and a unit is shown as a second.
// Otherwise a tick is called a nanosecond; the comment in the file says how many make a unit.

#pragma once

#include <cstdint>
#include <vector>

#include "workbench/runs/rational.hpp"

namespace tpn {

struct VcdScale {
  std::int64_t parts = 1;  // of a time unit
  std::int64_t slots = 1;  // of a part
  int digits = 0;          // parts * slots = 10^digits; -1: it is no such power, or too large a one

  // Both throw std::overflow_error where 64 bits do not hold them.
  std::int64_t ticks() const;  // of a time unit
  std::int64_t tick(const Rational& time, std::int64_t slot) const;
};

// For states that are reached at these times.
VcdScale vcdScaleFor(const std::vector<Rational>& times);

}  // namespace tpn

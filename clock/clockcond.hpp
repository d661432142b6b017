// One atomic clock constraint: a clock compared with a constant.

#pragma once

#include "boolform/boolform.hpp"
#include "clock/clockval.hpp"

enum ClockRel : int {
  relEqual = 0,
  relLess = 1,
  relLessOrEqual = 2,
  relGreater = 3,
  relGreaterOrEqual = 4,
};

struct SmplClockCond {
  int clock;    // 1..n of the valuation it is applied to; not checked
  int trivial;  // non-zero: the atom is true, whatever the rest says
  int rel;      // a ClockRel; any other value makes the atom false
  int bound;    // in time units; asserted to fit into the integer part

  friend auto operator<=>(const SmplClockCond&, const SmplClockCond&) = default;  // lexicographic

  BoolForm toBool(const ClockVal& v) const;
};

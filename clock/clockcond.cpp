#include "clock/clockcond.hpp"

namespace {

// The clock is exactly at the bound, or (with `fraction` telling so) inside the unit above it.
BoolForm atBound(const BoolFormVect& integer, const BoolFormVect& bound, const BoolForm& fraction) {
  const BoolForm equal = eq(integer, bound);
  return con(equal, fraction);
}

}  // namespace

// Below and from the bound on, the integer part alone decides; the other relations look at whether
// the fractional part is zero.
BoolForm SmplClockCond::toBool(const ClockVal& v) const {
  if (trivial != 0) return BoolForm(true);
  const BoolFormVect& integer = v.intPart(clock);
  const BoolFormVect& fraction = v.frPart(clock);
  const BoolFormVect k(v.intPLen, ConstBits(static_cast<unsigned>(bound)));
  switch (rel) {
    case relEqual:
      return atBound(integer, k, fraction.zero());
    case relLess:
      return le(integer, k);
    case relLessOrEqual: {
      const BoolForm below = le(integer, k);
      const BoolForm equal = atBound(integer, k, fraction.zero());
      return dis(equal, below);
    }
    case relGreater: {
      const BoolForm above = ge(integer, k);
      const BoolForm justAbove = atBound(integer, k, fraction.gez());
      return dis(justAbove, above);
    }
    case relGreaterOrEqual:
      return geq(integer, k);
    default:
      return BoolForm(false);
  }
}

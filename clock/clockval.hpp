// The encoded values of all clocks of one state.
//
// A clock's value is fixed-point: integer part + fractional part / 2^frPLen, both parts unsigned
// vectors over consecutive variables. Clocks are numbered 1..n. Slot 0 is the delay slot: the
// amount of time the next time step lets pass. frSplit is the split value that the adjusting step
// compares fractional parts with. docs/encoding.md tells why this is enough.
//
// Every conjunction over the clocks runs over 1..n in increasing order, the accumulated formula on
// the left; per clock the fractional term is built before the integer term. The delay slot and
// frSplit occur in the two time-passage relations only.

#pragma once

#include <set>
#include <vector>

#include "boolform/boolform.hpp"
#include "boolformvect/boolformvect.hpp"

using NumSet = std::set<unsigned>;  // a set of clock numbers

class ClockVal {
 public:
  int n = 0;                           // number of clocks, the delay slot not counted
  int intPLen = 0;                     // bits of an integer part
  std::vector<BoolFormVect> intParts;  // n + 1; [0] is the delay's
  int frPLen = 0;                      // bits of a fractional part
  std::vector<BoolFormVect> frParts;   // n + 1; [0] is the delay's
  BoolFormVect frSplit;                // frPLen bits

  // Lays the parts over the variables from `first` on: integer parts 0..n, frSplit, fractional
  // parts 0..n; (n + 1) * intPLen + (n + 2) * frPLen variables in all.
  ClockVal(int nrOfClocks, int intBits, int frBits, int first);

  const BoolFormVect& intPart(int i) const { return intParts[static_cast<std::size_t>(i)]; }
  const BoolFormVect& frPart(int i) const { return frParts[static_cast<std::size_t>(i)]; }

  // Clock i, 1 <= i <= n (asserted), is greater than c.
  BoolForm inOpen(int i, int c) const;

  // All fractional parts are even or all are odd; k is ignored.
  BoolForm evenDiff(int k) const;

  // Every clock is at most k + 1.
  BoolForm allProper(int k) const;

  // BoolFormVect::show of each clock's parts, then an end of line on standard output.
  void show() const;
};

// Clock i, 1 <= i <= n: it is zero in v; it has the same value in v1 and v2.
BoolForm zeroClock(const ClockVal& v, int i);
BoolForm sameClock(const ClockVal& v1, const ClockVal& v2, int i);

// The clocks in x are zero in v2, the others keep their values from v1; asserts equal n. Numbers
// outside 1..n in x are ignored.
BoolForm reset(const ClockVal& v1, const ClockVal& v2, const NumSet& x);

BoolForm allZero(const ClockVal& v);                         // clocks 1..n are 0
BoolForm eq(const ClockVal& v1, const ClockVal& v2);         // equal values; asserts equal n
BoolForm frPartsEq(const ClockVal& v1, const ClockVal& v2);  // equal fractions; asserts equal n

// The time jump: every clock of v is the same clock of u plus u's delay, whose integer part is at
// most c (one fixed-point addition modulo 2^(intPLen + frPLen)). Asserts equal n.
BoolForm veryCleverJump(const ClockVal& u, const ClockVal& v, int c);

// The adjusting step. Integer parts above c become c + 1. Fractional parts stay where all have the
// same parity; otherwise u's split is odd, those strictly between 0 and the split grow by one unit,
// those above it must be odd and shrink by one, and zero stays zero. A fractional part equal to the
// split, or even and above it, has no successor with that split. Asserts equal n, intPLen, frPLen.
BoolForm cleverAdjust(const ClockVal& u, const ClockVal& v, int c);

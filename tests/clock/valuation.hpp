// Clock valuations as plain integers, and the variables that hold them.

#pragma once

#include <set>
#include <vector>

#include "clock/clockval.hpp"
#include "tests/boolform/evaluate.hpp"
#include "tests/boolformvect/values.hpp"

// One clock, or the delay: integer part and the numerator of the fractional part.
struct Value {
  unsigned integer;
  unsigned fraction;

  // Lexicographic: as times. (clang-tidy 14 takes the 0 inside the comparison for a pointer.)
  friend auto operator<=>(const Value&, const Value&) = default;  // NOLINT(modernize-use-nullptr)
};

using Values = std::vector<Value>;  // clocks 1 .. n in elements 0 .. n - 1

// All values of `clocks` clocks, the k-th for every k below countOf.
struct Shape {
  int clocks;
  int intBits;
  int frBits;

  int clockBits() const { return intBits + frBits; }
  unsigned countOf() const { return 1U << clocks * clockBits(); }

  Value clockValue(unsigned bits) const {
    const unsigned oneClock = bits & ((1U << clockBits()) - 1U);
    return {oneClock >> frBits, oneClock & ((1U << frBits) - 1U)};
  }
  Values values(unsigned k) const {
    Values result;
    for (int i = 0; i < clocks; ++i) result.push_back(clockValue(k >> i * clockBits()));
    return result;
  }
  // Variables of one valuation, the delay slot and the split among them.
  int variables() const { return (clocks + 1) * intBits + (clocks + 2) * frBits; }
  ClockVal valuation(int first) const { return {clocks, intBits, frBits, first}; }
};

inline void setClock(Assignment& variables, const ClockVal& v, int i, const Value& value) {
  setNumber(variables, v.intPart(i), value.integer);
  setNumber(variables, v.frPart(i), value.fraction);
}

inline void setClocks(Assignment& variables, const ClockVal& v, const Values& values) {
  for (int i = 1; i <= v.n; ++i)
    setClock(variables, v, i, values.at(static_cast<std::size_t>(i) - 1));
}

inline std::set<int> variablesOf(const BoolFormVect& v) {
  std::set<int> result;
  for (const BoolForm& bit : v.bits) result.merge(variablesOf(bit));
  return result;
}

// The variables of clocks 1 .. n.
inline std::set<int> clockVariables(const ClockVal& v) {
  std::set<int> result;
  for (int i = 1; i <= v.n; ++i) {
    result.merge(variablesOf(v.intPart(i)));
    result.merge(variablesOf(v.frPart(i)));
  }
  return result;
}

// Clauses spelt slot by slot, for tests that compare or print them.

#pragma once

#include <ostream>
#include <vector>

#include "boolform/clauseset.hpp"

// The slots as they stand, without the normal form.
inline Clause slots(int first, int second, int third) {
  Clause c;
  c.first = first;
  c.second = second;
  c.third = third;
  return c;
}

inline std::vector<Clause> listOf(const ClauseSet& cnf) {
  std::vector<Clause> list;
  cnf.forEach([&](const Clause& c) { list.push_back(c); });
  return list;
}

// Prints in the failures of gtest.
inline void PrintTo(const Clause& c, std::ostream* out) {
  *out << "(" << c.first << ", " << c.second << ", " << c.third << ")";
}

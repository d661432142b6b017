// An empty formula store, and the keys that building a formula puts into it: for tests that look at
// node numbers or at the order in which nodes are created. ctest gives every test a process of its
// own; clearing the store as well keeps a test program that is started by hand honest.

#pragma once

#include <gtest/gtest.h>

#include <limits>
#include <ostream>
#include <vector>

#include "boolform/boolform.hpp"

using Keys = std::vector<Triple>;

// Formulas built before must not be used any more, except constants and literals.
inline void clearStore() {
  BoolForm::emptyStore();
  BoolForm::lastNr = std::numeric_limits<int>::max();
}

class EmptyStore : public testing::Test {
 protected:
  void SetUp() override { clearStore(); }
  void TearDown() override { clearStore(); }
};

// The keys that `build` creates in an empty store, in order of creation.
template <class Build>
Keys keysOf(Build build) {
  clearStore();
  build();
  return BoolForm::tv;
}

// The number of the k-th node created.
constexpr int node(int k) { return varNrLimit + k; }

inline BoolForm lit(int nr) { return BoolForm::ofNr(nr); }

constexpr Triple conKey(int left, int right) { return {bfCon, left, right}; }
constexpr Triple equKey(int left, int right) { return {bfEqu, left, right}; }

// The key of a node, given unnegated.
inline Triple keyOf(const BoolForm& f) {
  return BoolForm::tv.at(static_cast<std::size_t>(f.nr - NodeIndex::firstNr));
}

// Prints in the failures of gtest.
inline void PrintTo(const Triple& key, std::ostream* out) {
  *out << (key.op == bfCon ? "con(" : "equ(") << key.left << ", " << key.right << ")";
}
inline void PrintTo(const BoolForm& f, std::ostream* out) { *out << "formula " << f.nr; }

// Vectors as integers: reading the number that a vector of formulas stands for, giving the
// variables of a vector a number, and running a check over all operands of short widths and all
// their values.

#pragma once

#include <gtest/gtest.h>

#include <vector>

#include "boolformvect/boolformvect.hpp"
#include "tests/boolform/evaluate.hpp"
#include "tests/boolform/store.hpp"

constexpr int longestWidth = 4;

inline unsigned numberOf(const Evaluation& at, const BoolFormVect& v) {
  unsigned number = 0;
  for (int i = 0; i < v.len; ++i) number |= (at(v[i]) ? 1U : 0U) << i;
  return number;
}

// Gives a vector of unnegated variables the value `number`.
inline void setNumber(Assignment& variables, const BoolFormVect& v, unsigned number) {
  for (int i = 0; i < v.len; ++i)
    variables.at(static_cast<std::size_t>(v[i].nr)) = (number >> i & 1U) != 0;
}

inline BoolFormVect constant(int width, unsigned number) {
  return BoolFormVect(width, ConstBits(number));
}

inline BoolFormVect negated(BoolFormVect v) {
  v.negAll();
  return v;
}

// Vectors of one width over variables 1 .. 2 * width: variables, their negations, every constant,
// and a mixture of all.
inline std::vector<BoolFormVect> operandsOf(int width) {
  const BoolFormVect low(width, 1);
  const BoolFormVect high(width, width + 1);
  BoolFormVect mixed = high;
  mixed.bits.front() = BoolForm(true);
  mixed.bits.back() = neg(low[0]);
  std::vector<BoolFormVect> operands{low, high, negated(low), mixed};
  for (unsigned k = 0; k < 1U << width; ++k) operands.push_back(constant(width, k));
  return operands;
}

// For every pair of operands of every short width: builds in an empty store, then calls
// check(evaluation, built, x, y) under every assignment.
template <class Build, class Check>
void forAllPairs(Build build, Check check) {
  for (int width = 1; width <= longestWidth; ++width)
    for (const BoolFormVect& x : operandsOf(width))
      for (const BoolFormVect& y : operandsOf(width)) {
        clearStore();
        const auto built = build(x, y);
        for (unsigned bits = 0; bits < 1U << 2 * width; ++bits)
          check(Evaluation(assignmentOf(bits, 2 * width)), built, x, y);
      }
}

// The relation `build` makes of two vectors is `meaning` of their numbers.
template <class Build, class Meaning>
void expectRelation(Build build, Meaning meaning) {
  const auto check = [&](const Evaluation& at, const BoolForm& f, const BoolFormVect& x,
                         const BoolFormVect& y) {
    const unsigned a = numberOf(at, x);
    const unsigned b = numberOf(at, y);
    ASSERT_EQ(at(f), meaning(a, b, x.len)) << a << " and " << b << ", width " << x.len;
  };
  forAllPairs(build, check);
}

// The vector `build` makes of two vectors has the number `meaning` modulo 2^width.
template <class Build, class Meaning>
void expectNumber(Build build, Meaning meaning) {
  const auto check = [&](const Evaluation& at, const BoolFormVect& r, const BoolFormVect& x,
                         const BoolFormVect& y) {
    const unsigned a = numberOf(at, x);
    const unsigned b = numberOf(at, y);
    ASSERT_EQ(r.len, x.len);
    ASSERT_EQ(numberOf(at, r), meaning(a, b) & ((1U << x.len) - 1U))
        << a << " and " << b << ", width " << x.len;
  };
  forAllPairs(build, check);
}

// The property `build` makes of one vector is `meaning` of its number.
template <class Build, class Meaning>
void expectProperty(Build build, Meaning meaning) {
  expectRelation([&](const BoolFormVect& x, const BoolFormVect&) { return build(x); },
                 [&](unsigned a, unsigned, int) { return meaning(a); });
}

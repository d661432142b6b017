// The adjusting step against integers.

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>

#include "clock/clockval.hpp"
#include "tests/boolform/assertion.hpp"
#include "tests/clock/valuation.hpp"

namespace {

using Adjust = EmptyStore;
using AdjustDeathTest = EmptyStore;

bool uniform(const Values& values) {
  return std::ranges::all_of(
      values, [&](const Value& x) { return x.fraction % 2 == values.front().fraction % 2; });
}

bool integerFollows(const Value& x, const Value& y, unsigned c) {
  return y.integer == (x.integer > c ? c + 1 : x.integer);
}

bool evened(unsigned from, unsigned to, unsigned split) {
  if (from == 0) return to == 0;
  if (from < split) return to == from + 1;
  return from > split && from % 2 == 1 && to == from - 1;
}

bool isAdjusted(const Values& before, const Values& after, unsigned split, unsigned c) {
  const bool copy = uniform(before);
  if (!copy && split % 2 == 0) return false;
  return std::ranges::equal(before, after, [&](const Value& x, const Value& y) {
    const bool fractions = copy ? x.fraction == y.fraction : evened(x.fraction, y.fraction, split);
    return fractions && integerFollows(x, y, c);
  });
}

// The relation with the variables it is read under.
class Relation {
 public:
  Relation(const Shape& shape, unsigned c)
      : c_(c),
        u_(shape.valuation(1)),
        v_(shape.valuation(shape.variables() + 1)),
        variables_(static_cast<std::size_t>(2 * shape.variables()) + 1, false) {
    clearStore();
    f_ = cleverAdjust(u_, v_, static_cast<int>(c));
  }

  bool holds(const Values& before, const Values& after, unsigned split) {
    setClocks(variables_, u_, before);
    setClocks(variables_, v_, after);
    setNumber(variables_, u_.frSplit, split);
    return Evaluation(variables_)(f_);
  }

  void expectAgreement(const Values& before, const Values& after, unsigned split) {
    ASSERT_EQ(holds(before, after, split), isAdjusted(before, after, split, c_))
        << "split " << split;
  }

 private:
  unsigned c_;
  ClockVal u_;
  ClockVal v_;
  Assignment variables_;
  BoolForm f_{false};
};

void compareAll(const Shape& shape, unsigned c) {
  Relation relation(shape, c);
  for (unsigned split = 0; split < 1U << shape.frBits; ++split)
    for (unsigned k = 0; k < shape.countOf(); ++k)
      for (unsigned m = 0; m < shape.countOf(); ++m)
        ASSERT_NO_FATAL_FAILURE(relation.expectAgreement(shape.values(k), shape.values(m), split));
}

TEST_F(Adjust, AgreesWithIntegersOnOneClock) {
  for (const Shape& shape : {Shape{1, 1, 1}, Shape{1, 2, 1}, Shape{1, 3, 2}, Shape{1, 2, 3}})
    for (unsigned c = 0; c + 1 < 1U << shape.intBits; ++c) compareAll(shape, c);
}

TEST_F(Adjust, AgreesWithIntegersOnTwoClocks) {
  for (const Shape& shape : {Shape{2, 1, 1}, Shape{2, 2, 1}, Shape{2, 1, 2}, Shape{2, 1, 3}})
    for (unsigned c = 0; c + 1 < 1U << shape.intBits; ++c) compareAll(shape, c);
}

// Moves about one clock in four to a neighbour of its adjusted value.
Values nearlyAdjusted(const Values& before, unsigned split, unsigned c, std::mt19937& random) {
  Values after;
  for (const Value& x : before) {
    const bool copy = uniform(before) || x.fraction == 0;
    const unsigned moved = x.fraction < split ? x.fraction + 1 : x.fraction - 1;
    Value y{std::min(x.integer, c + 1), copy ? x.fraction : moved};
    if (random() % 8 == 0) y.integer ^= 1U;
    if (random() % 8 == 0) y.fraction ^= 1U;
    after.push_back(y);
  }
  return after;
}

// Too many valuations to try all targets: sampled ones near the adjusted valuation.
TEST_F(Adjust, AgreesWithIntegersOnThreeWiderClocks) {
  const Shape shape{3, 2, 3};
  for (unsigned seed = 1; seed <= 6; ++seed) {
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    std::mt19937 random(seed);
    const unsigned c = seed % 3;
    Relation relation(shape, c);
    for (unsigned k = 0; k < shape.countOf(); k += 7) {
      const unsigned split = random() % 8;
      const Values before = shape.values(k);
      const Values after = nearlyAdjusted(before, split, c, random);
      ASSERT_NO_FATAL_FAILURE(relation.expectAgreement(before, after, split));
    }
  }
}

TEST_F(Adjust, IntegerPartUpToTheConstantIsKept) {
  Relation relation({1, 3, 1}, 4);
  for (unsigned x = 0; x <= 4; ++x)
    for (unsigned y = 0; y < 8; ++y) EXPECT_EQ(relation.holds({{x, 0}}, {{y, 0}}, 0), y == x);
}

TEST_F(Adjust, IntegerPartAboveTheConstantBecomesOneMoreThanIt) {
  Relation relation({1, 3, 1}, 4);
  for (unsigned x = 5; x < 8; ++x)
    for (unsigned y = 0; y < 8; ++y) EXPECT_EQ(relation.holds({{x, 0}}, {{y, 0}}, 0), y == 5);
}

TEST_F(Adjust, UniformFractionsAreCopiedWhateverTheSplit) {
  Relation relation({2, 1, 3}, 0);
  for (unsigned split = 0; split < 8; ++split) {
    EXPECT_TRUE(relation.holds({{0, 3}, {0, 7}}, {{0, 3}, {0, 7}}, split));
    EXPECT_TRUE(relation.holds({{0, 2}, {0, 0}}, {{0, 2}, {0, 0}}, split));
  }
}

TEST_F(Adjust, MixedFractionsMoveToTheEvenNumbersAroundTheSplit) {
  Relation relation({3, 1, 3}, 0);
  EXPECT_TRUE(relation.holds({{0, 0}, {0, 1}, {0, 7}}, {{0, 0}, {0, 2}, {0, 6}}, 3));
}

// Whether a mixed valuation has any target with this split.
bool hasSuccessor(const Shape& shape, const Values& before, unsigned split) {
  Relation relation(shape, 0);
  for (unsigned m = 0; m < shape.countOf(); ++m)
    if (relation.holds(before, shape.values(m), split)) return true;
  return false;
}

TEST_F(Adjust, MixedFractionsNeedAnOddSplit) {
  const Shape shape{2, 1, 3};
  for (unsigned split = 0; split < 8; ++split)
    EXPECT_EQ(hasSuccessor(shape, {{0, 0}, {0, 1}}, split), split == 3 || split == 5 || split == 7);
}

TEST_F(Adjust, MixedFractionEqualToTheSplitHasNoSuccessor) {
  const Shape shape{2, 1, 3};
  for (const unsigned split : {1U, 3U, 5U, 7U})
    EXPECT_FALSE(hasSuccessor(shape, {{0, 0}, {0, split}}, split));
}

TEST_F(Adjust, EvenMixedFractionAboveTheSplitHasNoSuccessor) {
  const Shape shape{2, 1, 3};
  EXPECT_FALSE(hasSuccessor(shape, {{0, 4}, {0, 5}}, 3));
  EXPECT_TRUE(hasSuccessor(shape, {{0, 4}, {0, 7}}, 5));
}

TEST_F(Adjust, WithOneFractionalBitMixedFractionsHaveNoSuccessor) {
  for (const unsigned split : {0U, 1U}) {
    EXPECT_FALSE(hasSuccessor({2, 1, 1}, {{0, 0}, {0, 1}}, split));
    EXPECT_FALSE(hasSuccessor({2, 1, 1}, {{0, 1}, {0, 0}}, split));
  }
}

TEST_F(Adjust, WithoutClocksItIsTrue) {
  EXPECT_EQ(cleverAdjust(ClockVal(0, 2, 2, 1), ClockVal(0, 2, 2, 101), 1), BoolForm(true));
  EXPECT_TRUE(BoolForm::tv.empty());
}

TEST_F(Adjust, LeavesBothDelaysAndTheTargetsSplitFree) {
  const ClockVal u(2, 2, 2, 1);
  const ClockVal v(2, 2, 2, 101);
  std::set<int> expected = clockVariables(u);
  expected.merge(clockVariables(v));
  expected.merge(variablesOf(u.frSplit));
  EXPECT_EQ(variablesOf(cleverAdjust(u, v, 1)), expected);
}

TEST_F(AdjustDeathTest, DifferentNumbersOfClocksAreRefusedFirst) {
  EXPECT_DEATH(cleverAdjust(ClockVal(2, 2, 2, 1), ClockVal(1, 3, 3, 101), 1),
               failedAssertion("u.n == v.n"));
}

TEST_F(AdjustDeathTest, DifferentIntegerWidthsAreRefusedNext) {
  EXPECT_DEATH(cleverAdjust(ClockVal(2, 2, 2, 1), ClockVal(2, 3, 3, 101), 1),
               failedAssertion("u.intPLen == v.intPLen"));
}

TEST_F(AdjustDeathTest, DifferentFractionalWidthsAreRefused) {
  EXPECT_DEATH(cleverAdjust(ClockVal(2, 2, 2, 1), ClockVal(2, 2, 3, 101), 1),
               failedAssertion("u.frPLen == v.frPLen"));
}

}  // namespace

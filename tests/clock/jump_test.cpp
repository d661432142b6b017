// The time jump against plain addition.

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>

#include "clock/clockval.hpp"
#include "tests/boolform/assertion.hpp"
#include "tests/clock/valuation.hpp"

namespace {

using Jump = EmptyStore;
using JumpDeathTest = EmptyStore;

// The clock after the delay, in fixed point modulo its width.
Value later(const Value& x, const Value& delay, const Shape& shape) {
  const unsigned sum = ((x.integer + delay.integer) << shape.frBits) + x.fraction + delay.fraction;
  return shape.clockValue(sum);
}

bool isJump(const Values& before, const Values& after, const Value& delay, unsigned c,
            const Shape& shape) {
  if (delay.integer > c) return false;
  return std::ranges::equal(
      before, after, [&](const Value& x, const Value& y) { return later(x, delay, shape) == y; });
}

// The relation with the variables it is read under.
class Relation {
 public:
  Relation(const Shape& shape, unsigned c)
      : shape_(shape),
        c_(c),
        u_(shape.valuation(1)),
        v_(shape.valuation(shape.variables() + 1)),
        variables_(static_cast<std::size_t>(2 * shape.variables()) + 1, false) {
    clearStore();
    f_ = veryCleverJump(u_, v_, static_cast<int>(c));
  }

  void expectAgreement(const Values& before, const Values& after, const Value& delay) {
    setClocks(variables_, u_, before);
    setClocks(variables_, v_, after);
    setClock(variables_, u_, 0, delay);
    ASSERT_EQ(Evaluation(variables_)(f_), isJump(before, after, delay, c_, shape_))
        << "delay " << delay.integer << " and " << delay.fraction;
  }

 private:
  Shape shape_;
  unsigned c_;
  ClockVal u_;
  ClockVal v_;
  Assignment variables_;
  BoolForm f_{false};
};

TEST_F(Jump, AddsTheDelayToEveryClock) {
  for (const Shape& shape : {Shape{1, 1, 1}, Shape{1, 2, 1}, Shape{1, 1, 2}, Shape{1, 2, 2},
                             Shape{2, 1, 1}, Shape{2, 2, 1}, Shape{2, 1, 2}})
    for (unsigned c = 0; c + 1 < 1U << shape.intBits; ++c) {
      Relation relation(shape, c);
      for (unsigned d = 0; d < 1U << shape.clockBits(); ++d)
        for (unsigned k = 0; k < shape.countOf(); ++k)
          for (unsigned m = 0; m < shape.countOf(); ++m)
            ASSERT_NO_FATAL_FAILURE(
                relation.expectAgreement(shape.values(k), shape.values(m), shape.clockValue(d)));
    }
}

// Too many valuations to try all: the successor itself, and a target one bit away from it.
TEST_F(Jump, AddsTheDelayToThreeWiderClocks) {
  const Shape shape{3, 3, 3};
  for (unsigned seed = 1; seed <= 5; ++seed) {
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    std::mt19937 generator(seed);
    const auto random = [&] { return static_cast<unsigned>(generator()); };
    Relation relation(shape, seed);
    for (int round = 0; round < 4000; ++round) {
      const Values before = shape.values(random() % shape.countOf());
      const Value delay = shape.clockValue(random());
      Values after;
      for (const Value& x : before) after.push_back(later(x, delay, shape));
      ASSERT_NO_FATAL_FAILURE(relation.expectAgreement(before, after, delay));
      Value& changed = after[random() % after.size()];
      (random() % 2 == 0 ? changed.integer : changed.fraction) ^= 1U << random() % 3;
      ASSERT_NO_FATAL_FAILURE(relation.expectAgreement(before, after, delay));
    }
  }
}

TEST_F(Jump, WithoutClocksItOnlyBoundsTheDelay) {
  const ClockVal u(0, 3, 2, 1);
  const ClockVal v(0, 3, 2, 101);
  const BoolForm bounded = le(u.intPart(0), 5U);
  EXPECT_EQ(veryCleverJump(u, v, 4), bounded);
}

TEST_F(Jump, LeavesTheTargetsDelayAndBothSplitsFree) {
  const ClockVal u(2, 2, 2, 1);
  const ClockVal v(2, 2, 2, 101);
  std::set<int> expected = clockVariables(u);
  expected.merge(clockVariables(v));
  expected.merge(variablesOf(u.intPart(0)));
  expected.merge(variablesOf(u.frPart(0)));
  EXPECT_EQ(variablesOf(veryCleverJump(u, v, 2)), expected);
}

TEST_F(JumpDeathTest, DifferentNumbersOfClocksAreRefused) {
  EXPECT_DEATH(veryCleverJump(ClockVal(2, 2, 2, 1), ClockVal(1, 2, 2, 101), 1),
               failedAssertion("u.n == v.n"));
}

}  // namespace

// The layout of a valuation and the formulas over its clocks, against integers.

#include "clock/clockval.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "tests/boolform/assertion.hpp"
#include "tests/clock/valuation.hpp"

namespace {

const BoolForm T(true);
using ClockValTest = EmptyStore;
using ClockValDeathTest = EmptyStore;

TEST_F(ClockValTest, LaysPartsOverConsecutiveVariables) {
  const ClockVal v(2, 3, 2, 10);
  EXPECT_EQ(v.n, 2);
  EXPECT_EQ(v.intPLen, 3);
  EXPECT_EQ(v.frPLen, 2);
  for (int i = 0; i <= 2; ++i) {
    EXPECT_TRUE(v.intPart(i) == BoolFormVect(3, 10 + 3 * i));
    EXPECT_TRUE(v.frPart(i) == BoolFormVect(2, 21 + 2 * i));
  }
  EXPECT_TRUE(v.frSplit == BoolFormVect(2, 19));
}

TEST_F(ClockValTest, UsesEachOfItsVariablesOnce) {
  for (int n = 0; n <= 3; ++n)
    for (int intBits = 1; intBits <= 3; ++intBits)
      for (int frBits = 1; frBits <= 3; ++frBits) {
        const Shape shape{n, intBits, frBits};
        const ClockVal v = shape.valuation(5);
        std::set<int> used = clockVariables(v);
        used.merge(variablesOf(v.intPart(0)));
        used.merge(variablesOf(v.frPart(0)));
        used.merge(variablesOf(v.frSplit));
        EXPECT_EQ(used.size(), static_cast<std::size_t>(shape.variables()));
        EXPECT_EQ(*used.begin(), 5);
        EXPECT_EQ(*used.rbegin(), 5 + shape.variables() - 1);
      }
}

TEST_F(ClockValTest, HasOnePartMoreThanClocks) {
  const ClockVal v(0, 2, 2, 1);
  EXPECT_EQ(v.intParts.size(), 1U);
  EXPECT_EQ(v.frParts.size(), 1U);
}

TEST_F(ClockValTest, CopyIsIndependent) {
  ClockVal original(2, 2, 2, 1);
  const ClockVal copy = original;
  original.intParts[1].reset();
  original.frParts[2].reset();
  original.frSplit.reset();
  const ClockVal untouched(2, 2, 2, 1);
  EXPECT_TRUE(copy.intPart(1) == untouched.intPart(1));
  EXPECT_TRUE(copy.frPart(2) == untouched.frPart(2));
  EXPECT_TRUE(copy.frSplit == untouched.frSplit);
}

TEST_F(ClockValTest, AssignmentTakesOverEverything) {
  ClockVal target(1, 3, 1, 50);
  target = ClockVal(2, 2, 2, 1);
  EXPECT_EQ(target.n, 2);
  EXPECT_EQ(target.intPLen, 2);
  EXPECT_EQ(target.frPLen, 2);
  EXPECT_TRUE(target.intPart(2) == BoolFormVect(2, 5));
  EXPECT_TRUE(target.frPart(2) == BoolFormVect(2, 13));
  EXPECT_TRUE(target.frSplit == BoolFormVect(2, 7));
}

TEST_F(ClockValTest, SelfAssignmentChangesNothing) {
  ClockVal v(2, 2, 2, 1);
  const ClockVal& same = v;
  v = same;
  EXPECT_EQ(v.n, 2);
  EXPECT_TRUE(v.intPart(2) == BoolFormVect(2, 5));
  EXPECT_TRUE(v.frSplit == BoolFormVect(2, 7));
}

TEST_F(ClockValTest, ShowEndsALineAndPrintsNothingElse) {
  testing::internal::CaptureStdout();
  ClockVal(2, 2, 2, 1).show();
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "\n");
}

// --- Properties of one valuation ---

constexpr Shape shapes[] = {{1, 1, 1}, {1, 3, 2}, {2, 2, 1}, {2, 1, 2}, {2, 2, 2}, {3, 1, 1}};

template <class Build, class Meaning>
void expectProperty(const Shape& shape, Build build, Meaning meaning) {
  clearStore();
  const ClockVal v = shape.valuation(1);
  const BoolForm f = build(v);
  Assignment variables(static_cast<std::size_t>(shape.variables()) + 1, false);
  for (unsigned k = 0; k < shape.countOf(); ++k) {
    setClocks(variables, v, shape.values(k));
    ASSERT_EQ(Evaluation(variables)(f), meaning(shape.values(k))) << "valuation " << k;
  }
}

TEST_F(ClockValTest, AllZeroMeansThatEveryClockIsZero) {
  for (const Shape& shape : shapes)
    expectProperty(
        shape, [](const ClockVal& v) { return allZero(v); },
        [](const Values& values) {
          return std::ranges::all_of(values, [](Value x) { return x == Value{0, 0}; });
        });
}

TEST_F(ClockValTest, EvenDiffMeansThatAllFractionsHaveOneParity) {
  for (const Shape& shape : shapes)
    expectProperty(
        shape, [](const ClockVal& v) { return v.evenDiff(0); },
        [](const Values& values) {
          const auto odd =
              std::ranges::count_if(values, [](Value x) { return x.fraction % 2 == 1; });
          return odd == 0 || odd == static_cast<std::ptrdiff_t>(values.size());
        });
}

TEST_F(ClockValTest, EvenDiffIgnoresItsArgument) {
  const ClockVal v(2, 2, 2, 1);
  const BoolForm f = v.evenDiff(0);
  EXPECT_EQ(v.evenDiff(-1), f);
  EXPECT_EQ(v.evenDiff(1000000), f);
}

TEST_F(ClockValTest, AllProperMeansThatEveryClockIsAtMostOneAbove) {
  for (const Shape& shape : shapes)
    for (unsigned k = 0; k + 1 < 1U << shape.intBits; ++k)
      expectProperty(
          shape, [&](const ClockVal& v) { return v.allProper(static_cast<int>(k)); },
          [&](const Values& values) {
            return std::ranges::all_of(values, [&](Value x) { return x <= Value{k + 1, 0}; });
          });
}

TEST_F(ClockValTest, InOpenMeansStrictlyGreater) {
  for (const Shape& shape : shapes)
    for (int i = 1; i <= shape.clocks; ++i)
      for (unsigned c = 0; c < 1U << shape.intBits; ++c)
        expectProperty(
            shape, [&](const ClockVal& v) { return v.inOpen(i, static_cast<int>(c)); },
            [&](const Values& values) {
              return values[static_cast<std::size_t>(i) - 1] > Value{c, 0};
            });
}

TEST_F(ClockValDeathTest, InOpenOfNoClockIsRefused) {
  const ClockVal v(2, 2, 2, 1);
  EXPECT_DEATH(static_cast<void>(v.inOpen(0, 1)), failedAssertion("i > 0 && i <= n"));
  EXPECT_DEATH(static_cast<void>(v.inOpen(3, 1)), failedAssertion("i > 0 && i <= n"));
}

// --- Relations of two valuations ---

template <class Build, class Meaning>
void expectRelation(const Shape& shape, Build build, Meaning meaning) {
  clearStore();
  const ClockVal u = shape.valuation(1);
  const ClockVal v = shape.valuation(shape.variables() + 1);
  const BoolForm f = build(u, v);
  Assignment variables(static_cast<std::size_t>(2 * shape.variables()) + 1, false);
  for (unsigned k = 0; k < shape.countOf(); ++k)
    for (unsigned m = 0; m < shape.countOf(); ++m) {
      setClocks(variables, u, shape.values(k));
      setClocks(variables, v, shape.values(m));
      ASSERT_EQ(Evaluation(variables)(f), meaning(shape.values(k), shape.values(m)))
          << "valuations " << k << " and " << m;
    }
}

bool isReset(const Values& before, const Values& after, const NumSet& clocks) {
  for (unsigned i = 0; i < before.size(); ++i)
    if (after[i] != (clocks.count(i + 1) != 0 ? Value{0, 0} : before[i])) return false;
  return true;
}

TEST_F(ClockValTest, ResetZeroesTheClocksAndKeepsTheOthers) {
  for (const Shape& shape : shapes)
    for (const NumSet& clocks : {NumSet{}, NumSet{1}, NumSet{2}, NumSet{1, 2}, NumSet{1, 3}})
      expectRelation(
          shape, [&](const ClockVal& u, const ClockVal& v) { return reset(u, v, clocks); },
          [&](const Values& before, const Values& after) {
            return isReset(before, after, clocks);
          });
}

TEST_F(ClockValTest, ResetIgnoresNumbersThatAreNoClocks) {
  const ClockVal u(2, 2, 2, 1);
  const ClockVal v(2, 2, 2, 101);
  const BoolForm second = reset(u, v, {2});
  EXPECT_EQ(reset(u, v, {0, 2, 3, 4294967295U}), second);
}

TEST_F(ClockValTest, EqMeansEqualClocks) {
  for (const Shape& shape : shapes)
    expectRelation(
        shape, [](const ClockVal& u, const ClockVal& v) { return eq(u, v); },
        [](const Values& a, const Values& b) { return a == b; });
}

TEST_F(ClockValTest, FrPartsEqMeansEqualFractions) {
  for (const Shape& shape : shapes)
    expectRelation(
        shape, [](const ClockVal& u, const ClockVal& v) { return frPartsEq(u, v); },
        [](const Values& a, const Values& b) {
          return std::ranges::equal(a, b, {}, &Value::fraction, &Value::fraction);
        });
}

TEST_F(ClockValTest, ResetOfNoClockIsEquality) {
  const ClockVal u(2, 2, 2, 1);
  const ClockVal v(2, 2, 2, 101);
  const BoolForm kept = reset(u, v, {});
  EXPECT_EQ(eq(u, v), kept);
}

TEST_F(ClockValTest, ResetOfAllClocksIsAllZero) {
  const ClockVal u(2, 2, 2, 1);
  const ClockVal v(2, 2, 2, 101);
  const BoolForm zero = allZero(v);
  EXPECT_EQ(reset(u, v, {1, 2}), zero);
}

TEST_F(ClockValTest, WithoutClocksEverythingIsTrue) {
  const ClockVal u(0, 2, 2, 1);
  const ClockVal v(0, 2, 2, 101);
  EXPECT_EQ(allZero(u), T);
  EXPECT_EQ(u.evenDiff(0), T);
  EXPECT_EQ(u.allProper(1), T);
  EXPECT_EQ(reset(u, v, {1}), T);
  EXPECT_EQ(eq(u, v), T);
  EXPECT_EQ(frPartsEq(u, v), T);
}

TEST_F(ClockValTest, DelayAndSplitOccurInNoClockFormula) {
  const ClockVal u(2, 2, 2, 1);
  const ClockVal v(2, 2, 2, 101);
  std::set<int> clocks = clockVariables(u);
  clocks.merge(clockVariables(v));
  for (const BoolForm& f : {allZero(v), u.evenDiff(0), u.allProper(1), u.inOpen(1, 1), eq(u, v),
                            frPartsEq(u, v), reset(u, v, {}), reset(u, v, {1})})
    EXPECT_TRUE(std::ranges::includes(clocks, variablesOf(f)));
}

TEST_F(ClockValDeathTest, DifferentNumbersOfClocksAreRefused) {
  const ClockVal u(2, 2, 2, 1);
  const ClockVal v(1, 2, 2, 101);
  EXPECT_DEATH(reset(u, v, {}), failedAssertion("v1.n == v2.n"));
  EXPECT_DEATH(eq(v, u), failedAssertion("v1.n == v2.n"));
  EXPECT_DEATH(frPartsEq(u, v), failedAssertion("v1.n == v2.n"));
}

}  // namespace

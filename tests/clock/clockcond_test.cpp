// Atomic clock constraints, against integers.

#include "clock/clockcond.hpp"

#include <gtest/gtest.h>

#include <set>
#include <vector>

#include "tests/boolform/assertion.hpp"
#include "tests/clock/valuation.hpp"

namespace {

const BoolForm F(false);
const BoolForm T(true);
using ClockCond = EmptyStore;
using ClockCondDeathTest = EmptyStore;

// Clock i of two, every bound that fits, every value of both clocks.
template <class Meaning>
void expectRelation(int rel, Meaning meaning) {
  const Shape shape{2, 2, 2};
  const ClockVal v = shape.valuation(1);
  Assignment variables(static_cast<std::size_t>(shape.variables()) + 1, false);
  for (int i = 1; i <= 2; ++i)
    for (int bound = 0; bound < 4; ++bound) {
      const BoolForm f = SmplClockCond{i, 0, rel, bound}.toBool(v);
      for (unsigned k = 0; k < shape.countOf(); ++k) {
        setClocks(variables, v, shape.values(k));
        const Value x = shape.values(k)[static_cast<std::size_t>(i) - 1];
        ASSERT_EQ(Evaluation(variables)(f), meaning(x, Value{static_cast<unsigned>(bound), 0}))
            << "clock " << i << ", bound " << bound << ", valuation " << k;
      }
    }
}

TEST_F(ClockCond, RelationCodesAreFixed) {
  EXPECT_EQ(relEqual, 0);
  EXPECT_EQ(relLess, 1);
  EXPECT_EQ(relLessOrEqual, 2);
  EXPECT_EQ(relGreater, 3);
  EXPECT_EQ(relGreaterOrEqual, 4);
}

TEST_F(ClockCond, EqualMeansExactlyTheBound) {
  expectRelation(0, [](Value x, Value k) { return x == k; });
}

TEST_F(ClockCond, LessMeansStrictlyBelow) {
  expectRelation(1, [](Value x, Value k) { return x < k; });
}

TEST_F(ClockCond, LessOrEqualMeansAtMost) {
  expectRelation(2, [](Value x, Value k) { return x <= k; });
}

TEST_F(ClockCond, GreaterMeansStrictlyAbove) {
  expectRelation(3, [](Value x, Value k) { return x > k; });
}

TEST_F(ClockCond, GreaterOrEqualMeansAtLeast) {
  expectRelation(4, [](Value x, Value k) { return x >= k; });
}

TEST_F(ClockCond, UnknownRelationIsFalse) {
  const ClockVal v(1, 2, 2, 1);
  for (const int rel : {-1, 5, 100}) EXPECT_EQ((SmplClockCond{1, 0, rel, 1}.toBool(v)), F);
}

TEST_F(ClockCond, LessThanZeroIsFalseAndAtLeastZeroIsTrue) {
  const ClockVal v(1, 2, 2, 1);
  const BoolForm below = SmplClockCond{1, 0, relLess, 0}.toBool(v);
  const BoolForm above = SmplClockCond{1, 0, relGreaterOrEqual, 0}.toBool(v);
  for (unsigned k = 0; k < 1U << 10; ++k) {
    const Evaluation at(assignmentOf(k, 10));
    EXPECT_FALSE(at(below));
    EXPECT_TRUE(at(above));
  }
}

TEST_F(ClockCond, TrivialAtomIsTrueWhateverTheRestSays) {
  const ClockVal v(1, 2, 2, 1);
  for (const int trivial : {1, -1, 7})
    for (const int rel : {-1, 0, 1, 2, 3, 4, 5})
      EXPECT_EQ((SmplClockCond{1, trivial, rel, 1000}.toBool(v)), T);
  EXPECT_EQ((SmplClockCond{99, 1, 0, 0}.toBool(v)), T);
}

TEST_F(ClockCond, StrictLowerAndLooseUpperLookAtTheIntegerPartOnly) {
  const ClockVal v(2, 2, 2, 1);
  const std::set<int> integer = variablesOf(v.intPart(2));
  EXPECT_EQ(variablesOf(SmplClockCond{2, 0, relLess, 1}.toBool(v)), integer);
  EXPECT_EQ(variablesOf(SmplClockCond{2, 0, relGreaterOrEqual, 1}.toBool(v)), integer);
}

TEST_F(ClockCond, OtherRelationsLookAtBothParts) {
  const ClockVal v(2, 2, 2, 1);
  std::set<int> both = variablesOf(v.intPart(2));
  both.merge(variablesOf(v.frPart(2)));
  for (const int rel : {relEqual, relLessOrEqual, relGreater})
    EXPECT_EQ(variablesOf(SmplClockCond{2, 0, rel, 1}.toBool(v)), both);
}

TEST_F(ClockCondDeathTest, BoundBeyondTheIntegerPartIsRefused) {
  const ClockVal v(1, 2, 2, 1);
  for (const int bound : {4, 1000, -1})
    EXPECT_DEATH(static_cast<void>(SmplClockCond{1, 0, relLess, bound}.toBool(v)),
                 failedAssertion("bsLen <= len"));
}

// --- Order ---

// In ascending order; every field decides once, with a negative value beside positive ones.
const std::vector<SmplClockCond> ascending{
    {-1, 9, 9, 9}, {1, -1, 9, 9}, {1, 0, -1, 9}, {1, 0, 2, -1}, {1, 0, 2, 3},
    {1, 0, 2, 4},  {1, 0, 3, 0},  {1, 1, 0, 0},  {1, 1, 2, 3},  {2, 0, 0, 0},
};

TEST_F(ClockCond, IsOrderedByClockTrivialRelationBound) {
  for (std::size_t i = 0; i < ascending.size(); ++i)
    for (std::size_t j = 0; j < ascending.size(); ++j)
      EXPECT_EQ(ascending[i] < ascending[j], i < j) << i << " and " << j;
}

TEST_F(ClockCond, IsEqualWhereAllFieldsAre) {
  for (std::size_t i = 0; i < ascending.size(); ++i)
    for (std::size_t j = 0; j < ascending.size(); ++j)
      EXPECT_EQ(ascending[i] == ascending[j], i == j) << i << " and " << j;
}

TEST_F(ClockCond, AtomsThatDifferInTrivialOnlyAreDifferent) {
  const SmplClockCond plain{1, 0, 2, 3};
  const SmplClockCond trivial{1, 1, 2, 3};
  EXPECT_FALSE(plain == trivial);
  EXPECT_TRUE(plain < trivial);
}

}  // namespace

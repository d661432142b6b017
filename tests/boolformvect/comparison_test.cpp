// Comparisons of two vectors, against integers.

#include <gtest/gtest.h>

#include "boolformvect/boolformvect.hpp"
#include "tests/boolform/assertion.hpp"
#include "tests/boolformvect/values.hpp"

namespace {

using Vectors = const BoolFormVect&;
using Comparison = EmptyStore;
using ComparisonDeathTest = EmptyStore;

BoolForm equal(Vectors x, Vectors y) { return eq(x, y); }
BoolForm greater(Vectors x, Vectors y) { return ge(x, y); }
BoolForm greaterOrEqual(Vectors x, Vectors y) { return geq(x, y); }
BoolForm less(Vectors x, Vectors y) { return le(x, y); }
BoolForm lessOrEqual(Vectors x, Vectors y) { return leq(x, y); }

TEST_F(Comparison, EqMeansEqual) {
  expectRelation(equal, [](unsigned a, unsigned b, int) { return a == b; });
}

TEST_F(Comparison, GeMeansStrictlyGreater) {
  expectRelation(greater, [](unsigned a, unsigned b, int) { return a > b; });
}

TEST_F(Comparison, GeqMeansGreaterOrEqual) {
  expectRelation(greaterOrEqual, [](unsigned a, unsigned b, int) { return a >= b; });
}

TEST_F(Comparison, LeMeansStrictlyLess) {
  expectRelation(less, [](unsigned a, unsigned b, int) { return a < b; });
}

TEST_F(Comparison, LeqMeansLessOrEqual) {
  expectRelation(lessOrEqual, [](unsigned a, unsigned b, int) { return a <= b; });
}

TEST_F(Comparison, RangedEqComparesItsBitsOnly) {
  for (int from = 0; from < longestWidth; ++from)
    for (int count = 0; from + count <= longestWidth; ++count) {
      const auto within = [&](Vectors x) { return from + count <= x.len; };
      const unsigned mask = ((1U << count) - 1U) << from;
      expectRelation([&](Vectors x, Vectors y) { return eq(x, y, from, within(x) ? count : 0); },
                     [&](unsigned a, unsigned b, int width) {
                       return from + count > width || (a & mask) == (b & mask);
                     });
    }
}

TEST_F(Comparison, NothingComparesAsEqual) {
  const BoolFormVect nothing;
  EXPECT_EQ(eq(nothing, nothing), BoolForm(true));
  EXPECT_EQ(ge(nothing, nothing), BoolForm(false));
  EXPECT_EQ(geq(nothing, nothing), BoolForm(true));
  EXPECT_EQ(le(nothing, nothing), BoolForm(false));
  EXPECT_EQ(leq(nothing, nothing), BoolForm(true));
}

TEST_F(Comparison, VectorWithItselfFoldsToAConstant) {
  const BoolFormVect a(4, 1);
  EXPECT_EQ(eq(a, a), BoolForm(true));
  EXPECT_EQ(ge(a, a), BoolForm(false));
  EXPECT_EQ(geq(a, a), BoolForm(true));
  EXPECT_EQ(le(a, a), BoolForm(false));
  EXPECT_EQ(leq(a, a), BoolForm(true));
}

TEST_F(Comparison, ConstantVectorsFoldWithoutNodes) {
  for (unsigned k = 0; k < 16; ++k)
    for (unsigned m = 0; m < 16; ++m) {
      const BoolFormVect a = constant(4, k);
      const BoolFormVect b = constant(4, m);
      EXPECT_EQ(eq(a, b), BoolForm(k == m));
      EXPECT_EQ(ge(a, b), BoolForm(k > m));
      EXPECT_EQ(geq(a, b), BoolForm(k >= m));
      EXPECT_EQ(le(a, b), BoolForm(k < m));
      EXPECT_EQ(leq(a, b), BoolForm(k <= m));
    }
  EXPECT_TRUE(BoolForm::tv.empty());
}

TEST_F(ComparisonDeathTest, DifferentLengthsAreRefused) {
  const BoolFormVect a(3, 1);
  const BoolFormVect b(2, 4);
  for (auto* compare : {equal, greater, greaterOrEqual, less, lessOrEqual}) {
    EXPECT_DEATH(compare(a, b), failedAssertion("a1.len == a2.len"));
    EXPECT_DEATH(compare(b, a), failedAssertion("a1.len == a2.len"));
  }
  EXPECT_DEATH(eq(a, b, 0, 1), failedAssertion("a1.len == a2.len"));
}

}  // namespace

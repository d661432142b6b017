// Addition, subtraction and the successor relations, against integers.

#include <gtest/gtest.h>

#include <vector>

#include "boolformvect/boolformvect.hpp"
#include "tests/boolform/assertion.hpp"
#include "tests/boolformvect/values.hpp"

namespace {

using Vectors = const BoolFormVect&;
using Arithmetic = EmptyStore;
using ArithmeticDeathTest = EmptyStore;

BoolFormVect sum(Vectors x, Vectors y) { return x + y; }
BoolFormVect difference(Vectors x, Vectors y) { return x - y; }

TEST_F(Arithmetic, SumIsTheSumModuloTheRange) {
  expectNumber(sum, [](unsigned a, unsigned b) { return a + b; });
}

TEST_F(Arithmetic, DifferenceIsTheDifferenceModuloTheRange) {
  expectNumber(difference, [](unsigned a, unsigned b) { return a - b; });
}

TEST_F(Arithmetic, SuccessorIsOneMoreModuloTheRange) {
  expectNumber([](Vectors x, Vectors) { return succ(x); },
               [](unsigned a, unsigned) { return a + 1U; });
}

TEST_F(Arithmetic, IsSuccMeansOneMoreWithoutWrapAround) {
  expectRelation(isSucc, [](unsigned a, unsigned b, int) { return a == b + 1U; });
}

TEST_F(Arithmetic, IsEvenPredMeansEvenAndOneLess) {
  expectRelation(isEvenPred, [](unsigned a, unsigned b, int) { return a % 2 == 0 && b == a + 1U; });
}

TEST_F(Arithmetic, CarryOutOfTheTopIsDropped) {
  EXPECT_TRUE(constant(3, 3) + constant(3, 6) == constant(3, 1));
}

TEST_F(Arithmetic, SuccessorOfAllOnesIsZero) {
  EXPECT_TRUE(succ(constant(4, 15)) == constant(4, 0));
}

TEST_F(Arithmetic, ConstantMinusItselfIsZero) {
  for (unsigned k = 0; k < 16; ++k) EXPECT_TRUE(constant(4, k) - constant(4, k) == constant(4, 0));
}

TEST_F(Arithmetic, MinusZeroIsTheVectorBitForBit) {
  const BoolFormVect x(4, 1);
  EXPECT_TRUE(x - constant(4, 0) == x);
  EXPECT_TRUE(BoolForm::tv.empty());
}

TEST_F(Arithmetic, PlusZeroIsTheVectorBitForBit) {
  const BoolFormVect x(4, 1);
  EXPECT_TRUE(x + constant(4, 0) == x);
  EXPECT_TRUE(constant(4, 0) + x == x);
  EXPECT_TRUE(BoolForm::tv.empty());
}

TEST_F(Arithmetic, ConstantsFoldWithoutNodes) {
  for (unsigned k = 0; k < 16; ++k)
    for (unsigned m = 0; m < 16; ++m) {
      const BoolFormVect a = constant(4, k);
      const BoolFormVect b = constant(4, m);
      EXPECT_TRUE(a + b == constant(4, (k + m) % 16));
      EXPECT_TRUE(a - b == constant(4, (k - m) % 16));
      EXPECT_EQ(isSucc(a, b), BoolForm(k == m + 1));
      EXPECT_EQ(isEvenPred(a, b), BoolForm(k % 2 == 0 && m == k + 1));
    }
  EXPECT_TRUE(BoolForm::tv.empty());
}

TEST_F(Arithmetic, SuccessorRelationsOfConstants) {
  EXPECT_EQ(isSucc(constant(3, 4), constant(3, 3)), BoolForm(true));
  EXPECT_EQ(isSucc(constant(3, 0), constant(3, 7)), BoolForm(false));
  EXPECT_EQ(isEvenPred(constant(3, 2), constant(3, 3)), BoolForm(true));
  EXPECT_EQ(isEvenPred(constant(3, 3), constant(3, 4)), BoolForm(false));
}

TEST_F(Arithmetic, OneBitSumIsNonEquivalence) {
  const BoolFormVect r = BoolFormVect(1, 1) + BoolFormVect(1, 2);
  EXPECT_EQ(r.bits, std::vector{notequ(lit(1), lit(2))});
}

TEST_F(Arithmetic, NothingPlusNothingIsNothing) {
  EXPECT_EQ((BoolFormVect() + BoolFormVect()).len, 0);
}

TEST_F(Arithmetic, NothingIsTheSuccessorOfNothing) {
  EXPECT_EQ(isSucc(BoolFormVect(), BoolFormVect()), BoolForm(false));
}

TEST_F(ArithmeticDeathTest, DifferentLengthsAreRefused) {
  const BoolFormVect a(3, 1);
  const BoolFormVect b(2, 4);
  EXPECT_DEATH(a + b, failedAssertion("x.len == y.len"));
  EXPECT_DEATH(b + a, failedAssertion("x.len == y.len"));
  EXPECT_DEATH(a - b, failedAssertion("x.len == y.len"));
  EXPECT_DEATH(isSucc(a, b), failedAssertion("x.len == y.len"));
  EXPECT_DEATH(isEvenPred(b, a), failedAssertion("x.len == y.len"));
}

}  // namespace

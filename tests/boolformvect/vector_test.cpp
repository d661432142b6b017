// Construction and the members of vectors.

#include <gtest/gtest.h>

#include <vector>

#include "boolformvect/boolformvect.hpp"
#include "tests/boolform/assertion.hpp"
#include "tests/boolformvect/values.hpp"

namespace {

const BoolForm F(false);
const BoolForm T(true);
using Bits = std::vector<BoolForm>;

using Vector = EmptyStore;
using VectorDeathTest = EmptyStore;

TEST_F(Vector, DefaultIsEmpty) {
  const BoolFormVect v;
  EXPECT_EQ(v.len, 0);
  EXPECT_EQ(v.size(), 0);
  EXPECT_TRUE(v.bits.empty());
}

TEST_F(Vector, VariablesStartWithTheLeastSignificantBit) {
  const BoolFormVect v(3, 10);
  EXPECT_EQ(v.len, 3);
  EXPECT_EQ(v.bits, (Bits{lit(10), lit(11), lit(12)}));
}

TEST_F(Vector, NoVariablesNeedNoNumber) { EXPECT_TRUE(BoolFormVect(0, 0).bits.empty()); }

TEST_F(VectorDeathTest, VariableZeroIsRefused) {
  EXPECT_DEATH(BoolFormVect(2, 0), failedAssertion("nr > 0"));
  EXPECT_DEATH(BoolFormVect(3, -1), failedAssertion("nr > 0"));
}

TEST_F(Vector, ConstantHasItsBits) {
  EXPECT_EQ(BoolFormVect(4, ConstBits(5)).bits, (Bits{T, F, T, F}));
  EXPECT_EQ(BoolFormVect(3, ConstBits(5)).bits, (Bits{T, F, T}));
  EXPECT_EQ(BoolFormVect(2, ConstBits()).bits, (Bits{F, F}));
}

TEST_F(Vector, ConstantTakesBitsFarBeyondAnInteger) {
  const BoolFormVect v(2048, ConstBits().set(2047).set(70));
  for (int i = 0; i < 2048; ++i) EXPECT_EQ(v[i], BoolForm(i == 2047 || i == 70));
}

TEST_F(VectorDeathTest, ConstantThatDoesNotFitIsRefused) {
  EXPECT_DEATH(BoolFormVect(2, ConstBits(5)), failedAssertion("bsLen <= len"));
  EXPECT_DEATH(BoolFormVect(0, ConstBits(1)), failedAssertion("bsLen <= len"));
}

TEST_F(Vector, ShiftedConstantHasItsBitsFurtherUp) {
  EXPECT_EQ(BoolFormVect(4, ConstBits(5), 1).bits, (Bits{F, T, F, T}));
  EXPECT_EQ(BoolFormVect(4, ConstBits(5), 0).bits, (Bits{T, F, T, F}));
  EXPECT_EQ(BoolFormVect(2, ConstBits(), 2).bits, (Bits{F, F}));
}

TEST_F(Vector, ShiftedConstantIsAMultipleOfAPowerOfTwo) {
  const Evaluation at(Assignment{});
  for (int width = 1; width <= longestWidth; ++width)
    for (int shift = 0; shift <= width; ++shift)
      for (unsigned k = 0; k < 1U << (width - shift); ++k)
        EXPECT_EQ(numberOf(at, BoolFormVect(width, ConstBits(k), shift)), k << shift);
}

TEST_F(VectorDeathTest, ShiftedConstantThatDoesNotFitIsRefused) {
  EXPECT_DEATH(BoolFormVect(4, ConstBits(5), 2), failedAssertion("bsLen + shift <= len"));
  EXPECT_DEATH(BoolFormVect(2, ConstBits(), 3), failedAssertion("bsLen + shift <= len"));
}

TEST_F(Vector, ConcatenationPutsTheSecondVectorBelow) {
  const BoolFormVect high(1, 20);
  const BoolFormVect low(2, 10);
  const BoolFormVect v(high, low);
  EXPECT_EQ(v.len, 3);
  EXPECT_EQ(v.bits, (Bits{lit(10), lit(11), lit(20)}));
}

TEST_F(Vector, ConcatenationWithNothingIsTheOther) {
  const BoolFormVect v(2, 10);
  EXPECT_EQ(BoolFormVect(v, BoolFormVect()).bits, v.bits);
  EXPECT_EQ(BoolFormVect(BoolFormVect(), v).bits, v.bits);
}

TEST_F(Vector, ConcatenationIsAPositionalNumber) {
  for (int highWidth = 1; highWidth <= longestWidth; ++highWidth)
    for (int lowWidth = 1; lowWidth <= longestWidth; ++lowWidth) {
      const BoolFormVect high(highWidth, 1);
      const BoolFormVect low(lowWidth, highWidth + 1);
      const BoolFormVect both(high, low);
      for (unsigned bits = 0; bits < 1U << (highWidth + lowWidth); ++bits) {
        const Evaluation at(assignmentOf(bits, highWidth + lowWidth));
        EXPECT_EQ(numberOf(at, both), numberOf(at, high) << lowWidth | numberOf(at, low));
      }
    }
}

TEST_F(Vector, CopyIsIndependent) {
  BoolFormVect original(2, 1);
  const BoolFormVect copy = original;
  original.negAll();
  EXPECT_EQ(copy.bits, (Bits{lit(1), lit(2)}));
}

TEST_F(VectorDeathTest, BitOutsideTheVectorIsRefused) {
  const BoolFormVect v(3, 1);
  EXPECT_DEATH(static_cast<void>(v[-1]), failedAssertion("i >= 0 && i < len"));
  EXPECT_DEATH(static_cast<void>(v[3]), failedAssertion("i >= 0 && i < len"));
}

TEST_F(Vector, NegatingNegatesEveryBit) {
  BoolFormVect v(2, 1);
  v.bits.push_back(T);
  v.bits.push_back(F);
  v.len = 4;
  v.negAll();
  EXPECT_EQ(v.bits, (Bits{lit(-1), lit(-2), F, T}));
}

TEST_F(Vector, ResettingClearsEveryBit) {
  BoolFormVect v(3, 1);
  v.reset();
  EXPECT_EQ(v.len, 3);
  EXPECT_EQ(v.bits, (Bits{F, F, F}));
}

TEST_F(Vector, ZeroMeansZero) {
  expectProperty([](const BoolFormVect& x) { return x.zero(); }, [](unsigned a) { return a == 0; });
}

TEST_F(Vector, ZeroOfNothingIsTrue) { EXPECT_EQ(BoolFormVect().zero(), T); }

TEST_F(Vector, GezMeansGreaterThanZero) {
  expectProperty([](const BoolFormVect& x) { return x.gez(); }, [](unsigned a) { return a > 0; });
}

TEST_F(Vector, GezOfNothingIsFalse) { EXPECT_EQ(BoolFormVect().gez(), F); }

TEST_F(Vector, EvenIsTheNegatedLowestBit) {
  expectProperty([](const BoolFormVect& x) { return x.even(); },
                 [](unsigned a) { return a % 2 == 0; });
  EXPECT_EQ(BoolFormVect(3, 10).even(), lit(-10));
}

TEST_F(Vector, OddIsTheLowestBit) {
  expectProperty([](const BoolFormVect& x) { return x.odd(); },
                 [](unsigned a) { return a % 2 == 1; });
  EXPECT_EQ(BoolFormVect(3, 10).odd(), lit(10));
}

TEST_F(Vector, EvenDifferenceIsEqualParity) {
  expectRelation([](const BoolFormVect& x, const BoolFormVect& y) { return x.evenDiff(y); },
                 [](unsigned a, unsigned b, int) { return a % 2 == b % 2; });
}

TEST_F(Vector, ShowPrintsNothing) {
  testing::internal::CaptureStdout();
  BoolFormVect(3, 1).show();
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

TEST_F(Vector, IsTheSameWhereEveryBitIs) {
  EXPECT_TRUE(BoolFormVect(3, 1) == BoolFormVect(3, 1));
  EXPECT_TRUE(BoolFormVect() == BoolFormVect());
  for (std::size_t i = 0; i < 3; ++i) {
    BoolFormVect other(3, 1);
    other.bits[i] = neg(other.bits[i]);
    EXPECT_FALSE(BoolFormVect(3, 1) == other);
  }
}

TEST_F(VectorDeathTest, SamenessOfDifferentLengthsIsRefused) {
  EXPECT_DEATH(static_cast<void>(BoolFormVect(3, 1) == BoolFormVect(2, 1)),
               failedAssertion("a1.len == a2.len"));
}

}  // namespace

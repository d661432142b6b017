// Comparisons of a vector with a constant, against integers.

#include <gtest/gtest.h>

#include <cstdint>

#include "boolformvect/boolformvect.hpp"
#include "tests/boolform/assertion.hpp"
#include "tests/boolformvect/values.hpp"

namespace {

using ConstantComparison = EmptyStore;
using ConstantComparisonDeathTest = EmptyStore;

BoolForm equal(const BoolFormVect& a, unsigned k) { return eq(a, k); }
BoolForm greater(const BoolFormVect& a, unsigned k) { return ge(a, k); }
BoolForm greaterOrEqual(const BoolFormVect& a, unsigned k) { return geq(a, k); }
BoolForm less(const BoolFormVect& a, unsigned k) { return le(a, k); }
BoolForm lessOrEqual(const BoolFormVect& a, unsigned k) { return leq(a, k); }

constexpr auto allComparisons = {equal, greater, greaterOrEqual, less, lessOrEqual};

// Every operand of every short width with every constant that fits.
template <class Build, class Meaning>
void expectMeaning(Build build, Meaning meaning) {
  for (unsigned k = 0; k < 1U << longestWidth; ++k) {
    const auto fits = [&](int width) { return k < 1U << width; };
    expectRelation([&](const BoolFormVect& x,
                       const BoolFormVect&) { return fits(x.len) ? build(x, k) : BoolForm(true); },
                   [&](unsigned a, unsigned, int width) { return !fits(width) || meaning(a, k); });
  }
}

TEST_F(ConstantComparison, EqMeansEqual) {
  expectMeaning(equal, [](unsigned a, unsigned k) { return a == k; });
}

TEST_F(ConstantComparison, GeMeansStrictlyGreater) {
  expectMeaning(greater, [](unsigned a, unsigned k) { return a > k; });
}

TEST_F(ConstantComparison, GeqMeansGreaterOrEqual) {
  expectMeaning(greaterOrEqual, [](unsigned a, unsigned k) { return a >= k; });
}

TEST_F(ConstantComparison, LeMeansStrictlyLess) {
  expectMeaning(less, [](unsigned a, unsigned k) { return a < k; });
}

TEST_F(ConstantComparison, LeqMeansLessOrEqual) {
  expectMeaning(lessOrEqual, [](unsigned a, unsigned k) { return a <= k; });
}

TEST_F(ConstantComparison, EqualToZeroIsTheZeroTest) {
  const BoolFormVect a(4, 1);
  const BoolForm zero = a.zero();
  const std::size_t nodes = BoolForm::tv.size();
  EXPECT_EQ(eq(a, 0U), zero);
  EXPECT_EQ(BoolForm::tv.size(), nodes);
}

TEST_F(ConstantComparison, NothingIsLessThanZero) {
  EXPECT_EQ(le(BoolFormVect(4, 1), 0U), BoolForm(false));
  EXPECT_EQ(le(BoolFormVect(), 0U), BoolForm(false));
}

TEST_F(ConstantComparison, LessThanOneIsTheZeroTest) {
  const BoolFormVect a(4, 1);
  const BoolForm zero = a.zero();
  EXPECT_EQ(le(a, 1U), zero);
}

TEST_F(ConstantComparison, ConstantVectorsFoldWithoutNodes) {
  for (unsigned m = 0; m < 16; ++m)
    for (unsigned k = 0; k < 16; ++k)
      for (auto* compare : allComparisons) compare(constant(4, m), k);
  EXPECT_TRUE(BoolForm::tv.empty());
}

// Bits of the constant above the vector count for nothing.
TEST_F(ConstantComparison, ConstantIsCutToTheWidth) {
  for (int width = 1; width <= longestWidth; ++width)
    for (unsigned k = 1; k < 1U << width; ++k)
      for (auto* compare : allComparisons) {
        const BoolFormVect a(width, 1);
        const BoolForm cut = compare(a, k);
        EXPECT_EQ(compare(a, k | 1U << width), cut);
        EXPECT_EQ(compare(a, k | 1U << 31), cut);
      }
}

TEST_F(ConstantComparison, EqualityWithAMultipleOfTheRangeIsThatWithZero) {
  const BoolFormVect a(3, 1);
  const BoolForm zero = a.zero();
  EXPECT_EQ(eq(a, 8U), zero);
}

TEST_F(ConstantComparisonDeathTest, LessThanAMultipleOfTheRangeIsRefused) {
  const BoolFormVect a(3, 1);
  EXPECT_DEATH(le(a, 8U), failedAssertion("i >= 0 && i < len"));
  EXPECT_DEATH(geq(a, 8U), failedAssertion("i >= 0 && i < len"));
  EXPECT_DEATH(le(BoolFormVect(), 1U), failedAssertion("i >= 0 && i < len"));
}

// A vector longer than the constant: the constant has zeros from bit 32 on.
class LongVector : public EmptyStore {
 protected:
  static constexpr int width = 40;
  const BoolFormVect a{width, 1};

  // Calls check(evaluation, value of a) for values around 0, k and the ends of both ranges.
  template <class Check>
  static void forValuesAround(std::uint64_t k, Check check) {
    const std::uint64_t top = (std::uint64_t{1} << width) - 1;
    for (const std::uint64_t centre : {std::uint64_t{0}, k, k | std::uint64_t{1} << 32,
                                       k | std::uint64_t{1} << 39, std::uint64_t{1} << 32, top})
      for (std::uint64_t value = centre - 2; value != centre + 3; ++value)
        check(Evaluation(assignmentOf(value & top, width)), value & top);
  }
};

TEST_F(LongVector, ComparesWithZerosAboveTheConstant) {
  for (const unsigned k : {1U, 6U, 0x80000000U, 0xFFFFFFFEU, 0xFFFFFFFFU}) {
    const BoolForm isEqual = eq(a, k);
    const BoolForm isLess = le(a, k);
    const BoolForm isGreater = ge(a, k);
    forValuesAround(k, [&](const Evaluation& at, std::uint64_t value) {
      EXPECT_EQ(at(isEqual), value == k) << value << " and " << k;
      EXPECT_EQ(at(isLess), value < k) << value << " and " << k;
      EXPECT_EQ(at(isGreater), value > k) << value << " and " << k;
    });
  }
}

}  // namespace

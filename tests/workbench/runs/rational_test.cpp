#include "workbench/runs/rational.hpp"

#include <gtest/gtest.h>

#include <limits>
#include <numeric>
#include <stdexcept>
#include <vector>

namespace tpn {
namespace {

constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t least = std::numeric_limits<std::int64_t>::min();

struct Pair {
  std::int64_t n, d;  // any signs
};

std::vector<Pair> smallPairs() {
  std::vector<Pair> all;
  for (std::int64_t n = -7; n <= 7; ++n)
    for (std::int64_t d = -6; d <= 6; ++d)
      if (d != 0) all.push_back({n, d});
  return all;
}

// n / d is the fraction, however it is reduced.
bool same(const Rational& r, std::int64_t n, std::int64_t d) {
  return r.numerator() * d == n * r.denominator();
}

bool lowest(const Rational& r) {
  return r.denominator() > 0 && std::gcd(r.numerator(), r.denominator()) == 1;
}

TEST(Rational, IsInLowestTerms) {
  for (const Pair& p : smallPairs()) {
    const Rational r(p.n, p.d);
    EXPECT_TRUE(lowest(r) && same(r, p.n, p.d)) << p.n << "/" << p.d;
  }
}

TEST(Rational, AddsAndSubtracts) {
  for (const Pair& p : smallPairs())
    for (const Pair& q : smallPairs()) {
      const Rational sum = Rational(p.n, p.d) + Rational(q.n, q.d);
      const Rational difference = Rational(p.n, p.d) - Rational(q.n, q.d);
      ASSERT_TRUE(lowest(sum) && same(sum, p.n * q.d + q.n * p.d, p.d * q.d));
      ASSERT_TRUE(lowest(difference) && same(difference, p.n * q.d - q.n * p.d, p.d * q.d));
    }
}

// Compared by their multiples of 60, which are whole for all denominators here.
TEST(Rational, Compares) {
  for (const Pair& p : smallPairs())
    for (const Pair& q : smallPairs()) {
      const std::int64_t left = p.n * (60 / p.d);
      const std::int64_t right = q.n * (60 / q.d);
      ASSERT_EQ(Rational(p.n, p.d) <=> Rational(q.n, q.d), left <=> right);
      ASSERT_EQ(Rational(p.n, p.d) == Rational(q.n, q.d), left == right);
    }
}

TEST(Rational, ComparesWhatDiffersInTheLastPlace) {
  EXPECT_LT(Rational(most - 2, most - 1), Rational(most - 1, most));
  EXPECT_GT(Rational(2 - most, most - 1), Rational(1 - most, most));
  EXPECT_LT(Rational(least), Rational(-most));
}

TEST(Rational, ReachesTheEndsOfItsRange) {
  EXPECT_EQ(Rational(most - 1) + Rational(1), Rational(most));
  EXPECT_EQ(Rational(least + 1) - Rational(1), Rational(least));
  EXPECT_EQ(Rational(most, 2) + Rational(most, 2), Rational(most));
  EXPECT_EQ(Rational(1, most) - Rational(1, most), Rational(0));
  EXPECT_EQ(Rational(least, least), Rational(1));
  EXPECT_EQ(Rational(least, -2), Rational(std::int64_t{1} << 62));
}

TEST(Rational, ThrowsWhereAResultDoesNotFit) {
  EXPECT_THROW(Rational(most) + 1, std::overflow_error);
  EXPECT_THROW(Rational(least) - 1, std::overflow_error);
  EXPECT_THROW(Rational(least, -1), std::overflow_error);
  EXPECT_THROW(Rational(1, least), std::overflow_error);
  EXPECT_THROW(Rational(1, most) + Rational(1, most - 1), std::overflow_error);
  EXPECT_THROW(Rational(2) - Rational(1, most), std::overflow_error);
}

TEST(Rational, PrintsAndReadsBack) {
  EXPECT_EQ(Rational(3).text(), "3");
  EXPECT_EQ(Rational(-2, 4).text(), "-1/2");
  EXPECT_DOUBLE_EQ(Rational(-7, 4).value(), -1.75);
  for (const Pair& p : smallPairs()) {
    const Rational r(p.n, p.d);
    EXPECT_EQ(Rational::read(r.text()), r >= 0 ? std::optional(r) : std::nullopt);
  }
}

TEST(Rational, ReadsDecimals) {
  EXPECT_EQ(Rational::read("0.25"), Rational(1, 4));
  EXPECT_EQ(Rational::read("12.50"), Rational(25, 2));
  EXPECT_EQ(Rational::read("0.000000000000000001"), Rational(1, 1'000'000'000'000'000'000));
  EXPECT_EQ(Rational::read("9223372036854775807"), Rational(most));
}

TEST(Rational, ReadsNothingElse) {
  for (const char* text : {"",
                           "-1",
                           "+1",
                           " 1",
                           "1 ",
                           ".",
                           "/",
                           ".5",
                           "5.",
                           "1/",
                           "/2",
                           "1/0",
                           "1.2.3",
                           "1/2/3",
                           "1.5/2",
                           "1/2.5",
                           "1,5",
                           "0x1",
                           "1e3",
                           "9223372036854775808",
                           "0.0000000000000000001",
                           "1/9223372036854775808",
                           "1/-2"})
    EXPECT_EQ(Rational::read(text), std::nullopt) << text;
}

}  // namespace
}  // namespace tpn

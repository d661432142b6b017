// The normal form of one clause and the order of clauses.

#include "boolform/clause.hpp"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <limits>
#include <set>
#include <utility>

#include "tests/boolform/clauses.hpp"

namespace {

constexpr int highest = std::numeric_limits<int>::max();

// Three exchanges on strictly smaller absolute values, then repeats become empty slots.
Clause normalForm(int a, int b, int c) {
  std::array<int, 3> s{a, b, c};
  for (const auto& [i, j] : {std::pair<std::size_t, std::size_t>{0, 1}, {0, 2}, {1, 2}})
    if (std::abs(s[j]) < std::abs(s[i])) std::swap(s[i], s[j]);
  const bool thirdRepeats = s[2] == s[0] || s[2] == s[1];
  const bool secondRepeats = s[1] == s[0];
  return slots(s[0], secondRepeats ? 0 : s[1], thirdRepeats ? 0 : s[2]);
}

// Calls `check` for every three of a few literals of every kind, 0 and both signs included.
template <class Check>
void forAllTriples(Check check) {
  const std::array literals{0,        1,       -1,       2,       -2,      1000000,
                            -1000001, 1000001, -1000002, highest, -highest};
  for (const int a : literals)
    for (const int b : literals)
      for (const int c : literals) check(a, b, c);
}

std::set<int> literalsOf(const Clause& c) {
  std::set<int> literals{c.first, c.second, c.third};
  literals.erase(0);
  return literals;
}

TEST(Clause, UnitStandsInTheThirdSlot) { EXPECT_EQ(Clause(5, 0, 0), slots(0, 0, 5)); }

TEST(Clause, LiteralsAreOrderedByAbsoluteValue) {
  EXPECT_EQ(Clause(-7, 3, 0), slots(0, 3, -7));
  EXPECT_EQ(Clause(9, -8, 7), slots(7, -8, 9));
  EXPECT_EQ(Clause(-1000001, -2, 1), slots(1, -2, -1000001));
}

TEST(Clause, RepeatInTheMiddleLeavesAnEmptyMiddleSlot) {
  EXPECT_EQ(Clause(3, 3, 5), slots(3, 0, 5));
}

TEST(Clause, RepeatAtTheEndLeavesAnEmptyThirdSlot) { EXPECT_EQ(Clause(5, 3, 5), slots(3, 5, 0)); }

TEST(Clause, OneLiteralThreeTimesStandsInTheFirstSlot) {
  EXPECT_EQ(Clause(4, 4, 4), slots(4, 0, 0));
}

TEST(Clause, EmptyClauseStaysEmpty) { EXPECT_EQ(Clause(0, 0, 0), slots(0, 0, 0)); }

TEST(Clause, TautologyIsKept) {
  EXPECT_EQ(Clause(4, -4, 0), slots(0, -4, 4));
  EXPECT_EQ(Clause(1, 4, -4), slots(1, 4, -4));
  EXPECT_EQ(Clause(1, -4, 4), slots(1, -4, 4));
}

// The exchange of the outer slots carries the first literal past its negation.
TEST(Clause, SmallerThirdLiteralTurnsATautologyRound) {
  EXPECT_EQ(Clause(2, -2, 1), slots(1, -2, 2));
}

TEST(Clause, IsTheNormalFormOfItsThreeLiterals) {
  forAllTriples([](int a, int b, int c) { EXPECT_EQ(Clause(a, b, c), normalForm(a, b, c)); });
}

TEST(Clause, KeepsTheSetOfItsLiterals) {
  forAllTriples([](int a, int b, int c) {
    EXPECT_EQ(literalsOf(Clause(a, b, c)), literalsOf(slots(a, b, c)));
  });
}

TEST(Clause, HoldsNoLiteralTwice) {
  forAllTriples([](int a, int b, int c) {
    const Clause clause(a, b, c);
    std::size_t taken = 0;
    for (const int slot : {clause.first, clause.second, clause.third}) taken += slot != 0 ? 1 : 0;
    EXPECT_EQ(taken, literalsOf(clause).size());
  });
}

TEST(Clause, IsOrderedSlotBySlotAsSignedNumbers) {
  EXPECT_LT(slots(-1, 9, 9), slots(0, -9, -9));
  EXPECT_LT(slots(0, -2, 9), slots(0, 1, -9));
  EXPECT_LT(slots(0, 0, -1000001), slots(0, 0, 1000001));
  EXPECT_LT(slots(-highest, 0, 0), slots(highest, 0, 0));
  EXPECT_FALSE(slots(1, 2, 3) < slots(1, 2, 3));
}

TEST(Clause, IsEqualWhereAllSlotsAre) {
  EXPECT_TRUE(slots(1, 2, 3) == slots(1, 2, 3));
  EXPECT_FALSE(slots(1, 2, 3) == slots(0, 2, 3));
  EXPECT_FALSE(slots(1, 2, 3) == slots(1, 0, 3));
  EXPECT_FALSE(slots(1, 2, 3) == slots(1, 2, 0));
}

}  // namespace

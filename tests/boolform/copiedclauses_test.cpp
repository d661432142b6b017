// The clauses of copied nodes against those of the nodes one by one: random chains, all regions,
// stretches of them.

#include "boolform/copiedclauses.hpp"

#include <gtest/gtest.h>

#include <random>
#include <set>
#include <vector>

#include "tests/boolform/chain.hpp"
#include "tests/boolform/clauses.hpp"
#include "tests/boolform/store.hpp"

namespace {

using Clauses = std::vector<Clause>;
using Marks = std::vector<std::uint8_t>;

constexpr int farAbove = 3000000;

int leading(const Clause& c) { return std::abs(c.first != 0 ? c.first : c.second); }

Region regionOf(const Clause& c) {
  const int literal = c.first != 0 ? c.first : c.second;
  if (c.first != 0) return literal < 0 ? threeNegative : threePositive;
  return literal < 0 ? twoNegative : twoPositive;
}

// The clauses of the first `times` copies' nodes, ascending.
Clauses expected(const Repetition& copies, int times, const Marks& marks, Region region, int from,
                 int to) {
  std::set<Clause> clauses;
  for (std::size_t i = copies.begin(); i < copies.begin() + copies.size(times); ++i) {
    const auto [op, l, r] = BoolForm::tv[i];
    if (marks[i] == 0) continue;
    define(op, l, r, node(static_cast<int>(i) + 1), [&](int x, int y, int z = 0) {
      const Clause c(x, y, z);
      if (regionOf(c) == region && from <= leading(c) && leading(c) < to) clauses.insert(c);
    });
  }
  return {clauses.begin(), clauses.end()};
}

Clauses listOf(const CopiedClauses& copied, Region region, int from, int to) {
  Clauses list;
  copied.forEach(region, from, to, [&](const Clause& c) { list.push_back(c); });
  return list;
}

class Copied : public testing::TestWithParam<unsigned> {
 protected:
  Copied() {
    clearStore();
    copiedChain(GetParam(), 30);
  }
  void TearDown() override { clearStore(); }

  const Repetition& copies() const { return BoolForm::mti.copies(); }

  // Any node of a step, the same ones in all.
  Marks someMarked(std::mt19937& random) const {
    Marks marks(BoolForm::tv.size());
    const std::size_t step = copies().size(1);
    for (std::size_t i = 0; i < marks.size(); ++i)
      marks[i] = i < step ? random() % 4 != 0 : marks[i - step];
    return marks;
  }
};

TEST_P(Copied, AreThoseOfTheNodesInEveryRegion) {
  std::mt19937 random(GetParam());
  ASSERT_EQ(copies().times(), 26);
  for (const int times : {26, 25, 13, 6}) {
    const Marks marks = someMarked(random);
    const CopiedClauses copied(copies(), times, BoolForm::tv, marks);
    ASSERT_EQ(copied.times(), times);
    for (const Region region : {threeNegative, twoNegative, twoPositive, threePositive})
      EXPECT_EQ(listOf(copied, region, 0, farAbove),
                expected(copies(), times, marks, region, 0, farAbove));
  }
}

TEST_P(Copied, InStretches) {
  std::mt19937 random(GetParam());
  const Marks marks = someMarked(random);
  const CopiedClauses copied(copies(), copies().times(), BoolForm::tv, marks);
  const auto somewhere = [&] {
    const int variables = 31 * perState;
    return random() % 3 == 0 ? 1 + static_cast<int>(random() % static_cast<unsigned>(variables))
                             : node(static_cast<int>(random() % BoolForm::tv.size()));
  };
  for (int i = 0; i < 60; ++i) {
    const auto region = static_cast<Region>(random() % regions);
    const int from = somewhere();
    const int to = random() % 2 == 0 ? from + 1 : somewhere();
    EXPECT_EQ(listOf(copied, region, from, to),
              expected(copies(), copies().times(), marks, region, from, to))
        << "region " << region << " from " << from << " to " << to;
  }
}

TEST_P(Copied, AreNoneWhereTheBlockReachesFurtherThanThereAreCopies) {
  const Marks marks(BoolForm::tv.size(), 1);
  const CopiedClauses none(copies(), 0, BoolForm::tv, marks);
  EXPECT_EQ(none.times(), 0);
  EXPECT_TRUE(listOf(none, threePositive, 0, farAbove).empty());
  const CopiedClauses one(copies(), 1, BoolForm::tv, marks);
  EXPECT_EQ(listOf(one, twoPositive, 0, farAbove),
            expected(copies(), one.times(), marks, twoPositive, 0, farAbove));
}

INSTANTIATE_TEST_SUITE_P(Seeds, Copied, testing::Range(1U, 31U));

using NothingCopied = EmptyStore;

TEST_F(NothingCopied, HasNoClauses) {
  const CopiedClauses none;
  EXPECT_EQ(none.times(), 0);
  for (const Region region : {threeNegative, twoNegative, twoPositive, threePositive})
    EXPECT_TRUE(listOf(none, region, 0, farAbove).empty());
}

// Leading literals from i to i + 7: it takes 7 copies to fill a window.
TEST_F(NothingCopied, ThoseThatReachFarNeedThatManyCopies) {
  for (const int times : {6, 7}) {
    clearStore();
    for (const int i : {1, 2}) {
      con(lit(i), lit(i + 3));
      con(lit(i + 3), lit(-i - 7));
    }
    ASSERT_TRUE(BoolForm::lastRepeat({1, 2}));
    BoolForm::repeatLast({1, 2}, times);
    const Marks marks(BoolForm::tv.size(), 1);
    const CopiedClauses copied(BoolForm::mti.copies(), times, BoolForm::tv, marks);
    EXPECT_EQ(copied.times(), times < 7 ? 0 : times);
    for (const Region region : {threeNegative, twoNegative, twoPositive, threePositive})
      EXPECT_EQ(listOf(copied, region, 0, farAbove),
                expected(BoolForm::mti.copies(), copied.times(), marks, region, 0, farAbove));
  }
}

}  // namespace

// The flat clause set against std::set<Clause>.

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <set>
#include <vector>

#include "boolform/clause.hpp"
#include "tests/boolform/clauses.hpp"

namespace {

constexpr int highest = std::numeric_limits<int>::max();

// Draws literals of one kind: around a centre, of either sign, sometimes empty.
class Literals {
 public:
  Literals(unsigned seed, int lowest, int top) : random_(seed), magnitude_(lowest, top) {}

  int next() {
    const unsigned kind = random_() % 8;
    if (kind == 0) return 0;
    const int literal = magnitude_(random_);
    return kind % 2 == 0 ? literal : -literal;
  }

  // Every seventh clause is a tautology.
  Clause clause() {
    const int a = next();
    const int b = next();
    const int c = random_() % 7 == 0 ? -a : next();
    return {a, b, c};
  }

 private:
  std::mt19937 random_;
  std::uniform_int_distribution<int> magnitude_;
};

// Inserts in several rounds, the set read after each: reading must not stop later insertions.
void compareWithSet(Literals literals, int rounds, int clausesEach) {
  ClauseSet cnf;
  std::set<Clause> expected;
  for (int round = 0; round < rounds; ++round) {
    for (int i = 0; i < clausesEach; ++i) {
      const Clause c = literals.clause();
      cnf.insert(c);
      expected.insert(c);
    }
    ASSERT_EQ(cnf.size(), expected.size());
    ASSERT_EQ(listOf(cnf), std::vector<Clause>(expected.begin(), expected.end()));
  }
}

struct Range {
  int lowest;
  int top;
};

class ClauseSetModel : public testing::TestWithParam<Range> {};

TEST_P(ClauseSetModel, ReadsInOrderAndOnce) {
  for (unsigned seed = 1; seed <= 5; ++seed) {
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    compareWithSet(Literals(seed, GetParam().lowest, GetParam().top), 4, 700);
  }
}

TEST_P(ClauseSetModel, ReadsInOrderAfterEveryInsertion) {
  compareWithSet(Literals(9, GetParam().lowest, GetParam().top), 60, 1);
}

INSTANTIATE_TEST_SUITE_P(Literals, ClauseSetModel,
                         testing::Values(Range{1, 1}, Range{1, 6}, Range{1, 5000},
                                         Range{999990, 1000010}, Range{1000001, 1100000},
                                         Range{1, 3000000}, Range{highest - 3, highest},
                                         Range{1, highest}),
                         [](const auto& range) {
                           return "From" + std::to_string(range.param.lowest) + "To" +
                                  std::to_string(range.param.top);
                         });

TEST(ClauseSet, StartsEmpty) {
  const ClauseSet cnf;
  EXPECT_TRUE(cnf.empty());
  EXPECT_EQ(cnf.size(), 0U);
  EXPECT_TRUE(listOf(cnf).empty());
}

TEST(ClauseSet, KeepsAClauseOnce) {
  ClauseSet cnf;
  for (int i = 0; i < 3; ++i) cnf.insert(Clause(1, 2, 3));
  EXPECT_EQ(cnf.size(), 1U);
}

TEST(ClauseSet, TellsClausesWithEqualLiteralsInOtherSlotsApart) {
  ClauseSet cnf;
  cnf.insert(Clause(3, 3, 5));
  cnf.insert(Clause(3, 5, 0));
  EXPECT_EQ(listOf(cnf), (std::vector{slots(0, 3, 5), slots(3, 0, 5)}));
}

TEST(ClauseSet, HoldingTheEmptyClauseIsNotEmpty) {
  ClauseSet cnf;
  cnf.insert(Clause(0, 0, 0));
  EXPECT_FALSE(cnf.empty());
}

TEST(ClauseSet, ClearedSetIsEmptyAndUsable) {
  ClauseSet cnf;
  cnf.insert(Clause(1, 2, 3));
  cnf.clear();
  EXPECT_TRUE(cnf.empty());
  EXPECT_EQ(cnf.size(), 0U);
  cnf.insert(Clause(4, 0, 0));
  EXPECT_EQ(listOf(cnf), std::vector{slots(0, 0, 4)});
}

}  // namespace

// Definitions in order against the same clauses in a set: random formulas over few and over many
// variables, several roots, clauses of other origin in between.

#include "boolform/definitions.hpp"

#include <gtest/gtest.h>

#include <random>
#include <set>
#include <vector>

#include "boolform/clauseset.hpp"
#include "tests/boolform/assertion.hpp"
#include "tests/boolform/chain.hpp"
#include "tests/boolform/clauses.hpp"
#include "tests/boolform/store.hpp"

namespace {

using Clauses = std::vector<Clause>;

// Formulas whose operands are mostly recent; `variables` of them to begin with.
std::vector<BoolForm> randomFormulas(std::mt19937& random, int variables, int count) {
  std::vector<BoolForm> pool;
  for (int v = 1; v <= variables; ++v) pool.push_back(lit(v));
  const auto pick = [&] {
    const std::size_t recent = std::min<std::size_t>(pool.size(), random() % 8 == 0 ? 100000 : 20);
    const BoolForm f = pool[pool.size() - 1 - random() % recent];
    return random() % 2 == 0 ? f : neg(f);
  };
  for (int i = 0; i < count; ++i) {
    const BoolForm a = pick();
    const BoolForm b = pick();
    const BoolForm f = random() % 3 == 0 ? equ(a, b) : con(a, b);
    if (f.nr != BoolForm::trueNr && isNodeNr(f.nr)) pool.push_back(f);
  }
  return pool;
}

// The clauses of one definition in normal form, straight from what they say.
void define(int n, std::set<Clause>& clauses) {
  if (!isNodeNr(n)) return;
  const auto [op, l, r] = keyOf(lit(n));
  if (op == bfCon) {
    clauses.insert({Clause(l, -n, 0), Clause(r, -n, 0), Clause(-l, -r, n)});
  } else {
    clauses.insert({Clause(-l, r, -n), Clause(l, -r, -n), Clause(l, r, n), Clause(-l, -r, n)});
  }
}

void defineAll(int n, std::set<Clause>& clauses, std::set<int>& seen) {
  if (!isNodeNr(n) || !seen.insert(n).second) return;
  define(n, clauses);
  const Triple key = keyOf(lit(n));
  defineAll(std::abs(key.left), clauses, seen);
  defineAll(std::abs(key.right), clauses, seen);
}

struct Expected {
  std::set<Clause> clauses;
  std::set<int> seen;
  void add(int root) { defineAll(root, clauses, seen); }
};

Clauses listOf(const Definitions& definitions) {
  Clauses list;
  definitions.forEach([&](const Clause& c) { list.push_back(c); });
  return list;
}

int largest(const std::set<Clause>& clauses, int limit) {
  int result = 0;
  for (const Clause& c : clauses)
    for (const int x : {c.first, c.second, c.third})
      if (std::abs(x) <= limit) result = std::max(result, std::abs(x));
  return result;
}

class Defined : public testing::TestWithParam<int> {
 protected:
  void SetUp() override { clearStore(); }
};

TEST_P(Defined, InOrderWhateverTheFormula) {
  for (unsigned seed = 1; seed <= 60; ++seed) {
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    std::mt19937 random(seed);
    clearStore();
    const std::vector<BoolForm> pool =
        randomFormulas(random, GetParam(), 1 + static_cast<int>(random() % 300));
    Definitions definitions;
    Expected expected;
    for (unsigned roots = 1 + seed % 3; roots > 0; --roots) {
      const int root = std::abs(pool[random() % pool.size()].nr);
      if (!isNodeNr(root)) continue;
      definitions.add(root, BoolForm::tv);
      expected.add(root);
      const auto& clauses = expected.clauses;
      ASSERT_EQ(listOf(definitions), Clauses(clauses.begin(), clauses.end()));
      EXPECT_EQ(definitions.size(), clauses.size());
      EXPECT_EQ(definitions.maxVariable(), largest(clauses, 999999));
      EXPECT_EQ(definitions.maxLiteral(), largest(clauses, 2147483647));
    }
  }
}

TEST_P(Defined, KnowsItsClausesFromOthers) {
  std::mt19937 random(7);
  const std::vector<BoolForm> pool = randomFormulas(random, GetParam(), 60);
  Definitions definitions;
  Expected expected;
  const int root = std::abs(pool.back().nr);
  definitions.add(root, BoolForm::tv);
  expected.add(root);
  for (const Clause& c : expected.clauses) {
    EXPECT_TRUE(definitions.contains(c));
    for (int Clause::*slot : {&Clause::first, &Clause::second, &Clause::third}) {
      for (const int change : {-1, 1, -2 * (c.*slot)}) {
        Clause other = c;
        other.*slot += change;
        EXPECT_EQ(definitions.contains(other), expected.clauses.count(other) != 0);
      }
    }
  }
}

// What was inserted stands between the definitions, and once only where it is one of them.
TEST_P(Defined, OtherClausesTakeTheirPlaces) {
  for (unsigned seed = 1; seed <= 60; ++seed) {
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    std::mt19937 random(seed);
    clearStore();
    const std::vector<BoolForm> pool = randomFormulas(random, GetParam(), 40);
    Expected expected;
    ClauseSet cnf;
    const auto insertSome = [&] {
      for (int i = 0; i < 5; ++i) {
        const auto any = [&] { return pool[random() % pool.size()].nr; };
        const int a = any();
        const int b = any();
        const Clause c(a, -b, random() % 2 == 0 ? 0 : any());
        cnf.insert(c);
        expected.clauses.insert(c);
      }
    };
    insertSome();
    const int root = std::abs(pool.back().nr);
    if (isNodeNr(root)) {
      const Clause known = *std::next(expected.clauses.begin(), 2);
      expected.add(root);
      cnf.insertDefinitions(root, BoolForm::tv);
      cnf.insert(known);
      cnf.insert(*expected.clauses.begin());
      cnf.insert(*expected.clauses.rbegin());
    }
    insertSome();
    const auto& clauses = expected.clauses;
    ASSERT_EQ(listOf(cnf), Clauses(clauses.begin(), clauses.end()));
    EXPECT_EQ(cnf.size(), clauses.size());
    EXPECT_EQ(cnf.maxVariable(), largest(clauses, 999999));
    EXPECT_EQ(cnf.maxLiteral(), largest(clauses, 2147483647));
  }
}

INSTANTIATE_TEST_SUITE_P(Variables, Defined, testing::Values(2, 6, 200, 999999));

// On top of a chain whose steps are copied, formulas over whatever there is: what is asked of a
// path. The root is their conjunction, or a formula somewhere below, so that some copies, or parts
// of them, are not defined.
TEST_F(EmptyStore, DefinitionsOfCopiesTakeTheirPlaces) {
  for (unsigned seed = 1; seed <= 120; ++seed) {
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    std::mt19937 random(seed);
    clearStore();
    BoolForm whole = copiedChain(seed, 8 + static_cast<int>(random() % 40)).path;
    const int top = BoolForm::maxNr;
    for (auto n = random() % 60; n > 0; --n) {
      const unsigned variables = static_cast<unsigned>(top - varNrLimit) / 4;
      const BoolForm a = lit(node(1 + static_cast<int>(random() % BoolForm::tv.size())));
      const BoolForm b = lit(1 + static_cast<int>(random() % variables));
      whole = random() % 2 == 0 ? con(whole, dis(a, b)) : equ(whole, con(neg(b), a));
    }
    const int below = top - static_cast<int>(random() % (BoolForm::tv.size() / 2));
    for (const int root : {std::abs(whole.nr), below}) {
      Definitions definitions;
      Expected expected;
      definitions.add(root, BoolForm::tv, BoolForm::mti.copies());
      expected.add(root);
      const auto& clauses = expected.clauses;
      ASSERT_EQ(listOf(definitions), Clauses(clauses.begin(), clauses.end()));
      EXPECT_EQ(definitions.size(), clauses.size());
    }
  }
}

using DefinitionsDeathTest = EmptyStore;

TEST_F(DefinitionsDeathTest, OperandsAreAsTheConstructorsLeaveThem) {
  const BoolForm same(lit(5), lit(-5), bfCon);
  const BoolForm negated(lit(-4), lit(5), bfEqu);
  const BoolForm descending(lit(5), lit(4), bfEqu);
  Definitions definitions;
  EXPECT_DEATH(definitions.add(same.nr, BoolForm::tv),
               failedAssertion("std::abs(l) != std::abs(r)"));
  EXPECT_DEATH(definitions.add(negated.nr, BoolForm::tv), failedAssertion("0 < l && l < r"));
  EXPECT_DEATH(definitions.add(descending.nr, BoolForm::tv), failedAssertion("0 < l && l < r"));
}

}  // namespace

// Conversion to clauses: exact sets for small formulas, and agreement with the formula's value for
// random ones, over every assignment of problem variables and nodes.

#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "boolform/boolform.hpp"
#include "boolform/clause.hpp"
#include "tests/boolform/clauses.hpp"
#include "tests/boolform/evaluate.hpp"
#include "tests/boolform/store.hpp"

namespace {

using Clauses = std::vector<Clause>;

Clauses clausesOf(const BoolForm& f) {
  ClauseSet cnf;
  f.toCNF(cnf);
  return listOf(cnf);
}

// The set of the given clauses, as the conversion would leave it.
Clauses setOf(const Clauses& clauses) {
  ClauseSet cnf;
  for (const Clause& c : clauses) cnf.insert(c);
  return listOf(cnf);
}

using Cnf = EmptyStore;

TEST_F(Cnf, FalseIsTheEmptyClause) {
  EXPECT_EQ(clausesOf(BoolForm(false)), Clauses{slots(0, 0, 0)});
}

TEST_F(Cnf, TrueIsTheEmptySet) { EXPECT_EQ(clausesOf(BoolForm(true)), Clauses{}); }

TEST_F(Cnf, FalseReplacesTheClausesThatAreThere) {
  ClauseSet cnf;
  cnf.insert(Clause(1, 2, 3));
  BoolForm(false).toCNF(cnf);
  EXPECT_EQ(listOf(cnf), Clauses{slots(0, 0, 0)});
}

TEST_F(Cnf, TrueRemovesTheClausesThatAreThere) {
  ClauseSet cnf;
  cnf.insert(Clause(1, 2, 3));
  BoolForm(true).toCNF(cnf);
  EXPECT_TRUE(cnf.empty());
}

TEST_F(Cnf, VariableIsItsUnitClause) { EXPECT_EQ(clausesOf(lit(8)), Clauses{slots(0, 0, 8)}); }

TEST_F(Cnf, NegatedVariableIsItsUnitClause) {
  EXPECT_EQ(clausesOf(lit(-8)), Clauses{slots(0, 0, -8)});
}

TEST_F(Cnf, HighestVariableIsNoNode) {
  EXPECT_EQ(clausesOf(lit(-999999)), Clauses{slots(0, 0, -999999)});
}

TEST_F(Cnf, ConjunctionHasThreeClausesAndItsUnit) {
  EXPECT_EQ(clausesOf(con(lit(1), lit(2))),
            (Clauses{slots(-1, -2, 1000001), slots(0, 0, 1000001), slots(0, 1, -1000001),
                     slots(0, 2, -1000001)}));
}

TEST_F(Cnf, NegatedRootIsANegatedUnit) {
  EXPECT_EQ(clausesOf(neg(con(lit(1), lit(2)))),
            (Clauses{slots(-1, -2, 1000001), slots(0, 0, -1000001), slots(0, 1, -1000001),
                     slots(0, 2, -1000001)}));
}

TEST_F(Cnf, NegatedOperandsKeepTheirSign) {
  EXPECT_EQ(clausesOf(con(lit(-1), lit(2))),
            (Clauses{slots(0, -1, -1000001), slots(0, 0, 1000001), slots(0, 2, -1000001),
                     slots(1, -2, 1000001)}));
}

TEST_F(Cnf, EquivalenceHasFourClausesAndItsUnit) {
  EXPECT_EQ(clausesOf(equ(lit(1), lit(2))),
            (Clauses{slots(-1, -2, 1000001), slots(-1, 2, -1000001), slots(0, 0, 1000001),
                     slots(1, -2, -1000001), slots(1, 2, 1000001)}));
}

TEST_F(Cnf, SharedNodeIsDefinedOnce) {
  const BoolForm shared = con(lit(1), lit(2));
  const BoolForm same = equ(shared, lit(3));
  const BoolForm root = con(shared, same);
  const int s = shared.nr;
  const int e = same.nr;
  const int r = root.nr;
  EXPECT_EQ(clausesOf(root), setOf({{r, 0, 0},
                                    {-r, s, 0},
                                    {-r, e, 0},
                                    {-s, -e, r},
                                    {-e, -3, s},
                                    {-e, -s, 3},
                                    {3, s, e},
                                    {-3, -s, e},
                                    {-s, 1, 0},
                                    {-s, 2, 0},
                                    {-1, -2, s}}));
}

TEST_F(Cnf, NodesOutsideTheFormulaHaveNoClauses) {
  const BoolForm below = con(lit(4), lit(5));
  const BoolForm root = con(lit(1), lit(2));
  const BoolForm above = equ(root, below);
  ASSERT_LT(below.nr, root.nr);
  ASSERT_LT(root.nr, above.nr);
  const int r = root.nr;
  EXPECT_EQ(clausesOf(root), setOf({{r, 0, 0}, {-r, 1, 0}, {-r, 2, 0}, {-1, -2, r}}));
}

TEST_F(Cnf, AddsToTheClausesThatAreThere) {
  ClauseSet cnf;
  cnf.insert(Clause(7, 8, 9));
  lit(5).toCNF(cnf);
  con(lit(1), lit(2)).toCNF(cnf);
  EXPECT_EQ(listOf(cnf), setOf({{7, 8, 9},
                                {5, 0, 0},
                                {1000001, 0, 0},
                                {-1000001, 1, 0},
                                {-1000001, 2, 0},
                                {-1, -2, 1000001}}));
}

TEST_F(Cnf, ConvertingTwiceAddsNothing) {
  const BoolForm f = equ(lit(1), lit(2));
  ClauseSet cnf;
  f.toCNF(cnf);
  const Clauses once = listOf(cnf);
  f.toCNF(cnf);
  EXPECT_EQ(listOf(cnf), once);
}

TEST_F(Cnf, ConversionCreatesNoNode) {
  const BoolForm f = equ(lit(1), con(lit(2), lit(3)));
  const Keys before = BoolForm::tv;
  clausesOf(f);
  EXPECT_EQ(BoolForm::tv, before);
}

// One stack frame a level would not survive this.
TEST_F(Cnf, DeepFormulaIsConverted) {
  constexpr int levels = 400000;
  BoolForm f = lit(1);
  for (int i = 0; i < levels; ++i) f = con(neg(f), lit(2 + i % 2));
  ASSERT_EQ(BoolForm::tv.size(), static_cast<std::size_t>(levels));
  EXPECT_EQ(clausesOf(f).size(), 3U * levels + 1U);
}

TEST_F(Cnf, AddedUnitIsOneClause) {
  ClauseSet cnf;
  BoolForm(true).addVar(cnf, -6);
  EXPECT_EQ(listOf(cnf), Clauses{slots(0, 0, -6)});
}

TEST_F(Cnf, AddedConjunctionDoesNotDependOnTheFormula) {
  for (const BoolForm& f : {BoolForm(true), BoolForm(false), lit(-3)}) {
    ClauseSet cnf;
    f.addCon(cnf, 4, -5, 9);
    EXPECT_EQ(listOf(cnf), setOf({{-9, 4, 0}, {-9, -5, 0}, {-4, 5, 9}}));
  }
}

TEST_F(Cnf, AddedEquivalenceDoesNotDependOnTheFormula) {
  for (const BoolForm& f : {BoolForm(true), BoolForm(false), lit(-3)}) {
    ClauseSet cnf;
    f.addEqu(cnf, 4, 5, 9);
    EXPECT_EQ(listOf(cnf), setOf({{-9, -4, 5}, {-9, -5, 4}, {4, 5, 9}, {-4, -5, 9}}));
  }
}

TEST_F(Cnf, AddedNegationSaysThatTheTwoDiffer) {
  ClauseSet cnf;
  BoolForm(true).addNeg(cnf, 4, 9);
  EXPECT_EQ(listOf(cnf), setOf({{4, 9, 0}, {-4, -9, 0}}));
}

// --- Random formulas ---

constexpr int variables = 4;

// At most `steps` nodes over variables 1 .. 4; constants turn up as well.
BoolForm randomFormula(std::mt19937& random, int steps) {
  clearStore();
  std::vector<BoolForm> pool;
  for (int v = 1; v <= variables; ++v) pool.push_back(lit(v));
  const auto pick = [&] {
    const BoolForm f = pool[random() % pool.size()];
    return random() % 2 == 0 ? f : neg(f);
  };
  for (int i = 0; i < steps; ++i) {
    const BoolForm a = pick();
    const BoolForm b = random() % 2 == 0 ? pool.back() : pick();
    pool.push_back(random() % 2 == 0 ? con(a, b) : equ(a, b));
  }
  return random() % 2 == 0 ? pool.back() : neg(pool.back());
}

// Bit v - 1 of `bits` is variable v, bit 3 + k node k.
bool holds(int literal, unsigned bits) {
  const int v = std::abs(literal);
  const int at = v > varNrLimit ? variables - 1 + v - varNrLimit : v - 1;
  return ((bits >> at & 1U) != 0) == (literal > 0);
}

bool holdsOne(const Clause& c, unsigned bits) {
  for (const int literal : {c.first, c.second, c.third})
    if (literal != 0 && holds(literal, bits)) return true;
  return false;
}

bool holdAll(const Clauses& clauses, unsigned bits) {
  for (const Clause& c : clauses)
    if (!holdsOne(c, bits)) return false;
  return true;
}

// A solution gives every reachable node the value that the node has; the others are free.
void expectSolutionsAreModels(const BoolForm& f) {
  const Clauses clauses = clausesOf(f);
  const auto nodes = static_cast<int>(BoolForm::tv.size());
  for (unsigned problem = 0; problem < 1U << variables; ++problem) {
    const Evaluation at(assignmentOf(problem, variables));
    unsigned propagated = problem;
    for (int k = 1; k <= nodes; ++k)
      if (at(lit(node(k)))) propagated |= 1U << (variables - 1 + k);
    EXPECT_EQ(holdAll(clauses, propagated), at(f)) << f.nr << " under " << problem;
    if (at(f)) continue;
    for (unsigned other = 0; other < 1U << nodes; ++other)
      ASSERT_FALSE(holdAll(clauses, problem | other << variables)) << f.nr << " under " << problem;
  }
}

TEST_F(Cnf, SolutionsAreTheModelsOfRandomFormulas) {
  for (unsigned seed = 1; seed <= 300; ++seed) {
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    std::mt19937 random(seed);
    expectSolutionsAreModels(randomFormula(random, 1 + static_cast<int>(seed % 9)));
  }
}

}  // namespace

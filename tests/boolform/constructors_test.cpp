// The rules of the formula constructors, one by one. Operands come from a small set of constants,
// literals and nodes of both signs; what the results mean is truthtable_test.cpp's part.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <vector>

#include "boolform/boolform.hpp"
#include "tests/boolform/assertion.hpp"
#include "tests/boolform/store.hpp"

namespace {

const BoolForm F(false);
const BoolForm T(true);

class Constructors : public EmptyStore {
 protected:
  void SetUp() override {
    EmptyStore::SetUp();
    const BoolForm both = con(lit(1), lit(2));
    const BoolForm same = equ(lit(2), lit(3));
    for (const int nr : {1, 2, 3, 999999, both.nr, same.nr}) {
      operands.push_back(lit(nr));
      operands.push_back(lit(-nr));
    }
  }

  // Calls `check` for every pair of operands that are neither equal nor complementary.
  template <class Check>
  void forUnrelated(Check check) const {
    for (const BoolForm& a : operands)
      for (const BoolForm& b : operands)
        if (std::abs(a.nr) != std::abs(b.nr)) check(a, b);
  }

  std::vector<BoolForm> operands;  // no constants
};
using ConstructorsDeathTest = Constructors;

TEST_F(Constructors, NegationSwapsTheConstants) {
  EXPECT_EQ(neg(F), T);
  EXPECT_EQ(neg(T), F);
}

TEST_F(Constructors, NegationIsTheSign) {
  for (const BoolForm& a : operands) EXPECT_EQ(neg(a).nr, -a.nr);
}

TEST_F(Constructors, DoubleNegationIsTheOperand) {
  for (const BoolForm& a : operands) EXPECT_EQ(neg(neg(a)), a);
  EXPECT_EQ(neg(neg(T)), T);
  EXPECT_EQ(neg(neg(F)), F);
}

TEST_F(Constructors, ConjunctionDropsTrue) {
  for (const BoolForm& a : operands) {
    EXPECT_EQ(con(T, a), a);
    EXPECT_EQ(con(a, T), a);
  }
}

TEST_F(Constructors, ConjunctionWithFalseIsFalse) {
  for (const BoolForm& a : operands) {
    EXPECT_EQ(con(F, a), F);
    EXPECT_EQ(con(a, F), F);
  }
}

TEST_F(Constructors, ConjunctionOfEqualsIsTheOperand) {
  for (const BoolForm& a : operands) EXPECT_EQ(con(a, a), a);
}

TEST_F(Constructors, ConjunctionOfComplementsIsFalse) {
  for (const BoolForm& a : operands) EXPECT_EQ(con(a, neg(a)), F);
}

TEST_F(Constructors, ConjunctionOrdersOperandsAsSignedNumbers) {
  forUnrelated([](const BoolForm& a, const BoolForm& b) {
    const auto [low, high] = std::minmax({a.nr, b.nr});
    EXPECT_EQ(keyOf(con(a, b)), conKey(low, high));
  });
}

TEST_F(Constructors, ConjunctionKeepsSignsInItsKey) {
  const BoolForm first = con(lit(7), lit(-3));
  const BoolForm second = con(lit(-3), lit(7));
  EXPECT_EQ(first, second);
  EXPECT_EQ(keyOf(first), conKey(-3, 7));
}

TEST_F(Constructors, DisjunctionDropsFalse) {
  for (const BoolForm& a : operands) {
    EXPECT_EQ(dis(F, a), a);
    EXPECT_EQ(dis(a, F), a);
  }
}

TEST_F(Constructors, DisjunctionWithTrueIsTrue) {
  for (const BoolForm& a : operands) {
    EXPECT_EQ(dis(T, a), T);
    EXPECT_EQ(dis(a, T), T);
  }
}

TEST_F(Constructors, DisjunctionOfEqualsIsTheOperand) {
  for (const BoolForm& a : operands) EXPECT_EQ(dis(a, a), a);
}

TEST_F(Constructors, DisjunctionOfComplementsIsTrue) {
  for (const BoolForm& a : operands) EXPECT_EQ(dis(a, neg(a)), T);
}

TEST_F(Constructors, DisjunctionIsTheNegatedConjunctionOfNegations) {
  forUnrelated([](const BoolForm& a, const BoolForm& b) {
    const BoolForm either = dis(a, b);
    ASSERT_LT(either.nr, -varNrLimit);
    const auto [low, high] = std::minmax({-a.nr, -b.nr});
    EXPECT_EQ(keyOf(neg(either)), conKey(low, high));
  });
}

TEST_F(Constructors, EquivalenceWithTrueIsTheOperand) {
  for (const BoolForm& a : operands) {
    EXPECT_EQ(equ(T, a), a);
    EXPECT_EQ(equ(a, T), a);
  }
}

TEST_F(Constructors, EquivalenceWithFalseIsTheNegation) {
  for (const BoolForm& a : operands) {
    EXPECT_EQ(equ(F, a), neg(a));
    EXPECT_EQ(equ(a, F), neg(a));
  }
}

TEST_F(Constructors, EquivalenceOfEqualsIsTrue) {
  for (const BoolForm& a : operands) EXPECT_EQ(equ(a, a), T);
}

TEST_F(Constructors, EquivalenceOfComplementsIsFalse) {
  for (const BoolForm& a : operands) EXPECT_EQ(equ(a, neg(a)), F);
}

TEST_F(Constructors, EquivalenceNodeHasOrderedPositiveOperands) {
  forUnrelated([](const BoolForm& a, const BoolForm& b) {
    const auto [low, high] = std::minmax({std::abs(a.nr), std::abs(b.nr)});
    EXPECT_EQ(keyOf(lit(std::abs(equ(a, b).nr))), equKey(low, high));
  });
}

TEST_F(Constructors, EquivalenceIsNegatedWhereTheSignsDiffer) {
  forUnrelated([](const BoolForm& a, const BoolForm& b) {
    EXPECT_EQ(equ(a, b).nr < 0, (a.nr < 0) != (b.nr < 0));
  });
}

TEST_F(Constructors, EquivalenceOfNegationsIsThatOfTheOperands) {
  const BoolForm same = equ(lit(-5), lit(-3));
  EXPECT_EQ(keyOf(same), equKey(3, 5));
  EXPECT_EQ(equ(lit(3), lit(5)), same);
  EXPECT_EQ(equ(lit(5), lit(-3)), neg(same));
  EXPECT_EQ(equ(lit(-5), lit(3)), neg(same));
}

TEST_F(Constructors, ImplicationFromTrueIsTheConclusion) {
  for (const BoolForm& a : operands) EXPECT_EQ(imp(T, a), a);
}

TEST_F(Constructors, ImplicationFromFalseIsTrue) {
  for (const BoolForm& a : operands) EXPECT_EQ(imp(F, a), T);
}

TEST_F(Constructors, ImplicationOfFalseIsTheNegation) {
  for (const BoolForm& a : operands) EXPECT_EQ(imp(a, F), neg(a));
}

TEST_F(Constructors, ImplicationOfTrueIsTrue) {
  for (const BoolForm& a : operands) EXPECT_EQ(imp(a, T), T);
}

TEST_F(Constructors, ImplicationOfEqualsIsTrue) {
  for (const BoolForm& a : operands) EXPECT_EQ(imp(a, a), T);
}

TEST_F(Constructors, ImplicationOfTheNegationIsFalse) {
  for (const BoolForm& a : operands) EXPECT_EQ(imp(a, neg(a)), F);
}

TEST_F(Constructors, ImplicationIsADisjunction) {
  forUnrelated([](const BoolForm& a, const BoolForm& b) {
    const BoolForm follows = imp(a, b);
    EXPECT_EQ(follows, dis(neg(a), b));
  });
}

TEST_F(Constructors, NonEquivalenceIsTheNegatedEquivalence) {
  forUnrelated([](const BoolForm& a, const BoolForm& b) {
    const BoolForm differ = notequ(a, b);
    EXPECT_EQ(differ, neg(equ(a, b)));
  });
}

TEST_F(Constructors, NonEquivalenceOfEqualsIsFalse) {
  for (const BoolForm& a : operands) EXPECT_EQ(notequ(a, a), F);
}

TEST_F(Constructors, NonEquivalenceOfComplementsIsTrue) {
  for (const BoolForm& a : operands) EXPECT_EQ(notequ(a, neg(a)), T);
}

TEST_F(Constructors, ConstantOperandsCreateNoNode) {
  const std::size_t before = BoolForm::tv.size();
  for (const BoolForm& a : operands)
    for (const BoolForm& k : {T, F})
      for (auto* build : {con, dis, equ, imp, notequ}) {
        build(a, k);
        build(k, a);
      }
  EXPECT_EQ(BoolForm::tv.size(), before);
}

TEST_F(Constructors, RelatedOperandsCreateNoNode) {
  const std::size_t before = BoolForm::tv.size();
  for (const BoolForm& a : operands)
    for (auto* build : {con, dis, equ, imp, notequ}) {
      build(a, a);
      build(a, neg(a));
    }
  EXPECT_EQ(BoolForm::tv.size(), before);
}

TEST_F(Constructors, OneCallCreatesAtMostOneNode) {
  forUnrelated([](const BoolForm& a, const BoolForm& b) {
    for (auto* build : {con, dis, equ, imp, notequ}) {
      const std::size_t before = BoolForm::tv.size();
      build(a, b);
      EXPECT_LE(BoolForm::tv.size(), before + 1);
    }
  });
}

TEST_F(Constructors, SubstitutionKeepsConstants) {
  EXPECT_EQ(value(T, 1, false), T);
  EXPECT_EQ(value(F, 1, true), F);
  EXPECT_EQ(value(F, 0, true), F);
}

TEST_F(Constructors, SubstitutionReplacesTheVariable) {
  EXPECT_EQ(value(lit(4), 4, true), T);
  EXPECT_EQ(value(lit(4), 4, false), F);
}

TEST_F(Constructors, SubstitutionKeepsOtherVariables) { EXPECT_EQ(value(lit(5), 4, true), lit(5)); }

TEST_F(Constructors, SubstitutionKeepsNegatedOccurrences) {
  EXPECT_EQ(value(lit(-4), 4, true), lit(-4));
  EXPECT_EQ(value(lit(-4), 4, false), lit(-4));
}

TEST_F(Constructors, SubstitutionKeepsNegatedNodes) {
  const BoolForm either = dis(lit(1), lit(2));
  EXPECT_EQ(value(either, 1, true), either);
}

TEST_F(ConstructorsDeathTest, SubstitutionInANodeIsRefused) {
  EXPECT_DEATH(static_cast<void>(value(con(lit(1), lit(2)), 1, true)),
               failedAssertion("f.nr <= varNrLimit"));
}

}  // namespace

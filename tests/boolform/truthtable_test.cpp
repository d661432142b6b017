// The constructors against truth tables: every pair of a set of constants, literals and nodes of
// several levels, under every assignment; and the shape of every node that comes of it.

#include <gtest/gtest.h>

#include <cstdlib>
#include <set>
#include <vector>

#include "boolform/boolform.hpp"
#include "tests/boolform/evaluate.hpp"
#include "tests/boolform/store.hpp"

namespace {

constexpr int variables = 3;

class TruthTable : public EmptyStore {
 protected:
  void SetUp() override {
    EmptyStore::SetUp();
    const BoolForm both = con(lit(1), lit(2));
    const BoolForm differ = con(lit(-1), lit(3));
    const BoolForm same = equ(lit(1), lit(2));
    const BoolForm deepCon = con(both, neg(same));
    const BoolForm deepEqu = equ(differ, deepCon);
    operands = {BoolForm(false), BoolForm(true)};
    for (const BoolForm& f : {lit(1), lit(2), lit(3), both, differ, same, deepCon, deepEqu}) {
      operands.push_back(f);
      operands.push_back(neg(f));
    }
  }

  template <class Build, class Meaning>
  void expectMeaning(Build build, Meaning meaning) const {
    for (const BoolForm& a : operands)
      for (const BoolForm& b : operands) expectSameTable(a, b, build(a, b), meaning);
  }

  std::vector<BoolForm> operands;

 private:
  template <class Meaning>
  static void expectSameTable(const BoolForm& a, const BoolForm& b, const BoolForm& f,
                              Meaning meaning) {
    for (unsigned bits = 0; bits < 1U << variables; ++bits) {
      const Evaluation at(assignmentOf(bits, variables));
      EXPECT_EQ(at(f), meaning(at(a), at(b))) << a.nr << " and " << b.nr << " under " << bits;
    }
  }
};

TEST_F(TruthTable, NegationIsNot) {
  expectMeaning([](const BoolForm& a, const BoolForm&) { return neg(a); },
                [](bool a, bool) { return !a; });
}

TEST_F(TruthTable, ConjunctionIsAnd) {
  expectMeaning(con, [](bool a, bool b) { return a && b; });
}

TEST_F(TruthTable, DisjunctionIsOr) {
  expectMeaning(dis, [](bool a, bool b) { return a || b; });
}

TEST_F(TruthTable, EquivalenceIsEquality) {
  expectMeaning(equ, [](bool a, bool b) { return a == b; });
}

TEST_F(TruthTable, NonEquivalenceIsInequality) {
  expectMeaning(notequ, [](bool a, bool b) { return a != b; });
}

// A formula and its own negation are the exception, tested with the rules.
TEST_F(TruthTable, ImplicationIsMaterialImplication) {
  const auto build = [](const BoolForm& a, const BoolForm& b) {
    const bool constant = a == BoolForm(true) || a == BoolForm(false);
    return !constant && a.isNeg(b) ? b : imp(a, b);
  };
  expectMeaning(build, [](bool a, bool b) { return !a || b; });
}

TEST_F(TruthTable, AllConnectivesButImplicationCommute) {
  for (const BoolForm& a : operands)
    for (const BoolForm& b : operands)
      for (auto* build : {con, dis, equ, notequ}) {
        const BoolForm ab = build(a, b);
        EXPECT_EQ(ab, build(b, a));
      }
}

class NodeShape : public TruthTable {
 protected:
  void SetUp() override {
    TruthTable::SetUp();
    for (const BoolForm& a : operands)
      for (const BoolForm& b : operands)
        for (auto* build : {con, dis, equ, imp, notequ}) build(a, b);
    ASSERT_GT(BoolForm::tv.size(), 100U);
  }
};

TEST_F(NodeShape, NoNodeHasAConstantOperand) {
  for (const Triple& key : BoolForm::tv)
    for (const int operand : {key.left, key.right}) {
      EXPECT_NE(operand, BoolForm::falseNr);
      EXPECT_NE(operand, BoolForm::trueNr);
    }
}

TEST_F(NodeShape, NoNodeHasEqualOrComplementaryOperands) {
  for (const Triple& key : BoolForm::tv) EXPECT_NE(std::abs(key.left), std::abs(key.right));
}

TEST_F(NodeShape, OperandsStandInAscendingOrder) {
  for (const Triple& key : BoolForm::tv) EXPECT_LT(key.left, key.right);
}

TEST_F(NodeShape, EquivalencesHaveNoNegatedOperand) {
  for (const Triple& key : BoolForm::tv) EXPECT_TRUE(key.op == bfCon || key.left > 0);
}

TEST_F(NodeShape, OperandsAreOlderThanTheirNode) {
  for (std::size_t i = 0; i < BoolForm::tv.size(); ++i)
    for (const int operand : {BoolForm::tv[i].left, BoolForm::tv[i].right})
      EXPECT_LT(std::abs(operand), NodeIndex::firstNr + static_cast<int>(i));
}

TEST_F(NodeShape, EveryKeyOccursOnce) {
  const std::set<Triple> keys(BoolForm::tv.begin(), BoolForm::tv.end());
  EXPECT_EQ(keys.size(), BoolForm::tv.size());
}

}  // namespace

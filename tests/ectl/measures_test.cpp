// Path count, operator counts, proposition sets, disjunction and equality of properties.

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "ectl/ectlform.hpp"

namespace {

int pathCount(const std::string& text, int k) { return EctlForm(text).getSpecLen(k); }

std::set<int> propositionsOf(const EctlForm& f) {
  std::set<int> numbers{-1, 99};
  f.createVarNumbers(numbers);
  return numbers;
}

std::string shown(const EctlForm& f) {
  testing::internal::CaptureStdout();
  f.show();
  return testing::internal::GetCapturedStdout();
}

// --- Path count. ---

TEST(PathCount, AtomsNeedNoPath) {
  EXPECT_EQ(pathCount("p1", 3), 0);
  EXPECT_EQ(pathCount("T", 3), 0);
  EXPECT_EQ(pathCount("p1p-2+T&", 3), 0);
}

TEST(PathCount, EveryTemporalOperatorNeedsOnePath) {
  for (const std::string op : {"EX", "EG", "EF", "EK"}) EXPECT_EQ(pathCount("p1" + op, 3), 1) << op;
  EXPECT_EQ(pathCount("Tp1EU", 3), 1);
}

TEST(PathCount, NextNeedsOneMoreThanItsOperand) { EXPECT_EQ(pathCount("p1EXEXEX", 3), 3); }

TEST(PathCount, GloballyFinallyAndKNeedTheOperandInEveryState) {
  for (const std::string op : {"EG", "EF", "EK"}) EXPECT_EQ(pathCount("p1EX" + op, 3), 5) << op;
}

TEST(PathCount, UntilNeedsItsLeftOperandInAllStatesButOne) {
  EXPECT_EQ(pathCount("p1EXp2EU", 3), 4);
  EXPECT_EQ(pathCount("p1p2EXEU", 3), 2);
  EXPECT_EQ(pathCount("p1EXp2EXEXEU", 3), 6);
}

TEST(PathCount, ConjunctionAdds) { EXPECT_EQ(pathCount("p1EFp2EF&", 3), 2); }

TEST(PathCount, DisjunctionTakesTheLarger) {
  EXPECT_EQ(pathCount("p1EFp2EF+", 3), 1);
  EXPECT_EQ(pathCount("p1EXEXp2EX+", 3), 2);
  EXPECT_EQ(pathCount("p1EXp2EXEX+", 3), 2);
}

TEST(PathCount, NullNeedsNothing) { EXPECT_EQ(EctlForm::specLen(3, nullptr), 0); }

TEST(PathCount, NoOperatorNeedsNothing) {
  const Node none{EctlOper::none, 0, nullptr, nullptr};
  EXPECT_EQ(EctlForm::specLen(3, &none), 0);
}

TEST(PathCount, LargeCountsWrapRound) {
  EXPECT_EQ(pathCount("p1EFEFEF", 65535), 65537);           // 2^32 + 2^16 + 1
  EXPECT_EQ(pathCount("p1EXEF", 2147483647), -2147483647);  // 2^31 + 1
}

// --- Operator counts. ---

TEST(OperatorCount, AtomsCountNothing) {
  for (const std::string text : {"", "T", "p1", "p-2"}) {
    EXPECT_EQ(EctlForm(text).length(), 0) << text;
    EXPECT_EQ(EctlForm(text).temporalLength(), 0) << text;
  }
}

TEST(OperatorCount, TemporalOperatorsAreCountedApart) {
  EXPECT_EQ(EctlForm("p1p2&EF").length(), 2);
  EXPECT_EQ(EctlForm("p1p2&EF").temporalLength(), 1);
  EXPECT_EQ(EctlForm("p1EGp2EXEUEFEKT+").length(), 6);
  EXPECT_EQ(EctlForm("p1EGp2EXEUEFEKT+").temporalLength(), 5);
}

TEST(OperatorCount, LettersAreCountedWithoutParsing) {
  EctlForm f("p1");
  f.left = "CD&+GXUFKEZ (";
  EXPECT_EQ(f.length(), 9);
  EXPECT_EQ(f.temporalLength(), 5);
}

// --- Propositions. ---

TEST(Propositions, EachNumberIsNamedOnce) {
  EXPECT_EQ(propositionsOf(EctlForm("p3p-3&p12+")), (std::set<int>{3, 12}));
}

TEST(Propositions, SetIsEmptiedFirst) {
  EXPECT_EQ(propositionsOf(EctlForm("TEF")), std::set<int>());
  EXPECT_EQ(propositionsOf(EctlForm("")), std::set<int>());
}

TEST(Propositions, MissingDigitsAreNumberZero) {
  EXPECT_EQ(propositionsOf(EctlForm("pp-7&")), (std::set<int>{0, 7}));
}

// The text of an atom ends with its letter once more.
TEST(Propositions, AtomOnTopBringsNumberZeroWithIt) {
  EXPECT_EQ(propositionsOf(EctlForm("p3")), (std::set<int>{0, 3}));
}

TEST(Propositions, OtherCharactersAreSkipped) {
  EctlForm f("p1EF");
  f.left = "x p4 (p-5) 6";
  EXPECT_EQ(propositionsOf(f), (std::set<int>{4, 5}));
}

// --- Disjunction. ---

TEST(Disjunction, PrintsBothOperandsAndPlus) {
  EXPECT_EQ(shown(dis(EctlForm("p1EF"), EctlForm("p2p3&"))), "p1EFp2p3&+\n\n");
}

TEST(Disjunction, KeepsTheOperandTextsApart) {
  EctlForm f("p1p2EU");
  f.dis(EctlForm("p3EX"));
  EXPECT_EQ(f.op, EctlOper::disj);
  EXPECT_EQ(f.left, "p1p2EU");
  EXPECT_EQ(f.right, "p3EX");
}

TEST(Disjunction, LeavesTheItemsAsTheyWere) {
  EctlForm f("p1EF");
  f.varNr = 7;
  f.dis(EctlForm("p2p3&"));
  ASSERT_EQ(f.onp.size(), 2U);
  EXPECT_EQ(f.onp[0].arg, 1);
  EXPECT_EQ(f.onp[1].op, EctlOper::existsFinally);
  EXPECT_EQ(f.varNr, 7);
}

TEST(Disjunction, OfAFormulaWithItselfRepeatsItsText) {
  EctlForm f("p1EF");
  f.dis(f);
  EXPECT_EQ(f.left, "p1EF");
  EXPECT_EQ(f.right, "p1EF");
}

TEST(Disjunction, LeavesItsOperandsUntouched) {
  const EctlForm f("p1EF");
  const EctlForm g("p2EF");
  dis(f, g);
  EXPECT_EQ(f.op, EctlOper::existsFinally);
  EXPECT_EQ(g.left, "p2");
}

// --- Equality. ---

TEST(FormulaEquality, HoldsForTheSameText) {
  EXPECT_TRUE(EctlForm("p1p2&EF") == EctlForm("p1p2&EF"));
}

TEST(FormulaEquality, ComparesOperatorAndBothTexts) {
  const EctlForm f("p1p2&");
  EXPECT_FALSE(f == EctlForm("p1p2+"));
  EXPECT_FALSE(f == EctlForm("p3p2&"));
  EXPECT_FALSE(f == EctlForm("p1p3&"));
}

TEST(FormulaEquality, ComparesTextsAsWritten) { EXPECT_FALSE(EctlForm("p7") == EctlForm("p07")); }

TEST(FormulaEquality, IgnoresItemsAndVariableCount) {
  EctlForm f("p1p2&");
  f.onp.clear();
  f.varNr = 5;
  EXPECT_TRUE(f == EctlForm("p1p2&"));
}

}  // namespace

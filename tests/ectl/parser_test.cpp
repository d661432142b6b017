// From the property's text to its postfix items, its top operator and the texts of its operands.

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "ectl/ectlform.hpp"
#include "tests/ectl/standstill.hpp"

namespace {

using Item = std::pair<std::string, int>;  // operator text, argument
using Items = std::vector<Item>;

Items itemsOf(const EctlForm& f) {
  Items items;
  for (const OnpNode& item : f.onp) items.emplace_back(operStr(item.op), item.arg);
  return items;
}

struct Top {
  EctlOper op;
  std::string left;
  std::string right;
  friend bool operator==(const Top&, const Top&) = default;
};

Top topOf(const std::string& text) {
  const EctlForm f(text);
  return {f.op, f.left, f.right};
}

// --- Items. ---

TEST(Parser, EveryTokenBecomesAnItem) {
  EXPECT_EQ(itemsOf(EctlForm("p1p-2&EF")), (Items{{"p", 1}, {"p-", 2}, {"&", 0}, {"EF", 0}}));
  EXPECT_EQ(itemsOf(EctlForm("Tp3EU")), (Items{{"T", 0}, {"p", 3}, {"EU", 0}}));
}

TEST(Parser, UnaryOperatorsAreTold) {
  EXPECT_EQ(itemsOf(EctlForm("p1EGEXEFEK")),
            (Items{{"p", 1}, {"EG", 0}, {"EX", 0}, {"EF", 0}, {"EK", 0}}));
}

TEST(Parser, NumberEndsWhereTheDigitsDo) {
  EXPECT_EQ(itemsOf(EctlForm("p12p-34Tp5")), (Items{{"p", 12}, {"p-", 34}, {"T", 0}, {"p", 5}}));
}

TEST(Parser, PropositionWithoutDigitsIsNumberZero) {
  EXPECT_EQ(itemsOf(EctlForm("p")), (Items{{"p", 0}}));
  EXPECT_EQ(itemsOf(EctlForm("p-")), (Items{{"p-", 0}}));
  EXPECT_EQ(itemsOf(EctlForm("pp-&")), (Items{{"p", 0}, {"p-", 0}, {"&", 0}}));
}

TEST(Parser, LeadingZerosDoNotCount) {
  EXPECT_EQ(itemsOf(EctlForm("p007")), (Items{{"p", 7}}));
  EXPECT_EQ(EctlForm("p007").left, "p007");
}

TEST(Parser, LargestNumberIsKept) {
  EXPECT_EQ(itemsOf(EctlForm("p2147483647")), (Items{{"p", 2147483647}}));
}

TEST(Parser, LargerNumbersWrapRound) {
  EXPECT_EQ(itemsOf(EctlForm("p4294967299")), (Items{{"p", 3}}));
  EXPECT_EQ(itemsOf(EctlForm("p-4294967295")), (Items{{"p-", -1}}));
}

TEST(Parser, EmptyTextHasNoOperatorAndNoItems) {
  EXPECT_EQ(topOf(""), (Top{EctlOper::none, "", ""}));
  EXPECT_TRUE(EctlForm("").onp.empty());
}

// --- Top operator and operands. ---

TEST(Parser, AtomIsItsOwnLeftText) {
  EXPECT_EQ(topOf("T"), (Top{EctlOper::truth, "T", ""}));
  EXPECT_EQ(topOf("p31"), (Top{EctlOper::prop, "p31", ""}));
  EXPECT_EQ(topOf("p-004"), (Top{EctlOper::negProp, "p-004", ""}));
}

TEST(Parser, UnaryOperatorKeepsItsOperandLeft) {
  EXPECT_EQ(topOf("p1p-2&EF"), (Top{EctlOper::existsFinally, "p1p-2&", ""}));
}

TEST(Parser, BinaryOperatorKeepsBothOperands) {
  EXPECT_EQ(topOf("Tp3EU"), (Top{EctlOper::existsUntil, "T", "p3"}));
  EXPECT_EQ(topOf("p1EXp2p3&+"), (Top{EctlOper::disj, "p1EX", "p2p3&"}));
  EXPECT_EQ(topOf("p1p2+p3&"), (Top{EctlOper::conj, "p1p2+", "p3"}));
}

TEST(Parser, LastTokenIsTheTopThoughTextsAreLeftOver) {
  EXPECT_EQ(topOf("p1p2&p3"), (Top{EctlOper::prop, "p3", ""}));
  EXPECT_EQ(topOf("p1p2p3&"), (Top{EctlOper::conj, "p2", "p3"}));
  EXPECT_EQ(itemsOf(EctlForm("p1p2p3&")).size(), 4U);
}

TEST(Parser, OperandsAreParsedAnew) {
  const EctlForm f("p1EXp-2&");
  EXPECT_EQ(itemsOf(f.getLeft()), (Items{{"p", 1}, {"EX", 0}}));
  EXPECT_EQ(itemsOf(f.getRight()), (Items{{"p-", 2}}));
  EXPECT_EQ(f.getOp(), EctlOper::conj);
}

TEST(Parser, RightOperandOfAUnaryOperatorIsEmpty) {
  EXPECT_EQ(EctlForm("p1EX").getRight().getOp(), EctlOper::none);
}

TEST(Parser, VariableCountStartsAtZero) { EXPECT_EQ(EctlForm("p1p2&").varNr, 0); }

TEST(Parser, CopyIsIndependent) {
  EctlForm original("p1p2&");
  const EctlForm copy = original;
  original = EctlForm("T");
  EXPECT_EQ(copy.left, "p1");
  EXPECT_EQ(copy.onp.size(), 3U);
}

TEST(Parser, LongPropertyIsParsed) {
  std::string text = "p0";
  for (int i = 1; i <= 100000; ++i) text += "p" + std::to_string(i) + "&";
  const EctlForm f(text);
  EXPECT_EQ(f.onp.size(), 200001U);
  EXPECT_EQ(f.right, "p100000");
  EXPECT_EQ(f.left + f.right + "&", text);
}

// --- The number of an atom. ---

TEST(PropositionNumber, IsReadFromTheAtomsText) {
  EXPECT_EQ(EctlForm("p17").getVarNr(), 17);
  EXPECT_EQ(EctlForm("p-17").getVarNr(), 17);
  EXPECT_EQ(EctlForm("p007").getVarNr(), 7);
  EXPECT_EQ(EctlForm("p").getVarNr(), 0);
}

TEST(PropositionNumber, IsZeroWithoutAnAtomOnTop) {
  for (const std::string text : {"", "T", "p5EF", "p5p6&", "p5p6EU"})
    EXPECT_EQ(EctlForm(text).getVarNr(), 0) << text;
}

TEST(PropositionNumber, EndsAtTheFirstOtherCharacter) {
  EctlForm f("p1");
  f.left = "p23x4";
  EXPECT_EQ(f.getVarNr(), 23);
}

TEST(PropositionNumber, IsZeroWhereTheTextIsNoProposition) {
  EctlForm f("p1");
  for (const std::string text : {"", "23", "-23", "x23"}) {
    f.left = text;
    EXPECT_EQ(f.getVarNr(), 0) << text;
  }
}

// --- Texts that are no property. ---

TEST(Parser, StrayEIsSkipped) {
  EXPECT_EQ(topOf("Ep1"), (Top{EctlOper::prop, "p1", ""}));
  EXPECT_EQ(topOf("p1Ep2E&"), (Top{EctlOper::conj, "p1", "p2"}));
  EXPECT_EQ(topOf("EEp1EX"), (Top{EctlOper::existsNext, "p1", ""}));
}

TEST(Parser, OperandsTextsAreWithoutAStrayE) {
  EXPECT_EQ(topOf("Ep1EEp-02E&EEp3E+E"), (Top{EctlOper::disj, "p1p-02&", "p3"}));
}

TEST(Parser, StrayEAtTheEndIsSkipped) {
  EXPECT_EQ(topOf("p1E"), (Top{EctlOper::prop, "p1", ""}));
  EXPECT_EQ(topOf("E"), (Top{EctlOper::none, "", ""}));
}

void expectNeverParsed(const std::string& text) {
  SCOPED_TRACE(text);
  expectStandstill([&] { return EctlForm(text); });
}

TEST(ParserDeathTest, UnknownCharacterIsNeverPassed) {
  for (const std::string text : {"p1 p2&", "7", "(p1)", "p1\r", "p1\tEF", "-"})
    expectNeverParsed(text);
}

TEST(ParserDeathTest, SecondSpellingsAreNeverPassed) {
  expectNeverParsed("p1p2C");
  expectNeverParsed("p1p2D");
}

TEST(ParserDeathTest, CharacterAfterAStrayEIsExaminedOnItsOwn) { expectNeverParsed("EZp1"); }

// What the parser says of a property that it refuses.
std::string refusalOf(const std::string& text) {
  try {
    const EctlForm formula(text);
  } catch (const MissingOperand& refusal) {
    return refusal.what();
  }
  return "";
}

TEST(Parser, MissingOperandIsRefused) {
  for (const std::string op : {"&", "+", "EU", "EG", "EX", "EF", "EK"})
    EXPECT_EQ(refusalOf(op), "property: operator \"" + op + "\" lacks an operand");
}

TEST(Parser, OneOperandIsNotEnoughForABinaryOperator) {
  for (const std::string text : {"p1&", "p1+", "TEU", "p1p2&+"})
    EXPECT_THROW(EctlForm{text}, MissingOperand) << text;
}

// --- Items that were read elsewhere. ---

std::vector<OnpNode> nodesOf(const EctlForm& f) { return {f.onp.begin(), f.onp.end()}; }

TEST(ItemParser, FormulaIsThatOfTheText) {
  for (const std::string text : {"", "T", "p1", "p-0", "p1p-2&EF", "Tp3EU", "p1p2p3&+EXEG", "p1p2",
                                 "p1EKp2&", "p4294967295", "TT+T&"}) {
    const EctlForm read(text);
    const EctlForm made(nodesOf(read));
    EXPECT_TRUE(made == read) << text;
    EXPECT_EQ(made.onp, read.onp) << text;
    EXPECT_EQ(made.varNr, 0) << text;
  }
}

TEST(ItemParser, PropositionIsWrittenAsItsNumber) {
  const EctlForm f(std::vector<OnpNode>{{EctlOper::prop, 7}, {EctlOper::existsFinally, 0}});
  EXPECT_EQ(f.left, "p7");
  EXPECT_EQ(f.getLeft().getVarNr(), 7);
}

TEST(ItemParser, MissingOperandIsRefused) {
  EXPECT_THROW(EctlForm(std::vector<OnpNode>{{EctlOper::conj, 0}}), MissingOperand);
  EXPECT_THROW(EctlForm(std::vector<OnpNode>{{EctlOper::truth, 0}, {EctlOper::existsUntil, 0}}),
               MissingOperand);
}

}  // namespace

// The strict reader of properties, and what both files say together.

#include "workbench/network/propertyreader.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "tests/workbench/network/strictly.hpp"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(ReadProperty, TakesItemsInPostfixOrder) {
  const Found found = inProperty("\np1p-020&T+\n");
  ASSERT_TRUE(found.property);
  using Item = tpn::PropertyItem;
  EXPECT_THAT(
      found.property->items,
      ElementsAre(Item{Item::proposition, 1}, Item{Item::negated, 20}, Item{Item::conjunction, 0},
                  Item{Item::truth, 0}, Item{Item::disjunction, 0}));
  EXPECT_EQ(found.property->text, "p1p-020&T+");
  EXPECT_EQ(found.property->line, 2);
  EXPECT_THAT(found.diagnostics, IsEmpty());
}

TEST(ReadProperty, SaysNothingOfRemarksBehindIt) {
  for (const std::string fine : {"p1", "p1\n\nsome remark\np2\n", "p1\n \np2&\n", "p1\nE\n"})
    EXPECT_THAT(inProperty(fine).diagnostics, IsEmpty()) << fine;
}

TEST(ReadProperty, FindsAllMistakesInOneGo) {
  const Found found = inProperty(" p1 &pEZp4294967296C\rEFp2p3");
  EXPECT_EQ(found.ids(), (Ids{{1, "unknown-character"},
                              {1, "unknown-character"},
                              {1, "operand-missing"},
                              {1, "proposition-without-number"},
                              {1, "unknown-operator"},
                              {1, "unknown-character"},
                              {1, "proposition-too-large"},
                              {1, "unknown-character"},
                              {1, "property-carriage-return"},
                              {1, "temporal-operator"},
                              {1, "operands-left"}}));
}

TEST(ReadProperty, GoesOnBehindALineOfBlanks) {
  EXPECT_EQ(inProperty("\r\np1EF\r\n").ids(), (Ids{{1, "property-carriage-return"},
                                                   {2, "temporal-operator"},
                                                   {2, "property-carriage-return"}}));
}

TEST(ReadProperty, LargestPropositionIsInRange) {
  EXPECT_THAT(inProperty("p2147483647").diagnostics, IsEmpty());
  EXPECT_EQ(inProperty("p2147483648").ids(), (Ids{{1, "proposition-too-large"}}));
}

TEST(ReadProperty, OperatorsCountTheirOperands) {
  EXPECT_EQ(inProperty("EX").ids(), (Ids{{1, "temporal-operator"}, {1, "operand-missing"}}));
  EXPECT_EQ(inProperty("p1EU").ids(), (Ids{{1, "temporal-operator"}, {1, "operand-missing"}}));
  EXPECT_EQ(inProperty("p1p2EU").ids(), (Ids{{1, "temporal-operator"}}));
}

TEST(ReadProperty, TakesAMillionOperators) {
  std::string text = "p1";
  for (int i = 0; i < 1000000; ++i) text += "p2&";
  EXPECT_TRUE(inProperty(text).property);
}

TEST(ReadProperty, KnowsWhereEachTokenBegins) {
  const Found found = inProperty("p1p-020&T+");
  ASSERT_TRUE(found.property);
  std::vector<std::size_t> begins;
  for (const tpn::PropertyItem& item : found.property->items) begins.push_back(item.begin);
  EXPECT_THAT(begins, ElementsAre(0, 2, 7, 8, 9));
}

TEST(PropertyItem, IsTheSameWhereverItStands) {
  EXPECT_EQ((tpn::PropertyItem{tpn::PropertyItem::proposition, 3, 0, 0, 0, 0, 1, 3}),
            (tpn::PropertyItem{tpn::PropertyItem::proposition, 3, 0, 0, 0, 0, 8, 10}));
}

TEST(LintTogether, TellsEachUnknownPropositionOnceWhereItStands) {
  const Found net = inNetwork(lamp);
  const Found phi = inProperty("\n\np4p7&p-007p9&&\n");
  ASSERT_TRUE(net.network && phi.property);
  tpn::Diagnostics found;
  lintTogether(*net.network, "phi", *phi.property, found);
  ASSERT_EQ(found.size(), 2U);
  EXPECT_EQ(std::make_pair(found[0].line, found[0].column), std::make_pair(3, 3));
  EXPECT_EQ(std::make_pair(found[1].line, found[1].column), std::make_pair(3, 11));
}

TEST(LintTogether, KeepsTheOrderOfTheFile) {
  const Found net = inNetwork(lamp);
  Found phi = inProperty("p4p7&\np4&\n");
  ASSERT_TRUE(net.network && phi.property);
  lintTogether(*net.network, "phi", *phi.property, phi.diagnostics);
  EXPECT_EQ(phi.ids(), (Ids{{1, "proposition-unknown"}, {2, "property-goes-on"}}));
}

}  // namespace

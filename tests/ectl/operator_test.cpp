// The operators' values and their texts, both ways.

#include <gtest/gtest.h>

#include <array>
#include <string>

#include "ectl/ectlform.hpp"

namespace {

constexpr std::array texts{"T", "p", "p-", "&", "+", "EG", "EX", "EU", "EF", "EK"};

EctlOper valued(int value) { return static_cast<EctlOper>(value); }

TEST(Operator, ValuesAreFixed) {
  EXPECT_EQ(EctlOper::truth, valued(0));
  EXPECT_EQ(EctlOper::prop, valued(1));
  EXPECT_EQ(EctlOper::negProp, valued(2));
  EXPECT_EQ(EctlOper::conj, valued(3));
  EXPECT_EQ(EctlOper::disj, valued(4));
  EXPECT_EQ(EctlOper::existsGlobally, valued(5));
  EXPECT_EQ(EctlOper::existsNext, valued(6));
  EXPECT_EQ(EctlOper::existsUntil, valued(7));
  EXPECT_EQ(EctlOper::existsFinally, valued(8));
  EXPECT_EQ(EctlOper::existsK, valued(9));
  EXPECT_EQ(EctlOper::none, valued(10));
}

TEST(Operator, TextsAreFixed) {
  for (std::size_t i = 0; i < texts.size(); ++i)
    EXPECT_EQ(operStr(valued(static_cast<int>(i))), texts[i]);
}

TEST(Operator, ValuesWithoutATextArePrintedAsDollar) {
  for (const int value : {10, 11, 1000, -1}) EXPECT_EQ(operStr(valued(value)), "$") << value;
}

TEST(Operator, TextIsReadBackAsItsValue) {
  for (std::size_t i = 0; i < texts.size(); ++i)
    EXPECT_EQ(oper(texts[i]), valued(static_cast<int>(i))) << texts[i];
}

TEST(Operator, SecondSpellingsAreKnown) {
  EXPECT_EQ(oper("C"), EctlOper::conj);
  EXPECT_EQ(oper("D"), EctlOper::disj);
}

TEST(Operator, OnlyTheBeginningOfTheTextDecides) {
  EXPECT_EQ(oper("Tp1"), EctlOper::truth);
  EXPECT_EQ(oper("p17"), EctlOper::prop);
  EXPECT_EQ(oper("p-17"), EctlOper::negProp);
  EXPECT_EQ(oper("EUX"), EctlOper::existsUntil);
  EXPECT_EQ(oper("&+"), EctlOper::conj);
}

TEST(Operator, OtherTextsAreNoOperator) {
  for (const std::string text :
       {"", "E", "EZ", "Ep1", "E-", "x", " T", "$", "G", "P", "t", "-", "1"})
    EXPECT_EQ(oper(text), EctlOper::none) << text;
}

}  // namespace

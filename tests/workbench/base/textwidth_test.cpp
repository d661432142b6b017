// Columns, and lines of so many.

#include "workbench/base/textwidth.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tpn {
namespace {

using testing::ElementsAre;

TEST(DisplayedWidth, CountsColumns) {
  EXPECT_EQ(displayedWidth(""), 0U);
  EXPECT_EQ(displayedWidth("idle"), 4U);
  EXPECT_EQ(displayedWidth("\u017c\u00f3\u0142w"), 4U);  // letters with accents of their own
  EXPECT_EQ(displayedWidth("z\u0307o"), 2U);             // an accent over the letter before it
  EXPECT_EQ(displayedWidth("\u5f85\u6a5f"), 4U);         // two columns each
  EXPECT_EQ(displayedWidth("a\U0001f680b\ufffd\u2192"), 6U);
}

TEST(Padded, FillsUpToTheWidth) {
  EXPECT_EQ(padded("\u017c", 3), "\u017c  ");
  EXPECT_EQ(rightPadded("\u5f85", 3), " \u5f85");
  EXPECT_EQ(padded("long", 2), "long");
}

TEST(Head, KeepsCharactersWhole) {
  EXPECT_EQ(head("\u017c\u017c\u017c", 2), "\u017c\u017c");
  EXPECT_EQ(head("\u5f85\u5f85", 3), "\u5f85");
  EXPECT_EQ(head("\u5f85", 1), "\u5f85");  // one at least, or nobody gets on
  EXPECT_EQ(head("", 5), "");
}

TEST(Folded, LinesAreNoWiderThanAskedFor) {
  EXPECT_THAT(folded({"a", "bb", "ccc", "dddd"}, 4), ElementsAre("a bb", "ccc", "dddd"));
  EXPECT_THAT(folded({"wider"}, 2), ElementsAre("wi", "de", "r"));
  EXPECT_THAT(folded({"a", "", "b"}, 9), ElementsAre("a  b"));
  EXPECT_THAT(folded({}, 2), ElementsAre());
}

TEST(Hanging, WordsStandBelowTheFirst) {
  EXPECT_EQ(hanging("see:", {"one", "two"}, 30), "see: one two\n");
  EXPECT_EQ(hanging("see:", {"a word", "of many letters", "or others", "more"}, 30),
            "see: a word of many letters\n     or others more\n");
  EXPECT_EQ(hanging("see:", {}, 30), "see:\n");
}

TEST(Hanging, WordsThatBeginFarToTheRightGoOnAtTheLeft) {
  EXPECT_EQ(hanging("a heading of many words:", {"one", "two", "three"}, 32),
            "a heading of many words: one two\n      three\n");
}

TEST(Hanging, WordThatIsTooWideHasALineOfItsOwn) {
  EXPECT_EQ(hanging("see:", {"one", "a word that is wider than the line", "two"}, 30),
            "see: one\n     a word that is wider than the line\n     two\n");
}

}  // namespace
}  // namespace tpn

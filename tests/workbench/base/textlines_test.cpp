// Lines, words and numbers as the readers of zervan see them.

#include "workbench/base/textlines.hpp"

#include <gtest/gtest.h>

namespace tpn {
namespace {

TEST(TextLines, EmptyLinesAreLeftOutButCounted) {
  const std::vector<Line> lines = nonEmptyLines("a\n\n b \nc");
  ASSERT_EQ(lines.size(), 3U);
  EXPECT_EQ(lines[1].text, " b ");
  EXPECT_EQ(lines[1].number, 3);
  EXPECT_TRUE(lines[1].ended);
  EXPECT_EQ(lines[2].number, 4);
  EXPECT_FALSE(lines[2].ended);
}

TEST(TextLines, EndIsBehindTheLastByte) {
  EXPECT_EQ(endOf("").line, 1);
  EXPECT_EQ(endOf("").column, 1);
  EXPECT_EQ(endOf("a\nbc").line, 2);
  EXPECT_EQ(endOf("a\nbc").column, 3);
  EXPECT_EQ(endOf("a\n").line, 2);
}

TEST(TextLines, WordsKnowTheirColumns) {
  const std::vector<Word> found = words({"  ab \t c", 1, true});
  ASSERT_EQ(found.size(), 2U);
  EXPECT_EQ(found[0].text, "ab");
  EXPECT_EQ(found[0].column, 3);
  EXPECT_EQ(found[1].column, 8);
}

TEST(TextLines, NumbersMayHaveASignAndMayNotFit) {
  for (const char* number : {"0", "007", "+5", "-3", "99999999999"}) EXPECT_TRUE(isNumber(number));
  for (const char* word : {"", "+", "1x", "--1", "0x1"}) EXPECT_FALSE(isNumber(word));
  EXPECT_EQ(value("+2147483647"), 2147483647);
  EXPECT_EQ(value("-2147483648"), -2147483648);
  EXPECT_EQ(value("2147483648"), std::nullopt);
}

TEST(TextLines, KeywordsAreReadByTheirFirstCharacters) {
  EXPECT_TRUE(beginsWith({"processes", 1, true}, Keyword::process));
  EXPECT_FALSE(beginsWith({" process", 1, true}, Keyword::process));
  EXPECT_EQ(meant({"endtran", 1, true})->keyword, Keyword::endtran);
  EXPECT_EQ(meant({"endtran", 1, true})->form, Meant::exact);
  EXPECT_EQ(meant({"  end", 1, true})->form, Meant::indented);
  EXPECT_EQ(meant({"porcess", 1, true})->keyword, Keyword::process);
  EXPECT_EQ(meant({"porcess", 1, true})->form, Meant::misspelt);
  EXPECT_FALSE(meant({"1 2 3", 1, true}).has_value());
}

}  // namespace
}  // namespace tpn

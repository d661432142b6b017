// Which keyword a line stands for, by section.

#include "workbench/network/netsections.hpp"

#include <gtest/gtest.h>

namespace tpn {
namespace {

TEST(Sections, NameWhatIsMissingBetweenTwoKeywords) {
  EXPECT_EQ(missingBetween(Keyword::valuation, Keyword::endval), "\"valuation\" is");
  EXPECT_EQ(missingBetween(Keyword::valuation, Keyword::end), "\"valuation\" and \"endval\" are");
  EXPECT_EQ(missingBetween(Keyword::endval, Keyword::valuation),
            "\"endval\", \"end\" and \"process\" are");
}

TEST(Sections, EndWithTheirKeyword) {
  EXPECT_EQ(endOfSection(Section::declarations), Keyword::endtran);
  EXPECT_EQ(awaited(Section::moves), "\"valuation\"");
  EXPECT_EQ(awaited(Section::betweenProcesses), "\"process\" or \"end\"");
}

TEST(Sections, TakeAKeywordForTheOneThatFits) {
  const std::vector<Line> lines = nonEmptyLines("end\nend\nend\n");
  const auto found = [&](std::size_t i, Section section) {
    return keywordIn(lines, i, section)->keyword;
  };
  EXPECT_EQ(found(0, Section::declarations), Keyword::endtran);
  EXPECT_EQ(found(0, Section::labels), Keyword::endval);  // two more close process and file
  EXPECT_EQ(found(1, Section::labels), Keyword::end);
  EXPECT_FALSE(keywordIn(nonEmptyLines("transitions\n"), 0, Section::moves));
}

}  // namespace
}  // namespace tpn

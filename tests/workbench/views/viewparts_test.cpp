#include "workbench/views/viewparts.hpp"

#include <gtest/gtest.h>

#include "tests/workbench/views/viewruns.hpp"
#include "workbench/views/svgelements.hpp"

namespace tpn {
namespace {

TEST(ViewParts, IntervalsAreOpenWhereNothingEndsThem) {
  EXPECT_EQ(text(Interval{1, 3}), "[1, 3]");
  EXPECT_EQ(text(Interval{2, {}}), "[2, inf)");
}

TEST(ViewParts, ListsAreShortenedToTheirLimit) {
  const std::vector<std::string> items{"a", "b", "c", "d"};
  EXPECT_EQ(joined(items, ", "), "a, b, c, d");
  EXPECT_EQ(joined({}, ", "), "");
  EXPECT_EQ(shortened(items, ", ", 4), "a, b, c, d");
  EXPECT_EQ(shortened(items, ", ", 3), "a, b ... 2 more");
}

TEST(ViewParts, LongPropertiesAreCutAndAllArePrintable) {
  EXPECT_EQ(shortProperty({"p1\x1b", {}}), "p1\xef\xbf\xbd");
  EXPECT_EQ(shortProperty({std::string(48, 'T'), {}}), std::string(48, 'T'));
  EXPECT_EQ(shortProperty({std::string(49, 'T'), {}}), std::string(45, 'T') + "...");
}

TEST(ViewParts, ForeignTextIsEscapedForXml) {
  EXPECT_EQ(xmlText("<a b='c' d=\"e\">&\x01"),
            "&lt;a b=&apos;c&apos; d=&quot;e&quot;&gt;&amp;\xef\xbf\xbd");
  EXPECT_EQ(label(1, 2, "mark", "<"), "<text x=\"1\" y=\"2\" class=\"mark\">&lt;</text>\n");
  EXPECT_EQ(hint("&"), "<title>&amp;</title>\n");
}

// Every move is a part of its own process, and the partners are all others.
TEST(ViewParts, PartsAreTheMovesOfAProcess) {
  const Network net = twoProcesses();
  std::size_t moves = 0;
  for (std::size_t p = 0; p < net.processes.size(); ++p)
    for (const Part& part : partsOf(net, p)) {
      const Transition& t = net.transitions[part.transition];
      EXPECT_EQ(partners(t, p).size() + 1, t.moves.size());
      EXPECT_EQ(isShared(t), t.moves.size() > 1);
      ++moves;
    }
  std::size_t expected = 0;
  for (const Transition& t : net.transitions) expected += t.moves.size();
  EXPECT_EQ(moves, expected);
}

TEST(ViewParts, OnlyTheInitialLocationIsGrey) {
  const Network net = twoProcesses();
  for (const Process& process : net.processes)
    for (const int location : process.locations)
      EXPECT_EQ(std::string(colourOf(process, location).fill) == "#d9d9d9", location == 0);
}

}  // namespace
}  // namespace tpn

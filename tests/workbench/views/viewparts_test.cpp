#include "workbench/views/viewparts.hpp"

#include <gtest/gtest.h>

#include <algorithm>

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
  EXPECT_EQ(shortProperty({"p1\x1b", {}}, 48), "p1\xef\xbf\xbd");
  EXPECT_EQ(shortProperty({std::string(48, 'T'), {}}, 48), std::string(48, 'T'));
  EXPECT_EQ(shortProperty({std::string(49, 'T'), {}}, 48), std::string(45, 'T') + "...");
}

TEST(ViewParts, ForeignTextIsEscapedForXml) {
  EXPECT_EQ(xmlText("<a b='c' d=\"e\">&\x01"),
            "&lt;a b=&apos;c&apos; d=&quot;e&quot;&gt;&amp;\xef\xbf\xbd");
  EXPECT_EQ(label(1, 2, "mark", "<"), "<text x=\"1\" y=\"2\" class=\"mark\">&lt;</text>\n");
  EXPECT_EQ(hint("&"), "<title>&amp;</title>\n");
}

// Every move is a part of its own process.
TEST(ViewParts, PartsAreTheMovesOfAProcess) {
  const Network net = twoProcesses();
  const std::vector<Parts> parts = partsByProcess(net);
  ASSERT_EQ(parts.size(), net.processes.size());
  std::size_t moves = 0;
  for (std::size_t p = 0; p < parts.size(); ++p)
    for (const Part& part : parts[p]) {
      const std::vector<Move>& all = net.transitions[part.transition].moves;
      const Move move{p, part.source, part.target, part.counts, part.resets};
      EXPECT_EQ(std::count(all.begin(), all.end(), move), 1);
      ++moves;
    }
  std::size_t expected = 0;
  for (const Transition& t : net.transitions) expected += t.moves.size();
  EXPECT_EQ(moves, expected);
}

TEST(ViewParts, PartnersAreAllOtherProcessesOfATransition) {
  Transition t;
  for (const std::size_t p : {1U, 3U, 4U, 7U}) t.moves.push_back({p, 0, 1});
  EXPECT_EQ(partners({}, t, 3, 8), "2, 5, 8");
  EXPECT_TRUE(isShared(t));
}

TEST(ViewParts, OnlyTheInitialLocationIsGrey) {
  const Network net = twoProcesses();
  for (const Process& process : net.processes)
    for (const int location : process.locations)
      EXPECT_EQ(std::string(colourOf(process, location).fill) == "#d9d9d9", location == 0);
}

}  // namespace
}  // namespace tpn

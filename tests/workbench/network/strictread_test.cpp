// The strict reader of networks: values of what is in order, all mistakes in one go of what is not.

#include "workbench/network/strictread.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <string>
#include <string_view>
#include <vector>

#include "tests/workbench/network/bignets.hpp"
#include "tests/workbench/network/strictly.hpp"
#include "workbench/network/writer.hpp"

namespace {

using namespace std::string_view_literals;
using testing::ElementsAre;
using testing::IsEmpty;

// --- Values. ---

TEST(ReadNetwork, TakesTransitionsProcessesAndLabels) {
  const Found found = inNetwork(lamp);
  ASSERT_TRUE(found.network);
  tpn::Network lampNet;
  lampNet.title = "lamp";
  lampNet.transitions = {{{0, 3}, {{0, 0, 1}}}, {{0, std::nullopt}, {{0, 1, 0}}}};
  lampNet.processes = {{{0, 1}, {{1, {4, 5}}}}};
  EXPECT_EQ(*found.network, lampNet);
  EXPECT_THAT(found.diagnostics, IsEmpty());
}

TEST(ReadNetwork, TakesTransitionsInAnyOrder) {
  const Found found = inNetwork(lampWith("1 0 3\n2 0 -1\n", "2 0 -1\n1 0 3\n"));
  EXPECT_EQ(found.network, inNetwork(lamp).network);
}

TEST(ReadNetwork, CollectsMovesOfATransitionByProcess) {
  const Found found =
      inNetwork(lampWith("end\nend\n", "end\nprocess\n2 0 0\nvaluation\nendval\nend\nend\n"));
  ASSERT_TRUE(found.network);
  EXPECT_THAT(found.network->transitions[1].moves,
              ElementsAre(tpn::Move{0, 1, 0}, tpn::Move{1, 0, 0}));
}

TEST(ReadNetwork, ProcessWithoutMovesIsInLocationZero) {
  const Found found =
      inNetwork(lampWith("end\nend\n", "end\nprocess\nvaluation\n0 7\nendval\nend\nend\n"));
  ASSERT_TRUE(found.network);
  EXPECT_THAT(found.network->processes[1].locations, ElementsAre(0));
  EXPECT_THAT(found.diagnostics, IsEmpty());
}

TEST(ReadNetwork, SaysNothingOfWhatItsReaderTakesAsMeant) {
  const std::vector<std::string> fine{
      lampWith("endtran", "endtran of the lamp"),
      lampWith("process", "process 1"),
      lampWith("endval\nend\n", "endvalues\nend of process 1\n"),
      lampWith("1 0 3", "\n\n  1\t0   3  \n"),
      lampWith("1 0 3", "+1 00 003"),
      lampWith("1 4 5", "1 4\n1 5\n1\n   "),
      lampWith("lamp", "\ntransitions"),
      lampWith("lamp", "   "),
      lampWith("end\nend\n", "end\nend"),
      lamp + "\n  \n",
      "nothing\ntransitions\nendtran\nend\n",
  };
  for (const std::string& text : fine) EXPECT_THAT(inNetwork(text).diagnostics, IsEmpty()) << text;
}

TEST(ReadNetwork, WarningsLeaveTheValue) {
  const Found found = inNetwork(lampWith("1 0 3", "1 0 3 5\r"));
  EXPECT_EQ(found.network, inNetwork(lamp).network);
  EXPECT_EQ(found.ids(), (Ids{{3, "field-extra"}, {3, "carriage-return"}}));
}

// --- Recovery. ---

TEST(ReadNetwork, FindsAllMistakesInOneGo) {
  const Found found = inNetwork(
      "all at once\n"
      " transitions\n"   // 2
      "1 0 3\n"          // 3
      "2 5\n"            // 4
      "3 x 1\n"          // 5
      "9 2 1\n"          // 6
      "Endtran\n"        // 7
      "process\n"        // 8
      "1 0 1\n"          // 9
      "1 1 0\n"          // 10
      "7 1 -2\n"         // 11
      "valuatoin\n"      // 12
      "\n"               // 13
      "1 p3\n"           // 14
      "end\n"            // 15
      "process\n"        // 16
      "2 1 2\n"          // 17
      "valuation\n"      // 18
      "3 99999999999\n"  // 19
      "endval\n");       // 20
  EXPECT_EQ(found.ids(), (Ids{{2, "keyword-indented"},
                              {4, "earliest-too-late"},
                              {4, "field-missing"},
                              {5, "not-a-number"},
                              {6, "transition-number"},
                              {6, "interval-empty"},
                              {7, "keyword-misspelt"},
                              {10, "move-twice"},
                              {11, "transition-undeclared"},
                              {11, "location-negative"},
                              {12, "keyword-misspelt"},
                              {14, "not-a-number"},
                              {15, "keyword-missing"},
                              {16, "location-zero"},
                              {19, "label-unknown-location"},
                              {19, "number-range"},
                              {21, "ends-early"}}));
}

TEST(ReadNetwork, MissingKeywordsAreNamedTogether) {
  const Found found =
      inNetwork(lampWith("valuation\n1 4 5\nendval\nend\n", "process\nvaluation\nendval\nend\n"));
  ASSERT_EQ(found.ids(), (Ids{{9, "keyword-missing"}}));
  EXPECT_EQ(found.diagnostics[0].message,
            "\"valuation\", \"endval\" and \"end\" are missing before this line");
}

TEST(ReadNetwork, EveryKeywordMayBeMissing) {
  const std::vector<std::pair<std::string, int>> keywords{{"transitions\n", 2},
                                                          {"endtran\n", 5},
                                                          {"process\n", 6},
                                                          {"valuation\n1 4 5\n", 9},
                                                          {"endval\n", 11}};
  for (const auto& [keyword, line] : keywords) {
    EXPECT_EQ(inNetwork(lampWith(keyword, "")).ids(), (Ids{{line, "keyword-missing"}})) << keyword;
  }
}

TEST(ReadNetwork, EveryKeywordMayBeMisspeltOrIndented) {
  for (const std::string keyword : {"transitions", "endtran", "process", "valuation", "endval"}) {
    std::string swapped = keyword;
    std::swap(swapped[3], swapped[4]);
    std::string capital = keyword;
    capital[0] = static_cast<char>(capital[0] - 'a' + 'A');
    for (const std::string& misspelt :
         {swapped, capital, keyword.substr(0, 2) + keyword.substr(3)}) {
      const Ids ids = inNetwork(lampWith(keyword, misspelt)).ids();
      ASSERT_EQ(ids.size(), 1U) << misspelt;
      EXPECT_EQ(ids[0].second, "keyword-misspelt") << misspelt;
    }
    const Ids ids = inNetwork(lampWith(keyword, "\t" + keyword)).ids();
    ASSERT_EQ(ids.size(), 1U) << keyword;
    EXPECT_EQ(ids[0].second, "keyword-indented") << keyword;
  }
}

TEST(ReadNetwork, EndForEndvalIsToldFromAMissingEndval) {
  EXPECT_EQ(inNetwork(lampWith("endval", "end")).ids(), (Ids{{11, "keyword-misspelt"}}));
  EXPECT_EQ(inNetwork(lampWith("endval\n", "")).ids(), (Ids{{11, "keyword-missing"}}));
  const std::string two =
      lampWith("end\nend\n", "end\nprocess\n1 0 0\nvaluation\nendval\nend\nend\n");
  EXPECT_EQ(inNetwork(replaced(two, "endval", "end")).ids(), (Ids{{11, "keyword-misspelt"}}));
  EXPECT_EQ(inNetwork(replaced(two, "endval\n", "")).ids(), (Ids{{11, "keyword-missing"}}));
}

TEST(ReadNetwork, ProcessesBehindTheEndAreCheckedToo) {
  const Found found = inNetwork(lamp + "process\n2 0 x\nvaluation\nendval\nend\nend\n");
  EXPECT_EQ(found.ids(), (Ids{{14, "end-too-early"}, {15, "not-a-number"}}));
}

TEST(ReadNetwork, UnfinishedFileSaysWhereItEnds) {
  for (std::size_t length = 0; length + 4 < lamp.size(); ++length) {
    const Found found = inNetwork(lamp.substr(0, length));
    ASSERT_FALSE(found.diagnostics.empty()) << length;
    const tpn::Diagnostic& last = found.diagnostics.back();
    EXPECT_TRUE(last.id == "ends-early" || last.id == "last-line-open") << length << last.id;
    const std::string before = lamp.substr(0, length);
    EXPECT_EQ(last.line, 1 + std::count(before.begin(), before.end(), '\n')) << length;
  }
}

TEST(ReadNetwork, LastLineIsMetAgainAmongNumbersOnly) {
  const auto lastId = [](const std::string& end) {
    return inNetwork(lamp.substr(0, lamp.find(end) + end.size())).ids().back().second;
  };
  for (const std::string open : {"transitions", "1 0 3", "process", "1 0 1", "valuation", "1 4 5"})
    EXPECT_EQ(lastId(open), "last-line-open") << open;
  for (const std::string waits : {"lamp", "endtran", "endval", "endval\nend"})
    EXPECT_EQ(lastId(waits), "ends-early") << waits;
}

TEST(ReadNetwork, TakesAnyBytes) {
  constexpr std::string_view bytes = "\0\xff\n\x80\n transitions\0\n1 \0 2\n\xc3\xa9\n"sv;
  EXPECT_FALSE(inNetwork(std::string(bytes)).network);
}

TEST(ReadNetwork, UnreadableNumbersHideNothingElseAndAccuseNobody) {
  EXPECT_EQ(inNetwork(lampWith("2 0 -1", "2z 0 -1")).ids(), (Ids{{4, "not-a-number"}}));
  EXPECT_EQ(inNetwork(lampWith("2 1 0", "2z 1 0")).ids(), (Ids{{8, "not-a-number"}}));
  EXPECT_EQ(inNetwork(lampWith("2 1 0", "2 l 0")).ids(), (Ids{{8, "not-a-number"}}));
  EXPECT_EQ(inNetwork(lampWith("2 0 -1", "1 0 -1")).ids(), (Ids{{4, "transition-twice"}}));
}

// --- The range of times. ---

TEST(ReadNetwork, EarliestTimesUpToTheLargestLatestAreInRange) {
  EXPECT_THAT(inNetwork(lampWith("2 0 -1", "2 3 -1")).diagnostics, IsEmpty());
  const Found missed = inNetwork(lampWith("2 0 -1", "2 15 -1"));
  ASSERT_EQ(missed.ids(), (Ids{{4, "earliest-too-late"}}));
  EXPECT_THAT(missed.diagnostics[0].message, testing::HasSubstr("may miss runs"));
  const Found aborts = inNetwork(lampWith("2 0 -1", "2 16 -1"));
  ASSERT_EQ(aborts.ids(), (Ids{{4, "earliest-too-late"}}));
  EXPECT_THAT(aborts.diagnostics[0].message, testing::HasSubstr("aborts"));
}

TEST(ReadNetwork, LargestTimeIsInRange) {
  EXPECT_THAT(inNetwork(lampWith("1 0 3", "1 1073741822 1073741822")).diagnostics, IsEmpty());
}

TEST(ReadNetwork, OddLocationsAreHarmlessUnlessTheirBitsAgree) {
  const auto ids = [](const std::string& moves) {
    return inNetwork("x\ntransitions\n1 0 0\n2 0 0\nendtran\nprocess\n" + moves +
                     "valuation\nendval\nend\nend\n")
        .ids();
  };
  EXPECT_EQ(ids("1 0 1\n2 1 2\n"), Ids());
  EXPECT_EQ(ids("1 0 1\n2 1 3\n"), (Ids{{8, "location-gap"}}));    // two bits
  EXPECT_EQ(ids("1 0 1\n2 1 4\n"), (Ids{{8, "location-alias"}}));  // for 0
  EXPECT_EQ(ids("1 0 1\n2 1 6\n"), (Ids{{8, "location-gap"}}));    // the code 2 is free
}

// --- An end before the end. ---

TEST(ReadNetwork, EndsAtACheckpoint) {
  const std::string text = tpn::networkFile(tpn::manyProcesses(2000));
  tpn::Diagnostics found;
  for (int passed : {0, 1, 3, 1000}) {
    const tpn::Checkpoint checkpoint([&] { return passed-- == 0; });
    EXPECT_THROW(tpn::readNetwork("net", text, found, checkpoint), tpn::Interrupted);
  }
}

// Each is twenty times the other: what is linear takes twenty times as long, not four hundred.
TEST(ReadNetwork, TakesTimeLinearInTheFile) {
  const auto seconds = [](const std::string& text) {
    tpn::Diagnostics found;
    const auto start = std::chrono::steady_clock::now();
    EXPECT_TRUE(tpn::readNetwork("net", text, found));
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  };
  const auto small = seconds(tpn::networkFile(tpn::ring(5000)));
  EXPECT_LT(seconds(tpn::networkFile(tpn::ring(100000))), 200 * small);
}

}  // namespace

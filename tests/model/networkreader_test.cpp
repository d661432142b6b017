// The network file: its sections, keywords and messages.

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "tests/model/networks.hpp"
#include "tests/model/refused.hpp"

namespace {

using Pair = NetTimedModel::Pair;
using Pairs = std::set<Pair>;
using Moves = std::map<Pair, Pair>;
using Intervals = std::vector<Pair>;

std::string block(const std::string& lines) { return "a network\ntransitions\nendtran\n" + lines; }

// --- What is read. ---

TEST(NetworkReader, ModelStartsEmpty) {
  const NetTimedModel model;
  EXPECT_EQ(model.nrOfProcs, 0);
  EXPECT_EQ(model.nrOfTrans, 0);
  EXPECT_EQ(model.nrInvTerms, 0);
  EXPECT_EQ(model.nrOfClocks, 0);
  EXPECT_EQ(model.maxConst, 0);
  EXPECT_TRUE(model.vertices.empty() && model.transProcs.empty() && model.localTrans.empty());
  EXPECT_TRUE(model.timeIntervals.empty() && model.valuation.empty());
  EXPECT_EQ(model.formula, nullptr);
}

TEST(NetworkReader, TwoProcessesAreCounted) {
  const Model model = readModel(twoProcesses());
  EXPECT_EQ(model->nrOfProcs, 2);
  EXPECT_EQ(model->nrOfTrans, 3);
  EXPECT_EQ(model->maxConst, 5);
}

TEST(NetworkReader, IntervalsAreIndexedByTransition) {
  EXPECT_EQ(readModel(twoProcesses())->timeIntervals, (Intervals{{0, 0}, {0, 3}, {1, 2}, {2, 5}}));
}

TEST(NetworkReader, SharedTransitionBelongsToBothProcesses) {
  EXPECT_EQ(readModel(twoProcesses())->transProcs,
            (std::map<unsigned, NumSet>{{1, {1}}, {2, {1, 2}}, {3, {2}}}));
}

TEST(NetworkReader, MovesAreKeptByProcessAndTransition) {
  EXPECT_EQ(readModel(twoProcesses())->localTrans,
            (Moves{{{1, 1}, {0, 1}}, {{1, 2}, {1, 0}}, {{2, 2}, {0, 1}}, {{2, 3}, {1, 0}}}));
}

TEST(NetworkReader, SourcesAndTargetsAreThePlaces) {
  EXPECT_EQ(readModel(twoProcesses())->vertices, (Pairs{{1, 0}, {1, 1}, {2, 0}, {2, 1}}));
}

TEST(NetworkReader, ValuationLabelsLocations) {
  EXPECT_EQ(readModel(twoProcesses())->valuation,
            (std::set<std::pair<Pair, unsigned>>{{{1, 0}, 1}, {{1, 1}, 2}, {{2, 1}, 3}}));
}

TEST(NetworkReader, ValuationLineHoldsAnyNumberOfPropositions) {
  const Model model = readModel(network("", process("", "4\n5 6 7 6 8\n")));
  EXPECT_EQ(model->valuation,
            (std::set<std::pair<Pair, unsigned>>{{{1, 5}, 6}, {{1, 5}, 7}, {{1, 5}, 8}}));
  EXPECT_TRUE(model->vertices.empty());
}

TEST(NetworkReader, ProcessWithoutLinesOnlyCounts) {
  const Model model = readModel(network("", process("") + process("")));
  EXPECT_EQ(model->nrOfProcs, 2);
  EXPECT_TRUE(model->vertices.empty() && model->transProcs.empty() && model->localTrans.empty());
  EXPECT_TRUE(model->valuation.empty());
}

TEST(NetworkReader, LaterMoveReplacesAnEarlierOneButNotItsPlaces) {
  const Model model = readModel(network("1 0 1\n", process("1 0 1\n1 2 3\n")));
  EXPECT_EQ(model->localTrans, (Moves{{{1, 1}, {2, 3}}}));
  EXPECT_EQ(model->vertices, (Pairs{{1, 0}, {1, 1}, {1, 2}, {1, 3}}));
}

TEST(NetworkReader, LaterIntervalReplacesAnEarlierOneButBothCount) {
  const Model model = readModel(network("1 0 9\n1 2 3\n", ""));
  EXPECT_EQ(model->timeIntervals, (Intervals{{0, 0}, {2, 3}, {0, 0}}));
  EXPECT_EQ(model->nrOfTrans, 2);
  EXPECT_EQ(model->maxConst, 9);
}

TEST(NetworkReader, OpenIntervalDoesNotRaiseTheLargestConstant) {
  const Model model = readModel(network("1 7 -1\n", ""));
  EXPECT_EQ(model->maxConst, 0);
  EXPECT_EQ(model->timeIntervals[1], (Pair{7, ~0U}));
}

TEST(NetworkReader, TransitionNumberOutsideTheTableLeavesItAlone) {
  for (const std::string number : {"2", "77", "-1", "2147483647", "-2147483648"}) {
    const Model model = readModel(network(number + " 3 8\n", ""));
    EXPECT_EQ(model->nrOfTrans, 1) << number;
    EXPECT_EQ(model->maxConst, 8) << number;
    EXPECT_EQ(model->timeIntervals, (Intervals{{0, 0}, {0, 0}})) << number;
  }
}

TEST(NetworkReader, TransitionZeroHasAnEntry) {
  EXPECT_EQ(readModel(network("0 3 8\n", ""))->timeIntervals, (Intervals{{3, 8}, {0, 0}}));
}

TEST(NetworkReader, SameLocationInTwoProcessesIsTwoPlaces) {
  EXPECT_EQ(readModel(network("", process("1 0 1\n") + process("1 0 1\n")))->vertices.size(), 4U);
}

// --- Lines and keywords. ---

TEST(NetworkReader, TitleIsTheFirstLineThatHoldsAnything) {
  EXPECT_EQ(readModel("\n\n\ntransitions\ntransitions\n1 0 1\nendtran\nend\n")->nrOfTrans, 1);
}

TEST(NetworkReader, EmptyLinesAreSkippedEverywhere) {
  std::string sparse;
  for (const char c : twoProcesses()) sparse += c == '\n' ? "\n\n\n" : std::string(1, c);
  const Model model = readModel("\n" + sparse);
  EXPECT_EQ(model->nrOfProcs, 2);
  EXPECT_EQ(model->nrOfTrans, 3);
  EXPECT_EQ(model->localTrans, readModel(twoProcesses())->localTrans);
  EXPECT_EQ(model->valuation, readModel(twoProcesses())->valuation);
}

TEST(NetworkReader, LineOfBlanksIsATransitionLine) {
  const Model model = readModel(network("1 2 3\n   \n", ""));
  EXPECT_EQ(model->nrOfTrans, 2);
  EXPECT_EQ(model->timeIntervals, (Intervals{{0, 0}, {2, 3}, {0, 0}}));
}

TEST(NetworkReader, LineOfBlanksIsAMove) {
  const Model model = readModel(network("", process(" \n")));
  EXPECT_EQ(model->localTrans, (Moves{{{1, 0}, {0, 0}}}));
}

TEST(NetworkReader, KeywordsMayBeFollowedByAnything) {
  const Model model = readModel(
      "x\ntransitions 1 0 1\n1 0 4\nendtran 2 0 9\nprocess 1 5 6\n1 0 1\nvaluation 0 3\n1 2\n"
      "endvalues 0 4\nending\nend of file\n");
  EXPECT_EQ(model->nrOfTrans, 1);
  EXPECT_EQ(model->maxConst, 4);
  EXPECT_EQ(model->vertices, (Pairs{{1, 0}, {1, 1}}));
  EXPECT_EQ(model->valuation, (std::set<std::pair<Pair, unsigned>>{{{1, 1}, 2}}));
}

TEST(NetworkReader, CarriageReturnsAfterKeywordsAndNumbersDoNotMatter) {
  std::string dos;
  for (const char c : twoProcesses()) dos += c == '\n' ? "\r\n" : std::string(1, c);
  const Model model = readModel(dos);
  EXPECT_EQ(model->nrOfProcs, 2);
  EXPECT_EQ(model->timeIntervals, readModel(twoProcesses())->timeIntervals);
  EXPECT_EQ(model->valuation, readModel(twoProcesses())->valuation);
}

TEST(NetworkReader, KeywordAfterABlankIsData) {
  const Model model = readModel(
      "x\ntransitions\n endtran\nendtran\nprocess\n valuation\nvaluation\n"
      " endval\nendval\nend\nend\n");
  EXPECT_EQ(model->nrOfTrans, 1);
  EXPECT_EQ(model->localTrans.size(), 1U);
  EXPECT_TRUE(model->valuation.empty());
}

TEST(NetworkReader, KeywordInCapitalsIsData) {
  EXPECT_EQ(readModel(network("ENDTRAN\n", ""))->nrOfTrans, 1);
}

TEST(NetworkReader, AnyEndEndsTheProcessList) {
  for (const std::string end : {"end\n", "endval\n", "endtran\n", "ending\n"})
    EXPECT_EQ(readModel(block(process("") + end + "process\n"))->nrOfProcs, 1) << end;
}

TEST(NetworkReader, NothingAfterTheFinalEndIsRead) {
  EXPECT_EQ(readModel(twoProcesses() + "process\nnonsense")->nrOfProcs, 2);
}

TEST(NetworkReader, OtherLineAfterEndvalEndsTheReading) {
  EXPECT_EQ(readModel(block("process\nvaluation\nendval\nprocess\n"))->nrOfProcs, 1);
  EXPECT_EQ(readModel(block("process\nvaluation\nendval\n end\nprocess\n"))->nrOfProcs, 1);
}

// --- Messages. ---

TEST(NetworkReader, ReportsEveryProcessOnStandardOutput) {
  testing::internal::CaptureStdout();
  readModel(twoProcesses());
  EXPECT_EQ(testing::internal::GetCapturedStdout(),
            "wczytywanie procesu\nwczytywanie wartosciowania\n"
            "wczytywanie procesu\nwczytywanie wartosciowania\n");
}

TEST(NetworkReaderDeathTest, MissingFileEndsTheProcess) {
  NetTimedModel model;
  EXPECT_EXIT(model.readNetwork("no/such/net"), testing::ExitedWithCode(1),
              "^Nie moge otworzyc pliku no/such/net.tpn\n$");
}

// A process's own memory can be opened; reading at address 0 fails.
TEST(NetworkReader, FileThatCannotBeReadIsTold) {
  const Folder folder;
  std::filesystem::create_symlink("/proc/self/mem", folder / "x.tpn");
  NetTimedModel model;
  try {
    model.readNetwork(folder / "x");
    FAIL() << "was read";
  } catch (const Unreadable& refusal) {
    EXPECT_EQ(refusal.what(), "cannot read " + (folder / "x.tpn") + ": Input/output error");
  }
}

TEST(NetworkReaderDeathTest, FolderCannotBeOpened) {
  const Folder folder;
  std::filesystem::create_directory(folder / "net.tpn");
  NetTimedModel model;
  EXPECT_EXIT(model.readNetwork(folder / "net"), testing::ExitedWithCode(1),
              "^Nie moge otworzyc pliku .*/net.tpn\n$");
}

TEST(NetworkReaderDeathTest, SecondLineMustBeginTheTransitions) {
  for (const std::string line : {"transition", " transitions", "Transitions", "1 0 3"})
    expectRefused("x\n" + line + "\n", "^\"transitions\" expected\n\n$");
}

TEST(NetworkReaderDeathTest, BlockMustBeginWithProcess) {
  for (const std::string line : {"proces", " process", "Process", " end", "valuation"})
    expectRefused(block(line + "\n"), "^\"process\" expected\n\n$");
}

TEST(NetworkReaderDeathTest, LaterBlockMustBeginWithProcessToo) {
  expectRefused(block(process("") + "proces\n"), "\"process\" expected\n\n$");
}

}  // namespace

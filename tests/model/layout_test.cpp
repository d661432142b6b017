// Widths and variable numbers of a symbolic state.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/model/networks.hpp"

namespace {

// A process with the locations 0 .. count - 1; it uses the transitions from `first` on.
std::string locations(int count, int first = 1) {
  std::string moves;
  for (int i = 0; i < count; ++i)
    moves += std::to_string(first + i) + " " + std::to_string(i) + " 0\n";
  return process(moves);
}

std::string processes(int count) {
  std::string text;
  for (int i = 0; i < count; ++i) text += process("1 0 1\n");
  return text;
}

Model withLatest(const std::string& latest) {
  return modelOf(network("1 0 " + latest + "\n", process("1 0 1\n")));
}

// How many bits it takes to write `n` down, by trying.
int digits(long long n) {
  int count = 0;
  while ((1LL << count) <= n) ++count;
  return count;
}

TEST(Widths, LocationBitsTellTheLocationsApart) {
  for (int count = 1; count <= 40; ++count) {
    const Model model = modelOf(network("1 0 1\n", locations(count)));
    EXPECT_EQ(model->nrVertBits, (std::vector<int>{0, digits(count - 1)})) << count;
  }
}

TEST(Widths, ThreeAndFourLocationsTakeTwoBitsFiveTakeThree) {
  EXPECT_EQ(modelOf(network("", locations(3)))->nrVertBits[1], 2);
  EXPECT_EQ(modelOf(network("", locations(4)))->nrVertBits[1], 2);
  EXPECT_EQ(modelOf(network("", locations(5)))->nrVertBits[1], 3);
}

TEST(Widths, ProcessWithoutLocationsTakesNoBits) {
  EXPECT_EQ(modelOf(network("", process("")))->nrVertBits[1], 0);
}

TEST(Widths, LocationsAreCountedNotMeasured) {
  EXPECT_EQ(modelOf(network("", process("1 1000 7\n")))->nrVertBits[1], 1);
}

TEST(Widths, NextProcessStartsWhereOneWithoutBitsWould) {
  const Model model =
      modelOf(network("", locations(3) + locations(1) + locations(5) + locations(2)));
  EXPECT_EQ(model->nrVertBits, (std::vector<int>{0, 2, 0, 3, 1}));
  EXPECT_EQ(model->firstVertBit, (std::vector<int>{0, 0, 2, 2, 5}));
  EXPECT_EQ(model->totalNrVertBits, 6);
}

TEST(Widths, EveryProcessHasAClock) {
  for (const int count : {0, 1, 2, 9})
    EXPECT_EQ(modelOf(network("", processes(count)))->nrOfClocks, count);
}

TEST(Widths, IntegerPartHoldsTwiceTheLargestConstantAndTwo) {
  for (int latest = 0; latest <= 70; ++latest)
    EXPECT_EQ(withLatest(std::to_string(latest))->intPLen, digits(2LL * latest + 2)) << latest;
}

TEST(Widths, IntegerPartOfSmallConstants) {
  EXPECT_EQ(withLatest("0")->intPLen, 2);
  EXPECT_EQ(withLatest("2")->intPLen, 3);
  EXPECT_EQ(withLatest("3")->intPLen, 4);
  EXPECT_EQ(withLatest("6")->intPLen, 4);
  EXPECT_EQ(withLatest("7")->intPLen, 5);
}

TEST(Widths, OpenIntervalsDoNotWidenTheIntegerPart) { EXPECT_EQ(withLatest("-1")->intPLen, 2); }

TEST(Widths, LargestConstantThatDoesNotWrap) { EXPECT_EQ(withLatest("1073741822")->intPLen, 31); }

// Twice the constant and two, in 32 bits, is no longer positive.
TEST(Widths, IntegerPartVanishesWhereItsBoundWraps) {
  EXPECT_EQ(withLatest("1073741823")->intPLen, 0);
  EXPECT_EQ(withLatest("2147483647")->intPLen, 0);
}

TEST(Widths, FractionalPartHoldsTwiceTheClocksLessOne) {
  EXPECT_EQ(modelOf(network("", processes(0)))->frPLen, 0);
  for (int count = 1; count <= 20; ++count)
    EXPECT_EQ(modelOf(network("", processes(count)))->frPLen, digits(2LL * count - 1)) << count;
}

TEST(StateLength, IsTheNumberOfVariablesOfAState) {
  for (const std::string& text : {emptyNetwork(), tinyNetwork(), tinyPair(), twoProcesses(),
                                  threeProcesses(), network("", processes(9))}) {
    const Model model = modelOf(text);
    const SymState s = model->genSymState(1);
    std::size_t variables = s.loc.bits.size() + s.clocks.frSplit.bits.size();
    for (const BoolFormVect& part : s.clocks.intParts) variables += part.bits.size();
    for (const BoolFormVect& part : s.clocks.frParts) variables += part.bits.size();
    EXPECT_EQ(model->getSymStateLen(), static_cast<int>(variables)) << text;
  }
}

TEST(StateLength, OfKnownNetworks) {
  EXPECT_EQ(modelOf(twoProcesses())->getSymStateLen(), 22);
  EXPECT_EQ(modelOf(emptyNetwork())->getSymStateLen(), 2);
  EXPECT_EQ(modelOf(tinyNetwork())->getSymStateLen(), 8);
}

// Every variable from the first on is met once, in the order of the layout.
TEST(SymbolicState, PartsFollowEachOther) {
  for (const std::string& text : {twoProcesses(), threeProcesses(), tinyPair()}) {
    const Model model = modelOf(text);
    const SymState s = model->genSymState(100);
    int next = 100;
    const auto expectNext = [&](const BoolFormVect& part) {
      for (const BoolForm& bit : part.bits) EXPECT_EQ(bit.nr, next++) << text;
    };
    expectNext(s.loc);
    for (const BoolFormVect& part : s.clocks.intParts) expectNext(part);
    expectNext(s.clocks.frSplit);
    for (const BoolFormVect& part : s.clocks.frParts) expectNext(part);
    EXPECT_EQ(next, 100 + model->getSymStateLen());
  }
}

TEST(SymbolicState, TwoProcessesFromVariableOneOn) {
  const SymState s = modelOf(twoProcesses())->genSymState(1);
  EXPECT_EQ(s.nrLocBits, 2);
  EXPECT_EQ(s.loc[1].nr, 2);
  EXPECT_EQ(s.clocks.n, 2);
  EXPECT_EQ(s.clocks.intPart(0)[0].nr, 3);
  EXPECT_EQ(s.clocks.intPart(2)[3].nr, 14);
  EXPECT_EQ(s.clocks.frSplit[0].nr, 15);
  EXPECT_EQ(s.clocks.frPart(0)[0].nr, 17);
  EXPECT_EQ(s.clocks.frPart(2)[1].nr, 22);
}

TEST(SymbolicState, TakesItsWidthsInOrder) {
  const SymState s(3, 2, 4, 5, 10);
  EXPECT_EQ(s.nrLocBits, 3);
  EXPECT_EQ(s.loc.size(), 3);
  EXPECT_EQ(s.clocks.n, 2);
  EXPECT_EQ(s.clocks.intPLen, 4);
  EXPECT_EQ(s.clocks.frPLen, 5);
  EXPECT_EQ(s.clocks.intPart(0)[0].nr, 13);
}

TEST(SymbolicState, ShowEndsALine) {
  const SymState s(3, 2, 4, 5, 10);
  testing::internal::CaptureStdout();
  s.show();
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "\n");
}

}  // namespace

// The program on networks whose answers are known beforehand.

#include "tests/endtoend/samples.hpp"

#include <gtest/gtest.h>

#include "tests/endtoend/judge.hpp"

namespace {

// An action is every third step, the second of three: this is the state after action n = 1, 2, ...
constexpr int stateAfterAction(int n) { return 3 * (n - 1) + 2; }

constexpr int twoInside = stateAfterAction(6);
constexpr int twoPieces = stateAfterAction(3);

Network askingForAPathOnly(Network net) {
  net.property = "T";
  return net;
}

TEST(Fischer, KeepsTwoProcessesApartWhileWritingIsFaster) {
  EXPECT_EQ(Judge(fischer(2, 1, 2)).verdict(twoInside + 3, false), "");
}

TEST(Fischer, KeepsThreeProcessesApartWhileWritingIsFaster) {
  EXPECT_EQ(Judge(fischer(3, 1, 2)).verdict(twoInside, false), "");
}

TEST(Fischer, GoesOnWhileItKeepsTwoProcessesApart) {
  EXPECT_EQ(Judge(askingForAPathOnly(fischer(2, 1, 2))).verdict(twoInside + 3, true), "");
}

TEST(Fischer, GoesOnWhileItKeepsThreeProcessesApart) {
  EXPECT_EQ(Judge(askingForAPathOnly(fischer(3, 1, 2))).verdict(twoInside, true), "");
}

TEST(Fischer, IsNotBrokenBeforeSixActions) {
  EXPECT_EQ(Judge(fischer(2, 2, 2)).verdict(twoInside - 1, false), "");
}

TEST(Fischer, IsBrokenByTwoProcessesWhereWritingMayTakeAsLong) {
  EXPECT_EQ(Judge(fischer(2, 2, 2)).verdict(twoInside, true), "");
}

TEST(Fischer, StaysBrokenOnLongerPaths) {
  EXPECT_EQ(Judge(fischer(2, 2, 2)).verdict(twoInside + 4, true), "");
}

TEST(Fischer, IsNotBrokenBeforeSixActionsAmongThree) {
  EXPECT_EQ(Judge(fischer(3, 3, 2)).verdict(twoInside - 1, false), "");
}

TEST(Fischer, IsBrokenByThreeProcessesWhereWritingMayTakeLonger) {
  EXPECT_EQ(Judge(fischer(3, 3, 2)).verdict(twoInside, true), "");
}

TEST(Handshake, NeverPilesUpBehindSlowWork) {
  EXPECT_EQ(Judge(handshake(3, 4)).verdict(20, false), "");
}

TEST(Handshake, GoesOnBehindSlowWork) {
  EXPECT_EQ(Judge(askingForAPathOnly(handshake(3, 4))).verdict(20, true), "");
}

TEST(Handshake, IsNotPiledUpBeforeThreeActions) {
  EXPECT_EQ(Judge(handshake(1, 2)).verdict(twoPieces - 1, false), "");
}

TEST(Handshake, PilesUpBehindFastWork) {
  EXPECT_EQ(Judge(handshake(1, 2)).verdict(twoPieces, true), "");
}

TEST(Handshake, PilesUpWhereWorkAndHoldingEndAtOnce) {
  EXPECT_EQ(Judge(handshake(2, 2)).verdict(twoPieces, true), "");
}

TEST(DeadEnd, IsReachedByItsOnlyAction) { EXPECT_EQ(Judge(deadEnd()).verdict(2, true), ""); }

TEST(DeadEnd, LetsTimePassAfterwards) { EXPECT_EQ(Judge(deadEnd()).verdict(4, true), ""); }

TEST(DeadEnd, IsOnNoPathThatNeedsASecondAction) {
  EXPECT_EQ(Judge(deadEnd()).verdict(5, false), "");
}

TEST(Property, ThatHoldsEverywhereAsksForAPathOnly) {
  EXPECT_EQ(Judge(askingForAPathOnly(deadEnd())).verdict(4, true), "");
}

TEST(Property, ThatHoldsNowhereGivesTheConstantFalse) {
  Network net = deadEnd();
  net.property = "p7";
  EXPECT_EQ(Judge(net).verdict(1, false), "");
}

}  // namespace

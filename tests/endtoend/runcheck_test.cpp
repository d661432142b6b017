// The checker of decoded runs has to notice what it is there for: each test spoils a legal run in
// one place.

#include "tests/endtoend/runcheck.hpp"

#include <gtest/gtest.h>

namespace {

constexpr Unit unit = 8;

// Process 0 leaves location 0 within [1, 2]; processes 1 and 2 may go round at any time.
const Network net{3,
                  {{1, 2, {{0, 0, 1}}}, {0, noLatest, {{1, 0, 0}}}, {0, noLatest, {{2, 0, 0}}}},
                  {{0, 1, 1}},
                  "p1"};

// Process 0 leaves at 1 + 3/8, process 2 goes round 2 + 1/8 later. The adjusting steps turn the
// fractions 0, 3, 3 into 0, 4, 4 and 1, 5, 0 into 2, 4, 0.
TimedRun legalRun() {
  return {unit,
          {{{{0, 0, 0}, {0, 0, 0}}, 11},
           {{{0, 0, 0}, {11, 11, 11}}, 0},
           {{{1, 0, 0}, {0, 11, 11}}, 0},
           {{{1, 0, 0}, {0, 12, 12}}, 17},
           {{{1, 0, 0}, {17, 29, 29}}, 0},
           {{{1, 0, 0}, {17, 29, 0}}, 0},
           {{{1, 0, 0}, {18, 28, 0}}, 0}}};
}

// As above, but with the fractions 3, 5, 0 in the last state but one.
TimedRun runWithNeighbours() {
  return {unit,
          {{{{0, 0, 0}, {0, 0, 0}}, 10},
           {{{0, 0, 0}, {10, 10, 10}}, 0},
           {{{1, 0, 0}, {0, 10, 10}}, 0},
           {{{1, 0, 0}, {0, 10, 10}}, 19},
           {{{1, 0, 0}, {19, 29, 29}}, 0},
           {{{1, 0, 0}, {19, 29, 0}}, 0},
           {{{1, 0, 0}, {19, 29, 0}}, 0}}};
}

// As above, but with the clocks of processes 0 and 1 at 5 and 6 + 4/8.
TimedRun runBeyondAllConstants() {
  return {unit,
          {{{{0, 0, 0}, {0, 0, 0}}, 11},
           {{{0, 0, 0}, {11, 11, 11}}, 0},
           {{{1, 0, 0}, {0, 11, 11}}, 0},
           {{{1, 0, 0}, {0, 12, 12}}, 40},
           {{{1, 0, 0}, {40, 52, 52}}, 0},
           {{{1, 0, 0}, {40, 52, 0}}, 0},
           {{{1, 0, 0}, {24, 28, 0}}, 0}}};
}

State& stateOf(TimedRun& run, std::size_t i) { return run.states[i].state; }

const char* const badTime =
    "step 0: time step: not all clocks, and they alone, advance by the delay";
const char* const badAction = "step 1: action step: no transition leads there";

TEST(RunCheck, AcceptsLegalRuns) {
  EXPECT_EQ(complaint(net, legalRun()), "");
  EXPECT_EQ(complaint(net, runWithNeighbours()), "");
  EXPECT_EQ(complaint(net, runBeyondAllConstants()), "");
}

TEST(RunCheck, WantsTheInitialClocks) {
  TimedRun run = legalRun();
  stateOf(run, 0).clocks[1] = 1;
  EXPECT_EQ(complaint(net, run), "the run does not start in the initial state");
}

TEST(RunCheck, WantsTheInitialLocations) {
  TimedRun run = legalRun();
  stateOf(run, 0).locations[0] = 1;
  EXPECT_EQ(complaint(net, run), "the run does not start in the initial state");
}

TEST(RunCheck, WantsTheDelayToPass) {
  TimedRun run = legalRun();
  run.states[0].delay = 12;
  EXPECT_EQ(complaint(net, run), badTime);
}

TEST(RunCheck, WantsLocationsToStayWhileTimePasses) {
  TimedRun run = legalRun();
  stateOf(run, 1).locations[0] = 1;
  EXPECT_EQ(complaint(net, run), badTime);
}

TEST(RunCheck, WantsTimeToKeepTheInvariant) {
  TimedRun run = legalRun();
  run.states[0].delay = 17;  // one step past the latest time
  stateOf(run, 1).clocks = {17, 17, 17};
  EXPECT_EQ(complaint(net, run), "step 0: time step: ends outside the invariant");
}

TEST(RunCheck, WantsTheEarliestTimeToBeReached) {
  TimedRun run = legalRun();
  run.states[0].delay = 7;  // one step before the earliest time
  stateOf(run, 1).clocks = {7, 7, 7};
  stateOf(run, 2).clocks = {0, 7, 7};
  EXPECT_EQ(complaint(net, run), badAction);
}

TEST(RunCheck, WantsProcessesToMoveAsTheTransitionSays) {
  TimedRun run = legalRun();
  stateOf(run, 2).locations[0] = 0;
  EXPECT_EQ(complaint(net, run), badAction);
}

TEST(RunCheck, WantsTheClocksOfAnActionReset) {
  TimedRun run = legalRun();
  stateOf(run, 2).clocks[0] = 11;
  EXPECT_EQ(complaint(net, run), badAction);
}

TEST(RunCheck, WantsOtherClocksUntouchedByAnAction) {
  TimedRun run = legalRun();
  stateOf(run, 2).clocks[1] = 12;
  EXPECT_EQ(complaint(net, run), badAction);
}

TEST(RunCheck, WantsLocationsToStayWhileAdjusting) {
  TimedRun run = legalRun();
  stateOf(run, 3).locations[0] = 0;
  EXPECT_EQ(complaint(net, run), "step 2: adjusting step: locations change");
}

TEST(RunCheck, WantsIntegerPartsToStayWhileAdjusting) {
  TimedRun run = legalRun();
  stateOf(run, 3).clocks[1] = 20;
  EXPECT_EQ(complaint(net, run), "step 2: adjusting step: wrong integer part");
}

TEST(RunCheck, WantsLargeIntegerPartsCollapsed) {
  TimedRun run = runBeyondAllConstants();
  stateOf(run, 6).clocks = stateOf(run, 5).clocks;
  EXPECT_EQ(complaint(net, run), "step 5: adjusting step: wrong integer part");
}

TEST(RunCheck, WantsZeroFractionsToStayZero) {
  TimedRun run = legalRun();
  stateOf(run, 3).clocks[0] = 1;
  EXPECT_EQ(complaint(net, run), "step 2: adjusting step: a fraction becomes or ceases to be zero");
}

TEST(RunCheck, WantsFractionsToMoveByAStepAtMost) {
  TimedRun run = legalRun();
  stateOf(run, 3).clocks[1] = 13;
  EXPECT_EQ(complaint(net, run), "step 2: adjusting step: a fraction moves by more than a step");
}

TEST(RunCheck, WantsNeighbouringFractionsNotToMerge) {
  TimedRun run = runWithNeighbours();
  stateOf(run, 6).clocks = {20, 28, 0};
  EXPECT_EQ(complaint(net, run), "step 5: adjusting step: the fractions change their order");
}

TEST(RunCheck, WantsEqualFractionsNotToPart) {
  TimedRun run = legalRun();
  stateOf(run, 3).clocks[1] = 11;
  EXPECT_EQ(complaint(net, run), "step 2: adjusting step: the fractions change their order");
}

TEST(RunCheck, WantsThePropertySomewhere) {
  TimedRun run = legalRun();
  run.states.resize(2);
  EXPECT_EQ(complaint(net, run), "the property holds nowhere on the run");
}

}  // namespace

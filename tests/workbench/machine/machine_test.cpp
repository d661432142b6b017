#include "workbench/machine/machine.hpp"

#include <gtest/gtest.h>

namespace tpn {
namespace {

Transition transition(std::int64_t earliest, std::optional<std::int64_t> latest,
                      std::vector<Move> moves) {
  return {{earliest, latest}, std::move(moves)};
}

// Locations 0, 7 and 9 with gaps between them; all constants are multiples of 3.
Network gaps() {
  Network net;
  net.processes = {{{0, 7, 9}, {}}, {{0}, {}}};
  net.transitions = {transition(3, 6, {{0, 0, 7}}), transition(9, {}, {{0, 7, 7}, {1, 0, 0}}),
                     transition(0, 0, {{0, 9, 0}})};
  return net;
}

TEST(Machine, RanksLocationsByTheirNumbers) {
  const Machine machine = makeMachine(gaps());
  EXPECT_EQ(machine.processes[0].rank(9), 2U);
  EXPECT_EQ(machine.processes[0].locations[1].number, 7);
  EXPECT_EQ(machine.transitions[2].moves[0].source, 2U);
}

TEST(Machine, CountsInTheGreatestCommonUnit) {
  const Machine machine = makeMachine(gaps());
  EXPECT_EQ(machine.unit, 3);
  EXPECT_EQ(machine.transitions[0].latest, 2);
  EXPECT_EQ(machine.transitions[1].earliest, 3);
}

TEST(Machine, HasUnitOneWhereAllConstantsAreZero) {
  Network net = gaps();
  for (Transition& t : net.transitions) t.interval = {0, {}};
  EXPECT_EQ(makeMachine(net).unit, 1);
}

TEST(Machine, CapsAClockAtWhatItsLocationReads) {
  const Machine machine = makeMachine(gaps());
  EXPECT_EQ(machine.processes[0].locations[0].cap, 2);
  EXPECT_EQ(machine.processes[0].locations[1].cap, 3);
  EXPECT_EQ(machine.processes[0].locations[2].cap, 0);
  EXPECT_EQ(machine.processes[0].cap, 3);
  EXPECT_EQ(widestClock(machine), 3);
}

TEST(Machine, KnowsHowFarAClockIsRead) {
  Network net = gaps();
  const Machine machine = makeMachine(net);
  EXPECT_EQ(machine.processes[0].reach, 3);  // 9 / 3, and one past 6 / 3
  EXPECT_EQ(machine.processes[1].reach, 3);
  net.transitions = {transition(0, 0, {{1, 0, 0}})};
  EXPECT_EQ(makeMachine(net).processes[0].reach, 0);
  EXPECT_EQ(makeMachine(net).processes[1].reach, 1);
}

TEST(Machine, KnowsWhatLeavesAndEnters) {
  const Machine machine = makeMachine(gaps());
  const auto& locations = machine.processes[0].locations;
  EXPECT_EQ(locations[1].entering, (std::vector<std::size_t>{0, 1}));
  EXPECT_EQ(locations[1].leaving, (std::vector<std::size_t>{1}));
  EXPECT_EQ(machine.processes[0].movers, (std::vector<std::size_t>{0, 1, 2}));
}

TEST(Machine, CapsAClockAtWhatMovesThatCountRead) {
  Network net = gaps();
  net.transitions[1].moves[0].counts = false;
  const Machine machine = makeMachine(net);
  EXPECT_EQ(machine.processes[0].locations[1].cap, 0);
  EXPECT_EQ(machine.processes[0].cap, 2);
  EXPECT_EQ(machine.processes[1].cap, 3);
  EXPECT_EQ(machine.processes[0].reach, 3);  // one past 6 / 3, as before
}

TEST(Machine, KnowsWhatResetsAClock) {
  Network net = gaps();
  net.transitions[1].moves[0].resets = false;
  const Machine machine = makeMachine(net);
  EXPECT_EQ(machine.processes[0].movers, (std::vector<std::size_t>{0, 1, 2}));
  EXPECT_EQ(machine.processes[0].resetters, (std::vector<std::size_t>{0, 2}));
  EXPECT_EQ(machine.processes[0].locations[1].cap, 3);
}

TEST(Machine, FindsTransitionsThatNeverFire) {
  Network net = gaps();
  EXPECT_FALSE(hasHopeless(makeMachine(net)));
  net.transitions[2].interval = {3, 0};
  EXPECT_TRUE(hasHopeless(makeMachine(net)));
}

}  // namespace
}  // namespace tpn

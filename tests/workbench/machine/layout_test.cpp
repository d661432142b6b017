#include "workbench/machine/layout.hpp"

#include <gtest/gtest.h>

#include <set>

namespace tpn {
namespace {

// One process with two locations of caps 2 and 0, one that no clock reads.
Machine small() {
  Network net;
  net.processes = {{{0, 4}, {}}, {{0, 1, 2}, {}}};
  net.transitions = {{{1, 2}, {{0, 0, 4}}}};
  return makeMachine(net);
}

// How many assignments of one state's variables satisfy the clauses.
int models(const Clauses& clauses, int variables) {
  int count = 0;
  for (unsigned bits = 0; bits < 1U << variables; ++bits) {
    bool all = true;
    for (const Clause& clause : clauses) {
      bool any = false;
      for (const int literal : clause)
        any = any || ((bits >> (std::abs(literal) - 1) & 1U) != 0) == (literal > 0);
      all = all && any;
    }
    count += all ? 1 : 0;
  }
  return count;
}

TEST(Layout, NamesEveryVariableOnce) {
  const Machine machine = small();
  const StateLayout layout = StateLayout::delayed(machine, 10);
  std::set<int> names;
  for (std::size_t p = 0; p < 2; ++p) {
    for (std::size_t l = 0; l < machine.processes[p].locations.size(); ++l)
      names.insert(layout.location(p, l));
    for (int c = 1; c <= layout.width(p); ++c) names.insert(layout.clock(p, c));
    EXPECT_EQ(layout.width(p), machine.processes[p].reach);
  }
  EXPECT_EQ(*names.begin(), 1);
  EXPECT_EQ(*names.rbegin(), layout.size());
  EXPECT_EQ(names.size(), static_cast<std::size_t>(layout.size()));
}

TEST(Layout, FactsLeaveTheStatesThatThereAre) {
  const Machine machine = small();
  const StateLayout layout = StateLayout::capped(machine);
  // Clocks 0, 1, 2 in the first location, 0 in the second; times three of the other process.
  EXPECT_EQ(models(facts(machine, layout), layout.size()), 12);
}

TEST(Layout, InitialStateKeepsTheFacts) {
  const Machine machine = small();
  const StateLayout layout = StateLayout::capped(machine);
  Clauses clauses = facts(machine, layout);
  for (const int literal : initialState(machine, layout)) clauses.push_back({literal});
  EXPECT_EQ(models(clauses, layout.size()), 1);
}

TEST(Layout, NamesOnlyWhatIsComparedWhereClocksAreWide) {
  Network net;
  net.processes = {{{0}, {}}, {{0}, {}}};
  net.transitions = {{{1, 50}, {{0, 0, 0}}}, {{0, 3}, {{0, 0, 0}, {1, 0, 0}}}};
  const StateLayout layout = StateLayout::delayed(makeMachine(net), 10);
  EXPECT_FALSE(layout.dense(0));
  EXPECT_TRUE(layout.dense(1));
  std::vector<std::int64_t> values;
  for (int i = 0; i < layout.width(0); ++i) values.push_back(layout.value(0, i));
  EXPECT_EQ(values, (std::vector<std::int64_t>{1, 3, 4, 50, 51}));
  EXPECT_EQ(layout.clock(0, 50), layout.clockAt(0, 3));
  EXPECT_EQ(layout.width(1), 4);
}

TEST(Layout, NamesNothingThatMovesThatDoNotCountCompare) {
  Network net;
  net.processes = {{{0}, {}}, {{0}, {}}};
  net.transitions = {{{1, 50}, {{0, 0, 0}, {1, 0, 0, false}}}, {{20, {}}, {{1, 0, 0}}}};
  const StateLayout layout = StateLayout::delayed(makeMachine(net), 10);
  EXPECT_EQ(layout.width(0), 3);
  ASSERT_EQ(layout.width(1), 1);
  EXPECT_EQ(layout.value(1, 0), 20);
}

TEST(Layout, ClocksPastAnyNumberAreNotNamed) {
  Network net;
  net.processes = {{{0}, {}}};
  net.transitions = {{{1, 1000000007}, {{0, 0, 0}}}};
  EXPECT_FALSE(StateLayout::fits(makeMachine(net)));
  EXPECT_TRUE(StateLayout::fits(small()));
}

}  // namespace
}  // namespace tpn

// Schedules against all firing times on the grid of half units: none is missed, none is earlier at
// any firing.

#include "workbench/runs/schedule.hpp"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/workbench/network/smallnets.hpp"
#include "tests/workbench/runs/gridmodel.hpp"
#include "workbench/runs/replay.hpp"
#include "workbench/walking/randomwalk.hpp"
#include "workbench/walking/walk.hpp"

namespace tpn {
namespace {

using Order = std::vector<std::size_t>;
using Times = std::vector<int>;  // in half units

// No firing of a least schedule waits longer than the largest earliest time: some firing from this
// one on would be waiting for that long since the one before, and all in between wait for it.
constexpr int longest = (SmallNets::largest + 1) * grid::perUnit;

// All firing times of an order.
class Exhaustive {
 public:
  Exhaustive(const Network& net, const Order& order) : net_(net), order_(order) {
    extend(grid::initial(net));
  }

  std::vector<Times> found;

 private:
  void extend(const grid::State& from) {
    if (times_.size() == order_.size()) {
      found.push_back(times_);
      return;
    }
    const int now = times_.empty() ? 0 : times_.back();
    for (int delay = 0; delay <= longest; ++delay) {
      grid::State s = from;
      if (!grid::step(net_, delay, order_[times_.size()], s)) continue;
      times_.push_back(now + delay);
      extend(s);
      times_.pop_back();
    }
  }

  const Network& net_;
  const Order& order_;
  Times times_;
};

Times leastOf(const std::vector<Times>& all) {
  Times least = all.front();
  for (const Times& times : all)
    for (std::size_t i = 0; i < least.size(); ++i) least[i] = std::min(least[i], times[i]);
  return least;
}

Times timesOf(const Run& run) {
  Times times;
  Rational now = 0;
  for (const Step& step : run.steps) {
    now = now + step.delay;
    EXPECT_EQ(now.denominator(), 1);
    times.push_back(static_cast<int>(now.numerator()) * grid::perUnit);
  }
  return times;
}

// Transitions that can fire one after the other, whatever the time; shorter where it gets stuck.
Order randomOrder(const Network& net, std::size_t length, SmallNets& random) {
  Order order;
  grid::State s = grid::initial(net);
  while (order.size() < length) {
    Order enabled;
    for (std::size_t t = 0; t < net.transitions.size(); ++t)
      if (grid::isFree(net.transitions[t], s)) enabled.push_back(t);
    if (enabled.empty()) break;
    order.push_back(enabled[random.upTo(enabled.size() - 1)]);
    for (const Move& move : net.transitions[order.back()].moves)
      s.locations[move.process] = move.target;
  }
  return order;
}

void expectLeast(MoveKinds kinds) {
  SmallNets nets(3, kinds);
  int with = 0;
  int without = 0;
  for (int i = 0; i < 2000; ++i) {
    const Network net = nets.next();
    const Order order = randomOrder(net, 5, nets);
    const auto run = schedule(net, order, 0);
    const std::vector<Times> all = Exhaustive(net, order).found;
    ASSERT_EQ(run.has_value(), !all.empty()) << i;
    if (!run) {
      ++without;
      continue;
    }
    with += order.size() == 5 ? 1 : 0;
    ASSERT_EQ(timesOf(*run), leastOf(all)) << i;
    ASSERT_EQ(replay(net, anything(), *run).complaint, "") << i;
  }
  EXPECT_GT(with, 200);
  EXPECT_GT(without, 200);
}

TEST(Schedule, IsTheLeastOfAllThereAre) { expectLeast(MoveKinds::plain); }

TEST(Schedule, IsTheLeastWhereMovesNeedNotCountOrReset) { expectLeast(MoveKinds::all); }

TEST(Schedule, KeepsOrderAndGoal) {
  const auto run = schedule(twoProcesses(), {1, 0, 2, 0}, 3);
  ASSERT_TRUE(run);
  Order order;
  for (const Step& step : run->steps) order.push_back(step.transition);
  EXPECT_EQ(order, (Order{1, 0, 2, 0}));
  EXPECT_EQ(run->goal, 3U);
  EXPECT_EQ(timesOf(*run), (Times{0, 2, 6, 8}));
}

TEST(Schedule, OfNothingIsEmpty) {
  const auto run = schedule(twoProcesses(), {}, 0);
  ASSERT_TRUE(run);
  EXPECT_TRUE(run->steps.empty());
}

TEST(Schedule, IsNoneWhereATransitionIsNotEnabled) {
  EXPECT_FALSE(schedule(twoProcesses(), {0, 2}, 0));
  EXPECT_FALSE(schedule(twoProcesses(), {3}, 0));
}

TEST(Schedule, IsNoneWhereAMoveThatDoesNotCountIsBlocked) {
  Network net = twoProcesses();
  net.transitions[2].moves[1].counts = false;
  EXPECT_TRUE(schedule(net, {0, 1, 2}, 0));
  EXPECT_FALSE(schedule(net, {0, 2}, 0));
}

// Transition 2 has to wait for 2, but 1 must follow it at once and may not come later than 1.
TEST(Schedule, IsNoneWhereTheLatestTimesContradict) {
  Network net = twoProcesses();
  net.transitions = {{{0, 1}, {{0, 0, 1}}}, {{2, 2}, {{1, 0, 1}}}};
  EXPECT_TRUE(schedule(net, {0, 1}, 0));
  EXPECT_FALSE(schedule(net, {1, 0}, 0));
}

// The first firing could come at 0, but the second has to come within 1 of it and not before 3.
TEST(Schedule, DelaysAFiringForTheSakeOfALaterOne) {
  Network net = twoProcesses();
  net.transitions = {{{0, {}}, {{0, 0, 1}}}, {{0, 1}, {{0, 1, 0}}}, {{3, {}}, {{1, 0, 1}}}};
  const auto run = schedule(net, {0, 2, 1}, 0);
  ASSERT_TRUE(run);
  EXPECT_EQ(timesOf(*run), (Times{4, 6, 6}));
}

// A ring of processes, each of which works for 1 to 3 and hands on; the last one's deadline reaches
// back over all before it.
Network ring(std::size_t processes) {
  Network net;
  net.processes.resize(processes, {{0, 1}, {}});
  for (std::size_t p = 0; p < processes; ++p) {
    net.transitions.push_back({{1, 3}, {{p, 0, 1}}});
    net.transitions.push_back({{0, 2}, {{p, 1, 0}, {(p + 1) % processes, 1, 1}}});
  }
  return net;
}

// What was done at some times can be done at the least times, none of which is later.
TEST(Schedule, IsNoLaterThanALongRandomWalk) {
  for (std::uint64_t seed = 1; seed <= 5; ++seed) {
    const Network net = ring(30);
    const auto walked = walkRandomly(net, seed, 300).run;
    ASSERT_EQ(walked.steps.size(), 300U);
    Order order;
    for (const Step& step : walked.steps) order.push_back(step.transition);
    const auto run = schedule(net, order, order.size());
    ASSERT_TRUE(run);
    const Replay slow = replay(net, anything(), walked);
    const Replay quick = replay(net, anything(), *run);
    ASSERT_EQ(quick.complaint, "");
    ASSERT_TRUE(std::equal(quick.times.begin(), quick.times.end(), slow.times.begin(),
                           [](const Rational& a, const Rational& b) { return a <= b; }));
  }
}

}  // namespace
}  // namespace tpn

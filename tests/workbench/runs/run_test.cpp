// Networks' meaning against the brute force on half units, and the complaints of a replay.

#include <gtest/gtest.h>

#include <limits>
#include <optional>
#include <set>

#include "tests/workbench/network/smallnets.hpp"
#include "tests/workbench/runs/gridmodel.hpp"
#include "workbench/runs/deadend.hpp"
#include "workbench/runs/replay.hpp"

namespace tpn {
namespace {

// In half units: past all constants, from any clock that is met here.
constexpr int farAhead = (2 * SmallNets::largest + 3) * grid::perUnit;
constexpr int networks = 400;
constexpr std::size_t statesEach = 60;

bool operator==(const TimedState& a, const TimedState& b) {
  return a.locations == b.locations && a.clocks == b.clocks;
}

// Calls `look` with many networks and states that can be reached in them.
template <class Look>
void everywhere(Look look) {
  SmallNets plain(1);
  SmallNets all(4, MoveKinds::all);
  for (int i = 0; i < 2 * networks; ++i) {
    const Network net = (i < networks ? plain : all).next();
    std::vector<grid::State> states = grid::reachable(net, 3, SmallNets::largest + 1);
    if (states.size() > statesEach) states.erase(states.begin(), states.end() - statesEach);
    for (const grid::State& state : states) look(net, state);
  }
}

TEST(Run, StartsWhereTheModelDoes) {
  SmallNets nets(2);
  for (int i = 0; i < 10; ++i) {
    const Network net = nets.next();
    EXPECT_TRUE(initialState(net) == grid::timed(grid::initial(net)));
  }
}

TEST(Run, LetsTimePassAsLongAsTheModel) {
  int limited = 0;
  int unlimited = 0;
  everywhere([&](const Network& net, const grid::State& from) {
    int longest = 0;
    for (grid::State s = from; longest < farAhead && grid::wait(net, s);) ++longest;
    const auto delay = longestDelay(net, grid::timed(from));
    if (longest == farAhead) {
      ++unlimited;
      ASSERT_FALSE(delay);
    } else {
      ++limited;
      ASSERT_EQ(delay, Rational(longest, grid::perUnit));
    }
  });
  EXPECT_GT(limited, 100);
  EXPECT_GT(unlimited, 100);
}

TEST(Run, OpensWindowsWhereTheModelFires) {
  int open = 0;
  int closed = 0;
  everywhere([&](const Network& net, const grid::State& from) {
    for (std::size_t t = 0; t < net.transitions.size(); ++t) {
      const auto delays = window(net, grid::timed(from), t);
      (delays ? open : closed) += 1;
      for (int delay = 0; delay <= farAhead; ++delay) {
        const Rational exact(delay, grid::perUnit);
        const bool inside =
            delays && delays->from <= exact && (!delays->to || exact <= *delays->to);
        grid::State s = from;
        ASSERT_EQ(inside, grid::step(net, delay, t, s));
      }
    }
  });
  EXPECT_GT(open, 100);
  EXPECT_GT(closed, 100);
}

TEST(Run, AdvancesAsTheModelDoes) {
  int taken = 0;
  everywhere([&](const Network& net, const grid::State& from) {
    for (std::size_t t = 0; t < net.transitions.size(); ++t)
      for (int delay = 0; delay <= farAhead; ++delay) {
        grid::State expected = from;
        const bool legal = grid::step(net, delay, t, expected);
        TimedState state = grid::timed(from);
        const std::string complaint = advance(net, {Rational(delay, grid::perUnit), t}, state);
        ASSERT_EQ(complaint.empty(), legal) << complaint;
        ASSERT_TRUE(state == grid::timed(legal ? expected : from));
        taken += legal ? 1 : 0;
      }
  });
  EXPECT_GT(taken, 1000);
}

// The network does not say what happens where a process is in the way of one that is in time.
TEST(Run, CollidesAndEndsWhereTheModelDoes) {
  int ends = 0;
  int collisions = 0;
  everywhere([&](const Network& net, const grid::State& from) {
    bool ended = true;
    std::optional<int> first;
    grid::State s = from;
    for (int delay = 0; delay <= farAhead && (delay == 0 || grid::wait(net, s)); ++delay)
      for (const Transition& t : net.transitions) {
        if (!grid::isInTime(t, s)) continue;
        ended = false;
        if (!grid::isFree(t, s) && !first) first = delay;
      }
    ASSERT_EQ(isDeadEnd(net, grid::timed(from)), ended);
    const auto found = collision(net, grid::timed(from));
    ASSERT_EQ(found.has_value(), first.has_value());
    if (found) {
      ASSERT_GE(found->delay, Rational(*first, grid::perUnit));
    }
    ends += ended ? 1 : 0;
    collisions += found ? 1 : 0;
  });
  EXPECT_GT(ends, 100);
  EXPECT_GT(collisions, 100);
}

// ---- replay
// --------------------------------------------------------------------------------------

const Property seven{"p7", {{PropertyItem::proposition, 7}}};

std::string complaint(const Run& run, const Property& property = seven,
                      const Network& net = twoProcesses()) {
  return replay(net, property, run).complaint;
}

// Transition 1 after 3/2, 2 after 1/2 more, 3 after 2 more.
Run goodRun() { return {{{Rational(3, 2), 0}, {Rational(1, 2), 1}, {2, 2}}, 1}; }

TEST(Replay, GivesStatesAndTimesOfAGoodRun) {
  const Replay replayed = replay(twoProcesses(), seven, goodRun());
  EXPECT_EQ(replayed.complaint, "");
  EXPECT_EQ(replayed.times, (std::vector<Rational>{0, Rational(3, 2), 2, 4}));
  ASSERT_EQ(replayed.states.size(), 4U);
  EXPECT_TRUE(replayed.states[1] == (TimedState{{1, 0}, {0, Rational(3, 2)}}));
  EXPECT_TRUE(replayed.states[2] == (TimedState{{1, 1}, {Rational(1, 2), 0}}));
  EXPECT_TRUE(replayed.states[3] == (TimedState{{0, 0}, {0, 0}}));
}

TEST(Replay, TakesARunWithoutSteps) {
  EXPECT_EQ(complaint({{}, 0}), "the property does not hold after 0 steps");
  EXPECT_EQ(complaint({{}, 0}, {"T", {{PropertyItem::truth, 0}}}), "");
}

TEST(Replay, StopsAtTheStepThatIsWrong) {
  tpn::Run run = goodRun();  // inside a test, Run is a member of GoogleTest's
  run.steps[1].delay = -1;
  const Replay replayed = replay(twoProcesses(), seven, run);
  EXPECT_EQ(replayed.states.size(), 2U);
  EXPECT_EQ(replayed.times.size(), 2U);
}

// Every rule broken once, and alone.
struct Broken {
  Run run;
  std::string complaint;
};

std::vector<Broken> brokenRuns() {
  std::vector<Broken> all(8, {goodRun(), ""});
  all[0].run.steps[1].transition = 3;
  all[0].complaint = "step 2: there is no transition 4";
  all[1].run.steps[1].delay = Rational(-1, 2);
  all[1].complaint = "step 2: the delay -1/2 is negative";
  all[2].run.steps[1].transition = 2;
  all[2].complaint = "step 2: transition 3 is not enabled: process 2 is in location 0, not 1";
  all[3].run.steps[2].delay = Rational(7, 4);
  all[3].complaint =
      "step 3: transition 3 fires too early: one of its clocks is at 7/4 and has to reach 2";
  all[4].run.steps[1].delay = Rational(8, 5);
  all[4].complaint = "step 2: transition 2 fires too late: its clocks are at 31/10 or more, past 3";
  all[5].run = {{{Rational(5, 2), 1}}, 1};
  all[5].complaint = "step 1: a delay of 5/2 is too long: transition 1 allows 2";
  all[6].run.goal = 4;
  all[6].complaint = "the goal is after 4 steps, but the run has only 3";
  all[7].run.goal = 3;
  all[7].complaint = "the property does not hold after 3 steps";
  return all;
}

TEST(Replay, ComplainsOfEveryRuleThatIsBroken) {
  std::set<std::string> complaints;
  for (const Broken& broken : brokenRuns()) {
    EXPECT_EQ(complaint(broken.run), broken.complaint);
    complaints.insert(broken.complaint);
  }
  EXPECT_EQ(complaints.size(), brokenRuns().size());
}

// The earliest time is for all processes of a transition, the latest for one of them.
TEST(Replay, LooksAtTheProcessThatMovedLast) {
  Network net = twoProcesses();
  net.transitions[2].interval = {1, 2};
  EXPECT_EQ(complaint({{{1, 0}, {2, 1}, {2, 2}}, 1}, seven, net), "");
  EXPECT_EQ(complaint({{{1, 0}, {2, 1}, {Rational(1, 2), 2}}, 1}, seven, net),
            "step 3: transition 3 fires too early: one of its clocks is at 1/2 and has to reach 1");
  EXPECT_EQ(complaint({{{1, 0}, {2, 1}, {3, 2}}, 1}, seven, net),
            "step 3: transition 3 fires too late: its clocks are at 3 or more, past 2");
}

// A place that holds a token already is in the way of a transition that would put one there: that
// is what happens after 5, not after 3.
TEST(Replay, TellsWhatIsInTheWay) {
  Network net;
  net.processes = {{{0, 1}, {}}, {{0, 1}, {}}};
  net.transitions = {{{0, 3}, {{1, 0, 1}}}, {{5, 6}, {{0, 0, 1}, {1, 0, 1, false}}}};
  const Property unsafe = orUnsafe({"F", {{PropertyItem::falsity}}});
  EXPECT_EQ(complaint({{{3, 0}}, 1}, unsafe, net), "");
  EXPECT_EQ(complaint({{}, 0}, unsafe, net), "the property does not hold after 0 steps");
  EXPECT_EQ(complaint({{{3, 0}, {2, 1}}, 1}, unsafe, net),
            "step 2: transition 2 is blocked: process 2 is in location 1, not 0");
  const auto found = collision(net, {{0, 1}, {4, 0}});
  ASSERT_TRUE(found);
  EXPECT_EQ(found->transition, 1U);
  EXPECT_EQ(found->delay, Rational(1));
  EXPECT_EQ(found->move.process, 1U);
  EXPECT_FALSE(collision(net, {{0, 1}, {7, 0}}));
}

// Reading does not set a clock to 0; a clock that is not read makes nothing wait.
TEST(Replay, KeepsClocksThatAreOnlyRead) {
  Network net;
  net.processes = {{{0, 1}, {}}, {{0, 1}, {}}};
  net.transitions = {{{1, 1}, {{0, 0, 0}, {1, 0, 0, true, false}}}, {{3, 3}, {{1, 0, 1}}}};
  const Replay read = replay(net, {"T", {{PropertyItem::truth}}}, {{{1, 0}, {1, 0}, {1, 1}}, 3});
  EXPECT_EQ(read.complaint, "");
  EXPECT_TRUE(read.states[2] == (TimedState{{0, 0}, {0, 2}}));
}

TEST(Replay, ComplainsOfTimesThatDoNotFit) {
  constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max();
  const std::string tooLarge = "a time needs more than 64 bits";
  Network net = twoProcesses();
  for (Transition& t : net.transitions) t.interval = {0, {}};
  EXPECT_EQ(complaint({{{most, 0}, {1, 1}}, 1}, seven, net), "step 2: " + tooLarge);
  EXPECT_EQ(complaint({{{Rational(1, most), 0}, {Rational(1, most - 1), 1}}, 1}, seven, net),
            "step 2: " + tooLarge);
  // No clock overflows where both are set to 0, but the sum of all delays does.
  net.transitions = {{{0, {}}, {{0, 0, 0}, {1, 0, 0}}}};
  EXPECT_EQ(complaint({{{most, 0}, {most, 0}}, 1}, seven, net), "step 2: " + tooLarge);
}

}  // namespace
}  // namespace tpn

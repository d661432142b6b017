// Networks' meaning against the brute force on half units, and the complaints of a replay.

#include <gtest/gtest.h>

#include <limits>
#include <set>

#include "tests/workbench/network/smallnets.hpp"
#include "tests/workbench/runs/gridmodel.hpp"
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
  SmallNets nets(1);
  for (int i = 0; i < networks; ++i) {
    const Network net = nets.next();
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

// Runs at random.

#include "workbench/walking/randomwalk.hpp"

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "tests/workbench/base/cputime.hpp"
#include "tests/workbench/network/bignets.hpp"
#include "tests/workbench/network/smallnets.hpp"
#include "tests/workbench/walking/walked.hpp"
#include "workbench/runs/replay.hpp"

namespace tpn {
namespace {

TEST(WalkRandomly, IsTheSameForTheSameSeed) {
  EXPECT_EQ(steps(walkRandomly(twoProcesses(), 1, 6)),
            "1 after 1, 2 after 7/4, 3 after 31/12, 1 after 4/3, 2 after 7/12, 3 after 53/12");
  std::set<std::string> walks;
  for (std::uint64_t seed = 0; seed < 20; ++seed) {
    walks.insert(steps(walkRandomly(twoProcesses(), seed, 30)));
    EXPECT_TRUE(walks.contains(steps(walkRandomly(twoProcesses(), seed, 30))));
  }
  EXPECT_EQ(walks.size(), 20U);
}

TEST(WalkRandomly, MakesSoManySteps) {
  EXPECT_EQ(walkRandomly(twoProcesses(), 1, 0).run.steps.size(), 0U);
  const Walked walked = walkRandomly(twoProcesses(), 1, 2000);
  EXPECT_EQ(walked.run.steps.size(), 2000U);
  EXPECT_EQ(walked.stuck, "");
  EXPECT_EQ(replay(twoProcesses(), anything(), walked.run).complaint, "");
}

// Every transition comes, with delays at both ends of its window and between.
TEST(WalkRandomly, LeavesNothingOut) {
  std::set<std::string> first;
  for (std::uint64_t seed = 0; seed < 2000; ++seed)
    first.insert(steps(walkRandomly(twoProcesses(), seed, 1)));
  EXPECT_EQ(first.size(), 13U + 25U);  // twelfths of 1 to 2 and of 0 to 2
  for (const char* step : {"1 after 1", "1 after 17/12", "1 after 2", "2 after 0", "2 after 2"})
    EXPECT_TRUE(first.contains(step)) << step;
}

TEST(WalkRandomly, SaysWhyItIsStuck) {
  EXPECT_EQ(walkRandomly(impatient(), 1, 5).stuck,
            "stuck: time stops after 2, and no transition can fire until then");
  Network net = twoProcesses();
  net.transitions.resize(1);
  const Walked walked = walkRandomly(net, 1, 5);
  EXPECT_EQ(walked.run.steps.size(), 1U);
  EXPECT_EQ(walked.stuck, "stuck: no transition is enabled");
}

TEST(WalkRandomly, GivesRunsThatReplayInAnyNetwork) {
  SmallNets nets(4);
  int made = 0;
  int cut = 0;
  for (std::uint64_t seed = 0; seed < 1000; ++seed) {
    const Network net = nets.next();
    const Walked walked = walkRandomly(net, seed, 20);
    const Replay replayed = replay(net, anything(), walked.run);
    ASSERT_EQ(replayed.complaint, "");
    ASSERT_EQ(walked.stuck,
              walked.run.steps.size() == 20 ? "" : stuck(net, replayed.states.back()));
    (walked.stuck.empty() ? made : cut) += 1;
  }
  EXPECT_GT(made, 100);
  EXPECT_GT(cut, 100);
}

// Asking for one window asks for the deadlines of all transitions; 2000 times that, a step took
// seconds.
TEST(WalkRandomly, StepsThroughThousandsOfTransitions) {
  const Network net = manyProcesses(5000);
  EXPECT_LT(cpuSeconds([&] { EXPECT_EQ(walkRandomly(net, 1, 20).run.steps.size(), 20U); }), 10);
}

}  // namespace
}  // namespace tpn

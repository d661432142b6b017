// Cubes: together they are the question.

#include "workbench/campaign/cubes.hpp"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/workbench/campaign/plannet.hpp"
#include "workbench/campaign/asking.hpp"
#include "workbench/families/families.hpp"
#include "workbench/search/bounded.hpp"

namespace tpn {
namespace {

int shortestInCubes(const Network& net, const Goal& goal, const std::vector<RunCube>& cubes,
                    int most) {
  const std::atomic<bool> stop{false};
  const Watch::Report silent;
  const Watch watch(std::nullopt, stop, silent);
  int shortest = most + 1;
  for (const RunCube& cube : cubes) {
    const Answer answer = answeredInCube(net, goal, cube, most, watch);
    if (answer.run) {
      EXPECT_TRUE(isIn(cube, *answer.run));
      shortest = std::min(shortest, static_cast<int>(answer.run->steps.size()));
    } else {
      EXPECT_EQ(answer.noRunUpTo, most);
    }
  }
  return shortest;
}

TEST(Cubes, HaveARunWhereTheNetworkHasOneAndAsShort) {
  for (const char* family : {"fischer-swapped", "ring-hasty", "crossing-slow"}) {
    const Family& f = *familyNamed(family);
    const Network net = f.network(3);
    Diagnostics none;
    for (const FamilyQuestion& question : f.questions) {
      const Goal goal = goalIn("", question.infix(3), net, none);
      for (int most = 1; most <= 9; most += 4) {
        BoundedOptions options;
        options.maxTransitions = most;
        const auto whole = searchBounded(net, goal, options, [] { return false; }, {});
        const int shortest = whole.run ? static_cast<int>(whole.run->steps.size()) : most + 1;
        for (const int depth : {1, 3})
          EXPECT_EQ(shortestInCubes(net, goal, splitRuns(net, goal, depth, most), most), shortest)
              << family << " " << question.name << " " << most;
      }
    }
  }
}

struct Counting {
  Network net = networkIn("", counting);
  Goal goal = deadlockProperty();
};

TEST(Cubes, AreTwoToTheDepthWhereRunsAreLong) {
  const Counting c;
  EXPECT_EQ(splitRuns(c.net, c.goal, 3, 20).size(), 8U);
  EXPECT_EQ(splitRuns(c.net, c.goal, 3, 2).size(), 2U);
  EXPECT_EQ(splitRuns(c.net, c.goal, 3, 1).size(), 1U);
}

TEST(Cubes, CoverAllRuns) {
  const Counting c;
  for (int depth = 1; depth < 6; ++depth)
    for (const int most : {1, 2, 7, 30})
      EXPECT_EQ(coverComplaint(c.net, splitRuns(c.net, c.goal, depth, most), most), "") << depth;
}

TEST(Cubes, WithoutOneOfThemCoverNoMore) {
  const Counting c;
  const std::vector<RunCube> cubes = splitRuns(c.net, c.goal, 3, 17);
  for (std::size_t i = 0; i < cubes.size(); ++i) {
    std::vector<RunCube> others = cubes;
    others.erase(others.begin() + static_cast<std::ptrdiff_t>(i));
    EXPECT_NE(coverComplaint(c.net, others, 17), "") << i;
  }
}

TEST(Cubes, OfSeveralStepsCoverAsTheirConditionsDo) {
  const Network net = networkIn("", counting);
  const CubePart first{1, 1, true, {0, 1}};
  const CubePart notFirst{1, 1, true, {2, 3, 4}};
  const CubePart second{2, 2, true, {0, 1}};
  const CubePart notSecond{2, 2, false, {0, 1}};
  const std::vector<RunCube> all{{first}, {notFirst, second}, {notFirst, notSecond}};
  EXPECT_EQ(coverComplaint(net, all, 3), "");
  EXPECT_NE(coverComplaint(net, {all[0], all[1]}, 3), "");
  EXPECT_NE(coverComplaint(net, {}, 3), "");
}

TEST(Cubes, AboutStepsOrTransitionsThatAreNotThereAreNone) {
  const Network net = networkIn("", counting);
  const std::vector<std::size_t> every{0, 1, 2, 3, 4};
  EXPECT_NE(coverComplaint(net, {{{4, 4, true, every}}}, 3), "");
  EXPECT_NE(coverComplaint(net, {{{0, 1, true, every}}}, 3), "");
  EXPECT_NE(coverComplaint(net, {{{2, 1, true, every}}}, 3), "");
  EXPECT_NE(coverComplaint(net, {{{1, 1, true, {0, 1, 2, 3, 5}}}}, 3), "");
}

}  // namespace
}  // namespace tpn

// The bounded search among some of the runs only: a run is found in a cube where there is one, and
// what two opposite cubes say together is what the search says of all runs.

#include "workbench/search/runcube.hpp"

#include <gtest/gtest.h>

#include <algorithm>

#include "workbench/families/families.hpp"
#include "workbench/network/infix.hpp"
#include "workbench/search/bounded.hpp"

namespace tpn {
namespace {

constexpr int most = 11;

BoundedVerdict searched(const Network& net, const Goal& goal, const RunCube& cube) {
  BoundedOptions options;
  options.maxTransitions = most;
  options.cube = cube;
  return searchBounded(net, goal, options, [] { return false; }, {});
}

int lengthOf(const BoundedVerdict& verdict) {
  return verdict.run ? static_cast<int>(verdict.run->steps.size()) : most + 1;
}

bool fires(const Run& run, const CubePart& part) {
  for (std::size_t step = part.first; step <= std::min(part.last, run.steps.size()); ++step)
    if (std::count(part.transitions.begin(), part.transitions.end(),
                   run.steps[step - 1].transition) > 0)
      return true;
  return false;
}

struct CubeQuestion {
  Network net;
  Goal goal;
};
CubeQuestion swappedFischer() {
  Network net = familyNamed("fischer-swapped")->network(3);
  Goal goal = readInfix("atleast(2, *.critical)", net);
  return {std::move(net), std::move(goal)};
}

TEST(RunCube, AndItsOppositeHaveAShortestRunTogether) {
  const CubeQuestion asked = swappedFischer();
  const int shortest = lengthOf(searched(asked.net, asked.goal, {}));
  ASSERT_LE(shortest, most);
  const std::vector<std::vector<std::size_t>> some{{0}, {0, 1, 2, 3}, {5, 7, 11}};
  for (const auto& transitions : some)
    for (std::size_t first = 1; first <= 3; ++first)
      for (std::size_t last = first; last <= 6; ++last) {
        const CubePart fire{first, last, true, transitions};
        const CubePart never{first, last, false, transitions};
        EXPECT_EQ(std::min(lengthOf(searched(asked.net, asked.goal, {fire})),
                           lengthOf(searched(asked.net, asked.goal, {never}))),
                  shortest)
            << first << ".." << last;
      }
}

TEST(RunCube, HoldsOfTheRunsThatAreFound) {
  const CubeQuestion asked = swappedFischer();
  for (std::size_t last = 1; last <= 4; ++last)
    for (const bool some : {true, false}) {
      const CubePart part{1, last, some, {0, 1, 2, 3}};
      const BoundedVerdict verdict = searched(asked.net, asked.goal, {part});
      if (verdict.run && verdict.run->steps.size() >= last) {
        EXPECT_EQ(fires(*verdict.run, part), some) << last;
      }
    }
}

TEST(RunCube, OfEveryTransitionAndOfNoneIsAllOrNothing) {
  const CubeQuestion asked = swappedFischer();
  const std::vector<std::size_t> all = othersThan({}, asked.net.transitions.size());
  const int shortest = lengthOf(searched(asked.net, asked.goal, {}));
  EXPECT_EQ(lengthOf(searched(asked.net, asked.goal, {{1, 4, true, all}})), shortest);
  EXPECT_EQ(lengthOf(searched(asked.net, asked.goal, {{1, 4, false, {}}})), shortest);
  EXPECT_EQ(searched(asked.net, asked.goal, {{2, 4, false, all}}).answer, BoundedVerdict::stuck);
}

TEST(RunCube, OthersAreThoseThatAreNotAmongThem) {
  EXPECT_EQ(othersThan({1, 3}, 5), (std::vector<std::size_t>{0, 2, 4}));
  EXPECT_TRUE(othersThan({0, 1}, 2).empty());
}

}  // namespace
}  // namespace tpn

// Random networks: what was drawn once is drawn again, and shapes are kept to.

#include "workbench/families/random.hpp"

#include <gtest/gtest.h>

#include <array>

#include "workbench/network/writer.hpp"

namespace tpn {
namespace {

// Files and figures are kept of these networks.
TEST(DealtNetwork, IsTheSameForEver) {
  EXPECT_EQ(networkFile(dealtNetwork(3, 12, 7)),
            "random 3 12 7\ntransitions\n1 2 4\n2 0 -1\n3 0 2\n4 3 6\n5 0 4\n6 0 2\n7 2 -1\n"
            "8 1 -1\n9 2 6\n10 0 1\n11 1 2\n12 1 4\nendtran\n"
            "process\n1 0 1\n4 1 2\n7 2 3\n10 3 0\nvaluation\n3 1 11\nendval\nend\n"
            "process\n2 0 1\n5 1 2\n8 2 0\n11 0 2\nvaluation\n2 1 21\nendval\nend\n"
            "process\n3 0 1\n6 1 2\n9 2 0\n12 2 1\nvaluation\n2 1 31\nendval\nend\nend\n");
}

TEST(DealtNetwork, LeadsEveryProcessOnceRoundAllItsLocations) {
  for (std::uint64_t seed = 1; seed <= 50; ++seed) {
    const Network net = dealtNetwork(4, 60, seed);
    for (std::size_t p = 0; p < 4; ++p) {
      const auto places = net.processes[p].locations.size();
      for (std::size_t round = 0; round < places; ++round) {
        const Move expected{p, static_cast<int>(round), static_cast<int>((round + 1) % places)};
        EXPECT_EQ(net.transitions[4 * round + p].moves, std::vector{expected});
      }
    }
  }
}

TEST(DealtNetwork, HasNoEarliestTimeAboveTheLargestLatestOne) {
  for (std::uint64_t seed = 1; seed <= 200; ++seed) {
    const Network net = dealtNetwork(2, 4, seed);
    EXPECT_EQ(largestConstant(net), largestLatest(net));
  }
}

TEST(Random, SpreadsEvenly) {
  Random random(1);
  std::array<int, 10> met{};
  for (int i = 0; i < 10000; ++i) ++met.at(random.below(10));
  for (const int times : met) EXPECT_NEAR(times, 1000, 150);
}

TEST(Random, ScatteredSeedsBeginWithNumbersThatHaveNothingInCommon) {
  std::array<int, 9> met{};  // the first two numbers of each
  for (unsigned seed = 0; seed < 9000; ++seed) {
    Random random(scattered(seed));
    const std::size_t first = random.below(3);
    ++met.at(3 * first + random.below(3));
  }
  for (const int times : met) EXPECT_NEAR(times, 1000, 150);
}

TEST(RandomNetworks, KeepToTheirShape) {
  RandomShape shape;
  shape.processes = {2, 5};
  shape.transitions = {3, 9};
  shape.locations = {2, 6};
  shape.span = {1, 2};
  shape.largest = 6;
  shape.careless = 0;
  RandomNetworks nets(shape, 1);
  for (int i = 0; i < 500; ++i) {
    const Network net = nets.next();
    EXPECT_GE(net.processes.size(), 2U);
    EXPECT_LE(net.processes.size(), 5U);
    EXPECT_GE(net.transitions.size(), 3U);
    EXPECT_LE(net.transitions.size(), 9U);
    for (const Transition& t : net.transitions) {
      EXPECT_LE(t.interval.earliest, 4);
      if (t.interval.latest) {
        EXPECT_GE(*t.interval.latest, t.interval.earliest + 1);
        EXPECT_LE(*t.interval.latest, t.interval.earliest + 2);
      }
      ASSERT_FALSE(t.moves.empty());
      for (const Move& move : t.moves) {
        EXPECT_TRUE(net.processes[move.process].locations.contains(move.source));
        EXPECT_TRUE(net.processes[move.process].locations.contains(move.target));
      }
    }
  }
}

TEST(RandomNetworks, AreOfEveryKind) {
  RandomNetworks nets({}, 1);
  int unlimited = 0;
  int empty = 0;
  int shared = 0;
  int all = 0;
  for (int i = 0; i < 1000; ++i)
    for (const Transition& t : nets.next().transitions) {
      ++all;
      unlimited += t.interval.latest ? 0 : 1;
      empty += t.interval.latest && *t.interval.latest < t.interval.earliest ? 1 : 0;
      shared += t.moves.size() > 1 ? 1 : 0;
    }
  EXPECT_NEAR(100 * unlimited / all, 25, 4);
  EXPECT_NEAR(1000 * empty / all, 15, 8);
  EXPECT_GT(100 * shared / all, 15);
}

TEST(RandomNetworks, KeepOnlyMentionedLocations) {
  Network net;
  net.processes = {{{0, 1, 2, 3}, {}}};
  net.transitions = {{{0, {}}, {{0, 0, 2}}}};
  keepMentioned(net);
  EXPECT_EQ(net.processes[0].locations, (std::set<int>{0, 2}));
}

}  // namespace
}  // namespace tpn

// The explorer itself, on networks that can be walked by hand.

#include "tests/endtoend/explorer.hpp"

#include <gtest/gtest.h>

#include "tests/endtoend/generator.hpp"
#include "tests/endtoend/samples.hpp"

namespace {

using Predictions = std::vector<bool>;

TEST(Explorer, WantsAPathOfTheWholeLength) {
  EXPECT_EQ(predictions(deadEnd(), 6), (Predictions{false, false, true, true, true, false, false}));
}

TEST(Explorer, SeesThePropertyInTheInitialState) {
  Network net = deadEnd();
  net.property = "p-1";
  EXPECT_EQ(predictions(net, 2), (Predictions{true, true, true}));
}

TEST(Explorer, WaitsForTheLastOfTheProcessesToBeReady) {
  const Transition first{0, 1, {{0, 0, 0}}};  // at most one unit between its firings
  const Transition both{2, noLatest, {{0, 0, 1}, {1, 0, 1}}};
  const Network net{2, {first, both}, {{1, 1, 1}}, "p1"};
  EXPECT_FALSE(predictions(net, 12).back());
}

TEST(Explorer, LetsTheYoungestProcessDecideWhatIsTooLate) {
  const Transition restart{1, 1, {{0, 0, 0}}};
  const Transition both{0, 1, {{0, 0, 1}, {1, 0, 1}}};  // process 1 may be older
  const Transition slow{2, noLatest, {{1, 0, 2}}};
  const Network net{2, {restart, both, slow}, {{1, 2, 1}}, "p1"};
  EXPECT_TRUE(predictions(net, 5).back());
}

TEST(Explorer, StopsTimeAtTheLatestFiring) {
  const Transition soon{0, 1, {{0, 0, 1}}};
  const Transition late{2, noLatest, {{1, 0, 1}}};
  const Network net{2, {soon, late}, {{0, 0, 1}, {1, 1, 2}}, "p1p2&"};
  EXPECT_FALSE(predictions(net, 2).back());
}

TEST(Explorer, BreaksFischerAfterSixActionsJustWhereWritingIsSlow) {
  const Predictions broken = predictions(fischer(2, 2, 2), 17);
  EXPECT_FALSE(broken[16]);
  EXPECT_TRUE(broken[17]);
  EXPECT_FALSE(predictions(fischer(2, 1, 2), 40).back());
}

TEST(Generator, GivesTheSameNetworkForTheSameSeed) {
  EXPECT_EQ(networkFile(randomNetwork(7)), networkFile(randomNetwork(7)));
  EXPECT_NE(networkFile(randomNetwork(7)), networkFile(randomNetwork(8)));
}

TEST(Generator, KeepsEarliestTimesWithinTheLargestLatest) {
  for (unsigned seed = 0; seed < 1000; ++seed) {
    const Network net = randomNetwork(seed);
    EXPECT_EQ(largestConstant(net), largestLatest(net)) << "seed " << seed;
  }
}

}  // namespace

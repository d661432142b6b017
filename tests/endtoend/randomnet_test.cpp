// Random networks: what the program writes is satisfiable just where the network's own states say
// so, and every model is a run that the network allows. A group is a range of seeds; it fails by
// itself and runs beside the others.

#include <gtest/gtest.h>

#include <array>

#include "tests/endtoend/explorer.hpp"
#include "tests/endtoend/generator.hpp"
#include "tests/endtoend/judge.hpp"

namespace {

constexpr unsigned groups = 10;
constexpr unsigned networksInGroup = 32;
constexpr unsigned seedsForNetwork = 1000;
constexpr int longest = 12;

// Per group and verdict: a suite that hardly ever asks for one of the two checks little.
constexpr int leastShareInPercent = 15;

// Without its times the network would give other answers. About one random network in twenty.
bool timesMatter(const Network& net) {
  Network timeless = net;
  for (Transition& t : timeless.transitions) {
    t.earliest = 0;
    t.latest = noLatest;
  }
  return predictions(net, longest) != predictions(timeless, longest);
}

// The network's first seed, or, for every second network, its first seed from which times matter.
unsigned seedFor(unsigned network) {
  unsigned seed = network * seedsForNetwork;
  if (network % 2 == 1)
    while (!timesMatter(randomNetwork(seed))) ++seed;
  return seed;
}

class RandomNetworks : public testing::TestWithParam<unsigned> {
 protected:
  void checkNetwork(unsigned network) {
    const unsigned seed = seedFor(network);
    const Network net = randomNetwork(seed);
    const std::vector<bool> reachable = predictions(net, longest);
    const Judge judge(net);
    for (int k = 1; k <= longest; ++k) {
      const bool expected = reachable[static_cast<std::size_t>(k)];
      ++met_[expected ? 1 : 0];
      EXPECT_EQ(judge.verdict(k, expected), "")
          << "seed " << seed << ", path length " << k << ", property " << net.property << "\n"
          << networkFile(net);
    }
  }

  int shareInPercent(bool verdict) const { return 100 * met_[verdict] / (met_[0] + met_[1]); }

 private:
  std::array<int, 2> met_{};  // [verdict]: how often it was due
};

TEST_P(RandomNetworks, AreReachedJustWhereTheirStatesSaySo) {
  const unsigned first = GetParam() * networksInGroup;
  for (unsigned network = first; network < first + networksInGroup; ++network)
    checkNetwork(network);
  EXPECT_GE(shareInPercent(true), leastShareInPercent);
  EXPECT_GE(shareInPercent(false), leastShareInPercent);
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomNetworks, testing::Range(0U, groups));

}  // namespace

// A shuffled network is the same network.

#include "workbench/search/shuffled.hpp"

#include <gtest/gtest.h>

#include <atomic>

#include "workbench/families/families.hpp"
#include "workbench/network/infix.hpp"
#include "workbench/proof/checker.hpp"
#include "workbench/runs/replay.hpp"
#include "workbench/search/engines.hpp"

namespace tpn {
namespace {

// The prover alone; what the seed sets besides the order is in it.
Answer provedShuffled(const Network& net, const Goal& goal, std::uint64_t seed) {
  const std::atomic<bool> stop{false};
  const Watch::Report silent;
  Watch watch(std::nullopt, stop, silent);
  EngineOptions options;
  options.engine = Engine::prover;
  options.seed = seed;
  return answered(net, goal, options, watch);
}

TEST(Shuffled, WithSeedZeroIsTheNetworkItself) {
  const Network net = familyNamed("ring")->network(4);
  EXPECT_EQ(Shuffled(net, deadlockProperty(), 0).net(), net);
  EXPECT_NE(Shuffled(net, deadlockProperty(), 1).net().transitions, net.transitions);
}

TEST(Shuffled, HasCertificatesThatProveTheSameOfTheNetwork) {
  for (const char* family : {"fischer", "crossing"})
    for (std::uint64_t seed = 1; seed < 5; ++seed) {
      const Network net = familyNamed(family)->network(3);
      const char* const bad = family[0] == 'f' ? "violation" : "danger";
      const Goal goal =
          readInfix(questionNamed(familyNamed(family)->questions, bad)->infix(3), net);
      const Answer found = provedShuffled(net, goal, seed);
      ASSERT_TRUE(found.certificate) << family << seed;
      EXPECT_EQ(recheck(net, goal, *found.certificate, {}).complaint, "") << family << seed;
    }
}

TEST(Shuffled, HasRunsOfTheNetworkAlsoWhereTheQuestionNamesProcesses) {
  const Network net = familyNamed("fischer")->network(3);
  for (std::uint64_t seed = 1; seed < 5; ++seed) {
    const Goal goal = readInfix("1.2 && !2.0", net);
    const Answer found = provedShuffled(net, goal, seed);
    ASSERT_TRUE(found.run) << seed;
    EXPECT_EQ(replay(net, goal, *found.run).complaint, "") << seed;
  }
}

}  // namespace
}  // namespace tpn

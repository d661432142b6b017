// Nets as networks: the same states, whatever their places and arcs.

#include "workbench/nets/translate.hpp"

#include <gtest/gtest.h>

#include "tests/workbench/nets/netexplorer.hpp"
#include "tests/workbench/nets/randomnets.hpp"
#include "tests/workbench/nets/readnet.hpp"
#include "tests/workbench/nets/writable.hpp"
#include "workbench/nets/bridge.hpp"
#include "workbench/nets/tinawriter.hpp"

namespace tpn {
namespace {

Explored ofNet(const PetriNet& net) { return NetExplorer(net).explored(); }

Explored ofTranslation(const PetriNet& net) {
  const Translation translation = translated(net);
  return NetworkExplorer(translation.net, net.places.size()).explored();
}

bool isPlain(const Network& net) {
  for (const Transition& t : net.transitions)
    for (const Move& move : t.moves)
      if (!move.counts || !move.resets) return false;
  return true;
}

TEST(Translate, ReachesTheSameMarkings) {
  RandomNets nets(1);
  int safe = 0;
  int unsafe = 0;
  for (int i = 0; i < 3000; ++i) {
    const PetriNet net = nets.next();
    const Explored found = ofNet(net);
    ASSERT_TRUE(ofTranslation(net) == found) << i << "\n" << tinaFile(net);
    ++(found.unsafe ? unsafe : safe);
  }
  EXPECT_GT(safe, 300);
  EXPECT_GT(unsafe, 300);
}

// Without what is told of their processes, networks become networks of plain moves again.
TEST(Translate, ReachesTheSameMarkingsInStateMachines) {
  WritableNets nets(2);
  int plain = 0;
  for (int i = 0; i < 500; ++i) {
    PetriNet net = petriNetOf(nets.next());
    net.origin.reset();
    ASSERT_TRUE(ofTranslation(net) == ofNet(net)) << tinaFile(net);
    plain += isPlain(translated(net).net) ? 1 : 0;
  }
  EXPECT_EQ(plain, 500);
}

TEST(Translate, ATransitionThatConsumesNothingFiresAgainAndAgain) {
  const PetriNet net =
      tinaNet("tr t [2,2] s?1 -> q tr u [0,0] q -> tr c [3,3] x -> y pl s (1) pl x (1) pl y");
  EXPECT_TRUE(ofTranslation(net).markings.contains(Marking{true, false, false, true}));
  EXPECT_TRUE(ofTranslation(net) == ofNet(net));
}

TEST(Translate, ReadingResetsNothingAndGivingBackDoes) {
  // w has to wait for 2 without interruption: r reads a each time unit, g takes it and puts it
  // back.
  const PetriNet reading = tinaNet("tr r [1,1] a?1 -> tr w [2,2] a -> c pl a (1)");
  const PetriNet giving = tinaNet("tr g [1,1] a -> a tr w [2,2] a -> c pl a (1)");
  EXPECT_EQ(ofTranslation(reading).markings.size(), 2U);
  EXPECT_EQ(ofTranslation(giving).markings.size(), 1U);
}

TEST(Translate, ReadingAndPuttingIsUnsafe) {
  const PetriNet net = tinaNet("tr t [1,1] a?1 -> a pl a (1)");
  EXPECT_TRUE(ofTranslation(net).unsafe);
  EXPECT_TRUE(ofTranslation(net) == ofNet(net));
}

TEST(Translate, TellsWhatBecameWhat) {
  const PetriNet net = tinaNet(
      "pl a (1) pl b tr go a -> b tr back b -> a q tr dead a b -> a b tr tick -> r tr take q r ->");
  EXPECT_EQ(told(net, translated(net)),
            "process 1: a b\n"
            "process 2: q, empty or marked\n"
            "process 3: r, empty or marked\n"
            "process 4: the clock of a transition that consumes nothing\n"
            "transition dead never fires and is left out\n");
}

TEST(Translate, CallsThingsByTheirNames) {
  const PetriNet net = tinaNet("net n pl {a b} pl c (1) tr t c -> {a b} tr u {a b} -> c q");
  const Network made = translated(net).net;
  EXPECT_EQ(made.title, "n");
  EXPECT_EQ(transitionName(made, 0), "t");
  EXPECT_EQ(propositionName(made, 1), "a b");
  EXPECT_EQ(locationName(made, 0, 0), "c");
  EXPECT_EQ(locationName(made, 0, 1), "a b");
  EXPECT_EQ(processName(made, 1), "q");
  EXPECT_EQ(locationName(made, 1, 0), "empty");
  EXPECT_EQ(locationName(made, 1, 1), "marked");
}

}  // namespace
}  // namespace tpn

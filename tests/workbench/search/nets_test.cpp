// What the engines say of random nets from outside, safe or not, against a walk through the nets'
// own states.

#include <gtest/gtest.h>

#include "tests/workbench/nets/netexplorer.hpp"
#include "tests/workbench/nets/randomnets.hpp"
#include "workbench/nets/translate.hpp"
#include "workbench/proof/checker.hpp"
#include "workbench/search/engines.hpp"

namespace tpn {
namespace {

struct Asked {
  Goal goal;
  bool reached = false;
};

// Two places marked at once, or no transition that fires any more.
Asked question(RandomNets& chance, const PetriNet& net, const Explored& explored) {
  if (chance.oneIn(3)) return {deadlockProperty(), !explored.dead.empty()};
  const std::size_t a = chance.upTo(net.places.size() - 1);
  const std::size_t b = chance.upTo(net.places.size() - 1);
  Asked asked;
  asked.goal.items = {{PropertyItem::proposition, number(a)},
                      {PropertyItem::proposition, number(b)},
                      {PropertyItem::conjunction, 0}};
  for (const Marking& marking : explored.markings)
    asked.reached = asked.reached || (marking[a] && marking[b]);
  return asked;
}

Answer answer(const Network& net, const Goal& goal, Engine engine) {
  const std::atomic<bool> stop{false};
  const Watch::Report none;
  Watch watch(std::nullopt, stop, none);
  EngineOptions options;
  options.engine = engine;
  if (engine == Engine::bounded) options.maxTransitions = 12;
  return answered(net, goal, options, watch);
}

// What is wrong with an answer of the prover's, or empty.
std::string wrong(const Network& net, const Goal& goal, const Answer& found, bool reached,
                  bool unsafe) {
  if (found.kind == Answer::reachable) return reached ? "" : "reachable";
  if (found.kind == Answer::unsafe) return unsafe ? "" : "unsafe";
  if (found.kind != Answer::unreachable || reached || unsafe) return "not found";
  return recheck(net, goal, *found.certificate, {}).complaint;
}

TEST(NetsFromOutside, AreAnsweredAsTheirStatesAre) {
  RandomNets nets(5);
  int answers[3] = {};
  for (int i = 0; i < 400; ++i) {
    const PetriNet net = nets.next();
    const Explored explored = NetExplorer(net).explored();
    const Asked asked = question(nets, net, explored);
    const Network made = translated(net).net;
    const Goal goal = mayBeUnsafe(made) ? orUnsafe(asked.goal) : asked.goal;
    const Answer proved = answer(made, goal, Engine::prover);
    ASSERT_EQ(wrong(made, goal, proved, asked.reached, explored.unsafe), "") << i;
    ++answers[asked.reached ? 0 : explored.unsafe ? 1 : 2];
    const Answer searched = answer(made, goal, Engine::bounded);
    if (proved.kind == Answer::unreachable)
      ASSERT_EQ(searched.kind, Answer::undecided) << i;
    else
      ASSERT_EQ(wrong(made, goal, searched, asked.reached, explored.unsafe), "") << i;
  }
  for (const int count : answers) EXPECT_GT(count, 40);
}

}  // namespace
}  // namespace tpn

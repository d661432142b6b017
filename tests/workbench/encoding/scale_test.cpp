// What becomes of large networks: no more time than they are worth, and an end when it is over.

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/workbench/base/cputime.hpp"
#include "tests/workbench/network/bignets.hpp"
#include "tests/workbench/search/explored.hpp"
#include "workbench/encoding/encode.hpp"
#include "workbench/encoding/statelength.hpp"

namespace {

// Twenty times the transitions took four hundred times as long: ranks were counted in the set.
TEST(Encode, TakesTimeLinearInTheLocations) {
  const auto seconds = [](std::size_t transitions) {
    const tpn::Network net = tpn::ring(transitions);
    NetTimedModel model;
    return tpn::cpuSeconds(
        [&] { tpn::encode(net, propertyOf("p1"), tpn::LocationCoding::workbench, model); });
  };
  const double small = std::max(seconds(2000), seconds(2000));
  EXPECT_LT(seconds(40000), 200 * small);
}

TEST(Encode, EndsAtACheckpoint) {
  NetTimedModel model;
  int passed = 3;
  const tpn::Checkpoint checkpoint([&] { return passed-- == 0; });
  EXPECT_THROW(tpn::encode(tpn::manyProcesses(100), propertyOf("p1"),
                           tpn::LocationCoding::workbench, model, checkpoint),
               tpn::Interrupted);
}

// One checkpoint a transition: with 2000 processes an action step has eight million terms.
TEST(Model, EndsAStepAtACheckpoint) {
  const tpn::Network net = tpn::manyProcesses(3);
  NetTimedModel model;
  tpn::encode(net, propertyOf("p1"), tpn::LocationCoding::workbench, model);
  std::size_t passed = 0;
  model.checkpoint = [&] { ++passed; };
  const auto length = static_cast<int>(model.getSymStateLen());
  const SymState from = model.genSymState(1);
  const SymState to = model.genSymState(1 + length);
  model.actionSucc(from, to);
  EXPECT_EQ(passed, net.transitions.size());
  model.checkpoint = [] { throw tpn::Interrupted(); };
  EXPECT_THROW(model.actionSucc(from, to), tpn::Interrupted);
}

TEST(StateLength, IsTheModels) {
  for (const tpn::Network& net : {tpn::manyProcesses(5), tpn::ring(9), tpn::parallel(3)}) {
    NetTimedModel model;
    tpn::encode(net, propertyOf("p1"), tpn::LocationCoding::core, model);
    EXPECT_EQ(tpn::stateLength(net).variables, model.getSymStateLen());
  }
}

}  // namespace

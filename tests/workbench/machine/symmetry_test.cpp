// Symmetries of networks whose moves need not count or reset: such a move is mapped onto such a
// one.

#include "workbench/machine/symmetry.hpp"

#include <gtest/gtest.h>

namespace tpn {
namespace {

// Two processes that do the same with a third one; each can as well do it alone, so that all clocks
// have the same caps.
Network twins() {
  Network net;
  net.processes.assign(3, {{0, 1}, {}});
  for (const std::size_t p : {0U, 1U}) {
    net.transitions.push_back({{1, 2}, {{p, 0, 0}, {2, 0, 1}}});
    net.transitions.push_back({{1, 2}, {{p, 0, 0}}});
  }
  return net;
}

const Symmetry swapped{{1, 0, 2}, {{0, 1}, {0, 1}, {0, 1}}};

TEST(Symmetry, SwapsProcessesThatDoTheSame) {
  EXPECT_EQ(symmetries(makeMachine(twins())), std::vector<Symmetry>{swapped});
  EXPECT_TRUE(isSymmetry(makeMachine(twins()), swapped));
}

TEST(Symmetry, TellsMovesThatDoNotCountOrReset) {
  for (bool Move::*const flag : {&Move::counts, &Move::resets}) {
    Network net = twins();
    net.transitions[0].moves[0].*flag = false;
    EXPECT_TRUE(symmetries(makeMachine(net)).empty());
    EXPECT_FALSE(isSymmetry(makeMachine(net), swapped));
    net.transitions[2].moves[0].*flag = false;
    EXPECT_EQ(symmetries(makeMachine(net)), std::vector<Symmetry>{swapped});
  }
}

}  // namespace
}  // namespace tpn

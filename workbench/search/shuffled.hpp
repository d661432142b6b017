// The same network with its processes and transitions in another order. To the engines that is
// another search for the same answer: a seed of theirs that asks nothing of them.

#pragma once

#include <cstdint>
#include <vector>

#include "workbench/network/goal.hpp"
#include "workbench/network/network.hpp"
#include "workbench/proof/certificate.hpp"
#include "workbench/runs/run.hpp"

namespace tpn {

class Shuffled {
 public:
  // Seed 0: it is as it is.
  Shuffled(const Network& net, const Goal& goal, std::uint64_t seed);

  const Network& net() const { return net_; }  // without names, where it is shuffled
  const Goal& goal() const { return goal_; }

  // What was found of net(), as it is of the network it was made from.
  Run back(Run run) const;
  Certificate back(const Certificate& certificate) const;

 private:
  Network net_;
  Goal goal_;
  std::uint64_t seed_;
  std::vector<std::size_t> processes_;    // [there]: here
  std::vector<std::size_t> transitions_;  // [there]: here
};

}  // namespace tpn

// The replay of a run: is it one, and what are its states?

#pragma once

#include <string>
#include <vector>

#include "workbench/network/network.hpp"
#include "workbench/network/property.hpp"
#include "workbench/runs/run.hpp"

namespace tpn {

// What replaying found: the states before the first and after every step, as far as it got.
struct Replay {
  std::vector<TimedState> states;  // states[0] is the initial one
  std::vector<Rational> times;     // when each was reached
  std::string complaint;  // why it is no run with the property at `goal`; empty where it is
};
Replay replay(const Network& net, const Property& property, const Run& run);

Replay unmoved(const Network& net);  // of no steps

// One more step at the end of a replay; what is wrong with it, or empty and its state and time are
// added.
std::string extend(const Network& net, const Step& step, Replay& replayed);

}  // namespace tpn

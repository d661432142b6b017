// A run: what a network does, with exact times. And its replay, which shares nothing with the
// encoding: the meaning of networks over exact fractions.
//
// The meaning. Every process has one clock; all clocks run alike and start at 0. A transition is
// enabled where each of its processes is in the source of its move. It may fire where it is
// enabled, the clocks of all its processes have reached its earliest time, and the clock of at
// least one of them is not past its latest. It moves its processes and sets their clocks to 0. Time
// may pass as long as every enabled transition with a latest time has a process whose clock is not
// past it.

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "workbench/network/network.hpp"
#include "workbench/network/property.hpp"
#include "workbench/runs/rational.hpp"

namespace tpn {

struct Step {
  Rational delay;              // >= 0, passes first
  std::size_t transition = 0;  // index; fires then
};

struct Run {
  std::vector<Step> steps;
  std::size_t goal = 0;  // the property holds after this many steps, 0 .. steps.size()
};

// One state on a run.
struct TimedState {
  Locations locations;
  std::vector<Rational> clocks;  // one a process
};

TimedState initialState(const Network& net);

// How long time may pass from here: the longest delay that every enabled transition allows; none
// where there is no limit.
std::optional<Rational> longestDelay(const Network& net, const TimedState& state);

// The delays after which a transition may fire: from .. to, both included, no `to` where there is
// no limit. Nothing where it cannot fire from this state, however long one waits.
struct Window {
  Rational from;
  std::optional<Rational> to;
};
std::optional<Window> window(const Network& net, const TimedState& state, std::size_t transition);

// One step; what is wrong with it, or empty and `state` is the state after it.
std::string advance(const Network& net, const Step& step, TimedState& state);

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

// The earliest times, whole numbers, at which these transitions can fire one after the other; none
// where there are no such times at all. (All bounds are closed whole numbers: what can be done over
// exact time can be done at whole times.)
std::optional<Run> schedule(const Network& net, const std::vector<std::size_t>& transitions,
                            std::size_t goal);

}  // namespace tpn

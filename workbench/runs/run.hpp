// A run: what a network does, with exact times. Its meaning shares nothing with the encoding: it is
// that of networks over exact fractions.
//
// The meaning. Every process has one clock; all clocks run alike and start at 0. A transition is
// enabled where each of its processes is in the source of its move. It may fire where it is
// enabled, the clocks of all its processes have reached its earliest time, and the clock of at
// least one of them is not past its latest. It moves its processes and sets their clocks to 0. Time
// may pass as long as every enabled transition with a latest time has a process whose clock is not
// past it.
//
// "Its processes" are, in all of this, those of moves that count. The process of one that does not
// has to be in its source as well for the transition to fire, whenever that is; it is moved, and
// its clock set to 0. A move that does not reset leaves process and clock alone.

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "workbench/network/network.hpp"
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
// The same as far as moves that count say.
std::optional<Window> windowOfCounting(const Network& net, const TimedState& state,
                                       std::size_t transition);

// The window of every transition, for the cost of a few.
std::vector<std::optional<Window>> windows(const Network& net, const TimedState& state);

// Why an enabled transition without a window cannot fire, in words that go on from "cannot fire":
// what it waits for, and what does not wait so long.
std::string hindrance(const Network& net, const TimedState& state, std::size_t transition);

// One step; what is wrong with it, or empty and `state` is the state after it.
std::string advance(const Network& net, const Step& step, TimedState& state);

}  // namespace tpn

// Dead ends: states in which no transition can fire, now or after any delay. States in which one
// can but for a process that is in its way. And what a property says of a state, which may ask for
// either.
//
// In the way is a process that is not in the source of a move that does not count: a place that
// holds a token already. What happens then no network says. So a transition in this situation is
// none that cannot fire, and a state with one is no dead end.

#pragma once

#include <optional>

#include "workbench/network/property.hpp"
#include "workbench/runs/run.hpp"

namespace tpn {

bool isDeadEnd(const Network& net, const TimedState& state);

// The transition, the shortest delay after which it would fire, and what is in its way.
struct Collision {
  std::size_t transition = 0;
  Rational delay;
  Move move;
};
std::optional<Collision> collision(const Network& net, const TimedState& state);

bool holds(const Network& net, const Property& property, const TimedState& state);

}  // namespace tpn

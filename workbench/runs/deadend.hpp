// Dead ends: states in which no transition can fire, now or after any delay. And what a property
// says of a state, which may ask for that.

#pragma once

#include "workbench/network/property.hpp"
#include "workbench/runs/run.hpp"

namespace tpn {

bool isDeadEnd(const Network& net, const TimedState& state);

bool holds(const Network& net, const Property& property, const TimedState& state);

}  // namespace tpn

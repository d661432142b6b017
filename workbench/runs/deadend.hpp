// Dead ends: states in which no transition can fire, now or after any delay.

#pragma once

#include "workbench/runs/replay.hpp"

namespace tpn {

bool isDeadEnd(const Network& net, const TimedState& state);

// As `replay`, with a dead end in place of the property: the complaint is empty where the state
// after run.goal steps is one.
Replay replayToDeadEnd(const Network& net, const Run& run);

}  // namespace tpn

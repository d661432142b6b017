// Walks a network's own states, in whole time units.
//
// Whole units decide what is reachable. All bounds are closed, so a run over real delays keeps
// every comparison that it met when each point in time is rounded down to a whole number: rounding
// is monotone and commutes with adding whole numbers, hence now >= then + e gives the same for the
// rounded points, and likewise now <= then + l. Locations do not depend on when, only on which.

#pragma once

#include <vector>

#include "tests/endtoend/network.hpp"

// [k], for k = 0..longest: there is a path of exactly k steps in the rotation time, action, adjust
// that starts in the initial state and has a state with the property among its k + 1.
//
// A time step adds one delay, possibly 0, to all clocks; it and an action step end in a state that
// satisfies the invariant (an action step always does where it began in one: what it newly enables
// has a clock that was just reset). An adjusting step changes nothing that the network could
// notice. A path that cannot go on is no path of a greater length, even where the property held on
// it.
std::vector<bool> predictions(const Network& net, int longest);

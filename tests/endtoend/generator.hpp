// Random small networks: the same seed gives the same network with every compiler.

#pragma once

#include "tests/endtoend/network.hpp"

// 1..4 processes of at most 4 locations, 1..6 transitions, constants up to 4.
//
// No earliest time exceeds the largest finite latest time c. The encoding takes c for the largest
// constant of the network: it lets at most c pass at once and treats all clocks above c alike, so
// it cannot tell whether an earliest time above c is reached. Up to c nothing is lost, for where a
// clock is above c, one at c would serve as well: both have reached every earliest time, and the
// one at c has passed no latest time.
Network randomNetwork(unsigned seed);

// Judges a decoded run, step by step, by what the network means.
//
// Time steps and action steps have to do exactly what the network does, in fixed-point arithmetic.
// An adjusting step replaces clock values by others that the network cannot tell from them:
//
// (1) integer parts up to the largest constant c stay, larger ones become c + 1;
// (2) fractional parts keep their strict order, and what is equal stays equal;
// (3) a fractional part is zero afterwards just where it was zero before;
// (4) a fractional part moves by one step at most.
//
// (2) to (4) hold for the encoding, without exception. Where all fractions are even or all odd they
// are copied. Else there is an odd split value s, and a fraction f becomes g(f):
//     g(0) = 0,   g(f) = f + 1 for 0 < f < s,   g(f) = f - 1 for odd f > s,
// while f = s and even f > s have no successor. (4) is plain. (3): below s it is g(f) >= 2, above s
// it is g(f) >= s >= 1. (2): g is strictly increasing. Within a branch that is plain, and 0 lies
// below all others by (3). Between the branches 0 < a < s < b with b odd: s is odd as well, so
// b >= s + 2 and g(b) >= s + 1, while g(a) = a + 1 <= s. Nothing merges, not even neighbours.
//
// (2) and (3) together with (1) are what the region construction needs: two clock valuations that
// agree in them allow the same steps, over real delays, for ever after.

#pragma once

#include <string>

#include "tests/endtoend/decode.hpp"
#include "tests/endtoend/network.hpp"

// What is wrong with the run as a path on which the property holds somewhere; empty where nothing
// is.
std::string complaint(const Network& net, const TimedRun& run);

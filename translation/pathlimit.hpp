// What path lengths fit: into the variable numbers, the node numbers, the memory.
//
// A path that does not fit is refused with the figures and the largest length that does. Variables
// are counted beforehand. Nodes are not: how many a path needs is known once it is built, so a
// build that runs out is given up, and the lengths that would have fitted are found by building
// short paths and counting on.

#pragma once

#include <cstdint>
#include <string>

#include "model/tpnmodel.hpp"

// The process ends with exit status 1 and one line on standard error, unless the k + 1 states of a
// path of length k have at most 999999 variables together.
void refuseTooManyVariables(const NetTimedModel& model, int k);

// The same end for a build that ran out of node numbers, or of memory. Both empty the formula store
// first: no formula built before is valid any more.
[[noreturn]] void refuseTooManyNodes(const NetTimedModel& model, int k);
[[noreturn]] void refuseOutOfMemory(const NetTimedModel& model, int k);

// The largest path length whose formula has at most `nodes` nodes; 0 where none has. Empties the
// formula store, before and after.
int largestLengthWithin(const NetTimedModel& model, std::int64_t nodes);

// What path lengths fit: into the variable numbers, the node numbers, the memory.
//
// A path that does not fit is refused with the figures and the largest length that does. Variables
// are counted beforehand. Nodes are not: how many a path needs is known once it is built, so a
// build that runs out is given up, and the lengths that would have fitted are found by building
// short paths and counting on.

#pragma once

#include <cstdint>
#include <string>

#include "ectl/refusal.hpp"
#include "model/tpnmodel.hpp"

// The path length does not fit; largest is one that does, 0 where none does.
struct PathRefusal : Refusal {
  PathRefusal(int k, const std::string& needs, const std::string& about, int largestLength);
  int largest;
};

struct TooManyVariables : PathRefusal {
  using PathRefusal::PathRefusal;
};
struct TooManyNodes : PathRefusal {
  using PathRefusal::PathRefusal;
};
struct TooLittleMemory : PathRefusal {
  using PathRefusal::PathRefusal;
};

constexpr std::int64_t mostPathVariables = varNrLimit - 1;  // of all states of a path together

// Throws TooManyVariables unless the k + 1 states of a path of length k have at most that many.
void refuseTooManyVariables(const NetTimedModel& model, int k);

// For a build that ran out of node numbers, or of memory: throws TooManyNodes, TooLittleMemory.
// Both empty the formula store first: no formula built before is valid any more.
[[noreturn]] void refuseTooManyNodes(const NetTimedModel& model, int k);
[[noreturn]] void refuseOutOfMemory(const NetTimedModel& model, int k);

// The largest path length whose formula has at most `nodes` nodes; 0 where none has. Empties the
// formula store, before and after.
int largestLengthWithin(const NetTimedModel& model, std::int64_t nodes);

// Place invariants as clauses about one state: sums, process by process, in unary code ("the sum up
// to here is at least v", for the values v that it can have where the total is right).
//
// Unit propagation keeps the least and the largest value of every partial sum and of every
// process's part tight, in both directions: each clause says of one addition that at least x and at
// least y is at least x + y, or that at most x and at most y is at most x + y, for all pairs of
// values. So the clauses of an addition are about twice as many as its pairs; the process with the
// most values (a counter of the others, usually) stands at the end, where it is compared with the
// sum of the others and none is added.

#pragma once

#include <cstddef>
#include <vector>

#include "workbench/base/checkpoint.hpp"
#include "workbench/machine/invariants.hpp"
#include "workbench/machine/layout.hpp"

namespace tpn {

struct LinearClauses {
  Clauses clauses;          // over a state's variables and the helpers
  int helpers = 0;          // variables layout.size() + 1 .. layout.size() + helpers
  std::size_t omitted = 0;  // invariants that would have needed more clauses than allowed
};

// `most`: clauses for one invariant.
LinearClauses linearClauses(const Machine& machine, const StateLayout& layout,
                            const std::vector<PlaceInvariant>& invariants,
                            const Checkpoint& checkpoint = {}, std::size_t most = 200'000);

}  // namespace tpn

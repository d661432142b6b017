// Bounded search: is there a run of so many transitions, 0, 1, 2, ...? The first yes is a shortest
// run. It never says "never", unless every run of the network comes to an end.

#pragma once

#include <functional>
#include <optional>
#include <string>

#include "workbench/network/goal.hpp"
#include "workbench/network/network.hpp"
#include "workbench/runs/run.hpp"
#include "workbench/search/runcube.hpp"

namespace tpn {

struct BoundedOptions {
  std::optional<int> maxTransitions;  // the last length that is asked
  std::int64_t unaryLimit = 24;       // widths of clocks up to this are in unary code, which is
                                      // cheaper then: docs/performance.md
  bool symmetry = true;               // look at one run only where processes can be exchanged
  RunCube cube{};                     // look at these runs only
};

struct BoundedProgress {
  int transitions = 0;  // the length that is being asked
  long variables = 0;
  long clauses = 0;
};

struct BoundedVerdict {
  enum Answer {
    reached,
    exhausted,  // none of up to maxTransitions
    stuck,      // no run has more than `noRunUpTo` transitions, and none of them does it
    undecided   // it was told to stop, or could not go on
  } answer = undecided;
  std::optional<Run> run;  // reached: a shortest one, replayed
  int noRunUpTo = -1;      // no run of up to so many transitions does it
  std::string reason;      // undecided: one line; empty where `over` ended it
};

// `over` is asked often, also while clauses are made. Throws std::runtime_error with one line where
// a run that the solver found does not replay.
BoundedVerdict searchBounded(const Network& net, const Goal& goal, const BoundedOptions& options,
                             const std::function<bool()>& over,
                             const std::function<void(const BoundedProgress&)>& report);

}  // namespace tpn

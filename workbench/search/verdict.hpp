// What a search answers: whether a state with the property can be reached.
//
// Path lengths ("bounds") are what clause files count: one step each for time, action and
// adjusting, in this order. A run of n actions is that of bound 3n - 1, and the initial state alone
// is bound 1.

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "workbench/runs/run.hpp"

namespace tpn {

// The bounds that are asked: 1, 2, 5, 8, ... The first is about the initial state, each other one
// ends an action.
constexpr int boundAfter(int k) { return k < 2 ? k + 1 : k + 3; }

// The smallest bound whose runs have that many actions.
constexpr int boundOf(std::size_t actions) {
  return actions == 0 ? 1 : 3 * static_cast<int>(actions) - 1;
}

// The largest number of actions of runs of that bound; -1 for bound 0, which has none.
constexpr int transitionsWithin(int bound) { return bound == 0 ? -1 : (bound + 1) / 3; }

// A bound that was asked and has no answer.
struct Unanswered {
  int bound = 0;
  std::string reason;  // one line: a solver that failed or gave up, the time is over, ...
};

struct Verdict {
  enum Answer {
    reachable,
    unreached,    // by no run of up to `bound` steps
    unknown,      // the search ended early
    unreachable,  // by no run at all
  } answer = unknown;
  int bound = 0;  // reachable: that of the run; otherwise the largest k known to have no run
  std::optional<Run> run;  // reachable: replayed without complaint
  // One line. Unknown: why it stopped. Unreached: why no larger bound would change that, or empty.
  std::string reason;
  // Reachable: a run of a smaller bound can be ruled out.
  bool shortest = false;
  // Reachable: the bounds that stayed without an answer, ascending, up to the one that gave the
  // run.
  std::vector<Unanswered> unanswered;
};

// A run that was found with its goal, without what happens after it; bound and all.
Verdict reachableBy(Run run, bool shortest);

// The run ends at its goal.
Run cutAtGoal(Run run);

// For the end of a message: what was completed before something failed.
std::string knownUpTo(int k);

}  // namespace tpn

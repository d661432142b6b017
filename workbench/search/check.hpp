// The question people really ask: can it happen at all? Bounds are raised from the smallest up
// until the solver says yes, a limit is met, or the user has had enough.

#pragma once

#include <atomic>
#include <chrono>
#include <functional>
#include <optional>
#include <string>

#include "workbench/network/network.hpp"
#include "workbench/network/property.hpp"
#include "workbench/runs/run.hpp"

namespace tpn {

struct CheckOptions {
  int maxBound = 0;  // the last k to ask; 0: as far as numbers reach
  std::optional<std::chrono::milliseconds> timeout;  // for everything together
  std::string solver;  // empty: embedded; a known name or a path: that program
  int jobs = 1;        // bounds side by side, with a solver program
  std::string keep;    // a folder for clause files, maps, answers; empty: none are kept
};

struct Progress {
  int bound = 0;  // the k being asked
  long variables = 0;
  long clauses = 0;
  long conflicts = -1;  // -1: unknown
  double seconds = 0;   // since the check began
};

struct Verdict {
  enum Answer { reachable, unreached, unknown } answer = unknown;
  int bound = 0;  // reachable: the smallest k; otherwise the largest k known to have no run
  std::optional<Run> run;  // reachable: replayed without complaint
  // One line. Unknown: why it stopped. Unreached: why no larger bound would change that, or empty.
  // Reachable: why smaller bounds have no answer (the bound may not be the smallest then), or
  // empty.
  std::string reason;
};

// Asks k = 1, 2, 5, 8, ...: those that end an action, and the first. `stop` may be set by a signal
// handler. Throws std::runtime_error with one line where something failed: a solver that cannot be
// run or whose answer is broken, a file that cannot be written, a run that does not replay.
Verdict check(const Network& net, const Property& property, const CheckOptions& options,
              const std::atomic<bool>& stop, const std::function<void(const Progress&)>& report);

// The run in a solver's answer to the clause file that zervan wrote, by its variable map (`map`,
// `answer`: the files' contents; NET as zervan read it). Throws std::runtime_error with one line
// where they are broken or do not fit; none where the answer is that there is no run.
std::optional<Run> traced(const Network& net, const Property& property, const std::string& map,
                          const std::string& answer);

}  // namespace tpn

// The question people really ask: can it happen at all? Bounds are raised from the smallest up
// until the solver says yes, a limit is met, or the user has had enough.

#pragma once

#include <atomic>
#include <functional>

#include "workbench/search/question.hpp"
#include "workbench/search/verdict.hpp"
#include "workbench/search/watch.hpp"

namespace tpn {

// Asks k = 1, 2, 5, 8, ...: those that end an action, and the first. `stop` may be set by a signal
// handler. Throws std::runtime_error with one line where something failed: a solver that cannot be
// run or whose answer is broken, a file that cannot be written, a run that does not replay, memory
// that runs out. It tells the bounds completed by then.
Verdict check(const Network& net, const Property& property, const CheckOptions& options,
              const std::atomic<bool>& stop, const std::function<void(const Progress&)>& report);

}  // namespace tpn

// What ends a check before its answer, and what it says on the way.

#pragma once

#include <atomic>
#include <chrono>
#include <functional>
#include <string>

#include "workbench/search/check.hpp"

namespace tpn {

class Watch {
 public:
  using Clock = std::chrono::steady_clock;

  Watch(const CheckOptions& options, const std::atomic<bool>& stop,
        const std::function<void(const Progress&)>& report)
      : timeout_(options.timeout), stop_(stop), report_(report) {}

  bool over() const { return stop_ || (timeout_ && Clock::now() - start_ >= *timeout_); }

  // Why it is over.
  std::string reason() const { return stop_ ? "interrupted" : "the time is over"; }

  // At once; tellAgain not more than ten times a second.
  void tell(Progress progress) {
    last_ = Clock::now();
    progress.seconds = std::chrono::duration<double>(last_ - start_).count();
    if (report_) report_(progress);
  }
  void tellAgain(const Progress& progress) {
    if (Clock::now() - last_ >= std::chrono::milliseconds(100)) tell(progress);
  }

 private:
  Clock::time_point start_ = Clock::now();
  Clock::time_point last_ = start_;
  std::optional<std::chrono::milliseconds> timeout_;
  const std::atomic<bool>& stop_;
  const std::function<void(const Progress&)>& report_;
};

// The bounds that are asked: 1, 2, 5, 8, ... The first is about the initial state, each other one
// ends an action.
constexpr int boundAfter(int k) { return k < 2 ? k + 1 : k + 3; }

// For the end of a message: what was completed before something failed.
inline std::string knownUpTo(int k) {
  return k == 0 ? "" : "; no run of up to " + std::to_string(k) + " steps reaches it";
}

}  // namespace tpn

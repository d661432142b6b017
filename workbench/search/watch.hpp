// What ends a search before its answer, and what it says on the way.

#pragma once

#include <algorithm>
#include <atomic>
#include <chrono>
#include <functional>
#include <optional>
#include <string>

namespace tpn {

struct Progress {
  int bound = 0;  // the k being asked
  long variables = 0;
  long clauses = 0;
  long conflicts = -1;   // -1: unknown
  double seconds = 0;    // since the check began
  int transitions = -1;  // the length being asked by the bounded search; -1: it does not run
  long frame = -1;       // the prover's; -1: it does not run
  long learnt = 0;       // clauses of the prover
  long obligations = 0;
};

class Watch {
 public:
  using Clock = std::chrono::steady_clock;
  using Report = std::function<void(const Progress&)>;

  // `stop` and `report` are borrowed; no timeout, or an empty report, is none.
  Watch(std::optional<std::chrono::milliseconds> timeout, const std::atomic<bool>& stop,
        const Report& report)
      : timeout_(timeout), stop_(stop), report_(report) {}

  bool over() const { return stop_ || (timeout_ && Clock::now() - start_ >= *timeout_); }

  // Of the time; at least a millisecond.
  std::optional<std::chrono::milliseconds> left() const {
    using std::chrono::milliseconds;
    if (!timeout_) return std::nullopt;
    const auto passed = std::chrono::duration_cast<milliseconds>(Clock::now() - start_);
    return std::max(milliseconds(1), *timeout_ - passed);
  }

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
  const Report& report_;
};

}  // namespace tpn

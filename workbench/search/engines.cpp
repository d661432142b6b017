#include "workbench/search/engines.hpp"

#include <algorithm>
#include <atomic>
#include <exception>
#include <functional>
#include <limits>
#include <mutex>
#include <new>
#include <stdexcept>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#include "workbench/proof/abc.hpp"
#include "workbench/search/bounded.hpp"
#include "workbench/search/proving.hpp"
#include "workbench/search/shuffled.hpp"

namespace tpn {

namespace {

// What the engines of one question know together. Locked are the answer and the watch's reports.
class Race {
 public:
  Race(const Network& net, const Goal& goal, const EngineOptions& options, Watch& watch)
      : net_(net), goal_(goal), options_(options), watch_(watch) {}

  // The last engine runs in this thread, the one before it beside it.
  Answer run() {
    std::vector<std::function<void()>> engines;
    if (options_.engine == Engine::both || options_.engine == Engine::bounded)
      engines.emplace_back([this] { search(); });
    if (options_.engine == Engine::both || options_.engine == Engine::prover)
      engines.emplace_back([this] { prove(); });
    if (options_.engine == Engine::abc) engines.emplace_back([this] { askTheProgram(); });
    std::vector<std::thread> beside;
    for (std::size_t i = 0; i + 1 < engines.size(); ++i)
      guarded([&] { beside.emplace_back([&, i] { guarded(engines[i]); }); });
    guarded(engines.back());
    for (std::thread& thread : beside) thread.join();
    return judged();
  }

 private:
  static std::string message(const std::exception_ptr& failure) {
    try {
      std::rethrow_exception(failure);
    } catch (const std::bad_alloc&) {
      return "this needs more memory than there is";
    } catch (const std::system_error& e) {
      return "no memory for a second engine: " + std::string(e.what());
    } catch (const std::exception& e) {
      return e.what();
    }
  }

  // An engine that fails leaves the answer to the other.
  template <class Work>
  void guarded(const Work& work) {
    try {
      work();
    } catch (...) {
      const std::lock_guard lock(mutex_);
      if (!failure_) failure_ = std::current_exception();
    }
  }

  bool over() const { return decided_ || watch_.over(); }

  // No shorter run is left to be found.
  bool shortestIsKnown() const { return answer_.noRunUpTo + 1 >= runLength_; }

  void search() {
    BoundedOptions options;
    options.maxTransitions = options_.maxTransitions;
    const BoundedVerdict verdict = searchBounded(
        net_, goal_, options, [this] { return over() || asked_ >= runLength_; },
        [this](const BoundedProgress& progress) { refutedBefore(progress); });
    const std::lock_guard lock(mutex_);
    answer_.noRunUpTo = std::max(answer_.noRunUpTo, verdict.noRunUpTo);
    if (verdict.answer == BoundedVerdict::reached) {
      answer_.kind = Answer::reachable;
      answer_.run = verdict.run;
      decided_ = true;
    } else if (verdict.answer == BoundedVerdict::stuck) {
      end_ = "no run has more than " + std::to_string(verdict.noRunUpTo) + " transitions";
    } else if (verdict.answer == BoundedVerdict::undecided) {
      end_ = verdict.reason;
    }
  }

  void refutedBefore(const BoundedProgress& progress) {
    asked_ = progress.transitions;
    const std::lock_guard lock(mutex_);
    answer_.noRunUpTo = progress.transitions - 1;
    progress_.transitions = progress.transitions;
    progress_.variables = progress.variables;
    progress_.clauses = progress.clauses;
    watch_.tell(progress_);
  }

  // What one of the settings has to gain shows now and then, and nobody knows beforehand.
  static ProvingOptions optionsOf(std::uint64_t seed) {
    ProvingOptions options;
    if (seed % 3 == 2) options.longDelays = false;
    if (seed > 0 && seed % 3 == 0) options.symmetry = false;
    return options;
  }

  void prove() {
    const Shuffled asked(net_, goal_, options_.seed);
    Proved found = proved(
        asked.net(), asked.goal(), [this] { return over(); },
        [this](const ProverProgress& progress) { tell(progress); }, optionsOf(options_.seed));
    if (found.run) found.run = asked.back(*found.run);
    if (found.certificate) found.certificate = asked.back(*found.certificate);
    if (found.tooWide) {
      const std::lock_guard lock(mutex_);
      proverEnd_ = "the clocks are too wide for the prover";
    }
    take(found.run, found.certificate);
  }

  void askTheProgram() {
    const AbcAnswer found = askAbc(net_, goal_, [this] { return over(); });
    if (!found.reason.empty() && !watch_.over()) proverEnd_ = found.reason;
    take(found.run, found.certificate);
  }

  void take(const std::optional<Run>& run, const std::optional<Certificate>& certificate) {
    const std::lock_guard lock(mutex_);
    if (decided_) return;
    if (certificate) {
      answer_.kind = Answer::unreachable;
      answer_.certificate = certificate;
      decided_ = true;
    } else if (run) {
      answer_.kind = Answer::reachable;
      answer_.run = run;
      runLength_ = static_cast<int>(run->steps.size());
      const bool goOn = options_.shortest && options_.engine == Engine::both;
      if (!goOn) decided_ = true;
    }
  }

  void tell(const ProverProgress& progress) {
    const std::lock_guard lock(mutex_);
    progress_.frame = static_cast<long>(progress.frame);
    progress_.learnt = static_cast<long>(progress.clauses);
    progress_.obligations = static_cast<long>(progress.obligations);
    watch_.tellAgain(progress_);
  }

  Answer judged() {
    if (answer_.kind == Answer::reachable) {
      runLength_ = static_cast<int>(answer_.run->steps.size());
      answer_.shortest = shortestIsKnown();
      answer_.reason = unsafety(net_, goal_, *answer_.run);
      if (!answer_.reason.empty()) answer_.kind = Answer::unsafe;
    }
    if (answer_.kind != Answer::undecided) return std::move(answer_);
    if (failure_) throw std::runtime_error(message(failure_) + knownSoFar());
    answer_.reason = watch_.over()         ? watch_.reason()
                     : !end_.empty()       ? end_
                     : !proverEnd_.empty() ? proverEnd_
                                           : "";
    return std::move(answer_);
  }

  std::string knownSoFar() const {
    return answer_.noRunUpTo < 0
               ? ""
               : "; no run of up to " + std::to_string(answer_.noRunUpTo) + " transitions does it";
  }

  const Network& net_;
  const Goal& goal_;
  const EngineOptions& options_;
  Watch& watch_;
  std::atomic<bool> decided_{false};
  std::atomic<int> asked_{0};  // by the bounded search: the length at hand
  std::atomic<int> runLength_{std::numeric_limits<int>::max()};  // of the run that is known

  std::mutex mutex_;
  Answer answer_;
  Progress progress_;
  std::string end_;        // why the bounded search can say no more
  std::string proverEnd_;  // why the prover cannot
  std::exception_ptr failure_;
};

}  // namespace

Answer answered(const Network& net, const Goal& goal, const EngineOptions& options, Watch& watch) {
  return Race(net, goal, options, watch).run();
}

}  // namespace tpn

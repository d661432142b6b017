// A search with the solver in this process.

#include <bit>
#include <memory>
#include <new>
#include <stdexcept>

#include "workbench/base/files.hpp"
#include "workbench/encoding/decode.hpp"
#include "workbench/encoding/encode.hpp"
#include "workbench/encoding/unrolling.hpp"
#include "workbench/runs/deadend.hpp"
#include "workbench/search/keptfiles.hpp"
#include "workbench/search/strategy.hpp"
#include "workbench/solvers/answer.hpp"
#include "workbench/solvers/boundfiles.hpp"
#include "workbench/solvers/solver.hpp"

namespace tpn {

namespace {

class EmbeddedCheck {
 public:
  EmbeddedCheck(const Question& question, const CheckOptions& options, Watch& watch)
      : question_(question), options_(options), watch_(watch) {
    if (!options.keep.empty()) kept_.emplace(options.keep);
    model_.checkpoint = checkpoint_;
    solver_->stop([this] {
      watch_.tellAgain(progress_);
      return watch_.over();
    });
  }

  Verdict run() {
    try {
      encode(question_.net, question_.property, LocationCoding::workbench, model_, checkpoint_);
      return ask();
    } catch (const Interrupted&) {
      return unknown(watch_.reason());
    } catch (const PathTooLong& e) {
      return unknown(e.what());
    } catch (const std::bad_alloc&) {
      unrolling_.reset();  // gives the message room
      path_ = {};
      throw std::runtime_error(outOfMemory() + knownUpTo(completed_));
    } catch (const std::runtime_error& e) {
      throw std::runtime_error(e.what() + knownUpTo(completed_));
    }
  }

 private:
  using Result = Solver::Result;
  enum Outcome { found, refuted, deadEnd, gaveUp };

  Verdict ask() {
    for (int k = 1;; k = boundAfter(k)) {
      if (options_.maxBound != 0 && k > options_.maxBound) return unreached(options_.maxBound, "");
      if (watch_.over()) return unknown(watch_.reason());
      progress_.bound = k;
      keepQuestion(k);
      const Outcome outcome = k == 1 ? askInitial() : askNext();
      if (outcome == found) return reachable(k);
      if (outcome == gaveUp) return unknown(watch_.reason());
      keepAnswer(k, "s UNSATISFIABLE\n");
      if (outcome == deadEnd) return allEndBefore(k);
      completed_ = k;
    }
  }

  // Time may always stand still for a while at the start, so the first bound is about the initial
  // locations alone.
  Outcome askInitial() {
    watch_.tell(progress_);
    const auto length = static_cast<std::size_t>(model_.getSymStateLen());
    path_.assign(2, std::vector<bool>(length, false));
    const Network& net = question_.net;
    return holds(net, question_.property, initialState(net)) ? found : refuted;
  }

  Outcome askNext() {
    if (!unrolling_)
      unrolling_.emplace(
          model_, [this](int literal) { solver_->add(literal); }, checkpoint_);
    const int goal = unrolling_->extend();
    progress_.variables = unrolling_->variables();
    progress_.clauses = unrolling_->clauses();
    watch_.tell(progress_);
    solver_->assume(goal);
    const Result result = solver_->solve();
    if (result == Result::satisfiable) {
      path_ = pathBits(unrolling_->states(), static_cast<int>(model_.getSymStateLen()),
                       [this](int variable) { return solver_->value(variable); });
      return found;
    }
    if (result != Result::unsatisfiable) return gaveUp;
    if (!solver_->failed(goal)) return deadEnd;
    // Every longer run begins with one of this length.
    solver_->add(-goal);
    solver_->add(0);
    return noRunOfThisLength() ? deadEnd : refuted;
  }

  // That the property is refuted need not tell whether there is any run of this length at all, so
  // it is asked now and then, and not insisted on.
  bool noRunOfThisLength() {
    constexpr int mostConflicts = 10000;
    if (!std::has_single_bit(unrolling_->states().size() / 3)) return false;
    solver_->limit(mostConflicts);
    return solver_->solve() == Result::unsatisfiable;
  }

  void keepQuestion(int k) {
    if (!kept_) return;
    if (!fitsClauseFile(model_, k))
      throw std::runtime_error("a clause file for k = " + std::to_string(k) +
                               " would need too many variables: it cannot be kept");
    kept_->begin(k);
    writeClauses(model_, k, kept_->name(k));
  }
  void keepAnswer(int k, const std::string& text) const {
    if (kept_) writeFile(outFile(kept_->name(k)), text);
  }

  Verdict reachable(int k) const {
    keepAnswer(k, answerText(path_));
    return reachableBy(decodeFound(question_.net, question_.property, model_, path_, k), true);
  }
  Verdict unreached(int bound, const std::string& reason) const {
    Verdict v;
    v.answer = Verdict::unreached;
    v.bound = bound;
    v.reason = reason;
    return v;
  }
  Verdict unknown(const std::string& reason) const {
    Verdict v;
    v.bound = completed_;
    v.reason = reason;
    return v;
  }
  Verdict allEndBefore(int k) const {
    const std::size_t actions = unrolling_->states().size() / 3 - 1;
    return unreached(options_.maxBound != 0 ? options_.maxBound : k,
                     "no run has more than " + std::to_string(actions) + " transitions");
  }
  std::string outOfMemory() const {
    return "k = " + std::to_string(progress_.bound) + " does not fit into memory";
  }

  const Question& question_;
  const CheckOptions& options_;
  Watch& watch_;
  Checkpoint checkpoint_{[this] { return watch_.over(); }};
  NetTimedModel model_;
  std::optional<KeptFiles> kept_;
  Progress progress_{0, 0, 0, 0, 0};
  std::unique_ptr<Solver> solver_ =
      makeCadical(Use::longSearches, [this] { ++progress_.conflicts; });
  std::optional<Unrolling> unrolling_;
  PathBits path_;
  int completed_ = 0;
};

}  // namespace

Verdict checkEmbedded(const Question& question, const CheckOptions& options, Watch& watch) {
  return EmbeddedCheck(question, options, watch).run();
}

}  // namespace tpn

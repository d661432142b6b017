#include "workbench/search/bounded.hpp"

#include <bit>
#include <memory>

#include "workbench/machine/exchange.hpp"
#include "workbench/machine/fused.hpp"
#include "workbench/search/foundrun.hpp"

namespace tpn {

namespace {

// Near what the solver's 32-bit numbers can name.
constexpr std::int64_t mostVariables = 2'000'000'000;

class BoundedSearch {
 public:
  BoundedSearch(const Network& net, const Goal& goal, const BoundedOptions& options,
                const std::function<bool()>& over,
                const std::function<void(const BoundedProgress&)>& report)
      : net_(net),
        goal_(goal),
        options_(options),
        over_(over),
        report_(report),
        machine_(makeMachine(net)),
        solver_(makeCadical(Use::longSearches)),
        runs_(machine_, *solver_, options.unaryLimit),
        formula_(propertyFormula(net, machine_, runs_.layout(), goal)) {
    solver_->stop(over_);
    if (options.symmetry) runs_.keepOrder(interchangeable(net, machine_, &goal, Checkpoint(over_)));
  }

  BoundedVerdict run() {
    for (int length = 0;; ++length) {
      if (options_.maxTransitions && length > *options_.maxTransitions)
        return {BoundedVerdict::exhausted, {}, length - 1, ""};
      if (tooLarge()) return {BoundedVerdict::undecided, {}, length - 1, full};
      const Outcome outcome = extended(length) ? ask(length) : gaveUp;
      if (outcome == found) return {BoundedVerdict::reached, replayed(), length - 1, ""};
      if (outcome == stuck) return {BoundedVerdict::stuck, {}, length, ""};
      if (outcome == gaveUp) return {BoundedVerdict::undecided, {}, length - 1, ""};
    }
  }

 private:
  static constexpr const char* full = "no solver has more variables";
  enum Outcome { found, refuted, stuck, gaveUp };

  // Would another step name more than can be named?
  bool tooLarge() const {
    const auto steps = static_cast<std::int64_t>(runs_.steps()) + 1;
    return runs_.variables() / steps > mostVariables - runs_.variables();
  }

  bool extended(int length) {
    try {
      runs_.extend(Checkpoint(over_));
      keepInCube(static_cast<std::size_t>(length));
      return true;
    } catch (const Interrupted&) {
      return false;
    }
  }

  // What the cube says of runs of so many steps that it did not say of shorter ones.
  void keepInCube(std::size_t length) {
    for (const CubePart& part : options_.cube) {
      if (part.some && part.last == length) runs_.keepSome(part.first, part.transitions);
      if (!part.some && part.first <= length && length <= part.last)
        runs_.keepSome(length, othersThan(part.transitions, machine_.transitions.size()));
    }
  }

  Outcome ask(int length) {
    const int goal = runs_.inLast(formula_);
    if (report_) report_({length, runs_.variables(), runs_.clauses()});
    if (over_()) return gaveUp;
    solver_->assume(goal);
    const Solver::Result result = solver_->solve();
    if (result == Solver::Result::satisfiable) return found;
    if (result == Solver::Result::undecided) return gaveUp;
    // Where the goal was not needed, this length has no run; the next to last one did.
    if (!solver_->failed(goal)) return stuck;
    // Longer runs are the better for knowing that they pass no goal.
    solver_->add(-goal);
    solver_->add(0);
    return isStuck(length) ? stuck : refuted;
  }

  // Is there no run of this length that has not met the goal? That the goal is refuted need not
  // tell, so it is asked now and then, and not insisted on.
  bool isStuck(int length) {
    constexpr int patience = 10000;  // conflicts
    if (!std::has_single_bit(static_cast<unsigned>(length))) return false;
    solver_->limit(patience);
    return solver_->solve() == Solver::Result::unsatisfiable;
  }

  Run replayed() const {
    // Where time decides on the goal, firing as early as can be need not lead to one.
    std::vector<std::int64_t> delays;
    if (asksSafety(goal_) || (asksDeadlock(goal_) && hasHopeless(machine_)))
      delays = runs_.delays();
    for (std::int64_t& delay : delays) delay *= machine_.unit;
    return foundRun(net_, goal_, runs_.transitions(), delays);
  }

  const Network& net_;
  const Goal& goal_;
  BoundedOptions options_;
  std::function<bool()> over_;
  std::function<void(const BoundedProgress&)> report_;
  Machine machine_;
  std::unique_ptr<Solver> solver_;
  FusedRuns runs_;
  StateFormula formula_;
};

}  // namespace

BoundedVerdict searchBounded(const Network& net, const Goal& goal, const BoundedOptions& options,
                             const std::function<bool()>& over,
                             const std::function<void(const BoundedProgress&)>& report) {
  try {
    return BoundedSearch(net, goal, options, over, report).run();
  } catch (const Interrupted&) {
    return {};
  }
}

}  // namespace tpn

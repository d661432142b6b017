#include "workbench/search/bounded.hpp"

#include <bit>
#include <stdexcept>

#include "workbench/machine/exchange.hpp"
#include "workbench/machine/fused.hpp"
#include "workbench/runs/deadend.hpp"

namespace tpn {

namespace {

// Near what the solver's 32-bit numbers can name.
constexpr std::int64_t mostVariables = 2'000'000'000;

class BoundedSearch {
 public:
  BoundedSearch(const Network& net, const Property* property, const BoundedOptions& options,
                const std::function<bool()>& over,
                const std::function<void(const BoundedProgress&)>& report)
      : net_(net),
        property_(property),
        options_(options),
        over_(over),
        report_(report),
        machine_(makeMachine(net)),
        solver_(makeCadical(Use::longSearches)),
        runs_(machine_, *solver_, options.unaryLimit),
        goal_(property != nullptr ? propertyFormula(net, machine_, runs_.layout(), *property)
                                  : deadEndFormula(machine_, runs_.layout())) {
    solver_->stop(over_);
    if (options.symmetry) runs_.keepOrder(interchangeable(net, machine_, property));
  }

  BoundedVerdict run() {
    for (int length = 0;; ++length) {
      if (options_.maxTransitions && length > *options_.maxTransitions)
        return {BoundedVerdict::exhausted, {}, length - 1, ""};
      if (tooLarge()) return {BoundedVerdict::undecided, {}, length - 1, full};
      const Outcome outcome = runs_.extend(over_) ? ask(length) : gaveUp;
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

  Outcome ask(int length) {
    const int goal = runs_.inLast(goal_);
    report_({length, runs_.variables(), runs_.clauses()});
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
    const std::vector<std::size_t> transitions = runs_.transitions();
    auto run = schedule(net_, transitions, transitions.size());
    if (!run) throw std::runtime_error("the run that was found has no schedule");
    // Where time decides on dead ends, firing as early as can be need not lead to one.
    if (property_ == nullptr && hasHopeless(machine_)) delayAsFound(*run);
    const std::string complaint = property_ != nullptr ? replay(net_, *property_, *run).complaint
                                                       : replayToDeadEnd(net_, *run).complaint;
    if (!complaint.empty())
      throw std::runtime_error("the run that was found does not replay: " + complaint);
    return *run;
  }

  void delayAsFound(Run& run) const {
    const std::vector<std::int64_t> delays = runs_.delays();
    for (std::size_t i = 0; i < run.steps.size(); ++i)
      run.steps[i].delay = Rational(delays[i] * machine_.unit);
  }

  const Network& net_;
  const Property* property_;
  BoundedOptions options_;
  std::function<bool()> over_;
  std::function<void(const BoundedProgress&)> report_;
  Machine machine_;
  std::unique_ptr<Solver> solver_;
  FusedRuns runs_;
  StateFormula goal_;
};

}  // namespace

BoundedVerdict searchBounded(const Network& net, const Property* property,
                             const BoundedOptions& options, const std::function<bool()>& over,
                             const std::function<void(const BoundedProgress&)>& report) {
  return BoundedSearch(net, property, options, over, report).run();
}

}  // namespace tpn

#include "workbench/proof/vacuity.hpp"

#include <algorithm>
#include <cassert>

#include "workbench/network/shown.hpp"
#include "workbench/proof/plainchecks.hpp"
#include "workbench/proof/scaled.hpp"
#include "workbench/proof/statement.hpp"
#include "workbench/proof/steps.hpp"
#include "workbench/runs/run.hpp"

namespace tpn {

namespace {

// A clock of a replay in units: whole, for the delays here are.
std::int64_t units(const Rational& clock, std::int64_t unit) {
  assert(clock.denominator() == 1 && clock.numerator() % unit == 0);
  return clock.numerator() / unit;
}

class Guard {
 public:
  Guard(const Network& net, const std::vector<AtomClause>& all, const Checkpoint& checkpoint)
      : net_(net),
        scaled_(inUnits(net)),
        unit_(unitOfTime(net)),
        caps_(clockCaps(scaled_)),
        all_(all),
        checkpoint_(checkpoint),
        solver_(makeCadical(Use::manyShortSearches)),
        thresholds_(thresholds(scaled_, {})),
        state_(scaled_, thresholds_, *solver_),
        steps_(scaled_, state_) {}

  std::string complaint() {
    const TimedState initial = initialState(net_);
    for (std::size_t t = 0; t < net_.transitions.size(); ++t) {
      checkpoint_();
      const auto when = window(net_, initial, t);
      if (!when) continue;
      std::string found = complaint(initial, t, when->from);
      if (found.empty() && when->to) found = complaint(initial, t, *when->to);
      if (!found.empty()) return found;
    }
    return "";
  }

 private:
  // Of the delay, which the replay allows, and the transition after it.
  std::string complaint(const TimedState& initial, std::size_t t, const Rational& delay) {
    if (delay > 0 && !allows(after(initial, delay - Rational(unit_)), {steps_.unitPasses()}))
      return "the check is vacuous: it does not let time pass up to " + delay.text();
    if (!allows(after(initial, delay), steps_.firing(t)))
      return "the check is vacuous: transition " + shownTransition(net_, t) + " cannot fire";
    TimedState then = initial;
    const std::string objection = advance(net_, {delay, t}, then);
    if (!objection.empty()) return "the replay contradicts itself: " + objection;
    for (const TimedState& state : {after(initial, delay), then})
      for (const AtomClause& clause : all_)
        if (!holds(clause, state))
          return "transition " + shownTransition(net_, t) +
                 " leads outside at first: " + text(net_, clause);
    return "";
  }

  static TimedState after(TimedState state, const Rational& delay) {
    for (Rational& clock : state.clocks) clock = clock + delay;
    return state;
  }

  std::int64_t clock(const TimedState& state, std::size_t process) const {
    return std::min(units(state.clocks[process], unit_),
                    caps_[process].at(state.locations[process]));
  }

  bool allows(const TimedState& state, const std::vector<int>& happening) {
    for (std::size_t p = 0; p < net_.processes.size(); ++p) {
      solver_->assume(state_.at({p, state.locations[p]}));
      for (const std::int64_t c : thresholds_[p])
        solver_->assume(c <= clock(state, p) ? state_.reached(p, c) : -state_.reached(p, c));
    }
    for (const int literal : happening) solver_->assume(literal);
    return solver_->solve() == Solver::Result::satisfiable;
  }

  bool holds(const Atom& atom, const TimedState& state) const {
    const bool value = atom.kind == Atom::location ? state.locations[atom.process] == atom.value
                                                   : clock(state, atom.process) >= atom.value;
    return value == atom.positive;
  }
  bool holds(const AtomClause& clause, const TimedState& state) const {
    return std::any_of(clause.begin(), clause.end(),
                       [&](const Atom& atom) { return holds(atom, state); });
  }

  const Network& net_;
  Network scaled_;
  std::int64_t unit_;
  std::vector<std::map<int, std::int64_t>> caps_;
  const std::vector<AtomClause>& all_;
  const Checkpoint& checkpoint_;
  std::unique_ptr<Solver> solver_;
  Thresholds thresholds_;
  StateClauses state_;
  StepConditions steps_;
};

}  // namespace

std::string vacuityComplaint(const Network& net, const std::vector<AtomClause>& all,
                             const Checkpoint& checkpoint) {
  return Guard(net, all, checkpoint).complaint();
}

}  // namespace tpn

#include "tests/endtoend/runcheck.hpp"

#include <algorithm>
#include <cstdlib>

namespace {

class Checker {
 public:
  Checker(const Network& net, Unit unit) : net_(net), unit_(unit), top_(largestLatest(net) + 1) {}

  std::string step(std::size_t i, const RunState& from, const RunState& to) const {
    switch (i % 3) {
      case 0:
        return timeStep(from, to.state);
      case 1:
        return actionStep(from.state, to.state);
      default:
        return adjustStep(from.state, to.state);
    }
  }

 private:
  std::string timeStep(const RunState& from, const State& to) const {
    State expected = from.state;
    for (std::int64_t& clock : expected.clocks) clock += from.delay;
    if (to != expected) return "time step: not all clocks, and they alone, advance by the delay";
    if (!invariant(net_, to, unit_)) return "time step: ends outside the invariant";
    return "";
  }

  std::string actionStep(const State& from, const State& to) const {
    if (!invariant(net_, to, unit_)) return "action step: ends outside the invariant";
    const auto& transitions = net_.transitions;
    const bool legal = std::any_of(transitions.begin(), transitions.end(), [&](const auto& t) {
      return mayFire(t, from, unit_) && fired(t, from) == to;
    });
    return legal ? "" : "action step: no transition leads there";
  }

  std::string adjustStep(const State& from, const State& to) const {
    if (to.locations != from.locations) return "adjusting step: locations change";
    for (std::size_t p = 0; p < net_.processes; ++p) {
      const std::int64_t expected = std::min<std::int64_t>(integer(from, p), top_);
      if (integer(to, p) != expected) return "adjusting step: wrong integer part";
      if ((fraction(from, p) == 0) != (fraction(to, p) == 0))
        return "adjusting step: a fraction becomes or ceases to be zero";
      if (std::abs(fraction(from, p) - fraction(to, p)) > 1)
        return "adjusting step: a fraction moves by more than a step";
    }
    return sameOrder(from, to) ? "" : "adjusting step: the fractions change their order";
  }

  bool sameOrder(const State& from, const State& to) const {
    for (std::size_t p = 0; p < net_.processes; ++p)
      for (std::size_t q = 0; q < p; ++q)
        if ((fraction(from, p) <=> fraction(from, q)) != (fraction(to, p) <=> fraction(to, q)))
          return false;
    return true;
  }

  std::int64_t integer(const State& s, std::size_t p) const { return s.clocks[p] / unit_; }
  std::int64_t fraction(const State& s, std::size_t p) const { return s.clocks[p] % unit_; }

  const Network& net_;
  Unit unit_;
  std::int64_t top_;  // what integer parts above the largest constant become
};

}  // namespace

std::string complaint(const Network& net, const TimedRun& run) {
  if (run.states.empty() || run.states.front().state != initialState(net))
    return "the run does not start in the initial state";
  const Checker checker(net, run.unit);
  for (std::size_t i = 0; i + 1 < run.states.size(); ++i) {
    const std::string wrong = checker.step(i, run.states[i], run.states[i + 1]);
    if (!wrong.empty()) return "step " + std::to_string(i) + ": " + wrong;
  }
  const bool somewhere = std::any_of(run.states.begin(), run.states.end(), [&](const RunState& s) {
    return propertyHolds(net, s.state);
  });
  return somewhere ? "" : "the property holds nowhere on the run";
}

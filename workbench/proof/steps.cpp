#include "workbench/proof/steps.hpp"

#include <cassert>

namespace tpn {

namespace {

int source(const StateClauses& state, const Move& move) {
  return state.at({move.process, move.source});
}

// A literal that implies the clause.
int implying(StateClauses& state, std::vector<int> clause) {
  const int literal = state.fresh();
  clause.push_back(-literal);
  state.add(clause);
  return literal;
}

int implyingAll(StateClauses& state, const std::vector<int>& literals) {
  const int all = state.fresh();
  for (const int literal : literals) state.add({-all, literal});
  return all;
}

// The clause that forbids a transition to be enabled with its clocks all at `units` or more.
std::vector<int> never(const StateClauses& state, const Transition& t, std::int64_t units) {
  std::vector<int> clause;
  for (const Move& move : t.moves) {
    clause.push_back(-source(state, move));
    clause.push_back(-state.reached(move.process, units));
  }
  return clause;
}

int propertyLiteral(const Network& net, int proposition, bool positive, StateClauses& state) {
  std::vector<int> spots;
  for (std::size_t p = 0; p < net.processes.size(); ++p)
    for (const auto& [location, labels] : net.processes[p].labels)
      if (labels.contains(proposition)) spots.push_back(state.at({p, location}));
  if (positive) return implying(state, std::move(spots));
  for (int& spot : spots) spot = -spot;
  return implyingAll(state, spots);
}

int popped(std::vector<int>& values) {
  assert(!values.empty());
  const int value = values.back();
  values.pop_back();
  return value;
}

int combined(std::vector<int>& values, PropertyItem::Kind kind, StateClauses& state) {
  const int right = popped(values);
  const int left = popped(values);
  return kind == PropertyItem::conjunction ? implyingAll(state, {left, right})
                                           : implying(state, {left, right});
}

int propertyLiteral(const Network& net, const Property& property, StateClauses& state) {
  std::vector<int> values;
  for (const PropertyItem& item : property.items) {
    switch (item.kind) {
      case PropertyItem::truth:
        values.push_back(state.truth());
        break;
      case PropertyItem::proposition:
      case PropertyItem::negated:
        values.push_back(
            propertyLiteral(net, item.number, item.kind == PropertyItem::proposition, state));
        break;
      case PropertyItem::conjunction:
      case PropertyItem::disjunction:
        values.push_back(combined(values, item.kind, state));
    }
  }
  assert(values.size() == 1);
  return values.back();
}

// Only a transition whose earliest time exceeds its latest can keep time from passing and not fire.
int timeIsStuck(const Network& net, StateClauses& state) {
  std::vector<int> some;
  for (const Transition& t : net.transitions) {
    if (!t.interval.latest || t.interval.earliest <= *t.interval.latest) continue;
    std::vector<int> all;
    for (const int literal : never(state, t, *t.interval.latest)) all.push_back(-literal);
    some.push_back(implyingAll(state, all));
  }
  return implying(state, some);
}

int deadlockLiteral(const Network& net, StateClauses& state) {
  const int dead = state.fresh();
  const int noneEnabled = state.fresh();
  for (const Transition& t : net.transitions) {
    std::vector<int> cannotFire = never(state, t, t.interval.earliest);
    cannotFire.push_back(-dead);
    state.add(cannotFire);
    std::vector<int> disabled{-noneEnabled};
    for (const Move& move : t.moves) disabled.push_back(-source(state, move));
    state.add(disabled);
  }
  const int stuck = timeIsStuck(net, state);
  state.add({-dead, noneEnabled, stuck});
  return dead;
}

}  // namespace

std::vector<int> StepConditions::firing(std::size_t transition) {
  const Transition& t = net_.transitions[transition];
  notPast_.resize(net_.transitions.size());
  std::vector<int> assumed;
  for (const Move& move : t.moves) {
    assumed.push_back(source(state_, move));
    assumed.push_back(state_.reached(move.process, t.interval.earliest));
  }
  if (t.interval.latest && notPast_[transition] == 0) {
    std::vector<int> one;
    for (const Move& move : t.moves)
      one.push_back(-state_.reached(move.process, *t.interval.latest + 1));
    notPast_[transition] = implying(state_, one);
  }
  if (t.interval.latest) assumed.push_back(notPast_[transition]);
  return assumed;
}

int StepConditions::unitPasses() {
  if (unitPasses_ != 0) return unitPasses_;
  unitPasses_ = state_.fresh();
  for (const Transition& t : net_.transitions) {
    if (!t.interval.latest) continue;
    std::vector<int> clause = never(state_, t, *t.interval.latest);
    clause.push_back(-unitPasses_);
    state_.add(clause);
  }
  return unitPasses_;
}

int goalLiteral(const Network& net, const Goal& goal, StateClauses& state) {
  return goal.deadlock() ? deadlockLiteral(net, state)
                         : propertyLiteral(net, *goal.property, state);
}

}  // namespace tpn

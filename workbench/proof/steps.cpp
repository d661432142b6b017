#include "workbench/proof/steps.hpp"

#include <algorithm>
#include <cassert>
#include <stdexcept>
#include <utility>

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
    if (!move.counts) continue;
    clause.push_back(-source(state, move));
    clause.push_back(-state.reached(move.process, units));
  }
  return clause;
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
    for (const Move& move : t.moves)
      if (move.counts) disabled.push_back(-source(state, move));
    state.add(disabled);
  }
  const int stuck = timeIsStuck(net, state);
  state.add({-dead, noneEnabled, stuck});
  return dead;
}

// A literal that is true where one of the others is, and only there.
int either(StateClauses& state, const std::vector<int>& literals) {
  const int some = implying(state, literals);
  for (const int literal : literals) state.add({some, -literal});
  return some;
}

int propositionLiteral(const Network& net, int proposition, StateClauses& state) {
  std::vector<int> spots;
  for (std::size_t p = 0; p < net.processes.size(); ++p)
    for (const auto& [location, labels] : net.processes[p].labels)
      if (labels.contains(proposition)) spots.push_back(state.at({p, location}));
  return either(state, spots);
}

// One transition may fire now.
int firingLiteral(const Network& net, StateClauses& state) {
  StepConditions conditions(net, state);
  std::vector<int> some;
  for (std::size_t t = 0; t < net.transitions.size(); ++t)
    some.push_back(implyingAll(state, conditions.inTime(t)));
  return implying(state, some);
}

// One may fire now, but for a process that is not in the source of a move that does not count.
int collisionLiteral(const Network& net, StateClauses& state) {
  StepConditions conditions(net, state);
  std::vector<int> some;
  for (std::size_t t = 0; t < net.transitions.size(); ++t)
    for (const Move& move : net.transitions[t].moves) {
      if (move.counts) continue;
      std::vector<int> all = conditions.inTime(t);
      all.push_back(-source(state, move));
      some.push_back(implyingAll(state, all));
    }
  return implying(state, some);
}

int leafLiteral(const Network& net, const PropertyItem& item, StateClauses& state) {
  switch (item.kind) {
    case PropertyItem::truth:
      return state.truth();
    case PropertyItem::falsity:
      return -state.truth();
    case PropertyItem::proposition:
      return propositionLiteral(net, item.number, state);
    case PropertyItem::negated:
      return -propositionLiteral(net, item.number, state);
    case PropertyItem::at:
      return state.at({item.process, item.number});
    case PropertyItem::notAt:
      return -state.at({item.process, item.number});
    case PropertyItem::deadlock:
      return deadlockLiteral(net, state);
    case PropertyItem::noDeadlock:
      return firingLiteral(net, state);
    case PropertyItem::unsafe:
      return collisionLiteral(net, state);
    default:
      throw std::logic_error("an operator is no leaf");
  }
}

// A literal that implies that `least` of the literals are true: the i-th of a row of sums says that
// i of those so far are.
int atLeast(int least, const std::vector<int>& literals, StateClauses& state) {
  std::vector<int> sums{state.truth()};
  for (const int literal : literals) {
    std::vector<int> next{state.truth()};
    for (std::size_t i = 1; i <= sums.size() && i <= static_cast<std::size_t>(least); ++i) {
      const int sum = state.fresh();
      const int before = i < sums.size() ? sums[i] : -state.truth();
      state.add({-sum, before, literal});
      state.add({-sum, before, sums[i - 1]});
      next.push_back(sum);
    }
    sums = std::move(next);
  }
  return static_cast<std::size_t>(least) < sums.size() ? sums[static_cast<std::size_t>(least)]
                                                       : -state.truth();
}

int counterLiteral(const PropertyItem& item, const std::vector<int>& operands,
                   StateClauses& state) {
  const int enough = atLeast(item.least, operands, state);
  std::vector<int> negated = operands;
  for (int& literal : negated) literal = -literal;
  const int others = std::max(item.operands - item.most, 0);
  return implyingAll(state, {enough, atLeast(others, negated, state)});
}

int combined(const PropertyItem& item, const std::vector<int>& operands, StateClauses& state) {
  if (item.kind == PropertyItem::counter) return counterLiteral(item, operands, state);
  return item.kind == PropertyItem::conjunction ? implyingAll(state, operands)
                                                : either(state, operands);
}

int propertyLiteral(const Network& net, const Property& property, StateClauses& state) {
  std::vector<int> values;
  for (const PropertyItem& item : property.items) {
    const auto count = static_cast<std::size_t>(operandsOf(item));
    assert(values.size() >= count);
    const std::vector<int> operands(values.end() - static_cast<std::ptrdiff_t>(count),
                                    values.end());
    values.resize(values.size() - count);
    values.push_back(count == 0 ? leafLiteral(net, item, state) : combined(item, operands, state));
  }
  assert(values.size() == 1);
  return values.back();
}

}  // namespace

std::vector<int> StepConditions::firing(std::size_t transition) {
  std::vector<int> assumed = inTime(transition);
  for (const Move& move : net_.transitions[transition].moves)
    if (!move.counts) assumed.push_back(source(state_, move));
  return assumed;
}

std::vector<int> StepConditions::inTime(std::size_t transition) {
  const Transition& t = net_.transitions[transition];
  notPast_.resize(net_.transitions.size());
  std::vector<int> assumed;
  for (const Move& move : t.moves) {
    if (!move.counts) continue;
    assumed.push_back(source(state_, move));
    assumed.push_back(state_.reached(move.process, t.interval.earliest));
  }
  if (t.interval.latest && notPast_[transition] == 0) {
    std::vector<int> one;
    for (const Move& move : t.moves)
      if (move.counts) one.push_back(-state_.reached(move.process, *t.interval.latest + 1));
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
  return propertyLiteral(net, goal, state);
}

}  // namespace tpn

#include "workbench/machine/fused.hpp"

#include <cassert>

#include "workbench/machine/atmostone.hpp"

namespace tpn {

namespace {

bool hasFewLocations(const Machine::Process& process) {
  return fewEnoughForPairs(process.locations.size());
}

Clauses factsAfterDelay(const Machine& machine, const StateLayout& layout) {
  Clauses facts;
  for (std::size_t p = 0; p < machine.processes.size(); ++p)
    if (hasFewLocations(machine.processes[p])) addOneLocation(facts, machine, layout, p);
  for (Clause& clause : clockOrder(machine, layout)) facts.push_back(std::move(clause));
  return facts;
}

bool stays(const Machine::Transition& t, std::size_t process) {
  for (const Machine::Move& move : t.moves)
    if (move.process == process) return move.source == move.target;
  return true;
}

}  // namespace

FusedRuns::FusedRuns(const Machine& machine, Solver& solver, std::int64_t unaryLimit)
    : machine_(machine),
      layout_(StateLayout::delayed(machine, unaryLimit)),
      facts_(factsAfterDelay(machine, layout_)),
      sink_(solver),
      clocks_(machine_, layout_, sink_) {}

void FusedRuns::extend(const Checkpoint& checkpoint) {
  const bool first = states_.empty();
  if (!first) selectors_.push_back(sink_.fresh(static_cast<int>(machine_.transitions.size())));
  addState();
  std::vector<int> moved(machine_.processes.size());
  if (first) {
    addInitial();
  } else {
    for (std::size_t t = 0; t < machine_.transitions.size(); ++t) {
      addEffect(t);
      checkpoint.at(t);
    }
    selectOne();
    for (std::size_t p = 0; p < machine_.processes.size(); ++p) {
      addFrame(p);
      if (layout_.width(p) > 0 || !everMoved_.empty()) moved[p] = movedIn(p);
      checkpoint();
    }
    order(moved);
  }
  clocks_.extend(states_.back(), moved);
}

void FusedRuns::addState() {
  states_.push_back(sink_.fresh(layout_.size()) - 1);
  sink_.addAt(facts_, states_.back());
  for (std::size_t p = 0; p < machine_.processes.size(); ++p) {
    if (hasFewLocations(machine_.processes[p])) continue;
    Clause some = locationsOf(machine_, layout_, p);
    for (int& literal : some) literal = shifted(literal, states_.back());
    sink_.add(some);
    addAtMostOne(sink_, some);
  }
  for (const Machine::Transition& t : machine_.transitions)
    if (t.latest) addDeadline(t);
}

void FusedRuns::addInitial() {
  for (std::size_t p = 0; p < machine_.processes.size(); ++p)
    sink_.add({location(states_.back(), p, machine_.processes[p].initial)});
}

// Not enabled, or one of its clocks is not past the latest time.
void FusedRuns::addDeadline(const Machine::Transition& t) {
  Clause clause;
  for (const Machine::Move& move : t.moves) {
    if (!move.counts) continue;
    clause.push_back(-location(states_.back(), move.process, move.source));
    clause.push_back(-(states_.back() + layout_.clock(move.process, *t.latest + 1)));
  }
  sink_.add(clause);
}

void FusedRuns::addEffect(std::size_t transition) {
  const Machine::Transition& t = machine_.transitions[transition];
  const int from = states_[states_.size() - 2];
  for (const Machine::Move& move : t.moves) {
    sink_.add({-selector(transition), location(from, move.process, move.source)});
    sink_.add({-selector(transition), location(states_.back(), move.process, move.target)});
    if (move.source != move.target)
      sink_.add({-selector(transition), -location(states_.back(), move.process, move.source)});
    if (t.earliest > 0 && move.counts)
      sink_.add({-selector(transition), from + layout_.clock(move.process, t.earliest)});
  }
}

void FusedRuns::selectOne() {
  Clause some;
  for (std::size_t t = 0; t < machine_.transitions.size(); ++t) some.push_back(selector(t));
  sink_.add(some);
  addAtMostOne(sink_, some);
}

// The process leaves a location and comes to one only by a transition that does so.
void FusedRuns::addFrame(std::size_t process) {
  const int from = states_[states_.size() - 2];
  const auto& locations = machine_.processes[process].locations;
  for (std::size_t l = 0; l < locations.size(); ++l) {
    const int before = location(from, process, l);
    const int after = location(states_.back(), process, l);
    Clause left = explanation(process, locations[l].leaving);
    left.insert(left.end(), {-before, after});
    sink_.add(left);
    Clause entered = explanation(process, locations[l].entering);
    entered.insert(entered.end(), {before, -after});
    sink_.add(entered);
  }
}

std::vector<int> FusedRuns::explanation(std::size_t process,
                                        const std::vector<std::size_t>& transitions) {
  std::vector<int> result;
  for (const std::size_t t : transitions)
    if (!stays(machine_.transitions[t], process)) result.push_back(selector(t));
  return result;
}

int FusedRuns::movedIn(std::size_t process) {
  std::vector<int> movers;
  for (const std::size_t t : machine_.processes[process].resetters) movers.push_back(selector(t));
  return sink_.any(movers);
}

void FusedRuns::keepOrder(std::vector<std::vector<std::size_t>> classes) {
  assert(selectors_.empty());
  classes_ = std::move(classes);
  if (!classes_.empty()) everMoved_.resize(machine_.processes.size());
}

void FusedRuns::keepSome(std::size_t first, const std::vector<std::size_t>& transitions) {
  assert(first >= 1 && first <= steps());
  Clause clause;
  for (std::size_t step = first; step <= steps(); ++step)
    for (const std::size_t t : transitions)
      clause.push_back(selectors_[step - 1] + static_cast<int>(t));
  sink_.add(clause);
}

void FusedRuns::order(const std::vector<int>& moved) {
  for (const std::vector<std::size_t>& members : classes_)
    for (std::size_t i = 0; i < members.size(); ++i) {
      int& ever = everMoved_[members[i]];
      ever = ever == 0 ? moved[members[i]] : sink_.either(ever, moved[members[i]]);
      if (i > 0) sink_.add({-ever, everMoved_[members[i - 1]]});
    }
}

int FusedRuns::inLast(const StateFormula& formula) {
  const int helpers = sink_.fresh(formula.helpers) - 1;
  const auto placed = [&](int literal) {
    return shifted(literal,
                   std::abs(literal) <= layout_.size() ? states_.back() : helpers - layout_.size());
  };
  for (Clause clause : formula.clauses) {
    for (int& literal : clause) literal = placed(literal);
    sink_.add(clause);
  }
  return placed(formula.root);
}

std::vector<std::size_t> FusedRuns::transitions() const {
  std::vector<std::size_t> result;
  for (const int first : selectors_)
    for (std::size_t t = 0; t < machine_.transitions.size(); ++t)
      if (sink_.solver().value(first + static_cast<int>(t))) result.push_back(t);
  assert(result.size() == selectors_.size());
  return result;
}

}  // namespace tpn

#include "workbench/prover/steps.hpp"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace tpn {

// What changes the process; null where nothing does.
const Machine::Move* moveOf(const Machine::Transition& t, std::size_t process) {
  const auto found = std::find_if(t.moves.begin(), t.moves.end(), [&](const Machine::Move& m) {
    return m.process == process && m.resets;
  });
  return found == t.moves.end() ? nullptr : &*found;
}

Steps::Steps(const Machine& machine, const StateLayout& layout, const Vocabulary& words,
             std::vector<std::int64_t> delays, Interchange interchange, ClauseSink& sink,
             const Checkpoint& checkpoint, int narrow)
    : machine_(machine),
      layout_(layout),
      words_(words),
      interchange_(std::move(interchange)),
      sink_(sink),
      narrow_(narrow),
      firingsOf_(machine.processes.size()) {
  for (std::size_t t = 0; t < machine.transitions.size(); ++t)
    if (!machine.transitions[t].hopeless()) addFiring(t);
  for (const std::int64_t delay : delays) addWaiting(delay, checkpoint);
  seen_.assign(firings_.size(), 0);
}

void Steps::addFiring(std::size_t transition) {
  const Machine::Transition& t = machine_.transitions[transition];
  Firing firing{transition, {}, 0};
  Clause inTime;
  bool always = !t.latest;
  for (const auto& [process, source, target, counts, resets] : t.moves) {
    const std::int64_t cap = machine_.processes[process].locations[source].cap;
    firing.guard.push_back(layout_.location(process, source));
    if (resets) firingsOf_[process].push_back(firings_.size());
    if (!counts) continue;
    if (t.earliest > 0) firing.guard.push_back(layout_.clock(process, t.earliest));
    if (t.latest && cap > *t.latest) inTime.push_back(-layout_.clock(process, *t.latest + 1));
    always = always || (t.latest && cap <= *t.latest);
  }
  if (!always) {
    firing.inTime = sink_.fresh();
    inTime.push_back(-firing.inTime);
    sink_.add(inTime);
    firing.guard.push_back(firing.inTime);
  }
  firings_.push_back(std::move(firing));
}

// Not enabled, or one of its clocks so far from the deadline that the delay does not pass it.
Clause Steps::deadline(const Machine::Transition& t, std::int64_t delay) const {
  Clause clause;
  const std::int64_t late = *t.latest - delay + 1;
  for (const auto& [process, source, target, counts, resets] : t.moves) {
    if (!counts) continue;
    clause.push_back(-layout_.location(process, source));
    if (late >= 1) clause.push_back(-layout_.clock(process, late));
  }
  return clause;
}

void Steps::addWaiting(std::int64_t delay, const Checkpoint& checkpoint) {
  Waiting waiting;
  waiting.delay = delay;
  waiting.calm = sink_.fresh();
  for (std::size_t i = 0; i < machine_.transitions.size(); ++i) {
    const Machine::Transition& t = machine_.transitions[i];
    checkpoint.at(i);
    if (!t.latest) continue;
    Clause clause = deadline(t, delay);
    clause.push_back(-waiting.calm);
    sink_.add(clause);
  }
  const auto size = static_cast<std::size_t>(layout_.size()) + 1;
  waiting.up.assign(size, 0);
  waiting.down.assign(size, 0);
  for (std::size_t p = 0; p < machine_.processes.size(); ++p) {
    if (layout_.width(p) > narrow_) continue;
    checkpoint();
    for (int i = 0; i < layout_.width(p); ++i) {
      carried(layout_.clockAt(p, i), waiting);
      carried(-layout_.clockAt(p, i), waiting);
    }
  }
  waitings_.push_back(std::move(waiting));
}

int Steps::atLeastAfter(int variable, std::int64_t delay) {
  const auto& [p, isClock, v] = words_.meaning(variable);
  const int up = sink_.fresh();
  if (v > delay) sink_.add({-up, layout_.clock(p, v - delay)});
  const auto& locations = machine_.processes[p].locations;
  for (std::size_t l = 0; l < locations.size(); ++l)
    if (locations[l].cap < v) sink_.add({-up, -layout_.location(p, l)});
  return up;
}

int Steps::lessAfter(int variable, std::int64_t delay) {
  const auto& [p, isClock, v] = words_.meaning(variable);
  const int down = sink_.fresh();
  Clause stays{-down};
  if (v > delay) stays.push_back(-layout_.clock(p, v - delay));
  const auto& locations = machine_.processes[p].locations;
  for (std::size_t l = 0; l < locations.size(); ++l)
    if (locations[l].cap < v) stays.push_back(layout_.location(p, l));
  sink_.add(stays);
  return down;
}

void Steps::forEach(const Cube& cube, std::vector<int>& kept,
                    const std::function<bool(const Query&)>& ask) {
  ++round_;
  interchange_.pin(cube);
  std::size_t last = machine_.processes.size();
  for (const int literal : cube) {
    const std::size_t process = words_.meaning(literal).process;
    if (std::exchange(last, process) == process) continue;
    for (const std::size_t f : firingsOf_[process])
      if (std::exchange(seen_[f], round_) != round_ &&
          !interchange_.redundant(firings_[f].transition) && !askTransition(f, cube, kept, ask))
        return;
  }
  for (Waiting& waiting : waitings_)
    if (!askDelay(waiting, cube, ask)) return;
}

bool Steps::askTransition(std::size_t index, const Cube& cube, std::vector<int>& kept,
                          const std::function<bool(const Query&)>& ask) {
  const Firing& firing = firings_[index];
  const Machine::Transition& t = machine_.transitions[firing.transition];
  int violated = 0;
  bool outside = false;
  std::vector<int> residual;
  for (const int literal : cube) {
    const Meaning& m = words_.meaning(literal);
    const Machine::Move* const move = moveOf(t, m.process);
    if (move == nullptr) continue;
    if (!words_.holdsOnArrival(literal, move->target)) {
      if (contains(kept, literal)) return true;
      violated = literal;
    } else if (!m.isClock) {
      outside = outside || (static_cast<std::size_t>(m.value) == move->source) != (literal > 0);
    } else if (move->counts && t.earliest >= m.value) {
      outside = true;
    } else if (machine_.processes[m.process].locations[move->source].cap >= m.value) {
      residual.push_back(-literal);
    }
  }
  if (violated != 0) {
    kept.push_back(violated);
    return true;
  }
  if ((!outside && residual.empty())) return true;
  Query query{{firing.transition, 0}, firing.guard, {}, 0};
  for (const int literal : cube)
    if (moveOf(t, words_.meaning(literal).process) == nullptr)
      query.literals.emplace_back(literal, literal);
  if (outside) return ask(query);
  for (const int literal : residual) {
    query.outside = literal;
    if (!ask(query)) return false;
  }
  return true;
}

int Steps::carried(int literal, Waiting& waiting) {
  if (!words_.meaning(literal).isClock) return literal;
  const int variable = std::abs(literal);
  int& after = (literal > 0 ? waiting.up : waiting.down)[static_cast<std::size_t>(variable)];
  if (after == 0)
    after =
        literal > 0 ? atLeastAfter(variable, waiting.delay) : lessAfter(variable, waiting.delay);
  return after;
}

Steps::Carried Steps::carried(int literal, const Way& way) {
  if (way.isDelay()) {
    const auto waiting = std::find_if(waitings_.begin(), waitings_.end(),
                                      [&](const Waiting& w) { return w.delay == way.delay; });
    return {carried(literal, *waiting)};
  }
  const Machine::Move* const move =
      moveOf(machine_.transitions[way.transition], words_.meaning(literal).process);
  if (move == nullptr) return {literal};
  return {0, true, words_.holdsOnArrival(literal, move->target)};
}

bool Steps::askDelay(Waiting& waiting, const Cube& cube,
                     const std::function<bool(const Query&)>& ask) {
  Query query{{0, waiting.delay}, {waiting.calm}, {}, 0};
  for (const int literal : cube) query.literals.emplace_back(carried(literal, waiting), literal);
  for (const int literal : cube) {
    if (literal < 0 || !words_.meaning(literal).isClock) continue;
    query.outside = -literal;
    if (!ask(query)) return false;
  }
  return true;
}

}  // namespace tpn

#include "workbench/proof/stateclauses.hpp"

#include <algorithm>
#include <cassert>
#include <utility>

#include "workbench/proof/partialsums.hpp"
#include "workbench/proof/scaled.hpp"

namespace tpn {

Thresholds thresholds(const Network& net, const std::vector<AtomClause>& clauses) {
  std::vector<std::vector<std::int64_t>> all(net.processes.size());
  const auto put = [&](std::size_t process, std::int64_t units) {
    if (units >= 1) all[process].push_back(units);
  };
  for (const AtomClause& clause : clauses)
    for (const Atom& atom : clause)
      if (atom.kind == Atom::clock) {
        put(atom.process, atom.value);
        put(atom.process, atom.value - 1);
      }
  for (const Transition& t : net.transitions)
    for (const Move& move : t.moves) {
      if (!move.counts) continue;
      put(move.process, t.interval.earliest);
      if (!t.interval.latest) continue;
      put(move.process, *t.interval.latest);
      put(move.process, *t.interval.latest + 1);
    }
  for (std::vector<std::int64_t>& list : all) {
    std::sort(list.begin(), list.end());
    list.erase(std::unique(list.begin(), list.end()), list.end());
  }
  return all;
}

StateClauses::StateClauses(const Network& net, Thresholds thresholds, Solver& solver)
    : net_(net), thresholds_(std::move(thresholds)), solver_(solver), caps_(clockCaps(net)) {
  truth_ = fresh();
  add({truth_});
  firstReached_.resize(net.processes.size());
  for (std::size_t p = 0; p < net.processes.size(); ++p) {
    oneLocation(p);
    clock(p);
  }
}

void StateClauses::add(const std::vector<int>& clause) {
  for (const int literal : clause) solver_.add(literal);
  solver_.add(0);
}

// At most one by a chain: `before` says that one of those so far is true.
void StateClauses::oneLocation(std::size_t process) {
  std::vector<int> some;
  int before = -truth_;
  for (const int location : net_.processes[process].locations) {
    const int here = at_[{process, location}] = fresh();
    some.push_back(here);
    add({-before, -here});
    const int soFar = fresh();
    add({-before, soFar});
    add({-here, soFar});
    before = soFar;
  }
  add(some);
}

void StateClauses::clock(std::size_t process) {
  const std::vector<std::int64_t>& steps = thresholds_[process];
  firstReached_[process] = variables_ + 1;
  variables_ += static_cast<int>(steps.size());
  for (std::size_t i = 1; i < steps.size(); ++i)
    add({-reached(process, steps[i]), reached(process, steps[i - 1])});
  for (const auto& [location, cap] : caps_[process]) {
    const auto above = std::upper_bound(steps.begin(), steps.end(), cap);
    if (above != steps.end()) add({-at({process, location}), -reached(process, *above)});
  }
}

int StateClauses::reached(std::size_t process, std::int64_t units) const {
  if (units <= 0) return truth_;
  const std::vector<std::int64_t>& steps = thresholds_[process];
  const auto found = std::lower_bound(steps.begin(), steps.end(), units);
  assert(found != steps.end() && *found == units);
  return firstReached_[process] + static_cast<int>(found - steps.begin());
}

int StateClauses::literal(const Atom& atom) const {
  const int positive = atom.kind == Atom::location
                           ? at({atom.process, static_cast<int>(atom.value)})
                           : reached(atom.process, atom.value);
  return atom.positive ? positive : -positive;
}

std::vector<int> StateClauses::literals(const AtomClause& clause) const {
  std::vector<int> result;
  result.reserve(clause.size());
  for (const Atom& atom : clause) result.push_back(literal(atom));
  return result;
}

// It is c or more after a unit where it is c - 1 or more now and its location lets it get to c.
int StateClauses::reachedAfterUnit(std::size_t process, std::int64_t units) {
  const auto [entry, isNew] = afterUnit_.try_emplace({process, units}, 0);
  if (!isNew) return entry->second;
  const int after = entry->second = fresh();
  const int before = reached(process, units - 1);
  add({-after, before});
  for (const auto& [location, cap] : caps_[process]) {
    const int here = at({process, location});
    if (cap < units) add({-after, -here});
    if (cap >= units) add({after, -before, -here});
  }
  return after;
}

int StateClauses::literalAfterUnit(const Atom& atom) {
  if (atom.kind == Atom::location) return literal(atom);
  const int positive = reachedAfterUnit(atom.process, atom.value);
  return atom.positive ? positive : -positive;
}

// One variable a partial sum; a location leads from each to the next, forth and back.
void StateClauses::assertLinear(const LinearInvariant& invariant) {
  const std::optional<PartialSums> parts = partialSums(net_, invariant);
  if (!parts) return;
  std::map<std::int64_t, int> before{{0, truth_}};
  std::size_t i = 0;
  for (const auto& [process, add] : parts->addends) {
    std::map<std::int64_t, int> after;
    for (const std::int64_t sum : parts->sums[++i]) after[sum] = fresh();
    const std::size_t p = process;
    const auto lead = [&, p](const auto& from, const auto& to, int location, std::int64_t by) {
      for (const auto& [sum, variable] : from) {
        std::vector<int> clause{-variable, -at({p, location})};
        std::int64_t result = 0;
        const bool fits = !__builtin_add_overflow(sum, by, &result);
        const auto end = fits ? to.find(result) : to.end();
        if (end != to.end()) clause.push_back(end->second);
        this->add(clause);
      }
    };
    for (const auto& [location, by] : add) {
      lead(before, after, location, by);
      lead(after, before, location, -by);
    }
    before = std::move(after);
  }
  for (const auto& [sum, variable] : before) add({variable});
}

}  // namespace tpn

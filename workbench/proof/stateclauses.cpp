#include "workbench/proof/stateclauses.hpp"

#include <algorithm>
#include <cassert>
#include <set>
#include <utility>

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

namespace {

// A linear invariant by process: what each of its locations adds to the sum.
using Addends = std::map<std::size_t, std::map<int, std::int64_t>>;

Addends addends(const Network& net, const LinearInvariant& invariant) {
  Addends result;
  for (const auto& [spot, coefficient] : invariant.coefficients) {
    if (result.contains(spot.process)) continue;
    for (const int location : net.processes[spot.process].locations) {
      const auto given = invariant.coefficients.find({spot.process, location});
      result[spot.process][location] = given == invariant.coefficients.end() ? 0 : given->second;
    }
  }
  return result;
}

// [i]: the sums over the first i processes from which the total can still be reached.
std::vector<std::set<std::int64_t>> partialSums(const Addends& parts, std::int64_t total) {
  std::vector<std::set<std::int64_t>> forward{{0}};
  for (const auto& [process, add] : parts) {
    std::set<std::int64_t> next;
    for (const std::int64_t sum : forward.back())
      for (const auto& [location, by] : add) next.insert(sum + by);
    forward.push_back(std::move(next));
  }
  std::set<std::int64_t> useful{total};
  std::size_t i = forward.size() - 1;
  std::vector<std::set<std::int64_t>> result(forward.size());
  for (auto part = parts.rbegin();; ++part, --i) {
    for (const std::int64_t sum : forward[i])
      if (useful.contains(sum)) result[i].insert(sum);
    if (part == parts.rend()) break;
    std::set<std::int64_t> before;
    for (const std::int64_t sum : result[i])
      for (const auto& [location, by] : part->second) before.insert(sum - by);
    useful = std::move(before);
  }
  return result;
}

}  // namespace

// One variable a partial sum; a location leads from each to the next, forth and back.
void StateClauses::assertLinear(const LinearInvariant& invariant) {
  const Addends parts = addends(net_, invariant);
  const std::vector<std::set<std::int64_t>> sums = partialSums(parts, invariant.total);
  std::map<std::int64_t, int> before{{0, truth_}};
  std::size_t i = 0;
  for (const auto& [process, add] : parts) {
    std::map<std::int64_t, int> after;
    for (const std::int64_t sum : sums[++i]) after[sum] = fresh();
    const auto lead = [&](const auto& from, const auto& to, int location, std::int64_t by) {
      for (const auto& [sum, variable] : from) {
        std::vector<int> clause{-variable, -at({process, location})};
        const auto end = to.find(sum + by);
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

// All states of a small network, one by one: what certificates are judged by, and made from.
//
// Time passes unit by unit, each rule is a sentence about all clocks, and a clock that no constant
// of its location tells apart stays where it is.

#pragma once

#include <algorithm>
#include <set>

#include "workbench/network/goal.hpp"
#include "workbench/proof/certificate.hpp"

namespace tpn::states {

struct State {
  std::vector<int> locations;
  std::vector<std::int64_t> clocks;  // units

  friend auto operator<=>(const State&, const State&) = default;
};

// How far a clock is told apart, reckoned anew here: [process][location].
inline std::vector<std::map<int, std::int64_t>> capsOf(const Network& net) {
  std::vector<std::map<int, std::int64_t>> caps;
  for (std::size_t p = 0; p < net.processes.size(); ++p) {
    caps.emplace_back();
    for (const int location : net.processes[p].locations) {
      std::int64_t& cap = caps[p][location];
      for (const Transition& t : net.transitions)
        for (const Move& m : t.moves)
          if (m.process == p && m.source == location && m.counts)
            cap = std::max({cap, t.interval.earliest, t.interval.latest.value_or(0)});
    }
  }
  return caps;
}

class Explorer {
 public:
  // Of a network in units.
  explicit Explorer(const Network& net) : net_(net), caps_(capsOf(net)) {}

  State initial() const {
    return {std::vector<int>(net_.processes.size(), 0),
            std::vector<std::int64_t>(net_.processes.size(), 0)};
  }

  std::set<State> reachable() const {
    std::set<State> found{initial()};
    std::vector<State> open{initial()};
    while (!open.empty()) {
      const State from = open.back();
      open.pop_back();
      for (const State& to : next(from))
        if (found.insert(to).second) open.push_back(to);
    }
    return found;
  }

  std::vector<State> next(const State& from) const {
    std::vector<State> all;
    if (mayWait(from)) all.push_back(later(from));
    for (const Transition& t : net_.transitions)
      if (mayFire(t, from)) all.push_back(fired(t, from));
    return all;
  }

  // What becomes of a state, or the same one where that cannot be.
  State waited(const State& from) const { return mayWait(from) ? later(from) : from; }
  State fired(std::size_t transition, const State& from) const {
    const Transition& t = net_.transitions[transition];
    return mayFire(t, from) ? fired(t, from) : from;
  }

  // All combinations of locations and clocks within their caps.
  std::vector<State> everything() const {
    std::vector<State> all{{}};
    for (std::size_t p = 0; p < net_.processes.size(); ++p) {
      std::vector<State> more;
      for (const State& part : all)
        for (const auto& [location, cap] : caps_[p])
          for (std::int64_t clock = 0; clock <= cap; ++clock) {
            more.push_back(part);
            more.back().locations.push_back(location);
            more.back().clocks.push_back(clock);
          }
      all = std::move(more);
    }
    return all;
  }

  bool isGoal(const Goal& goal, const State& state) const {
    const std::set<int> propositions = propositionsAt(net_, state.locations);
    return tpn::holds(goal, {propositions, state.locations, isDeadlock(state), isUnsafe(state)});
  }

  // At once or after some units a transition is in time, and what it moves to no count is not
  // there.
  bool isUnsafe(State state) const {
    for (;;) {
      for (const Transition& t : net_.transitions)
        if (isInTime(t, state) && !mayFire(t, state)) return true;
      if (!mayWait(state) || later(state) == state) return false;
      state = later(state);
    }
  }

  // Nothing fires at once or after any number of units.
  bool isDeadlock(State state) const {
    for (;;) {
      for (const Transition& t : net_.transitions)
        if (isInTime(t, state)) return false;
      if (!mayWait(state) || later(state) == state) return true;
      state = later(state);
    }
  }

 private:
  static bool isThere(const Move& m, const State& s) { return s.locations[m.process] == m.source; }
  static bool enabled(const Transition& t, const State& s) {
    return std::all_of(t.moves.begin(), t.moves.end(),
                       [&](const Move& m) { return !m.counts || isThere(m, s); });
  }
  static bool allReached(const Transition& t, const State& s, std::int64_t units) {
    return std::all_of(t.moves.begin(), t.moves.end(),
                       [&](const Move& m) { return !m.counts || s.clocks[m.process] >= units; });
  }
  static bool isInTime(const Transition& t, const State& s) {
    if (!enabled(t, s) || !allReached(t, s, t.interval.earliest)) return false;
    return !t.interval.latest || !allReached(t, s, *t.interval.latest + 1);
  }
  static bool mayFire(const Transition& t, const State& s) {
    return isInTime(t, s) && std::all_of(t.moves.begin(), t.moves.end(),
                                         [&](const Move& m) { return isThere(m, s); });
  }
  bool mayWait(const State& s) const {
    return std::none_of(net_.transitions.begin(), net_.transitions.end(), [&](const auto& t) {
      return t.interval.latest && enabled(t, s) && allReached(t, s, *t.interval.latest);
    });
  }
  State later(State s) const {
    for (std::size_t p = 0; p < s.clocks.size(); ++p)
      s.clocks[p] = std::min(s.clocks[p] + 1, caps_[p].at(s.locations[p]));
    return s;
  }
  static State fired(const Transition& t, State s) {
    for (const Move& m : t.moves) {
      s.locations[m.process] = m.target;
      if (m.resets) s.clocks[m.process] = 0;
    }
    return s;
  }

  const Network& net_;
  std::vector<std::map<int, std::int64_t>> caps_;
};

inline bool holds(const Atom& atom, const State& s) {
  const bool value = atom.kind == Atom::location ? s.locations[atom.process] == atom.value
                                                 : s.clocks[atom.process] >= atom.value;
  return value == atom.positive;
}

inline bool holds(const AtomClause& clause, const State& s) {
  return std::any_of(clause.begin(), clause.end(), [&](const Atom& a) { return holds(a, s); });
}

inline bool holds(const LinearInvariant& invariant, const State& s) {
  std::int64_t sum = 0;
  for (const auto& [spot, coefficient] : invariant.coefficients)
    if (s.locations[spot.process] == spot.location) sum += coefficient;
  return sum == invariant.total;
}

// Without generators.
inline bool inside(const Certificate& flat, const State& s) {
  const auto here = [&](const auto& part) { return holds(part, s); };
  return std::all_of(flat.clauses.begin(), flat.clauses.end(), here) &&
         std::all_of(flat.linear.begin(), flat.linear.end(), here);
}

// Is what is inside an invariant, and free of goals? State by state, of a flat certificate.
inline bool proves(const Network& scaled, const Goal& goal, const Certificate& flat) {
  const Explorer explorer(scaled);
  if (!inside(flat, explorer.initial())) return false;
  for (const State& s : explorer.everything()) {
    if (!inside(flat, s)) continue;
    if (explorer.isGoal(goal, s)) return false;
    for (const State& to : explorer.next(s))
      if (!inside(flat, to)) return false;
  }
  return true;
}

// A certificate of clauses that are true of exactly the reachable states: for every other one a
// clause that says it is not there, shortened as long as it is true of all that are.
inline Certificate exactly(const Network& scaled, const std::set<State>& reachable) {
  const auto trueOfAll = [&](const AtomClause& clause) {
    return std::all_of(reachable.begin(), reachable.end(),
                       [&](const State& s) { return holds(clause, s); });
  };
  Certificate result;
  const auto caps = capsOf(scaled);
  for (const State& s : Explorer(scaled).everything()) {
    if (reachable.contains(s) || !inside(result, s)) continue;
    AtomClause clause;
    for (std::size_t p = 0; p < s.locations.size(); ++p) {
      clause.push_back({Atom::location, false, p, s.locations[p]});
      if (s.clocks[p] > 0) clause.push_back({Atom::clock, false, p, s.clocks[p]});
      if (s.clocks[p] < caps[p].at(s.locations[p]))
        clause.push_back({Atom::clock, true, p, s.clocks[p] + 1});
    }
    for (std::size_t i = clause.size(); i-- > 0;) {
      AtomClause shorter = clause;
      shorter.erase(shorter.begin() + static_cast<std::ptrdiff_t>(i));
      if (trueOfAll(shorter)) clause = std::move(shorter);
    }
    result.clauses.push_back(std::move(clause));
  }
  return result;
}

}  // namespace tpn::states

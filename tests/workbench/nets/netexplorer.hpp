// A walk through all states of a small net by its own meaning: a clock for each transition, whole
// time, intermediate semantics. And one through those of a network, by what it says of moves that
// do not count or do not reset. Both stop short of putting a token where one is, and tell.

#pragma once

#include <algorithm>
#include <map>
#include <set>
#include <vector>

#include "workbench/nets/petrinet.hpp"

namespace tpn {

using Marking = std::vector<bool>;

struct Explored {
  std::set<Marking> markings;
  std::set<Marking> dead;  // where no transition fires any more
  bool unsafe = false;

  friend bool operator==(const Explored&, const Explored&) = default;
};

class NetExplorer {
 public:
  explicit NetExplorer(const PetriNet& net) : net_(net) {
    State first{{}, std::vector<std::int64_t>(net.transitions.size())};
    for (const PetriNet::Place& place : net.places) first.marking.push_back(place.marked);
    visit(first);
  }

  Explored explored() {
    while (!waiting_.empty()) {
      const State state = waiting_.back();
      waiting_.pop_back();
      look(state);
    }
    return found_;
  }

 private:
  struct State {
    Marking marking;
    std::vector<std::int64_t> clocks;  // 0 where not enabled

    friend auto operator<=>(const State&, const State&) = default;
  };
  static constexpr std::int64_t cap = 8;  // above all constants

  bool enabled(const PetriNet::Transition& t, const Marking& at) const {
    const auto marked = [&](std::size_t p) { return at[p]; };
    return std::all_of(t.consumed.begin(), t.consumed.end(), marked) &&
           std::all_of(t.read.begin(), t.read.end(), marked);
  }

  void look(const State& state) {
    bool mayPass = true;
    bool any = false;
    for (std::size_t t = 0; t < net_.transitions.size(); ++t) {
      const PetriNet::Transition& transition = net_.transitions[t];
      if (!enabled(transition, state.marking)) continue;
      any = true;
      const Interval& interval = transition.interval;
      if (interval.latest && state.clocks[t] >= *interval.latest) mayPass = false;
      if (state.clocks[t] >= interval.earliest) fire(state, t);
    }
    if (!any) found_.dead.insert(state.marking);
    if (mayPass) pass(state);
  }

  void pass(State state) {
    for (std::size_t t = 0; t < net_.transitions.size(); ++t)
      if (enabled(net_.transitions[t], state.marking))
        state.clocks[t] = std::min(state.clocks[t] + 1, cap);
    visit(state);
  }

  void fire(State state, std::size_t fired) {
    const PetriNet::Transition& transition = net_.transitions[fired];
    for (const std::size_t p : transition.consumed) state.marking[p] = false;
    const Marking between = state.marking;
    for (const std::size_t p : transition.produced) {
      found_.unsafe = found_.unsafe || state.marking[p];
      if (state.marking[p]) return;
      state.marking[p] = true;
    }
    for (std::size_t t = 0; t < net_.transitions.size(); ++t)
      if (t == fired || !enabled(net_.transitions[t], between)) state.clocks[t] = 0;
    visit(state);
  }

  void visit(const State& state) {
    if (!known_.insert(state).second) return;
    found_.markings.insert(state.marking);
    waiting_.push_back(state);
  }

  const PetriNet& net_;
  std::set<State> known_;
  std::vector<State> waiting_;
  Explored found_;
};

// Markings are read off the propositions: place p is p + 1.
class NetworkExplorer {
 public:
  NetworkExplorer(const Network& net, std::size_t places) : net_(net), places_(places) {
    visit({initialLocations(net), std::vector<std::int64_t>(net.processes.size())});
  }

  Explored explored() {
    while (!waiting_.empty()) {
      const State state = waiting_.back();
      waiting_.pop_back();
      look(state);
    }
    return found_;
  }

 private:
  struct State {
    Locations at;
    std::vector<std::int64_t> clocks;

    friend auto operator<=>(const State&, const State&) = default;
  };
  static constexpr std::int64_t cap = 8;

  // The least clock of the moves that count; -1 where one of them is elsewhere.
  static std::int64_t sinceEnabled(const Transition& t, const State& state) {
    std::int64_t since = cap;
    for (const Move& move : t.moves) {
      if (!move.counts) continue;
      if (state.at[move.process] != move.source) return -1;
      since = std::min(since, state.clocks[move.process]);
    }
    return since;
  }

  void look(const State& state) {
    bool mayPass = true;
    bool any = false;
    for (const Transition& t : net_.transitions) {
      const std::int64_t since = sinceEnabled(t, state);
      if (since < 0) continue;
      any = true;
      if (t.interval.latest && since >= *t.interval.latest) mayPass = false;
      if (since >= t.interval.earliest) fire(state, t);
    }
    if (!any) found_.dead.insert(marking(state));
    if (!mayPass) return;
    State later = state;
    for (std::int64_t& clock : later.clocks) clock = std::min(clock + 1, cap);
    visit(later);
  }

  void fire(State state, const Transition& t) {
    for (const Move& move : t.moves)
      if (state.at[move.process] != move.source) {
        found_.unsafe = true;
        return;
      }
    for (const Move& move : t.moves) {
      state.at[move.process] = move.target;
      if (move.resets) state.clocks[move.process] = 0;
    }
    visit(state);
  }

  Marking marking(const State& state) const {
    Marking marking(places_);
    for (const int q : propositionsAt(net_, state.at))
      marking[static_cast<std::size_t>(q) - 1] = true;
    return marking;
  }

  void visit(const State& state) {
    if (!known_.insert(state).second) return;
    found_.markings.insert(marking(state));
    waiting_.push_back(state);
  }

  const Network& net_;
  std::size_t places_;
  std::set<State> known_;
  std::vector<State> waiting_;
  Explored found_;
};

}  // namespace tpn

// All that a small network can do, transition by transition until nothing new comes: whole time
// units, states as the end-to-end tests know them, no formulas.

#pragma once

#include <algorithm>
#include <map>
#include <optional>
#include <set>

#include "tests/endtoend/network.hpp"

// The smallest numbers of transitions that lead to the goals; none where nothing ever does.
struct FixedPoint {
  std::optional<int> property;
  std::optional<int> deadEnd;
  std::optional<int> longest;  // of all runs; none where some go on for ever
};

class FixedPointSearch {
 public:
  explicit FixedPointSearch(const Network& net) : net_(net), top_(largestConstant(net) + 1) {}

  FixedPoint run() {
    const State start = initialState(net_);
    std::set<State> layer{start};
    for (int length = 0; !layer.empty(); ++length) {
      std::set<State> next;
      for (const State& state : layer) visit(state, length);
      for (const State& state : layer)
        for (const State& after : successors_.at(state))
          if (!successors_.contains(after)) next.insert(after);
      layer = std::move(next);
    }
    const int longest = longestFrom(start);
    if (longest != endless) result_.longest = longest;
    return result_;
  }

 private:
  static constexpr int endless = -1;

  void visit(const State& from, int length) {
    if (propertyHolds(net_, from) && !result_.property) result_.property = length;
    std::set<State>& next = successors_[from];
    for (int delay = 0; delay <= top_; ++delay) {
      State state = from;
      for (std::int64_t& clock : state.clocks) clock = std::min<std::int64_t>(clock + delay, top_);
      if (!invariant(net_, state, 1)) break;
      for (const Transition& t : net_.transitions)
        if (mayFire(t, state, 1)) next.insert(fired(t, state));
    }
    if (next.empty() && !result_.deadEnd) result_.deadEnd = length;
  }

  // Of a state that is being looked at: it can come back, so runs need not end.
  int longestFrom(const State& state) {
    const auto [known, isNew] = longest_.emplace(state, endless);
    if (!isNew) return known->second;
    int longest = 0;
    for (const State& next : successors_.at(state)) {
      const int rest = longestFrom(next);
      if (rest == endless) return endless;
      longest = std::max(longest, rest + 1);
    }
    return known->second = longest;
  }

  const Network& net_;
  int top_;
  std::map<State, std::set<State>> successors_;
  std::map<State, int> longest_;
  FixedPoint result_;
};

inline FixedPoint fixedPoint(const Network& net) { return FixedPointSearch(net).run(); }

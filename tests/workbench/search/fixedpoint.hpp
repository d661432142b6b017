// All that a small network can do, transition by transition until nothing new comes: whole time
// units, states as the end-to-end tests know them, no formulas.

#pragma once

#include <algorithm>
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
    std::set<State> layer{initialState(net_)};
    // More layers than states: some run has met a state twice.
    for (int length = 0; !layer.empty() && length <= static_cast<int>(seen_.size()); ++length) {
      seen_.insert(layer.begin(), layer.end());
      result_.longest = length;
      std::set<State> next;
      for (const State& state : layer) visit(state, length, next);
      layer = std::move(next);
    }
    if (!layer.empty()) result_.longest.reset();
    return result_;
  }

 private:
  void visit(const State& from, int length, std::set<State>& next) {
    if (propertyHolds(net_, from) && !result_.property) result_.property = length;
    bool fires = false;
    for (int delay = 0; delay <= top_; ++delay) {
      State state = from;
      for (std::int64_t& clock : state.clocks) clock = std::min<std::int64_t>(clock + delay, top_);
      if (!invariant(net_, state, 1)) break;
      for (const Transition& t : net_.transitions) {
        if (!mayFire(t, state, 1)) continue;
        fires = true;
        next.insert(fired(t, state));
      }
    }
    if (!fires && !result_.deadEnd) result_.deadEnd = length;
  }

  const Network& net_;
  int top_;
  std::set<State> seen_;
  FixedPoint result_;
};

inline FixedPoint fixedPoint(const Network& net) { return FixedPointSearch(net).run(); }

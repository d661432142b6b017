// The meaning of networks once more, for a brute force: time on a grid of half units, each rule as
// a sentence about all clocks, time passing half a unit at a go.

#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

#include "workbench/runs/run.hpp"

namespace tpn::grid {

constexpr int perUnit = 2;

struct State {
  std::vector<int> locations;
  std::vector<int> clocks;  // in half units

  friend bool operator==(const State&, const State&) = default;
};

inline State initial(const Network& net) {
  return {std::vector<int>(net.processes.size(), 0), std::vector<int>(net.processes.size(), 0)};
}

inline bool enabled(const Transition& t, const State& s) {
  for (const Move& move : t.moves)
    if (move.counts && s.locations[move.process] != move.source) return false;
  return true;
}

inline bool isFree(const Transition& t, const State& s) {
  for (const Move& move : t.moves)
    if (s.locations[move.process] != move.source) return false;
  return true;
}

inline bool oneInTime(const Transition& t, const State& s) {
  if (!t.interval.latest) return true;
  for (const Move& move : t.moves)
    if (move.counts && s.clocks[move.process] <= *t.interval.latest * perUnit) return true;
  return false;
}

inline bool allRipe(const Transition& t, const State& s) {
  for (const Move& move : t.moves)
    if (move.counts && s.clocks[move.process] < t.interval.earliest * perUnit) return false;
  return true;
}

inline bool allowed(const Network& net, const State& s) {
  for (const Transition& t : net.transitions)
    if (enabled(t, s) && !oneInTime(t, s)) return false;
  return true;
}

// Half a unit passes; false where it may not.
inline bool wait(const Network& net, State& s) {
  for (int& clock : s.clocks) ++clock;
  return allowed(net, s);
}

// As far as moves that count say.
inline bool isInTime(const Transition& t, const State& s) {
  return enabled(t, s) && allRipe(t, s) && oneInTime(t, s);
}

inline bool fire(const Transition& t, State& s) {
  if (!isInTime(t, s) || !isFree(t, s)) return false;
  for (const Move& move : t.moves) {
    s.locations[move.process] = move.target;
    if (move.resets) s.clocks[move.process] = 0;
  }
  return true;
}

// Waits for so many half units and fires; false where that cannot be done.
inline bool step(const Network& net, int delay, std::size_t transition, State& s) {
  for (int i = 0; i < delay; ++i)
    if (!wait(net, s)) return false;
  return fire(net.transitions[transition], s);
}

inline TimedState timed(const State& s) {
  TimedState result{s.locations, {}};
  for (const int clock : s.clocks) result.clocks.emplace_back(clock, perUnit);
  return result;
}

// The states that can be reached in so many steps with delays up to `longest` half units, one after
// the other, without those met before.
inline std::vector<State> reachable(const Network& net, int steps, int longest) {
  std::vector<State> found{initial(net)};
  std::size_t begin = 0;
  for (int i = 0; i < steps; ++i) {
    const std::size_t end = found.size();
    for (; begin < end; ++begin)
      for (std::size_t t = 0; t < net.transitions.size(); ++t)
        for (int delay = 0; delay <= longest; ++delay) {
          State s = found[begin];
          if (step(net, delay, t, s) && std::find(found.begin(), found.end(), s) == found.end())
            found.push_back(s);
        }
  }
  return found;
}

}  // namespace tpn::grid

#include "workbench/prover/goalstates.hpp"

#include <algorithm>
#include <cassert>
#include <iterator>

#include "workbench/prover/blocking.hpp"

namespace tpn {

std::optional<Cube> GoalStates::of(std::size_t level) {
  solver_.assume(frames_.frame(level));
  solver_.assume(goal_);
  if (!solved(solver_)) return std::nullopt;
  Cube state;
  for (int v = 1; v <= words_.variables(); ++v) state.push_back(solver_.value(v) ? v : -v);
  return why(words_.normal(state));
}

bool GoalStates::suffices(const Cube& cube) {
  solver_.assume(-goal_);
  for (const int literal : cube) solver_.assume(literal);
  return !solved(solver_);
}

Cube GoalStates::needed(const Cube& cube) {
  Cube rest;
  std::copy_if(cube.begin(), cube.end(), std::back_inserter(rest),
               [this](int literal) { return solver_.failed(literal); });
  return rest;
}

// The literals of a goal state that make it one.
Cube GoalStates::why(Cube state) {
  const bool isGoal = suffices(state);
  assert(isGoal);
  Cube cube = needed(state);
  for (const int literal : Cube(cube.rbegin(), cube.rend())) {
    Cube rest = cube;
    std::erase(rest, literal);
    if (suffices(rest)) cube = rest;
  }
  return words_.normal(cube);
}

}  // namespace tpn

// The goal states of a frame, as cubes around them.

#pragma once

#include <cstddef>
#include <optional>

#include "workbench/prover/cube.hpp"
#include "workbench/prover/frames.hpp"
#include "workbench/solvers/solver.hpp"

namespace tpn {

class GoalStates {
 public:
  // `goal`: the literal that says so of a state. Borrows all.
  GoalStates(const Vocabulary& words, const Frames& frames, Solver& solver, int goal)
      : words_(words), frames_(frames), solver_(solver), goal_(goal) {}

  // Goal states around one of the frame, if it has one. Throws Interrupted.
  std::optional<Cube> of(std::size_t level);

 private:
  bool suffices(const Cube& cube);
  Cube needed(const Cube& cube);
  Cube why(Cube state);

  const Vocabulary& words_;
  const Frames& frames_;
  Solver& solver_;
  int goal_;
};

}  // namespace tpn

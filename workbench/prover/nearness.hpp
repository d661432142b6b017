// Which processes a cube is about, and which it merely mentions. An obligation's cube says of many
// processes only that no deadline of theirs is in the way of a delay; what it is about are the
// processes of the goal and of the moves that lead from the cube to it.

#pragma once

#include <cstddef>
#include <vector>

#include "workbench/prover/cube.hpp"
#include "workbench/prover/steps.hpp"

namespace tpn {

using Processes = std::vector<std::size_t>;  // ascending, each once

class Nearness {
 public:
  // Borrows all.
  Nearness(const Machine& machine, const Vocabulary& words) : machine_(machine), words_(words) {}

  Processes of(const Cube& cube) const;
  // These and those that the step moves.
  Processes with(Processes about, const Way& way) const;
  Cube part(const Cube& cube, const Processes& about) const;

  // [process]: how many transitions away from these; empty where the cube mentions no others.
  std::vector<std::size_t> distances(const Cube& cube, const Processes& about) const;

 private:
  bool contains(const Processes& about, int literal) const;

  const Machine& machine_;
  const Vocabulary& words_;
};

}  // namespace tpn

// Symmetries of the machine as permutations of a state's variables, and the orbits of cubes.

#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "workbench/prover/cube.hpp"

namespace tpn {

class Orbits {
 public:
  using Permutation = std::vector<int>;  // [variable]: its image

  Orbits() = default;
  explicit Orbits(std::vector<Permutation> generators) : generators_(std::move(generators)) {}

  bool trivial() const { return generators_.empty(); }

  // All images of a cube, itself first; nothing where they are more than `most`.
  std::optional<std::vector<Cube>> of(const Cube& cube, std::size_t most) const;

 private:
  std::vector<Permutation> generators_;
};

}  // namespace tpn

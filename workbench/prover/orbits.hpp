// The orbits of cubes under permutations of a state's variables.

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
  explicit Orbits(std::vector<Permutation> generators);

  const std::vector<Permutation>& generators() const { return generators_; }
  bool trivial() const { return generators_.empty(); }
  // All images of a cube, itself first; nothing where they are more than `most`.
  std::optional<std::vector<Cube>> of(const Cube& cube, std::size_t most) const;

 private:
  std::vector<Permutation> generators_;
  std::vector<std::vector<std::size_t>> movers_;  // [variable]: the generators that move it
};

}  // namespace tpn

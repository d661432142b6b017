#include "workbench/prover/symmetry.hpp"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <unordered_set>

namespace tpn {

namespace {

struct CubeHash {
  std::size_t operator()(const Cube& cube) const {
    std::uint64_t h = 0;
    for (const int literal : cube)
      h = (h ^ static_cast<std::uint32_t>(literal)) * 0x9E3779B97F4A7C15U;
    return static_cast<std::size_t>(h ^ h >> 32);
  }
};

Cube image(const Cube& cube, const Orbits::Permutation& permutation) {
  Cube result;
  result.reserve(cube.size());
  for (const int literal : cube) {
    const int variable = permutation[static_cast<std::size_t>(std::abs(literal))];
    result.push_back(literal < 0 ? -variable : variable);
  }
  std::sort(result.begin(), result.end(), [](int a, int b) { return std::abs(a) < std::abs(b); });
  return result;
}

}  // namespace

std::optional<std::vector<Cube>> Orbits::of(const Cube& cube, std::size_t most) const {
  std::vector<Cube> found{cube};
  std::unordered_set<Cube, CubeHash> known{cube};
  for (std::size_t i = 0; i < found.size(); ++i)
    for (const Permutation& generator : generators_) {
      Cube other = image(found[i], generator);
      if (!known.insert(other).second) continue;
      found.push_back(std::move(other));
      if (found.size() > most) return std::nullopt;
    }
  return found;
}

}  // namespace tpn

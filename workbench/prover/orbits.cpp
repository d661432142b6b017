#include "workbench/prover/orbits.hpp"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <unordered_set>
#include <utility>

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

Orbits::Orbits(std::vector<Permutation> generators) : generators_(std::move(generators)) {
  for (std::size_t g = 0; g < generators_.size(); ++g) {
    movers_.resize(std::max(movers_.size(), generators_[g].size()));
    for (std::size_t v = 1; v < generators_[g].size(); ++v)
      if (generators_[g][v] != static_cast<int>(v)) movers_[v].push_back(g);
  }
}

std::optional<std::vector<Cube>> Orbits::of(const Cube& cube, std::size_t most) const {
  std::vector<Cube> found{cube};
  if (trivial()) return found;
  std::unordered_set<Cube, CubeHash> known{cube};
  std::vector<std::size_t> tried(generators_.size(), 0);  // [generator]: for which cube, from 1
  for (std::size_t i = 0; i < found.size(); ++i)
    for (std::size_t j = 0; j < cube.size(); ++j)
      for (const std::size_t g : movers_[static_cast<std::size_t>(std::abs(found[i][j]))]) {
        if (std::exchange(tried[g], i + 1) == i + 1) continue;
        Cube other = image(found[i], generators_[g]);
        if (!known.insert(other).second) continue;
        found.push_back(std::move(other));
        if (found.size() > most) return std::nullopt;
      }
  return found;
}

}  // namespace tpn

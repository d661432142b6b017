// Transitions that are alike for a cube: a symmetry that leaves the cube alone maps one to the
// other. Frames are closed under symmetries, so what the solver says of one of them is true of all,
// and it is asked about one only. In Fischer's protocol that is a dozen questions about a cube, at
// any size, where there are three transitions a process that touch it.
//
// Of the group only swaps are looked at: the generators, and what they become when they are
// conjugated with one another. For processes that are alike these are all transpositions, so that
// two transitions that are alike are found to be so in one step.

#pragma once

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <utility>
#include <vector>

#include "workbench/prover/cube.hpp"
#include "workbench/prover/orbits.hpp"

namespace tpn {

class Likeness {
 public:
  // What a transition is: a number for its interval, then the variables of source and target of
  // each of its moves. Permutations of the variables are given; none: no two are alike.
  using Shape = std::vector<int>;
  Likeness() = default;
  Likeness(const std::vector<Orbits::Permutation>& generators, std::vector<Shape> transitions);

  // From now on it is about this cube.
  void attend(const Cube& cube);

  // The first that was asked about of those alike it.
  std::size_t representative(std::size_t transition);

 private:
  static constexpr std::size_t mostSwaps = 20000;

  using Swap =
      std::vector<std::pair<int, int>>;  // variables that it moves, ascending; their images
  struct Hash {
    std::size_t operator()(const Shape& shape) const {
      std::uint64_t h = 0;
      for (const int part : shape) {
        h = (h ^ static_cast<std::uint32_t>(part)) * 0x9E3779B97F4A7C15U;
        h ^= h >> 32U;
      }
      return static_cast<std::size_t>(h);
    }
  };

  static int image(const Swap& swap, int variable);
  static Shape flat(const Swap& swap);
  void addSwaps(std::vector<Swap> open);
  void index(std::size_t variables);
  Shape image(const Swap& swap, const Shape& shape) const;
  void spread(std::size_t transition);

  std::vector<Shape> shapes_;  // [transition]
  std::unordered_map<Shape, std::size_t, Hash> byShape_;
  std::vector<Swap> swaps_;
  std::vector<std::vector<std::size_t>> movers_;  // [variable]: swaps that move it

  std::vector<bool> attended_;  // [variable]
  std::vector<int> attending_;  // those that are attended
  std::size_t round_ = 0;
  std::vector<std::size_t> tried_;                                    // [swap]: on which transition
  std::vector<std::size_t> barred_;                                   // [swap]: in which round
  std::vector<std::pair<std::size_t, std::size_t>> representatives_;  // [transition]: round, which
};

}  // namespace tpn

// Which transitions need not be asked about a cube, as they are images of others under symmetries
// that leave every literal of the cube where it is.
//
// What is used of the symmetries is the common case: families of blocks (a process, or several that
// go together) of which any two can be swapped. A variable is owned by the blocks that move it: its
// process's, or, where a shared process has a value for each block, that value's. The symmetries
// that swap blocks which own nothing of the cube leave the cube alone. So of the transitions that
// touch k blocks of a family it does to ask those whose blocks are pinned by the cube or among the
// first k of the rest.
//
// That the swaps move owners as they should is verified; where they do not, nothing is left out.
// Nothing is searched for: the swaps are those among the generators that machine/symmetry found,
// under which frames are closed. Classes of machine/exchange, made with a property in mind, would
// be smaller.

#pragma once

#include <cstddef>
#include <unordered_map>
#include <vector>

#include "workbench/base/checkpoint.hpp"
#include "workbench/prover/cube.hpp"
#include "workbench/prover/orbits.hpp"

namespace tpn {

class Interchange {
 public:
  Interchange() = default;
  Interchange(const Machine& machine, const StateLayout& layout, const Vocabulary& words,
              const std::vector<Orbits::Permutation>& generators, const Checkpoint& checkpoint);

  void pin(const Cube& cube);

  // Of the cube that was pinned last.
  bool redundant(std::size_t transition) const {
    if (families_.empty()) return false;
    const std::vector<std::size_t>& blocks = touched_[transition];
    for (const std::size_t block : blocks)
      if (position_[block] >= static_cast<std::ptrdiff_t>(blocks.size())) return true;
    return false;
  }

  std::size_t families() const { return families_.size(); }

 private:
  using Block = std::vector<std::size_t>;     // processes, ascending
  using Swap = std::unordered_map<int, int>;  // what it moves: [variable]
  struct Family {                             // any two of its blocks can be swapped
    std::vector<std::size_t> blocks;          // the first is the root
    std::vector<Swap> swaps;                  // [i]: of the root and block i + 1
  };
  class Finder;

  static int image(const Swap& swap, int variable) {
    const auto found = swap.find(variable);
    return found == swap.end() ? variable : found->second;
  }
  void findOwners(const Vocabulary& words, const std::vector<std::size_t>& blockOf);
  void own(const Family& family);
  bool movesOwners(int from, int to, std::size_t a, std::size_t b) const;
  bool consistent(const Checkpoint& checkpoint) const;

  std::vector<Family> families_;
  std::vector<std::vector<std::size_t>> owners_;   // [variable]: blocks, ascending
  std::vector<std::vector<std::size_t>> touched_;  // [transition]: blocks, ascending
  std::vector<std::ptrdiff_t> position_;  // [block]: among those of its family that are not pinned,
                                          // -1 where it is
  std::vector<bool> pinned_;
};

}  // namespace tpn

// Sets of states as conjunctions of literals of one state: what IC3 blocks. A cube's literals are
// sorted, and none follows from another one of the same process: one location that is meant, or
// some that are not; at most one lower and one upper bound on the clock.

#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "workbench/machine/layout.hpp"
#include "workbench/machine/machine.hpp"

namespace tpn {

using Cube = std::vector<int>;  // literals of a capped StateLayout

inline bool contains(const std::vector<int>& literals, int literal) {
  return std::find(literals.begin(), literals.end(), literal) != literals.end();
}

// What a variable of the state says.
struct Meaning {
  std::size_t process = 0;
  bool isClock = false;
  std::int64_t value = 0;  // a rank; or the clock is at least this, 1 or more
};

class Vocabulary {
 public:
  Vocabulary(const Machine& machine, const StateLayout& layout);

  const Meaning& meaning(int literal) const {
    return meanings_[static_cast<std::size_t>(literal < 0 ? -literal : literal)];
  }
  bool initially(int literal) const {
    return initial_[static_cast<std::size_t>(literal < 0 ? -literal : literal)] == (literal > 0);
  }
  bool holdsInitially(const Cube& cube) const;

  // Is the literal true in location `rank` with the clock at 0?
  bool holdsOnArrival(int literal, std::size_t rank) const {
    const Meaning& m = meaning(literal);
    const bool value = !m.isClock && static_cast<std::size_t>(m.value) == rank;
    return value == (literal > 0);
  }

  // Sorted and without what follows from the rest.
  Cube normal(Cube literals) const;

  int variables() const { return static_cast<int>(meanings_.size()) - 1; }

 private:
  std::vector<Meaning> meanings_;  // [variable]
  std::vector<bool> initial_;
};

}  // namespace tpn

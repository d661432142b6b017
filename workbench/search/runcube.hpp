// Some of the runs of a network: those of which a conjunction holds. Runs that are too short for a
// part of it to be told are in any cube.

#pragma once

#include <cstddef>
#include <vector>

namespace tpn {

// Of the steps from `first` to `last` (they count from 1), some is one of these transitions, or
// none is.
struct CubePart {
  std::size_t first = 1;
  std::size_t last = 1;
  bool some = true;
  std::vector<std::size_t> transitions;  // indices, ascending

  friend bool operator==(const CubePart&, const CubePart&) = default;
};
using RunCube = std::vector<CubePart>;  // a conjunction; empty: all runs

// Of `count` transitions, those that are not among these.
inline std::vector<std::size_t> othersThan(const std::vector<std::size_t>& transitions,
                                           std::size_t count) {
  std::vector<std::size_t> others;
  std::size_t next = 0;
  for (std::size_t t = 0; t < count; ++t) {
    if (next < transitions.size() && transitions[next] == t)
      ++next;
    else
      others.push_back(t);
  }
  return others;
}

}  // namespace tpn

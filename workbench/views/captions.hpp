// What is written at arrows: which transitions, when, with whom.

#pragma once

#include <cstddef>
#include <vector>

#include "workbench/network/network.hpp"
#include "workbench/views/automaton.hpp"

namespace tpn {

// What one process sees of a transition.
struct Seen {
  std::size_t process = 0;
  Part part;
};

// In lines, in the order of their first transitions; `kinds` is that of each process.
std::vector<Caption> captionsOf(const Network& net, const std::vector<Seen>& seen,
                                const std::vector<std::size_t>& kinds);

}  // namespace tpn

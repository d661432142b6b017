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

// Who moves in a transition, by kind, those of a kind by number. Found once a transition: thousands
// may take part in one, and each of them sees all others.
struct Crew {
  std::vector<std::size_t> movers;
  std::size_t sort = 0;  // crews of equal kinds have the same, from 0 in the order of transitions
};

// Of each transition; `kinds` is that of each process.
std::vector<Crew> crewsOf(const Network& net, const std::vector<std::size_t>& kinds);

// Of processes of one kind, in lines, in the order of their first transitions.
std::vector<Caption> captionsOf(const Network& net, const std::vector<Seen>& seen,
                                const std::vector<Crew>& crews);

}  // namespace tpn

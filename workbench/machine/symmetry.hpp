// Symmetries of a machine: permutations of its processes, with a bijection from the locations of
// each to those of its image, that map the set of transitions, with their times, onto itself and
// the initial locations onto the initial ones. A process that is data, such as a shared variable,
// may keep its place and have its locations permuted.
//
// They are automorphisms of a coloured graph, found by the library bliss (Junttila and Kaski 2007),
// and each is verified on the machine itself before it is given out.
//
// machine/exchange finds swaps of two processes by trying. It is no help here: the prover learns
// orbits of clauses, and rotations of a ring or data that is permuted by itself are as good to it
// as swaps. Nor is a property looked at here: its images are asked about as well.

#pragma once

#include <cstddef>
#include <vector>

#include "workbench/base/checkpoint.hpp"
#include "workbench/machine/layout.hpp"
#include "workbench/machine/machine.hpp"

namespace tpn {

struct Symmetry {
  std::vector<std::size_t> process;             // [process]: its image
  std::vector<std::vector<std::size_t>> ranks;  // [process][rank]: the rank in the image

  friend bool operator==(const Symmetry&, const Symmetry&) = default;
};

// Generators of the group; none where the machine has more than `mostVertices` parts: the library's
// search cannot be interrupted between two generators.
std::vector<Symmetry> symmetries(const Machine& machine, const Checkpoint& checkpoint = {},
                                 std::size_t mostVertices = 200'000);

bool isSymmetry(const Machine& machine, const Symmetry& symmetry);

// What it does to the variables of a capped layout: [variable], from 1.
std::vector<int> permutationOf(const Machine& machine, const StateLayout& layout,
                               const Symmetry& symmetry);

}  // namespace tpn

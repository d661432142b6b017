// Place invariants: sums over the locations that processes are in which no transition changes, such
// as "the number of trains that are about, less what the counter counts, is 0". They come from the
// left null space of the incidence matrix of locations against transitions (Lautenbach 1973 for
// Petri nets), found exactly.
//
// That a process is in exactly one location gives an invariant as well, a constant for all of its
// locations; these are taken for granted. Adding multiples of them to any other, its coefficients
// of all initial locations become 0, and with them its total: so is every invariant here given.

#pragma once

#include <cstdint>
#include <vector>

#include "workbench/machine/machine.hpp"

namespace tpn {

struct PlaceInvariant {
  struct Term {
    std::size_t process = 0;
    std::size_t rank = 0;  // not the initial location's
    std::int64_t coefficient = 0;

    friend bool operator==(const Term&, const Term&) = default;
  };
  // By process and rank, ascending; at least one, no coefficient is 0, the first is above it. The
  // sum of the coefficients of those locations that are occupied is 0 in every reachable state.
  std::vector<Term> terms;

  friend bool operator==(const PlaceInvariant&, const PlaceInvariant&) = default;
};

// Independent ones from which all others follow, each in few processes with small coefficients;
// fewer of them where numbers do not fit 64 bits or more than `work` entries of rows (about 10 ns
// each) would have to be computed.
std::vector<PlaceInvariant> placeInvariants(const Machine& machine, std::int64_t work = 20'000'000);

}  // namespace tpn

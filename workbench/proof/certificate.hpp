// A proof that a goal is never reached: an invariant of the network, as plain values.
//
// The invariant is the conjunction of
//   - the linear invariants,
//   - the clauses, and all their images under the group that the generators generate,
//   - what every state obeys: a process is in one location; a clock that has reached c has reached
//     all below c; a clock is at most the cap of its process's location (the largest earliest or
//     finite latest time, in units, of any transition that takes the process from there, by a move
//     that counts; 0 where there is none).
// It holds in the initial state, every step preserves it (a unit of time that passes, clocks ending
// at their caps; or a transition), and no goal state is inside. The unit is the greatest common
// divisor of all constants, 1 where all are 0.

#pragma once

#include <compare>
#include <cstdint>
#include <map>
#include <utility>
#include <vector>

#include "workbench/base/checkpoint.hpp"
#include "workbench/network/network.hpp"

namespace tpn {

// "Process at location", or "clock of process >= units", or the negation of one of them.
struct Atom {
  enum Kind : std::uint8_t { location, clock } kind = location;
  bool positive = true;
  std::size_t process = 0;  // index
  std::int64_t value = 0;   // location number, as in the file; or units, 1 or more

  friend auto operator<=>(const Atom&, const Atom&) = default;
};

constexpr Atom operator~(Atom atom) {
  atom.positive = !atom.positive;
  return atom;
}

using AtomClause = std::vector<Atom>;  // a disjunction

struct Spot {
  std::size_t process = 0;
  int location = 0;

  friend auto operator<=>(const Spot&, const Spot&) = default;
};

// The sum of the coefficients of all occupied spots is `total`, always.
struct LinearInvariant {
  std::map<Spot, std::int64_t> coefficients;  // of the others: 0
  std::int64_t total = 0;

  friend bool operator==(const LinearInvariant&, const LinearInvariant&) = default;
};

// A permutation of the processes, with a bijection from the locations of each to those of its
// image, that maps the set of transitions onto itself and the initial locations onto the initial
// ones. Only what changes is written down.
struct Generator {
  std::map<std::size_t, std::size_t> processes;  // the images of those that are moved
  std::map<Spot, int> locations;  // a spot's location in the image, where its number is another

  std::size_t image(std::size_t process) const;
  Spot image(Spot spot) const;
  Atom image(const Atom& atom) const;

  friend bool operator==(const Generator&, const Generator&) = default;
};

AtomClause image(const Generator& g, const AtomClause& clause);  // sorted
LinearInvariant image(const Generator& g, const LinearInvariant& invariant);

struct Certificate {
  std::vector<LinearInvariant> linear;
  std::vector<Generator> generators;
  std::vector<AtomClause> clauses;

  friend bool operator==(const Certificate&, const Certificate&) = default;
};

// All clauses with their images, each sorted; all linear invariants with theirs; no generators.
Certificate flattened(const Certificate& certificate, const Checkpoint& checkpoint = {});

}  // namespace tpn

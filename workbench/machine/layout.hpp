// The variables of one state of the machine, and what is true of every state.
//
// Locations are one-hot: a variable for each location of each process. Clocks are in unary code: a
// variable for "the clock of p is at least c", c = 1 .. width of p. A state's variables are
// numbered 1 .. size; state i's stand at a base of its own, so that its literals are offset
// arithmetic: `shifted`. Clauses about one state are kept once, and added wherever they are needed.

#pragma once

#include <vector>

#include "workbench/machine/machine.hpp"
#include "workbench/solvers/solver.hpp"

namespace tpn {

using Clause = std::vector<int>;  // literals, v or -v, v >= 1
using Clauses = std::vector<Clause>;

constexpr int shifted(int literal, int base) {
  return literal > 0 ? literal + base : literal - base;
}

void addAt(Solver& solver, const Clauses& clauses, int base);

class StateLayout {
 public:
  // What a clock reaches beyond its cap: 0 for states between unit delays; 1 where a clock past the
  // deadline has to be told from one that is at it, after a delay of any length.
  enum class Clocks { capped, pastCap };

  // Asserts fits().
  StateLayout(const Machine& machine, Clocks clocks);

  int size() const { return size_; }  // variables 1 .. size
  int location(std::size_t process, std::size_t rank) const {
    return locations_[process] + static_cast<int>(rank);
  }
  // The clock of the process is at least `least`, 1 <= least <= width(process).
  int clock(std::size_t process, int least) const { return clocks_[process] + least - 1; }
  int width(std::size_t process) const { return widths_[process]; }

  // Are clocks in unary code narrow enough to be named at all?
  static bool fits(const Machine& machine);

 private:
  std::vector<int> locations_;  // [process]: the first variable
  std::vector<int> clocks_;
  std::vector<int> widths_;
  int size_ = 0;
};

// Every process is in exactly one location.
Clauses oneLocation(const Machine& machine, const StateLayout& layout);
// At least c + 1 is at least c.
Clauses clockOrder(const Machine& machine, const StateLayout& layout);
// No clock is past the cap of its location; for Clocks::capped.
Clauses clockCaps(const Machine& machine, const StateLayout& layout);
// All three.
Clauses facts(const Machine& machine, const StateLayout& layout);

// Literals that say: the initial state.
std::vector<int> initialState(const Machine& machine, const StateLayout& layout);

}  // namespace tpn

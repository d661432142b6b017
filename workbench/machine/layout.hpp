// The variables of one state of the machine, and what is true of every state.
//
// Locations are one-hot: a variable for each location of each process. Clocks are in unary code: a
// variable for "the clock of p is at least c", c = 1, 2, ... A state's variables are
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
  // Between unit delays: clocks from 0 to the cap of their process, each value.
  static StateLayout capped(const Machine& machine);  // asserts fits()

  // After a delay of any length a clock past a deadline has to be told from one that is at it:
  // clocks from 0 to the reach of their process. Where that is beyond `limit`, only the values that
  // something compares the clock with.
  static StateLayout delayed(const Machine& machine, std::int64_t limit);

  int size() const { return size_; }  // variables 1 .. size
  int location(std::size_t process, std::size_t rank) const {
    return processes_[process].location + static_cast<int>(rank);
  }
  // The clock of the process is at least `least`, which is one of its values.
  int clock(std::size_t process, std::int64_t least) const;
  // The values c >= 1 that the layout has "at least c" for, ascending, by their index.
  int width(std::size_t process) const { return processes_[process].width; }
  bool dense(std::size_t process) const {
    return processes_[process].sparse.empty();
  }  // all 1 .. width
  std::int64_t value(std::size_t process, int index) const;
  int clockAt(std::size_t process, int index) const { return processes_[process].clock + index; }

  // Are clocks in unary code narrow enough to be named at all?
  static bool fits(const Machine& machine);

 private:
  struct Process {
    int location = 0;  // the first variable
    int clock = 0;
    int width = 0;
    std::vector<std::int64_t> sparse;  // the values where they are not 1 .. width
  };
  void add(const Machine::Process& process, std::int64_t width, std::vector<std::int64_t> sparse);

  std::vector<Process> processes_;
  int size_ = 0;
};

// Every process is in exactly one location.
Clauses oneLocation(const Machine& machine, const StateLayout& layout);
// Of one process: it is somewhere, and no two locations are occupied at once; quadratic.
void addOneLocation(Clauses& clauses, const Machine& machine, const StateLayout& layout,
                    std::size_t process);
// The locations of a process as literals.
Clause locationsOf(const Machine& machine, const StateLayout& layout, std::size_t process);
// At least c + 1 is at least c.
Clauses clockOrder(const Machine& machine, const StateLayout& layout);
// No clock is past the cap of its location; for capped layouts.
Clauses clockCaps(const Machine& machine, const StateLayout& layout);
// All three, for capped layouts.
Clauses facts(const Machine& machine, const StateLayout& layout);

// Literals that say: the initial state.
std::vector<int> initialState(const Machine& machine, const StateLayout& layout);

}  // namespace tpn

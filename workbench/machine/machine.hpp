// A network as a machine over whole numbers: what both engines, the export and the deadlock
// question are made from. docs/machine.md has the argument why it can do what the network can.
//
// Locations are ranks here, 0 .. number of locations - 1 in ascending order of their numbers, so
// that the initial one, 0 in the file, is known as `initial`. Times are counted in units: the
// greatest common divisor of all constants of the network (1 where all are 0).
//
// A clock is capped: once it has reached the largest constant that any transition out of its
// process's location compares it with (a move that stays counts too, one whose clock does not count
// does not), it stays there. So a clock that nobody reads is always 0.

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "workbench/network/network.hpp"

namespace tpn {

struct Machine {
  struct Move {
    std::size_t process = 0;
    std::size_t source = 0;  // ranks
    std::size_t target = 0;  // the source where it does not reset
    bool counts = true;      // as in the network
    bool resets = true;
  };
  struct Transition {
    std::int64_t earliest = 0;  // units
    std::optional<std::int64_t> latest;
    std::vector<Move> moves;  // by process, ascending; at least one of them counts

    // Its deadline comes before it may fire: it never does, and may stop time.
    bool hopeless() const { return latest && *latest < earliest; }
  };
  struct Location {
    int number = 0;                     // as in the file
    std::int64_t cap = 0;               // units; of the clock while the process is here
    std::vector<std::size_t> leaving;   // transitions with a move from here, staying ones as well
    std::vector<std::size_t> entering;  // transitions with a move to here, staying ones as well
  };
  struct Process {
    std::vector<Location> locations;     // [rank]
    std::size_t initial = 0;             // rank
    std::int64_t cap = 0;                // largest of its locations
    std::int64_t reach = 0;              // largest earliest time or latest time + 1 that reads it
    std::vector<std::size_t> movers;     // transitions that have it, ascending
    std::vector<std::size_t> resetters;  // those of them that reset its clock
    std::size_t rank(int number) const;  // asserts that there is such a location
  };

  std::int64_t unit = 1;
  std::vector<Transition> transitions;
  std::vector<Process> processes;
};

Machine makeMachine(const Network& net);

std::int64_t widestClock(const Machine& machine);  // largest cap of all
bool hasHopeless(const Machine& machine);

}  // namespace tpn

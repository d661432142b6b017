// Blocking of what an obligation is about, without what it says of other processes.
//
// A network in which many things go on side by side has, for each, deadlines that stop time; what
// leads to an obligation by a delay says of all of them that they are not in the way. Such a cube
// is often out of reach of a few steps just because so many processes have to get somewhere, and
// clauses that say so are about ever more processes, frame after frame (handshake 50: not done
// after 13 s). So the part about few processes is blocked in its place, and of what leads there
// again only the part about these and those that move. Whatever can be reached can be reached like
// this as well: where the initial state is, nothing is said, and the processes met on that way are
// what the obligation is about, too.

#pragma once

#include <map>
#include <utility>

#include "workbench/prover/blocking.hpp"
#include "workbench/prover/nearness.hpp"

namespace tpn {

class Cores {
 public:
  // Borrows all.
  Cores(const Vocabulary& words, const Nearness& nearness, Blocking& blocking,
        const Checkpoint& checkpoint)
      : words_(words), nearness_(nearness), blocking_(blocking), checkpoint_(checkpoint) {}

  // Learns clauses after which no state of the frame is in some part of the cube, if that can be
  // done so. Throws Interrupted.
  bool block(const Cube& cube, const Processes& about, std::size_t level);

 private:
  struct Attempt {
    bool blocked = false;
    Processes met;  // where it is not: on the way from the initial state
  };
  Attempt attempt(const Cube& core, const Processes& about, std::size_t level);

  const Vocabulary& words_;
  const Nearness& nearness_;
  Blocking& blocking_;
  const Checkpoint& checkpoint_;
  // Reached like this: after so many steps, and what is met.
  std::map<Cube, std::pair<std::size_t, Processes>> reached_;
};

}  // namespace tpn

// What may happen to a state, and what is asked for, over the one state of StateClauses.
//
// A transition may fire where its processes are in the sources of their moves, all their clocks
// have reached its earliest time, and one is not past its latest. A unit of time may pass where
// every enabled transition with a latest time has a process whose clock has not reached it. All of
// this is said of the processes of moves that count; those of others have to be in their sources
// when the transition fires.
//
// Clocks end at their caps, which makes nothing impossible that is possible with clocks that run
// on: what is asked of a clock is asked at most of its cap, but for "past the latest time", and a
// clock at its cap that has not passed it may only be taken for one that has not.

#pragma once

#include <vector>

#include "workbench/network/goal.hpp"
#include "workbench/proof/stateclauses.hpp"

namespace tpn {

class StepConditions {
 public:
  // `net` in units; both outlive this object.
  StepConditions(const Network& net, StateClauses& state) : net_(net), state_(state) {}

  // What to assume for it to happen.
  std::vector<int> firing(std::size_t transition);
  std::vector<int> inTime(std::size_t transition);  // as far as moves that count say
  int unitPasses();

 private:
  const Network& net_;
  StateClauses& state_;
  std::vector<int>
      notPast_;  // [transition]: says that one clock is not past its latest; 0: not yet
  int unitPasses_ = 0;
};

// A literal that is true only in the goal's states. For a deadlock, in the last of them: where no
// transition can fire, and none is enabled or time is stuck. Every deadlock leads to such a state
// by waiting, and such a state is a deadlock. Likewise what is no deadlock leads to a state in
// which a transition may fire now, and what is unsafe to one in which it may but for what is in its
// way. Waiting changes nothing else that a goal speaks of, and a goal
// negates none of them, so that it is in reach where a state with the literal is.
int goalLiteral(const Network& net, const Goal& goal, StateClauses& state);

}  // namespace tpn

// A network as a sequential circuit: its machine, for hardware model checkers.
//
// A step of the circuit is a unit of time, or a transition, or nothing. The inputs, "choice0" and
// so on, are the bits of a number, lowest first: 0 stands for the unit of time, n for transition n.
// Where that cannot happen, or there is no such transition, the state stays. The bad signal is 1 in
// the goal's states; for a deadlock, in the last of them: where no transition can fire, and none is
// enabled or time is stuck.

#pragma once

#include "workbench/base/checkpoint.hpp"
#include "workbench/network/goal.hpp"
#include "workbench/proof/stateliterals.hpp"

namespace tpn {

struct MachineCircuit {
  Machine machine;
  Circuit circuit;
  StateLiterals state;
};

MachineCircuit makeMachineCircuit(const Network& net, const Goal& goal,
                                  const Checkpoint& checkpoint = {});

// The circuit with the invariant's negation for its bad signal, and for the names of inputs and
// latches the literals that they stand for, "=14". `flat` has no generators.
Circuit witnessCircuit(const Network& net, const MachineCircuit& machine, const Certificate& flat,
                       const Checkpoint& checkpoint = {});

}  // namespace tpn

// A property as clauses about one state.
//
// A deadlock is a state in which no transition can fire, now or after any delay. Delays lead on
// from it to states of two kinds, and both are deadlocks themselves, so it does to look for those:
// - no transition that could ever fire is enabled; or
// - no transition may fire now, and time may not pass because of one that is hopeless (one whose
//   deadline comes before its earliest time). A transition that is not hopeless and at its
//   deadline may fire.
// Likewise a state that is no deadlock leads by a delay to one in which a transition may fire now,
// and an unsafe one to one in which it may but for what is in its way; and that is what stands for
// it: a delay changes nothing else that a property speaks of. So a
// property with deadlocks is reached where the formula is, if not in the very same states. That
// needs them to be under no negation, which is so: there is an item for each.

#pragma once

#include "workbench/machine/layout.hpp"
#include "workbench/network/property.hpp"

namespace tpn {

// Clauses over the variables 1 .. size of a state and size + 1 .. size + helpers, which have the
// state's variables decide every helper, and one of which, or a state's variable, is the answer.
struct StateFormula {
  Clauses clauses;
  int helpers = 0;
  int root = 0;  // literal
};

StateFormula propertyFormula(const Network& net, const Machine& machine, const StateLayout& layout,
                             const Property& property);

// Adds the formula about the state whose variables stand at `state`, with helpers at `helpers`
// (the first of them is variable helpers + 1); returns its literal.
int addFormula(Solver& solver, const StateFormula& formula, int stateSize, int state, int helpers);

}  // namespace tpn

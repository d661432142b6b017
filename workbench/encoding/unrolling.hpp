// The path of a network as clauses for a solver in this process, an action at a time.
//
// The formulas of a rotation (adjust, time, action) are built once, over four states of their own,
// and written down as many times as the path needs, each time on the variables of other states. So
// the store stays small, no path is too long for it, and a step costs what its clauses cost.
//
//     states of rotation r:    3r - 1  --adjust-->  3r  --time-->  3r + 1  --action-->  3r + 2
//
// The first rotation begins in state 0, the initial one, and has no adjusting step. Locations
// change in action steps only, so the property is asked of states 3r + 2 alone.
//
// Delays are whole numbers here. All bounds are whole and closed: rounding the times of a run down
// breaks none of them, so whatever can be done can be done at whole times (docs/encoding.md, Closed
// bounds). The fractional parts are the constant 0 then, and most of the adjusting step goes away.

#pragma once

#include <vector>

#include "model/tpnmodel.hpp"
#include "workbench/encoding/pattern.hpp"

namespace CaDiCaL {
class Solver;
}

namespace tpn {

class Unrolling {
 public:
  // Empties the process-wide formula store, before and after. Model and solver are borrowed. Where
  // the checkpoint throws, here or in `extend`, the solver is left with clauses that mean nothing.
  Unrolling(const NetTimedModel& model, CaDiCaL::Solver& solver, Checkpoint checkpoint = {});

  // One action more: adds the clauses of a rotation. Returns the literal that says that the last
  // state has the property.
  int extend();

  // The first variable of each path state so far; those of a state follow one another.
  const std::vector<int>& states() const { return states_; }

  long variables() const { return variables_; }
  long clauses() const { return clauses_; }

 private:
  void add(int a, int b = 0, int c = 0);
  int newState();
  int literal(int operand) const;
  void define(const Pattern::Node& node);

  CaDiCaL::Solver& solver_;
  Checkpoint checkpoint_;
  int stateLength_;
  int firstFraction_;  // within a state: the split value and fractional parts are its end
  int yes_ = 0;        // a variable that holds: stands for the constants
  std::vector<Pattern> patterns_;  // the first rotation's and all others'; the property comes last
  std::vector<int> states_;
  std::vector<int> instance_;  // [variable or node of the pattern]: its variable, while writing
  long variables_ = 0;
  long clauses_ = 0;
};

}  // namespace tpn

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

#include <functional>
#include <stdexcept>
#include <vector>

#include "model/tpnmodel.hpp"
#include "workbench/encoding/pattern.hpp"

namespace tpn {

// Takes clauses literal by literal, as in DIMACS; 0 ends a clause.
using LiteralSink = std::function<void(int literal)>;

// The path has become too long for the solver's variable numbers.
struct PathTooLong : std::length_error {
  PathTooLong() : std::length_error("no solver has more variables") {}
};

class Unrolling {
 public:
  // Near what the 32-bit numbers of solvers can name.
  static constexpr long mostSolverVariables = 2000000000;

  // Empties the process-wide formula store, before and after. The model is needed here only. Where
  // the checkpoint throws, here or in `extend`, the sink is left with clauses that mean nothing.
  Unrolling(const NetTimedModel& model, LiteralSink sink, Checkpoint checkpoint = {},
            long limit = mostSolverVariables);

  // One action more: adds the clauses of a rotation. Returns the literal that says that the last
  // state has the property. Throws PathTooLong before it gives any clause.
  int extend();

  // The first variable of each path state so far; those of a state follow one another.
  const std::vector<int>& states() const { return states_; }

  long variables() const { return variables_; }
  long clauses() const { return clauses_; }

 private:
  void add(int a, int b = 0, int c = 0);
  int newState();
  long variablesOfRotation() const;
  int literal(int operand) const;
  void define(const Pattern::Node& node);

  LiteralSink sink_;
  Checkpoint checkpoint_;
  long mostVariables_;
  int stateLength_;
  std::vector<int> fractions_;     // the variables of fractions within a state, from 0
  int yes_ = 0;                    // a variable that holds: stands for the constants
  std::vector<Pattern> patterns_;  // the first rotation's and all others'; the property comes last
  std::vector<int> states_;
  std::vector<int> instance_;  // [variable or node of the pattern]: its variable, while writing
  long variables_ = 0;
  long clauses_ = 0;
};

}  // namespace tpn

// A formula over inputs, put together once and then built again and again in the store, with other
// formulas as its inputs: a property, asked of every state of a path.
//
// Building gives the nodes, in the order, that con and dis give where the formula is put together
// from the inputs' formulas directly. What repeats within the circuit is looked up once, when it is
// put together. Once all inputs are known and no two are equal or one another's negation, a gate
// with an operand that is new in this building is a new node: it goes into the store unasked.
//
// A signal is a signed number, as formulas have it (boolform.hpp): false, true, input i, gate n, or
// a negated one. The circuit has a node table of its own with its gates' keys.

#pragma once

#include <cstddef>
#include <functional>
#include <unordered_set>
#include <vector>

#include "boolform/boolform.hpp"
#include "boolform/node.hpp"
#include "boolform/nodeindex.hpp"

class Circuit {
 public:
  // A new input: number 1, 2, ...
  int input();

  int con(int a, int b);
  int dis(int a, int b) { return negated(con(negated(a), negated(b))); }
  static int negated(int a) { return neg(BoolForm::ofNr(a)).nr; }

  // Builds all gates, and returns the formula of `signal`. formulaOf(i), which may create nodes, is
  // called once for each input, in order: after the gates made before that input.
  BoolForm build(int signal, const std::function<BoolForm(int)>& formulaOf);

 private:
  BoolForm value(int signal) const;
  void buildUpTo(std::size_t gates);
  void buildNew();
  bool areIndependent();

  std::vector<Triple> gates_;
  NodeIndex index_;
  std::vector<std::size_t> gatesBefore_;  // by input, from 0

  // Of the building that goes on.
  std::vector<int> inputValues_;
  std::vector<int> gateValues_;
  std::unordered_set<int> older_;  // absolute values that are not new gates
};

// Formulas over a few states as a list of nodes, taken out of the process-wide store: for writing
// them down, or evaluating them, again and again on the states of a path.
//
// Operands are signed. 1 .. variables are the states' variables, variables + 1 + i is nodes[i], and
// trueOperand stands for the constant. Operands come before their nodes.

#pragma once

#include <limits>
#include <vector>

#include "boolform/boolform.hpp"
#include "workbench/base/checkpoint.hpp"

namespace tpn {

struct Pattern {
  static constexpr int trueOperand = std::numeric_limits<int>::max();

  struct Node {
    int op;  // bfCon or bfEqu
    int left;
    int right;
  };
  int variables = 0;
  std::vector<Node> nodes;
  std::vector<int> roots;  // the formulas, in the order given

  // Of formulas over the variables 1 .. count.
  Pattern(int count, const std::vector<BoolForm>& formulas, const Checkpoint& checkpoint = {});

  // The value of each root; values[v] is variable v's.
  std::vector<bool> evaluate(const std::vector<bool>& values) const;
};

}  // namespace tpn

// The value of formulas under an assignment of the problem variables. The node table is walked once
// from the oldest node on; operands are older than their node, so nothing recurses.

#pragma once

#include <cstdlib>
#include <vector>

#include "boolform/boolform.hpp"

using Bits = std::vector<char>;  // [v]: the value of variable v, 0 or 1; [0] is unused

class Values {
 public:
  // Formulas built later are unknown to it. `variables` is borrowed.
  explicit Values(const Bits& variables) : variables_(variables) {
    nodes_.reserve(BoolForm::tv.size());
    for (const Triple& key : BoolForm::tv) {
      const bool left = of(key.left);
      const bool right = of(key.right);
      nodes_.push_back(key.op == bfCon ? left && right : left == right);
    }
  }

  bool of(const BoolForm& f) const { return of(f.nr); }

 private:
  bool of(int nr) const {
    if (nr == BoolForm::falseNr || nr == BoolForm::trueNr) return nr == BoolForm::trueNr;
    const int positive = std::abs(nr);
    const bool value = positive < varNrLimit
                           ? variables_.at(static_cast<std::size_t>(positive)) != 0
                           : nodes_.at(static_cast<std::size_t>(positive - varNrLimit - 1)) != 0;
    return value == (nr > 0);
  }

  const Bits& variables_;
  std::vector<char> nodes_;
};

// The value of formulas under an assignment of the problem variables. One pass over the node table
// gives every node its value (operands are older than their node), after which any number of
// formulas is read; nothing recurses.

#pragma once

#include <cstdint>
#include <cstdlib>
#include <set>
#include <vector>

#include "boolform/boolform.hpp"

using Assignment = std::vector<bool>;  // element v is the value of variable v; element 0 is unused

// Variables 1 .. count; variable v gets bit v - 1.
inline Assignment assignmentOf(std::uint64_t bits, int count) {
  Assignment result(1, false);
  for (int v = 0; v < count; ++v) result.push_back((bits >> v & 1U) != 0);
  return result;
}

class Evaluation {
 public:
  // Nodes built later are unknown to it.
  explicit Evaluation(Assignment variables) : variables_(std::move(variables)) {
    nodes_.reserve(BoolForm::tv.size());
    for (const Triple& key : BoolForm::tv) {
      const bool l = valueOf(key.left);
      const bool r = valueOf(key.right);
      nodes_.push_back(key.op == bfCon ? l && r : l == r);
    }
  }

  bool operator()(const BoolForm& f) const { return valueOf(f.nr); }

 private:
  bool valueOf(int nr) const {
    if (nr == BoolForm::falseNr) return false;
    if (nr == BoolForm::trueNr) return true;
    const int positive = std::abs(nr);
    const bool value = positive > varNrLimit
                           ? nodes_.at(static_cast<std::size_t>(positive - NodeIndex::firstNr))
                           : variables_.at(static_cast<std::size_t>(positive));
    return value == (nr > 0);
  }

  Assignment variables_;
  std::vector<bool> nodes_;
};

// The problem variables that occur in f.
inline std::set<int> variablesOf(const BoolForm& f) {
  std::set<int> open;  // largest first: every node is met after all its users
  std::set<int> result;
  const auto meet = [&](int nr) {
    if (nr == BoolForm::falseNr || nr == BoolForm::trueNr) return;
    (std::abs(nr) > varNrLimit ? open : result).insert(std::abs(nr));
  };
  meet(f.nr);
  while (!open.empty()) {
    const auto last = std::prev(open.end());
    const Triple key = BoolForm::tv.at(static_cast<std::size_t>(*last - NodeIndex::firstNr));
    open.erase(last);
    meet(key.left);
    meet(key.right);
  }
  return result;
}

#include "workbench/encoding/pattern.hpp"

#include <cassert>
#include <cstdlib>

namespace tpn {

namespace {

bool isConstant(int nr) { return nr == BoolForm::trueNr || nr == BoolForm::falseNr; }

std::size_t indexOf(int nr) { return static_cast<std::size_t>(std::abs(nr) - firstNodeNr); }

}  // namespace

// Operands are older than their node: one scan downwards marks, one upwards numbers.
Pattern::Pattern(int count, const std::vector<BoolForm>& formulas, const Checkpoint& checkpoint)
    : variables(count) {
  std::vector<int> numbers(BoolForm::tv.size(), 0);  // of the nodes that occur
  const auto mark = [&](int nr) {
    if (!isConstant(nr) && isNodeNr(nr)) numbers[indexOf(nr)] = 1;
  };
  const auto operand = [&](int nr) {
    if (isConstant(nr)) return nr == BoolForm::trueNr ? trueOperand : -trueOperand;
    if (!isNodeNr(nr)) return nr;
    return nr < 0 ? -numbers[indexOf(nr)] : numbers[indexOf(nr)];
  };
  for (const BoolForm& formula : formulas) mark(formula.nr);
  for (std::size_t i = numbers.size(); i-- > 0;) {
    checkpoint.at(i);
    if (numbers[i] == 0) continue;
    mark(BoolForm::tv[i].left);
    mark(BoolForm::tv[i].right);
  }
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    checkpoint.at(i);
    if (numbers[i] == 0) continue;
    const auto [op, left, right] = BoolForm::tv[i];
    nodes.push_back({op, operand(left), operand(right)});
    numbers[i] = variables + static_cast<int>(nodes.size());
  }
  for (const BoolForm& formula : formulas) roots.push_back(operand(formula.nr));
}

std::vector<bool> Pattern::evaluate(const std::vector<bool>& values) const {
  assert(values.size() == static_cast<std::size_t>(variables) + 1);
  std::vector<bool> all = values;
  const auto value = [&](int operand) {
    if (std::abs(operand) == trueOperand) return operand > 0;
    return all[static_cast<std::size_t>(std::abs(operand))] == (operand > 0);
  };
  for (const auto& [op, left, right] : nodes) {
    const bool l = value(left);
    const bool r = value(right);
    all.push_back(op == bfCon ? l && r : l == r);
  }
  std::vector<bool> result;
  for (const int root : roots) result.push_back(value(root));
  return result;
}

}  // namespace tpn

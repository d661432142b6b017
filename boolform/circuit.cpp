#include "boolform/circuit.hpp"

#include <algorithm>
#include <cstdlib>

int Circuit::input() {
  gatesBefore_.push_back(gates_.size());
  return static_cast<int>(gatesBefore_.size());
}

int Circuit::con(int a, int b) {
  return conjunction(a, b, [this](const Triple& key) {
    int& nr = index_.slot(key, gates_);
    if (nr == 0) {
      gates_.push_back(key);
      nr = varNrLimit + static_cast<int>(gates_.size());
    }
    return nr;
  });
}

BoolForm Circuit::build(int signal, const std::function<BoolForm(int)>& formulaOf) {
  inputValues_.clear();
  gateValues_.clear();
  gateValues_.reserve(gates_.size());
  for (const std::size_t before : gatesBefore_) {
    buildUpTo(before);
    inputValues_.push_back(formulaOf(static_cast<int>(inputValues_.size()) + 1).nr);
  }
  // What comes now is looked at more closely only where it is the larger part.
  if (gates_.size() > 2 * (gateValues_.size() + inputValues_.size()) && areIndependent()) {
    const std::size_t begin = BoolForm::tv.size();
    buildNew();
    BoolForm::mti.leaveOut(begin, BoolForm::tv);
  }
  buildUpTo(gates_.size());
  return value(signal);
}

BoolForm Circuit::value(int signal) const {
  if (signal == BoolForm::falseNr || signal == BoolForm::trueNr) return BoolForm::ofNr(signal);
  const auto size = static_cast<std::size_t>(std::abs(signal));
  const BoolForm f =
      BoolForm::ofNr(size < firstNodeNr ? inputValues_[size - 1] : gateValues_[size - firstNodeNr]);
  return signal < 0 ? neg(f) : f;
}

void Circuit::buildUpTo(std::size_t gates) {
  while (gateValues_.size() < gates) {
    const auto [op, left, right] = gates_[gateValues_.size()];
    gateValues_.push_back(::con(value(left), value(right)).nr);
  }
}

// All values so far are different nodes and variables.
bool Circuit::areIndependent() {
  older_.clear();
  const auto isOther = [this](int value) {
    return value != BoolForm::falseNr && value != BoolForm::trueNr &&
           older_.insert(std::abs(value)).second;
  };
  return std::all_of(inputValues_.begin(), inputValues_.end(), isOther) &&
         std::all_of(gateValues_.begin(), gateValues_.end(), isOther);
}

// Gates whose operands are different formulas are different nodes. One is new if an operand is: no
// other node has that operand but gates that were built since. One with two older operands may be
// in the store. If it is, and is a value already, then equal formulas meet from there on: the rest
// is left to buildUpTo.
void Circuit::buildNew() {
  const int newest = BoolForm::maxNr;
  const auto valueOf = [this](int signal) {
    const int size = std::abs(signal);
    const int value = size < firstNodeNr
                          ? inputValues_[static_cast<std::size_t>(size - 1)]
                          : gateValues_[static_cast<std::size_t>(size - firstNodeNr)];
    return signal < 0 ? -value : value;
  };
  while (gateValues_.size() < gates_.size()) {
    const Triple& gate = gates_[gateValues_.size()];
    const int left = valueOf(gate.left);
    const int right = valueOf(gate.right);
    if (std::max(std::abs(left), std::abs(right)) > newest) {
      gateValues_.push_back(
          BoolForm::newNode({gate.op, std::min(left, right), std::max(left, right)}));
      continue;
    }
    const int value = ::con(BoolForm::ofNr(left), BoolForm::ofNr(right)).nr;
    gateValues_.push_back(value);
    if (value <= newest && !older_.insert(value).second) return;
  }
}

// A property that is a formula over propositions, without temporal operators: made a circuit once,
// to be asked of many states.

#pragma once

#include <vector>

#include "boolform/circuit.hpp"
#include "ectl/ectlform.hpp"
#include "model/tpnmodel.hpp"

class StateProperty {
 public:
  explicit StateProperty(const EctlForm& property);

  // No temporal operator, and one formula in all.
  bool isFormula() const { return isFormula_; }

  // The property in this state of the network: the formula, and the nodes in their order, that
  // its postfix items give one by one. Asserts isFormula().
  BoolForm in(const SymState& state, const NetTimedModel& model);

 private:
  int signalOf(const std::vector<OnpNode>& items);

  bool isFormula_;
  Circuit circuit_;
  std::vector<int> propositions_;  // by input, from 0
  int whole_ = BoolForm::falseNr;  // the property's signal
};

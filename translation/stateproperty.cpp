#include "translation/stateproperty.hpp"

#include <array>
#include <cassert>
#include <unordered_map>

namespace {

// No operator but those of state formulas, and one value left on the stack.
bool isStateFormula(const std::vector<OnpNode>& items) {
  int depth = 0;
  for (const OnpNode& item : items) {
    if (item.op > EctlOper::disj) return false;
    depth += item.op < EctlOper::conj ? 1 : -1;
  }
  return depth == 1;
}

int pop(std::vector<int>& s) {
  const int top = s.back();
  s.pop_back();
  return top;
}

}  // namespace

StateProperty::StateProperty(const EctlForm& property) : isFormula_(isStateFormula(property.onp)) {
  if (isFormula_) whole_ = signalOf(property.onp);
}

int StateProperty::signalOf(const std::vector<OnpNode>& items) {
  // By proposition; small numbers, which are the usual ones, have places of their own.
  std::array<int, 4096> usual{};
  std::unordered_map<int, int> others;
  const auto inputOf = [&](int proposition) {
    const auto i = static_cast<unsigned>(proposition);
    int& input = i < usual.size() ? usual[i] : others[proposition];
    if (input == 0) {
      propositions_.push_back(proposition);
      input = circuit_.input();
    }
    return input;
  };
  std::vector<int> s;
  for (const OnpNode& item : items) {
    if (item.op == EctlOper::truth) {
      s.push_back(BoolForm::trueNr);
    } else if (item.op == EctlOper::prop) {
      s.push_back(inputOf(item.arg));
    } else if (item.op == EctlOper::negProp) {
      s.push_back(-inputOf(item.arg));
    } else {
      const int b = pop(s);
      const int a = pop(s);
      s.push_back(item.op == EctlOper::conj ? circuit_.con(a, b) : circuit_.dis(a, b));
    }
  }
  return s.back();
}

BoolForm StateProperty::in(const SymState& state, const NetTimedModel& model) {
  assert(isFormula_);
  return circuit_.build(whole_, [&](int input) {
    return model.fP(propositions_[static_cast<std::size_t>(input - 1)], state);
  });
}

#include "workbench/encoding/unrolling.hpp"

#include <cassert>
#include <cstdlib>
#include <utility>

#include "translation/reachtran.hpp"

namespace tpn {

namespace {

constexpr int statesInPattern = 4;

// State i of a pattern, its fractions all 0.
SymState wholeState(const NetTimedModel& model, int i) {
  SymState s = model.genSymState(static_cast<int>(1 + i * model.getSymStateLen()));
  s.clocks.frSplit.reset();
  for (BoolFormVect& fraction : s.clocks.frParts) fraction.reset();
  return s;
}

// Their places within a state, from 0.
std::vector<int> fractionVariables(const NetTimedModel& model) {
  const SymState s = model.genSymState(1);
  std::vector<int> places;
  const auto take = [&](const BoolFormVect& fraction) {
    for (const BoolForm& bit : fraction.bits) places.push_back(bit.nr - 1);
  };
  take(s.clocks.frSplit);
  for (const BoolFormVect& fraction : s.clocks.frParts) take(fraction);
  return places;
}

}  // namespace

Unrolling::Unrolling(const NetTimedModel& model, LiteralSink sink, Checkpoint checkpoint,
                     long limit)
    : sink_(std::move(sink)),
      checkpoint_(std::move(checkpoint)),
      mostVariables_(limit),
      stateLength_(static_cast<int>(model.getSymStateLen())),
      fractions_(fractionVariables(model)) {
  BoolForm::emptyStore();
  const int variables = statesInPattern * stateLength_;
  assert(variables < varNrLimit);
  const SymState begin = wholeState(model, 0);
  const SymState adjusted = wholeState(model, 1);
  const SymState delayed = wholeState(model, 2);
  const SymState done = wholeState(model, 3);
  const BoolForm adjust = model.adjustSucc(begin, adjusted);
  const BoolForm initial = model.fI(0, adjusted);
  const BoolForm time = model.timeSucc(adjusted, delayed);
  const BoolForm action = model.actionSucc(delayed, done);
  const BoolForm property = EctlTransl(model, statesInPattern).transl(*model.formula, 3);
  patterns_.emplace_back(variables, std::vector<BoolForm>{initial, time, action, property},
                         checkpoint_);
  patterns_.emplace_back(variables, std::vector<BoolForm>{adjust, time, action, property},
                         checkpoint_);
  BoolForm::emptyStore();
  yes_ = static_cast<int>(++variables_);
  add(yes_);
}

void Unrolling::add(int a, int b, int c) {
  sink_(a);
  if (b != 0) sink_(b);
  if (c != 0) sink_(c);
  sink_(0);
  ++clauses_;
}

int Unrolling::newState() {
  states_.push_back(static_cast<int>(variables_) + 1);
  variables_ += stateLength_;
  // The formulas know these as constants.
  for (const int j : fractions_) add(-(states_.back() + j));
  return states_.back();
}

int Unrolling::literal(int operand) const {
  if (std::abs(operand) == Pattern::trueOperand) return operand < 0 ? -yes_ : yes_;
  const int variable = instance_[static_cast<std::size_t>(std::abs(operand))];
  return operand < 0 ? -variable : variable;
}

void Unrolling::define(const Pattern::Node& node) {
  const int l = literal(node.left);
  const int r = literal(node.right);
  const int n = static_cast<int>(++variables_);
  instance_.push_back(n);
  ::define(node.op, l, r, n, [this](int a, int b, int c = 0) { add(a, b, c); });
}

long Unrolling::variablesOfRotation() const {
  const Pattern& pattern = patterns_[states_.empty() ? 0 : 1];
  return long{statesInPattern - 1} * stateLength_ + static_cast<long>(pattern.nodes.size());
}

int Unrolling::extend() {
  if (variables_ + variablesOfRotation() > mostVariables_) throw PathTooLong();
  const bool isFirst = states_.empty();
  const Pattern& pattern = patterns_[isFirst ? 0 : 1];
  instance_.assign(1, 0);
  const auto place = [this](int first) {
    for (int j = 0; j < stateLength_; ++j) instance_.push_back(first + j);
  };
  place(isFirst ? 0 : states_.back());  // does not occur in the first rotation
  for (int i = 1; i < statesInPattern; ++i) place(newState());
  for (std::size_t i = 0; i < pattern.nodes.size(); ++i) {
    checkpoint_.at(i);
    define(pattern.nodes[i]);
  }
  for (std::size_t i = 0; i + 1 < pattern.roots.size(); ++i) add(literal(pattern.roots[i]));
  return literal(pattern.roots.back());
}

}  // namespace tpn

#include "model/stateterms.hpp"

// A location's number is cut to the process's bits: as many formulas as there are codes.
NetTimedModel::StateTerms::StateTerms(const NetTimedModel& net, const SymState& state)
    : net_(net), state_(state), first_(net.nrVertBits.size()) {
  std::size_t end = 0;
  for (std::size_t p = 1; p < first_.size(); ++p) {
    first_[p] = end;
    end += std::size_t{1} << net.nrVertBits[p];
  }
  isAt_.resize(end);
}

BoolForm NetTimedModel::StateTerms::isAt(Number p, Number l) {
  const Number code = l & ((Number{1} << net_.nrVertBits[p]) - 1);
  std::optional<BoolForm>& form = isAt_[first_[p] + code];
  if (!form) form = net_.bef(static_cast<int>(p), static_cast<int>(l), state_.loc);
  return *form;
}

BoolForm NetTimedModel::StateTerms::clock(Number p, ClockRel rel, Number bound) {
  const SmplClockCond atom{static_cast<int>(p), 0, rel, static_cast<int>(bound)};
  const auto known = clocks_.find(atom);
  if (known != clocks_.end()) return known->second;
  const BoolForm built = atom.toBool(state_.clocks);
  clocks_.emplace(atom, built);
  return built;
}

// What formulas over one state are made of again and again: the atoms "process p is in location l"
// and "clock p is at least, or at most, so much", each built when it is first asked for and known
// from then on. Building one again would give the same formula and no new node, so the order of
// creation is that of the first requests.

#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <vector>

#include "clock/clockcond.hpp"
#include "model/symstate.hpp"
#include "model/tpnmodel.hpp"

class NetTimedModel::StateTerms {
 public:
  // `net`, with its widths, and `state` are borrowed.
  StateTerms(const NetTimedModel& net, const SymState& state);

  const SymState& state() const { return state_; }

  BoolForm isAt(Number p, Number l);
  BoolForm clock(Number p, ClockRel rel, Number bound);

 private:
  const NetTimedModel& net_;
  const SymState& state_;
  std::vector<std::size_t> first_;  // by process, where its locations begin in isAt_
  std::vector<std::optional<BoolForm>> isAt_;
  std::map<SmplClockCond, BoolForm> clocks_;
};

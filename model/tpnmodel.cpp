// Formulas over one symbolic state: locations, enabledness, guards, invariants, the initial state
// and the propositions.

#include "model/tpnmodel.hpp"

#include <cstdlib>
#include <iostream>

#include "model/stateterms.hpp"

namespace {

constexpr auto unbounded = static_cast<NetTimedModel::Number>(-1);  // no latest firing time

}  // namespace

BoolForm NetTimedModel::bef(int p, int l, const BoolFormVect& loc) const {
  assert(loc.size() == totalNrVertBits);
  const int offset = firstVertBit[static_cast<std::size_t>(p)];
  const auto location = static_cast<unsigned>(l);
  BoolForm r(true);
  for (int b = 0; b < nrVertBits[static_cast<std::size_t>(p)]; ++b) {
    const BoolForm bit = loc[offset + b];
    r = con(r, (location >> b & 1U) != 0 ? bit : neg(bit));
  }
  return r;
}

BoolForm NetTimedModel::enabled(const SymState& s, int t) const {
  StateTerms terms(*this, s);
  return enabled(terms, t);
}

BoolForm NetTimedModel::enabled(StateTerms& s, int t) const {
  BoolForm r(true);
  for (const Move& move : movesOf(t)) r = con(r, s.isAt(move.process, move.source));
  return r;
}

BoolForm NetTimedModel::guard(const SymState& s, int t) const {
  StateTerms terms(*this, s);
  return guard(terms, t);
}

// The earliest time must be reached by the clocks of all processes of t; the latest time need only
// hold for one of them.
BoolForm NetTimedModel::guard(StateTerms& s, int t) const {
  const auto [earliest, latest] = timeIntervals[static_cast<std::size_t>(t)];
  BoolForm allReady(true);
  BoolForm oneInTime(false);
  for (const Move& move : movesOf(t)) {
    const BoolForm ready = s.clock(move.process, relGreaterOrEqual, earliest);
    allReady = con(allReady, ready);
    const BoolForm notLate = inTime(s, move.process, latest);
    oneInTime = dis(oneInTime, notLate);
  }
  return con(allReady, oneInTime);
}

BoolForm NetTimedModel::inTime(StateTerms& s, Number p, Number latest) {
  return latest == unbounded ? BoolForm(true) : s.clock(p, relLessOrEqual, latest);
}

BoolForm NetTimedModel::invariant(const SymState& s) const {
  StateTerms terms(*this, s);
  return invariant(terms);
}

BoolForm NetTimedModel::invariant(StateTerms& s) const {
  BoolForm all(true);
  for (int t = 1; t <= nrOfTrans; ++t) {
    const Number latest = timeIntervals[static_cast<std::size_t>(t)].second;
    if (movesOf(t).empty()) {
      std::cout << "tranzycja z pustym zbiorem procesow\n";
      std::exit(1);
    }
    BoolForm oneInTime(false);
    for (const Move& move : movesOf(t)) {
      const BoolForm notLate = inTime(s, move.process, latest);
      oneInTime = dis(oneInTime, notLate);
    }
    const BoolForm isEnabled = enabled(s, t);
    const BoolForm term = dis(neg(isEnabled), oneInTime);
    if (!(term == BoolForm(true))) countInvTerms(1);
    all = con(all, term);
  }
  return all;
}

void NetTimedModel::countInvTerms(unsigned more) const {
  nrInvTerms = static_cast<int>(static_cast<unsigned>(nrInvTerms) + more);
}

BoolForm NetTimedModel::fI(int l, const SymState& s) const {
  BoolForm r = allZero(s.clocks);
  for (int p = 1; p <= nrOfProcs; ++p) {
    const BoolForm there = bef(p, l, s.loc);
    r = con(r, there);
  }
  return r;
}

BoolForm NetTimedModel::fP(int q, const SymState& s) const {
  BoolForm r(false);
  for (const auto& [vertex, proposition] : valuation) {
    if (proposition != static_cast<Number>(q)) continue;
    const BoolForm there =
        bef(static_cast<int>(vertex.first), static_cast<int>(vertex.second), s.loc);
    r = dis(r, there);
  }
  return r;
}

// Formulas over one symbolic state: locations, enabledness, guards, invariants, the initial state
// and the propositions.

#include "model/tpnmodel.hpp"

#include <cstdlib>
#include <iostream>

#include "clock/clockcond.hpp"

namespace {

constexpr auto unbounded = static_cast<NetTimedModel::Number>(-1);  // no latest firing time

// Building an atom again would give the same formula and no new node.
template <class Atoms>
BoolForm clockAtom(const SymState& s, Atoms& atoms, NetTimedModel::Number p, ClockRel rel,
                   NetTimedModel::Number bound) {
  const SmplClockCond atom{static_cast<int>(p), 0, rel, static_cast<int>(bound)};
  const auto known = atoms.find(atom);
  if (known != atoms.end()) return known->second;
  const BoolForm built = atom.toBool(s.clocks);
  atoms.emplace(atom, built);
  return built;
}

template <class Atoms>
BoolForm inTime(const SymState& s, Atoms& atoms, NetTimedModel::Number p,
                NetTimedModel::Number latest) {
  if (latest == unbounded) return BoolForm(true);
  return clockAtom(s, atoms, p, relLessOrEqual, latest);
}

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
  BoolForm r(true);
  for (const Number p : transProcs.at(static_cast<Number>(t))) {
    const Number source = localTrans.at({p, static_cast<Number>(t)}).first;
    const BoolForm there = bef(static_cast<int>(p), static_cast<int>(source), s.loc);
    r = con(r, there);
  }
  return r;
}

// The earliest time must be reached by the clocks of all processes of t; the latest time need only
// hold for one of them.
BoolForm NetTimedModel::guard(const SymState& s, int t) const {
  Atoms atoms;
  return guard(s, t, atoms);
}

BoolForm NetTimedModel::guard(const SymState& s, int t, Atoms& atoms) const {
  const auto [earliest, latest] = timeIntervals[static_cast<std::size_t>(t)];
  BoolForm allReady(true);
  BoolForm oneInTime(false);
  for (const Number p : transProcs.at(static_cast<Number>(t))) {
    const BoolForm ready = clockAtom(s, atoms, p, relGreaterOrEqual, earliest);
    allReady = con(allReady, ready);
    const BoolForm notLate = inTime(s, atoms, p, latest);
    oneInTime = dis(oneInTime, notLate);
  }
  return con(allReady, oneInTime);
}

BoolForm NetTimedModel::invariant(const SymState& s) const {
  Atoms atoms;
  BoolForm all(true);
  for (int t = 1; t <= nrOfTrans; ++t) {
    const Number latest = timeIntervals[static_cast<std::size_t>(t)].second;
    const auto procs = transProcs.find(static_cast<Number>(t));
    if (procs == transProcs.end()) {
      std::cout << "tranzycja z pustym zbiorem procesow\n";
      std::exit(1);
    }
    BoolForm oneInTime(false);
    for (const Number p : procs->second) {
      const BoolForm notLate = inTime(s, atoms, p, latest);
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

// Formulas over two symbolic states: the firing of a transition and the three kinds of step.

#include "model/tpnmodel.hpp"

BoolForm NetTimedModel::fired(const SymState& s1, int t, const SymState& s2) const {
  const NumSet& movers = transProcs.at(static_cast<Number>(t));
  BoolForm moves(true);
  for (const Number p : movers) {
    const auto [source, target] = localTrans.at({p, static_cast<Number>(t)});
    const BoolForm arrives = bef(static_cast<int>(p), static_cast<int>(target), s2.loc);
    const BoolForm leaves = bef(static_cast<int>(p), static_cast<int>(source), s1.loc);
    const BoolForm move = con(leaves, arrives);
    moves = con(moves, move);
  }
  BoolForm rest(true);
  for (int p = 1; p <= nrOfProcs; ++p) {
    if (movers.count(static_cast<Number>(p)) != 0) continue;
    const auto i = static_cast<std::size_t>(p);
    const BoolForm stays = eq(s1.loc, s2.loc, firstVertBit[i], nrVertBits[i]);
    rest = con(rest, stays);
  }
  return con(moves, rest);
}

BoolForm NetTimedModel::actionSucc(const SymState& s1, const SymState& s2) const {
  const BoolForm targetInvariant = invariant(s2);
  BoolForm some(false);
  for (int t = 1; t <= nrOfTrans; ++t) {
    BoolForm fires = enabled(s1, t);
    const BoolForm movesProcesses = fired(s1, t, s2);
    fires = con(fires, movesProcesses);
    const BoolForm inTime = guard(s1, t);
    fires = con(fires, inTime);
    fires = con(fires, targetInvariant);
    const BoolForm resets = reset(s1.clocks, s2.clocks, transProcs.at(static_cast<Number>(t)));
    fires = con(fires, resets);
    some = dis(some, fires);
  }
  return some;
}

BoolForm NetTimedModel::timeSucc(const SymState& s1, const SymState& s2) const {
  BoolForm r = eq(s1.loc, s2.loc);
  const BoolForm jump = veryCleverJump(s1.clocks, s2.clocks, maxConst);
  r = con(r, jump);
  const BoolForm targetInvariant = invariant(s2);
  return con(r, targetInvariant);
}

BoolForm NetTimedModel::adjustSucc(const SymState& s1, const SymState& s2) const {
  BoolForm r = eq(s1.loc, s2.loc);
  const BoolForm adjusted = cleverAdjust(s1.clocks, s2.clocks, maxConst);
  return con(r, adjusted);
}

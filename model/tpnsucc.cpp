// Formulas over two symbolic states: the firing of a transition and the three kinds of step.

#include <optional>

#include "model/tpnmodel.hpp"

namespace {

// Formulas numbered from 1, each built when it is first asked for and known from then on. Building
// one again would give the same formula and no new node, so the order of creation is that of the
// first requests.
class OnDemand {
 public:
  explicit OnDemand(int count) : forms_(static_cast<std::size_t>(count) + 1) {}

  template <class Build>
  const BoolForm& get(int i, Build build) {
    std::optional<BoolForm>& form = forms_[static_cast<std::size_t>(i)];
    if (!form) form = build(i);
    return *form;
  }

 private:
  std::vector<std::optional<BoolForm>> forms_;
};

}  // namespace

// What the transitions of one action step have in common, process by process.
class NetTimedModel::StepTerms {
 public:
  StepTerms(const NetTimedModel& net, const SymState& from, const SymState& to)
      : net_(net),
        from_(from),
        to_(to),
        stays_(net.nrOfProcs),
        zero_(net.nrOfClocks),
        same_(net.nrOfClocks) {}

  // Process p keeps its location.
  const BoolForm& stays(int p) {
    return stays_.get(p, [this](int i) {
      const auto at = static_cast<std::size_t>(i);
      return eq(from_.loc, to_.loc, net_.firstVertBit[at], net_.nrVertBits[at]);
    });
  }

  // Clock p becomes zero, or keeps its value.
  const BoolForm& clock(int p, bool isReset) {
    if (isReset) return zero_.get(p, [this](int i) { return zeroClock(to_.clocks, i); });
    return same_.get(p, [this](int i) { return sameClock(from_.clocks, to_.clocks, i); });
  }

 private:
  const NetTimedModel& net_;
  const SymState& from_;
  const SymState& to_;
  OnDemand stays_;
  OnDemand zero_;
  OnDemand same_;
};

BoolForm NetTimedModel::fired(const SymState& s1, int t, const SymState& s2) const {
  StepTerms terms(*this, s1, s2);
  return fired(s1, t, s2, terms);
}

BoolForm NetTimedModel::fired(const SymState& s1, int t, const SymState& s2,
                              StepTerms& terms) const {
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
  for (int p = 1; p <= nrOfProcs; ++p)
    if (movers.count(static_cast<Number>(p)) == 0) rest = con(rest, terms.stays(p));
  return con(moves, rest);
}

// The clocks of t's processes become zero, the others keep their values: reset, from known terms.
BoolForm NetTimedModel::resets(int t, StepTerms& terms) const {
  const NumSet& movers = transProcs.at(static_cast<Number>(t));
  BoolForm all(true);
  for (int p = 1; p <= nrOfClocks; ++p)
    all = con(all, terms.clock(p, movers.count(static_cast<Number>(p)) != 0));
  return all;
}

BoolForm NetTimedModel::actionSucc(const SymState& s1, const SymState& s2) const {
  const BoolForm targetInvariant = invariant(s2);
  StepTerms terms(*this, s1, s2);
  Atoms atoms;
  BoolForm some(false);
  for (int t = 1; t <= nrOfTrans; ++t) {
    if (checkpoint) checkpoint();
    BoolForm fires = enabled(s1, t);
    const BoolForm movesProcesses = fired(s1, t, s2, terms);
    fires = con(fires, movesProcesses);
    const BoolForm inTime = guard(s1, t, atoms);
    fires = con(fires, inTime);
    fires = con(fires, targetInvariant);
    const BoolForm clocks = resets(t, terms);
    fires = con(fires, clocks);
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

// Formulas over two symbolic states: the firing of a transition and the three kinds of step.

#include <optional>
#include <span>
#include <vector>

#include "model/stateterms.hpp"

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

// What the transitions of one action step have in common, process by process and, where the same
// processes take part, as a whole.
class NetTimedModel::StepTerms {
 public:
  StepTerms(const NetTimedModel& net, const SymState& s1, const SymState& s2)
      : from(net, s1),
        to(net, s2),
        net_(net),
        stays_(net.nrOfProcs),
        zero_(net.nrOfClocks),
        same_(net.nrOfClocks),
        othersStay_(net.crews_),
        resets_(net.crews_) {}

  StateTerms from;
  StateTerms to;

  // The processes that have no part in t keep their locations.
  const BoolForm& othersStay(int t) {
    return othersStay_.get(net_.crewOf(t), [=, this](int) {
      BoolForm rest(true);
      auto mover = net_.movesOf(t).begin();
      for (int p = 1; p <= net_.nrOfProcs; ++p) {
        if (isNext(mover, t, p))
          ++mover;
        else
          rest = con(rest, stays(p));
      }
      return rest;
    });
  }

  // The clocks of t's processes become zero, the others keep their values.
  const BoolForm& resets(int t) {
    return resets_.get(net_.crewOf(t), [=, this](int) {
      BoolForm all(true);
      auto mover = net_.movesOf(t).begin();
      for (int p = 1; p <= net_.nrOfClocks; ++p) {
        const bool isReset = isNext(mover, t, p);
        if (isReset) ++mover;
        all = con(all, clock(p, isReset));
      }
      return all;
    });
  }

 private:
  using Mover = std::span<const Move>::iterator;
  bool isNext(Mover mover, int t, int p) const {
    return mover != net_.movesOf(t).end() && mover->process == static_cast<Number>(p);
  }

  // Process p keeps its location.
  const BoolForm& stays(int p) {
    return stays_.get(p, [this](int i) {
      const auto at = static_cast<std::size_t>(i);
      return eq(from.state().loc, to.state().loc, net_.firstVertBit[at], net_.nrVertBits[at]);
    });
  }

  // Clock p becomes zero, or keeps its value.
  const BoolForm& clock(int p, bool isReset) {
    if (isReset) return zero_.get(p, [this](int i) { return zeroClock(to.state().clocks, i); });
    return same_.get(
        p, [this](int i) { return sameClock(from.state().clocks, to.state().clocks, i); });
  }

  const NetTimedModel& net_;
  OnDemand stays_;
  OnDemand zero_;
  OnDemand same_;
  OnDemand othersStay_;
  OnDemand resets_;
};

BoolForm NetTimedModel::fired(const SymState& s1, int t, const SymState& s2) const {
  StepTerms terms(*this, s1, s2);
  return fired(t, terms);
}

BoolForm NetTimedModel::fired(int t, StepTerms& terms) const {
  BoolForm moves(true);
  for (const auto& [process, source, target] : movesOf(t)) {
    const BoolForm arrives = terms.to.isAt(process, target);
    const BoolForm leaves = terms.from.isAt(process, source);
    const BoolForm move = con(leaves, arrives);
    moves = con(moves, move);
  }
  return con(moves, terms.othersStay(t));
}

BoolForm NetTimedModel::actionSucc(const SymState& s1, const SymState& s2) const {
  StepTerms terms(*this, s1, s2);
  const BoolForm targetInvariant = invariant(terms.to);
  BoolForm some(false);
  for (int t = 1; t <= nrOfTrans; ++t) {
    if (checkpoint) checkpoint();
    BoolForm fires = enabled(terms.from, t);
    const BoolForm movesProcesses = fired(t, terms);
    fires = con(fires, movesProcesses);
    const BoolForm inTime = guard(terms.from, t);
    fires = con(fires, inTime);
    fires = con(fires, targetInvariant);
    fires = con(fires, terms.resets(t));
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

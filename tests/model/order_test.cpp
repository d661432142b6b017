// The order in which formulas come into being. Nodes are numbered as they are created and the
// numbers reach the clause file, so every formula is built here a second time, step by step, and
// must leave the same nodes in the same order.

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "clock/clockcond.hpp"
#include "tests/model/evaluate.hpp"
#include "tests/model/networks.hpp"
#include "tests/model/sample.hpp"

namespace {

struct Built {
  BoolForm formula;
  std::vector<Triple> nodes;
};

Built built(const std::function<BoolForm()>& build) {
  BoolForm::emptyStore();
  const BoolForm formula = build();
  return {formula, BoolForm::tv};
}

void expectSame(const std::function<BoolForm()>& build, const std::function<BoolForm()>& again) {
  const Built first = built(build);
  const Built second = built(again);
  EXPECT_EQ(first.formula, second.formula);
  EXPECT_EQ(first.nodes, second.nodes);
}

class Order : public testing::TestWithParam<std::string> {
 protected:
  BoolForm bound(int p, const SymState& s, ClockRel rel, NetTimedModel::Number limit) const {
    return SmplClockCond{p, 0, rel, static_cast<int>(limit)}.toBool(s.clocks);
  }

  // "At most the latest time" of process p; true where there is none.
  BoolForm late(int p, const SymState& s, NetTimedModel::Number latest) const {
    return latest == ~0U ? BoolForm(true) : bound(p, s, relLessOrEqual, latest);
  }

  std::vector<int> processesOf(int t) const {
    const NumSet& procs = model->transProcs.at(static_cast<unsigned>(t));
    return {procs.begin(), procs.end()};
  }

  NetTimedModel::Pair interval(int t) const {
    return model->timeIntervals[static_cast<std::size_t>(t)];
  }

  BoolForm there(int p, int t, bool target, const SymState& s) const {
    const auto move = model->localTrans.at({static_cast<unsigned>(p), static_cast<unsigned>(t)});
    return model->bef(p, static_cast<int>(target ? move.second : move.first), s.loc);
  }

  BoolForm oneInTime(int t, const SymState& s) const {
    BoolForm r(false);
    for (const int p : processesOf(t)) {
      const BoolForm term = late(p, s, interval(t).second);
      r = dis(r, term);
    }
    return r;
  }

  Model model = modelOf(GetParam());
  SymState s1 = model->genSymState(1);
  SymState s2 = model->genSymState(1 + static_cast<int>(model->getSymStateLen()));
};

TEST_P(Order, LocationBitsFromTheLowestOn) {
  for (int p = 1; p <= model->nrOfProcs; ++p)
    expectSame([&] { return model->bef(p, 2, s1.loc); },
               [&] {
                 const auto i = static_cast<std::size_t>(p);
                 BoolForm r(true);
                 for (int b = 0; b < model->nrVertBits[i]; ++b) {
                   const BoolForm bit = s1.loc[model->firstVertBit[i] + b];
                   r = con(r, b == 1 ? bit : neg(bit));
                 }
                 return r;
               });
}

TEST_P(Order, EnabledRunsOverTheProcesses) {
  for (int t = 1; t <= model->nrOfTrans; ++t)
    expectSame([&] { return model->enabled(s1, t); },
               [&] {
                 BoolForm r(true);
                 for (const int p : processesOf(t)) {
                   const BoolForm source = there(p, t, false, s1);
                   r = con(r, source);
                 }
                 return r;
               });
}

TEST_P(Order, GuardAlternatesBetweenEarliestAndLatest) {
  for (int t = 1; t <= model->nrOfTrans; ++t)
    expectSame([&] { return model->guard(s1, t); },
               [&] {
                 BoolForm all(true);
                 BoolForm one(false);
                 for (const int p : processesOf(t)) {
                   const BoolForm early = bound(p, s1, relGreaterOrEqual, interval(t).first);
                   all = con(all, early);
                   const BoolForm inTime = late(p, s1, interval(t).second);
                   one = dis(one, inTime);
                 }
                 return con(all, one);
               });
}

TEST_P(Order, InvariantBuildsTheBoundBeforeEnabledness) {
  expectSame([&] { return model->invariant(s1); },
             [&] {
               BoolForm r(true);
               for (int t = 1; t <= model->nrOfTrans; ++t) {
                 const BoolForm inTime = oneInTime(t, s1);
                 const BoolForm isEnabled = model->enabled(s1, t);
                 const BoolForm term = dis(neg(isEnabled), inTime);
                 r = con(r, term);
               }
               return r;
             });
}

TEST_P(Order, InitialStateHasTheClocksFirst) {
  expectSame([&] { return model->fI(0, s1); },
             [&] {
               BoolForm r = allZero(s1.clocks);
               for (int p = 1; p <= model->nrOfProcs; ++p) {
                 const BoolForm first = model->bef(p, 0, s1.loc);
                 r = con(r, first);
               }
               return r;
             });
}

TEST_P(Order, PropositionFollowsTheValuation) {
  expectSame([&] { return model->fP(1, s1); },
             [&] {
               BoolForm r(false);
               for (const auto& [vertex, proposition] : model->valuation) {
                 if (proposition != 1) continue;
                 const BoolForm place = model->bef(static_cast<int>(vertex.first),
                                                   static_cast<int>(vertex.second), s1.loc);
                 r = dis(r, place);
               }
               return r;
             });
}

TEST_P(Order, FiringBuildsTheTargetBeforeTheSource) {
  for (int t = 1; t <= model->nrOfTrans; ++t)
    expectSame(
        [&] { return model->fired(s1, t, s2); },
        [&] {
          BoolForm moves(true);
          for (const int p : processesOf(t)) {
            const BoolForm to = there(p, t, true, s2);
            const BoolForm from = there(p, t, false, s1);
            const BoolForm move = con(from, to);
            moves = con(moves, move);
          }
          BoolForm rest(true);
          for (int p = 1; p <= model->nrOfProcs; ++p) {
            const auto i = static_cast<std::size_t>(p);
            if (model->transProcs.at(static_cast<unsigned>(t)).count(static_cast<unsigned>(p)))
              continue;
            const BoolForm stays = eq(s1.loc, s2.loc, model->firstVertBit[i], model->nrVertBits[i]);
            rest = con(rest, stays);
          }
          return con(moves, rest);
        });
}

TEST_P(Order, ActionStepHasTheTargetInvariantFirst) {
  expectSame([&] { return model->actionSucc(s1, s2); },
             [&] {
               const BoolForm after = model->invariant(s2);
               BoolForm some(false);
               for (int t = 1; t <= model->nrOfTrans; ++t) {
                 BoolForm x = model->enabled(s1, t);
                 const BoolForm moves = model->fired(s1, t, s2);
                 x = con(x, moves);
                 const BoolForm inTime = model->guard(s1, t);
                 x = con(x, inTime);
                 x = con(x, after);
                 const BoolForm resets =
                     reset(s1.clocks, s2.clocks, model->transProcs.at(static_cast<unsigned>(t)));
                 x = con(x, resets);
                 some = dis(some, x);
               }
               return some;
             });
}

TEST_P(Order, TimeStepHasTheTargetInvariantLast) {
  expectSame([&] { return model->timeSucc(s1, s2); },
             [&] {
               const BoolForm stays = eq(s1.loc, s2.loc);
               const BoolForm jump = veryCleverJump(s1.clocks, s2.clocks, model->maxConst);
               const BoolForm both = con(stays, jump);
               const BoolForm after = model->invariant(s2);
               return con(both, after);
             });
}

TEST_P(Order, AdjustingStepHasTheLocationsFirst) {
  expectSame([&] { return model->adjustSucc(s1, s2); },
             [&] {
               const BoolForm stays = eq(s1.loc, s2.loc);
               const BoolForm adjusted = cleverAdjust(s1.clocks, s2.clocks, model->maxConst);
               return con(stays, adjusted);
             });
}

INSTANTIATE_TEST_SUITE_P(Fixed, Order, testing::Values(twoProcesses(), threeProcesses()));
INSTANTIATE_TEST_SUITE_P(Random, Order,
                         testing::Values(randomNetwork(11), randomNetwork(12), randomNetwork(13),
                                         randomNetwork(14)));

}  // namespace

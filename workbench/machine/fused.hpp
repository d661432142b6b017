// Runs of the machine as clauses, step by step: a delay of any length and then one transition.
//
// State i is where the run stands after i transitions and the delay that follows them, just before
// the next fires: its locations, and its clocks past that delay. There is no state between a
// transition and the delay after it, as nothing is asked there: deadlines are kept by clauses about
// the state after the delay, for what is not late at its end has not been late before. A delay of 0
// is always allowed (no enabled transition is ever past its deadline; docs/machine.md), so a state
// may be the last of a run.
//
// A step has a selector variable for each transition, and exactly one of them holds. Nothing says
// what a transition leaves alone; instead what changes names the transitions that can have changed
// it (explanatory frame axioms).

#pragma once

#include <vector>

#include "workbench/base/checkpoint.hpp"
#include "workbench/machine/clocks.hpp"
#include "workbench/machine/goal.hpp"
#include "workbench/machine/sink.hpp"

namespace tpn {

class FusedRuns {
 public:
  // `machine` and `solver` outlive it; nothing else adds variables to the solver.
  FusedRuns(const Machine& machine, Solver& solver, std::int64_t unaryLimit);

  // From now on, only runs in which the processes of each class move for the first time in their
  // order (or two of them at once); a move that does not reset is none. Before the first step.
  void keepOrder(std::vector<std::vector<std::size_t>> classes);

  // From now on, only runs in which one of these transitions is one of the steps from `first` (they
  // count from 1) to the last that there is.
  void keepSome(std::size_t first, const std::vector<std::size_t>& transitions);

  const StateLayout& layout() const { return layout_; }

  // One more state, at first the initial one; all runs that there are lead to it. Where the
  // checkpoint throws, the solver is of no more use.
  void extend(const Checkpoint& checkpoint);

  // The literal of a formula of layout() about the last state.
  int inLast(const StateFormula& formula);

  std::size_t steps() const { return selectors_.size(); }
  int variables() const { return sink_.variables(); }
  long clauses() const { return sink_.clauses(); }

  // The run in the solver's model: its transitions, and the delays before each and after the last,
  // in units.
  std::vector<std::size_t> transitions() const;
  std::vector<std::int64_t> delays() const { return clocks_.delays(); }

 private:
  int state(std::size_t i) const { return states_[i]; }
  int location(int state, std::size_t process, std::size_t rank) const {
    return state + layout_.location(process, rank);
  }
  int selector(std::size_t transition) const {
    return selectors_.back() + static_cast<int>(transition);
  }

  void addState();
  void addInitial();
  void addDeadline(const Machine::Transition& t);
  void addEffect(std::size_t transition);
  void selectOne();
  void addFrame(std::size_t process);
  std::vector<int> explanation(std::size_t process, const std::vector<std::size_t>& transitions);
  int movedIn(std::size_t process);
  void order(const std::vector<int>& moved);

  const Machine& machine_;
  StateLayout layout_;
  Clauses facts_;  // of every state
  ClauseSink sink_;
  ClockSteps clocks_;
  std::vector<int> states_;  // [i]: where the variables of state i stand
  std::vector<std::vector<std::size_t>> classes_;
  std::vector<int> everMoved_;  // [process]: it has moved in some step; only of those in classes
  std::vector<int> selectors_;  // [i]: the first selector of the step from state i
};

}  // namespace tpn

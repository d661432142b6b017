// How clocks advance from one state of a run to the next, where a delay of any length lies between
// the two: what was reached or reset, plus the delay.
//
// The delay d of a state is common to all its clocks. Narrow clocks, those that the layout has
// every value of, are added up in unary code: x >= a and d >= b give y >= a + b, and y >= c gives,
// for every a + b = c - 1, x > a or d > b. That is quadratic in the width of the clock, and all
// that follows from a part of the values follows by unit propagation. Wide clocks are binary
// numbers and have an adder that stays at its largest value where it would overflow; "at least c"
// is read off the number.

#pragma once

#include <cstdint>
#include <vector>

#include "workbench/machine/sink.hpp"

namespace tpn {

class ClockSteps {
 public:
  ClockSteps(const Machine& machine, const StateLayout& layout, ClauseSink& sink);

  // The next state, whose variables stand at `base`: clocks are what the delay made of 0 where the
  // literal moved[process] holds in the step that leads there, otherwise of those of the state
  // before. In the first state every clock was 0, and `moved` is not looked at.
  void extend(int base, const std::vector<int>& moved);

  // The delays of all states so far, in the solver's model, units. None is longer than what makes
  // every clock pass everything that it is compared with.
  std::vector<std::int64_t> delays() const;

 private:
  // Numbers as bits, lowest first.
  using Bits = std::vector<int>;
  struct State {
    int base = 0;
    int unaryDelay = 0;         // the first of delayWidth_ literals "delay >= c"
    Bits binaryDelay;           // empty where every clock is narrow
    std::vector<Bits> numbers;  // [process]; empty where its clock is narrow
  };

  bool narrow(std::size_t process) const { return layout_.dense(process); }
  State named(int base);
  void relateDelays(const State& state);
  void startAtDelay(std::size_t process, State& state);
  void addUnary(std::size_t process, const State& from, const State& to, int moved);
  Bits reset(Bits bits, int moved);
  Bits clipped(const Bits& bits, int count);
  Bits raised(Bits bits, const Bits& signs);
  Bits sumOf(const Bits& a, const Bits& b);
  void readOff(std::size_t process, const State& state);
  int atLeast(const Bits& bits, std::int64_t least);
  static int atLeast(const State& state, int least) { return state.unaryDelay + least - 1; }

  const Machine& machine_;
  const StateLayout& layout_;
  ClauseSink& sink_;
  int delayWidth_ = 0;  // of the delay in unary code
  int delayBits_ = 0;
  std::vector<State> states_;
};

}  // namespace tpn

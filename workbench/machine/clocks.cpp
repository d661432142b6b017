#include "workbench/machine/clocks.hpp"

#include <algorithm>
#include <bit>
#include <cassert>

namespace tpn {

namespace {

int bitsFor(std::int64_t largest) {
  return static_cast<int>(std::bit_width(static_cast<std::uint64_t>(largest)));
}

}  // namespace

ClockSteps::ClockSteps(const Machine& machine, const StateLayout& layout, ClauseSink& sink)
    : machine_(machine), layout_(layout), sink_(sink) {
  for (std::size_t p = 0; p < machine.processes.size(); ++p) {
    if (narrow(p))
      delayWidth_ = std::max(delayWidth_, layout.width(p));
    else
      delayBits_ = std::max(delayBits_, bitsFor(machine.processes[p].reach));
  }
  // One more for "longer than any narrow clock can tell".
  if (delayWidth_ > 0 && delayBits_ > 0) ++delayWidth_;
}

void ClockSteps::extend(int base, const std::vector<int>& moved) {
  State next = named(base);
  relateDelays(next);
  for (std::size_t p = 0; p < machine_.processes.size(); ++p) {
    if (layout_.width(p) == 0) continue;
    if (states_.empty())
      startAtDelay(p, next);
    else if (narrow(p))
      addUnary(p, states_.back(), next, moved[p]);
    else
      next.numbers[p] = sumOf(reset(states_.back().numbers[p], moved[p]), next.binaryDelay);
    if (!narrow(p)) readOff(p, next);
  }
  states_.push_back(std::move(next));
}

ClockSteps::State ClockSteps::named(int base) {
  State state;
  state.base = base;
  state.unaryDelay = sink_.fresh(delayWidth_);
  for (int i = 0; i < delayBits_; ++i) state.binaryDelay.push_back(sink_.fresh());
  state.numbers.resize(machine_.processes.size());
  for (int c = 1; c < delayWidth_; ++c) sink_.add({-atLeast(state, c + 1), atLeast(state, c)});
  return state;
}

// Each length that unary code names is that number in bits, and what is beyond is beyond.
void ClockSteps::relateDelays(const State& state) {
  if (delayBits_ == 0 || delayWidth_ == 0) return;
  for (int c = 0; c < delayWidth_; ++c)
    for (int i = 0; i < delayBits_; ++i) {
      const int bit = state.binaryDelay[static_cast<std::size_t>(i)];
      Clause clause{-atLeast(state, c + 1), (c >> i & 1) != 0 ? bit : -bit};
      if (c > 0) clause.push_back(-atLeast(state, c));
      clause[0] = atLeast(state, c + 1);
      sink_.add(clause);
    }
  sink_.add({-atLeast(state, delayWidth_), atLeast(state.binaryDelay, delayWidth_)});
}

void ClockSteps::startAtDelay(std::size_t process, State& state) {
  if (!narrow(process)) {
    state.numbers[process] = clipped(state.binaryDelay, bitsFor(machine_.processes[process].reach));
    return;
  }
  for (int c = 1; c <= layout_.width(process); ++c) {
    const int clock = state.base + layout_.clock(process, c);
    sink_.add({-atLeast(state, c), clock});
    sink_.add({atLeast(state, c), -clock});
  }
}

void ClockSteps::addUnary(std::size_t process, const State& from, const State& to, int moved) {
  const auto before = [&](int least) { return from.base + layout_.clock(process, least); };
  const auto after = [&](int least) { return to.base + layout_.clock(process, least); };
  for (int sum = 1; sum <= layout_.width(process); ++sum) {
    sink_.add({-atLeast(to, sum), after(sum)});
    sink_.add({-moved, atLeast(to, sum), -after(sum)});
    sink_.add({moved, -before(sum), after(sum)});
    for (int part = 1; part < sum; ++part)
      sink_.add({moved, -before(part), -atLeast(to, sum - part), after(sum)});
    for (int part = 0; part < sum; ++part)
      sink_.add({before(part + 1), atLeast(to, sum - part), -after(sum)});
  }
}

ClockSteps::Bits ClockSteps::reset(Bits bits, int moved) {
  for (int& bit : bits) bit = sink_.both(bit, -moved);
  return bits;
}

// The number, or the largest of so many bits where it needs more.
ClockSteps::Bits ClockSteps::clipped(const Bits& bits, int count) {
  return raised(Bits(bits.begin(), bits.begin() + count), Bits(bits.begin() + count, bits.end()));
}

// All ones where any of the signs holds.
ClockSteps::Bits ClockSteps::raised(Bits bits, const Bits& signs) {
  if (signs.empty()) return bits;
  const int over = sink_.any(signs);
  for (int& bit : bits) bit = sink_.either(bit, over);
  return bits;
}

// As many bits as `a` has, clipped; `b` has as many or more.
ClockSteps::Bits ClockSteps::sumOf(const Bits& a, const Bits& b) {
  Bits sum;
  int carry = 0;  // none
  for (std::size_t i = 0; i < a.size(); ++i) {
    const int half = sink_.differ(a[i], b[i]);
    sum.push_back(carry == 0 ? half : sink_.differ(half, carry));
    const int generated = sink_.both(a[i], b[i]);
    carry = carry == 0 ? generated : sink_.either(generated, sink_.both(half, carry));
  }
  Bits over(b.begin() + static_cast<std::ptrdiff_t>(a.size()), b.end());
  over.push_back(carry);
  return raised(sum, over);
}

void ClockSteps::readOff(std::size_t process, const State& state) {
  for (int i = 0; i < layout_.width(process); ++i) {
    const int clock = state.base + layout_.clockAt(process, i);
    const int number = atLeast(state.numbers[process], layout_.value(process, i));
    sink_.add({-clock, number});
    sink_.add({clock, -number});
  }
}

// The literal "the number is at least `least`", 1 <= least < 2 ^ number of bits.
int ClockSteps::atLeast(const Bits& bits, std::int64_t least) {
  int result = 0;  // of the bits so far: true
  for (std::size_t i = 0; i < bits.size(); ++i) {
    const bool one = (least >> i & 1) != 0;
    if (result == 0)
      result = one ? bits[i] : 0;
    else
      result = one ? sink_.both(bits[i], result) : sink_.either(bits[i], result);
  }
  assert(result != 0);
  return result;
}

std::vector<std::int64_t> ClockSteps::delays() const {
  std::vector<std::int64_t> result;
  for (const State& state : states_) {
    std::int64_t delay = 0;
    for (int c = 1; c <= delayWidth_ && state.binaryDelay.empty(); ++c)
      delay += sink_.solver().value(atLeast(state, c)) ? 1 : 0;
    for (std::size_t i = 0; i < state.binaryDelay.size(); ++i)
      if (sink_.solver().value(state.binaryDelay[i])) delay += std::int64_t{1} << i;
    result.push_back(delay);
  }
  return result;
}

}  // namespace tpn

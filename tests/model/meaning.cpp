#include "tests/model/meaning.hpp"

#include <algorithm>

namespace {

constexpr unsigned open = ~0U;  // the latest firing time of a transition that has none

unsigned modulo(unsigned value, int bits) { return value & ((1U << bits) - 1U); }

std::size_t index(int first, int i) {
  return static_cast<std::size_t>(first) + static_cast<std::size_t>(i);
}

unsigned take(const Bits& bits, int first, int count) {
  unsigned value = 0;
  for (int i = 0; i < count; ++i)
    if (bits.at(index(first, i)) != 0) value += 1U << i;
  return value;
}

void put(Bits& bits, int first, int count, unsigned value) {
  for (int i = 0; i < count; ++i) bits.at(index(first, i)) = static_cast<char>(value >> i & 1U);
}

}  // namespace

int Meaning::variables() const {
  return net.totalNrVertBits + (net.nrOfProcs + 1) * (net.intPLen + net.frPLen) + net.frPLen;
}

// Locations, integer parts, split, fractional parts.
PlainState Meaning::decode(const Bits& bits, int first) const {
  PlainState s;
  int at = first;
  const auto next = [&](int count) {
    const unsigned value = take(bits, at, count);
    at += count;
    return value;
  };
  s.location.push_back(0);
  for (std::size_t p = 1; p <= clocks(); ++p) s.location.push_back(next(net.nrVertBits[p]));
  for (std::size_t i = 0; i <= clocks(); ++i) s.integer.push_back(next(net.intPLen));
  s.split = next(net.frPLen);
  for (std::size_t i = 0; i <= clocks(); ++i) s.fraction.push_back(next(net.frPLen));
  return s;
}

void Meaning::encode(const PlainState& s, Bits& bits, int first) const {
  int at = first;
  const auto next = [&](int count, unsigned value) {
    put(bits, at, count, value);
    at += count;
  };
  for (std::size_t p = 1; p <= clocks(); ++p) next(net.nrVertBits[p], s.location[p]);
  for (std::size_t i = 0; i <= clocks(); ++i) next(net.intPLen, s.integer[i]);
  next(net.frPLen, s.split);
  for (std::size_t i = 0; i <= clocks(); ++i) next(net.frPLen, s.fraction[i]);
}

bool Meaning::isIn(const PlainState& s, unsigned p, unsigned l) const {
  return s.location[p] == modulo(l, net.nrVertBits[p]);
}

bool Meaning::enabled(const PlainState& s, unsigned t) const {
  const NumSet& procs = net.transProcs.at(t);
  return std::all_of(procs.begin(), procs.end(), [&](unsigned p) {
    return isIn(s, p, net.localTrans.at({p, t}).first);
  });
}

// For one process of t.
bool Meaning::inTime(const PlainState& s, unsigned t) const {
  const unsigned latest = net.timeIntervals[t].second;
  const NumSet& procs = net.transProcs.at(t);
  return latest == open || std::any_of(procs.begin(), procs.end(), [&](unsigned p) {
           return clockValue(s, p) <= latest << net.frPLen;
         });
}

// The earliest time for all processes of t.
bool Meaning::guard(const PlainState& s, unsigned t) const {
  const unsigned earliest = net.timeIntervals[t].first;
  const NumSet& procs = net.transProcs.at(t);
  return inTime(s, t) && std::all_of(procs.begin(), procs.end(), [&](unsigned p) {
           return clockValue(s, p) >= earliest << net.frPLen;
         });
}

bool Meaning::invariant(const PlainState& s) const {
  for (unsigned t = 1; t <= static_cast<unsigned>(net.nrOfTrans); ++t)
    if (enabled(s, t) && !inTime(s, t)) return false;
  return true;
}

bool Meaning::initial(const PlainState& s, unsigned l) const {
  for (unsigned p = 1; p <= clocks(); ++p)
    if (clockValue(s, p) != 0 || !isIn(s, p, l)) return false;
  return true;
}

bool Meaning::holds(const PlainState& s, unsigned q) const {
  return std::any_of(net.valuation.begin(), net.valuation.end(), [&](const auto& label) {
    return label.second == q && isIn(s, label.first.first, label.first.second);
  });
}

bool Meaning::fired(const PlainState& s1, unsigned t, const PlainState& s2) const {
  for (unsigned p = 1; p <= clocks(); ++p) {
    const auto move = net.localTrans.find({p, t});
    const bool right = move == net.localTrans.end()
                           ? s1.location[p] == s2.location[p]
                           : isIn(s1, p, move->second.first) && isIn(s2, p, move->second.second);
    if (!right) return false;
  }
  return true;
}

bool Meaning::timeStep(const PlainState& s1, const PlainState& s2) const {
  if (s1.location != s2.location || s1.integer[0] > static_cast<unsigned>(net.maxConst))
    return false;
  for (std::size_t i = 1; i <= clocks(); ++i) {
    const unsigned sum = clockValue(s1, i) + clockValue(s1, 0);
    if (clockValue(s2, i) != modulo(sum, net.intPLen + net.frPLen)) return false;
  }
  return invariant(s2);
}

bool Meaning::actionStep(const PlainState& s1, const PlainState& s2) const {
  for (unsigned t = 1; t <= static_cast<unsigned>(net.nrOfTrans); ++t) {
    bool clocksRight = true;
    for (unsigned i = 1; i <= clocks(); ++i) {
      const bool moves = net.transProcs.at(t).count(i) != 0;
      if (clockValue(s2, i) != (moves ? 0 : clockValue(s1, i))) clocksRight = false;
    }
    if (clocksRight && guard(s1, t) && fired(s1, t, s2) && invariant(s2)) return true;
  }
  return false;
}

// Are there odd fractions and even ones?
bool Meaning::evenlyMixed(const PlainState& s) const {
  const auto odd = std::count_if(s.fraction.begin() + 1, s.fraction.end(),
                                 [](unsigned f) { return f % 2 == 1; });
  return odd != 0 && odd != net.nrOfProcs;
}

bool Meaning::fractionAdjusted(const PlainState& s1, const PlainState& s2, std::size_t i) const {
  const unsigned from = s1.fraction[i];
  const unsigned to = s2.fraction[i];
  if (from == 0) return to == 0;
  if (from < s1.split) return to == from + 1;
  return from > s1.split && from % 2 == 1 && to == from - 1;
}

bool Meaning::adjustStep(const PlainState& s1, const PlainState& s2) const {
  if (s1.location != s2.location) return false;
  const auto top = static_cast<unsigned>(net.maxConst) + 1U;
  const bool mixed = evenlyMixed(s1);
  if (mixed && s1.split % 2 == 0) return false;
  for (std::size_t i = 1; i <= clocks(); ++i) {
    if (s2.integer[i] != std::min(s1.integer[i], top)) return false;
    if (mixed ? !fractionAdjusted(s1, s2, i) : s2.fraction[i] != s1.fraction[i]) return false;
  }
  return true;
}

// What a network's tables mean, in integers: one state, and the three kinds of step between two.
// The formulas of the model are compared with it.

#pragma once

#include <vector>

#include "model/tpnmodel.hpp"
#include "tests/model/evaluate.hpp"

// The numbers that the variables of one state make up.
struct PlainState {
  std::vector<unsigned> location;  // [p], p = 1..n; [0] is unused
  std::vector<unsigned> integer;   // [i], i = 0..n; [0] is the delay's
  std::vector<unsigned> fraction;  // [i], i = 0..n
  unsigned split = 0;
};

class Meaning {
 public:
  // The model is borrowed.
  explicit Meaning(const NetTimedModel& model) : net(model) {}

  // --- Between numbers and the variables from `first` on. ---

  int variables() const;  // of one state
  PlainState decode(const Bits& bits, int first) const;
  void encode(const PlainState& s, Bits& bits, int first) const;

  // --- One state. ---

  bool isIn(const PlainState& s, unsigned p, unsigned l) const;  // higher bits of l do not count
  bool enabled(const PlainState& s, unsigned t) const;
  bool guard(const PlainState& s, unsigned t) const;
  bool invariant(const PlainState& s) const;
  bool initial(const PlainState& s, unsigned l) const;
  bool holds(const PlainState& s, unsigned q) const;

  // --- Two states. ---

  bool fired(const PlainState& s1, unsigned t, const PlainState& s2) const;
  bool timeStep(const PlainState& s1, const PlainState& s2) const;
  bool actionStep(const PlainState& s1, const PlainState& s2) const;
  bool adjustStep(const PlainState& s1, const PlainState& s2) const;

 private:
  bool inTime(const PlainState& s, unsigned t) const;
  bool fractionAdjusted(const PlainState& s1, const PlainState& s2, std::size_t i) const;
  bool evenlyMixed(const PlainState& s) const;

  std::size_t clocks() const { return static_cast<std::size_t>(net.nrOfProcs); }
  unsigned clockValue(const PlainState& s, std::size_t i) const {
    return (s.integer[i] << net.frPLen) + s.fraction[i];
  }

  const NetTimedModel& net;
};

// Assignments worth looking at: drawn at random they would hardly ever satisfy a step relation, so
// most of them are a step that the network can take, some with one bit turned over.

#pragma once

#include <random>
#include <string>

#include "tests/model/evaluate.hpp"
#include "tests/model/meaning.hpp"

class Sampler {
 public:
  // The model is borrowed.
  Sampler(const NetTimedModel& model, unsigned seed) : net(model), meaning(model), engine_(seed) {}

  // The variables of two states from 1 on; the second is often a successor of the first.
  Bits twoStates();

 private:
  PlainState randomState();
  PlainState afterTime(const PlainState& s1);
  PlainState afterAction(const PlainState& s1, unsigned t);
  PlainState afterAdjusting(const PlainState& s1);
  unsigned below(unsigned bound) { return static_cast<unsigned>(engine_()) % bound; }

  const NetTimedModel& net;
  Meaning meaning;
  std::mt19937 engine_;
};

// The file of a network of 1..3 processes with up to 5 locations, maybe not numbered on end,
// and 2..5 transitions; constants up to 4.
std::string randomNetwork(unsigned seed);

// Reads a run of the network back out of a solver's model, by the variable map.
//
// A state takes L consecutive variables, state i from 1 + i * L on: the location bits, process by
// process, then the integer parts of the delay and of every clock, the split value, and the
// fractional parts of the delay and of every clock; the lowest bit of each comes first. Variables
// above the highest that the map names do not occur in the clauses: in the file those numbers are
// formula nodes. What does not occur may have any value, and is read as 0.

#pragma once

#include <string>
#include <vector>

#include "tests/endtoend/network.hpp"

struct VariableMap {
  std::vector<int> locationBits;  // [p]
  int integerBits;
  int fractionBits;
  int length;           // steps of the path
  int highestVariable;  // of the problem
  int transitions;
};

// Throws where the text is no variable map with one clock a process.
VariableMap parseMap(const std::string& text);

struct RunState {
  State state;         // clocks in steps of 1 / 2^fractionBits
  std::int64_t delay;  // in the same steps
};

struct TimedRun {
  Unit unit;  // 2^fractionBits
  std::vector<RunState> states;
};

TimedRun decode(const VariableMap& map, const std::vector<bool>& model);

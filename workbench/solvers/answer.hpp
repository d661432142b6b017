// What a solver says, in the two forms there are: lines of the competitions ("s SATISFIABLE", "v 1
// -2 ... 0"), and MiniSat's result file ("SAT" and a line of numbers).

#pragma once

#include <string>
#include <vector>

namespace tpn {

struct SolverAnswer {
  enum Status { satisfiable, unsatisfiable, unknown } status = unknown;
  std::vector<signed char> values;  // [variable]: 1 or -1; 0 where it is left out

  int value(std::size_t variable) const { return variable < values.size() ? values[variable] : 0; }
};

// Throws std::runtime_error, one line, where the text is no complete answer.
SolverAnswer readAnswer(const std::string& text);

// The answer in which variables 1, 2, ... have these values; readAnswer's inverse.
std::string answerText(const std::vector<std::vector<bool>>& values);

}  // namespace tpn

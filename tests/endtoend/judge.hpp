// The program's output for one network and path length, judged against what is expected.

#pragma once

#include <string>

#include "tests/endtoend/network.hpp"
#include "tests/endtoend/sandbox.hpp"

// The program run on networks in a directory of its own.
class Judge {
 public:
  explicit Judge(Network net);

  // Runs the program and both solvers for path length k. Empty where both say `reachable` and each
  // model decodes to a run that the network allows; else what is wrong.
  std::string verdict(int k, bool reachable) const;

 private:
  Network net_;
  Sandbox sandbox_;
};

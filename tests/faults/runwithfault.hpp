// A program run with one of its calls failing (faultinjector.cpp).
//
// Test programs that include this are set up with zervan_faults(TARGET) in their CMakeLists.txt.

#pragma once

#include <string>
#include <vector>

#include "tests/driver/runprogram.hpp"

enum class Fault { write, open, read, malloc, fork };

inline std::string nameOf(Fault kind) {
  return std::vector<std::string>{"write", "open", "read", "malloc",
                                  "fork"}[static_cast<std::size_t>(kind)];
}

struct FaultedRun {
  Outcome outcome;
  // The function that failed and what it was called on, "open net.tpn\n"; empty where the program
  // made fewer than n such calls, and none of them failed.
  std::string hit;
};

// Runs argv in the folder of `place`; the n-th call of this kind fails, n >= 1. A run that takes
// longer than `bounds` allow is ended, and told in the outcome.
inline FaultedRun runWithFault(const Workplace& place, Fault kind, int n,
                               const std::vector<std::string>& argv,
                               const Bounds& bounds = {.time = std::chrono::minutes(2)}) {
  const Workplace notes;
  const std::string log = (notes.folder() / "hit").string();
  std::vector<std::string> arguments{
      std::string("LD_PRELOAD=") + ZERVAN_FAULT_INJECTOR, "ZERVAN_FAULT=" + nameOf(kind),
      "ZERVAN_FAULT_AT=" + std::to_string(n), "ZERVAN_FAULT_LOG=" + log};
  arguments.insert(arguments.end(), argv.begin(), argv.end());
  FaultedRun run{place.run("/usr/bin/env", arguments, bounds), ""};
  run.hit = notes.read("hit");
  return run;
}

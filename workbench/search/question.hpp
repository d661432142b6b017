// The question that every search answers, and how much it may cost.

#pragma once

#include <chrono>
#include <optional>
#include <string>

#include "workbench/network/network.hpp"
#include "workbench/network/property.hpp"

namespace tpn {

// Can `net` reach a state with the property? Both are borrowed.
struct Question {
  const Network& net;
  const Property& property;
};

struct CheckOptions {
  int maxBound = 0;  // the last k to ask; 0: as far as numbers reach
  std::optional<std::chrono::milliseconds> timeout;  // for everything together
  std::string solver;  // empty: embedded; a known name or a path: that program
  int jobs = 1;        // bounds side by side, with a solver program
  std::string keep;    // a folder for clause files, maps, answers; empty: none are kept
};

}  // namespace tpn

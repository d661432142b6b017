// ABC's property-directed reachability as an engine: the circuit goes out to it as a file, its
// answer comes back as text. None of it is believed: a run is replayed and an invariant rechecked
// before it is told.

#pragma once

#include <functional>
#include <optional>
#include <string>

#include "workbench/network/goal.hpp"
#include "workbench/proof/certificate.hpp"
#include "workbench/runs/run.hpp"

namespace tpn {

struct AbcAnswer {
  enum Kind { reachable, unreachable, undecided } kind = undecided;
  std::optional<Run> run;                  // reachable: checked, its last state is the goal
  std::optional<Certificate> certificate;  // unreachable: checked
  std::string reason;                      // undecided: why
};

// Runs berkeley-abc, in a temporary folder, until it answers or `stop`, asked now and then, says
// so. Throws std::runtime_error, one line, where it is not there, fails, or says what is wrong.
AbcAnswer askAbc(const Network& net, const Goal& goal, const std::function<bool()>& stop);

}  // namespace tpn

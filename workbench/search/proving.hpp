// The prover as an engine: from a network and a goal to a run that has been replayed, or a
// certificate that has been rechecked.

#pragma once

#include <functional>
#include <optional>

#include "workbench/network/goal.hpp"
#include "workbench/network/network.hpp"
#include "workbench/proof/certificate.hpp"
#include "workbench/prover/ic3.hpp"
#include "workbench/runs/run.hpp"

namespace tpn {

// Neither is there where `over`, asked often, ended it, or where clocks are too wide for it.
struct Proved {
  std::optional<Run> run;
  std::optional<Certificate> certificate;
  bool tooWide = false;
};

// What searches for the same answer may differ in; usually all of it pays.
struct ProvingOptions {
  bool symmetry = true;    // what is learnt counts for all images
  bool longDelays = true;  // several units pass in one step
  bool greedy = true;      // now and then, look for a run state by state
};

// Throws std::runtime_error with one line where a run does not replay or a proof does not check.
Proved proved(const Network& net, const Goal& goal, const std::function<bool()>& over,
              const std::function<void(const ProverProgress&)>& report,
              const ProvingOptions& options = {});

}  // namespace tpn

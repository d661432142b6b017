// Inputs of a plan as values: what a worker asks, and what a collector rechecks with.

#pragma once

#include <string>
#include <vector>

#include "workbench/campaign/job.hpp"
#include "workbench/network/diagnostic.hpp"
#include "workbench/network/goal.hpp"
#include "workbench/network/network.hpp"

namespace tpn {

// In any form, as the suffix of the name tells. Throws std::runtime_error, one line that begins
// with the name, where the text is at fault.
Network networkIn(const std::string& name, const std::string& text);

// The network with other bounds. Throws std::runtime_error, one line, where a transition is not
// there or a time too long.
Network changed(Network net, const std::vector<Swept>& swept);

// In either notation, with what may be wrong appended to the warnings. Throws as networkIn does.
// Of a net that may be unsafe, it asks for that as well.
Goal goalIn(const std::string& name, const std::string& text, const Network& net,
            Diagnostics& warnings);

// A job's, from the folder of its plan, where they have been found to be in order.
Network networkOf(const std::string& folder, const Job& job);
Goal goalOf(const std::string& folder, const Job& job, const Network& net);

}  // namespace tpn

// What a path length asks of zervan's clause files.

#pragma once

#include <string>

#include "workbench/network/diagnostic.hpp"
#include "workbench/network/network.hpp"

namespace tpn {

// What a path of length k would meet in zervan: too many variables, numbers that fold. `file` is
// the network's, for the diagnostics.
void lintBound(const Network& net, const std::string& file, int k, Diagnostics& diagnostics);

}  // namespace tpn

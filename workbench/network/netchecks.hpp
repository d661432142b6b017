// What the numbers of a network file say, checked: transitions against their use, intervals,
// locations and their labels.

#pragma once

#include "workbench/base/checkpoint.hpp"
#include "workbench/network/lintrules.hpp"
#include "workbench/network/netreader.hpp"
#include "workbench/network/network.hpp"

namespace tpn {

void checkNumbers(const NetworkFile& file, Report& report, const Checkpoint& checkpoint);

// The network of a file in which no error was found.
Network networkOf(const NetworkFile& file);

}  // namespace tpn

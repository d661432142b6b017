// The line that repeats what was asked for, as it was written, and says what became of it: the same
// under a run and where there is none.

#pragma once

#include <string>

#include "workbench/network/property.hpp"

namespace tpn {

// "goal: committed && B.aborted is never reached"; a line.
std::string goalLine(const Property& property, const std::string& outcome);

}  // namespace tpn

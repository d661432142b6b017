// Where a program of the user's is.

#pragma once

#include <string>

namespace tpn {

// A name is looked for in the folders of PATH, a path is taken as it is. Empty where there is no
// such program.
std::string programPath(const std::string& nameOrPath);

}  // namespace tpn

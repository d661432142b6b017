// What is wrong with files, for people: not more than they can read of each file.

#pragma once

#include <cstddef>
#include <limits>
#include <string>

#include "workbench/network/diagnostic.hpp"

namespace tpn {

constexpr std::size_t usualFindings = 20;
constexpr std::size_t allFindings = std::numeric_limits<std::size_t>::max();

// A line a finding, in their order; of each file the first ones, then how many more there are.
std::string findingsText(const Diagnostics& diagnostics, std::size_t mostOfAFile = usualFindings);

}  // namespace tpn

// The lines of numbers of a network file, field by field.

#pragma once

#include <array>

#include "workbench/network/lintrules.hpp"
#include "workbench/network/netreader.hpp"

namespace tpn {

// What is missing, too much or no number is reported. The line holds a word at least (asserted).
std::array<Field, 3> threeFields(const Line& line, const std::array<const char*, 3>& names,
                                 Report& report);
LabelLine labelLine(const Line& line, Report& report);

}  // namespace tpn

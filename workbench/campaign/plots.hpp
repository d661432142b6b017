// Two plots of a collection as SVG: time over size, and how many questions an engine answers within
// how long each (a cactus plot). Time is on a logarithmic axis.

#pragma once

#include <string>

#include "workbench/campaign/collect.hpp"

namespace tpn {

// A point a sure answer, a line a network, question and engine; where there are several answers of
// one size, the slowest.
std::string timeOverSize(const Collection& c);

// A line an engine: its sure answers, sorted by time.
std::string cactus(const Collection& c);

}  // namespace tpn

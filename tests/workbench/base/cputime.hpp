// Processor time of this process: what a test of growth compares, as the clock on the wall says
// more of what else the machine is doing.

#pragma once

#include <ctime>

namespace tpn {

template <class Work>
double cpuSeconds(Work work) {
  const std::clock_t start = std::clock();
  work();
  return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

}  // namespace tpn

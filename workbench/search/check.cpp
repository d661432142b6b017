#include "workbench/search/check.hpp"

#include <new>
#include <stdexcept>

#include "workbench/search/strategy.hpp"

namespace tpn {

Verdict check(const Network& net, const Property& property, const CheckOptions& options,
              const std::atomic<bool>& stop, const std::function<void(const Progress&)>& report) {
  Watch watch(options.timeout, stop, report);
  const Strategy strategy = options.solver.empty() ? checkEmbedded : checkWithProgram;
  try {
    return strategy({net, property}, options, watch);
  } catch (const std::bad_alloc&) {
    throw std::runtime_error("the network's formulas do not fit into memory");
  }
}

}  // namespace tpn

#include "workbench/check.hpp"

#include "workbench/embedded.hpp"
#include "workbench/programs.hpp"
#include "workbench/watch.hpp"

namespace tpn {

Verdict check(const Network& net, const Property& property, const CheckOptions& options,
              const std::atomic<bool>& stop, const std::function<void(const Progress&)>& report) {
  Watch watch(options, stop, report);
  if (options.solver.empty()) return checkEmbedded(net, property, options, watch);
  return checkWithProgram(net, property, options, watch);
}

}  // namespace tpn

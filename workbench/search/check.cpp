#include "workbench/search/check.hpp"

#include "workbench/search/embedded.hpp"
#include "workbench/search/programs.hpp"
#include "workbench/search/watch.hpp"

namespace tpn {

Verdict check(const Network& net, const Property& property, const CheckOptions& options,
              const std::atomic<bool>& stop, const std::function<void(const Progress&)>& report) {
  Watch watch(options, stop, report);
  if (options.solver.empty()) return checkEmbedded(net, property, options, watch);
  return checkWithProgram(net, property, options, watch);
}

}  // namespace tpn

#include "workbench/encoding/lintbound.hpp"

#include <cstdint>
#include <optional>

#include "workbench/encoding/statelength.hpp"
#include "workbench/network/lintrules.hpp"

namespace tpn {

void lintBound(const Network& net, const std::string& file, int k, Diagnostics& diagnostics) {
  Report report(file, diagnostics);
  const std::string length = "path length " + std::to_string(k);
  if (k < 1) {
    report.add(Rule::boundTooSmall, {}, length + " is below 1");
    return;
  }
  const StateLength state = stateLength(net);
  const std::int64_t needed = (std::int64_t{k} + 1) * state.variables;
  const std::optional<std::int64_t> largest = largestBound(state, mostUnfolded);
  const std::string fits =
      largest ? std::to_string(*largest) + " is the largest that works" : "none works";
  if (needed > mostVariables)
    report.add(Rule::tooManyVariables, {},
               length + " takes " + std::to_string(needed) +
                   " variables, zervan refuses more than " + std::to_string(mostVariables) + "; " +
                   fits);
  else if (needed > mostUnfolded)
    report.add(Rule::variablesFold, {},
               length + " takes " + std::to_string(needed) + " variables, above " +
                   std::to_string(mostUnfolded) + " zervan's clause file is wrong; " + fits);
}

}  // namespace tpn

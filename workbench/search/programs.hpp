// A check with a solver program: a clause file a bound, several bounds side by side.

#pragma once

#include "workbench/search/check.hpp"
#include "workbench/search/watch.hpp"

namespace tpn {

Verdict checkWithProgram(const Network& net, const Property& property, const CheckOptions& options,
                         Watch& watch);

}  // namespace tpn

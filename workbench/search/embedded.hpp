// A check with the solver in this process: the path grows by an action, the property of its new
// state is assumed, and what was learnt stays for the next bound.

#pragma once

#include "workbench/search/check.hpp"
#include "workbench/search/watch.hpp"

namespace tpn {

Verdict checkEmbedded(const Network& net, const Property& property, const CheckOptions& options,
                      Watch& watch);

}  // namespace tpn

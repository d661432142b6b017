// From a solver's answer to a clause file, by the variable map written with it, to a run.

#pragma once

#include <string>

#include "workbench/network/network.hpp"
#include "workbench/network/property.hpp"
#include "workbench/search/verdict.hpp"

namespace tpn {

// What the answer says (`map`, `answer`: the files' contents). Files of zervan and those that check
// keeps are taken alike: they lay a network out in two ways. Reachable: the whole run of the path,
// and `bound` is the path's length. Unreached: the answer is that there is no run of exactly that
// length, which says nothing of shorter ones; `bound` is 0. Throws std::runtime_error with one line
// where the files are broken or do not fit.
Verdict traced(const Network& network, const Property& asked, const std::string& map,
               const std::string& answer);

}  // namespace tpn

// The parts of a page as HTML.

#pragma once

#include <string>

#include "workbench/network/network.hpp"
#include "workbench/network/property.hpp"
#include "workbench/proof/certificate.hpp"
#include "workbench/runs/replay.hpp"
#include "workbench/views/views.hpp"

namespace tpn {

// The question as it was written; with a state where it holds, the part of it that does is marked
// and told. A long one is folded.
std::string questionPart(const Network& net, const Property& property, const TimedState* goal);

// The network's picture, or why there is none.
std::string networkPart(const Network& net, const Look& look);

// The run's picture and the controls that step through it.
std::string lanesPart(const Network& net, const Property& property, const Run& run,
                      const Look& look);

// All states in a table, for paper and for those who do not look at pictures.
std::string tablePart(const Network& net, const Property& property, const Run& run,
                      const Replay& replay);

// Why a goal is never reached, in words.
std::string invariantPart(const Network& net, const Certificate& certificate);

}  // namespace tpn

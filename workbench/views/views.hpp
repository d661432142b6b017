// One run, many views. All take a run that replays without complaint.

#pragma once

#include <string>

#include "workbench/network/network.hpp"
#include "workbench/network/property.hpp"
#include "workbench/runs/run.hpp"

namespace tpn {

// One line a step: elapsed time, delay, transition with the processes that move, locations that
// changed, propositions that now hold; the goal is marked.
std::string runText(const Network& net, const Property& property, const Run& run);

// docs/run.schema.json describes it.
std::string runJson(const Network& net, const Property& property, const Run& run);

// A value change dump, for waveform viewers.
std::string runVcd(const Network& net, const Property& property, const Run& run);

// Time runs right, one lane a process.
std::string runSvg(const Network& net, const Property& property, const Run& run);

// A network: for reading, for programs, for Graphviz (one automaton a process).
std::string networkText(const Network& net);
std::string networkJson(const Network& net);  // docs/network.schema.json
std::string networkDot(const Network& net);

}  // namespace tpn

// A run as the script of a page wants it, one entry a state.

#pragma once

#include <string>

#include "workbench/base/json.hpp"
#include "workbench/network/network.hpp"
#include "workbench/network/property.hpp"
#include "workbench/runs/replay.hpp"

namespace tpn {

// What to call them in a page: their names, or "process 4", "location 0", "transition 16".
std::string processTitle(const Network& net, std::size_t process);
std::string locationTitle(const Network& net, std::size_t process, int location);
std::string transitionTitle(const Network& net, std::size_t transition);

// {processes: [{name, locations: {number: name}}], lanes: {top, bottom}, goal: state or null,
//  states: [{time, at: [location number], clocks: [text], propositions: [name], from, to,
//            step: {transition, number, interval, delay, moved: [process index]} or null}]}
// The step is that which leads to the state; from, to and lanes are pixels of the run's picture,
// with all lanes or not.
Json statesJson(const Network& net, const Property& property, const Run& run, const Replay& replay,
                bool all);

}  // namespace tpn

// A network of processes is a net made of state machines: every location a place, every transition
// one that takes the token of each of its processes from the source and puts it on the target.
//
// The translation is exact. A process's clock is the time since its token was last put where it
// is, staying moves included, so the least of the clocks of a transition's processes is the time
// since the last of its tokens came: the time that it has been enabled. And a transition that loses
// a process to another one on the way is newly enabled in the net just where the process's clock
// begins anew.

#pragma once

#include <optional>
#include <stdexcept>
#include <string>

#include "workbench/base/checkpoint.hpp"
#include "workbench/nets/netrules.hpp"
#include "workbench/nets/petrinet.hpp"
#include "workbench/network/network.hpp"

namespace tpn {

// What cannot be said in another form: the reason, one line.
struct Inexact : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// The net with the network as its origin. Throws Inexact where a transition's earliest time exceeds
// its latest: no net has such intervals.
PetriNet petriNetOf(const Network& net);

// The network that a net with an origin was made of. What the net says now is held against it:
// nothing, and refused, where they differ.
std::optional<Network> originalNetwork(const PetriNet& net, NetReport& report,
                                       const Checkpoint& checkpoint = {});

}  // namespace tpn

// Any safe net as a network of processes. docs/nets.md has the argument why it is the same.
//
// - A component that always holds one token is a process, its places are the locations.
// - A place outside of them is a process with two locations, empty and marked.
// - A place that never holds a token is none, and a transition that never fires is left out.
// - A transition that consumes nothing has a process of its own besides, in which it goes from the
//   only location to itself: its clock is the time since the transition fired.
//
// Of a transition, a token consumed is a move that counts for the time that it has been enabled and
// resets its process's clock; a token read is a move that counts and does not reset; a token
// produced outside of the components is a move that resets and does not count.
//
// Location 0 is where the token is at first. Every place is a proposition of its own name, with the
// number of its line in the list of places, from 1; locations and transitions are called by the
// names of the net as well.

#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "workbench/base/checkpoint.hpp"
#include "workbench/nets/petrinet.hpp"
#include "workbench/network/network.hpp"

namespace tpn {

struct Translation {
  Network net;
  std::vector<std::vector<std::size_t>> places;  // [process]: of the net; none: a transition's own
  std::vector<std::size_t> transitions;          // [transition of the network]: of the net
  std::vector<std::size_t> left;                 // those left out, which never fire
  std::vector<std::size_t> uncovered;            // places with a process of their own
  std::vector<std::size_t> unmarked;             // places that never hold a token
};

// With no name, the net's title is "net".
Translation translated(const PetriNet& net, const Checkpoint& checkpoint = {});

// Throws Inexact (bridge.hpp) where a network file cannot say it: where a transition reads a place,
// or puts a token on one that is in no component.
void requirePlain(const PetriNet& net, const Translation& translation);

// What a person may want to know of it: a line for each process, and for whatever is left out.
std::string told(const PetriNet& net, const Translation& translation);

}  // namespace tpn

// The state machines that a net is made of: sets of places that hold exactly one token together in
// every reachable state, chosen so that they cover as many places as can be.
//
// What a file's nested units claim is only where to look first; everything is proved from the net.
// Transitions that need two tokens of a component never fire, and neither do those that need a
// token where there is never one. They are left out, and without them more components may show.

#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "workbench/base/checkpoint.hpp"
#include "workbench/nets/petrinet.hpp"

namespace tpn {

struct Component {
  std::vector<std::size_t> places;  // ascending; one of them is marked
  std::string name;                 // of a unit; empty: none
};

struct Cover {
  std::vector<Component> components;  // by their first place; they may share places
  std::vector<bool> covered;          // [place]: in a component
  std::vector<bool> marked;           // [place]: false where it is known never to hold a token
  std::vector<bool> live;             // [transition]: false where it is known never to fire
};

Cover coverOf(const PetriNet& net, const Checkpoint& checkpoint = {});

}  // namespace tpn

// A net as PNML, with TINA's intervals and test arcs. docs/nets.md tells it by examples.

#pragma once

#include <string>

#include "workbench/nets/petrinet.hpp"

namespace tpn {

// The file's text; readPnml gives the same net again. Throws Inexact (bridge.hpp) where a name
// holds what XML cannot: control characters, bytes that are no UTF-8, blanks around it.
std::string pnmlFile(const PetriNet& net);

}  // namespace tpn

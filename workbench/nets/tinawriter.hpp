// A net as TINA's textual form. docs/nets.md tells it by examples.

#pragma once

#include <string>

#include "workbench/nets/petrinet.hpp"

namespace tpn {

// The file's text; readTina gives the same net again, but for its units, which the form cannot say.
// Asserts that names are not empty and hold no line end.
std::string tinaFile(const PetriNet& net);

}  // namespace tpn

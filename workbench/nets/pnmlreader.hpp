// Nets in PNML: place/transition nets, with TINA's intervals (<delay>) and test arcs, and nested
// units (NUPN). docs/nets.md tells what is read.
//
// The places and transitions are called by their names where these are distinct, otherwise by their
// ids. Elements that a net means something by are known here or refused; graphics and the
// toolspecific elements of others are passed over.

#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "workbench/base/checkpoint.hpp"
#include "workbench/nets/petrinet.hpp"
#include "workbench/network/diagnostic.hpp"

namespace tpn {

// As readTina (tinareader.hpp). No document is deep or tricky enough to do harm: entities are not
// expanded, nothing recurses, and memory is in proportion to the text.
std::optional<PetriNet> readPnml(const std::string& file, std::string_view text,
                                 Diagnostics& diagnostics, const Checkpoint& checkpoint = {});

}  // namespace tpn

// Networks in any of their three forms: network files, TINA's .net, PNML.

#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "workbench/base/checkpoint.hpp"
#include "workbench/nets/petrinet.hpp"
#include "workbench/network/diagnostic.hpp"
#include "workbench/network/network.hpp"

namespace tpn {

enum class NetForm { network, tina, pnml };

// By the name's suffix: .tpn, .net, .pnml or .xml.
std::optional<NetForm> formNamed(const std::string& name);
// By the suffix, or by what the text begins with where there is none of these.
NetForm formOf(const std::string& name, std::string_view text);

// A net in one of the two forms that are not network files.
std::optional<PetriNet> readPetriNet(NetForm form, const std::string& file, std::string_view text,
                                     Diagnostics& diagnostics, const Checkpoint& checkpoint = {});

// The network that a net was, where it tells; any other net translated.
std::optional<Network> networkIn(const PetriNet& net, const std::string& file,
                                 Diagnostics& diagnostics, const Checkpoint& checkpoint = {});

// As readNetwork (strictread.hpp), in any form.
std::optional<Network> readAnyNetwork(const std::string& file, const std::string& text,
                                      Diagnostics& diagnostics, const Checkpoint& checkpoint = {});

}  // namespace tpn

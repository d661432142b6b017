// What PNML tells in toolspecific elements of the network that it was made of:
//
//     <place id="p1"> ... <toolspecific tool="zervan" version="1">
//       <location process="1" number="0" propositions="7 8"/></toolspecific></place>
//     <toolspecific tool="zervan" version="1"><network title="two phases">
//       <process number="1" name="coordinator"/>
//       <location process="1" number="0" name="idle"/>
//       <transition number="16" name="vote_yes"/>
//       <proposition number="11" name="committed"/></network></toolspecific>

#pragma once

#include <string>
#include <vector>

#include "workbench/base/checkpoint.hpp"
#include "workbench/nets/petrinet.hpp"
#include "workbench/nets/xmldocument.hpp"

namespace tpn {

// `places` are the elements of the net's places, in their order; `tools` the toolspecific elements
// of the net and its pages. Sets the net's origin where one of them tells of a network.
void readPnmlOrigin(const XmlDocument& document, const std::vector<pugi::xml_node>& places,
                    const std::vector<pugi::xml_node>& tools, PetriNet& net, NetReport& report,
                    const Checkpoint& checkpoint);

// A text as it may stand in an attribute or between tags.
std::string xmlEscaped(const std::string& text);

// The element of a place; the one of the net. Both need an origin.
std::string pnmlSpot(const PetriNet::Spot& spot);
std::string pnmlNetwork(const PetriNet& net);

}  // namespace tpn

// What a .net tells in comments of the network that it was made of, so that the way back gives the
// same network. Other readers pass over it.
//
//     # tpn processes 1
//     # place coordinator_idle 1 0 11     process 1, location 0, where proposition 11 holds
//     # place {B.voted} 2 3
//     # process 1 coordinator             from here on as the names of a network file
//     # location 1 0 idle
//     # tpn end

#pragma once

#include <vector>

#include "workbench/base/checkpoint.hpp"
#include "workbench/base/textlines.hpp"
#include "workbench/nets/netbuilder.hpp"
#include "workbench/nets/petrinet.hpp"

namespace tpn {

// Finds them among all comments of a file and sets the net's origin; nothing where there are none.
void readTinaComments(const std::vector<Line>& comments, const NetBuilder& names, PetriNet& net,
                      NetReport& report, const Checkpoint& checkpoint);

// Each line with its end; nothing where the net has no origin.
std::string tinaComments(const PetriNet& net);

}  // namespace tpn

// Sets of places that always hold one token together: the components of a net that are state
// machines, and so the processes of a network.
//
// They are semiflows of ones and zeros with a total of 1, found by elimination (Farkas 1902,
// Martinez and Silva 1982) among the classes that cannot be told apart: rows are sets of classes
// with their effect on every transition, and each transition in turn is balanced by joining those
// that win with those that lose. There can be exponentially many, so the search stops when its work
// is done, and gives what it has found by then.

#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "workbench/base/checkpoint.hpp"
#include "workbench/nets/petrinet.hpp"

namespace tpn {

// Each set ascending. The transitions that are not live count for nothing; `work` is about how many
// entries of rows are computed.
std::vector<std::vector<std::size_t>> semiflows(const PetriNet& net, const std::vector<bool>& live,
                                                const Checkpoint& checkpoint = {},
                                                std::int64_t work = 5'000'000);

}  // namespace tpn

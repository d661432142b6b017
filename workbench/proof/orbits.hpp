// Sets closed under a group, by closure: whatever is in has its image under each generator in.

#pragma once

#include <vector>

#include "workbench/base/checkpoint.hpp"
#include "workbench/proof/certificate.hpp"

namespace tpn {

// Sorted clauses, each once; representatives first, in their order. A few generators make as many
// clauses of one as memory holds, hence the checkpoint.
std::vector<AtomClause> closed(const std::vector<AtomClause>& representatives,
                               const std::vector<Generator>& generators,
                               const Checkpoint& checkpoint = {});
std::vector<LinearInvariant> closed(const std::vector<LinearInvariant>& representatives,
                                    const std::vector<Generator>& generators,
                                    const Checkpoint& checkpoint = {});

}  // namespace tpn

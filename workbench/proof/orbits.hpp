// Sets closed under a group, by closure: whatever is in has its image under each generator in.

#pragma once

#include <vector>

#include "workbench/proof/certificate.hpp"

namespace tpn {

// Sorted clauses, each once; representatives first, in their order.
std::vector<AtomClause> closed(const std::vector<AtomClause>& representatives,
                               const std::vector<Generator>& generators);
std::vector<LinearInvariant> closed(const std::vector<LinearInvariant>& representatives,
                                    const std::vector<Generator>& generators);

}  // namespace tpn

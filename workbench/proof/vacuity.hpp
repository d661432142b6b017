// A guard against a check that proves everything because it lets nothing happen: what the replay
// of runs can do from the initial state, the checker's steps have to allow as well, and the state
// that it leads to has to be inside the invariant.

#pragma once

#include <string>

#include "workbench/base/checkpoint.hpp"
#include "workbench/proof/certificate.hpp"

namespace tpn {

// What is wrong, in one line, or empty. `all`: the clauses with their images.
std::string vacuityComplaint(const Network& net, const std::vector<AtomClause>& all,
                             const Checkpoint& checkpoint);

}  // namespace tpn

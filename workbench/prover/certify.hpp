// The prover's invariant as a certificate: its cubes as clauses over locations and clocks, in the
// network's own numbers.

#pragma once

#include <vector>

#include "workbench/machine/symmetry.hpp"
#include "workbench/proof/certificate.hpp"
#include "workbench/prover/ic3.hpp"

namespace tpn {

Generator generatorOf(const Machine& machine, const Symmetry& symmetry);

// Of an answer that is "unreachable". `symmetries` are those that the prover was given orbits of,
// `linear` the invariants whose clauses were among its facts.
Certificate certificateOf(const Machine& machine, const StateLayout& layout,
                          const ProverResult& result, const std::vector<LinearInvariant>& linear,
                          const std::vector<Symmetry>& symmetries);

}  // namespace tpn

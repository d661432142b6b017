// The prover's invariant as a certificate: its cubes as clauses over locations and clocks, in the
// network's own numbers.

#pragma once

#include <vector>

#include "workbench/machine/invariants.hpp"
#include "workbench/machine/symmetry.hpp"
#include "workbench/proof/certificate.hpp"
#include "workbench/prover/ic3.hpp"

namespace tpn {

LinearInvariant linearOf(const Machine& machine, const PlaceInvariant& invariant);
Generator generatorOf(const Machine& machine, const Symmetry& symmetry);

// Of an answer that is "unreachable". `symmetries` are those that the prover was given orbits of,
// `invariants`
// those whose clauses were among its facts.
Certificate certificateOf(const Machine& machine, const StateLayout& layout,
                          const ProverResult& result, const std::vector<PlaceInvariant>& invariants,
                          const std::vector<Symmetry>& symmetries);

}  // namespace tpn

// What is true of every state, as clauses for the prover's solver.

#pragma once

#include "workbench/base/checkpoint.hpp"
#include "workbench/machine/sink.hpp"

namespace tpn {

// Each process is in one location, "at least c + 1" is "at least c", no clock is past the cap of
// its location. The sink has named the state's variables, 1 .. size.
void addFacts(const Machine& machine, const StateLayout& layout, ClauseSink& sink,
              const Checkpoint& checkpoint);

}  // namespace tpn

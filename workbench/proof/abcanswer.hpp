// What ABC writes of its answers, in the terms of the network.

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "workbench/proof/machinecircuit.hpp"
#include "workbench/runs/run.hpp"

namespace tpn {

// The dump of an invariant: cubes of latches, by name, outside of it. None where a clock in bits
// makes more clauses of them than `most`. Throws std::runtime_error where it is no such dump.
std::optional<Certificate> readInvariant(const std::string& text, const MachineCircuit& machine,
                                         std::size_t most);

// A counterexample: the choice of every step, as many as there are frames, the last one included,
// which leads on from the bad state. Throws std::runtime_error where it is none.
std::vector<std::size_t> readChoices(const std::string& text, std::size_t inputs);

// The run that they are, without the choices that change nothing and without a delay at the end.
// Its goal is its last state.
Run runOf(const Network& net, const std::vector<std::size_t>& choices);

}  // namespace tpn

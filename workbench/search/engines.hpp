// The engines of `tpn check`, each by itself or two in a race: bounded search for a shortest run,
// IC3, and ABC as a program.
//
// Each engine has a thread and solvers of its own, and shares nothing with the other but what is
// told here. The first sure answer ends the other. Nothing is told unseen: a run has been replayed,
// a "never" has a certificate that has been rechecked.

#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "workbench/network/goal.hpp"
#include "workbench/network/network.hpp"
#include "workbench/search/answer.hpp"
#include "workbench/search/watch.hpp"

namespace tpn {

enum class Engine { both, bounded, prover, abc };

struct EngineName {
  const char* name;
  Engine engine;
};
constexpr std::array<EngineName, 4> engineNames{{{"both", Engine::both},
                                                 {"bmc", Engine::bounded},
                                                 {"ic3", Engine::prover},
                                                 {"abc", Engine::abc}}};

constexpr int usualLength = 17;  // of searches that do not end by themselves

struct EngineOptions {
  Engine engine = Engine::both;
  std::optional<int> maxTransitions;  // of the bounded search; a longer run of a prover's counts
  bool shortest = false;              // go on after a run until the shortest is sure
  std::uint64_t seed = 0;             // other than 0: the prover goes another way to the answer
};

// Throws std::runtime_error with one line where something failed and nothing else answered.
Answer answered(const Network& net, const Goal& goal, const EngineOptions& options, Watch& watch);

}  // namespace tpn

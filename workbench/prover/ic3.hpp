// IC3 (property-directed reachability; Bradley 2011, Een, Mishchenko and Brayton 2011) for networks
// of timed processes: whether a goal can be reached, for good.

#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "workbench/machine/goal.hpp"
#include "workbench/machine/machine.hpp"
#include "workbench/prover/cube.hpp"
#include "workbench/prover/orbits.hpp"

namespace tpn {

struct ProverProgress {
  std::size_t frame = 0;  // the last one
  std::size_t clauses = 0;
  std::size_t obligations = 0;
  long queries = 0;
};

struct ProverResult {
  enum Answer { reachable, unreachable, undecided } answer = undecided;
  std::vector<std::size_t> transitions;  // reachable: of a run to the goal, in order
  std::vector<std::int64_t> delays;      // and before each of them and after the last, units
  std::vector<Cube> invariant;           // unreachable: no reachable state is in any image of these
  std::size_t frames = 0;                // no goal within so many steps, delays counted
  bool symmetric = false;                // images: under the generators that were given
};

struct ProverOptions {
  std::vector<std::int64_t> delays{1};  // units; 1 is among them
  Clauses facts;                        // more of them, with helpers above the state's variables
  int helpers = 0;
  std::size_t mostImages = 200000;  // of a learnt clause; beyond, all over again without symmetry
  // Asked between obligations, with the queries so far: does what else is done about the question
  // end it?
  std::function<bool(long queries)> aside{};
};

// `stop` is asked now and then. Throws std::bad_alloc where memory runs out.
ProverResult prove(const Machine& machine, const StateLayout& layout, const StateFormula& goal,
                   const Orbits& orbits, const ProverOptions& options,
                   const std::function<bool()>& stop,
                   const std::function<void(const ProverProgress&)>& report);

}  // namespace tpn

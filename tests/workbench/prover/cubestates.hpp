// Cubes of a small network against its states, one by one: which are inside, and what steps in.

#pragma once

#include <map>

#include "tests/workbench/proof/randomproofs.hpp"
#include "workbench/machine/sink.hpp"
#include "workbench/prover/cube.hpp"

namespace tpn {

// To which the variables of a state are known.
inline ClauseSink stateSink(const StateLayout& layout, Solver& solver) {
  ClauseSink sink(solver);
  sink.fresh(layout.size());
  return sink;
}

class CubeStates {
 public:
  explicit CubeStates(const Sample& s)
      : machine_(makeMachine(s.net)),
        layout_(StateLayout::capped(machine_)),
        words_(machine_, layout_),
        initial_(states::Explorer(s.scaled).initial()) {
    const states::Explorer explorer(s.scaled);
    for (const states::State& from : explorer.everything()) next_[from] = explorer.next(from);
  }

  static std::int64_t count(const Sample& s) {
    std::int64_t product = 1;
    const Machine machine = makeMachine(s.net);
    for (const Machine::Process& process : machine.processes) {
      std::int64_t sum = 0;
      for (const Machine::Location& location : process.locations) sum += location.cap + 1;
      product = std::min<std::int64_t>(product * sum, 1'000'000);
    }
    return product;
  }

  const Machine& machine() const { return machine_; }
  const StateLayout& layout() const { return layout_; }
  const Vocabulary& words() const { return words_; }
  const states::State& initial() const { return initial_; }
  // Every state, reachable or not, and what follows it.
  const std::map<states::State, std::vector<states::State>>& next() const { return next_; }

  bool inside(const Cube& cube, const states::State& s) const {
    return std::all_of(cube.begin(), cube.end(), [&](int l) { return holds(l, s); });
  }
  bool followed(const Cube& cube, const states::State& s) const {  // by a state inside
    const auto& all = next_.at(s);
    return std::any_of(all.begin(), all.end(), [&](const auto& to) { return inside(cube, to); });
  }
  // Does a state outside the cube step into it?
  bool entered(const Cube& cube) const {
    return std::any_of(next_.begin(), next_.end(), [&](const auto& entry) {
      return !inside(cube, entry.first) && followed(cube, entry.first);
    });
  }
  // Is every state of the first in the second?
  bool covered(const Cube& cube, const Cube& larger) const {
    return std::all_of(next_.begin(), next_.end(), [&](const auto& entry) {
      return !inside(cube, entry.first) || inside(larger, entry.first);
    });
  }

  Cube randomCube(Samples& random) const {
    Cube cube;
    for (std::size_t i = random.upTo(3) + 1; i > 0; --i) {
      const int variable =
          static_cast<int>(random.upTo(static_cast<std::size_t>(words_.variables()) - 1)) + 1;
      cube.push_back(random.upTo(1) == 0 ? variable : -variable);
    }
    return words_.normal(cube);
  }

 private:
  bool holds(int literal, const states::State& s) const {
    const Meaning& m = words_.meaning(literal);
    const auto& locations = machine_.processes[m.process].locations;
    const bool value =
        m.isClock ? s.clocks[m.process] >= m.value
                  : s.locations[m.process] == locations[static_cast<std::size_t>(m.value)].number;
    return value == (literal > 0);
  }

  Machine machine_;
  StateLayout layout_;
  Vocabulary words_;
  states::State initial_;
  std::map<states::State, std::vector<states::State>> next_;
};

}  // namespace tpn

#include "workbench/prover/facts.hpp"

#include "workbench/machine/atmostone.hpp"

namespace tpn {

namespace {

void addOneLocation(const Machine& machine, const StateLayout& layout, std::size_t process,
                    ClauseSink& sink) {
  if (fewEnoughForPairs(machine.processes[process].locations.size())) {
    Clauses clauses;
    tpn::addOneLocation(clauses, machine, layout, process);
    sink.addAt(clauses, 0);
    return;
  }
  const Clause some = locationsOf(machine, layout, process);
  sink.add(some);
  addAtMostOne(sink, some);
}

}  // namespace

void addFacts(const Machine& machine, const StateLayout& layout, ClauseSink& sink,
              const Checkpoint& checkpoint) {
  for (std::size_t p = 0; p < machine.processes.size(); ++p) {
    addOneLocation(machine, layout, p, sink);
    checkpoint();
  }
  sink.addAt(clockOrder(machine, layout), 0);
  checkpoint();
  sink.addAt(clockCaps(machine, layout), 0);
}

}  // namespace tpn

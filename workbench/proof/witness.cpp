// The invariant of a certificate as gates over the state of a machine.

#include <map>

#include "workbench/proof/machinecircuit.hpp"
#include "workbench/proof/partialsums.hpp"

namespace tpn {

namespace {

using Literal = Circuit::Literal;

class InvariantBuilder {
 public:
  InvariantBuilder(const Network& net, const MachineCircuit& from, Circuit& circuit,
                   const Checkpoint& checkpoint)
      : net_(net),
        machine_(from.machine),
        state_(from.state),
        circuit_(circuit),
        checkpoint_(checkpoint) {}

  Literal invariant(const Certificate& flat) {
    for (std::size_t p = 0; p < machine_.processes.size(); ++p) facts(p);
    for (const LinearInvariant& sum : flat.linear) {
      checkpoint_();
      parts_.push_back(holds(sum));
    }
    for (std::size_t i = 0; i < flat.clauses.size(); ++i) {
      checkpoint_.at(i);
      parts_.push_back(holds(flat.clauses[i]));
    }
    return circuit_.all(parts_);
  }

 private:
  // What every state obeys: one location, the order of a unary clock, no clock past its cap.
  void facts(std::size_t process) {
    const Machine::Process& p = machine_.processes[process];
    Literal earlier = Circuit::no;
    for (std::size_t rank = 0; rank < p.locations.size(); ++rank) {
      const Literal here = state_.at(process, rank);
      exclude(earlier, here);
      earlier = circuit_.either(earlier, here);
      const std::int64_t cap = p.locations[rank].cap;
      exclude(here, state_.reached(circuit_, process, cap + 1));
    }
    if (!state_.unary(process)) return;
    for (std::int64_t units = 2; units <= p.cap; ++units) {
      const Literal before = state_.reached(circuit_, process, units - 1);
      exclude(state_.reached(circuit_, process, units), Circuit::inverted(before));
    }
  }

  void exclude(Literal a, Literal b) { parts_.push_back(Circuit::inverted(circuit_.both(a, b))); }

  Literal atom(const Atom& atom) {
    const Literal positive =
        atom.kind == Atom::location
            ? state_.at(atom.process, rank(atom.process, static_cast<int>(atom.value)))
            : state_.reached(circuit_, atom.process, atom.value);
    return atom.positive ? positive : Circuit::inverted(positive);
  }

  std::size_t rank(std::size_t process, int location) const {
    return machine_.processes[process].rank(location);
  }

  Literal holds(const AtomClause& clause) {
    std::vector<Literal> some;
    for (const Atom& part : clause) some.push_back(atom(part));
    return circuit_.any(some);
  }

  // The partial sums, process by process: which of them it is. The check did without those that are
  // too many, too.
  Literal holds(const LinearInvariant& invariant) {
    const std::optional<PartialSums> parts = partialSums(net_, invariant);
    if (!parts) return Circuit::yes;
    std::map<std::int64_t, Literal> before{{0, Circuit::yes}};
    std::size_t i = 0;
    for (const auto& [process, add] : parts->addends) {
      std::map<std::int64_t, std::vector<Literal>> ways;
      ++i;
      for (const auto& [sum, is] : before)
        for (const auto& [location, by] : add)
          if (parts->sums[i].contains(sum + by))
            ways[sum + by].push_back(
                circuit_.both(is, state_.at(process, rank(process, location))));
      before.clear();
      for (auto& [sum, some] : ways) before[sum] = circuit_.any(some);
    }
    return before.contains(invariant.total) ? before[invariant.total] : Circuit::no;
  }

  const Network& net_;
  const Machine& machine_;
  const StateLiterals& state_;
  Circuit& circuit_;
  const Checkpoint& checkpoint_;
  std::vector<Literal> parts_;
};

}  // namespace

Circuit witnessCircuit(const Network& net, const MachineCircuit& machine, const Certificate& flat,
                       const Checkpoint& checkpoint) {
  Circuit witness = machine.circuit;
  const Literal invariant = InvariantBuilder(net, machine, witness, checkpoint).invariant(flat);
  witness.replaceBad(Circuit::inverted(invariant), "invariant");
  const auto named = [](Literal literal) { return "=" + std::to_string(literal); };
  for (std::size_t i = 0; i < witness.inputs().size(); ++i)
    witness.renameInput(i, named(witness.inputs()[i].literal));
  for (std::size_t i = 0; i < witness.latches().size(); ++i)
    witness.renameLatch(i, named(witness.latches()[i].literal));
  return witness;
}

}  // namespace tpn

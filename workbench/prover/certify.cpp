#include "workbench/prover/certify.hpp"

#include <cassert>

namespace tpn {

LinearInvariant linearOf(const Machine& machine, const PlaceInvariant& invariant) {
  LinearInvariant result;
  for (const auto& [process, rank, coefficient] : invariant.terms)
    result.coefficients[{process, machine.processes[process].locations[rank].number}] = coefficient;
  return result;
}

Generator generatorOf(const Machine& machine, const Symmetry& symmetry) {
  Generator result;
  for (std::size_t p = 0; p < machine.processes.size(); ++p) {
    const std::size_t image = symmetry.process[p];
    if (image != p) result.processes[p] = image;
    const auto& locations = machine.processes[p].locations;
    for (std::size_t l = 0; l < locations.size(); ++l) {
      const int number = machine.processes[image].locations[symmetry.ranks[p][l]].number;
      if (number != locations[l].number) result.locations[{p, locations[l].number}] = number;
    }
  }
  return result;
}

Certificate certificateOf(const Machine& machine, const StateLayout& layout,
                          const ProverResult& result, const std::vector<PlaceInvariant>& invariants,
                          const std::vector<Symmetry>& symmetries) {
  assert(result.answer == ProverResult::unreachable);
  const Vocabulary words(machine, layout);
  Certificate certificate;
  for (const PlaceInvariant& invariant : invariants)
    certificate.linear.push_back(linearOf(machine, invariant));
  if (result.symmetric)
    for (const Symmetry& s : symmetries) certificate.generators.push_back(generatorOf(machine, s));
  for (const Cube& cube : result.invariant) {
    AtomClause clause;
    for (const int literal : cube) {
      const auto& [process, isClock, value] = words.meaning(literal);
      const auto rank = static_cast<std::size_t>(value);
      clause.push_back({isClock ? Atom::clock : Atom::location, literal < 0, process,
                        isClock ? value : machine.processes[process].locations[rank].number});
    }
    certificate.clauses.push_back(clause);
  }
  return certificate;
}

}  // namespace tpn

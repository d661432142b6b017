#include "workbench/proof/certificate.hpp"

#include <algorithm>

#include "workbench/proof/orbits.hpp"

namespace tpn {

std::size_t Generator::image(std::size_t process) const {
  const auto moved = processes.find(process);
  return moved == processes.end() ? process : moved->second;
}

Spot Generator::image(Spot spot) const {
  const auto changed = locations.find(spot);
  return {image(spot.process), changed == locations.end() ? spot.location : changed->second};
}

Atom Generator::image(const Atom& atom) const {
  Atom result = atom;
  result.process = image(atom.process);
  if (atom.kind == Atom::location)
    result.value = image(Spot{atom.process, static_cast<int>(atom.value)}).location;
  return result;
}

AtomClause image(const Generator& g, const AtomClause& clause) {
  AtomClause result;
  result.reserve(clause.size());
  for (const Atom& atom : clause) result.push_back(g.image(atom));
  std::sort(result.begin(), result.end());
  return result;
}

LinearInvariant image(const Generator& g, const LinearInvariant& invariant) {
  LinearInvariant result;
  result.total = invariant.total;
  for (const auto& [spot, coefficient] : invariant.coefficients)
    result.coefficients[g.image(spot)] = coefficient;
  return result;
}

Certificate flattened(const Certificate& certificate, const Checkpoint& checkpoint) {
  Certificate flat;
  flat.clauses = closed(certificate.clauses, certificate.generators, checkpoint);
  flat.linear = closed(certificate.linear, certificate.generators, checkpoint);
  return flat;
}

}  // namespace tpn

#include "workbench/proof/orbits.hpp"

#include <algorithm>
#include <set>

namespace tpn {

namespace {

AtomClause normal(AtomClause clause) {
  std::sort(clause.begin(), clause.end());
  clause.erase(std::unique(clause.begin(), clause.end()), clause.end());
  return clause;
}

LinearInvariant normal(LinearInvariant invariant) { return invariant; }

struct Before {
  bool operator()(const AtomClause& a, const AtomClause& b) const { return a < b; }
  bool operator()(const LinearInvariant& a, const LinearInvariant& b) const {
    return a.total != b.total ? a.total < b.total : a.coefficients < b.coefficients;
  }
};

template <class Value>
std::vector<Value> closure(const std::vector<Value>& representatives,
                           const std::vector<Generator>& generators) {
  std::set<Value, Before> seen;
  std::vector<Value> all;
  for (const Value& value : representatives)
    if (seen.insert(normal(value)).second) all.push_back(normal(value));
  for (std::size_t next = 0; next < all.size(); ++next)
    for (const Generator& g : generators) {
      const Value other = image(g, all[next]);
      if (seen.insert(other).second) all.push_back(other);
    }
  return all;
}

}  // namespace

std::vector<AtomClause> closed(const std::vector<AtomClause>& representatives,
                               const std::vector<Generator>& generators) {
  return closure(representatives, generators);
}

std::vector<LinearInvariant> closed(const std::vector<LinearInvariant>& representatives,
                                    const std::vector<Generator>& generators) {
  return closure(representatives, generators);
}

}  // namespace tpn

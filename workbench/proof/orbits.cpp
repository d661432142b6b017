#include "workbench/proof/orbits.hpp"

#include <algorithm>
#include <set>
#include <unordered_set>

namespace tpn {

namespace {

// Which generators change anything about an atom: with swaps of neighbours most do not, and with
// all of them tried on each clause the closure of Fischer's 124 000 clauses at 100 processes takes
// twelve million images instead of one.
class Movers {
 public:
  explicit Movers(const std::vector<Generator>& generators) {
    for (std::size_t g = 0; g < generators.size(); ++g) {
      for (const auto& [process, to] : generators[g].processes) byProcess_[process].push_back(g);
      for (const auto& [spot, to] : generators[g].locations) bySpot_[spot].push_back(g);
    }
  }

  void collect(const Atom& atom, std::vector<std::size_t>& into) const {
    append(byProcess_, atom.process, into);
    if (atom.kind == Atom::location)
      append(bySpot_, Spot{atom.process, static_cast<int>(atom.value)}, into);
  }

 private:
  template <class Key>
  static void append(const std::map<Key, std::vector<std::size_t>>& lists, const Key& key,
                     std::vector<std::size_t>& into) {
    const auto list = lists.find(key);
    if (list != lists.end()) into.insert(into.end(), list->second.begin(), list->second.end());
  }

  std::map<std::size_t, std::vector<std::size_t>> byProcess_;
  std::map<Spot, std::vector<std::size_t>> bySpot_;
};

struct HashOfClause {
  std::size_t operator()(const AtomClause& clause) const {
    std::uint64_t hash = clause.size();
    for (const Atom& atom : clause) {
      const auto value = static_cast<std::uint64_t>(atom.value);
      hash ^= value * 4U + static_cast<std::uint64_t>(atom.kind) * 2U + (atom.positive ? 1U : 0U);
      hash *= 0x9e3779b97f4a7c15U;
      hash ^= atom.process + (hash >> 29U);
      hash *= 0xbf58476d1ce4e5b9U;
    }
    return hash ^ (hash >> 32U);
  }
};

AtomClause normal(AtomClause clause) {
  std::sort(clause.begin(), clause.end());
  clause.erase(std::unique(clause.begin(), clause.end()), clause.end());
  return clause;
}

std::vector<std::size_t> moversOf(const AtomClause& clause, const Movers& movers) {
  std::vector<std::size_t> found;
  for (const Atom& atom : clause) movers.collect(atom, found);
  std::sort(found.begin(), found.end());
  found.erase(std::unique(found.begin(), found.end()), found.end());
  return found;
}

struct Before {
  bool operator()(const LinearInvariant& a, const LinearInvariant& b) const {
    return a.total != b.total ? a.total < b.total : a.coefficients < b.coefficients;
  }
};

}  // namespace

std::vector<AtomClause> closed(const std::vector<AtomClause>& representatives,
                               const std::vector<Generator>& generators,
                               const Checkpoint& checkpoint) {
  const Movers movers(generators);
  std::unordered_set<AtomClause, HashOfClause> seen;
  std::vector<AtomClause> all;
  const auto put = [&](AtomClause clause) {
    if (seen.insert(clause).second) all.push_back(std::move(clause));
  };
  for (const AtomClause& clause : representatives) put(normal(clause));
  for (std::size_t next = 0; next < all.size(); ++next) {
    if (next % 256 == 0) checkpoint();
    for (const std::size_t g : moversOf(all[next], movers)) put(image(generators[g], all[next]));
  }
  return all;
}

std::vector<LinearInvariant> closed(const std::vector<LinearInvariant>& representatives,
                                    const std::vector<Generator>& generators,
                                    const Checkpoint& checkpoint) {
  std::set<LinearInvariant, Before> seen;
  std::vector<LinearInvariant> all;
  const auto put = [&](LinearInvariant invariant) {
    if (seen.insert(invariant).second) all.push_back(std::move(invariant));
  };
  for (const LinearInvariant& invariant : representatives) put(invariant);
  // NOLINTNEXTLINE(modernize-loop-convert): it grows meanwhile
  for (std::size_t next = 0; next < all.size(); ++next)
    for (const Generator& g : generators) {
      checkpoint();
      put(image(g, all[next]));
    }
  return all;
}

}  // namespace tpn

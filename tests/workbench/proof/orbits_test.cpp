// Clauses and linear invariants with all their images.

#include "workbench/proof/orbits.hpp"

#include <gtest/gtest.h>

#include <random>
#include <set>

#include "tests/workbench/proof/fischer.hpp"

namespace tpn {
namespace {

constexpr std::size_t processes = 4;
constexpr std::size_t variable = 4;

// All permutations of Fischer's processes: what the swaps of neighbours generate.
std::vector<Generator> allPermutations() {
  std::vector<Generator> all;
  std::vector<std::size_t> to{0, 1, 2, 3};
  do {
    Generator g;
    for (std::size_t p = 0; p < processes; ++p) {
      if (to[p] == p) continue;
      g.processes[p] = to[p];
      g.locations[{variable, number(p)}] = number(to[p]);
    }
    all.push_back(g);
  } while (std::next_permutation(to.begin(), to.end()));
  return all;
}

template <class Item>
std::vector<Item> imagesOf(const Item& item) {
  std::vector<Item> all;
  for (const Generator& g : allPermutations()) {
    const Item other = image(g, item);
    if (std::find(all.begin(), all.end(), other) == all.end()) all.push_back(other);
  }
  return all;
}

AtomClause randomClause(std::mt19937& random) {
  const auto below = [&](std::size_t n) { return static_cast<std::size_t>(random()) % n; };
  AtomClause clause;
  for (std::size_t i = 1 + below(4); i > 0; --i) {
    const std::size_t process = below(processes + 1);
    if (below(3) == 0 && process < processes)
      clause.push_back({Atom::clock, below(2) == 0, process, static_cast<int>(1 + below(3))});
    else
      clause.push_back({Atom::location, below(2) == 0, process, static_cast<int>(below(5))});
  }
  return clause;
}

TEST(Closed, ClausesAreTheImagesUnderAllOfTheGroup) {
  std::mt19937 random(1);
  for (int i = 0; i < 200; ++i) {
    const AtomClause clause = randomClause(random);
    const auto found = closed(std::vector<AtomClause>{clause}, fischer::swaps(processes));
    std::set<AtomClause> expected;
    for (const AtomClause& other : imagesOf(clause)) {
      AtomClause sorted = other;
      sorted.erase(std::unique(sorted.begin(), sorted.end()), sorted.end());
      expected.insert(sorted);
    }
    EXPECT_EQ(std::set<AtomClause>(found.begin(), found.end()), expected) << i;
    EXPECT_EQ(found.size(), expected.size()) << i;
  }
}

TEST(Closed, RepresentativesComeFirstAndOnce) {
  const Atom first{Atom::location, true, 0, 5};
  const Atom second{Atom::location, true, 1, 5};
  const std::vector<AtomClause> given{{second, first}, {second}, {first, second}, {first}};
  const auto found = closed(given, fischer::swaps(2));
  EXPECT_EQ(found, (std::vector<AtomClause>{{first, second}, {second}, {first}}));
}

TEST(Closed, LinearInvariantsAreTheImagesUnderAllOfTheGroup) {
  const LinearInvariant one{{{{0, 5}, 2}, {{1, 5}, -1}, {{variable, 1}, 3}}, 1};
  const auto found = closed(std::vector<LinearInvariant>{one}, fischer::swaps(processes));
  EXPECT_EQ(found.size(), 12U);  // which two processes
  for (const LinearInvariant& other : imagesOf(one))
    EXPECT_NE(std::find(found.begin(), found.end(), other), found.end());
}

TEST(Closed, EndsAtACheckpoint) {
  int calls = 0;
  const Checkpoint third([&] { return ++calls == 3; });
  const LinearInvariant one{{{{0, 5}, 2}}, 1};
  EXPECT_THROW(closed(std::vector<LinearInvariant>{one}, fischer::swaps(8), third), Interrupted);
}

}  // namespace
}  // namespace tpn

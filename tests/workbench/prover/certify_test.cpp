// What the prover knows in the numbers of the network: locations as in the file, not ranks.

#include "workbench/prover/certify.hpp"

#include <gtest/gtest.h>

#include "workbench/proof/plainchecks.hpp"

namespace tpn {
namespace {

// Two processes with locations 0, 4, 9, and one with 0, 2, 7 whose 2 and 7 stand for them.
Network gaps() {
  Network net;
  net.processes = {{{0, 4, 9}, {}}, {{0, 4, 9}, {}}, {{0, 2, 7}, {}}};
  for (const std::size_t p : {0U, 1U}) {
    net.transitions.push_back({{0, {}}, {{p, 0, 4}, {2, 0, p == 0 ? 2 : 7}}});
    net.transitions.push_back({{2, 4}, {{p, 4, 9}}});
  }
  return net;
}

struct Gaps {
  Network net = gaps();
  Machine machine = makeMachine(net);
  StateLayout layout = StateLayout::capped(machine);
};

TEST(Certify, TellsGeneratorsByTheNumbersOfLocations) {
  const Gaps g;
  const Generator told = generatorOf(g.machine, {{1, 0, 2}, {{0, 1, 2}, {0, 1, 2}, {0, 2, 1}}});
  EXPECT_EQ(told, (Generator{{{0, 1}, {1, 0}}, {{{2, 2}, 7}, {{2, 7}, 2}}}));
  EXPECT_EQ(symmetryComplaint(g.net, {told}), "");
}

TEST(Certify, TellsInvariantsByTheNumbersOfLocations) {
  const Gaps g;
  for (const PlaceInvariant& invariant : placeInvariants(g.machine))
    EXPECT_EQ(linearComplaint(g.net, {linearOf(g.machine, invariant)}), "");
  EXPECT_EQ(linearOf(g.machine, {{{0, 2, -3}, {2, 1, 5}}}),
            (LinearInvariant{{{{0, 9}, -3}, {{2, 2}, 5}}, 0}));
}

TEST(Certify, TellsCubesAsClausesThatExcludeThem) {
  const Gaps g;
  ProverResult result;
  result.answer = ProverResult::unreachable;
  result.invariant = {{g.layout.location(0, 2), -g.layout.clock(0, 2), -g.layout.location(2, 1)}};
  const Certificate told = certificateOf(g.machine, g.layout, result, {}, {});
  EXPECT_EQ(told.clauses, (std::vector<AtomClause>{{{Atom::location, false, 0, 9},
                                                    {Atom::clock, true, 0, 2},
                                                    {Atom::location, true, 2, 2}}}));
  EXPECT_TRUE(told.generators.empty());
}

TEST(Certify, LeavesOutASymmetryThatWasGivenUp) {
  const Gaps g;
  ProverResult result;
  result.answer = ProverResult::unreachable;
  const std::vector<Symmetry> found{{{1, 0, 2}, {{0, 1, 2}, {0, 1, 2}, {0, 2, 1}}}};
  EXPECT_TRUE(certificateOf(g.machine, g.layout, result, {}, found).generators.empty());
  result.symmetric = true;
  EXPECT_EQ(certificateOf(g.machine, g.layout, result, {}, found).generators.size(), 1U);
}

}  // namespace
}  // namespace tpn

// What is checked of a certificate without a solver.

#include "workbench/proof/plainchecks.hpp"

#include <gtest/gtest.h>

#include "tests/workbench/network/smallnets.hpp"
#include "tests/workbench/proof/fischer.hpp"
#include "workbench/proof/checker.hpp"

namespace tpn {
namespace {

// Two guests who come (1) and go (0) one by one, and who counts them: 0, 1, 2.
Network counted() {
  Network net;
  net.processes = {{{0, 1}, {}}, {{0, 1}, {}}, {{0, 1, 2}, {{2, {1}}}}};
  for (std::size_t guest = 0; guest < 2; ++guest)
    for (const int before : {0, 1}) {
      net.transitions.push_back({{1, 3}, {{guest, 0, 1}, {2, before, before + 1}}});
      net.transitions.push_back({{2, {}}, {{guest, 1, 0}, {2, before + 1, before}}});
    }
  return net;
}

const LinearInvariant theCount{{{{0, 1}, 1}, {{1, 1}, 1}, {{2, 1}, -1}, {{2, 2}, -2}}, 0};

std::string linearComplaintOf(const LinearInvariant& changed) {
  return linearComplaint(counted(), {theCount, changed});
}

TEST(LinearInvariants, HoldWhereNoTransitionChangesThem) {
  EXPECT_EQ(linearComplaint(counted(), {theCount}), "");
}

TEST(LinearInvariants, FailWithAnyCoefficientChanged) {
  for (const auto& [spot, c] : theCount.coefficients) {
    LinearInvariant changed = theCount;
    changed.coefficients[spot] += 1;
    EXPECT_NE(linearComplaintOf(changed), "") << spot.process << " " << spot.location;
  }
}

TEST(LinearInvariants, FailWithAnotherTotal) {
  LinearInvariant changed = theCount;
  changed.total = 1;
  EXPECT_EQ(linearComplaintOf(changed),
            "linear invariant 2 has another total in the initial state");
}

TEST(LinearInvariants, AreNoneWhereOneTransitionChangesThem) {
  LinearInvariant changed = theCount;
  changed.coefficients.erase({1, 1});
  EXPECT_EQ(linearComplaintOf(changed), "linear invariant 2 is changed by transition 5");
}

// That wraps around in 64 bits: the sums are exact.
TEST(LinearInvariants, AreSummedExactly) {
  const std::int64_t huge = std::int64_t{1} << 62;
  Network net;
  net.processes.assign(4, {{0, 1}, {}});
  net.transitions = {{{}, {{0, 0, 1}, {1, 0, 1}, {2, 0, 1}, {3, 0, 1}}}};
  const LinearInvariant wraps{{{{0, 1}, huge}, {{1, 1}, huge}, {{2, 1}, huge}, {{3, 1}, huge}}, 0};
  EXPECT_EQ(linearComplaint(net, {wraps}), "linear invariant 1 is changed by transition 1");
}

TEST(LinearInvariants, ProveWhatNeedsCounting) {
  Network net = counted();
  net.processes[2].locations.insert(3);
  net.processes[2].labels = {{2, {1}}};
  net.processes[0].labels = {{0, {2}}};
  const Goal both{Property{"p1p2&",
                           {{PropertyItem::proposition, 1},
                            {PropertyItem::proposition, 2},
                            {PropertyItem::conjunction, 0}},
                           1}};
  EXPECT_EQ(recheck(net, both, Certificate{{theCount}, {}, {}}, {}).result, Recheck::confirmed);
  EXPECT_EQ(recheck(net, both, Certificate{{}, {}, {}}, {}).complaint, "a goal state is inside");
}

std::string symmetryComplaintOf(const Generator& g) {
  return symmetryComplaint(fischer::network(3), {g});
}

Generator swap() { return fischer::swaps(3).front(); }

TEST(Generators, OfFischerAreAutomorphisms) { EXPECT_EQ(symmetryComplaintOf(swap()), ""); }

TEST(Generators, HaveToPermute) {
  const std::string complaint = "generator 1 does not permute the processes";
  Generator g = swap();
  g.processes[0] = 0;
  EXPECT_EQ(symmetryComplaintOf(g), complaint);
  g = swap();
  g.processes.erase(1);
  EXPECT_EQ(symmetryComplaintOf(g), complaint);
  g = swap();
  g.processes[17] = 17;
  EXPECT_EQ(symmetryComplaintOf(g), complaint);
}

TEST(Generators, HaveToMapLocationsOneToOne) {
  const std::string complaint = "generator 1 does not map the locations one to one, 0 to 0";
  Generator g = swap();
  g.locations[{3, 1}] = 1;
  EXPECT_EQ(symmetryComplaintOf(g), complaint);
  g = swap();
  g.locations[{3, 1}] = 17;
  EXPECT_EQ(symmetryComplaintOf(g), complaint);
  g = swap();
  g.locations[{3, 17}] = 17;
  EXPECT_EQ(symmetryComplaintOf(g), complaint);
}

TEST(Generators, HaveToKeepTheInitialLocation) {
  Generator g;
  g.locations = {{{3, 0}, 1}, {{3, 1}, 0}};
  EXPECT_EQ(symmetryComplaintOf(g), "generator 1 does not map the locations one to one, 0 to 0");
}

TEST(Generators, HaveToMapTransitions) {
  Generator g = swap();
  g.locations.clear();  // the variable keeps its value
  EXPECT_EQ(symmetryComplaintOf(g), "generator 1 does not map the transitions onto themselves");
  Network net = fischer::network(3);
  net.transitions[1].interval.latest = 2;  // of one process only
  EXPECT_NE(symmetryComplaint(net, {swap()}), "");
  EXPECT_EQ(symmetryComplaint(net, {fischer::swaps(3).back()}), "");
}

// Two processes that do the same with a third one, but for how the one of them does it.
TEST(Generators, HaveToMapMovesThatDoNotCountOrResetOntoSuch) {
  const Generator swapped{{{0, 1}, {1, 0}}, {}};
  Network net;
  net.processes.assign(3, {{0}, {}});
  net.transitions = {{{1, 2}, {{0, 0, 0}, {2, 0, 0}}}, {{1, 2}, {{1, 0, 0}, {2, 0, 0}}}};
  EXPECT_EQ(symmetryComplaint(net, {swapped}), "");
  for (bool Move::*const flag : {&Move::counts, &Move::resets}) {
    Network one = net;
    one.transitions[0].moves[0].*flag = false;
    EXPECT_NE(symmetryComplaint(one, {swapped}), "");
    one.transitions[1].moves[0].*flag = false;
    EXPECT_EQ(symmetryComplaint(one, {swapped}), "");
  }
}

TEST(Shapes, NameWhatDoesNotExist) {
  const Network net = counted();
  const auto complaint = [&](const Atom& atom) {
    return shapeComplaint(net, Certificate{{}, {}, {{}, {atom}}});
  };
  EXPECT_EQ(complaint({Atom::location, true, 2, 2}), "");
  EXPECT_EQ(complaint({Atom::location, true, 1, 2}), "clause 2 says 2@2: no such thing");
  EXPECT_EQ(complaint({Atom::clock, false, 3, 1}), "clause 2 says -4>=1: no such thing");
  EXPECT_EQ(complaint({Atom::clock, false, 2, 0}), "clause 2 says -3>=0: no such thing");
  EXPECT_NE(shapeComplaint(net, Certificate{{{{{{1, 2}, 0}}, 0}}, {}, {}}), "");
}

TEST(InitialState, IsInsideEachClause) {
  EXPECT_EQ(
      initialComplaint(counted(), {{{Atom::location, true, 0, 0}}, {{Atom::clock, false, 0, 1}}}),
      "");
  EXPECT_EQ(
      initialComplaint(counted(), {{{Atom::location, true, 0, 1}, {Atom::clock, true, 1, 1}}}),
      "the initial state is not inside: clause 1@1 2>=1");
  EXPECT_NE(initialComplaint(counted(), {{}}), "");
}

TEST(Clauses, AreToldWithNamesToo) {
  Network net = counted();
  const AtomClause clause{{Atom::location, false, 0, 1}, {Atom::clock, true, 2, 4}};
  EXPECT_EQ(text(net, clause), "clause -1@1 3>=4");
  net.names.processes[2] = "count";
  net.names.locations[{0, 1}] = "inside";
  EXPECT_EQ(text(net, clause), "clause -1@1 3>=4 (-1.inside count>=4)");
}

}  // namespace
}  // namespace tpn

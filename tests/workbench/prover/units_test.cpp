// The prover's parts one by one, on Fischer's protocol with three processes: cubes, orbits, what is
// redundant under a symmetry, what an obligation is about, frames, facts.

#include <gtest/gtest.h>

#include <set>

#include "tests/workbench/proof/fischer.hpp"
#include "tests/workbench/prover/cubestates.hpp"
#include "workbench/machine/symmetry.hpp"
#include "workbench/prover/facts.hpp"
#include "workbench/prover/frames.hpp"
#include "workbench/prover/nearness.hpp"

namespace tpn {
namespace {

constexpr std::size_t variable = 3;  // the process that is data

struct Fischer {
  Network net = fischer::network(3);
  Machine machine = makeMachine(net);
  StateLayout layout = StateLayout::capped(machine);
  Vocabulary words{machine, layout};
  std::vector<Symmetry> symmetric = symmetries(machine);
  std::vector<Orbits::Permutation> permutations;
  Orbits orbits;

  Fischer() {
    for (const Symmetry& s : symmetric) permutations.push_back(permutationOf(machine, layout, s));
    orbits = Orbits(permutations);
  }
  int at(std::size_t process, std::size_t rank) const { return layout.location(process, rank); }
  int clock(std::size_t process, std::int64_t least) const { return layout.clock(process, least); }
};

TEST(Cube, NormalLeavesOutWhatFollows) {
  const Fischer f;
  EXPECT_EQ(f.words.normal({f.clock(0, 1), f.clock(0, 2), -f.clock(0, 3), f.at(0, 3), -f.at(0, 1)}),
            (Cube{f.at(0, 3), f.clock(0, 2), -f.clock(0, 3)}));
  EXPECT_EQ(f.words.normal({-f.clock(1, 3), -f.clock(1, 2), -f.at(1, 2), -f.at(1, 1), -f.at(0, 0)}),
            (Cube{-f.at(0, 0), -f.at(1, 1), -f.at(1, 2), -f.clock(1, 2)}));
}

TEST(Cube, MeaningsAreThoseOfTheLayout) {
  const Fischer f;
  for (int v = 1; v <= f.words.variables(); ++v) {
    const Meaning& m = f.words.meaning(v);
    EXPECT_EQ(v, m.isClock ? f.clock(m.process, m.value)
                           : f.at(m.process, static_cast<std::size_t>(m.value)));
    EXPECT_EQ(f.words.initially(v), !m.isClock && m.value == 0);
    EXPECT_EQ(f.words.initially(-v), !f.words.initially(v));
    EXPECT_EQ(f.words.holdsOnArrival(v, 0), !m.isClock && m.value == 0);
  }
}

TEST(Orbits, OfOneProcessAndTheVariableAreAllPairs) {
  const Fischer f;
  // Process p and the variable at the number of q: three where p = q, six where not.
  EXPECT_EQ(f.orbits.of({f.at(0, 5), f.at(variable, 1)}, 100)->size(), 3U);
  EXPECT_EQ(f.orbits.of({f.at(0, 5), f.at(variable, 2)}, 100)->size(), 6U);
  EXPECT_EQ(f.orbits.of({f.at(variable, 0)}, 100)->size(), 1U);
}

TEST(Orbits, AreClosedAndAlike) {
  const Fischer f;
  const auto all = *f.orbits.of({f.at(0, 3), f.clock(0, 2), f.at(1, 5), f.at(variable, 2)}, 100);
  const std::set<Cube> known(all.begin(), all.end());
  EXPECT_EQ(known.size(), 6U);
  for (const Cube& cube : all) {
    const auto again = *f.orbits.of(cube, 100);
    EXPECT_EQ(std::set<Cube>(again.begin(), again.end()), known);
  }
}

TEST(Orbits, LargerOnesThanMayBeAreNone) {
  const Fischer f;
  EXPECT_TRUE(f.orbits.of({f.at(0, 5)}, 3));
  EXPECT_FALSE(f.orbits.of({f.at(0, 5)}, 2));
}

// Every transition that is said to be redundant is the image of one that is not, under a
// permutation that leaves the cube alone. All six permutations are tried.
TEST(Interchange, RedundantTransitionsAreImagesOfOthers) {
  const Fischer f;
  Interchange interchange(f.machine, f.layout, f.words, f.permutations, {});
  ASSERT_EQ(interchange.families(), 1U);
  std::set<Symmetry, decltype([](const Symmetry& a, const Symmetry& b) {
             return std::tie(a.process, a.ranks) < std::tie(b.process, b.ranks);
           })>
      group(f.symmetric.begin(), f.symmetric.end());
  for (std::size_t size = 0; size != group.size();) {
    size = group.size();
    for (const Symmetry& a : std::vector<Symmetry>(group.begin(), group.end()))
      for (const Symmetry& b : f.symmetric) {
        Symmetry both = a;
        for (std::size_t p = 0; p < both.process.size(); ++p) {
          both.process[p] = b.process[a.process[p]];
          for (std::size_t& rank : both.ranks[p]) rank = b.ranks[a.process[p]][rank];
        }
        group.insert(both);
      }
  }
  ASSERT_EQ(group.size(), 6U);
  const auto shape = [](const Machine::Transition& t, const Symmetry& s) {
    std::set<std::tuple<std::size_t, std::size_t, std::size_t>> moves;
    for (const auto& [p, source, target, counts, resets] : t.moves)
      moves.emplace(s.process[p], s.ranks[p][source], s.ranks[p][target]);
    return std::tuple(t.earliest, t.latest, moves);
  };
  int redundant = 0;
  for (const Cube& cube : {Cube{f.at(0, 5)}, Cube{f.at(variable, 0)}, Cube{f.at(variable, 2)},
                           Cube{f.at(1, 3), -f.clock(1, 2), f.at(2, 1)}}) {
    interchange.pin(cube);
    for (std::size_t t = 0; t < f.machine.transitions.size(); ++t) {
      if (!interchange.redundant(t)) continue;
      ++redundant;
      bool found = false;
      for (const Symmetry& s : group) {
        const Orbits::Permutation moved = permutationOf(f.machine, f.layout, s);
        if (!std::all_of(cube.begin(), cube.end(), [&](int l) {
              return moved[static_cast<std::size_t>(std::abs(l))] == std::abs(l);
            }))
          continue;
        Symmetry same = s;
        for (std::size_t p = 0; p < same.process.size(); ++p) {
          same.process[p] = p;
          for (std::size_t r = 0; r < same.ranks[p].size(); ++r) same.ranks[p][r] = r;
        }
        for (std::size_t u = 0; u < f.machine.transitions.size(); ++u)
          found = found || (!interchange.redundant(u) && shape(f.machine.transitions[u], s) ==
                                                             shape(f.machine.transitions[t], same));
      }
      EXPECT_TRUE(found) << "transition " << t;
    }
  }
  EXPECT_GT(redundant, 0);
}

// What one of two swaps of processes does to data beside is none of what its processes own: it
// could be done alone. Taken for theirs, each way of the data would be one that another stands for.
TEST(Interchange, IsNoneWhereASwapDoesMoreThanItsProcessesNeed) {
  Network net;
  net.processes.assign(3, {{0, 1}, {}});
  net.processes.push_back({{0, 1, 2}, {}});
  for (std::size_t p = 0; p < 3; ++p) net.transitions.push_back({{0, {}}, {{p, 0, 1}}});
  for (const int place : {1, 2}) net.transitions.push_back({{0, {}}, {{variable, 0, place}}});
  const Machine machine = makeMachine(net);
  const StateLayout layout = StateLayout::capped(machine);
  const std::vector<std::size_t> ranks{0, 1};
  const Symmetry more{{1, 0, 2, 3}, {ranks, ranks, ranks, {0, 2, 1}}};
  const Symmetry bare{{2, 1, 0, 3}, {ranks, ranks, ranks, {0, 1, 2}}};
  ASSERT_TRUE(isSymmetry(machine, more) && isSymmetry(machine, bare));
  Interchange interchange(
      machine, layout, Vocabulary(machine, layout),
      {permutationOf(machine, layout, more), permutationOf(machine, layout, bare)}, {});
  EXPECT_EQ(interchange.families(), 0U);
  interchange.pin({layout.location(0, 1)});
  EXPECT_FALSE(interchange.redundant(3) && interchange.redundant(4));
}

TEST(Nearness, MovesAddTheirProcesses) {
  const Fischer f;
  const Nearness nearness(f.machine, f.words);
  const Cube cube{f.at(0, 5), f.clock(1, 1), f.at(variable, 2)};
  EXPECT_EQ(nearness.of(cube), (Processes{0, 1, variable}));
  EXPECT_EQ(nearness.with({1}, {0, 3}), (Processes{1}));               // a delay moves none
  EXPECT_EQ(nearness.with({1}, {0, 0}), (Processes{0, 1, variable}));  // 0 asks the variable
  EXPECT_EQ(nearness.part(cube, {0, 2}), (Cube{f.at(0, 5)}));
}

TEST(Nearness, DistancesCountTransitions) {
  const Fischer f;
  const Nearness nearness(f.machine, f.words);
  const Cube cube{f.at(0, 5), f.at(1, 5)};
  EXPECT_TRUE(nearness.distances(cube, {0, 1}).empty());
  EXPECT_EQ(nearness.distances(cube, {0}), (std::vector<std::size_t>{0, 2, 2, 1}));
}

class FramesOfFischer : public testing::Test {
 protected:
  bool has(std::size_t level, const Cube& cube) {
    solver_->assume(frames_.frame(level));
    for (const int literal : cube) solver_->assume(literal);
    return solver_->solve() == Solver::Result::satisfiable;
  }

  Fischer f_;
  std::unique_ptr<Solver> solver_ = makeCadical(Use::manyShortSearches);
  ClauseSink sink_ = stateSink(f_.layout, *solver_);
  Frames frames_{f_.words, f_.orbits, 100, sink_};
};

TEST_F(FramesOfFischer, TheFirstIsTheInitialState) {
  frames_.openTo(1);
  EXPECT_TRUE(has(0, {f_.at(0, 0), f_.at(variable, 0)}));
  for (int v = 1; v <= f_.words.variables(); ++v)
    EXPECT_EQ(has(0, {v}), f_.words.initially(v)) << v;
  EXPECT_TRUE(has(1, {f_.at(0, 5)}));
}

TEST_F(FramesOfFischer, ClausesHoldUpToTheirLevelWithAllImages) {
  frames_.openTo(3);
  frames_.learn({f_.at(0, 5)}, 2);
  for (const std::size_t process : {0U, 1U, 2U}) {
    EXPECT_FALSE(has(1, {f_.at(process, 5)}));
    EXPECT_FALSE(has(2, {f_.at(process, 5)}));
    EXPECT_TRUE(has(3, {f_.at(process, 5)}));
  }
  EXPECT_EQ(frames_.clauses(), 3);
  EXPECT_TRUE(frames_.empty(1));
  EXPECT_FALSE(frames_.empty(2));
  frames_.raise(0, 3);
  EXPECT_FALSE(has(3, {f_.at(2, 5)}));
  EXPECT_TRUE(frames_.empty(2));
}

TEST_F(FramesOfFischer, NoOrbitIsCut) {
  frames_.openTo(2);
  Frames small(f_.words, f_.orbits, 2, sink_);
  small.openTo(2);
  EXPECT_THROW(small.learn({f_.at(0, 5)}, 1), OrbitTooLarge);
}

TEST(Facts, ProcessesOfManyLocationsAreInOne) {
  Network net;
  net.processes.resize(1);
  for (int l = 0; l < 300; ++l) net.processes[0].locations.insert(3 * l);
  net.transitions = {{{0, {}}, {{0, 0, 3}}}};
  const Machine machine = makeMachine(net);
  const StateLayout layout = StateLayout::capped(machine);
  const auto solver = makeCadical(Use::manyShortSearches);
  ClauseSink sink(*solver);
  sink.fresh(layout.size());
  addFacts(machine, layout, sink, {});
  EXPECT_LT(sink.clauses(), 2000);
  for (std::size_t l = 0; l < 300; l += 7) {
    for (std::size_t m = 0; m < 300; ++m)
      if (m != l) solver->assume(-layout.location(0, m));
    ASSERT_EQ(solver->solve(), Solver::Result::satisfiable);
    EXPECT_TRUE(solver->value(layout.location(0, l)));
    solver->assume(layout.location(0, l));
    solver->assume(layout.location(0, (l + 150) % 300));
    EXPECT_EQ(solver->solve(), Solver::Result::unsatisfiable);
  }
}

}  // namespace
}  // namespace tpn

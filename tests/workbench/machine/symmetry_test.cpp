// Symmetries of small networks, against all maps of processes and locations that there are.

#include "workbench/machine/symmetry.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <numeric>
#include <set>

#include "tests/workbench/network/smallnets.hpp"
#include "tests/workbench/proof/fischer.hpp"

namespace tpn {
namespace {

// Two processes that do the same with a third one; each can as well do it alone, so that all clocks
// have the same caps.
Network twins() {
  Network net;
  net.processes.assign(3, {{0, 1}, {}});
  for (const std::size_t p : {0U, 1U}) {
    net.transitions.push_back({{1, 2}, {{p, 0, 0}, {2, 0, 1}}});
    net.transitions.push_back({{1, 2}, {{p, 0, 0}}});
  }
  return net;
}

const Symmetry swapped{{1, 0, 2}, {{0, 1}, {0, 1}, {0, 1}}};

TEST(Symmetry, SwapsProcessesThatDoTheSame) {
  EXPECT_EQ(symmetries(makeMachine(twins())), std::vector<Symmetry>{swapped});
  EXPECT_TRUE(isSymmetry(makeMachine(twins()), swapped));
}

TEST(Symmetry, TellsMovesThatDoNotCountOrReset) {
  for (bool Move::*const flag : {&Move::counts, &Move::resets}) {
    Network net = twins();
    net.transitions[0].moves[0].*flag = false;
    EXPECT_TRUE(symmetries(makeMachine(net)).empty());
    EXPECT_FALSE(isSymmetry(makeMachine(net), swapped));
    net.transitions[2].moves[0].*flag = false;
    EXPECT_EQ(symmetries(makeMachine(net)), std::vector<Symmetry>{swapped});
  }
}

using Permutation = std::vector<std::size_t>;

Permutation identity(std::size_t size) {
  Permutation result(size);
  std::iota(result.begin(), result.end(), 0U);
  return result;
}

Symmetry identity(const Machine& machine) {
  Symmetry result{identity(machine.processes.size()), {}};
  for (const Machine::Process& process : machine.processes)
    result.ranks.push_back(identity(process.locations.size()));
  return result;
}

// Every bijection of processes with one of locations for each, whether it fits or not.
void forEachMap(const Machine& machine, const std::function<void(const Symmetry&)>& look) {
  Symmetry map = identity(machine);
  const std::function<void(std::size_t)> fill = [&](std::size_t p) {
    if (p == map.ranks.size()) return look(map);
    do fill(p + 1);
    while (std::next_permutation(map.ranks[p].begin(), map.ranks[p].end()));
  };
  do fill(0);
  while (std::next_permutation(map.process.begin(), map.process.end()));
}

// The definition: locations go to locations, initial ones to initial ones, transitions to
// transitions, as often as they are there.
bool mapsOntoItself(const Network& net, const Machine& machine, const Symmetry& s) {
  for (std::size_t p = 0; p < machine.processes.size(); ++p) {
    const Machine::Process& to = machine.processes[s.process[p]];
    if (to.locations.size() != s.ranks[p].size()) return false;
    if (s.ranks[p][machine.processes[p].initial] != to.initial) return false;
  }
  using Value = std::tuple<std::int64_t, std::optional<std::int64_t>,
                           std::set<std::tuple<std::size_t, std::size_t, std::size_t, bool, bool>>>;
  std::multiset<Value> before;
  std::multiset<Value> after;
  for (const Transition& t : net.transitions) {
    Value from{t.interval.earliest, t.interval.latest, {}};
    Value to = from;
    for (const Move& m : t.moves) {
      const Machine::Process& process = machine.processes[m.process];
      const std::size_t source = process.rank(m.source);
      const std::size_t target = process.rank(m.target);
      const auto& ranks = s.ranks[m.process];
      std::get<2>(from).emplace(m.process, source, target, m.counts, m.resets);
      std::get<2>(to).emplace(s.process[m.process], ranks[source], ranks[target], m.counts,
                              m.resets);
    }
    before.insert(from);
    after.insert(to);
  }
  return before == after;
}

bool before(const Symmetry& a, const Symmetry& b) {
  return std::tie(a.process, a.ranks) < std::tie(b.process, b.ranks);
}
using Group = std::set<Symmetry, decltype(&before)>;

Symmetry then(const Symmetry& first, const Symmetry& second) {
  Symmetry both = first;
  for (std::size_t p = 0; p < both.process.size(); ++p) {
    both.process[p] = second.process[first.process[p]];
    for (std::size_t& rank : both.ranks[p]) rank = second.ranks[first.process[p]][rank];
  }
  return both;
}

Group generated(const Machine& machine, const std::vector<Symmetry>& generators) {
  Group group({identity(machine)}, &before);
  std::vector<Symmetry> open{identity(machine)};
  while (!open.empty()) {
    const Symmetry next = open.back();
    open.pop_back();
    for (const Symmetry& generator : generators)
      if (group.insert(then(next, generator)).second) open.push_back(then(next, generator));
  }
  return group;
}

// One random process twice beside another one, so that there is something to find.
Network doubled(const Network& net) {
  Network result = net;
  result.processes.resize(2);
  result.processes.push_back(result.processes[1]);
  result.transitions.clear();
  for (const Transition& t : net.transitions) {
    Transition copy = t;
    std::erase_if(copy.moves, [](const Move& m) { return m.process > 1; });
    const auto counts = [](const Move& m) { return m.counts; };
    if (std::none_of(copy.moves.begin(), copy.moves.end(), counts)) continue;
    result.transitions.push_back(copy);
    for (Move& m : copy.moves)
      if (m.process == 1) m.process = 2;
    result.transitions.push_back(copy);
  }
  return result;
}

class SymmetriesOf : public testing::TestWithParam<MoveKinds> {};

TEST_P(SymmetriesOf, RandomNetworksAreAllThatThereAre) {
  SmallNets nets(1, GetParam());
  std::size_t found = 0;
  for (int i = 0; i < 60; ++i) {
    Network net = nets.next();
    if (net.processes.size() < 2) continue;
    if (i % 2 == 0) net = doubled(net);
    const Machine machine = makeMachine(net);
    const Group group = generated(machine, symmetries(machine));
    Group all(&before);
    forEachMap(machine, [&](const Symmetry& map) {
      const bool expected = mapsOntoItself(net, machine, map);
      EXPECT_EQ(isSymmetry(machine, map), expected) << i;
      if (expected) all.insert(map);
    });
    EXPECT_TRUE(group == all) << i << ": " << group.size() << " of " << all.size();
    found += all.size() - 1;
  }
  EXPECT_GT(found, 20U);
}

INSTANTIATE_TEST_SUITE_P(OfMoves, SymmetriesOf, testing::Values(MoveKinds::plain, MoveKinds::all));

TEST(Symmetry, IsNoneOfAnotherSizeOrThatIsNoPermutation) {
  const Machine machine = makeMachine(twins());
  Symmetry short_ = swapped;
  short_.process.pop_back();
  EXPECT_FALSE(isSymmetry(machine, short_));
  Symmetry same = swapped;
  same.process = {0, 0, 2};
  EXPECT_FALSE(isSymmetry(machine, same));
  Symmetry together = swapped;
  together.ranks[2] = {0, 0};
  EXPECT_FALSE(isSymmetry(machine, together));
}

TEST(Symmetry, OfFischerIsThatOfItsProcesses) {
  const Machine machine = makeMachine(fischer::network(4));
  const std::vector<Symmetry> found = symmetries(machine);
  EXPECT_EQ(generated(machine, found).size(), 24U);
  for (const Symmetry& s : found) EXPECT_EQ(s.process[4], 4U);  // the variable is data
}

TEST(Symmetry, IsNotLookedForInNetworksThatAreTooLarge) {
  EXPECT_TRUE(symmetries(makeMachine(twins()), {}, 10).empty());
}

TEST(Symmetry, EndsAtACheckpoint) {
  const Machine machine = makeMachine(fischer::network(4));
  EXPECT_THROW(symmetries(machine, Checkpoint([] { return true; })), Interrupted);
}

// Of variables: locations go where the symmetry says, and clocks where their processes go.
TEST(Symmetry, MovesVariables) {
  Network net = twins();
  net.processes[2].locations.insert({5, 6});
  const Machine machine = makeMachine(net);
  const StateLayout layout = StateLayout::capped(machine);
  const std::vector<int> images =
      permutationOf(machine, layout, {{1, 0, 2}, {{0, 1}, {0, 1}, {0, 1, 3, 2}}});
  const auto image = [&](int variable) { return images[static_cast<std::size_t>(variable)]; };
  EXPECT_EQ(image(layout.location(0, 1)), layout.location(1, 1));
  EXPECT_EQ(image(layout.location(1, 0)), layout.location(0, 0));
  EXPECT_EQ(image(layout.location(2, 2)), layout.location(2, 3));
  EXPECT_EQ(image(layout.location(2, 1)), layout.location(2, 1));
  for (const std::int64_t least : {1, 2}) {
    EXPECT_EQ(image(layout.clock(0, least)), layout.clock(1, least));
    EXPECT_EQ(image(layout.clock(2, least)), layout.clock(2, least));
  }
  EXPECT_EQ(std::set<int>(images.begin() + 1, images.end()).size(),
            static_cast<std::size_t>(layout.size()));
}

}  // namespace
}  // namespace tpn

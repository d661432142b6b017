#include "workbench/machine/linearclauses.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "tests/workbench/machine/nets.hpp"

namespace tpn {
namespace {

using Locations = std::vector<std::size_t>;  // ranks

// Unit propagation, the slow way: [variable] 1, -1 or 0 where it is open; false at a conflict.
bool propagate(const Clauses& clauses, std::vector<int>& value) {
  for (bool changed = true; changed;) {
    changed = false;
    for (const Clause& clause : clauses) {
      int open = 0;
      std::size_t opens = 0;
      bool satisfied = false;
      for (const int literal : clause) {
        const int v = value[static_cast<std::size_t>(std::abs(literal))];
        satisfied = satisfied || (v != 0 && (v > 0) == (literal > 0));
        if (v == 0) open = literal, ++opens;
      }
      if (satisfied || opens > 1) continue;
      if (opens == 0) return false;
      value[static_cast<std::size_t>(std::abs(open))] = open > 0 ? 1 : -1;
      changed = true;
    }
  }
  return true;
}

bool sumsAreZero(const std::vector<PlaceInvariant>& invariants, const Locations& at) {
  return std::all_of(invariants.begin(), invariants.end(), [&](const PlaceInvariant& invariant) {
    std::int64_t sum = 0;
    for (const auto& term : invariant.terms)
      if (at[term.process] == term.rank) sum += term.coefficient;
    return sum == 0;
  });
}

void forAllLocations(const Machine& machine, const std::function<void(const Locations&)>& call) {
  Locations at(machine.processes.size(), 0);
  for (;;) {
    call(at);
    std::size_t p = 0;
    while (p < at.size() && ++at[p] == machine.processes[p].locations.size()) at[p++] = 0;
    if (p == at.size()) return;
  }
}

struct Encoded {
  explicit Encoded(const Network& net, std::size_t most = 200'000)
      : Encoded(net, placeInvariants(makeMachine(net)), most) {}
  Encoded(const Network& net, std::vector<PlaceInvariant> given, std::size_t most = 200'000)
      : machine(makeMachine(net)),
        layout(StateLayout::capped(machine)),
        invariants(std::move(given)),
        linear(linearClauses(machine, layout, invariants, {}, most)),
        clauses(oneLocation(machine, layout)) {
    clauses.insert(clauses.end(), linear.clauses.begin(), linear.clauses.end());
  }
  std::vector<int> open() const {
    return std::vector<int>(static_cast<std::size_t>(layout.size() + linear.helpers + 1), 0);
  }

  Machine machine;
  StateLayout layout;
  std::vector<PlaceInvariant> invariants;
  LinearClauses linear;
  Clauses clauses;
};

// Is every helper decided by the locations, and is there a conflict just where a sum is not 0?
void expectExact(const Encoded& e, const std::string& name) {
  forAllLocations(e.machine, [&](const Locations& at) {
    std::vector<int> value = e.open();
    for (std::size_t p = 0; p < at.size(); ++p)
      value[static_cast<std::size_t>(e.layout.location(p, at[p]))] = 1;
    const bool consistent = propagate(e.clauses, value);
    EXPECT_EQ(consistent, sumsAreZero(e.invariants, at)) << name;
    if (!consistent) return;
    for (int h = e.layout.size() + 1; h <= e.layout.size() + e.linear.helpers; ++h)
      EXPECT_NE(value[static_cast<std::size_t>(h)], 0) << name;
  });
}

TEST(LinearClauses, LeaveTheLocationsWhoseSumsAreZero) {
  std::size_t helpers = 0;
  for (unsigned seed = 0; seed < 300; ++seed) {
    const Encoded e(randomUntimed(seed, 5));
    EXPECT_EQ(e.linear.omitted, 0U);
    expectExact(e, "seed " + std::to_string(seed));
    helpers += static_cast<std::size_t>(e.linear.helpers);
  }
  EXPECT_GT(helpers, 50U);
}

// Parts of four values each, so that sums are those of numbers that have steps in between.
TEST(LinearClauses, AreExactForPartsOfManyValues) {
  Network net;
  net.processes = {{{0, 1, 2, 3}, {}}, {{0, 1, 2, 3}, {}}, {{0, 1, 2, 3}, {}}, {{}, {}}};
  for (int l = 0; l < 10; ++l) net.processes[3].locations.insert(l);
  PlaceInvariant sum;
  for (std::size_t p = 0; p < 3; ++p)
    for (std::size_t rank = 1; rank < 4; ++rank)
      sum.terms.push_back({p, rank, static_cast<std::int64_t>(rank)});
  for (std::size_t rank = 1; rank < 10; ++rank)
    sum.terms.push_back({3, rank, -static_cast<std::int64_t>(rank)});
  const Encoded e(net, {sum});
  EXPECT_GT(e.linear.helpers, 0);
  expectExact(e, "values");
}

TEST(LinearClauses, AreExactForCounters) {
  for (const int trains : {1, 2, 3, 5}) expectExact(Encoded(counted(trains)), "trains");
}

// Each train is far, about, or open (0, 1, 2): what follows for the counter is found by unit
// propagation, and what follows for the open trains from the counter as well.
TEST(LinearClauses, PropagateBetweenACounterAndWhatItCounts) {
  constexpr int trains = 4;
  const Encoded e(counted(trains));
  const auto rank = [](int count) {
    return static_cast<std::size_t>(count == 0 ? 0 : trains + 1 - count);
  };
  for (int code = 0; code < 81; ++code) {
    std::vector<int> given = e.open();
    int about = 0;
    int open = 0;
    for (int i = 0, rest = code; i < trains; ++i, rest /= 3) {
      if (rest % 3 == 2) ++open;
      if (rest % 3 == 1) ++about;
      const auto far = static_cast<std::size_t>(e.layout.location(static_cast<std::size_t>(i), 0));
      if (rest % 3 != 2) given[far] = rest % 3 == 0 ? 1 : -1;
    }
    std::vector<int> value = given;
    ASSERT_TRUE(propagate(e.clauses, value));
    for (int n = 0; n <= trains; ++n) {
      const bool excluded = value[static_cast<std::size_t>(e.layout.location(trains, rank(n)))] < 0;
      EXPECT_EQ(excluded, n < about || n > about + open) << code << " " << n;
      std::vector<int> counted = given;
      counted[static_cast<std::size_t>(e.layout.location(trains, rank(n)))] = 1;
      EXPECT_EQ(propagate(e.clauses, counted), n >= about && n <= about + open);
      if (n != about && n != about + open) continue;
      for (std::size_t i = 0; i < trains; ++i)  // the open ones are all far or all about
        EXPECT_NE(counted[static_cast<std::size_t>(e.layout.location(i, 0))], 0)
            << code << " " << n;
    }
  }
}

TEST(LinearClauses, OmitWhatWouldTakeTooMany) {
  const Encoded e(counted(5), 20);
  EXPECT_EQ(e.linear.omitted, 1U);
  EXPECT_TRUE(e.linear.clauses.empty());
  EXPECT_EQ(e.linear.helpers, 0);
}

}  // namespace
}  // namespace tpn

#include "workbench/machine/invariants.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <numeric>
#include <random>

#include "tests/workbench/machine/nets.hpp"
#include "workbench/machine/sparserow.hpp"

namespace tpn {
namespace {

using Dense = std::vector<std::vector<double>>;

// [process][rank]
std::vector<std::vector<std::int64_t>> coefficients(const Machine& machine,
                                                    const PlaceInvariant& invariant) {
  std::vector<std::vector<std::int64_t>> result;
  for (const Machine::Process& process : machine.processes)
    result.emplace_back(process.locations.size(), 0);
  for (const auto& [process, rank, coefficient] : invariant.terms)
    result[process][rank] = coefficient;
  return result;
}

// Does every transition leave the sum alone, and is it 0 at the start?
bool holds(const Machine& machine, const PlaceInvariant& invariant) {
  const auto value = coefficients(machine, invariant);
  for (std::size_t p = 0; p < value.size(); ++p)
    if (value[p][machine.processes[p].initial] != 0) return false;
  return std::all_of(machine.transitions.begin(), machine.transitions.end(), [&](const auto& t) {
    std::int64_t change = 0;
    for (const auto& [process, source, target, counts, resets] : t.moves)
      change += value[process][target] - value[process][source];
    return change == 0;
  });
}

// By Gaussian elimination in floating point: exact enough for entries of -1, 0, 1 in few rows.
std::size_t rankOf(Dense rows) {
  std::size_t rank = 0;
  const std::size_t columns = rows.empty() ? 0 : rows.front().size();
  for (std::size_t c = 0; c < columns && rank < rows.size(); ++c) {
    std::size_t best = rank;
    for (std::size_t r = rank; r < rows.size(); ++r)
      if (std::abs(rows[r][c]) > std::abs(rows[best][c])) best = r;
    if (std::abs(rows[best][c]) < 1e-9) continue;
    std::swap(rows[rank], rows[best]);
    for (std::size_t r = rank + 1; r < rows.size(); ++r)
      for (std::size_t k = columns; k-- > c;)
        rows[r][k] -= rows[rank][k] * rows[r][c] / rows[rank][c];
    ++rank;
  }
  return rank;
}

Dense asRows(const Machine& machine, const std::vector<PlaceInvariant>& invariants) {
  Dense rows;
  for (const PlaceInvariant& invariant : invariants) {
    rows.emplace_back();
    for (const auto& process : coefficients(machine, invariant))
      rows.back().insert(rows.back().end(), process.begin(), process.end());
  }
  return rows;
}

Dense incidence(const Machine& machine) {
  Dense rows;
  for (const Machine::Transition& t : machine.transitions) {
    rows.emplace_back();
    for (std::size_t p = 0; p < machine.processes.size(); ++p) {
      std::vector<double> effect(machine.processes[p].locations.size(), 0);
      for (const auto& [process, source, target, counts, resets] : t.moves)
        if (process == p && source != target) effect[source] = -1, effect[target] = 1;
      rows.back().insert(rows.back().end(), effect.begin(), effect.end());
    }
  }
  return rows;
}

// The dimension of the null space, less one for each process.
std::size_t expectedNumber(const Machine& machine) {
  std::size_t locations = 0;
  for (const Machine::Process& process : machine.processes) locations += process.locations.size();
  return locations - rankOf(incidence(machine)) - machine.processes.size();
}

TEST(PlaceInvariants, CountTheTrainsThatAreAbout) {
  const Machine machine = makeMachine(counted(4));
  const auto found = placeInvariants(machine);
  ASSERT_EQ(found.size(), 1U);
  const auto value = coefficients(machine, found[0]);
  for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(value[i], (std::vector<std::int64_t>{0, 1, 1}));
  EXPECT_EQ(value[4], (std::vector<std::int64_t>{0, -4, -3, -2, -1}));
}

TEST(PlaceInvariants, HoldInRandomNetworksAndAreAllThatThereAre) {
  std::size_t some = 0;
  for (unsigned seed = 0; seed < 2000; ++seed) {
    const Machine machine = makeMachine(randomUntimed(seed, 7));
    const auto found = placeInvariants(machine);
    for (const PlaceInvariant& invariant : found) EXPECT_TRUE(holds(machine, invariant)) << seed;
    EXPECT_EQ(found.size(), expectedNumber(machine)) << seed;
    EXPECT_EQ(rankOf(asRows(machine, found)), found.size()) << seed;
    some += found.empty() ? 0 : 1;
  }
  EXPECT_GT(some, 1000U);
}

TEST(PlaceInvariants, HoldAlongRandomWalks) {
  std::mt19937 random(7);
  for (unsigned seed = 0; seed < 200; ++seed) {
    const Machine machine = makeMachine(randomUntimed(seed, 6));
    const auto found = placeInvariants(machine);
    std::vector<std::size_t> at;
    for (const Machine::Process& process : machine.processes) at.push_back(process.initial);
    for (int step = 0; step < 50; ++step) {
      const Machine::Transition& t = machine.transitions[random() % machine.transitions.size()];
      if (std::all_of(t.moves.begin(), t.moves.end(),
                      [&](const Machine::Move& m) { return at[m.process] == m.source; }))
        for (const Machine::Move& m : t.moves) at[m.process] = m.target;
      for (const PlaceInvariant& invariant : found) {
        std::int64_t sum = 0;
        for (const auto& term : invariant.terms)
          if (at[term.process] == term.rank) sum += term.coefficient;
        EXPECT_EQ(sum, 0) << seed;
      }
    }
  }
}

TEST(PlaceInvariants, AreFewerButHoldWhereTheWorkIsBounded) {
  std::set<std::size_t> numbers;
  for (const Machine& machine : {makeMachine(counted(3)), makeMachine(randomUntimed(12, 7))})
    for (std::int64_t work = 0; work < 400; work += 3) {
      const auto found = placeInvariants(machine, work);
      for (const PlaceInvariant& invariant : found) EXPECT_TRUE(holds(machine, invariant)) << work;
      EXPECT_LE(found.size(), expectedNumber(machine));
      numbers.insert(found.size());
    }
  EXPECT_GT(numbers.size(), 1U);
}

// Processes i and i + 1 in a chain, each of which goes round three times while the next goes round
// once: coefficients of powers of 3, which do not fit 64 bits from 40 processes on.
Network powers(std::size_t processes) {
  Network net;
  net.processes.assign(processes, {{0, 1, 2, 3}, {}});
  for (std::size_t p = 0; p + 1 < processes; ++p)
    for (int l = 0; l < 3; ++l) net.transitions.push_back(untimed({{p, l, l + 1}, {p + 1, 3, 0}}));
  return net;
}

TEST(PlaceInvariants, HaveLargeCoefficients) {
  const Machine machine = makeMachine(powers(20));
  const auto found = placeInvariants(machine);
  EXPECT_EQ(found.size(), expectedNumber(machine));
  std::int64_t largest = 0;
  for (const PlaceInvariant& invariant : found) {
    EXPECT_TRUE(holds(machine, invariant));
    for (const auto& term : invariant.terms)
      largest = std::max(largest, std::abs(term.coefficient));
  }
  EXPECT_GT(largest, 1'000'000);
}

TEST(PlaceInvariants, AreLeftOutWhereNumbersOverflow) {
  const Machine machine = makeMachine(powers(60));
  const auto found = placeInvariants(machine);
  EXPECT_LT(found.size(), expectedNumber(machine));
  for (const PlaceInvariant& invariant : found) EXPECT_TRUE(holds(machine, invariant));
}

TEST(SparseRow, IsClearedByTheSmallestMultiples) {
  const SparseRow row{{0, 4}, {2, 6}, {5, 1}};
  const SparseRow other{{1, 2}, {2, -4}};
  EXPECT_EQ(cleared(row, other, 2), (SparseRow{{0, 4}, {1, 3}, {5, 1}}));
  EXPECT_EQ(cleared(row, SparseRow{{0, 2}, {2, 3}}, 2), (SparseRow{{5, 1}}));
}

TEST(SparseRow, ThatDoesNotFitIsNone) {
  const std::int64_t huge = std::numeric_limits<std::int64_t>::max();
  EXPECT_FALSE(cleared({{0, 3}, {1, huge}, {2, 1}}, {{0, 2}, {2, 5}}, 0).has_value());
  EXPECT_TRUE(cleared({{0, 3}, {1, huge}}, {{0, 3}, {1, 7}}, 0).has_value());
}

}  // namespace
}  // namespace tpn

// Runs through the fractional part of the encoding. Whole delays would always do, and solvers like
// them; here clauses are added that forbid them.

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/endtoend/decode.hpp"
#include "tests/endtoend/runcheck.hpp"
#include "tests/endtoend/solver.hpp"

namespace {

// Three processes that each go round within [1, 3]; the path length leaves each free to act twice.
const Network rounds{
    3, {{1, 3, {{0, 0, 0}}}, {1, 3, {{1, 0, 0}}}, {1, 3, {{2, 0, 0}}}}, {{0, 0, 1}}, "p1"};
constexpr int length = 20;
constexpr int rotation = 3;

// The number of the lowest bit of the delay that is chosen in state i.
int lowestDelayBit(const VariableMap& map, int i) {
  int locationBits = 0;
  for (const int bits : map.locationBits) locationBits += bits;
  const int slots = static_cast<int>(map.locationBits.size()) + 1;
  const int before = locationBits + slots * map.integerBits + map.fractionBits;
  return 1 + i * (before + slots * map.fractionBits) + before;
}

struct Fractional {
  VariableMap map;
  Answers answers;
};

// The answers where every delay has to be an odd number of the smallest steps.
Fractional withOddDelays() {
  const Sandbox sandbox;
  sandbox.write("net.tpn", networkFile(rounds));
  sandbox.write("phi.tpn", rounds.property + "\n");
  const std::string run = "netk" + std::to_string(length);
  EXPECT_EQ(sandbox.run({ZERVAN_BINARY, "net", "phi", std::to_string(length)}), 0);
  const VariableMap map = parseMap(sandbox.read(run + ".lck"));
  Cnf cnf = parseCnf(sandbox.read(run + ".cnf"));
  for (int i = 0; i < length; i += rotation) cnf.clauses.push_back({lowestDelayBit(map, i)});
  sandbox.write("odd.cnf", cnfText(cnf));
  return {map, solve(sandbox, "odd.cnf")};
}

bool hasEvenAndOddClocks(const RunState& s) {
  const auto odd = [](std::int64_t clock) { return clock % 2 != 0; };
  const auto& clocks = s.state.clocks;
  return std::any_of(clocks.begin(), clocks.end(), odd) &&
         !std::all_of(clocks.begin(), clocks.end(), odd);
}

// Adjusting steps that have something to renormalise.
int mixedAdjustments(const TimedRun& run) {
  int count = 0;
  for (std::size_t i = 2; i + 1 < run.states.size(); i += rotation)
    if (hasEvenAndOddClocks(run.states[i])) ++count;
  return count;
}

TEST(Fractions, RunsWithOddDelaysExist) {
  EXPECT_TRUE(withOddDelays().answers.cadical.satisfiable);
}

TEST(Fractions, RunsWithOddDelaysAreRunsOfTheNetwork) {
  const Fractional found = withOddDelays();
  EXPECT_EQ(complaint(rounds, decode(found.map, found.answers.cadical.model)), "");
  EXPECT_EQ(complaint(rounds, decode(found.map, found.answers.minisat.model)), "");
}

// A clock just reset beside one after an odd delay: no other way to adjust is left.
TEST(Fractions, RunsWithOddDelaysRenormalise) {
  const Fractional found = withOddDelays();
  EXPECT_GT(mixedAdjustments(decode(found.map, found.answers.cadical.model)), 0);
  EXPECT_GT(mixedAdjustments(decode(found.map, found.answers.minisat.model)), 0);
}

}  // namespace

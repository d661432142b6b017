// Verdicts on random networks against the explorer: embedded, by each solver program, side by side,
// and bound by bound against the core's own files.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cadical.hpp>
#include <cstdio>
#include <fstream>

#include "tests/driver/runprogram.hpp"
#include "tests/workbench/search/explored.hpp"
#include "workbench/search/trace.hpp"

namespace {

constexpr int largest = 14;

// For every second network an earliest time beyond all latest ones, which the core's clock range
// would lose.
Network variedNetwork(unsigned seed) {
  Network net = randomNetwork(seed);
  if (seed % 2 == 1)
    net.transitions.back().earliest = largestConstant(net) + 1 + static_cast<int>(seed % 3);
  return net;
}

std::string failure(const Network& net, const tpn::CheckOptions& options, int spread) {
  const Explored e = converted(net, spread);
  const std::string found =
      wrong(e, checked(e, options), smallestBound(net, options.maxBound), options.maxBound);
  return found.empty() ? "" : found + "\n" + networkFile(net) + net.property;
}

class Embedded : public testing::TestWithParam<unsigned> {};

TEST_P(Embedded, FindsTheSmallestBound) {
  int reached = 0;
  for (unsigned seed = 40 * GetParam(); seed < 40 * (GetParam() + 1); ++seed) {
    const Network net = variedNetwork(seed);
    if (smallestBound(net, largest)) ++reached;
    EXPECT_EQ(failure(net, {largest, {}, "", 1, ""}, 1), "") << "seed " << seed;
  }
  EXPECT_GT(reached, 5);
  EXPECT_LT(reached, 38);
}

INSTANTIATE_TEST_SUITE_P(Seeds, Embedded, testing::Range(0U, 10U));

TEST(EmbeddedCheck, TellsLocationsApartWhateverTheirNumbers) {
  for (unsigned seed = 0; seed < 60; ++seed)
    EXPECT_EQ(failure(variedNetwork(seed), {largest, {}, "", 1, ""}, 4), "") << "seed " << seed;
}

// Whether all runs get stuck, and after how many transitions, is the same question to the explorer
// with a property that always holds.
TEST(EmbeddedCheck, SaysRightlyWhetherAllRunsAreStuck) {
  constexpr int asked = 23;  // the eighth action: one of those after which it is asked
  int stuck = 0;
  for (unsigned seed = 5000; seed < 5100; ++seed) {
    Network net = randomNetwork(seed);
    net.property = "T";
    const std::vector<bool> runs = predictions(net, asked);
    std::size_t longest = 0;
    while (3 * longest + 2 <= asked && runs[3 * longest + 2]) ++longest;
    const bool goesOn = 3 * longest + 2 > asked;
    Explored e = converted(net);
    e.property = propertyOf("p99");
    const tpn::Verdict v = checked(e, {asked, {}, "", 1, ""});
    EXPECT_EQ(v.answer, tpn::Verdict::unreached);
    EXPECT_EQ(v.reason.empty(), goesOn) << "seed " << seed;
    if (goesOn) continue;
    ++stuck;
    // It may be noticed later than it is so.
    std::size_t said = 0;
    ASSERT_EQ(std::sscanf(v.reason.c_str(), "no run has more than %zu transitions", &said), 1);
    EXPECT_GE(said, longest) << "seed " << seed;
  }
  EXPECT_GT(stuck, 5);
}

class BySolver : public testing::TestWithParam<const char*> {};

TEST_P(BySolver, FindsTheSmallestBound) {
  for (unsigned seed = 1000; seed < 1020; ++seed)
    EXPECT_EQ(failure(variedNetwork(seed), {8, {}, GetParam(), 1, ""}, 1), "") << "seed " << seed;
}

TEST_P(BySolver, FindsTheSmallestBoundOfSeveralAtOnce) {
  for (unsigned seed = 2000; seed < 2020; ++seed)
    EXPECT_EQ(failure(variedNetwork(seed), {8, {}, GetParam(), 3, ""}, 4), "") << "seed " << seed;
}

INSTANTIATE_TEST_SUITE_P(Debian, BySolver,
                         testing::Values("cadical", "minisat", "picosat", "cryptominisat5"),
                         [](const auto& solver) { return std::string(solver.param); });

// The core's verdict on its own file.
bool coreSays(const Workplace& place, int k) {
  const std::string length = std::to_string(k);
  EXPECT_EQ(place.zervan({"net", "phi", length}).status, 0);
  CaDiCaL::Solver solver;
  solver.set("quiet", 1);
  int variables = 0;
  const std::string file = place.folder() / ("netk" + length + ".cnf");
  if (std::ifstream(file).get() == 'p' && place.read("netk" + length + ".cnf").ends_with("\n0\n"))
    return false;  // plainly false: solvers refuse the header
  const char* const error = solver.read_dimacs(file.c_str(), variables);
  EXPECT_EQ(error, nullptr) << error;
  return solver.solve() == 10;
}

// Within what the core can represent the two ask the same.
TEST(EmbeddedCheck, AgreesWithTheCoreBoundByBound) {
  for (unsigned seed = 3000; seed < 3040; ++seed) {
    const Network net = randomNetwork(seed);
    const Workplace place;
    place.write("net.tpn", networkFile(net));
    place.write("phi.tpn", net.property + "\n");
    const Explored e = converted(net);
    for (int k = 1; k <= 8; k += k == 1 ? 1 : 3) {
      const tpn::Verdict v = checked(e, {k, {}, "", 1, ""});
      const bool here = v.answer == tpn::Verdict::reachable && v.bound == k;
      if (here || v.answer == tpn::Verdict::unreached) {
        EXPECT_EQ(coreSays(place, k), here) << "seed " << seed << ", k = " << k;
      }
    }
  }
}

// What the embedded solver found satisfies the core's formulas as well, fractions and all.
TEST(EmbeddedCheck, KeepsAnswersThatTheCoresFormulasAccept) {
  int reached = 0;
  for (unsigned seed = 4000; seed < 4040; ++seed) {
    const Network net = variedNetwork(seed);
    const Explored e = converted(net);
    const Workplace place;
    const tpn::Verdict v = checked(e, {8, {}, "", 1, place.folder()});
    if (v.answer != tpn::Verdict::reachable) continue;
    ++reached;
    const std::string name = "k" + std::to_string(v.bound);
    const auto run =
        tpn::traced(e.net, e.property, place.read(name + ".lck"), place.read(name + ".out")).run;
    ASSERT_TRUE(run);
    EXPECT_EQ(run->goal, v.run->goal);
    EXPECT_EQ(tpn::replay(e.net, e.property, *run).complaint, "");
  }
  EXPECT_GT(reached, 10);
}

}  // namespace

// Bounded search on random networks, against all that they can do; and on networks that are extreme
// in one way each.

#include "workbench/search/bounded.hpp"

#include <gtest/gtest.h>

#include "tests/workbench/encoding/checknets.hpp"
#include "tests/workbench/search/explored.hpp"
#include "tests/workbench/search/fixedpoint.hpp"
#include "workbench/machine/exchange.hpp"

namespace {

using tpn::BoundedOptions;
using tpn::BoundedVerdict;

BoundedVerdict searched(const tpn::Network& net, const tpn::Goal& goal,
                        const BoundedOptions& options) {
  return tpn::searchBounded(
      net, goal, options, [] { return false; }, [](const tpn::BoundedProgress&) {});
}

// Random, and for some seeds with what the generator leaves out: earliest times beyond all latest
// ones, transitions that never fire, no constants at all.
Network varied(unsigned seed) {
  Network net = randomNetwork(seed);
  const int beyond = largestConstant(net) + 1 + static_cast<int>(seed % 3);
  if (seed % 4 == 1) net.transitions.back().earliest = beyond;
  if (seed % 4 == 2) net.transitions.front().earliest = beyond - 1;
  if (seed % 8 == 3)
    for (Transition& t : net.transitions) {
      t.earliest = 0;
      t.latest = noLatest;
    }
  return net;
}

// Beyond this nothing shorter was overlooked; no random network here needs more.
constexpr int enough = 40;

std::string complaint(const Explored& e, const tpn::Goal& goal, const tpn::Run& run) {
  return tpn::replay(e.net, goal, run).complaint;
}

// What is wrong with the search's answer, or empty.
std::string failure(const Explored& e, const tpn::Goal& goal, std::optional<int> expected,
                    const FixedPoint& all, std::int64_t unaryLimit) {
  const BoundedVerdict v = searched(e.net, goal, {enough, unaryLimit, true});
  if (expected) {
    if (v.answer != BoundedVerdict::reached) return "not reached";
    if (v.run->steps.size() != static_cast<std::size_t>(*expected)) return "not shortest";
    if (v.run->goal != v.run->steps.size()) return "another goal";
    return complaint(e, goal, *v.run);
  }
  if (v.answer == BoundedVerdict::stuck)
    return all.longest && v.noRunUpTo >= *all.longest ? "" : "not stuck";
  if (v.answer != BoundedVerdict::exhausted || v.noRunUpTo != enough) return "reached or given up";
  return all.longest && *all.longest < 32 ? "stuck and not noticed" : "";
}

class Bounded : public testing::TestWithParam<std::int64_t> {};  // the width of unary clocks

TEST_P(Bounded, FindsShortestRunsOfRandomNetworks) {
  int reached = 0;
  for (unsigned seed = 0; seed < 400; ++seed) {
    const Network net = varied(seed);
    const FixedPoint all = fixedPoint(net);
    const Explored e = converted(net, seed % 2 == 0 ? 1 : 5);
    reached += all.property ? 1 : 0;
    EXPECT_EQ(failure(e, {e.property}, all.property, all, GetParam()), "") << networkFile(net);
  }
  EXPECT_GT(reached, 100);
  EXPECT_LT(reached, 380);
}

TEST_P(Bounded, FindsDeadEndsOfRandomNetworks) {
  int deadEnds = 0;
  for (unsigned seed = 1000; seed < 1400; ++seed) {
    const Network net = varied(seed);
    const FixedPoint all = fixedPoint(net);
    deadEnds += all.deadEnd ? 1 : 0;
    EXPECT_EQ(failure(converted(net), tpn::deadlockProperty(), all.deadEnd, all, GetParam()), "")
        << networkFile(net);
  }
  EXPECT_GT(deadEnds, 100);
  EXPECT_LT(deadEnds, 380);
}

// A random network of two processes with its first process there three times, and propositions 11,
// 12, ... 31, 32 in place of 1, 2 for those; a property of all three or of two of them.
Network replicated(const Network& from, unsigned seed) {
  Network net = from;
  net.processes += 2;
  net.transitions.clear();
  const auto copyOf = [&](std::size_t copy) { return copy == 0 ? 0 : from.processes + copy - 1; };
  for (const Transition& t : from.transitions)
    for (std::size_t copy = 0; copy < (t.moves.front().process == 0 ? 3U : 1U); ++copy) {
      net.transitions.push_back(t);
      if (copy > 0)
        std::rotate(net.transitions.back().moves.begin(), net.transitions.back().moves.begin() + 1,
                    net.transitions.back().moves.end());
      if (copy > 0) net.transitions.back().moves.back().process = copyOf(copy);
    }
  net.labels.clear();
  for (const Label& label : from.labels)
    for (std::size_t copy = 0; copy < (label.process == 0 ? 3U : 1U); ++copy)
      net.labels.push_back({label.process == 0 ? copyOf(copy) : label.process, label.location,
                            label.process == 0 ? 10 * static_cast<int>(copy + 1) + label.proposition
                                               : label.proposition});
  const char* const properties[] = {"p11p21&p31&",
                                    "p11p22&",
                                    "p31p1&",
                                    "p21p-11&p-31&",
                                    "p11p-21&p21p-31&+p31p-11&+",
                                    "p11p21&p11p31&+p21p31&+"};
  net.property = properties[seed % 6];
  return net;
}

TEST(BoundedSearch, FindsShortestRunsWhereProcessesCanBeExchanged) {
  int reached = 0;
  int exchangeable = 0;
  for (unsigned seed = 3000; seed < 3800; ++seed) {
    const Network from = randomNetwork(seed);
    if (from.processes > 2) continue;
    const Network net = replicated(from, seed);
    const Explored e = converted(net);
    const tpn::Machine machine = tpn::makeMachine(e.net);
    if (tpn::interchangeable(e.net, machine, &e.property).empty()) continue;
    ++exchangeable;
    const FixedPoint all = fixedPoint(net);
    reached += all.property.value_or(0) > 1 ? 1 : 0;
    EXPECT_EQ(failure(e, {e.property}, all.property, all, 100), "") << networkFile(net);
  }
  EXPECT_GT(exchangeable, 100);
  EXPECT_GT(reached, 20);
}

// Both kinds of clocks, and those of the widths in between side by side.
INSTANTIATE_TEST_SUITE_P(Widths, Bounded, testing::Values(0, 2, 100));

TEST(BoundedSearch, CountsInUnitsOfTheNetworksConstants) {
  for (unsigned seed = 2000; seed < 2050; ++seed) {
    Network net = varied(seed);
    const FixedPoint all = fixedPoint(net);
    for (Transition& t : net.transitions) {
      t.earliest *= 1000000;
      if (t.latest != noLatest) t.latest *= 1000000;
    }
    const Explored e = converted(net);
    EXPECT_EQ(failure(e, {e.property}, all.property, all, 16), "") << networkFile(net);
  }
}

// The first process needs two waits of about a billion each, the second has to move one unit before
// the two billion are over: only just in time, and only if the first wait is one unit shorter.
TEST(BoundedSearch, AnswersConstantsOfABillion) {
  tpn::Network net;
  net.processes = {{{0, 1, 2}, {{2, {1}}}}, {{0, 1}, {{1, {2}}}}};
  net.transitions = {{{999999999, 1000000000}, {{0, 0, 1}}},
                     {{1000000000, 1000000000}, {{0, 1, 2}}},
                     {{1999999999, 1999999999}, {{1, 0, 1}}}};
  const tpn::Property inTime = propertyOf("p1p-2&");
  const BoundedVerdict v = searched(net, {inTime}, {});
  ASSERT_EQ(v.answer, BoundedVerdict::reached);
  EXPECT_EQ(v.run->steps.size(), 2U);
  net.transitions[0].interval.earliest = 1000000000;
  EXPECT_EQ(searched(net, {inTime}, {}).answer, BoundedVerdict::stuck);
}

TEST(BoundedSearch, StopsAtTheLastLengthThatIsAsked) {
  const tpn::Property never = propertyOf("p9");
  const BoundedVerdict v = searched(circle(3), {never}, {7, 24, true});
  EXPECT_EQ(v.answer, BoundedVerdict::exhausted);
  EXPECT_EQ(v.noRunUpTo, 7);
}

TEST(BoundedSearch, FindsAPropertyOfTheInitialState) {
  const tpn::Property truth = propertyOf("T");
  const BoundedVerdict v = searched(circle(3), {truth}, {});
  EXPECT_EQ(v.answer, BoundedVerdict::reached);
  EXPECT_TRUE(v.run->steps.empty());
}

TEST(BoundedSearch, AnswersNetworksWithoutTransitions) {
  tpn::Network net;
  net.processes = {{{0}, {}}};
  const tpn::Property never = propertyOf("p1");
  EXPECT_EQ(searched(net, {never}, {}).answer, BoundedVerdict::stuck);
  EXPECT_EQ(searched(net, tpn::deadlockProperty(), {}).answer, BoundedVerdict::reached);
}

// Time cannot pass from the start, as the first transition should have fired before it may: what
// needs no time still happens, and what needs some does not.
TEST(BoundedSearch, AnswersNetworksThatAreStuckInTime) {
  tpn::Network net;
  net.processes = {{{0, 1}, {}}, {{0, 1, 2}, {{1, {1}}, {2, {2}}}}};
  net.transitions = {{{1, 0}, {{0, 0, 1}}}, {{0, {}}, {{1, 0, 1}}}, {{1, {}}, {{1, 1, 2}}}};
  const tpn::Property atOnce = propertyOf("p1");
  const tpn::Property later = propertyOf("p2");
  EXPECT_EQ(searched(net, {atOnce}, {}).answer, BoundedVerdict::reached);
  EXPECT_EQ(searched(net, {later}, {}).answer, BoundedVerdict::stuck);
  const BoundedVerdict end = searched(net, tpn::deadlockProperty(), {});
  ASSERT_EQ(end.answer, BoundedVerdict::reached);
  EXPECT_EQ(end.run->steps.size(), 1U);
}

// Too many for saying of each pair that it excludes one another.
TEST(BoundedSearch, AnswersProcessesOfManyLocations) {
  const tpn::Property last = propertyOf("p1");
  const BoundedVerdict v = searched(circle(150), {last}, {});
  ASSERT_EQ(v.answer, BoundedVerdict::reached);
  EXPECT_EQ(v.run->steps.size(), 149U);
}

TEST(BoundedSearch, StopsWhenItIsTold) {
  int asked = 0;
  const tpn::Property never = propertyOf("p9");
  const BoundedVerdict v = tpn::searchBounded(
      circle(3), {never}, {}, [&] { return ++asked > 100; }, [](const tpn::BoundedProgress&) {});
  EXPECT_EQ(v.answer, BoundedVerdict::undecided);
  EXPECT_GT(v.noRunUpTo, 1);
}

// Also in the middle of asking whether there are longer runs at all: that nobody knows is no
// answer.
TEST(BoundedSearch, IsNotStuckWhereverItIsStopped) {
  BoundedOptions options;
  options.maxTransitions = 4;
  for (int last = 1;; ++last) {
    int asked = 0;
    const BoundedVerdict v = tpn::searchBounded(
        circle(40), {propertyOf("p99")}, options, [&] { return ++asked >= last; },
        [](const tpn::BoundedProgress&) {});
    ASSERT_NE(v.answer, BoundedVerdict::stuck) << last;
    if (asked < last) break;
    ASSERT_LT(last, 100'000);
  }
}

}  // namespace

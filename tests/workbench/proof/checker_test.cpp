// The check of certificates: it accepts what is right, and nothing that states one by one refute.

#include "workbench/proof/checker.hpp"

#include <gtest/gtest.h>

#include <chrono>
#include <random>

#include "tests/workbench/network/smallnets.hpp"
#include "tests/workbench/proof/endless.hpp"
#include "tests/workbench/proof/fischer.hpp"
#include "tests/workbench/proof/reachable.hpp"

namespace tpn {
namespace {

std::string complaint(const Network& net, const Goal& goal, const Certificate& certificate) {
  const Recheck result = recheck(net, goal, certificate, {});
  EXPECT_EQ(result.complaint.empty(), result.result == Recheck::confirmed);
  return result.complaint;
}

TEST(Fischer, IsProvedByItsEightClausesAtAnySize) {
  for (const std::size_t n : {2U, 3U, 8U, 20U})
    EXPECT_EQ(complaint(fischer::network(n), fischer::violation(n), fischer::proof(n)), "");
}

TEST(Fischer, IsProvedWithAllClausesWrittenOut) {
  const Certificate flat = flattened(fischer::proof(4));
  EXPECT_GT(flat.clauses.size(), 50U);
  EXPECT_EQ(complaint(fischer::network(4), fischer::violation(4), flat), "");
}

TEST(Fischer, NeedsEveryClause) {
  for (std::size_t i = 0; i < 8; ++i) {
    Certificate less = fischer::proof(3);
    less.clauses.erase(less.clauses.begin() + static_cast<std::ptrdiff_t>(i));
    EXPECT_NE(complaint(fischer::network(3), fischer::violation(3), less), "") << i;
  }
}

TEST(Fischer, NeedsTheSymmetry) {
  Certificate less = fischer::proof(3);
  less.generators.pop_back();
  EXPECT_NE(complaint(fischer::network(3), fischer::violation(3), less), "");
}

// Process 1 leaves for 1 by time 1 and for 2 at time 2, process 2 waits until 2: where process 1
// has just come to 1, process 2 has waited less than 2. That a transition does not fire past its
// latest time is all that keeps a state out in which both have waited for 2.
TEST(Recheck, LetsNothingFirePastItsLatestTime) {
  Network net;
  net.processes = {{{0, 1, 2}, {}}, {{0, 1}, {}}};
  net.transitions = {
      {{0, 1}, {{0, 0, 1}}}, {{2, 2}, {{0, 0, 2}}}, {{1, {}}, {{0, 1, 2}}}, {{2, 2}, {{1, 0, 1}}}};
  const auto not_at = [](int location) { return Atom{Atom::location, false, 0, location}; };
  const auto reached = [](std::size_t p, int units) { return Atom{Atom::clock, true, p, units}; };
  const Certificate proof{{},
                          {},
                          {{not_at(1), reached(0, 1), ~reached(1, 2)},
                           {not_at(0), ~reached(1, 2), reached(0, 2)},
                           {not_at(0), ~reached(1, 1), reached(0, 1)}}};
  const Property nowhere{"p1", {{PropertyItem::proposition, 1}}};
  EXPECT_EQ(complaint(net, nowhere, proof), "");
}

// One atom about a process that moves is true before, the other is false: it is not enough that one
// of them is, whichever comes last.
TEST(Recheck, SeesEveryAtomThatATransitionTouches) {
  Network net;
  net.processes.assign(3, {{0, 1, 2}, {}});
  net.transitions = {{{0, {}}, {{2, 0, 1}}}, {{0, {}}, {{0, 0, 1}, {1, 0, 1}, {2, 1, 2}}}};
  const auto at = [](std::size_t p, int location) {
    return Atom{Atom::location, true, p, location};
  };
  const Property nowhere{"p1", {{PropertyItem::proposition, 1}}};
  EXPECT_EQ(complaint(net, nowhere, {{}, {}, {{at(0, 0), at(1, 2)}}}),
            "transition 2 leads outside: clause 1@0 2@2");
  EXPECT_EQ(complaint(net, nowhere, {{}, {}, {{at(0, 2), at(1, 0)}}}),
            "transition 2 leads outside: clause 1@2 2@0");
}

// Asked for the n-th time, it is over.
std::function<bool()> overAfter(int& questions, int n) {
  return [&questions, n] { return ++questions >= n; };
}

TEST(Recheck, EndsWhereImagesOfAClauseHaveNoEnd) {
  const auto start = std::chrono::steady_clock::now();
  const auto over = [&] {
    return std::chrono::steady_clock::now() - start > std::chrono::seconds(1);
  };
  const Property none{"p2", {{PropertyItem::proposition, 2}}};
  const Recheck result = recheck(endless::network(), none, endless::proof(), over);
  EXPECT_EQ(result.result, Recheck::stopped);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::minutes(1));
}

TEST(Recheck, ConfirmsNothingWhereverItIsStopped) {
  int all = 0;
  const Network net = fischer::network(3);
  const auto check = [&](const std::function<bool()>& stop) {
    return recheck(net, fischer::violation(3), fischer::proof(3), stop).result;
  };
  EXPECT_EQ(check([&] { return ++all < 0; }), Recheck::confirmed);
  EXPECT_GT(all, 50);
  for (int n = 1; n <= all; ++n) {
    int questions = 0;
    EXPECT_EQ(check(overAfter(questions, n)), Recheck::stopped) << n;
  }
}

}  // namespace
}  // namespace tpn

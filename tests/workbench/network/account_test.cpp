// Why a property holds: facts that are enough, and not more than it takes.

#include "workbench/network/account.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/workbench/network/strictly.hpp"
#include "workbench/network/infix.hpp"
#include "workbench/network/shown.hpp"

namespace tpn {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Processes a, b, {c d} and 4 with the locations in (1), which has propositions 1 to 4, and 0;
// proposition 1 is called first.
Network four() {
  Network net;
  net.names.processes = {{0, "a"}, {1, "b"}, {2, "c d"}};
  for (std::size_t p = 0; p < 4; ++p) {
    net.processes.push_back({{0, 1}, {{1, {number(p)}}}});
    net.names.locations[{p, 1}] = "in";
  }
  net.names.propositions[1] = "first";
  return net;
}

std::vector<std::string> because(const std::string& text, const Locations& at,
                                 bool deadlock = false) {
  const Network net = four();
  const std::set<int> held = propositionsAt(net, at);
  return account(net, readInfix(text, net), {held, at, deadlock});
}

TEST(Account, IsAllOfAConjunction) {
  EXPECT_THAT(because("p2 && first && !b.0", {1, 1, 0, 0}), ElementsAre("p2", "first", "!b.0"));
  EXPECT_THAT(because("!(p3 || deadlock)", {1, 1, 0, 0}), ElementsAre("!p3", "!deadlock"));
  EXPECT_THAT(because("deadlock && a.in", {1, 1, 0, 0}, true), ElementsAre("deadlock", "a.in"));
}

TEST(Account, OfADisjunctionIsThePartThatTakesLeast) {
  EXPECT_THAT(because("p3 || p2", {1, 1, 0, 0}), ElementsAre("p2"));
  EXPECT_THAT(because("p1 && p2 || p2", {1, 1, 0, 0}), ElementsAre("p2"));
  EXPECT_THAT(because("p1 || p2", {1, 1, 0, 0}), ElementsAre("first"));
  EXPECT_THAT(because("p3 -> p4", {1, 1, 0, 0}), ElementsAre("!p3"));
  EXPECT_THAT(because("(p1 || p3) && (p4 || p2)", {1, 1, 0, 0}), ElementsAre("first", "p2"));
}

TEST(Account, SaysEachFactOnceAndTrueNever) {
  EXPECT_THAT(because("p1 && p1 && true", {1, 1, 0, 0}), ElementsAre("first"));
  EXPECT_THAT(because("p1 || true", {1, 1, 0, 0}), IsEmpty());
}

TEST(Account, OfACounterIsWhatHolds) {
  EXPECT_THAT(because("atleast(2, *.in)", {1, 0, 1, 1}), ElementsAre("a.in", "{c d}.in", "4.in"));
  EXPECT_THAT(because("atleast(0, *.in)", {0, 0, 0, 0}), IsEmpty());
}

TEST(Account, OfAnUpperLimitCountsToo) {
  EXPECT_THAT(because("atmost(2, *.in)", {1, 0, 0, 0}),
              ElementsAre("1 of 4 in atmost(2, *.in)", "a.in"));
  EXPECT_THAT(because("p1 && !atleast(2, p*)", {1, 0, 0, 0}),
              ElementsAre("first", "1 of 4 in atleast(2, p*)"));
  EXPECT_THAT(because("exactly(0, *.in)", {0, 0, 0, 0}),
              ElementsAre("none of 4 in exactly(0, *.in)"));
}

// What is told is itself a question, and implies the one that was asked.
TEST(Account, IsEnough) {
  const Network net = four();
  const std::vector<std::string> questions{
      "p1 && (p2 || a.0) || !p3 && atleast(2, *.in)", "(p1 || p2) && (p3 || p4)",
      "p1 -> p2 && (p3 -> deadlock)", "atleast(1, *.0) && (atleast(3, p*) || a.0)"};
  const auto forAll = [&](const auto& call) {
    for (int bits = 0; bits < 32; ++bits)
      call(Locations{bits & 1, bits >> 1 & 1, bits >> 2 & 1, bits >> 3 & 1}, bits >= 16);
  };
  int told = 0;
  for (const std::string& question : questions) {
    const Property asked = readInfix(question, net);
    const auto holdsAt = [&](const Property& property, const Locations& at, bool deadlock) {
      const std::set<int> held = propositionsAt(net, at);
      return holds(property, {held, at, deadlock});
    };
    forAll([&](const Locations& at, bool deadlock) {
      if (!holdsAt(asked, at, deadlock)) return;
      std::string facts = "true";
      for (const std::string& fact : because(question, at, deadlock)) facts += " && " + fact;
      const Property enough = readInfix(facts, net);
      EXPECT_TRUE(holdsAt(enough, at, deadlock)) << facts;
      forAll([&](const Locations& other, bool otherDeadlock) {
        if (holdsAt(enough, other, otherDeadlock)) {
          EXPECT_TRUE(holdsAt(asked, other, otherDeadlock)) << question << ": " << facts;
        }
      });
      ++told;
    });
  }
  EXPECT_GT(told, 30);
}

TEST(Account, OfALongPropertyIsMadeInTime) {
  std::string text = "p1";
  for (int i = 0; i < 100000; ++i) text += " || p2 && p3";
  EXPECT_THAT(because(text, {1, 0, 0, 0}), ElementsAre("first"));
}

TEST(Account, SaysWhichPartsOfTheTextItIsAbout) {
  const Network net = four();
  const auto parts = [&](const std::string& text, const Locations& at) {
    const std::set<int> held = propositionsAt(net, at);
    const Property property = readInfix(text, net);
    std::vector<std::string> texts;
    for (const std::size_t item : accountItems(net, property, {held, at, false})) {
      const PropertyItem& about = property.items[item];
      texts.push_back(text.substr(about.begin, about.end - about.begin));
    }
    return texts;
  };
  EXPECT_THAT(parts("p3 || first && !b.0", {1, 1, 0, 0}), ElementsAre("first", "b.0"));
  EXPECT_THAT(parts("p1 && p1", {1, 0, 0, 0}), ElementsAre("p1", "p1"));
  EXPECT_THAT(parts("p4 || atmost(1, *.in)", {1, 0, 0, 0}),
              ElementsAre("atmost(1, *.in)", "atmost(1, *.in)"));
  EXPECT_THAT(parts("p1 || true", {1, 0, 0, 0}), IsEmpty());
}

TEST(LeavesOpen, WhatHasMoreThanOneWayToHold) {
  const Network net = four();
  EXPECT_FALSE(leavesOpen(readInfix("p1 && !p2 && deadlock", net)));
  EXPECT_FALSE(leavesOpen(readInfix("!(p1 || p2)", net)));
  EXPECT_TRUE(leavesOpen(readInfix("!(p1 && p2)", net)));
  EXPECT_TRUE(leavesOpen(readInfix("atmost(1, *.in)", net)));
}

TEST(Shown, NamesAreWrittenAsQuestionsTakeThem) {
  const Network net = four();
  EXPECT_EQ(shownProcess(net, 0), "a");
  EXPECT_EQ(shownProcess(net, 2), "{c d}");
  EXPECT_EQ(shownProcess(net, 3), "4");
  EXPECT_EQ(shownSpot(net, 3, 1), "4.in");
  EXPECT_EQ(shownSpot(net, 0, 0), "a.0");
  EXPECT_EQ(shownProposition(net, 2), "p2");
  EXPECT_EQ(shownTransition(net, 6), "7");
  EXPECT_EQ(andName("3", shownProcess(net, 2)), " {c d}");
  EXPECT_EQ(andName("4", shownProcess(net, 3)), "");
}

TEST(Shown, InitialLocationsHaveANameTogetherWhereTheyAgree) {
  Network net = four();
  EXPECT_EQ(initialName(net), "0");
  net.names.locations[{1, 0}] = "out";
  EXPECT_EQ(initialName(net), "");
  for (std::size_t p = 0; p < 4; ++p) net.names.locations[{p, 0}] = "out";
  EXPECT_EQ(initialName(net), "out");
  EXPECT_EQ(initialName({}), "0");
}

}  // namespace
}  // namespace tpn

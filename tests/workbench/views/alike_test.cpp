// Which processes look the same, and what one picture says of all of them.

#include "workbench/views/alike.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "workbench/families/families.hpp"
#include "workbench/views/automaton.hpp"

namespace tpn {
namespace {

using testing::ElementsAre;

Network familyOf(const std::string& name, int size) { return familyNamed(name)->network(size); }

std::vector<std::string> namesIn(const std::vector<Automaton>& automata) {
  std::vector<std::string> names;
  for (const Automaton& automaton : automata) names.push_back(automaton.name);
  return names;
}

TEST(Alike, AreProcessesThatDifferInNumbersAlone) {
  EXPECT_THAT(kindsOfProcesses(familyOf("fischer", 4)), ElementsAre(0, 0, 0, 0, 1));
  EXPECT_THAT(kindsOfProcesses(familyOf("dining", 3)), ElementsAre(0, 0, 0, 1, 1, 1));
}

// Any one of these, and there are two kinds.
TEST(Alike, EveryDifferenceCounts) {
  const Network four = familyOf("handshake", 2);
  ASSERT_THAT(kindsOfProcesses(four), ElementsAre(0, 1, 0, 1));
  const auto changed = [&](const auto& change) {
    Network net = four;
    change(net);
    return kindsOfProcesses(net)[2];
  };
  const std::size_t own = 10 - 1;  // sender2 gives up
  EXPECT_EQ(changed([](Network& net) { net.title = "another"; }), 0U);
  EXPECT_EQ(changed([&](Network& net) { net.transitions[own].interval.earliest = 0; }), 2U);
  EXPECT_EQ(changed([&](Network& net) { net.transitions[own].moves[0].target = 0; }), 2U);
  EXPECT_EQ(changed([&](Network& net) { net.names.transitions[own] = "despair"; }), 2U);
  EXPECT_EQ(changed([](Network& net) { net.names.locations[{2, 0}] = "lazy"; }), 2U);
  EXPECT_EQ(changed([](Network& net) { net.processes[2].labels[0] = {77}; }), 2U);
  EXPECT_EQ(changed([](Network& net) { net.processes[2].locations.insert(9); }), 2U);
  EXPECT_EQ(changed([](Network& net) { net.transitions.push_back(net.transitions[9]); }), 2U);
}

TEST(Automata, AreOneForAllThatAreAlike) {
  EXPECT_THAT(namesIn(automataOf(familyOf("fischer", 20), false)),
              ElementsAre("P1 .. P20", "variable"));
  EXPECT_THAT(namesIn(automataOf(familyOf("ring", 6), false)),
              ElementsAre("station1", "station2 .. station5", "station6", "monitor"));
  EXPECT_EQ(automataOf(familyOf("fischer", 20), true).size(), 21U);
}

TEST(Automata, AreOneByOneWhereThereAreFew) {
  EXPECT_THAT(namesIn(automataOf(familyOf("fischer", 3), false)),
              ElementsAre("P1", "P2", "P3", "variable"));
}

TEST(Automata, WithoutNamesAreCalledByNumber) {
  Network net = familyOf("fischer", 5);
  net.names = {};
  const std::vector<Automaton> automata = automataOf(net, false);
  EXPECT_THAT(namesIn(automata), ElementsAre("processes 1 .. 5", "process 6"));
  EXPECT_EQ(automata[0].which, "");
}

TEST(Automata, WhatAnybodySetsIsATable) {
  const Automaton variable = automataOf(familyOf("fischer", 20), false)[1];
  ASSERT_EQ(variable.table.size(), 21U);
  EXPECT_TRUE(variable.arrows.empty());
  const std::vector<Entry>& third = variable.table[3].entries;
  ASSERT_EQ(third.size(), 2U);
  EXPECT_EQ(third[0].from, "from any other");
  EXPECT_EQ(third[0].caption.words, "write3_over*  [0, 0] with P3");
  EXPECT_EQ(third[1].from, "stays");
  EXPECT_EQ(third[1].caption.words, "retry*_seeing3, write3_over3, enter3  [0, 0] with P*");
}

TEST(Automata, CountersAreTables) {
  const std::vector<Automaton> automata = automataOf(familyOf("crossing", 20), false);
  EXPECT_FALSE(automata[1].table.empty()) << automata[1].name;
  EXPECT_TRUE(automata[2].table.empty()) << automata[2].name;
}

TEST(Automata, SayWithWhomInWordsForAllOfThem) {
  const Automaton philosopher = automataOf(familyOf("dining", 20), false)[0];
  std::vector<std::string> words;
  for (const DrawnArrow& arrow : philosopher.arrows)
    for (const Caption& caption : arrow.captions) words.push_back(caption.words);
  EXPECT_THAT(words, testing::Contains("put_back*  [0, 0] with fork*, fork*"));
  EXPECT_THAT(words, testing::Contains("lose_patience*  [3, 3]"));
}

}  // namespace
}  // namespace tpn

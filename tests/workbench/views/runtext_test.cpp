// A run as a table.

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/workbench/views/viewruns.hpp"

namespace tpn {

namespace {

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

// A transition of all processes, each with a proposition of its own in location 1.
Shown crowd(std::size_t size) {
  Shown shown;
  shown.net.title = "crowd";
  shown.net.transitions.resize(1);
  shown.net.transitions[0].interval = {0, 5};
  for (std::size_t p = 0; p < size; ++p) {
    shown.net.transitions[0].moves.push_back({p, 0, 1});
    shown.net.processes.push_back({{0, 1}, {{1, {number(p)}}}});
  }
  shown.property = propertyOf("p" + std::to_string(size));
  shown.run = {{fires(1, Rational(1, 2))}, 1};
  return shown;
}

TEST(RunText, HasALineForEveryStateAndMarksTheGoalAlone) {
  for (unsigned seed = 1; seed <= 50; ++seed) {
    const Shown shown = randomShown(seed, 12);
    const std::vector<std::string> lines = linesOf(runText(shown.net, shown.property, shown.run));
    ASSERT_GE(lines.size(), shown.run.steps.size() + 2);
    const bool asked = shown.property.text != anything().text;
    for (std::size_t i = 0; i <= shown.run.steps.size(); ++i) {
      const bool marked = lines[i + 1].find("<- goal") != std::string::npos;
      EXPECT_EQ(marked, asked && i == shown.run.goal) << "seed " << seed << " state " << i;
    }
  }
}

TEST(RunText, ColumnsAreAligned) {
  const Shown shown = violation();
  const std::vector<std::string> lines = linesOf(runText(shown.net, shown.property, shown.run));
  const std::size_t processes = lines[0].find("processes");
  const std::size_t locations = lines[0].find("locations");
  const std::size_t propositions = lines[0].find("propositions");
  for (std::size_t i = 1; i <= shown.run.steps.size() + 1; ++i)
    for (const std::size_t column : {processes, locations, propositions}) {
      EXPECT_EQ(lines[i].substr(column - 2, 2), "  ") << lines[i];
      EXPECT_NE(lines[i][column], ' ') << lines[i];
    }
}

TEST(RunText, SaysWhatAStepDoes) {
  const std::string text = runText(thirds().net, thirds().property, thirds().run);
  EXPECT_TRUE(
      linesOf(text)[2].starts_with("   1    4/3    4/3           1  1          1: 0 -> 1 "));
}

TEST(RunText, ShowsNamesWhereThereAreAny) {
  const Shown shown = named();
  const std::vector<std::string> lines = linesOf(runText(shown.net, shown.property, shown.run));
  EXPECT_NE(lines[2].find("alice lock       alice: idle -> 1"), std::string::npos) << lines[2];
  EXPECT_NE(lines[11].find("alice_in"), std::string::npos) << lines[11];
  EXPECT_TRUE(lines[13].starts_with(
      "goal: atleast(2, *.critical) || lock.3 && !alice_in holds in the state after step 10"))
      << lines[13];
  EXPECT_EQ(lines[14], "held: alice.critical, {bob & co}.critical");
}

TEST(RunText, SaysWhatHeldOnlyWhereThePropertyLeavesItOpen) {
  const Shown shown = violation();
  EXPECT_EQ(runText(shown.net, shown.property, shown.run).find("held:"), std::string::npos);
  EXPECT_NE(runText(shown.net, propertyOf("p1p11+"), shown.run).find("held: p1\n"),
            std::string::npos);
}

TEST(RunText, StaysReadableWithManyProcesses) {
  const Shown shown = crowd(30);
  for (const std::string& line : linesOf(runText(shown.net, shown.property, shown.run)))
    EXPECT_LE(line.size(), 220U) << line;
}

TEST(RunText, CutsListsButNeverThePropertysPropositions) {
  const Shown shown = crowd(30);
  const std::string step = linesOf(runText(shown.net, shown.property, shown.run)).at(2);
  EXPECT_NE(step.find("1 2 3 4 5 6 7 ... 23 more"), std::string::npos) << step;
  EXPECT_NE(step.find("5: 0 -> 1 ... 25 more"), std::string::npos) << step;
  EXPECT_NE(step.find(" p11 p30 ... 18 more"), std::string::npos) << step;
}

TEST(RunText, WhereNothingWasAskedNoGoalIsMarked) {
  Shown shown = violation();
  shown.property = anything();
  EXPECT_EQ(runText(shown.net, shown.property, shown.run).find("goal"), std::string::npos);
}

}  // namespace

}  // namespace tpn

// A run as a table.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/workbench/views/viewruns.hpp"
#include "workbench/base/textwidth.hpp"

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
  const std::size_t locations = lines[0].find("locations");
  const std::size_t propositions = lines[0].find("propositions");
  for (std::size_t i = 1; i <= shown.run.steps.size() + 1; ++i)
    for (const std::size_t column : {locations, propositions}) {
      EXPECT_EQ(lines[i].substr(column - 2, 2), "  ") << lines[i];
      EXPECT_NE(lines[i][column], ' ') << lines[i];
    }
}

TEST(RunText, SaysWhatAStepDoes) {
  const std::string text = runText(thirds().net, thirds().property, thirds().run);
  EXPECT_TRUE(linesOf(text)[2].starts_with("   1    4/3    4/3           1  1: 0 -> 1 "));
}

TEST(RunText, ShowsNamesWhereThereAreAny) {
  const Shown shown = named();
  const std::vector<std::string> lines = linesOf(runText(shown.net, shown.property, shown.run));
  EXPECT_NE(lines[2].find("wish          alice: idle -> 1"), std::string::npos) << lines[2];
  EXPECT_THAT(lines, testing::Contains("held: alice.critical, {bob & co}.critical"));
  EXPECT_THAT(lines, testing::Contains(testing::HasSubstr("p1 alice_in step  <- goal")));
}

TEST(RunText, SaysWhatHeldOnlyWhereThePropertyLeavesItOpen) {
  const Shown shown = violation();
  EXPECT_EQ(runText(shown.net, shown.property, shown.run).find("held:"), std::string::npos);
  EXPECT_NE(runText(shown.net, propertyOf("p1p11+"), shown.run).find("held: p1\n"),
            std::string::npos);
}

TEST(RunText, NoLineIsWiderThanAskedFor) {
  std::vector<Shown> runs{violation(), named(), thirds(), standstill(), crowd(30)};
  for (unsigned seed = 1; seed <= 8; ++seed) runs.push_back(randomShown(seed, 15));
  for (const Shown& shown : runs)
    for (const std::size_t width : {20U, 33U, 60U, 80U, 200U})
      for (const bool all : {false, true})
        for (const std::string& line :
             linesOf(runText(shown.net, shown.property, shown.run, {.all = all, .width = width})))
          EXPECT_LE(displayedWidth(line), width) << line;
}

// What does not fit beside goes below, with its rows' heads; nothing is lost by it.
TEST(RunText, FoldsIntoBlocksOfColumns) {
  const Shown shown = named();
  const std::string wide = runText(shown.net, shown.property, shown.run, {.width = 300});
  const std::string narrow = runText(shown.net, shown.property, shown.run, {.width = 60});
  const auto heads = [](const std::string& text) {
    const std::vector<std::string> lines = linesOf(text);
    return std::count_if(lines.begin(), lines.end(),
                         [](const std::string& line) { return line.starts_with("step"); });
  };
  EXPECT_EQ(heads(wide), 1);
  EXPECT_EQ(heads(narrow), 3);
  for (const char* const cell : {"{bob & co}: 4 -> critical  <- goal", "p1 alice_in step  <- goal"})
    EXPECT_NE(narrow.find(cell), std::string::npos) << cell;
}

TEST(RunText, ColumnsThatSayNothingAreLeftOutUnlessAllIsAskedFor) {
  Shown shown = standstill();
  shown.net.processes[0].labels.clear();
  shown.net.processes[1].labels.clear();
  const std::string usual = runText(shown.net, shown.property, shown.run);
  EXPECT_TRUE(usual.starts_with("step  time  transition  locations\n")) << usual;
  const std::string all = runText(shown.net, shown.property, shown.run, {.all = true});
  EXPECT_TRUE(
      all.starts_with("step  time  delay  transition  processes  locations  propositions\n"))
      << all;
}

TEST(RunText, ALongQuestionIsFoldedAndThePartThatHeldMarked) {
  Shown shown = violation();
  std::string text = "p77";
  for (int i = 0; i < 60; ++i) text += " || p" + std::to_string(100 + i);
  shown.property = readInfix(text + " || p11 && p21", shown.net);
  const std::string told = runText(shown.net, shown.property, shown.run);
  for (int i = 0; i < 60; ++i)
    EXPECT_NE(told.find("p" + std::to_string(100 + i)), std::string::npos);
  const std::vector<std::string> lines = linesOf(told);
  const auto marks = std::find_if(lines.begin(), lines.end(), [](const std::string& line) {
    return line.find('~') != std::string::npos;
  });
  ASSERT_NE(marks, lines.end());
  const std::string& above = *(marks - 1);
  for (const char* const held : {"p11", "p21"})
    EXPECT_EQ(marks->substr(above.find(held), 3), "~~~") << above << "\n" << *marks;
  EXPECT_EQ(std::count(marks->begin(), marks->end(), '~'), 6);
}

TEST(RunText, ColourIsOnlyWhereItIsAskedFor) {
  const Shown shown = named();
  const std::string plain = runText(shown.net, shown.property, shown.run);
  const std::string coloured = runText(shown.net, shown.property, shown.run, {.colour = true});
  EXPECT_EQ(plain.find('\033'), std::string::npos);
  EXPECT_NE(coloured.find("\033[4;32matleast(2, *.critical)\033[0m"), std::string::npos);
  EXPECT_EQ(coloured.find('~'), std::string::npos);
  for (const std::string& line : linesOf(coloured)) {
    const bool open = line.rfind("\033[") != std::string::npos &&
                      line.compare(line.rfind("\033["), 4, "\033[0m") != 0;
    EXPECT_FALSE(open) << line;
  }
}

TEST(RunText, CutsListsButNeverThePropertysPropositions) {
  const Shown shown = crowd(30);
  const std::string step =
      linesOf(runText(shown.net, shown.property, shown.run, {.width = 300})).at(2);
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

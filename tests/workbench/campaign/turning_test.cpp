// Contradictions and turns of rows that are made up.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "workbench/campaign/collect.hpp"

namespace tpn {
namespace {

Row row(JobAnswer::Kind answer, int transitions, int noRunUpTo) {
  Row row;
  row.state = Row::complete;
  row.answer = answer;
  row.transitions = transitions;
  row.noRunUpTo = noRunUpTo;
  row.job.network = "n";
  row.job.question = "q";
  return row;
}

std::size_t contradictions(std::vector<Row> rows) {
  Collection c;
  c.rows = std::move(rows);
  findContradictions(c);
  return c.contradictions.size();
}

constexpr auto yes = JobAnswer::reachable;
constexpr auto never = JobAnswer::unreachable;
constexpr auto open = JobAnswer::undecided;

TEST(Contradictions, AreYesAndNeverOfOneQuestion) {
  EXPECT_EQ(contradictions({row(yes, 3, 2), row(never, -1, -1)}), 1U);
  EXPECT_EQ(contradictions({row(yes, 3, 2), row(yes, 3, 2)}), 0U);
  EXPECT_EQ(contradictions({row(never, -1, -1), row(open, -1, 9)}), 0U);
}

TEST(Contradictions, AreARunAndThatNoneIsSoShort) {
  EXPECT_EQ(contradictions({row(yes, 3, 1), row(open, -1, 2)}), 0U);
  EXPECT_EQ(contradictions({row(yes, 3, 1), row(open, -1, 3)}), 1U);
}

TEST(Contradictions, AreTwoShortestRunsOfDifferentLengths) {
  std::vector<Row> rows{row(yes, 3, 2), row(yes, 5, -1)};
  rows[1].shortest = true;
  EXPECT_EQ(contradictions(rows), 1U);
}

TEST(Contradictions, AreNotBetweenQuestions) {
  std::vector<Row> rows{row(yes, 3, 2), row(never, -1, -1)};
  rows[1].job.question = "other";
  EXPECT_EQ(contradictions(rows), 0U);
}

TEST(Contradictions, AreNotBetweenValuesOfASweep) {
  std::vector<Row> rows{row(yes, 3, 2), row(never, -1, -1)};
  rows[1].job.swept = {{"t", true, 3}};
  EXPECT_EQ(contradictions(rows), 0U);
}

TEST(Contradictions, AreOfAnswersThatHold) {
  std::vector<Row> rows{row(yes, 3, 2), row(never, -1, -1)};
  rows[1].state = Row::refuted;
  EXPECT_EQ(contradictions(rows), 0U);
}

TEST(Turns, AreBetweenNeighboursWithSureAnswers) {
  Collection c;
  const JobAnswer::Kind answers[] = {never, never, open, yes, yes, never};
  for (int i = 0; i < 6; ++i) {
    c.rows.push_back(row(answers[i], -1, -1));
    c.rows.back().job.swept = {{"t", true, i}};
  }
  findTurns(c);
  ASSERT_EQ(c.turns.size(), 2U);
  EXPECT_EQ(c.turns[0].from, 1);
  EXPECT_EQ(c.turns[0].to, 3);
  EXPECT_EQ(c.turns[1].from, 4);
  EXPECT_EQ(c.turns[1].to, 5);
}

TEST(Turns, OfOneSweepAreForEachValueOfTheOthers) {
  Collection c;
  for (int a = 0; a < 2; ++a)
    for (int b = 0; b < 2; ++b) {
      c.rows.push_back(row(a + b < 1 ? never : yes, -1, -1));
      c.rows.back().job.swept = {{"a", true, a}, {"b", true, b}};
    }
  findTurns(c);
  ASSERT_EQ(c.turns.size(), 2U);
  EXPECT_EQ(c.turns[0].what, "a latest");
  EXPECT_EQ(c.turns[0].where, "b latest 0");
  EXPECT_EQ(c.turns[1].what, "b latest");
  EXPECT_EQ(c.turns[1].where, "a latest 0");
}

}  // namespace
}  // namespace tpn

// Bounds that stay without an answer: what is said of the run of a larger one.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/workbench/search/fakesolver.hpp"
#include "workbench/search/answer.hpp"

namespace {

using tpn::Verdict;

class Unanswered : public testing::Test {
 protected:
  // The goal is four actions away in a circle of five: k = 11. All bounds at once.
  Verdict check(const std::string& script, int maxBound = 20) const {
    const tpn::CheckOptions options{maxBound, std::chrono::milliseconds(2500),
                                    fakeSolver(place_, script), 5, ""};
    return checked({circle(5), propertyOf("p1")}, options);
  }

  static void isNotSaidToBeShortest(const Verdict& v, const std::string& why) {
    ASSERT_EQ(v.answer, Verdict::reachable);
    EXPECT_EQ(v.bound, 11);
    EXPECT_FALSE(v.shortest);
    ASSERT_EQ(v.unanswered.size(), 1U);
    EXPECT_EQ(v.unanswered[0].bound, 5);
    EXPECT_EQ(v.unanswered[0].reason, why);
    EXPECT_EQ(tpn::headline(tpn::answerOf(v)),
              "reachable in 4 transitions (k = 11)\nk = 5 was not answered: " + why +
                  "\nnone of up to 1 does it\n");
  }

  Workplace place_;
};

const std::string others = "[ $k -ne 5 ] && exec cadical -q \"$1\"; ";

TEST_F(Unanswered, BecauseTheSolverWasKilled) {
  const std::string why = "fake was ended by a signal: Killed";
  isNotSaidToBeShortest(check(others + "sleep 0.5; kill -9 $$"), why);
  isNotSaidToBeShortest(check(others + "kill -9 $$"), why);
}

TEST_F(Unanswered, BecauseTheSolverGaveUp) {
  isNotSaidToBeShortest(check(others + "sleep 0.5; echo 's UNKNOWN'"), "fake gave up");
  isNotSaidToBeShortest(check(others + "echo 's UNKNOWN'"), "fake gave up");
}

TEST_F(Unanswered, BecauseTheTimeWasOver) {
  isNotSaidToBeShortest(check(others + "sleep 1000"), "the time is over");
}

TEST_F(Unanswered, BecauseTheAnswerIsBroken) {
  isNotSaidToBeShortest(check(others + "exit 20"),
                        "fake, exit status 20: no answer of a solver: it has no line \"s ...\", "
                        "\"SAT\" or \"UNSAT\"");
}

// The path of k = 8 passes the goal after two actions already.
TEST_F(Unanswered, AndStillShortestWhereTheRunReachesItsGoalEarly) {
  const std::string path =
      fakeSolver(place_, "[ $k -ne 5 ] && exec cadical -q \"$1\"; sleep 0.5; kill -9 $$");
  const Verdict v = checked({circle(3), propertyOf("p1")}, {20, {}, path, 5, ""});
  ASSERT_EQ(v.answer, Verdict::reachable);
  EXPECT_EQ(v.bound, 5);
  EXPECT_TRUE(v.shortest);
  EXPECT_EQ(v.run->steps.size(), 2U);
  EXPECT_EQ(v.run->goal, 2U);
}

TEST_F(Unanswered, NoneWhereAllSmallerOnesAreRefuted) {
  const Verdict v = check("exec cadical -q \"$1\"");
  EXPECT_EQ(v.bound, 11);
  EXPECT_TRUE(v.shortest);
  EXPECT_TRUE(v.unanswered.empty());
  EXPECT_EQ(tpn::headline(tpn::answerOf(v)), "reachable in 4 transitions (k = 11)\n");
}

TEST_F(Unanswered, WithoutARunIsUnknownOrAnError) {
  const Verdict v = check(others + "echo 's UNKNOWN'", 8);
  EXPECT_EQ(v.answer, Verdict::unknown);
  EXPECT_EQ(v.bound, 2);
  EXPECT_EQ(v.reason, "fake gave up at k = 5");
  EXPECT_THAT([&] { check(others + "kill -9 $$", 8); },
              testing::ThrowsMessage<std::runtime_error>(
                  "fake was ended by a signal: Killed at k = 5; no run of up to 1 transitions "
                  "(k = 2) does it"));
}

TEST(Headline, OfEveryAnswer) {
  Verdict v;
  v.reason = "interrupted";
  EXPECT_EQ(tpn::headline(tpn::answerOf(v)), "undecided: interrupted\n");
  v.bound = 5;
  EXPECT_EQ(tpn::headline(tpn::answerOf(v)),
            "undecided: interrupted; no run of up to 2 transitions (k = 5) does it\n");
  v.answer = Verdict::unreached;
  v.reason = "why";
  EXPECT_EQ(tpn::headline(tpn::answerOf(v)),
            "undecided: why; no run of up to 2 transitions (k = 5) does it\n");
  v.answer = Verdict::unreachable;
  EXPECT_EQ(tpn::headline(tpn::answerOf(v)), "unreachable: why\n");
}

TEST(Bounds, AreThoseThatEndAnAction) {
  int k = tpn::boundAfter(0);
  for (std::size_t actions = 0; actions < 9; ++actions) {
    EXPECT_EQ(k, tpn::boundOf(actions));
    k = tpn::boundAfter(k);
  }
}

}  // namespace

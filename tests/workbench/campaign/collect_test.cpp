// What collecting believes, and what it does not.

#include "workbench/campaign/collect.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/workbench/campaign/plannet.hpp"
#include "workbench/base/files.hpp"
#include "workbench/campaign/htmlpage.hpp"
#include "workbench/campaign/plots.hpp"
#include "workbench/campaign/tables.hpp"

namespace tpn {
namespace {

using testing::HasSubstr;

const std::string twoQuestions =
    "engines = [\"bmc\", \"ic3\"]\nmax-transitions = 5\n"
    "[[network]]\nfile = \"counting.tpn\"\nquestions = [\"p1\", \"p2\"]\n";

// Changes what a job answered, with a hash that is right.
void forge(const Plans& plans, int number, const std::function<void(JobAnswer&)>& change) {
  const std::string line = jobLine(readJob(plans.plan(), readPlan(plans.plan()), number));
  const std::string name = answerName(plans.plan(), number);
  JobAnswer answer = readAnswer(line, readFile(name));
  change(answer);
  writeFile(name, answerText(line, answer));
}

TEST(Collect, HasARowForEachJob) {
  const Plans plans;
  plans.campaign(twoQuestions);
  const Collection c = plans.workAll();
  ASSERT_EQ(c.rows.size(), 4U);
  EXPECT_EQ(c.count(Row::complete), 4U);
  EXPECT_EQ(c.rows[0].answer, JobAnswer::reachable);
  EXPECT_EQ(c.rows[0].transitions, 3);
  EXPECT_TRUE(c.rows[0].shortest);
  EXPECT_EQ(c.rows[2].answer, JobAnswer::undecided);
  EXPECT_EQ(c.rows[3].answer, JobAnswer::unreachable);
  EXPECT_TRUE(c.contradictions.empty());
}

TEST(Collect, TellsWhatIsNotBegunAndWhatWas) {
  const Plans plans;
  plans.campaign(twoQuestions);
  plans.work(1);
  writeFile(begunName(plans.plan(), 3), "begun on h at noon\n");
  const Collection c = collect(plans.plan());
  EXPECT_EQ(c.count(Row::missing), 2U);
  EXPECT_EQ(c.rows[2].state, Row::begun);
  EXPECT_THAT(c.rows[2].why, HasSubstr("begun on h at noon"));
  EXPECT_THAT(summary(c), HasSubstr("2 jobs are not begun"));
}

TEST(Collect, ADamagedAnswerIsToldAndNoAnswer) {
  const Plans plans;
  plans.campaign(twoQuestions);
  plans.workAll();
  plans.damage(2);
  const Collection c = collect(plans.plan());
  EXPECT_EQ(c.rows[1].state, Row::broken);
  EXPECT_THAT(summary(c), HasSubstr("job 2 broken: the answer's file "));
}

TEST(Collect, ARunThatDoesNotReplayIsRefuted) {
  const Plans plans;
  plans.campaign(twoQuestions);
  plans.workAll();
  forge(plans, 1, [](JobAnswer& answer) { answer.run->steps[0].delay = Rational(7); });
  EXPECT_EQ(collect(plans.plan()).rows[0].state, Row::refuted);
}

TEST(Collect, ARunWithTransitionsThatAreNotThereIsRefuted) {
  const Plans plans;
  plans.campaign(twoQuestions);
  plans.workAll();
  forge(plans, 1, [](JobAnswer& answer) { answer.run->steps[0].transition = 99; });
  EXPECT_EQ(collect(plans.plan()).rows[0].state, Row::refuted);
}

TEST(Collect, ACertificateOfSomethingElseIsRefuted) {
  const Plans plans;
  plans.campaign(twoQuestions);
  plans.workAll();
  std::string certificate;
  forge(plans, 4, [&](const JobAnswer& answer) { certificate = answer.certificate; });
  forge(plans, 2, [&](JobAnswer& answer) {
    answer = {};
    answer.kind = JobAnswer::unreachable;
    answer.certificate = certificate;
  });
  EXPECT_EQ(collect(plans.plan()).rows[1].state, Row::refuted);
}

TEST(Collect, EnginesThatContradictEachOtherAreAnError) {
  const Plans plans;
  plans.campaign(twoQuestions);
  plans.workAll();
  forge(plans, 2, [](JobAnswer& answer) {
    answer = {};
    answer.noRunUpTo = 3;
  });
  const Collection c = collect(plans.plan());
  ASSERT_EQ(c.contradictions.size(), 1U);
  EXPECT_EQ(
      c.contradictions[0],
      "counting, p1: job 1 (bmc) has a run of 3 transitions, job 2 (ic3) says that none of up "
      "to 3 does it");
}

TEST(Collect, ASweepTellsWhereTheAnswerTurns) {
  const Plans plans;
  // The watchman comes at 3; who counts may be at 0 then where the step from there takes so long.
  plans.campaign(
      "[[network]]\nfile = \"counting.tpn\"\nquestions = [\"1.0 && p3\"]\n"
      "sweep = [\"transition 1: latest 1..4\", \"transition 4: earliest 9..9\"]\n");
  const Collection c = plans.workAll();
  ASSERT_EQ(c.turns.size(), 1U) << collectionText(c);
  EXPECT_EQ(c.turns[0].from, 2);
  EXPECT_EQ(c.turns[0].to, 3);
  EXPECT_EQ(c.turns[0].before, "unreachable");
  EXPECT_EQ(c.turns[0].after, "reachable");
}

// The third step is 1 or 2, or it is not.
const std::vector<RunCube> halves{{{3, 3, true, {0, 1}}}, {{3, 3, false, {0, 1}}}};

TEST(Collect, CubesWithoutARunAreABoundedNo) {
  const Plans plans;
  plans.cubes("p2", halves, 6);
  const Collection c = plans.workAll();
  EXPECT_EQ(c.whole->answer, JobAnswer::undecided);
  EXPECT_EQ(c.whole->noRunUpTo, 6);
  EXPECT_EQ(c.whole->reason, "");
}

TEST(Collect, CubesThatDoNotCoverAreNoAnswer) {
  const Plans plans;
  plans.cubes("p2", {halves[0], {{3, 3, true, {2, 3}}}}, 6);
  const Collection c = plans.workAll();
  EXPECT_EQ(c.whole->noRunUpTo, -1);
  EXPECT_EQ(c.whole->reason, "there are runs in none of the cubes");
}

TEST(Collect, ACubeThatIsOpenKeepsTheQuestionOpen) {
  const Plans plans;
  plans.cubes("p2", halves, 6);
  plans.work(1);
  const Collection c = collect(plans.plan());
  EXPECT_EQ(c.whole->noRunUpTo, -1);
  EXPECT_EQ(c.whole->reason, "1 cube is open");
}

TEST(Collect, ARunInACubeIsTheAnswerAndOthersAreSuperfluous) {
  const Plans plans;
  plans.cubes("p1", {{{1, 1, true, {0, 1}}}, {{1, 1, false, {0, 1}}}}, 6);
  plans.work(1);
  const Collection c = collect(plans.plan());
  EXPECT_EQ(c.whole->answer, JobAnswer::reachable);
  EXPECT_EQ(c.whole->job, 1);
  EXPECT_EQ(c.rows[1].state, Row::superfluous);
}

TEST(Collect, ARunOutsideOfItsCubeIsRefuted) {
  const Plans plans;
  plans.cubes("p1", {{{1, 1, true, {0}}}, {{1, 1, false, {0}}}}, 6);
  plans.work(1);
  const std::string first = jobLine(readJob(plans.plan(), readPlan(plans.plan()), 1));
  const std::string second = jobLine(readJob(plans.plan(), readPlan(plans.plan()), 2));
  writeFile(answerName(plans.plan(), 2),
            answerText(second, readAnswer(first, readFile(answerName(plans.plan(), 1)))));
  const Collection c = collect(plans.plan());
  EXPECT_EQ(c.rows[1].state, Row::refuted);
  EXPECT_EQ(c.rows[1].why, "its run is outside of its cube");
}

TEST(Collect, ANetThatIsNotSafeHasNoAnswerButARunToThat) {
  const Plans plans;
  plans.write("n.net", "tr t [1,1] p -> p q\npl p (1)\n");
  plans.campaign("[[network]]\nfile = \"n.net\"\nquestions = [\"!p\"]\n");
  EXPECT_EQ(plans.workAll().rows[0].answer, JobAnswer::unsafe);
  forge(plans, 1, [](JobAnswer& answer) { answer.kind = JobAnswer::reachable; });
  EXPECT_EQ(collect(plans.plan()).rows[0].state, Row::refuted);
}

TEST(Collect, AnInputThatWasDamagedIsToldOfItsJobsAlone) {
  const Plans plans;
  plans.campaign(twoQuestions);
  plans.workAll();
  const Job last = readJob(plans.plan(), readPlan(plans.plan()), 4);
  plans.write("plan/inputs/" + last.question, "p3\n");
  const Collection c = collect(plans.plan());
  EXPECT_EQ(c.rows[0].state, Row::complete);
  EXPECT_EQ(c.rows[3].state, Row::refuted);
  EXPECT_THAT(c.rows[3].why, HasSubstr("is not what was planned"));
}

TEST(Collect, TextsAndPicturesHaveEveryJob) {
  const Plans plans;
  plans.campaign(twoQuestions);
  const Collection c = plans.workAll();
  const std::string csv = collectionCsv(c);
  EXPECT_EQ(std::count(csv.begin(), csv.end(), '\n'), 5);
  EXPECT_THAT(collectionText(c), HasSubstr("4 jobs, 4 answered\n"));
  EXPECT_THAT(collectionHtml(c), HasSubstr("time over size"));
  EXPECT_THAT(collectionHtml(c), HasSubstr("default-src 'none'"));
  EXPECT_THAT(timeOverSize(c), HasSubstr("counting, p2, ic3"));
  EXPECT_THAT(cactus(c), HasSubstr("<polyline"));
}

// Where a mark stands, there its number is: points of sizes 0 .. 5 lie 96 apart.
TEST(Collect, PlotsMarkWholeNumbersWhereTheyAre) {
  Collection c;
  Row row;
  row.state = Row::complete;
  row.answer = JobAnswer::unreachable;
  row.job.size = 5;
  c.rows.push_back(row);
  const std::string plot = timeOverSize(c);
  for (const int value : {0, 2, 4}) {
    const std::string at = " x=\"" + std::to_string(70 + 96 * value) + "\"";
    EXPECT_THAT(plot, testing::ContainsRegex(at + "[^>]*>" + std::to_string(value) + "</text>"));
  }
}

}  // namespace
}  // namespace tpn

// Jobs done in this process.

#include "workbench/campaign/work.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/workbench/campaign/plannet.hpp"

namespace tpn {
namespace {

const std::string oneJob = "[[network]]\nfile = \"counting.tpn\"\nquestions = [\"p1\"]\n";

TEST(Work, WritesAnAnswerAndNothingBesideIt) {
  const Plans plans;
  plans.campaign(oneJob);
  EXPECT_EQ(plans.work(1).how, Worked::answeredNow);
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(plans.plan() + "/answers/0"))
    names.push_back(entry.path().filename());
  EXPECT_EQ(names, std::vector<std::string>{"1"});
}

TEST(Work, IsNotDoneAgain) {
  const Plans plans;
  plans.campaign(oneJob);
  plans.work(1);
  const std::string before = contents(answerName(plans.plan(), 1));
  EXPECT_EQ(plans.work(1).how, Worked::wasAnswered);
  EXPECT_EQ(contents(answerName(plans.plan(), 1)), before);
}

TEST(Work, IsDoneAgainWhereItsAnswerWasDamaged) {
  const Plans plans;
  plans.campaign(oneJob);
  plans.work(1);
  plans.damage(1);
  EXPECT_EQ(unanswered(plans.plan()), std::vector<int>{1});
  EXPECT_EQ(plans.work(1).how, Worked::answeredNow);
  EXPECT_TRUE(unanswered(plans.plan()).empty());
}

TEST(Work, InterruptedLeavesNothing) {
  const Plans plans;
  plans.campaign(oneJob);
  std::atomic<bool> stop{true};
  EXPECT_EQ(work(plans.plan(), 1, stop).how, Worked::interrupted);
  EXPECT_TRUE(std::filesystem::is_empty(plans.plan() + "/answers/0"));
}

TEST(Work, ThatFailsTellsWhyAndRemainsToBeDone) {
  const Plans plans;
  plans.campaign("engines = [\"abc\"]\n" + oneJob);
  const Job job = readJob(plans.plan(), readPlan(plans.plan()), 1);
  plans.write("plan/inputs/" + job.network, "damaged");
  const Worked worked = plans.work(1);
  EXPECT_EQ(worked.how, Worked::gaveUp);
  EXPECT_THAT(worked.reason, testing::HasSubstr("is not what was planned"));
  EXPECT_EQ(unanswered(plans.plan()), std::vector<int>{1});
  plans.write("plan/inputs/" + job.network, counting);
  EXPECT_EQ(plans.work(1).how, Worked::answeredNow);
}

TEST(Work, OfAJobThatIsNotThereIsRefused) {
  const Plans plans;
  plans.campaign(oneJob);
  EXPECT_THROW(plans.work(2), std::runtime_error);
  EXPECT_THROW(plans.work(0), std::runtime_error);
}

TEST(Work, InARaceIsSuperfluousOnceItIsSettled) {
  const Plans plans;
  planPortfolio(aboutCounting("p2"), 3, {}, plans.plan(), {});
  EXPECT_TRUE(plans.work(2).settles);
  EXPECT_EQ(plans.work(1).how, Worked::superfluous);
  EXPECT_TRUE(unanswered(plans.plan()).empty());
}

TEST(Work, InARaceSettlesItAgainWhereThatWasForgotten) {
  const Plans plans;
  planPortfolio(aboutCounting("p2"), 3, {}, plans.plan(), {});
  plans.work(2);
  std::filesystem::remove(settledName(plans.plan()));
  EXPECT_TRUE(plans.work(2).settles);
  EXPECT_EQ(plans.work(1).how, Worked::superfluous);
}

TEST(Work, InARaceGoesOnWhereTheAnswerThatSettledItWasDamaged) {
  const Plans plans;
  planPortfolio(aboutCounting("p2"), 3, {}, plans.plan(), {});
  plans.work(2);
  plans.damage(2);
  EXPECT_EQ(plans.work(1).how, Worked::answeredNow);
}

}  // namespace
}  // namespace tpn

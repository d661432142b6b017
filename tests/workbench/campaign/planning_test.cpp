// What a plan's folder holds.

#include "workbench/campaign/planning.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/workbench/campaign/plannet.hpp"
#include "workbench/campaign/asking.hpp"

namespace tpn {
namespace {

using testing::HasSubstr;

const std::string head = "engines = [\"bmc\", \"ic3\"]\n[[network]]\nfile = \"counting.tpn\"\n";

std::vector<Job> jobsOf(const Plans& plans) {
  std::vector<Job> jobs;
  forEachJob(plans.plan(), readPlan(plans.plan()),
             [&](const Job& job, const std::string&) { jobs.push_back(job); });
  return jobs;
}

TEST(Planning, AsksEachQuestionOfEachEngine) {
  const Plans plans;
  EXPECT_EQ(plans.campaign(head + "questions = [\"p1\", \"p2\"]\n"), 4);
  const std::vector<Job> jobs = jobsOf(plans);
  ASSERT_EQ(jobs.size(), 4U);
  EXPECT_EQ(jobs[1].engine, "ic3");
  EXPECT_EQ(jobs[1].asked, "p1");
  EXPECT_EQ(jobs[2].asked, "p2");
  EXPECT_EQ(jobs[3].number, 4);
  EXPECT_EQ(jobs[0].size, 2);
  EXPECT_EQ(readInput(plans.plan(), jobs[0].network), counting);
  EXPECT_EQ(readJob(plans.plan(), readPlan(plans.plan()), 3), jobs[2]);
}

TEST(Planning, SeedsAreForTheProver) {
  const Plans plans;
  EXPECT_EQ(plans.campaign("seeds = \"0..2\"\n" + head + "questions = [\"p1\"]\n"), 4);
}

TEST(Planning, SweepsAreEveryCombination) {
  const Plans plans;
  plans.campaign(
      "[[network]]\nfile = \"counting.tpn\"\nquestions = [\"p1\"]\n"
      "sweep = [\"transition 1: latest 2..4\", \"transition 5: earliest 1..2\"]\n");
  const std::vector<Job> jobs = jobsOf(plans);
  ASSERT_EQ(jobs.size(), 6U);
  EXPECT_EQ(jobs[3].swept, (std::vector<Swept>{{"1", true, 3}, {"5", false, 2}}));
  const Network net = networkOf(plans.plan(), jobs[3]);
  EXPECT_EQ(net.transitions[0].interval.latest, 3);
  EXPECT_EQ(net.transitions[4].interval.earliest, 2);
}

TEST(Planning, TakesNetsFromOutside) {
  const Plans plans;
  plans.write("lamp.net", "tr on [2,5] off -> lit\ntr out [1,w[ lit -> off\npl off (1)\n");
  EXPECT_EQ(plans.campaign("[[network]]\nfile = \"lamp.net\"\nquestions = [\"lit\"]\n"
                           "sweep = [\"transition on: earliest 3\"]\n"),
            1);
  const Network net = networkOf(plans.plan(), jobsOf(plans)[0]);
  EXPECT_EQ(net.transitions[0].interval.earliest, 3);
}

TEST(Planning, TellsOfQuestionsThatMayBeMistaken) {
  const Plans plans;
  Diagnostics warnings;
  plans.write("c.toml", head + "questions = [\"p77\"]\n");
  planCampaign(readCampaign(plans.in("c.toml")), plans.plan(), {}, warnings);
  EXPECT_EQ(warnings.size(), 1U);
}

TEST(Planning, FamiliesHaveSizesAndQuestionsOfTheirOwn) {
  const Plans plans;
  EXPECT_EQ(plans.campaign("[[network]]\nfamily = \"fischer\"\nsizes = \"2..4\"\n"
                           "named = [\"violation\"]\n"),
            3);
  EXPECT_EQ(jobsOf(plans)[2].size, 4);
}

TEST(Planning, EqualInputsAreThereOnce) {
  const Plans plans;
  plans.campaign(head + "questions = [\"p1\", \"p2\"]\n");
  std::size_t inputs = 0;
  for (const auto& entry : std::filesystem::directory_iterator(plans.plan() + "/inputs"))
    inputs += entry.is_regular_file() ? 1 : 0;
  EXPECT_EQ(inputs, 3U);
}

TEST(Planning, NothingIsLeftOfAPlanWithAMistake) {
  const Plans plans;
  for (const std::string& mistake :
       {head + "questions = [\"p1\", \"nobody.nowhere\"]\n", head + "properties = [\"none\"]\n",
        head + "questions = [\"p1\"]\nsweep = [\"transition 9: latest 1..2\"]\n",
        std::string("[[network]]\nfamily = \"nobody\"\nsizes = 2\nnamed = [\"x\"]\n"),
        std::string("[[network]]\nfamily = \"ring\"\nsizes = 4\nnamed = [\"x\"]\n")}) {
    EXPECT_THROW(plans.campaign(mistake), std::runtime_error) << mistake;
    EXPECT_FALSE(std::filesystem::exists(plans.plan())) << mistake;
  }
}

TEST(Planning, AFolderThatHoldsSomethingIsRefusedAndStaysAsItIs) {
  const Plans plans;
  std::filesystem::create_directory(plans.plan());
  plans.write("plan/jobs", "mine");
  EXPECT_THROW(plans.campaign(head + "questions = [\"p1\"]\n"), std::runtime_error);
  EXPECT_EQ(plans.read("plan/jobs"), "mine");
}

TEST(Planning, AnInputThatChangedIsNoInput) {
  const Plans plans;
  plans.campaign(head + "questions = [\"p1\"]\n");
  const Job job = jobsOf(plans)[0];
  plans.write("plan/inputs/" + job.network, counting + " ");
  EXPECT_THROW(readInput(plans.plan(), job.network), std::runtime_error);
}

TEST(Scripts, LetArrayTasksShareJobs) {
  Plan plan;
  plan.jobs = 2500;
  plan.limits.timeout = 120;
  plan.limits.memory = 900;
  Resources resources;
  resources.atOnce = 7;
  resources.options = {"--partition=long"};
  const std::string script = slurmScript(plan, resources);
  EXPECT_THAT(script, HasSubstr("#SBATCH --array=1-834%7\n"));
  EXPECT_THAT(script, HasSubstr("#SBATCH --time=9\n"));
  EXPECT_THAT(script, HasSubstr("#SBATCH --mem=1000M\n"));
  EXPECT_THAT(script, HasSubstr("#SBATCH --partition=long\n"));
  EXPECT_THAT(script, HasSubstr("* 3 + 1))\n"));
}

}  // namespace
}  // namespace tpn

// tpn plan, tpn work and tpn collect from outside: how they end, and what they print where.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>

#include "tests/workbench/command/tpn.hpp"

namespace {

using testing::HasSubstr;

class Machines : public Tpn {
 protected:
  Machines() {
    place.write("c.toml",
                "engines = [\"bmc\"]\n[[network]]\nfamily = \"fischer-swapped\"\nsizes = \"2..3\"\n"
                "named = [\"violation\"]\n");
  }
  Outcome planned(const std::string& folder) { return tpn({"plan", "c.toml", "--dir", folder}); }
};

TEST_F(Machines, APlanTellsHowManyJobsItHas) {
  const Outcome plan = planned("plan");
  EXPECT_EQ(plan.status, 0);
  EXPECT_EQ(plan.out, "2 jobs\n");
  EXPECT_EQ(planned("plan").status, 1);  // there is one
}

TEST_F(Machines, CollectEndsByWhatIsThere) {
  planned("plan");
  EXPECT_EQ(tpn({"collect", "plan"}).status, 30);
  EXPECT_EQ(tpn({"work", "--list", "plan"}).out, "1\n2\n");
  for (const char* job : {"1", "2"}) EXPECT_EQ(tpn({"work", "plan", job}).status, 0);
  const Outcome all = tpn({"collect", "plan"});
  EXPECT_EQ(all.status, 0);
  EXPECT_THAT(all.out, HasSubstr("\n2 jobs, 2 answered\n"));
  place.write("plan/answers/0/2", "nonsense");
  EXPECT_EQ(tpn({"collect", "plan"}).status, 1);
  EXPECT_EQ(tpn({"work", "--list", "plan"}).out, "2\n");
}

TEST_F(Machines, CollectIsForProgramsToo) {
  planned("plan");
  tpn({"work", "plan", "1"});
  const auto json = nlohmann::json::parse(tpn({"collect", "plan", "--json"}).out);
  EXPECT_EQ(json.at("jobs").at(0).at("answer"), "reachable");
  EXPECT_EQ(json.at("jobs").at(1).at("state"), "missing");
  EXPECT_THAT(tpn({"collect", "plan", "--csv"}).out, HasSubstr("\r\n2,fischer-swapped,3,,"));
  EXPECT_THAT(tpn({"collect", "plan", "--html"}).out, HasSubstr("<td>fischer-swapped</td>"));
  tpn({"collect", "plan", "--sizes", "s.svg", "--cactus", "c.svg"});
  EXPECT_THAT(place.read("s.svg"), HasSubstr("<svg"));
  EXPECT_THAT(place.read("c.svg"), HasSubstr("<svg"));
}

TEST_F(Machines, WorkTellsWhatJobsThereAre) {
  planned("plan");
  const Outcome beyond = tpn({"work", "plan", "3"});
  EXPECT_EQ(beyond.status, 1);
  EXPECT_EQ(beyond.err, "tpn: plan has the jobs 1 to 2\n");
  EXPECT_EQ(tpn({"work", "nowhere", "1"}).status, 1);
  EXPECT_EQ(tpn({"work", "plan"}).status, 2);
}

TEST_F(Machines, OneQuestionIsCutOrAskedInSeveralWays) {
  tpn({"make", "fischer", "3"});
  place.write("n.tpn", tpn({"make", "fischer", "3"}).out);
  const std::string bad = "atleast(2, *.critical)";
  EXPECT_EQ(
      tpn({"plan", "n", "-p", bad, "--split", "2", "--max-transitions", "6", "--dir", "a"}).out,
      "4 jobs\n");
  EXPECT_EQ(tpn({"plan", "n", "-p", bad, "--portfolio", "3", "--dir", "b"}).out, "3 jobs\n");
  EXPECT_EQ(tpn({"work", "--race", "b", "2"}).status, 0);
  EXPECT_EQ(tpn({"work", "--race", "b", "1"}).status, 3);
  EXPECT_THAT(tpn({"collect", "b"}).out, HasSubstr("\nunreachable: job 2\n"));
}

TEST_F(Machines, WhatGoesTogetherIsTold) {
  EXPECT_EQ(tpn({"plan", "n", "-p", "p1", "--dir", "a"}).status, 2);
  EXPECT_EQ(tpn({"plan", "c.toml", "--split", "2", "--dir", "a"}).status, 2);
  EXPECT_EQ(tpn({"plan", "n", "-p", "p1", "--split", "2", "--dir", "a"}).status, 2);
  EXPECT_EQ(tpn({"plan", "c.toml", "--memory", "2", "--dir", "a"}).status, 2);
  EXPECT_FALSE(std::filesystem::exists(place.folder() / "a"));
}

TEST_F(Machines, APictureIsNeverWrittenOverThePlan) {
  planned("plan");
  const Outcome refused = tpn({"collect", "plan", "--sizes", "plan/jobs"});
  EXPECT_EQ(refused.status, 1);
  EXPECT_THAT(refused.err, HasSubstr("plan/jobs"));
}

}  // namespace

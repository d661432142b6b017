// Questions on the command line and in files, with names, from outside.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/workbench/base/jsonschema.hpp"
#include "tests/workbench/command/tpn.hpp"

namespace {

using nlohmann::json;
using testing::HasSubstr;
using testing::StartsWith;

using Question = Tpn;

const std::string twoCritical = "atleast(2, *.critical)";

TEST_F(Question, OnTheCommandLineIsAnsweredAsThatInTheFile) {
  const Outcome given =
      tpn({"check", "fischer-swapped", "-p", twoCritical, "--engine", "bmc", "--json"});
  const Outcome inFile =
      tpn({"check", "fischer-swapped", "violation", "--engine", "bmc", "--json"});
  EXPECT_EQ(given.status, 10) << given.err;
  const json a = json::parse(given.out);
  const json b = json::parse(inFile.out);
  EXPECT_EQ(a["run"]["property"], twoCritical);
  EXPECT_EQ(a["run"]["held"], json({"P1.critical", "P2.critical"}));
  EXPECT_EQ(b["run"]["held"], json({"critical1", "critical2"}));
  // There is more than one run of this length.
  for (const char* member : {"answer", "noRunUpTo", "shortest", "transitions"})
    EXPECT_EQ(a[member], b[member]) << member;
}

TEST_F(Question, InAFileMayBeInfix) {
  place.write("two.tpn", "\n" + twoCritical + "\n");
  const Outcome checked = tpn({"check", "fischer-swapped", "two", "--engine", "bmc"});
  EXPECT_EQ(checked.status, 10);
  EXPECT_EQ(checked.err, "");
  EXPECT_THAT(checked.out, HasSubstr("goal: atleast(2, *.critical) holds in the state after step"));
  EXPECT_THAT(checked.out, HasSubstr("held: P1.critical, P2.critical\n"));
  const Outcome linted = tpn({"lint", "fischer-swapped", "two"});
  EXPECT_EQ(linted.status, 0);
  EXPECT_THAT(linted.out, HasSubstr("two.tpn:2:1: warning: infix notation"));
}

TEST_F(Question, MayBeProved) {
  const Outcome checked =
      tpn({"check", "fischer", "-p", twoCritical, "--engine", "ic3", "--certificate", "proof"});
  EXPECT_EQ(checked.out, "unreachable\ngoal: atleast(2, *.critical) is never reached\n");
  const Outcome certified = tpn({"certify", "fischer", "proof", "-p", twoCritical});
  EXPECT_EQ(certified.out, "unreachable: the certificate proves it\n") << certified.err;
  EXPECT_EQ(tpn({"certify", "fischer", "proof", "-p", "atleast(1, *.critical)"}).status, 1);
  EXPECT_THAT(place.read("proof"), HasSubstr("  # clause "));
}

TEST_F(Question, IsRepeatedWhateverTheAnswerIs) {
  place.write("twice.net", "net twice\npl p (1)\npl q\ntr t [0,1] p -> p q\n");
  const std::vector<std::vector<std::string>> checks{
      {"fischer-swapped", "-p", "P1.critical"},
      {"fischer", "-p", "!true"},
      {"fischer", "-p", "P1.critical && P2.critical", "--engine", "bmc", "--max-transitions", "2"},
      {"twice.net", "-p", "!p"}};  // unsafe: the second firing
  const std::vector<std::string> told{
      "goal: P1.critical holds in", "goal: !true is never reached\n",
      "goal: P1.critical && P2.critical\n", "goal: !p stays unanswered\n"};
  const std::vector<std::string> asked{"P1.critical", "!true", "P1.critical && P2.critical", "!p"};
  const std::vector<std::string> answers{"reachable", "unreachable", "undecided", "unsafe"};
  for (std::size_t i = 0; i < checks.size(); ++i) {
    std::vector<std::string> arguments{"check"};
    arguments.insert(arguments.end(), checks[i].begin(), checks[i].end());
    EXPECT_THAT(tpn(arguments).out, HasSubstr(told[i]));
    arguments.emplace_back("--json");
    const json found = json::parse(tpn(arguments).out);
    EXPECT_EQ(schemaComplaint(schema("check.schema.json"), found), "");
    EXPECT_EQ(found.at("answer"), answers[i]);
    EXPECT_EQ(found.at("property"), asked[i]);
  }
}

TEST_F(Question, MayBeExportedAndTraced) {
  EXPECT_EQ(tpn({"export", "fischer", "-p", "P1.critical", "--aiger", "f.aag"}).status, 0);
  EXPECT_THAT(place.read("f.aag"), HasSubstr("is bad where: P1.critical\n"));
  ASSERT_EQ(tpn({"check", "fischer", "critical", "--solver", "cadical", "--keep", "kept"}).status,
            10);
  const Outcome traced =  // of the bound that has the run
      tpn({"trace", "fischer", "-p", "atleast(1, *.critical)", "kept/k14.lck", "kept/k14.out"});
  EXPECT_EQ(traced.status, 10) << traced.err;
  EXPECT_THAT(traced.out, HasSubstr("goal: atleast(1, *.critical) holds"));
}

TEST_F(Question, IsAskedInOneWay) {
  for (const std::vector<std::string>& twice :
       {std::vector<std::string>{"check", "fischer", "violation", "-p", "true"},
        {"check", "fischer", "--deadlock", "-p", "true"},
        {"check", "fischer"},
        {"lint", "fischer", "violation", "-p", "true"},
        {"export", "fischer", "--aiger", "f.aag"},
        {"certify", "fischer", "-p", "true"},
        {"certify", "fischer", "violation", "proof", "-p", "true"},
        {"trace", "fischer", "-p", "true", "map"}}) {
    const Outcome outcome = tpn(twice);
    EXPECT_EQ(outcome.status, 2) << testing::PrintToString(twice);
    EXPECT_THAT(outcome.err, StartsWith("tpn")) << testing::PrintToString(twice);
  }
}

TEST_F(Question, WithAMistakeIsShownWithIt) {
  const Outcome outcome = tpn({"check", "fischer", "-p", "P1.critical && P2.critcal"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err,
            "-p:1:19: error: no location `critcal` in process P2; there is `critical` "
            "[infix-unknown]\n"
            "  P1.critical && P2.critcal\n"
            "                    ^\n");
}

TEST_F(Question, OfDeadlockIsOneLikeOthers) {
  const Outcome either = tpn({"check", "handshake", "-p", "deadlock || true", "--engine", "bmc"});
  EXPECT_EQ(either.status, 10) << either.err;
}

}  // namespace

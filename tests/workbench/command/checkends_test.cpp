// How a check ends from outside: signals, bounds without an answer.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "tests/driver/runprogram.hpp"
#include "tests/workbench/base/jsonschema.hpp"
#include "tests/workbench/base/processes.hpp"

namespace {

using testing::HasSubstr;
using testing::MatchesRegex;
using Json = nlohmann::json;

const std::filesystem::path tree = ZERVAN_SOURCE_DIR;

// Four actions in a row; the last location has proposition 1. It is reached with k = 11.
const std::string fourActions =
    "four\ntransitions\n1 0 1\n2 0 1\n3 0 1\n4 0 1\nendtran\n"
    "process\n1 0 1\n2 1 2\n3 2 3\n4 3 4\nvaluation\n4 1\nendval\nend\nend\n";

class CheckEnds : public testing::Test {
 protected:
  void SetUp() override {
    place_.write("net.tpn", fourActions);
    place_.write("phi.tpn", "p1\n");
    place_.write("never.tpn", "p2\n");
    place_.makeFolder("tmp");
  }

  void solver(const std::string& script) const {
    place_.write("fake", "#!/bin/sh\nk=${1##*/k}; k=${k%.cnf}\n" + script + "\n");
    std::filesystem::permissions(place_.folder() / "fake", std::filesystem::perms::owner_all);
  }
  // Temporary files of tpn in tmp.
  Outcome shell(const std::string& command) const {
    return place_.run("sh",
                      {"-c", "TMPDIR=$PWD/tmp; export TMPDIR; tpn=" TPN_BINARY "; " + command});
  }
  bool nothingIsLeft() const { return std::filesystem::is_empty(place_.folder() / "tmp"); }
  pid_t solversProcess() const {
    pid_t pid = 0;
    std::istringstream(place_.read("pid")) >> pid;
    return pid;
  }

  Workplace place_;
};

TEST_F(CheckEnds, WithWhatIsKnownOnEachSignalThatAsksForIt) {
  solver("echo $$ >pid; exec sleep 1000");
  for (const std::string signal : {"INT", "TERM", "HUP"}) {
    const Outcome outcome =
        shell("timeout -s " + signal + " 1 $tpn check net phi --solver ./fake; echo $?");
    EXPECT_THAT(outcome.out, HasSubstr("undecided: interrupted")) << signal;
    EXPECT_TRUE(nothingIsLeft()) << signal;
    ASSERT_GT(solversProcess(), 0);
    EXPECT_TRUE(ends(solversProcess())) << signal;
  }
}

TEST_F(CheckEnds, NotOnAHangUpThatIsIgnored) {
  solver("sleep 1; exec cadical -q \"$1\"");
  const Outcome outcome = shell(
      "trap '' HUP; $tpn check net phi --solver ./fake --jobs 6 & "
      "sleep 0.5; kill -HUP $!; wait $!");
  EXPECT_THAT(outcome.out, HasSubstr("reachable in 4 transitions (k = 11)"));
}

TEST_F(CheckEnds, TogetherWithItsSolverWhenItIsKilled) {
  solver("echo $$ >pid; exec sleep 1000");
  shell("timeout -s KILL 1 $tpn check net phi --solver ./fake");
  ASSERT_GT(solversProcess(), 0);
  EXPECT_TRUE(ends(solversProcess()));
}

TEST_F(CheckEnds, WithALongerRunSaysWhatWasNotAnswered) {
  solver("[ $k -eq 5 ] && kill -9 $$; exec cadical -q \"$1\"");
  const Outcome text = shell("$tpn check net phi --solver ./fake --jobs 6");
  EXPECT_EQ(text.status, 10);
  EXPECT_THAT(text.out,
              testing::StartsWith("reachable in 4 transitions (k = 11)\n"
                                  "k = 5 was not answered: fake was ended by a signal: Killed\n"
                                  "none of up to 1 does it\n\nstep "));
  const Json json = Json::parse(shell("$tpn check net phi --solver ./fake --jobs 6 --json").out);
  EXPECT_EQ(json.at("shortest"), false);
  EXPECT_EQ(json.at("unanswered").at(0).at("bound"), 5);
  EXPECT_EQ(json.at("unanswered").at(0).at("reason"), "fake was ended by a signal: Killed");
  const Json schema = Json::parse(contents(tree / "docs/check.schema.json"));
  EXPECT_EQ(schemaComplaint(schema, json), "");
  EXPECT_EQ(Json::parse(shell("$tpn check net phi --shortest --json").out).at("shortest"), true);
}

TEST_F(CheckEnds, TraceHasTheSameJson) {
  shell("$tpn check net phi --keep kept");
  const Json schema = Json::parse(contents(tree / "docs/check.schema.json"));
  const Json yes = Json::parse(shell("$tpn trace net phi kept/k11.lck kept/k11.out --json").out);
  EXPECT_EQ(schemaComplaint(schema, yes), "");
  EXPECT_EQ(yes.at("answer"), "reachable");
  EXPECT_EQ(yes.at("transitions"), 4);
  EXPECT_EQ(yes.at("k"), 11);
  EXPECT_EQ(yes.at("run").at("goal"), 4);
  const Json no = Json::parse(shell("$tpn trace net phi kept/k8.lck kept/k8.out --json").out);
  EXPECT_EQ(schemaComplaint(schema, no), "");
  EXPECT_EQ(no.at("answer"), "undecided");
  EXPECT_EQ(no.at("property"), yes.at("property"));
}

TEST_F(CheckEnds, TraceRefusesAnAnswerWithoutEnd) {
  shell("$tpn check net phi --keep kept");
  const Outcome outcome = shell("$tpn trace net phi kept/k11.lck /dev/full");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.err, MatchesRegex("tpn: /dev/full[^\n]*\n"));
}

TEST_F(CheckEnds, InAFolderThatAnotherCheckUsesSaysWhoDoes) {
  solver("exec sleep 1000");
  const Outcome outcome = shell(
      "$tpn check net phi --solver ./fake --keep kept & first=$!; sleep 0.5; "
      "$tpn check net phi --keep kept; status=$?; kill $first; wait $first; "
      "echo $status $first >&2");
  EXPECT_THAT(outcome.err, MatchesRegex("tpn: kept cannot be used: process ([0-9]+) keeps files "
                                        "there\n1 ([0-9]+)\n"));
}

}  // namespace

// tpn from outside: what its commands print, how they exit, what they say of files they cannot read
// or write.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "tests/workbench/base/jsonschema.hpp"
#include "tests/workbench/command/tpn.hpp"

namespace {

using testing::HasSubstr;
using testing::StartsWith;
using Json = nlohmann::json;

TEST_F(Tpn, VersionAndHelpExitWith0) {
  EXPECT_THAT(tpn({"--version"}).out, StartsWith("tpn "));
  EXPECT_EQ(tpn({"--version"}).status, 0);
  for (const std::string command : {"lint", "show", "check", "trace", "run", "certify", "export"}) {
    const Outcome help = tpn({command, "--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_THAT(help.out, HasSubstr("NET"));
    EXPECT_THAT(tpn({command, "--version"}).out, StartsWith("tpn "));
  }
}

TEST_F(Tpn, CommandLineWithoutSenseExitsWith2) {
  for (const std::vector<std::string>& arguments : {std::vector<std::string>{},
                                                    {"fly"},
                                                    {"check", "fischer"},
                                                    {"check", "a", "b", "--jobs", "0"},
                                                    {"run", "fischer", "--steps", "3"},
                                                    {"show", "fischer", "--json", "--dot"}})
    EXPECT_EQ(tpn(arguments).status, 2);
}

TEST_F(Tpn, LintExitsWith1OnErrorsOnly) {
  EXPECT_EQ(tpn({"lint", "fischer", "critical"}).status, 0);
  place.write("bad.tpn", "title\ntransitions\n");
  const Outcome bad = tpn({"lint", "bad"});
  EXPECT_EQ(bad.status, 1);
  EXPECT_THAT(bad.out, HasSubstr("bad.tpn:"));
  EXPECT_THAT(bad.out, HasSubstr(": error: "));
}

TEST_F(Tpn, LintTellsWhetherABoundIsTaken) {
  EXPECT_EQ(tpn({"lint", "fischer", "critical", "--bound", "14"}).status, 0);
  EXPECT_THAT(tpn({"lint", "fischer", "--bound", "0"}).out, HasSubstr("[bound-too-small]"));
  EXPECT_THAT(tpn({"lint", "fischer", "--bound", "999999"}).out, HasSubstr("[too-many-variables]"));
}

TEST_F(Tpn, FileThatIsNotThereIsNamed) {
  const Outcome outcome = tpn({"lint", "nothing"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err,
            "tpn: neither nothing nor nothing.tpn can be opened: No such file or directory\n");
}

TEST_F(Tpn, CheckFindsTheRunAndExitsWith10) {
  const Outcome outcome = tpn({"check", "fischer-swapped", "violation", "--engine", "bmc", "--svg",
                               "run.svg", "--vcd", "run.vcd"});
  EXPECT_EQ(outcome.status, 10);
  EXPECT_THAT(outcome.out, StartsWith("reachable in 10 transitions (k = 29)\n"));
  EXPECT_EQ(outcome.err, "");
  EXPECT_THAT(place.read("run.svg"), HasSubstr("</svg>"));
  EXPECT_THAT(place.read("run.vcd"), HasSubstr("$enddefinitions"));
}

TEST_F(Tpn, PictureInTheReadmeIsTheOneThatIsDrawn) {
  ASSERT_EQ(tpn({"check", "fischer-swapped", "-p", "atleast(2, *.critical)", "--engine", "bmc",
                 "--svg", "run.svg"})
                .status,
            10);
  EXPECT_EQ(place.read("run.svg") == contents(tree / "docs/run.svg"), true);
}

TEST_F(Tpn, CheckThatNeverReachesItExitsWith20AndHasACertificate) {
  const Outcome outcome = tpn({"check", "fischer", "violation", "--certificate", "proof"});
  EXPECT_EQ(outcome.status, 20);
  EXPECT_EQ(outcome.out, "unreachable\ngoal: p11p21&p11p31&+p21p31&+ is never reached\n");
  EXPECT_EQ(tpn({"certify", "fischer", "violation", "proof"}).status, 0);
}

TEST_F(Tpn, CheckWithoutRunOfThatLengthExitsWith30) {
  const Outcome outcome =
      tpn({"check", "fischer", "violation", "--engine", "bmc", "--max-transitions", "5"});
  EXPECT_EQ(outcome.status, 30);
  EXPECT_EQ(
      outcome.out,
      "undecided: no run of up to 5 transitions (k = 14) does it\ngoal: p11p21&p11p31&+p21p31&+\n");
}

TEST_F(Tpn, CheckAnswersForDeadlocks) {
  EXPECT_EQ(tpn({"check", "--deadlock", "fischer"}).status, 20);
  EXPECT_EQ(tpn({"check", "--deadlock", "fischer", "violation"}).status, 2);
  EXPECT_EQ(tpn({"check", "--deadlock", "fischer", "--solver", "cadical"}).status, 2);
}

TEST_F(Tpn, CheckRefusesTheOldNameOfALengthWithTheNewOne) {
  const Outcome outcome = tpn({"check", "fischer", "violation", "--max-bound", "50"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_THAT(outcome.err, HasSubstr("--max-transitions"));
}

TEST_F(Tpn, CheckOutOfTimeExitsWith30AndSaysWhatIsKnown) {
  const Outcome outcome = tpn({"check", "fischer", "violation", "--engine", "bmc",
                               "--max-transitions", "1000", "--timeout", "0.3"});
  EXPECT_EQ(outcome.status, 30);
  EXPECT_THAT(outcome.out, StartsWith("undecided: the time is over; no run of up to "));
}

TEST_F(Tpn, InterruptEndsACheckWithWhatIsKnown) {
  const Outcome outcome =
      shell("timeout -s INT 0.5 " TPN_BINARY
            " check fischer violation --engine bmc --max-transitions 1000; echo status $?");
  EXPECT_THAT(outcome.out, StartsWith("undecided: interrupted"));
}

TEST_F(Tpn, CheckStopsAtMistakes) {
  place.write("phi.tpn", "p1EF\n");
  const Outcome outcome = tpn({"check", "fischer", "phi"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.err, HasSubstr("temporal-operator"));
  EXPECT_EQ(outcome.out, "");
}

TEST_F(Tpn, JsonIsAsItsSchemaSays) {
  const Json run = Json::parse(tpn({"check", "handshake", "busy", "--json"}).out);
  EXPECT_EQ(schemaComplaint(schema("check.schema.json"), run), "");
  EXPECT_EQ(schemaComplaint(schema("run.schema.json"), run.at("run")), "");
  EXPECT_EQ(run.at("transitions"), 1);
  EXPECT_EQ(run.at("k"), 2);
  const Json none = Json::parse(tpn({"check", "fischer", "violation", "--solver", "cadical",
                                     "--max-transitions", "3", "--json"})
                                    .out);
  EXPECT_EQ(schemaComplaint(schema("check.schema.json"), none), "");
  EXPECT_EQ(none.at("noRunUpTo"), 3);
  EXPECT_EQ(none.at("noRunUpToK"), 8);
  EXPECT_FALSE(none.contains("k"));
  const Json net = Json::parse(tpn({"show", "fischer", "--json"}).out);
  EXPECT_EQ(schemaComplaint(schema("network.schema.json"), net), "");
  place.write("bad.tpn", "title\ntransitions\n");
  const Json mistakes = Json::parse(tpn({"lint", "bad", "--json"}).out);
  EXPECT_EQ(schemaComplaint(schema("lint.schema.json"), mistakes), "");
}

TEST_F(Tpn, TraceShowsTheRunOfASolverByHand) {
  ASSERT_EQ(place.zervan({"fischer", "critical", "14"}).status, 0);
  shell("cadical -q fischerk14.cnf >answer; minisat -verb=0 fischerk14.cnf answer2");
  for (const std::string answer : {"answer", "answer2"}) {
    const Outcome outcome = tpn({"trace", "fischer", "critical", "fischerk14.lck", answer});
    EXPECT_EQ(outcome.status, 10) << outcome.err;
    EXPECT_THAT(outcome.out, HasSubstr("<- goal"));
  }
  place.write("none", "s UNSATISFIABLE\n");
  EXPECT_EQ(tpn({"trace", "fischer", "critical", "fischerk14.lck", "none"}).status, 30);
  const Outcome foreign = tpn({"trace", "handshake", "busy", "fischerk14.lck", "answer"});
  EXPECT_EQ(foreign.status, 1);
  EXPECT_EQ(foreign.err, "tpn: the variable map is of another network\n");
}

TEST_F(Tpn, RandomRunIsTheSameForTheSameSeed) {
  const Outcome first = tpn({"run", "fischer", "--random", "5", "--steps", "12"});
  EXPECT_EQ(first.status, 0);
  EXPECT_EQ(tpn({"run", "fischer", "--random", "5", "--steps", "12"}).out, first.out);
  EXPECT_NE(tpn({"run", "fischer", "--random", "6", "--steps", "12"}).out, first.out);
}

TEST_F(Tpn, BadScriptIsNamedWithItsLine) {
  place.write("walk", "show\nfly\n");
  const Outcome outcome = tpn({"run", "fischer", "--script", "walk"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.err, HasSubstr("walk:2: error: "));
}

TEST_F(Tpn, FullDiskIsNoticed) {
  const Outcome out = shell(TPN_BINARY " show fischer >/dev/full");
  EXPECT_EQ(out.status, 1);
  EXPECT_EQ(out.err, "tpn: standard output: cannot be written: No space left on device\n");
}

TEST_F(Tpn, PictureOfANetworkIsDrawn) {
  EXPECT_EQ(tpn({"show", "fischer", "--svg", "a 'picture'.svg"}).status, 0);
  EXPECT_THAT(place.read("a 'picture'.svg"), HasSubstr("</svg>"));
  EXPECT_THAT(tpn({"show", "fischer", "--dot"}).out, HasSubstr("digraph"));
}

}  // namespace

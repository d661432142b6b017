// What tpn says to somebody who mistypes: in words, in one line, in time.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/workbench/command/tpn.hpp"

namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::MatchesRegex;
using testing::Not;
using testing::StartsWith;

class Manners : public Tpn {
 protected:
  // What it says of words that make no sense.
  std::string misuse(const std::vector<std::string>& arguments) const {
    const Outcome outcome = tpn(arguments);
    EXPECT_EQ(outcome.status, 2) << arguments.back();
    EXPECT_EQ(outcome.out, "");
    EXPECT_THAT(outcome.err, MatchesRegex("tpn: [^\n]*\n"));
    return outcome.err;
  }
};

TEST_F(Manners, NumbersOutOfRangeAreToldTheRangeInWords) {
  EXPECT_THAT(misuse({"check", "fischer", "critical", "--solver", "cadical", "--jobs", "0"}),
              StartsWith("tpn: --jobs: 0 is no whole number from 1 to 2147483647"));
  EXPECT_THAT(
      misuse({"check", "fischer", "critical", "--max-transitions", "1000000000"}),
      StartsWith("tpn: --max-transitions: 1000000000 is no whole number from 0 to 500000000"));
  EXPECT_THAT(misuse({"lint", "fischer", "--bound", "99999999999"}),
              StartsWith("tpn: --bound: 99999999999 is no whole number from 0 to 2147483647"));
  EXPECT_THAT(misuse({"check", "fischer", "critical", "--engine", "bcm"}),
              StartsWith("tpn: --engine: bcm is none of both, bmc, ic3, abc"));
}

TEST_F(Manners, WordsThatMakeNoSenseAreToldInOneLine) {
  for (const std::vector<std::string>& arguments :
       {std::vector<std::string>{},
        {"check", "fischer"},
        {"check", "fischer", "critical", "--deadlock"},
        {"check", "--deadlock", "fischer", "--solver", "cadical"},
        {"check", "fischer", "critical", "--svg"},
        {"certify", "fischer"},
        {"export", "fischer", "--aiger", "x.aag"},
        {"show", "fischer", "--json", "--dot"}})
    misuse(arguments);
  EXPECT_THAT(misuse({"show", "fischer", "more"}), HasSubstr("no further 'more'"));
  EXPECT_THAT(misuse({"show", "fischer", "--\nfly"}), HasSubstr("show has no option --"));
}

TEST_F(Manners, WhatIsNearIsNamed) {
  EXPECT_THAT(misuse({"chek", "fischer"}),
              StartsWith("tpn: there is no command 'chek'; did you mean check?"));
  EXPECT_THAT(misuse({"check", "fischer", "critical", "--sgv", "x"}),
              StartsWith("tpn: check has no option --sgv; did you mean --svg?"));
  EXPECT_THAT(misuse({"check", "fischer", "critical", "--enginee=bmc"}),
              HasSubstr("did you mean --engine?"));
  EXPECT_THAT(misuse({"xyzzy"}), Not(HasSubstr("did you mean")));
}

TEST_F(Manners, OptionsThatWouldBeIgnoredAreRefused) {
  EXPECT_THAT(misuse({"check", "fischer", "critical", "--jobs", "2"}), HasSubstr("--solver"));
  EXPECT_THAT(misuse({"check", "fischer", "critical", "--flat"}), HasSubstr("--certificate"));
}

TEST_F(Manners, EmptyValuesAreRefused) {
  for (const std::string option : {"--solver", "--keep", "--svg", "--certificate", "--timeout"}) {
    EXPECT_THAT(misuse({"check", "fischer", "critical", option, ""}),
                HasSubstr(option + ": the value is empty"));
  }
  EXPECT_THAT(misuse({"show", ""}), HasSubstr("NET: the value is empty"));
  EXPECT_THAT(misuse({"run", "fischer", "--script", ""}), HasSubstr("the value is empty"));
}

TEST_F(Manners, MissingFileIsToldWithAllNamesTried) {
  EXPECT_EQ(tpn({"show", "nosuch"}).err,
            "tpn: neither nosuch nor nosuch.tpn can be opened: No such file or directory\n");
  EXPECT_EQ(tpn({"show", "fischer.tpn/x"}).err,
            "tpn: fischer.tpn/x: cannot be opened: Not a directory\n");
}

TEST_F(Manners, FolderThatIsNotThereIsToldBeforeTheSearch) {
  const Outcome outcome = tpn({"check", "fischer", "violation", "--engine", "bmc",
                               "--max-transitions", "100000", "--svg", "none/run.svg"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "tpn: none/run.svg: cannot be written: No such file or directory\n");
  EXPECT_EQ(tpn({"check", "handshake", "busy", "--keep", "new", "--svg", "new/run.svg"}).status,
            10);
  EXPECT_EQ(tpn({"show", "fischer", "--svg", "."}).err,
            "tpn: .: cannot be written: Is a directory\n");
}

TEST_F(Manners, AnswerKeepsItsStatusWhateverBecomesOfFiles) {
  const Outcome reached =
      tpn({"check", "handshake", "busy", "--svg", "/dev/full", "--vcd", "run.vcd"});
  EXPECT_EQ(reached.status, 10);
  EXPECT_EQ(reached.err, "tpn: /dev/full: cannot be written: No space left on device\n");
  EXPECT_THAT(reached.out, StartsWith("reachable"));
  EXPECT_THAT(place.read("run.vcd"), HasSubstr("$enddefinitions"));  // the other file is whole
  const Outcome never = tpn({"check", "fischer", "violation", "--certificate", "/dev/full"});
  EXPECT_EQ(never.status, 20);
  EXPECT_THAT(never.out, StartsWith("unreachable\n"));
  EXPECT_THAT(never.err, HasSubstr("No space left on device"));
  EXPECT_EQ(tpn({"run", "fischer", "--random", "1", "--svg", "/dev/full"}).status, 1);
}

TEST_F(Manners, PictureGoesToStandardOutputAsOthersDo) {
  const Outcome drawn = tpn({"show", "handshake", "--svg", "-"});
  EXPECT_EQ(drawn.status, 0) << drawn.err;
  EXPECT_THAT(drawn.out, StartsWith("<?xml"));
  EXPECT_THAT(drawn.out, EndsWith("</svg>\n"));
}

TEST_F(Manners, MissingDotIsToldInALineOfOurs) {
  const Outcome none = shell("PATH=/none " TPN_BINARY " show fischer --svg p.svg");
  EXPECT_EQ(none.status, 1);
  EXPECT_EQ(none.err, "tpn: there is no dot to draw with: install the package graphviz\n");
}

TEST_F(Manners, LintStopsAfterTwentyFindingsOfAFile) {
  std::string text = "many\ntransitions\n";
  for (int i = 1; i <= 26; ++i) text += std::to_string(i) + " x 1\n";
  place.write("many.tpn", text + "endtran\nprocess\n1 0 1\nvaluation\nendval\nend\nend\n");
  const Outcome some = tpn({"lint", "many"});
  EXPECT_EQ(some.status, 1);
  EXPECT_EQ(std::count(some.out.begin(), some.out.end(), '\n'), 21);
  EXPECT_THAT(some.out, HasSubstr("\nmany.tpn: 31 more findings, 31 of them errors; "
                                  "tpn lint --all tells them\n"));
  const std::string all = tpn({"lint", "many", "--all"}).out;
  EXPECT_EQ(std::count(all.begin(), all.end(), '\n'), 51);
  EXPECT_EQ(nlohmann::json::parse(tpn({"lint", "many", "--json"}).out).at("errors"), 51);
  EXPECT_THAT(tpn({"show", "many"}).err, HasSubstr("31 more findings"));
}

// Transition 1 needs 5 units in its location, and transition 2 fires within 3.
const std::string hindered =
    "hindered\ntransitions\n1 5 9\n2 0 3\nendtran\n"
    "process\n1 0 1\nvaluation\nendval\nend\nprocess\n2 0 0\nvaluation\nendval\nend\nend\n";

TEST_F(Manners, WalkSaysWhyATransitionCannotFireAndUntilWhen) {
  place.write("net.tpn", hindered);
  const std::string why = "before 5 has passed, and transition 2 has to fire within 3";
  const std::string folded =
      "before 5 has passed, and\n                        transition 2 has to fire within 3\n";
  EXPECT_THAT(shell("echo show | " TPN_BINARY " run net").out, HasSubstr("; not " + folded));
  EXPECT_THAT(shell("echo 1 | " TPN_BINARY " run net").out, HasSubstr("; it cannot fire " + why));
  EXPECT_THAT(shell("echo 2 4 | " TPN_BINARY " run net").out,
              HasSubstr("; it fires with delay 0 to 3"));
}

TEST_F(Manners, WalkWithJsonPrintsNothingElse) {
  place.write("walk", "show\n1\ntext\n");
  const Outcome scripted = tpn({"run", "fischer", "--script", "walk", "--json"});
  EXPECT_EQ(scripted.status, 0);
  EXPECT_EQ(nlohmann::json::parse(scripted.out).at("steps").size(), 1);
  EXPECT_THAT(scripted.err, HasSubstr("time 0"));
  const Outcome byHand = shell("printf '1\\nquit\\n' | " TPN_BINARY " run fischer --json");
  EXPECT_EQ(nlohmann::json::parse(byHand.out).at("steps").size(), 1);
}

}  // namespace

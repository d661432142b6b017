// Where tpn writes: nothing that is named is destroyed, nothing that is foreign is obeyed, and
// nothing is left behind.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/workbench/command/tpn.hpp"

namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

class Outputs : public Tpn {
 protected:
  void SetUp() override {
    Tpn::SetUp();
    net = place.read("fischer.tpn");
  }

  // Refused in one line, and everything as it was.
  void refused(const std::vector<std::string>& arguments, const std::string& why) const {
    const std::set<std::string> before = place.files();
    const Outcome outcome = tpn(arguments);
    EXPECT_EQ(outcome.status, 1) << why;
    EXPECT_EQ(outcome.out, "") << why;
    EXPECT_THAT(outcome.err, HasSubstr("cannot be written: it is " + why));
    EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 1) << outcome.err;
    EXPECT_EQ(place.read("fischer.tpn") == net, true) << why;
    EXPECT_EQ(place.files(), before);
  }

  // A program dot of ours comes first in PATH.
  void fakeDot(const std::string& script) const {
    place.makeFolder("bin");
    place.write("bin/dot", "#!/bin/sh\n" + script + "\n");
    fs::permissions(place.folder() / "bin/dot", fs::perms::owner_all);
  }

  std::string net;
};

TEST_F(Outputs, InputIsNotOverwritten) {
  refused({"show", "fischer", "--svg", "fischer.tpn"}, "the input fischer.tpn");
  refused({"show", "fischer", "--svg", "../work/./fischer.tpn"}, "the input fischer.tpn");
  refused({"check", "fischer", "violation", "--svg", "violation.tpn"}, "the input violation.tpn");
  refused({"run", "fischer", "--random", "1", "--vcd", "fischer.tpn"}, "the input fischer.tpn");
  place.write("map", "");
  place.write("answer", "");
  for (const std::string name : {"map", "answer"})
    refused({"trace", "fischer", "critical", "map", "answer", "--vcd", name}, "the input " + name);
}

TEST_F(Outputs, InputUnderAnotherNameIsNotOverwritten) {
  fs::create_hard_link(place.folder() / "fischer.tpn", place.folder() / "hard");
  fs::create_symlink("fischer.tpn", place.folder() / "soft");
  for (const std::string name : {"hard", "soft"})
    refused({"show", "fischer", "--svg", name}, "the input fischer.tpn");
}

TEST_F(Outputs, TwoIntoOneFileAreRefused) {
  refused({"check", "handshake", "busy", "--svg", "x", "--vcd", "./x"}, "the output ./x");
}

TEST_F(Outputs, ScriptsAreRefusedBeforeTheyRun) {
  place.write("walk", "1\nsvg fischer.tpn\n");
  refused({"run", "fischer", "--script", "walk"}, "the input fischer.tpn");
  place.write("walk", "text\nvcd walk\n");
  refused({"run", "fischer", "--script", "walk"}, "the input walk");
  place.write("walk", "text a\nvcd ./a\n");
  refused({"run", "fischer", "--script", "walk"}, "the output a");
  place.write("walk", "text a\n");
  refused({"run", "fischer", "--script", "walk", "--svg", "a"}, "the output a");
  place.write("walk", "text a\nquit\nsvg fischer.tpn\n");  // never comes to it
  EXPECT_EQ(tpn({"run", "fischer", "--script", "walk"}).status, 0);
}

TEST_F(Outputs, WalkByHandGoesOnWhereAFileIsRefused) {
  place.write("typed", "svg fischer.tpn\ntext typed\ntext ok\nquit\n");
  const Outcome outcome = shell(TPN_BINARY " run fischer <typed");
  EXPECT_THAT(outcome.out, HasSubstr("error: fischer.tpn: cannot be written: it is the input"));
  EXPECT_THAT(outcome.out, HasSubstr("error: typed: cannot be written: it is the input"));
  EXPECT_EQ(place.read("fischer.tpn") == net, true);
  EXPECT_THAT(place.read("ok"), HasSubstr("step"));
}

TEST_F(Outputs, KeptFilesAreOutputsToo) {
  place.makeFolder("kept");
  fs::copy(place.folder() / "handshake.tpn", place.folder() / "kept/k1.cnf");
  refused({"check", "kept/k1.cnf", "busy", "--keep", "kept"}, "the input kept/k1.cnf");
  refused({"check", "handshake", "busy", "--keep", "kept", "--svg", "kept/k5.cnf"},
          "one of the files kept in kept");
  fs::remove(place.folder() / "kept/k1.cnf");
  fs::copy(place.folder() / "handshake.tpn", place.folder() / "kept/k1.tpn");  // a name like theirs
  EXPECT_EQ(tpn({"check", "kept/k1", "busy", "--keep", "kept", "--svg", "kept/k1.svg"}).status, 10);
}

TEST_F(Outputs, StandardOutputAndDevicesTakeAnything) {
  const Outcome outcome =
      tpn({"check", "handshake", "busy", "--svg", "/dev/null", "--vcd", "/dev/null"});
  EXPECT_EQ(outcome.status, 10) << outcome.err;
  EXPECT_THAT(tpn({"check", "handshake", "busy", "--svg", "-"}).out, HasSubstr("</svg>"));
  EXPECT_THAT(shell(TPN_BINARY " check handshake busy --vcd /dev/stdout | cat").out,
              HasSubstr("$enddefinitions"));
}

TEST_F(Outputs, PictureMayBeginWithADash) {
  EXPECT_EQ(tpn({"show", "fischer", "--svg=-x.svg"}).status, 0);
  EXPECT_THAT(place.read("-x.svg"), HasSubstr("</svg>"));
}

TEST_F(Outputs, NameOfTheTemporaryFolderIsNoCommand) {
  place.makeFolder("$(touch x)");
  const Outcome drawn =
      shell("TMPDIR=\"$PWD/\\$(touch x)\" " TPN_BINARY " show fischer --svg picture.svg");
  EXPECT_EQ(drawn.status, 0) << drawn.err;
  EXPECT_FALSE(place.files().contains("x"));
  EXPECT_THAT(place.read("picture.svg"), HasSubstr("</svg>"));
  EXPECT_EQ(shell("TMPDIR=/none " TPN_BINARY " show fischer --svg p.svg").status, 0);
}

TEST_F(Outputs, DotThatFailsIsToldInOneLineAndLeavesThePictureAlone) {
  place.write("p.svg", "old");
  fakeDot("echo 'no cheese' >&2; exit 1");
  const Outcome wrong = shell("PATH=$PWD/bin:$PATH " TPN_BINARY " show fischer --svg p.svg");
  EXPECT_EQ(wrong.status, 1);
  EXPECT_EQ(wrong.err, "tpn: no picture: dot: no cheese\n");
  EXPECT_EQ(place.read("p.svg"), "old");
}

TEST_F(Outputs, SignalLeavesNeitherDotNorItsFilesBehind) {
  place.makeFolder("tmp");
  fakeDot("echo $$ >pid.new; mv pid.new pid; sleep 1000");
  for (const std::string signal : {"TERM", "HUP", "KILL"}) {
    const Outcome outcome = shell(
        "export PATH=$PWD/bin:$PATH TMPDIR=$PWD/tmp; rm -f pid; " TPN_BINARY
        " show fischer --svg p.svg & until [ -s pid ]; do sleep 0.02; done; kill -s " +
        signal +
        " $!; wait $!; for i in $(seq 100); do kill -0 $(cat pid) 2>/dev/null || break; sleep "
        "0.05; done; kill -0 $(cat pid) 2>/dev/null && echo alive; true");
    EXPECT_EQ(outcome.out, "") << signal;
    EXPECT_TRUE(fs::is_empty(place.folder() / "tmp")) << signal;
  }
}

TEST_F(Outputs, PictureLeavesNoTemporaryFile) {
  place.makeFolder("tmp");
  ASSERT_EQ(shell("TMPDIR=$PWD/tmp " TPN_BINARY " show fischer --svg p.svg").status, 0);
  EXPECT_TRUE(fs::is_empty(place.folder() / "tmp"));
}

}  // namespace

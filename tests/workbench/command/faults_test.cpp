// One call of tpn fails, whichever: what comes out is right, or one line says that it is not, and
// the exit status says so too. Nothing is left behind.
//
// Allocations are made to fail at every seventh of the first 500 only, and the slow commands at
// fewer; with ZERVAN_FAULTS_ALL set, at every one.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <regex>

#include "tests/faults/runwithfault.hpp"
#include "tests/workbench/command/tpn.hpp"

namespace {

namespace fs = std::filesystem;

constexpr int mostCalls = 500;  // a hundred of the allocations come before main

class TpnFaults : public Tpn {
 protected:
  void SetUp() override {
    Tpn::SetUp();
    place.write("walk", "1\n2\n3\ntext text.out\nsvg svg.out\n");
    ASSERT_EQ(place.zervan({"handshake", "busy", "5"}).status, 0);
    shell("cadical -q handshakek5.cnf >answer; mkdir tmp; rm bmctime.out");
    given = place.files();
  }

  // What the command left in the folder, and takes it away.
  std::map<std::string, std::string> written() const {
    std::map<std::string, std::string> files;
    for (const std::string& name : place.files())
      if (!given.contains(name)) {
        files[name] = place.read(name);
        fs::remove_all(place.folder() / name);
      }
    return files;
  }

  // A picture whose text could be printed is missing, or the text is.
  void expectTold(const Outcome& outcome) const {
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 1) << outcome.err;
    EXPECT_TRUE(outcome.err.starts_with("tpn: ") || outcome.err.starts_with("walk:"))
        << outcome.err;
    EXPECT_GT(outcome.err.size(), 12U);
  }

  // Unless the one call that failed was that of the removal.
  void expectNothingTemporary(const FaultedRun& run) const {
    const fs::path folder = place.folder() / "tmp";
    const bool removing = run.hit.starts_with("openat " + folder.string());
    EXPECT_TRUE(removing || fs::is_empty(folder));
    for (const auto& entry : fs::directory_iterator(folder)) fs::remove_all(entry);
  }

  // A check that was cut short says what it knows.
  static bool isUnknown(const Outcome& outcome) {
    return outcome.status == 0 && outcome.out.starts_with("unknown: ");
  }

  // The answer and its status, with a line about a picture or a proof that could not be written.
  static bool isAnswerWithoutAFile(const Outcome& outcome, const Outcome& right) {
    static const std::regex lines("(tpn: [^\n]*: cannot be (opened|written)[^\n]*\n)+");
    return right.status >= 10 && outcome.status == right.status &&
           std::regex_match(outcome.err, lines);
  }

  void survives(const std::vector<std::string>& arguments, int stride = 1) {
    const bool all = std::getenv("ZERVAN_FAULTS_ALL") != nullptr;
    const Outcome right = tpn(arguments);
    const auto files = written();
    // The temporary folder is watched.
    std::vector<std::string> command{"TMPDIR=" + (place.folder() / "tmp").string(), TPN_BINARY};
    command.insert(command.end(), arguments.begin(), arguments.end());
    for (const Fault kind : {Fault::write, Fault::open, Fault::read, Fault::malloc, Fault::fork}) {
      const int step = all ? 1 : stride * (kind == Fault::malloc ? 7 : 1);
      for (int n = 1; n <= mostCalls; n += step) {
        const FaultedRun run = runWithFault(place, kind, n, command);
        const Outcome& outcome = run.outcome;
        SCOPED_TRACE(arguments[0] + ", " + nameOf(kind) + " " + std::to_string(n) + ": " + run.hit +
                     outcome.err);
        EXPECT_FALSE(outcome.timedOut);
        EXPECT_EQ(outcome.signal, 0);
        expectNothingTemporary(run);
        const auto left = written();
        if (isAnswerWithoutAFile(outcome, right)) {
          EXPECT_EQ(outcome.out, right.out);
        } else if (outcome.status == right.status) {
          EXPECT_EQ(outcome.out, right.out);
          EXPECT_EQ(outcome.err, right.err);
          EXPECT_EQ(left == files, true);
        } else if (!isUnknown(outcome)) {
          expectTold(outcome);
        }
        if (run.hit.empty()) break;
      }
    }
  }

  std::set<std::string> given;
};

TEST_F(TpnFaults, Lint) { survives({"lint", "handshake", "busy", "--json"}); }

TEST_F(TpnFaults, Show) { survives({"show", "handshake", "--json"}); }

TEST_F(TpnFaults, ShowDrawn) { survives({"show", "handshake", "--svg", "picture.svg"}, 3); }

TEST_F(TpnFaults, Check) {
  survives(
      {"check", "handshake", "busy", "--engine", "bmc", "--svg", "run.svg", "--vcd", "run.vcd"});
}

TEST_F(TpnFaults, CheckWithASolver) {
  survives({"check", "handshake", "busy", "--solver", "cadical"}, 3);
}

TEST_F(TpnFaults, Trace) {
  survives({"trace", "handshake", "busy", "handshakek5.lck", "answer", "--json"});
}

TEST_F(TpnFaults, Run) { survives({"run", "handshake", "--script", "walk", "--json"}); }

}  // namespace

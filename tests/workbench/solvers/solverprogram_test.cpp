// Solver programs that fail: each failure is an error with one line, and nothing is believed.

#include "workbench/solvers/solverprogram.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/workbench/search/fakesolver.hpp"

namespace {

using testing::AllOf;
using testing::HasSubstr;
using tpn::Verdict;

class FakeSolver : public testing::Test {
 protected:
  std::string solver(const std::string& script, const std::string& name = "fake") const {
    return fakeSolver(place_, script, name);
  }

  Verdict check(const std::string& path, int jobs = 1) const {
    return checked({circle(4), propertyOf("p1")}, {20, {}, path, jobs, ""});
  }

  void fails(const std::string& script, const std::string& message) const {
    const std::string path = solver(script);
    EXPECT_THAT([&] { check(path); },
                testing::ThrowsMessage<std::runtime_error>(
                    AllOf(HasSubstr(message), HasSubstr("fake"), HasSubstr("at k = 5"),
                          HasSubstr("; no run of up to 1 transitions (k = 2) does it"),
                          testing::Not(HasSubstr("\n")))))
        << script;
  }

  Workplace place_;
};

TEST_F(FakeSolver, ThatDoesItsWorkIsBelieved) {
  EXPECT_EQ(check(solver("exec cadical -q \"$1\"")).bound, 8);
}

TEST_F(FakeSolver, ThatIsKilledIsAnError) { fails("kill -9 $$", "ended by a signal: Killed"); }

TEST_F(FakeSolver, ThatSaysNothingIsAnError) {
  fails("exit 10", "no answer of a solver");
  fails("exit 20", "no answer of a solver");
  fails("exit 0", "no answer of a solver");
}

TEST_F(FakeSolver, ThatComplainsIsQuoted) {
  fails("echo 'out of cheese' >&2; exit 3", "exit status 3: no answer of a solver");
  fails("echo 'out of cheese' >&2; exit 3", "(out of cheese)");
}

TEST_F(FakeSolver, WhoseStatusContradictsItsAnswerIsAnError) {
  fails("echo 's UNSATISFIABLE'; exit 10", "contradicts");
  fails("echo 's UNSATISFIABLE'; exit 0", "contradicts");
  fails("echo 's SATISFIABLE'; echo 'v 1 0'; exit 20", "contradicts");
  fails("echo 's UNKNOWN'; exit 20", "contradicts");
}

TEST_F(FakeSolver, WhoseAnswerIsCutOffIsAnError) {
  fails("echo 's SATISFIABLE'; echo 'v 1 2'; exit 10", "cut off");
}

TEST_F(FakeSolver, WhoseValuesAreNoModelIsAnError) {
  fails("echo 's SATISFIABLE'; echo 'v 0'; exit 10", "leaves out variable");
  // All true: the clocks do not start at 0.
  fails("echo 's SATISFIABLE'; seq 9999 | sed 's/^/v /'; echo 'v 0'; exit 10", "violate clause");
}

TEST_F(FakeSolver, ThatGivesUpLeavesTheAnswerOpen) {
  for (const std::string words : {"s UNKNOWN", "s INDETERMINATE", "c UNKNOWN"}) {
    const Verdict v = check(solver("echo '" + words + "'; exit 0"));
    EXPECT_EQ(v.answer, Verdict::unknown);
    EXPECT_EQ(v.bound, 2);
    EXPECT_EQ(v.reason, "fake gave up at k = 5");
  }
}

TEST_F(FakeSolver, ThatFailsDoesNotHideARunOfALargerBound) {
  const std::string path = solver("[ $k -gt 5 ] && exec cadical -q \"$1\"; sleep 0.5; kill -9 $$");
  const Verdict v = check(path, 3);
  EXPECT_EQ(v.answer, Verdict::reachable);
  EXPECT_EQ(v.bound, 8);
  ASSERT_EQ(v.unanswered.size(), 1U);
  EXPECT_EQ(v.unanswered[0].bound, 5);
  EXPECT_EQ(v.unanswered[0].reason, "fake was ended by a signal: Killed");
  EXPECT_FALSE(v.shortest);
}

TEST_F(FakeSolver, ThatAnswersASmallerBoundLaterStillGivesTheSmallest) {
  const std::string path = solver("[ $k -eq 8 ] && sleep 0.4; exec cadical -q \"$1\"");
  const Explored two{circle(4), propertyOf("p1")};
  EXPECT_EQ(checked(two, {20, {}, path, 5, ""}).bound, 8);
}

TEST_F(FakeSolver, ThatHangsIsEndedWithAllItStarted) {
  const std::string path = solver("echo $$ > \"$0.pid\"; sleep 1000 & echo $! >> \"$0.pid\"; wait");
  tpn::CheckOptions options{20, std::chrono::milliseconds(800), path, 1, ""};
  const Verdict v = checked({circle(4), propertyOf("p1")}, options);
  EXPECT_EQ(v.answer, Verdict::unknown);
  EXPECT_EQ(v.bound, 2);
  std::istringstream pids(place_.read("fake.pid"));
  int seen = 0;
  for (pid_t pid = 0; pids >> pid; ++seen)
    EXPECT_TRUE(ends(pid)) << "process " << pid << " still runs";
  EXPECT_EQ(seen, 2);
}

TEST_F(FakeSolver, ThatIsNamedLikeMinisatAnswersInAFile) {
  const std::string path = solver("exec minisat -verb=0 \"$2\" \"$3\"", "minisat-wrapper");
  place_.write("minisat-wrapper", "#!/bin/sh\nexec minisat \"$@\"\n");
  EXPECT_EQ(check(path).bound, 8);
  place_.write("minisat-wrapper", "#!/bin/sh\nminisat \"$@\"; rm -f \"$3\"; exit 10\n");
  EXPECT_THAT([&] { check(path); },
              testing::ThrowsMessage<std::runtime_error>(HasSubstr("no answer of a solver")));
  place_.write("minisat-wrapper", "#!/bin/sh\necho INDET > \"$3\"\n");
  EXPECT_EQ(check(path).answer, Verdict::unknown);
}

// Of an earlier check in the same folder.
TEST_F(FakeSolver, ThatWritesNothingDoesNotPassWithAnOldAnswer) {
  const std::string path = solver("", "minisat-wrapper");
  place_.write("minisat-wrapper", "#!/bin/sh\nexec minisat \"$@\"\n");
  const Explored question{circle(4), propertyOf("p1")};
  const tpn::CheckOptions options{20, {}, path, 1, place_.folder() / "kept"};
  EXPECT_EQ(checked(question, options).bound, 8);
  place_.write("minisat-wrapper", "#!/bin/sh\nexit 20\n");
  EXPECT_THAT([&] { checked(question, options); },
              testing::ThrowsMessage<std::runtime_error>(HasSubstr("no answer of a solver")));
}

TEST_F(FakeSolver, ThatIsNotThereIsAnError) {
  for (const std::string name : {"no-such-solver", "/no/such/solver", "/etc/passwd", "/tmp"})
    EXPECT_THAT([&] { check(name); },
                testing::ThrowsMessage<std::runtime_error>("there is no solver program " + name));
}

TEST_F(FakeSolver, ThatIsNoProgramIsAnError) {
  place_.write("fake",
               "\x7f"
               "ELF");
  std::filesystem::permissions(place_.folder() / "fake", std::filesystem::perms::owner_all);
  EXPECT_THAT([&] { check(place_.folder() / "fake"); },
              testing::ThrowsMessage<std::runtime_error>(HasSubstr("cannot run")));
}

// What it leaves running in the background when it has answered.
TEST_F(FakeSolver, ThatHasAnsweredLeavesNothingBehind) {
  const std::string path = solver("sleep 1000 & echo $! > \"$0.pid\"; cadical -q \"$1\"; exit $?");
  EXPECT_EQ(check(path).bound, 8);
  pid_t left = 0;
  std::istringstream(place_.read("fake.pid")) >> left;
  ASSERT_GT(left, 0);
  EXPECT_TRUE(ends(left));
}

// Each program is called in its own way, and answers where it does.
TEST(SolverPrograms, AreCalledAsTheirNamesSay) {
  const Workplace place;
  const auto called = [&](const std::string& name) {
    const tpn::SolverProgram program(fakeSolver(place, "", name));
    std::string line = name;
    const std::vector<std::string> words = program.command("q");
    for (std::size_t i = 1; i < words.size(); ++i) line += " " + words[i];
    return line + " > " + program.answerFile("q");
  };
  EXPECT_EQ(called("cadical-2"), "cadical-2 -q q.cnf > q.out");
  EXPECT_EQ(called("minisat"), "minisat -verb=0 q.cnf q.result > q.result");
  EXPECT_EQ(called("cryptominisat5"), "cryptominisat5 --verb 0 q.cnf > q.out");
  EXPECT_EQ(called("picosat"), "picosat q.cnf > q.out");
  EXPECT_EQ(called("mine"), "mine q.cnf > q.out");
}

}  // namespace

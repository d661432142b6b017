// Checks that end, one way or another: bounds, dead ends, limits, files kept.

#include "workbench/search/check.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/driver/runprogram.hpp"
#include "tests/workbench/encoding/checknets.hpp"
#include "tests/workbench/search/explored.hpp"

namespace {

using testing::HasSubstr;
using tpn::Verdict;

Verdict checked(const tpn::Network& net, const std::string& property,
                const tpn::CheckOptions& options) {
  return ::checked(Explored{net, propertyOf(property)}, options);
}

tpn::CheckOptions with(const std::string& solver, int maxBound) {
  return {maxBound, {}, solver, 1, ""};
}

class Everywhere : public testing::TestWithParam<const char*> {};

INSTANTIATE_TEST_SUITE_P(Solvers, Everywhere, testing::Values("", "cadical", "minisat"));

TEST_P(Everywhere, TheInitialStateIsBoundOne) {
  const Verdict v = checked(circle(3), "p-1", with(GetParam(), 10));
  EXPECT_EQ(v.answer, Verdict::reachable);
  EXPECT_EQ(v.bound, 1);
  EXPECT_EQ(v.run->goal, 0U);
}

TEST_P(Everywhere, EachActionTakesThreeStepsMore) {
  for (int n = 2; n <= 5; ++n) {
    const Verdict v = checked(circle(n), "p1", with(GetParam(), 20));
    EXPECT_EQ(v.answer, Verdict::reachable);
    EXPECT_EQ(v.bound, 3 * (n - 1) - 1);
    EXPECT_EQ(v.run->steps.size(), static_cast<std::size_t>(n) - 1);
  }
}

TEST_P(Everywhere, ADeadEndBehindTheGoalDoesNotHideIt) {
  const Verdict v = checked(deadEnd(3), "p1", with(GetParam(), 20));
  EXPECT_EQ(v.answer, Verdict::reachable);
  EXPECT_EQ(v.bound, 5);
}

TEST_P(Everywhere, TheLargestBoundIsKept) {
  const Verdict v = checked(circle(5), "p1", with(GetParam(), 10));
  EXPECT_EQ(v.answer, Verdict::unreached);
  EXPECT_EQ(v.bound, 10);
  EXPECT_EQ(v.reason, "");
}

TEST_P(Everywhere, APropertyThatNothingHasIsNotReached) {
  EXPECT_EQ(checked(circle(3), "p9", with(GetParam(), 8)).answer, Verdict::unreached);
}

TEST_P(Everywhere, AnEarliestTimeBeyondAllLatestOnesIsReached) {
  tpn::Network net = deadEnd(2);
  net.transitions[0].interval = {4, {}};
  const Verdict v = checked(net, "p1", with(GetParam(), 5));
  ASSERT_EQ(v.answer, Verdict::reachable);
  EXPECT_EQ(v.run->steps[0].delay, tpn::Rational(4));
}

TEST_P(Everywhere, AStopSignalEndsIt) {
  const std::atomic<bool> stop{true};
  const Verdict v = tpn::check(circle(3), propertyOf("p1"), with(GetParam(), 20), stop, {});
  EXPECT_EQ(v.answer, Verdict::unknown);
  EXPECT_LE(v.bound, 1);  // a quick solver may be through with the first
  EXPECT_EQ(v.reason, "interrupted");
}

TEST_P(Everywhere, TimeEndsIt) {
  tpn::CheckOptions options = with(GetParam(), 0);
  options.timeout = std::chrono::milliseconds(2000);
  const auto begin = std::chrono::steady_clock::now();
  const Verdict v = checked(swappedFischer(6), "p1p2p3p4p5&&&&", options);
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::minutes(2));
  EXPECT_EQ(v.answer, Verdict::unknown);
  EXPECT_EQ(v.reason, "the time is over");
  EXPECT_GE(v.bound, 2);
}

TEST_P(Everywhere, ATooLargeTimeIsRefused) {
  tpn::Network net = circle(2);
  net.transitions[0].interval = {0, std::int64_t{1} << 30};
  EXPECT_THAT([&] { checked(net, "p1", with(GetParam(), 5)); },
              testing::ThrowsMessage<std::runtime_error>(HasSubstr("is too large")));
}

TEST_P(Everywhere, FilesAreKeptWhereAsked) {
  const Workplace place;
  tpn::CheckOptions options = with(GetParam(), 20);
  options.keep = place.folder() / "a" / "b";
  EXPECT_EQ(checked(circle(3), "p1", options).bound, 5);
  for (const int k : {1, 2, 5}) {
    const std::string name = "a/b/k" + std::to_string(k);
    EXPECT_THAT(place.read(name + ".cnf"), testing::StartsWith("p cnf "));
    EXPECT_EQ(place.read(name + ".lck").substr(0, 2), "1\n");
    const bool minisat = std::string(GetParam()) == "minisat";
    EXPECT_THAT(place.read(name + (minisat ? ".result" : ".out")),
                HasSubstr(k == 5 ? "SAT" : "UNSAT"));
  }
}

TEST_P(Everywhere, AFolderThatCannotBeWrittenIsNamed) {
  tpn::CheckOptions options = with(GetParam(), 20);
  for (const std::string folder : {"/proc/none", "/dev/null/x"}) {
    options.keep = folder;
    EXPECT_THAT(
        [&] { checked(circle(3), "p1", options); },
        testing::ThrowsMessage<std::runtime_error>(HasSubstr("cannot write into " + folder)));
  }
}

TEST_P(Everywhere, AFullDiskIsNoticed) {
  const Workplace place;
  std::filesystem::create_symlink("/dev/full", place.folder() / "k5.cnf");
  tpn::CheckOptions options = with(GetParam(), 20);
  options.keep = place.folder();
  EXPECT_THAT([&] { checked(circle(3), "p1", options); },
              testing::ThrowsMessage<std::runtime_error>(
                  testing::AllOf(HasSubstr("k5.cnf could not be written completely"),
                                 HasSubstr("no run of up to 1 transitions"))));
}

// A limit on the size of files fails writes like a full disk, in the middle of a file.
TEST_P(Everywhere, AFileThatEndsTooSoonIsNoticed) {
  const Workplace place;
  tpn::CheckOptions options = with(GetParam(), 20);
  options.keep = place.folder();
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  const rlimit small{2000, before.rlim_max};
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  setrlimit(RLIMIT_FSIZE, &small);
  EXPECT_THAT([&] { checked(swappedFischer(2), "p1p2&", options); },
              testing::ThrowsMessage<std::runtime_error>(HasSubstr("could not be written")));
  setrlimit(RLIMIT_FSIZE, &before);
  std::signal(SIGXFSZ, handler);
}

TEST(EmbeddedCheck, SaysThatAllRunsAreStuck) {
  testing::internal::CaptureStdout();
  const Verdict v = checked(deadEnd(4), "p9", with("", 1000));
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
  EXPECT_EQ(v.answer, Verdict::unreached);
  EXPECT_EQ(v.bound, 1000);
  EXPECT_EQ(v.reason, "no run has more than 3 transitions");
}

TEST(EmbeddedCheck, EndsWithoutABoundWhereAllRunsAreStuck) {
  EXPECT_EQ(checked(deadEnd(7), "p9", with("", 0)).answer, Verdict::unreached);
}

TEST(EmbeddedCheck, FindsTheViolationOfFischersProtocol) {
  const Verdict v = checked(swappedFischer(8), "p1p2&", with("", 50));
  ASSERT_EQ(v.answer, Verdict::reachable);
  EXPECT_EQ(v.bound, 17);
}

TEST(EmbeddedCheck, ReportsProgress) {
  std::vector<tpn::Progress> reports;
  const std::atomic<bool> stop{false};
  tpn::check(circle(4), propertyOf("p1"), with("", 50), stop,
             [&](const tpn::Progress& p) { reports.push_back(p); });
  ASSERT_EQ(reports.size(), 4U);  // k = 1, 2, 5, 8
  EXPECT_EQ(reports.back().bound, 8);
  EXPECT_GT(reports[2].clauses, reports[1].clauses);
  EXPECT_GT(reports[2].variables, reports[1].variables);
  EXPECT_GE(reports[3].conflicts, 0);
}

}  // namespace

// The clause file, byte for byte, in a directory of its own.

#include "boolform/dimacs.hpp"

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <sstream>
#include <string>

#include "boolform/boolform.hpp"
#include "tests/boolform/clauses.hpp"
#include "tests/boolform/store.hpp"

namespace {

std::string contentOf(const std::string& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

ClauseSet setOf(std::initializer_list<Clause> clauses) {
  ClauseSet cnf;
  for (const Clause& c : clauses) cnf.insert(c);
  return cnf;
}

std::string fileOf(const ClauseSet& cnf) {
  showCNF(cnf, "written");
  return contentOf("written.cnf");
}

std::string fileOf(const BoolForm& f) {
  ClauseSet cnf;
  f.toCNF(cnf);
  return fileOf(cnf);
}

class Dimacs : public EmptyStore {
 protected:
  void SetUp() override {
    EmptyStore::SetUp();
    before_ = std::filesystem::current_path();
    directory_ = (std::filesystem::temp_directory_path() / "dimacs-XXXXXX").string();
    ASSERT_NE(mkdtemp(directory_.data()), nullptr);
    std::filesystem::current_path(directory_);
  }
  void TearDown() override {
    std::filesystem::current_path(before_);
    std::filesystem::remove_all(directory_);
    EmptyStore::TearDown();
  }

 private:
  std::filesystem::path before_;
  std::string directory_;
};

TEST_F(Dimacs, ConjunctionOfTwoVariables) {
  EXPECT_EQ(fileOf(con(lit(1), lit(2))),
            "p cnf 3 4\n"
            "-1 -2 3 0\n"
            "3 0\n"
            "1 -3 0\n"
            "2 -3 0\n");
}

TEST_F(Dimacs, SingleVariableHasANegativeCount) {
  EXPECT_EQ(fileOf(lit(5)), "p cnf -999990 1\n5 0\n");
}

TEST_F(Dimacs, TrueIsAHeaderAlone) { EXPECT_EQ(fileOf(BoolForm(true)), "p cnf -1000000 0\n"); }

TEST_F(Dimacs, FalseIsTheEmptyClauseLine) {
  EXPECT_EQ(fileOf(BoolForm(false)), "p cnf -1000000 1\n0\n");
}

TEST_F(Dimacs, NodesFollowTheHighestProblemVariable) {
  EXPECT_EQ(fileOf(setOf({{10, 0, 0}, {-1000007, 3, 0}, {1000001, 0, 0}})),
            "p cnf 17 3\n"
            "10 0\n"
            "11 0\n"
            "3 -17 0\n");
}

TEST_F(Dimacs, WithoutProblemVariablesNodesStartAtOne) {
  EXPECT_EQ(fileOf(setOf({{1000001, -1000003, 0}})), "p cnf 3 1\n1 -3 0\n");
}

TEST_F(Dimacs, LinesStandInTheOrderOfTheSet) {
  EXPECT_EQ(fileOf(setOf({{1, 2, 1000001},
                          {1000001, 0, 0},
                          {2, -1000001, 0},
                          {-1, 2, -1000001},
                          {-2, -1000001, 0}})),
            "p cnf 3 5\n"
            "-1 2 -3 0\n"
            "-2 -3 0\n"
            "3 0\n"
            "2 -3 0\n"
            "1 2 3 0\n");
}

TEST_F(Dimacs, EmptySlotsInsideAClauseAreSkipped) {
  EXPECT_EQ(fileOf(setOf({{3, 3, 5}, {4, 4, 4}, {5, 3, 5}})),
            "p cnf -999990 3\n3 5 0\n3 5 0\n4 0\n");
}

// From 500000 variables on the shift is smaller than the highest of them.
TEST_F(Dimacs, VariablesAboveTheShiftMoveAsWell) {
  EXPECT_EQ(fileOf(setOf({{600000, 0, 0},
                          {-600000, 0, 0},
                          {400000, 0, 0},
                          {-400000, 0, 0},
                          {400001, 0, 0},
                          {-400001, 0, 0},
                          {1000001, 0, 0}})),
            "p cnf 600001 7\n"
            "-200000 0\n"
            "-1 0\n"
            "-400000 0\n"
            "400000 0\n"
            "1 0\n"
            "200000 0\n"
            "600001 0\n");
}

TEST_F(Dimacs, VariableEqualToTheShiftStays) {
  EXPECT_EQ(fileOf(setOf({{500000, 0, 0}, {-1000001, 0, 0}})),
            "p cnf 500001 2\n-500001 0\n500000 0\n");
}

TEST_F(Dimacs, FirstVariableAboveTheShiftMoves) {
  EXPECT_EQ(fileOf(setOf({{500001, 0, 0}, {499999, 0, 0}, {500000, 0, 0}})),
            "p cnf 2 3\n499999 0\n1 0\n2 0\n");
}

TEST_F(Dimacs, ReplacesAnOlderFile) {
  std::ofstream("written.cnf") << std::string(1000, 'x');
  EXPECT_EQ(fileOf(BoolForm(true)), "p cnf -1000000 0\n");
}

TEST_F(Dimacs, TakesTheNameByValue) {
  std::string name = "base";
  showCNF(setOf({{1, 0, 0}}), name);
  EXPECT_EQ(name, "base");
  EXPECT_TRUE(std::filesystem::exists("base.cnf"));
}

TEST_F(Dimacs, AppendsTheSuffixWhateverTheName) {
  showCNF(setOf({{1, 0, 0}}), "net.cnf");
  EXPECT_TRUE(std::filesystem::exists("net.cnf.cnf"));
}

TEST_F(Dimacs, FileThatCannotBeOpenedIsSkippedSilently) {
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  showCNF(setOf({{1, 0, 0}}), "missing/written");
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_TRUE(std::filesystem::is_empty("."));
}

TEST_F(Dimacs, WriterTellsWhatBecameOfTheFile) {
  const ClauseSet cnf = setOf({{1, 0, 0}});
  EXPECT_TRUE(showCNF(cnf, "written").whole());
  EXPECT_EQ(showCNF(cnf, "written").file, "written.cnf");
  EXPECT_FALSE(showCNF(cnf, "missing/written").opened);
  std::filesystem::create_symlink("/dev/full", "full.cnf");
  EXPECT_TRUE(showCNF(cnf, "full").cut());
  EXPECT_TRUE(showCNF(cnf).whole());
}

TEST_F(Dimacs, HeaderVariablesAreThoseOfTheHeader) {
  for (const ClauseSet& cnf : {setOf({{5, 0, 0}}), setOf({{10, 0, 0}, {-1000007, 3, 0}}),
                               setOf({{500001, 0, 0}}), ClauseSet()}) {
    const std::string header = "p cnf " + std::to_string(headerVariables(cnf)) + " ";
    EXPECT_EQ(fileOf(cnf).substr(0, header.size()), header);
  }
}

// The same rule for the whole set, formatted by a stream.
std::string plainText(const ClauseSet& cnf, int shift) {
  std::ostringstream out;
  out << "p cnf " << maxCNFVarNr(cnf) - shift << " " << cnf.size() << "\n";
  for (const Clause& c : listOf(cnf)) {
    for (const int x : {c.first, c.second, c.third}) {
      if (x == 0) continue;
      const int distance = std::abs(x) <= shift ? 0 : shift;
      out << (x > 0 ? x - distance : x + distance) << " ";
    }
    out << "0\n";
  }
  return out.str();
}

TEST_F(Dimacs, LongFileIsWrittenWhole) {
  std::mt19937 random(11);
  std::uniform_int_distribution<int> variable(1, 2000);
  std::uniform_int_distribution<int> anyNode(1000001, 1999999999);
  ClauseSet cnf = setOf({{2000, 0, 0}});
  for (int i = 0; i < 20000; ++i) {
    const int v = variable(random);
    const int n = anyNode(random);
    const int m = anyNode(random);
    cnf.insert(Clause(-v, n, i % 3 == 0 ? 0 : -m));
  }
  const std::string expected = plainText(cnf, 998000);
  ASSERT_GT(expected.size(), 5U * 65536U);
  EXPECT_EQ(fileOf(cnf), expected);
}

TEST_F(Dimacs, OneArgumentFormKeepsRawNumbersInTestCnf) {
  ClauseSet cnf;
  con(lit(1), lit(2)).toCNF(cnf);
  showCNF(cnf);
  EXPECT_EQ(contentOf("test.cnf"),
            "p cnf 1000001 4\n"
            "-1 -2 1000001 0\n"
            "1000001 0\n"
            "1 -1000001 0\n"
            "2 -1000001 0\n");
}

TEST_F(Dimacs, OneArgumentFormOfTheEmptySetCountsNothing) {
  showCNF(ClauseSet());
  EXPECT_EQ(contentOf("test.cnf"), "p cnf 0 0\n");
}

TEST_F(Dimacs, HighestNumberLooksAtEverySlotAndSign) {
  EXPECT_EQ(maxCNFVarNr(setOf({{-9, 1, 2}, {3, 0, 0}})), 9);
  EXPECT_EQ(maxCNFVarNr(setOf({{3, 3, 4}, {5, 3, 5}})), 5);
  EXPECT_EQ(maxCNFVarNr(setOf({{1, 2, -2147483647}})), 2147483647);
}

TEST_F(Dimacs, HighestNumberOfNothingIsZero) {
  EXPECT_EQ(maxCNFVarNr(ClauseSet()), 0);
  EXPECT_EQ(maxCNFVarNr(setOf({{0, 0, 0}})), 0);
}

TEST_F(Dimacs, HighestProblemVariableIgnoresNodes) {
  EXPECT_EQ(maxCNFOrgVarNr(setOf({{-9, 1, -1000002}, {1000000, 0, 0}})), 9);
  EXPECT_EQ(maxCNFOrgVarNr(setOf({{-999999, 1000000, 0}})), 999999);
}

TEST_F(Dimacs, HighestProblemVariableOfNothingIsZero) {
  EXPECT_EQ(maxCNFOrgVarNr(ClauseSet()), 0);
  EXPECT_EQ(maxCNFOrgVarNr(setOf({{0, 0, 0}, {1000001, 0, 0}})), 0);
}

}  // namespace

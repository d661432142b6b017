// Path lengths that do not fit: into the variable numbers, into the node numbers.

#include "translation/pathlimit.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <limits>
#include <string>
#include <vector>

#include "tests/model/networks.hpp"
#include "tests/model/sample.hpp"
#include "tests/translation/built.hpp"
#include "translation/reachtran.hpp"

namespace {

class Limit : public testing::TestWithParam<std::string> {
 protected:
  void SetUp() override {
    forgetFormulas();
    model = modelOf(GetParam());
    model->formula = std::make_unique<EctlForm>("p1p2+");
  }
  void TearDown() override { BoolForm::lastNr = std::numeric_limits<int>::max(); }

  int nodes(int k) const {
    forgetFormulas();
    BoolForm::lastNr = std::numeric_limits<int>::max();
    EctlTransl translator(*model, k);
    const BoolForm path = translator.symbPath();
    const BoolForm property = translator.inSomeState(*model->formula);
    con(property, path);
    return static_cast<int>(BoolForm::tv.size());
  }

  void check(int k) const {
    forgetFormulas();
    EctlTransl(*model, k).checkEctlFormula(folder / "run");
  }

  Folder folder;
  Model model;
};
class LimitDeathTest : public Limit {};

std::string largest(int k) { return "the largest path length that fits is " + std::to_string(k); }

// --- Variables. ---

TEST_P(LimitDeathTest, VariablesStayBelowAMillion) {
  const int perState = static_cast<int>(model->getSymStateLen());
  const int fits = 999999 / perState - 1;
  refuseTooManyVariables(*model, 1);
  refuseTooManyVariables(*model, fits);
  const std::string needed = std::to_string((fits + 2) * perState);
  EXPECT_EXIT(refuseTooManyVariables(*model, fits + 1), testing::ExitedWithCode(1),
              "^zervan: path length " + std::to_string(fits + 1) + " needs " + needed +
                  " variables, and 999999 is the most; " + largest(fits) + "\n$");
}

TEST_P(LimitDeathTest, LongestOfAllPathsIsRefused) {
  EXPECT_EXIT(refuseTooManyVariables(*model, 2147483647), testing::ExitedWithCode(1),
              largest(static_cast<int>(999999 / model->getSymStateLen()) - 1));
}

TEST_P(LimitDeathTest, RunWithTooManyVariablesTouchesNoFile) {
  EXPECT_EXIT(check(1000000), testing::ExitedWithCode(1), "^zervan: [^\n]*\n$");
  EXPECT_TRUE(std::filesystem::is_empty(folder / ""));
}

// --- Nodes. ---

TEST_P(Limit, LargestLengthIsThatOfBuildingThemAll) {
  std::vector<int> count{0};
  for (int k = 1; k <= 40; ++k) count.push_back(nodes(k));
  for (std::size_t k = 2; k < 30; ++k)
    for (const int spare : {0, 1, count[k + 1] - count[k] - 1}) {
      const int budget = count[k] + spare;
      int fits = 0;
      for (std::size_t j = 1; j <= 40; ++j)
        if (count[j] <= budget) fits = static_cast<int>(j);
      EXPECT_EQ(largestLengthWithin(*model, budget), fits) << budget << " nodes for " << GetParam();
    }
}

TEST_P(Limit, NoLengthFitsIntoTooFewNodes) {
  EXPECT_EQ(largestLengthWithin(*model, nodes(1) - 1), 0);
  EXPECT_EQ(largestLengthWithin(*model, 0), 0);
}

TEST_P(Limit, LengthIsBoundedByTheVariablesAsWell) {
  EXPECT_EQ(largestLengthWithin(*model, std::int64_t{1} << 60),
            999999 / model->getSymStateLen() - 1);
}

TEST_P(Limit, CountingLeavesAnEmptyStore) {
  largestLengthWithin(*model, 1000);
  EXPECT_TRUE(BoolForm::tv.empty());
  EXPECT_EQ(BoolForm::maxNr, varNrLimit);
  EXPECT_EQ(nodes(3), nodes(3));
}

// The last length that fits exactly runs through; one node less is too little for it.
TEST_P(LimitDeathTest, LengthThatFitsExactlyIsAccepted) {
  for (const int k : {2, 5, 14, 16}) {
    const int most = nodes(k);
    BoolForm::lastNr = varNrLimit + most;
    check(k);
    EXPECT_TRUE(std::filesystem::exists(folder / "run.cnf"));
    EXPECT_EXIT(check(k + 1), testing::ExitedWithCode(1), largest(k) + "\n$");
  }
}

TEST_P(LimitDeathTest, LengthThatIsANodeTooLongIsRefused) {
  for (const int k : {3, 13, 17}) {
    const int most = nodes(k) - 1;
    BoolForm::lastNr = varNrLimit + most;
    EXPECT_EXIT(check(k), testing::ExitedWithCode(1),
                "zervan: path length " + std::to_string(k) + " needs more than " +
                    std::to_string(most) + " formula nodes; " + largest(k - 1) + "\n$");
  }
}

TEST_P(LimitDeathTest, RunWithTooManyNodesTouchesNoFile) {
  const int most = nodes(3);
  BoolForm::lastNr = varNrLimit + most;
  EXPECT_EXIT(check(20), testing::ExitedWithCode(1), "formula nodes");
  EXPECT_TRUE(std::filesystem::is_empty(folder / ""));
}

TEST_P(LimitDeathTest, NoLengthAtAllIsSaidSo) {
  BoolForm::lastNr = varNrLimit + 1;
  EXPECT_EXIT(check(4), testing::ExitedWithCode(1), "formula nodes; no path length fits\n$");
}

INSTANTIATE_TEST_SUITE_P(Networks, Limit,
                         testing::Values(twoProcesses(), threeProcesses(), tinyNetwork(),
                                         tinyPair(), randomNetwork(1), randomNetwork(2)));
// Paths that are false from their second step on: some lengths need no more nodes than the last.
INSTANTIATE_TEST_SUITE_P(WithoutTransitions, Limit,
                         testing::Values(emptyNetwork(), network("", process("")),
                                         network("", process("1 0 1\n", "1 1\n"))));
INSTANTIATE_TEST_SUITE_P(Networks, LimitDeathTest,
                         testing::Values(twoProcesses(), threeProcesses(), tinyNetwork(),
                                         tinyPair(), randomNetwork(1), randomNetwork(2)));

}  // namespace

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
class Counting : public Limit {};

// What a refusal of this kind says and names; that of none where nothing is refused.
struct Refused {
  std::string what;
  int largest = -1;
  friend bool operator==(const Refused&, const Refused&) = default;
};
template <class Kind, class Attempt>
Refused refusalOf(Attempt attempt) {
  try {
    attempt();
  } catch (const Kind& refusal) {
    return {refusal.what(), refusal.largest};
  }
  return {"", -1};
}

Refused refusal(int k, const std::string& needs, int largest) {
  const std::string fits = "the largest path length that fits is " + std::to_string(largest);
  return {"path length " + std::to_string(k) + " needs " + needs + "; " +
              (largest > 0 ? fits : "no path length fits"),
          largest};
}

// --- Variables. ---

TEST_P(Limit, VariablesStayBelowAMillion) {
  const int perState = static_cast<int>(model->getSymStateLen());
  const int fits = 999999 / perState - 1;
  refuseTooManyVariables(*model, 1);
  refuseTooManyVariables(*model, fits);
  const std::string needed = std::to_string((fits + 2) * perState);
  EXPECT_EQ(refusalOf<TooManyVariables>([&] { refuseTooManyVariables(*model, fits + 1); }),
            refusal(fits + 1, needed + " variables, and 999999 is the most", fits));
}

TEST_P(Limit, LongestOfAllPathsIsRefused) {
  EXPECT_EQ(
      refusalOf<TooManyVariables>([&] { refuseTooManyVariables(*model, 2147483647); }).largest,
      static_cast<int>(999999 / model->getSymStateLen()) - 1);
}

TEST_P(Limit, RunWithTooManyVariablesTouchesNoFile) {
  EXPECT_THROW(check(1000000), TooManyVariables);
  EXPECT_TRUE(std::filesystem::is_empty(folder / ""));
}

// --- Nodes. ---

TEST_P(Counting, LargestLengthIsThatOfBuildingThemAll) {
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

TEST_P(Counting, NoLengthFitsIntoTooFewNodes) {
  EXPECT_EQ(largestLengthWithin(*model, nodes(1) - 1), 0);
  EXPECT_EQ(largestLengthWithin(*model, 0), 0);
}

TEST_P(Counting, LengthIsBoundedByTheVariablesAsWell) {
  EXPECT_EQ(largestLengthWithin(*model, std::int64_t{1} << 60),
            999999 / model->getSymStateLen() - 1);
}

TEST_P(Counting, CountingLeavesAnEmptyStore) {
  largestLengthWithin(*model, 1000);
  EXPECT_TRUE(BoolForm::tv.empty());
  EXPECT_EQ(BoolForm::maxNr, varNrLimit);
  EXPECT_EQ(nodes(3), nodes(3));
}

// The last length that fits exactly runs through; one node less is too little for it.
TEST_P(Limit, LengthThatFitsExactlyIsAccepted) {
  for (const int k : {2, 5, 14, 16}) {
    const int most = nodes(k);
    BoolForm::lastNr = varNrLimit + most;
    check(k);
    EXPECT_TRUE(std::filesystem::exists(folder / "run.cnf"));
    EXPECT_EQ(refusalOf<TooManyNodes>([&] { check(k + 1); }).largest, k);
  }
}

TEST_P(Limit, LengthThatIsANodeTooLongIsRefused) {
  for (const int k : {3, 13, 17}) {
    const int most = nodes(k) - 1;
    BoolForm::lastNr = varNrLimit + most;
    EXPECT_EQ(refusalOf<TooManyNodes>([&] { check(k); }),
              refusal(k, "more than " + std::to_string(most) + " formula nodes", k - 1));
  }
}

TEST_P(Limit, RunWithTooManyNodesTouchesNoFile) {
  const int most = nodes(3);
  BoolForm::lastNr = varNrLimit + most;
  EXPECT_THROW(check(20), TooManyNodes);
  EXPECT_TRUE(std::filesystem::is_empty(folder / ""));
}

TEST_P(Limit, NoLengthAtAllIsSaidSo) {
  BoolForm::lastNr = varNrLimit + 1;
  EXPECT_EQ(refusalOf<TooManyNodes>([&] { check(4); }), refusal(4, "more than 1 formula nodes", 0));
}

// A refused run leaves the store as it was at the start: the next one is as good as in a process
// of its own.
TEST_P(Limit, RunAfterARefusalIsAnyOther) {
  forgetFormulas();
  EctlTransl(*model, 3).checkEctlFormula(folder / "run");
  const std::string clauses = folder.read("run.cnf");
  BoolForm::lastNr = varNrLimit + nodes(3);
  EXPECT_THROW(check(20), TooManyNodes);
  EctlTransl(*model, 3).checkEctlFormula(folder / "run");
  EXPECT_EQ(folder.read("run.cnf") == clauses, true);
}

INSTANTIATE_TEST_SUITE_P(Networks, Limit,
                         testing::Values(twoProcesses(), threeProcesses(), tinyNetwork(),
                                         tinyPair(), randomNetwork(1), randomNetwork(2)));
INSTANTIATE_TEST_SUITE_P(Networks, Counting,
                         testing::Values(twoProcesses(), threeProcesses(), tinyNetwork(),
                                         tinyPair(), randomNetwork(1), randomNetwork(2)));
// Paths that are false from their second step on: some lengths need no more nodes than the last.
INSTANTIATE_TEST_SUITE_P(WithoutTransitions, Counting,
                         testing::Values(emptyNetwork(), network("", process("")),
                                         network("", process("1 0 1\n", "1 1\n"))));

}  // namespace

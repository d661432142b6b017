// The verification run: its progress lines and its files.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <limits>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "boolform/clause.hpp"
#include "boolform/dimacs.hpp"
#include "tests/model/networks.hpp"
#include "tests/translation/built.hpp"
#include "translation/pathlimit.hpp"
#include "translation/reachtran.hpp"

namespace {

class Run : public testing::Test {
 protected:
  void SetUp() override { forgetFormulas(); }

  void check(const std::string& text, const std::string& property, int k) {
    model = modelOf(text);
    model->formula = std::make_unique<EctlForm>(property);
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    written = EctlTransl(*model, k).checkEctlFormula(folder / "run");
    out = testing::internal::GetCapturedStdout();
    err = testing::internal::GetCapturedStderr();
  }

  // The number at the end of the line that begins with `label`.
  static long numberAfter(const std::string& text, const std::string& label) {
    const std::size_t at = text.find(label);
    return at == std::string::npos ? -1 : std::stol(text.substr(at + label.size()));
  }

  // The clauses, built once more.
  ClauseSet clauses(int k) const {
    forgetFormulas();
    EctlTransl translator(*model, k);
    const BoolForm path = translator.symbPath();
    const BoolForm property = translator.inSomeState(*model->formula);
    const BoolForm whole = con(property, path);
    ClauseSet cnf;
    whole.toCNF(cnf);
    return cnf;
  }

  Folder folder;
  Model model;
  WrittenRun written;
  std::string out;
  std::string err;
};

TEST_F(Run, ReportsItsProgressOnStandardError) {
  check(twoProcesses(), "p3", 3);
  const std::regex transcript(
      "Creating symbolic paths\nEnd of symbolic path: 393\nTranslation\ntranslation : 396\n"
      "End of translation: 396\nCreating clauses: 1243\nWriting down clauses \n"
      "Time consumed : [0-9.e-]+\n");
  EXPECT_TRUE(std::regex_match(err, transcript)) << err;
}

TEST_F(Run, ReportsTheConjunctionOnStandardOutput) {
  check(twoProcesses(), "p3", 3);
  EXPECT_EQ(out, "Conjunction: 397\n");
}

// What is told next has a line of its own. The last of all nodes is the conjunction.
TEST_F(Run, RefusalEndsTheProgressLine) {
  model = modelOf(twoProcesses());
  model->formula = std::make_unique<EctlForm>("p3");
  BoolForm::lastNr = varNrLimit + 396;
  testing::internal::CaptureStdout();
  EXPECT_THROW(EctlTransl(*model, 3).checkEctlFormula(folder / "run"), TooManyNodes);
  BoolForm::lastNr = std::numeric_limits<int>::max();
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "Conjunction: \n");
}

TEST_F(Run, StoreSizesAreThoseOfThePathThePropertyAndTheirConjunction) {
  check(threeProcesses(), "p1p2&p4+", 5);
  forgetFormulas();
  EctlTransl translator(*model, 5);
  const BoolForm path = translator.symbPath();
  EXPECT_EQ(numberAfter(err, "End of symbolic path: "), static_cast<long>(BoolForm::tv.size()));
  const BoolForm property = translator.inSomeState(*model->formula);
  EXPECT_EQ(numberAfter(err, "\ntranslation : "), static_cast<long>(BoolForm::tv.size()));
  EXPECT_EQ(numberAfter(err, "End of translation: "), static_cast<long>(BoolForm::tv.size()));
  con(property, path);
  EXPECT_EQ(numberAfter(out, "Conjunction: "), static_cast<long>(BoolForm::tv.size()));
}

TEST_F(Run, WritesTheClausesOfPropertyAndPath) {
  for (const int k : {1, 2, 6}) {
    forgetFormulas();
    check(threeProcesses(), "p1p2+", k);
    showCNF(clauses(k), folder / "again");
    EXPECT_EQ(folder.read("run.cnf"), folder.read("again.cnf")) << k;
    EXPECT_FALSE(folder.read("run.cnf").empty()) << k;
  }
}

TEST_F(Run, CountsTheClausesItWrites) {
  check(threeProcesses(), "p1", 4);
  const std::string text = folder.read("run.cnf");
  EXPECT_EQ(numberAfter(err, "Creating clauses: "), std::count(text.begin(), text.end(), '\n') - 1);
}

TEST_F(Run, TellsWhatItWrote) {
  for (const std::string property : {"p1p2+", "p9", "T"}) {
    forgetFormulas();
    check(threeProcesses(), property, 4);
    const std::string text = folder.read("run.cnf");
    EXPECT_TRUE(written.clauses.whole());
    EXPECT_TRUE(written.map.whole());
    EXPECT_EQ(written.clauses.file, folder / "run.cnf");
    EXPECT_EQ(written.map.file, folder / "run.lck");
    EXPECT_EQ(text.substr(0, text.find('\n')), "p cnf " + std::to_string(written.variables) + " " +
                                                   std::to_string(written.clauseCount));
  }
}

TEST_F(Run, FilesThatCannotBeWrittenAreTold) {
  std::filesystem::create_symlink("/dev/full", folder / "run.cnf");
  std::filesystem::create_symlink("/dev/full", folder / "run.lck");
  check(twoProcesses(), "p3", 3);
  EXPECT_TRUE(written.clauses.cut());
  EXPECT_TRUE(written.map.cut());
  EXPECT_EQ(written.clauseCount, 1243U);
}

TEST_F(Run, MapHoldsPathLengthAndHighestVariable) {
  check(twoProcesses(), "p3", 3);
  EXPECT_EQ(folder.read("run.lck"), "2\n1 1 \n2 4 2\n3\n88\n3 6\n");
}

TEST_F(Run, MapNamesTheHighestVariableOfTheClauses) {
  check(threeProcesses(), "p1", 4);
  std::istringstream map(folder.read("run.lck"));
  std::vector<std::string> lines;
  for (std::string line; std::getline(map, line);) lines.push_back(line);
  ASSERT_EQ(lines.size(), 6U);
  EXPECT_EQ(lines[3], "4");
  EXPECT_EQ(lines[4], std::to_string(maxCNFOrgVarNr(clauses(4))));
}

TEST_F(Run, MapCountsTheInvariantTermsOfThisRun) {
  check(twoProcesses(), "p3", 8);  // three time and three action steps of three terms
  const std::string map = folder.read("run.lck");
  EXPECT_EQ(map.substr(map.size() - 5), "3 18\n");
}

// Copied rotations are counted in one go: 99 of time and of action in all, three terms each.
TEST_F(Run, CounterOfInvariantTermsWraps) {
  model = modelOf(twoProcesses());
  model->formula = std::make_unique<EctlForm>("p3");
  model->nrInvTerms = std::numeric_limits<int>::max() - 100;
  EctlTransl(*model, 297).checkEctlFormula(folder / "run");
  EXPECT_EQ(model->nrInvTerms, std::numeric_limits<int>::min() + 2 * 99 * 3 - 101);
  EXPECT_TRUE(folder.read("run.lck").ends_with("\n3 " + std::to_string(model->nrInvTerms) + "\n"));
}

TEST_F(Run, TemporalPropertyLeavesTheEmptyClause) {
  check(twoProcesses(), "p3EF", 4);
  EXPECT_EQ(folder.read("run.cnf"), "p cnf -1000000 1\n0\n");
  EXPECT_EQ(numberAfter(err, "Creating clauses: "), 1);
  EXPECT_EQ(folder.read("run.lck"), "2\n1 1 \n2 4 2\n4\n0\n3 9\n");
}

TEST_F(Run, StoreNeverShrinks) {
  check(threeProcesses(), "p1p3+", 7);
  const long path = numberAfter(err, "End of symbolic path: ");
  const long property = numberAfter(err, "\ntranslation : ");
  EXPECT_LE(path, property);
  EXPECT_EQ(property, numberAfter(err, "End of translation: "));
  EXPECT_LE(property, numberAfter(out, "Conjunction: "));
}

TEST_F(Run, KeepsTheModelsProperty) {
  check(twoProcesses(), "p1p3&", 2);
  EXPECT_TRUE(*model->formula == EctlForm("p1p3&"));
}

TEST_F(Run, FilesThatCannotBeOpenedAreSkippedSilently) {
  check(twoProcesses(), "p3", 3);
  const std::string progress = err.substr(0, err.find("Time"));
  std::filesystem::remove(folder / "run.cnf");
  std::filesystem::remove(folder / "run.lck");
  std::filesystem::create_directory(folder / "run.cnf");
  std::filesystem::create_directory(folder / "run.lck");
  forgetFormulas();
  check(twoProcesses(), "p3", 3);
  EXPECT_EQ(err.substr(0, err.find("Time")), progress);
  EXPECT_FALSE(written.clauses.opened);
  EXPECT_FALSE(written.map.opened);
}

}  // namespace

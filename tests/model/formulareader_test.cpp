// The property file: one line of it counts.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/model/networks.hpp"

namespace {

std::string propertyIn(const std::string& text) {
  const Folder folder;
  folder.write("phi.tpn", text);
  NetTimedModel model;
  model.readFormula(folder / "phi");
  return model.formula->left + model.formula->right + operStr(model.formula->op);
}

TEST(FormulaReader, FirstLineIsTheProperty) { EXPECT_EQ(propertyIn("p1p2&\n"), "p1p2&"); }

TEST(FormulaReader, EmptyLinesInFrontAreSkipped) {
  EXPECT_EQ(propertyIn("\n\n\np1p2&\n"), "p1p2&");
}

TEST(FormulaReader, LaterLinesHaveNoEffect) {
  EXPECT_EQ(propertyIn("p1p2&\np3EX\n"), "p1p2&");
  EXPECT_EQ(propertyIn("p1p2&\nno property"), "p1p2&");
}

TEST(FormulaReader, LineNeedsNoLineEnd) { EXPECT_EQ(propertyIn("p1p2&"), "p1p2&"); }

TEST(FormulaReader, SecondReadingReplacesTheProperty) {
  const Folder folder;
  folder.write("phi.tpn", "p1EX\n");
  folder.write("psi.tpn", "p2p3+\n");
  NetTimedModel model;
  model.readFormula(folder / "phi");
  model.readFormula(folder / "psi");
  EXPECT_EQ(model.formula->op, EctlOper::disj);
  EXPECT_EQ(model.formula->onp.size(), 3U);
}

TEST(FormulaReader, LeavesTheNetworkAlone) {
  const Folder folder;
  folder.write("phi.tpn", "p1\n");
  const Model model = readModel(twoProcesses());
  model->readFormula(folder / "phi");
  EXPECT_EQ(model->nrOfProcs, 2);
  EXPECT_EQ(model->valuation.size(), 3U);
}

TEST(FormulaReaderDeathTest, MissingFileEndsTheProcess) {
  NetTimedModel model;
  EXPECT_EXIT(model.readFormula("no/such/phi"), testing::ExitedWithCode(1),
              "^Nie moge otworzyc pliku no/such/phi.tpn\n$");
}

// A process's own memory can be opened; reading at address 0 fails.
TEST(FormulaReader, FileThatCannotBeReadIsTold) {
  const Folder folder;
  std::filesystem::create_symlink("/proc/self/mem", folder / "x.tpn");
  NetTimedModel model;
  try {
    model.readFormula(folder / "x");
    FAIL() << "was read";
  } catch (const Unreadable& refusal) {
    EXPECT_EQ(refusal.what(), "cannot read " + (folder / "x.tpn") + ": Input/output error");
  }
}

TEST(FormulaReaderDeathTest, FolderCannotBeOpened) {
  const Folder folder;
  std::filesystem::create_directory(folder / "phi.tpn");
  NetTimedModel model;
  EXPECT_EXIT(model.readFormula(folder / "phi"), testing::ExitedWithCode(1),
              "^Nie moge otworzyc pliku .*/phi.tpn\n$");
}

}  // namespace

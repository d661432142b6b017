// The variable map beside the clause file.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/model/networks.hpp"

namespace {

std::string mapOf(const NetTimedModel& model, int k, int maxVar) {
  const Folder folder;
  model.showLCK(k, maxVar, folder / "run");
  return folder.read("run.lck");
}

TEST(VariableMap, OfTwoProcesses) {
  EXPECT_EQ(mapOf(*modelOf(twoProcesses()), 3, 88), "2\n1 1 \n2 4 2\n3\n88\n3 0\n");
}

TEST(VariableMap, OfThreeProcesses) {
  EXPECT_EQ(mapOf(*modelOf(threeProcesses()), 12, 0), "3\n2 3 0 \n3 3 3\n12\n0\n5 0\n");
}

TEST(VariableMap, WithoutProcessesHasAnEmptyLine) {
  EXPECT_EQ(mapOf(*modelOf(emptyNetwork()), 1, 2), "0\n\n0 2 0\n1\n2\n0 0\n");
}

TEST(VariableMap, CountsTheInvariantTermsSoFar) {
  const Model model = modelOf(twoProcesses());
  model->invariant(model->genSymState(1));
  model->invariant(model->genSymState(23));
  EXPECT_EQ(mapOf(*model, 3, 88), "2\n1 1 \n2 4 2\n3\n88\n3 6\n");
}

TEST(VariableMap, CountsTransitionLinesTwiceWhereTheyStandTwice) {
  EXPECT_EQ(mapOf(*modelOf(network("1 0 1\n1 0 2\n", process("1 0 1\n"))), 1, 1),
            "1\n1 \n1 3 1\n1\n1\n2 0\n");
}

TEST(VariableMap, PrintsNegativeNumbersAsTheyAre) {
  EXPECT_EQ(mapOf(*modelOf(emptyNetwork()), -1, -2), "0\n\n0 2 0\n-1\n-2\n0 0\n");
}

TEST(VariableMap, ReplacesAnOlderFile) {
  const Folder folder;
  folder.write("run.lck", std::string(1000, 'x'));
  modelOf(emptyNetwork())->showLCK(1, 2, folder / "run");
  EXPECT_EQ(folder.read("run.lck"), "0\n\n0 2 0\n1\n2\n0 0\n");
}

TEST(VariableMap, CounterOfInvariantTermsMayBeNegative) {
  const Model model = modelOf(emptyNetwork());
  model->nrInvTerms = -17;
  EXPECT_EQ(mapOf(*model, 1, 1), "0\n\n0 2 0\n1\n1\n0 -17\n");
}

TEST(VariableMap, WriterTellsWhatBecameOfTheFile) {
  const Folder folder;
  const Model model = modelOf(emptyNetwork());
  EXPECT_TRUE(model->showLCK(1, 2, folder / "run").whole());
  EXPECT_EQ(model->showLCK(1, 2, folder / "run").file, folder / "run.lck");
  EXPECT_FALSE(model->showLCK(1, 2, folder / "missing/run").opened);
  std::filesystem::create_symlink("/dev/full", folder / "full.lck");
  EXPECT_TRUE(model->showLCK(1, 2, folder / "full").cut());
}

TEST(VariableMap, ThatCannotBeOpenedIsSkippedSilently) {
  const Folder folder;
  std::filesystem::create_directory(folder / "run.lck");
  const Model model = modelOf(twoProcesses());
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  model->showLCK(1, 2, folder / "run");
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

}  // namespace

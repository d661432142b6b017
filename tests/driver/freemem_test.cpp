// Free memory from the two layouts of the memory summary.

#include "driver/freemem.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <sstream>
#include <string>

namespace {

std::int32_t freeIn(const std::string& summary) {
  std::istringstream in(summary);
  return freeMemory(in);
}

std::uint32_t unsignedFreeIn(const std::string& summary) {
  return static_cast<std::uint32_t>(freeIn(summary));
}

const std::string header = "        total:    used:    free:  shared: buffers:  cached:\n";

// --- The older layout: a column each. ---

TEST(FreeMemoryColumns, ThirdColumnsAreAdded) {
  EXPECT_EQ(freeIn(header + "Mem: 1000 400 600 0 0 0\nSwap: 2000 0 2000\n"), 2600);
}

TEST(FreeMemoryColumns, EmptyLinesAreSkipped) {
  EXPECT_EQ(freeIn("\n\n" + header + "\n\nMem: 1000 400 600 0 0 0\n\nSwap: 2000 0 2000\n\n"), 2600);
}

TEST(FreeMemoryColumns, HeaderIsNotRead) {
  EXPECT_EQ(freeIn("Mem: 1 2 3\nMem: 10 20 30\nSwap: 100 200 300\n"), 330);
}

TEST(FreeMemoryColumns, LaterRowsAreNotRead) {
  EXPECT_EQ(freeIn(header + "Mem: 10 20 30\nSwap: 1 2 3\nMore: 100 200 300\n"), 33);
}

TEST(FreeMemoryColumns, RowsOfTodaysLayoutFurtherDownAreNotRead) {
  EXPECT_EQ(freeIn(header + "Mem: 1000 400 600 0 0 0\nSwap: 2000 0 2000\nMemFree: 5 kB\n"), 2600);
  EXPECT_EQ(freeIn(header + "\nMem: 1000 400 600\nSwapFree: 9 kB\nMemFree: 5 kB\n"), 600);
}

TEST(FreeMemoryColumns, MissingRowsCountAsNothing) {
  EXPECT_EQ(freeIn(header + "Mem: 1000 400 600 0 0 0\n"), 600);
  EXPECT_EQ(freeIn(header), 0);
  EXPECT_EQ(freeIn(""), 0);
}

TEST(FreeMemoryColumns, MissingColumnsCountAsNothing) {
  EXPECT_EQ(freeIn(header + "Mem: 1000 400\nSwap: 2000 0 2000\n"), 2000);
  EXPECT_EQ(freeIn(header + "Mem: 1000 400 600\nSwap: none\n"), 600);
}

TEST(FreeMemoryColumns, SumIsTakenModuloTwoToTheThirtyTwo) {
  EXPECT_EQ(unsignedFreeIn(header + "Mem: 0 0 4294967295\nSwap: 0 0 3\n"), 2U);
  EXPECT_EQ(unsignedFreeIn(header + "Mem: 0 0 25769803781\nSwap: 0 0 0\n"), 5U);
}

// --- Today's layout: a line each, in kB. ---

TEST(FreeMemoryLines, FreeMainMemoryAndSwapAreAdded) {
  EXPECT_EQ(freeIn("MemTotal: 900 kB\nMemFree:    300 kB\nMemAvailable: 500 kB\n"
                   "SwapTotal: 80 kB\nSwapFree:  20 kB\n"),
            320 * 1024);
}

TEST(FreeMemoryLines, OrderOfTheLinesDoesNotMatter) {
  EXPECT_EQ(freeIn("SwapFree: 20 kB\nMemTotal: 900 kB\nMemFree: 300 kB\n"), 320 * 1024);
}

TEST(FreeMemoryLines, EmptyLinesAreSkipped) {
  EXPECT_EQ(freeIn("\n\nMemTotal: 900 kB\n\nMemFree: 300 kB\n\n\nSwapFree: 20 kB\n"), 320 * 1024);
}

TEST(FreeMemoryLines, HoldUnlessTheSecondLineIsTheRowOfColumns) {
  EXPECT_EQ(freeIn("Mem: 1 2 3\nMemFree: 300 kB\nMem: 4 5 6\n"), 300 * 1024);
  EXPECT_EQ(freeIn("MemTotal: 900 kB\nMemory: 4 5 6\nMemFree: 300 kB\n"), 300 * 1024);
}

TEST(FreeMemoryLines, MissingRowCountsAsNothing) {
  EXPECT_EQ(freeIn("MemTotal: 900 kB\nMemFree: 300 kB\n"), 300 * 1024);
}

TEST(FreeMemoryLines, RowWithoutANumberCountsAsNothing) {
  EXPECT_EQ(freeIn("MemFree: much\nSwapFree: 20 kB\n"), 20 * 1024);
}

TEST(FreeMemoryLines, SumIsTakenModuloTwoToTheThirtyTwo) {
  EXPECT_EQ(unsignedFreeIn("MemFree: 4194303 kB\nSwapFree: 3 kB\n"), 2048U);
  EXPECT_EQ(unsignedFreeIn("MemFree: 25165825 kB\nSwapFree: 0 kB\n"), 1024U);
}

TEST(FreeMemoryLines, UpperHalfOfTheRangeIsNegative) {
  EXPECT_EQ(freeIn("MemFree: 4194303 kB\nSwapFree: 0 kB\n"), -1024);
}

// --- The machine's own. ---

TEST(FreeMemory, OfThisMachineIsTheSummaryOfIt) {
  EXPECT_NE(getfreemem(), 0);
  EXPECT_EQ(static_cast<std::uint32_t>(getfreemem()) % 1024, 0U);
}

TEST(FreeMemory, ProbePrintsNothing) {
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  getfreemem();
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

}  // namespace

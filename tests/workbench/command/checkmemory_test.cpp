// How a check ends where there is little memory. Builds with the address sanitizer leave this file
// out: those do not start with so little.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/driver/runprogram.hpp"

namespace {

// From where tpn hardly starts to where all is well, every end is an answer or one line.
TEST(CheckWithoutMemory, EndsWithAnAnswerOrOneLine) {
  const std::filesystem::path fischer = ZERVAN_SOURCE_DIR "/examples/fischer";
  const Workplace place;
  std::filesystem::copy(fischer / "fischer.tpn", place.folder());
  std::filesystem::copy(fischer / "violation.tpn", place.folder());
  int told = 0;
  for (rlim_t kib = 9000; kib <= 18000; kib += 200) {
    Bounds bounds;
    bounds.addressSpace = kib * 1024;
    const Outcome outcome = place.run(
        TPN_BINARY, {"check", "fischer", "violation", "--engine", "bmc", "--max-transitions", "13"},
        bounds);
    EXPECT_EQ(outcome.signal, 0) << kib << outcome.err;
    if (outcome.status == 30 || outcome.status == 127) continue;  // 127: not even loaded
    EXPECT_EQ(outcome.status, 1) << kib;
    EXPECT_THAT(outcome.err, testing::MatchesRegex("tpn: [^\n]*memory[^\n]*\n")) << kib;
    if (outcome.err.find("more memory than there is; no run of up to ") != std::string::npos)
      ++told;
  }
  EXPECT_GT(told, 1);
}

}  // namespace

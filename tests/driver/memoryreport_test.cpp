// The figures of free and used memory, from memory summaries of our own.

#include <gtest/gtest.h>

#include <string>

#include "tests/driver/runprogram.hpp"
#include "tests/driver/transcript.hpp"

namespace {

class MemoryReport : public testing::Test {
 protected:
  void SetUp() override {
    place.write("net.tpn", twoNetwork);
    place.write("phi.tpn", "p3\n");
  }

  static std::string kilobytes(const std::string& free) {
    return "MemTotal: 16000000 kB\nMemFree: " + free + " kB\nSwapFree: 0 kB\n";
  }

  // A run that finds these summaries at its start and at its end.
  void run(const std::string& first, const std::string& second) {
    place.write("meminfo.1", first);
    place.write("meminfo.2", second);
    runWithSummaries();
  }
  void runWithSummaries() {
    // The option lets the address sanitizer come after the preloaded library.
    outcome = place.run("/usr/bin/env", {std::string("LD_PRELOAD=") + ZERVAN_MEMINFO,
                                         "ASAN_OPTIONS=verify_asan_link_order=0", ZERVAN_BINARY,
                                         "net", "phi", "1"});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
  }

  void expectFree(const std::string& bytes) const {
    EXPECT_TRUE(outcome.out.starts_with(bytes + " bytes memory\n")) << outcome.out;
  }
  void expectUsed(const std::string& megabytes) const {
    const std::string line = "\nMemory used by ZERVAN : " + megabytes + " Mb\n";
    EXPECT_TRUE(outcome.out.ends_with(line)) << outcome.out;
  }

  Workplace place;
  Outcome outcome;
};

TEST_F(MemoryReport, FreeMemoryIsInBytesAndUsedMemoryInMegabytes) {
  run(kilobytes("2048"), kilobytes("512"));
  expectFree("2097152");
  expectUsed("1.5");
}

TEST_F(MemoryReport, UsedMemoryHasFourDigits) {
  run(kilobytes("4000000"), kilobytes("2735808"));
  expectUsed("1235");
}

TEST_F(MemoryReport, NoDifferenceIsZero) {
  run(kilobytes("2048"), kilobytes("2048"));
  expectUsed("0");
}

TEST_F(MemoryReport, FreeMemoryIsCountedModuloTwoToTheThirtyTwo) {
  run(kilobytes("4195328"), kilobytes("1024"));
  expectFree("1048576");
  expectUsed("0");
}

TEST_F(MemoryReport, UpperHalfOfTheRangeIsPrintedUnsigned) {
  run(kilobytes("3145728"), kilobytes("1048576"));
  expectFree("3221225472");
  expectUsed("2048");
}

// The difference is taken modulo 2^32 as well: a kilobyte and 100 megabytes more than before.
TEST_F(MemoryReport, MemoryThatWasFreedMeanwhileWrapsRound) {
  run(kilobytes("2048"), kilobytes("2049"));
  expectUsed("4096");
  run(kilobytes("2048"), kilobytes("104448"));
  expectUsed("3996");
}

TEST_F(MemoryReport, MissingSummaryCountsAsMinusOne) {
  runWithSummaries();
  expectFree("4294967295");
  expectUsed("0");
}

}  // namespace

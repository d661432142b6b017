// Paths with more variables than there are numbers for: one line, no file touched. (Paths with too
// many nodes need gigabytes from outside; their test is in the translation's folder.)

#include <gtest/gtest.h>

#include <regex>
#include <set>
#include <string>

#include "tests/driver/runprogram.hpp"
#include "tests/driver/transcript.hpp"

namespace {

using Names = std::set<std::string>;

// A single location and a loop: 7 variables a state, the fewest that any process can have.
const std::string loop =
    "x\ntransitions\n1 0 0\nendtran\nprocess\n1 0 0\nvaluation\n0 1\nendval\nend\nend\n";
constexpr int loopState = 7;
constexpr int mostVariables = 999999;
constexpr int longestLoop = mostVariables / loopState - 1;

class Refusal : public testing::Test {
 protected:
  void SetUp() override {
    place.write("net.tpn", loop);
    place.write("phi.tpn", "p1\n");
  }

  // Refused after the reading, in one line on standard error.
  void expectRefused(const std::string& k, const std::string& line) const {
    const Outcome run = place.zervan({"net", "phi", k});
    EXPECT_EQ(run.status, 1) << k;
    EXPECT_EQ(run.err, line + "\n") << k;
    EXPECT_TRUE(run.out.ends_with("Formula is read\n")) << run.out;
  }

  Workplace place;
};

std::string refusal(const std::string& k, const std::string& variables, int largest) {
  return "zervan: path length " + k + " needs " + variables +
         " variables, and 999999 is the most; the largest path length that fits is " +
         std::to_string(largest);
}

std::string loopRefusal(const std::string& k, const std::string& variables) {
  return refusal(k, variables, longestLoop);
}

TEST_F(Refusal, OfTheFirstLengthThatDoesNotFitNamesTheLargestThatDoes) {
  expectRefused(std::to_string(longestLoop + 1), loopRefusal("142857", "1000006"));
}

TEST_F(Refusal, NamesALengthThatRunsThrough) {
  const std::string k = std::to_string(longestLoop);
  const Outcome run = place.zervan({"net", "phi", k});
  EXPECT_EQ(run.status, 0) << run.err;
  // All 999999 variables are used; every third step is an action with its one invariant term.
  EXPECT_EQ(place.read("netk" + k + ".lck"), "1\n0 \n1 2 1\n142856\n999999\n1 95238\n");
  const std::regex header("p cnf ([0-9]+) ([0-9]+)\n");
  std::smatch counts;
  const std::string start = place.read("netk" + k + ".cnf").substr(0, 40);
  ASSERT_TRUE(std::regex_search(start, counts, header)) << start;
  EXPECT_GT(std::stoi(counts[1]), mostVariables);
  EXPECT_NE(run.err.find("Creating clauses: " + counts[2].str() + "\n"), std::string::npos);
}

// More variables than 32 bits count, and path lengths that are cut to 32 bits before.
TEST_F(Refusal, OfHugeLengthsCountsTheVariablesInFull) {
  expectRefused("1000000", loopRefusal("1000000", "7000007"));
  expectRefused("2147483647", loopRefusal("2147483647", "15032385536"));
  expectRefused("6442450943", loopRefusal("2147483647", "15032385536"));
  expectRefused("4295110153", loopRefusal("142857", "1000006"));
  // In 32 bits these would be 6 variables.
  expectRefused("1227133513", loopRefusal("1227133513", "8589934598"));
}

TEST_F(Refusal, DependsOnTheNetwork) {
  place.write("net.tpn", twoNetwork);  // 22 variables a state
  expectRefused("45454", refusal("45454", "1000010", 45453));
}

TEST_F(Refusal, OfEveryLengthSaysSo) {
  std::string processes;
  for (int p = 0; p < 30000; ++p) processes += "process\nvaluation\nendval\nend\n";
  place.write("net.tpn", "x\ntransitions\nendtran\n" + processes + "end\n");
  // 30001 slots of 2 + 16 bits, and the split.
  expectRefused("1",
                "zervan: path length 1 needs 1080068 variables, and 999999 is the most; "
                "no path length fits");
}

TEST_F(Refusal, TouchesNoFile) {
  place.write("netk142857.cnf", "older clauses\n");
  place.write("netk142857.lck", "older map\n");
  place.write("bmctime.out", "older times\n");
  EXPECT_EQ(place.zervan({"net", "phi", "142857"}).status, 1);
  EXPECT_EQ(place.read("netk142857.cnf"), "older clauses\n");
  EXPECT_EQ(place.read("netk142857.lck"), "older map\n");
  EXPECT_EQ(place.read("bmctime.out"), "older times\n");
  EXPECT_EQ(place.files(),
            (Names{"net.tpn", "phi.tpn", "netk142857.cnf", "netk142857.lck", "bmctime.out"}));
}

TEST_F(Refusal, LeavesNoFile) {
  EXPECT_EQ(place.zervan({"net", "phi", "142857"}).status, 1);
  EXPECT_EQ(place.files(), (Names{"net.tpn", "phi.tpn"}));
}

}  // namespace

// The command line: arguments, exit statuses, transcripts, and the files a run leaves.

#include <gtest/gtest.h>

#include <regex>
#include <set>
#include <string>
#include <vector>

#include "tests/driver/runprogram.hpp"
#include "tests/driver/transcript.hpp"

namespace {

using Names = std::set<std::string>;

class CommandLine : public testing::Test {
 protected:
  void SetUp() override {
    place.write("net.tpn", twoNetwork);
    place.write("phi.tpn", "p3\n");
  }

  Workplace place;
};

const std::string usage = "Usage : zervan TimePetriNetFile FormulaFile PathLen\n";
const std::string tooShort = "Length of path should be > 0\n";
const Names inputs{"net.tpn", "phi.tpn"};

// --- Arguments. ---

TEST_F(CommandLine, FewerThanThreeArgumentsAreAnError) {
  for (const std::vector<std::string>& arguments :
       std::vector<std::vector<std::string>>{{}, {"net"}, {"net", "phi"}}) {
    const Outcome run = place.zervan(arguments);
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, usage);
  }
  EXPECT_EQ(place.files(), inputs);
}

TEST_F(CommandLine, PathLengthBelowOneIsAnError) {
  for (const std::string k :
       {"0", "-2", "x", "", " ", "-", "+", "x3", "0x5", "-9223372036854775809"}) {
    const Outcome run = place.zervan({"net", "phi", k});
    EXPECT_EQ(run.status, 2) << k;
    EXPECT_EQ(run.out, "") << k;
    EXPECT_EQ(run.err, tooShort) << k;
  }
  EXPECT_EQ(place.files(), inputs);
}

TEST_F(CommandLine, PathLengthIsTestedBeforeAnyFile) {
  EXPECT_EQ(place.zervan({"missing", "missing", "0"}).status, 2);
}

// The value is cut to 32 bits before it is tested; the largest 64-bit number becomes -1.
TEST_F(CommandLine, PathLengthIsCutToThirtyTwoBits) {
  for (const std::string k :
       {"4294967296", "2147483648", "4294967295", "9223372036854775807", "99999999999999999999"})
    EXPECT_EQ(place.zervan({"net", "phi", k}).status, 2) << k;
  for (const std::string k : {"4294967297", "-4294967295"}) {
    EXPECT_EQ(place.zervan({"net", "phi", k}).status, 0) << k;
    const std::string map = place.read("netk" + k + ".lck");
    EXPECT_EQ(map.substr(0, 14), "2\n1 1 \n2 4 2\n1") << k;
  }
}

TEST_F(CommandLine, RunNameHoldsThePathLengthAsTyped) {
  for (const std::string k : {"3", "03", "+3", " 3", "3abc", "3 ", "3.9", "3e2"}) {
    const Workplace fresh;
    fresh.write("net.tpn", twoNetwork);
    fresh.write("phi.tpn", "p3\n");
    EXPECT_EQ(fresh.zervan({"net", "phi", k}).status, 0) << k;
    const Names expected{"net.tpn", "phi.tpn", "netk" + k + ".cnf", "netk" + k + ".lck",
                         "bmctime.out"};
    EXPECT_EQ(fresh.files(), expected) << k;
    EXPECT_EQ(fresh.read("netk" + k + ".lck"), "2\n1 1 \n2 4 2\n3\n88\n3 6\n") << k;
  }
}

TEST_F(CommandLine, RunNameHoldsTheNetworkArgumentAsTyped) {
  place.makeFolder("nets");
  place.write("nets/net.tpn", twoNetwork);
  EXPECT_EQ(place.zervan({"./nets/../nets/net", "phi", "2"}).status, 0);
  EXPECT_FALSE(place.read("nets/netk2.cnf").empty());
  EXPECT_FALSE(place.read("nets/netk2.lck").empty());
}

TEST_F(CommandLine, FurtherArgumentsAreIgnored) {
  const Outcome run = place.zervan({"net", "phi", "3", "4", "--help"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(place.files(), (Names{"net.tpn", "phi.tpn", "netk3.cnf", "netk3.lck", "bmctime.out"}));
}

// --- Transcripts. ---

TEST_F(CommandLine, StandardOutputOfARun) {
  EXPECT_EQ(masked(place.zervan({"net", "phi", "3"}).out),
            twoRead + "Formula is read\nConjunction: 397\n" + reports);
}

TEST_F(CommandLine, StandardErrorOfARun) {
  EXPECT_EQ(masked(place.zervan({"net", "phi", "3"}).err),
            "Creating symbolic paths\nEnd of symbolic path: 393\nTranslation\ntranslation : 396\n"
            "End of translation: 396\nCreating clauses: 1243\nWriting down clauses \n"
            "Time consumed : #\n");
}

TEST_F(CommandLine, LinesOfBothStreamsComeInTheirOrder) {
  const Outcome run = place.run("/bin/sh", {"-c", std::string(ZERVAN_BINARY) + " net phi 3 2>&1"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(masked(run.out),
            twoRead +
                "Formula is read\nCreating symbolic paths\nEnd of symbolic path: 393\nTranslation\n"
                "translation : 396\nEnd of translation: 396\nConjunction: 397\n"
                "Creating clauses: 1243\nWriting down clauses \nTime consumed : #\n" +
                reports);
}

TEST_F(CommandLine, FiguresHaveAtMostFourDigits) {
  const std::string out = place.zervan({"net", "phi", "3"}).out;
  const std::regex figures(
      "(.|\n)*\n\n[0-9.]+(e-[0-9]+)?\nMemory used by ZERVAN : [0-9.]+(e[+-][0-9]+)? Mb\n");
  EXPECT_TRUE(std::regex_match(out, figures)) << out;
  std::smatch digits;
  const std::regex last("\n\n([0-9.]+)[^\n]*\nMemory used by ZERVAN : ([0-9.]+)");
  ASSERT_TRUE(std::regex_search(out, digits, last));
  for (const std::size_t i : {1U, 2U}) {
    std::string figure = digits[i].str();
    std::erase(figure, '.');
    figure.erase(0, figure.find_first_not_of('0'));
    EXPECT_LE(figure.size(), 4U) << digits[i].str();
  }
}

TEST_F(CommandLine, FreeMemoryIsPrintedUnsigned) {
  const std::string out = place.zervan({"net", "phi", "1"}).out;
  EXPECT_TRUE(std::regex_search(out, std::regex("^[0-9]{1,10} bytes memory\n"))) << out;
}

// --- Times. ---

TEST_F(CommandLine, EveryRunAppendsItsTime) {
  place.write("bmctime.out", "kept\n");
  place.zervan({"net", "phi", "1"});
  place.zervan({"net", "phi", "2"});
  const std::string log = place.read("bmctime.out");
  EXPECT_TRUE(std::regex_match(log, std::regex("kept\n[0-9.e-]+\n[0-9.e-]+\n"))) << log;
}

TEST_F(CommandLine, LoggedTimeIsTheOnePrinted) {
  const std::string out = place.zervan({"net", "phi", "3"}).out;
  const std::string time = place.read("bmctime.out");
  EXPECT_NE(out.find("\n\n" + time + "Memory used"), std::string::npos) << out << time;
}

// A run long enough for its time to have more digits than are told.
class LongRun : public CommandLine {
 protected:
  void SetUp() override {
    CommandLine::SetUp();
    run = place.zervan({"net", "phi", "8000"});
    ASSERT_EQ(run.status, 0) << run.err;
    log = place.read("bmctime.out");
    ASSERT_GT(run.processorTime, 0.04);
  }

  // The system counts the same time, and the little that `free` takes.
  void expectNearlyAll(double time) const {
    EXPECT_LE(time, run.processorTime + 0.01);
    EXPECT_GE(time, run.processorTime / 2);
  }

  Outcome run;
  std::string log;
};

TEST_F(LongRun, LoggedTimeIsTheProcessorTime) { expectNearlyAll(std::stod(log)); }

TEST_F(LongRun, TimeOfTheTranslationIsMostOfTheProcessorTime) {
  const std::string label = "\nTime consumed : ";
  const std::size_t at = run.err.find(label);
  ASSERT_NE(at, std::string::npos) << run.err;
  const double translation = std::stod(run.err.substr(at + label.size()));
  expectNearlyAll(translation);
  EXPECT_LE(translation, std::stod(log));
}

TEST_F(LongRun, LoggedTimeHasAtMostFourDigits) {
  std::string digits = log;
  std::erase_if(digits, [](char c) { return c == '.' || c == '\n'; });
  digits.erase(0, digits.find_first_not_of('0'));
  EXPECT_LE(digits.size(), 4U) << log;
}

TEST_F(CommandLine, LogThatCannotBeOpenedIsAnErrorAtTheVeryEnd) {
  place.makeFolder("bmctime.out");
  const Outcome run = place.zervan({"net", "phi", "3"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(masked(run.out), twoRead + "Formula is read\nConjunction: 397\n" + reports +
                                 "Nie mozna otworzyc pliku bmctime.out\n");
  EXPECT_EQ(place.read("netk3.lck"), "2\n1 1 \n2 4 2\n3\n88\n3 6\n");
  EXPECT_EQ(place.read("netk3.cnf").substr(0, 15), "p cnf 485 1243\n");
}

TEST_F(CommandLine, FailedRunsAreNotLogged) {
  place.zervan({"net", "missing", "3"});
  place.zervan({"net", "phi", "0"});
  EXPECT_EQ(place.files(), inputs);
}

// --- Files that cannot be opened. ---

TEST_F(CommandLine, ClauseFileThatCannotBeOpenedIsSkipped) {
  place.makeFolder("netk3.cnf");
  const Outcome run = place.zervan({"net", "phi", "3"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(masked(run.out), twoRead + "Formula is read\nConjunction: 397\n" + reports);
  EXPECT_EQ(place.read("netk3.lck"), "2\n1 1 \n2 4 2\n3\n88\n3 6\n");
}

TEST_F(CommandLine, MapThatCannotBeOpenedIsSkipped) {
  place.makeFolder("netk3.lck");
  const Outcome run = place.zervan({"net", "phi", "3"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(place.read("netk3.cnf").substr(0, 15), "p cnf 485 1243\n");
}

TEST_F(CommandLine, OlderFilesAreReplaced) {
  place.write("netk3.cnf", std::string(100000, 'x'));
  place.write("netk3.lck", std::string(1000, 'x'));
  place.zervan({"net", "phi", "3"});
  EXPECT_EQ(place.read("netk3.cnf").size(), 15530U);
  EXPECT_EQ(place.read("netk3.lck"), "2\n1 1 \n2 4 2\n3\n88\n3 6\n");
}

}  // namespace

// What the program does with files that are missing, wrong, or never end.

#include <gtest/gtest.h>

#include <csignal>
#include <string>

#include "tests/driver/runprogram.hpp"
#include "tests/driver/transcript.hpp"

namespace {

class Input : public testing::Test {
 protected:
  void SetUp() override {
    place.write("net.tpn", twoNetwork);
    place.write("phi.tpn", "p3\n");
  }

  Outcome run() const { return place.zervan({"net", "phi", "3"}); }

  Outcome withNetwork(const std::string& text) const {
    place.write("net.tpn", text);
    return run();
  }
  Outcome withProperty(const std::string& text) const {
    place.write("phi.tpn", text);
    return run();
  }

  // Still running after a second, and not a line further than `out`.
  void expectNeverRead(const std::string& out) const {
    const Outcome outcome = place.zervan({"net", "phi", "3"}, {.time = std::chrono::seconds(1)});
    EXPECT_TRUE(outcome.timedOut) << outcome.out << outcome.err;
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(masked(outcome.out), out);
    EXPECT_EQ(place.files(), (std::set<std::string>{"net.tpn", "phi.tpn"}));
  }

  Workplace place;
};

const std::string start = "# bytes memory\n";

// --- Errors. ---

TEST_F(Input, MissingNetworkIsAnError) {
  const Outcome outcome = place.zervan({"missing", "phi", "3"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(masked(outcome.out), start);
  EXPECT_EQ(outcome.err, "Nie moge otworzyc pliku missing.tpn\n");
}

TEST_F(Input, MissingPropertyIsAnErrorOnceTheNetworkIsRead) {
  const Outcome outcome = place.zervan({"net", "missing", "3"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(masked(outcome.out), twoRead);
  EXPECT_EQ(outcome.err, "Nie moge otworzyc pliku missing.tpn\n");
}

TEST_F(Input, FolderIsNoInput) {
  place.makeFolder("folder.tpn");
  EXPECT_EQ(place.zervan({"folder", "phi", "3"}).err, "Nie moge otworzyc pliku folder.tpn\n");
  EXPECT_EQ(place.zervan({"net", "folder", "3"}).err, "Nie moge otworzyc pliku folder.tpn\n");
}

TEST_F(Input, NetworkWithoutTransitionsSectionIsAnError) {
  const Outcome outcome = withNetwork("x\nprocess\n");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err, "\"transitions\" expected\n\n");
  EXPECT_EQ(masked(outcome.out), start);
}

TEST_F(Input, BlockThatIsNoProcessIsAnError) {
  const Outcome outcome =
      withNetwork("x\ntransitions\nendtran\nprocess\nvaluation\nendval\nend\nx\n");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err, "\"process\" expected\n\n");
  EXPECT_EQ(masked(outcome.out), start + "wczytywanie procesu\nwczytywanie wartosciowania\n");
}

TEST_F(Input, OperatorWithoutOperandsIsAnError) {
  for (const std::string property : {"&", "p1+", "EF", "p1p2&EU"}) {
    const Outcome outcome = withProperty(property + "\n");
    EXPECT_EQ(outcome.status, 1) << property;
    EXPECT_EQ(masked(outcome.out), twoRead) << property;
    EXPECT_TRUE(outcome.err.starts_with("zervan: property: operator \"")) << outcome.err;
    EXPECT_TRUE(outcome.err.ends_with("\" lacks an operand\n")) << outcome.err;
  }
  EXPECT_EQ(place.files(), (std::set<std::string>{"net.tpn", "phi.tpn"}));
}

TEST_F(Input, TransitionWithoutProcessesIsReportedOnStandardOutput) {
  const Outcome outcome = withNetwork(
      "x\ntransitions\n1 0 1\n2 0 1\nendtran\n"
      "process\n1 0 1\nvaluation\n1 1\nendval\nend\nend\n");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(masked(outcome.out),
            start +
                "wczytywanie procesu\nwczytywanie wartosciowania\nPlaces: 2\nTransitions: 1\n"
                "Formula is read\ntranzycja z pustym zbiorem procesow\n");
  EXPECT_EQ(outcome.err, "Creating symbolic paths\n");
  EXPECT_EQ(place.files(), (std::set<std::string>{"net.tpn", "phi.tpn"}));
}

// A property that no location has leaves no variable: the fifth line of the map.
TEST_F(Input, PropositionNumbersAreTakenInFull) {
  for (const std::string number : {"259", "65539", "131075", "16777219"}) {
    EXPECT_EQ(withProperty("p" + number + "\n").status, 0);
    EXPECT_EQ(place.read("netk3.lck"), "2\n1 1 \n2 4 2\n3\n0\n3 6\n") << number;
    EXPECT_EQ(place.read("netk3.cnf"), "p cnf -1000000 1\n0\n") << number;
  }
}

// --- Broken contracts. ---

TEST_F(Input, PropertyThatLeavesTwoValuesAborts) {
  const Outcome outcome = withProperty("p1p2\n");
  EXPECT_EQ(outcome.signal, SIGABRT);
  EXPECT_EQ(masked(outcome.out), twoRead + "Formula is read\n");
  EXPECT_NE(outcome.err.find("s.size() == 1"), std::string::npos) << outcome.err;
  EXPECT_NE(outcome.err.find("reachtran.cpp"), std::string::npos) << outcome.err;
  const std::string gcc = "BoolForm EctlTransl::transl(const EctlForm&, int)";
  const std::string clang = "BoolForm EctlTransl::transl(const EctlForm &, int)";
  EXPECT_TRUE(outcome.err.find(gcc) != std::string::npos ||
              outcome.err.find(clang) != std::string::npos)
      << outcome.err;
  EXPECT_EQ(place.files(), (std::set<std::string>{"net.tpn", "phi.tpn"}));
}

// Only a stray "E": no item at all.
TEST_F(Input, PropertyWithoutAValueAborts) {
  const Outcome outcome = withProperty("E\n");
  EXPECT_EQ(outcome.signal, SIGABRT);
  EXPECT_NE(outcome.err.find("s.size() == 1"), std::string::npos) << outcome.err;
}

TEST_F(Input, TimeThatNoClockHoldsAborts) {
  const Outcome outcome = withNetwork(
      "x\ntransitions\n1 100 -1\nendtran\n"
      "process\n1 0 1\nvaluation\nendval\nend\nend\n");
  EXPECT_EQ(outcome.signal, SIGABRT);
  EXPECT_NE(outcome.err.find("bsLen <= len"), std::string::npos) << outcome.err;
}

// --- Readings that never end. ---

TEST_F(Input, NetworkWithoutItsFinalEndIsNeverRead) {
  place.write("net.tpn", twoNetwork.substr(0, twoNetwork.size() - 4));
  expectNeverRead(start);
}

TEST_F(Input, NetworkThatStopsInItsTransitionsIsNeverRead) {
  place.write("net.tpn", "x\ntransitions\n1 0 3");
  expectNeverRead(start);
}

TEST_F(Input, NetworkThatStopsInAProcessIsNeverRead) {
  place.write("net.tpn", "x\ntransitions\nendtran\nprocess\n1 0 1");
  expectNeverRead(start);
}

TEST_F(Input, EmptyNetworkFileIsNeverRead) {
  place.write("net.tpn", "");
  expectNeverRead(start);
}

TEST_F(Input, EmptyPropertyFileIsNeverRead) {
  for (const std::string text : {"", "\n\n"}) {
    place.write("phi.tpn", text);
    expectNeverRead(twoRead);
  }
}

TEST_F(Input, UnknownCharacterInThePropertyIsNeverPassed) {
  for (const std::string text : {"p1 p2&\n", "p3\r\n", "(p3)\n"}) {
    place.write("phi.tpn", text);
    expectNeverRead(twoRead);
  }
}

TEST_F(Input, CharacterAfterAStrayEIsNeverPassed) {
  place.write("phi.tpn", "EZp1\n");
  expectNeverRead(twoRead);
}

// --- Files that end without a line end. ---

TEST_F(Input, LastLinesNeedNoLineEnd) {
  place.write("net.tpn", twoNetwork.substr(0, twoNetwork.size() - 1));
  const Outcome outcome = withProperty("p3");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(place.read("netk3.lck"), "2\n1 1 \n2 4 2\n3\n88\n3 6\n");
}

}  // namespace

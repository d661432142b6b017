// Networks with thousands of processes or transitions, from outside: what can be shown is shown in
// time, and what takes long ends when it is told to.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/driver/runprogram.hpp"
#include "tests/workbench/network/bignets.hpp"
#include "workbench/network/writer.hpp"

namespace {

using testing::HasSubstr;

// On any machine, however busy.
const Bounds inTime{.time = std::chrono::minutes(1)};

class Large : public testing::Test {
 protected:
  void write(const tpn::Network& net) const {
    place.write("net.tpn", tpn::networkFile(net));
    place.write("phi.tpn", "p1\n");
  }
  Outcome tpn(const std::vector<std::string>& arguments) const {
    return place.run(TPN_BINARY, arguments, inTime);
  }

  Workplace place;
};

// Each ended after minutes.
TEST_F(Large, CheckOfThousandsOfProcessesEndsWithItsTime) {
  write(tpn::manyProcesses(10000));
  const Outcome outcome = tpn({"check", "net", "phi", "--timeout", "1"});
  EXPECT_FALSE(outcome.timedOut);
  EXPECT_THAT(outcome.out, HasSubstr("the time is over"));
}

TEST_F(Large, CheckOfThousandsOfProcessesEndsWhenInterrupted) {
  write(tpn::manyProcesses(10000));
  const Outcome outcome =
      place.run("timeout", {"-s", "INT", "1", TPN_BINARY, "check", "net", "phi"}, inTime);
  EXPECT_FALSE(outcome.timedOut);
  EXPECT_THAT(outcome.out, HasSubstr("interrupted"));
}

TEST_F(Large, CheckOfAHundredThousandTransitionsEndsWithItsTime) {
  write(tpn::ring(100000));
  const Outcome outcome = tpn({"check", "net", "phi", "--timeout", "1"});
  EXPECT_FALSE(outcome.timedOut);
  EXPECT_THAT(outcome.out, HasSubstr("the time is over"));
}

// The last line is wrong, which is not found where reading ends before it.
std::string wrongAtItsEnd() {
  std::string text = tpn::networkFile(tpn::ring(200000));
  text.replace(text.rfind("end\n"), 4, "wrong\n");
  return text;
}

TEST_F(Large, NetworkIsNotReadToItsEndWhereTheTimeIsOver) {
  place.write("net.tpn", wrongAtItsEnd());
  place.write("phi.tpn", "\np1\n");
  place.write("proof", "");
  EXPECT_EQ(tpn({"check", "net", "phi"}).status, 1);
  const Outcome timed = tpn({"check", "net", "phi", "--timeout", "0.001"});
  EXPECT_EQ(timed.status, 30);
  EXPECT_EQ(timed.out, "undecided: the time is over\ngoal: p1\n");
  EXPECT_EQ(tpn({"check", "net", "-p", "p1 && p2", "--timeout", "0.001"}).out,
            "undecided: the time is over\ngoal: p1 && p2\n");
  EXPECT_EQ(tpn({"check", "--deadlock", "net", "--timeout", "0.001"}).out,
            "undecided: the time is over\ngoal: deadlock\n");
  EXPECT_EQ(tpn({"certify", "net", "phi", "proof", "--timeout", "0.001"}).status, 30);
}

// The signal comes when the program waits for the file, which is a pipe.
TEST_F(Large, NetworkIsNotReadToItsEndAfterASignal) {
  place.write("net", wrongAtItsEnd());
  place.write("phi.tpn", "p1\n");
  const Outcome outcome = place.run(
      "sh",
      {"-c", "mkfifo net.tpn; " TPN_BINARY
             " check net.tpn phi & exec 3>net.tpn; kill -TERM $!; cat net >&3; exec 3>&-; wait $!"},
      inTime);
  EXPECT_EQ(outcome.status, 30);
  EXPECT_EQ(outcome.out, "undecided: interrupted\ngoal: p1\n");
}

// Minutes, each: for every location all transitions were looked at, for every process as well.
TEST_F(Large, AHundredThousandTransitionsAreShown) {
  write(tpn::ring(100000));
  for (const std::vector<std::string>& show : {std::vector<std::string>{"show", "net"},
                                               {"show", "net", "--dot"},
                                               {"show", "net", "--json"}}) {
    const Outcome outcome = tpn(show);
    EXPECT_FALSE(outcome.timedOut);
    EXPECT_EQ(outcome.status, 0);
  }
}

TEST_F(Large, ThousandsOfProcessesAreShown) {
  write(tpn::manyProcesses(10000));
  for (const std::vector<std::string>& show :
       {std::vector<std::string>{"show", "net"}, {"show", "net", "--dot"}})
    EXPECT_EQ(tpn(show).status, 0);
}

TEST_F(Large, ParallelTransitionsAreShown) {
  write(tpn::parallel(50000));
  EXPECT_EQ(tpn({"show", "net", "--dot"}).status, 0);
}

}  // namespace

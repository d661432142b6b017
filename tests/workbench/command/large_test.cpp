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
using namespace std::chrono_literals;

class Large : public testing::Test {
 protected:
  void write(const tpn::Network& net) const {
    place.write("net.tpn", tpn::networkFile(net));
    place.write("phi.tpn", "p1\n");
  }
  Outcome tpn(const std::vector<std::string>& arguments, std::chrono::milliseconds within) const {
    Bounds bounds;
    bounds.time = within;
    return place.run(TPN_BINARY, arguments, bounds);
  }

  Workplace place;
};

// Each ended after 10 s and more, on a machine that did nothing else.
TEST_F(Large, CheckOfThousandsOfProcessesEndsWithItsTime) {
  write(tpn::manyProcesses(2000));
  const Outcome outcome = tpn({"check", "net", "phi", "--timeout", "1"}, 8s);
  EXPECT_FALSE(outcome.timedOut);
  EXPECT_THAT(outcome.out, HasSubstr("the time is over"));
}

TEST_F(Large, CheckOfThousandsOfProcessesEndsWhenInterrupted) {
  write(tpn::manyProcesses(2000));
  Bounds bounds;
  bounds.time = 8s;
  const Outcome outcome =
      place.run("timeout", {"-s", "INT", "1", TPN_BINARY, "check", "net", "phi"}, bounds);
  EXPECT_FALSE(outcome.timedOut);
  EXPECT_THAT(outcome.out, HasSubstr("interrupted"));
}

TEST_F(Large, CheckOfAHundredThousandTransitionsEndsWithItsTime) {
  write(tpn::ring(100000));
  const Outcome outcome = tpn({"check", "net", "phi", "--timeout", "1"}, 15s);
  EXPECT_FALSE(outcome.timedOut);
  EXPECT_THAT(outcome.out, HasSubstr("the time is over"));
}

// Minutes, each: for every location all transitions were looked at, for every process as well.
TEST_F(Large, AHundredThousandTransitionsAreShown) {
  write(tpn::ring(100000));
  for (const std::vector<std::string>& show : {std::vector<std::string>{"show", "net"},
                                               {"show", "net", "--dot"},
                                               {"show", "net", "--json"}}) {
    const Outcome outcome = tpn(show, 20s);
    EXPECT_FALSE(outcome.timedOut);
    EXPECT_EQ(outcome.status, 0);
  }
}

TEST_F(Large, ThousandsOfProcessesAreShown) {
  write(tpn::manyProcesses(10000));
  for (const std::vector<std::string>& show :
       {std::vector<std::string>{"show", "net"}, {"show", "net", "--dot"}})
    EXPECT_EQ(tpn(show, 10s).status, 0);
}

TEST_F(Large, ParallelTransitionsAreShown) {
  write(tpn::parallel(50000));
  EXPECT_EQ(tpn({"show", "net", "--dot"}, 10s).status, 0);
}

}  // namespace

// Numbers that options do not take are refused in words, those that they take are kept to.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/workbench/command/tpn.hpp"
#include "workbench/command/ranges.hpp"

namespace {

using testing::HasSubstr;
using testing::StartsWith;

class Numbers : public Tpn {
 protected:
  void refused(const std::vector<std::string>& arguments, const std::string& range) const {
    const Outcome outcome = tpn(arguments);
    EXPECT_EQ(outcome.status, 2) << arguments.back();
    EXPECT_EQ(outcome.out, "");
    EXPECT_THAT(outcome.err, HasSubstr(arguments.back() + " is no " + range));
  }
};

TEST_F(Numbers, StepsAndSeedsAreWholeAndNotNegative) {
  for (const std::string wrong : {"-3", "-1", "1.5", "x", "18446744073709551616"}) {
    refused({"run", "fischer", "--random", "1", "--steps", wrong},
            "whole number from 0 to 18446744073709551615");
    refused({"run", "fischer", "--random", wrong}, "whole number from 0 to 18446744073709551615");
  }
  EXPECT_EQ(tpn({"run", "fischer", "--random", "18446744073709551615", "--steps", "0"}).status, 0);
}

TEST_F(Numbers, TimesAreGreaterThanNothing) {
  for (const std::string wrong : {"0", "-1", "nan", "-nan", "1s", "-inf"})
    refused({"check", "fischer", "critical", "--timeout", wrong},
            "number of seconds greater than 0");
}

TEST_F(Numbers, LongTimesAreLong) {
  for (const std::string seconds : {"1e9", "1e10", "1e30", "1e300", "inf"}) {
    const Outcome outcome = tpn({"check", "handshake", "busy", "--timeout", seconds});
    EXPECT_EQ(outcome.status, 10) << seconds;
    EXPECT_THAT(outcome.out, StartsWith("reachable")) << seconds;
  }
}

TEST(Ranges, TakeTheirLimits) {
  EXPECT_EQ(tpn::wholeNumber()("0"), "");
  EXPECT_NE(tpn::wholeNumber()(""), "");
  EXPECT_NE(tpn::wholeNumber()("+1"), "");
  EXPECT_EQ(tpn::seconds()("1e-9"), "");
  EXPECT_NE(tpn::seconds()(""), "");
}

// A finding is not lost over a byte.
TEST_F(Tpn, RunIsFoundWhateverASolverSays) {
  const std::string solver = "s\xff";
  place.write(solver,
              "#!/bin/sh\nk=${1##*/k}; k=${k%.cnf}\n[ $k -eq 2 ] || exec cadical -q \"$1\"\n"
              "sleep 0.5; printf 'no \\377 cheese\\033[2J\\n' >&2; exit 3\n");
  std::filesystem::permissions(place.folder() / solver, std::filesystem::perms::owner_all);
  const std::vector<std::string> command{"check",       "handshake", "busy", "--solver",
                                         "./" + solver, "--jobs",    "3"};
  std::vector<std::string> inJson = command;
  inJson.emplace_back("--json");
  const Outcome json = tpn(inJson);
  EXPECT_EQ(json.status, 10) << json.err;
  const nlohmann::json value = nlohmann::json::parse(json.out);
  EXPECT_EQ(value.at("answer"), "reachable");
  EXPECT_THAT(json.out, HasSubstr("no \xef\xbf\xbd cheese"));
  const Outcome text = tpn(command);
  EXPECT_EQ(text.status, 10) << text.err;
  EXPECT_THAT(text.out, testing::Not(HasSubstr("\xff")));
  EXPECT_THAT(text.out, testing::Not(HasSubstr("\x1b")));
}

}  // namespace

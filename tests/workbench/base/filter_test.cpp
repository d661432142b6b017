#include "workbench/base/filter.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tpn {
namespace {

using testing::HasSubstr;
using testing::ThrowsMessage;

TEST(Filtered, GivesWhatTheProgramMakesOfTheText) {
  EXPECT_EQ(filtered({"tr", "a-z", "A-Z"}, "text\n"), "TEXT\n");
  const std::string large(3'000'000, 'x');  // more than a pipe holds
  EXPECT_EQ(filtered({"cat"}, large) == large, true);
}

TEST(Filtered, NoShellReadsTheArguments) {
  EXPECT_EQ(filtered({"printf", "%s", "$(id) 'x' \"y\" `z`"}, ""), "$(id) 'x' \"y\" `z`");
}

TEST(Filtered, WhatGoesWrongIsOneLine) {
  EXPECT_THAT([] { filtered({"no-such-program"}, ""); },
              ThrowsMessage<std::runtime_error>(
                  "no-such-program: cannot be run: No such file or directory"));
  EXPECT_THAT(
      [] {
        filtered({"sh", "-c", "echo 'no cheese\nat all' >&2; exit 3"}, "");
      },
      ThrowsMessage<std::runtime_error>("sh: no cheese"));
  EXPECT_THAT(
      [] {
        filtered({"sh", "-c", "exit 3"}, "");
      },
      ThrowsMessage<std::runtime_error>("sh: exit status 3"));
  EXPECT_THAT(
      [] {
        filtered({"sh", "-c", "kill -9 $$"}, "");
      },
      ThrowsMessage<std::runtime_error>("sh: ended by a signal: Killed"));
}

TEST(Filtered, ManyComplaintsDoNotStopTheProgram) {
  EXPECT_EQ(filtered({"sh", "-c", "seq 100000 >&2; echo done"}, ""), "done\n");
}

}  // namespace
}  // namespace tpn

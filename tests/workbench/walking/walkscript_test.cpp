// Walks by script.

#include <gtest/gtest.h>

#include "tests/workbench/walking/sessions.hpp"
#include "tests/workbench/walking/walked.hpp"

namespace tpn {
namespace {

TEST(WalkScript, PrintsOnlyWhatItIsAskedFor) {
  const Session s = script("# a lap\n\n1 3/2   # late\n2\n3\n");
  EXPECT_EQ(s.out, "");
  EXPECT_EQ(s.walked.error, "");
  EXPECT_EQ(steps(s.walked), "1 after 3/2, 2 after 0, 3 after 2");
  EXPECT_EQ(script("1 1.5\nshow\n").out, afterOne);
}

TEST(WalkScript, EndsWithQuit) {
  const Session s = script("1\nquit\nfly\n");
  EXPECT_EQ(s.walked.error, "");
  EXPECT_EQ(steps(s.walked), "1 after 1");
}

TEST(WalkScript, StopsAtABadLineAndKeepsWhatWasDone) {
  const Session s = script("# a lap\n1 3/2\n\n2 4\n2\n");
  EXPECT_EQ(s.walked.error,
            "moves.txt:4: error: transition 2 fires too late: its clocks are at 11/2 or more, past "
            "3; it fires with delay 0 to 3/2");
  EXPECT_EQ(steps(s.walked), "1 after 3/2");
  EXPECT_EQ(script("fly").walked.error, "moves.txt:1: error: unknown command 'fly'; try help");
}

}  // namespace
}  // namespace tpn

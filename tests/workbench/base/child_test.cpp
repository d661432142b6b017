// Child processes: how they end, what they leave, and that they do not outlive whom they work for.

#include "workbench/base/child.hpp"

#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>

#include "tests/driver/runprogram.hpp"
#include "tests/workbench/base/processes.hpp"

namespace {

using tpn::Child;

void waitFor(Child& child) {
  while (child.running()) std::this_thread::sleep_for(std::chrono::milliseconds(1));
}

// The number in a file that a child writes.
pid_t pidIn(const Workplace& place, const std::string& file) {
  pid_t pid = 0;
  for (int wait = 0; wait < 500 && pid == 0; ++wait) {
    std::istringstream(place.read(file)) >> pid;
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
  return pid;
}

std::vector<std::string> shell(const std::string& script) { return {"/bin/sh", "-c", script}; }

TEST(Child, TellsHowItExited) {
  Child child([] { return 7; });
  waitFor(child);
  EXPECT_EQ(child.exitStatus(), 7);
  EXPECT_EQ(child.signal(), 0);
  EXPECT_EQ(child.lastNote(), "");
}

TEST(Child, TellsTheSignalThatEndedIt) {
  Child child([]() -> int { return raise(SIGKILL); });
  waitFor(child);
  EXPECT_EQ(child.exitStatus(), -1);
  EXPECT_EQ(child.signal(), SIGKILL);
}

TEST(Child, TellsWhatItThrew) {
  Child child([]() -> int { throw std::runtime_error("why"); });
  waitFor(child);
  EXPECT_EQ(child.exitStatus(), 1);
  EXPECT_EQ(child.lastNote(), "why");
}

TEST(Child, BecomesAProgramWithItsOutputInFiles) {
  const Workplace place;
  const std::string out = place.folder() / "out";
  const std::string err = place.folder() / "err";
  Child child([&]() -> int { tpn::become(shell("echo a; echo b >&2; exit 3"), out, err); });
  waitFor(child);
  EXPECT_EQ(child.exitStatus(), 3);
  EXPECT_EQ(contents(out), "a\n");
  EXPECT_EQ(contents(err), "b\n");
}

TEST(Child, IsEndedWithAllItStartedWhenItIsGivenUp) {
  const Workplace place;
  const std::string pid = place.folder() / "pid";
  {
    Child child([&]() -> int {
      tpn::become(shell("sleep 1000 & echo $! >" + pid + "; wait"), "/dev/null", "/dev/null");
    });
    ASSERT_GT(pidIn(place, "pid"), 0);
  }
  EXPECT_TRUE(ends(pidIn(place, "pid")));
}

TEST(Child, LeavesNothingRunningWhenItHasEnded) {
  const Workplace place;
  const std::string pid = place.folder() / "pid";
  Child child([&]() -> int {
    tpn::become(shell("sleep 1000 & echo $! >" + pid), "/dev/null", "/dev/null");
  });
  waitFor(child);
  ASSERT_GT(pidIn(place, "pid"), 0);
  EXPECT_TRUE(ends(pidIn(place, "pid")));
}

TEST(Child, DiesWithItsParent) {
  const Workplace place;
  const std::string pid = place.folder() / "pid";
  const pid_t parent = fork();
  if (parent == 0) {
    Child child([&]() -> int {
      tpn::become(shell("echo $$ >" + pid + "; exec sleep 1000"), "/dev/null", "/dev/null");
    });
    pidIn(place, "pid");
    raise(SIGKILL);
  }
  waitpid(parent, nullptr, 0);
  ASSERT_GT(pidIn(place, "pid"), 0);
  EXPECT_TRUE(ends(pidIn(place, "pid")));
}

}  // namespace

// What a walk at random keeps. Builds with the address sanitizer leave this file out: it holds back
// what is freed.

#include <gtest/gtest.h>
#include <sys/resource.h>

#include "tests/workbench/network/bignets.hpp"
#include "workbench/walking/randomwalk.hpp"

namespace tpn {
namespace {

// In kilobytes, the most so far.
long memory() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss;
}

// All states of this walk take 3 kB each.
TEST(WalkRandomly, KeepsStepsAndNotStates) {
  const Network net = manyProcesses(150);
  const long before = memory();
  EXPECT_EQ(walkRandomly(net, 1, 30000).run.steps.size(), 30000U);
  EXPECT_LT(memory() - before, 20000);
}

}  // namespace
}  // namespace tpn

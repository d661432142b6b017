// What is said of a path length.

#include "workbench/encoding/lintbound.hpp"

#include <gtest/gtest.h>

#include <string>

#include "tests/workbench/network/strictly.hpp"

namespace {

// The lamp takes 12 variables a state: a location bit, 4 for the integer part and 1 for the
// fraction of the delay and of the clock each, 1 for the split value.
TEST(LintBound, TellsWhatIsTooLong) {
  const Found net = inNetwork(lamp);
  ASSERT_TRUE(net.network);
  const auto idFor = [&net](int k) {
    tpn::Diagnostics found;
    lintBound(*net.network, "net", k, found);
    return found.empty() ? std::string() : found.front().id;
  };
  EXPECT_EQ(idFor(-2147483647 - 1), "bound-too-small");
  EXPECT_EQ(idFor(0), "bound-too-small");
  EXPECT_EQ(idFor(1), "");
  EXPECT_EQ(idFor(500000 / 12 - 1), "");
  EXPECT_EQ(idFor(500000 / 12), "variables-fold");
  EXPECT_EQ(idFor(999999 / 12 - 1), "variables-fold");
  EXPECT_EQ(idFor(999999 / 12), "too-many-variables");
  EXPECT_EQ(idFor(2147483647), "too-many-variables");
}

}  // namespace

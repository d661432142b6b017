// Time runs right, and what happens at once still has places of its own.

#include "workbench/views/rungeometry.hpp"

#include <gtest/gtest.h>

#include "tests/workbench/views/viewruns.hpp"

namespace tpn {
namespace {

RunGeometry geometryOf(const Shown& shown) {
  return geometryOf(shown.net, shown.property, shown.run,
                    replay(shown.net, shown.property, shown.run), true);
}

TEST(RunGeometry, StatesFollowEachOtherFromTheGutterToTheEnd) {
  for (unsigned seed = 1; seed <= 20; ++seed) {
    const Shown shown = randomShown(seed, 12);
    const RunGeometry at = geometryOf(shown);
    ASSERT_EQ(at.entered.size(), shown.run.steps.size() + 1);
    EXPECT_EQ(at.left(0), at.gutter);
    for (std::size_t i = 0; i < at.entered.size(); ++i) EXPECT_LT(at.left(i), at.right(i));
    EXPECT_EQ(at.right(at.entered.size() - 1), at.end);
    EXPECT_LT(at.end, at.width);
  }
}

TEST(RunGeometry, InstantsPartTheStatesAndGapsStandBetween) {
  for (unsigned seed = 1; seed <= 20; ++seed) {
    const Shown shown = randomShown(seed, 12);
    const RunGeometry at = geometryOf(shown);
    ASSERT_EQ(at.gaps.size() + 1, at.instants.size());
    EXPECT_EQ(at.instants.front().first, 0U);
    EXPECT_EQ(at.instants.back().last, shown.run.steps.size());
    for (std::size_t i = 0; i < at.gaps.size(); ++i) {
      EXPECT_EQ(at.instants[i].last + 1, at.instants[i + 1].first);
      EXPECT_LT(at.instants[i].time, at.instants[i + 1].time);
      EXPECT_EQ(at.gaps[i].from, at.left(at.instants[i].last));
      EXPECT_EQ(at.gaps[i].to, at.left(at.instants[i + 1].first));
      for (const int tick : at.gaps[i].ticks)
        EXPECT_TRUE(at.gaps[i].from <= tick && tick <= at.gaps[i].to);
      EXPECT_TRUE(at.gaps[i].toScale || at.gaps[i].ticks.empty());
    }
  }
}

TEST(RunGeometry, LanesLieBelowEachOther) {
  const Shown shown = thirds();
  const RunGeometry at = geometryOf(shown);
  EXPECT_GE(at.barTop(0), at.lanesTop);
  for (std::size_t p = 1; p < shown.net.processes.size(); ++p)
    EXPECT_EQ(at.barTop(p) - at.barTop(p - 1), RunGeometry::lanePitch);
  EXPECT_LE(at.barTop(shown.net.processes.size() - 1) + RunGeometry::barHeight, at.lanesBottom);
}

}  // namespace
}  // namespace tpn

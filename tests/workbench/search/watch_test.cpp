// What ends a search, and how often it says how far it is.

#include "workbench/search/watch.hpp"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include "tests/workbench/encoding/checknets.hpp"
#include "tests/workbench/search/explored.hpp"
#include "workbench/search/strategy.hpp"

namespace {

using tpn::Progress;
using tpn::Watch;

TEST(Watch, IsOverWhenTheTimeIs) {
  const std::atomic<bool> stop{false};
  const Watch::Report none;
  const Watch watch(std::chrono::milliseconds(30), stop, none);
  EXPECT_FALSE(watch.over());
  std::this_thread::sleep_for(std::chrono::milliseconds(40));
  EXPECT_TRUE(watch.over());
  EXPECT_EQ(watch.reason(), "the time is over");
}

TEST(Watch, IsOverWhenItIsStopped) {
  std::atomic<bool> stop{false};
  const Watch::Report none;
  const Watch watch({}, stop, none);
  EXPECT_FALSE(watch.over());
  stop = true;
  EXPECT_TRUE(watch.over());
  EXPECT_EQ(watch.reason(), "interrupted");
}

TEST(Watch, TellsAgainTenTimesASecondAtMost) {
  const std::atomic<bool> stop{false};
  std::vector<Progress> told;
  const Watch::Report report = [&](const Progress& p) { told.push_back(p); };
  Watch watch({}, stop, report);
  watch.tell({1, 0, 0, -1, 0});
  for (int i = 0; i < 1000; ++i) watch.tellAgain({2, 0, 0, -1, 0});
  EXPECT_LT(told.size(), 5U);
  std::this_thread::sleep_for(std::chrono::milliseconds(110));
  watch.tellAgain({3, 0, 0, -1, 0});
  EXPECT_EQ(told.back().bound, 3);
  EXPECT_GE(told.back().seconds, 0.11);
}

// Strategies are given the same question and mean the same by their verdicts.
TEST(Strategies, AgreeOnAQuestion) {
  const std::atomic<bool> stop{false};
  const Watch::Report none;
  const tpn::Network net = circle(3);
  for (const std::string text : {"p1", "p-1", "p9"}) {
    const tpn::Property property = propertyOf(text);
    std::vector<tpn::Verdict> verdicts;
    for (const tpn::Strategy strategy : {tpn::checkEmbedded, tpn::checkWithProgram}) {
      Watch watch({}, stop, none);
      verdicts.push_back(strategy({net, property}, {8, {}, "cadical", 1, ""}, watch));
    }
    EXPECT_EQ(verdicts[0].answer, verdicts[1].answer) << text;
    EXPECT_EQ(verdicts[0].bound, verdicts[1].bound) << text;
    EXPECT_EQ(verdicts[0].shortest, verdicts[1].shortest) << text;
  }
}

}  // namespace

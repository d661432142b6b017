// Ranges and sweeps as a campaign file writes them.

#include <gtest/gtest.h>

#include "workbench/campaign/campaign.hpp"

namespace tpn {
namespace {

using Values = std::vector<std::int64_t>;

TEST(Ranges, HaveBothEndsAndAStep) {
  EXPECT_EQ(readRange("4"), Values{4});
  EXPECT_EQ(readRange("2..5"), (Values{2, 3, 4, 5}));
  EXPECT_EQ(readRange("2..9 step 3"), (Values{2, 5, 8}));
  EXPECT_EQ(readRange(" 3 .. 3 "), Values{3});
}

TEST(Ranges, OfAnythingElseAreRefused) {
  for (const char* text : {"", "x", "5..2", "1..", "..3", "1..9 step 0", "4 step 2", "-1..3",
                           "1..9000000000", "99999999999999999999"})
    EXPECT_EQ(readRange(text), std::nullopt) << text;
}

TEST(Ranges, NearTheLargestNumberEnd) {
  EXPECT_EQ(readRange("9223372036854775806..9223372036854775807")->size(), 2U);
}

TEST(Sweeps, NameATransitionABoundAndItsValues) {
  const auto sweep = readSweep("transition reply: latest 1..3");
  ASSERT_TRUE(sweep);
  EXPECT_EQ(sweep->transition, "reply");
  EXPECT_TRUE(sweep->latest);
  EXPECT_EQ(sweep->values, (Values{1, 2, 3}));
  EXPECT_FALSE(readSweep("transition 4: earliest 2")->latest);
}

TEST(Sweeps, MayHaveAColonInTheName) {
  EXPECT_EQ(readSweep("transition a: b: latest 1")->transition, "a: b");
}

TEST(Sweeps, OfAnythingElseAreRefused) {
  for (const char* text : {"", "transition", "transition : latest 1", "transition x: late 1",
                           "transition x: latest", "place x: latest 1", "transition x latest 1"})
    EXPECT_FALSE(readSweep(text)) << text;
}

}  // namespace
}  // namespace tpn

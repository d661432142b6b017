// Many names in few words.

#include "workbench/views/patterns.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tpn {
namespace {

using testing::ElementsAre;

TEST(Summary, NamesThatDifferInNumbersBecomeOne) {
  EXPECT_THAT(summary({"write1_over2", "write1_over3", "write1_over14"}, 4),
              ElementsAre("write1_over*"));
  EXPECT_THAT(summary({"a1", "b", "a2", "a2"}, 4), ElementsAre("a1", "a2", "b"));
  EXPECT_THAT(summary({"a1", "b", "c", "a2"}, 4), ElementsAre("a*", "b", "c"));
}

TEST(Summary, NumbersBecomeRanges) {
  EXPECT_THAT(summary({"7", "3", "1", "2"}, 4), ElementsAre("1 .. 3", "7"));
}

TEST(Summary, SaysHowMuchWasLeftOut) {
  EXPECT_THAT(summary({"a", "b", "c", "d", "e"}, 3), ElementsAre("a", "b", "... 3 more"));
}

// A # stands for itself, and so does a star.
TEST(Summary, TakesAnyNames) {
  EXPECT_THAT(summary({"{a#}", "{a1}", "{a*}", ""}, 9), ElementsAre("{a#}", "{a1}", "{a*}", ""));
}

TEST(EitherOf, IsOneOfThem) {
  EXPECT_EQ(eitherOf({"A"}), "A");
  EXPECT_EQ(eitherOf({"1", "2", "3", "9"}), "one of 1 .. 3, 9");
  EXPECT_EQ(eitherOf({"node1", "producer", "node2"}), "node* or producer");
}

TEST(Members, AreNamedFromFirstToLastWhereNoneIsMissing) {
  EXPECT_EQ(members({"P1", "P2", "P3"}), "P1 .. P3");
  EXPECT_EQ(members({"P1", "P2", "P4"}), "P1, P2, P4");
  EXPECT_EQ(members({"1", "3", "5", "7"}), "1, 3 .. 7");
  EXPECT_EQ(members({"alice", "bob"}), "alice, bob");
}

TEST(Ranges, HoldTheNumbersThatAreThere) {
  EXPECT_THAT(ranges({1, 2, 3}), ElementsAre("1 .. 3"));
  EXPECT_THAT(ranges({1, 2}), ElementsAre("1", "2"));
  EXPECT_THAT(ranges({1, 3, 5, 7}), ElementsAre("1", "3 .. 7"));
  EXPECT_THAT(ranges({2, 5, 6}), ElementsAre("2", "5", "6"));
  EXPECT_THAT(ranges({}), ElementsAre());
}

}  // namespace
}  // namespace tpn

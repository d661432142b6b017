#include "workbench/network/network.hpp"

#include <gtest/gtest.h>

#include "tests/workbench/network/smallnets.hpp"
#include "workbench/network/property.hpp"

namespace tpn {
namespace {

using Set = std::set<int>;

TEST(Network, StartsInLocationZeroEverywhere) {
  EXPECT_EQ(initialLocations(twoProcesses()), (Locations{0, 0}));
}

TEST(Network, TakesTheLargestConstantOfEitherKind) {
  Network net = twoProcesses();
  EXPECT_EQ(largestConstant(net), 3);
  net.transitions[2].interval.earliest = 5;  // of the one without a latest time
  EXPECT_EQ(largestConstant(net), 5);
  EXPECT_EQ(largestConstant(Network{}), 0);
}

TEST(Network, CollectsTheLabelsOfAllProcesses) {
  const Network net = twoProcesses();
  EXPECT_EQ(propositionsAt(net, {0, 0}), Set{});
  EXPECT_EQ(propositionsAt(net, {1, 0}), Set{7});
  EXPECT_EQ(propositionsAt(net, {1, 1}), (Set{7, 8, 9}));
  EXPECT_EQ(propositions(net), (Set{7, 8, 9}));
}

Set members(int mask) {
  Set result;
  for (int i = 0; i < 3; ++i)
    if ((mask >> i & 1) != 0) result.insert(i);
  return result;
}

TEST(Property, IsEvaluatedInPostfix) {
  using I = PropertyItem;
  const Property mixed{"p0p-1&p2+",
                       {{I::proposition, 0},
                        {I::negated, 1},
                        {I::conjunction, 0},
                        {I::proposition, 2},
                        {I::disjunction, 0}}};
  const Property nested{"p0p-1p2+&",
                        {{I::proposition, 0},
                         {I::negated, 1},
                         {I::proposition, 2},
                         {I::disjunction, 0},
                         {I::conjunction, 0}}};
  for (int mask = 0; mask < 8; ++mask) {
    const bool p0 = (mask & 1) != 0;
    const bool p1 = (mask & 2) != 0;
    const bool p2 = (mask & 4) != 0;
    EXPECT_EQ(holds(mixed, {members(mask), {}, false}), (p0 && !p1) || p2) << mask;
    EXPECT_EQ(holds(nested, {members(mask), {}, false}), p0 && (!p1 || p2)) << mask;
  }
}

// Transition 3 of the two, its second move changed.
Network changed(bool counts, bool resets, int target) {
  Network net = twoProcesses();
  net.transitions[2].moves[1] = {1, 1, target, counts, resets};
  return net;
}

TEST(Moves, CountAndResetInFiles) {
  EXPECT_TRUE(hasPlainMoves(twoProcesses()));
  EXPECT_FALSE(hasPlainMoves(changed(false, true, 0)));
  EXPECT_FALSE(hasPlainMoves(changed(true, false, 1)));
  EXPECT_TRUE(mayBeUnsafe(changed(false, true, 0)));
  EXPECT_FALSE(mayBeUnsafe(changed(true, false, 1)));
}

TEST(Moves, ThatDoNotResetStay) {
  EXPECT_TRUE(isValid(changed(true, false, 1).transitions[2]));
  EXPECT_FALSE(isValid(changed(true, false, 0).transitions[2]));
}

TEST(Moves, CountOnceAtLeast) {
  Network net = changed(false, true, 0);
  EXPECT_TRUE(isValid(net.transitions[2]));
  net.transitions[2].moves[0].counts = false;
  EXPECT_FALSE(isValid(net.transitions[2]));
}

TEST(Moves, ThatDoNotCountEnableNothing) {
  const Network net = changed(false, true, 0);
  EXPECT_TRUE(enabled(net.transitions[2], {1, 0}));
  EXPECT_FALSE(enabled(net.transitions[2], {0, 1}));
  ASSERT_NE(unmetPrecondition(net.transitions[2], {1, 0}), nullptr);
  EXPECT_EQ(unmetPrecondition(net.transitions[2], {1, 0})->process, 1U);
}

TEST(Property, HoldsAsWellWhereTheNetIsUnsafe) {
  const Property seven{"p7", {{PropertyItem::proposition, 7}}};
  const Property both = orUnsafe(seven);
  for (const bool unsafe : {false, true})
    for (const Set& propositions : {Set{}, Set{7}}) {
      EXPECT_EQ(holds(both, {propositions, {}, false, unsafe}), unsafe || !propositions.empty());
      EXPECT_EQ(holds(withoutSafety(both), {propositions, {}, false, unsafe}),
                !propositions.empty());
    }
  EXPECT_TRUE(asksSafety(both));
  EXPECT_FALSE(asksSafety(seven));
  EXPECT_EQ(withoutSafety(both).items, seven.items);
  EXPECT_EQ(withoutSafety(seven).items, seven.items);
}

TEST(Property, CanBeTrueAlways) {
  EXPECT_TRUE(holds({"T", {{PropertyItem::truth, 0}}}, {{}, {}, false}));
}

}  // namespace
}  // namespace tpn

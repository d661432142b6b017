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

TEST(Property, CanBeTrueAlways) {
  EXPECT_TRUE(holds({"T", {{PropertyItem::truth, 0}}}, {{}, {}, false}));
}

}  // namespace
}  // namespace tpn

// Exchanges, and classes of interchangeable processes. Fischer's protocol of the checks: processes
// 0 .. n - 1 and the variable, whose location is the number of the process that it names.

#include "workbench/machine/exchange.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "tests/workbench/encoding/checknets.hpp"

namespace {

using testing::ElementsAre;
using tpn::Machine;

tpn::PropertyItem proposition(int number) { return {tpn::PropertyItem::proposition, number}; }

tpn::Property together(const std::vector<int>& propositions) {
  tpn::Property property;
  for (std::size_t i = 0; i < propositions.size(); ++i) {
    property.items.push_back(proposition(propositions[i]));
    if (i > 0) property.items.push_back({tpn::PropertyItem::conjunction, 0});
  }
  return property;
}

// Sender 2 i and receiver 2 i + 1 of each pair start and finish together.
tpn::Network pairs(std::size_t count) {
  tpn::Network net;
  net.processes.resize(2 * count);
  for (std::size_t i = 0; i < count; ++i) {
    net.processes[2 * i] = net.processes[2 * i + 1] = {{0, 1}, {}};
    net.transitions.push_back({{0, 2}, {{2 * i, 0, 1}, {2 * i + 1, 0, 1}}});
    net.transitions.push_back({{1, 2}, {{2 * i, 1, 0}}});
    net.transitions.push_back({{1, {}}, {{2 * i + 1, 1, 0}}});
  }
  return net;
}

TEST(Exchange, SwapsTheValuesThatGoWithTheProcesses) {
  const Machine machine = tpn::makeMachine(swappedFischer(3));
  const auto found = tpn::exchange(machine, 0, 2);
  ASSERT_TRUE(found);
  EXPECT_EQ(found->process(0), 2U);
  EXPECT_EQ(found->process(2), 0U);
  EXPECT_EQ(found->process(3), 3U);
  EXPECT_EQ(found->rank(3, 1), 3U);
  EXPECT_EQ(found->rank(3, 2), 2U);
}

TEST(Exchange, TakesPartnersAlong) {
  const auto found = tpn::exchange(tpn::makeMachine(pairs(3)), 0, 4);
  ASSERT_TRUE(found);
  EXPECT_EQ(found->process(1), 5U);
  EXPECT_EQ(found->process(3), 3U);
}

TEST(Exchange, FindsNoneWhereOneBoundIsAnother) {
  tpn::Network net = swappedFischer(3);
  net.transitions[1].interval.latest = 5;
  EXPECT_FALSE(tpn::exchange(tpn::makeMachine(net), 0, 1));
  EXPECT_TRUE(tpn::exchange(tpn::makeMachine(net), 1, 2));
}

TEST(Exchange, FindsNoneWhereTheInitialStateTellsThemApart) {
  tpn::Network net;
  net.processes = {{{0, 1}, {}}, {{-1, 0}, {}}};  // the same by rank, but for where they start
  net.transitions = {{{0, 1}, {{0, 0, 1}}}, {{0, 1}, {{1, -1, 0}}}};
  EXPECT_FALSE(tpn::exchange(tpn::makeMachine(net), 0, 1));
}

// Three pairs whose senders stay where they start: what they do to their receivers, and to
// themselves, has to be the same.
TEST(Exchange, FindsNoneWhereOneMoveDoesNotCountOrReset) {
  tpn::Network net = pairs(3);
  for (std::size_t i = 0; i < 3; ++i) {
    net.transitions[3 * i].moves[0].target = 0;
    net.transitions.push_back({{0, 2}, {{2 * i + 1, 0, 0}}});
  }
  EXPECT_TRUE(tpn::exchange(tpn::makeMachine(net), 0, 2));
  tpn::Network putting = net;
  putting.transitions[0].moves[1].counts = false;
  EXPECT_FALSE(tpn::exchange(tpn::makeMachine(putting), 0, 2));
  EXPECT_TRUE(tpn::exchange(tpn::makeMachine(putting), 2, 4));
  tpn::Network reading = net;
  reading.transitions[0].moves[0].resets = false;
  EXPECT_FALSE(tpn::exchange(tpn::makeMachine(reading), 0, 2));
  EXPECT_TRUE(tpn::exchange(tpn::makeMachine(reading), 2, 4));
}

// Both meet the third process in 0 and in 1 and leave it in 0 and in 1, the one changed, the other
// as it was: what is inferred is wrong, and is not given out.
TEST(Exchange, IsVerified) {
  tpn::Network net;
  net.processes.assign(3, {{0, 1}, {}});
  net.transitions = {{{0, {}}, {{0, 0, 1}, {2, 0, 1}}},
                     {{0, {}}, {{0, 0, 1}, {2, 1, 0}}},
                     {{0, {}}, {{1, 0, 1}, {2, 0, 0}}},
                     {{0, {}}, {{1, 0, 1}, {2, 1, 1}}}};
  EXPECT_FALSE(exchange(makeMachine(net), 0, 1));
  net.transitions[2].moves[1].target = 1;
  net.transitions[3].moves[1].target = 0;
  EXPECT_TRUE(exchange(makeMachine(net), 0, 1));
}

// The third process meets both in the same way, but that its move counts, or resets, with one
// alone: what the two do themselves does not tell.
TEST(Exchange, FindsNoneWhereTheMoveOfAPartnerOfBothDiffers) {
  tpn::Network net;
  net.processes.assign(3, {{0, 1}, {}});
  net.transitions = {{{1, 2}, {{0, 0, 1}, {2, 0, 0}}}, {{1, 2}, {{1, 0, 1}, {2, 0, 0}}}};
  EXPECT_TRUE(exchange(makeMachine(net), 0, 1));
  for (bool tpn::Move::*const flag : {&tpn::Move::counts, &tpn::Move::resets}) {
    tpn::Network other = net;
    other.transitions[1].moves[1].*flag = false;
    EXPECT_FALSE(exchange(makeMachine(other), 0, 1));
    other.transitions[0].moves[1].*flag = false;
    EXPECT_TRUE(exchange(makeMachine(other), 0, 1));
  }
}

// Where the third process starts goes with the first, where it may be later with the second.
TEST(Exchange, LeavesTheInitialStateAsItIs) {
  tpn::Network net;
  net.processes = {{{0, 1}, {}}, {{0, 1}, {}}, {{0, 1, 2}, {}}};
  const auto meets = [](std::size_t process, int place) {
    return tpn::Transition{{0, {}}, {{process, 0, 1}, {2, place, place}}};
  };
  net.transitions = {meets(0, 1), meets(1, 2), {{0, {}}, {{2, 0, 1}}}, {{0, {}}, {{2, 0, 2}}}};
  EXPECT_TRUE(exchange(makeMachine(net), 0, 1));
  net.transitions = {meets(0, 0), meets(1, 1), {{0, {}}, {{2, 0, 1}}}, {{0, {}}, {{2, 1, 0}}}};
  EXPECT_FALSE(exchange(makeMachine(net), 0, 1));
}

TEST(Exchange, CountsTransitionsThatAreThereTwice) {
  tpn::Network net = pairs(2);
  net.transitions.push_back(net.transitions[0]);
  net.transitions.push_back(net.transitions[4]);
  EXPECT_FALSE(tpn::exchange(tpn::makeMachine(net), 0, 2));
}

TEST(Interchangeable, AreAllOfFischersProcesses) {
  const tpn::Network net = swappedFischer(4);
  const Machine machine = tpn::makeMachine(net);
  EXPECT_THAT(tpn::interchangeable(net, machine, nullptr), ElementsAre(ElementsAre(0, 1, 2, 3)));
}

TEST(Interchangeable, AreThoseThatThePropertyDoesNotTellApart) {
  const tpn::Network net = swappedFischer(5);
  const Machine machine = tpn::makeMachine(net);
  const tpn::Property property = together({1, 2});
  EXPECT_THAT(tpn::interchangeable(net, machine, &property),
              ElementsAre(ElementsAre(0, 1), ElementsAre(2, 3, 4)));
}

TEST(Interchangeable, LookAtAPropertyWhateverTheOrderOfItsParts) {
  const tpn::Network net = swappedFischer(3);
  const Machine machine = tpn::makeMachine(net);
  const tpn::PropertyItem conjunction{tpn::PropertyItem::conjunction, 0};
  const tpn::PropertyItem disjunction{tpn::PropertyItem::disjunction, 0};
  tpn::Property some;
  some.items = {proposition(2), proposition(1), conjunction, proposition(1),
                proposition(3), conjunction,    disjunction, proposition(2),
                proposition(3), conjunction,    disjunction};
  EXPECT_THAT(tpn::interchangeable(net, machine, &some), ElementsAre(ElementsAre(0, 1, 2)));
}

// Partners go along with the first of each pair, so they make no class of their own.
TEST(Interchangeable, CountPartnersOnce) {
  const tpn::Network net = pairs(3);
  EXPECT_THAT(tpn::interchangeable(net, tpn::makeMachine(net), nullptr),
              ElementsAre(ElementsAre(0, 2, 4)));
}

// Two pairs, 0 with 3 and 1 with 2, of which all four do the same. To exchange the last two is to
// exchange the first two as well, whose order is settled then: with all four in order no run would
// begin with a pair.
TEST(Interchangeable, LeaveEarlierMembersAsTheyAre) {
  tpn::Network net;
  net.processes.assign(4, {{0, 1, 2}, {}});
  for (std::size_t p = 0; p < 4; ++p) net.transitions.push_back({{0, {}}, {{p, 0, 1}}});
  net.transitions.push_back({{0, {}}, {{0, 1, 2}, {3, 1, 2}}});
  net.transitions.push_back({{0, {}}, {{1, 1, 2}, {2, 1, 2}}});
  ASSERT_TRUE(exchange(makeMachine(net), 2, 3));
  EXPECT_THAT(interchangeable(net, makeMachine(net), nullptr), ElementsAre(ElementsAre(0, 1, 2)));
}

TEST(Interchangeable, AreNoneOfARing) {
  tpn::Network net;
  net.processes.resize(5, {{0, 1}, {}});
  for (std::size_t i = 0; i < 5; ++i)
    net.transitions.push_back({{1, 2}, {{i, 1, 0}, {(i + 1) % 5, 0, 1}}});
  EXPECT_TRUE(tpn::interchangeable(net, tpn::makeMachine(net), nullptr).empty());
}

}  // namespace

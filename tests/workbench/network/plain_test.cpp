#include "workbench/network/plain.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/workbench/network/randomgoals.hpp"

namespace tpn {

namespace {

std::vector<Locations> everywhere(const Network& net) {
  std::vector<Locations> all{{}};
  for (const Process& process : net.processes) {
    std::vector<Locations> more;
    for (const Locations& part : all)
      for (const int location : process.locations) {
        more.push_back(part);
        more.back().push_back(location);
      }
    all = std::move(more);
  }
  return all;
}

bool holdsAt(const Network& net, const Property& property, const Locations& at) {
  const std::set<int> propositions = propositionsAt(net, at);
  return holds(property, {propositions, at, false});
}

TEST(Plain, MeansTheSameEverywhere) {
  SmallNets nets(5);
  int plain = 0;
  for (int i = 0; i < 500; ++i) {
    Network net = nets.next();
    net.processes.front().labels[0] = {1, 2};
    net.processes.back().labels[0].insert(1);
    const Property asked = RandomGoals(nets).next(net, 3);
    if (asksDeadlock(asked)) continue;
    const Network labelled = labelledFor(net, asked);
    const Property plainly = tpn::plain(labelled, asked);
    EXPECT_TRUE(isPlain(plainly));
    for (const Locations& at : everywhere(net))
      EXPECT_EQ(holdsAt(labelled, plainly, at), holdsAt(net, asked, at)) << i;
    ++plain;
  }
  EXPECT_GT(plain, 250);
}

TEST(Plain, LabelsOnlyWhatHasNoPropositionOfItsOwn) {
  Network net = twoProcesses();
  Property asked;
  asked.items.resize(1);
  asked.items[0].kind = PropertyItem::at;
  asked.items[0].number = 1;
  EXPECT_EQ(labelledFor(net, asked), net);
  EXPECT_EQ(postfixText(plain(net, asked)), "p7");
  asked.items[0].number = 0;
  EXPECT_EQ(labelledFor(net, asked).processes[0].labels.at(0), std::set<int>{1});
  EXPECT_THROW(plain(net, asked), std::runtime_error);
}

TEST(Plain, HasNoWordForADeadlock) {
  const Network net = twoProcesses();
  try {
    plain(net, deadlockProperty());
    FAIL();
  } catch (const std::runtime_error& e) {
    EXPECT_STREQ(e.what(), "no proposition says deadlock");
  }
}

Property counter(int operands, int least) {
  Property property;
  for (int i = 1; i <= operands; ++i) {
    property.items.emplace_back();
    property.items.back().kind = PropertyItem::proposition;
    property.items.back().number = i;
  }
  property.items.emplace_back();
  property.items.back().kind = PropertyItem::counter;
  property.items.back().operands = operands;
  property.items.back().least = least;
  property.items.back().most = operands;
  return property;
}

TEST(Plain, WritesTwoOfManyWithFewerThanAllPairs) {
  const Network net = twoProcesses();
  EXPECT_LT(plain(net, counter(256, 2)).items.size(), 2U * 256U * 10U);
}

TEST(Plain, RefusesCountersThatGrowTooLarge) {
  const Network net = twoProcesses();
  EXPECT_THROW(plain(net, counter(400, 200)), std::runtime_error);
}

}  // namespace

}  // namespace tpn

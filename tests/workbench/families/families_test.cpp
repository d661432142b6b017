// The families of networks, each at its smallest sizes: what their files hold, and that both
// notations of a question ask for the same.

#include "workbench/families/families.hpp"

#include <gtest/gtest.h>

#include "workbench/families/random.hpp"
#include "workbench/network/infix.hpp"
#include "workbench/network/propertyreader.hpp"
#include "workbench/network/strictread.hpp"
#include "workbench/network/writer.hpp"

namespace tpn {
namespace {

class Families : public testing::TestWithParam<Family> {
 protected:
  template <class Do>
  static void forSizes(Do call) {
    for (int size = GetParam().least; size < GetParam().least + 5; ++size)
      call(size, GetParam().network(size));
  }
};

TEST_P(Families, AreReadFromTheirFiles) {
  forSizes([](int size, const Network& net) {
    Diagnostics found;
    const auto read = readNetwork("net", networkFile(net), found);
    for (const Diagnostic& d : found) ADD_FAILURE() << text(d);
    ASSERT_TRUE(read);
    EXPECT_EQ(*read, net) << size;
  });
}

TEST_P(Families, HaveNoEarliestTimeAboveTheLargestLatestOne) {
  forSizes([](int, const Network& net) { EXPECT_EQ(largestConstant(net), largestLatest(net)); });
}

TEST_P(Families, NameEveryProcessTransitionAndProposition) {
  forSizes([](int, const Network& net) {
    EXPECT_EQ(net.names.processes.size(), net.processes.size());
    EXPECT_EQ(net.names.transitions.size(), net.transitions.size());
    EXPECT_EQ(net.names.propositions.size(), propositions(net).size());
  });
}

// Of all states of the processes those that are met on random ways.
template <class Do>
void walk(const Network& net, Do call) {
  Random random(1);
  Locations at = initialLocations(net);
  for (int step = 0; step < 300; ++step) {
    call(at);
    const std::size_t p = random.below(net.processes.size());
    const std::set<int>& locations = net.processes[p].locations;
    at[p] = *std::next(locations.begin(), static_cast<int>(random.below(locations.size())));
  }
}

TEST_P(Families, AskTheSameInBothNotations) {
  forSizes([](int size, const Network& net) {
    for (const FamilyQuestion& question : GetParam().questions) {
      if (question.postfix == nullptr) continue;
      Diagnostics found;
      const auto postfix = readProperty("phi", question.postfix(size) + "\n", found);
      ASSERT_TRUE(postfix) << question.name;
      const Property infix = readInfix(question.infix(size), net);
      int held = 0;
      walk(net, [&](const Locations& at) {
        const std::set<int> here = propositionsAt(net, at);
        const StateFacts state{here, at, false};
        EXPECT_EQ(holds(infix, state), holds(*postfix, state)) << question.name << " " << size;
        ++held;
      });
      EXPECT_EQ(held, 300);
    }
  });
}

std::string nameOf(const testing::TestParamInfo<Family>& tested) {
  std::string name = tested.param.name;
  std::erase(name, '-');
  return name;
}

INSTANTIATE_TEST_SUITE_P(All, Families, testing::ValuesIn(families()), nameOf);
TEST(FamiliesByName, AreFound) {
  ASSERT_NE(familyNamed("ring-hasty"), nullptr);
  EXPECT_EQ(familyNamed("ring-hasty")->network(3).title,
            "ring-hasty 3: the monitor waits 9 for the token");
  EXPECT_EQ(familyNamed("rings"), nullptr);
  EXPECT_NE(questionNamed(familyNamed("ring")->questions, "two"), nullptr);
  EXPECT_EQ(questionNamed(familyNamed("ring")->questions, "three"), nullptr);
}

TEST(DealtQuestions, AskTheSameInBothNotations) {
  for (const int size : {2, 3, 5}) {
    const Network net = dealtNetwork(static_cast<std::size_t>(size), 50, 1);
    for (const FamilyQuestion& question : dealtQuestions()) {
      Diagnostics found;
      const auto postfix = readProperty("phi", question.postfix(size) + "\n", found);
      const Property infix = readInfix(question.infix(size), net);
      walk(net, [&](const Locations& at) {
        const std::set<int> here = propositionsAt(net, at);
        const StateFacts state{here, at, false};
        EXPECT_EQ(holds(infix, state), holds(*postfix, state)) << question.name << " " << size;
      });
    }
  }
}

}  // namespace
}  // namespace tpn

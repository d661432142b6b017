// Which state machines are found in a net.

#include "workbench/nets/components.hpp"

#include <gtest/gtest.h>

#include "tests/workbench/nets/randomnets.hpp"
#include "tests/workbench/nets/readnet.hpp"
#include "tests/workbench/nets/writable.hpp"
#include "workbench/nets/bridge.hpp"
#include "workbench/nets/placeclasses.hpp"
#include "workbench/nets/semiflows.hpp"

namespace tpn {
namespace {

// The components' places by name, a line each.
std::string found(const std::string& text) {
  const PetriNet net = tinaNet(text);
  std::string lines;
  for (const Component& component : coverOf(net).components) {
    for (const std::size_t p : component.places) lines += net.places[p].name + " ";
    lines += "\n";
  }
  return lines;
}

TEST(Components, OneRing) { EXPECT_EQ(found("pl a (1) tr t a -> b tr u b -> a"), "a b \n"); }

TEST(Components, TwoThatMeet) {
  EXPECT_EQ(found("pl a (1) pl b pl c (1) pl d tr t a c -> b d tr u b -> a tr v d -> c"),
            "a b \nc d \n");
}

TEST(Components, TwoThatAlwaysMoveTogetherAreFoundByElimination) {
  // {a b} and {c d} as well as {a d} and {b c}.
  EXPECT_EQ(found("pl a (1) pl b pl c (1) pl d tr t a c -> b d tr u b d -> a c"), "a b \nc d \n");
}

TEST(Components, APlaceThatIsReadStaysWhereItIs) {
  EXPECT_EQ(found("pl a (1) pl b pl c (1) tr t a c?1 -> b tr u b c -> a c"), "a b \nc \n");
}

TEST(Components, NoneWithTwoTokens) {
  EXPECT_EQ(found("pl a (1) pl b (1) tr t a -> b tr u b -> a"), "");
}

TEST(Components, NotWhereTokensComeOrGo) {
  EXPECT_EQ(found("pl a (1) tr t a -> b c tr u b -> tr v -> d"), "a c \n");
}

TEST(Components, MayShareAPlace) {
  EXPECT_EQ(
      found("pl a (1) pl b pl c pl d pl e tr t a -> b c tr u b -> d tr v c -> e tr w d e -> a"),
      "a b d \na c e \n");
}

TEST(Components, ATransitionThatTakesTwoTokensOfOneIsDead) {
  const PetriNet net = tinaNet("pl a (1) pl b tr t a -> b tr u b -> a tr v a b -> b a");
  EXPECT_EQ(coverOf(net).live, (std::vector<bool>{true, true, false}));
}

TEST(Components, WithoutDeadTransitionsThereAreMore) {
  // v never fires, for a and b are one; only it puts tokens on c without taking any.
  const std::string net =
      "pl a (1) pl b pl c (1) pl d tr t a -> b tr u b -> a tr w c -> d "
      "tr v a b -> c a b";
  EXPECT_EQ(found(net), "a b \nc d \n");
}

TEST(Components, WhereATokenNeverIsNothingFires) {
  const PetriNet net = tinaNet("pl a pl b pl c (1) tr t a -> b tr u b -> a tr v c a?1 ->");
  EXPECT_EQ(coverOf(net).live, (std::vector<bool>{false, false, false}));
}

TEST(Components, AUnitIsOneOnlyWhereItHoldsOneToken) {
  PetriNet net = tinaNet("pl a (1) pl b pl c tr t a -> b tr u b -> a tr v b -> c");
  net.units = {{"less", {0, 1}}, {"all", {0, 1, 2}}};
  const Cover cover = coverOf(net);
  ASSERT_EQ(cover.components.size(), 1U);
  EXPECT_EQ(cover.components[0].name, "all");
}

// Every process of a network is one, and whatever is found holds one token.
TEST(Components, CoverNetworks) {
  WritableNets nets(4);
  for (int i = 0; i < 1000; ++i) {
    const PetriNet net = petriNetOf(nets.next());
    const Cover cover = coverOf(net);
    for (std::size_t p = 0; p < net.places.size(); ++p) {
      // Locations that no process ever comes to may be in none.
      if (net.places[p].marked) {
        EXPECT_TRUE(cover.covered[p]);
      }
    }
  }
}

std::vector<std::vector<std::size_t>> sets(const PetriNet& net) {
  std::vector<std::vector<std::size_t>> found;
  for (unsigned chosen = 1; chosen < 1U << net.places.size(); ++chosen) {
    std::vector<std::size_t> places;
    for (std::size_t p = 0; p < net.places.size(); ++p)
      if ((chosen >> p & 1U) != 0) places.push_back(p);
    found.push_back(places);
  }
  return found;
}

bool isSemiflow(const PetriNet& net, const std::vector<std::size_t>& places) {
  const auto in = [&](const std::vector<std::size_t>& list) {
    return std::count_if(list.begin(), list.end(), [&](std::size_t p) {
      return std::binary_search(places.begin(), places.end(), p);
    });
  };
  return std::all_of(net.transitions.begin(), net.transitions.end(),
                     [&](const auto& t) { return in(t.consumed) == in(t.produced); });
}

int tokens(const PetriNet& net, const std::vector<std::size_t>& places) {
  int count = 0;
  for (const std::size_t p : places) count += net.places[p].marked ? 1 : 0;
  return count;
}

// Does no transition take two tokens of it at once? Those that do are passed over.
bool takesOneByOne(const PetriNet& net, const std::vector<std::size_t>& places) {
  return std::all_of(net.transitions.begin(), net.transitions.end(), [&](const auto& t) {
    return std::count_if(places.begin(), places.end(), [&](std::size_t p) {
             return std::binary_search(t.consumed.begin(), t.consumed.end(), p) &&
                    !std::binary_search(t.produced.begin(), t.produced.end(), p);
           }) < 2;
  });
}

std::vector<std::vector<std::size_t>> minimalSemiflows(const PetriNet& net) {
  std::vector<std::vector<std::size_t>> all = sets(net);
  std::erase_if(all, [&](const auto& places) { return !isSemiflow(net, places); });
  std::vector<std::vector<std::size_t>> minimal;
  for (const auto& large : all)
    if (std::none_of(all.begin(), all.end(), [&](const auto& small) {
          return small.size() < large.size() &&
                 std::includes(large.begin(), large.end(), small.begin(), small.end());
        }))
      minimal.push_back(large);
  return minimal;
}

// Against all sets of places: what is found is one, and what is covered by any is found.
TEST(Semiflows, CoverWhatCanBeCovered) {
  RandomNets nets(5);
  int covered = 0;
  for (int i = 0; i < 3000; ++i) {
    const PetriNet net = nets.next();
    const auto found = semiflows(net, std::vector<bool>(net.transitions.size(), true));
    std::set<std::size_t> reached;
    for (const auto& places : found) {
      EXPECT_TRUE(isSemiflow(net, places));
      EXPECT_EQ(tokens(net, places), 1);
      reached.insert(places.begin(), places.end());
    }
    for (const auto& places : minimalSemiflows(net)) {
      if (tokens(net, places) != 1 || !takesOneByOne(net, places)) continue;
      for (const std::size_t p : places) EXPECT_TRUE(reached.contains(p)) << i;
      ++covered;
    }
  }
  EXPECT_GT(covered, 500);
}

TEST(Semiflows, EndWhereTheWorkIsDone) {
  PetriNet net = tinaNet("pl a (1) pl b pl c (1) pl d tr t a c -> b d tr u b d -> a c");
  EXPECT_TRUE(semiflows(net, {true, true}, {}, 0).empty());
  EXPECT_EQ(semiflows(net, {true, true}).size(), 4U);
}

}  // namespace
}  // namespace tpn

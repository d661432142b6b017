// The node index against std::map, across its growth, with and without room made beforehand.

#include "boolform/nodeindex.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <set>
#include <vector>

#include "tests/boolform/store.hpp"

namespace {

// An index with its table, and the map that tells what it should say.
struct Model {
  NodeIndex index;
  std::vector<Triple> nodes;
  std::map<Triple, int> expected;

  // Finds or creates the node, as the store does.
  void use(const Triple& key) {
    int& slot = index.slot(key, nodes);
    const auto known = expected.find(key);
    ASSERT_EQ(slot, known == expected.end() ? 0 : known->second);
    if (slot != 0) return;
    nodes.push_back(key);
    slot = NodeIndex::firstNr + static_cast<int>(nodes.size()) - 1;
    expected.emplace(key, slot);
  }

  void expectAllFound() {
    for (const auto& [key, number] : expected) ASSERT_EQ(index.slot(key, nodes), number);
  }
};

// Pairs of neighbours as chains give them, small numbers that repeat, and the whole range.
Triple randomKey(std::mt19937& random) {
  const auto upTo = [&](int limit) {
    return std::uniform_int_distribution<int>(-limit, limit)(random);
  };
  const int op = random() % 2 == 0 ? bfCon : bfEqu;
  switch (random() % 3) {
    case 0: {
      const int n = NodeIndex::firstNr + upTo(1 << 14);
      return {op, n, n + 1};
    }
    case 1:
      return {op, upTo(30), upTo(30)};
    default:
      return {op, upTo(std::numeric_limits<int>::max()), upTo(std::numeric_limits<int>::max())};
  }
}

constexpr int manyKeys = 60000;

void useRandomKeys(Model& model, unsigned seed) {
  std::mt19937 random(seed);
  for (int i = 0; i < manyKeys; ++i) ASSERT_NO_FATAL_FAILURE(model.use(randomKey(random)));
}

TEST(NodeIndex, AgreesWithAMapAcrossGrowth) {
  for (unsigned seed = 1; seed <= 4; ++seed) {
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    Model model;
    useRandomKeys(model, seed);
    model.expectAllFound();
    EXPECT_GT(model.index.capacity(), 4096U);
  }
}

TEST(NodeIndex, AgreesWithAMapAfterReserving) {
  Model model;
  model.index.reserve(manyKeys, model.nodes);
  useRandomKeys(model, 5);
  model.expectAllFound();
}

TEST(NodeIndex, ReservingInBetweenKeepsEveryNode) {
  Model model;
  useRandomKeys(model, 6);
  model.index.reserve(std::size_t{10} * manyKeys, model.nodes);
  model.expectAllFound();
  useRandomKeys(model, 7);
  model.expectAllFound();
}

TEST(NodeIndex, ReservedIndexDoesNotGrow) {
  Model model;
  model.index.reserve(manyKeys, model.nodes);
  const std::size_t capacity = model.index.capacity();
  for (int i = 1; i <= manyKeys; ++i) model.use(conKey(-i, i));
  EXPECT_EQ(model.nodes.size(), static_cast<std::size_t>(manyKeys));
  EXPECT_EQ(model.index.capacity(), capacity);
}

TEST(NodeIndex, ReservingLessThanThereIsRoomForChangesNothing) {
  Model model;
  model.index.reserve(manyKeys, model.nodes);
  const std::size_t capacity = model.index.capacity();
  model.index.reserve(10, model.nodes);
  EXPECT_EQ(model.index.capacity(), capacity);
}

TEST(NodeIndex, CapacityIsAPowerOfTwo) {
  for (const std::size_t count : {1U, 768U, 769U, 5000U, 100000U}) {
    NodeIndex index;
    index.reserve(count, {});
    EXPECT_EQ(index.capacity() & (index.capacity() - 1), 0U);
    EXPECT_GE(index.capacity() / 2, count);
  }
}

TEST(NodeIndex, HalfOfTheSlotsStayFree) {
  Model model;
  for (int i = 1; i <= 10000; ++i) {
    model.use(equKey(i, i + 1));
    ASSERT_LE(model.nodes.size(), model.index.capacity() / 2);
  }
}

// A caller may look a key up and then decline to create the node.
TEST(NodeIndex, UnusedSlotStaysFree) {
  Model model;
  model.use(conKey(1, 2));
  EXPECT_EQ(model.index.slot(conKey(1, 3), model.nodes), 0);
  EXPECT_EQ(model.index.slot(conKey(1, 3), model.nodes), 0);
  model.expectAllFound();
}

TEST(NodeIndex, EveryFieldTellsKeysApart) {
  Model model;
  const Keys keys{conKey(5, 7), conKey(7, 5), equKey(5, 7), conKey(-5, 7), conKey(5, -7)};
  for (const Triple& key : keys) model.use(key);
  EXPECT_EQ(model.nodes, keys);
}

// The nodes of a long property asked of many states: in every state the same few leaves, variables
// of that state, are combined in all ways, and what they give is combined further.
std::vector<Triple> propertyNodes(int states, int leaves, int perState) {
  std::mt19937 random(1);
  std::set<Triple> seen;
  std::vector<Triple> result;
  const auto newest = [&] { return NodeIndex::firstNr + static_cast<int>(result.size()) - 1; };
  for (int state = 0; state < states; ++state) {
    const int before = newest();
    const auto operand = [&] {
      const int inner = newest() - before;
      const int pick = static_cast<int>(random() % static_cast<unsigned>(2 * leaves));
      const int nr = pick < leaves || inner == 0
                         ? 1 + state * 400 + pick % leaves
                         : before + 1 + static_cast<int>(random() % static_cast<unsigned>(inner));
      return random() % 2 == 0 ? nr : -nr;
    };
    while (newest() - before < perState) {
      const auto [left, right] = std::minmax({operand(), operand()});
      if (seen.insert(conKey(left, right)).second) result.push_back(conKey(left, right));
    }
  }
  return result;
}

struct SearchLengths {
  std::size_t all = 0;
  std::size_t longest = 0;

  void add(std::size_t length) {
    all += length;
    longest = std::max(longest, length);
  }
};

// Of every node: before it is there, and at the end.
void expectShortSearches(const std::vector<Triple>& keys) {
  Model model;
  SearchLengths making;
  SearchLengths finding;
  for (const Triple& key : keys) {
    making.add(model.index.searchLength(key, model.nodes));
    model.use(key);
  }
  for (const Triple& key : keys) finding.add(model.index.searchLength(key, model.nodes));
  for (const SearchLengths& lengths : {making, finding}) {
    EXPECT_LT(lengths.all, 5 * keys.size());
    EXPECT_LT(lengths.longest, 200U);
  }
}

TEST(NodeIndex, SearchesStayShortWhereOperandsHaveManyUses) {
  expectShortSearches(propertyNodes(30, 80, 10000));
}

TEST(NodeIndex, SearchesStayShortWhereNearPlacesAreTaken) {
  expectShortSearches(propertyNodes(1, 40, 200000));
}

TEST(NodeIndex, SearchesStayShortAlongAChain) {
  std::vector<Triple> chain{conKey(1, 2)};
  for (int i = 0; i < 200000; ++i) chain.push_back(conKey(1 + i % 80, NodeIndex::firstNr + i));
  expectShortSearches(chain);
}

TEST(Triple, IsOrderedByOperatorThenLeftThenRightAsSignedNumbers) {
  EXPECT_LT(conKey(9, 9), equKey(-9, -9));
  EXPECT_LT(conKey(-2, 9), conKey(1, -9));
  EXPECT_LT(conKey(1, -9), conKey(1, 2));
  EXPECT_FALSE(conKey(1, 2) < conKey(1, 2));
}

TEST(Triple, IsEqualWhereAllFieldsAre) {
  EXPECT_TRUE(conKey(1, 2) == conKey(1, 2));
  EXPECT_FALSE(conKey(1, 2) == equKey(1, 2));
  EXPECT_FALSE(conKey(1, 2) == conKey(3, 2));
  EXPECT_FALSE(conKey(1, 2) == conKey(1, 3));
}

}  // namespace

// The node index against std::map, across its growth, with and without room made beforehand.

#include "boolform/nodeindex.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
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

// Pairs of neighbours as chains give them, small numbers that repeat, and any variables and nodes.
Triple randomKey(std::mt19937& random, int nodes) {
  const auto upTo = [&](int limit) {
    return std::uniform_int_distribution<int>(-limit, limit)(random);
  };
  const auto literal = [&] {
    if (nodes == 0 || random() % 2 == 0) return upTo(varNrLimit);
    const int n = varNrLimit + 1 + std::abs(upTo(nodes - 1));
    return random() % 2 == 0 ? n : -n;
  };
  const int op = random() % 2 == 0 ? bfCon : bfEqu;
  switch (nodes < 2 ? 1 : random() % 3) {
    case 0: {
      const int n = varNrLimit + 1 + std::abs(upTo(nodes - 2));
      return {op, n, n + 1};
    }
    case 1:
      return {op, upTo(30), upTo(30)};
    default: {
      const int left = literal();
      return {op, left, literal()};
    }
  }
}

constexpr int manyKeys = 60000;

void useRandomKeys(Model& model, unsigned seed) {
  std::mt19937 random(seed);
  for (int i = 0; i < manyKeys; ++i)
    ASSERT_NO_FATAL_FAILURE(model.use(randomKey(random, static_cast<int>(model.nodes.size()))));
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

// All with the same larger operand.
Triple crowdedKey(int i) { return conKey(i, 999999); }

TEST(NodeIndex, CapacityIsAPowerOfTwo) {
  Model model;
  for (int i = 1; i <= 10000; ++i) {
    model.use(crowdedKey(i));
    ASSERT_EQ(model.index.capacity() & (model.index.capacity() - 1), 0U);
  }
}

TEST(NodeIndex, HalfOfTheSlotsStayFree) {
  Model model;
  for (int i = 1; i <= 10000; ++i) {
    model.use(crowdedKey(i));
    ASSERT_LE(model.nodes.size() - 1, model.index.capacity() / 2);
  }
  EXPECT_LE(model.index.capacity(), 40000U);
}

TEST(NodeIndex, FirstUseOfAnOperandTakesNoSlot) {
  Model model;
  for (int i = 1; i <= 10000; ++i) {
    ASSERT_EQ(model.index.searchLength(conKey(i, i + 1), model.nodes), 0U);
    model.use(conKey(i, i + 1));
  }
  EXPECT_LE(model.index.capacity(), 1024U);
  EXPECT_GT(model.index.searchLength(conKey(1, 10000), model.nodes), 0U);
}

// Blocks of nodes that are left out, each with nodes of its own between the blocks; a node's larger
// operand is one of its block.
struct Blocks {
  static constexpr int nodes = 50;
  Model model;
  std::mt19937 random{1};

  int newest() const { return NodeIndex::firstNr + static_cast<int>(model.nodes.size()) - 1; }
  int below(int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); }

  void add(int count) {
    for (int i = 0; i < count; ++i) {
      model.use(conKey(-1 - below(1000), newest()));  // starts the block: asked for
      const std::size_t begin = model.nodes.size() - 1;
      for (int n = 1; n < nodes; ++n) leaveOut(static_cast<int>(begin));
      model.index.leaveOut(begin, model.nodes);
    }
  }

 private:
  void leaveOut(int begin) {
    const int inner = static_cast<int>(model.nodes.size()) - begin;
    const Triple key = conKey(-1 - below(1000), NodeIndex::firstNr + begin + below(inner));
    if (model.expected.count(key) != 0) return;
    model.nodes.push_back(key);
    model.expected.emplace(key, newest());
  }
};

TEST(NodeIndex, FindsWhatWasLeftOut) {
  Blocks blocks;
  blocks.model.use(conKey(1, 2));
  blocks.add(200);
  for (int i = 0; i < 5000; ++i) {
    const int operand = NodeIndex::firstNr + blocks.below(blocks.newest() - NodeIndex::firstNr);
    ASSERT_NO_FATAL_FAILURE(blocks.model.use(conKey(-1 - blocks.below(1000), operand)));
  }
  blocks.add(200);
  blocks.model.expectAllFound();
}

TEST(NodeIndex, GrowsPastWhatWasLeftOut) {
  Blocks blocks;
  blocks.model.use(conKey(1, 2));
  blocks.add(100);
  const std::size_t before = blocks.model.index.capacity();
  for (int i = 1; i <= 5000; ++i) blocks.model.use(crowdedKey(i));
  EXPECT_GT(blocks.model.index.capacity(), before);
  blocks.model.expectAllFound();
}

TEST(NodeIndex, UseOfTheNewestNodeTakesNothingUp) {
  Blocks blocks;
  blocks.model.use(conKey(1, 2));
  blocks.add(2000);
  EXPECT_EQ(blocks.model.index.capacity(), 1024U);
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

TEST(NodeIndex, SearchesStayShortInOneLargeProperty) {
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

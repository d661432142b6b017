// Copying a block of nodes against building it again and again.

#include "boolform/repetition.hpp"

#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "tests/boolform/assertion.hpp"
#include "tests/boolform/chain.hpp"
#include "tests/boolform/store.hpp"

namespace {

// Formulas over states anywhere on the path and over what is in the store, most of them there
// already in one of two ways of making the path.
std::vector<int> askAround(unsigned seed, int states) {
  std::mt19937 random(seed);
  std::vector<int> numbers;
  const auto stored = BoolForm::tv;  // some keys as they are, some with an operand exchanged
  const auto literal = [&] {
    const int v = 1 + static_cast<int>(random() % static_cast<unsigned>(states * perState));
    return random() % 2 == 0 ? v : -v;
  };
  for (int i = 0; i < 3000; ++i) {
    Triple key = stored[random() % stored.size()];
    if (random() % 3 == 0) key.left = literal();
    if (random() % 5 == 0) key.right = literal();
    const BoolForm l = lit(key.left);
    const BoolForm r = lit(key.right);
    numbers.push_back((key.op == bfCon ? con(l, r) : equ(l, r)).nr);
  }
  return numbers;
}

class Repeated : public testing::TestWithParam<unsigned> {
 protected:
  void SetUp() override { clearStore(); }
  void TearDown() override { clearStore(); }
};

TEST_P(Repeated, GivesTheNodesThatBuildingGives) {
  constexpr int states = 60;
  Chain plain(GetParam());
  plain.stepsTo(states);
  const std::vector<int> plainAnswers = askAround(GetParam(), states);
  plain.stepsTo(states + 2);
  const Keys plainKeys = BoolForm::tv;

  clearStore();
  Chain chain = copiedChain(GetParam(), states);
  ASSERT_EQ(chain.steps, states);
  EXPECT_EQ(askAround(GetParam(), states), plainAnswers);
  chain.stepsTo(states + 2);
  EXPECT_EQ(chain.path, plain.path);
  EXPECT_EQ(BoolForm::tv, plainKeys);
  EXPECT_EQ(BoolForm::maxNr, varNrLimit + static_cast<int>(plainKeys.size()));
}

INSTANTIATE_TEST_SUITE_P(Seeds, Repeated, testing::Range(1U, 61U));

class Repeats : public EmptyStore {};

TEST_F(Repeats, NotWhereThereIsNoBlockBefore) {
  con(lit(1), lit(2));
  EXPECT_FALSE(BoolForm::lastRepeat({1, 1}));
  EXPECT_FALSE(BoolForm::lastRepeat({1, 0}));
}

TEST_F(Repeats, WhereTheBlockBeforeIsTheSameLowerDown) {
  con(lit(1), lit(2));
  con(lit(3), lit(4));
  EXPECT_TRUE(BoolForm::lastRepeat({2, 1}));
  EXPECT_FALSE(BoolForm::lastRepeat({3, 1}));
}

TEST_F(Repeats, NotWhereASignDiffers) {
  con(lit(1), lit(2));
  con(lit(-3), lit(4));
  EXPECT_FALSE(BoolForm::lastRepeat({2, 1}));
}

TEST_F(Repeats, NotWhereTheOperatorDiffers) {
  con(lit(1), lit(2));
  equ(lit(3), lit(4));
  EXPECT_FALSE(BoolForm::lastRepeat({2, 1}));
}

TEST_F(Repeats, NotWhereAnOperandIsOlderThanBothBlocks) {
  const BoolForm first = con(lit(1), lit(2));
  const BoolForm second = con(lit(2), lit(3));
  con(first, lit(4));
  con(second, lit(5));
  EXPECT_FALSE(BoolForm::lastRepeat({1, 1}));
}

TEST_F(Repeats, NotWhereTheStoreKnowsAHigherVariable) {
  con(lit(8), lit(9));
  con(lit(1), lit(2));
  con(lit(3), lit(4));
  EXPECT_FALSE(BoolForm::lastRepeat({2, 1}));
}

TEST_F(Repeats, OnceOnly) {
  con(lit(1), lit(2));
  con(lit(3), lit(4));
  BoolForm::repeatLast({2, 1}, 2);
  ASSERT_EQ(BoolForm::tv.back(), conKey(7, 8));
  EXPECT_FALSE(BoolForm::lastRepeat({2, 1}));
}

TEST_F(Repeats, NoFurtherThanThereAreNumbers) {
  con(lit(1), lit(2));
  con(lit(3), lit(4));
  BoolForm::lastNr = node(10);
  EXPECT_THROW(BoolForm::repeatLast({2, 1}, 9), NodeNumbersExhausted);
  EXPECT_EQ(BoolForm::tv.size(), 2U);
  BoolForm::repeatLast({2, 1}, 8);
  EXPECT_EQ(BoolForm::maxNr, node(10));
}

TEST_F(Repeats, WithAPartOfOneMore) {
  con(con(lit(1), lit(2)), lit(-2));
  con(con(lit(3), lit(4)), lit(-4));
  ASSERT_TRUE(BoolForm::lastRepeat({2, 2}));
  BoolForm::repeatLast({2, 2}, 1, 1);
  EXPECT_EQ(BoolForm::tv.size(), 7U);
  EXPECT_EQ(con(lit(5), lit(6)), lit(node(5)));
  EXPECT_EQ(con(lit(7), lit(8)), lit(node(7)));
  EXPECT_EQ(con(lit(9), lit(10)), lit(node(8)));  // the copy after that is not there
}

// --- Blocks that will repeat: states of two variables, 1 and 2 the first, 3 and 4 the next. ---

class WillRepeat : public EmptyStore {
 protected:
  static constexpr int shared = 3;
  static bool told(int nodes) { return BoolForm::lastWillRepeat({2, nodes}, shared); }

  struct Pair {
    int left, right;
    BoolForm made() const { return con(lit(left), lit(right)); }
  };
  // Something that is known, a path to the shared state, and a step that goes on.
  static void build(Pair known, Pair stepOn) {
    known.made();
    const BoolForm path = con(lit(1), lit(3));
    const BoolForm step = stepOn.made();
    con(path, step);
  }
};

TEST_F(WillRepeat, WhereTheBlockHasFoundNothing) {
  const BoolForm path = con(lit(1), lit(3));
  const BoolForm step = con(lit(3), lit(5));
  con(path, step);
  EXPECT_TRUE(told(2));
}

TEST_F(WillRepeat, NotWhereNothingCameBefore) {
  con(lit(3), lit(5));
  EXPECT_FALSE(told(1));
  EXPECT_FALSE(told(0));
}

TEST_F(WillRepeat, WhereItKnowsTheNextStateAsTheSharedOneWasKnown) {
  build({3, 4}, {5, 6});
  EXPECT_TRUE(told(2));
}

TEST_F(WillRepeat, NotWhereItDoesNotKnowTheNextState) {
  build({3, 4}, {3, 5});
  EXPECT_FALSE(told(2));
}

TEST_F(WillRepeat, NotWhereItKnowsMoreOfTheNextState) {
  build({1, 2}, {5, 6});
  EXPECT_FALSE(told(2));
}

TEST_F(WillRepeat, NotWhereTheNumbersAreOthers) {
  con(lit(3), lit(4));
  const BoolForm path = con(lit(1), lit(3));
  const BoolForm next = con(lit(5), lit(6));
  const BoolForm step = con(next, lit(3));
  con(path, step);
  EXPECT_FALSE(told(3));
}

TEST_F(WillRepeat, NotWhereTheNewestNodeBeforeIsAboutTheSharedState) {
  con(lit(1), lit(3));
  con(lit(3), lit(4));
  con(lit(5), lit(6));
  EXPECT_FALSE(told(1));
}

TEST_F(WillRepeat, NotWhereTheStoreKnowsTheNextStateBefore) {
  build({1, 5}, {3, 5});
  EXPECT_FALSE(told(2));
}

TEST_F(WillRepeat, NotWhereTheStoreKnowsAHigherVariable) {
  const BoolForm path = con(lit(1), lit(9));
  const BoolForm step = con(lit(3), lit(5));
  con(path, step);
  EXPECT_FALSE(told(2));
}

TEST_F(WillRepeat, NotWhereSomethingRepeatsAlready) {
  con(lit(1), lit(2));
  con(lit(3), lit(4));
  BoolForm::repeatLast({2, 1}, 1);
  const BoolForm path = con(lit(1), lit(3));
  con(path, lit(9));
  EXPECT_FALSE(BoolForm::lastWillRepeat({6, 1}, 4));
}

// Of a path whose second step is told to repeat, the others are copied, the last one in part; they
// are the ones that building gives. Most random steps are told to.
TEST_F(WillRepeat, AsOftenAsItIsToldTheCopiesAreWhatBuildingGives) {
  constexpr int states = 12;
  int times = 0;
  for (unsigned seed = 1; seed <= 300; ++seed) {
    clearStore();
    Chain plain(seed);
    plain.path = con(con(lit(-1), lit(-2)), con(lit(3), lit(-4)));
    plain.stepsTo(states);
    const Keys plainKeys = BoolForm::tv;

    clearStore();
    Chain chain(seed);
    chain.path = con(con(lit(-1), lit(-2)), con(lit(3), lit(-4)));
    chain.stepsTo(1);
    const BoolForm begin = chain.path;
    const Distance up = lastBlock(chain, 2);
    if (chain.path.nr != BoolForm::maxNr || !(moved(begin, up) == chain.path)) continue;
    if (!BoolForm::lastWillRepeat(up, 1 + perState)) continue;
    ++times;
    BoolForm::repeatLast(up, states - 4, static_cast<int>(seed) % up.nodes);
    chain.path = moved(chain.path, (states - 4) * up);
    chain.steps = states - 2;
    chain.stepsTo(states);
    EXPECT_EQ(chain.path, plain.path) << seed;
    EXPECT_EQ(BoolForm::tv, plainKeys) << seed;
  }
  EXPECT_GT(times, 30);
}

TEST_F(Repeats, MovedFormulaKeepsItsSign) {
  const Distance up{100, 7};
  EXPECT_EQ(moved(lit(5), up), lit(105));
  EXPECT_EQ(moved(lit(-5), up), lit(-105));
  EXPECT_EQ(moved(lit(node(3)), up), lit(node(10)));
  EXPECT_EQ(moved(lit(-node(3)), up), lit(-node(10)));
  EXPECT_EQ(moved(BoolForm(true), up), BoolForm(true));
  EXPECT_EQ(moved(BoolForm(false), up), BoolForm(false));
}

// A key whose operand would be moved below the block's, and past 0, is no copy.
TEST_F(Repeats, LowOperandBesideAHighOneIsNoCopy) {
  con(lit(-3), lit(4));
  con(lit(-6), lit(7));
  BoolForm::repeatLast({3, 1}, 3);
  EXPECT_EQ(con(lit(-9), lit(10)), lit(node(3)));
  EXPECT_EQ(con(lit(3), lit(13)), lit(node(6)));
  EXPECT_EQ(con(lit(-1), lit(13)), lit(node(7)));
}

using RepetitionDeathTest = EmptyStore;

TEST_F(RepetitionDeathTest, DistancesArePositiveAndTheBlockIsThere) {
  con(lit(1), lit(2));
  EXPECT_DEATH(Repetition({0, 1}, 1, BoolForm::tv), failedAssertion("distance.variables > 0"));
  EXPECT_DEATH(Repetition({1, 0}, 1, BoolForm::tv), failedAssertion("distance.nodes > 0"));
  EXPECT_DEATH(Repetition({1, 1}, 1, BoolForm::tv, 2), failedAssertion("rest <= distance.nodes"));
  EXPECT_DEATH(Repetition({1, 2}, 1, BoolForm::tv),
               failedAssertion("static_cast<std::size_t>(distance.nodes) <= nodes.size()"));
}

}  // namespace

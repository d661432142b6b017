// Building a circuit for one set of inputs after the other, against putting the same formula
// together from the inputs each time.

#include "boolform/circuit.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

#include "tests/boolform/store.hpp"

namespace {

// What to combine, as places among the values so far: first those of inputs, each at its time.
struct Recipe {
  struct Step {
    bool isInput;
    bool isCon;
    std::size_t left, right;
    bool notLeft, notRight;
  };
  std::vector<Step> steps;
  int inputs = 0;

  // Operands lie among the `near` last values or are one of the first ones: much repeats.
  Recipe(unsigned seed, int size, int lastInputAt) {
    std::mt19937 random(seed);
    const auto below = [&](std::size_t n) { return random() % n; };
    for (int i = 0; i < size; ++i) {
      const std::size_t made = steps.size();
      const bool isInput = i < 2 || i == lastInputAt || (i < lastInputAt && below(3) == 0);
      const auto operand = [&] {
        return below(2) == 0 ? below(std::min<std::size_t>(made, 8))
                             : made - 1 - below(std::min<std::size_t>(made, 12));
      };
      if (isInput) ++inputs;
      if (isInput)
        steps.push_back({true, false, 0, 0, false, false});
      else
        steps.push_back({false, below(2) == 0, operand(), operand(), below(2) == 0, below(2) == 0});
    }
  }
};

// The values of all steps but inputs; the last one counts.
template <class Value, class Input, class Neg, class Con, class Dis>
Value follow(const Recipe& recipe, Input input, Neg neg, Con con, Dis dis) {
  std::vector<Value> values;
  for (const Recipe::Step& step : recipe.steps) {
    if (step.isInput) {
      values.push_back(input());
      continue;
    }
    const Value l = step.notLeft ? neg(values[step.left]) : values[step.left];
    const Value r = step.notRight ? neg(values[step.right]) : values[step.right];
    values.push_back(step.isCon ? con(l, r) : dis(l, r));
  }
  return values.back();
}

// The inputs of one building; makes the nodes that it needs.
using Inputs = BoolForm (*)(int building, int input);

BoolForm variables(int building, int input) { return lit(100 * building + input); }
BoolForm negatedVariables(int building, int input) {
  return lit(input % 2 == 0 ? 100 * building + input : -100 * building - input);
}
BoolForm nodes(int building, int input) {
  const int first = 100 * building + 2 * input;
  return con(lit(first), lit(first + 1));
}
// Each a part of the next one.
BoolForm nested(int building, int input) {
  BoolForm all = lit(100 * building + 50);
  for (int i = 0; i < input; ++i) all = con(all, lit(100 * building + i + 1));
  return all;
}
// Every third is the conjunction of the two before, as a gate may be.
BoolForm likeGates(int building, int input) {
  if (input % 3 != 0) return variables(building, input);
  return con(variables(building, input - 2), variables(building, input - 1));
}
BoolForm sameInEveryBuilding(int /*building*/, int input) { return lit(input); }
BoolForm withAConstant(int building, int input) {
  return input == 2 ? BoolForm(building % 2 == 0) : variables(building, input);
}
BoolForm withTwoEqual(int building, int input) { return variables(building, std::max(input, 2)); }
BoolForm withANegation(int building, int input) {
  return input == 1 ? lit(-100 * building - 2) : variables(building, input);
}
// In every other building something depends, in the others nothing does.
BoolForm withAChange(int building, int input) {
  return building % 2 == 0 ? nodes(building, input) : withTwoEqual(building, input);
}

constexpr int buildings = 6;

// Nodes over the inputs' variables that are there beforehand.
void fillStore(unsigned seed) {
  std::mt19937 random(seed);
  const auto literal = [&] {
    const int v = 1 + static_cast<int>(random() % (100 * buildings + 99));
    return lit(random() % 2 == 0 ? v : -v);
  };
  for (int i = 0; i < 300; ++i) con(literal(), literal());
  for (int b = 0; b < buildings; ++b)
    for (int v = 1; v < 8; ++v) {
      const int first = 100 * b + v;
      if (first > 1) con(lit(random() % 2 == 0 ? first : -first), lit(first + 1));
    }
}

struct Result {
  std::vector<int> roots;
  Keys keys;
  std::vector<int> found;  // what every key's number is, asked for at the end
};

template <class Build>
Result built(unsigned seed, Build build) {
  clearStore();
  fillStore(seed);
  Result result;
  BoolForm all(false);
  for (int i = 0; i < buildings; ++i) {
    const BoolForm here = build(i);
    result.roots.push_back(here.nr);
    all = dis(all, here);
  }
  result.keys = BoolForm::tv;
  for (const Triple& key : result.keys)
    result.found.push_back(BoolForm(lit(key.left), lit(key.right), key.op).nr);
  EXPECT_EQ(BoolForm::tv.size(), result.keys.size());
  EXPECT_EQ(static_cast<std::size_t>(BoolForm::maxNr - varNrLimit), result.keys.size());
  return result;
}

void expectSame(unsigned seed, int size, int lastInputAt, Inputs inputs) {
  const Recipe recipe(seed, size, lastInputAt);
  Circuit circuit;
  const int root = follow<int>(
      recipe, [&] { return circuit.input(); }, Circuit::negated,
      [&](int a, int b) { return circuit.con(a, b); },
      [&](int a, int b) { return circuit.dis(a, b); });
  const Result once = built(seed, [&](int building) {
    return circuit.build(root, [&](int input) { return inputs(building, input); });
  });
  const Result again = built(seed, [&](int building) {
    int input = 0;
    return follow<BoolForm>(
        recipe, [&] { return inputs(building, ++input); }, neg, con, dis);
  });
  EXPECT_EQ(once.roots, again.roots);
  EXPECT_EQ(once.keys, again.keys);
  EXPECT_EQ(once.found, again.found);
}

class CircuitOver : public testing::TestWithParam<Inputs> {
 protected:
  void TearDown() override { clearStore(); }
};

TEST_P(CircuitOver, GivesTheNodesOfPuttingItTogetherAgain) {
  for (unsigned seed = 1; seed <= 40; ++seed) {
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    expectSame(seed, 400, 12, GetParam());
    expectSame(seed, 60, 5, GetParam());
  }
}

TEST_P(CircuitOver, GivesThemWhereTheLastInputComesLate) {
  for (unsigned seed = 1; seed <= 10; ++seed) {
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    expectSame(seed, 80, 70, GetParam());
  }
}

INSTANTIATE_TEST_SUITE_P(Inputs, CircuitOver,
                         testing::Values(variables, negatedVariables, nodes, nested, likeGates,
                                         sameInEveryBuilding, withAConstant, withTwoEqual,
                                         withANegation, withAChange));

class OneCircuit : public EmptyStore {};

TEST_F(OneCircuit, OfAConstantIsTheConstant) {
  Circuit circuit;
  const auto none = [](int) { return BoolForm(false); };
  EXPECT_EQ(circuit.build(BoolForm::trueNr, none), BoolForm(true));
  EXPECT_EQ(circuit.build(BoolForm::falseNr, none), BoolForm(false));
}

TEST_F(OneCircuit, HasEachGateOnce) {
  Circuit circuit;
  const int a = circuit.input();
  const int b = circuit.input();
  EXPECT_EQ(circuit.con(a, b), circuit.con(b, a));
  EXPECT_EQ(circuit.dis(a, b), Circuit::negated(circuit.con(-a, -b)));
}

TEST_F(OneCircuit, AsksForEachInputOnceAndInOrder) {
  Circuit circuit;
  const int a = circuit.input();
  const int b = circuit.input();
  const int both = circuit.con(a, b);
  const int c = circuit.input();
  std::vector<int> asked;
  std::vector<std::size_t> nodesThen;
  circuit.build(circuit.con(both, c), [&](int input) {
    asked.push_back(input);
    nodesThen.push_back(BoolForm::tv.size());
    return lit(input);
  });
  EXPECT_EQ(asked, (std::vector{1, 2, 3}));
  EXPECT_EQ(nodesThen, (std::vector<std::size_t>{0, 0, 1}));
}

TEST_F(OneCircuit, StopsWhereNodeNumbersAreExhausted) {
  Circuit circuit;
  int all = circuit.input();
  for (int i = 0; i < 10; ++i) all = circuit.con(all, circuit.input());
  for (int i = 0; i < 100; ++i) all = circuit.con(Circuit::negated(all), 1 + i % 7);
  BoolForm::lastNr = BoolForm::maxNr + 50;
  EXPECT_THROW(circuit.build(all, lit), NodeNumbersExhausted);
  EXPECT_EQ(BoolForm::tv.size(), 50U);
}

}  // namespace

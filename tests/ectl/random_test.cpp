// Random properties, drawn as trees by a model of their own: what the parser, the tree view and the
// measures say of the text is compared with what the model says of its tree.

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "ectl/ectlform.hpp"

namespace {

struct Drawn {
  std::string op;
  int number = 0;
  std::vector<Drawn> operands;

  bool isAtom() const { return op == "p" || op == "p-"; }
  std::string token() const { return isAtom() ? op + std::to_string(number) : op; }

  std::string postfix() const {
    std::string text;
    for (const Drawn& operand : operands) text += operand.postfix();
    return text + token();
  }

  std::string prefix() const {
    std::string text = token();
    for (const Drawn& operand : operands) text += operand.prefix();
    return text;
  }

  std::int64_t pathCount(std::int64_t k) const {
    const std::int64_t a = operands.empty() ? 0 : operands[0].pathCount(k);
    const std::int64_t b = operands.size() < 2 ? 0 : operands[1].pathCount(k);
    if (op == "&") return a + b;
    if (op == "+") return a > b ? a : b;
    if (op == "EX") return a + 1;
    if (op == "EU") return k * a + b + 1;
    return operands.empty() ? 0 : (k + 1) * a + 1;
  }

  int operators(bool temporalOnly) const {
    int n = operands.empty() || (temporalOnly && op.size() == 1) ? 0 : 1;
    for (const Drawn& operand : operands) n += operand.operators(temporalOnly);
    return n;
  }

  void collect(std::set<int>& numbers) const {
    if (isAtom()) numbers.insert(number);
    for (const Drawn& operand : operands) operand.collect(numbers);
  }

  void collectTokens(std::vector<std::string>& tokens) const {
    for (const Drawn& operand : operands) operand.collectTokens(tokens);
    tokens.push_back(token());
  }
};

class RandomProperty : public testing::TestWithParam<unsigned> {
 protected:
  // An operator on top, at most `depth` levels below it.
  Drawn draw(int depth, bool top = true) {
    static const std::vector<std::string> atoms{"T", "p", "p-"};
    static const std::vector<std::string> unary{"EG", "EX", "EF", "EK"};
    static const std::vector<std::string> binary{"&", "+", "EU"};
    const unsigned kind = top ? 1 + random() % 2 : depth == 0 ? 0 : random() % 3;
    const std::vector<std::string>& choices = kind == 0 ? atoms : kind == 1 ? unary : binary;
    Drawn f{choices[random() % choices.size()], 0, {}};
    if (f.isAtom()) f.number = static_cast<int>(random() % 20);
    for (unsigned i = 0; i < kind; ++i) f.operands.push_back(draw(depth - 1, false));
    return f;
  }

  unsigned random() { return static_cast<unsigned>(engine_()); }

 private:
  std::mt19937 engine_{GetParam()};
};

TEST_P(RandomProperty, ItemsAreTheTokens) {
  const Drawn drawn = draw(5);
  std::vector<std::string> expected;
  drawn.collectTokens(expected);
  std::vector<std::string> tokens;
  for (const OnpNode& item : EctlForm(drawn.postfix()).onp) {
    const bool atom = item.op == EctlOper::prop || item.op == EctlOper::negProp;
    tokens.push_back(operStr(item.op) + (atom ? std::to_string(item.arg) : ""));
  }
  EXPECT_EQ(tokens, expected) << drawn.postfix();
}

TEST_P(RandomProperty, OperandsAreTheTopsOperands) {
  const Drawn drawn = draw(5);
  const EctlForm f(drawn.postfix());
  EXPECT_EQ(operStr(f.op), drawn.op);
  EXPECT_EQ(f.left, drawn.operands[0].postfix());
  EXPECT_EQ(f.right, drawn.operands.size() < 2 ? "" : drawn.operands[1].postfix());
}

TEST_P(RandomProperty, TreeIsTheDrawnOne) {
  const Drawn drawn = draw(5);
  testing::internal::CaptureStdout();
  EctlForm(drawn.postfix()).showPreOrder();
  EXPECT_EQ(testing::internal::GetCapturedStdout(), drawn.prefix());
}

TEST_P(RandomProperty, PathCountFollowsTheTree) {
  const Drawn drawn = draw(4);
  for (const int k : {1, 2, 7})
    EXPECT_EQ(EctlForm(drawn.postfix()).getSpecLen(k), drawn.pathCount(k));
}

TEST_P(RandomProperty, CountsAreTheTrees) {
  const Drawn drawn = draw(5);
  const EctlForm f(drawn.postfix());
  EXPECT_EQ(f.length(), drawn.operators(false)) << drawn.postfix();
  EXPECT_EQ(f.temporalLength(), drawn.operators(true)) << drawn.postfix();
}

TEST_P(RandomProperty, PropositionsAreTheAtoms) {
  const Drawn drawn = draw(5);
  std::set<int> expected;
  drawn.collect(expected);
  std::set<int> numbers;
  EctlForm(drawn.postfix()).createVarNumbers(numbers);
  EXPECT_EQ(numbers, expected) << drawn.postfix();
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomProperty, testing::Range(1U, 26U));

}  // namespace

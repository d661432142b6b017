// The infix grammar against a plain reference: random trees, written with as few parentheses as
// needed, or with all, are read back as they were.

#include "workbench/network/expression.hpp"

#include <gtest/gtest.h>

#include <random>

namespace tpn {
namespace {

using Kind = Expression::Kind;

// Prefix form, to compare by.
std::string shape(const Expression& e, std::size_t i) {
  const Expression::Node& n = e.nodes[i];
  switch (n.kind) {
    case Expression::truth:
      return "T";
    case Expression::falsity:
      return "F";
    case Expression::deadlock:
      return "D";
    case Expression::named:
      return n.parts[0].text;
    case Expression::spot:
      return n.parts[0].text + "." + n.parts[1].text;
    case Expression::counter: {
      std::string pattern = n.parts[0].text;
      if (n.parts.size() > 1) pattern += "." + n.parts[1].text;
      return "#" + std::to_string(n.least) + ".." + std::to_string(n.most) + "(" + pattern + ")";
    }
    case Expression::negation:
      return "!" + shape(e, n.left);
    default: {
      const char* const sign = n.kind == Expression::conjunction   ? "&"
                               : n.kind == Expression::disjunction ? "|"
                                                                   : ">";
      return sign + ("[" + shape(e, n.left)) + " " + shape(e, n.right) + "]";
    }
  }
}

std::string shape(const std::string& text) {
  const Expression e = parseExpression(text);
  return shape(e, e.nodes.size() - 1);
}

std::string mistake(const std::string& text) {
  try {
    parseExpression(text);
  } catch (const ExpressionError& error) {
    return std::to_string(error.at) + ": " + error.what();
  }
  return "";
}

TEST(Expression, ConjunctionBindsMoreThanDisjunctionAndThatMoreThanImplication) {
  EXPECT_EQ(shape("a||b&&c->d"), ">[|[a &[b c]] d]");
  EXPECT_EQ(shape("(a||b)&&c"), "&[|[a b] c]");
}

TEST(Expression, ImplicationGroupsToTheRightTheOthersToTheLeft) {
  EXPECT_EQ(shape("a -> b -> c"), ">[a >[b c]]");
  EXPECT_EQ(shape("a && b && c"), "&[&[a b] c]");
}

TEST(Expression, NegationIsOfTheNextOperandAlone) {
  EXPECT_EQ(shape("!a && !!b"), "&[!a !!b]");
  EXPECT_EQ(shape("!(a && b) || c"), "|[!&[a b] c]");
}

TEST(Expression, SpotsAndNamesInBraces) {
  EXPECT_EQ(shape("B.aborted"), "B.aborted");
  EXPECT_EQ(shape("{two words}.1 || {a\\}b}"), "|[two words.1 a}b]");
  EXPECT_EQ(shape("{true}"), "true");
}

TEST(Expression, Counters) {
  EXPECT_EQ(shape("atleast(2, *.critical)"), "#2..-1(*.critical)");
  EXPECT_EQ(shape("atmost ( 3 , crit* )"), "#0..3(crit*)");
  EXPECT_EQ(shape("!exactly(0,a)"), "!#0..0(a)");
}

TEST(Expression, EveryPartKnowsItsPlaceInTheText) {
  const std::string text = "a && (b || c.d)";
  const Expression e = parseExpression(text);
  const Expression::Node& whole = e.nodes.back();
  EXPECT_EQ(text.substr(whole.begin, whole.end - whole.begin), text);
  const Expression::Node& right = e.nodes[whole.right];
  EXPECT_EQ(text.substr(right.begin, right.end - right.begin), "(b || c.d)");
}

TEST(Expression, MistakesAreToldWhereTheyAre) {
  EXPECT_EQ(mistake(""), "0: an operand is missing here");
  EXPECT_EQ(mistake("a &&"), "4: an operand is missing here");
  EXPECT_EQ(mistake("a b"), "2: an operator is missing before this: &&, || or ->");
  EXPECT_EQ(mistake("(a"), "0: this parenthesis is not closed");
  EXPECT_EQ(mistake("a)"), "1: no parenthesis is open here");
  EXPECT_EQ(mistake("a & b"), "2: \"&\" begins nothing here; and is written &&");
  EXPECT_EQ(mistake("crit*"), "0: a pattern stands only within atleast, atmost and exactly");
  EXPECT_EQ(mistake("atleast(x, a)"), "8: atleast takes a number here");
  EXPECT_EQ(mistake("atleast(2 a)"),
            "10: , and a pattern are expected here: atleast(2, *.critical)");
  EXPECT_EQ(mistake("{a"), "0: the name that begins here has no end, or none is there");
  EXPECT_EQ(mistake("a."), "2: a location is expected here");
}

// A random tree as text, and its shape.
struct Sample {
  std::string text;
  std::string shape;
  int strength = 5;  // 1: ->, 2: ||, 3: &&, 4: !, 5: an operand
};

Sample inside(const Sample& s, int strength, std::mt19937& random) {
  if (s.strength >= strength && random() % 4 != 0) return s;
  return {"(" + s.text + ")", s.shape, 5};
}

Sample sample(int depth, std::mt19937& random) {
  if (depth == 0 || random() % 5 == 0) {
    static const std::vector<Sample> leaves{
        {"a", "a"}, {"true", "T"}, {"p.q", "p.q"}, {"atmost(1,x*)", "#0..1(x*)"}};
    return leaves[random() % leaves.size()];
  }
  const std::uint32_t kind = random() % 4;
  const Sample left = sample(depth - 1, random);
  if (kind == 3) return {"!" + inside(left, 4, random).text, "!" + left.shape, 4};
  const Sample right = sample(depth - 1, random);
  static const std::vector<std::string> written{" -> ", "||", " && "};
  static const std::vector<std::string> shaped{">", "|", "&"};
  const int strength = static_cast<int>(kind) + 1;
  const bool toRight = strength == 1;
  return {inside(left, toRight ? strength + 1 : strength, random).text + written[kind] +
              inside(right, toRight ? strength : strength + 1, random).text,
          shaped[kind] + "[" + left.shape + " " + right.shape + "]", strength};
}

TEST(Expression, RandomTreesAreReadBack) {
  std::mt19937 random(1);
  for (int i = 0; i < 3000; ++i) {
    const Sample s = sample(6, random);
    EXPECT_EQ(shape(s.text), s.shape) << s.text;
  }
}

TEST(Expression, AMillionLevelsDoNotOverflowTheStack) {
  const std::size_t depth = 1000000;
  std::string text(depth, '(');
  text += "a";
  text += std::string(depth, ')');
  EXPECT_EQ(parseExpression(text).nodes.size(), 1U);
  EXPECT_EQ(parseExpression(std::string(depth, '!') + "a").nodes.size(), depth + 1);
}

}  // namespace
}  // namespace tpn

// Operator precedence with two stacks: operators that wait for their right operand, and operands.

#include "workbench/network/expression.hpp"

#include <algorithm>
#include <charconv>
#include <utility>

#include "workbench/network/expressionlexer.hpp"
#include "workbench/network/lintrules.hpp"

namespace tpn {

namespace {

using Token = ExpressionToken;

int precedence(Token::Kind kind) {
  switch (kind) {
    case Token::implication:
      return 1;
    case Token::disjunction:
      return 2;
    case Token::conjunction:
      return 3;
    case Token::negation:
      return 4;
    default:
      return 0;
  }
}

Expression::Kind kindOf(Token::Kind kind) {
  switch (kind) {
    case Token::implication:
      return Expression::implication;
    case Token::disjunction:
      return Expression::disjunction;
    case Token::conjunction:
      return Expression::conjunction;
    default:
      return Expression::negation;
  }
}

bool isCounter(const WrittenPart& part) {
  return !part.braced &&
         (part.text == "atleast" || part.text == "atmost" || part.text == "exactly");
}

class Parser {
 public:
  explicit Parser(std::string_view text) : text_(text) { advance(); }

  Expression parse() {
    for (bool done = false; !done;) {
      takeOperand();
      done = takeOperators();
    }
    return std::move(result_);
  }

 private:
  // Everything up to and with a primary: signs and opening parentheses wait.
  void takeOperand() {
    while (token_.kind == Token::negation || token_.kind == Token::open) {
      waiting_.push_back(token_);
      advance();
    }
    if (token_.kind != Token::part) throw ExpressionError(token_.at, "an operand is missing here");
    operands_.push_back(primary());
  }

  // Closing parentheses, then a binary operator; true at the end of the text.
  bool takeOperators() {
    while (token_.kind == Token::close) close();
    if (token_.kind == Token::end) {
      apply(0);
      if (!waiting_.empty())
        throw ExpressionError(waiting_.back().at, "this parenthesis is not closed");
      return true;
    }
    const int strength = precedence(token_.kind);
    if (strength == 0 || token_.kind == Token::negation)
      throw ExpressionError(token_.at, "an operator is missing before this: &&, || or ->");
    // -> groups to the right, the others to the left.
    apply(token_.kind == Token::implication ? strength + 1 : strength);
    waiting_.push_back(token_);
    advance();
    return false;
  }

  void close() {
    apply(0);
    if (waiting_.empty()) throw ExpressionError(token_.at, "no parenthesis is open here");
    Expression::Node& inside = result_.nodes[operands_.back()];
    inside.begin = waiting_.back().at;
    inside.end = token_.at + token_.length;
    waiting_.pop_back();
    advance();
    applyNegations();
  }

  // The waiting operators that bind at least as much, down to a parenthesis.
  void apply(int strength) {
    while (!waiting_.empty() && waiting_.back().kind != Token::open &&
           precedence(waiting_.back().kind) >= strength)
      applyLast();
  }
  void applyNegations() {
    while (!waiting_.empty() && waiting_.back().kind == Token::negation) applyLast();
  }

  void applyLast() {
    const Token op = waiting_.back();
    waiting_.pop_back();
    Expression::Node node;
    node.kind = kindOf(op.kind);
    node.end = result_.nodes[operands_.back()].end;
    if (op.kind == Token::negation) {
      node.left = operands_.back();
      node.begin = op.at;
    } else {
      node.right = operands_.back();
      operands_.pop_back();
      node.left = operands_.back();
      node.begin = result_.nodes[node.left].begin;
    }
    operands_.back() = add(node);
  }

  std::size_t add(Expression::Node node) {
    result_.nodes.push_back(std::move(node));
    return result_.nodes.size() - 1;
  }

  std::size_t primary() {
    Expression::Node node;
    node.begin = token_.at;
    const WrittenPart first = take();
    if (!first.braced && first.text == "true") {
      node.kind = Expression::truth;
    } else if (!first.braced && first.text == "false") {
      node.kind = Expression::falsity;
    } else if (!first.braced && first.text == "deadlock") {
      node.kind = Expression::deadlock;
    } else if (isCounter(first)) {
      takeCounter(first.text, node);
    } else {
      takeParts(first, node);
      node.kind = node.parts.size() == 1 ? Expression::named : Expression::spot;
      refusePattern(node);
    }
    node.end = end_;
    const std::size_t index = add(std::move(node));
    operands_.push_back(index);
    applyNegations();
    const std::size_t result = operands_.back();
    operands_.pop_back();
    return result;
  }

  void takeCounter(const std::string& word, Expression::Node& node) {
    node.kind = Expression::counter;
    expect(Token::open, "( is expected behind " + word);
    const std::int64_t count = number(word);
    expect(Token::comma, ", and a pattern are expected here: " + word + "(2, *.critical)");
    if (token_.kind != Token::part)
      throw ExpressionError(token_.at, "a pattern is expected here: *.critical, crit*");
    takeParts(take(), node);
    expect(Token::close, ") is expected here");
    node.least = word == "atmost" ? 0 : count;
    node.most = word == "atleast" ? -1 : count;
  }

  std::int64_t number(const std::string& word) {
    const Token at = token_;
    std::int64_t count = 0;
    const std::string digits = at.kind == Token::part && !at.written.braced ? at.written.text : "";
    const char* const last = digits.data() + digits.size();
    const auto [next, failure] = std::from_chars(digits.data(), last, count);
    if (digits.empty() || failure != std::errc() || next != last || count > 1000000000)
      throw ExpressionError(at.at, word + " takes a number here");
    advance();
    return count;
  }

  void takeParts(const WrittenPart& first, Expression::Node& node) {
    node.parts.push_back(first);
    if (token_.kind != Token::dot) return;
    advance();
    if (token_.kind != Token::part) throw ExpressionError(token_.at, "a location is expected here");
    node.parts.push_back(take());
  }

  static void refusePattern(const Expression::Node& node) {
    for (const WrittenPart& part : node.parts)
      if (!part.braced && part.text.find('*') != std::string::npos)
        throw ExpressionError(part.at, "a pattern stands only within atleast, atmost and exactly");
  }

  WrittenPart take() {
    WrittenPart part = token_.written;
    advance();
    return part;
  }

  void expect(Token::Kind kind, const std::string& message) {
    if (token_.kind != kind) throw ExpressionError(token_.at, message);
    advance();
  }

  void advance() {
    end_ = token_.at + token_.length;
    token_ = expressionTokenAt(text_, end_);
  }

  std::string_view text_;
  Token token_;
  std::size_t end_ = 0;  // of the token before
  std::vector<Token> waiting_;
  std::vector<std::size_t> operands_;
  Expression result_;
};

}  // namespace

Expression parseExpression(std::string_view text) { return Parser(text).parse(); }

}  // namespace tpn

#include "ectl/ectlform.hpp"

#include <algorithm>
#include <cassert>
#include <optional>
#include <string_view>
#include <utility>

#include "ectl/scanner.hpp"

namespace {

std::string textOf(const OnpNode& item) {
  const std::string text = operStr(item.op);
  const bool isAtom = item.op == EctlOper::prop || item.op == EctlOper::negProp;
  return isAtom ? text + std::to_string(static_cast<unsigned>(item.arg)) : text;
}

}  // namespace

// Takes the items and the lengths of their texts. In postfix order every operand on the stack is a
// stretch of the joined texts, from where it begins to where the next one does, so the stack holds
// beginnings only and a long property costs no copies.
class EctlForm::Builder {
 public:
  explicit Builder(EctlForm& form) : form_(form) {}

  [[gnu::always_inline]] void add(const OnpNode& item, std::string_view text) {
    operatorBegin_ = size_;
    rightBegin_ = operatorBegin_;
    const int operands = arity(item.op);
    if (operands == 2) rightBegin_ = popOperand(beginnings_, text);
    beginnings_.push_back(operands == 0 ? operatorBegin_ : popOperand(beginnings_, text));
    size_ += text.size();
    form_.onp.push_back(item);
  }

  // Of the joined texts, so far.
  std::size_t size() const { return size_; }

  // The top operator and its operands, from the joined texts.
  void finish(std::string_view joined) {
    assert(joined.size() == size_);
    if (form_.onp.empty()) return;
    form_.op = form_.onp.back().op;
    if (arity(form_.op) == 0) operatorBegin_ = rightBegin_ = size_;  // its own operand
    form_.left = joined.substr(beginnings_.back(), rightBegin_ - beginnings_.back());
    form_.right = joined.substr(rightBegin_, operatorBegin_ - rightBegin_);
  }

 private:
  EctlForm& form_;
  std::size_t size_ = 0;
  std::vector<std::size_t> beginnings_;
  std::size_t rightBegin_ = 0;
  std::size_t operatorBegin_ = 0;
};

namespace {

// The text without its stray letters.
std::string tokensOf(std::string_view text) {
  std::string joined;
  Scanner scanner(text, Spelling::parser);
  while (const std::optional<Token> token = scanner.next()) joined += token->text;
  return joined;
}

// At least as many as there are tokens, and with propositions of some digits hardly more.
std::size_t mostTokens(std::string_view text) {
  std::size_t count = 0;
  for (const char c : text) {
    const bool isDigit = static_cast<unsigned char>(c - '0') < 10;
    count += !(isDigit | (c == '-'));  // no jump: what comes next is as good as random
  }
  return count;
}

}  // namespace

EctlForm::EctlForm(const std::string& formulaText) {
  Builder builder(*this);
  onp.reserve(mostTokens(formulaText));
  Scanner scanner(formulaText, Spelling::parser);
  while (const std::optional<Token> token = scanner.next())
    builder.add({token->op, token->arg}, token->text);
  const bool hasStray = builder.size() < formulaText.size();
  builder.finish(hasStray ? tokensOf(formulaText) : formulaText);
}

EctlForm::EctlForm(const std::vector<OnpNode>& items) {
  Builder builder(*this);
  std::string joined;
  for (const OnpNode& item : items) {
    const std::string text = textOf(item);
    builder.add(item, text);
    joined += text;
  }
  builder.finish(joined);
}

int EctlForm::getVarNr() const {
  if (op != EctlOper::prop && op != EctlOper::negProp) return 0;
  std::string_view digits = left;
  if (digits.substr(0, 1) != "p") return 0;
  digits.remove_prefix(digits.substr(1, 1) == "-" ? 2 : 1);
  return leadingNumber(digits);
}

void EctlForm::dis(const EctlForm& g) {
  std::string other = g.text();
  left = text();
  right = std::move(other);
  op = EctlOper::disj;
}

EctlForm dis(const EctlForm& f, const EctlForm& g) {
  EctlForm result = f;
  result.dis(g);
  return result;
}

bool operator==(const EctlForm& f, const EctlForm& g) {
  return f.op == g.op && f.left == g.left && f.right == g.right;
}

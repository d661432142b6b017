#include "ectl/ectlform.hpp"

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

// Joins the texts of the items. In postfix order every operand on the stack is a stretch of the
// joined text, from where it begins to where the next one does, so the stack holds beginnings only
// and a long property costs no copies.
class EctlForm::Builder {
 public:
  explicit Builder(EctlForm& form) : form_(form) {}

  void add(const OnpNode& item, std::string_view text) {
    operatorBegin_ = joined_.size();
    rightBegin_ = operatorBegin_;
    if (arity(item.op) == 2) rightBegin_ = popOperand(beginnings_, text);
    beginnings_.push_back(arity(item.op) == 0 ? operatorBegin_ : popOperand(beginnings_, text));
    joined_ += text;
    form_.onp.push_back(item);
  }

  // The top operator and its operands.
  void finish() {
    if (form_.onp.empty()) return;
    form_.op = form_.onp.back().op;
    if (arity(form_.op) == 0) operatorBegin_ = rightBegin_ = joined_.size();  // its own operand
    form_.left = joined_.substr(beginnings_.back(), rightBegin_ - beginnings_.back());
    form_.right = joined_.substr(rightBegin_, operatorBegin_ - rightBegin_);
  }

 private:
  EctlForm& form_;
  std::string joined_;
  std::vector<std::size_t> beginnings_;
  std::size_t rightBegin_ = 0;
  std::size_t operatorBegin_ = 0;
};

EctlForm::EctlForm(const std::string& formulaText) {
  Builder builder(*this);
  Scanner scanner(formulaText, Spelling::parser);
  while (const std::optional<Token> token = scanner.next())
    builder.add({token->op, token->arg}, token->text);
  builder.finish();
}

EctlForm::EctlForm(const std::vector<OnpNode>& items) {
  Builder builder(*this);
  for (const OnpNode& item : items) builder.add(item, textOf(item));
  builder.finish();
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

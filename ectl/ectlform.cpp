#include "ectl/ectlform.hpp"

#include <array>
#include <vector>

#include "ectl/scanner.hpp"

EctlOper oper(std::string_view text) {
  const char first = text.empty() ? '\0' : text[0];
  const char second = text.size() < 2 ? '\0' : text[1];
  switch (first) {
    case 'T':
      return EctlOper::truth;
    case 'p':
      return second == '-' ? EctlOper::negProp : EctlOper::prop;
    case '&':
    case 'C':
      return EctlOper::conj;
    case '+':
    case 'D':
      return EctlOper::disj;
    case 'E':
      break;
    default:
      return EctlOper::none;
  }
  switch (second) {
    case 'G':
      return EctlOper::existsGlobally;
    case 'X':
      return EctlOper::existsNext;
    case 'U':
      return EctlOper::existsUntil;
    case 'F':
      return EctlOper::existsFinally;
    case 'K':
      return EctlOper::existsK;
    default:
      return EctlOper::none;
  }
}

std::string operStr(EctlOper op) {
  constexpr std::array texts{"T", "p", "p-", "&", "+", "EG", "EX", "EU", "EF", "EK"};
  const auto i = static_cast<std::size_t>(op);
  return i < texts.size() ? texts[i] : "$";
}

EctlForm::EctlForm(const std::string& formulaText) { split(formulaText); }

// The tokens are joined without what the scan skips. In postfix order every operand on the stack is
// then a stretch of that text, from where it begins to where the next one does, so the stack holds
// beginnings only and a long property costs no copies.
void EctlForm::split(const std::string& formulaText) {
  std::string joined;
  std::vector<std::size_t> beginnings;
  Scanner scanner(formulaText, Spelling::parser);
  std::size_t rightBegin = 0;
  std::size_t operatorBegin = 0;
  while (const std::optional<Token> token = scanner.next()) {
    op = token->op;
    operatorBegin = joined.size();
    rightBegin = operatorBegin;
    if (arity(op) == 2) rightBegin = popOperand(beginnings, token->text);
    const std::size_t begin = arity(op) == 0 ? operatorBegin : popOperand(beginnings, token->text);
    beginnings.push_back(begin);
    joined += token->text;
    onp.push_back({op, token->arg});
  }
  if (onp.empty()) return;
  if (arity(op) == 0) operatorBegin = rightBegin = joined.size();  // an atom is its own operand
  left = joined.substr(beginnings.back(), rightBegin - beginnings.back());
  right = joined.substr(rightBegin, operatorBegin - rightBegin);
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

#include "ectl/scanner.hpp"

#include <cstdlib>
#include <string>

#include "ectl/refusal.hpp"

namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

std::size_t leadingDigits(std::string_view text) {
  std::size_t n = 0;
  while (n < text.size() && isDigit(text[n])) ++n;
  return n;
}

// The scan stands still. The read of a volatile object keeps the loop from being optimised away.
[[noreturn]] void standStill() {
  volatile bool still = true;
  while (still) {
  }
  std::abort();
}

}  // namespace

int leadingNumber(std::string_view text) {
  unsigned value = 0;
  for (const char c : text) {
    if (!isDigit(c)) break;
    value = 10 * value + static_cast<unsigned>(c - '0');
  }
  return static_cast<int>(value);
}

void missingOperand(std::string_view operatorText) {
  throw MissingOperand("property: operator \"" + std::string(operatorText) + "\" lacks an operand");
}

std::optional<Token> tokenAt(std::string_view text, std::size_t at, Spelling spelling) {
  if (at == text.size()) return std::nullopt;
  const std::string_view rest = text.substr(at);
  const char first = rest.front();
  const EctlOper op = oper(rest);
  if (op == EctlOper::none && first != 'E') return std::nullopt;
  if (spelling == Spelling::parser && (first == 'C' || first == 'D')) return std::nullopt;
  Token token{op, 0, rest.substr(0, 1), at + 1};
  if (first == 'p') {
    const std::size_t sign = op == EctlOper::negProp ? 2 : 1;
    const std::size_t digits = leadingDigits(rest.substr(sign));
    token.arg = leadingNumber(rest.substr(sign, digits));
    token.text = rest.substr(0, sign + digits);
  } else if (first == 'E' && op != EctlOper::none) {
    token.text = rest.substr(0, 2);
  }
  return token;
}

std::optional<Token> Scanner::next() {
  while (at_ < text_.size()) {
    const std::optional<Token> token = tokenAt(text_, at_, spelling_);
    if (!token) standStill();
    at_ += token->text.size();
    if (token->op != EctlOper::none) return token;
  }
  return std::nullopt;
}

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
  for (const char digit : text.substr(0, leadingDigits(text)))
    value = 10 * value + static_cast<unsigned>(digit - '0');
  return static_cast<int>(value);
}

void missingOperand(std::string_view operatorText) {
  throw MissingOperand("property: operator \"" + std::string(operatorText) + "\" lacks an operand");
}

std::optional<Token> tokenAt(std::string_view text, std::size_t at, Spelling spelling) {
  const std::string_view starts = spelling == Spelling::tree ? "Tp&+ECD" : "Tp&+E";
  const std::string_view rest = text.substr(at);
  if (rest.empty() || starts.find(rest.front()) == std::string_view::npos) return std::nullopt;
  const EctlOper op = oper(rest);
  Token token{op, 0, rest.substr(0, 1), at + 1};
  if (op == EctlOper::prop || op == EctlOper::negProp) {
    const std::size_t sign = op == EctlOper::negProp ? 2 : 1;
    token.arg = leadingNumber(rest.substr(sign));
    token.text = rest.substr(0, sign + leadingDigits(rest.substr(sign)));
  } else if (rest.front() == 'E' && op != EctlOper::none) {
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

#include "ectl/scanner.hpp"

#include <cstdlib>
#include <string>

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

int arity(EctlOper op) {
  switch (op) {
    case EctlOper::conj:
    case EctlOper::disj:
    case EctlOper::existsUntil:
      return 2;
    case EctlOper::existsGlobally:
    case EctlOper::existsNext:
    case EctlOper::existsFinally:
    case EctlOper::existsK:
      return 1;
    default:
      return 0;
  }
}

int leadingNumber(std::string_view text) {
  unsigned value = 0;
  for (const char digit : text.substr(0, leadingDigits(text)))
    value = 10 * value + static_cast<unsigned>(digit - '0');
  return static_cast<int>(value);
}

void missingOperand(std::string_view operatorText) {
  throw MissingOperand("property: operator \"" + std::string(operatorText) + "\" lacks an operand");
}

Token Scanner::take(EctlOper op, std::size_t length) {
  Token token{op, 0, rest_.substr(0, length)};
  rest_.remove_prefix(length);
  return token;
}

bool Scanner::startsToken() const {
  const std::string_view starts = spelling_ == Spelling::tree ? "Tp&+ECD" : "Tp&+E";
  return starts.find(rest_.front()) != std::string_view::npos;
}

std::optional<Token> Scanner::next() {
  while (!rest_.empty()) {
    if (!startsToken()) standStill();
    const EctlOper op = oper(rest_);
    switch (op) {
      case EctlOper::none:  // an "E" that begins no operator
        rest_.remove_prefix(1);
        break;
      case EctlOper::prop:
      case EctlOper::negProp: {
        const std::size_t sign = op == EctlOper::negProp ? 2 : 1;
        const std::string_view digits = rest_.substr(sign);
        const int number = leadingNumber(digits);
        Token atom = take(op, sign + leadingDigits(digits));
        atom.arg = number;
        return atom;
      }
      default:
        return take(op, rest_.front() == 'E' ? 2 : 1);
    }
  }
  return std::nullopt;
}

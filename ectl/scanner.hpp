// The token rules that the parser and the tree view share. A property may have millions of tokens:
// the rules are in the header, so that a reader's loop has them within it.

#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string_view>
#include <utility>

#include "ectl/operator.hpp"

enum class Spelling { parser, tree };  // the tree view also takes "C" for "&" and "D" for "+"

struct Token {
  EctlOper op;
  int arg;                // proposition number of an atom, 0 otherwise
  std::string_view text;  // as it stands in the formula
  std::size_t column;     // of its first character, from 1
};

// Takes the digits that begin at text[at]; their decimal value, modulo 2^32, 0 where there are
// none. Up to seven digits are taken at once: how many there are, no jump could foretell.
inline int takeNumber(std::string_view text, std::size_t& at) {
  static_assert(std::endian::native == std::endian::little);
  if (text.size() - at >= sizeof(std::uint64_t)) {
    std::uint64_t digits;
    std::memcpy(&digits, text.data() + at, sizeof digits);
    digits ^=
        0x3030303030303030U;  // '0' to '9' become 0 to 9; what follows the first other is void
    const std::uint64_t others = ((digits + 0x7676767676767676U) | digits) & 0x8080808080808080U;
    if (others != 0) {
      const int count = std::countr_zero(others) / 8;
      digits = digits << 8 << (56 - 8 * count);  // the last one on top, zeros below the first
      digits = (10 * digits + (digits >> 8)) & 0x00FF00FF00FF00FFU;
      digits = (100 * digits + (digits >> 16)) & 0x0000FFFF0000FFFFU;
      at += static_cast<std::size_t>(count);
      return static_cast<int>((10000 * digits + (digits >> 32)) & 0xFFFFFFFFU);
    }
  }
  unsigned value = 0;
  for (; at < text.size() && '0' <= text[at] && text[at] <= '9'; ++at)
    value = 10 * value + static_cast<unsigned>(text[at] - '0');
  return static_cast<int>(value);
}

// The number that `text` begins with.
inline int leadingNumber(std::string_view text) {
  std::size_t at = 0;
  return takeNumber(text, at);
}

// The token that begins at text[at], at <= text.size(); nothing where none does. An "E" that begins
// no operator is a token of EctlOper::none, one character long.
[[gnu::always_inline]] inline std::optional<Token> tokenAt(std::string_view text, std::size_t at,
                                                           Spelling spelling) {
  if (at == text.size()) return std::nullopt;
  const std::string_view rest = text.substr(at);
  const char first = rest.front();
  const EctlOper op = oper(rest);
  if (op == EctlOper::none && first != 'E') return std::nullopt;
  if (spelling == Spelling::parser && (first == 'C' || first == 'D')) return std::nullopt;
  std::size_t size = 1;
  int arg = 0;
  if (first == 'p') {
    size += op == EctlOper::negProp;
    arg = takeNumber(rest, size);
  } else if (first == 'E' && op != EctlOper::none) {
    size = 2;
  }
  return Token{op, arg, rest.substr(0, size), at + 1};
}

// A scan that no character lets go on.
[[noreturn]] void standStill();

class Scanner {
 public:
  // `text` is borrowed.
  Scanner(std::string_view text, Spelling spelling) : text_(text), spelling_(spelling) {}

  // The next token, nothing at the end of the text. A stray "E" is skipped; any other character
  // that begins no token is never passed and the call does not return.
  [[gnu::always_inline]] std::optional<Token> next() {
    while (at_ < text_.size()) {
      const std::optional<Token> token = tokenAt(text_, at_, spelling_);
      if (!token) standStill();
      at_ += token->text.size();
      if (token->op != EctlOper::none) return token;
    }
    return std::nullopt;
  }

 private:
  std::string_view text_;
  Spelling spelling_;
  std::size_t at_ = 0;
};

// The operand of a postfix operator, taken off the stack `operands`. Throws MissingOperand where
// there is none.
[[noreturn]] void missingOperand(std::string_view operatorText);

template <class Stack>
typename Stack::value_type popOperand(Stack& operands, std::string_view operatorText) {
  if (operands.empty()) missingOperand(operatorText);
  auto top = std::move(operands.back());
  operands.pop_back();
  return top;
}

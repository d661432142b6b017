// The token rules that the parser and the tree view share.

#pragma once

#include <cstddef>
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

// The token that begins at text[at], at <= text.size(); nothing where none does. An "E" that begins
// no operator is a token of EctlOper::none, one character long.
std::optional<Token> tokenAt(std::string_view text, std::size_t at, Spelling spelling);

// The decimal value of the digits that `text` begins with, modulo 2^32; 0 where there are none.
int leadingNumber(std::string_view text);

class Scanner {
 public:
  // `text` is borrowed.
  Scanner(std::string_view text, Spelling spelling) : text_(text), spelling_(spelling) {}

  // The next token, nothing at the end of the text. A stray "E" is skipped; any other character
  // that begins no token is never passed and the call does not return.
  std::optional<Token> next();

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

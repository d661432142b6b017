// The token rules that the parser and the tree view share.

#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "ectl/ectlform.hpp"

enum class Spelling { parser, tree };  // the tree view also takes "C" for "&" and "D" for "+"

struct Token {
  EctlOper op;
  int arg;                // proposition number of an atom, 0 otherwise
  std::string_view text;  // as it stands in the formula
};

// How many operands an operator takes: 0, 1 or 2.
int arity(EctlOper op);

// The decimal value of the digits that `text` begins with, modulo 2^32; 0 where there are none.
int leadingNumber(std::string_view text);

class Scanner {
 public:
  // `text` is borrowed.
  Scanner(std::string_view text, Spelling spelling) : rest_(text), spelling_(spelling) {}

  // The next token, nothing at the end of the text. A stray "E" is skipped; any other character
  // that begins no token is never passed and the call does not return.
  std::optional<Token> next();

 private:
  Token take(EctlOper op, std::size_t length);
  bool startsToken() const;

  std::string_view rest_;
  Spelling spelling_;
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

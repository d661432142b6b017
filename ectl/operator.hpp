// The operators of a property: their texts, how many operands they take, and the postfix item.

#pragma once

#include <string>
#include <string_view>

enum class EctlOper : int {
  truth = 0,
  prop = 1,
  negProp = 2,
  conj = 3,
  disj = 4,
  existsGlobally = 5,
  existsNext = 6,
  existsUntil = 7,
  existsFinally = 8,
  existsK = 9,
  none = 10,
};

// The operator that a text begins with; none where it begins with no operator. "C" and "D" are
// second spellings of "&" and "+" here and in the tree view, not in the parser.
EctlOper oper(std::string_view text);

// The operator's text; "$" for none and for every larger value.
std::string operStr(EctlOper op);

// How many operands an operator takes: 0, 1 or 2.
int arity(EctlOper op);

// A postfix item.
struct OnpNode {
  EctlOper op;
  int arg;  // proposition number, 0 for operators; wraps at 32 bits

  friend bool operator==(const OnpNode&, const OnpNode&) = default;
};

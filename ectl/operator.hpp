// The operators of a property: their texts, how many operands they take, and the postfix item.
//
// A long property asks for each of its tokens: what is asked is in the header.

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
constexpr EctlOper oper(std::string_view text) {
  const char first = text.empty() ? '\0' : text[0];
  const char second = text.size() < 2 ? '\0' : text[1];
  // The usual ones first, without a jump between the two of a kind.
  if (first == 'p') return second == '-' ? EctlOper::negProp : EctlOper::prop;
  if (first == '&' || first == '+') return first == '&' ? EctlOper::conj : EctlOper::disj;
  if (first == 'C' || first == 'D') return first == 'C' ? EctlOper::conj : EctlOper::disj;
  if (first == 'T') return EctlOper::truth;
  if (first != 'E') return EctlOper::none;
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

// The operator's text; "$" for none and for every larger value.
std::string operStr(EctlOper op);

// How many operands an operator takes: 0, 1 or 2.
constexpr int arity(EctlOper op) {
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

// A postfix item.
struct OnpNode {
  EctlOper op;
  int arg;  // proposition number, 0 for operators; wraps at 32 bits

  friend bool operator==(const OnpNode&, const OnpNode&) = default;
};

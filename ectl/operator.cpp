#include "ectl/operator.hpp"

#include <array>
#include <cstddef>

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

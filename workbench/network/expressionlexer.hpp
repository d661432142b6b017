// The words of a property in infix notation.

#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "workbench/network/expression.hpp"

namespace tpn {

struct ExpressionToken {
  enum Kind : std::uint8_t {
    end,
    open,
    close,
    comma,
    dot,
    negation,
    conjunction,
    disjunction,
    implication,
    part  // a name, a number, a pattern
  } kind = end;
  std::size_t at = 0;
  std::size_t length = 0;
  WrittenPart written;  // of a part
};

// The token at or behind `at`; throws ExpressionError where none begins there.
ExpressionToken expressionTokenAt(std::string_view text, std::size_t at);

}  // namespace tpn

// Properties in infix notation, with names: "committed && B.aborted".

#pragma once

#include <string_view>

#include "workbench/network/expression.hpp"
#include "workbench/network/network.hpp"
#include "workbench/network/property.hpp"

namespace tpn {

// What the text says of this network, in negation normal form. Throws ExpressionError where it says
// nothing; a proposition that labels no location, written as p11, is false everywhere and no error.
Property readInfix(std::string_view text, const Network& net);

}  // namespace tpn

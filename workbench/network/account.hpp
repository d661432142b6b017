// Why a property holds in a state: the part of it that is enough.

#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "workbench/network/network.hpp"
#include "workbench/network/property.hpp"

namespace tpn {

// Facts in the order of the text, as questions would say them: "committed", "!p3", "B.idle". Of a
// disjunction one operand, that which takes the fewest; of a counter all operands that hold, behind
// how many these are where more would be too many. Each once; none where true is enough. Asserts
// that the property holds. Takes time linear in the property, but for logarithms.
std::vector<std::string> account(const Network& net, const Property& property,
                                 const StateFacts& state);

// The items of the property that these facts are about, ascending. Operands of a counter stand
// where it does in the text.
std::vector<std::size_t> accountItems(const Network& net, const Property& property,
                                      const StateFacts& state);

// Does an account say more than the property itself?
bool leavesOpen(const Property& property);

}  // namespace tpn

// The strict reader of properties, and what can be said once the network is known.

#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "workbench/network/diagnostic.hpp"
#include "workbench/network/network.hpp"
#include "workbench/network/property.hpp"

namespace tpn {

// As readNetwork (strictread.hpp): a value where no error was found, and everything that is wrong.
std::optional<Property> readProperty(const std::string& file, const std::string& text,
                                     Diagnostics& diagnostics);

// Nothing but items of postfix, in whatever order.
bool isAllPostfix(std::string_view text);

// What needs both files: propositions that label nothing.
void lintTogether(const Network& net, const std::string& propertyFile, const Property& property,
                  Diagnostics& diagnostics);

}  // namespace tpn

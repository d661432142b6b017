// The strict readers: they take what zervan reads as its writer meant it, say everything else that
// is wrong, all in one go, and always end.

#pragma once

#include <optional>
#include <string>

#include "workbench/network/diagnostic.hpp"
#include "workbench/network/network.hpp"
#include "workbench/network/property.hpp"

namespace tpn {

// `file` is the name used in the diagnostics, `text` the file's whole content. The value is there
// where no error was found; warnings do not matter. Diagnostics are appended in order of position.
std::optional<Network> readNetwork(const std::string& file, const std::string& text,
                                   Diagnostics& diagnostics);
std::optional<Property> readProperty(const std::string& file, const std::string& text,
                                     Diagnostics& diagnostics);

// What needs both files: propositions that label nothing.
void lintTogether(const Network& net, const std::string& propertyFile, const Property& property,
                  Diagnostics& diagnostics);

// What a path of length k would meet in zervan: too many variables, numbers that fold.
void lintBound(const Network& net, const std::string& file, int k, Diagnostics& diagnostics);

}  // namespace tpn

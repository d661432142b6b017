// A property in either notation: a file in postfix, which zervan reads too, or in infix; or a text
// on the command line, which is infix.

#pragma once

#include <optional>
#include <string>

#include "workbench/network/diagnostic.hpp"
#include "workbench/network/network.hpp"
#include "workbench/network/property.hpp"

namespace tpn {

// As readProperty: a file that is in order as postfix is postfix; any other is infix. One that is
// in order as neither is told what is wrong as postfix, if it holds nothing but what that is made
// of. `net` may be null where the network could not be read: then infix is looked at without its
// names, and has no value.
std::optional<Property> readQuestion(const std::string& file, const std::string& text,
                                     const Network* net, Diagnostics& diagnostics);

constexpr const char* commandLine = "-p";  // in place of a file's name, in diagnostics

std::optional<Property> readGivenQuestion(const std::string& text, const Network* net,
                                          Diagnostics& diagnostics);

// What is there to say of a file that is in order: zervan reads postfix only.
void lintNotation(const std::string& file, const Property& property, Diagnostics& diagnostics);

}  // namespace tpn

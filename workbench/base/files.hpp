// Whole files in and out. Failures are std::runtime_error with one line.

#pragma once

#include <string>

namespace tpn {

std::string readFile(const std::string& name);

// Everything is on its way to the disk when this returns: a full one is noticed. "-" is standard
// output.
void writeFile(const std::string& name, const std::string& text);

// NAME as the user gave it, or NAME.tpn where only that exists: zervan knows files by the shorter
// name.
std::string inputName(const std::string& name);

}  // namespace tpn

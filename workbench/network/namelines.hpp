// The names of a network one by one, as its file has them in lines.

#pragma once

#include <string>
#include <vector>

#include "workbench/network/namesreader.hpp"

namespace tpn {

std::vector<NameLine> nameLines(const Names& names);
std::string nameLineText(const NameLine& line);  // "location 1 0 idle"

}  // namespace tpn

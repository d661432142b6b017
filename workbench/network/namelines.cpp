#include "workbench/network/namelines.hpp"

#include "workbench/network/names.hpp"

namespace tpn {

std::vector<NameLine> nameLines(const Names& names) {
  std::vector<NameLine> lines;
  for (const auto& [index, name] : names.processes)
    lines.push_back({NameLine::process, number(index), 0, name, {}, {}});
  for (const auto& [spot, name] : names.locations)
    lines.push_back({NameLine::location, number(spot.first), spot.second, name, {}, {}});
  for (const auto& [index, name] : names.transitions)
    lines.push_back({NameLine::transition, number(index), 0, name, {}, {}});
  for (const auto& [value, name] : names.propositions)
    lines.push_back({NameLine::proposition, value, 0, name, {}, {}});
  return lines;
}

std::string nameLineText(const NameLine& line) {
  const std::string numbered = " " + std::to_string(line.number) + " ";
  const std::string name = writtenName(line.name);
  switch (line.kind) {
    case NameLine::process:
      return "process" + numbered + name;
    case NameLine::location:
      return "location" + numbered + std::to_string(line.inner) + " " + name;
    case NameLine::transition:
      return "transition" + numbered + name;
    default:
      return "proposition" + numbered + name;
  }
}

}  // namespace tpn

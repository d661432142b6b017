#include "workbench/views/goalline.hpp"

#include "workbench/views/viewparts.hpp"

namespace tpn {

std::string goalLine(const Property& property, const std::string& outcome) {
  constexpr std::size_t longest = 400;
  return "goal: " + shortProperty(property, longest) + (outcome.empty() ? "" : " ") + outcome +
         "\n";
}

}  // namespace tpn

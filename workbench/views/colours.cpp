#include "workbench/views/colours.hpp"

namespace tpn {

namespace {

const char* sequence(Ink ink) {
  switch (ink) {
    case Ink::heading:
      return "\033[1m";
    case Ink::goal:
      return "\033[1;32m";
    case Ink::held:
      return "\033[4;32m";
    default:
      return "";
  }
}

}  // namespace

std::string coloured(const std::string& text, Ink ink, bool colour) {
  if (!colour || ink == Ink::plain || text.empty()) return text;
  const std::size_t end = text.find('\n');
  const std::string line = text.substr(0, end);
  const std::string shown = line.empty() ? "" : sequence(ink) + line + "\033[0m";
  return end == std::string::npos ? shown
                                  : shown + "\n" + coloured(text.substr(end + 1), ink, colour);
}

}  // namespace tpn

#include "workbench/families/postfix.hpp"

namespace tpn {

std::string proposed(int proposition) { return "p" + std::to_string(proposition); }

std::string everyOne(int kind, int last) {
  std::string text;
  for (int i = 1; i <= last; ++i) text += proposed(about(i, kind)) + (i > 1 ? "&" : "");
  return text;
}

std::string someTwo(int kind, int last) {
  std::string text;
  for (int i = 1; i <= last; ++i)
    for (int j = i + 1; j <= last; ++j) {
      const bool first = text.empty();
      text += proposed(about(i, kind)) + proposed(about(j, kind)) + "&" + (first ? "" : "+");
    }
  return text;
}

}  // namespace tpn

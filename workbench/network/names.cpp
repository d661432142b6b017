#include "workbench/network/names.hpp"

#include <algorithm>
#include <array>

namespace tpn {

namespace {

constexpr std::array<std::string_view, 6> takenWords{"true",    "false",  "deadlock",
                                                     "atleast", "atmost", "exactly"};

bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_'; }
bool isDigit(char c) { return c >= '0' && c <= '9'; }

std::size_t wordLength(std::string_view text) {
  if (text.empty() || !isLetter(text.front())) return 0;
  const auto end =
      std::find_if_not(text.begin(), text.end(), [](char c) { return isLetter(c) || isDigit(c); });
  return static_cast<std::size_t>(end - text.begin());
}

bool isSpecial(char c) { return c == '{' || c == '}' || c == '\\'; }

// Behind the opening brace.
std::optional<ReadName> readBraced(std::string_view text) {
  ReadName read;
  for (std::size_t at = 1; at < text.size(); ++at) {
    if (text[at] == '}') {
      read.length = at + 1;
      return read.name.empty() ? std::nullopt : std::optional(read);
    }
    if (text[at] == '{' || text[at] == '\n') return std::nullopt;
    if (text[at] == '\\' && (++at == text.size() || !isSpecial(text[at]))) return std::nullopt;
    read.name += text[at];
  }
  return std::nullopt;
}

}  // namespace

bool isTakenWord(std::string_view word) {
  return std::find(takenWords.begin(), takenWords.end(), word) != takenWords.end();
}

std::string writtenName(const std::string& name) {
  if (!name.empty() && wordLength(name) == name.size() && !isTakenWord(name)) return name;
  std::string written = "{";
  for (const char c : name) {
    if (isSpecial(c)) written += '\\';
    written += c;
  }
  return written + "}";
}

std::optional<ReadName> readName(std::string_view text) {
  if (!text.empty() && text.front() == '{') return readBraced(text);
  const std::size_t length = wordLength(text);
  if (length == 0 || isTakenWord(text.substr(0, length))) return std::nullopt;
  return ReadName{std::string(text.substr(0, length)), length};
}

}  // namespace tpn

#include "workbench/base/textwidth.hpp"

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

namespace tpn {

namespace {

using Range = std::pair<std::uint32_t, std::uint32_t>;

bool isIn(const auto& ranges, std::uint32_t code) {
  return std::any_of(ranges.begin(), ranges.end(), [&](const Range& range) {
    return range.first <= code && code <= range.second;
  });
}

std::size_t columnsOf(std::uint32_t code) {
  static constexpr std::array<Range, 6> none{{{0x300, 0x36f},
                                              {0x200b, 0x200f},
                                              {0x202a, 0x202e},
                                              {0x20d0, 0x20ff},
                                              {0xfe00, 0xfe0f},
                                              {0xfe20, 0xfe2f}}};
  static constexpr std::array<Range, 9> two{{{0x1100, 0x115f},
                                             {0x2e80, 0x303e},
                                             {0x3041, 0xa4cf},
                                             {0xac00, 0xd7a3},
                                             {0xf900, 0xfaff},
                                             {0xfe30, 0xfe6f},
                                             {0xff00, 0xff60},
                                             {0x1f300, 0x1faff},
                                             {0x20000, 0x3fffd}}};
  if (code < 0x300) return 1;
  return isIn(none, code) ? 0 : isIn(two, code) ? 2 : 1;
}

// The first character and its length in bytes; the text is UTF-8, and not empty.
std::pair<std::uint32_t, std::size_t> firstOf(std::string_view text) {
  const auto first = static_cast<unsigned char>(text[0]);
  const std::size_t length = first < 0xc0 ? 1 : first < 0xe0 ? 2 : first < 0xf0 ? 3 : 4;
  std::uint32_t code = length == 1 ? first : first & (0x7fU >> length);
  for (std::size_t i = 1; i < std::min(length, text.size()); ++i)
    code = (code << 6U) | (static_cast<unsigned char>(text[i]) & 0x3fU);
  return {code, std::min(length, text.size())};
}

std::string blanks(const std::string& text, std::size_t width) {
  const std::size_t taken = displayedWidth(text);
  return std::string(taken < width ? width - taken : 0, ' ');
}

}  // namespace

std::size_t displayedWidth(std::string_view text) {
  std::size_t width = 0;
  while (!text.empty()) {
    const auto [code, length] = firstOf(text);
    width += columnsOf(code);
    text.remove_prefix(length);
  }
  return width;
}

std::string padded(const std::string& text, std::size_t width) {
  return text + blanks(text, width);
}

std::string rightPadded(const std::string& text, std::size_t width) {
  return blanks(text, width) + text;
}

std::string_view head(std::string_view text, std::size_t width) {
  std::size_t end = 0;
  for (std::size_t used = 0; end < text.size();) {
    const auto [code, length] = firstOf(text.substr(end));
    used += columnsOf(code);
    if (used > width && end > 0) break;
    end += length;
  }
  return text.substr(0, end);
}

namespace {

std::vector<std::string> broken(const std::vector<std::string>& words, std::size_t width) {
  std::vector<std::string> pieces;
  for (const std::string& word : words) {
    std::string_view rest = word;
    do {
      const std::string_view piece = head(rest, width);
      pieces.emplace_back(piece);
      rest.remove_prefix(piece.size());
    } while (!rest.empty());
  }
  return pieces;
}

}  // namespace

std::vector<std::string> folded(const std::vector<std::string>& words, std::size_t width) {
  std::vector<std::string> lines;
  std::size_t used = 0;
  for (const std::string& word : broken(words, width)) {
    const std::size_t needed = displayedWidth(word);
    if (lines.empty() || used + 1 + needed > width) {
      lines.push_back(word);
      used = needed;
    } else {
      lines.back() += " " + word;
      used += 1 + needed;
    }
  }
  return lines;
}

std::string hanging(const std::string& heading, const std::vector<std::string>& words,
                    std::size_t width) {
  constexpr std::size_t leastRoom = 24;
  const std::size_t begin = displayedWidth(heading) + 1;
  const std::size_t indent = begin + leastRoom <= width ? begin : 6;
  std::string text;
  std::string line = heading;
  std::size_t used = displayedWidth(heading);
  for (const std::string& word : words) {
    const std::size_t needed = 1 + displayedWidth(word);
    if (used + needed > width && used > indent) {
      text += line + "\n";
      line = std::string(indent - 1, ' ');
      used = indent - 1;
    }
    line += " " + word;
    used += needed;
  }
  return text + line + "\n";
}

}  // namespace tpn

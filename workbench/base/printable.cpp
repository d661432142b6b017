#include "workbench/base/printable.hpp"

#include <algorithm>
#include <array>
#include <cstdint>

namespace tpn {

namespace {

// The length of the UTF-8 character at `at`; 0 where there is none: a stray or missing byte, a
// longer form than needed, a surrogate, a number beyond the last.
std::size_t characterLength(const std::string& text, std::size_t at) {
  const auto byte = [&](std::size_t i) {
    return i < text.size() ? static_cast<unsigned char>(text[i]) : std::uint32_t{0};
  };
  const std::uint32_t first = byte(at);
  if (first < 0x80) return 1;
  const std::size_t length = first < 0xc2 ? 0 : first < 0xe0 ? 2 : first < 0xf0 ? 3 : 4;
  if (length == 0 || first > 0xf4) return 0;
  std::uint32_t code = first & (0x7fU >> length);
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(at + i) & 0xc0U) != 0x80) return 0;
    code = (code << 6U) | (byte(at + i) & 0x3fU);
  }
  constexpr std::array<std::uint32_t, 5> smallest{0, 0, 0x80, 0x800, 0x10000};
  const bool surrogate = code >= 0xd800 && code < 0xe000;
  const bool noncharacter = code == 0xfffe || code == 0xffff;  // XML takes neither
  return code < smallest[length] || code > 0x10ffff || surrogate || noncharacter ? 0 : length;
}

// At a character; those of two bytes beyond ASCII as well.
bool isControl(const std::string& text, std::size_t at) {
  const auto byte = static_cast<unsigned char>(text[at]);
  const bool second = byte == 0xc2 && static_cast<unsigned char>(text[at + 1]) < 0xa0;
  return byte < 0x20 || byte == 0x7f || second;
}

std::string cleaned(const std::string& text, bool linesEnd) {
  std::string clean;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t length = characterLength(text, at);
    const bool kept = length > 0 && (!isControl(text, at) || (linesEnd && text[at] == '\n'));
    if (kept)
      clean.append(text, at, length);
    else
      clean += "\xef\xbf\xbd";
    at += std::max<std::size_t>(length, 1);
  }
  return clean;
}

}  // namespace

std::string printable(const std::string& text) { return cleaned(text, false); }

std::string printableLines(const std::string& text) { return cleaned(text, true); }

}  // namespace tpn

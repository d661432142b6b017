#include "workbench/views/viewparts.hpp"

#include <array>
#include <cassert>
#include <cstdint>

namespace tpn {

Replay replayed(const Network& net, const Property& property, const Run& run) {
  Replay result = replay(net, property, run);
  assert(result.complaint.empty());
  return result;
}

bool asksNothing(const Property& property) {
  return property.items.size() == 1 && property.items[0].kind == PropertyItem::truth;
}

std::vector<std::string> propositionNames(const std::set<int>& propositions) {
  std::vector<std::string> names;
  names.reserve(propositions.size());
  for (const int q : propositions) names.push_back("p" + std::to_string(q));
  return names;
}

std::vector<Part> partsOf(const Network& net, std::size_t process) {
  std::vector<Part> parts;
  for (std::size_t t = 0; t < net.transitions.size(); ++t)
    for (const Move& move : net.transitions[t].moves)
      if (move.process == process) parts.push_back({t, move.source, move.target});
  return parts;
}

bool isShared(const Transition& t) { return t.moves.size() > 1; }

std::vector<std::string> partners(const Transition& t, std::size_t process) {
  std::vector<std::string> others;
  for (const Move& move : t.moves)
    if (move.process != process) others.push_back(std::to_string(number(move.process)));
  return others;
}

const std::set<int>& labelsAt(const Process& process, int location) {
  static const std::set<int> none;
  const auto labels = process.labels.find(location);
  return labels == process.labels.end() ? none : labels->second;
}

std::string text(const Interval& interval) {
  const std::string from = "[" + std::to_string(interval.earliest) + ", ";
  return from + (interval.latest ? std::to_string(*interval.latest) + "]" : "inf)");
}

std::string shortProperty(const Property& property) {
  constexpr std::size_t longest = 48;
  if (property.text.size() <= longest) return property.text;
  return property.text.substr(0, longest - 3) + "...";
}

std::string joined(const std::vector<std::string>& items, const std::string& separator) {
  std::string all;
  for (const std::string& item : items) all += (all.empty() ? "" : separator) + item;
  return all;
}

std::string shortened(const std::vector<std::string>& items, const std::string& separator,
                      std::size_t limit) {
  if (items.size() <= limit) return joined(items, separator);
  const auto end = items.begin() + static_cast<std::ptrdiff_t>(limit - 1);
  return joined({items.begin(), end}, separator) + " ... " +
         std::to_string(items.size() - limit + 1) + " more";
}

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

bool isControl(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte < 0x20 || byte == 0x7f;
}

}  // namespace

std::string cleanUtf8(const std::string& text) {
  std::string clean;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t length = characterLength(text, at);
    if (length == 0 || isControl(text[at])) {
      clean += "\xef\xbf\xbd";
      ++at;
    } else {
      clean += text.substr(at, length);
      at += length;
    }
  }
  return clean;
}

std::string xmlText(const std::string& text) {
  std::string escaped;
  for (const char c : cleanUtf8(text)) {
    switch (c) {
      case '&':
        escaped += "&amp;";
        break;
      case '<':
        escaped += "&lt;";
        break;
      case '>':
        escaped += "&gt;";
        break;
      case '"':
        escaped += "&quot;";
        break;
      case '\'':
        escaped += "&apos;";
        break;
      default:
        escaped += c;
    }
  }
  return escaped;
}

const Colour& colourOf(const Process& process, int location) {
  static constexpr std::array<Colour, 8> palette{{{"#d9d9d9", "#222222"},
                                                  {"#56b4e9", "#000000"},
                                                  {"#e69f00", "#000000"},
                                                  {"#0a7d5e", "#ffffff"},
                                                  {"#f0e442", "#000000"},
                                                  {"#cc79a7", "#000000"},
                                                  {"#0b5c94", "#ffffff"},
                                                  {"#b84a00", "#ffffff"}}};
  const auto rank = static_cast<std::size_t>(
      std::distance(process.locations.begin(), process.locations.find(location)));
  return rank == 0 ? palette[0] : palette[1 + (rank - 1) % (palette.size() - 1)];
}

}  // namespace tpn

#include "workbench/nets/xmldocument.hpp"

#include <algorithm>
#include <cctype>
#include <cstring>

#include "workbench/base/printable.hpp"

namespace tpn {

namespace {

std::vector<std::ptrdiff_t> lineBegins(std::string_view text) {
  std::vector<std::ptrdiff_t> begins{0};
  for (std::size_t at = text.find('\n'); at != std::string_view::npos; at = text.find('\n', at + 1))
    begins.push_back(static_cast<std::ptrdiff_t>(at) + 1);
  return begins;
}

bool isAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

std::string lowered(std::string text) {
  for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return text;
}

constexpr std::string_view blanks = " \t\r\n";

}  // namespace

XmlDocument::XmlDocument(std::string_view text, NetReport& report) : lineBegins_(lineBegins(text)) {
  if (loads(text, report)) root_ = document_.document_element();
}

bool XmlDocument::loads(std::string_view text, NetReport& report) {
  const unsigned flags = pugi::parse_default | pugi::parse_declaration | pugi::parse_doctype |
                         pugi::parse_ws_pcdata_single;
  const pugi::xml_parse_result result =
      document_.load_buffer(text.data(), text.size(), flags, pugi::encoding_utf8);
  const auto isDoctype = [](const pugi::xml_node& n) { return n.type() == pugi::node_doctype; };
  if (!result)
    report.refuse(NetRule::xmlMalformed, placeAt(result.offset), lowered(result.description()));
  else if (document_.find_child(isDoctype))
    report.refuse(NetRule::xmlDoctype, placeAt(static_cast<std::ptrdiff_t>(text.find("<!DOCTYPE"))),
                  "a document type declaration; delete it");
  else if (!encodingIsKnown(text))
    report.refuse(NetRule::xmlEncoding, {1, 1},
                  "the file is not in UTF-8; recode it, by iconv for example");
  return !report.refused();
}

bool XmlDocument::encodingIsKnown(std::string_view text) const {
  if (isAscii(text)) return true;
  const std::string encoding = lowered(document_.first_child().attribute("encoding").value());
  return encoding.empty() || encoding == "utf-8" || encoding == "utf8";
}

Place XmlDocument::placeAt(std::ptrdiff_t offset) const {
  const auto next = std::upper_bound(lineBegins_.begin(), lineBegins_.end(), offset);
  return {static_cast<int>(next - lineBegins_.begin()),
          static_cast<int>(offset - *std::prev(next)) + 1};
}

// The library knows where the element's name stands: behind the bracket.
Place XmlDocument::placeOf(const pugi::xml_node& node) const {
  const std::ptrdiff_t offset = node.offset_debug();
  return offset < 0 ? Place{} : placeAt(std::max<std::ptrdiff_t>(offset - 1, 0));
}

std::string XmlDocument::textOf(const pugi::xml_node& node) {
  std::string text;
  for (const pugi::xml_node& part : node.children())
    if (part.type() == pugi::node_pcdata || part.type() == pugi::node_cdata) text += part.value();
  const std::size_t first = text.find_first_not_of(blanks);
  if (first == std::string::npos) return "";
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::string_view localName(const pugi::xml_node& node) {
  const std::string_view name = node.name();
  const std::size_t colon = name.find(':');
  return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

pugi::xml_node childOf(const pugi::xml_node& node, std::string_view name) {
  for (const pugi::xml_node& child : node.children())
    if (localName(child) == name) return child;
  return {};
}

}  // namespace tpn

// An XML document and where its elements stand in the text.

#pragma once

#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/base/textlines.hpp"
#include "workbench/nets/netrules.hpp"

namespace tpn {

class XmlDocument {
 public:
  // Whatever is wrong with the text as XML is in the report; the root is empty then.
  XmlDocument(std::string_view text, NetReport& report);

  pugi::xml_node root() const { return root_; }
  Place placeOf(const pugi::xml_node& node) const;

  // Blanks around it are no part of a text.
  static std::string textOf(const pugi::xml_node& node);

 private:
  bool loads(std::string_view text, NetReport& report);
  Place placeAt(std::ptrdiff_t offset) const;
  bool encodingIsKnown(std::string_view text) const;

  std::vector<std::ptrdiff_t> lineBegins_;
  pugi::xml_document document_;
  pugi::xml_node root_;
};

// The element's name without a namespace's prefix.
std::string_view localName(const pugi::xml_node& node);
// The first child element of a name; an empty node where there is none.
pugi::xml_node childOf(const pugi::xml_node& node, std::string_view name);

}  // namespace tpn

// The pieces of PNML that say something: numbers, intervals, what an arc does.

#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "workbench/nets/netbuilder.hpp"
#include "workbench/nets/xmldocument.hpp"

namespace tpn {

// What <text>, or <value> as it was once, holds, in one line; empty where there is none.
std::string textIn(const pugi::xml_node& node);

bool isOneLine(const std::string& name);
bool isDecoration(const pugi::xml_node& node);  // name, graphics, toolspecific
std::string unknownElement(const pugi::xml_node& node);

// Each gives nothing where it has refused.
class PnmlParts {
 public:
  PnmlParts(const XmlDocument& document, NetReport& report)
      : document_(document), report_(report) {}

  std::optional<std::int64_t> number(const pugi::xml_node& node);  // in its <text>
  std::optional<Interval> interval(const pugi::xml_node& delay);
  std::optional<ArcKind> arcKind(const pugi::xml_node& arc, bool consumes);
  std::optional<std::int64_t> weight(const pugi::xml_node& arc);

 private:
  std::optional<std::int64_t> whole(const std::string& text, const pugi::xml_node& node);
  std::optional<std::int64_t> time(const pugi::xml_node& bound);
  bool isClosed(const pugi::xml_node& interval, bool endless);

  void refuse(NetRule rule, const pugi::xml_node& node, const std::string& why) {
    report_.refuse(rule, document_.placeOf(node), why);
  }

  const XmlDocument& document_;
  NetReport& report_;
};

}  // namespace tpn

#include "workbench/nets/pnmlparts.hpp"

#include <algorithm>
#include <vector>

#include "workbench/nets/tinalexer.hpp"

namespace tpn {

namespace {

using Node = pugi::xml_node;

std::vector<Node> elements(const Node& node) {
  std::vector<Node> found;
  for (const Node& child : node.children())
    if (child.type() == pugi::node_element) found.push_back(child);
  return found;
}

}  // namespace

std::string textIn(const Node& node) {
  const Node element = childOf(node, "text");
  std::string text = XmlDocument::textOf(element ? element : childOf(node, "value"));
  std::replace(text.begin(), text.end(), '\n', ' ');
  return text;
}

bool isOneLine(const std::string& name) { return name.find('\n') == std::string::npos; }

bool isDecoration(const Node& node) {
  const std::string_view name = localName(node);
  return name == "name" || name == "graphics" || name == "toolspecific";
}

std::string unknownElement(const Node& node) {
  return "<" + std::string(localName(node)) + "> means nothing here that is known";
}

std::optional<std::int64_t> PnmlParts::whole(const std::string& text, const Node& node) {
  const bool digits = !text.empty() && std::all_of(text.begin(), text.end(),
                                                   [](char c) { return c >= '0' && c <= '9'; });
  if (digits) return tinaNumber(text);
  refuse(NetRule::notWhole, node,
         text.empty() ? "a number is missing here" : inQuotes(text) + " is not a whole number");
  return std::nullopt;
}

std::optional<std::int64_t> PnmlParts::number(const Node& node) {
  return whole(textIn(node), node);
}

std::optional<std::int64_t> PnmlParts::time(const Node& bound) {
  const auto number = whole(XmlDocument::textOf(bound), bound);
  if (!number || !checkTime(*number, document_.placeOf(bound), report_)) return std::nullopt;
  return number;
}

bool PnmlParts::isClosed(const Node& interval, bool endless) {
  const std::string_view closure = interval.attribute("closure").value();
  if (closure.empty() || closure == "closed" || (closure == "closed-open" && endless)) return true;
  refuse(NetRule::intervalOpen, interval,
         "the interval is " + inQuotes(closure) + "; only those that contain their ends are taken");
  return false;
}

std::optional<Interval> PnmlParts::interval(const Node& delay) {
  const Node interval = childOf(delay, "interval");
  const std::vector<Node> bounds = elements(interval);
  if (bounds.size() != 2 || localName(bounds[0]) != "cn") {
    refuse(NetRule::pnmlMissing, delay, "an <interval> of two bounds is expected within <delay>");
    return std::nullopt;
  }
  const bool endless = localName(bounds[1]) == "ci" && XmlDocument::textOf(bounds[1]) == "infty";
  if (!endless && localName(bounds[1]) != "cn") {
    refuse(NetRule::pnmlElement, bounds[1], "<cn> or <ci>infty</ci> is expected here");
    return std::nullopt;
  }
  const auto earliest = time(bounds[0]);
  const auto latest = endless ? std::nullopt : time(bounds[1]);
  if (!isClosed(interval, endless) || !earliest || (!endless && !latest)) return std::nullopt;
  return Interval{*earliest, latest};
}

std::optional<ArcKind> PnmlParts::arcKind(const Node& arc, bool consumes) {
  for (const Node& part : elements(arc))
    if (!isDecoration(part) && localName(part) != "inscription" && localName(part) != "type") {
      refuse(NetRule::pnmlElement, part, unknownElement(part));
      return std::nullopt;
    }
  const Node type = childOf(arc, "type");
  std::string kind = type.attribute("value").value();
  if (kind.empty()) kind = textIn(type);
  if (!type || kind == "normal") return consumes ? ArcKind::consume : ArcKind::produce;
  if (kind == "inhibitor")
    refuse(NetRule::inhibitor, type, "an inhibitor arc; a transition can ask for tokens only");
  else if (kind.starts_with("stopwatch"))
    refuse(NetRule::stopwatch, type,
           "a stopwatch arc; the clock of an enabled transition always runs");
  else if ((kind != "test" && kind != "read") || !consumes)
    refuse(NetRule::arcKind, type,
           kind == "test" || kind == "read"
               ? "a test arc leads from a place to a transition"
               : "arcs of the type " + inQuotes(kind) + " are not taken");
  else
    return ArcKind::read;
  return std::nullopt;
}

std::optional<std::int64_t> PnmlParts::weight(const Node& arc) {
  const Node inscription = childOf(arc, "inscription");
  return inscription ? number(inscription) : 1;
}

}  // namespace tpn

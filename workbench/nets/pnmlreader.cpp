#include "workbench/nets/pnmlreader.hpp"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "workbench/nets/netbuilder.hpp"
#include "workbench/nets/pnmlorigin.hpp"
#include "workbench/nets/pnmlparts.hpp"
#include "workbench/nets/xmldocument.hpp"

namespace tpn {

namespace {

using Node = pugi::xml_node;

class PnmlReader {
 public:
  PnmlReader(const XmlDocument& document, NetReport& report, const Checkpoint& checkpoint)
      : document_(document), report_(report), checkpoint_(checkpoint), builder_(report) {}

  PetriNet read() {
    const Node net = theNet();
    if (!net || !isTaken(net)) return {};
    builder_.net().name = nameIn(net);
    collect(net);
    addPlaces();
    addTransitions();
    for (const Node& arc : arcs_) addArc(arc);
    for (const Node& tool : tools_) addUnits(tool);
    PetriNet made = builder_.finished(checkpoint_);
    if (!report_.refused()) readPnmlOrigin(document_, places_, tools_, made, report_, checkpoint_);
    return made;
  }

 private:
  struct Known {
    bool isPlace = false;
    std::size_t index = 0;
  };

  Place at(const Node& node) const { return document_.placeOf(node); }
  void refuse(NetRule rule, const Node& node, const std::string& why) {
    report_.refuse(rule, at(node), why);
  }

  // Of the element that comes next, whatever is done with it.
  void passed() { checkpoint_.at(passed_++); }

  static std::string nameIn(const Node& node) { return textIn(childOf(node, "name")); }

  Node theNet() {
    Node found;
    const Node root = document_.root();
    if (!root) return found;
    if (localName(root) != "pnml") refuse(NetRule::pnmlElement, root, "<pnml> is expected here");
    for (const Node& child : root.children()) {
      if (child.type() != pugi::node_element) continue;
      if (localName(child) != "net" || found)
        refuse(NetRule::pnmlElement, child, "one <net> is expected here and nothing else");
      else
        found = child;
    }
    if (!found) refuse(NetRule::pnmlMissing, root, "there is no <net> in it");
    return found;
  }

  bool isTaken(const Node& net) {
    const std::string_view type = net.attribute("type").value();
    for (const std::string_view known : {"ptnet", "/tina/tpn", "/tina/pn"})
      if (type.ends_with(known)) return true;
    refuse(NetRule::netType, net,
           "nets of the type " + inQuotes(type) +
               " are not taken, only place/transition nets without colours: ptnet, tina/tpn");
    return false;
  }

  // What stands on the net's pages, in the order of the document.
  void collect(const Node& net) {
    for (Node node = net.first_child(); node;) {
      passed();
      const bool isPage = node.type() == pugi::node_element && localName(node) == "page";
      if (!isPage) sort(node);
      if (isPage && node.first_child()) {
        node = node.first_child();
        continue;
      }
      while (!node.next_sibling() && node.parent() != net) node = node.parent();
      node = node.next_sibling();
    }
  }

  void sort(const Node& node) {
    if (node.type() != pugi::node_element) return;
    const std::string_view name = localName(node);
    if (name == "place") return places_.push_back(node);
    if (name == "transition") return transitions_.push_back(node);
    if (name == "arc") return arcs_.push_back(node);
    if (name == "toolspecific") return tools_.push_back(node);
    if (name == "name" || name == "graphics") return;
    if (name == "referencePlace" || name == "referenceTransition")
      return refuse(NetRule::pnmlReference, node,
                    "references between pages are not taken; put the net on one page");
    if (name == "declaration")
      return refuse(NetRule::netType, node, "declarations of colours; only nets without are taken");
    refuse(NetRule::pnmlElement, node, unknownElement(node));
  }

  // Their names, or their ids where these are not distinct.
  std::vector<std::string> called(const std::vector<Node>& nodes) {
    std::vector<std::string> names;
    std::unordered_set<std::string> distinct;
    for (const Node& node : nodes) {
      passed();
      names.push_back(nameIn(node));
      if (!names.back().empty()) distinct.insert(names.back());
    }
    if (distinct.size() < nodes.size())
      std::transform(nodes.begin(), nodes.end(), names.begin(), idOf);
    return names;
  }

  static std::string idOf(const Node& node) { return node.attribute("id").value(); }

  void remember(const Node& node, const Known& known) {
    const std::string id = idOf(node);
    if (id.empty() || !isOneLine(id))
      refuse(NetRule::pnmlMissing, node, "an attribute id is missing here, or is no line");
    else if (!known_.emplace(id, known).second)
      refuse(NetRule::declaredTwice, node, "the id " + inQuotes(id) + " is taken already");
  }

  void addPlaces() {
    const std::vector<std::string> names = called(places_);
    for (std::size_t i = 0; i < names.size(); ++i) {
      passed();
      const std::size_t place = builder_.place(names[i], at(places_[i]));
      remember(places_[i], {true, place});
      for (const Node& part : places_[i].children()) addToPlace(place, part);
    }
  }

  void addToPlace(std::size_t place, const Node& part) {
    const std::string_view name = localName(part);
    if (part.type() != pugi::node_element || isDecoration(part)) return;
    if (name == "label") {
      builder_.label(builder_.net().places[place].label, textIn(part), at(part));
    } else if (name == "initialMarking") {
      if (const auto count = parts_.number(part)) builder_.tokens(place, *count, at(part));
    } else {
      refuse(NetRule::pnmlElement, part, unknownElement(part));
    }
  }

  void addTransitions() {
    const std::vector<std::string> names = called(transitions_);
    for (std::size_t i = 0; i < names.size(); ++i) {
      passed();
      const std::size_t t = builder_.transition(names[i], at(transitions_[i]));
      remember(transitions_[i], {false, t});
      for (const Node& part : transitions_[i].children()) addToTransition(t, part);
    }
  }

  void addToTransition(std::size_t t, const Node& part) {
    const std::string_view name = localName(part);
    if (part.type() != pugi::node_element || isDecoration(part)) return;
    if (name == "label") {
      builder_.label(builder_.net().transitions[t].label, textIn(part), at(part));
    } else if (name == "delay") {
      if (const auto interval = parts_.interval(part)) builder_.interval(t, *interval, at(part));
    } else if (name == "priority") {
      refuse(NetRule::priority, part, "priorities: a network has none");
    } else {
      refuse(NetRule::pnmlElement, part, unknownElement(part));
    }
  }

  void addArc(const Node& arc) {
    passed();
    const auto source = known_.find(arc.attribute("source").value());
    const auto target = known_.find(arc.attribute("target").value());
    if (source == known_.end() || target == known_.end())
      return refuse(NetRule::pnmlArc, arc,
                    std::string("the arc's ") + (source == known_.end() ? "source" : "target") +
                        " is no place and no transition of the net");
    const bool consumes = source->second.isPlace;
    if (consumes == target->second.isPlace)
      return refuse(NetRule::pnmlArc, arc, "an arc joins a place and a transition");
    const auto kind = parts_.arcKind(arc, consumes);
    const auto weight = parts_.weight(arc);
    if (!kind || !weight) return;
    const std::size_t place = consumes ? source->second.index : target->second.index;
    const std::size_t transition = consumes ? target->second.index : source->second.index;
    builder_.arc(*kind, transition, place, *weight, at(arc));
  }

  // Of nested-unit nets. What they claim is not taken for granted.
  void addUnits(const Node& tool) {
    if (std::string_view(tool.attribute("tool").value()) != "nupn") return;
    for (const Node& unit : childOf(tool, "structure").children())
      if (localName(unit) == "unit") addUnit(unit);
  }

  void addUnit(const Node& unit) {
    PetriNet::Unit made{unit.attribute("id").value(), {}};
    const Node places = childOf(unit, "places");
    const std::string ids = XmlDocument::textOf(places);
    for (const Word& id : words({ids, 0, true})) {
      passed();
      const auto found = known_.find(std::string(id.text));
      if (found == known_.end() || !found->second.isPlace)
        return refuse(NetRule::pnmlUnit, places, inQuotes(id.text) + " is no place of the net");
      if (!inUnits_.insert(found->second.index).second)
        return refuse(NetRule::pnmlUnit, places, inQuotes(id.text) + " is in two units");
      made.places.push_back(found->second.index);
    }
    std::sort(made.places.begin(), made.places.end());
    if (!made.places.empty()) builder_.net().units.push_back(std::move(made));
  }

  const XmlDocument& document_;
  NetReport& report_;
  const Checkpoint& checkpoint_;
  std::size_t passed_ = 0;
  PnmlParts parts_{document_, report_};
  NetBuilder builder_;
  std::vector<Node> places_;
  std::vector<Node> transitions_;
  std::vector<Node> arcs_;
  std::vector<Node> tools_;
  std::unordered_map<std::string, Known> known_;  // by id
  std::unordered_set<std::size_t> inUnits_;
};

}  // namespace

std::optional<PetriNet> readPnml(const std::string& file, std::string_view text,
                                 Diagnostics& diagnostics, const Checkpoint& checkpoint) {
  NetReport report(file, diagnostics);
  const XmlDocument document(text, report);
  checkpoint();
  PetriNet net = PnmlReader(document, report, checkpoint).read();
  if (report.refused()) return std::nullopt;
  return net;
}

}  // namespace tpn

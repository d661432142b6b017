#include "workbench/nets/pnmlorigin.hpp"

#include <array>
#include <utility>

namespace tpn {

namespace {

using Node = pugi::xml_node;

constexpr std::string_view toolOpening = R"(<toolspecific tool="zervan" version="1">)";
constexpr std::string_view toolClosing = "</toolspecific>\n";

constexpr std::array<std::pair<std::string_view, NameLine::Kind>, 4> kinds{
    {{"process", NameLine::process},
     {"location", NameLine::location},
     {"transition", NameLine::transition},
     {"proposition", NameLine::proposition}}};

bool isOurs(const Node& tool) {
  return localName(tool) == "toolspecific" &&
         std::string_view(tool.attribute("tool").value()) == "zervan";
}

class OriginReader {
 public:
  OriginReader(const XmlDocument& document, PetriNet& net, NetReport& report)
      : document_(document), net_(net), report_(report) {
    net_.origin.emplace().spots.resize(net_.places.size());
  }

  void takeNetwork(const Node& network, const Checkpoint& checkpoint) {
    if (const pugi::xml_attribute title = network.attribute("title")) net_.name = title.value();
    if (net_.name.find('\n') != std::string::npos) refuse(network, "a title is one line");
    std::size_t round = 0;
    for (const Node& part : network.children()) {
      checkpoint.at(round++);
      if (part.type() == pugi::node_element) takeName(part);
    }
  }

  void takePlace(std::size_t place, const Node& element) {
    for (const Node& tool : element.children())
      if (isOurs(tool))
        if (const Node location = childOf(tool, "location")) takeSpot(place, location);
  }

 private:
  void takeSpot(std::size_t place, const Node& location) {
    PetriNet::Spot& spot = net_.origin->spots[place];
    spot.at = document_.placeOf(location);
    spot.process = number(location, "process", 1);
    spot.location = number(location, "number", 0);
    const std::string propositions = location.attribute("propositions").value();
    for (const Word& word : words({propositions, 0, true}))
      spot.propositions.insert(wordValue(word.text, location, 0));
  }

  void takeName(const Node& part) {
    for (const auto& [word, kind] : kinds)
      if (localName(part) == word) return takeName(part, kind);
    refuse(part, "<" + std::string(localName(part)) + "> has no name here");
  }

  void takeName(const Node& part, NameLine::Kind kind) {
    NameLine line;
    line.kind = kind;
    const bool isLocation = kind == NameLine::location;
    line.number = number(part, isLocation ? "process" : "number", 0);
    if (isLocation) line.inner = number(part, "number", 0);
    line.name = part.attribute("name").value();
    line.at = line.nameAt = document_.placeOf(part);
    if (line.name.empty() || line.name.find('\n') != std::string::npos)
      return refuse(part, "a name is a line that is not empty");
    net_.origin->names.push_back(std::move(line));
  }

  int number(const Node& node, const char* attribute, int least) {
    return wordValue(node.attribute(attribute).value(), node, least);
  }

  int wordValue(std::string_view word, const Node& node, int least) {
    const auto found = isNumber(word) ? value(word) : std::nullopt;
    if (found && *found >= least) return *found;
    refuse(node, inQuotes(word) + " is none of the numbers that are expected here");
    return least;
  }

  void refuse(const Node& node, const std::string& why) {
    report_.refuse(NetRule::processLine, document_.placeOf(node), why);
  }

  const XmlDocument& document_;
  PetriNet& net_;
  NetReport& report_;
};

std::string attribute(const char* name, const std::string& value) {
  return std::string(" ") + name + "=\"" + xmlEscaped(value) + "\"";
}

std::string nameElement(const NameLine& line) {
  const std::string number = std::to_string(line.number);
  const std::string name = attribute("name", line.name) + "/>\n";
  if (line.kind == NameLine::location)
    return "<location" + attribute("process", number) +
           attribute("number", std::to_string(line.inner)) + name;
  for (const auto& [word, kind] : kinds)
    if (kind == line.kind) return "<" + std::string(word) + attribute("number", number) + name;
  return "";
}

}  // namespace

void readPnmlOrigin(const XmlDocument& document, const std::vector<Node>& places,
                    const std::vector<Node>& tools, PetriNet& net, NetReport& report,
                    const Checkpoint& checkpoint) {
  for (const Node& tool : tools) {
    const Node network = isOurs(tool) ? childOf(tool, "network") : Node{};
    if (!network) continue;
    OriginReader reader(document, net, report);
    reader.takeNetwork(network, checkpoint);
    for (std::size_t p = 0; p < places.size(); ++p) {
      checkpoint.at(p);
      reader.takePlace(p, places[p]);
    }
  }
}

std::string xmlEscaped(const std::string& text) {
  std::string written;
  for (const char c : text) {
    if (c == '&')
      written += "&amp;";
    else if (c == '<')
      written += "&lt;";
    else if (c == '>')
      written += "&gt;";
    else if (c == '"')
      written += "&quot;";
    else if (c == '\t')
      written += "&#9;";
    else
      written += c;
  }
  return written;
}

std::string pnmlSpot(const PetriNet::Spot& spot) {
  std::string text = std::string(toolOpening) + "<location" +
                     attribute("process", std::to_string(spot.process)) +
                     attribute("number", std::to_string(spot.location));
  std::string propositions;
  for (const int q : spot.propositions)
    propositions += (propositions.empty() ? "" : " ") + std::to_string(q);
  if (!propositions.empty()) text += attribute("propositions", propositions);
  return text + "/>" + std::string(toolClosing);
}

std::string pnmlNetwork(const PetriNet& net) {
  std::string text = std::string(toolOpening) + "<network" + attribute("title", net.name) + ">\n";
  for (const NameLine& line : net.origin->names) text += nameElement(line);
  return text + "</network>" + std::string(toolClosing);
}

}  // namespace tpn

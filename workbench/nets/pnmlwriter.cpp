#include "workbench/nets/pnmlwriter.hpp"

#include <algorithm>

#include "workbench/base/printable.hpp"
#include "workbench/nets/bridge.hpp"
#include "workbench/nets/pnmlorigin.hpp"

namespace tpn {

namespace {

constexpr const char* head =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<pnml xmlns=\"http://www.pnml.org/version-2009/grammar/pnml\">\n"
    "<net id=\"net\" type=\"http://www.laas.fr/tina/tpn\">\n";
constexpr const char* mathMl = "http://www.w3.org/1998/Math/MathML";

const std::string& inXml(const std::string& name) {
  std::string plain = name;
  std::replace(plain.begin(), plain.end(), '\t', ' ');
  if (printable(plain) == plain) return name;
  throw Inexact("the name " + inQuotes(name) + " holds what XML cannot say");
}

const std::string& trimmed(const std::string& name) {
  const bool bare = !name.empty() && name.front() != ' ' && name.back() != ' ' &&
                    name.front() != '\t' && name.back() != '\t';
  if (bare || name.empty()) return name;
  throw Inexact("the name " + inQuotes(name) +
                " begins or ends with a blank, which PNML passes over");
}

std::string textElement(const char* tag, const std::string& text) {
  return std::string("<") + tag + "><text>" + xmlEscaped(inXml(text)) + "</text></" + tag + ">";
}

std::string id(char kind, std::size_t index) { return kind + std::to_string(index + 1); }

std::string opened(const char* tag, char kind, std::size_t index, const std::string& name,
                   const std::string& label) {
  return std::string("<") + tag + " id=\"" + id(kind, index) + "\">" +
         textElement("name", trimmed(name)) +
         (label.empty() ? "" : textElement("label", trimmed(label)));
}

std::string delay(const Interval& interval) {
  if (interval == Interval{}) return "";
  const auto number = [](std::int64_t n) { return "<cn>" + std::to_string(n) + "</cn>"; };
  return std::string("<delay><interval xmlns=\"") + mathMl + "\" closure=\"" +
         (interval.latest ? "closed" : "closed-open") + "\">" + number(interval.earliest) +
         (interval.latest ? number(*interval.latest) : "<ci>infty</ci>") + "</interval></delay>";
}

class Writer {
 public:
  explicit Writer(const PetriNet& net) : net_(net) {}

  std::string written() {
    text_ = head;
    // A title with blanks around it is told exactly further down.
    if (!net_.name.empty()) text_ += textElement("name", net_.name) + "\n";
    if (!net_.origin) trimmed(net_.name);
    text_ += "<page id=\"page\">\n";
    for (std::size_t p = 0; p < net_.places.size(); ++p) addPlace(p);
    for (std::size_t t = 0; t < net_.transitions.size(); ++t) addTransition(t);
    for (std::size_t t = 0; t < net_.transitions.size(); ++t) addArcs(t);
    text_ += "</page>\n";
    if (net_.origin) addOrigin();
    if (!net_.units.empty()) addUnits();
    return text_ + "</net>\n</pnml>\n";
  }

 private:
  void addPlace(std::size_t p) {
    const PetriNet::Place& place = net_.places[p];
    text_ += opened("place", 'p', p, place.name, place.label);
    if (place.marked) text_ += textElement("initialMarking", "1");
    if (net_.origin && net_.origin->spots[p].process > 0) text_ += pnmlSpot(net_.origin->spots[p]);
    text_ += "</place>\n";
  }

  void addTransition(std::size_t t) {
    const PetriNet::Transition& transition = net_.transitions[t];
    text_ += opened("transition", 't', t, transition.name, transition.label) +
             delay(transition.interval) + "</transition>\n";
  }

  void addArcs(std::size_t t) {
    const PetriNet::Transition& transition = net_.transitions[t];
    for (const std::size_t p : transition.consumed) addArc(id('p', p), id('t', t), "/>\n");
    for (const std::size_t p : transition.read)
      addArc(id('p', p), id('t', t), "><type value=\"test\"/></arc>\n");
    for (const std::size_t p : transition.produced) addArc(id('t', t), id('p', p), "/>\n");
  }

  void addArc(const std::string& source, const std::string& target, const char* end) {
    text_ += "<arc id=\"" + id('a', arcs_++) + "\" source=\"" + source + "\" target=\"" + target +
             "\"" + end;
  }

  void addOrigin() {
    for (const NameLine& line : net_.origin->names) inXml(line.name);
    text_ += pnmlNetwork(net_);
  }

  // All below one root, which claims nothing.
  void addUnits() {
    text_ += "<toolspecific tool=\"nupn\" version=\"1.1\"><structure root=\"" +
             xmlEscaped(inXml(net_.units.front().name)) + "\" units=\"" +
             std::to_string(net_.units.size()) + "\" safe=\"false\">\n";
    for (const PetriNet::Unit& unit : net_.units) addUnit(unit);
    text_ += "</structure></toolspecific>\n";
  }

  void addUnit(const PetriNet::Unit& unit) {
    text_ += "<unit id=\"" + xmlEscaped(inXml(unit.name)) + "\"><places>";
    for (const std::size_t p : unit.places) text_ += (p == unit.places[0] ? "" : " ") + id('p', p);
    text_ += "</places><subunits/></unit>\n";
  }

  const PetriNet& net_;
  std::string text_;
  std::size_t arcs_ = 0;
};

}  // namespace

std::string pnmlFile(const PetriNet& net) { return Writer(net).written(); }

}  // namespace tpn

#include "workbench/nets/tinawriter.hpp"

#include <cassert>

#include "workbench/nets/tinacomments.hpp"
#include "workbench/nets/tinalexer.hpp"

namespace tpn {

namespace {

std::string written(const std::string& name) {
  assert(!name.empty() && name.find('\n') == std::string::npos);
  return tinaName(name);
}

std::string labelled(const std::string& name, const std::string& label) {
  return written(name) + (label.empty() ? "" : " : " + written(label));
}

std::string intervalText(const Interval& interval) {
  const std::string earliest = "[" + std::to_string(interval.earliest) + ",";
  return earliest + (interval.latest ? std::to_string(*interval.latest) + "]" : "w[");
}

std::string transitionLine(const PetriNet& net, const PetriNet::Transition& t) {
  std::string line = "tr " + labelled(t.name, t.label) + " " + intervalText(t.interval);
  for (const std::size_t p : t.consumed) line += " " + written(net.places[p].name);
  for (const std::size_t p : t.read) line += " " + written(net.places[p].name) + "?1";
  line += " ->";
  for (const std::size_t p : t.produced) line += " " + written(net.places[p].name);
  return line + "\n";
}

}  // namespace

// All places first: their order is that of their first appearance.
std::string tinaFile(const PetriNet& net) {
  std::string file = tinaComments(net);
  if (!net.name.empty()) file += "net " + written(net.name) + "\n";
  for (const PetriNet::Place& p : net.places)
    file += "pl " + labelled(p.name, p.label) + (p.marked ? " (1)" : "") + "\n";
  for (const PetriNet::Transition& t : net.transitions) file += transitionLine(net, t);
  return file;
}

}  // namespace tpn

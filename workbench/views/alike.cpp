#include "workbench/views/alike.hpp"

#include <algorithm>
#include <map>
#include <string>

#include "workbench/network/shown.hpp"
#include "workbench/views/patterns.hpp"
#include "workbench/views/viewparts.hpp"

namespace tpn {

namespace {

// No printable text holds it.
constexpr char separator = '\n';

// Numbers that stand for a name differ between processes; locations have numbers of their own.
std::string shapeOfLocation(const Network& net, std::size_t process, int location) {
  std::string shape = std::to_string(location) + " ";
  if (net.names.locations.contains({process, location}))
    shape += skeleton(shownLocation(net, process, location));
  std::vector<std::string> labels;
  for (const int q : labelsAt(net.processes[process], location))
    labels.push_back(skeleton(shownProposition(net, q)));
  std::sort(labels.begin(), labels.end());
  for (const std::string& label : labels) shape += " " + label;
  return shape;
}

std::string shapeOfMove(const Network& net, const Part& part) {
  const Transition& t = net.transitions[part.transition];
  std::string shape = std::to_string(part.source) + ">" + std::to_string(part.target) +
                      (part.counts ? "" : "+") + (part.resets ? "" : "?") + text(t.interval);
  shape += std::to_string(t.moves.size()) + " " + skeleton(shownTransition(net, part.transition));
  return shape;
}

std::string shapeOf(const Network& net, std::size_t process, const Parts& parts) {
  std::string shape;
  for (const int location : net.processes[process].locations)
    shape += shapeOfLocation(net, process, location) + separator;
  std::vector<std::string> moves;
  for (const Part& part : parts) moves.push_back(shapeOfMove(net, part));
  std::sort(moves.begin(), moves.end());
  for (const std::string& move : moves) shape += move + separator;
  return shape;
}

}  // namespace

std::vector<std::size_t> kindsOfProcesses(const Network& net) {
  const std::vector<Parts> parts = partsByProcess(net);
  std::map<std::string, std::size_t> kinds;
  std::vector<std::size_t> result;
  for (std::size_t p = 0; p < parts.size(); ++p)
    result.push_back(kinds.try_emplace(shapeOf(net, p, parts[p]), kinds.size()).first->second);
  return result;
}

}  // namespace tpn

// A network for reading: sizes, what the encoding makes of them, then process by process.

#include <algorithm>
#include <map>

#include "workbench/base/printable.hpp"
#include "workbench/base/textwidth.hpp"
#include "workbench/encoding/statelength.hpp"
#include "workbench/network/shown.hpp"
#include "workbench/views/viewparts.hpp"
#include "workbench/views/views.hpp"

namespace tpn {

namespace {

std::string counted(std::size_t count, const std::string& thing) {
  return std::to_string(count) + " " + thing + (count == 1 ? "" : thing == "process" ? "es" : "s");
}

std::string sizesText(const Network& net) {
  std::size_t shared = 0;
  for (const Transition& t : net.transitions) shared += isShared(t) ? 1 : 0;
  std::size_t locations = 0;
  for (const Process& process : net.processes) locations += process.locations.size();
  return counted(net.processes.size(), "process") + ", " + counted(locations, "location") + ", " +
         counted(net.transitions.size(), "transition") + " (" + std::to_string(shared) +
         " shared), " + counted(propositions(net).size(), "proposition") + "\n";
}

std::string boundText(const std::optional<std::int64_t>& bound) {
  return bound ? "k = " + std::to_string(*bound) : "none";
}

std::string encodingText(const Network& net) {
  const StateLength length = stateLength(net);
  const auto bits = [](int count) {
    return std::to_string(count) + (count == 1 ? " bit" : " bits");
  };
  return "state: " + std::to_string(length.variables) + " variables (locations " +
         bits(length.locationBits) + "; clocks " + std::to_string(length.integerBits) + " + " +
         bits(length.fractionBits) + ")\n" +
         "largest bound: " + boundText(largestBound(length, mostVariables)) + " with " +
         std::to_string(mostVariables) + " variables; " +
         boundText(largestBound(length, mostUnfolded)) + " before numbers fold (above " +
         std::to_string(mostUnfolded) + ")\n";
}

// The columns of a process's transitions.
struct Widths {
  std::size_t name = 0;
  std::size_t interval = 0;
  std::size_t target = 0;
};

// Of a transition, behind its number.
std::string nameOf(const Network& net, std::size_t transition) {
  return andName(std::to_string(number(transition)), shownTransition(net, transition));
}

Widths widthsOf(const Network& net, std::size_t process, const Parts& parts) {
  Widths widest;
  for (const Part& part : parts) {
    widest.name = std::max(widest.name, displayedWidth(nameOf(net, part.transition)));
    const std::string interval = text(net.transitions[part.transition].interval);
    widest.interval = std::max(widest.interval, interval.size());
    widest.target =
        std::max(widest.target, displayedWidth(shownLocation(net, process, part.target)));
  }
  return widest;
}

// One line a transition: number, name, interval, where it leads, with whom; aligned but for that.
std::string moveText(const Network& net, std::size_t process, const Part& part,
                     const Widths& widths) {
  const Transition& t = net.transitions[part.transition];
  const std::string interval = text(t.interval);
  const std::size_t digits = std::to_string(net.transitions.size()).size();
  const std::string name = nameOf(net, part.transition);
  const std::string target = shownLocation(net, process, part.target);
  const bool isNumber = !net.names.locations.contains({process, part.target});
  std::string line = "    " + rightPadded(std::to_string(number(part.transition)), digits) +
                     padded(name, widths.name) + "  " + padded(interval, widths.interval) +
                     "  -> " + (isNumber ? rightPadded(target, widths.target) : target);
  if (!part.resets) line += ", only read";
  if (!part.counts) line += ", a token put down";
  const bool plain = part.resets && part.counts;
  if (isShared(t))
    line += (isNumber || !plain ? "" : padded("", widths.target - displayedWidth(target))) +
            "  with " + partners(net, t, process, 16);
  return line + "\n";
}

std::string processText(const Network& net, std::size_t index, const Parts& parts) {
  const Process& process = net.processes[index];
  const std::string which = std::to_string(number(index));
  std::string lines = "\nprocess " + which + andName(which, shownProcess(net, index)) + ": " +
                      counted(process.locations.size(), "location") + ", " +
                      counted(parts.size(), "transition") + "\n";
  const Widths widths = widthsOf(net, index, parts);
  std::map<int, std::string> moves;  // by source
  for (const Part& part : parts) moves[part.source] += moveText(net, index, part, widths);
  for (const int location : process.locations) {
    const std::string where = std::to_string(location);
    lines += "  location " + where + andName(where, shownLocation(net, index, location)) +
             (location == 0 ? ", initial" : "");
    const std::set<int>& labels = labelsAt(process, location);
    if (!labels.empty()) lines += ": " + joined(propositionNames(net, labels), " ");
    lines += "\n" + moves[location];
  }
  return lines;
}

}  // namespace

std::string networkText(const Network& net, const Look& /*look*/) {
  std::string result = printable(net.title) + "\n" + sizesText(net) + encodingText(net);
  const std::vector<Parts> parts = partsByProcess(net);
  for (std::size_t p = 0; p < parts.size(); ++p) result += processText(net, p, parts[p]);
  return result;
}

}  // namespace tpn

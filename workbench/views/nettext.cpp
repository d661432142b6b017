// A network for reading: sizes, what the encoding makes of them, then process by process.

#include <algorithm>

#include "workbench/base/printable.hpp"
#include "workbench/encoding/statelength.hpp"
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

// One line a transition: number, interval, where it leads, with whom; the first two aligned.
std::string movesText(const Network& net, std::size_t process, const std::vector<Part>& parts,
                      int source) {
  std::size_t widest = 0;
  std::size_t widestTarget = 0;
  for (const Part& part : parts) {
    widest = std::max(widest, text(net.transitions[part.transition].interval).size());
    widestTarget = std::max(widestTarget, std::to_string(part.target).size());
  }
  const std::size_t digits = std::to_string(net.transitions.size()).size();
  const auto padded = [](const std::string& word, std::size_t width) {
    return std::string(width - word.size(), ' ') + word;
  };
  std::string lines;
  for (const Part& part : parts) {
    if (part.source != source) continue;
    const Transition& t = net.transitions[part.transition];
    lines += "    " + padded(std::to_string(number(part.transition)), digits) + "  " +
             text(t.interval) + padded("", widest - text(t.interval).size()) + "  -> " +
             padded(std::to_string(part.target), widestTarget);
    if (isShared(t)) lines += "  with " + shortened(partners(t, process), ", ", 16);
    lines += "\n";
  }
  return lines;
}

std::string processText(const Network& net, std::size_t index) {
  const Process& process = net.processes[index];
  const std::vector<Part> parts = partsOf(net, index);
  std::string lines = "\nprocess " + std::to_string(number(index)) + ": " +
                      counted(process.locations.size(), "location") + ", " +
                      counted(parts.size(), "transition") + "\n";
  for (const int location : process.locations) {
    lines += "  location " + std::to_string(location) + (location == 0 ? ", initial" : "");
    const std::set<int>& labels = labelsAt(process, location);
    if (!labels.empty()) lines += ": " + joined(propositionNames(labels), " ");
    lines += "\n" + movesText(net, index, parts, location);
  }
  return lines;
}

}  // namespace

std::string networkText(const Network& net) {
  std::string result = printable(net.title) + "\n" + sizesText(net) + encodingText(net);
  for (std::size_t p = 0; p < net.processes.size(); ++p) result += processText(net, p);
  return result;
}

}  // namespace tpn

#include "workbench/network/writer.hpp"

#include <algorithm>
#include <cassert>
#include <cstdint>
#include <vector>

#include "workbench/network/namelines.hpp"

namespace tpn {

namespace {

// The lines of every process's moves, and the locations that they mention.
struct Moves {
  std::string lines;
  std::set<int> locations{0};
};

std::string line(std::int64_t a, std::int64_t b, std::int64_t c) {
  return std::to_string(a) + " " + std::to_string(b) + " " + std::to_string(c) + "\n";
}

std::vector<Moves> movesOf(const Network& net) {
  std::vector<Moves> processes(net.processes.size());
  for (std::size_t t = 0; t < net.transitions.size(); ++t) {
    const std::vector<Move>& moves = net.transitions[t].moves;
    assert(!moves.empty());
    const auto later = [](const Move& a, const Move& b) { return a.process >= b.process; };
    assert(std::adjacent_find(moves.begin(), moves.end(), later) == moves.end());
    for (const Move& move : moves) {
      Moves& process = processes.at(move.process);
      process.lines += line(number(t), move.source, move.target);
      process.locations.insert({move.source, move.target});
    }
  }
  return processes;
}

std::string labelLines(const Process& process) {
  std::string lines;
  for (const auto& [location, propositions] : process.labels) {
    assert(!propositions.empty() && process.locations.contains(location));
    lines += std::to_string(location);
    for (const int q : propositions) lines += " " + std::to_string(q);
    lines += "\n";
  }
  return lines;
}

bool isTitle(const std::string& text) {
  return !text.empty() && text.back() != '\r' && text.find('\n') == std::string::npos;
}

// The section, or nothing where nothing has a name.
std::string namesSection(const Names& names) {
  if (names == Names{}) return "";
  std::string lines = "names\n";
  for (const NameLine& name : nameLines(names)) {
    assert(!name.name.empty() && name.name.find('\n') == std::string::npos);
    lines += nameLineText(name) + "\n";
  }
  return lines;
}

}  // namespace

std::string networkFile(const Network& net) {
  requirePlainMoves(net, "a network file");
  assert(isTitle(net.title));
  std::string file = net.title + "\ntransitions\n";
  for (std::size_t t = 0; t < net.transitions.size(); ++t) {
    const auto& [earliest, latest] = net.transitions[t].interval;
    file += line(number(t), earliest, latest.value_or(-1));
  }
  file += "endtran\n";
  const std::vector<Moves> moves = movesOf(net);
  for (std::size_t p = 0; p < moves.size(); ++p) {
    assert(moves[p].locations == net.processes[p].locations);
    file += "process\n" + moves[p].lines + "valuation\n" + labelLines(net.processes[p]) +
            "endval\nend\n";
  }
  return file + "end\n" + namesSection(net.names);
}

}  // namespace tpn

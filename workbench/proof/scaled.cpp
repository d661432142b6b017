#include "workbench/proof/scaled.hpp"

#include <algorithm>

#include "workbench/proof/statement.hpp"

namespace tpn {

Network inUnits(const Network& net) {
  const std::int64_t unit = unitOfTime(net);
  Network scaled = net;
  for (Transition& t : scaled.transitions) {
    t.interval.earliest /= unit;
    if (t.interval.latest) *t.interval.latest /= unit;
  }
  return scaled;
}

std::vector<std::map<int, std::int64_t>> clockCaps(const Network& net) {
  std::vector<std::map<int, std::int64_t>> caps(net.processes.size());
  for (std::size_t p = 0; p < caps.size(); ++p)
    for (const int location : net.processes[p].locations) caps[p][location] = 0;
  for (const Transition& t : net.transitions)
    for (const Move& move : t.moves) {
      if (!move.counts) continue;
      std::int64_t& cap = caps[move.process][move.source];
      cap = std::max({cap, t.interval.earliest, t.interval.latest.value_or(0)});
    }
  return caps;
}

}  // namespace tpn

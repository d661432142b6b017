#include "workbench/network/network.hpp"

#include <algorithm>
#include <cassert>

namespace tpn {

Locations initialLocations(const Network& net) { return Locations(net.processes.size(), 0); }

std::int64_t largestLatest(const Network& net) {
  std::int64_t largest = 0;
  for (const Transition& t : net.transitions)
    largest = std::max(largest, t.interval.latest.value_or(0));
  return largest;
}

std::int64_t largestConstant(const Network& net) {
  std::int64_t largest = largestLatest(net);
  for (const Transition& t : net.transitions) largest = std::max(largest, t.interval.earliest);
  return largest;
}

const Move* unmetPrecondition(const Transition& t, const Locations& at) {
  for (const Move& move : t.moves)
    if (at[move.process] != move.source) return &move;
  return nullptr;
}

bool enabled(const Transition& t, const Locations& at) {
  return unmetPrecondition(t, at) == nullptr;
}

std::set<int> propositionsAt(const Network& net, const Locations& at) {
  assert(at.size() == net.processes.size());
  std::set<int> held;
  for (std::size_t p = 0; p < at.size(); ++p) {
    const auto label = net.processes[p].labels.find(at[p]);
    if (label != net.processes[p].labels.end())
      held.insert(label->second.begin(), label->second.end());
  }
  return held;
}

std::set<int> propositions(const Network& net) {
  std::set<int> all;
  for (const Process& process : net.processes)
    for (const auto& [location, labels] : process.labels) all.insert(labels.begin(), labels.end());
  return all;
}

}  // namespace tpn

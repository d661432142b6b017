#include "workbench/runs/deadend.hpp"

namespace tpn {

bool isDeadEnd(const Network& net, const TimedState& state) {
  for (std::size_t t = 0; t < net.transitions.size(); ++t)
    if (window(net, state, t)) return false;
  return true;
}

bool holds(const Network& net, const Property& property, const TimedState& state) {
  const std::set<int> propositions = propositionsAt(net, state.locations);
  const bool deadlock = asksDeadlock(property) && isDeadEnd(net, state);
  return holds(property, StateFacts{propositions, state.locations, deadlock});
}

}  // namespace tpn

#include "workbench/runs/deadend.hpp"

namespace tpn {

bool isDeadEnd(const Network& net, const TimedState& state) {
  for (std::size_t t = 0; t < net.transitions.size(); ++t)
    if (window(net, state, t)) return false;
  return true;
}

Replay replayToDeadEnd(const Network& net, const Run& run) {
  const Property anything{"", {{PropertyItem::truth, 0}}, 1};
  Replay result = replay(net, anything, run);
  if (result.complaint.empty() && !isDeadEnd(net, result.states[run.goal]))
    result.complaint = "a transition can still fire after " + std::to_string(run.goal) + " steps";
  return result;
}

}  // namespace tpn

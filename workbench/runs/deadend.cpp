#include "workbench/runs/deadend.hpp"

namespace tpn {

bool isDeadEnd(const Network& net, const TimedState& state) {
  for (std::size_t t = 0; t < net.transitions.size(); ++t)
    if (windowOfCounting(net, state, t)) return false;
  return true;
}

std::optional<Collision> collision(const Network& net, const TimedState& state) {
  for (std::size_t t = 0; t < net.transitions.size(); ++t) {
    const Transition& transition = net.transitions[t];
    const Move* const move = unmetPrecondition(transition, state.locations);
    if (move == nullptr || !enabled(transition, state.locations)) continue;
    if (const auto when = windowOfCounting(net, state, t)) return Collision{t, when->from, *move};
  }
  return std::nullopt;
}

bool holds(const Network& net, const Property& property, const TimedState& state) {
  const std::set<int> propositions = propositionsAt(net, state.locations);
  const bool deadlock = asksDeadlock(property) && isDeadEnd(net, state);
  const bool unsafe = asksSafety(property) && collision(net, state);
  return holds(property, StateFacts{propositions, state.locations, deadlock, unsafe});
}

}  // namespace tpn

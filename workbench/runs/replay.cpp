#include "workbench/runs/replay.hpp"

#include <stdexcept>
#include <utility>

#include "workbench/runs/deadend.hpp"

namespace tpn {

namespace {

std::string goalComplaint(const Network& net, const Property& property, const Run& run,
                          const std::vector<TimedState>& states) {
  const std::string when = "after " + std::to_string(run.goal) + " steps";
  if (run.goal >= states.size())
    return "the goal is " + when + ", but the run has only " + std::to_string(run.steps.size());
  if (!holds(net, property, states[run.goal])) return "the property does not hold " + when;
  return "";
}

}  // namespace

std::string extend(const Network& net, const Step& step, Replay& replayed) {
  TimedState state = replayed.states.back();
  std::string complaint = advance(net, step, state);
  if (!complaint.empty()) return complaint;
  try {
    replayed.times.push_back(replayed.times.back() + step.delay);
  } catch (const std::overflow_error& error) {
    return error.what();
  }
  replayed.states.push_back(std::move(state));
  return "";
}

Replay unmoved(const Network& net) { return {{initialState(net)}, {0}, ""}; }

Replay replay(const Network& net, const Property& property, const Run& run) {
  Replay result = unmoved(net);
  for (const Step& step : run.steps) {
    const std::string complaint = extend(net, step, result);
    if (complaint.empty()) continue;
    result.complaint = "step " + std::to_string(result.states.size()) + ": " + complaint;
    return result;
  }
  result.complaint = goalComplaint(net, property, run, result.states);
  return result;
}

}  // namespace tpn

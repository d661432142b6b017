// A run as JSON, docs/run.schema.json. Members keep the order in which a reader wants them.

#include <nlohmann/json.hpp>

#include "workbench/runs/deadend.hpp"
#include "workbench/views/viewparts.hpp"
#include "workbench/views/views.hpp"

namespace tpn {

namespace {

// Exact for those who calculate, a number for those who draw.
Json json(const Rational& r) { return {{"exact", r.text()}, {"value", r.value()}}; }

Json stateJson(const Network& net, const Property& property, const TimedState& state,
               const Rational& time) {
  const std::set<int> holding = propositionsAt(net, state.locations);
  Json clocks = Json::array();
  for (const Rational& clock : state.clocks) clocks.push_back(json(clock));
  return {{"time", json(time)},
          {"locations", state.locations},
          {"clocks", clocks},
          {"propositions", holding},
          {"property", holds(net, property, state)}};
}

Json stepJson(const Network& net, const Step& step, const Rational& time) {
  Json moves = Json::array();
  for (const Move& move : net.transitions[step.transition].moves) moves.push_back(moveJson(move));
  return {{"delay", json(step.delay)},
          {"time", json(time)},
          {"transition", number(step.transition)},
          {"moves", moves}};
}

}  // namespace

Json runJson(const Network& net, const Property& property, const Run& run) {
  const Replay replay = replayed(net, property, run);
  Json states = Json::array();
  for (std::size_t i = 0; i < replay.states.size(); ++i)
    states.push_back(stateJson(net, property, replay.states[i], replay.times[i]));
  Json steps = Json::array();
  for (std::size_t i = 0; i < run.steps.size(); ++i)
    steps.push_back(stepJson(net, run.steps[i], replay.times[i + 1]));

  return {{"format", "tpn-run"},
          {"version", 1},
          {"network",
           {{"title", net.title},
            {"processes", net.processes.size()},
            {"transitions", net.transitions.size()}}},
          {"property", property.text},
          {"goal", run.goal},
          {"states", states},
          {"steps", steps}};
}

}  // namespace tpn

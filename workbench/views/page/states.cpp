#include "workbench/views/page/states.hpp"

#include <map>
#include <nlohmann/json.hpp>

#include "workbench/base/printable.hpp"
#include "workbench/views/rungeometry.hpp"
#include "workbench/views/viewparts.hpp"

namespace tpn {

namespace {

Json processesJson(const Network& net) {
  Json all = Json::array();
  for (std::size_t p = 0; p < net.processes.size(); ++p) {
    Json locations = Json::object();
    for (const int l : net.processes[p].locations)
      locations[std::to_string(l)] = locationTitle(net, p, l);
    all.push_back({{"name", processTitle(net, p)}, {"locations", locations}});
  }
  return all;
}

Json stepJson(const Network& net, const Step& step) {
  const Transition& t = net.transitions[step.transition];
  Json moved = Json::array();
  for (const Move& move : t.moves)
    if (move.resets) moved.push_back(move.process);
  return {{"transition", transitionTitle(net, step.transition)},
          {"number", number(step.transition)},
          {"interval", text(t.interval)},
          {"delay", step.delay.text()},
          {"moved", moved}};
}

Json stateJson(const Network& net, const TimedState& state, const Rational& time) {
  Json clocks = Json::array();
  for (const Rational& clock : state.clocks) clocks.push_back(clock.text());
  return {{"time", time.text()},
          {"at", state.locations},
          {"clocks", clocks},
          {"propositions", propositionNames(net, propositionsAt(net, state.locations))}};
}

template <class Key>
std::string title(const std::map<Key, std::string>& names, const Key& key, const std::string& kind,
                  int number) {
  const auto named = names.find(key);
  return named == names.end() ? kind + " " + std::to_string(number) : printable(named->second);
}

}  // namespace

std::string processTitle(const Network& net, std::size_t process) {
  return title(net.names.processes, process, "process", number(process));
}

std::string locationTitle(const Network& net, std::size_t process, int location) {
  return title(net.names.locations, {process, location}, "location", location);
}

std::string transitionTitle(const Network& net, std::size_t transition) {
  return title(net.names.transitions, transition, "transition", number(transition));
}

Json statesJson(const Network& net, const Property& property, const Run& run, const Replay& replay,
                bool all) {
  const RunGeometry at = geometryOf(net, property, run, replay, all);
  Json states = Json::array();
  for (std::size_t i = 0; i < replay.states.size(); ++i) {
    Json state = stateJson(net, replay.states[i], replay.times[i]);
    state["from"] = at.left(i);
    state["to"] = at.right(i);
    state["step"] = i == 0 ? Json() : stepJson(net, run.steps[i - 1]);
    states.push_back(state);
  }
  return {{"processes", processesJson(net)},
          {"lanes", {{"top", at.lanesTop}, {"bottom", at.lanesBottom}}},
          {"goal", asksNothing(property) ? Json() : Json(run.goal)},
          {"states", states}};
}

}  // namespace tpn

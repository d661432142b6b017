// A run as JSON, docs/run.schema.json. Members keep the order in which a reader wants them.

#include <map>
#include <nlohmann/json.hpp>

#include "workbench/runs/deadend.hpp"
#include "workbench/views/viewparts.hpp"
#include "workbench/views/views.hpp"

namespace tpn {

namespace {

// Exact for those who calculate, a number for those who draw.
Json json(const Rational& r) { return {{"exact", r.text()}, {"value", r.value()}}; }

// Beside a number, where there is one.
template <class Key>
void addName(Json& object, const char* member, const std::map<Key, std::string>& names,
             const Key& key) {
  const auto named = names.find(key);
  if (named != names.end()) object[member] = named->second;
}

Json locationNames(const Network& net, const Locations& at) {
  Json names = Json::array();
  for (std::size_t p = 0; p < at.size(); ++p) {
    const auto named = net.names.locations.find({p, at[p]});
    names.push_back(named == net.names.locations.end() ? Json() : Json(named->second));
  }
  return names;
}

Json propositionNamesJson(const Network& net, const std::set<int>& holding) {
  Json names = Json::array();
  for (const int q : holding) {
    const auto named = net.names.propositions.find(q);
    names.push_back(named == net.names.propositions.end() ? Json() : Json(named->second));
  }
  return names;
}

Json stateJson(const Network& net, const Property& property, const TimedState& state,
               const Rational& time) {
  const std::set<int> holding = propositionsAt(net, state.locations);
  Json clocks = Json::array();
  for (const Rational& clock : state.clocks) clocks.push_back(json(clock));
  Json object{{"time", json(time)}, {"locations", state.locations}};
  if (!net.names.locations.empty()) object["locationNames"] = locationNames(net, state.locations);
  object["clocks"] = clocks;
  object["propositions"] = holding;
  if (!net.names.propositions.empty())
    object["propositionNames"] = propositionNamesJson(net, holding);
  object["property"] = holds(net, property, state);
  return object;
}

Json namedMove(const Network& net, const Move& move) {
  Json object{{"process", number(move.process)}};
  addName(object, "name", net.names.processes, move.process);
  object["from"] = move.source;
  addName(object, "fromName", net.names.locations, {move.process, move.source});
  object["to"] = move.target;
  addName(object, "toName", net.names.locations, {move.process, move.target});
  object.update(moveJson(move));  // and whether it counts and resets, where it does not
  return object;
}

Json stepJson(const Network& net, const Step& step, const Rational& time) {
  Json moves = Json::array();
  for (const Move& move : net.transitions[step.transition].moves)
    moves.push_back(namedMove(net, move));
  Json object{
      {"delay", json(step.delay)}, {"time", json(time)}, {"transition", number(step.transition)}};
  addName(object, "name", net.names.transitions, step.transition);
  object["moves"] = moves;
  return object;
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
          {"version", 2},
          {"network",
           {{"title", net.title},
            {"processes", net.processes.size()},
            {"transitions", net.transitions.size()}}},
          {"property", property.text},
          {"goal", run.goal},
          {"held", goalAccount(net, property, replay.states[run.goal])},
          {"states", states},
          {"steps", steps}};
}

}  // namespace tpn

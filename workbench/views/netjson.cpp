// A network as JSON, docs/network.schema.json.

#include <map>
#include <nlohmann/json.hpp>

#include "workbench/encoding/statelength.hpp"
#include "workbench/views/viewparts.hpp"
#include "workbench/views/views.hpp"

namespace tpn {

namespace {

Json orNull(const std::optional<std::int64_t>& value) { return value ? Json(*value) : Json(); }

// `{"number": 4}`, and the name where there is one.
template <class Key>
Json numbered(int number, const std::map<Key, std::string>& names, const Key& key) {
  Json object{{"number", number}};
  const auto named = names.find(key);
  if (named != names.end()) object["name"] = named->second;
  return object;
}

Json transitionJson(const Network& net, std::size_t index) {
  const Transition& t = net.transitions[index];
  Json moves = Json::array();
  for (const Move& move : t.moves) moves.push_back(moveJson(move));
  Json object = numbered(number(index), net.names.transitions, index);
  object["earliest"] = t.interval.earliest;
  object["latest"] = orNull(t.interval.latest);
  object["moves"] = moves;
  return object;
}

Json processJson(const Network& net, std::size_t index) {
  const Process& process = net.processes[index];
  Json locations = Json::array();
  for (const int location : process.locations) {
    locations.push_back(numbered(location, net.names.locations, {index, location}));
    locations.back()["propositions"] = labelsAt(process, location);
  }
  Json object = numbered(number(index), net.names.processes, index);
  object["locations"] = locations;
  return object;
}

Json propositionsJson(const Network& net) {
  Json all = Json::array();
  for (const int q : propositions(net)) all.push_back(numbered(q, net.names.propositions, q));
  return all;
}

Json encodingJson(const Network& net) {
  const StateLength length = stateLength(net);
  return {{"stateVariables", length.variables},
          {"locationBits", length.locationBits},
          {"clockIntegerBits", length.integerBits},
          {"clockFractionBits", length.fractionBits},
          {"largestBound", orNull(largestBound(length, mostVariables))},
          {"largestBoundUnfolded", orNull(largestBound(length, mostUnfolded))}};
}

}  // namespace

Json networkJson(const Network& net) {
  Json transitions = Json::array();
  for (std::size_t t = 0; t < net.transitions.size(); ++t)
    transitions.push_back(transitionJson(net, t));
  Json processes = Json::array();
  for (std::size_t p = 0; p < net.processes.size(); ++p) processes.push_back(processJson(net, p));
  return {{"format", "tpn-network"},      {"version", 2},
          {"title", net.title},           {"transitions", transitions},
          {"processes", processes},       {"propositions", propositionsJson(net)},
          {"encoding", encodingJson(net)}};
}

}  // namespace tpn

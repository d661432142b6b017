// A network as JSON, docs/network.schema.json.

#include <nlohmann/json.hpp>

#include "workbench/encoding/statelength.hpp"
#include "workbench/views/viewparts.hpp"
#include "workbench/views/views.hpp"

namespace tpn {

namespace {

Json orNull(const std::optional<std::int64_t>& value) { return value ? Json(*value) : Json(); }

Json transitionJson(const Transition& t, std::size_t index) {
  Json moves = Json::array();
  for (const Move& move : t.moves) moves.push_back(moveJson(move));
  return {{"number", number(index)},
          {"earliest", t.interval.earliest},
          {"latest", orNull(t.interval.latest)},
          {"moves", moves}};
}

Json processJson(const Process& process, std::size_t index) {
  Json locations = Json::array();
  for (const int location : process.locations)
    locations.push_back({{"number", location}, {"propositions", labelsAt(process, location)}});
  return {{"number", number(index)}, {"locations", locations}};
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
    transitions.push_back(transitionJson(net.transitions[t], t));
  Json processes = Json::array();
  for (std::size_t p = 0; p < net.processes.size(); ++p)
    processes.push_back(processJson(net.processes[p], p));
  return {{"format", "tpn-network"},      {"version", 1},
          {"title", net.title},           {"transitions", transitions},
          {"processes", processes},       {"propositions", propositions(net)},
          {"encoding", encodingJson(net)}};
}

}  // namespace tpn

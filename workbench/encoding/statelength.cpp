#include "workbench/encoding/statelength.hpp"

#include <algorithm>

#include "model/tpnmodel.hpp"

namespace tpn {

// The widths are asked of the model itself, so that they cannot drift apart. It wants no more than
// the processes, their locations and the largest latest time.
StateLength stateLength(const Network& net) {
  NetTimedModel model;
  model.nrOfProcs = static_cast<int>(net.processes.size());
  for (std::size_t p = 0; p < net.processes.size(); ++p)
    for (const int location : net.processes[p].locations)
      model.vertices.insert({static_cast<NetTimedModel::Number>(number(p)),
                             static_cast<NetTimedModel::Number>(location)});
  model.maxConst = static_cast<int>(largestLatest(net));
  model.compNrOfBits();
  return {model.totalNrVertBits, model.intPLen, model.frPLen, model.getSymStateLen()};
}

std::optional<std::int64_t> largestBound(const StateLength& length, std::int64_t limit) {
  const std::int64_t states = limit / std::max<std::int64_t>(length.variables, 1);
  return states < 2 ? std::nullopt : std::optional(states - 1);
}

}  // namespace tpn

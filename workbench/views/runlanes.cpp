#include "workbench/views/runlanes.hpp"

#include <algorithm>

#include "workbench/views/viewparts.hpp"

namespace tpn {

std::set<std::size_t> askedProcesses(const Network& net, const Property& property,
                                     const Locations& goal) {
  std::set<int> propositions;
  std::set<std::size_t> asked;
  for (const PropertyItem& item : property.items) {
    if (item.kind == PropertyItem::proposition) propositions.insert(item.number);
    if (item.kind == PropertyItem::at && goal[item.process] == item.number)
      asked.insert(item.process);
  }
  for (std::size_t p = 0; p < goal.size(); ++p) {
    const std::set<int>& labels = labelsAt(net.processes[p], goal[p]);
    if (std::any_of(labels.begin(), labels.end(), [&](int q) { return propositions.contains(q); }))
      asked.insert(p);
  }
  return asked;
}

std::vector<std::size_t> movingProcesses(const Network& net, const Run& run,
                                         std::set<std::size_t> asked) {
  for (const Step& step : run.steps)
    for (const Move& move : net.transitions[step.transition].moves) asked.insert(move.process);
  const bool everybody = asked.empty();
  std::vector<std::size_t> processes;
  for (std::size_t p = 0; p < net.processes.size(); ++p)
    if (everybody || asked.contains(p)) processes.push_back(p);
  return processes;
}

}  // namespace tpn

#include "workbench/encoding/encode.hpp"

#include <algorithm>
#include <iterator>
#include <memory>
#include <stdexcept>

namespace tpn {

namespace {

using Number = NetTimedModel::Number;

Number stored(std::int64_t n) { return static_cast<Number>(n); }

void addTransition(const Network& net, std::size_t t, Layout layout, NetTimedModel& model) {
  const Transition& transition = net.transitions[t];
  const std::int64_t latest = transition.interval.latest.value_or(-1);
  const Number name = stored(number(t));
  model.timeIntervals.emplace_back(stored(transition.interval.earliest), stored(latest));
  for (const Move& move : transition.moves) {
    const Number p = stored(number(move.process));
    const Process& process = net.processes[move.process];
    const std::int64_t source = codeOf(process, move.source, layout);
    const std::int64_t target = codeOf(process, move.target, layout);
    model.transProcs[name].insert(p);
    model.localTrans[{p, name}] = {stored(source), stored(target)};
    model.vertices.insert({p, stored(source)});
    model.vertices.insert({p, stored(target)});
  }
}

void addProcess(const Network& net, std::size_t index, Layout layout, NetTimedModel& model) {
  const Process& process = net.processes[index];
  const Number p = stored(number(index));
  // The core knows of no locations but those that moves mention.
  if (layout == Layout::workbench)
    for (const int location : process.locations)
      model.vertices.insert({p, stored(codeOf(process, location, layout))});
  for (const auto& [location, propositions] : process.labels)
    for (const int q : propositions)
      model.valuation.insert({{p, stored(codeOf(process, location, layout))}, stored(q)});
}

}  // namespace

std::int64_t codeOf(const Process& process, int location, Layout layout) {
  if (layout == Layout::core) return location;
  const auto found = process.locations.lower_bound(location);
  return std::distance(process.locations.begin(), found);
}

std::string propertyText(const Property& property) {
  std::string text;
  for (const auto& [kind, number] : property.items) {
    if (kind == PropertyItem::truth) text += "T";
    if (kind == PropertyItem::proposition) text += "p" + std::to_string(number);
    if (kind == PropertyItem::negated) text += "p-" + std::to_string(number);
    if (kind == PropertyItem::conjunction) text += "&";
    if (kind == PropertyItem::disjunction) text += "+";
  }
  return text;
}

void encode(const Network& net, const Property& property, Layout layout, NetTimedModel& model) {
  const std::int64_t largest = largestConstant(net);
  if (largest > mostConstant)
    throw std::runtime_error("the time " + std::to_string(largest) + " is too large: up to " +
                             std::to_string(mostConstant) + " can be checked");
  const std::int64_t range = layout == Layout::core ? largestLatest(net) : largest;
  model.nrOfProcs = static_cast<int>(net.processes.size());
  model.nrOfTrans = static_cast<int>(net.transitions.size());
  model.maxConst = static_cast<int>(range);
  model.timeIntervals.emplace_back(0, 0);  // transitions count from 1
  for (std::size_t t = 0; t < net.transitions.size(); ++t) addTransition(net, t, layout, model);
  for (std::size_t p = 0; p < net.processes.size(); ++p) addProcess(net, p, layout, model);
  model.compNrOfBits();
  model.formula = std::make_unique<EctlForm>(propertyText(property));
}

}  // namespace tpn

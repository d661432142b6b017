#include "workbench/encoding/encode.hpp"

#include <algorithm>
#include <memory>
#include <stdexcept>

namespace tpn {

namespace {

using Number = NetTimedModel::Number;

Number stored(std::int64_t n) { return static_cast<Number>(n); }

void addTransition(const Network& net, std::size_t t, const LocationCodes& codes,
                   NetTimedModel& model) {
  const Transition& transition = net.transitions[t];
  const std::int64_t latest = transition.interval.latest.value_or(-1);
  const Number name = stored(number(t));
  model.timeIntervals.emplace_back(stored(transition.interval.earliest), stored(latest));
  for (const Move& move : transition.moves) {
    const Number p = stored(number(move.process));
    const std::int64_t source = codes.of(move.process, move.source);
    const std::int64_t target = codes.of(move.process, move.target);
    model.transProcs[name].insert(p);
    model.localTrans[{p, name}] = {stored(source), stored(target)};
    model.vertices.insert({p, stored(source)});
    model.vertices.insert({p, stored(target)});
  }
}

void addLabels(const Network& net, std::size_t index, const LocationCodes& codes,
               NetTimedModel& model) {
  const Number p = stored(number(index));
  for (const auto& [location, propositions] : net.processes[index].labels)
    for (const int q : propositions)
      model.valuation.insert({{p, stored(codes.of(index, location))}, stored(q)});
}

// The core knows of no locations but those that moves mention.
void addLocations(const Network& net, std::size_t index, const LocationCodes& codes,
                  NetTimedModel& model) {
  for (const int location : net.processes[index].locations)
    model.vertices.insert({stored(number(index)), stored(codes.of(index, location))});
}

EctlOper operatorOf(PropertyItem::Kind kind) {
  switch (kind) {
    case PropertyItem::proposition:
      return EctlOper::prop;
    case PropertyItem::negated:
      return EctlOper::negProp;
    case PropertyItem::conjunction:
      return EctlOper::conj;
    case PropertyItem::disjunction:
      return EctlOper::disj;
    default:
      return EctlOper::truth;
  }
}

}  // namespace

LocationCodes::LocationCodes(const Network& net, LocationCoding coding) : coding_(coding) {
  if (coding == LocationCoding::core) return;
  for (const Process& process : net.processes)
    locations_.emplace_back(process.locations.begin(), process.locations.end());
}

std::int64_t LocationCodes::of(std::size_t process, int location) const {
  if (coding_ == LocationCoding::core) return location;
  const std::vector<int>& all = locations_.at(process);
  return std::lower_bound(all.begin(), all.end(), location) - all.begin();
}

EctlForm formulaOf(const Property& property) {
  std::vector<OnpNode> items;
  items.reserve(property.items.size());
  for (const PropertyItem& item : property.items)
    items.push_back({operatorOf(item.kind), item.number});
  return EctlForm(items);
}

void encode(const Network& net, const Property& property, LocationCoding coding,
            NetTimedModel& model, const Checkpoint& checkpoint) {
  requirePlainMoves(net, "a clause file");
  const std::int64_t largest = largestConstant(net);
  if (largest > mostConstant)
    throw std::runtime_error("the time " + std::to_string(largest) + " is too large: up to " +
                             std::to_string(mostConstant) + " can be checked");
  const std::int64_t range = coding == LocationCoding::core ? largestLatest(net) : largest;
  model.nrOfProcs = static_cast<int>(net.processes.size());
  model.nrOfTrans = static_cast<int>(net.transitions.size());
  model.maxConst = static_cast<int>(range);
  model.timeIntervals.emplace_back(0, 0);  // transitions count from 1
  const LocationCodes codes(net, coding);
  for (std::size_t t = 0; t < net.transitions.size(); ++t) {
    checkpoint.at(t);
    addTransition(net, t, codes, model);
  }
  for (std::size_t p = 0; p < net.processes.size(); ++p) {
    checkpoint();
    if (coding == LocationCoding::workbench) addLocations(net, p, codes, model);
    addLabels(net, p, codes, model);
  }
  model.compNrOfBits();
  model.formula = std::make_unique<EctlForm>(formulaOf(property));
}

}  // namespace tpn

// Random properties with all that infix notation says: locations, deadlocks, counters.

#pragma once

#include "tests/workbench/network/smallnets.hpp"
#include "workbench/network/property.hpp"

namespace tpn {

class RandomGoals {
 public:
  explicit RandomGoals(SmallNets& chance) : chance_(chance) {}

  // About propositions 1 and 2 and the network's locations.
  Property next(const Network& net, std::size_t depth = 2) {
    Property property{"", {}, 1};
    add(net, depth, property.items);
    return property;
  }

 private:
  void add(const Network& net, std::size_t depth, std::vector<PropertyItem>& items) {
    if (depth == 0) return items.push_back(leaf(net));
    switch (chance_.upTo(3)) {
      case 0:
        return items.push_back(leaf(net));
      case 1:
        return counter(net, items);
      default:
        add(net, depth - 1, items);
        add(net, depth - 1, items);
        items.push_back(
            of(chance_.upTo(1) == 0 ? PropertyItem::conjunction : PropertyItem::disjunction));
    }
  }

  void counter(const Network& net, std::vector<PropertyItem>& items) {
    const std::size_t operands = 1 + chance_.upTo(3);
    for (std::size_t i = 0; i < operands; ++i) items.push_back(place(net));
    PropertyItem item = of(PropertyItem::counter);
    item.operands = static_cast<int>(operands);
    item.least = static_cast<int>(chance_.upTo(operands + 1));
    item.most = static_cast<int>(chance_.upTo(operands));
    items.push_back(item);
  }

  PropertyItem leaf(const Network& net) {
    switch (chance_.upTo(9)) {
      case 0:
        return of(PropertyItem::truth);
      case 1:
        return of(PropertyItem::falsity);
      case 2:
        return of(PropertyItem::deadlock);
      case 3:
        return of(PropertyItem::noDeadlock);
      default:
        return place(net);
    }
  }

  PropertyItem place(const Network& net) {
    PropertyItem item = of(PropertyItem::at);
    item.process = chance_.upTo(net.processes.size() - 1);
    const std::set<int>& locations = net.processes[item.process].locations;
    item.number = *std::next(locations.begin(),
                             static_cast<std::ptrdiff_t>(chance_.upTo(locations.size() - 1)));
    if (chance_.upTo(1) == 0) item.kind = PropertyItem::notAt;
    if (chance_.upTo(1) == 0) {
      item = of(chance_.upTo(1) == 0 ? PropertyItem::proposition : PropertyItem::negated);
      item.number = static_cast<int>(1 + chance_.upTo(1));
    }
    return item;
  }

  static PropertyItem of(PropertyItem::Kind kind) {
    PropertyItem item;
    item.kind = kind;
    return item;
  }

  SmallNets& chance_;
};

}  // namespace tpn

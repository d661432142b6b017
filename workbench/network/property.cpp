#include "workbench/network/property.hpp"

#include <algorithm>
#include <cassert>

namespace tpn {

namespace {

bool leafHolds(const PropertyItem& item, const StateFacts& state) {
  switch (item.kind) {
    case PropertyItem::truth:
      return true;
    case PropertyItem::proposition:
      return state.propositions.contains(item.number);
    case PropertyItem::negated:
      return !state.propositions.contains(item.number);
    case PropertyItem::at:
      return state.locations.at(item.process) == item.number;
    case PropertyItem::notAt:
      return state.locations.at(item.process) != item.number;
    case PropertyItem::deadlock:
      return state.deadlock;
    case PropertyItem::noDeadlock:
      return !state.deadlock;
    case PropertyItem::unsafe:
      return state.unsafe;
    default:
      return false;
  }
}

bool combined(const PropertyItem& item, int operands, int holding) {
  if (item.kind == PropertyItem::conjunction) return holding == operands;
  if (item.kind == PropertyItem::disjunction) return holding > 0;
  return item.least <= holding && holding <= item.most;
}

}  // namespace

int operandsOf(const PropertyItem& item) {
  if (item.kind == PropertyItem::counter) return item.operands;
  return item.kind == PropertyItem::conjunction || item.kind == PropertyItem::disjunction ? 2 : 0;
}

bool isLeaf(const PropertyItem& item) {
  return item.kind != PropertyItem::counter && operandsOf(item) == 0;
}

Property deadlockProperty() {
  Property property{"deadlock", {}, 1};
  property.items.emplace_back();
  property.items.back().kind = PropertyItem::deadlock;
  property.items.back().end = property.text.size();
  return property;
}

bool asksDeadlock(const Property& property) {
  return std::any_of(property.items.begin(), property.items.end(), [](const PropertyItem& item) {
    return item.kind == PropertyItem::deadlock || item.kind == PropertyItem::noDeadlock;
  });
}

bool asksSafety(const Property& property) {
  return std::any_of(property.items.begin(), property.items.end(),
                     [](const PropertyItem& item) { return item.kind == PropertyItem::unsafe; });
}

Property orUnsafe(Property property) {
  for (const auto kind : {PropertyItem::unsafe, PropertyItem::disjunction}) {
    property.items.emplace_back();
    property.items.back().kind = kind;
    property.items.back().end = property.text.size();
  }
  return property;
}

Property withoutSafety(Property property) {
  if (asksSafety(property) && property.items.size() > 2)
    property.items.resize(property.items.size() - 2);
  return property;
}

std::vector<bool> values(const Property& property, const StateFacts& state) {
  std::vector<bool> all;
  std::vector<bool> stack;
  for (const PropertyItem& item : property.items) {
    const int operands = operandsOf(item);
    assert(static_cast<int>(stack.size()) >= operands);
    const auto first = stack.end() - operands;
    const auto holding = static_cast<int>(std::count(first, stack.end(), true));
    stack.erase(first, stack.end());
    all.push_back(operands == 0 ? leafHolds(item, state) : combined(item, operands, holding));
    stack.push_back(all.back());
  }
  assert(stack.size() == 1);
  return all;
}

bool holds(const Property& property, const StateFacts& state) {
  return values(property, state).back();
}

}  // namespace tpn

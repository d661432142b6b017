#include "workbench/network/property.hpp"

#include <cassert>

namespace tpn {

namespace {

bool popped(std::vector<bool>& values) {
  assert(!values.empty());
  const bool value = values.back();
  values.pop_back();
  return value;
}

bool combined(PropertyItem::Kind kind, bool left, bool right) {
  return kind == PropertyItem::conjunction ? left && right : left || right;
}

}  // namespace

bool holds(const Property& property, const std::set<int>& propositions) {
  std::vector<bool> values;
  for (const PropertyItem& item : property.items) {
    switch (item.kind) {
      case PropertyItem::truth:
        values.push_back(true);
        break;
      case PropertyItem::proposition:
        values.push_back(propositions.contains(item.number));
        break;
      case PropertyItem::negated:
        values.push_back(!propositions.contains(item.number));
        break;
      case PropertyItem::conjunction:
      case PropertyItem::disjunction: {
        const bool right = popped(values);
        const bool left = popped(values);
        values.push_back(combined(item.kind, left, right));
      }
    }
  }
  assert(values.size() == 1);
  return values.back();
}

}  // namespace tpn

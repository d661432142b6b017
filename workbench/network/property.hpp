// A property as the postfix items that remain once its text is known to be in order: a state
// formula over propositions.

#pragma once

#include <set>
#include <string>
#include <vector>

namespace tpn {

struct PropertyItem {
  enum Kind { truth, proposition, negated, conjunction, disjunction } kind = truth;
  int number = 0;  // of the proposition

  friend bool operator==(const PropertyItem&, const PropertyItem&) = default;
};

struct Property {
  std::string text;                 // as in the file
  std::vector<PropertyItem> items;  // postfix; evaluates to one value
  int line = 1;                     // of the file
};

bool holds(const Property& property, const std::set<int>& propositions);

}  // namespace tpn

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
  int column = 0;  // where its token begins, from 1; not compared

  friend bool operator==(const PropertyItem& a, const PropertyItem& b) {
    return a.kind == b.kind && a.number == b.number;
  }
};

struct Property {
  std::string text;                 // as in the file
  std::vector<PropertyItem> items;  // postfix; evaluates to one value
  int line = 1;                     // of the file
};

bool holds(const Property& property, const std::set<int>& propositions);

}  // namespace tpn

// A property as the postfix items that remain once its text is known to be in order: a state
// formula.

#pragma once

#include <cstddef>
#include <set>
#include <string>
#include <vector>

namespace tpn {

struct PropertyItem {
  enum Kind {
    truth,
    proposition,
    negated,  // a proposition that does not hold
    conjunction,
    disjunction,
    // Only infix notation says these.
    falsity,
    at,  // a process is in a location
    notAt,
    deadlock,  // no transition can fire, now or after any delay
    noDeadlock,
    counter,  // of the operands before it, least .. most hold
    // Nobody says it: it is added to what is asked of a net that may be unsafe. A transition can
    // fire, now or after some delay, but for a move that does not count, whose process is not in
    // its source: a token would be put where one is.
    unsafe
  } kind = truth;
  int number = 0;           // of the proposition, or of the location
  std::size_t process = 0;  // index: at, notAt
  int operands = 0;         // counter: how many, 1 or more
  int least = 0;
  int most = 0;
  std::size_t begin = 0;  // the part of the text that says so: from here ..
  std::size_t end = 0;    // .. to here, not included

  // Where it stands in the text makes no difference.
  friend bool operator==(const PropertyItem& a, const PropertyItem& b) {
    return a.kind == b.kind && a.number == b.number && a.process == b.process &&
           a.operands == b.operands && a.least == b.least && a.most == b.most;
  }
};

struct Property {
  std::string text;                 // as in the file
  std::vector<PropertyItem> items;  // postfix; evaluates to one value
  int line = 1;                     // of the file
  bool infix = false;               // so it was written
};

int operandsOf(const PropertyItem& item);  // 0 for those that say something themselves
bool isLeaf(const PropertyItem& item);

// Does it depend on what can still happen, and not on the locations alone?
bool asksDeadlock(const Property& property);
Property deadlockProperty();  // which says that alone

bool asksSafety(const Property& property);
// What is asked for, or else that the net is unsafe; and the former alone again.
Property orUnsafe(Property property);
Property withoutSafety(Property property);  // as it is where nothing was added

// What a state is to a property.
struct StateFacts {
  const std::set<int>& propositions;  // those that hold
  const std::vector<int>& locations;  // of every process
  bool deadlock = false;              // needed where asksDeadlock
  bool unsafe = false;                // needed where asksSafety
};
bool holds(const Property& property, const StateFacts& state);

// The value of every item in a state; the last one is the property's.
std::vector<bool> values(const Property& property, const StateFacts& state);

}  // namespace tpn

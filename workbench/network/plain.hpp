// Properties in the words of property files in postfix and of clause files: propositions, negated
// or not, conjunctions and disjunctions. What infix notation says beyond that is put into them.

#pragma once

#include "workbench/network/network.hpp"
#include "workbench/network/property.hpp"

namespace tpn {

bool isPlain(const Property& property);

// The same in plain words. Throws std::runtime_error with the reason, one line, where there is
// none: a deadlock, a location that has no proposition of its own, counters that grow too large.
Property plain(const Network& net, const Property& property);

// A network with a further proposition at each location that the property asks for and that has
// none of its own. Its runs are those of `net`.
Network labelledFor(const Network& net, const Property& property);

// As a property file has it. Asserts that it is plain.
std::string postfixText(const Property& property);

}  // namespace tpn

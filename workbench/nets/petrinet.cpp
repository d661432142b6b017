#include "workbench/nets/petrinet.hpp"

#include <algorithm>
#include <tuple>

namespace tpn {

namespace {

template <class List, class Same>
bool allAlike(const List& a, const List& b, Same same) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), same);
}

bool samePlace(const PetriNet::Place& a, const PetriNet::Place& b) {
  return std::tie(a.name, a.label, a.marked) == std::tie(b.name, b.label, b.marked);
}

bool sameTransition(const PetriNet::Transition& a, const PetriNet::Transition& b) {
  return std::tie(a.name, a.label, a.interval, a.consumed, a.read, a.produced) ==
         std::tie(b.name, b.label, b.interval, b.consumed, b.read, b.produced);
}

bool sameUnit(const PetriNet::Unit& a, const PetriNet::Unit& b) {
  return std::tie(a.name, a.places) == std::tie(b.name, b.places);
}

bool sameSpot(const PetriNet::Spot& a, const PetriNet::Spot& b) {
  return std::tie(a.process, a.location, a.propositions) ==
         std::tie(b.process, b.location, b.propositions);
}

bool sameName(const NameLine& a, const NameLine& b) {
  return std::tie(a.kind, a.number, a.inner, a.name) == std::tie(b.kind, b.number, b.inner, b.name);
}

bool sameOrigin(const std::optional<PetriNet::Origin>& a,
                const std::optional<PetriNet::Origin>& b) {
  if (!a || !b) return !a && !b;
  return allAlike(a->spots, b->spots, sameSpot) && allAlike(a->names, b->names, sameName);
}

}  // namespace

bool operator==(const PetriNet& a, const PetriNet& b) {
  return a.name == b.name && allAlike(a.places, b.places, samePlace) &&
         allAlike(a.transitions, b.transitions, sameTransition) &&
         allAlike(a.units, b.units, sameUnit) && sameOrigin(a.origin, b.origin);
}

}  // namespace tpn

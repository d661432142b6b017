// How far a goal seems to be: the number of transitions that lead to it if a process, once it has
// been in a location, could be taken to be there ever after. Clocks are left out. Then a transition
// can be had as soon as each of its sources can, and all distances come from one walk over the
// transitions. (Known from planning as the relaxed plan of FF, Hoffmann and Nebel 2001.)
//
// It is an estimate: more or fewer may be needed. Where it says that there is no way at all, there
// is none.

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "workbench/machine/machine.hpp"
#include "workbench/network/goal.hpp"
#include "workbench/network/network.hpp"

namespace tpn {

class Distance {
 public:
  // Borrows the machine. Dead ends and what is unsafe are taken to be out of reach.
  Distance(const Network& net, const Machine& machine, const Goal& goal);

  // From the locations of all processes, ranks; none where no way leads there.
  std::optional<int> from(const std::uint32_t* ranks);

  // Is it a transition of the way that from() has found last?
  bool helps(std::size_t transition) const { return onWay_[transition]; }

  long effort() const { return effort_; }  // so far, in steps of some nanoseconds

 private:
  using Spots = std::vector<std::size_t>;  // locations of processes, numbered through
  // The sum of the cheapest of each group; or of the `least` cheapest of its parts.
  struct Node {
    std::vector<Spots> groups;
    std::vector<std::size_t> parts;  // nodes before it
    std::size_t least = 0;
  };

  Node leaf(const Network& net, const PropertyItem& item) const;
  Spots elsewhere(std::size_t process, const Spots& than) const;
  void spread(const std::uint32_t* ranks);
  void reach(std::size_t spot, int cost, std::size_t by);
  void use(std::size_t spot, int cost);
  std::size_t cheapest(const Spots& spots) const;
  int costOf(const Node& node);
  void sortParts(const Node& node);
  void markWay();

  const Machine& machine_;
  std::vector<std::size_t> first_;                // [process]: its first spot
  std::vector<std::vector<std::size_t>> usedBy_;  // [spot]: transitions from there
  std::vector<int> sources_;                      // [transition]
  std::vector<Node> nodes_;                       // operands before operators
  std::vector<char> inGoal_;                      // [spot]: it speaks of it
  std::size_t goalSpots_ = 0;

  std::vector<int> cost_;        // [spot]
  std::vector<std::size_t> by_;  // [spot]: the transition that leads there
  std::vector<int> missing_;     // [transition]: sources that have not been reached
  std::vector<int> sum_;         // [transition]: costs of those that have, and 1
  std::vector<Spots> reached_;   // [cost]
  std::vector<int> nodeCost_;    // [node]
  std::vector<std::size_t> sorted_;
  std::vector<char> onWay_;  // [transition]
  std::vector<char> seen_;   // [spot]
  long effort_ = 0;
};

}  // namespace tpn

// What several views share: how intervals, lists and foreign text are written.

#pragma once

#include <cstddef>
#include <set>
#include <string>
#include <vector>

#include "workbench/base/json.hpp"
#include "workbench/network/network.hpp"
#include "workbench/network/property.hpp"
#include "workbench/runs/replay.hpp"

namespace tpn {

// Replays; asserts that there is no complaint.
Replay replayed(const Network& net, const Property& property, const Run& run);

// A property that is just true: nobody asked for a goal, so none is marked.
bool asksNothing(const Property& property);

// "p2 committed": as questions write them.
std::vector<std::string> propositionNames(const Network& net, const std::set<int>& propositions);

// Why the property holds at the goal of a run: facts that are enough.
std::vector<std::string> goalAccount(const Network& net, const Property& property,
                                     const TimedState& goal);

// What one process sees of a transition.
struct Part {
  std::size_t transition = 0;  // index
  int source = 0;
  int target = 0;
  bool counts = true;
  bool resets = true;
};
using Parts = std::vector<Part>;
std::vector<Parts> partsByProcess(const Network& net);  // [process], by transition

// Of a transition's move; that it does not count, or does not reset, only where that is so.
Json moveJson(const Move& move);

bool isShared(const Transition& t);  // of more than one process
const std::set<int>& labelsAt(const Process& process, int location);

std::string text(const Interval& interval);  // "[1, 3]", "[2, inf)"

// Printable; cut where it is longer.
std::string shortProperty(const Property& property, std::size_t longest);

// The first characters of a printable text.
std::string cut(const std::string& text, std::size_t limit);

// A name or a number as it stands in a picture, where room is scarce: printable, cut where it is
// long.
std::string pictured(const std::string& name);

std::string joined(const std::vector<std::string>& items, const std::string& separator);

// At most `limit` items; "... 7 more" stands for the others.
std::string shortened(const std::vector<std::string>& items, const std::string& separator,
                      std::size_t limit);
// Of a list of `total` items, the first of which are `items`: `limit` at least, or all.
std::string shortened(const std::vector<std::string>& items, std::size_t total,
                      const std::string& separator, std::size_t limit);

// All other processes of a transition, shortened like this.
std::string partners(const Network& net, const Transition& t, std::size_t process,
                     std::size_t limit);

std::string xmlText(const std::string& text);  // printable, and escaped for XML text and attributes

// Of a location, in all pictures. They stay apart for colour-blind eyes too, and the number stands
// with them; grey is kept for the initial location.
struct Colour {
  const char* fill;
  const char* ink;  // for what is written on it
};
const Colour& colourOf(const Process& process, int location);
const Colour& colourOfRank(std::size_t rank);  // the rank of a location in its process

}  // namespace tpn

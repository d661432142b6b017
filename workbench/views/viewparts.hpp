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

// "p2 p11": as the property file writes them.
std::vector<std::string> propositionNames(const std::set<int>& propositions);

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

std::string text(const Interval& interval);           // "[1, 3]", "[2, inf)"
std::string shortProperty(const Property& property);  // printable; cut where it is long

std::string joined(const std::vector<std::string>& items, const std::string& separator);

// At most `limit` items; "... 7 more" stands for the others.
std::string shortened(const std::vector<std::string>& items, const std::string& separator,
                      std::size_t limit);

// The numbers of all other processes of a transition, shortened like this.
std::string partners(const Transition& t, std::size_t process, std::size_t limit);

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

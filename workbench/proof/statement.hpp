// What a proof is about: a network, a goal and the unit of time, each by its meaning. Titles,
// texts, layout, the order of transitions and the numbers of propositions are no part of it.

#pragma once

#include <cstdint>
#include <string>

#include "workbench/network/goal.hpp"
#include "workbench/network/network.hpp"

namespace tpn {

struct Statement {
  std::string network;  // SHA-256 of networkMeaning(), in hexadecimal digits
  std::string goal;     // of goalMeaning()
  std::int64_t unit = 1;

  friend bool operator==(const Statement&, const Statement&) = default;
};

Statement statement(const Network& net, const Goal& goal);

// The greatest common divisor of all constants; 1 where all are 0.
std::int64_t unitOfTime(const Network& net);

// Lines of text that equal networks and equal questions, and no others, have in common:
// transitions in ascending order, each once; propositions as the sets of spots that they label.
std::string networkMeaning(const Network& net);
std::string goalMeaning(const Network& net, const Goal& goal);

}  // namespace tpn

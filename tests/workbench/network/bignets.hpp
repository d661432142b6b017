// Networks with thousands of processes or transitions, to see what grows faster than they do.

#pragma once

#include <cstddef>

#include "workbench/network/network.hpp"

namespace tpn {

// Processes that go to and fro between two locations, each by two transitions of its own, and one
// transition more that all share. Process p has proposition p in location 1, counted from 1.
inline Network manyProcesses(std::size_t count) {
  Network net;
  net.title = "many processes";
  Transition all{{5, {}}, {}};
  for (std::size_t p = 0; p < count; ++p) {
    net.transitions.push_back({{1, 3}, {{p, 0, 1}}});
    net.transitions.push_back({{0, {}}, {{p, 1, 0}}});
    all.moves.push_back({p, 1, 1});
    net.processes.push_back({{0, 1}, {{1, {number(p)}}}});
  }
  net.transitions.push_back(all);
  return net;
}

// One process that goes round, a transition from each location to the next. The last one has
// proposition 1.
inline Network ring(std::size_t transitions) {
  Network net;
  net.title = "ring";
  net.processes.resize(1);
  const auto count = static_cast<int>(transitions);
  for (int i = 0; i < count; ++i) {
    net.transitions.push_back({{i % 5, i % 7 + 5}, {{0, i, (i + 1) % count}}});
    net.processes[0].locations.insert(i);
  }
  net.processes[0].labels[count - 1] = {1};
  return net;
}

// One process of two locations, with all transitions between them and no two intervals the same.
inline Network parallel(std::size_t transitions) {
  Network net;
  net.title = "parallel";
  net.processes = {{{0, 1}, {{1, {1}}}}};
  const auto count = static_cast<int>(transitions);
  for (int i = 0; i < count; ++i) net.transitions.push_back({{i, count}, {{0, i % 2, 1 - i % 2}}});
  return net;
}

}  // namespace tpn

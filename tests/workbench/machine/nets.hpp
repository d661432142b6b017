// Small networks for the tests of this folder.

#pragma once

#include <vector>

#include "workbench/families/random.hpp"
#include "workbench/machine/machine.hpp"

namespace tpn {

// All intervals are 0 and on: for tests that look at locations only.
inline Transition untimed(std::vector<Move> moves) { return {{0, {}}, std::move(moves)}; }

// `trains` that come and go, and a process that counts those that are about. The counter's
// locations are numbered backwards from the second on.
inline Network counted(int trains) {
  Network net;
  const auto counter = static_cast<std::size_t>(trains);
  const auto count = [&](int n) { return n == 0 ? 0 : trains + 1 - n; };
  net.processes.assign(counter + 1, {{0, 1, 2}, {}});
  for (int n = 0; n <= trains; ++n) net.processes[counter].locations.insert(count(n));
  if (trains == 1) net.processes[counter].locations = {0, 1};
  for (std::size_t i = 0; i < counter; ++i) {
    net.transitions.push_back(untimed({{i, 1, 2}}));
    for (int n = 0; n < trains; ++n) {
      net.transitions.push_back(untimed({{i, 0, 1}, {counter, count(n), count(n + 1)}}));
      net.transitions.push_back(untimed({{i, 2, 0}, {counter, count(n + 1), count(n)}}));
    }
  }
  return net;
}

// 2 to `most` processes of 2 to 4 locations; most transitions have two processes or three.
inline Network randomUntimed(unsigned seed, std::size_t most) {
  RandomShape shape;
  shape.processes = {2, most};
  shape.locations = {2, 4};
  shape.shared = 4;
  Network net = RandomNetworks(shape, scattered(seed)).next();
  for (Transition& t : net.transitions) t.interval = {0, {}};
  return net;
}

}  // namespace tpn

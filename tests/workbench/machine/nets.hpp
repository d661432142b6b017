// Small networks for the tests of this folder.

#pragma once

#include <cstdint>
#include <random>
#include <set>
#include <vector>

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

// Up to `most` processes of up to 4 locations; most transitions have two processes or three.
inline Network randomUntimed(unsigned seed, std::size_t most) {
  std::mt19937 random(seed);
  const auto upTo = [&](std::size_t n) { return static_cast<std::size_t>(random() % (n + 1)); };
  Network net;
  net.processes.resize(2 + upTo(most - 2));
  for (Process& process : net.processes)
    for (int l = 0; l <= static_cast<int>(1 + upTo(2)); ++l) process.locations.insert(l);
  const std::size_t transitions = 1 + upTo(5);
  for (std::size_t t = 0; t < transitions; ++t) {
    std::vector<Move> moves;
    const std::size_t left = net.processes.size();
    for (std::size_t p = 0; p < left; ++p) {
      if (upTo(left) > 1 && p + 1 != left) continue;
      const std::size_t last = net.processes[p].locations.size() - 1;
      moves.push_back({p, static_cast<int>(upTo(last)), static_cast<int>(upTo(last))});
    }
    net.transitions.push_back(untimed(moves));
  }
  return net;
}

}  // namespace tpn

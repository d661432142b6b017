// Networks for tests of checking.

#pragma once

#include "workbench/network/network.hpp"
#include "workbench/network/property.hpp"

// Fischer's protocol with its two delays swapped: a process may set the variable up to 2 after it
// saw it free, and enters its critical section from 1 after that. Two can be inside after six
// actions. Process i is critical (location 3) where proposition i holds; the last process is the
// variable.
inline tpn::Network swappedFischer(std::size_t processes) {
  tpn::Network net;
  net.processes.resize(processes + 1);
  const std::size_t variable = processes;
  const auto add = [&](std::int64_t earliest, std::optional<std::int64_t> latest, std::size_t p,
                       int from, int to, std::size_t value, std::size_t becomes) {
    net.transitions.push_back(
        {{earliest, latest},
         {{p, from, to}, {variable, static_cast<int>(value), static_cast<int>(becomes)}}});
  };
  for (std::size_t p = 0; p < processes; ++p) {
    net.processes[p] = {{0, 1, 2, 3}, {{3, {static_cast<int>(p) + 1}}}};
    const std::size_t own = p + 1;
    add(0, {}, p, 0, 1, 0, 0);
    add(1, 4, p, 2, 3, own, own);
    add(0, {}, p, 3, 0, own, 0);
    add(0, {}, p, 2, 1, 0, 0);
    for (std::size_t value = 0; value <= processes; ++value) add(0, 2, p, 1, 2, value, own);
  }
  for (std::size_t value = 0; value <= processes; ++value)
    net.processes[variable].locations.insert(static_cast<int>(value));
  return net;
}

// One process that goes round for ever, n actions a round, each after exactly one unit; location
// n - 1 has proposition 1.
inline tpn::Network circle(int n) {
  tpn::Network net;
  net.processes.resize(1);
  for (int i = 0; i < n; ++i) {
    net.processes[0].locations.insert(i);
    net.transitions.push_back({{1, 1}, {{0, i, (i + 1) % n}}});
  }
  net.processes[0].labels[n - 1] = {1};
  return net;
}

// The same without a way back: it ends in location n - 1.
inline tpn::Network deadEnd(int n) {
  tpn::Network net = circle(n);
  net.transitions.pop_back();
  return net;
}

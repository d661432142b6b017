// Fischer's protocol and its proof, both of any size: writes within 1, reads after 2.
//
// A process is idle (0), about to write (1, 2), has written (3), reads (4), is critical (5). The
// last process is the variable: 0, or the number of a process.

#pragma once

#include "workbench/network/goal.hpp"
#include "workbench/proof/certificate.hpp"

namespace tpn::fischer {

inline Network network(std::size_t n) {
  Network net;
  net.title = "fischer";
  net.processes.resize(n + 1);
  const auto put = [&](Interval interval, std::vector<Move> moves) {
    net.transitions.push_back({interval, std::move(moves)});
  };
  for (std::size_t p = 0; p < n; ++p) {
    const int own = number(p);
    net.processes[p].locations = {0, 1, 2, 3, 4, 5};
    net.processes[p].labels[5] = {1, own + 1};
    put({0, {}}, {{p, 0, 1}, {n, 0, 0}});
    put({0, 1}, {{p, 1, 2}});
    put({2, 3}, {{p, 3, 4}});
    for (int value = 0; value <= static_cast<int>(n); ++value) {
      put({0, 0}, {{p, 2, 3}, {n, value, own}});
      put({0, 0}, {{p, 4, value == own ? 5 : 0}, {n, value, value}});
      put({0, {}}, {{p, 5, 0}, {n, value, 0}});
    }
  }
  for (int value = 0; value <= static_cast<int>(n); ++value)
    net.processes[n].locations.insert(value);
  return net;
}

// Two processes are critical.
inline Goal violation(std::size_t n) {
  using Item = PropertyItem;
  Property property;
  for (int p = 1; p <= static_cast<int>(n); ++p)
    for (int q = 1; q < p; ++q) {
      property.items.push_back({Item::proposition, p + 1});
      property.items.push_back({Item::proposition, q + 1});
      property.items.push_back({Item::conjunction, 0});
      if (p > 2 || q > 1) property.items.push_back({Item::disjunction, 0});
    }
  return {property};
}

// Swaps of neighbours, the variable's values with them.
inline std::vector<Generator> swaps(std::size_t n) {
  std::vector<Generator> all;
  for (std::size_t p = 0; p + 1 < n; ++p) {
    Generator g;
    g.processes = {{p, p + 1}, {p + 1, p}};
    g.locations = {{{n, number(p)}, number(p + 1)}, {{n, number(p + 1)}, number(p)}};
    all.push_back(g);
  }
  return all;
}

// Of two processes i and j, the variable v and clocks:
//   i critical: v is i, and j is not about to write
//   i reads, v is i: j is not about to write
//   i has written, v is i: whoever is about to write has been so for as long, so no longer than 1
inline std::vector<AtomClause> clauses(std::size_t n) {
  const auto not_at = [](std::size_t p, int l) { return Atom{Atom::location, false, p, l}; };
  const Atom own{Atom::location, true, n, 1};
  const auto reached = [](std::size_t p, int c) { return Atom{Atom::clock, true, p, c}; };
  return {{not_at(0, 5), own},
          {not_at(0, 5), not_at(1, 1)},
          {not_at(0, 5), not_at(1, 2)},
          {not_at(0, 4), ~own, not_at(1, 1)},
          {not_at(0, 4), ~own, not_at(1, 2)},
          {not_at(0, 3), ~own, not_at(1, 1), ~reached(0, 1), reached(1, 1)},
          {not_at(0, 3), ~own, not_at(1, 1), ~reached(0, 2)},
          {not_at(0, 3), ~own, not_at(1, 2), ~reached(0, 2)}};
}

inline Certificate proof(std::size_t n) { return {{}, swaps(n), clauses(n)}; }

}  // namespace tpn::fischer

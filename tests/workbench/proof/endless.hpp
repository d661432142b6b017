// A certificate that is short to write and too long to check: thirty processes that may change
// places, and a clause with more images under that than memory holds.

#pragma once

#include "workbench/proof/certificate.hpp"

namespace tpn::endless {

constexpr std::size_t size = 30;

inline Network network() {
  Network net;
  net.title = "endless";
  net.processes.resize(size);
  for (std::size_t p = 0; p < size; ++p) {
    net.processes[p].locations = {0, 1, 2};
    net.processes[p].labels[2] = {1};
    net.transitions.push_back({{0, 0}, {{p, 0, 1}}});
    net.transitions.push_back({{0, 0}, {{p, 1, 2}}});
  }
  return net;
}

inline Certificate proof() {
  Certificate proof;
  for (std::size_t p = 0; p + 1 < size; ++p)
    proof.generators.push_back({{{p, p + 1}, {p + 1, p}}, {}});
  proof.clauses.emplace_back();
  for (std::size_t p = 0; p < size; ++p)
    proof.clauses.back().push_back({Atom::location, p % 3 == 0, p, static_cast<int>(p % 3)});
  return proof;
}

}  // namespace tpn::endless

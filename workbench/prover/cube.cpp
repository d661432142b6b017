#include "workbench/prover/cube.hpp"

#include <algorithm>
#include <cstdlib>

namespace tpn {

Vocabulary::Vocabulary(const Machine& machine, const StateLayout& layout)
    : meanings_(static_cast<std::size_t>(layout.size()) + 1), initial_(meanings_.size(), false) {
  for (std::size_t p = 0; p < machine.processes.size(); ++p) {
    const Machine::Process& process = machine.processes[p];
    for (std::size_t l = 0; l < process.locations.size(); ++l)
      meanings_[static_cast<std::size_t>(layout.location(p, l))] = {p, false,
                                                                    static_cast<std::int64_t>(l)};
    for (int c = 0; c < layout.width(p); ++c)
      meanings_[static_cast<std::size_t>(layout.clockAt(p, c))] = {p, true, c + 1};
    initial_[static_cast<std::size_t>(layout.location(p, process.initial))] = true;
  }
}

bool Vocabulary::holdsInitially(const Cube& cube) const {
  return std::all_of(cube.begin(), cube.end(), [this](int l) { return initially(l); });
}

// By process, location before clock, positive before negative; then by value, so that the strongest
// of each kind is found at one end.
Cube Vocabulary::normal(Cube literals) const {
  std::sort(literals.begin(), literals.end(), [](int a, int b) {
    return std::abs(a) != std::abs(b) ? std::abs(a) < std::abs(b) : a < b;
  });
  literals.erase(std::unique(literals.begin(), literals.end()), literals.end());
  // Variables of a process follow one another: locations, then the clock upwards.
  Cube result;
  for (std::size_t i = 0; i < literals.size();) {
    const std::size_t process = meaning(literals[i]).process;
    int at = 0;
    int least = 0;
    int most = 0;
    const std::size_t first = i;
    for (; i < literals.size() && meaning(literals[i]).process == process; ++i) {
      const int literal = literals[i];
      if (!meaning(literal).isClock && literal > 0) at = literal;
      if (meaning(literal).isClock && literal > 0) least = literal;
      if (meaning(literal).isClock && literal < 0 && most == 0) most = literal;
    }
    if (at != 0) result.push_back(at);
    for (std::size_t j = first; at == 0 && j < i; ++j)
      if (!meaning(literals[j]).isClock) result.push_back(literals[j]);
    if (least != 0) result.push_back(least);
    if (most != 0) result.push_back(most);
  }
  return result;
}

}  // namespace tpn

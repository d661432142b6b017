// Small networks for tests: some by hand, any number at random.

#pragma once

#include "workbench/families/random.hpp"

namespace tpn {

// Two processes and what they share:
//   1  process 1  0 -> 1  1 to 2
//   2  process 2  0 -> 1  0 to 3
//   3  both       1 -> 0  2 or more
// Process 1 has proposition 7 in location 1, process 2 has 8 and 9 there.
inline Network twoProcesses() {
  Network net;
  net.title = "two";
  net.transitions = {
      {{1, 2}, {{0, 0, 1}}}, {{0, 3}, {{1, 0, 1}}}, {{2, {}}, {{0, 1, 0}, {1, 1, 0}}}};
  net.processes = {{{0, 1}, {{1, {7}}}}, {{0, 1}, {{1, {8, 9}}}}};
  return net;
}

// Random networks of 1 to 3 processes of 1 to 3 locations, 1 to 6 transitions; now and then an
// interval is empty. And random numbers beside.
class SmallNets {
 public:
  static constexpr int largest = 4;  // of all constants

  explicit SmallNets(unsigned seed) : nets_({}, seed) {}

  std::size_t upTo(std::size_t most) { return nets_.random().upTo(most); }
  int number(int most) { return static_cast<int>(upTo(static_cast<std::size_t>(most))); }

  Network next() { return nets_.next(); }

 private:
  RandomNetworks nets_;
};

}  // namespace tpn

// Small networks for tests: some by hand, any number at random.

#pragma once

#include <algorithm>
#include <random>

#include "workbench/network/network.hpp"

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

// Standard distributions differ between libraries, the engine does not.
class SmallNets {
 public:
  static constexpr int largest = 4;  // of all constants

  explicit SmallNets(unsigned seed) : random_(seed) {}

  std::size_t upTo(std::size_t most) { return random_() % (most + 1); }
  int number(int most) { return static_cast<int>(upTo(static_cast<std::size_t>(most))); }

  // 1 to 3 processes of 1 to 3 locations, 1 to 6 transitions; now and then an interval is empty.
  Network next() {
    Network net;
    net.processes.resize(1 + upTo(2));
    for (Process& process : net.processes)
      for (int location = number(2); location >= 0; --location) process.locations.insert(location);
    net.transitions.resize(1 + std::max(upTo(5), upTo(5)));
    for (Transition& t : net.transitions) t = transition(net);
    return net;
  }

 private:
  Transition transition(const Network& net) {
    Transition t;
    t.interval.earliest = number(largest);
    if (upTo(3) != 0)
      t.interval.latest = std::min<std::int64_t>(largest, t.interval.earliest + number(3));
    if (upTo(19) == 0) t.interval.latest = number(largest);
    const std::size_t always = upTo(net.processes.size() - 1);
    for (std::size_t p = 0; p < net.processes.size(); ++p)
      if (p == always || upTo(3) == 0) {
        const int last = *net.processes[p].locations.rbegin();
        const int source = number(last);
        t.moves.push_back({p, source, number(last)});
      }
    return t;
  }

  std::mt19937 random_;
};

}  // namespace tpn

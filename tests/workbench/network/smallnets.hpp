// Small networks for tests: some by hand, any number at random.

#pragma once

#include <utility>

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

// Those of network files, or as well such as do not count, or do not reset.
enum class MoveKinds { plain, all };

// Random networks of 1 to 3 processes of 1 to 3 locations, 1 to 6 transitions; now and then an
// interval is empty. And random numbers beside.
class SmallNets {
 public:
  static constexpr int largest = 4;  // of all constants

  explicit SmallNets(unsigned seed, MoveKinds kinds = MoveKinds::plain)
      : nets_({}, seed), kinds_(kinds) {}

  std::size_t upTo(std::size_t most) { return nets_.random().upTo(most); }
  int number(int most) { return static_cast<int>(upTo(static_cast<std::size_t>(most))); }

  Network next() {
    Network net = nets_.next();
    if (kinds_ == MoveKinds::all)
      for (Transition& t : net.transitions) vary(net, t);
    return net;
  }

 private:
  Move move(const Network& net, std::size_t process) {
    const int last = *net.processes[process].locations.rbegin();
    const int source = number(last);
    return {process, source, number(last)};
  }

  // Changes some of its moves and adds others; the first one that was there still counts.
  void vary(const Network& net, Transition& t) {
    const std::vector<Move> before = std::exchange(t.moves, {});
    auto next = before.begin();
    for (std::size_t p = 0; p < net.processes.size(); ++p) {
      const bool isOld = next != before.end() && next->process == p;
      if (!isOld && upTo(1) == 0) continue;
      Move m = isOld ? *next++ : move(net, p);
      m.counts = isOld ? upTo(3) != 0 : upTo(2) == 0;
      m.counts = m.counts || (isOld && next == before.begin() + 1);
      m.resets = upTo(2) != 0;
      if (!m.resets) m.target = m.source;
      t.moves.push_back(m);
    }
  }

  RandomNetworks nets_;
  MoveKinds kinds_;
};

}  // namespace tpn

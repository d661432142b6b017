#include "tests/endtoend/samples.hpp"

namespace {

enum Fischer : int { idle, asking, waiting, inside };

// The transitions of one process; `variable` is the last process of the network.
void addFischerProcess(Network& net, std::size_t process, int writeLatest, int waitEarliest) {
  const std::size_t variable = net.processes - 1;
  const int name = static_cast<int>(process) + 1;
  const auto add = [&](int earliest, int latest, Move own, int from, int to) {
    net.transitions.push_back({earliest, latest, {own, {variable, from, to}}});
  };
  add(0, noLatest, {process, idle, asking}, 0, 0);
  for (int named = 0; named <= static_cast<int>(variable); ++named)
    add(0, writeLatest, {process, asking, waiting}, named, name);
  add(0, noLatest, {process, waiting, asking}, 0, 0);
  add(waitEarliest, waitEarliest + 2, {process, waiting, inside}, name, name);
  add(0, noLatest, {process, inside, idle}, name, 0);
  net.labels.push_back({process, inside, name});
}

}  // namespace

Network fischer(std::size_t processes, int writeLatest, int waitEarliest) {
  Network net{processes + 1, {}, {}, "p1p2&"};
  for (std::size_t p = 0; p < processes; ++p) addFischerProcess(net, p, writeLatest, waitEarliest);
  return net;
}

Network handshake(int earliest, int latest) {
  const Transition work{earliest, latest, {{0, 0, 1}}};
  const Transition hand{0, 1, {{0, 1, 0}, {1, 0, 1}}};
  const Transition drop{1, 2, {{1, 1, 0}}};
  return {2, {work, hand, drop}, {{0, 1, 1}, {1, 1, 2}}, "p1p2&"};
}

Network deadEnd() { return {1, {{1, 2, {{0, 0, 1}}}}, {{0, 1, 1}}, "p1"}; }

// Random networks as files hold them: their processes have the locations that moves mention and
// labels on those, and things have names now and then.

#pragma once

#include <string>

#include "tests/workbench/network/smallnets.hpp"
#include "workbench/network/network.hpp"

namespace tpn {

class WritableNets {
 public:
  explicit WritableNets(unsigned seed) : nets_(seed) {}

  Network next() {
    Network net = nets_.next();
    net.title = nets_.upTo(1) == 0 ? "transitions" : "a title {with} \\braces";
    for (Transition& t : net.transitions)
      if (t.interval.latest && *t.interval.latest < t.interval.earliest) t.interval.latest.reset();
    for (Process& process : net.processes) process.locations = {0};
    for (const Transition& t : net.transitions)
      for (const Move& move : t.moves)
        net.processes[move.process].locations.insert({move.source, move.target});
    for (Process& process : net.processes)
      for (const int location : process.locations)
        for (int q = nets_.number(3); q > 0; --q) process.labels[location].insert(nets_.number(20));
    name(net);
    return net;
  }

 private:
  bool rarely() { return nets_.upTo(3) == 0; }

  std::string name(const std::string& stem) { return rarely() ? "{" + stem + " }\\'" : stem; }

  void name(Network& net) {
    for (std::size_t p = 0; p < net.processes.size(); ++p) {
      if (rarely()) net.names.processes[p] = name("P" + std::to_string(p));
      for (const int location : net.processes[p].locations)
        if (rarely()) net.names.locations[{p, location}] = name("l" + std::to_string(location));
    }
    for (std::size_t t = 0; t < net.transitions.size(); ++t)
      if (rarely())
        net.names.transitions[t] = name("t" + std::to_string(t));  // t1 is not the first
    for (const int q : propositions(net))
      if (rarely()) net.names.propositions[q] = name("q" + std::to_string(q));
  }

  SmallNets nets_;
};

}  // namespace tpn

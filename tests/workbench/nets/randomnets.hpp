// Random nets with a few places, which may be unsafe, and nets made of random state machines.

#pragma once

#include <random>
#include <set>

#include "workbench/nets/petrinet.hpp"

namespace tpn {

class RandomNets {
 public:
  explicit RandomNets(unsigned seed) : random_(seed) {}

  std::size_t upTo(std::size_t most) { return random_() % (most + 1); }
  bool oneIn(std::size_t count) { return upTo(count - 1) == 0; }

  PetriNet next() {
    PetriNet net;
    const std::size_t places = 2 + upTo(4);
    for (std::size_t p = 0; p < places; ++p)
      net.places.push_back({"p" + std::to_string(p), "", oneIn(2), {}});
    const std::size_t transitions = 1 + upTo(4);
    for (std::size_t t = 0; t < transitions; ++t) net.transitions.push_back(transition(net, t));
    return net;
  }

 private:
  // As many tokens put as taken, more often than not: then nets are safe more often.
  PetriNet::Transition transition(const PetriNet& net, std::size_t index) {
    PetriNet::Transition t{"t" + std::to_string(index), "", interval(), {}, {}, {}, {}};
    const std::size_t taken = upTo(6) == 0 ? 0 : 1 + upTo(1);
    const std::set<std::size_t> consumed = some(net, taken);
    const std::set<std::size_t> produced = some(net, oneIn(2) ? upTo(2) : consumed.size());
    std::set<std::size_t> read = some(net, oneIn(3) ? 1 : 0);
    for (const std::size_t p : consumed) read.erase(p);
    t.consumed = {consumed.begin(), consumed.end()};
    t.produced = {produced.begin(), produced.end()};
    t.read = {read.begin(), read.end()};
    return t;
  }

  Interval interval() {
    Interval made;
    made.earliest = static_cast<std::int64_t>(upTo(3));
    if (!oneIn(4)) made.latest = made.earliest + static_cast<std::int64_t>(upTo(2));
    return made;
  }

  std::set<std::size_t> some(const PetriNet& net, std::size_t count) {
    std::set<std::size_t> chosen;
    for (std::size_t i = 0; i < count; ++i) chosen.insert(upTo(net.places.size() - 1));
    return chosen;
  }

  std::mt19937 random_;
};

}  // namespace tpn

// Random small networks with goals, their states one by one, and certificates made from those.

#pragma once

#include "tests/workbench/network/randomgoals.hpp"
#include "tests/workbench/network/smallnets.hpp"
#include "tests/workbench/proof/reachable.hpp"
#include "workbench/proof/orbits.hpp"
#include "workbench/proof/scaled.hpp"

namespace tpn {

struct Sample {
  Network net;
  Network scaled;
  Goal goal;
  std::set<states::State> reachable;
  bool never = false;  // no goal state is among them
  Certificate proof;   // of exactly the reachable states
};

// A random process of its own and several alike around it: the processes 1 .. copies can be
// swapped. Every transition of the one that is copied is there once for each copy.
inline Network around(const Network& pair, std::size_t copies) {
  Network net;
  net.processes.assign(copies + 1, pair.processes[1]);
  net.processes[0] = pair.processes[0];
  for (const Transition& t : pair.transitions)
    for (std::size_t copy = 1; copy <= copies; ++copy) {
      Transition changed = t;
      for (Move& move : changed.moves)
        if (move.process == 1) move.process = copy;
      net.transitions.push_back(changed);
    }
  return net;
}

inline std::vector<Generator> swapsOfCopies(std::size_t copies) {
  std::vector<Generator> all;
  for (std::size_t p = 1; p < copies; ++p) all.push_back({{{p, p + 1}, {p + 1, p}}, {}});
  return all;
}

// Of each orbit the first.
inline std::vector<AtomClause> representatives(const std::vector<AtomClause>& clauses,
                                               const std::vector<Generator>& generators) {
  std::vector<AtomClause> chosen;
  std::set<AtomClause> covered;
  for (const AtomClause& clause : closed(clauses, {})) {
    if (covered.contains(clause)) continue;
    chosen.push_back(clause);
    for (const AtomClause& other : closed({clause}, generators)) covered.insert(other);
  }
  return chosen;
}

class Samples {
 public:
  explicit Samples(unsigned seed, MoveKinds kinds = MoveKinds::plain)
      : nets_(seed, kinds), kinds_(kinds) {}

  // Of any network; every fourth question is that of a deadlock.
  Sample next() { return sample(nets_.next(), {}); }

  Sample nextSymmetric() {
    for (;;) {
      const Network pair = nets_.next();
      if (pair.processes.size() != 2 || pair.transitions.size() > 4) continue;
      const std::size_t copies = 2;
      return sample(around(pair, copies), swapsOfCopies(copies));
    }
  }

  std::size_t upTo(std::size_t most) { return nets_.upTo(most); }

 private:
  Sample sample(Network net, const std::vector<Generator>& generators) {
    Sample s;
    s.goal = goal(net);
    s.net = std::move(net);
    s.scaled = inUnits(s.net);
    const states::Explorer explorer(s.scaled);
    s.reachable = explorer.reachable();
    s.never = std::none_of(s.reachable.begin(), s.reachable.end(),
                           [&](const auto& state) { return explorer.isGoal(s.goal, state); });
    s.proof = states::exactly(s.scaled, s.reachable);
    s.proof.clauses = representatives(s.proof.clauses, generators);
    s.proof.generators = generators;
    return s;
  }

  Goal goal(Network& net) {
    const Goal asked = plainGoal(net);
    if (kinds_ == MoveKinds::plain) return asked;
    const std::size_t chance = nets_.upTo(2);
    if (chance == 0) return {"", {PropertyItem{PropertyItem::unsafe}}, 1};
    return chance == 1 ? orUnsafe(asked) : asked;
  }

  // Two locations at once, or one and not the other, or a deadlock, or anything that can be said.
  Goal plainGoal(Network& net) {
    if (nets_.upTo(3) == 0) return deadlockProperty();
    for (const int proposition : {1, 2}) {
      Process& process = net.processes[nets_.upTo(net.processes.size() - 1)];
      process.labels[nets_.number(*process.locations.rbegin())].insert(proposition);
    }
    if (nets_.upTo(1) == 0) return RandomGoals(nets_).next(net);
    const auto second = nets_.upTo(1) == 0 ? PropertyItem::proposition : PropertyItem::negated;
    return {"", {{PropertyItem::proposition, 1}, {second, 2}, {PropertyItem::conjunction, 0}}, 1};
  }

  SmallNets nets_;
  MoveKinds kinds_;
};

// A goal that speaks of what comes after a state: some states have it that engines do not look for,
// as they lead to others that have it by waiting.
inline bool asksWhatComes(const Goal& goal) { return asksDeadlock(goal) || asksSafety(goal); }

}  // namespace tpn

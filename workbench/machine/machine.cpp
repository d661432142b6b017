#include "workbench/machine/machine.hpp"

#include <algorithm>
#include <cassert>
#include <numeric>

namespace tpn {

namespace {

std::int64_t unitOf(const Network& net) {
  std::int64_t unit = 0;
  for (const Transition& t : net.transitions) {
    unit = std::gcd(unit, t.interval.earliest);
    if (t.interval.latest) unit = std::gcd(unit, *t.interval.latest);
  }
  return unit == 0 ? 1 : unit;
}

Machine::Process bare(const Process& process) {
  Machine::Process result;
  for (const int number : process.locations) {
    result.locations.emplace_back();
    result.locations.back().number = number;
  }
  result.initial = result.rank(0);
  return result;
}

Machine::Transition translated(const Machine& machine, const Transition& t) {
  assert(isValid(t));
  Machine::Transition result;
  result.earliest = t.interval.earliest / machine.unit;
  if (t.interval.latest) result.latest = *t.interval.latest / machine.unit;
  for (const Move& move : t.moves) {
    const Machine::Process& process = machine.processes[move.process];
    result.moves.push_back({move.process, process.rank(move.source), process.rank(move.target),
                            move.counts, move.resets});
  }
  return result;
}

// What the last transition means for the locations of its processes.
void enter(Machine& machine) {
  const std::size_t index = machine.transitions.size() - 1;
  const Machine::Transition& t = machine.transitions.back();
  for (const Machine::Move& move : t.moves) {
    Machine::Process& process = machine.processes[move.process];
    process.movers.push_back(index);
    if (move.resets) process.resetters.push_back(index);
    process.locations[move.target].entering.push_back(index);
    Machine::Location& source = process.locations[move.source];
    source.leaving.push_back(index);
    if (!move.counts) continue;
    source.cap = std::max({source.cap, t.earliest, t.latest.value_or(0)});
    process.cap = std::max(process.cap, source.cap);
    process.reach = std::max({process.reach, t.earliest, t.latest ? *t.latest + 1 : 0});
  }
}

}  // namespace

std::size_t Machine::Process::rank(int number) const {
  const auto at = std::lower_bound(locations.begin(), locations.end(), number,
                                   [](const Location& l, int n) { return l.number < n; });
  assert(at != locations.end() && at->number == number);
  return static_cast<std::size_t>(at - locations.begin());
}

Machine makeMachine(const Network& net) {
  Machine machine;
  machine.unit = unitOf(net);
  for (const Process& process : net.processes) machine.processes.push_back(bare(process));
  for (const Transition& t : net.transitions) {
    machine.transitions.push_back(translated(machine, t));
    enter(machine);
  }
  return machine;
}

std::int64_t widestClock(const Machine& machine) {
  std::int64_t widest = 0;
  for (const Machine::Process& process : machine.processes) widest = std::max(widest, process.cap);
  return widest;
}

bool hasHopeless(const Machine& machine) {
  return std::any_of(machine.transitions.begin(), machine.transitions.end(),
                     [](const Machine::Transition& t) { return t.hopeless(); });
}

}  // namespace tpn

#include "workbench/proof/machinecircuit.hpp"

#include <algorithm>
#include <bit>
#include <cassert>

namespace tpn {

namespace {

using Literal = Circuit::Literal;

// A latch keeps its value or takes another.
class StepBuilder {
 public:
  StepBuilder(const Machine& machine, const StateLiterals& state, Circuit& circuit)
      : machine_(machine), state_(state), circuit_(circuit) {}

  void build(const std::vector<Literal>& choice, const Checkpoint& checkpoint) {
    for (std::size_t t = 0; t < machine_.transitions.size(); ++t) {
      checkpoint();
      const Literal selected = chosen(choice, t + 1);
      fires_.push_back(circuit_.both(selected, mayFire(machine_.transitions[t])));
    }
    const Literal selected = chosen(choice, 0);
    const Literal unit = circuit_.both(selected, unitMayPass());
    for (std::size_t p = 0; p < machine_.processes.size(); ++p) {
      checkpoint();
      moveProcess(p);
      const Literal stays = Circuit::inverted(anyFires(machine_.processes[p].resetters));
      if (state_.unary(p))
        moveUnaryClock(p, stays, unit);
      else
        moveBinaryClock(p, stays, unit);
    }
  }

  Literal enabled(const Machine::Transition& t) {
    std::vector<Literal> sources;
    for (const Machine::Move& move : t.moves)
      if (move.counts) sources.push_back(state_.at(move.process, move.source));
    return circuit_.all(sources);
  }

  Literal allReached(const Machine::Transition& t, std::int64_t units) {
    std::vector<Literal> clocks;
    for (const Machine::Move& move : t.moves)
      if (move.counts) clocks.push_back(state_.reached(circuit_, move.process, units));
    return circuit_.all(clocks);
  }

  Literal isRipe(const Machine::Transition& t) {
    const Literal here = enabled(t);
    return circuit_.both(here, allReached(t, t.earliest));
  }

  // As far as moves that count say. No run leads past the latest time; it is asked all the same, so
  // that an invariant need not say so.
  Literal isInTime(const Machine::Transition& t) {
    const Literal ripe = isRipe(t);
    if (!t.latest) return ripe;
    return circuit_.both(ripe, Circuit::inverted(allReached(t, *t.latest + 1)));
  }

  // Nothing is in the way of moves that do not count.
  Literal isFree(const Machine::Transition& t) {
    std::vector<Literal> sources;
    for (const Machine::Move& move : t.moves)
      if (!move.counts) sources.push_back(state_.at(move.process, move.source));
    return circuit_.all(sources);
  }

  Literal mayFire(const Machine::Transition& t) {
    const Literal inTime = isInTime(t);
    return circuit_.both(inTime, isFree(t));
  }

 private:
  Literal chosen(const std::vector<Literal>& choice, std::size_t number) {
    std::vector<Literal> bits;
    for (std::size_t bit = choice.size(); bit-- > 0;)
      bits.push_back(((number >> bit) & 1U) != 0 ? choice[bit] : Circuit::inverted(choice[bit]));
    return circuit_.all(bits);
  }

  Literal anyFires(const std::vector<std::size_t>& transitions) {
    std::vector<Literal> some;
    for (const std::size_t t : transitions) some.push_back(fires_[t]);
    return circuit_.any(some);
  }

  Literal unitMayPass() {
    std::vector<Literal> none;
    for (const Machine::Transition& t : machine_.transitions) {
      if (!t.latest) continue;
      const Literal here = enabled(t);
      const Literal due = allReached(t, *t.latest);
      none.push_back(Circuit::inverted(circuit_.both(here, due)));
    }
    return circuit_.all(none);
  }

  void moveProcess(std::size_t process) {
    const Machine::Process& p = machine_.processes[process];
    for (std::size_t rank = 0; rank < p.locations.size(); ++rank) {
      if (rank == p.initial) continue;
      const Literal here = state_.at(process, rank);
      const Literal leaves = anyFires(p.locations[rank].leaving);
      const Literal remains = circuit_.both(here, Circuit::inverted(leaves));
      const Literal enters = anyFires(p.locations[rank].entering);
      circuit_.next(here, circuit_.either(remains, enters));
    }
  }

  // In a location where the clock may get that far.
  Literal mayReach(std::size_t process, std::int64_t units) {
    const Machine::Process& p = machine_.processes[process];
    std::vector<Literal> some;
    for (std::size_t rank = 0; rank < p.locations.size(); ++rank)
      if (p.locations[rank].cap >= units) some.push_back(state_.at(process, rank));
    return circuit_.any(some);
  }

  void moveUnaryClock(std::size_t process, Literal stays, Literal unit) {
    const std::vector<Literal>& clock = state_.clock(process);
    for (std::size_t i = 0; i < clock.size(); ++i) {
      const Literal before = i == 0 ? Circuit::yes : clock[i - 1];
      const Literal may = mayReach(process, static_cast<std::int64_t>(i) + 1);
      const Literal grows = circuit_.both(circuit_.both(unit, before), may);
      const Literal reached = circuit_.either(clock[i], grows);
      circuit_.next(clock[i], circuit_.both(stays, reached));
    }
  }

  // It grows in a location whose cap it has not reached.
  Literal isBelowCap(std::size_t process) {
    const Machine::Process& p = machine_.processes[process];
    std::vector<Literal> some;
    for (std::size_t rank = 0; rank < p.locations.size(); ++rank) {
      const Literal atCap = state_.reached(circuit_, process, p.locations[rank].cap);
      some.push_back(circuit_.both(state_.at(process, rank), Circuit::inverted(atCap)));
    }
    return circuit_.any(some);
  }

  void moveBinaryClock(std::size_t process, Literal stays, Literal unit) {
    Literal carry = circuit_.both(unit, isBelowCap(process));
    for (const Literal bit : state_.clock(process)) {
      const Literal stillOne = circuit_.both(bit, Circuit::inverted(carry));
      const Literal newlyOne = circuit_.both(Circuit::inverted(bit), carry);
      const Literal next = circuit_.either(stillOne, newlyOne);
      carry = circuit_.both(bit, carry);
      circuit_.next(bit, circuit_.both(stays, next));
    }
  }

  const Machine& machine_;
  const StateLiterals& state_;
  Circuit& circuit_;
  std::vector<Literal> fires_;
};

Literal labelled(const Network& net, int proposition, MachineCircuit& m) {
  std::vector<Literal> spots;
  for (std::size_t p = 0; p < net.processes.size(); ++p)
    for (const auto& [location, labels] : net.processes[p].labels)
      if (labels.contains(proposition))
        spots.push_back(m.state.at(p, m.machine.processes[p].rank(location)));
  return m.circuit.any(spots);
}

// Only a hopeless transition can keep time from passing and not fire.
Literal deadlockSignal(MachineCircuit& m) {
  StepBuilder builder(m.machine, m.state, m.circuit);
  std::vector<Literal> ripe;
  std::vector<Literal> enabled;
  std::vector<Literal> stuck;
  for (const Machine::Transition& t : m.machine.transitions) {
    enabled.push_back(builder.enabled(t));
    ripe.push_back(builder.isRipe(t));
    if (!t.hopeless()) continue;
    const Literal due = builder.allReached(t, *t.latest);
    stuck.push_back(m.circuit.both(enabled.back(), due));
  }
  const Literal none = Circuit::inverted(m.circuit.any(enabled));
  const Literal last = m.circuit.either(none, m.circuit.any(stuck));
  return m.circuit.both(last, Circuit::inverted(m.circuit.any(ripe)));
}

// One transition may fire now, which a state that is no deadlock leads to.
Literal firingSignal(MachineCircuit& m) {
  StepBuilder builder(m.machine, m.state, m.circuit);
  std::vector<Literal> some;
  for (const Machine::Transition& t : m.machine.transitions) some.push_back(builder.isInTime(t));
  return m.circuit.any(some);
}

// One may fire now, but something is in the way.
Literal collisionSignal(MachineCircuit& m) {
  StepBuilder builder(m.machine, m.state, m.circuit);
  std::vector<Literal> some;
  for (const Machine::Transition& t : m.machine.transitions) {
    const Literal inTime = builder.isInTime(t);
    some.push_back(m.circuit.both(inTime, Circuit::inverted(builder.isFree(t))));
  }
  return m.circuit.any(some);
}

Literal spotSignal(const PropertyItem& item, const MachineCircuit& m) {
  return m.state.at(item.process, m.machine.processes[item.process].rank(item.number));
}

Literal leafSignal(const Network& net, const PropertyItem& item, MachineCircuit& m) {
  switch (item.kind) {
    case PropertyItem::truth:
      return Circuit::yes;
    case PropertyItem::proposition:
      return labelled(net, item.number, m);
    case PropertyItem::negated:
      return Circuit::inverted(labelled(net, item.number, m));
    case PropertyItem::at:
      return spotSignal(item, m);
    case PropertyItem::notAt:
      return Circuit::inverted(spotSignal(item, m));
    case PropertyItem::deadlock:
      return deadlockSignal(m);
    case PropertyItem::noDeadlock:
      return firingSignal(m);
    case PropertyItem::unsafe:
      return collisionSignal(m);
    default:
      return Circuit::no;
  }
}

// least .. most of the literals: [n] says that n or more of those so far are 1.
Literal countSignal(const PropertyItem& item, const std::vector<Literal>& literals,
                    Circuit& circuit, const Checkpoint& checkpoint) {
  std::vector<Literal> counts(literals.size() + 2, Circuit::no);
  counts[0] = Circuit::yes;
  for (const Literal literal : literals) {
    checkpoint();
    for (std::size_t n = literals.size(); n > 0; --n) {
      const Literal reaches = circuit.both(literal, counts[n - 1]);
      counts[n] = circuit.either(counts[n], reaches);
    }
  }
  const auto limit = [&](int n) {
    return counts[static_cast<std::size_t>(std::min(n, item.operands + 1))];
  };
  const Literal enough = limit(item.least);
  return circuit.both(enough, Circuit::inverted(limit(item.most + 1)));
}

Literal propertySignal(const Network& net, const Property& property, MachineCircuit& m,
                       const Checkpoint& checkpoint) {
  std::vector<Literal> values;
  for (const PropertyItem& item : property.items) {
    checkpoint();
    const auto count = static_cast<std::size_t>(operandsOf(item));
    const std::vector<Literal> operands(values.end() - static_cast<std::ptrdiff_t>(count),
                                        values.end());
    values.resize(values.size() - count);
    if (item.kind == PropertyItem::conjunction)
      values.push_back(m.circuit.all(operands));
    else if (item.kind == PropertyItem::disjunction)
      values.push_back(m.circuit.any(operands));
    else if (item.kind == PropertyItem::counter)
      values.push_back(countSignal(item, operands, m.circuit, checkpoint));
    else
      values.push_back(leafSignal(net, item, m));
  }
  assert(values.size() == 1);
  return values.back();
}

std::vector<Literal> declareChoice(std::size_t transitions, Circuit& circuit) {
  std::vector<Literal> choice;
  const auto bits = static_cast<int>(std::bit_width(transitions));
  for (int bit = 0; bit < bits; ++bit)
    choice.push_back(circuit.input("choice" + std::to_string(bit)));
  return choice;
}

}  // namespace

MachineCircuit makeMachineCircuit(const Network& net, const Goal& goal,
                                  const Checkpoint& checkpoint) {
  Machine machine = makeMachine(net);
  Circuit circuit;
  const std::vector<Literal> choice = declareChoice(machine.transitions.size(), circuit);
  StateLiterals state(machine, circuit);
  MachineCircuit m{std::move(machine), std::move(circuit), std::move(state)};
  StepBuilder(m.machine, m.state, m.circuit).build(choice, checkpoint);
  m.circuit.bad(propertySignal(net, goal, m, checkpoint), "goal");
  return m;
}

}  // namespace tpn

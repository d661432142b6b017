#include "workbench/proof/stateliterals.hpp"

#include <bit>

#include "workbench/proof/plainchecks.hpp"

namespace tpn {

using Literal = Circuit::Literal;

StateLiterals::StateLiterals(const Machine& machine, Circuit& circuit)
    : at_(machine.processes.size()), clock_(machine.processes.size()) {
  for (const Machine::Process& process : machine.processes) caps_.push_back(process.cap);
  for (std::size_t p = 0; p < caps_.size(); ++p) declare(machine, p, circuit);
  for (std::size_t p = 0; p < caps_.size(); ++p) {
    const std::size_t initial = machine.processes[p].initial;
    at_[p][initial] = Circuit::inverted(circuit.any(at_[p]));
  }
}

void StateLiterals::declare(const Machine& machine, std::size_t process, Circuit& circuit) {
  const Machine::Process& from = machine.processes[process];
  at_[process].assign(from.locations.size(), Circuit::no);
  for (std::size_t rank = 0; rank < from.locations.size(); ++rank) {
    if (rank == from.initial) continue;
    const Atom atom{Atom::location, true, process, from.locations[rank].number};
    at_[process][rank] = circuit.latch(text(atom));
    atoms_.emplace_back(atom);
  }
  declareClock(process, circuit);
}

void StateLiterals::declareClock(std::size_t process, Circuit& circuit) {
  std::vector<Literal>& clock = clock_[process];
  if (unary(process)) {
    for (std::int64_t units = 1; units <= caps_[process]; ++units) {
      const Atom atom{Atom::clock, true, process, units};
      clock.push_back(circuit.latch(text(atom)));
      atoms_.emplace_back(atom);
    }
    return;
  }
  const auto width =
      static_cast<std::size_t>(std::bit_width(static_cast<std::uint64_t>(caps_[process])));
  for (std::size_t bit = 0; bit < width; ++bit) {
    clock.push_back(circuit.latch(std::to_string(number(process)) + ":" + std::to_string(bit)));
    bits_[atoms_.size()] = {process, bit};
    atoms_.emplace_back();
  }
}

// Of bits: from the lowest up, whether those so far are at least those of the number.
Literal StateLiterals::reached(Circuit& circuit, std::size_t process, std::int64_t units) const {
  if (units <= 0) return Circuit::yes;
  if (units > caps_[process]) return Circuit::no;
  const std::vector<Literal>& clock = clock_[process];
  if (unary(process)) return clock[static_cast<std::size_t>(units) - 1];
  Literal atLeast = Circuit::yes;
  for (std::size_t bit = 0; bit < clock.size(); ++bit) {
    const bool one = ((units >> bit) & 1) != 0;
    atLeast = one ? circuit.both(clock[bit], atLeast) : circuit.either(clock[bit], atLeast);
  }
  return atLeast;
}

}  // namespace tpn

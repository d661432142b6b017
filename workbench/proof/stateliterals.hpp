// The state of a machine in the latches of a circuit.
//
// Latches, named like the atoms of certificates, all 0 at first:
// 1. "2@3": process 2 is in location 3. None for location 0: there it is where it is nowhere else.
// 2. "2>=3": the clock of process 2 is 3 units or more, up to the largest cap of its locations.
// 3. Or, where that is more than `widestUnary`, "2:0", "2:1", ...: the bits of that clock, the
//    lowest first.

#pragma once

#include <map>
#include <optional>
#include <vector>

#include "workbench/machine/machine.hpp"
#include "workbench/proof/certificate.hpp"
#include "workbench/proof/circuit.hpp"

namespace tpn {

class StateLiterals {
 public:
  static constexpr std::int64_t widestUnary = 64;

  // Adds the latches, and after them the gates that say "in location 0".
  StateLiterals(const Machine& machine, Circuit& circuit);

  Circuit::Literal at(std::size_t process, std::size_t rank) const { return at_[process][rank]; }

  // "The clock is so many units or more"; bits have to be compared.
  Circuit::Literal reached(Circuit& circuit, std::size_t process, std::int64_t units) const;

  bool unary(std::size_t process) const { return caps_[process] <= widestUnary; }
  // [units - 1] where it is unary, else [bit].
  const std::vector<Circuit::Literal>& clock(std::size_t process) const { return clock_[process]; }

  // What a latch says; none for a bit of a clock, of which it is told which it is.
  struct Bit {
    std::size_t process = 0;
    std::size_t bit = 0;
  };
  const std::optional<Atom>& atom(std::size_t latch) const { return atoms_[latch]; }
  const Bit& bit(std::size_t latch) const { return bits_.at(latch); }

 private:
  void declare(const Machine& machine, std::size_t process, Circuit& circuit);
  void declareClock(std::size_t process, Circuit& circuit);

  std::vector<std::int64_t> caps_;
  std::vector<std::vector<Circuit::Literal>> at_;
  std::vector<std::vector<Circuit::Literal>> clock_;
  std::vector<std::optional<Atom>> atoms_;
  std::map<std::size_t, Bit> bits_;
};

}  // namespace tpn

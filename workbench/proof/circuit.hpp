// A sequential circuit of and-gates and inverters: inputs, latches that start at 0, and signals
// that must never be 1.
//
// A literal is 2 * variable + sign: odd ones are negated; 0 is false and 1 is true. Variables are
// numbered inputs first, then latches, then gates, each gate after what it joins, so that the
// numbers are those of an AIGER file as they stand.

#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace tpn {

class Circuit {
 public:
  using Literal = std::uint32_t;

  static constexpr Literal no = 0;
  static constexpr Literal yes = 1;
  static constexpr Literal inverted(Literal a) { return a ^ 1U; }

  // All inputs first, then all latches, then gates (asserted).
  Literal input(std::string name);
  Literal latch(std::string name);
  void next(Literal latch, Literal value);  // asserts that it is a latch, positive
  void bad(Literal signal, std::string name);

  // Gates; equal ones are one.
  Literal both(Literal a, Literal b);
  Literal either(Literal a, Literal b) { return inverted(both(inverted(a), inverted(b))); }
  Literal all(std::vector<Literal> literals);
  Literal any(std::vector<Literal> literals);

  struct Named {
    Literal literal = no;
    std::string name;
  };
  struct Latch {
    Literal literal = no;
    Literal next = no;
    std::string name;
  };
  struct Gate {
    Literal left = no;  // the larger one
    Literal right = no;
  };

  const std::vector<Named>& inputs() const { return inputs_; }
  const std::vector<Latch>& latches() const { return latches_; }
  const std::vector<Gate>& gates() const { return gates_; }
  const std::vector<Named>& bads() const { return bads_; }
  Literal literal(std::size_t gate) const;  // its output

  void renameInput(std::size_t index, std::string name) { inputs_[index].name = std::move(name); }
  void renameLatch(std::size_t index, std::string name) { latches_[index].name = std::move(name); }
  void replaceBad(Literal signal, std::string name) { bads_ = {{signal, std::move(name)}}; }

 private:
  std::vector<Named> inputs_;
  std::vector<Latch> latches_;
  std::vector<Gate> gates_;
  std::vector<Named> bads_;
  std::unordered_map<std::uint64_t, Literal> found_;  // both operands -> the gate
};

// As an AIGER 1.9 file, with names in the symbol table and the comment, if any, at the end.
std::string asciiAiger(const Circuit& circuit, const std::string& comment);
std::string binaryAiger(const Circuit& circuit, const std::string& comment);

}  // namespace tpn

// AIGER files as their readers see them: both forms, evaluated for given values, and as clauses.

#pragma once

#include <cassert>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "workbench/solvers/solver.hpp"

namespace tpn::aiger {

using Literal = unsigned;

struct File {
  Literal variables = 0;
  std::vector<Literal> inputs;
  std::vector<Literal> latches;
  std::vector<Literal> next;
  std::vector<Literal> bads;
  struct Gate {
    Literal output, left, right;
  };
  std::vector<Gate> gates;
  std::vector<std::string> inputNames;
  std::vector<std::string> latchNames;
  std::vector<std::string> badNames;
  std::string comment;
};

inline Literal byteCoded(std::istream& in) {
  Literal value = 0;
  for (unsigned shift = 0;; shift += 7) {
    const int byte = in.get();
    if (byte < 0) throw std::runtime_error("ends inside a number");
    value |= static_cast<Literal>(byte & 127) << shift;
    if (byte < 128) return value;
  }
}

inline void readSymbols(std::istream& in, File& file) {
  std::string line;
  while (std::getline(in, line) && line != "c") {
    const std::size_t blank = line.find(' ');
    const std::size_t index = std::stoul(line.substr(1, blank - 1));
    auto& names = line[0] == 'i'   ? file.inputNames
                  : line[0] == 'l' ? file.latchNames
                                   : file.badNames;
    if (names.size() != index) throw std::runtime_error("symbol out of order: " + line);
    names.push_back(line.substr(blank + 1));
  }
  std::getline(in, file.comment, '\0');
}

inline File read(const std::string& text) {
  std::istringstream in(text);
  std::string form;
  Literal i = 0;
  Literal l = 0;
  Literal o = 0;
  Literal a = 0;
  Literal b = 0;
  File file;
  in >> form >> file.variables >> i >> l >> o >> a >> b;
  if (!in || (form != "aag" && form != "aig") || o != 0 || file.variables != i + l + a)
    throw std::runtime_error("bad header");
  const bool binary = form == "aig";
  const auto number = [&] {
    Literal value = 0;
    in >> value;
    return value;
  };
  for (Literal k = 0; k < i; ++k) file.inputs.push_back(binary ? 2 * (k + 1) : number());
  for (Literal k = 0; k < l; ++k) {
    file.latches.push_back(binary ? 2 * (i + k + 1) : number());
    file.next.push_back(number());
  }
  for (Literal k = 0; k < b; ++k) file.bads.push_back(number());
  if (binary) in.get();
  for (Literal k = 0; k < a; ++k) {
    File::Gate gate{2 * (i + l + k + 1), 0, 0};
    if (binary) {
      gate.left = gate.output - byteCoded(in);
      gate.right = gate.left - byteCoded(in);
    } else {
      gate.output = number();
      gate.left = number();
      gate.right = number();
    }
    if (gate.output <= gate.left || gate.left < gate.right) throw std::runtime_error("bad gate");
    file.gates.push_back(gate);
  }
  if (!binary) in.get();
  if (!in) throw std::runtime_error("ends too early");
  readSymbols(in, file);
  return file;
}

// The value of every variable, for those of inputs and latches.
class Values {
 public:
  Values(const File& file, const std::vector<bool>& inputs, const std::vector<bool>& latches)
      : values_(file.variables + 1) {
    for (std::size_t i = 0; i < inputs.size(); ++i) values_[file.inputs[i] / 2] = inputs[i];
    for (std::size_t i = 0; i < latches.size(); ++i) values_[file.latches[i] / 2] = latches[i];
    for (const File::Gate& gate : file.gates)
      values_[gate.output / 2] = of(gate.left) && of(gate.right);
  }

  bool of(Literal literal) const { return values_[literal / 2] != ((literal & 1U) != 0); }

 private:
  std::vector<bool> values_;
};

// The gates in a solver; variable v of the file is variable base + v there.
class Clauses {
 public:
  Clauses(const File& file, Solver& solver, int base) : solver_(solver), base_(base) {
    add({-literal(0)});
    for (const File::Gate& gate : file.gates) {
      add({-literal(gate.output), literal(gate.left)});
      add({-literal(gate.output), literal(gate.right)});
      add({literal(gate.output), -literal(gate.left), -literal(gate.right)});
    }
  }

  int literal(Literal of) const {
    const int variable = base_ + static_cast<int>(of / 2) + 1;
    return (of & 1U) != 0 ? -variable : variable;
  }

  void add(const std::vector<int>& clause) {
    for (const int literal : clause) solver_.add(literal);
    solver_.add(0);
  }
  void equal(int a, int b) {
    add({-a, b});
    add({a, -b});
  }

 private:
  Solver& solver_;
  int base_;
};

}  // namespace tpn::aiger
